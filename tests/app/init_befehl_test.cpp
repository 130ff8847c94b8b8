// planor-cli init (Part 2.5 without a display): against the in-process
// simulator, and end to end through a pseudo-terminal to a running
// `planor-cli sim`, read back with planor-cli lncv.
#include "tests/support/cli.h"

using namespace planor::test;

namespace {

Lauf cli(const QString& befehl, const QStringList& a)
{
    QProcess p;
    p.start(QStringLiteral(PLANOR_CLI), QStringList{befehl} + a);
    if (!p.waitForFinished(Grenze)) {
        p.kill();
        p.waitForFinished(Grenze);
        return {-1, {}, {}};
    }
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()), QString::fromUtf8(p.readAllStandardError())};
}

Lauf init(const QStringList& a) { return cli(QStringLiteral("init"), a); }

}  // namespace

TEST(PlanorCliInit, InitialisesTheOnlyModuleOfTheInProcessSimulator)
{
    const Lauf l = init(argumente("--article 47220 --address 300 --address2 301 --sensors single --port sim "
                                  "--module 47220:12"));
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_TRUE(l.fehler.isEmpty()) << l.fehler.toStdString();
    const QStringList zeilen = l.aus.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_GE(zeilen.size(), 4);
    EXPECT_EQ(zeilen.first(), QStringLiteral("Modul initialisieren: 47220"));
    EXPECT_TRUE(zeilen.contains(QStringLiteral("Achtung! Haben Sie nur ein Modul an LocoNet angeschlossen? ja")));
    EXPECT_TRUE(zeilen.contains(QStringLiteral("2%")));
    EXPECT_TRUE(zeilen.contains(QStringLiteral("100%")));
    EXPECT_EQ(zeilen.last(), QStringLiteral("Modul initialisiert."));
}

TEST(PlanorCliInit, UniversalControllerNeedsNoSensorOption)
{
    const Lauf l = init(argumente("--article 47330 --address 4095 --port sim --module 47330:1"));
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_FALSE(l.aus.contains(QStringLiteral("%"))) << "no progress for the universal controllers";
}

TEST(PlanorCliInit, NoModuleFailsWithProgErrorMeldungsText)
{
    const Lauf l = init(argumente("--article 47240 --address 10 --sensors double --port sim --module 47220:12"));
    EXPECT_EQ(l.status, 1);
    EXPECT_EQ(l.fehler, QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls: Fehler:\nModul reagiert nicht\n"));
}

TEST(PlanorCliInit, AWrongAddressIsRefusedWithTheFormsMessage)
{
    const Lauf l = init(argumente("--article 47220 --address 4096 --sensors double --port sim --module 47220:12"));
    EXPECT_EQ(l.status, 1);
    EXPECT_EQ(l.fehler, QStringLiteral("Fehler: Moduladresse1, Moduladresse2 oder Konfiguration der Sensoreingänge\n"
                                       "nicht oder nicht richtig eingestellt! Bitte ändern!\n"));
    const Lauf ohne = init(argumente("--article 47220 --address 10 --port sim --module 47220:12"));
    EXPECT_EQ(ohne.status, 1) << "neither sensor option chosen";
}

TEST(PlanorCliInit, UsageErrorsExitWith2)
{
    EXPECT_EQ(init(argumente("--article 4711 --address 1 --sensors double --port sim")).status, 2);
    EXPECT_EQ(init(argumente("--article 47220 --address 1 --sensors triple --port sim")).status, 2);
    EXPECT_EQ(init(argumente("--article 47220 --address 1 --sensors double")).status, 2);
    EXPECT_EQ(init(argumente("--article 47220 --bogus 1 --port sim")).status, 2);
}

TEST(PlanorCliInit, ThroughAPseudoTerminalToTheSimulator)
{
    SimProzess sim(argumente("--pty --module 47120:12"));
    const QString pty = sim.zeile(QStringLiteral("PTY "));
    ASSERT_FALSE(pty.isEmpty());
    const QString port = QStringLiteral("serial:%1?kind=usb").arg(pty);
    const Lauf l = init(argumente("--article 47120 --address 77 --address2 78 --sensors single") +
                        QStringList{QStringLiteral("--port"), port});
    ASSERT_EQ(l.status, 0) << l.fehler.toStdString();
    // The module now answers at its new address with the written values.
    for (const auto& [lncv, wert] : {std::pair{"0", "77"}, {"1", "78"}, {"2", "1"}, {"15", "1"}, {"5", "0"}}) {
        const Lauf r = cli(QStringLiteral("lncv"), argumente("read --article 47120 --address 77 --lncv") +
                                                      QStringList{QString::fromLatin1(lncv), QStringLiteral("--port"), port});
        EXPECT_EQ(r.status, 0) << r.fehler.toStdString();
        EXPECT_EQ(r.aus, QString::fromLatin1(wert) + u'\n') << "LNCV " << lncv;
    }
}
