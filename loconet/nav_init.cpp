#include "loconet/nav_init.h"

#include "core/benutzer.h"
#include "core/check_wert.h"
#include "core/fehlerbehandlung.h"
#include "core/modul_artikel.h"
#include "core/panel_model.h"
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "loconet/nachricht.h"
#include "loconet/verbindung.h"

#include <algorithm>
#include <cmath>

namespace planor {

namespace {

// The last LNCV the initialisation clears, and the divisor of the progress fraction.
constexpr Long LetzteLncv = 127;
constexpr Long LncvVersion = 16;  // the firmware version, never written
constexpr Long LncvKonfig = 15;

bool adresseGueltig(const QString& text)
{
    return Check_Wert(QString(), text, NavInitAdresseMax, 1.0).gueltig;
}

// A field as the 16-bit stored value of an LNCV ("-" gives 0; beyond 65535
// the highest value, since an unchecked text may hold more digits).
Integer lncvWert(const QString& text)
{
    const double v = std::clamp(Feldwert(text), 0.0, 65535.0);
    return Unsig_to_Int(Long(v));
}

void fortschritt(NavInitForm& f, NavInitAnzeige& anzeige, Long i)
{
    f.prozAnteil = double(i) / double(LetzteLncv);
    f.prozTxt = QString::number(int(std::floor(f.prozAnteil * 100.0))) + u'%';
    anzeige.fortschritt(f.prozAnteil, f.prozTxt);
}

}  // namespace

QStringList NavInitArtikelListe()
{
    return {QStringLiteral("5330"),  QStringLiteral("47120"), QStringLiteral("47220"), QStringLiteral("47230"),
            QStringLiteral("47240"), QStringLiteral("47320"), QStringLiteral("47330")};
}

Long NavInitForm::artikel() const
{
    if (artikelIndex < 0 || artikelIndex >= artikelListe.size())
        return 0;
    return Long(artikelListe[artikelIndex].toInt());
}

bool NavInitForm::universal() const
{
    return istUniversal(artikel());
}

void NavInit_Form_Load(NavInitForm& f)
{
    geschuetzt("Nav_Init : Form_Load", [&] {
        f.artikelListe = NavInitArtikelListe();
        f.adr1 = QStringLiteral("-");
        f.adr2 = QStringLiteral("-");
        f.prozAnteil = 0;
        f.prozTxt = QStringLiteral("0%");
        f.knoepfeAktiv = true;
        f.sichtbar = true;
        NavInit_ArtNrCb_Click(f, 0);
    });
}

void NavInit_ArtNrCb_Click(NavInitForm& f, int index)
{
    geschuetzt("Nav_Init : ArtNrCb_Click", [&] {
        f.artikelIndex = index;
        f.sensorFrameSichtbar = !f.universal();
        f.warnung = f.universal() ? WarnungUniversal : WarnungNavikTobra;
        NavInit_Form_Activate(f);
    });
}

void NavInit_SenOpt_Click(NavInitForm& f, int index)
{
    geschuetzt("Nav_Init : SenOpt_Click", [&] {
        f.senOpt = index;
        NavInit_Form_Activate(f);
    });
}

void NavInit_Form_Activate(NavInitForm& f)
{
    f.adr2Aktiv = f.sensorFrameSichtbar && f.senOpt == 0;
}

void NavInit_Abbruch_Cmd_Click(NavInitForm& f)
{
    f.sichtbar = false;
}

bool NavInitEingabeGueltig(const NavInitForm& f)
{
    if (!adresseGueltig(f.adr1))
        return false;
    // For 47320/47330 only address 1 counts.
    if (f.universal())
        return true;
    if (f.senOpt == 0)
        return adresseGueltig(f.adr2);
    return f.senOpt == 1;
}

NavInitErgebnis NavInit_OK_But_Click(NavInitForm& f, LocoNetVerbindung& verbindung, LocoNetLink& link,
                                     Benutzer& benutzer, NavInitAnzeige& anzeige, Long* fehlerCode)
{
    Long err = ProgOK;
    const NavInitErgebnis ergebnis =
        geschuetzt("Nav_Init : OK_But_Click", NavInitErgebnis::ProgFehler, [&] {
            // The entry checked.
            if (!NavInitEingabeGueltig(f)) {
                benutzer.meldung(EingabeFehlerTitel, EingabeFehlerTxt, Symbol::Kritisch);
                return NavInitErgebnis::EingabeFalsch;
            }
            // Only one module may be on the bus: its address is set by broadcast.
            if (!anzeige.frageJaNein(NurEinModulTitel, NurEinModulTxt)) {
                f.sichtbar = false;
                return NavInitErgebnis::Verneint;
            }
            // The port stays open whatever happens: the menu frame closes it.
            auto beschaeftigt = [&](bool ja) {
                f.knoepfeAktiv = !ja;
                anzeige.beschaeftigt(ja);
            };
            beschaeftigt(true);
            const Long adresse = AlleModule;
            verbindung.open_com(err);
            if (err != 0) {
                // open_com has given its own message; the entry stays for another try.
                beschaeftigt(false);
                return NavInitErgebnis::PortFehler;
            }
            // The article as the wire carries it.
            const Long artikel = DrahtArtikel(f.artikel());
            const bool universal = f.universal();
            // The session: addresses, sensor mode and configuration written,
            // every other LNCV but the version cleared.
            Prog_On(link, artikel, adresse, err);
            if (err == ProgOK)
                Prog_Lncv(link, artikel, 0, lncvWert(f.adr1), err);
            if (universal) {
                if (err == ProgOK)
                    Prog_Lncv(link, artikel, 1, 1, err);
            } else {
                if (err == ProgOK)
                    Prog_Lncv(link, artikel, 1, lncvWert(f.adr2), err);
                if (err == ProgOK)
                    Prog_Lncv(link, artikel, 2, f.senOpt == 0 ? 1 : 0, err);
                if (err == ProgOK)
                    Prog_Lncv(link, artikel, LncvKonfig, 1, err);
                for (Long i = 3; i <= LetzteLncv && err == ProgOK; ++i) {
                    if (i != LncvKonfig && i != LncvVersion)
                        Prog_Lncv(link, artikel, i, 0, err);
                    // The progress bar.
                    if (err == ProgOK)
                        fortschritt(f, anzeige, i);
                }
            }
            // The session ends; on failure a separate result keeps the first err.
            Long ende = ProgOK;
            Prog_Off(link, artikel, adresse, ende);
            beschaeftigt(false);
            f.sichtbar = false;
            if (err != ProgOK) {
                prog_error_meldung(benutzer, err);
                return NavInitErgebnis::ProgFehler;
            }
            return NavInitErgebnis::Geschrieben;
        });
    if (fehlerCode)
        *fehlerCode = err;
    return ergebnis;
}

}  // namespace planor
