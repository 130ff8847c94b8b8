// planor-cli sim as a separate process: its pseudo-terminal through
// QSerialPort, its LbServer through QTcpSocket.
#include "tests/support/cli.h"

#include <QSerialPort>
#include <QTemporaryDir>

using namespace planor::test;

TEST(SimBefehl, PtyAnswersASessionStart)
{
    Prozess sim(QStringLiteral("sim"), argumente("--pty --module 47220:12"));
    const QString pfad = sim.zeile(QStringLiteral("PTY "));
    ASSERT_TRUE(pfad.startsWith(QStringLiteral("/dev/")));
    QSerialPort port(pfad);
    port.setBaudRate(19200);
    port.setStopBits(QSerialPort::TwoStop);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite)) << port.errorString().toStdString();
    port.write(hex(SitzungStart));
    ASSERT_TRUE(port.waitForBytesWritten(Grenze));
    const QByteArray bytes = lesen(port, 30);
    EXPECT_EQ(h(bytes.left(15)), SitzungStart) << "the echo";
    EXPECT_EQ(h(bytes.mid(15)), Antwort);
    port.close();
    EXPECT_EQ(sim.ende(SIGTERM), 0);
}

// The interface is switched at 2400 bit/s, then the port is closed and opened again at 19200.
TEST(SimBefehl, PtyAnswersTheCommandStationHandshake)
{
    Prozess sim(QStringLiteral("sim"), argumente("--pty"));
    QSerialPort port(sim.zeile(QStringLiteral("PTY ")));
    port.setBaudRate(2400);
    port.setStopBits(QSerialPort::TwoStop);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite));
    port.setBreakEnabled(true);
    port.setBreakEnabled(false);
    port.write("xB19200\r");
    port.waitForBytesWritten(Grenze);
    EXPECT_EQ(lesen(port, 4), "[OK]");
    port.close();
    port.setBaudRate(19200);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite));
    port.write("x&LN$55AA\r");
    port.waitForBytesWritten(Grenze);
    EXPECT_EQ(lesen(port, 4), "[OK]");
}

TEST(SimBefehl, TcpSendIsAnsweredWithSentOkTheEchoAndTheModulesAnswer)
{
    Prozess sim(QStringLiteral("sim"), argumente("--tcp 0 --module 47220:12"));
    auto s = verbinden(sim.zeile(QStringLiteral("TCP ")));
    s->write(QByteArray("SEND ") + SitzungStart + "\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*s), QByteArray("RECEIVE ") + SitzungStart + "\r\n");
    EXPECT_EQ(zeileLesen(*s), QByteArray("RECEIVE ") + Antwort + "\r\n");
    s->write("SEND B0 00 10 5E\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT ERROR Pruefsumme falsch\r\n");
    s->write("SEND B0 00 10\r\nSEND xyz\n");
    EXPECT_EQ(zeileLesen(*s), "SENT ERROR die Laenge passt nicht zum Opcode\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT ERROR keine Hex-Bytes\r\n");
    EXPECT_EQ(sim.ende(SIGTERM), 0);
}

TEST(SimBefehl, TwoTcpClientsSeeEachOthersMessages)
{
    Prozess sim(QStringLiteral("sim"), argumente("--tcp 0 --wire-time off"));
    const QString tcp = sim.zeile(QStringLiteral("TCP "));
    auto a = verbinden(tcp), b = verbinden(tcp);
    a->write("SEND B0 00 10 5F\n");
    EXPECT_EQ(zeileLesen(*a), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*b), "RECEIVE B0 00 10 5F\r\n");
    // The command station answers the state of accessory 1: red now.
    b->write("SEND BC 00 00 43\n");
    EXPECT_EQ(zeileLesen(*b), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*b), "RECEIVE BC 00 00 43\r\n");
    EXPECT_EQ(zeileLesen(*b), "RECEIVE B4 3C 50 27\r\n");
}

TEST(SimBefehl, LayoutModulesAndTheStateFileSavedAtTheEnd)
{
    QTemporaryDir ordner;
    const QString zustand = ordner.filePath(QStringLiteral("sim.zustand"));
    Prozess sim(QStringLiteral("sim"),
                argumente("--tcp 0 --wire-time off --reaction-ms 0 --layout " PLANOR_DEMO " --state") << zustand);
    auto s = verbinden(sim.zeile(QStringLiteral("TCP ")));
    // Session with the demo's 47220 at address 1, then LNCV 5 := 77.
    s->write("SEND ED 0F 08 05 00 21 40 72 12 00 00 01 00 00 10\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    zeileLesen(*s);
    EXPECT_EQ(zeileLesen(*s), "RECEIVE E5 0F 05 49 4B 1F 00 72 12 00 00 01 00 00 6C\r\n");
    s->write("SEND ED 0F 08 05 00 20 00 72 12 05 00 4D 00 00 18\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    zeileLesen(*s);
    EXPECT_EQ(zeileLesen(*s), "RECEIVE B4 6D 7F 59\r\n");
    EXPECT_EQ(sim.ende(SIGTERM), 0);
    const QByteArray text = datei(zustand);
    EXPECT_TRUE(text.contains("modul 47220 1\r\nlncv 0 1\r\nlncv 5 77\r\nlncv 16 100\r\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("modul 47320 100\r\n"));
}

// The dropped answer never comes: the next message's echo follows the session start's directly.
TEST(SimBefehl, FaultsOnTheAnswersOnly)
{
    Prozess sim(QStringLiteral("sim"),
                argumente("--tcp 0 --module 47220:12 --reaction-ms 0 --drop 1 --faults-answers-only"));
    auto s = verbinden(sim.zeile(QStringLiteral("TCP ")));
    s->write(QByteArray("SEND ") + SitzungStart + "\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*s), QByteArray("RECEIVE ") + SitzungStart + "\r\n");
    s->write("SEND 83 7C\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*s), "RECEIVE 83 7C\r\n");
}

// The flood reaches TCP clients as whole messages, and without wire time
// it runs as fast as the simulator can go and still hears SIGTERM.
TEST(SimBefehl, FloodOverTcpAndAtFullSpeed)
{
    {
        Prozess sim(QStringLiteral("sim"), argumente("--tcp 0 --flood"));
        auto s = verbinden(sim.zeile(QStringLiteral("TCP ")));
        int empfangen = 0;
        for (QByteArray z; empfangen < 200 && !(z = zeileLesen(*s)).isEmpty();)
            empfangen += z.startsWith("RECEIVE ");
        EXPECT_EQ(empfangen, 200);
        EXPECT_EQ(sim.ende(SIGTERM), 0);
    }
    Prozess sim(QStringLiteral("sim"), argumente("--pty --flood --wire-time off"));
    QSerialPort port(sim.zeile(QStringLiteral("PTY ")));
    ASSERT_TRUE(port.open(QIODevice::ReadOnly));
    EXPECT_EQ(lesen(port, 20000).size(), 20000);
    EXPECT_EQ(sim.ende(SIGTERM), 0);
}
