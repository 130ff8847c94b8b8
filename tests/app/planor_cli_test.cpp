// planor-cli as a script drives it: a separate process without a display,
// its exit code and its two output streams.
#include "tests/support/cli.h"

#include <QTemporaryDir>

using namespace planor::test;

namespace {

QString golden(const char* name) { return QStringLiteral(PLANOR_TESTDATA "/projekt/") + QLatin1String(name); }

// All but the date of the header line.
QByteArray rumpf(const QByteArray& b) { return b.mid(b.indexOf("\r\n")); }

}  // namespace

// Wrong calls exit 2 with the reason and the command's call on stderr, failures before any work exit 1;
// --help shows the call on stdout.
TEST(PlanorCli, WrongCallsAndHelp)
{
    struct Fall {
        const char* befehl;
        const char* argumente;
        int status;
        const char* fehler;  // start of stderr, or of stdout for status 0
    } const faelle[] = {
        {"zaubern", "", 2, "Unbekannter Befehl: zaubern\n"},
        {"", "", 2, ""},
        {"", "--help", 0, "Aufruf: planor-cli BEFEHL"},
        {"decode", "", 2, "Keine Bytes angegeben.\n"},
        {"decode", "83 7C zz", 2, "Kein hexadezimales Byte: zz\n"},
        {"decode", "--help", 0, "Aufruf: planor-cli decode [--hex] [--ascii-hex] HEX...\n"},
        {"lncv", "lesen --article 1", 2, ""},
        {"lncv", "read --article 47220 --address 1 --lncv 0", 2, ""},
        {"lncv", "read --article 47220 --address 1 --lncv 0 --port com7", 2, ""},
        {"init", "--article 4711 --address 1 --sensors double --port sim", 2, ""},
        {"program", PLANOR_TESTDATA "/projekt/Golden.anl", 2, ""},
        {"program", PLANOR_TESTDATA "/projekt/Golden.anl --port sim --on-error maybe", 2, ""},
        {"read", PLANOR_TESTDATA "/projekt/Golden.anl --port sim --cell 3", 2, ""},
        {"monitor", "", 2, "--port ist nötig.\n"},
        {"monitor", "--port sim --zaubern", 2, "Unbekannte Option: --zaubern\n"},
        {"monitor", "--port serial:/dev/planor-fehlt?kind=usb", 1,
         "ComPort öffnen: Die Schnittstelle /dev/planor-fehlt ist nicht vorhanden.\nBitte prüfen Sie, ob das Interface "
         "angeschlossen ist, und wählen Sie unter \u201EComPort Einstellungen\u201C den richtigen Anschluss.\n"},
        {"monitor", "--port sim --trace /proc/planor/verlauf.txt", 1,
         "Die Datei \"/proc/planor/verlauf.txt\" kann nicht geschrieben werden: "},
        {"monitor", "--help", 0, "Aufruf: planor-cli monitor --port PORT [--hex] [--ascii-hex] [--trace DATEI]\n"},
        {"sim", "--zaubern", 2, "Unbekannte Option: --zaubern\n"},
        {"sim", "", 2, "Bitte --pty oder --tcp PORT angeben."},
        {"sim", "--pty --silent 47220:9", 2, "--silent: Es gibt kein simuliertes Modul 47220:9."},
        {"sim", "--help", 0, "Aufruf: planor-cli sim"},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(std::string(f.befehl) + ' ' + f.argumente);
        const QString befehl = QString::fromLatin1(f.befehl);
        const Lauf l = planorCli(befehl, argumente(f.argumente));
        EXPECT_EQ(l.status, f.status) << l.fehler.toStdString();
        EXPECT_TRUE((f.status ? l.fehler : l.aus).startsWith(QString::fromUtf8(f.fehler))) << l.fehler.toStdString();
        if (f.status == 0)
            continue;
        EXPECT_TRUE(l.aus.isEmpty());
        const bool mitAufruf = f.status == 2 && (befehl == QLatin1String("lncv") || befehl == QLatin1String("monitor"));
        EXPECT_TRUE(!mitAufruf || l.fehler.contains(QStringLiteral("Aufruf: planor-cli ") + befehl)) << l.fehler.toStdString();
    }
}

// The monitor text over bytes from the command line, the decoder's state
// running from one message to the next: the query, then its answer.
TEST(PlanorCli, DecodeGivesOneLinePerMessage)
{
    const Lauf l = planorCli(QStringLiteral("decode"), {QStringLiteral("B0 00 30 7F BC"), QStringLiteral("00 00 43"),
                                                        QStringLiteral("b4 3c 20 57")});
    EXPECT_EQ(l.status, 0);
    EXPECT_EQ(l.aus, QStringLiteral("Mag.-Art.: 1 - grün - ein \nStatusanfrage nach Mag.-Art. 1\n Antwort: grün\n"));
    EXPECT_TRUE(l.fehler.isEmpty());
}

