// Part 1.1 and the error report, driven through the real widgets.
#include "core/fehlerbehandlung.h"
#include "core/ui/fehler_box.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "platform/uhr.h"
#include "tests/support/gui_start.h"
#include "tests/support/gui.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <functional>

using namespace planor;

using namespace planor::test;

class TstMain : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ordner = std::make_unique<QTemporaryDir>();
        QVERIFY(ordner->isValid());
        FehlerbehandlungEinrichten({ordner->filePath(QStringLiteral("Fehler.log")), &uhr, &box});
    }

    void cleanup() { wartendeBeenden(); }

    void MainRunsThroughTheSplashToTheMainWindow()
    {
        Programm programm(ordner->path());
        QString info;
        startDruecken(&info);
        ersterStartMitSimulation(programm);
        MainWin& win = programm.starten();

        QCOMPARE(info, QStringLiteral("Version 1.1.6 vom 21.07.2016"));
        QVERIFY(programm.ersterStart());
        QVERIFY(win.isVisible());
        QCOMPARE(win.objectName(), QStringLiteral("MainWin"));
        QCOMPARE(win.EditMode, 1);
        QVERIFY(win.findChild<QAction*>(QStringLiteral("EditMode(1)"))->isChecked());
        QCOMPARE(win.findChild<QLabel*>(QStringLiteral("InfoTxt1"))->text(), QStringLiteral("Gleisplan editieren"));

        // Step 5: without a project the project menus are disabled.
        for (const char* name : {"BearbeitenMenu", "PultSpeichernMenu", "PultSpeichernUnterMenu", "DruckMenu",
                                 "EditModusMenu", "KonfHauptMenu", "ProgHauptMenu"})
            QVERIFY2(!win.findChild<QAction*>(QLatin1String(name))->isEnabled(), name);
        QVERIFY(win.findChild<QAction*>(QStringLiteral("ProgEndeMenu"))->isEnabled());

        // The captions the Parts give.
        QCOMPARE(win.findChild<QAction*>(QStringLiteral("KonfMenu(8)"))->text(),
                 QStringLiteral("Doppelsen. nur Schalt-, Sonderfunktionen oder Geschw."));
        QCOMPARE(win.findChild<QAction*>(QStringLiteral("UndoMenu"))->text(),
                 QStringLiteral("Löschen Rückgängig  | Strg Z"));
        QCOMPARE(win.findChild<QAction*>(QStringLiteral("EditMode(2)"))->text(),
                 QStringLiteral("Weichen-, Signal- und NAVIK/TOBRA-Adressen"));
        QCOMPARE(win.findChild<QAction*>(QStringLiteral("PultSpeichernUnterMenu"))->text(),
                 QStringLiteral("Anlage speichern unter ..."));
        QCOMPARE(win.findChild<QAction*>(QStringLiteral("ProgMenu(3)"))->text(), QStringLiteral("Fahrstraßen"));
        QCOMPARE(win.findChild<QAction*>(QStringLiteral("OptionMenu(0)"))->text(),
                 QStringLiteral("Grundeinstellungen ändern"));
        QVERIFY(box.isEmpty());
    }

    void StoredGeometryIsApplied()
    {
        schreiben(ordner->filePath(QStringLiteral("Planor.CFG")),
                  "MainWinWidth: 12000\r\nMainWinHeight: 9000\r\nMainWinLeft: 1500\r\nMainWinTop: 0\r\n");
        Programm programm(ordner->path());
        startDruecken();
        MainWin& win = programm.starten();
        QVERIFY(!programm.ersterStart());
        QCOMPARE(win.size(), QSize(800, 600));
        QCOMPARE(win.pos().x(), 100);
    }

    void StoredProjectThatNoLongerExistsGivesAnEmptyWindow()
    {
        schreiben(ordner->filePath(QStringLiteral("Planor.CFG")),
                  "Pfad:" + ordner->path().toUtf8() + "/weg/\r\nFile:Weg.anl\r\n");
        Programm programm(ordner->path());
        startDruecken();
        MainWin& win = programm.starten();
        QVERIFY(!win.findChild<QAction*>(QStringLiteral("KonfHauptMenu"))->isEnabled());
        QVERIFY(!win.findChild<QAction*>(QStringLiteral("PultSpeichernMenu"))->isEnabled());
        QVERIFY(win.PultNeuSetzen);
        QVERIFY(!win.findChild<QWidget*>(QStringLiteral("Pult"))->isVisible());
        QCOMPARE(programm.anlage.PultGeaendert, Integer(0));
        QVERIFY(box.isEmpty());
    }

    void CancelledExitHasAlreadyRewrittenTheSettings()
    {
        const QString cfg = ordner->filePath(QStringLiteral("Planor.CFG"));
        schreiben(cfg, "; ein Kommentar\r\nComPort: 2\r\n");
        Programm programm(ordner->path());
        startDruecken();
        MainWin& win = programm.starten();
        programm.anlage.PultGeaendert = 1;

        QString frage;
        wennSichtbar(QStringLiteral("ExitFrage"), [&frage](QWidget* w) {
            auto* box = static_cast<QMessageBox*>(w);
            frage = box->windowTitle() + u'|' + box->text();
            QCOMPARE(box->defaultButton(), box->button(QMessageBox::Cancel));
            QTest::mouseClick(box->button(QMessageBox::Cancel), Qt::LeftButton);
        });
        win.findChild<QAction*>(QStringLiteral("ProgEndeMenu"))->trigger();

        QCOMPARE(frage, QStringLiteral("Achtung: Sie haben das Programm beendet!|Sollen die Daten gespeichert werden?"));
        QVERIFY(win.isVisible());
        const QByteArray neu = lesen(cfg);
        QVERIFY(neu.startsWith("// Konfigurationsfile von NAVIK/TOBRA-Planor Ver. 1.1.6 am 21.11.2026 //\r\n"));
        QVERIFY(neu.contains("\r\nComPort:  2 \r\n"));
        QVERIFY(!neu.contains("Kommentar"));
    }

    void UnchangedProjectEndsWithoutAQuestion()
    {
        Programm programm(ordner->path());
        startDruecken();
        ersterStartMitSimulation(programm);
        MainWin& win = programm.starten();
        QVERIFY(win.close());
        QVERIFY(!win.isVisible());
        QVERIFY(lesen(ordner->filePath(QStringLiteral("Planor.CFG"))).contains("\r\nFile:\r\n"));
    }

    void ErrorReportShowsACriticalBoxWithTheExactText()
    {
        QString titel, text;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        wennSichtbar(QStringLiteral("Fehlerbehandlung"), [&](QWidget* w) {
            auto* b = static_cast<QMessageBox*>(w);
            titel = b->windowTitle();
            text = b->text();
            icon = b->icon();
            QTest::mouseClick(b->button(QMessageBox::Ok), Qt::LeftButton);
        });
        FehlerBox echteBox;
        FehlerbehandlungEinrichten({ordner->filePath(QStringLiteral("Fehler.log")), &uhr, &echteBox});
        const int ergebnis = geschuetzt("Funktionen : Probe", 7, []() -> int {
            throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
        });

        QCOMPARE(ergebnis, 7);
        QCOMPARE(titel, QStringLiteral("--- Programmfehler ---"));
        QCOMPARE(icon, QMessageBox::Critical);
        QCOMPARE(text, QStringLiteral(" Fehler in : Funktionen : Probe\n"
                                      " Fehlernummer: 9 -> Index außerhalb des gültigen Bereichs\n\n\n"
                                      " Bei einer Fehlerbeschreibung bitte das File:\n")
                           + ordner->filePath(QStringLiteral("Fehler.log"))
                           + QStringLiteral("\n an die Service-Adresse mitsenden."));
        QCOMPARE(lesen(ordner->filePath(QStringLiteral("Fehler.log"))),
                 QByteArray("### 21.11.2026 - 09:05:07 :\r\n"
                            "     Fehler in : Funktionen : Probe\r\n"
                            "     Fehlernummer: 9 -> Index au\xDF" "erhalb des g\xFCltigen Bereichs\r\n"));
    }

private:
    // Collects reports that no test expects, so that they fail the test.
    struct Unerwartet final : FehlerAnzeige {
        void zeigen(const QString&, const QString& text) override { texte << text; }
        bool isEmpty() const { return texte.isEmpty(); }
        QStringList texte;
    };

    std::unique_ptr<QTemporaryDir> ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    Unerwartet box;
};

QTEST_MAIN(TstMain)
#include "tst_main.moc"
