#include "config/clear_modul.h"

#include "config/modul_familie.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"
#include "station/bhf_loeschen.h"
#include "universal/universal_zellen.h"

namespace planor {

void Clear_Modul(Anlage& anlage, Zellanzeige& anzeige, int x, int y)
{
    geschuetzt("NavikKonfig : Clear_Modul", [&] {
        XY_Typ& zelle = anlage.XY(x, y);
        if (istUniversal(zelle.XY_ArtNr)) {
            Clear_Universal(anlage, anzeige, x, y);
            return;
        }
        const int bhf = zelle.XY_BhfIDX;
        switch (zelle.XY_BETR) {
        case 4:
            if (bhf != 0)
                Clear_Bhf_Einfahr(anlage, anzeige, bhf);
            break;
        case 5:
            if (bhf != 0)
                Clear_Bhf_Ausfahr(anlage, anzeige, bhf);
            break;
        case 6:
            if (bhf != 0 && zelle.XY_GleisIDX != 0)
                Clear_Bhf_Gleis(anlage, anzeige, bhf, zelle.XY_GleisIDX);
            break;
        case 7:
        case 8:
            if (bhf != 0)
                Clr_Bhf(anlage, anzeige, bhf);
            break;
        default:
            break;
        }
        zelle.XY_BETR = anlage.XY_Leer().XY_BETR;
        zelle.XY_BhfIDX = 0;
        zelle.XY_GleisIDX = 0;
        zelle.XY_BlkMeld = 0;
        for (int i = 2; i <= 127; ++i)
            zelle.XY_LNCV(i) = 0;
        set_modul_optionen(anlage, x, y);
        anzeige.SetzeText(x, y);
    });
}

}  // namespace planor
