#pragma once
// Bulk programming and read-back. Prog_modul brings one module into
// agreement with its cell, Read_modul fills a cell from its module; Prog_all,
// Read_all, Prog_einzeln and Read_einzeln lead the user through the panel.
// Widget-free: everything the user sees or answers goes through
// ProgrammierAnzeige (the main window, planor-cli, or a test).

#include "core/vb_zahlen.h"

#include <QString>

#include <functional>

namespace planor {

class Anlage;
class Benutzer;
class Elementkatalog;
class LocoNetLink;
class LocoNetVerbindung;
class Zellanzeige;

// PultFehlMeldung_Form's answers (its tag), and the wait's "no answer yet".
enum class FehlerAntwort : int { Offen = -1, Nochmal = 0, Naechstes = 1, Abbruch = 2 };

class ProgrammierAnzeige {
public:
    virtual ~ProgrammierAnzeige() = default;
    // Status line 1 or 2 (InfoTxt_anzeigen).
    virtual void InfoTxt_anzeigen(int feld, const QString& text) = 0;
    // A question with OK and cancel (the start questions); true for OK.
    virtual bool frageOkAbbrechen(const QString& titel, const QString& text) = 0;
    // A question with yes and no (Read_einzeln's "Soll die Auswahl abgebrochen werden?").
    virtual bool frageJaNein(const QString& titel, const QString& text) = 0;
    // While Prog_modul works: the cell blinks with its "_ausw.bmp" picture; and back.
    virtual void markieren(int x, int y) = 0;
    virtual void markierungAus() = 0;
    // The three main menus disabled and the busy pointer, or restored.
    virtual void beschaeftigt(bool an) = 0;
    // PultFehlMeldung_Form with its title; the user's answer.
    virtual FehlerAntwort fehlerMeldung(const QString& titel) = 0;
    // The pick on the locked plan with the question-mark pointer: the clicked
    // cell, or false when the pick was given up (window closed, program ends).
    virtual bool zelleWaehlen(int& x, int& y) = 0;
    // The running count "Modul n von m", so that a long run shows its progress.
    virtual void fortschritt(int n, int m) { (void)n, (void)m; }
};

// What a bulk run works on.
struct Programmierumgebung {
    Anlage& anlage;
    const Elementkatalog& katalog;
    LocoNetVerbindung& verbindung;  // open_com
    LocoNetLink& link;
    Benutzer& benutzer;              // prog_error_meldung, Get_Navik_Version's messages
    Zellanzeige& zellen;             // SetzeText after a read
    ProgrammierAnzeige& anzeige;
    // The seam to the stations: Read_modul calls Make_bhf(x, y) for modes 7 and 8
    // once the station model exists; empty until then (nothing is rebuilt).
    std::function<void(int x, int y)> Make_bhf = {};
};

// The highest LNCV of a programmable type, -1 for a type that is passed over.
int LetzteLncv(Long artNr, Integer version);
// The LNCV never written (16), or -1 (the universal controllers have none).
int NieGeschrieben(Long artNr);
// The mode from the low 4 bits of LNCV 2.
Integer BetriebsartAusLncv2(Integer lncv2);

void Prog_modul(Programmierumgebung& u, int x, int y, Long& err, bool& on_flag, Long& artikel, Long& adresse);
void Read_modul(Programmierumgebung& u, int x, int y, Long& err, bool& on_flag, Long& artikel, Long& adresse);

// The operations of the menus; true when every module went through.
bool Prog_all(Programmierumgebung& u);
bool Read_all(Programmierumgebung& u);
bool Prog_einzeln(Programmierumgebung& u);
bool Read_einzeln(Programmierumgebung& u);

}  // namespace planor
