#include "editor/mag_art_status.h"

#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"

#include <array>

namespace planor {

namespace {

const QString Adresse = QStringLiteral("Adresse: ");
const QString Hauptsignal = QStringLiteral("Hauptsignal: ");
const QString Vorsignal = QStringLiteral("Vorsignal: ");
const QString Rangiersignal = QStringLiteral("Rangiersignal: ");

// What each of XY_ADR1..3 stands for in an element of this type (the
// AdrEingabe fields; 521/522 keep the shunting head in XY_ADR3).
std::array<QString, 3> Beschriftung(int typ)
{
    if (typ == 501 || typ == 502)
        return {Hauptsignal, Adresse, Adresse};
    if (typ == 511 || typ == 512)
        return {Hauptsignal, Vorsignal, Adresse};
    if (typ == 521 || typ == 522)
        return {Hauptsignal, Adresse, Rangiersignal};
    if (typ == 531 || typ == 532)
        return {Hauptsignal, Vorsignal, Rangiersignal};
    if (typ == 541 || typ == 542)
        return {Vorsignal, Adresse, Adresse};
    if (typ == 551 || typ == 552)
        return {Rangiersignal, Adresse, Adresse};
    return {Adresse, Adresse, Adresse};
}

}  // namespace

MagArtStatus_Zustand MagArtStatus_fuerMonitor(const Anlage& anlage, const Elementkatalog& katalog, int x, int y)
{
    return geschuetzt("MagArtStatus : Form_Activate", MagArtStatus_Zustand{}, [&] {
        const XY_Typ& zelle = anlage.XY(x, y);
        const std::array<QString, 3> text = Beschriftung(katalog.ElementTab(zelle.XY_Element).Typ);
        const Integer adressen[] = {zelle.XY_ADR1, zelle.XY_ADR2, zelle.XY_ADR3};
        MagArtStatus_Zustand z;
        for (int i = 1; i <= 3; ++i) {
            const Integer a = adressen[i - 1];
            z.Adresse(i) = a > 0 ? a : 0;
            z.AdrOptAktiv(i) = a > 0;
            z.AdrOptText(i) = text[std::size_t(i - 1)] + (a > 0 ? QString::number(a) : QStringLiteral("-"));
        }
        for (int i = 1; i <= 3; ++i)
            if (z.AdrOptAktiv(i)) {
                AdrOpt_Click(z, i);
                break;
            }
        StatOpt_Click(z, 0);
        return z;
    });
}

void StatOpt_Click(MagArtStatus_Zustand& z, int index)
{
    for (int i = 0; i <= 1; ++i)
        z.StatOpt(i) = i == index;
}

void AdrOpt_Click(MagArtStatus_Zustand& z, int index)
{
    for (int i = 1; i <= 3; ++i)
        z.AdrOpt(i) = i == index;
}

Long MagArtStatus_Adresse(const MagArtStatus_Zustand& z)
{
    for (int i = 1; i <= 3; ++i)
        if (z.AdrOpt(i) && z.AdrOptAktiv(i))
            return z.Adresse(i);
    return 0;
}

Integer MagArtStatus_Stellung(const MagArtStatus_Zustand& z)
{
    return z.StatOpt(1) ? 1 : 0;
}

}  // namespace planor
