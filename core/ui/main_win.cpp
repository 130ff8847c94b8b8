#include "core/ui/main_win.h"

#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/programmordner.h"
#include "core/settings_file.h"
#include "editor/monitor_ansicht.h"
#include "editor/pult_editor.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/schnittstelle.h"
#include "platform/uhr.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QDate>
#include <QEventLoop>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>

namespace planor {

namespace {

// Disabled until neues_pult_setzen enables them.
const QStringList ProjektMenus = {
    QStringLiteral("BearbeitenMenu"), QStringLiteral("PultSpeichernMenu"), QStringLiteral("PultSpeichernUnterMenu"),
    QStringLiteral("DruckMenu"),      QStringLiteral("EditModusMenu"),     QStringLiteral("KonfHauptMenu"),
    QStringLiteral("ProgHauptMenu"),  QStringLiteral("AuslHauptMenu"),
};

QString feldName(const char* name, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

}  // namespace

MainWin::MainWin(Anlage& anlage, Elementkatalog& katalog, Einstellungen& einstellungen, QString settingsDatei,
                 Uhr& uhr, QWidget* parent)
    : QMainWindow(parent)
    , anlage_(anlage)
    , katalog_(katalog)
    , einstellungen_(einstellungen)
    , settingsDatei_(std::move(settingsDatei))
    , meldungen_(this)
    , verbindung_(std::make_unique<Schnittstelle>(einstellungen, uhr, meldungen_,
                                                  [this](int feld, const QString& text) { InfoTxt_anzeigen(feld, text); }))
    , editor_(new PultEditor(anlage, katalog, meldungen_, this))
    , bereich_(new PultBereich(anlage, katalog, *editor_, KonfPfad(), this))
    , InfoTxt1(new QLabel(this))
    , InfoTxt2(new QLabel(this))
{
    setObjectName(QStringLiteral("MainWin"));
    setWindowTitle(QStringLiteral("NAVIK/TOBRA - Planor"));
    // Without a stored geometry the window takes most of the screen: the
    // palette alone is 8 cells wide.
    resize(QGuiApplication::primaryScreen()->availableSize() * 0.9);

    InfoTxt1->setObjectName(QStringLiteral("InfoTxt1"));
    InfoTxt2->setObjectName(QStringLiteral("InfoTxt2"));
    for (QLabel* feld : {InfoTxt1, InfoTxt2}) {
        feld->setFrameShape(QFrame::StyledPanel);
        feld->setFrameShadow(QFrame::Sunken);
        feld->setMinimumWidth(320);
        statusBar()->addWidget(feld, 1);
    }
    setCentralWidget(bereich_);
    bereich_->Pult->hide();
    menusAnlegen();
    bearbeitenVerbinden();
    pultVerbinden();
    dateiMenusVerbinden();
    programmierMenusVerbinden();
    adressenVerbinden();
    monitorVerbinden();
    verbindung_->link().empfang().Get_Adr_from_LN = [this](int zeile) { Get_Adr_from_LN(zeile); };
}

MainWin::~MainWin() = default;

void MainWin::neuesPultZeigen()
{
    anlage_.PultOpt.PultOptGPLocked = false;
    GleisPlan_Lock_Unlock();
    EditMode = 1;
    ChangeEditMode();
    ClipBoardFlags();
    neues_pult_setzen();
    bereich_->Pult->show();
}

QAction* MainWin::aktion(const QString& name) const
{
    return findChild<QAction*>(name);
}

void MainWin::paletteAufbauen()
{
    bereich_->paletteAufbauen();
}

void MainWin::neues_pult_setzen()
{
    geschuetzt("Funktionen : neues_pult_setzen", [&] {
        PultNeuSetzen = false;
        bereich_->Pult->hide();
        projektMenusFreigeben(true);
        anlage_.neues_pult_setzen();
        bereich_->init_flexgrid();
        editor_->setzeAktuell(1, 1);
        editor_->ElementAusw = 0;
    });
}

QMenu* MainWin::menu(const QString& name, const QString& titel)
{
    QMenu* m = menuBar()->addMenu(titel);
    m->setObjectName(name);
    m->menuAction()->setObjectName(name);
    return m;
}

QAction* MainWin::eintrag(QMenu* menu, const QString& name, const QString& text)
{
    QAction* a = menu->addAction(text);
    a->setObjectName(name);
    // An entry becomes usable when the subsystem behind it connects its handler.
    a->setEnabled(false);
    return a;
}

void MainWin::menusAnlegen()
{
    QMenu* datei = menu(QStringLiteral("DateiMenu"), QStringLiteral("Datei"));
    eintrag(datei, QStringLiteral("NeuesPultMenu"), QStringLiteral("Neue Anlage"));
    eintrag(datei, QStringLiteral("PultLadenMenu"), QStringLiteral("Anlage laden"));
    eintrag(datei, QStringLiteral("PultSpeichernMenu"), QStringLiteral("Anlage speichern"));
    eintrag(datei, QStringLiteral("PultSpeichernUnterMenu"), QStringLiteral("Anlage speichern unter ..."));
    datei->addSeparator();
    eintrag(datei, QStringLiteral("KTEImportMenu"), QStringLiteral("aus KT-Edit importieren"));
    eintrag(datei, QStringLiteral("DruckMenu"), QStringLiteral("Drucken"));
    datei->addSeparator();
    QAction* ende = eintrag(datei, QStringLiteral("ProgEndeMenu"), QStringLiteral("Beenden"));
    ende->setEnabled(true);
    connect(ende, &QAction::triggered, this, &MainWin::ProgEndeMenu_Click);

    // The captions carry their keys as text.
    QMenu* bearbeiten = menu(QStringLiteral("BearbeitenMenu"), QStringLiteral("Bearbeiten"));
    eintrag(bearbeiten, QStringLiteral("UndoMenu"), QStringLiteral("Löschen Rückgängig  | Strg Z"));
    eintrag(bearbeiten, QStringLiteral("CopyMenu"), QStringLiteral("Kopieren                    |  Strg C"));
    eintrag(bearbeiten, QStringLiteral("CutMenu"), QStringLiteral("Ausschneiden            |  Strg X"));
    eintrag(bearbeiten, QStringLiteral("PasteMenu"), QStringLiteral("Einfügen                    |  Strg V"));
    eintrag(bearbeiten, QStringLiteral("DelMenu"), QStringLiteral("Löschen                     |  Entf"));
    eintrag(bearbeiten, QStringLiteral("EleDrehenMenu"), QStringLiteral("Element drehen         |  rechte Maustaste"));

    // The views, the control array EditMode(1..4).
    QMenu* ansicht = menu(QStringLiteral("EditModusMenu"), QStringLiteral("Ansicht"));
    auto* ansichten = new QActionGroup(this);
    const QStringList ansichtTexte = {
        QStringLiteral("Gleisplan"), QStringLiteral("Weichen-, Signal- und NAVIK/TOBRA-Adressen"),
        QStringLiteral("Tabellenansicht"), QStringLiteral("Monitor")};
    for (int i = 1; i <= 4; ++i) {
        QAction* a = eintrag(ansicht, feldName("EditMode", i), ansichtTexte.at(i - 1));
        a->setCheckable(true);
        ansichten->addAction(a);
    }
    for (int i = 1; i <= 4; ++i) {
        QAction* a = aktion(feldName("EditMode", i));
        a->setEnabled(true);
        connect(a, &QAction::triggered, this, [this, i] { EditMode_Click(i); });
    }

    // KonfMenu(0..10).
    QMenu* konf = menu(QStringLiteral("KonfHauptMenu"), QStringLiteral("Konfiguration"));
    const QStringList konfTexte = {
        QStringLiteral("Modul zurücksetzen"),
        QStringLiteral("zeitgesteuerten Pendelverkehr einrichten"),
        QStringLiteral("signalgesteuerten Pendelverkehr einrichten"),
        QStringLiteral("Aufenthaltsstelle einrichten"),
        QStringLiteral("Blockstrecke einrichten"),
        QStringLiteral("Bahnhofssteuerung einrichten"),
        QStringLiteral("Einfahrmanager einrichten"),
        QStringLiteral("Ausfahrmanager einrichten"),
        QStringLiteral("Doppelsen. nur Schalt-, Sonderfunktionen oder Geschw."),
        QStringLiteral("Einzelsen. nur Schalt-, Sonderfunktionen"),
        QStringLiteral("Fahrstraßen verwalten"),
    };
    for (int i = 0; i < konfTexte.size(); ++i) {
        if (i == 10)
            konf->addSeparator();
        eintrag(konf, feldName("KonfMenu", i), konfTexte.at(i));
    }

    // ProgMenu(1..3), AuslMenu(1..2).
    QMenu* prog = menu(QStringLiteral("ProgHauptMenu"), QStringLiteral("Programmieren"));
    eintrag(prog, feldName("ProgMenu", 1), QStringLiteral("Alle Module"));
    eintrag(prog, feldName("ProgMenu", 2), QStringLiteral("Modul einzeln"));
    eintrag(prog, feldName("ProgMenu", 3), QStringLiteral("Fahrstraßen"));
    QMenu* ausl = menu(QStringLiteral("AuslHauptMenu"), QStringLiteral("Auslesen"));
    eintrag(ausl, feldName("AuslMenu", 1), QStringLiteral("Alle Module"));
    eintrag(ausl, feldName("AuslMenu", 2), QStringLiteral("Modul einzeln"));

    // The options.
    QMenu* optionen = menu(QStringLiteral("OptionHauptMenu"), QStringLiteral("Optionen"));
    QAction* lock = eintrag(optionen, QStringLiteral("GPLockMenu"), QStringLiteral("Gleisplan änderbar"));
    lock->setCheckable(true);
    lock->setEnabled(true);
    connect(lock, &QAction::triggered, this, &MainWin::GPLockMenu_Click);
    optionen->addSeparator();
    eintrag(optionen, feldName("OptionMenu", 0), QStringLiteral("Grundeinstellungen ändern"));
    eintrag(optionen, feldName("OptionMenu", 1), QStringLiteral("ComPort Einstellungen"));
    eintrag(optionen, feldName("OptionMenu", 2), QStringLiteral("Modul initialisieren"));

    // Help.
    QMenu* hilfe = menu(QStringLiteral("HilfeMenu"), QStringLiteral("Hilfe"));
    eintrag(hilfe, QStringLiteral("HilfeAnzeigenMenu"), QStringLiteral("Hilfe"));
}

void MainWin::zeigenMitGespeicherterLage()
{
    const GespeicherteLage lage = LageAusEinstellungen(einstellungen_);
    QRect rahmen(pos(), size());
    if (lage.links)
        rahmen.moveLeft(*lage.links);
    if (lage.oben)
        rahmen.moveTop(*lage.oben);
    if (lage.breite)
        rahmen.setWidth(*lage.breite);
    if (lage.hoehe)
        rahmen.setHeight(*lage.hoehe);
    move(rahmen.topLeft());
    resize(rahmen.size());
    if (lage.maximiert)
        showMaximized();
    else
        show();
}

void MainWin::projektMenusFreigeben(bool frei)
{
    for (const QString& name : ProjektMenus)
        aktion(name)->setEnabled(frei);
}

void MainWin::ProgEndeMenu_Click()
{
    close();
}

void MainWin::closeEvent(QCloseEvent* event)
{
    if (ExitFrage(anlage_, *this)) {
        event->accept();
        // A pick waiting on the plan gives up with the window.
        if (auswahlSchleife_)
            auswahlSchleife_->quit();
    } else
        event->ignore();
}

void MainWin::Save_conf()
{
    geschuetzt("Laden_und_Speichern : Save_conf", [&] {
        Fensterlage lage;
        lage.zustand = isMinimized()   ? Fensterlage::Zustand::Minimiert
                       : isMaximized() ? Fensterlage::Zustand::Maximiert
                                       : Fensterlage::Zustand::Normal;
        lage.rahmen = QRect(pos(), size());
        lage.bildschirm = screen()->size();
        einstellungen_.Pfad = anlage_.Pfad;
        einstellungen_.File = anlage_.File;
        planor::Save_conf(settingsDatei_, einstellungen_, lage,
                          FehlerbehandlungUmgebung().uhr->jetzt().date());
    });
}

Antwort MainWin::frage(const QString& titel, const QString& text)
{
    QMessageBox box(QMessageBox::Question, titel, text, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("ExitFrage"));
    box.setDefaultButton(QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Antwort::Ja;
    case QMessageBox::No:
        return Antwort::Nein;
    default:
        return Antwort::Abbrechen;
    }
}

}  // namespace planor
