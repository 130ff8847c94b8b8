// The project file with its side files, against golden files written
// independently of the program (tests/data/projekt/erzeugen.py).
#include "core/project_file.h"

#include "core/lncv_datei.h"
#include "tests/editor/editor_umgebung.h"
#include "tests/support/daten.h"

#include <QDir>

using namespace planor;
using namespace planor::test;

namespace {

QByteArray projekt(const char* name) { return golden(QStringLiteral("projekt/") + QLatin1String(name)); }

class Projektdatei : public MitPult {
protected:
    void laden(const QString& pfad, const QString& file)
    {
        anlage.Pfad = pfad;
        anlage.File = file;
        Load_plt(anlage, katalog, editor, anzeige);
    }

    // Writes x.anl (and side files) into the temporary folder and loads it.
    void ladenAus(const QByteArray& anl, const QString& unterordner = {})
    {
        schreiben(ordner.filePath(unterordner + QStringLiteral("x.anl")), anl);
        anzeige.neuSetzen = true;
        laden(ordner.path() + u'/' + unterordner, QStringLiteral("x.anl"));
    }

    // The golden project as loaded, its names as written: each load adds a
    // leading blank to them, which older projects rely on.
    void goldenLaden()
    {
        laden(testdaten(QStringLiteral("projekt/")), QStringLiteral("Golden.anl"));
        anlage.Bhf(1).Bhf_Name = QStringLiteral(" Nord");
        anlage.FS(1).FS_Name = QStringLiteral(" Nord - Gleis 1");
    }

    ProjektBytes gespeichert(const QString& name = QStringLiteral("Golden.anl"))
    {
        return Save_plt_bytes(anlage, katalog, name, QDate(2026, 11, 21));
    }

    Projektanzeige anzeige{anlage};
};

}  // namespace

TEST_F(Projektdatei, WrittenByteExactWithItsSideFiles)
{
    laden(testdaten(QStringLiteral("projekt/")), QStringLiteral("Golden.anl"));
    QByteArray nochEinBlank = projekt("Golden.anl");
    nochEinBlank.replace("Bhf_Daten: 1,  Nord", "Bhf_Daten: 1,   Nord");
    nochEinBlank.replace("FS_Daten: 1,  Nord - Gleis 1", "FS_Daten: 1,   Nord - Gleis 1");
    EXPECT_EQ(gespeichert().anl, nochEinBlank);
    goldenLaden();
    const ProjektBytes p = gespeichert();
    EXPECT_EQ(p.anl, projekt("Golden.anl"));
    ASSERT_EQ(p.seitendateien.size(), 3u) << "the second input of a sensor writes none";
    EXPECT_EQ(p.seitendateien[0].name, QStringLiteral("47220_12.lcv"));
    EXPECT_EQ(p.seitendateien[0].bytes, projekt("47220_12.lcv"));
    // The further controller cell comes later in the scan and wins, with the
    // main cell's values.
    EXPECT_EQ(p.seitendateien[2].name, QStringLiteral("47320_300.lcv"));
    EXPECT_EQ(p.seitendateien[2].bytes, projekt("47320_300.lcv"));
}

