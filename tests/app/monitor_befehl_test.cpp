// planor-cli monitor as a script drives it: a running `planor-cli sim`, the
// monitor on its pseudo-terminal (or its LbServer) as a second process, and
// traffic made by a third party over TCP or by `planor-cli lncv`. The lines
// are compared with the decoder's texts (tests/loconet/monitor_text_test.cpp).
#include "tests/support/cli.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSerialPort>
#include <QTemporaryDir>

#include <csignal>
#include <ostream>

using namespace planor::test;

// Readable texts in failure messages.
inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}
inline void PrintTo(const QStringList& l, std::ostream* os)
{
    *os << '{' << l.join(QStringLiteral("; ")).toStdString() << '}';
}

namespace {

// `planor-cli monitor` running; killed when the test ends.
class MonitorProzess {
public:
    // `leser`, if given, reads its stdout through a pipe instead of the test.
    explicit MonitorProzess(const QStringList& argumente, QProcess* leser = nullptr)
    {
        if (leser)
            p.setStandardOutputProcess(leser);
        p.setProgram(QStringLiteral(PLANOR_CLI));
        p.setArguments(QStringList {QStringLiteral("monitor")} + argumente);
        p.start();
        EXPECT_TRUE(p.waitForStarted(Grenze));
    }
    ~MonitorProzess()
    {
        if (p.state() == QProcess::NotRunning)
            return;
        p.kill();
        p.waitForFinished(Grenze);
    }

    // True once stderr holds `text` (the monitor says it runs after the port is open).
    bool meldet(const QString& text)
    {
        QDeadlineTimer frist(Grenze);
        while (!frist.hasExpired()) {
            fehler += QString::fromUtf8(p.readAllStandardError());
            if (fehler.contains(text))
                return true;
            if (p.state() == QProcess::NotRunning)
                break;
            p.waitForReadyRead(20);
        }
        fehler += QString::fromUtf8(p.readAllStandardError());
        ADD_FAILURE() << "stderr without \"" << text.toStdString() << "\": " << fehler.toStdString();
        return false;
    }
    bool laeuft() { return meldet(QStringLiteral("LocoNet-Monitor läuft an ")); }

    // The next `n` lines of stdout, without their line ends; fewer after the time limit.
    QStringList zeilen(int n)
    {
        QStringList z;
        QDeadlineTimer frist(Grenze);
        while (z.size() < n && !frist.hasExpired()) {
            while (z.size() < n && p.canReadLine()) {
                QString zeile = QString::fromUtf8(p.readLine());
                zeile.chop(1);
                z << zeile;
            }
            if (z.size() < n && !p.canReadLine() && p.state() == QProcess::Running)
                p.waitForReadyRead(int(qMax<qint64>(1, frist.remainingTime())));
            else if (p.state() != QProcess::Running && !p.canReadLine())
                break;
        }
        return z;
    }

    // A signal, and the exit code of the end it brings; -1 if it brings none.
    int signal(int nummer)
    {
        ::kill(pid_t(p.processId()), nummer);
        return ende();
    }
    int ende()
    {
        if (!p.waitForFinished(Grenze) || p.exitStatus() != QProcess::NormalExit)
            return -1;
        fehler += QString::fromUtf8(p.readAllStandardError());
        return p.exitCode();
    }

