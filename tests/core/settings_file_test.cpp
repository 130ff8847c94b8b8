// Part 1.3: the settings file Planor.CFG.
#include "core/settings_file.h"

#include "core/laufzeitfehler.h"
#include "tests/support/berichte.h"

#include <QFile>

using namespace planor;

namespace {

QByteArray golden(const char* name)
{
    QFile f(QStringLiteral(PLANOR_TESTDATA "/") + QLatin1String(name));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    return f.readAll();
}

const QDate Heute(2026, 11, 21);

Einstellungen beispiel()
{
    Einstellungen e;
    e.ComPort = 3;
    e.LocoNetInterface = true;
    e.USBInterface = false;
    e.StartHilfe = 1;
    e.Pfad = QStringLiteral("C:\\Anlagen\\Müller\\");
    e.File = QStringLiteral("Demo.anl");
    return e;
}

Fensterlage fenster(Fensterlage::Zustand zustand, QRect rahmen)
{
    return {zustand, rahmen, QSize(1920, 1080)};
}

}  // namespace

TEST(Part1_3, NormalWindowWrittenByteExact)
{
    const Fensterlage f = fenster(Fensterlage::Zustand::Normal, QRect(100, 80, 1000, 700));
    EXPECT_EQ(SchreibEinstellungen(beispiel(), f, QStringLiteral("1.1.6"), Heute), golden("Planor_normal.CFG"));
}

TEST(Part1_3, MaximisedWindowWrittenAsItsSizeLess200At100)
{
    const Fensterlage f = fenster(Fensterlage::Zustand::Maximiert, QRect(0, 0, 1280, 1000));
    EXPECT_EQ(SchreibEinstellungen(beispiel(), f, QStringLiteral("1.1.6"), Heute), golden("Planor_maximiert.CFG"));
}

TEST(Part1_3, MinimisedWindowWrittenAsHalfScreenAtAQuarter)
{
    const Fensterlage f = fenster(Fensterlage::Zustand::Minimiert, QRect(-32000, -32000, 160, 30));
    EXPECT_EQ(SchreibEinstellungen(beispiel(), f, QStringLiteral("1.1.6"), Heute), golden("Planor_minimiert.CFG"));
}

TEST(Part1_3, MinimisedWindowRestoresAsQuarterScreen)
{
    Einstellungen gelesen;
    LiesEinstellungen(golden("Planor_minimiert.CFG"), gelesen);
    const GespeicherteLage lage = LageAusEinstellungen(gelesen);
    EXPECT_EQ(lage.links, 480);
    EXPECT_EQ(lage.oben, 270);
    EXPECT_EQ(lage.breite, 960);
    EXPECT_EQ(lage.hoehe, 540);
    EXPECT_FALSE(lage.maximiert);
}

TEST(Part1_3, ZeroGeometryIsNotAppliedAndOnlyState2Maximises)
{
    Einstellungen e;
    e.MainWinLeft = 0;
    e.MainWinTop = -120;
    e.MainWinWidth = 15000;
    e.MainWinState = 1;
    const GespeicherteLage lage = LageAusEinstellungen(e);
    EXPECT_FALSE(lage.links);
    EXPECT_FALSE(lage.oben);
    EXPECT_EQ(lage.breite, 1000);
    EXPECT_FALSE(lage.hoehe);
    EXPECT_FALSE(lage.maximiert);
    e.MainWinState = 2;
    EXPECT_TRUE(LageAusEinstellungen(e).maximiert);
}

TEST(Part1_3, FractionalGeometryIsCutWhenWritten)
{
    Einstellungen e;
    // A minimised window on an odd screen: a quarter of 1001 px is 3753.75 twips.
    const QByteArray bytes = SchreibEinstellungen(
        e, {Fensterlage::Zustand::Minimiert, QRect(), QSize(1001, 601)}, QStringLiteral("1.1.6"), Heute);
    EXPECT_TRUE(bytes.contains("MainWinWidth:  7507 \r\n"));
    EXPECT_TRUE(bytes.contains("MainWinLeft:   3753 \r\n"));
    EXPECT_TRUE(bytes.contains("MainWinTop:    2253 \r\n"));
}

TEST(Part1_3, GoldenFileReadsBack)
{
    Einstellungen e;
    LiesEinstellungen(golden("Planor_normal.CFG"), e);
    EXPECT_EQ(e.ComPort, 3);
    EXPECT_TRUE(e.LocoNetInterface);
    EXPECT_FALSE(e.USBInterface);
    EXPECT_EQ(e.StartHilfe, 1);
    EXPECT_EQ(e.MainWinState, 0);
    EXPECT_EQ(e.MainWinWidth, 15000);
    EXPECT_EQ(e.MainWinHeight, 10500);
    EXPECT_EQ(e.MainWinLeft, 1500);
    EXPECT_EQ(e.MainWinTop, 1200);
    EXPECT_EQ(e.Pfad, QStringLiteral("C:\\Anlagen\\Müller\\"));
    EXPECT_EQ(e.File, QStringLiteral("Demo.anl"));
}

TEST(Part1_3, LineWithoutColonHasAnEmptyKeyAndIsSkipped)
{
    Einstellungen e;
    LiesEinstellungen("ComPort 7\r\nStartHilfe 1\r\nComPort: 4\r\n", e);
    EXPECT_EQ(e.ComPort, 4);
    EXPECT_EQ(e.StartHilfe, 0);
}

