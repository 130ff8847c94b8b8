// Benchmark: `planor-cli monitor` while the simulator
// fills the bus. Three processes, as a user runs them:
//   `planor-cli sim --pty --flood`  puts a round of messages on its bus as
//        fast as the bus takes them (platform/sim_flut.h);
//   `planor-cli monitor --port serial:<pty>?kind=usb`  reads them through
//        the pseudo-terminal: serial transport, the monitor framing,
//        decode_ln_mes, the 80-column cut and one flushed write per line —
//        the very code path of the command, nothing rebuilt for the bench;
//   this process  counts the monitor's stdout lines (each message of the
//        round gives exactly one).
// So the figures are the monitor process's own: lines per second, its CPU
// time (user + system from /proc/<pid>/stat, the counters getrusage reports
// for a process) over the wall time, and that CPU time per message — the
// figure that depends least on what else the machine is doing. The window opens with the
// first line and half a second, so start-up is not counted. Two runs: "Bus" with the wire's
// time (0.6 ms a byte, a real bus's 16.66 kbit/s; the limit column is what
// the wire lets through), and "unbegrenzt" without it, where the simulator
// or the monitor is the limit — the two CPU shares tell which. The
// simulator drops what piles up in the terminal past 2048 bytes, so a
// monitor that falls behind shows as fewer lines, not as a backlog.
// A run without lines, or a monitor that does not end with status 0 on
// SIGINT, ends the bench with status 1.
//   planor-bench-monitor [SEKUNDEN]   (each run; default 10)
#include "platform/sim_bus.h"
#include "platform/sim_flut.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using namespace planor;

namespace {

constexpr int Grenze = 10000;  // ms for a process to start, answer or end

// User + system CPU seconds of a running process.
double cpuSekunden(qint64 pid)
{
    QFile f(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray stat = f.readAll();
    // Fields after the command's closing parenthesis: state is the first,
    // utime the 12th, stime the 13th.
    const QList<QByteArray> felder = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    if (felder.size() < 13)
        return 0;
    return double(felder[11].toLongLong() + felder[12].toLongLong()) / double(::sysconf(_SC_CLK_TCK));
}

// The first stdout line of `p` that starts with `kopf`, without it.
QString zeile(QProcess& p, const QByteArray& kopf)
{
    QDeadlineTimer frist(Grenze);
    while (!frist.hasExpired()) {
        while (p.canReadLine()) {
            const QByteArray z = p.readLine().trimmed();
            if (z.startsWith(kopf))
                return QString::fromLocal8Bit(z.mid(kopf.size()));
        }
        if (!p.waitForReadyRead(int(qMax<qint64>(1, frist.remainingTime()))))
            break;
    }
    return {};
}

// Lines per second the wire lets through for the flood's round.
double drahtGrenze()
{
    qsizetype bytes = 0;
    for (const QByteArray& n : SimFlut::Runde())
        bytes += n.size();
    return double(SimFlut::Runde().size()) / (double(bytes) * SimBus::ByteZeit);
}

struct Ergebnis {
    bool gut = false;
    long long zeilen = 0;
    double sekunden = 0, monitorCpu = 0, simCpu = 0;
};

Ergebnis messen(bool drahtzeit, double dauer)
{
    const QString cli = QStringLiteral(PLANOR_CLI);
    QProcess sim;
    sim.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    sim.start(cli, {QStringLiteral("sim"), QStringLiteral("--pty"), QStringLiteral("--flood"), QStringLiteral("--wire-time"),
                    drahtzeit ? QStringLiteral("on") : QStringLiteral("off")});
    const QString pty = zeile(sim, "PTY ");
    if (pty.isEmpty()) {
        std::fprintf(stderr, "Der Simulator nennt kein Pseudo-Terminal.\n");
        return {};
    }
    QProcess monitor;
    monitor.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    monitor.start(cli, {QStringLiteral("monitor"), QStringLiteral("--port"), QStringLiteral("serial:%1?kind=usb").arg(pty)});

    Ergebnis e;
    // The window opens half a second after the first line: by then the
    // monitor has worked off what piled up in the terminal before it opened.
    if (!monitor.waitForReadyRead(Grenze)) {
        std::fprintf(stderr, "Der Monitor zeigt keine Zeile.\n");
        return {};
    }
    QElapsedTimer anlauf;
    anlauf.start();
    while (anlauf.elapsed() < 500) {
        monitor.waitForReadyRead(int(qMax<qint64>(1, 500 - anlauf.elapsed())));
        monitor.readAllStandardOutput();
    }
    const double monitor0 = cpuSekunden(monitor.processId()), sim0 = cpuSekunden(sim.processId());
    QElapsedTimer wand;
    wand.start();
    const qint64 ende = qint64(dauer * 1000);
    while (wand.elapsed() < ende) {
        monitor.waitForReadyRead(int(qMax<qint64>(1, ende - wand.elapsed())));
        e.zeilen += monitor.readAllStandardOutput().count('\n');
    }
    e.monitorCpu = cpuSekunden(monitor.processId()) - monitor0;
    e.simCpu = cpuSekunden(sim.processId()) - sim0;
    e.sekunden = double(wand.nsecsElapsed()) / 1e9;

    // A monitor that has ended already has no id (kill(0) would hit this process's group).
    if (monitor.state() == QProcess::Running && monitor.processId() > 0)
        ::kill(pid_t(monitor.processId()), SIGINT);
    e.gut = monitor.waitForFinished(Grenze) && monitor.exitStatus() == QProcess::NormalExit && monitor.exitCode() == 0
            && e.zeilen > 0;
    if (!e.gut)
        std::fprintf(stderr, "Der Monitor endet nicht mit Status 0 auf SIGINT.\n");
    sim.terminate();
    if (!sim.waitForFinished(Grenze))
        sim.kill();
    return e;
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const double dauer = argc > 1 ? std::atof(argv[1]) : 10.0;
    if (dauer <= 0) {
        std::fprintf(stderr, "Aufruf: planor-bench-monitor [SEKUNDEN]\n");
        return 2;
    }
    QFile last(QStringLiteral("/proc/loadavg"));
    last.open(QIODevice::ReadOnly);
    std::printf("%ld Kerne, Last vorher %s; CPU-Anteile je Prozess in %% eines Kerns\n", ::sysconf(_SC_NPROCESSORS_ONLN),
                last.readAll().split(' ').value(0).constData());
    std::printf("%-11s %11s %9s %10s %10s %12s %15s %10s\n", "Lauf", "Nachrichten", "Sekunden", "Nachr./s", "Grenze/s",
                "Monitor-CPU", "Monitor-µs/N.", "Sim-CPU");
    bool gut = true;
    for (const bool drahtzeit : {true, false}) {
        const Ergebnis e = messen(drahtzeit, dauer);
        gut = gut && e.gut;
        const QByteArray grenze = drahtzeit ? QByteArray::number(drahtGrenze(), 'f', 0) : QByteArray("-");
        std::printf("%-11s %11lld %9.2f %10.0f %10s %11.1f%% %13.2f %9.1f%%\n", drahtzeit ? "Bus" : "unbegrenzt", e.zeilen,
                    e.sekunden, e.sekunden > 0 ? double(e.zeilen) / e.sekunden : 0.0, grenze.constData(),
                    e.sekunden > 0 ? 100 * e.monitorCpu / e.sekunden : 0.0,
                    e.zeilen > 0 ? 1e6 * e.monitorCpu / double(e.zeilen) : 0.0,
                    e.sekunden > 0 ? 100 * e.simCpu / e.sekunden : 0.0);
        std::fflush(stdout);
    }
    return gut ? 0 : 1;
}