    QProcess p;
    QString fehler;
};

// A short run of `planor-cli monitor` that ends by itself.
Lauf monitorKurz(const QStringList& a)
{
    QProcess p;
    p.start(QStringLiteral(PLANOR_CLI), QStringList {QStringLiteral("monitor")} + a);
    if (!p.waitForFinished(Grenze)) {
        p.kill();
        p.waitForFinished(Grenze);
        return {-1, {}, {}};
    }
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

// 30 bytes: its hex text is longer than 80 columns.
const char* const Lang = "E5 1E 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 01 05";

// The monitor's lines for the round of `planor-cli sim --flood`, in order.
QStringList RundenTexte()
{
    return {QStringLiteral("Gleisspannung eingeschaltet"), QStringLiteral("Mag.-Art.: 11 - grün - ein "),
            QStringLiteral("Rückmelder 11 = belegt"), QStringLiteral("Slot  16 = Lokadr. 133, Geschw. 32 ,rückwärts F1 F5 F6 "),
            QStringLiteral("Lok 133 = Geschw. 5"), QStringLiteral("Lok 133 = rückwärts F0 "),
            QStringLiteral("NAVIK/TOBRA Empf. 133: Adr.= 3 Kat.= 3 , von S1 nach S2"), QStringLiteral("Rückmelder 11 = frei")};
}

QString seriell(const QString& pty) { return QStringLiteral("serial:%1?kind=usb").arg(pty); }

// The simulator with a pseudo-terminal and an LbServer, no wire time.
struct Bus {
    Bus()
        : sim(argumente("--pty --tcp 0 --wire-time off --module 47220:12"))
    {
        pty = sim.zeile(QStringLiteral("PTY "));
        tcp = sim.zeile(QStringLiteral("TCP "));
    }
    // A third party on the bus that sends messages over TCP.
    void senden(std::initializer_list<const char*> nachrichten)
    {
        if (!klient) {
            klient = std::make_unique<QTcpSocket>();
            klient->connectToHost(QHostAddress::LocalHost, tcp.toUShort());
            ASSERT_TRUE(klient->waitForConnected(Grenze));
            ASSERT_TRUE(zeileLesen(*klient).startsWith("VERSION"));
        }
        for (const char* n : nachrichten) {
            klient->write(QByteArray("SEND ") + n + "\r\n");
            // Its answer; the RECEIVE lines of the bus are skipped.
            QByteArray antwort;
            while (!(antwort = zeileLesen(*klient)).startsWith("SENT"))
                ASSERT_FALSE(antwort.isEmpty()) << n;
            ASSERT_EQ(antwort, "SENT OK\r\n") << n;
        }
    }

    SimProzess sim;
    QString pty, tcp;
    std::unique_ptr<QTcpSocket> klient;
};

}  // namespace

TEST(PlanorCliMonitor, ShowsTheBusTrafficAsTextLinesUntilSigint)
{
    Bus bus;
    MonitorProzess m({QStringLiteral("--port"), seriell(bus.pty)});
    ASSERT_TRUE(m.laeuft());
    // The unknown E5 and the long ack without a query show nothing; the
    // simulated command station answers the switch query (last, as its
    // answer comes after the modules' reaction time).
    bus.senden({"B0 00 30 7F", "B2 05 10 58", "E5 05 01 0A 14", "B4 3C 20 57", "83 7C",
                "E7 0E 10 03 05 20 21 00 00 01 03 00 00 03", "A0 10 05 4A", "BC 00 00 43"});
    EXPECT_EQ(m.zeilen(7),
              (QStringList {QStringLiteral("Mag.-Art.: 1 - grün - ein "), QStringLiteral("Rückmelder 11 = belegt"),
                            QStringLiteral("Gleisspannung eingeschaltet"),
                            QStringLiteral("Slot  16 = Lokadr. 133, Geschw. 32 ,rückwärts F1 F5 F6 "),
                            QStringLiteral("Lok 133 = Geschw. 5"), QStringLiteral("Statusanfrage nach Mag.-Art. 1"),
                            QStringLiteral(" Antwort: grün")}));
    EXPECT_EQ(m.signal(SIGINT), 0) << m.fehler.toStdString();
    EXPECT_TRUE(m.p.readAllStandardOutput().isEmpty()) << "no further line";
}

TEST(PlanorCliMonitor, SigtermEndsItCleanlyToo)
{
    Bus bus;
    MonitorProzess m({QStringLiteral("--port"), QStringLiteral("tcp:127.0.0.1:") + bus.tcp});
    ASSERT_TRUE(m.laeuft());
    EXPECT_EQ(m.signal(SIGTERM), 0);
}

TEST(PlanorCliMonitor, HexOutputShowsEveryMessageInHexOnly)
{
    Bus bus;
    MonitorProzess m({QStringLiteral("--hex"), QStringLiteral("--port"), seriell(bus.pty)});
    ASSERT_TRUE(m.laeuft());
    // A 30-byte message: its hex line is longer than 80 columns and stays whole.
    bus.senden({"B0 00 30 7F", "E5 05 01 0A 14", Lang});
    const QStringList z = m.zeilen(3);
    ASSERT_EQ(z.size(), 3);
    EXPECT_EQ(z[0], QStringLiteral("B0 00 30 "));
    EXPECT_EQ(z[1], QStringLiteral("E5 05 01 0A "));
    EXPECT_EQ(z[2], QString::fromLatin1(Lang).chopped(2));
    EXPECT_EQ(m.signal(SIGINT), 0);
}

TEST(PlanorCliMonitor, AsciiHexShowsUnknownMessagesCutAt80Columns)
{
    Bus bus;
    MonitorProzess m({QStringLiteral("--port"), seriell(bus.pty), QStringLiteral("--ascii-hex")});
    ASSERT_TRUE(m.laeuft());
    bus.senden({"E5 05 01 0A 14", "83 7C", Lang});
    const QString langText = QStringLiteral("HEX: ") + QString::fromLatin1(Lang).chopped(2);
    EXPECT_EQ(m.zeilen(4), (QStringList {QStringLiteral("HEX: E5 05 01 0A "), QStringLiteral("Gleisspannung eingeschaltet"),
                                         langText.left(80), langText.mid(80)}));
    EXPECT_EQ(m.signal(SIGINT), 0);
}

// The LNCV session of `planor-cli lncv` through the LbServer, seen on the
// pseudo-terminal: the session start and the module's answer.
TEST(PlanorCliMonitor, SeesAnotherProgramsLncvSession)
{
    Bus bus;
    MonitorProzess m({QStringLiteral("--ascii-hex"), QStringLiteral("--port"), seriell(bus.pty)});
    ASSERT_TRUE(m.laeuft());
    QProcess lncv;
    lncv.start(QStringLiteral(PLANOR_CLI),
               argumente("lncv read --article 47220 --address 12 --lncv 0 --port") << QStringLiteral("tcp:127.0.0.1:")
                                                                                            + bus.tcp);
    ASSERT_TRUE(lncv.waitForFinished(Grenze));
    EXPECT_EQ(lncv.exitCode(), 0) << lncv.readAllStandardError().toStdString();
    const QStringList z = m.zeilen(2);
    ASSERT_EQ(z.size(), 2);
    EXPECT_EQ(z[0], QStringLiteral("HEX: ") + QString::fromLatin1(SitzungStart).chopped(2));
    EXPECT_EQ(z[1], QStringLiteral("HEX: ") + QString::fromLatin1(Antwort).chopped(2));
    EXPECT_EQ(m.signal(SIGINT), 0);
}

// Part 2.6 step 6: one line per text with the time of day, Windows-1252 and
// CR LF, complete when the monitor has been stopped.
TEST(PlanorCliMonitor, TraceFileHoldsEachTextWithTheTimeOfDay)
{
    QTemporaryDir ordner;
    const QString pfad = ordner.filePath(QStringLiteral("verlauf.txt"));
    Bus bus;
    MonitorProzess m({QStringLiteral("--port"), seriell(bus.pty), QStringLiteral("--trace"), pfad,
                      QStringLiteral("--ascii-hex")});
    ASSERT_TRUE(m.laeuft());
    EXPECT_TRUE(m.meldet(QStringLiteral("Speichern: ") + pfad + u'\n'));
    bus.senden({"B0 00 30 7F", "B4 3C 20 57", "B2 05 21 69", Lang});
    const QStringList z = m.zeilen(4);
    ASSERT_EQ(z.size(), 4);
    EXPECT_EQ(m.signal(SIGINT), 0);
    EXPECT_TRUE(m.fehler.endsWith(QStringLiteral("Gespeichert unter: ") + pfad + u'\n')) << m.fehler.toStdString();

    QFile f(pfad);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray inhalt = f.readAll();
    const QList<QByteArray> zeilen = inhalt.split('\n');
    ASSERT_EQ(zeilen.size(), 4) << inhalt.toStdString();  // three lines and the empty rest
    EXPECT_TRUE(zeilen[3].isEmpty());
    static const QRegularExpression zeit(QStringLiteral("^\\d{6},\\d{3} - $"));
    const QByteArray texte[] = {"Mag.-Art.: 1 - gr\xFCn - ein ", "R\xFC" "ckmelder 268 = frei",
                                "HEX: " + QByteArray(Lang).chopped(2)};
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(zeilen[i].endsWith(texte[i] + '\r')) << zeilen[i].toStdString();
        EXPECT_TRUE(zeit.match(QString::fromLatin1(zeilen[i].left(13))).hasMatch()) << zeilen[i].toStdString();
    }
    // The same times of day as the run: within the last minute.
    const double sekunden = QString::fromLatin1(zeilen[0].left(10)).replace(u',', u'.').toDouble();
    const double jetzt = QTime(0, 0).msecsTo(QTime::currentTime()) / 1000.0;
    EXPECT_LT(std::abs(jetzt - sekunden), 60) << zeilen[0].toStdString();
}

