// planor-cli program and read end to end: through a pseudo-terminal to a
// running `planor-cli sim` that holds the demo project's modules, with its
// state file as the modules' memory between runs.
#include "tests/support/cli.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <map>

using namespace planor::test;

namespace {

using Werte = std::map<int, long>;
using Module = std::map<std::pair<long, long>, Werte>;  // (article, address) → values

// The values of a state file ("modul A ADR", "lncv I V"); missing values are 0.
Module zustandLesen(const QString& pfad)
{
    Module m;
    Werte* aktuell = nullptr;
    for (const QByteArray& roh : datei(pfad).split('\n')) {
        const QList<QByteArray> t = roh.trimmed().split(' ');
        if (t.size() == 3 && t[0] == "modul")
            aktuell = &m[{t[1].toLong(), t[2].toLong()}];
        else if (t.size() == 3 && t[0] == "lncv" && aktuell)
            (*aktuell)[t[1].toInt()] = t[2].toLong();
    }
    return m;
}

constexpr int ProgGrenze = 120000;  // ms for a whole bulk run

class ProgrammBefehle : public ::testing::Test {
protected:
    // The simulator with the demo's modules, fast (no wire time, no reaction time).
    std::unique_ptr<Prozess> starten(const QStringList& mehr = {})
    {
        auto s = std::make_unique<Prozess>(QStringLiteral("sim"),
                                           argumente("--pty --wire-time off --reaction-ms 0 --layout " PLANOR_DEMO
                                                     " --state") << zustand << mehr);
        port = seriell(s->zeile(QStringLiteral("PTY ")));
        return s;
    }

    Lauf befehl(const char* was, const QString& projekt, const QStringList& mehr = {}, const QByteArray& eingabe = {})
    {
        return planorCli(QString::fromLatin1(was), QStringList{projekt, QStringLiteral("--port"), port} + mehr, eingabe,
                         ProgGrenze);
    }

    QTemporaryDir ordner;
    const QString zustand = ordner.filePath(QStringLiteral("zustand.txt"));
    const QString demoOrdner = QFileInfo(QStringLiteral(PLANOR_DEMO)).absolutePath();
    QString port;
};

} // namespace

// The modules get the project's values, a second run writes nothing; reading back
// into a copy with a changed value brings the module's home, and --save writes it.
TEST_F(ProgrammBefehle, ProgramTheDemoThenReadItBack)
{
    {
        auto sim = starten();
        const Lauf l = befehl("program", QStringLiteral(PLANOR_DEMO));
        EXPECT_EQ(l.status, 0) << l.fehler.toStdString() << l.aus.toStdString();
        EXPECT_TRUE(l.aus.contains(QStringLiteral("Modul 5 von 5\n")));
        EXPECT_EQ(l.aus.count(QStringLiteral("Modul Programmierung -  O.K.  \n")), 5);
        EXPECT_TRUE(l.aus.endsWith(QStringLiteral("Programmierung beendet !!!\n"))) << l.aus.toStdString();
        EXPECT_EQ(sim->ende(SIGTERM), 0);
    }
    Module m = zustandLesen(zustand);
    EXPECT_EQ(m.size(), 5u);
    EXPECT_EQ((m[{47220, 1}][2]), 23) << "LNCV 2 of 47220_1.lcv";

    // Again: every value is read, none written, the modules' memory unchanged.
    const QByteArray vorher = datei(zustand);
    {
        auto sim = starten({QStringLiteral("--monitor")});
        // The monitor's lines are read while the command runs, so that the
        // simulator never blocks on a full pipe.
        QProcess p;
        p.start(QStringLiteral(PLANOR_CLI), {QStringLiteral("program"), QStringLiteral(PLANOR_DEMO), QStringLiteral("--port"), port});
        QByteArray monitorBytes;
        QDeadlineTimer frist(ProgGrenze);
        while (!p.waitForFinished(5) && !frist.hasExpired()) {
            sim->p.waitForReadyRead(5);
            monitorBytes += sim->p.readAllStandardOutput();
        }
        EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
        EXPECT_EQ(sim->ende(SIGTERM), 0);
        monitorBytes += sim->p.readAllStandardOutput();
        const QString monitor = QString::fromUtf8(monitorBytes);
        EXPECT_TRUE(monitor.contains(QStringLiteral("BUS ED 0F 08 05 00 21"))) << "the second run reads";
        EXPECT_FALSE(monitor.contains(QStringLiteral("BUS ED 0F 08 05 00 20"))) << "and writes nothing";
    }
    EXPECT_EQ(datei(zustand), vorher);

    const QString kopieOrdner = ordner.filePath(QStringLiteral("kopie"));
    const QString projekt = projektKopie(QStringLiteral(PLANOR_DEMO), kopieOrdner);
    const QString lcv = kopieOrdner + QStringLiteral("/47220_1.lcv");
    const QByteArray echt = datei(lcv);
    schreiben(lcv, QByteArray(echt).replace("2=    23 ", "2=  7777 "));
    ASSERT_TRUE(datei(lcv).contains("7777"));
    {
        auto sim = starten();
        const Lauf l = befehl("read", projekt, {QStringLiteral("--save")});
        EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
        EXPECT_TRUE(l.aus.endsWith(QStringLiteral("Auslesen beendet !!!\n"))) << l.aus.toStdString();
        EXPECT_EQ(sim->ende(SIGTERM), 0);
    }
    EXPECT_TRUE(datei(lcv).contains("2=    23 ;")) << datei(lcv).toStdString();
}

