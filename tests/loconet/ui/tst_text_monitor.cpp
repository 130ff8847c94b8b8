// The monitor window on its own (lines from the framing, the options, the
// trace), then through the real main window on the demo project with the
// built-in simulator: view 4 starts it, view 1 closes it.
#include "core/benutzer.h"
#include "core/exit_frage.h"
#include "core/fehlerbehandlung.h"
#include "core/ui/main.h"
#include "core/ui/main_win.h"
#include "loconet/empfang.h"
#include "loconet/nachricht.h"
#include "loconet/open_com.h"
#include "loconet/ui/frm_monitor.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "tests/support/gui.h"

#include <QCheckBox>
#include <QDir>
#include <QFontInfo>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QToolBar>
#include <QToolButton>

#include <initializer_list>

using namespace planor;
using namespace planor::test;

namespace {

QByteArray msg(std::initializer_list<int> werte)
{
    QByteArray b;
    for (int w : werte)
        b.append(static_cast<char>(w));
    return mitPruefsumme(b);
}

struct Meldungen final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol) override { texte << titel + u'|' + text; }
    QStringList texte;
};

struct Berichte final : FehlerAnzeige {
    void zeigen(const QString&, const QString& text) override { texte << text; }
    QStringList texte;
};

} // namespace

class TstTextMonitor : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(ordner.isValid());
        FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), &testUhr, &berichte});
    }

    void init()
    {
        empfang = std::make_unique<Empfang>();
        form = std::make_unique<FrmMonitor>(*empfang, testUhr, ordner.path(), meldungen);
    }

    void cleanup()
    {
        form.reset();
        wartendeBeenden();
        QCOMPARE(berichte.texte, QStringList());
    }

    void ShowingStartsTheMonitorAndMessagesShowTheirLines()
    {
        form->zeigen();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        QVERIFY(empfang->Monitor_Aktiv);
        QCOMPARE(knopf("cmdStartStop")->text(), QStringLiteral("Stop"));
        // A message split across reads.
        const QByteArray weiche = msg({0xB0, 0x04, 0x30});
        empfang->bytes(weiche.left(1));
        empfang->bytes(weiche.mid(1));
        empfang->bytes(msg({0xB2, 0x02, 0x10}));
        QTRY_COMPARE(rtbMoni()->toPlainText(), QStringLiteral("Mag.-Art.: 5 - grün - ein \nRückmelder 5 = belegt\n"));
    }

    void ABurstIsShownInOneUpdateAndStaysExact()
    {
        form->zeigen();
        int aenderungen = 0;
        connect(rtbMoni()->document(), &QTextDocument::contentsChanged, this, [&] { ++aenderungen; });
        // Far more than the 5000-character cap, with cuts on the way.
        for (int i = 0; i < 1000; ++i)
            empfang->bytes(msg({0xB2, i % 128, 0x10 | (i / 128)}));
        QTRY_VERIFY(aenderungen > 0);
        QCOMPARE(rtbMoni()->toPlainText(), form->monitor().ansicht());
        QVERIFY(rtbMoni()->toPlainText().size() <= MonitorHoechstZeichen);
        // The view follows the end.
        QScrollBar* leiste = rtbMoni()->verticalScrollBar();
        QCOMPARE(leiste->value(), leiste->maximum());
        // Appending after a cut stays exact too.
        empfang->bytes(msg({0x83}));
        QTRY_VERIFY(rtbMoni()->toPlainText().endsWith(QStringLiteral("Gleisspannung eingeschaltet\n")));
        QCOMPARE(rtbMoni()->toPlainText(), form->monitor().ansicht());
    }

    void OptionsSetTheDecoder()
    {
        form->zeigen();
        QTest::mouseClick(option("LNM_hex_chk"), Qt::LeftButton);
        QVERIFY(form->monitor().zustand().Hex_Ausgabe);
        empfang->bytes(msg({0x83}));
        QTest::mouseClick(option("LNM_hex_chk"), Qt::LeftButton);
        QTest::mouseClick(option("LNM_ascii_hex_chk"), Qt::LeftButton);
        QVERIFY(!form->monitor().zustand().Hex_Ausgabe);
        QVERIFY(form->monitor().zustand().Ascii_Hex);
        empfang->bytes(msg({0x85}));
        QTRY_COMPARE(rtbMoni()->toPlainText(), QStringLiteral("83 \nHEX: 85 \n"));
    }

    void TraceToggleWritesAFile()
    {
        form->zeigen();
        QTest::mouseClick(knopf("btnTraceOnOff"), Qt::LeftButton);
        const QString pfad = QDir(ordner.path()).filePath(VerlaufName(testUhr.jetzt()) + QStringLiteral(".txt"));
        QCOMPARE(knopf("btnTraceOnOff")->text(), QStringLiteral("Speichern aus"));
        QCOMPARE(statusText(), QStringLiteral("Speichern: ") + pfad);
        empfang->bytes(msg({0x83}));
        QTest::mouseClick(knopf("btnTraceOnOff"), Qt::LeftButton);
        QCOMPARE(knopf("btnTraceOnOff")->text(), QStringLiteral("Verlauf speichern"));
        QCOMPARE(statusText(), QStringLiteral("Gespeichert unter: ") + pfad);
        const QString zeit = TraceZeile(testUhr.jetzt().time(), QString());
        QCOMPARE(lesen(pfad), (zeit + QStringLiteral("Gleisspannung eingeschaltet\r\n")).toLatin1());
        QCOMPARE(meldungen.texte, QStringList());
    }

    void ClosingIsAbbruch()
    {
        form->zeigen();
        empfang->bytes(msg({0x83}));
        QTest::mouseClick(knopf("btnCancel"), Qt::LeftButton);
        QVERIFY(!form->isVisible());
        QVERIFY(!empfang->Monitor_Aktiv);
        QCOMPARE(rtbMoni()->toPlainText(), QString());

        form->zeigen();
        QVERIFY(empfang->Monitor_Aktiv);
        // The window manager's close.
        QVERIFY(form->close());
        QVERIFY(!empfang->Monitor_Aktiv);
        QCOMPARE(knopf("cmdStartStop")->text(), QStringLiteral("Start"));
    }

    void LongestLinesNeedNoHorizontalScrollBar()
    {
        form->zeigen();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        QTest::mouseClick(knopf("btnTraceOnOff"), Qt::LeftButton);
        empfang->bytes(msg({0xE7, 0x0E, 0x10, 0x00, 0x22, 0x20, 0x31, 0x00, 0x00, 0x01, 0x01, 0x00, 0x00}));
        empfang->bytes(msg({0xA0, 0x10, 0x40}));
        empfang->bytes(msg({0xB0, 0x04, 0x30}));
        empfang->bytes(msg({0xBC, 0x04, 0x00}));
        empfang->bytes(msg({0xB4, 0x3C, 0x30}));
        empfang->bytes(msg({0xB2, 0x02, 0x10}));
        empfang->bytes(msg({0xE4, 0x08, 0x00, 0x40, 0x03, 0x00, 0x17}));
        // The longest lines, cut at 80 characters, fit the view's width.
        QTest::mouseClick(option("LNM_ascii_hex_chk"), Qt::LeftButton);
        QByteArray lang = QByteArray::fromHex("EF1C") + QByteArray(25, '\x7F');
        empfang->bytes(mitPruefsumme(lang));
        empfang->bytes(msg({0x82}));
        QTRY_VERIFY(rtbMoni()->toPlainText().endsWith(QStringLiteral("Gleisspannung ausgeschaltet\n")));
        QCOMPARE(rtbMoni()->horizontalScrollBar()->maximum(), 0);
        QTest::mouseClick(knopf("btnTraceOnOff"), Qt::LeftButton);
    }

    // Opened and closed through the views of the main window.
    void View4StartsItAndView1ClosesIt()
    {
        const QDir demo(QStringLiteral(PLANOR_TESTDATA "/../../data/demo"));
        QDir(ordner.path()).mkdir(QStringLiteral("demo"));
        for (const QString& datei : demo.entryList(QDir::Files))
            QVERIFY(QFile::copy(demo.filePath(datei), ordner.filePath(QStringLiteral("demo/") + datei)));
        schreiben(ordner.filePath(QStringLiteral("Planor.CFG")), "ComPort: 1\r\nVerbindungsart: 2\r\n");
        // The simulator outlives the program's link to it.
        Simulator simulator(testUhr);
        Programm programm(ordner.path());
        programm.uhr = &testUhr;
        programm.simulator = [&simulator] { return std::unique_ptr<Transport>(simulator.transport()); };
        startDruecken();
        MainWin& win = programm.starten();
        QVERIFY(QTest::qWaitForWindowExposed(&win));
        PfadUndFileSetzen(programm.anlage, ordner.filePath(QStringLiteral("demo/Demo.anl")));
        win.anlageLaden();

        QVERIFY(!win.findChild<FrmMonitor*>());
        win.EditMode_Click(4);
        QCOMPARE(win.EditMode, 4);
        auto* monitor = win.findChild<FrmMonitor*>(QStringLiteral("frmMonitor"));
        QVERIFY(monitor);
        QVERIFY(monitor->isVisible());
        QVERIFY(win.schnittstelle().link().empfang().Monitor_Aktiv);
        // Beside the main window, not over it.
        QVERIFY(monitor->frameGeometry().left() > win.frameGeometry().left());
        // A second start changes nothing.
        win.Start_TextMonitor();
        QCOMPARE(win.findChildren<FrmMonitor*>().size(), 1);

        // Another party on the bus switches accessory 5 to green.
        simulator.bus().melden(mitPruefsumme(SendMag_Nachricht(5, 1, true)));
        QPlainTextEdit* ansicht = kind<QPlainTextEdit>(monitor, QStringLiteral("rtbMoni"));
        testUhr.warten(1.0, [&] { return monitor->monitor().ansicht().contains(QStringLiteral("Mag.-Art.")); });
        QTRY_VERIFY2(ansicht->toPlainText().contains(QStringLiteral("Mag.-Art.: 5 - grün - ein ")),
            qPrintable(ansicht->toPlainText()));

        win.EditMode_Click(1);
        QVERIFY(!monitor->isVisible());
        QVERIFY(!win.schnittstelle().link().empfang().Monitor_Aktiv);
        // Stopping a stopped monitor does nothing.
        win.Stop_TextMonitor();
        // View 4 again shows the same window, running and empty.
        win.EditMode_Click(4);
        QVERIFY(monitor->isVisible());
        QCOMPARE(ansicht->toPlainText(), QString());
        QVERIFY(win.schnittstelle().link().empfang().Monitor_Aktiv);
        win.EditMode_Click(1);
        QVERIFY(!monitor->isVisible());
    }

private:
    QToolButton* knopf(const char* name) { return kind<QToolButton>(form.get(), QLatin1String(name)); }
    QCheckBox* option(const char* name) { return kind<QCheckBox>(form.get(), QLatin1String(name)); }
    QPlainTextEdit* rtbMoni() { return kind<QPlainTextEdit>(form.get(), QStringLiteral("rtbMoni")); }
    QString statusText() { return kind<QStatusBar>(form.get(), QStringLiteral("StatusBar1"))->currentMessage(); }

    QTemporaryDir ordner;
    TestUhr testUhr {QDateTime(QDate(2026, 11, 21), QTime(14, 30, 5))};
    Berichte berichte;
    Meldungen meldungen;
    std::unique_ptr<Empfang> empfang;
    std::unique_ptr<FrmMonitor> form;
};

QTEST_MAIN(TstTextMonitor)
#include "tst_text_monitor.moc"
