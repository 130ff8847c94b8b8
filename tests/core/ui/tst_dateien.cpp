// Part 1.4 and Part 1.1 step 10 through the real menus and file dialogs:
// "Neue Anlage", "Anlage speichern", "Anlage speichern unter ...",
// "Anlage laden", loading the last project at start, ExitFrage's yes path.
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "editor/pult_editor.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "platform/uhr.h"
#include "tests/support/gui_start.h"
#include "tests/support/gui.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

using namespace planor;
using namespace planor::test;

namespace {

// Answers the next file dialog with a path, or cancels it; notes its title.
void dateiWaehlen(const QString& pfad, QString* titel = nullptr)
{
    wennSichtbar(QStringLiteral("Dateiauswahl"), [pfad, titel](QWidget* w) {
        auto* dialog = static_cast<QFileDialog*>(w);
        if (titel)
            *titel = dialog->windowTitle();
        if (pfad.isEmpty()) {
            dialog->reject();
            return;
        }
        // As a user does it: to the folder, the name into the name field, then OK.
        dialog->setDirectory(QFileInfo(pfad).absolutePath());
        auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        name->setText(QFileInfo(pfad).fileName());
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void grundeinstellungenOk(const QString& spalten)
{
    wennSichtbar(QStringLiteral("Grundeinstellungen"), [spalten](QWidget* w) {
        auto* x = w->findChild<QLineEdit*>(QStringLiteral("FeldAnzX"));
        x->selectAll();
        QTest::keyClicks(x, spalten);
        QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("OK_But")), Qt::LeftButton);
    });
}

}  // namespace

class TstDateien : public QObject {
    Q_OBJECT

    struct Berichte final : FehlerAnzeige {
        void zeigen(const QString&, const QString& text) override { texte << text; }
        QStringList texte;
    };

private slots:
    void init()
    {
        ordner = std::make_unique<QTemporaryDir>();
        FehlerbehandlungEinrichten({ordner->filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});
        programm = std::make_unique<Programm>(ordner->path());
        startDruecken();
        ersterStartMitSimulation(*programm);
        win = &programm->starten();
    }

    void cleanup()
    {
        wartendeBeenden();
        QCOMPARE(berichte.texte, QStringList());
        programm.reset();
        berichte.texte.clear();
    }

    void NeueAnlageAsksForTheFileAndTheBasicSettings()
    {
        QString titel;
        dateiWaehlen(ordner->filePath(QStringLiteral("Neu.anl")), &titel);
        grundeinstellungenOk(QStringLiteral("12"));
        aktion("NeuesPultMenu")->trigger();
        QCOMPARE(titel, QStringLiteral("Neues Projekt: Datenfile in neuem Ordner anlegen!"));
        QCOMPARE(programm->anlage.File, QStringLiteral("Neu.anl"));
        QCOMPARE(programm->anlage.Pfad, ordner->path() + u'/');
        QCOMPARE(programm->anlage.DimensionenX, Integer(12));
        QVERIFY(win->bereich().Pult->isVisible());
        QCOMPARE(win->bereich().Pult->model()->columnCount(), 12);
        QVERIFY(aktion("PultSpeichernMenu")->isEnabled());
        QCOMPARE(win->windowTitle(), QStringLiteral("NAVIK/TOBRA - Planor   ---   Gleisplan änderbar   ---"));
    }

    void NeueAnlageWithoutTheExtensionOnlyChangesPfadAndFile()
    {
        dateiWaehlen(ordner->filePath(QStringLiteral("OhneEndung")));
        aktion("NeuesPultMenu")->trigger();
        QCOMPARE(programm->anlage.File, QStringLiteral("OhneEndung"));
        QVERIFY(!win->bereich().Pult->isVisible());
        QVERIFY(!aktion("PultSpeichernMenu")->isEnabled());
    }

    void CancelledBasicSettingsKeepThePreviousProject()
    {
        programm->anlage.Pfad = QStringLiteral("/alt/");
        programm->anlage.File = QStringLiteral("Alt.anl");
        dateiWaehlen(ordner->filePath(QStringLiteral("Neu.anl")));
        wennSichtbar(QStringLiteral("Grundeinstellungen"), [](QWidget* w) { static_cast<QDialog*>(w)->reject(); });
        aktion("NeuesPultMenu")->trigger();
        QCOMPARE(programm->anlage.File, QStringLiteral("Alt.anl"));
        QCOMPARE(programm->anlage.Pfad, QStringLiteral("/alt/"));
        QVERIFY(!win->bereich().Pult->isVisible());
    }

