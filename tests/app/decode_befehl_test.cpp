// planor-cli decode: Part 2.6's monitor text over bytes from the command
// line, run as a separate process as a script runs it.
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

namespace {

struct Lauf {
    int status;
    QString aus;
    QString fehler;
};

Lauf decode(const QStringList& argumente)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(PLANOR_CLI), QStringList {QStringLiteral("decode")} + argumente);
    EXPECT_TRUE(p.waitForFinished(30000));
    EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

} // namespace

TEST(DecodeBefehl, MessagesInOneArgumentGiveOneLineEach)
{
    const Lauf l = decode({QStringLiteral("B0 00 30 7F BC 00 00 43")});
    EXPECT_EQ(l.status, 0);
    EXPECT_EQ(l.aus, QStringLiteral("Mag.-Art.: 1 - grün - ein \nStatusanfrage nach Mag.-Art. 1\n"));
    EXPECT_TRUE(l.fehler.isEmpty());
}

// The decoder's state runs from message to message: the query, then its answer.
TEST(DecodeBefehl, StateIsKeptAcrossMessages)
{
    const Lauf l = decode({QStringLiteral("BC"), QStringLiteral("00"), QStringLiteral("00"), QStringLiteral("43"),
        QStringLiteral("b4 3c 20 57")});
    EXPECT_EQ(l.status, 0);
    EXPECT_EQ(l.aus, QStringLiteral("Statusanfrage nach Mag.-Art. 1\n Antwort: grün\n"));
}

TEST(DecodeBefehl, SlotDataGivesTheAddressOfLaterSpeedMessages)
{
    const Lauf l = decode({QStringLiteral("E7 0E 10 03 05 20 21 00 00 01 03 00 00 00"), QStringLiteral("A0 10 05 00")});
    EXPECT_EQ(l.status, 0);
    EXPECT_EQ(l.aus, QStringLiteral("Slot  16 = Lokadr. 133, Geschw. 32 ,rückwärts F1 F5 F6 \nLok 133 = Geschw. 5\n"));
}

// The monitor framing: junk before the first opcode is dropped, messages
// that show nothing leave no line, an unfinished message at the end none either.
TEST(DecodeBefehl, FramesAsTheMonitorFramingDoes)
{
    const Lauf l = decode({QStringLiteral("12 34 81 7E 83 7C B4 3C 20 57 E5 05 01 0A 14 B0 00")});
    EXPECT_EQ(l.status, 0);
    EXPECT_EQ(l.aus, QStringLiteral("Gleisspannung eingeschaltet\n"));
}

TEST(DecodeBefehl, HexShowsEveryMessageButTheChecksum)
{
    const Lauf l = decode({QStringLiteral("--hex"), QStringLiteral("B0 00 30 7F 83 7C")});
    EXPECT_EQ(l.status, 0);
    EXPECT_EQ(l.aus, QStringLiteral("B0 00 30 \n83 \n"));
}

TEST(DecodeBefehl, AsciiHexShowsUnknownMessagesCutAt80Columns)
{
    QString lang = QStringLiteral("E5 1E");
    for (int i = 0; i < 28; ++i)
        lang += QStringLiteral(" 01");
    const Lauf l
        = decode({QStringLiteral("--ascii-hex"), QStringLiteral("E5 05 01 0A 14"), lang, QStringLiteral("83 7C")});
    EXPECT_EQ(l.status, 0);
    const QStringList zeilen = l.aus.split(u'\n');
    ASSERT_EQ(zeilen.size(), 5);
    EXPECT_EQ(zeilen[0], QStringLiteral("HEX: E5 05 01 0A "));
    EXPECT_EQ(zeilen[1].size(), 80);
    EXPECT_TRUE(zeilen[1].startsWith(QStringLiteral("HEX: E5 1E 01 ")));
    EXPECT_EQ(zeilen[2].size(), 5 + 29 * 3 - 80);
    EXPECT_EQ(zeilen[3], QStringLiteral("Gleisspannung eingeschaltet"));
    EXPECT_EQ(zeilen[4], QString());
}

TEST(DecodeBefehl, UnknownMessageWithoutOptionsLeavesNoLine)
{
    const Lauf l = decode({QStringLiteral("E5 05 01 0A 14")});
    EXPECT_EQ(l.status, 0);
    EXPECT_TRUE(l.aus.isEmpty());
}

TEST(DecodeBefehl, NoBytesIsAUsageError)
{
    for (const QStringList& argumente :
        {QStringList {}, QStringList {QStringLiteral("--hex")}, QStringList {QStringLiteral("  ")}}) {
        const Lauf l = decode(argumente);
        EXPECT_EQ(l.status, 2);
        EXPECT_TRUE(l.aus.isEmpty());
        EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("Keine Bytes angegeben.\n"))) << qPrintable(l.fehler);
    }
}

TEST(DecodeBefehl, NonHexTokenIsAUsageError)
{
    for (const char* wort : {"zz", "B00", "0x82", "-1"}) {
        const Lauf l = decode({QStringLiteral("83 7C"), QString::fromLatin1(wort)});
        EXPECT_EQ(l.status, 2) << wort;
        EXPECT_TRUE(l.aus.isEmpty()) << wort;
        EXPECT_TRUE(
            l.fehler.startsWith(QStringLiteral("Kein hexadezimales Byte: ") + QString::fromLatin1(wort) + u'\n'))
            << qPrintable(l.fehler);
    }
    const Lauf l = decode({QStringLiteral("--binär"), QStringLiteral("83 7C")});
    EXPECT_EQ(l.status, 2);
    EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("Unbekannte Option: --binär\n")));
}

TEST(DecodeBefehl, HelpShowsTheUsage)
{
    const Lauf l = decode({QStringLiteral("--help")});
    EXPECT_EQ(l.status, 0);
    EXPECT_TRUE(l.aus.startsWith(QStringLiteral("Aufruf: planor-cli decode [--hex] [--ascii-hex] HEX...\n")));
}