TEST(PlanorCli, InfoPrintsDimensionsSettingsModulesStationsAndRoutes)
{
    const Lauf l = planorCli(QStringLiteral("info"), {golden("Golden.anl")});
    EXPECT_EQ(l.status, 0) << qPrintable(l.fehler);
    const QStringList z = l.aus.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(z.size(), 8);
    EXPECT_EQ(z.at(0), QStringLiteral("Dimensionen: 10 x 9"));
    EXPECT_EQ(z.at(1), QStringLiteral("Grundeinst: BlkZustMeld=1 BetriebszustSpeichern=1 LocoNetStatMessage=0 "
                                      "ZugKatRD2_47231=0 LNCV14=36736 LNCV17=8 LNCV18=10 LNCV19=10"));
    EXPECT_EQ(z.at(2), QStringLiteral("Modul: x=5 y=3 Typ=800 ArtNr=47220 Adresse=12 Betriebsart=Einfahrt"));
    EXPECT_EQ(z.at(5), QStringLiteral("Modul: x=8 y=5 Typ=840 ArtNr=47320 Adresse=300 Betriebsart=Block/Einfm."));
    EXPECT_EQ(z.at(6), QStringLiteral("Bahnhof: 1 Name=Nord Art=1 Einfahrt=5,3 Ausfahrt=0,0 Gleise=1=6,3"));
    EXPECT_EQ(z.at(7), QStringLiteral("Fahrstraße: 1 Name=Nord - Gleis 1 Nummer=1 Sub=1 Art=2 FS-Nr=0 "
                                      "Ausloeser=120 Befehle=W12 g; S40 rot; W13 r"));
}

TEST(PlanorCli, ResaveWritesTheProjectAndItsSideFilesUnderTheSameName)
{
    QTemporaryDir ziel;
    const Lauf l = planorCli(QStringLiteral("resave"), {golden("Golden.anl"), ziel.path()});
    EXPECT_EQ(l.status, 0) << qPrintable(l.fehler);
    QByteArray erwartet = datei(golden("Golden.anl"));
    erwartet.replace("Bhf_Daten: 1,  Nord", "Bhf_Daten: 1,   Nord");
    erwartet.replace("FS_Daten: 1,  Nord - Gleis 1", "FS_Daten: 1,   Nord - Gleis 1");
    EXPECT_EQ(rumpf(datei(ziel.filePath(QStringLiteral("Golden.anl")))), rumpf(erwartet));
    for (const char* seite : {"47220_12.lcv", "47320_300.lcv"})
        EXPECT_EQ(rumpf(datei(ziel.filePath(QLatin1String(seite)))), rumpf(datei(golden(seite)))) << seite;
    EXPECT_EQ(QDir(ziel.path()).entryList(QDir::Files).size(), 3);
    EXPECT_EQ(planorCli(QStringLiteral("resave"), {golden("Golden.anl"), QStringLiteral("/gibt/es/nicht")}).status, 1);
}

// A project that cannot be read: exit 1 and the error report's text on stderr, nothing on stdout.
TEST(PlanorCli, BadProjectFilesFailWithTheErrorReport)
{
    QTemporaryDir d;
    const QByteArray modul = "DimensionenX: 9\r\nDimensionenY: 9\r\nXY: 2, 2, 800\r\nXY_ArtNr: 2, 2, 47220\r\n"
                             "XY_File: 2, 2, 47220_5.lcv\r\n";
    struct Fall {
        const char* name;
        QByteArray anl, lcv;
        const char* nummer;
    } const faelle[] = {
        {"no colon", "DimensionenX: 9\r\nkein Doppelpunkt\r\n", {}, "5"},
        {"side file index above 460", modul, "4722:\r\n  0= 5 ; 461= 1\r\n", "9"},
    };
    const auto pruefen = [](const Lauf& l, const char* nummer) {
        EXPECT_EQ(l.status, 1) << qPrintable(l.fehler);
        EXPECT_TRUE(l.aus.isEmpty());
        EXPECT_TRUE(l.fehler.startsWith(QStringLiteral("--- Programmfehler ---\n Fehler in : Laden_und_Speichern : "
                                                       "Load_plt\n Fehlernummer: ") + QLatin1String(nummer) + " -> "))
            << qPrintable(l.fehler);
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.name);
        QFile::remove(d.filePath(QStringLiteral("47220_5.lcv")));
        schreiben(d.filePath(QStringLiteral("a.anl")), f.anl);
        if (!f.lcv.isEmpty())
            schreiben(d.filePath(QStringLiteral("47220_5.lcv")), f.lcv);
        pruefen(planorCli(QStringLiteral("info"), {d.filePath(QStringLiteral("a.anl"))}), f.nummer);
    }
    pruefen(planorCli(QStringLiteral("info"), {QStringLiteral("/gibt/es/nicht.anl")}), "53");
    // A missing side file says which one.
    schreiben(d.filePath(QStringLiteral("a.anl")), modul);
    QFile::remove(d.filePath(QStringLiteral("47220_5.lcv")));
    const Lauf l = planorCli(QStringLiteral("info"), {d.filePath(QStringLiteral("a.anl"))});
    EXPECT_EQ(l.status, 1);
    EXPECT_EQ(l.fehler, QStringLiteral("Fehler beim Laden: Das File 47220_5.lcv existiert nicht!\n"));
}
