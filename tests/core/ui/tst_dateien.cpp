// Projects through the real menus and file dialogs: new, save, save as,
// load, the last project at start, and saving on the way out.
#include "core/grundeinstellungen.h"
#include "editor/pult_editor.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "tests/support/gui_start.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>

using namespace planor;
using namespace planor::test;

class TstDateien : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        p = std::make_unique<Programmordner>();
        ersterStartMitSimulation(p->neu());
        win = &p->programm->starten();
    }

    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(p->berichte.texte, QStringList());
    }

    // The basic settings as typed: a distance too long for the scale turns
    // red and locks OK until it fits.
    void NeueAnlageAsksForTheFileAndTheBasicSettings()
    {
        bool zuWeitGesperrt = false;
        dateiWaehlen(p->datei(QStringLiteral("Neu.anl")));
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [&](QWidget* w) {
            tippen(kind<QLineEdit>(w, QStringLiteral("FeldAnzX")), QStringLiteral("12"));
            klick(w, QStringLiteral("opSpur(2)"));
            auto* abstand = kind<QLineEdit>(w, QStringLiteral("Geschw_Txt"));
            tippen(abstand, QStringLiteral("42"));  // 42 · 1566 > 65530
            zuWeitGesperrt = rot(abstand) && !kind<QPushButton>(w, QStringLiteral("OK_But"))->isEnabled();
            tippen(abstand, QStringLiteral("40"));
            kind<QCheckBox>(w, QStringLiteral("BlkStatChk"))->click();
            klick(w, QStringLiteral("OK_But"));
        });
        aktion("NeuesPultMenu")->trigger();
        QVERIFY(zuWeitGesperrt);
        QCOMPARE(anlage().Pfad + anlage().File, p->datei(QStringLiteral("Neu.anl")));
        QCOMPARE(win->bereich().Pult->model()->columnCount(), 12);
        QCOMPARE(Int_to_Unsig(anlage().Grundeinst.LNCV14), Long(40 * 1566 + 2));
        QCOMPARE(anlage().Grundeinst.BlkZustMeld, Integer(0));
        QVERIFY(aktion("PultSpeichernMenu")->isEnabled());
    }

    void SaveLoadAndSaveAsThroughTheMenus()
    {
        neueAnlage(QStringLiteral("Plan.anl"));
        win->editor().setzeAktuell(3, 4);
        win->editor().SetzePultElement(typ(101));
        anlage().XY(3, 4).XY_ADR1 = 77;
        aktion("PultSpeichernMenu")->trigger();
        QCOMPARE(anlage().PultGeaendert, Integer(0));
        QVERIFY(lesen(p->datei(QStringLiteral("Plan.anl"))).contains("\r\nXY_ADR1: 3, 4, 77\r\n"));

        QDir(p->ordner.path()).mkdir(QStringLiteral("kopie"));
        dateiWaehlen(p->datei(QStringLiteral("kopie/Kopie.anl")));
        aktion("PultSpeichernUnterMenu")->trigger();
        QVERIFY(QFile::exists(p->datei(QStringLiteral("kopie/Kopie.anl"))));

        anlage().XY(3, 4).XY_ADR1 = 1;
        dateiWaehlen(p->datei(QStringLiteral("Plan.anl")));
        aktion("PultLadenMenu")->trigger();
        QCOMPARE(anlage().XY(3, 4).XY_ADR1, Integer(77));
        QCOMPARE(anlage().File, QStringLiteral("Plan.anl"));
        QCOMPARE(anlage().PultGeaendert, Integer(0));
        QVERIFY(win->bereich().Pult->isVisible());
    }

    void ExitWithYesSavesTheProject()
    {
        neueAnlage(QStringLiteral("Ende.anl"));
        aktion("PultSpeichernMenu")->trigger();
        win->editor().setzeAktuell(5, 5);
        win->editor().SetzePultElement(typ(9));
        wennSichtbar(QStringLiteral("ExitFrage"), [](QWidget* w) { klick(w, QMessageBox::Yes); });
        QVERIFY(win->close());
        QVERIFY(lesen(p->datei(QStringLiteral("Ende.anl"))).contains("\r\nXY: 5, 5, 9\r\n"));
    }

    void ExitWithYesForAProjectNeverSavedAsksForAName()
    {
        neueAnlage(QStringLiteral("NieGespeichert.anl"));
        win->editor().SetzePultElement(typ(9));
        wennSichtbar(QStringLiteral("ExitFrage"), [this](QWidget* w) {
            dateiWaehlen(p->datei(QStringLiteral("Gerettet.anl")));
            klick(w, QMessageBox::Yes);
        });
        QVERIFY(win->close());
        QVERIFY(QFile::exists(p->datei(QStringLiteral("Gerettet.anl"))));
    }

    void TheLastProjectOpensAtStart()
    {
        neueAnlage(QStringLiteral("Letzte.anl"));
        win->editor().setzeAktuell(2, 2);
        win->editor().SetzePultElement(typ(9));
        aktion("PultSpeichernMenu")->trigger();
        QVERIFY(win->close());
        win = &p->neu().starten();
        QCOMPARE(anlage().File, QStringLiteral("Letzte.anl"));
        QCOMPARE(anlage().XY(2, 2).XY_Element, typ(9));
        QVERIFY(win->bereich().Pult->isVisible() && aktion("PultSpeichernMenu")->isEnabled());
    }

private:
    Anlage& anlage() { return p->programm->anlage; }
    Integer typ(int t) { return p->programm->katalog.indexVonTyp(t); }
    QAction* aktion(const char* name) { return win->findChild<QAction*>(QLatin1String(name)); }

    void neueAnlage(const QString& name)
    {
        dateiWaehlen(p->datei(name));
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [](QWidget* w) { klick(w, QStringLiteral("OK_But")); });
        aktion("NeuesPultMenu")->trigger();
        QVERIFY(win->bereich().Pult->isVisible());
    }

    std::unique_ptr<Programmordner> p;
    MainWin* win = nullptr;
};

QTEST_MAIN(TstDateien)
#include "tst_dateien.moc"
