#include "universal/universal_zellen.h"

#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"
#include "station/bhf_loeschen.h"

#include <vector>

namespace planor {

namespace {

// Clear_Universal's three steps on one cell's own values.
void zelleZuruecksetzen(Anlage& anlage, Zellanzeige& anzeige, XY_Typ& zelle)
{
    for (int i = 0; i <= MaxLNCV; ++i)
        zelle.XY_LNCV(i) = 0;
    if (zelle.XY_BhfIDX != 0) {
        Clr_Bhf(anlage, anzeige, zelle.XY_BhfIDX);
        zelle.XY_BhfIDX = 0;
    }
}

}  // namespace

void Clear_Universal(Anlage& anlage, Zellanzeige& anzeige, int x, int y)
{
    geschuetzt("Uni : Clear_Universal", [&] {
        XY_Typ& zelle = anlage.XY(x, y);
        const int hx = zelle.XY_SenX, hy = zelle.XY_SenY;
        const Long artNr = zelle.XY_ArtNr;
        zelleZuruecksetzen(anlage, anzeige, anlage.XY(hx, hy));
        zelle.XY_BETR = 20;
        anzeige.SetzeText(x, y);
        for (int gx = 1; gx <= anlage.DimensionenX; ++gx) {
            for (int gy = 1; gy <= anlage.DimensionenY; ++gy) {
                XY_Typ& andere = anlage.XY(gx, gy);
                if (andere.XY_SenX == hx && andere.XY_SenY == hy && andere.XY_ArtNr == artNr) {
                    zelleZuruecksetzen(anlage, anzeige, andere);
                    andere.XY_BETR = 20;
                    anzeige.SetzeText(gx, gy);
                }
            }
        }
    });
}

void Universal_Hauptzelle_weitergeben(Anlage& anlage, int x, int y)
{
    // A step of Element_Loeschen, under its guard.
    {
        const XY_Typ& haupt = anlage.XY(x, y);
        std::vector<std::pair<int, int>> weitere;
        for (int gx = 1; gx <= anlage.DimensionenX && weitere.size() < 5; ++gx)
            for (int gy = 1; gy <= anlage.DimensionenY && weitere.size() < 5; ++gy) {
                const XY_Typ& z = anlage.XY(gx, gy);
                if (z.XY_SenStat == 4 && z.XY_ArtNr == haupt.XY_ArtNr && z.XY_SenX == haupt.XY_SenX
                    && z.XY_SenY == haupt.XY_SenY)
                    weitere.emplace_back(gx, gy);
            }
        if (weitere.empty())
            return;
        const auto [nx, ny] = weitere.front();
        XY_Typ& neu = anlage.XY(nx, ny);
        // The controller's values move with its main cell, so that it lives on.
        neu.XY_LNCV = haupt.XY_LNCV;
        for (const auto& [gx, gy] : weitere) {
            XY_Typ& z = anlage.XY(gx, gy);
            z.XY_SenX = static_cast<Integer>(nx);
            z.XY_SenY = static_cast<Integer>(ny);
        }
        neu.XY_SenStat = 3;
    }
}

}  // namespace planor
