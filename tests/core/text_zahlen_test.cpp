// Text in the files' 8-bit code page, the numbers of typed and read fields.
#include "core/ansi_text.h"
#include "core/check_wert.h"
#include "core/vb_zahlen.h"
#include "tests/support/daten.h"

using namespace planor;

TEST(AnsiText, RoundTripCodePageAndLineEnds)
{
    QByteArray alle;
    for (int b = 0; b < 256; ++b)
        alle.append(static_cast<char>(b));
    EXPECT_EQ(ansi::encode(ansi::decode(alle)), alle);
    EXPECT_EQ(ansi::decode(QByteArray("\xFC\xDF\x80\x9B\x96", 5)), QStringLiteral("üß€›–"));
    EXPECT_EQ(ansi::encode(QStringLiteral("Ä€›–a\u4E2Db")), QByteArray("\xC4\x80\x9B\x96" "a?b", 7));
    EXPECT_EQ(ansi::zeilen(QByteArray("eins\r\nzwei\r\rvier\nf\xFCnf")),
              (QStringList{"eins", "zwei", "", "vier", QStringLiteral("fünf")}));
    EXPECT_EQ(ansi::zeilen(QByteArray("eins\r\n")), QStringList{"eins"});
    ansi::Schreiber s;
    s.zeile(QStringLiteral("Größe")).text(QStringLiteral("; "));
    EXPECT_EQ(s.bytes(), QByteArray("Gr\xF6\xDF" "e\r\n; "));
}

TEST(VbZahlen, ValCIntAndStr)
{
    const std::pair<const char*, double> val[] = {{"  3 ", 3},   {" -1 ", -1}, {"1 2 3abc", 123}, {"12.5x", 12.5},
                                                  {"abc", 0},    {"", 0},      {"-", 0},          {"1E3", 1000},
                                                  {"&H1F", 31}, {"&HFFFF", -1}, {"&O17", 15}};
    for (const auto& [text, wert] : val)
        EXPECT_EQ(Val(QString::fromLatin1(text)), wert) << text;
    EXPECT_LAUFZEITFEHLER(6, Val(QString(400, u'9')));
    EXPECT_LAUFZEITFEHLER(6, Val(QStringLiteral("1E999")));
    EXPECT_EQ(CInt(2.5), 2) << "half to even";
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-32768), -32768);
    EXPECT_LAUFZEITFEHLER(6, CInt(32768));
    EXPECT_LAUFZEITFEHLER(6, CLng(3e9));
    EXPECT_EQ(Str(16), QStringLiteral(" 16"));
    EXPECT_EQ(Str(-1), QStringLiteral("-1"));
}

TEST(CheckWert, BoundsAndLabel)
{
    const QString label = QStringLiteral("Adresse:");
    struct Fall {
        QString text;
        int max, min;
        QString erwartet;  // the label afterwards; the label itself means accepted
    } const faelle[] = {
        {"255", 255, 0, label},         {"256", 255, 0, WertZuGrossTxt}, {"", 0, 0, label},
        {"-", 0, 0, label},             {"-", 99, 9, WertZuKleinTxt},    {"8", 99, 9, WertZuKleinTxt},
        {"9", 99, 9, label},            {"99", 99, 9, label},            {"100", 99, 9, WertZuGrossTxt},
        {QString(400, u'9'), 99, 9, WertZuGrossTxt},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.text.left(10).toStdString() + " in " + std::to_string(f.min) + ".." + std::to_string(f.max));
        const CheckWertErgebnis e = Check_Wert(label, f.text, f.max, f.min);
        EXPECT_EQ(e.labelText, f.erwartet);
        EXPECT_EQ(e.gueltig, f.erwartet == label);
    }
    for (int taste : {int('0'), int('9'), 8})
        EXPECT_EQ(Nur_Ziffern(taste), taste);
    for (int taste : {int('-'), int('a'), int(' '), int(','), 13, 0x00E4})
        EXPECT_EQ(Nur_Ziffern(taste), 0) << taste;
    const QStringList liste = {QStringLiteral(" Bhf A"), QStringLiteral("Bhf B"), QStringLiteral("Bhf B")};
    EXPECT_EQ(Vorhanden(liste, QStringLiteral("Bhf B")), 1) << "the first occurrence";
    EXPECT_EQ(Vorhanden(liste, QStringLiteral("Bhf A")), -1) << "the comparison is exact";
}
