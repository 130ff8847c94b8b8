#include "platform/sim_rahmen.h"

namespace planor {

std::vector<SimRahmen::Stueck> SimRahmen::bytes(const QByteArray& daten)
{
    std::vector<Stueck> aus;
    for (const char b : daten)
        byte(static_cast<quint8>(b), aus);
    return aus;
}

void SimRahmen::byte(quint8 b, std::vector<Stueck>& aus)
{
    // An opcode starts a message whatever came before: a cut-off message or
    // a half line of text is dropped, as a receiver on the bus would.
    switch (rahmen_.byte(b)) {
    case Nachrichtenrahmen::Stand::Fertig:
        aus.push_back({false, rahmen_.nachricht()});
        return;
    case Nachrichtenrahmen::Stand::Teil:
        text_.clear();
        return;
    case Nachrichtenrahmen::Stand::Ausserhalb:
        break;
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
