// planor-cli lncv and init: against the in-process simulator, and end to end
// through a pseudo-terminal or TCP to a running `planor-cli sim`.
#include "tests/support/cli.h"

using namespace planor::test;

// One call each; the module's failures end with status 1 and the program's own message.
TEST(LncvInitBefehl, CallsAgainstTheInProcessSimulator)
{
    struct Fall {
        const char* befehl;
        const char* argumente;
        int status;
        const char* aus;     // nullptr: not checked
        const char* fehler;  // nullptr: not checked
    } const faelle[] = {
        {"lncv", "read --article 47220 --address 12 --lncv 0 --port sim --module 47220:12", 0, "12\n", ""},
        {"lncv", "read --article 5330 --address 3 --lncv 16 --port sim --module 5330:3:201", 0, "201\n", ""},
        {"lncv", "write --article 47320 --address 100 --lncv 300 --value 65535 --port sim --module 47320:100", 0, "",
         ""},
        {"lncv", "read --article 47220 --address 7 --lncv 0 --port sim --module 47220:12", 1, "",
         "Modul reagiert nicht\n"},
        // LNCV 16 of a receiver is its firmware number: the module refuses it.
        {"lncv", "write --article 47220 --address 12 --lncv 16 --value 1 --port sim --module 47220:12", 1, nullptr,
         "Programmierung des Wertes gescheitert\n"},
        {"init", "--article 47240 --address 10 --sensors double --port sim --module 47220:12", 1, nullptr,
         "Fehler bei Lesen oder Programmieren eines Moduls: Fehler:\nModul reagiert nicht\n"},
        {"init", "--article 47220 --address 4096 --sensors double --port sim --module 47220:12", 1, nullptr,
         "Fehler: Moduladresse1, Moduladresse2 oder Konfiguration der Sensoreingänge\n"
         "nicht oder nicht richtig eingestellt! Bitte ändern!\n"},
        {"init", "--article 47220 --address 10 --port sim --module 47220:12", 1, nullptr, nullptr},
        // The universal controllers need no sensor option and show no progress.
        {"init", "--article 47330 --address 4095 --port sim --module 47330:1", 0, nullptr, ""},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(std::string(f.befehl) + ' ' + f.argumente);
        const Lauf l = planorCli(QString::fromLatin1(f.befehl), argumente(f.argumente));
        EXPECT_EQ(l.status, f.status) << l.fehler.toStdString();
        EXPECT_TRUE(!f.aus || l.aus == QString::fromUtf8(f.aus)) << l.aus.toStdString();
        EXPECT_TRUE(!f.fehler || l.fehler == QString::fromUtf8(f.fehler)) << l.fehler.toStdString();
        EXPECT_FALSE(l.aus.contains(u'%'));
    }
}

TEST(LncvInitBefehl, InitTalksToTheUserAndShowsProgress)
{
    const Lauf l = planorCli(QStringLiteral("init"), argumente("--article 47220 --address 300 --address2 301 "
                                                               "--sensors single --port sim --module 47220:12"));
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_TRUE(l.fehler.isEmpty());
    const QStringList z = l.aus.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_GE(z.size(), 4);
    EXPECT_EQ(z.first(), QStringLiteral("Modul initialisieren: 47220"));
    EXPECT_TRUE(z.contains(QStringLiteral("Achtung! Haben Sie nur ein Modul an LocoNet angeschlossen? ja")));
    EXPECT_TRUE(z.contains(QStringLiteral("2%")));
    EXPECT_TRUE(z.contains(QStringLiteral("100%")));
    EXPECT_EQ(z.last(), QStringLiteral("Modul initialisiert."));
}

// Each call ends its module's programming session on the wire before it closes the port: some
// modules keep written values only when the session ends.
TEST(LncvInitBefehl, SessionsEndOnTheWireThroughAPseudoTerminalAndThroughTcp)
{
    for (const bool tcp : {false, true}) {
        Bus bus("--monitor --module 47220:12");
        const QString port = tcp ? QStringLiteral("tcp:127.0.0.1:") + bus.tcp : seriell(bus.pty);
        SCOPED_TRACE(port.toStdString());
        for (const char* aufruf : {"lncv read --article 47220 --address 12 --lncv 0",
                                   "lncv write --article 47220 --address 12 --lncv 2 --value 1",
                                   "init --article 47220 --address 30 --address2 31 --sensors single"}) {
            QStringList a = argumente(aufruf) << QStringLiteral("--port") << port;
            const Lauf l = planorCli(a.takeFirst(), a);
            EXPECT_EQ(l.status, 0) << aufruf << l.fehler.toStdString();
            EXPECT_TRUE(!a.contains(QStringLiteral("read")) || l.aus == QStringLiteral("12\n")) << l.aus.toStdString();
            EXPECT_FALSE(bus.sim.zeile(QStringLiteral("BUS E5 0F 08 05 00 21 ")).isEmpty()) << aufruf << ": Prog_Off";
        }
    }
}