TEST(PlanorCliMonitor, ALostLinkEndsItWithStatus1)
{
    Bus bus;
    MonitorProzess m({QStringLiteral("--port"), QStringLiteral("tcp:127.0.0.1:") + bus.tcp});
    ASSERT_TRUE(m.laeuft());
    bus.senden({"83 7C"});
    EXPECT_EQ(m.zeilen(1), QStringList {QStringLiteral("Gleisspannung eingeschaltet")});
    bus.klient.reset();
    EXPECT_EQ(bus.sim.beenden(), 0);
    EXPECT_EQ(m.ende(), 1);
    EXPECT_TRUE(m.fehler.contains(QStringLiteral("Der LbServer 127.0.0.1:%1 hat die Verbindung beendet.\n").arg(bus.tcp)))
        << m.fehler.toStdString();
}

TEST(PlanorCliMonitor, AMissingDeviceFailsWithStatus1)
{
    const Lauf l = monitorKurz({QStringLiteral("--port"), QStringLiteral("serial:/dev/planor-fehlt?kind=usb")});
    EXPECT_EQ(l.status, 1);
    EXPECT_EQ(l.fehler,
              QStringLiteral("ComPort öffnen: Die Schnittstelle /dev/planor-fehlt ist nicht vorhanden.\n"
                             "Bitte prüfen Sie, ob das Interface angeschlossen ist, und wählen Sie unter "
                             "\u201EComPort Einstellungen\u201C den richtigen Anschluss.\n"));
    EXPECT_TRUE(l.aus.isEmpty());
}

