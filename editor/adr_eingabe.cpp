// AdrEingabe: the address entry of the address view.
#include "editor/adr_eingabe.h"

#include "config/clear_modul.h"
#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"

namespace planor {

namespace {

const QString MagTitel = QStringLiteral("Magnetartikeladresse");
const QString MagAdresse = QStringLiteral("Magnetart.-Adresse:");
const QString Hauptsignal = QStringLiteral("Hautsignal-Adresse:");
const QString Vorsignal = QStringLiteral("Vorsignal-Adresse:");
const QString Rangiersignal = QStringLiteral("Rangiersignal-Adr.:");
constexpr int MagGrenze = 2047;
constexpr int EmpfaengerGrenze = 4096;

bool zwischen(int typ, int von, int bis)
{
    return typ >= von && typ <= bis;
}

QString feldText(Long wert)
{
    return wert == 0 ? QString() : QString::number(wert);
}

} // namespace

std::optional<AdrFelder> AdrEingabeFelder(int typ)
{
    if (zwischen(typ, 101, 110) || typ == 501 || typ == 502 || typ == 541 || typ == 542 || typ == 551 || typ == 552)
        return AdrFelder {MagTitel, {MagAdresse}, MagGrenze, false};
    if (zwischen(typ, 201, 203) || typ == 301 || typ == 302)
        return AdrFelder {MagTitel, {QStringLiteral("Magnetart.-Adresse1:"), QStringLiteral("Magnetart.-Adresse2:")},
            MagGrenze, false};
    if (typ == 511 || typ == 512)
        return AdrFelder {MagTitel, {Hauptsignal, Vorsignal}, MagGrenze, false};
    if (typ == 521 || typ == 522)
        return AdrFelder {MagTitel, {Hauptsignal, Rangiersignal}, MagGrenze, false};
    if (typ == 531 || typ == 532)
        return AdrFelder {MagTitel, {Hauptsignal, Vorsignal, Rangiersignal}, MagGrenze, false};
    if (zwischen(typ, 800, 825) || zwischen(typ, 830, 833))
        return AdrFelder {QStringLiteral("NAVIK/TOBRA-Empfänger Adresse"),
            {QStringLiteral("Moduladresse:"), QStringLiteral("Art.Nr.:")}, EmpfaengerGrenze, true};
    return std::nullopt;
}

Integer& AdrFeldZiel(XY_Typ& zelle, int typ, int feld)
{
    switch (feld) {
    case 0:
        return zelle.XY_ADR1;
    case 1:
        return typ == 521 || typ == 522 ? zelle.XY_ADR3 : zelle.XY_ADR2;
    default:
        return zelle.XY_ADR3;
    }
}

int AdrTextfelder(const AdrEingabe_Zustand& z)
{
    return z.felder.empfaenger ? 1 : int(z.felder.beschriftungen.size());
}

bool EingangSichtbar(const AdrEingabe_Zustand& z)
{
    return z.felder.empfaenger && z.ArtNrCb >= 0 && ArtNrListe.at(z.ArtNrCb).toLong() == Einzelsensor;
}

bool AdrFeldFrei(const AdrEingabe_Zustand& z, int feld)
{
    return feld < AdrTextfelder(z) && !(EingangSichtbar(z) && z.EingangOpt == 1);
}

CheckWertErgebnis AdrFeldPruefen(const AdrEingabe_Zustand& z, int feld)
{
    return Check_Wert(z.felder.beschriftungen.value(feld), z.AdrTxt.at(feld), z.felder.obergrenze);
}

bool AdrOKFrei(const AdrEingabe_Zustand& z)
{
    for (int i = 0; i < AdrTextfelder(z); ++i)
        if (AdrFeldFrei(z, i) && !AdrFeldPruefen(z, i).gueltig)
            return false;
    return !z.felder.empfaenger || z.ArtNrCb >= 0;
}

std::optional<AdrEingabe_Zustand> AdrEingabe_laden(const Anlage& anlage, const Elementkatalog& katalog, int x, int y)
{
    const XY_Typ& zelle = anlage.XY(x, y);
    const int typ = katalog.ElementTab(zelle.XY_Element).Typ;
    const std::optional<AdrFelder> felder = AdrEingabeFelder(typ);
    if (!felder)
        return std::nullopt;
    AdrEingabe_Zustand z;
    z.typ = typ;
    z.felder = *felder;
    if (felder->empfaenger) {
        z.AdrTxt[0] = feldText(Int_to_Unsig(zelle.XY_LNCV(0)));
        z.ArtNrCb = Vorhanden(ArtNrListe, QString::number(zelle.XY_ArtNr));
        z.EingangOpt = zelle.XY_SenStat == 2 ? 1 : 0;
    } else {
        XY_Typ kopie = zelle;
        for (int i = 0; i < AdrTextfelder(z); ++i)
            z.AdrTxt[i] = feldText(AdrFeldZiel(kopie, typ, i));
    }
    return z;
}

std::optional<QPoint> chk_navik_adr(const Anlage& anlage, const Elementkatalog& katalog, int x, int y, Long adresse)
{
    if (adresse == 0)
        return std::nullopt;
    const XY_Typ& eigene = anlage.XY(x, y);
    for (int i = 1; i <= anlage.DimensionenX; ++i)
        for (int j = 1; j <= anlage.DimensionenY; ++j) {
            if (i == x && j == y)
                continue;
            const XY_Typ& andere = anlage.XY(i, j);
            const bool partner = (eigene.XY_SenStat != 0 && eigene.XY_SenX == i && eigene.XY_SenY == j)
                || (andere.XY_SenStat != 0 && andere.XY_SenX == x && andere.XY_SenY == y);
            if (!partner && katalog.ElementTab(andere.XY_Element).Typ >= 800
                && Int_to_Unsig(andere.XY_LNCV(0)) == adresse)
                return QPoint(i, j);
        }
    return std::nullopt;
}

void NavikAdrVorhandenMeldung(Benutzer& benutzer, QPoint position)
{
    benutzer.meldung(QStringLiteral("Fehler"),
        QStringLiteral("NAVIK/TOBRA Adresse schon vorhanden \nan Position: ") + QString::number(position.x())
            + QStringLiteral(", ") + QString::number(position.y()) + QStringLiteral(" !!"),
        Symbol::Kritisch);
}

void SensorPaarLoesen(Anlage& anlage, Zellanzeige& anzeige, int x, int y)
{
    XY_Typ& zelle = anlage.XY(x, y);
    if (zelle.XY_SenStat != 1 && zelle.XY_SenStat != 2)
        return;
    const int px = zelle.XY_SenX, py = zelle.XY_SenY;
    zelle.XY_SenStat = 0;
    zelle.XY_SenX = 0;
    zelle.XY_SenY = 0;
    if (px < 1 || py < 1 || px > MaxDimension || py > MaxDimension || (px == x && py == y))
        return;
    XY_Typ& partner = anlage.XY(px, py);
    if (partner.XY_SenX != x || partner.XY_SenY != y)
        return;
    if (partner.XY_SenStat == 2) {
        const Integer element = partner.XY_Element;
        partner = anlage.XY_Leer();
        partner.XY_Element = element;
    } else if (partner.XY_SenStat == 1) {
        partner.XY_SenX = 0;
        partner.XY_SenY = 0;
    }
    anzeige.SetzeText(px, py);
}

bool EmpfaengerEintragen(Anlage& anlage, Zellanzeige& anzeige, int x, int y, Long adresse, Long artNr)
{
    XY_Typ& zelle = anlage.XY(x, y);
    const bool neu = zelle.XY_ArtNr != artNr || zelle.XY_SenStat == 2;
    if (neu)
        SensorPaarLoesen(anlage, anzeige, x, y);
    zelle.XY_LNCV(0) = Unsig_to_Int(adresse);
    if (neu) {
        zelle.XY_ArtNr = artNr;
        zelle.XY_Version = 0;
    } else if (zelle.XY_SenStat == 1 && zelle.XY_SenX >= 1 && zelle.XY_SenY >= 1) {
        XY_Typ& partner = anlage.XY(zelle.XY_SenX, zelle.XY_SenY);
        if (partner.XY_SenStat == 2 && partner.XY_SenX == x && partner.XY_SenY == y) {
            partner.XY_LNCV(0) = zelle.XY_LNCV(0);
            anzeige.SetzeText(zelle.XY_SenX, zelle.XY_SenY);
        }
    }
    return neu;
}

AdrEingabeErgebnis AdrEingabe_OK(const AdrEingabe_Zustand& z, Anlage& anlage, const Elementkatalog& katalog,
    Zellanzeige& anzeige, Benutzer& benutzer, int x, int y)
{
    return geschuetzt("AdrEingabe : OK_But_Click", AdrEingabeErgebnis::Abgebrochen, [&] {
        XY_Typ& zelle = anlage.XY(x, y);
        if (!z.felder.empfaenger) {
            for (int i = 0; i < AdrTextfelder(z); ++i)
                AdrFeldZiel(zelle, z.typ, i) = CInt(Feldwert(z.AdrTxt.at(i)));
        } else if (EingangSichtbar(z) && z.EingangOpt == 1) {
            benutzer.meldung(QStringLiteral("Einzelsensor Eingang2 ausgewählt:"),
                QStringLiteral("Bitte wählen Sie mit der Maus im Plan das Modul aus,\n"
                               "dass den zughörigen Eingang 1 enthält!"),
                Symbol::Information);
            return AdrEingabeErgebnis::Sensor2Wartet;
        } else {
            const Long adresse = CLng(Feldwert(z.AdrTxt.at(0)));
            if (const std::optional<QPoint> treffer = chk_navik_adr(anlage, katalog, x, y, adresse)) {
                NavikAdrVorhandenMeldung(benutzer, *treffer);
                return AdrEingabeErgebnis::Abgelehnt;
            }
            if (EmpfaengerEintragen(anlage, anzeige, x, y, adresse, ArtNrListe.at(z.ArtNrCb).toLong()))
                Clear_Modul(anlage, anzeige, x, y);
        }
        anlage.PultGeaendert = 1;
        anzeige.SetzeText(x, y);
        return AdrEingabeErgebnis::Gespeichert;
    });
}

} // namespace planor