TEST_F(ProgrammBefehle, OneModuleByCell)
{
    auto sim = starten();
    // The demo's first receiver sits at (6, 2) (47220_1.lcv).
    const Lauf l = befehl("program", QStringLiteral(PLANOR_DEMO), {QStringLiteral("--cell"), QStringLiteral("6,2")});
    EXPECT_EQ(l.status, 0) << l.fehler.toStdString();
    EXPECT_EQ(l.aus.count(QStringLiteral("wird programmiert \n")), 1) << l.aus.toStdString();
    EXPECT_TRUE(l.aus.contains(QStringLiteral("Modul in Spalte 6 Zeile 2 wird programmiert \n")));
    EXPECT_EQ(sim->ende(SIGTERM), 0);
    Module m = zustandLesen(zustand);
    EXPECT_EQ((m[{47220, 1}][2]), 23);
    EXPECT_EQ((m[{47220, 2}][2]), 0) << "the other modules stay at factory values";

    const Lauf leer = befehl("program", QStringLiteral(PLANOR_DEMO), {QStringLiteral("--cell"), QStringLiteral("1,1")});
    EXPECT_EQ(leer.status, 1);
}

// A module that stays silent, with each answer to --on-error; ask reads its answers from stdin.
TEST_F(ProgrammBefehle, OnError)
{
    struct Fall {
        const char* modul;   // the silent one
        const char* antwort; // nullptr: the default, abort
        QByteArray eingabe;
        int fehlerhaft;      // failed tries
        int ok;              // modules programmed
        bool beendet;        // the run reaches its end
        int fragen;
    } const faelle[] = {
        {"47220:2", "skip", {}, 1, 4, true, 0},
        {"47220:1", nullptr, {}, 1, 1, false, 0},
        // Bounded: the first try and 3 retries.
        {"47220:1", "retry", {}, 4, 4, true, 0},
        // An answer it does not know is asked again; then "nochmal", then "nächstes".
        {"47220:1", "ask", "x\nn\nä\n", 2, 4, true, 3},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(std::string(f.modul) + ' ' + (f.antwort ? f.antwort : ""));
        auto sim = starten({QStringLiteral("--silent"), QString::fromLatin1(f.modul)});
        const Lauf l = befehl("program", QStringLiteral(PLANOR_DEMO),
                              f.antwort ? QStringList{QStringLiteral("--on-error"), QString::fromLatin1(f.antwort)}
                                        : QStringList{},
                              f.eingabe);
        EXPECT_EQ(l.status, 1);
        EXPECT_TRUE(l.fehler.contains(QStringLiteral("Modul reagiert nicht"))) << l.fehler.toStdString();
        EXPECT_EQ(l.aus.count(QStringLiteral("Achtung Fehler: Modul Programmierung fehlerhaft\n")), f.fehlerhaft);
        EXPECT_EQ(l.aus.count(QStringLiteral("Modul Programmierung -  O.K.  \n")), f.ok) << l.aus.toStdString();
        EXPECT_EQ(l.aus.endsWith(QStringLiteral("Programmierung beendet !!!\n")), f.beendet);
        EXPECT_EQ(l.aus.count(QStringLiteral("nochmal (n), nächstes Modul (ä) oder Abbruch (a)? ")), f.fragen);
        if (!f.beendet) {
            // abort stops at (6, 2), the second module in the run's order.
            EXPECT_TRUE(l.aus.contains(QStringLiteral("X: 6 Y: 2\n"))) << l.aus.toStdString();
            EXPECT_FALSE(l.aus.contains(QStringLiteral("Modul 3 von 5")));
        }
    }
}