TEST(PlanorCliMonitor, ATraceThatCannotBeWrittenFailsWithStatus1)
{
    const Lauf l = monitorKurz(argumente("--port sim --trace /proc/planor/verlauf.txt"));
    EXPECT_EQ(l.status, 1);
    EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("Die Datei \"/proc/planor/verlauf.txt\" kann nicht geschrieben werden: ")))
        << l.fehler.toStdString();
}

TEST(PlanorCliMonitor, UsageErrorsExit2)
{
    for (const char* falsch : {"", "--hex", "--port", "--port sim --zaubern", "--port com7", "--port sim --trace",
                               "--port serial:/dev/ttyS0", "--port sim --trace ="}) {
        QStringList a = QString::fromLatin1(falsch).split(u' ', Qt::SkipEmptyParts);
        if (a.endsWith(QStringLiteral("=")))
            a.last().clear();  // --trace ""
        const Lauf l = monitorKurz(a);
        EXPECT_EQ(l.status, 2) << falsch;
        EXPECT_TRUE(l.fehler.contains(QStringLiteral("\n\nAufruf: planor-cli monitor --port PORT"))) << falsch;
        EXPECT_TRUE(l.aus.isEmpty()) << falsch;
    }
    EXPECT_TRUE(monitorKurz(argumente("--port sim --zaubern")).fehler.startsWith(QStringLiteral("Unbekannte Option: --zaubern\n")));
    EXPECT_TRUE(monitorKurz(argumente("--hex")).fehler.startsWith(QStringLiteral("--port ist nötig.\n")));
}

TEST(PlanorCliMonitor, HelpShowsTheCallOnStdout)
{
    const Lauf l = monitorKurz(argumente("--help"));
    EXPECT_EQ(l.status, 0);
    EXPECT_TRUE(l.aus.startsWith(QStringLiteral("Aufruf: planor-cli monitor --port PORT [--hex] [--ascii-hex] [--trace DATEI]\n")));
}

// `planor-cli sim --flood` keeps the bus full with a round of messages that
// the monitor shows as one line each, in their order, over and over.
TEST(PlanorCliMonitor, ShowsTheSimulatorsFloodOneLinePerMessage)
{
    SimProzess sim(argumente("--pty --flood"));
    const QString pty = sim.zeile(QStringLiteral("PTY "));
    MonitorProzess m({QStringLiteral("--port"), seriell(pty)});
    ASSERT_TRUE(m.laeuft());
    const QStringList runde = RundenTexte();
    // The first lines come from what the terminal had piled up before the
    // monitor opened it (the simulator drops a pile that grows too big), so
    // the order is checked from line 60 on.
    const QStringList z = m.zeilen(120);
    ASSERT_EQ(z.size(), 120);
    for (const QString& zeile : z)
        EXPECT_TRUE(runde.contains(zeile)) << zeile.toStdString();
    for (qsizetype i = 60; i + 1 < z.size(); ++i)
        EXPECT_EQ(z[i + 1], runde[(runde.indexOf(z[i]) + 1) % runde.size()]) << i;
    EXPECT_EQ(m.signal(SIGINT), 0);
    EXPECT_EQ(sim.beenden(), 0);
}

