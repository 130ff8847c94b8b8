// The settings file Planor.CFG: byte-exact writing, tolerant reading.
#include "core/settings_file.h"

#include "tests/support/berichte.h"
#include "tests/support/daten.h"

using namespace planor;
using namespace planor::test;

namespace {

const QDate Heute(2026, 11, 21);
const QString Version = QStringLiteral("1.1.6");

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

Fensterlage fenster(Fensterlage::Zustand zustand, QRect rahmen) { return {zustand, rahmen, QSize(1920, 1080)}; }
const Fensterlage Normal = fenster(Fensterlage::Zustand::Normal, QRect(100, 80, 1000, 700));

Einstellungen gelesen(const QByteArray& bytes)
{
    Einstellungen e;
    LiesEinstellungen(bytes, e);
    return e;
}

}  // namespace

TEST(Einstellungsdatei, WrittenByteExact)
{
    Einstellungen erweitert = beispiel();
    erweitert.ComPortGeraet = QStringLiteral("/dev/ttyUSB0");
    erweitert.Verbindung = Verbindungsart::LbServer;
    erweitert.LbServerHost = QStringLiteral("stellwerk.local");
    erweitert.LbServerPort = 5550;
    using Z = Fensterlage::Zustand;
    const struct {
        Einstellungen e;
        Fensterlage f;
        QByteArray erwartet;
    } faelle[] = {
        {beispiel(), Normal, golden("Planor_normal.CFG")},
        // maximised: its size less 200 at 100; minimised: half the screen at a quarter
        {beispiel(), fenster(Z::Maximiert, QRect(0, 0, 1280, 1000)), golden("Planor_maximiert.CFG")},
        {beispiel(), fenster(Z::Minimiert, QRect(-32000, -32000, 160, 30)), golden("Planor_minimiert.CFG")},
        // the newer keys follow the old ones, so older versions still read the file
        {erweitert, Normal,
         golden("Planor_normal.CFG") + "ComPortGeraet:/dev/ttyUSB0\r\nVerbindungsart:              1 \r\n"
                                       "LbServerHost:stellwerk.local\r\nLbServerPort:  5550 \r\n"},
    };
    for (const auto& f : faelle)
        EXPECT_EQ(SchreibEinstellungen(f.e, f.f, Version, Heute), f.erwartet) << &f - faelle;

    Einstellungen e;
    e.Verbindung = Verbindungsart::Simulation;
    const QByteArray nurArt = SchreibEinstellungen(e, {}, Version, Heute);
    EXPECT_TRUE(nurArt.endsWith("\r\nFile:\r\nVerbindungsart:              2 \r\n")) << "only keys that differ";
    // A quarter of 1001 px is 3753.75 twips: cut, not rounded.
    const QByteArray ungerade = SchreibEinstellungen(e, {Z::Minimiert, QRect(), QSize(1001, 601)}, Version, Heute);
    EXPECT_TRUE(ungerade.contains("MainWinLeft:   3753 \r\n"));
}

TEST(Einstellungsdatei, GoldenFileReadsBack)
{
    Einstellungen erwartet = beispiel();
    erwartet.MainWinWidth = 15000;
    erwartet.MainWinHeight = 10500;
    erwartet.MainWinLeft = 1500;
    erwartet.MainWinTop = 1200;
    EXPECT_EQ(gelesen(golden("Planor_normal.CFG")), erwartet);
    const GespeicherteLage lage = LageAusEinstellungen(gelesen(golden("Planor_minimiert.CFG")));
    EXPECT_EQ(lage.links, 480);
    EXPECT_EQ(lage.oben, 270);
    EXPECT_EQ(lage.breite, 960);
    EXPECT_EQ(lage.hoehe, 540);
    EXPECT_FALSE(lage.maximiert);
}

TEST(Einstellungsdatei, ReadingIsTolerant)
{
    EXPECT_EQ(gelesen("ComPort 7\r\nStartHilfe 1\r\nComPort: 4\r\n").StartHilfe, 0) << "no colon: skipped";
    EXPECT_EQ(gelesen("; Kommentar\r\n// x\r\nComPort: 2\r\n/ComPort: 9\r\n;File:x.anl\r\n").ComPort, 2);
    EXPECT_EQ(gelesen("Pfad:C:\\Planor:Test\\\r\n").Pfad, QStringLiteral("C:\\Planor:Test\\"));
    EXPECT_EQ(gelesen("File:a:b.anl\r\n").File, QStringLiteral("a:b.anl"));
    EXPECT_TRUE(gelesen("LocoNetInterface: 5\n").LocoNetInterface);
    EXPECT_FALSE(gelesen("LocoNetInterface:abc\r").LocoNetInterface);
    EXPECT_TRUE(gelesen("USBInterface:  -1 ").USBInterface);
    EXPECT_EQ(gelesen("Unbekannt: 5\r\nComPort:   12 Kommentar\r\n").ComPort, 12);
    EXPECT_EQ(gelesen("MainWinState: 2.0\r\n").MainWinState, 2);
    EXPECT_EQ(gelesen("Verbindungsart: 7\r\n").Verbindung, Verbindungsart::Seriell) << "unknown kind";
    EXPECT_EQ(gelesen("ComPortGeraet: /dev/ttyACM0 \r\n").ComPortGeraet, QStringLiteral("/dev/ttyACM0"));
    EXPECT_EQ(gelesen("LbServerHost:  pi \r\n").LbServerHost, QStringLiteral("pi"));
    const Einstellungen tcp = gelesen("Verbindungsart: 1\r\nLbServerPort: 65535\r\n");
    EXPECT_EQ(tcp.Verbindung, Verbindungsart::LbServer);
    EXPECT_EQ(tcp.LbServerPort, 65535);
    Einstellungen e;
    EXPECT_LAUFZEITFEHLER(6, LiesEinstellungen("ComPort: 5\r\nStartHilfe: 99999\r\nFile:x.anl\r\n", e));
    EXPECT_EQ(e.ComPort, 5) << "what came before the overflow stays";
    EXPECT_TRUE(e.File.isEmpty());
    e.MainWinState = 2;
    LiesEinstellungen("ComPort: 1\r\n", e);
    EXPECT_EQ(e.MainWinState, 2) << "missing keys keep their values";
}

class Einstellungsdateien : public MitFehlerbericht {};

TEST_F(Einstellungsdateien, SaveAndLoadRoundTrip)
{
    const QString pfad = ordner.filePath(QStringLiteral("Planor.CFG"));
    Einstellungen e;
    e.ComPort = 4;
    EXPECT_LAUFZEITFEHLER(53, Load_conf(pfad, e));
    EXPECT_EQ(e.ComPort, 4);
    schreiben(pfad, "; alter Kommentar\r\n");
    Save_conf(pfad, beispiel(), Normal, Heute);
    EXPECT_EQ(datei(pfad), golden("Planor_normal.CFG"));
    Load_conf(pfad, e);
    EXPECT_EQ(e, gelesen(golden("Planor_normal.CFG")));
    EXPECT_LAUFZEITFEHLER(75, Save_conf(ordner.filePath(QStringLiteral("kein/Ordner/Planor.CFG")), beispiel(), {}, Heute));
}