    void SaveLoadAndSaveAsThroughTheMenus()
    {
        neueAnlage(QStringLiteral("Plan.anl"));
        PultEditor& e = win->editor();
        e.setzeAktuell(3, 4);
        e.SetzePultElement(programm->katalog.indexVonTyp(101));
        programm->anlage.XY(3, 4).XY_ADR1 = 77;
        QCOMPARE(programm->anlage.PultGeaendert, Integer(1));
        aktion("PultSpeichernMenu")->trigger();
        QCOMPARE(programm->anlage.PultGeaendert, Integer(0));
        QVERIFY(lesen(ordner->filePath(QStringLiteral("Plan.anl"))).contains("\r\nXY_ADR1: 3, 4, 77\r\n"));

        QDir(ordner->path()).mkdir(QStringLiteral("kopie"));
        QString titel;
        dateiWaehlen(ordner->filePath(QStringLiteral("kopie/Kopie.anl")), &titel);
        aktion("PultSpeichernUnterMenu")->trigger();
        QCOMPARE(titel, QStringLiteral("Speichern unter: Anlage in neuem Ordner anlegen!"));
        QVERIFY(QFile::exists(ordner->filePath(QStringLiteral("kopie/Kopie.anl"))));

        programm->anlage.XY(3, 4).XY_ADR1 = 1;
        dateiWaehlen(ordner->filePath(QStringLiteral("Plan.anl")), &titel);
        aktion("PultLadenMenu")->trigger();
        QCOMPARE(titel, QStringLiteral("Anlage laden"));
        QCOMPARE(programm->anlage.XY(3, 4).XY_ADR1, Integer(77));
        QCOMPARE(programm->anlage.File, QStringLiteral("Plan.anl"));
        QCOMPARE(programm->anlage.PultGeaendert, Integer(0));
        QVERIFY(win->bereich().Pult->isVisible());
        QCOMPARE(win->EditMode, 1);
    }

    void TheLastProjectOpensAtStart()
    {
        neueAnlage(QStringLiteral("Letzte.anl"));
        win->editor().setzeAktuell(2, 2);
        win->editor().SetzePultElement(programm->katalog.indexVonTyp(9));
        aktion("PultSpeichernMenu")->trigger();
        QVERIFY(win->close());

        programm = std::make_unique<Programm>(ordner->path());
        startDruecken();
        win = &programm->starten();
        QCOMPARE(programm->anlage.File, QStringLiteral("Letzte.anl"));
        QCOMPARE(programm->anlage.XY(2, 2).XY_Element, programm->katalog.indexVonTyp(9));
        QVERIFY(win->bereich().Pult->isVisible());
        QVERIFY(aktion("PultSpeichernMenu")->isEnabled());
        QCOMPARE(programm->anlage.PultGeaendert, Integer(0));
    }

    void ExitWithYesSavesTheProject()
    {
        neueAnlage(QStringLiteral("Ende.anl"));
        aktion("PultSpeichernMenu")->trigger();
        win->editor().setzeAktuell(5, 5);
        win->editor().SetzePultElement(programm->katalog.indexVonTyp(9));
        wennSichtbar(QStringLiteral("ExitFrage"), [](QWidget* w) {
            auto* box = static_cast<QMessageBox*>(w);
            QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        });
        QVERIFY(win->close());
        QVERIFY(lesen(ordner->filePath(QStringLiteral("Ende.anl"))).contains("\r\nXY: 5, 5, 9\r\n"));
    }

    void ExitWithYesForAProjectNeverSavedAsksForAName()
    {
        neueAnlage(QStringLiteral("NieGespeichert.anl"));
        win->editor().SetzePultElement(programm->katalog.indexVonTyp(9));
        wennSichtbar(QStringLiteral("ExitFrage"), [this](QWidget* w) {
            dateiWaehlen(ordner->filePath(QStringLiteral("Gerettet.anl")));
            QTest::mouseClick(static_cast<QMessageBox*>(w)->button(QMessageBox::Yes), Qt::LeftButton);
        });
        QVERIFY(win->close());
        QVERIFY(QFile::exists(ordner->filePath(QStringLiteral("Gerettet.anl"))));
    }

private:
    QAction* aktion(const char* name) { return win->findChild<QAction*>(QLatin1String(name)); }

    void neueAnlage(const QString& name)
    {
        dateiWaehlen(ordner->filePath(name));
        grundeinstellungenOk(QStringLiteral("20"));
        aktion("NeuesPultMenu")->trigger();
        QVERIFY(win->bereich().Pult->isVisible());
    }

    std::unique_ptr<QTemporaryDir> ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(10, 0))};
    Berichte berichte;
    std::unique_ptr<Programm> programm;
    MainWin* win = nullptr;
};

QTEST_MAIN(TstDateien)
#include "tst_dateien.moc"
