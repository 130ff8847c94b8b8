// planor-cli sim as a separate process: its pseudo-terminal through
// QSerialPort, its LbServer through QTcpSocket. Every wait is bounded, and
// the process is ended at the end of each test.
#include "tests/support/cli.h"

#include <QFile>
#include <QSerialPort>
#include <QTemporaryDir>

using namespace planor::test;

TEST(PlanorCliSim, PtyAnswersASessionStart)
{
    SimProzess sim(argumente("--pty --module 47220:12"));
    const QString pfad = sim.zeile(QStringLiteral("PTY "));
    ASSERT_TRUE(pfad.startsWith(QStringLiteral("/dev/")));
    QSerialPort port(pfad);
    port.setBaudRate(19200);
    port.setDataBits(QSerialPort::Data8);
    port.setParity(QSerialPort::NoParity);
    port.setStopBits(QSerialPort::TwoStop);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite)) << port.errorString().toStdString();
    port.write(hex(SitzungStart));
    ASSERT_TRUE(port.waitForBytesWritten(Grenze));
    const QByteArray bytes = lesen(port, 30);
    EXPECT_EQ(h(bytes.left(15)), SitzungStart) << "the echo";
    EXPECT_EQ(h(bytes.mid(15)), Antwort);
    port.close();
    EXPECT_EQ(sim.beenden(), 0);
}

TEST(PlanorCliSim, PtyAnswersTheCommandStationHandshake)
{
    SimProzess sim(argumente("--pty"));
    QSerialPort port(sim.zeile(QStringLiteral("PTY ")));
    port.setBaudRate(2400);
    port.setStopBits(QSerialPort::TwoStop);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite));
    port.setBreakEnabled(true);
    port.setBreakEnabled(false);
    port.write("xB19200\r");
    port.waitForBytesWritten(Grenze);
    EXPECT_EQ(lesen(port, 4), "[OK]");
    // Part 2.1 closes the port and opens it again at 19200 bits per second.
    port.close();
    port.setBaudRate(19200);
    ASSERT_TRUE(port.open(QIODevice::ReadWrite));
    port.write("x&LN$55AA\r");
    port.waitForBytesWritten(Grenze);
    EXPECT_EQ(lesen(port, 4), "[OK]");
}

TEST(PlanorCliSim, TcpSendIsAnsweredWithSentOkTheEchoAndTheModulesAnswer)
{
    SimProzess sim(argumente("--tcp 0 --module 47220:12"));
    auto s = verbinden(sim);
    s->write(QByteArray("SEND ") + SitzungStart + "\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*s), QByteArray("RECEIVE ") + SitzungStart + "\r\n");
    EXPECT_EQ(zeileLesen(*s), QByteArray("RECEIVE ") + Antwort + "\r\n");
    s->write("SEND B0 00 10 5E\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT ERROR Pruefsumme falsch\r\n");
    s->write("SEND B0 00 10\r\nSEND xyz\n");
    EXPECT_EQ(zeileLesen(*s), "SENT ERROR die Laenge passt nicht zum Opcode\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT ERROR keine Hex-Bytes\r\n");
    EXPECT_EQ(sim.beenden(), 0);
}

TEST(PlanorCliSim, TwoTcpClientsSeeEachOthersMessages)
{
    SimProzess sim(argumente("--tcp 0 --wire-time off"));
    auto a = verbinden(sim);
    auto b = std::make_unique<QTcpSocket>();
    b->connectToHost(QHostAddress::LocalHost, a->peerPort());
    ASSERT_TRUE(b->waitForConnected(Grenze));
    EXPECT_TRUE(zeileLesen(*b).startsWith("VERSION"));
    a->write("SEND B0 00 10 5F\n");
    EXPECT_EQ(zeileLesen(*a), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*b), "RECEIVE B0 00 10 5F\r\n");
    // The command station answers the state of accessory 1: red now.
    b->write("SEND BC 00 00 43\n");
    EXPECT_EQ(zeileLesen(*b), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*b), "RECEIVE BC 00 00 43\r\n");
    EXPECT_EQ(zeileLesen(*b), "RECEIVE B4 3C 50 27\r\n");
}

TEST(PlanorCliSim, LayoutModulesAndTheStateFileSavedAtTheEnd)
{
    QTemporaryDir ordner;
    const QString zustand = ordner.filePath(QStringLiteral("sim.zustand"));
    SimProzess sim(argumente("--tcp 0 --wire-time off --reaction-ms 0") << QStringLiteral("--layout")
                                                                        << QStringLiteral(PLANOR_DEMO)
                                                                        << QStringLiteral("--state") << zustand);
    auto s = verbinden(sim);
    // Session with the demo's 47220 at address 1, then LNCV 5 := 77.
    s->write("SEND ED 0F 08 05 00 21 40 72 12 00 00 01 00 00 10\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    zeileLesen(*s);
    EXPECT_EQ(zeileLesen(*s), "RECEIVE E5 0F 05 49 4B 1F 00 72 12 00 00 01 00 00 6C\r\n");
    s->write("SEND ED 0F 08 05 00 20 00 72 12 05 00 4D 00 00 18\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    zeileLesen(*s);
    EXPECT_EQ(zeileLesen(*s), "RECEIVE B4 6D 7F 59\r\n");
    EXPECT_EQ(sim.beenden(), 0);
    QFile f(zustand);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray text = f.readAll();
    EXPECT_TRUE(text.contains("modul 47220 1\r\nlncv 0 1\r\nlncv 5 77\r\nlncv 16 100\r\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("modul 47320 100\r\n"));
}

TEST(PlanorCliSim, FaultsOnTheAnswersOnly)
{
    SimProzess sim(argumente("--tcp 0 --module 47220:12 --drop 1 --faults-answers-only"));
    auto s = verbinden(sim);
    s->write(QByteArray("SEND ") + SitzungStart + "\r\n");
    EXPECT_EQ(zeileLesen(*s), "SENT OK\r\n");
    EXPECT_EQ(zeileLesen(*s), QByteArray("RECEIVE ") + SitzungStart + "\r\n");
    EXPECT_FALSE(s->waitForReadyRead(300)) << "the answer was dropped";
}

TEST(PlanorCliSim, UsageErrorsExit2WithAGermanMessage)
{
    Lauf l = kurz(argumente("--zaubern"));
    EXPECT_EQ(l.status, 2);
    EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("Unbekannte Option: --zaubern\n")));
    EXPECT_TRUE(l.aus.isEmpty());
    l = kurz({});
    EXPECT_EQ(l.status, 2);
    EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("Bitte --pty oder --tcp PORT angeben.")));
    l = kurz(argumente("--pty --drop 2"));
    EXPECT_EQ(l.status, 2);
    EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("--drop erwartet eine Wahrscheinlichkeit von 0 bis 1")));
    l = kurz(argumente("--pty --module 4711:1"));
    EXPECT_EQ(l.status, 2);
    l = kurz(argumente("--pty --silent 47220:9"));
    EXPECT_EQ(l.status, 2);
    EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("--silent: Es gibt kein simuliertes Modul 47220:9.")));
    l = kurz(argumente("--tcp"));
    EXPECT_EQ(l.status, 2);
    EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("--tcp braucht einen Wert.")));
}

TEST(PlanorCliSim, HelpListsTheOptions)
{
    const Lauf l = kurz(argumente("--help"));
    EXPECT_EQ(l.status, 0);
    EXPECT_TRUE(l.aus.startsWith(QStringLiteral("Aufruf: planor-cli sim")));
    EXPECT_TRUE(l.aus.contains(QStringLiteral("--refuse-writes")));
}
