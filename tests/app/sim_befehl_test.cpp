// planor-cli sim as a separate process: its pseudo-terminal through
// QSerialPort, its LbServer through QTcpSocket.
#include "tests/support/cli.h"

#include <QSerialPort>

using namespace planor::test;

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
