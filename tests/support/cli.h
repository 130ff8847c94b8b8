#pragma once
// planor-cli driven as a script drives it: a short run that ends by itself,
// or a long-running process (sim, monitor) read line by line and ended when
// the test ends. Every wait is bounded, so no test can hang.

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTcpSocket>

#include "tests/support/daten.h"

#include <gtest/gtest.h>

#include <csignal>
#include <memory>

namespace planor::test {

inline constexpr int Grenze = 10000;  // ms for anything to come

// Arguments from a text with blanks between them.
inline QStringList argumente(const char* text) { return QString::fromUtf8(text).split(u' ', Qt::SkipEmptyParts); }

struct Lauf {
    int status;
    QString aus;
    QString fehler;
};

// One run of `planor-cli befehl argumente` without a display, `eingabe` on stdin; status -1 if it does not end in time.
inline Lauf planorCli(const QString& befehl, const QStringList& a, const QByteArray& eingabe = {}, int grenze = Grenze)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* v : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        env.remove(QString::fromLatin1(v));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(PLANOR_CLI), (befehl.isEmpty() ? QStringList{} : QStringList{befehl}) + a);
    p.write(eingabe);
    p.closeWriteChannel();
    if (!p.waitForFinished(grenze) || p.exitStatus() != QProcess::NormalExit) {
        p.kill();
        p.waitForFinished(Grenze);
        return {-1, {}, QString::fromUtf8(p.readAllStandardError())};
    }
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

// A long-running `planor-cli befehl argumente`; killed when the test ends.
class Prozess {
public:
    // `leser`, if given, reads its stdout through a pipe instead of the test.
    Prozess(const QString& befehl, const QStringList& a, QProcess* leser = nullptr)
    {
        if (leser)
            p.setStandardOutputProcess(leser);
        p.start(QStringLiteral(PLANOR_CLI), QStringList{befehl} + a);
        EXPECT_TRUE(p.waitForStarted(Grenze));
    }
    ~Prozess()
    {
        if (p.state() != QProcess::NotRunning) {
            p.kill();
            p.waitForFinished(Grenze);
        }
    }

    // The first line of stdout that starts with `kopf`, without it; empty after the time limit.
    QString zeile(const QString& kopf)
    {
        QDeadlineTimer frist(Grenze);
        while (!frist.hasExpired()) {
            while (p.canReadLine()) {
                const QString z = QString::fromUtf8(p.readLine()).trimmed();
                if (z.startsWith(kopf))
                    return z.mid(kopf.size());
            }
            if (p.state() == QProcess::NotRunning)
                break;
            p.waitForReadyRead(int(qMax<qint64>(1, frist.remainingTime())));
        }
        ADD_FAILURE() << "no line " << kopf.toStdString() << "; stderr: " << p.readAllStandardError().toStdString();
        return {};
    }

    // The next `n` lines of stdout without their line ends; fewer after the time limit.
    QStringList zeilen(int n)
    {
        QStringList z;
        QDeadlineTimer frist(Grenze);
        while (z.size() < n && !frist.hasExpired()) {
            while (z.size() < n && p.canReadLine())
                z << QString::fromUtf8(p.readLine()).chopped(1);
            if (z.size() < n && !p.waitForReadyRead(int(qMax<qint64>(1, frist.remainingTime()))) && !p.canReadLine()
                && p.state() != QProcess::Running)
                break;
        }
        return z;
    }

    // True once stderr holds `text`.
    bool meldet(const QString& text)
    {
        QDeadlineTimer frist(Grenze);
        while (!(fehler += QString::fromUtf8(p.readAllStandardError())).contains(text)) {
            if (frist.hasExpired() || p.state() == QProcess::NotRunning) {
                ADD_FAILURE() << "stderr without \"" << text.toStdString() << "\": " << fehler.toStdString();
                return false;
            }
            p.waitForReadyRead(20);
        }
        return true;
    }

    // The exit code of a clean end that `signal` (0: none) brings; -1 if it brings none.
    int ende(int signal = 0)
    {
        if (signal)
            ::kill(pid_t(p.processId()), signal);
        if (!p.waitForFinished(Grenze) || p.exitStatus() != QProcess::NormalExit)
            return -1;
        fehler += QString::fromUtf8(p.readAllStandardError());
        return p.exitCode();
    }

    QProcess p;
    QString fehler;
};

// Reads from a device until `n` bytes have come or the limit passes.
inline QByteArray lesen(QIODevice& d, int n)
{
    QByteArray daten;
    QDeadlineTimer frist(Grenze);
    while (daten.size() < n && !frist.hasExpired()) {
        if (d.bytesAvailable() == 0)
            d.waitForReadyRead(int(qMax<qint64>(1, frist.remainingTime())));
        daten += d.read(n - daten.size());
    }
    return daten;
}

inline QByteArray zeileLesen(QTcpSocket& s)
{
    QDeadlineTimer frist(Grenze);
    while (!s.canReadLine() && !frist.hasExpired() && s.state() == QAbstractSocket::ConnectedState)
        s.waitForReadyRead(int(qMax<qint64>(1, frist.remainingTime())));
    return s.readLine();
}

inline const char* const SitzungStart = "ED 0F 08 05 00 21 40 72 12 00 00 0C 00 00 1D";  // 4722, address 12
inline const char* const Antwort = "E5 0F 05 49 4B 1F 00 72 12 00 00 0C 00 00 61";

// A client of the simulator's LbServer, past its greeting.
inline std::unique_ptr<QTcpSocket> verbinden(const QString& port)
{
    auto s = std::make_unique<QTcpSocket>();
    s->connectToHost(QHostAddress::LocalHost, port.toUShort());
    EXPECT_TRUE(s->waitForConnected(Grenze));
    EXPECT_TRUE(zeileLesen(*s).startsWith("VERSION Planor-Simulator "));
    return s;
}

inline QString seriell(const QString& pty) { return QStringLiteral("serial:%1?kind=usb").arg(pty); }

// The simulator with a pseudo-terminal and an LbServer, and a third party on the bus that sends over TCP.
struct Bus {
    explicit Bus(const char* mehr = "--wire-time off --module 47220:12")
        : sim(QStringLiteral("sim"), argumente("--pty --tcp 0") + argumente(mehr))
    {
        pty = sim.zeile(QStringLiteral("PTY "));
        tcp = sim.zeile(QStringLiteral("TCP "));
    }
    void senden(std::initializer_list<const char*> nachrichten)
    {
        if (!klient)
            klient = verbinden(tcp);
        for (const char* n : nachrichten) {
            klient->write(QByteArray("SEND ") + n + "\r\n");
            QByteArray antwort;  // the bus's RECEIVE lines come first
            while (!(antwort = zeileLesen(*klient)).startsWith("SENT"))
                ASSERT_FALSE(antwort.isEmpty()) << n;
            ASSERT_EQ(antwort, "SENT OK\r\n") << n;
        }
    }

    Prozess sim;
    QString pty, tcp;
    std::unique_ptr<QTcpSocket> klient;
};

// A copy of the folder of project `anl` with its side files in `ziel`; the copy's path.
inline QString projektKopie(const QString& anl, const QString& ziel)
{
    const QDir quelle = QFileInfo(anl).absoluteDir();
    QDir().mkpath(ziel);
    for (const QString& n : quelle.entryList(QDir::Files))
        QFile::copy(quelle.filePath(n), ziel + u'/' + n);
    return ziel + u'/' + QFileInfo(anl).fileName();
}

}  // namespace planor::test
