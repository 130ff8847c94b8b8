#pragma once
// The simulator's framer for bytes that one party puts on the bus: whole
// LocoNet messages by the one length rule (loconet/rahmen.h), and, between messages,
// the lines of text a command station is spoken to with ("xB19200\r"
// while open_com sets it up). Each party has its own framer, so that bytes
// of two parties never mix.

#include "loconet/rahmen.h"

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

    Nachrichtenrahmen rahmen_;
    QByteArray text_;
};

}  // namespace planor
