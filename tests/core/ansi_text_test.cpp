#include "core/ansi_text.h"

#include <gtest/gtest.h>

using namespace planor;

TEST(AnsiText, EveryByteSurvivesARoundTrip)
{
    QByteArray alle;
    for (int b = 0; b < 256; ++b)
        alle.append(static_cast<char>(b));
    EXPECT_EQ(ansi::encode(ansi::decode(alle)), alle);
}

TEST(AnsiText, DecodesTheWindows1252Characters)
{
    EXPECT_EQ(ansi::decode(QByteArray("\xFC\xDF\x80\x9B\x96", 5)), QStringLiteral("üß€›–"));
    EXPECT_EQ(ansi::encode(QStringLiteral("Ä€›–")), QByteArray("\xC4\x80\x9B\x96", 4));
}

TEST(AnsiText, UnmappableCharactersBecomeQuestionMarks)
{
    EXPECT_EQ(ansi::encode(QStringLiteral("a\u4E2Db")), QByteArray("a?b"));
}

TEST(AnsiText, ReadsEveryKindOfLineEnd)
{
    const QStringList erwartet = {QStringLiteral("eins"), QStringLiteral("zwei"), QStringLiteral(""),
                                  QStringLiteral("vier"), QStringLiteral("fünf")};
    EXPECT_EQ(ansi::zeilen(QByteArray("eins\r\nzwei\r\rvier\nf\xFCnf")), erwartet);
    EXPECT_EQ(ansi::zeilen(QByteArray("eins\r\n")), QStringList{QStringLiteral("eins")});
    EXPECT_TRUE(ansi::zeilen(QByteArray()).isEmpty());
}

TEST(AnsiText, WriterEndsLinesWithCrLf)
{
    ansi::Schreiber s;
    s.zeile(QStringLiteral("Größe")).text(QStringLiteral("; "));
    EXPECT_EQ(s.bytes(), QByteArray("Gr\xF6\xDF" "e\r\n; "));
}
