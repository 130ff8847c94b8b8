// Part 1.3 extension: the keys of the device path, the interface kinds
// beyond the original three and the LbServer, behind the spec's keys.
#include "core/settings_file.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace planor;

namespace {

const QDate Heute(2026, 11, 21);

QByteArray golden(const char* name)
{
    QFile f(QStringLiteral(PLANOR_TESTDATA "/") + QLatin1String(name));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    return f.readAll();
}

Einstellungen goldenBeispiel()
{
    // The values of Planor_normal.CFG (settings_file_test.cpp).
    Einstellungen e;
    e.ComPort = 3;
    e.LocoNetInterface = true;
    e.StartHilfe = 1;
    e.Pfad = QStringLiteral("C:\\Anlagen\\Müller\\");
    e.File = QStringLiteral("Demo.anl");
    return e;
}

const Fensterlage Normal{Fensterlage::Zustand::Normal, QRect(100, 80, 1000, 700), QSize(1920, 1080)};

}  // namespace

TEST(Part1_3_Erweiterung, DefaultsAddNothingToTheSpecsFile)
{
    const Einstellungen e = goldenBeispiel();
    EXPECT_TRUE(e.ComPortGeraet.isEmpty());
    EXPECT_EQ(e.Verbindung, Verbindungsart::Seriell);
    EXPECT_EQ(e.LbServerHost, QStringLiteral("localhost"));
    EXPECT_EQ(e.LbServerPort, 1234);
    EXPECT_EQ(SchreibEinstellungen(e, Normal, QStringLiteral("1.1.6"), Heute), golden("Planor_normal.CFG"));
}

TEST(Part1_3_Erweiterung, ExtraKeysFollowTheSpecsKeysByteExact)
{
    Einstellungen e = goldenBeispiel();
    e.ComPortGeraet = QStringLiteral("/dev/ttyUSB0");
    e.Verbindung = Verbindungsart::LbServer;
    e.LbServerHost = QStringLiteral("stellwerk.local");
    e.LbServerPort = 5550;
    EXPECT_EQ(SchreibEinstellungen(e, Normal, QStringLiteral("1.1.6"), Heute),
              golden("Planor_normal.CFG")
                  + "ComPortGeraet:/dev/ttyUSB0\r\n"
                    "Verbindungsart:              1 \r\n"
                    "LbServerHost:stellwerk.local\r\n"
                    "LbServerPort:  5550 \r\n");
}

TEST(Part1_3_Erweiterung, OnlyTheKeysThatDifferAreWritten)
{
    Einstellungen e;
    e.Verbindung = Verbindungsart::Simulation;
    const QByteArray bytes = SchreibEinstellungen(e, {}, QStringLiteral("1.1.6"), Heute);
    EXPECT_TRUE(bytes.endsWith("\r\nFile:\r\nVerbindungsart:              2 \r\n"));
    EXPECT_FALSE(bytes.contains("ComPortGeraet"));
    EXPECT_FALSE(bytes.contains("LbServer"));
}

TEST(Part1_3_Erweiterung, WrittenFileReadsBackWhole)
{
    Einstellungen e = goldenBeispiel();
    e.ComPortGeraet = QStringLiteral("/dev/serial/by-id/usb-Silicon_Labs_CP2102-if00-port0");
    e.Verbindung = Verbindungsart::Simulation;
    e.LbServerHost = QStringLiteral("192.168.1.23");
    e.LbServerPort = 65535;
    Einstellungen gelesen;
    LiesEinstellungen(SchreibEinstellungen(e, Normal, QStringLiteral("1.1.6"), Heute), gelesen);
    EXPECT_EQ(gelesen.ComPortGeraet, e.ComPortGeraet);
    EXPECT_EQ(gelesen.Verbindung, Verbindungsart::Simulation);
    EXPECT_EQ(gelesen.LbServerHost, e.LbServerHost);
    EXPECT_EQ(gelesen.LbServerPort, 65535);
    EXPECT_EQ(gelesen.ComPort, 3);
    EXPECT_EQ(gelesen.File, QStringLiteral("Demo.anl"));
}

TEST(Part1_3_Erweiterung, TheSpecsFileReadsWithTheDefaults)
{
    Einstellungen e;
    LiesEinstellungen(golden("Planor_normal.CFG"), e);
    EXPECT_TRUE(e.ComPortGeraet.isEmpty());
    EXPECT_EQ(e.Verbindung, Verbindungsart::Seriell);
    EXPECT_EQ(e.LbServerHost, LbServerStandardHost);
    EXPECT_EQ(e.LbServerPort, LbServerStandardPort);
}

TEST(Part1_3_Erweiterung, UnknownKindFallsBackToTheSerialPort)
{
    Einstellungen e;
    LiesEinstellungen("Verbindungsart: 1\r\n", e);
    EXPECT_EQ(e.Verbindung, Verbindungsart::LbServer);
    LiesEinstellungen("Verbindungsart: 7\r\n", e);
    EXPECT_EQ(e.Verbindung, Verbindungsart::Seriell);
}

TEST(Part1_3_Erweiterung, DeviceAndHostAreTrimmed)
{
    Einstellungen e;
    LiesEinstellungen("ComPortGeraet: /dev/ttyACM0 \r\nLbServerHost:  pi \r\n", e);
    EXPECT_EQ(e.ComPortGeraet, QStringLiteral("/dev/ttyACM0"));
    EXPECT_EQ(e.LbServerHost, QStringLiteral("pi"));
}