TEST(Part1_3, CommentLinesSurviveReadingButNotTheNextWrite)
{
    Einstellungen e;
    LiesEinstellungen("; Kommentar\r\n// auch einer\r\nComPort: 2\r\n/ComPort: 9\r\n;File:x.anl\r\n", e);
    EXPECT_EQ(e.ComPort, 2);
    EXPECT_TRUE(e.File.isEmpty());
    const QByteArray neu = SchreibEinstellungen(e, {}, QStringLiteral("1.1.6"), Heute);
    EXPECT_FALSE(neu.contains("Kommentar"));
    EXPECT_FALSE(neu.contains("auch einer"));
    EXPECT_TRUE(neu.startsWith("// Konfigurationsfile von NAVIK/TOBRA-Planor Ver. 1.1.6 am 21.11.2026 //\r\n"));
}

TEST(Part1_3, PfadWithDriveColonIsReadWhole)
{
    Einstellungen e;
    LiesEinstellungen("Pfad:C:\\Programme\\Planor:Test\\\r\nFile:a:b.anl\r\n", e);
    EXPECT_EQ(e.Pfad, QStringLiteral("C:\\Programme\\Planor:Test\\"));
    EXPECT_EQ(e.File, QStringLiteral("a:b.anl"));
}

TEST(Part1_3, InterfaceFlagsAreZeroOrMinusOne)
{
    Einstellungen e;
    LiesEinstellungen("LocoNetInterface: 5\nUSBInterface: 0\n", e);
    EXPECT_TRUE(e.LocoNetInterface);
    EXPECT_FALSE(e.USBInterface);
    LiesEinstellungen("LocoNetInterface:abc\rUSBInterface:  -1 ", e);
    EXPECT_FALSE(e.LocoNetInterface);
    EXPECT_TRUE(e.USBInterface);
    const QByteArray bytes = SchreibEinstellungen(e, {}, QStringLiteral("1.1.6"), Heute);
    EXPECT_TRUE(bytes.contains("\r\nLocoNetInterface:            0 \r\nUSBInterface: -1 \r\n"));
}

TEST(Part1_3, LeadingNumberOfAValueAndUnknownKeys)
{
    Einstellungen e;
    LiesEinstellungen("Unbekannt: 5\r\nComPort:   12 Kommentar\r\nMainWinState: 2.0\r\n\r\n", e);
    EXPECT_EQ(e.ComPort, 12);
    EXPECT_EQ(e.MainWinState, 2);
}

TEST(Part1_3, MissingKeysKeepTheirValues)
{
    Einstellungen e;
    e.MainWinState = 2;
    LiesEinstellungen("ComPort: 1\r\n", e);
    EXPECT_EQ(e.MainWinState, 2);
    EXPECT_EQ(e.MainWinWidth, 0);
}

TEST(Part1_3, NumberTooLargeRaisesOverflowAndKeepsWhatWasRead)
{
    Einstellungen e;
    try {
        LiesEinstellungen("ComPort: 5\r\nStartHilfe: 99999\r\nFile:x.anl\r\n", e);
        FAIL() << "no overflow";
    } catch (const Laufzeitfehler& f) {
        EXPECT_EQ(f.nummer(), 6);
    }
    EXPECT_EQ(e.ComPort, 5);
    EXPECT_TRUE(e.File.isEmpty());
}

class Part1_3_Datei : public test::MitFehlerbericht {};

TEST_F(Part1_3_Datei, MissingFileRaisesError53AndValuesStay)
{
    Einstellungen e;
    e.ComPort = 4;
    try {
        Load_conf(ordner.filePath(QStringLiteral("Planor.CFG")), e);
        FAIL();
    } catch (const Laufzeitfehler& f) {
        EXPECT_EQ(f.nummer(), 53);
    }
    EXPECT_EQ(e.ComPort, 4);
}

TEST_F(Part1_3_Datei, SaveAndLoadRoundTrip)
{
    const QString datei = ordner.filePath(QStringLiteral("Planor.CFG"));
    QFile alt(datei);
    ASSERT_TRUE(alt.open(QIODevice::WriteOnly));
    alt.write("; alter Kommentar\r\n");
    alt.close();

    Save_conf(datei, beispiel(), fenster(Fensterlage::Zustand::Normal, QRect(100, 80, 1000, 700)), Heute);
    QFile neu(datei);
    ASSERT_TRUE(neu.open(QIODevice::ReadOnly));
    EXPECT_EQ(neu.readAll(), golden("Planor_normal.CFG"));

    Einstellungen gelesen;
    Load_conf(datei, gelesen);
    Einstellungen erwartet = beispiel();
    erwartet.MainWinWidth = 15000;
    erwartet.MainWinHeight = 10500;
    erwartet.MainWinLeft = 1500;
    erwartet.MainWinTop = 1200;
    EXPECT_EQ(gelesen, erwartet);
}

TEST_F(Part1_3_Datei, UnwritableFileRaisesError75)
{
    try {
        Save_conf(ordner.filePath(QStringLiteral("kein/Ordner/Planor.CFG")), beispiel(), {}, Heute);
        FAIL();
    } catch (const Laufzeitfehler& f) {
        EXPECT_EQ(f.nummer(), 75);
    }
}