TEST_F(Projektdatei, GoldenFileLoads)
{
    laden(testdaten(QStringLiteral("projekt/")), QStringLiteral("Golden.anl"));
    EXPECT_EQ(berichte.texte, QStringList());
    EXPECT_EQ(anlage.DimensionenX, 10);
    EXPECT_TRUE(anlage.PultOpt.PultOptGPLocked);
    EXPECT_EQ(anlage.Grundeinst.LNCV14, -28800);
    EXPECT_EQ(anlage.Grundeinst.LocoNetStatMessage, 0);
    EXPECT_EQ(anlage.XY(2, 3).XY_Element, Weiche101);
    EXPECT_EQ(anlage.XY(3, 3).XY_ADR2, 41);
    const XY_Typ& m = anlage.XY(5, 3);
    EXPECT_EQ(m.XY_ArtNr, 47220);
    EXPECT_EQ(m.XY_LNCV(0), 12);
    EXPECT_EQ(m.XY_LNCV(20), -1) << "65535";
    EXPECT_EQ(Int_to_Unsig(m.XY_LNCV(21)), 32768);
    EXPECT_EQ(m.XY_BlkMeld, 1) << "LNCV 2 has bit 4";
    EXPECT_EQ(anlage.XY(6, 3).XY_SenX, 5);
    EXPECT_EQ(anlage.XY(7, 5).XY_LNCV(459), -1);
    EXPECT_EQ(anlage.XY(8, 5).XY_LNCV(459), -1) << "the further cell reads the shared file";
    EXPECT_EQ(anlage.Bhf_Anz, 1);
    EXPECT_EQ(anlage.Bhf(1).Bhf_Name, QStringLiteral("  Nord")) << "one more leading blank per load";
    EXPECT_EQ(anlage.Bhf(1).Bhf_UmfAdr, 4094);
    EXPECT_EQ(anlage.Bhf(1).Bhf_Adr, -1);
    EXPECT_EQ(anlage.Bhf(1).Bhf_GleisX(1), 6);
    EXPECT_EQ(anlage.FS(1).FS_Name, QStringLiteral("  Nord - Gleis 1"));
    EXPECT_EQ(anlage.FS(1).FS_Mag, 120);
    EXPECT_EQ(anlage.FS(1).FS_MagBfl(100), QStringLiteral("W13 r"));
    EXPECT_EQ(anzeige.feld1.first(), QStringLiteral("Laden"));
    EXPECT_EQ(anzeige.begonnen, 1);
    EXPECT_EQ(anzeige.beendet, 1);
}

TEST_F(Projektdatei, SaveThroughFiles)
{
    goldenLaden();
    anlage.Pfad = ordner.path() + u'/';
    anlage.File = QStringLiteral("Golden.anl");
    Save_plt(anlage, katalog, anzeige);
    EXPECT_EQ(datei(anlage.Pfad + QStringLiteral("Golden.anl")), projekt("Golden.anl"));
    for (const char* seite : {"47220_12.lcv", "47320_300.lcv"})
        EXPECT_EQ(datei(anlage.Pfad + QLatin1String(seite)), projekt(seite)) << seite;
    EXPECT_FALSE(QFile::exists(anlage.Pfad + QStringLiteral("47240_13.lcv")));
}

TEST_F(Projektdatei, SideFiles)
{
    QDir(ordner.path()).mkdir(QStringLiteral("p"));
    schreiben(ordner.filePath(QStringLiteral("47220_12.lcv")), projekt("47220_12.lcv"));
    // Values load even without a preceding article line, whose article is dropped.
    ladenAus("DimensionenX: 9\r\nDimensionenY: 9\r\nXY: 2, 2, 800\r\nXY_File: 2, 2, 47220_12.lcv\r\n");
    EXPECT_EQ(anlage.XY(2, 2).XY_LNCV(0), 12);
    EXPECT_EQ(anlage.XY(2, 2).XY_ArtNr, 0);
    // Side file names never leave the project folder.
    ladenAus("XY: 2, 2, 800\r\nXY_File: 2, 2, ../47220_12.lcv\r\n", QStringLiteral("p/"));
    EXPECT_EQ(anzeige.fragen.size(), 1);
    EXPECT_EQ(anlage.XY(2, 2).XY_LNCV(0), 0);
    // A side file with more values raises the catalogue's count, and it is written back whole.
    LNCV_Feld w;
    w(200) = 5;
    schreiben(ordner.filePath(QStringLiteral("47220_7.lcv")), lncv_bytes(4722, w, 201, QString(), QDate(2026, 1, 1)));
    ladenAus("XY: 2, 2, 800\r\nXY_ArtNr: 2, 2, 47220\r\nXY_File: 2, 2, 47220_7.lcv\r\n");
    EXPECT_EQ(katalog.ElementTab(Empf800).LNCVAnz, 201);
    anlage.XY(2, 2).XY_LNCV(0) = 7;
    EXPECT_TRUE(gespeichert().seitendateien.at(0).bytes.endsWith("200=     5 ; "));
}

