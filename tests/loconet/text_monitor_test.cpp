// Part 2.6: the text monitor behind frmMonitor, fed as the link feeds it:
// bytes through the monitor framing of Empfang (Part 2.2) into the view's
// text and the trace file.
#include "loconet/empfang.h"
#include "loconet/nachricht.h"
#include "loconet/text_monitor.h"
#include "platform/uhr.h"
#include "tests/support/daten.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <initializer_list>

using namespace planor;
using planor::test::bytes;

namespace {

// A message as the spec writes it, with its checksum appended.
QByteArray msg(std::initializer_list<int> werte)
{
    return mitPruefsumme(bytes(werte));
}

class TextMonitorTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(ordner.isValid());
        monitor.anschliessen(empfang);
        monitor.geaendert = [this] { ++meldungen; };
    }

    // The running monitor, its start line gone.
    void laufen()
    {
        monitor.starten();
        ASSERT_TRUE(empfang.Monitor_Aktiv);
    }

    void traceAn()
    {
        QString fehler;
        ASSERT_TRUE(monitor.btnTraceOnOff_Click(fehler)) << qPrintable(fehler);
    }

    QByteArray trace() const { return test::datei(monitor.Trace_Name()); }

    TestUhr uhr {QDateTime(QDate(2026, 11, 21), QTime(14, 30, 5, 250))};
    QTemporaryDir ordner;
    TextMonitor monitor {uhr, ordner.path()};
    Empfang empfang;
    int meldungen = 0;
};

} // namespace

TEST_F(TextMonitorTest, StartsStoppedAndHooksTheFraming)
{
    EXPECT_FALSE(monitor.Monitor_Aktiv());
    EXPECT_FALSE(empfang.Monitor_Aktiv);
    EXPECT_TRUE(bool(empfang.decode_ln_mes));
    EXPECT_EQ(monitor.cmdStartStopText(), StartText);
    EXPECT_EQ(monitor.btnTraceOnOffText(), QStringLiteral("Verlauf speichern"));
    // Stopped, the framing hands nothing over.
    empfang.bytes(msg({0x83}));
    EXPECT_EQ(monitor.ansicht(), QString());
}

TEST_F(TextMonitorTest, StartStopTogglesCaptionLineAndTheFraming)
{
    monitor.cmdStartStop_Click();
    EXPECT_TRUE(monitor.Monitor_Aktiv());
    EXPECT_TRUE(empfang.Monitor_Aktiv);
    EXPECT_EQ(monitor.cmdStartStopText(), QStringLiteral("Stop"));
    EXPECT_EQ(monitor.ansicht(), QStringLiteral(" START: Monitor läuft!\n"));

    monitor.cmdStartStop_Click();
    EXPECT_FALSE(monitor.Monitor_Aktiv());
    EXPECT_FALSE(empfang.Monitor_Aktiv);
    EXPECT_EQ(monitor.cmdStartStopText(), QStringLiteral("Start"));
    EXPECT_EQ(monitor.ansicht(), QStringLiteral(" START: Monitor läuft!\n STOP: Monitor angehalten!\n"));
    EXPECT_EQ(monitor.Zeilen(), 2);
    EXPECT_EQ(meldungen, 2);
}

TEST_F(TextMonitorTest, MessagesThroughTheFramingAppendTheirLines)
{
    laufen();
    // A message split across reads, and a stray data byte before it.
    empfang.bytes(bytes({0x12}));
    const QByteArray weiche = msg({0xB0, 0x04, 0x30});
    empfang.bytes(weiche.left(2));
    EXPECT_EQ(monitor.ansicht(), QString());
    empfang.bytes(weiche.mid(2));
    empfang.bytes(msg({0x82}));
    EXPECT_EQ(monitor.ansicht(), QStringLiteral("Mag.-Art.: 5 - grün - ein \nGleisspannung ausgeschaltet\n"));
    EXPECT_EQ(monitor.Zeilen(), 2);
}

