// planor-cli monitor as a process: on the pseudo-terminal or the LbServer of
// a running `planor-cli sim`, with traffic made by a third party over TCP.
// What each message reads as belongs to the decoder's own tests; here it is
// the process: its streams, signals, exit codes and trace file.
#include "tests/support/cli.h"

#include <QRegularExpression>
#include <QTemporaryDir>

using namespace planor::test;

namespace {

Prozess monitor(const QStringList& a, QProcess* leser = nullptr)
{
    return Prozess(QStringLiteral("monitor"), a, leser);
}

bool laeuft(Prozess& m) { return m.meldet(QStringLiteral("LocoNet-Monitor läuft an ")); }

// The monitor's lines for the round of `planor-cli sim --flood`, in order.
const QStringList Runde = {
    QStringLiteral("Gleisspannung eingeschaltet"), QStringLiteral("Mag.-Art.: 11 - grün - ein "),
    QStringLiteral("Rückmelder 11 = belegt"), QStringLiteral("Slot  16 = Lokadr. 133, Geschw. 32 ,rückwärts F1 F5 F6 "),
    QStringLiteral("Lok 133 = Geschw. 5"), QStringLiteral("Lok 133 = rückwärts F0 "),
    QStringLiteral("NAVIK/TOBRA Empf. 133: Adr.= 3 Kat.= 3 , von S1 nach S2"), QStringLiteral("Rückmelder 11 = frei")};

}  // namespace

// Messages that show nothing leave no line; the command station's answer to
// the switch query comes last, after the modules' reaction time.
TEST(MonitorBefehl, ShowsTheBusTrafficAsTextLinesUntilSigint)
{
    Bus bus;
    Prozess m = monitor({QStringLiteral("--port"), seriell(bus.pty)});
    ASSERT_TRUE(laeuft(m));
    bus.senden({"B0 00 30 7F", "B2 05 10 58", "E5 05 01 0A 14", "B4 3C 20 57", "83 7C",
                "E7 0E 10 03 05 20 21 00 00 01 03 00 00 03", "A0 10 05 4A", "BC 00 00 43"});
    EXPECT_EQ(m.zeilen(7),
              (QStringList{QStringLiteral("Mag.-Art.: 1 - grün - ein "), QStringLiteral("Rückmelder 11 = belegt"),
                           QStringLiteral("Gleisspannung eingeschaltet"),
                           QStringLiteral("Slot  16 = Lokadr. 133, Geschw. 32 ,rückwärts F1 F5 F6 "),
                           QStringLiteral("Lok 133 = Geschw. 5"), QStringLiteral("Statusanfrage nach Mag.-Art. 1"),
                           QStringLiteral(" Antwort: grün")}));
    EXPECT_EQ(m.ende(SIGINT), 0) << m.fehler.toStdString();
    EXPECT_TRUE(m.p.readAllStandardOutput().isEmpty()) << "no further line";
}

// On the LbServer: SIGTERM ends it cleanly; the server going away ends it as a failure.
TEST(MonitorBefehl, OverTcpSigtermEndsItAndALostLinkFailsIt)
{
    Bus bus;
    Prozess beendet = monitor({QStringLiteral("--port"), QStringLiteral("tcp:127.0.0.1:") + bus.tcp});
    ASSERT_TRUE(laeuft(beendet));
    EXPECT_EQ(beendet.ende(SIGTERM), 0);

    Prozess m = monitor({QStringLiteral("--port"), QStringLiteral("tcp:127.0.0.1:") + bus.tcp});
    ASSERT_TRUE(laeuft(m));
    bus.senden({"83 7C"});
    EXPECT_EQ(m.zeilen(1), QStringList{QStringLiteral("Gleisspannung eingeschaltet")});
    bus.klient.reset();
    EXPECT_EQ(bus.sim.ende(SIGTERM), 0);
    EXPECT_EQ(m.ende(), 1);
    EXPECT_TRUE(m.fehler.contains(QStringLiteral("Der LbServer 127.0.0.1:%1 hat die Verbindung beendet.\n").arg(bus.tcp)))
        << m.fehler.toStdString();
}

TEST(MonitorBefehl, AClosedStdoutEndsItWithStatus1)
{
    Bus bus;
    QProcess kopf;
    Prozess m = monitor({QStringLiteral("--port"), seriell(bus.pty)}, &kopf);
    kopf.start(QStringLiteral("head"), {QStringLiteral("-n"), QStringLiteral("1")});
    ASSERT_TRUE(laeuft(m));
    bus.senden({"83 7C"});
    ASSERT_TRUE(kopf.waitForFinished(Grenze));
    EXPECT_EQ(kopf.readAllStandardOutput(), "Gleisspannung eingeschaltet\n");
    bus.senden({"83 7C"});  // finds no reader
    EXPECT_EQ(m.ende(), 1);
    EXPECT_TRUE(m.fehler.contains(QStringLiteral("\nDie Ausgabe kann nicht geschrieben werden: "))) << m.fehler.toStdString();
}

// A flood without wire time outruns the reader: messages are lost whole in
// the simulator's terminal, never the link, and no line is broken.
TEST(MonitorBefehl, ASlowReaderLosesMessagesNotTheLink)
{
    Prozess sim(QStringLiteral("sim"), argumente("--pty --flood --wire-time off"));
    Prozess m = monitor({QStringLiteral("--port"), seriell(sim.zeile(QStringLiteral("PTY ")))});
    ASSERT_TRUE(laeuft(m));
    const QStringList z = m.zeilen(20000);
    EXPECT_EQ(z.size(), 20000);
    for (const QString& zeile : z)
        ASSERT_TRUE(Runde.contains(zeile)) << zeile.toStdString();
    EXPECT_EQ(m.ende(SIGINT), 0) << m.fehler.toStdString();
}
