// planor-cli as a script drives it: a separate process without a display.
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

namespace {

struct Ergebnis {
    int status;
    QString aus;
    QString fehler;
};

Ergebnis planorCli(const QStringList& argumente)
{
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(PLANOR_CLI), argumente);
    EXPECT_TRUE(p.waitForFinished(30000));
    EXPECT_EQ(p.exitStatus(), QProcess::NormalExit);
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

}  // namespace

TEST(PlanorCli, VersionPrintsTheVersionText)
{
    const Ergebnis e = planorCli({QStringLiteral("--version")});
    EXPECT_EQ(e.status, 0);
    EXPECT_EQ(e.aus, QStringLiteral("1.1.6\n"));
    EXPECT_TRUE(e.fehler.isEmpty());
}

TEST(PlanorCli, HelpListsTheCommands)
{
    const Ergebnis e = planorCli({QStringLiteral("--help")});
    EXPECT_EQ(e.status, 0);
    EXPECT_TRUE(e.aus.startsWith(QStringLiteral("Aufruf: planor-cli BEFEHL")));
    EXPECT_TRUE(e.aus.contains(QStringLiteral("--version")));
}

TEST(PlanorCli, UnknownCommandIsAUsageError)
{
    const Ergebnis e = planorCli({QStringLiteral("zaubern")});
    EXPECT_EQ(e.status, 2);
    EXPECT_TRUE(e.aus.isEmpty());
    EXPECT_TRUE(e.fehler.startsWith(QStringLiteral("Unbekannter Befehl: zaubern\n")));
    EXPECT_EQ(planorCli({}).status, 2);
}
