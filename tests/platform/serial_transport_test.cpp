// The serial port on a real QSerialPort over a pseudo-terminal, and the
// helpers that turn settings and port numbers into devices.
#include "platform/serial_transport.h"

#include "platform/uhr.h"
#include "tests/support/pty.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

const QByteArray alleBytes = [] {
    QByteArray bytes;
    for (int i = 0; i < 256; ++i)
        bytes.append(char(i));
    return bytes;
}();

class SeriellePty : public ::testing::Test {
protected:
    void SetUp() override
    {
        QtAnwendungSicherstellen();
        ASSERT_TRUE(pty.gueltig());
        QObject::connect(&port, &Transport::empfangen, [this](const QByteArray& b) { empfangen += b; });
        QObject::connect(&port, &Transport::verloren, [this](const QString& g) { verloren << g; });
    }
    void oeffnen(const char* parameter)
    {
        ASSERT_TRUE(port.setzeParameter(QLatin1String(parameter)));
        QString fehler;
        ASSERT_TRUE(port.oeffnen(fehler)) << fehler.toStdString();
    }
    // Binary-clean in both directions: every byte value once.
    void binaerRein()
    {
        pty.schreiben(alleBytes);
        EXPECT_TRUE(uhr.warten(5.0, [this] { return empfangen.size() >= 256; }));
        EXPECT_EQ(empfangen, alleBytes);
        ASSERT_TRUE(port.schreiben(alleBytes));
        QByteArray angekommen;
        uhr.warten(5.0, [&] { return (angekommen += pty.lesen()).size() >= 256; });
        EXPECT_EQ(angekommen, alleBytes);
    }

    Pty pty;
    SystemUhr uhr;
    SerialTransport port{pty.pfad};
    QByteArray empfangen;
    QStringList verloren;
};

}  // namespace

TEST_F(SeriellePty, LineParametersReachTheDeviceAndTheLineIsBinaryClean)
{
    const struct {
        const char *beimOeffnen, *danach;  // danach: set on the open port
        long baud;
        bool zweiStopp;
    } faelle[] = {
        {"19200,n,8,2", nullptr, 19200, true},
        {"19200,n,8,2", "16457,n,8,2", 16457, true},
        {"16457,n,8,2", nullptr, 16457, true},
        {"115200,n,8,1", nullptr, 115200, false},
        {"2400,n,8,2", nullptr, 2400, true},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.baud);
        empfangen.clear();
        oeffnen(f.beimOeffnen);
        if (f.danach) {
            ASSERT_TRUE(port.setzeParameter(QLatin1String(f.danach)));
            EXPECT_EQ(port.laufendeBaudrate(), f.baud);
        }
        const termios t = pty.einstellungen();
        EXPECT_EQ(pty.baud(), f.baud);
        EXPECT_EQ(t.c_cflag & CSIZE, tcflag_t(CS8));
        EXPECT_EQ(bool(t.c_cflag & CSTOPB), f.zweiStopp);
        EXPECT_FALSE(t.c_cflag & PARENB);
        // No modem lines on a pseudo-terminal: it counts as CTS high.
        EXPECT_TRUE(port.cts());
        binaerRein();
        // A break, and closing, leave the port usable for the next row.
        port.setzeBreak(true);
        uhr.delay(0.05);
        port.setzeBreak(false);
        port.schliessen();
        EXPECT_FALSE(port.istOffen());
        pty.lesen();
    }
    EXPECT_TRUE(verloren.isEmpty());
}

TEST_F(SeriellePty, DiscardedInputIsNotAnnounced)
{
    oeffnen("19200,n,8,2");
    pty.schreiben("verworfen");
    ASSERT_TRUE(pty.eingangDa());
    port.eingangVerwerfen();
    pty.schreiben("da");
    EXPECT_TRUE(uhr.warten(5.0, [this] { return empfangen.size() >= 2; }));
    EXPECT_EQ(empfangen, "da");
}

TEST_F(SeriellePty, AVanishedDeviceIsReportedOnceAndTheWriteRefused)
{
    oeffnen("19200,n,8,2");
    ::close(pty.slave);
    pty.slave = -1;
    pty.masterSchliessen();
    EXPECT_TRUE(uhr.warten(5.0, [this] { return !verloren.isEmpty(); }));
    EXPECT_FALSE(port.istOffen());
    ASSERT_EQ(verloren.size(), 1);
    EXPECT_TRUE(verloren[0].contains(pty.pfad));
    EXPECT_TRUE(verloren[0].contains(QStringLiteral("unterbrochen")));
    EXPECT_FALSE(port.schreiben("x"));
}

