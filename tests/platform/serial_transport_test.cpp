// Part 2.1's serial port (spec-notes 2.1/2.2) on a real QSerialPort over a
// pseudo-terminal, and the helpers around it.
#include "platform/serial_transport.h"

#include "platform/uhr.h"
#include "tests/support/pty.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

using namespace planor;
using namespace planor::test;

namespace {

double cpuSekunden()
{
    rusage r{};
    getrusage(RUSAGE_SELF, &r);
    return double(r.ru_utime.tv_sec + r.ru_stime.tv_sec) + double(r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e6;
}

QByteArray alleBytes()
{
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(char(i));
    return bytes;
}

class Part2_1_SerialPty : public ::testing::Test {
protected:
    void SetUp() override
    {
        QtAnwendungSicherstellen();
        ASSERT_TRUE(pty.gueltig());
        QObject::connect(&port, &Transport::empfangen, [this](const QByteArray& b) { empfangen += b; });
        QObject::connect(&port, &Transport::verloren, [this](const QString& g) { verloren << g; });
    }

    // Binary-clean in both directions: every byte value once.
    void binaerRein()
    {
        pty.schreiben(alleBytes());
        EXPECT_TRUE(uhr.warten(2.0, [this] { return empfangen.size() >= 256; }));
        EXPECT_EQ(empfangen, alleBytes());

        ASSERT_TRUE(port.schreiben(alleBytes()));
        QByteArray angekommen;
        uhr.warten(2.0, [&] {
            angekommen += pty.lesen();
            return angekommen.size() >= 256;
        });
        EXPECT_EQ(angekommen, alleBytes());
    }

    Pty pty;
    SystemUhr uhr;
    SerialTransport port{pty.pfad};
    QByteArray empfangen;
    QStringList verloren;
};

}  // namespace

TEST_F(Part2_1_SerialPty, OpensAt19200_8N2AndIsBinaryClean)
{
    ASSERT_TRUE(port.setzeParameter(QStringLiteral("19200,n,8,2")));
    port.setzeLeitungen(false, true);
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler)) << fehler.toStdString();
    EXPECT_TRUE(port.istOffen());

    const termios t = pty.einstellungen();
    EXPECT_EQ(cfgetospeed(&t), speed_t(B19200));
    EXPECT_EQ(pty.baud(), 19200);
    EXPECT_EQ(t.c_cflag & CSIZE, tcflag_t(CS8));
    EXPECT_TRUE(t.c_cflag & CSTOPB);
    EXPECT_FALSE(t.c_cflag & PARENB);
    // No modem lines on a pseudo-terminal: it counts as CTS high.
    EXPECT_TRUE(port.cts());
    binaerRein();
    EXPECT_TRUE(verloren.isEmpty());
}

TEST_F(Part2_1_SerialPty, Custom16457BaudIsSetDirectlyOnTheOpenPort)
{
    ASSERT_TRUE(port.setzeParameter(QStringLiteral("19200,n,8,2")));
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler)) << fehler.toStdString();
    ASSERT_TRUE(port.setzeParameter(QStringLiteral("16457,n,8,2")));
    EXPECT_EQ(pty.baud(), 16457);
    EXPECT_EQ(port.laufendeBaudrate(), 16457);
    const termios t = pty.einstellungen();
    EXPECT_TRUE(t.c_cflag & CSTOPB);
    EXPECT_EQ(t.c_cflag & CSIZE, tcflag_t(CS8));
    binaerRein();
}

TEST_F(Part2_1_SerialPty, Custom16457BaudAtOpening)
{
    ASSERT_TRUE(port.setzeParameter(QStringLiteral("16457,n,8,2")));
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler)) << fehler.toStdString();
    EXPECT_EQ(pty.baud(), 16457);
    binaerRein();
}

TEST_F(Part2_1_SerialPty, UsbSettings115200_8N1)
{
    ASSERT_TRUE(port.setzeParameter(QStringLiteral("115200,n,8,1")));
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler));
    EXPECT_EQ(pty.baud(), 115200);
    EXPECT_FALSE(pty.einstellungen().c_cflag & CSTOPB);
}

