// planor-cli lncv read|write as a script drives it: against the in-process
// simulator, and end to end through a pseudo-terminal and through TCP to a
// running `planor-cli sim`.
#include "tests/support/cli.h"

using namespace planor::test;

namespace {

Lauf lncv(const QStringList& a)
{
    QProcess p;
    p.start(QStringLiteral(PLANOR_CLI), QStringList{QStringLiteral("lncv")} + a);
    if (!p.waitForFinished(Grenze)) {
        p.kill();
        p.waitForFinished(Grenze);
        return {-1, {}, {}};
    }
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

}  // namespace

TEST(PlanorCliLncv, ReadsAValueFromTheInProcessSimulator)
{
    const Lauf l = lncv(argumente("read --article 47220 --address 12 --lncv 0 --port sim --module 47220:12"));
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_EQ(l.aus, QStringLiteral("12\n"));
    const Lauf version = lncv(argumente("read --article 5330 --address 3 --lncv 16 --port sim --module 5330:3:201"));
    EXPECT_EQ(version.aus, QStringLiteral("201\n")) << version.fehler.toStdString();
}

TEST(PlanorCliLncv, WritesAValue)
{
    const Lauf l =
        lncv(argumente("write --article 47320 --address 100 --lncv 300 --value 65535 --port sim --module 47320:100"));
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_TRUE(l.aus.isEmpty());
}

TEST(PlanorCliLncv, AMissingModuleFailsWithProgErrorMeldungsText)
{
    const Lauf l = lncv(argumente("read --article 47220 --address 7 --lncv 0 --port sim --module 47220:12"));
    EXPECT_EQ(l.status, 1);
    EXPECT_EQ(l.fehler, QStringLiteral("Modul reagiert nicht\n"));
    EXPECT_TRUE(l.aus.isEmpty());
}

TEST(PlanorCliLncv, ARefusedWriteFails)
{
    // LNCV 16 of a receiver is its firmware number: the module refuses it.
    const Lauf l = lncv(argumente("write --article 47220 --address 12 --lncv 16 --value 1 --port sim --module 47220:12"));
    EXPECT_EQ(l.status, 1);
    EXPECT_EQ(l.fehler, QStringLiteral("Programmierung des Wertes gescheitert\n"));
}

TEST(PlanorCliLncv, ThroughAPseudoTerminalToTheSimulator)
{
    SimProzess sim(argumente("--pty --module 47220:12"));
    const QString pty = sim.zeile(QStringLiteral("PTY "));
    ASSERT_FALSE(pty.isEmpty());
    const Lauf l = lncv({QStringLiteral("read"), QStringLiteral("--article"), QStringLiteral("47220"),
                         QStringLiteral("--address"), QStringLiteral("12"), QStringLiteral("--lncv"),
                         QStringLiteral("15"), QStringLiteral("--port"), QStringLiteral("serial:%1?kind=usb").arg(pty)});
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_FALSE(l.aus.isEmpty());
}

TEST(PlanorCliLncv, ThroughTcpToTheSimulatorsLbServer)
{
    SimProzess sim(argumente("--tcp 0 --module 47220:12"));
    const QString port = sim.zeile(QStringLiteral("TCP "));
    ASSERT_FALSE(port.isEmpty());
    const Lauf l = lncv({QStringLiteral("read"), QStringLiteral("--article"), QStringLiteral("47220"),
                         QStringLiteral("--address"), QStringLiteral("12"), QStringLiteral("--lncv"),
                         QStringLiteral("0"), QStringLiteral("--port"), QStringLiteral("tcp:127.0.0.1:") + port});
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_EQ(l.aus, QStringLiteral("12\n"));
}

TEST(PlanorCliLncv, UsageErrorsExit2)
{
    for (const char* falsch : {"", "lesen --article 1", "read --article 47220 --address 1 --lncv 0",
                               "read --article 47220 --address 1 --lncv 0 --port sim --value 3",
                               "write --article 47220 --address 1 --lncv 0 --port sim",
                               "read --article 47220 --address 1 --lncv 0 --port com7"}) {
        const Lauf l = lncv(QString::fromLatin1(falsch).split(u' ', Qt::SkipEmptyParts));
        EXPECT_EQ(l.status, 2) << falsch;
        EXPECT_TRUE(l.fehler.contains(QStringLiteral("Aufruf: planor-cli lncv"))) << falsch;
    }
}
