#include "editor/bus_meldung.h"

#include "loconet/empfang.h"

namespace planor {

BusMeldung Get_Adr_from_LN(const Empfang& e, int zeile)
{
    BusMeldung m;
    if (zeile == ZeileNavik && e.wert(zeile, 0) == 0xE4) {
        m.art = BusMeldung::Empfaenger;
        m.status = e.wert(zeile, 3);
        m.adresse = Long(e.wert(zeile, 3) & 31) * 128 + e.wert(zeile, 4);
        m.lok = Long(e.wert(zeile, 5)) * 128 + e.wert(zeile, 6);
    } else if (zeile == ZeileSwReq && e.wert(zeile, 0) == 0xB0 && (e.wert(zeile, 2) & 0x10)) {
        m.art = BusMeldung::Magnetartikel;
        m.adresse = e.wert(zeile, 1) + Long(e.wert(zeile, 2) & 15) * 128 + 1;
        m.zustand = Integer((e.wert(zeile, 2) >> 5) & 1);
    }
    return m;
}

}  // namespace planor