TEST_F(TextMonitorTest, NachrichtReturnsTheLinesItAppends)
{
    laufen();
    EXPECT_EQ(monitor.nachricht(msg({0x83})), QStringList {QStringLiteral("Gleisspannung eingeschaltet")});
    EXPECT_EQ(monitor.nachricht(msg({0x81})), QStringList());
}

// Edge case: a 0xB4 without a query before it shows no line, and no trace line.
TEST_F(TextMonitorTest, LongAckWithoutQueryShowsNoLineAndWritesNoTraceLine)
{
    laufen();
    traceAn();
    empfang.bytes(msg({0xB4, 0x3C, 0x30}));
    EXPECT_EQ(monitor.ansicht(), QString());
    EXPECT_EQ(meldungen, 1); // the trace's status only
    EXPECT_EQ(trace(), QByteArray());
}

// Edge case: after a 0xBC and a 0xB4 with b1 other than 60 the query is
// forgotten and nothing shows; with b1 = 60 the answer would have shown.
TEST_F(TextMonitorTest, LongAckForAnotherOpcodeClearsTheQuery)
{
    laufen();
    empfang.bytes(msg({0xBC, 0x04, 0x00}));
    EXPECT_EQ(monitor.zustand().Letzte_Anfrage, AnfrageMagStatus);
    const QString nachAnfrage = monitor.ansicht();
    EXPECT_EQ(nachAnfrage, QStringLiteral("Statusanfrage nach Mag.-Art. 5\n"));
    empfang.bytes(msg({0xB4, 0x30, 0x30}));
    EXPECT_EQ(monitor.zustand().Letzte_Anfrage, 0);
    EXPECT_EQ(monitor.ansicht(), nachAnfrage);

    empfang.bytes(msg({0xBC, 0x04, 0x00}));
    empfang.bytes(msg({0xB4, 0x3C, 0x30}));
    EXPECT_TRUE(monitor.ansicht().endsWith(QStringLiteral("\n Antwort: grün\n"))) << qPrintable(monitor.ansicht());
}

// Edge case: with Hex_Ausgabe the text table is not used.
TEST_F(TextMonitorTest, HexOutputBypassesTheTable)
{
    laufen();
    traceAn();
    monitor.zustand().Hex_Ausgabe = true;
    empfang.bytes(msg({0x83}));
    empfang.bytes(msg({0xBC, 0x04, 0x00}));
    EXPECT_EQ(monitor.ansicht(), QStringLiteral("83 \nBC 04 00 \n"));
    EXPECT_EQ(monitor.zustand().Letzte_Anfrage, 0);
    // Step 6: any text shown goes to the trace, the hexadecimal ones too.
    EXPECT_EQ(trace(), QByteArray("052205,250 - 83 \r\n052205,250 - BC 04 00 \r\n"));
}

// Edge case: with both options off an unknown opcode leaves no line.
TEST_F(TextMonitorTest, UnknownOpcodeShowsOnlyWithAsciiHex)
{
    laufen();
    empfang.bytes(msg({0x85}));
    empfang.bytes(msg({0xA3, 0x01, 0x02}));
    EXPECT_EQ(monitor.ansicht(), QString());
    EXPECT_EQ(monitor.Zeilen(), 0);
    monitor.zustand().Ascii_Hex = true;
    empfang.bytes(msg({0x85}));
    EXPECT_EQ(monitor.ansicht(), QStringLiteral("HEX: 85 \n"));
}

