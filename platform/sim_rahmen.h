#pragma once
// The simulator's framer for bytes that one party puts on the bus: whole
// LocoNet messages by their length (opcode 0x80–0x9F 2 bytes, 0xA0–0xBF 4,
// 0xC0–0xDF 6, 0xE0 and up: the second byte tells), and, between messages,
// the lines of text a command station is spoken to with ("xB19200\r"
// while open_com sets it up). Each party has its own framer, so that bytes
// of two parties never mix.

#include <QByteArray>

#include <vector>

namespace planor {

class SimRahmen {
public:
    struct Stueck {
        bool text = false;  // a text line (without its CR/LF) rather than a message
        QByteArray bytes;
    };

    // Frames the bytes; complete messages and lines come out in their order.
    std::vector<Stueck> bytes(const QByteArray& daten);

    // Longest text line that is kept; a longer run of text is junk.
    static constexpr int TextGrenze = 80;

private:
    void byte(quint8 b, std::vector<Stueck>& aus);

    QByteArray nachricht_;
    int laenge_ = 0;  // 0: no message under way; -1: the second byte tells
    QByteArray text_;
};

// The length of a message by its opcode; -1 when the second byte tells.
int SimNachrichtLaenge(quint8 opcode);

}  // namespace planor
