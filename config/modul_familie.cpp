#include "config/modul_familie.h"

#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"

namespace planor {

int KatAnz(const Anlage& anlage, int x, int y)
{
    return geschuetzt("Funktionen : KatAnz", 0, [&] {
        const XY_Typ& zelle = anlage.XY(x, y);
        switch (zelle.XY_ArtNr) {
        case 47220:
        case 47240:
        case 5330:
            return 4;
        case 47230:
            return zelle.XY_Version == 0 || zelle.XY_Version == 1 ? 4 : zelle.XY_Version == 2 ? 15 : 0;
        case 47120:
        case 47130:
        case 47190:
        case 47320:
        case 47330:
            return 15;
        default:
            return 0;
        }
    });
}

void set_modul_optionen(Anlage& anlage, int x, int y)
{
    geschuetzt("Funktionen : set_modul_optionen", [&] {
        XY_Typ& zelle = anlage.XY(x, y);
        const Grundeinst_Typ& g = anlage.Grundeinst;
        zelle.XY_BlkMeld = g.BlkZustMeld;
        const int status = 8 * g.BetriebszustSpeichern + g.LocoNetStatMessage;
        switch (Modulfamilie(zelle.XY_ArtNr, zelle.XY_Version)) {
        case 1:
            zelle.XY_LNCV(15) = CInt(status);
            zelle.XY_LNCV(14) = g.LNCV14;
            break;
        case 2:
            zelle.XY_LNCV(15) = CInt(32 * g.ZugKatRD2_47231 + status);
            zelle.XY_LNCV(14) = g.LNCV14;
            zelle.XY_LNCV(19) = g.LNCV19;
            break;
        case 3:
            zelle.XY_LNCV(15) = CInt(status);
            zelle.XY_LNCV(17) = g.LNCV17;
            zelle.XY_LNCV(18) = g.LNCV18;
            zelle.XY_LNCV(19) = g.LNCV19;
            break;
        case 4:
            zelle.XY_LNCV(15) = CInt(status);
            zelle.XY_SenStat = 1;
            break;
        default:
            break;
        }
        // A sensor module never stays without a mode.
        if (zelle.XY_SenStat > 0) {
            zelle.XY_LNCV(2) = 3;
            zelle.XY_BETR = 9;
        }
    });
}

}  // namespace planor