TEST_F(Projektdatei, MissingSideFileAsksAndYesDeletesTheElement)
{
    const QByteArray anl = "XY: 2, 2, 800\r\nXY_ArtNr: 2, 2, 47220\r\nXY_File: 2, 2, 47220_5.lcv\r\n"
                           "XY: 3, 3, 800\r\nXY_ArtNr: 3, 3, 47220\r\nXY_File: 3, 3, 47220_6.lcv\r\n";
    ladenAus(anl);
    ASSERT_EQ(anzeige.fragen.size(), 2);
    EXPECT_EQ(anzeige.fragen.front(), QStringLiteral("Fehler beim Laden|Das File 47220_5.lcv existiert nicht!\n"
                                                     "          Element löschen?            "));
    EXPECT_EQ(anlage.XY(2, 2).XY_ArtNr, 47220) << "no keeps the cell without values";
    anzeige.loeschen = true;
    ladenAus(anl);
    EXPECT_EQ(anlage.XY(3, 3), anlage.XY_Leer());
}

TEST_F(Projektdatei, ABadLineEndsTheLoadThroughTheErrorReportKeepingWhatWasRead)
{
    const auto laden = [&](const QByteArray& b) { Load_plt_bytes(b, anlage, katalog, editor, anzeige); };
    EXPECT_LAUFZEITFEHLER(5, laden("DimensionenX: 12\r\nohne Doppelpunkt\r\nDimensionenY: 12\r\n"));
    EXPECT_EQ(anlage.DimensionenX, 12);
    EXPECT_EQ(anlage.DimensionenY, 30);
    EXPECT_LAUFZEITFEHLER(5, laden("DimensionenX: 12\r\n\r\n"));
    EXPECT_LAUFZEITFEHLER(9, laden("FS_Daten: 1,a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p,q,r,s,t,u\r\n"));  // 22 items
    EXPECT_LAUFZEITFEHLER(9, laden("XY: 100, 1, 9\r\n"));
    EXPECT_EQ(anzeige.beendet, anzeige.begonnen) << "the grid comes back after an error";
    EXPECT_EQ(decode_liste(QStringLiteral(" 1, a ,2")), (QStringList{" 1", " a ", "2"}));
}

TEST_F(Projektdatei, ACommaInAStationNameSplitsTheLineOnReading)
{
    anlage.Bhf_Anz = 1;
    anlage.Bhf(3).Bhf_Name = QStringLiteral(" Nord, Gleis");
    anlage.Bhf(3).Bhf_EinfX = 5;
    const QByteArray anl = gespeichert(QStringLiteral("a.anl")).anl;
    EXPECT_TRUE(anl.contains("\r\nBhf_Daten: 3,  Nord, Gleis,  5 ,"));
    anzeige.neuSetzen = true;
    Load_plt_bytes(anl, anlage, katalog, editor, anzeige);
    EXPECT_EQ(anlage.Bhf(3).Bhf_Name, QStringLiteral("  Nord"));
    EXPECT_EQ(anlage.Bhf(3).Bhf_EinfX, 0) << "\" Gleis\" took the place of the first number";
    EXPECT_EQ(anlage.Bhf(3).Bhf_EinfY, 5);
}

TEST_F(Projektdatei, TwoModulesWithOneAddressShareASideFileTheLaterWins)
{
    modul(2, 2, 9);
    modul(4, 1, 9);
    anlage.XY(2, 2).XY_LNCV(30) = 1;
    anlage.XY(4, 1).XY_LNCV(30) = 2;
    anlage.Pfad = ordner.path() + u'/';
    anlage.File = QStringLiteral("a.anl");
    Save_plt(anlage, katalog, anzeige);
    LNCV_Feld w;
    Long artnr = 0;
    Integer anzahl = 128;
    QString kommentar;
    int ergebnis = 0;
    load_lncv(artnr, w, anzahl, anlage.Pfad + QStringLiteral("47220_9.lcv"), kommentar, ergebnis);
    EXPECT_EQ(w(30), 2) << "cell (4, 1) comes after (2, 2) in the scan, columns outermost";
    EXPECT_EQ(kommentar, QStringLiteral(" Modul aus a.anl an Pos. (x,y)= 4, 1\r"));
}
