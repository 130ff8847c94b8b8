// Part 2.6: the text monitor's formatter, one row per text of the table.
#include "loconet/empfang.h"
#include "loconet/monitor_text.h"
#include "loconet/nachricht.h"
#include "tests/support/daten.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

using namespace planor;
using planor::test::bytes;

namespace {

// A message as the spec writes it, with its checksum appended.
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

INSTANTIATE_TEST_SUITE_P(Part26, MonitorTextTabelle, ::testing::ValuesIn(tabelle()),
    [](const ::testing::TestParamInfo<Fall>& info) { return std::string(info.param.name); });

} // namespace

TEST(MonitorText, SwitchQueryThenLongAckShowsTheAnswer)
{
    MonitorZustand z;
    EXPECT_EQ(decode_ln_mes(z, msg({0xBC, 0x00, 0x00})), QStringLiteral("Statusanfrage nach Mag.-Art. 1"));
    EXPECT_EQ(z.Letzte_Anfrage, 188);
    EXPECT_EQ(decode_ln_mes(z, msg({0xB4, 0x3C, 0x20})), QStringLiteral(" Antwort: grün"));
    EXPECT_EQ(z.Letzte_Anfrage, 0);
    // The query is answered once: a second 0xB4 shows nothing.
    EXPECT_EQ(decode_ln_mes(z, msg({0xB4, 0x3C, 0x20})), QString());
    decode_ln_mes(z, msg({0xBC, 0x00, 0x00}));
    EXPECT_EQ(decode_ln_mes(z, msg({0xB4, 0x3C, 0x00})), QStringLiteral(" Antwort: rot"));
}

// Edge case: a 0xB4 without a query before it shows no line (and so no trace line).
TEST(MonitorText, LongAckWithoutQueryShowsNothing)
{
    MonitorZustand z;
    const QString text = decode_ln_mes(z, msg({0xB4, 0x3C, 0x20}));
    EXPECT_TRUE(text.isEmpty());
    EXPECT_TRUE(MonitorZeilen(false, text).isEmpty());
    EXPECT_EQ(z.Letzte_Anfrage, 0);
}

// Edge case: after 0xBC and a 0xB4 with b1 other than 60, Letzte_Anfrage is 0 and nothing shows.
TEST(MonitorText, LongAckForAnotherOpcodeClearsTheQuery)
{
    MonitorZustand z;
    decode_ln_mes(z, msg({0xBC, 0x00, 0x00}));
    EXPECT_EQ(decode_ln_mes(z, msg({0xB4, 0x30, 0x20})), QString());
    EXPECT_EQ(z.Letzte_Anfrage, 0);
    EXPECT_EQ(decode_ln_mes(z, msg({0xB4, 0x3C, 0x20})), QString());
}

// Slot_Tab: an 0xE7 fills rows 0 to 12 of its slot; later 0xA0/A1/A2 for it show the address.
TEST(MonitorText, SlotDataGivesTheLocomotiveAddress)
{
    MonitorZustand z;
    decode_ln_mes(z, msg({0xE7, 0x0E, 0x10, 0x03, 0x05, 0x20, 0x21, 0x00, 0x00, 0x01, 0x03, 0x00, 0x00}));
    EXPECT_EQ(z.Slot_Tab[0][16], 0xE7);
    EXPECT_EQ(z.Slot_Tab[1][16], 0x0E);
    EXPECT_EQ(z.Slot_Tab[4][16], 0x05);
    EXPECT_EQ(z.Slot_Tab[9][16], 0x01);
    EXPECT_EQ(z.Slot_Tab[13][16], 0); // the checksum is byte 13: not stored
    EXPECT_EQ(z.Lokadresse(16), 133);
    EXPECT_EQ(decode_ln_mes(z, msg({0xA0, 0x10, 0x05})), QStringLiteral("Lok 133 = Geschw. 5"));
    EXPECT_EQ(decode_ln_mes(z, msg({0xA1, 0x10, 0x10})), QStringLiteral("Lok 133 = vorwärts F0 "));
    EXPECT_EQ(decode_ln_mes(z, msg({0xA2, 0x10, 0x08})), QStringLiteral("Lok 133 = F8 "));
    // Another slot not yet seen reads 0.
    EXPECT_EQ(decode_ln_mes(z, msg({0xA0, 0x11, 0x05})), QStringLiteral("Lok 0 = Geschw. 5"));
    // A newer 0xE7 for the slot replaces it.
    decode_ln_mes(z, msg({0xE7, 0x0E, 0x10, 0x03, 0x03, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}));
    EXPECT_EQ(decode_ln_mes(z, msg({0xA0, 0x10, 0x05})), QStringLiteral("Lok 3 = Geschw. 5"));
}