// Edge case of ZeilenUmbruch through the whole path: the longest texts the
// decoder makes are hexadecimal; 27 bytes give "HEX: " and 81 characters,
// cut into 80 and 6. With Hex_Ausgabe the same bytes stay one line.
TEST_F(TextMonitorTest, TextLongerThan80GivesTwoLines)
{
    laufen();
    monitor.zustand().Ascii_Hex = true;
    QByteArray lang = bytes({0xEF, 28});
    lang.append(25, '\x11');
    lang = mitPruefsumme(lang);
    ASSERT_EQ(lang.size(), 28);
    empfang.bytes(lang);
    const QStringList zeilen = monitor.ansicht().split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(zeilen.size(), 2);
    EXPECT_EQ(zeilen[0].size(), 80);
    EXPECT_EQ(zeilen[1], QStringLiteral("11 11 "));
    EXPECT_EQ(monitor.Zeilen(), 2);

    monitor.zustand().Hex_Ausgabe = true;
    empfang.bytes(lang);
    EXPECT_EQ(monitor.ansicht().count(u'\n'), 3);
    EXPECT_EQ(monitor.Zeilen(), 3);
}

// Step 1: more than 5000 characters keep the last 4900, and Zeilen starts over.
TEST_F(TextMonitorTest, ViewIsCappedBeforeTheNextMessage)
{
    laufen();
    const QByteArray an = msg({0x83}); // "Gleisspannung eingeschaltet\n": 28 characters
    while (monitor.ansicht().size() <= MonitorHoechstZeichen)
        empfang.bytes(an);
    const QString vorher = monitor.ansicht();
    const int schnitte = monitor.schnitte();
    EXPECT_GT(monitor.Zeilen(), 100);

    empfang.bytes(msg({0x82}));
    EXPECT_EQ(monitor.schnitte(), schnitte + 1);
    EXPECT_EQ(
        monitor.ansicht(), vorher.right(MonitorBehalteneZeichen) + QStringLiteral("Gleisspannung ausgeschaltet\n"));
    EXPECT_EQ(monitor.Zeilen(), 1);
    // A message with no text cuts all the same.
    while (monitor.ansicht().size() <= MonitorHoechstZeichen)
        empfang.bytes(an);
    empfang.bytes(msg({0x81}));
    EXPECT_EQ(monitor.ansicht().size(), MonitorBehalteneZeichen);
    EXPECT_EQ(monitor.Zeilen(), 0);
}

TEST_F(TextMonitorTest, TraceGetsStartStopAndMessagesInWindows1252)
{
    traceAn();
    const QString pfad = QDir(ordner.path()).filePath(QStringLiteral("21.11.2026__14_30_05.txt"));
    EXPECT_EQ(monitor.Trace_Name(), pfad);
    EXPECT_TRUE(monitor.Trace_Aktiv());
    EXPECT_EQ(monitor.status(), QStringLiteral("Speichern: ") + pfad);
    EXPECT_EQ(monitor.btnTraceOnOffText(), QStringLiteral("Speichern aus"));

    monitor.cmdStartStop_Click();
    uhr.weiter(1500);
    empfang.bytes(msg({0xB2, 0x02, 0x10}));
    // A text longer than 80 characters is one line in the trace.
    monitor.zustand().Ascii_Hex = true;
    QByteArray lang = bytes({0xEF, 28});
    lang.append(25, '\x11');
    empfang.bytes(mitPruefsumme(lang));
    monitor.cmdStartStop_Click();
    // Stopped, the monitor writes no more.
    empfang.bytes(msg({0x83}));

    QString fehler;
    ASSERT_TRUE(monitor.btnTraceOnOff_Click(fehler));
    EXPECT_FALSE(monitor.Trace_Aktiv());
    EXPECT_EQ(monitor.status(), QStringLiteral("Gespeichert unter: ") + pfad);
    EXPECT_EQ(monitor.btnTraceOnOffText(), QStringLiteral("Verlauf speichern"));
    // After the trace is off, nothing more goes to it.
    monitor.cmdStartStop_Click();

    const QByteArray hex = "HEX: EF 1C " + QByteArray("11 ").repeated(25);
    EXPECT_EQ(test::datei(pfad),
        QByteArray("052205,250 -  START: Monitor l\xe4uft!\r\n"
                   "052206,750 - R\xfc"
                   "ckmelder 5 = belegt\r\n"
                   "052206,750 - ")
            + hex + "\r\n052206,750 -  STOP: Monitor angehalten!\r\n");
}

