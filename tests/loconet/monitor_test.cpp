// The monitor's decoder, its view and its trace file, fed as the link feeds them.
#include "loconet/empfang.h"
#include "loconet/monitor_text.h"
#include "loconet/nachricht.h"
#include "loconet/text_monitor.h"
#include "platform/uhr.h"
#include "tests/support/daten.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

using namespace planor;
using planor::test::bytes;

namespace {

// A message with its checksum appended.
QByteArray msg(std::initializer_list<int> werte)
{
    return mitPruefsumme(bytes(werte));
}

struct Fall {
    const char* name;
    QByteArray nachricht;
    QString text;
};

// Every row of the text table on a fresh state (Slot_Tab empty: addresses 0).
const std::vector<Fall>& tabelle()
{
    static const std::vector<Fall> faelle = {
        {"81_nothing", msg({0x81}), QString()},
        {"82_power_off", msg({0x82}), QStringLiteral("Gleisspannung ausgeschaltet")},
        {"83_power_on", msg({0x83}), QStringLiteral("Gleisspannung eingeschaltet")},
        {"A0_speed", msg({0xA0, 0x05, 0x20}), QStringLiteral("Lok 0 = Geschw. 32")},
        {"A0_speed_zero", msg({0xA0, 0x05, 0x00}), QStringLiteral("Lok 0 = Geschw. 0")},
        {"A1_backward_F0", msg({0xA1, 0x05, 0x30}), QStringLiteral("Lok 0 = rückwärts F0 ")},
        {"A1_forward_F1toF4", msg({0xA1, 0x05, 0x0F}), QStringLiteral("Lok 0 = vorwärts F1 F2 F3 F4 ")},
        {"A1_forward_none", msg({0xA1, 0x05, 0x00}), QStringLiteral("Lok 0 = vorwärts ")},
        {"A1_all", msg({0xA1, 0x05, 0x3F}), QStringLiteral("Lok 0 = rückwärts F0 F1 F2 F3 F4 ")},
        {"A2_F5toF8", msg({0xA2, 0x05, 0x0F}), QStringLiteral("Lok 0 = F5 F6 F7 F8 ")},
        {"A2_F5_F7", msg({0xA2, 0x05, 0x05}), QStringLiteral("Lok 0 = F5 F7 ")},
        {"A2_none", msg({0xA2, 0x05, 0x00}), QStringLiteral("Lok 0 = ")},
        {"B0_green_on", msg({0xB0, 0x00, 0x30}), QStringLiteral("Mag.-Art.: 1 - grün - ein ")},
        {"B0_red_off", msg({0xB0, 0x0A, 0x03}), QStringLiteral("Mag.-Art.: 395 - rot - aus ")},
        {"B0_red_on", msg({0xB0, 0x7F, 0x1F}), QStringLiteral("Mag.-Art.: 2048 - rot - ein ")},
        {"B2_occupied", msg({0xB2, 0x05, 0x10}), QStringLiteral("Rückmelder 11 = belegt")},
        {"B2_free_bit5", msg({0xB2, 0x05, 0x21}), QStringLiteral("Rückmelder 268 = frei")},
        {"B4_without_query", msg({0xB4, 0x3C, 0x20}), QString()},
        {"BB_slot_query", msg({0xBB, 0x10, 0x00}), QStringLiteral("Statusanfrage nach Slot 16")},
        {"BC_switch_query", msg({0xBC, 0x05, 0x01}), QStringLiteral("Statusanfrage nach Mag.-Art. 134")},
        {"BF_loco_query", msg({0xBF, 0x01, 0x03}), QStringLiteral("Anfrage nach Lokadresse: 131")},
        {"E4_length_not_8", msg({0xE4, 0x09, 0x00, 0x20, 0x07, 0x00, 0x00, 0x00}), QString()},
        {"E4_train_S1_S2", msg({0xE4, 0x08, 0x02, 0x41, 0x05, 0x00, 0x03}),
            QStringLiteral("NAVIK/TOBRA Empf. 133: Adr.= 3 Kat.= 3 , von S1 nach S2")},
        {"E4_train_S2_S1", msg({0xE4, 0x08, 0x00, 0x20 | 0x40 | 0x02, 0x05, 0x01, 0x02}),
            QStringLiteral("NAVIK/TOBRA Empf. 261: Adr.= 130 Kat.= 1 , von S2 nach S1")},
        {"E4_train_no_direction", msg({0xE4, 0x08, 0x07, 0x00, 0x05, 0x00, 0x03}),
            QStringLiteral("NAVIK/TOBRA Empf. 5: Adr.= 3 Kat.= 4 ")},
        {"E4_speed", msg({0xE4, 0x08, 0x00, 0x20, 0x07, 0x01, 0x02}),
            QStringLiteral("NAVIK/TOBRA Empf. 7: Geschw.= 130 Km/h")},
        {"E4_sender_query", msg({0xE4, 0x08, 0x01, 0x20, 0x07, 0x00, 0x00}),
            QStringLiteral("NAVIK/TOBRA Empf. 7 Senderabfrage ")},
        {"E4_block_free", msg({0xE4, 0x08, 0x01, 0x21, 0x07, 0x00, 0x02}),
            QStringLiteral("NAVIK/TOBRA Empf. 135: Block frei")},
        {"E4_block_occupied", msg({0xE4, 0x08, 0x01, 0x20, 0x07, 0x00, 0x03}),
            QStringLiteral("NAVIK/TOBRA Empf. 7: Block belegt")},
        {"E4_b6_1_nothing", msg({0xE4, 0x08, 0x01, 0x20, 0x07, 0x00, 0x01}), QString()},
        {"E4_b6_4_nothing", msg({0xE4, 0x08, 0x01, 0x20, 0x07, 0x00, 0x04}), QString()},
        {"E4_b5_not_0_nothing", msg({0xE4, 0x08, 0x01, 0x20, 0x07, 0x01, 0x02}), QString()},
        {"E4_b2_2_nothing", msg({0xE4, 0x08, 0x02, 0x20, 0x07, 0x00, 0x02}), QString()},
        {"E7_slot_data", msg({0xE7, 0x0E, 0x10, 0x03, 0x05, 0x20, 0x21, 0x00, 0x00, 0x01, 0x03, 0x00, 0x00}),
            QStringLiteral("Slot  16 = Lokadr. 133, Geschw. 32 ,rückwärts F1 F5 F6 ")},
        {"E7_slot_all_functions", msg({0xE7, 0x0E, 0x7F, 0x03, 0x7F, 0x7F, 0x1F, 0x00, 0x00, 0x7F, 0x0F, 0x00, 0x00}),
            QStringLiteral("Slot  127 = Lokadr. 16383, Geschw. 127 ,vorwärts F0 F1 F2 F3 F4 F5 F6 F7 F8 ")},
        {"unknown_opcode", msg({0xE5, 0x05, 0x01, 0x02}), QString()},
    };
    return faelle;
}

class MonitorTextTabelle : public ::testing::TestWithParam<Fall> { };

TEST_P(MonitorTextTabelle, MessageGivesExactText)
{
    MonitorZustand z;
    EXPECT_EQ(decode_ln_mes(z, GetParam().nachricht), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Monitortext, MonitorTextTabelle, ::testing::ValuesIn(tabelle()),
    [](const ::testing::TestParamInfo<Fall>& info) { return std::string(info.param.name); });


class Monitor : public ::testing::Test {
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


// A 0xB4 shows the answer to the 0xBC before it, once; after one for another
// opcode, or without a query, it shows nothing.
TEST(Monitortext, LongAckAnswersTheSwitchQueryOnce)
{
    MonitorZustand z;
    const std::pair<QByteArray, const char*> folge[] = {
        {msg({0xB4, 0x3C, 0x20}), ""}, {msg({0xBC, 0x00, 0x00}), "Statusanfrage nach Mag.-Art. 1"},
        {msg({0xB4, 0x3C, 0x20}), " Antwort: grün"}, {msg({0xB4, 0x3C, 0x20}), ""},
        {msg({0xBC, 0x00, 0x00}), "Statusanfrage nach Mag.-Art. 1"}, {msg({0xB4, 0x3C, 0x00}), " Antwort: rot"},
        {msg({0xBC, 0x00, 0x00}), "Statusanfrage nach Mag.-Art. 1"}, {msg({0xB4, 0x30, 0x20}), ""},
        {msg({0xB4, 0x3C, 0x20}), ""},
    };
    for (const auto& [nachricht, text] : folge)
        EXPECT_EQ(decode_ln_mes(z, nachricht), QString::fromUtf8(text)) << test::h(nachricht);
    EXPECT_EQ(z.Letzte_Anfrage, 0);
    EXPECT_TRUE(MonitorZeilen(false, QString()).isEmpty());
}

// Slot_Tab: an 0xE7 fills rows 0 to 12 of its slot; later 0xA0/A1/A2 for it
// show the address. A short one reads its missing bytes as 0.
TEST(Monitortext, SlotDataGivesTheLocomotiveAddress)
{
    MonitorZustand z;
    decode_ln_mes(z, msg({0xE7, 0x0E, 0x10, 0x03, 0x05, 0x20, 0x21, 0x00, 0x00, 0x01, 0x03, 0x00, 0x00}));
    EXPECT_EQ(z.Slot_Tab[0][16], 0xE7);
    EXPECT_EQ(z.Slot_Tab[9][16], 0x01);
    EXPECT_EQ(z.Slot_Tab[13][16], 0);  // the checksum is byte 13: not stored
    EXPECT_EQ(decode_ln_mes(z, msg({0xA0, 0x10, 0x05})), QStringLiteral("Lok 133 = Geschw. 5"));
    EXPECT_EQ(decode_ln_mes(z, msg({0xA1, 0x10, 0x10})), QStringLiteral("Lok 133 = vorwärts F0 "));
    EXPECT_EQ(decode_ln_mes(z, msg({0xA2, 0x10, 0x08})), QStringLiteral("Lok 133 = F8 "));
    EXPECT_EQ(decode_ln_mes(z, msg({0xA0, 0x11, 0x05})), QStringLiteral("Lok 0 = Geschw. 5"));
    decode_ln_mes(z, msg({0xE7, 0x0E, 0x10, 0x03, 0x03, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}));
    EXPECT_EQ(decode_ln_mes(z, msg({0xA0, 0x10, 0x05})), QStringLiteral("Lok 3 = Geschw. 5"));
    EXPECT_EQ(decode_ln_mes(z, bytes({0xE7, 0x04, 0x02, 0x00})),
              QStringLiteral("Slot  2 = Lokadr. 0, Geschw. 0 ,vorwärts "));
    EXPECT_EQ(decode_ln_mes(z, QByteArray()), QString());
}

// Hex output shows every byte but the checksum and bypasses the table and its
// side effects; ASCII+HEX shows only unknown opcodes in hex; with both off
// an unknown opcode leaves no line.
TEST(Monitortext, HexOptions)
{
    struct Zeile {
        bool hex, asciiHex;
        QByteArray nachricht;
        const char* text;
    } const zeilen[] = {
        {true, false, bytes({0xB0, 0x00, 0x30, 0x7F}), "B0 00 30 "},
        {true, false, msg({0xE5, 0x05, 0x01, 0x0A}), "E5 05 01 0A "},
        {true, true, msg({0xBC, 0x05, 0x01}), "BC 05 01 "},
        {true, true, msg({0x81}), "81 "},
        {false, true, msg({0xE5, 0x05, 0x01, 0x0A}), "HEX: E5 05 01 0A "},
        {false, true, bytes({0x85, 0x7A}), "HEX: 85 "},
        {false, true, msg({0x83}), "Gleisspannung eingeschaltet"},
        {false, true, msg({0x81}), ""},
        {false, true, msg({0xE4, 0x09, 0x00}), ""},
    };
    for (const Zeile& r : zeilen) {
        MonitorZustand z;
        z.Hex_Ausgabe = r.hex;
        z.Ascii_Hex = r.asciiHex;
        EXPECT_EQ(decode_ln_mes(z, r.nachricht), QString::fromUtf8(r.text)) << test::h(r.nachricht);
        EXPECT_EQ(z.Letzte_Anfrage, 0);
    }
    MonitorZustand z;
    for (int opcode : {0x80, 0x85, 0xA3, 0xB1, 0xB5, 0xBA, 0xBD, 0xC0, 0xE0, 0xE5, 0xE6, 0xED, 0xEF, 0xFF})
        EXPECT_TRUE(decode_ln_mes(z, msg({opcode, 0x02, 0x00, 0x00})).isEmpty()) << opcode;
}

// The view cuts texts at 80 columns; a hex line is kept whole.
TEST(Monitortext, LongTextIsCutAt80Columns)
{
    EXPECT_EQ(ZeilenUmbruch(QString(80, u'a') + QString(5, u'b')), (QStringList{QString(80, u'a'), QString(5, u'b')}));
    EXPECT_EQ(ZeilenUmbruch(QString(80, u'x')), QStringList{QString(80, u'x')});
    EXPECT_EQ(ZeilenUmbruch(QString(161, u'x')).size(), 3);
    EXPECT_TRUE(ZeilenUmbruch(QString()).isEmpty());
    QByteArray lang = bytes({0xE5, 0x1E});
    lang.append(QByteArray(28, '\x01'));
    for (const bool hex : {false, true}) {
        MonitorZustand z;
        z.Hex_Ausgabe = hex;
        z.Ascii_Hex = !hex;
        const QStringList zeilen = MonitorZeilen(hex, decode_ln_mes(z, lang));
        EXPECT_EQ(zeilen.size(), hex ? 1 : 2);
        EXPECT_EQ(zeilen.join(QString()).size(), (hex ? 0 : 5) + 29 * 3);
    }
}

// Start and stop put their lines in; messages come through the framing,
// split or with a stray byte before them.
TEST_F(Monitor, StartStopAndMessagesThroughTheFraming)
{
    monitor.cmdStartStop_Click();
    EXPECT_TRUE(monitor.Monitor_Aktiv() && empfang.Monitor_Aktiv);
    EXPECT_EQ(monitor.cmdStartStopText(), QStringLiteral("Stop"));
    empfang.bytes(bytes({0x12}));
    const QByteArray weiche = msg({0xB0, 0x04, 0x30});
    empfang.bytes(weiche.left(2));
    EXPECT_EQ(monitor.Zeilen(), 1);
    empfang.bytes(weiche.mid(2));
    monitor.cmdStartStop_Click();
    EXPECT_FALSE(monitor.Monitor_Aktiv() || empfang.Monitor_Aktiv);
    EXPECT_EQ(monitor.cmdStartStopText(), QStringLiteral("Start"));
    EXPECT_EQ(monitor.ansicht(), QStringLiteral(" START: Monitor läuft!\nMag.-Art.: 5 - grün - ein \n"
                                                " STOP: Monitor angehalten!\n"));
    EXPECT_EQ(monitor.Zeilen(), 3);
    EXPECT_EQ(meldungen, 3);
}

// More than 5000 characters keep the last 4900, and Zeilen starts over.
TEST_F(Monitor, ViewIsCappedBeforeTheNextMessage)
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

TEST_F(Monitor, TraceGetsStartStopAndMessagesInWindows1252)
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

TEST_F(Monitor, TraceThatCannotBeOpenedIsUndoneWithTheReason)
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

TEST_F(Monitor, CancelClearsTheMonitorsStateButKeepsTheOptions)
{
    laufen();
    traceAn();
    monitor.zustand().Ascii_Hex = true;
    empfang.bytes(msg({0xE7, 0x0E, 0x05, 0x00, 0x22, 0x10, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00}));
    empfang.bytes(msg({0xBC, 0x04, 0x00}));
    const int schnitte = monitor.schnitte();
    monitor.btnClear_Click();  // the view only
    EXPECT_EQ(std::tuple(monitor.ansicht(), monitor.Zeilen(), monitor.schnitte()), std::tuple(QString(), 0, schnitte + 1));
    EXPECT_TRUE(monitor.Monitor_Aktiv());
    EXPECT_EQ(monitor.zustand().Letzte_Anfrage, AnfrageMagStatus);
    monitor.btnCancel_Click();  // the state too, but not the options
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
