#pragma once
// The main form MainWin with its menu bar, the panel area and the
// status lines InfoTxt1 and InfoTxt2. Menus and entries carry their form
// names as their objectName; control arrays as "Name(i)".
//   main_win.cpp         construction, menus, exit
//   main_win_ansicht.cpp views, lock and menu states
//   main_win_pult.cpp    mouse, keys and edit menu on the plan
//   main_win_datei.cpp   the file menus and the project's loading
//   main_win_programmieren.cpp  the menus "Programmieren" and "Auslesen"
//   main_win_adressen.cpp  the address view
//   main_win_monitor.cpp   the live monitor view
//   main_win_textmonitor.cpp  the text monitor frmMonitor

#include "core/exit_frage.h"
#include "core/project_file.h"
#include "core/ui/meldungs_box.h"
#include "editor/bus_meldung.h"
#include "programmierung/programmierung.h"

#include <QElapsedTimer>
#include <QMainWindow>

#include <memory>

class QLabel;
class QEventLoop;
class QMenu;
class QTimer;

namespace planor {

class Anlage;
class Elementkatalog;
class FrmMonitor;
class MonitorAnsicht;
class PultBereich;
class PultEditor;
class Schnittstelle;
class Uhr;
struct ComPortUmgebung;
struct Einstellungen;

class MainWin : public QMainWindow, private ExitFrageUmgebung, private ProjektAnzeige, private ProgrammierAnzeige {
    Q_OBJECT

public:
    // The settings file is rewritten from `einstellungen` at every exit attempt.
    // The link's waits run on `uhr`.
    MainWin(Anlage& anlage, Elementkatalog& katalog, Einstellungen& einstellungen, QString settingsDatei, Uhr& uhr,
            QWidget* parent = nullptr);
    ~MainWin() override;

    // The stored geometry, then show.
    void zeigenMitGespeicherterLage();
    // At the start and in neues_pult_setzen: the menus that only a project makes usable.
    void projektMenusFreigeben(bool frei);
    // The catalogue has been read; the palette is built.
    void paletteAufbauen();
    // Resets the panel to a new, empty project.
    void neues_pult_setzen() override;
    // "Neue Anlage" after its dialogs: an unlocked, empty plan in view 1.
    void neuesPultZeigen();

    // The views and the lock (main_win_ansicht.cpp).
    void ChangeEditMode();
    void ClipBoardFlags();
    void GleisPlan_Lock_Unlock();
    void GPLockMenu_Click();
    void EditMode_Click(int index);
    int EditMode = 1;
    // While set, a new panel is being made and `Pult` stays hidden.
    bool PultNeuSetzen = true;

    // Writes status line 1 or 2 and refreshes it.
    void InfoTxt_anzeigen(int feld, const QString& text) override;

    // The file menus.
    void PultLadenMenu_Click();
    void PultSpeichernMenu_Click();
    void PultSpeichernUnterMenu_Click();
    void NeuesPultMenu_Click();
    // Loads Pfad + File into a new panel in view 1 ("Anlage laden").
    void anlageLaden();
    // "Grundeinstellungen ändern".
    void GrundeinstellungenMenu_Click();

    // "Beenden" and closing the window go through ExitFrage.
    void ProgEndeMenu_Click();

    // main_win_comport.cpp: the link to the bus, ComPortForm on
    // OptionMenu(1), and the form Erststart (1 confirmed,
    // 2 "Ende"). Confirming either closes the link and writes Planor.CFG.
    Schnittstelle& schnittstelle();
    void ComPortNummer_aendern();
    int Erststart_zeigen();
    // main_win_init.cpp: OptionMenu(2) "Modul initialisieren".
    void ModulInitialisieren_Click();

    // main_win_programmieren.cpp: ProgMenu(1), ProgMenu(2),
    // AuslMenu(1), AuslMenu(2) in the menu frame.
    void ProgMenu_Click(int index);
    void AuslMenu_Click(int index);
    // The pick on the locked plan (Pult_MouseDown, view 1): a single module
    // is being chosen; the clicked cell and whether one was clicked.
    bool ProgAuswWartet = false;
    bool ProgAuswFertig = false;
    int ProgX = 0, ProgY = 0;

    PultEditor& editor() { return *editor_; }
    PultBereich& bereich() { return *bereich_; }

