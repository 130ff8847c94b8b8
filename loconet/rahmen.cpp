#include "loconet/rahmen.h"

namespace planor {

Nachrichtenrahmen::Stand Nachrichtenrahmen::byte(quint8 b)
{
    if (b & 0x80) {
        nachricht_ = QByteArray(1, char(b));
        laenge_ = b < 0xA0 ? 2 : b < 0xC0 ? 4 : b < 0xE0 ? 6 : -1;
        innen_ = true;
        return Stand::Teil;
    }
    if (!innen_)
        return Stand::Ausserhalb;
    if (nachricht_.size() >= hoechstens_) {
        abbrechen();
        return Stand::Teil;
    }
    nachricht_.append(char(b));
    if (laenge_ == -1)
        laenge_ = b;
    if (nachricht_.size() == laenge_) {
        innen_ = false;
        laenge_ = 0;
        return Stand::Fertig;
    }
    return Stand::Teil;
}

void Nachrichtenrahmen::abbrechen()
{
    nachricht_.clear();
    laenge_ = 0;
    innen_ = false;
}

}  // namespace planor
