#include "editor/adr_zeilen.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "editor/zelltext.h"

namespace planor {

namespace {

constexpr int Bahnhofsgleis = 6; // XY_BETR of a station track

} // namespace

QString AdrZeileMagnetartikel(const Anlage& anlage, const Elementkatalog& katalog, int x, int y)
{
    const int typ = katalog.ElementTab(anlage.XY(x, y).XY_Element).Typ;
    return typ >= 101 && typ <= 599 ? Zelltext(anlage, katalog, x, y) : QString();
}

QString AdrZeileEmpfaenger(const Anlage& anlage, const Elementkatalog& katalog, int x, int y)
{
    const XY_Typ& z = anlage.XY(x, y);
    const int typ = katalog.ElementTab(z.XY_Element).Typ;
    if (typ < 800 || typ > 841 || z.XY_ArtNr == 0)
        return QString();
    if (typ >= 840) {
        const bool hauptzelle
            = z.XY_SenX >= 1 && z.XY_SenY >= 1 && z.XY_SenX <= MaxDimension && z.XY_SenY <= MaxDimension;
        return QString::number(Int_to_Unsig(hauptzelle ? anlage.XY(z.XY_SenX, z.XY_SenY).XY_LNCV(0) : z.XY_LNCV(0)));
    }
    if (z.XY_SenStat == 2)
        return Zelltext(anlage, katalog, x, y);
    QString text = QString::number(Int_to_Unsig(z.XY_LNCV(0)));
    if (z.XY_BETR == Bahnhofsgleis && z.XY_GleisIDX != 0)
        text += QStringLiteral("/Gl.") + QString::number(z.XY_GleisIDX);
    return text;
}

} // namespace planor