TEST(PlanorCliSim, FloodAtTheWiresSpeed)
{
    SimProzess sim(argumente("--tcp 0 --flood"));
    auto s = verbinden(sim);
    // 200 messages of 5.5 bytes on average at 0.6 ms a byte: 0.66 s at least.
    QElapsedTimer uhr;
    uhr.start();
    int empfangen = 0;
    while (empfangen < 200 && !uhr.hasExpired(Grenze)) {
        const QByteArray z = zeileLesen(*s);
        ASSERT_FALSE(z.isEmpty());
        if (z.startsWith("RECEIVE "))
            ++empfangen;
    }
    EXPECT_EQ(empfangen, 200);
    EXPECT_GE(uhr.elapsed(), 600);
    EXPECT_EQ(sim.beenden(), 0);
}

TEST(PlanorCliSim, FloodRefusesFaults)
{
    for (const char* falsch : {"--pty --flood --drop 0,1", "--pty --delay-ms 5 --flood", "--tcp 0 --flood --duplicate 1",
                               "--tcp 0 --flood --corrupt 0.5"}) {
        const Lauf l = kurz(argumente(falsch));
        EXPECT_EQ(l.status, 2) << falsch;
        EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("--flood geht nicht zusammen mit Störungen"))) << falsch;
    }
}

// Without wire time the flood runs as fast as the simulator can go, and it
// still hears SIGTERM.
TEST(PlanorCliSim, FloodWithoutWireTimeStillEndsOnSigterm)
{
    SimProzess sim(argumente("--pty --flood --wire-time off"));
    QSerialPort port(sim.zeile(QStringLiteral("PTY ")));
    ASSERT_TRUE(port.open(QIODevice::ReadOnly));
    EXPECT_EQ(lesen(port, 20000).size(), 20000);
    EXPECT_EQ(sim.beenden(), 0);
}

// A monitor that cannot keep up (its stdout not read for a second) loses
// whole messages in the simulator's terminal, never the link, and shows no
// broken line.
TEST(PlanorCliMonitor, ASlowReaderLosesMessagesNotTheLink)
{
    SimProzess sim(argumente("--pty --flood --wire-time off"));
    const QString pty = sim.zeile(QStringLiteral("PTY "));
    MonitorProzess m({QStringLiteral("--port"), seriell(pty)});
    ASSERT_TRUE(m.laeuft());
    // Nobody reads the monitor's stdout meanwhile: its pipe fills and it stalls.
    sim.p.waitForFinished(1000);
    const QStringList z = m.zeilen(20000);
    EXPECT_EQ(z.size(), 20000);
    const QStringList runde = RundenTexte();
    for (const QString& zeile : z)
        ASSERT_TRUE(runde.contains(zeile)) << zeile.toStdString();
    EXPECT_EQ(m.signal(SIGINT), 0) << m.fehler.toStdString();
}

// A reader that goes away ends the monitor as a failure, with a German message.
TEST(PlanorCliMonitor, AClosedStdoutEndsItWithStatus1)
{
    Bus bus;
    QProcess kopf;
    MonitorProzess m({QStringLiteral("--port"), seriell(bus.pty)}, &kopf);
    kopf.start(QStringLiteral("head"), {QStringLiteral("-n"), QStringLiteral("1")});
    ASSERT_TRUE(m.laeuft());
    bus.senden({"83 7C"});
    ASSERT_TRUE(kopf.waitForFinished(Grenze));
    EXPECT_EQ(kopf.readAllStandardOutput(), "Gleisspannung eingeschaltet\n");
    // The next line finds no reader.
    bus.senden({"83 7C"});
    EXPECT_EQ(m.ende(), 1);
    EXPECT_TRUE(m.fehler.contains(QStringLiteral("\nDie Ausgabe kann nicht geschrieben werden: "))) << m.fehler.toStdString();
}
