#pragma once
// Nav_Init, "Modul initialisieren", as a widget-free form state and
// the form's handlers over it. It gives the only module of its type on the
// bus an address and clears it, through a session with the broadcast
// address 65535. The dialog (loconet/ui/nav_init_dialog.h) and planor-cli
// init only bind this state; the question, the busy state and the progress
// go through NavInitAnzeige, messages through Benutzer.

#include "core/vb_zahlen.h"

#include <QString>
#include <QStringList>

namespace planor {

class Benutzer;
class LocoNetLink;
class LocoNetVerbindung;

inline const QString NavInitTitel = QStringLiteral("Modul initialisieren");
inline const QString NavInitText = QStringLiteral(
    "Mit dieser Funktion können Sie ein neues Modul oder ein Modul mit einer unbekannten Moduladresse mit einer "
    "neuen Moduladresse programmieren und das Modul löschen.");
inline const QString ArtNrCb_Text = QStringLiteral("Artikelnummer:");
inline const QString Adr1_Text = QStringLiteral("Moduladresse 1");
inline const QString Adr2_Text = QStringLiteral("Moduladresse 2");
inline const QString SensorFrame_Text = QStringLiteral("Konfiguration der Sensoreingänge:");
inline const QString SenOpt0_Text = QStringLiteral("zwei einzelne Sensoren");
inline const QString SenOpt1_Text = QStringLiteral("ein Doppel-Sensor für Automatikfunktionen");
inline const QString OK_But_Text = QStringLiteral("Start");
inline const QString Abbruch_Cmd_Text = QStringLiteral("abbrechen");

// Label4's two warnings.
inline const QString WarnungNavikTobra =
    QStringLiteral("Achtung: Es darf nur ein NAVIK oder TOBRA Modul mit dem LocoNet verbunden sein!");
inline const QString WarnungUniversal =
    QStringLiteral("Achtung: Es darf nur eine Universalsteuerung mit dem LocoNet verbunden sein!");

// The message for a refused entry and the question before the session.
inline const QString EingabeFehlerTitel = QStringLiteral("Fehler");
inline const QString EingabeFehlerTxt = QStringLiteral(
    "Moduladresse1, Moduladresse2 oder Konfiguration der Sensoreingänge\n"
    "nicht oder nicht richtig eingestellt! Bitte ändern!");
inline const QString NurEinModulTitel = QStringLiteral("Achtung!");
inline const QString NurEinModulTxt = QStringLiteral("Haben Sie nur ein Modul an LocoNet angeschlossen");

// ArtNrCb's list, in its fixed order.
QStringList NavInitArtikelListe();
// The highest module address (Check_Wert's maximum; the minimum is 1).
inline constexpr double NavInitAdresseMax = 4095;

// What the dialog (or the CLI, or a test) shows and answers while
// OK_But_Click runs.
class NavInitAnzeige {
public:
    virtual ~NavInitAnzeige() = default;
    // A question with yes and no; true for yes.
    virtual bool frageJaNein(const QString& titel, const QString& text) = 0;
    // Buttons disabled and busy pointer (true), or restored.
    virtual void beschaeftigt(bool) {}
    // The bar follows the form's prozAnteil and prozTxt.
    virtual void fortschritt(double /*anteil*/, const QString& /*prozTxt*/) {}
};

struct NavInitForm {
    QStringList artikelListe;        // ArtNrCb
    int artikelIndex = -1;           // ArtNrCb.ListIndex
    QString adr1 = QStringLiteral("-");  // Adr_Txt1
    QString adr2 = QStringLiteral("-");  // Adr_Txt2
    int senOpt = -1;                 // SenOpt: -1 none chosen, 0 or 1
    bool sensorFrameSichtbar = true; // SensorFrame
    bool adr2Aktiv = false;          // Adr_Txt2.Enabled
    QString warnung;                 // Label4
    double prozAnteil = 0;           // ProzBalken's width over ProzHinterg's
    QString prozTxt = QStringLiteral("0%");
    bool knoepfeAktiv = true;        // OK_But, Abbruch_Cmd
    bool sichtbar = false;           // the form is shown

    // The article chosen, 0 when none (Val of an empty text).
    Long artikel() const;
    bool universal() const;
};

// Form_Load: the list (the first article chosen), "-" in both addresses,
// "0%", the warning of the chosen article, then Form_Activate.
void NavInit_Form_Load(NavInitForm& f);
// ArtNrCb_Click: 47320 and 47330 hide the sensor frame and switch the warning.
void NavInit_ArtNrCb_Click(NavInitForm& f, int index);
// SenOpt_Click and Form_Activate: Adr_Txt2 only while SenOpt(0) is chosen.
void NavInit_SenOpt_Click(NavInitForm& f, int index);
void NavInit_Form_Activate(NavInitForm& f);
// Abbruch_Cmd_Click (and closing the window): hides the form, no effect.
void NavInit_Abbruch_Cmd_Click(NavInitForm& f);

// True when the entry may be written (for 47320/47330 only address 1 counts).
bool NavInitEingabeGueltig(const NavInitForm& f);

// OK_But_Click: checks, asks, opens the port (left open), writes through the
// broadcast session, reports failures. `fehlerCode` receives the first
// `err` of the exchange (0 when nothing failed).
enum class NavInitErgebnis { Geschrieben, EingabeFalsch, Verneint, PortFehler, ProgFehler };
NavInitErgebnis NavInit_OK_But_Click(NavInitForm& f, LocoNetVerbindung& verbindung, LocoNetLink& link,
                                     Benutzer& benutzer, NavInitAnzeige& anzeige, Long* fehlerCode = nullptr);

}  // namespace planor