    // main_win_adressen.cpp: the address view's texts.
    void Show_LNCV_in_PultAdr();
    // main_win_monitor.cpp: the live monitor view drawn and asked.
    void Show_Monitor();
    // main_win_textmonitor.cpp: the text monitor frmMonitor.
    void Start_TextMonitor();
    void Stop_TextMonitor();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // ExitFrage's dialogs.
    void Save_conf() override;
    Antwort frage(const QString& titel, const QString& text) override;
    std::optional<QString> speichernUnter() override;
    void Save_plt() override;
    // Loading's and saving's display.
    void ladenBeginnt() override;
    void ladenEndet() override;
    bool pultNeuSetzen() const override { return PultNeuSetzen; }
    bool elementLoeschen(const QString& titel, const QString& text) override;
    // Save_plt under its guard; true when it went through.
    bool speichern();
    // A file dialog; the chosen full path or nothing.
    std::optional<QString> dateiWaehlen(const QString& titel, bool speichern, const QString& vorgabe = QString());
    void dateiMenusVerbinden();
    // What ComPortForm's and Erststart's OK do to the link and the settings file.
    ComPortUmgebung comPortUmgebung();

    QMenu* menu(const QString& name, const QString& titel);
    QAction* eintrag(QMenu* menu, const QString& name, const QString& text);
    QAction* aktion(const QString& name) const;
    void menusAnlegen();
    void bearbeitenVerbinden();
    void pultVerbinden();

    // The menu frame around one operation, and ProgrammierAnzeige.
    void programmierRahmen(const QString& fehlerTitel, bool (*operation)(Programmierumgebung&), const char* name);
    void programmierMenusVerbinden();
    bool frageOkAbbrechen(const QString& titel, const QString& text) override;
    bool frageJaNein(const QString& titel, const QString& text) override;
    void markieren(int x, int y) override;
    void markierungAus() override;
    void MarkTimer_Timer();
    void beschaeftigt(bool an) override;
    FehlerAntwort fehlerMeldung(const QString& titel) override;
    bool zelleWaehlen(int& x, int& y) override;
    void fortschritt(int n, int m) override;
    // A question box of the operations, with the arrow while the busy pointer stands.
    bool programmierFrage(const QString& titel, const QString& text, int knoepfe, int ja);

    // Mouse and keys on the grid `Pult` (main_win_pult.cpp).
    void Pult_MouseDown(int x, int y);
    void Pult_MouseUp_Links();
    void Pult_MouseUp_Rechts(int x, int y);
    void Pult_KeyUp(int taste, Qt::KeyboardModifiers modifikatoren);
    void Elemente_Click(int index);
    void pultZeigerSetzen();

    // A row of the reception table was filled. What it tells
    // is read at once; the view's half runs after the framing step
    // (re-entry), in the view that is shown then.
    void Get_Adr_from_LN(int zeile);

    // The address view (main_win_adressen.cpp).
    void adressenVerbinden();
    void adressenMeldung(const BusMeldung& m);
    // The dialogs, questions and redraws of the address view (AdrAnzeige),
    // with its mouse and bus flow PultAdrMaus; a child of the window.
    class AdrFenster;
    AdrFenster* adrFenster_ = nullptr;
    // The model row of the last press on `PultAdr`: only the picture row counts.
    int adrGedrueckteZeile_ = -1;

    // The live monitor view (main_win_monitor.cpp).
    void monitorVerbinden();
    void monitorMeldung(const BusMeldung& m);
    // A button released over a cell of `Mon`: left switches, right opens
    // TauschForm, middle or Shift+left opens MagArtStatus.
    void Mon_MouseUp(Qt::MouseButton knopf, Qt::KeyboardModifiers modifikatoren, int x, int y);
    void MagArtStatus_zeigen(int x, int y);
    // MagZelle, MagStatus, NavikStatus and the procedures over them.
    std::unique_ptr<MonitorAnsicht> monitor_;
    // While the monitor reads the states or switches, a click waits its turn.
    bool monitorBeschaeftigt_ = false;

    // main_win_textmonitor.cpp: the text monitor's window, made
    // at its first start (a child of this window).
    FrmMonitor* frmMonitor_ = nullptr;

    Anlage& anlage_;
    Elementkatalog& katalog_;
    Einstellungen& einstellungen_;
    QString settingsDatei_;
    MeldungsBox meldungen_;
    std::unique_ptr<Schnittstelle> verbindung_;
    PultEditor* editor_;
    PultBereich* bereich_;
    QLabel* InfoTxt1;
    QLabel* InfoTxt2;
    // "Modul n von m" during a bulk run, beside the status lines.
    QLabel* InfoTxt3 = nullptr;
    // The blinking mark of the module at work.
    QTimer* MarkTimer = nullptr;
    int markX_ = 0, markY_ = 0, markZaehler_ = 0;
    QString markBild_;
    bool programmierungLaeuft_ = false;
    // The prompt's title of the menu entry that runs (set as the frame starts).
    QString fehlerTitel_;
    bool beschaeftigt_ = false;
    // The pick's wait; quit by the click or by the window's closing.
    QEventLoop* auswahlSchleife_ = nullptr;
    // Status lines are repainted at once, but during a long run at most every
    // few hundredths of a second.
    QElapsedTimer letzteAnzeige_;
};

}  // namespace planor