TEST_F(Part2_1_SerialPty, BreakAndReopenKeepThePortUsable)
{
    port.setzeParameter(QStringLiteral("2400,n,8,2"));
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler));
    EXPECT_EQ(pty.baud(), 2400);
    port.setzeBreak(true);
    uhr.delay(0.05);
    port.setzeBreak(false);
    port.schliessen();
    EXPECT_FALSE(port.istOffen());
    port.setzeParameter(QStringLiteral("19200,n,8,2"));
    ASSERT_TRUE(port.oeffnen(fehler));
    EXPECT_EQ(pty.baud(), 19200);
    // What the break left on the line does not matter; the data does.
    uhr.delay(0.05);
    empfangen.clear();
    pty.lesen();
    binaerRein();
    EXPECT_TRUE(verloren.isEmpty());
}

TEST_F(Part2_1_SerialPty, DiscardedInputIsNotAnnounced)
{
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler));
    pty.schreiben("verworfen");
    // The pty hands the bytes over asynchronously; let them land first.
    ::usleep(50000);
    port.eingangVerwerfen();
    uhr.delay(0.1);
    EXPECT_TRUE(empfangen.isEmpty()) << empfangen.toStdString();
    pty.schreiben("da");
    EXPECT_TRUE(uhr.warten(1.0, [this] { return empfangen == "da"; }));
}

TEST_F(Part2_1_SerialPty, VanishedDeviceIsReportedWithinASecondWithoutSpinning)
{
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler));
    ::close(pty.slave);
    pty.slave = -1;

    const double cpu0 = cpuSekunden();
    const double t0 = uhr.sekunden();
    pty.masterSchliessen();
    EXPECT_TRUE(uhr.warten(1.0, [this] { return !verloren.isEmpty(); }));
    EXPECT_LT(uhr.sekunden() - t0, 1.0);
    // The rest of the second: the closed port costs nothing.
    uhr.delay(1.0 - (uhr.sekunden() - t0));
    const double cpu = cpuSekunden() - cpu0;

    EXPECT_LT(cpu, 0.25) << "CPU seconds over one second";
    EXPECT_FALSE(port.istOffen());
    ASSERT_EQ(verloren.size(), 1);
    EXPECT_TRUE(verloren[0].contains(pty.pfad));
    EXPECT_TRUE(verloren[0].contains(QStringLiteral("unterbrochen")));
    EXPECT_FALSE(port.schreiben("x"));
}

TEST_F(Part2_1_SerialPty, ASecondOpeningOfTheSamePortIsBusy)
{
    QString fehler;
    ASSERT_TRUE(port.oeffnen(fehler));
    SerialTransport zweiter(pty.pfad);
    EXPECT_FALSE(zweiter.oeffnen(fehler));
    EXPECT_EQ(zweiter.letzterFehler(), OeffnenFehler::Belegt);
    EXPECT_TRUE(fehler.contains(QStringLiteral("ist belegt"))) << fehler.toStdString();
    EXPECT_TRUE(fehler.contains(QStringLiteral("dialout")));
}

TEST(Part2_1_Serial, MissingDeviceIsTold)
{
    QtAnwendungSicherstellen();
    SerialTransport port(QStringLiteral("/dev/planor-gibt-es-nicht"));
    QString fehler;
    EXPECT_FALSE(port.oeffnen(fehler));
    EXPECT_EQ(port.letzterFehler(), OeffnenFehler::Fehlt);
    EXPECT_TRUE(fehler.startsWith(QStringLiteral("Die Schnittstelle /dev/planor-gibt-es-nicht ist nicht vorhanden.")));
    EXPECT_FALSE(port.istOffen());
    EXPECT_FALSE(port.schreiben("x"));
}

TEST(Part2_1_Serial, NoPermissionNamesTheGroupDialout)
{
    QtAnwendungSicherstellen();
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may open any device";
    Pty pty;
    ASSERT_TRUE(pty.gueltig());
    ASSERT_EQ(::fchmod(pty.slave, 0), 0);
    SerialTransport port(pty.pfad);
    QString fehler;
    EXPECT_FALSE(port.oeffnen(fehler));
    EXPECT_EQ(port.letzterFehler(), OeffnenFehler::KeinZugriff);
    EXPECT_TRUE(fehler.contains(QStringLiteral("dialout")));
}