TEST_F(SeriellePty, RefusedOpeningsAreToldWithTheirCause)
{
    oeffnen("19200,n,8,2");
    SerialTransport zweiter(pty.pfad);
    QString fehler;
    EXPECT_FALSE(zweiter.oeffnen(fehler));
    EXPECT_EQ(zweiter.letzterFehler(), OeffnenFehler::Belegt);
    EXPECT_TRUE(fehler.contains(QStringLiteral("ist belegt")) && fehler.contains(QStringLiteral("dialout")))
        << fehler.toStdString();

    SerialTransport fehlt(QStringLiteral("/dev/planor-gibt-es-nicht"));
    EXPECT_FALSE(fehlt.oeffnen(fehler));
    EXPECT_EQ(fehlt.letzterFehler(), OeffnenFehler::Fehlt);
    EXPECT_TRUE(fehler.startsWith(QStringLiteral("Die Schnittstelle /dev/planor-gibt-es-nicht ist nicht vorhanden.")));
    EXPECT_FALSE(fehlt.istOffen());
    EXPECT_FALSE(fehlt.schreiben("x"));

    if (::geteuid() == 0)
        GTEST_SKIP() << "root may open any device";
    Pty gesperrt;
    ASSERT_EQ(::fchmod(gesperrt.slave, 0), 0);
    SerialTransport ohneRecht(gesperrt.pfad);
    EXPECT_FALSE(ohneRecht.oeffnen(fehler));
    EXPECT_EQ(ohneRecht.letzterFehler(), OeffnenFehler::KeinZugriff);
    EXPECT_TRUE(fehler.contains(QStringLiteral("dialout")));
}

TEST(SerielleEinstellungen, SettingsFromText)
{
    using P = QSerialPort;
    const struct {
        const char* text;
        int baud;
        P::Parity paritaet;
        P::DataBits daten;
        P::StopBits stopp;
    } faelle[] = {{"19200,n,8,2", 19200, P::NoParity, P::Data8, P::TwoStop},
                  {"115200,N,8,1", 115200, P::NoParity, P::Data8, P::OneStop},
                  {"2400, e, 7, 1.5", 2400, P::EvenParity, P::Data7, P::OneAndHalfStop},
                  {"16457,n,8,2", 16457, P::NoParity, P::Data8, P::TwoStop}};
    for (const auto& f : faelle) {
        const std::optional<PortParameter> p = PortParameterLesen(QLatin1String(f.text));
        ASSERT_TRUE(p) << f.text;
        EXPECT_EQ(std::tie(p->baud, p->paritaet, p->daten, p->stopp), std::tie(f.baud, f.paritaet, f.daten, f.stopp));
    }
    for (const char* falsch : {"", "19200", "19200,n,8", "abc,n,8,2", "0,n,8,2", "19200,x,8,2", "19200,n,9,2",
                               "19200,n,8,3", "19200,n,8,2,1"})
        EXPECT_FALSE(PortParameterLesen(QLatin1String(falsch))) << falsch;
}

TEST(SerielleEinstellungen, ComPortNumbersChosenDevicesAndTheUsbSearch)
{
    EXPECT_EQ(GeraetFuerComPort(1), QStringLiteral("/dev/ttyS0"));
    EXPECT_EQ(GeraetFuerComPort(255), QStringLiteral("/dev/ttyS254"));
    EXPECT_EQ(GeraetFuerComPort(3, QStringLiteral(" /dev/ttyUSB0 ")), QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(GeraetFuerComPort(0), QString());
    EXPECT_EQ(GeraetFuerComPort(0, QStringLiteral("/dev/ttyACM0")), QStringLiteral("/dev/ttyACM0"));
    auto usb = [](int n, quint16 hersteller, quint16 produkt) {
        return PortEintrag{QStringLiteral("/dev/ttyUSB%1").arg(n), QStringLiteral("ttyUSB%1").arg(n), {}, hersteller,
                           produkt};
    };
    const QList<PortEintrag> funde = UsbInterfaceSuchen({{QStringLiteral("/dev/ttyS0"), QStringLiteral("ttyS0"), {}, {}, {}},
                                                        usb(0, 0x10C4, 0xEA60), usb(1, 0x10C4, 0xEA70),
                                                        usb(2, 0x0403, 0xEA60), usb(3, 0x10C4, 0xEA60)});
    ASSERT_EQ(funde.size(), 2);
    EXPECT_EQ(funde[0].geraet, QStringLiteral("/dev/ttyUSB0"));
    EXPECT_EQ(funde[1].geraet, QStringLiteral("/dev/ttyUSB3"));
}
