// PultAdr_MouseDown and Get_Adr_from_LN (view 2).
#include "editor/adr_zuordnung.h"

#include "config/clear_modul.h"
#include "config/modul_familie.h"
#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"
#include "loconet/empfang.h"
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "platform/uhr.h"

namespace planor {

namespace {

// Holds `offen` for the time of a question, a dialog or an exchange.
struct Offen {
    explicit Offen(bool& f)
        : flag(f)
    {
        flag = true;
    }
    ~Offen() { flag = false; }
    bool& flag;
};

} // namespace

QString AdrFrageText(const BusMeldung& m)
{
    const QString adresse = QString::number(m.adresse);
    if (m.art == BusMeldung::Empfaenger)
        return QStringLiteral("  NAVIK/TOBRA Meldung vom Empfänger") + adresse + QStringLiteral(" empfangen:  \n")
            + QStringLiteral("  Soll die Adresse einem NAVIK/TOBRA Empfänger  \n")
            + QStringLiteral("  mit der Maus zugeordnet werden?         ");
    return QStringLiteral("Magnetartikeladresse") + adresse + QStringLiteral(" empfangen:  \n")
        + QStringLiteral("  Soll die Adresse einer Weiche oder einem   \n")
        + QStringLiteral("  Signal mit der Maus zugeordnet werden?");
}

QString RichtungText(int richtung)
{
    return QStringLiteral("           Es wurde die Fahrtrichtung \n")
        + (richtung == 0 ? QStringLiteral("           von Sensor 1 nach Sensor 2 \n")
                         : QStringLiteral("           von Sensor 2 nach Sensor 1 \n"))
        + QStringLiteral("           empfangen !! \n")
        + QStringLiteral("        Ist das Symbol im Gleisplan richtig? ");
}

bool RichtungPasst(int typ, int richtung)
{
    const bool zweiSensoren = (typ >= 800 && typ <= 807) || (typ >= 830 && typ <= 833);
    return richtung < 0 || !zweiSensoren || richtung == 0;
}

PultAdrMaus::PultAdrMaus(Anlage& anlage, const Elementkatalog& katalog, LocoNetLink& link, Benutzer& benutzer,
    Zellanzeige& zellen, AdrAnzeige& anzeige)
    : anlage_(anlage)
    , katalog_(katalog)
    , link_(link)
    , benutzer_(benutzer)
    , zellen_(zellen)
    , anzeige_(anzeige)
{
}

void PultAdrMaus::flagsLoeschen()
{
    AdrAusBus = false;
    AdrArt = BusMeldung::Keine;
    Sensor2Wartet = false;
}

void PultAdrMaus::Get_Adr_from_LN(const BusMeldung& m)
{
    if (offen_ || m.art == BusMeldung::Keine || !m.fuerAdressAnsicht())
        return;
    geschuetzt("MainWin : Get_Adr_from_LN", [&] {
        bool ja = false;
        {
            Offen offen(offen_);
            ja = anzeige_.frageJaNein(AdrFrageTitel, AdrFrageText(m));
        }
        if (!ja)
            return;
        AdrAusBus = true;
        AdrArt = m.art;
        if (m.art == BusMeldung::Empfaenger) {
            NavikAdrWert = m.adresse;
            SensorRichtung = (m.status & 0x40) ? (m.status >> 5) & 1 : -1;
        } else {
            AdrWert = m.adresse;
        }
    });
}

void PultAdrMaus::PultAdr_MouseDown(int x, int y)
{
    if (offen_ || x < 1 || y < 1 || x > anlage_.DimensionenX || y > anlage_.DimensionenY)
        return;
    geschuetzt("MainWin : PultAdr_MouseDown", [&] {
        Offen offen(offen_);
        const int typ = katalog_.ElementTab(anlage_.XY(x, y).XY_Element).Typ;
        if (Sensor2Wartet) {
            sensor2Verbinden(x, y);
            return;
        }
        const std::optional<AdrFelder> felder = AdrEingabeFelder(typ);
        if (!felder)
            return; // an empty cell, a track, or a controller (Uni_Adr is not built yet)
        if (AdrAusBus) {
            if (felder->empfaenger != (AdrArt == BusMeldung::Empfaenger))
                return; // the address waits for a cell of its kind
            const bool gespeichert = felder->empfaenger ? empfaengerVomBus(x, y, typ) : magnetartikelVomBus(x, y, typ);
            neuZeichnen(x, y, gespeichert);
            return;
        }
        switch (anzeige_.AdrEingabe_zeigen(x, y)) {
        case AdrEingabeErgebnis::Sensor2Wartet:
            Sensor2Wartet = true;
            Sensor2X = x;
            Sensor2Y = y;
            return;
        case AdrEingabeErgebnis::Gespeichert:
            neuZeichnen(x, y, true);
            return;
        default:
            neuZeichnen(x, y, false);
            return;
        }
    });
}

void PultAdrMaus::sensor2Verbinden(int x, int y)
{
    XY_Typ& eingang1 = anlage_.XY(x, y);
    const int typ = katalog_.ElementTab(eingang1.XY_Element).Typ;
    const bool passt = typ >= 800 && typ <= 825 && eingang1.XY_ArtNr == Einzelsensor && eingang1.XY_SenStat == 1
        && !(x == Sensor2X && y == Sensor2Y);
    if (!passt) {
        benutzer_.meldung(QStringLiteral("Fehler"),
            QStringLiteral("Das ausgewählte Modul ist kein Einzelsensor am Eingang 1!\n"
                           "          Bitte die Auswahl wiederholen! "),
            Symbol::Kritisch);
        return; // the wait goes on: the user chooses again
    }
    if (eingang1.XY_LNCV(0) == 0) {
        benutzer_.meldung(QStringLiteral("Fehler"),
            QStringLiteral("Das ausgewählte Modul ist noch nicht initialisiert!\n"
                           "  Bitte zuerst Eingang 1 initialisieren und dann  \n"
                           "     den Vorgang mit Eingang 2 wiederholen!"),
            Symbol::Kritisch);
        Sensor2Wartet = false;
        return;
    }
    // Both cells leave the pairs they were in; input 2 owns no values: it is
    // its element, the pointer to input 1 and, for its text, the module's
    // address and article.
    SensorPaarLoesen(anlage_, zellen_, x, y);
    SensorPaarLoesen(anlage_, zellen_, Sensor2X, Sensor2Y);
    XY_Typ& eingang2 = anlage_.XY(Sensor2X, Sensor2Y);
    const Integer element = eingang2.XY_Element;
    eingang2 = anlage_.XY_Leer();
    eingang2.XY_Element = element;
    eingang2.XY_ArtNr = Einzelsensor;
    eingang2.XY_LNCV(0) = eingang1.XY_LNCV(0);
    eingang2.XY_SenStat = 2;
    eingang2.XY_SenX = Integer(x);
    eingang2.XY_SenY = Integer(y);
    eingang1.XY_SenStat = 1;
    eingang1.XY_SenX = Integer(Sensor2X);
    eingang1.XY_SenY = Integer(Sensor2Y);
    neuZeichnen(Sensor2X, Sensor2Y, true);
    neuZeichnen(x, y, true);
}

bool PultAdrMaus::empfaengerVomBus(int x, int y, int typ)
{
    if (const std::optional<QPoint> treffer = chk_navik_adr(anlage_, katalog_, x, y, NavikAdrWert)) {
        NavikAdrVorhandenMeldung(benutzer_, *treffer);
        return false;
    }
    anzeige_.beschaeftigt(true);
    Long artikel = 0;
    for (const Long a : SuchArtikel) {
        Long err = ProgOK;
        Prog_On(link_, a, NavikAdrWert, err);
        if (err == ProgOK) {
            artikel = a;
            break;
        }
    }
    if (artikel == 0) {
        anzeige_.beschaeftigt(false);
        prog_error_meldung(benutzer_, ProgKeineAntwort);
        return false;
    }
    // Get_Navik_Version opens a session of its own: this one ends first.
    Long offErr = ProgOK;
    Prog_Off_mit_Echo(link_, artikel, NavikAdrWert, offErr);
    const Long artNr = artikel == 5330 ? 5330 : artikel * 10;
    const bool neu = EmpfaengerEintragen(anlage_, zellen_, x, y, NavikAdrWert, artNr);
    link_.empfang().zeileLoeschen(ZeilePeerXfer);
    Get_Navik_Version(link_, benutzer_, anlage_, x, y);
    ProgOffEcho_abwarten(link_);
    anzeige_.beschaeftigt(false);
    // The general values; a new module also loses the function of the old one.
    if (neu)
        Clear_Modul(anlage_, zellen_, x, y);
    else
        set_modul_optionen(anlage_, x, y);
    if (!RichtungPasst(typ, SensorRichtung))
        benutzer_.meldung(RichtungTitel, RichtungText(SensorRichtung), Symbol::Ausruf);
    return true;
}

bool PultAdrMaus::magnetartikelVomBus(int x, int y, int typ)
{
    XY_Typ& zelle = anlage_.XY(x, y);
    const int anzahl = int(AdrEingabeFelder(typ)->beschriftungen.size());
    int feld = 0;
    if (anzahl > 1) {
        feld = anzeige_.Adr12_Abfrage(anzahl) - 1;
        if (feld < 0)
            return false;
    }
    AdrFeldZiel(zelle, typ, feld) = CInt(AdrWert);
    return true;
}

void PultAdrMaus::neuZeichnen(int x, int y, bool geaendert)
{
    zellen_.SetzeText(x, y);
    anzeige_.set_PultAdr(x, y);
    flagsLoeschen();
    if (geaendert)
        anlage_.PultGeaendert = 1;
}

} // namespace planor