// Failure handling: a bad (short) message produces text from what it holds;
// missing bytes read as 0.
TEST(MonitorText, ShortSlotDataReadsMissingBytesAsZero)
{
    MonitorZustand z;
    EXPECT_EQ(
        decode_ln_mes(z, bytes({0xE7, 0x04, 0x02, 0x00})), QStringLiteral("Slot  2 = Lokadr. 0, Geschw. 0 ,vorwärts "));
    EXPECT_EQ(decode_ln_mes(z, QByteArray()), QString());
}

TEST(MonitorText, HexOutputShowsAllBytesButTheChecksum)
{
    MonitorZustand z;
    z.Hex_Ausgabe = true;
    EXPECT_EQ(decode_ln_mes(z, bytes({0xB0, 0x00, 0x30, 0x7F})), QStringLiteral("B0 00 30 "));
    EXPECT_EQ(decode_ln_mes(z, msg({0x82})), QStringLiteral("82 "));
    // Also opcodes the table does not know.
    EXPECT_EQ(decode_ln_mes(z, msg({0xE5, 0x05, 0x01, 0x0A})), QStringLiteral("E5 05 01 0A "));
}

// Edge case: with Hex_Ausgabe the text table is not used, nor its side effects.
TEST(MonitorText, HexOutputBypassesTheTable)
{
    MonitorZustand z;
    z.Hex_Ausgabe = true;
    z.Ascii_Hex = true;
    EXPECT_EQ(decode_ln_mes(z, msg({0xBC, 0x05, 0x01})), QStringLiteral("BC 05 01 "));
    EXPECT_EQ(z.Letzte_Anfrage, 0);
    EXPECT_EQ(decode_ln_mes(z, msg({0x81})), QStringLiteral("81 "));
    decode_ln_mes(z, msg({0xE7, 0x0E, 0x10, 0x03, 0x05, 0x20, 0x21, 0x00, 0x00, 0x01, 0x03, 0x00, 0x00}));
    EXPECT_EQ(z.Lokadresse(16), 0);
    // A long hex line is appended whole (step 2), not cut at 80 columns.
    QByteArray lang = bytes({0xE5, 0x1E});
    lang.append(QByteArray(28, '\x01'));
    const QString text = decode_ln_mes(z, lang);
    EXPECT_EQ(text.size(), 29 * 3);
    EXPECT_EQ(MonitorZeilen(true, text), QStringList {text});
}

TEST(MonitorText, AsciiHexShowsUnknownOpcodesInHex)
{
    MonitorZustand z;
    z.Ascii_Hex = true;
    EXPECT_EQ(decode_ln_mes(z, msg({0xE5, 0x05, 0x01, 0x0A})), QStringLiteral("HEX: E5 05 01 0A "));
    EXPECT_EQ(decode_ln_mes(z, bytes({0x85, 0x7A})), QStringLiteral("HEX: 85 "));
    // Known opcodes keep their text, also those that show nothing.
    EXPECT_EQ(decode_ln_mes(z, msg({0x83})), QStringLiteral("Gleisspannung eingeschaltet"));
    EXPECT_EQ(decode_ln_mes(z, msg({0x81})), QString());
    EXPECT_EQ(decode_ln_mes(z, msg({0xB4, 0x3C, 0x20})), QString());
    EXPECT_EQ(decode_ln_mes(z, msg({0xE4, 0x09, 0x00})), QString());
}

