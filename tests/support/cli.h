#pragma once
// planor-cli sim as a separate process for the end-to-end tests: started,
// read line by line, ended (SIGTERM, then SIGKILL) when the test ends. Every
// wait is bounded.

#include <QDeadlineTimer>
#include <QHostAddress>
#include <QProcess>
#include <QTcpSocket>

#include "tests/support/daten.h"

#include <gtest/gtest.h>

#include <memory>

namespace planor::test {

inline constexpr int Grenze = 10000;  // ms for anything to come

// Arguments from a text with blanks between them.
inline QStringList argumente(const char* text) { return QString::fromLatin1(text).split(u' '); }

// The simulator running; ended (SIGTERM, then SIGKILL) when the test ends.
class SimProzess {
public:
    explicit SimProzess(const QStringList& argumente)
    {
        p.setProgram(QStringLiteral(PLANOR_CLI));
        p.setArguments(QStringList{QStringLiteral("sim")} + argumente);
        p.start();
        EXPECT_TRUE(p.waitForStarted(Grenze));
    }
    ~SimProzess()
    {
        if (p.state() == QProcess::NotRunning)
            return;
        p.kill();
        p.waitForFinished(Grenze);
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

    // SIGTERM, and the exit code of a clean end; -1 if it did not end so.
    int beenden()
    {
        p.terminate();
        if (!p.waitForFinished(Grenze) || p.exitStatus() != QProcess::NormalExit)
            return -1;
        return p.exitCode();
    }

    QProcess p;
};

// Reads from a device until `n` bytes have come or the limit passes.
inline QByteArray lesen(QIODevice& d, int n, int ms = Grenze)
{
    QByteArray daten;
    QDeadlineTimer frist(ms);
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

struct Lauf {
    int status;
    QString aus;
    QString fehler;
};

inline Lauf kurz(const QStringList& a)
{
    QProcess p;
    p.start(QStringLiteral(PLANOR_CLI), QStringList{QStringLiteral("sim")} + a);
    if (!p.waitForFinished(Grenze)) {
        p.kill();
        p.waitForFinished(Grenze);
        return {-1, {}, {}};
    }
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

inline const char* const SitzungStart = "ED 0F 08 05 00 21 40 72 12 00 00 0C 00 00 1D";  // 4722, address 12
inline const char* const Antwort = "E5 0F 05 49 4B 1F 00 72 12 00 00 0C 00 00 61";

inline std::unique_ptr<QTcpSocket> verbinden(SimProzess& sim)
{
    const quint16 port = sim.zeile(QStringLiteral("TCP ")).toUShort();
    EXPECT_NE(port, 0);
    auto s = std::make_unique<QTcpSocket>();
    s->connectToHost(QHostAddress::LocalHost, port);
    EXPECT_TRUE(s->waitForConnected(Grenze));
    EXPECT_TRUE(zeileLesen(*s).startsWith("VERSION Planor-Simulator "));
    return s;
}

}  // namespace planor::test