TEST(Part2_1_Serial, ErrorTexts)
{
    EXPECT_EQ(OeffnenFehlerText(OeffnenFehler::KeinZugriff, QStringLiteral("/dev/ttyS0")),
              QStringLiteral("Keine Berechtigung für die Schnittstelle /dev/ttyS0.\n"
                             "Ihr Benutzer muss Mitglied der Gruppe \u201Edialout\u201C sein "
                             "(sudo usermod -a -G dialout <Benutzername>, danach neu anmelden)."));
    EXPECT_TRUE(OeffnenFehlerText(OeffnenFehler::Belegt, QStringLiteral("/dev/ttyS0")).contains(u"dialout"));
    EXPECT_EQ(OeffnenFehlerText(OeffnenFehler::Parameter, QStringLiteral("/dev/ttyS0"), QStringLiteral("16457,n,8,2")),
              QStringLiteral("Die Schnittstelle /dev/ttyS0 nimmt die Einstellung \u201E16457,n,8,2\u201C nicht an."));
    EXPECT_TRUE(OeffnenFehlerText(OeffnenFehler::Sonstiges, QStringLiteral("/dev/x"), QStringLiteral("Grund"))
                    .endsWith(u"\nGrund"));
}

TEST(Part2_1_Serial, SettingsFromText)
{
    const std::optional<PortParameter> p = PortParameterLesen(QStringLiteral("19200,n,8,2"));
    ASSERT_TRUE(p);
    EXPECT_EQ(p->baud, 19200);
    EXPECT_EQ(p->paritaet, QSerialPort::NoParity);
    EXPECT_EQ(p->daten, QSerialPort::Data8);
    EXPECT_EQ(p->stopp, QSerialPort::TwoStop);
    EXPECT_EQ(PortParameterLesen(QStringLiteral("115200,N,8,1"))->stopp, QSerialPort::OneStop);
    EXPECT_EQ(PortParameterLesen(QStringLiteral("2400, e, 7, 1.5"))->paritaet, QSerialPort::EvenParity);
    EXPECT_EQ(PortParameterLesen(QStringLiteral("16457,n,8,2"))->baud, 16457);
    for (const char* falsch : {"", "19200", "19200,n,8", "abc,n,8,2", "0,n,8,2", "19200,x,8,2", "19200,n,9,2",
                               "19200,n,8,3", "19200,n,8,2,1"})
        EXPECT_FALSE(PortParameterLesen(QLatin1String(falsch))) << falsch;
}

TEST(Part2_1_Serial, ComPortNumbersAndChosenDevices)
{
    EXPECT_EQ(GeraetFuerComPort(1), QStringLiteral("/dev/ttyS0"));
    EXPECT_EQ(GeraetFuerComPort(3), QStringLiteral("/dev/ttyS2"));
    EXPECT_EQ(GeraetFuerComPort(255), QStringLiteral("/dev/ttyS254"));
    EXPECT_EQ(GeraetFuerComPort(3, QStringLiteral(" /dev/ttyUSB0 ")), QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(GeraetFuerComPort(0), QString());
    EXPECT_EQ(GeraetFuerComPort(0, QStringLiteral("/dev/ttyACM0")), QStringLiteral("/dev/ttyACM0"));
}

TEST(Part2_1_Serial, UsbSearchFindsTheInterfacesIds)
{
    const QList<PortEintrag> ports = {
        {QStringLiteral("/dev/ttyS0"), QStringLiteral("ttyS0"), {}, {}, {}},
        {QStringLiteral("/dev/ttyUSB0"), QStringLiteral("ttyUSB0"), {}, 0x10C4, 0xEA60},
        {QStringLiteral("/dev/ttyUSB1"), QStringLiteral("ttyUSB1"), {}, 0x10C4, 0xEA70},
        {QStringLiteral("/dev/ttyUSB2"), QStringLiteral("ttyUSB2"), {}, 0x0403, 0xEA60},
        {QStringLiteral("/dev/ttyUSB3"), QStringLiteral("ttyUSB3"), {}, 0x10C4, 0xEA60},
    };
    const QList<PortEintrag> funde = UsbInterfaceSuchen(ports);
    ASSERT_EQ(funde.size(), 2);
    EXPECT_EQ(funde[0].geraet, QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(funde[1].geraet, QStringLiteral("/dev/ttyUSB3"));
}