// Edge case: with both options off an unknown opcode leaves no line.
TEST(MonitorText, UnknownOpcodeWithBothOptionsOffLeavesNoLine)
{
    MonitorZustand z;
    for (int opcode : {0x80, 0x85, 0xA3, 0xB1, 0xB5, 0xBA, 0xBD, 0xC0, 0xE0, 0xE5, 0xE6, 0xED, 0xEF, 0xFF}) {
        const QString text = decode_ln_mes(z, msg({opcode, 0x02, 0x00, 0x00}));
        EXPECT_TRUE(text.isEmpty()) << opcode;
        EXPECT_TRUE(MonitorZeilen(false, text).isEmpty()) << opcode;
    }
}

// Edge case: an 85-character text gives two lines.
TEST(MonitorText, LongTextIsCutAt80Columns)
{
    const QString text = QString(80, u'a') + QString(5, u'b');
    EXPECT_EQ(ZeilenUmbruch(text), (QStringList {QString(80, u'a'), QString(5, u'b')}));
    EXPECT_EQ(MonitorZeilen(false, text).size(), 2);
    EXPECT_EQ(ZeilenUmbruch(QString(80, u'x')), QStringList {QString(80, u'x')});
    EXPECT_EQ(ZeilenUmbruch(QString(161, u'x')).size(), 3);
    EXPECT_TRUE(ZeilenUmbruch(QString()).isEmpty());
    EXPECT_EQ(ZeilenUmbruch(QStringLiteral("kurz")), QStringList {QStringLiteral("kurz")});

    // A real one: ASCII+HEX of a 30-byte message is "HEX: " and 29 x 3 characters.
    MonitorZustand z;
    z.Ascii_Hex = true;
    QByteArray lang = bytes({0xE5, 0x1E});
    lang.append(QByteArray(28, '\x01'));
    const QStringList zeilen = MonitorZeilen(false, decode_ln_mes(z, lang));
    ASSERT_EQ(zeilen.size(), 2);
    EXPECT_EQ(zeilen[0].size(), 80);
    EXPECT_EQ(zeilen[1].size(), 5 + 29 * 3 - 80);
}

TEST(MonitorText, ViewIsCappedAt5000KeepingTheLast4900)
{
    const QString genau = QString(5000, u'x');
    EXPECT_EQ(MonitorKappen(genau), genau);
    const QString zuviel = QString(101, u'a') + QString(4900, u'b');
    EXPECT_EQ(MonitorKappen(zuviel), QString(4900, u'b'));
    EXPECT_EQ(MonitorKappen(QString()), QString());
}

TEST(MonitorText, TraceLineHasSecondsWithADecimalComma)
{
    EXPECT_EQ(TraceZeile(QTime(0, 0), QStringLiteral("x")), QStringLiteral("000000,000 - x"));
    EXPECT_EQ(TraceZeile(QTime(13, 39, 36, 250), QStringLiteral("Gleisspannung eingeschaltet")),
        QStringLiteral("049176,250 - Gleisspannung eingeschaltet"));
    EXPECT_EQ(TraceZeile(QTime(23, 59, 59, 999), QStringLiteral(" START: Monitor läuft!")),
        QStringLiteral("086399,999 -  START: Monitor läuft!"));
    EXPECT_EQ(TraceZeile(QTime(0, 0, 1, 5), QStringLiteral("%1")), QStringLiteral("000001,005 - %1"));
}

// The monitor framing of Part 2.2 delivers whole messages to the formatter.
TEST(MonitorText, MonitorFramingFeedsTheFormatter)
{
    MonitorZustand z;
    QStringList texte;
    Empfang e;
    e.Monitor_Aktiv = true;
    e.decode_ln_mes = [&](const QByteArray& n) { texte.append(decode_ln_mes(z, n)); };
    e.bytes(msg({0xBC, 0x00, 0x00}) + msg({0xB4, 0x3C, 0x20}) + msg({0x83}));
    EXPECT_EQ(texte,
        (QStringList {QStringLiteral("Statusanfrage nach Mag.-Art. 1"), QStringLiteral(" Antwort: grün"),
            QStringLiteral("Gleisspannung eingeschaltet")}));
}
