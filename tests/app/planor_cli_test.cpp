// planor-cli as a script drives it: a separate process without a display.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Ergebnis {
    int status;
    QString aus;
    QString fehler;
};

Ergebnis planorCli(const QStringList& argumente, const QString& arbeitsordner = QString())
{
    QProcess p;
    p.setWorkingDirectory(arbeitsordner);
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

namespace {

QString golden(const char* name) { return QStringLiteral(PLANOR_TESTDATA "/projekt/") + QLatin1String(name); }

QByteArray lesen(const QString& pfad)
{
    QFile f(pfad);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void schreiben(const QString& pfad, const QByteArray& bytes)
{
    QFile f(pfad);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

// A failing command: exit 1, the error report's text on stderr, nothing else.
void scheitert(const QString& datei, const char* nummer)
{
    const Ergebnis e = planorCli({QStringLiteral("info"), datei});
    EXPECT_EQ(e.status, 1) << qPrintable(e.fehler);
    EXPECT_TRUE(e.fehler.startsWith(QStringLiteral("--- Programmfehler ---\n Fehler in : Laden_und_Speichern : Load_plt\n"
                                                   " Fehlernummer: ") + QLatin1String(nummer) + QStringLiteral(" -> ")))
        << qPrintable(e.fehler);
    EXPECT_TRUE(e.aus.isEmpty());
}

}  // namespace

TEST(PlanorCliInfo, PrintsDimensionsSettingsModulesStationsAndRoutes)
{
    const Ergebnis e = planorCli({QStringLiteral("info"), golden("Golden.anl")});
    EXPECT_EQ(e.status, 0) << qPrintable(e.fehler);
    const QStringList zeilen = e.aus.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(zeilen.size(), 8);
    EXPECT_EQ(zeilen.at(0), QStringLiteral("Dimensionen: 10 x 9"));
    EXPECT_EQ(zeilen.at(1), QStringLiteral("Grundeinst: BlkZustMeld=1 BetriebszustSpeichern=1 LocoNetStatMessage=0 "
                                           "ZugKatRD2_47231=0 LNCV14=36736 LNCV17=8 LNCV18=10 LNCV19=10"));
    EXPECT_EQ(zeilen.at(2), QStringLiteral("Modul: x=5 y=3 Typ=800 ArtNr=47220 Adresse=12 Betriebsart=Einfahrt"));
    EXPECT_EQ(zeilen.at(5), QStringLiteral("Modul: x=8 y=5 Typ=840 ArtNr=47320 Adresse=300 Betriebsart=Block/Einfm."));
    EXPECT_EQ(zeilen.at(6), QStringLiteral("Bahnhof: 1 Name=Nord Art=1 Einfahrt=5,3 Ausfahrt=0,0 Gleise=1=6,3"));
    EXPECT_EQ(zeilen.at(7), QStringLiteral("Fahrstraße: 1 Name=Nord - Gleis 1 Nummer=1 Sub=1 Art=2 FS-Nr=0 "
                                           "Ausloeser=120 Befehle=W12 g; S40 rot; W13 r"));
}

TEST(PlanorCliResave, WritesTheProjectAndItsSideFilesUnderTheSameName)
{
    QTemporaryDir ziel;
    const Ergebnis e = planorCli({QStringLiteral("resave"), golden("Golden.anl"), ziel.path()});
    EXPECT_EQ(e.status, 0) << qPrintable(e.fehler);
    QByteArray erwartet = lesen(golden("Golden.anl"));
    erwartet.replace("Bhf_Daten: 1,  Nord", "Bhf_Daten: 1,   Nord");
    erwartet.replace("FS_Daten: 1,  Nord - Gleis 1", "FS_Daten: 1,   Nord - Gleis 1");
    const QByteArray neu = lesen(ziel.filePath(QStringLiteral("Golden.anl")));
    // All but the date of the header line.
    EXPECT_EQ(neu.mid(neu.indexOf("\r\n")), erwartet.mid(erwartet.indexOf("\r\n")));
    for (const char* seite : {"47220_12.lcv", "47320_300.lcv"}) {
        const QByteArray a = lesen(ziel.filePath(QLatin1String(seite))), b = lesen(golden(seite));
        EXPECT_EQ(a.mid(a.indexOf("\r\n")), b.mid(b.indexOf("\r\n"))) << seite;
    }
    EXPECT_EQ(QDir(ziel.path()).entryList(QDir::Files).size(), 3);
}

TEST(PlanorCliResave, MissingTargetFolderFails)
{
    const Ergebnis e = planorCli({QStringLiteral("resave"), golden("Golden.anl"), QStringLiteral("/gibt/es/nicht")});
    EXPECT_EQ(e.status, 1);
}

TEST(PlanorCliBadInput, MissingFile)
{
    scheitert(QStringLiteral("/gibt/es/nicht.anl"), "53");
}

TEST(PlanorCliBadInput, LineWithoutColon)
{
    QTemporaryDir d;
    schreiben(d.filePath(QStringLiteral("a.anl")), "DimensionenX: 9\r\nkein Doppelpunkt\r\n");
    scheitert(d.filePath(QStringLiteral("a.anl")), "5");
}

TEST(PlanorCliBadInput, GarbageAndBinaryData)
{
    QTemporaryDir d;
    schreiben(d.filePath(QStringLiteral("text.anl")), "Hallo: Welt\r\nnoch: etwas\r\n");
    scheitert(d.filePath(QStringLiteral("text.anl")), "5");
    QRandomGenerator zufall(4711);
    for (int i = 0; i < 5; ++i) {
        QByteArray bytes(4096, Qt::Uninitialized);
        for (char& c : bytes)
            c = static_cast<char>(zufall.bounded(256));
        if (i == 0)
            bytes.prepend("DimensionenX: 9\r\n");
        schreiben(d.filePath(QStringLiteral("bin.anl")), bytes);
        const Ergebnis e = planorCli({QStringLiteral("info"), d.filePath(QStringLiteral("bin.anl"))});
        EXPECT_EQ(e.status, 1) << i;
        EXPECT_TRUE(e.fehler.startsWith(QStringLiteral("--- Programmfehler ---\n"))) << i;
    }
}

TEST(PlanorCliBadInput, SideFileIndexAbove460)
{
    QTemporaryDir d;
    schreiben(d.filePath(QStringLiteral("a.anl")),
              "DimensionenX: 9\r\nDimensionenY: 9\r\nXY: 2, 2, 800\r\nXY_ArtNr: 2, 2, 47220\r\n"
              "XY_File: 2, 2, 47220_5.lcv\r\n");
    schreiben(d.filePath(QStringLiteral("47220_5.lcv")), "4722:\r\n  0= 5 ; 461= 1\r\n");
    scheitert(d.filePath(QStringLiteral("a.anl")), "9");
}

TEST(PlanorCliBadInput, MissingSideFileFailsAfterSayingWhich)
{
    QTemporaryDir d;
    schreiben(d.filePath(QStringLiteral("a.anl")),
              "DimensionenX: 9\r\nDimensionenY: 9\r\nXY: 2, 2, 800\r\nXY_ArtNr: 2, 2, 47220\r\n"
              "XY_File: 2, 2, 47220_5.lcv\r\n");
    const Ergebnis e = planorCli({QStringLiteral("info"), d.filePath(QStringLiteral("a.anl"))});
    EXPECT_EQ(e.status, 1);
    EXPECT_EQ(e.fehler, QStringLiteral("Fehler beim Laden: Das File 47220_5.lcv existiert nicht!\n"));
}
