#include "platform/sim_rahmen.h"

namespace planor {

int SimNachrichtLaenge(quint8 opcode)
{
    if (opcode < 0xA0)
        return 2;
    if (opcode < 0xC0)
        return 4;
    if (opcode < 0xE0)
        return 6;
    return -1;
}

std::vector<SimRahmen::Stueck> SimRahmen::bytes(const QByteArray& daten)
{
    std::vector<Stueck> aus;
    for (const char b : daten)
        byte(static_cast<quint8>(b), aus);
    return aus;
}

void SimRahmen::byte(quint8 b, std::vector<Stueck>& aus)
{
    if (b & 0x80) {
        // An opcode starts a message whatever came before: a cut-off message
        // or a half line of text is dropped, as a receiver on the bus would.
        text_.clear();
        nachricht_ = QByteArray(1, char(b));
        laenge_ = SimNachrichtLaenge(b);
        return;
    }
    if (laenge_ != 0) {
        nachricht_.append(char(b));
        if (laenge_ == -1) {
            // Opcode, length byte and checksum at the least; a shorter length
            // cannot be a message, and the bytes up to the next opcode are junk.
            laenge_ = b >= 3 ? int(b) : 0;
            if (laenge_ == 0)
                nachricht_.clear();
            return;
        }
        if (nachricht_.size() == laenge_) {
            aus.push_back({false, nachricht_});
            nachricht_.clear();
            laenge_ = 0;
        }
        return;
    }
    // Outside a message: text for the command station, up to CR or LF.
    if (b == '\r' || b == '\n') {
        if (!text_.isEmpty())
            aus.push_back({true, text_});
        text_.clear();
    } else if (b < 0x20 || text_.size() >= TextGrenze) {
        text_.clear();
    } else {
        text_.append(char(b));
    }
}

}  // namespace planor
