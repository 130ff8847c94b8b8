#pragma once
// The one length rule of LocoNet messages, for every place that cuts a byte
// stream into messages (the monitor, the LbServer transport, the simulator):
// opcode 0x80–0x9F two bytes, 0xA0–0xBF four, 0xC0–0xDF six, 0xE0 and up as
// many as the second byte says. An opcode starts a new message whatever came
// before. A length byte below the bytes already there (0 or 1) never
// completes: the data bytes after it belong to that message until the next
// opcode, so none of them is taken for anything else.

#include <QByteArray>

namespace planor {

class Nachrichtenrahmen {
public:
    // `hoechstens`: a message that grows past it without completing is
    // dropped, and the data bytes up to the next opcode with it.
    explicit Nachrichtenrahmen(int hoechstens = 512) : hoechstens_(hoechstens) {}

    enum class Stand {
        Ausserhalb,  // a data byte outside any message
        Teil,        // part of a message under way
        Fertig,      // the byte completed `nachricht()`
    };
    Stand byte(quint8 b);

    // The message under way, or the one just completed.
    const QByteArray& nachricht() const { return nachricht_; }
    // Drops the message under way; data bytes up to the next opcode are
    // outside then.
    void abbrechen();

private:
    QByteArray nachricht_;
    int laenge_ = 0;      // 0: none under way; -1: the second byte tells
    bool innen_ = false;  // within a message (also one that cannot complete)
    int hoechstens_;
};

}  // namespace planor