TEST_F(TextMonitorTest, TraceThatCannotBeOpenedIsUndoneWithTheReason)
{
    TextMonitor ohneOrdner(uhr, ordner.filePath(QStringLiteral("fehlt/auch")));
    QString fehler;
    EXPECT_FALSE(ohneOrdner.btnTraceOnOff_Click(fehler));
    EXPECT_TRUE(fehler.startsWith(QStringLiteral("Die Datei \""))) << qPrintable(fehler);
    EXPECT_TRUE(fehler.contains(QStringLiteral("kann nicht geschrieben werden"))) << qPrintable(fehler);
    EXPECT_FALSE(ohneOrdner.Trace_Aktiv());
    EXPECT_EQ(ohneOrdner.btnTraceOnOffText(), QStringLiteral("Verlauf speichern"));
    EXPECT_EQ(ohneOrdner.status(), QString());
}

// State and lifecycle: Slot_Tab fills only while the monitor runs.
TEST_F(TextMonitorTest, SlotTableFillsOnlyWhileRunning)
{
    const QByteArray slot5 = msg({0xE7, 0x0E, 0x05, 0x00, 0x22, 0x10, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00});
    empfang.bytes(slot5);
    EXPECT_EQ(monitor.zustand().Lokadresse(5), 0);
    empfang.bytes(msg({0xA0, 0x05, 0x20}));
    EXPECT_EQ(monitor.ansicht(), QString());

    laufen();
    empfang.bytes(msg({0xA0, 0x05, 0x20}));
    empfang.bytes(slot5);
    EXPECT_EQ(monitor.zustand().Lokadresse(5), 162);
    empfang.bytes(msg({0xA0, 0x05, 0x20}));
    EXPECT_EQ(monitor.ansicht(),
        QStringLiteral("Lok 0 = Geschw. 32\n"
                       "Slot  5 = Lokadr. 162, Geschw. 16 ,vorwärts \n"
                       "Lok 162 = Geschw. 32\n"));
}

TEST_F(TextMonitorTest, ClearEmptiesTheViewOnly)
{
    laufen();
    empfang.bytes(msg({0xBC, 0x04, 0x00}));
    const int schnitte = monitor.schnitte();
    monitor.btnClear_Click();
    EXPECT_EQ(monitor.ansicht(), QString());
    EXPECT_EQ(monitor.Zeilen(), 0);
    EXPECT_EQ(monitor.schnitte(), schnitte + 1);
    EXPECT_TRUE(monitor.Monitor_Aktiv());
    EXPECT_EQ(monitor.zustand().Letzte_Anfrage, AnfrageMagStatus);
}

TEST_F(TextMonitorTest, CancelClearsTheMonitorsStateButKeepsTheOptions)
{
    laufen();
    traceAn();
    monitor.zustand().Ascii_Hex = true;
    empfang.bytes(msg({0xE7, 0x0E, 0x05, 0x00, 0x22, 0x10, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00}));
    empfang.bytes(msg({0xBC, 0x04, 0x00}));
    monitor.btnCancel_Click();
    EXPECT_FALSE(monitor.Monitor_Aktiv());
    EXPECT_FALSE(empfang.Monitor_Aktiv);
    EXPECT_EQ(monitor.ansicht(), QString());
    EXPECT_EQ(monitor.zustand().Lokadresse(5), 0);
    EXPECT_EQ(monitor.zustand().Letzte_Anfrage, 0);
    EXPECT_TRUE(monitor.zustand().Ascii_Hex);
    EXPECT_FALSE(monitor.Trace_Aktiv());
    EXPECT_TRUE(monitor.status().startsWith(QStringLiteral("Gespeichert unter: ")));
    empfang.bytes(msg({0x83}));
    EXPECT_EQ(monitor.ansicht(), QString());
}
