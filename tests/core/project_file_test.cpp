// Part 1.4: the project file, against golden files written from the spec
// (tests/data/projekt/erzeugen.py).
#include "core/project_file.h"

#include "core/laufzeitfehler.h"
#include "core/lncv_datei.h"
#include "tests/editor/editor_umgebung.h"

#include <QDir>
#include "tests/support/daten.h"

#include <QFile>

using namespace planor;
using namespace planor::test;

namespace {


QString golden(const char* name) { return QStringLiteral(PLANOR_TESTDATA "/projekt/") + QLatin1String(name); }

struct Anzeige final : ProjektAnzeige {
    explicit Anzeige(Anlage& a) : anlage(a) {}
    void InfoTxt_anzeigen(int feld, const QString& text) override { (feld == 1 ? feld1 : feld2) << text; }
    void ladenBeginnt() override { ++begonnen; }
    void ladenEndet() override { ++beendet; }
    bool pultNeuSetzen() const override { return neuSetzen; }
    void neues_pult_setzen() override
    {
        neuSetzen = false;
        anlage.neues_pult_setzen();
    }
    bool elementLoeschen(const QString& titel, const QString& text) override
    {
        fragen << titel + u'|' + text;
        return loeschen;
    }

    Anlage& anlage;
    QStringList feld1, feld2, fragen;
    bool neuSetzen = true, loeschen = false;
    int begonnen = 0, beendet = 0;
};

class Part1_4 : public MitPult {
protected:
    void laden(const QString& pfad, const QString& file)
    {
        anlage.Pfad = pfad;
        anlage.File = file;
        Load_plt(anlage, katalog, editor, anzeige);
    }

    // The golden project, built through the editor as a user would.
    void goldenBauen()
    {
        anlage.DimensionenX = 10;
        anlage.DimensionenY = 9;
        anlage.neues_pult_setzen();
        anlage.PultOpt.PultOptGPLocked = true;
        anlage.Grundeinst.LocoNetStatMessage = 0;
        anlage.Grundeinst.LNCV14 = -28800;
        setzen(2, 3, Weiche101);
        anlage.XY(2, 3).XY_ADR1 = 12;
        setzen(3, 3, Signal511);
        anlage.XY(3, 3).XY_ADR1 = 40;
        anlage.XY(3, 3).XY_ADR2 = 41;
        anlage.XY(3, 3).XY_STATTAUSCH1 = 1;
        setzen(4, 3, GeradeW);
        modul(5, 3, 12);
        XY_Typ& m = anlage.XY(5, 3);
        m.XY_LNCV(20) = -1;
        m.XY_LNCV(21) = -32768;
        m.XY_LNCV(2) = 23;
        m.XY_LNCV(15) = 9;
        m.XY_LNCV(127) = 4;
        m.XY_BETR = 7;
        m.XY_Version = 2;
        m.XY_BhfIDX = 1;
        modul(6, 3, 13, 47240);
        XY_Typ& s = anlage.XY(6, 3);
        s.XY_BETR = 6;
        s.XY_BhfIDX = 1;
        s.XY_GleisIDX = 1;
        s.XY_SenStat = 2;
        s.XY_SenX = 5;
        s.XY_SenY = 3;
        for (int x : {7, 8}) {
            setzen(x, 5, Uni840);
            XY_Typ& u = anlage.XY(x, 5);
            u.XY_ArtNr = 47320;
            u.XY_LNCV(0) = 300;
            u.XY_BETR = x == 7 ? 20 : 22;
            u.XY_GleisIDX = static_cast<Integer>(x - 6);
            u.XY_SenStat = x == 7 ? 3 : 4;
            u.XY_SenX = 7;
            u.XY_SenY = 5;
        }
        XY_Typ& h = anlage.XY(7, 5);
        h.XY_LNCV(1) = 1;
        h.XY_LNCV(2) = 20;
        h.XY_LNCV(459) = -1;
        h.XY_LNCV(100) = -32768;
        anlage.Bhf_Anz = 1;
        Bhf_Typ& b = anlage.Bhf(1);
        b.Bhf_Name = QStringLiteral(" Nord");
        b.Bhf_EinfX = 5;
        b.Bhf_EinfY = 3;
        b.Bhf_Adr = -1;
        b.Bhf_EinfAktiv = 1;
        b.Bhf_UmfAdr = 4094;
        b.Bhf_Art = 1;
        b.Bhf_GleisX(1) = 6;
        b.Bhf_GleisY(1) = 3;
        b.Bhf_EinfFS(1) = 1;
        FS_Typ& fs = anlage.FS(1);
        fs.FS_Name = QStringLiteral(" Nord - Gleis 1");
        fs.FS_Nummer = 1;
        fs.FS_Sub = 1;
        fs.FS_Art = 2;
        fs.FS_Mag = 120;
        fs.FS_Kennung = 1;
        fs.FS_MagBfl(0) = QStringLiteral("W12 g");
        fs.FS_MagBfl(1) = QStringLiteral("S40 rot");
        fs.FS_MagBfl(100) = QStringLiteral("W13 r");
    }

    Anzeige anzeige{anlage};
};

}  // namespace

TEST_F(Part1_4, WrittenByteExactWithItsSideFiles)
{
    goldenBauen();
    const ProjektBytes p = Save_plt_bytes(anlage, katalog, QStringLiteral("Golden.anl"), QDate(2026, 11, 21));
    EXPECT_EQ(p.anl, datei(golden("Golden.anl")));
    ASSERT_EQ(p.seitendateien.size(), 3u) << "the second input of a sensor writes none";
    EXPECT_EQ(p.seitendateien[0].name, QStringLiteral("47220_12.lcv"));
    EXPECT_EQ(p.seitendateien[0].bytes, datei(golden("47220_12.lcv")));
    // The further controller cell comes later in the scan and wins, with the
    // main cell's values (deliberate deviation of issue 4).
    EXPECT_EQ(p.seitendateien[2].name, QStringLiteral("47320_300.lcv"));
    EXPECT_EQ(p.seitendateien[2].bytes, datei(golden("47320_300.lcv")));
}

TEST_F(Part1_4, SavingShowsProgressPerCell)
{
    goldenBauen();
    Save_plt_bytes(anlage, katalog, QStringLiteral("Golden.anl"), QDate(2026, 11, 21), &anzeige);
    EXPECT_EQ(anzeige.feld1, QStringList{QStringLiteral("Speichern")});
    EXPECT_EQ(anzeige.feld2.size(), 90);
    EXPECT_EQ(anzeige.feld2.last(), QStringLiteral("X=10 Y=9"));
}

TEST_F(Part1_4, GoldenFileLoads)
{
    laden(QStringLiteral(PLANOR_TESTDATA "/projekt/"), QStringLiteral("Golden.anl"));
    EXPECT_TRUE(berichte.texte.isEmpty()) << qPrintable(berichte.texte.join(u'\n'));
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
    EXPECT_EQ(m.XY_LNCV(21), -32768) << "32768";
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
    EXPECT_EQ(anlage.FS(1).FS_MagBfl(1), QStringLiteral("S40 rot"));
    EXPECT_EQ(anlage.FS(1).FS_MagBfl(100), QStringLiteral("W13 r"));
    EXPECT_EQ(anzeige.feld1.first(), QStringLiteral("Laden"));
    EXPECT_EQ(anzeige.begonnen, 1);
    EXPECT_EQ(anzeige.beendet, 1);
}

TEST_F(Part1_4, LoadThenSaveGivesTheSameBytesButTheNamesBlank)
{
    laden(QStringLiteral(PLANOR_TESTDATA "/projekt/"), QStringLiteral("Golden.anl"));
    const ProjektBytes p = Save_plt_bytes(anlage, katalog, QStringLiteral("Golden.anl"), QDate(2026, 11, 21));
    QByteArray erwartet = datei(golden("Golden.anl"));
    erwartet.replace("Bhf_Daten: 1,  Nord", "Bhf_Daten: 1,   Nord");
    erwartet.replace("FS_Daten: 1,  Nord - Gleis 1", "FS_Daten: 1,   Nord - Gleis 1");
    EXPECT_EQ(p.anl, erwartet);
    EXPECT_EQ(p.seitendateien[0].bytes, datei(golden("47220_12.lcv")));
    EXPECT_EQ(p.seitendateien[2].bytes, datei(golden("47320_300.lcv")));
}

TEST_F(Part1_4, SaveAndLoadThroughFiles)
{
    goldenBauen();
    anlage.Pfad = ordner.path() + u'/';
    anlage.File = QStringLiteral("Golden.anl");
    Save_plt(anlage, katalog, anzeige);
    EXPECT_EQ(datei(anlage.Pfad + QStringLiteral("Golden.anl")), datei(golden("Golden.anl")));
    EXPECT_EQ(datei(anlage.Pfad + QStringLiteral("47320_300.lcv")), datei(golden("47320_300.lcv")));
    EXPECT_FALSE(QFile::exists(anlage.Pfad + QStringLiteral("47240_13.lcv")));
}

TEST_F(Part1_4, AnEmptyCellCostsOneLine)
{
    anlage.DimensionenX = anlage.DimensionenY = 99;
    anlage.neues_pult_setzen();
    const QByteArray anl = Save_plt_bytes(anlage, katalog, QStringLiteral("a.anl"), QDate(2026, 1, 1)).anl;
    EXPECT_EQ(anl.count("\r\nXY: "), 9801);
    EXPECT_EQ(anl.count("\r\n"), 12 + 9801 + 1);
}

TEST_F(Part1_4, FileLinesWithoutAPrecedingArtNrStillLoadTheValues)
{
    ordner.isValid();
    QFile::copy(golden("47220_12.lcv"), ordner.filePath(QStringLiteral("47220_12.lcv")));
    QFile anl(ordner.filePath(QStringLiteral("x.anl")));
    ASSERT_TRUE(anl.open(QIODevice::WriteOnly));
    anl.write("DimensionenX: 9\r\nDimensionenY: 9\r\nXY: 2, 2, 800\r\nXY_File: 2, 2, 47220_12.lcv\r\n");
    anl.close();
    laden(ordner.path() + u'/', QStringLiteral("x.anl"));
    EXPECT_EQ(anlage.XY(2, 2).XY_LNCV(0), 12);
    EXPECT_EQ(anlage.XY(2, 2).XY_ArtNr, 0) << "the article of the file is dropped";
}

TEST_F(Part1_4, MissingSideFileAsksAndYesDeletesTheElement)
{
    QFile anl(ordner.filePath(QStringLiteral("x.anl")));
    ASSERT_TRUE(anl.open(QIODevice::WriteOnly));
    anl.write("XY: 2, 2, 800\r\nXY_ArtNr: 2, 2, 47220\r\nXY_File: 2, 2, 47220_5.lcv\r\n"
              "XY: 3, 3, 800\r\nXY_ArtNr: 3, 3, 47220\r\nXY_File: 3, 3, 47220_6.lcv\r\n");
    anl.close();
    anzeige.loeschen = false;
    laden(ordner.path() + u'/', QStringLiteral("x.anl"));
    ASSERT_EQ(anzeige.fragen.size(), 2);
    EXPECT_EQ(anzeige.fragen.front(), QStringLiteral("Fehler beim Laden|Das File 47220_5.lcv existiert nicht!\n"
                                                     "          Element löschen?            "));
    EXPECT_EQ(anlage.XY(2, 2).XY_ArtNr, 47220) << "no keeps the cell without values";

    anzeige.neuSetzen = true;
    anzeige.loeschen = true;
    laden(ordner.path() + u'/', QStringLiteral("x.anl"));
    EXPECT_EQ(anlage.XY(3, 3), anlage.XY_Leer());
}

TEST_F(Part1_4, SideFileNamesNeverLeaveTheProjectFolder)
{
    QDir(ordner.path()).mkdir(QStringLiteral("p"));
    QFile::copy(golden("47220_12.lcv"), ordner.filePath(QStringLiteral("47220_12.lcv")));
    QFile anl(ordner.filePath(QStringLiteral("p/x.anl")));
    ASSERT_TRUE(anl.open(QIODevice::WriteOnly));
    anl.write("XY: 2, 2, 800\r\nXY_File: 2, 2, ../47220_12.lcv\r\n");
    anl.close();
    laden(ordner.path() + QStringLiteral("/p/"), QStringLiteral("x.anl"));
    EXPECT_EQ(anzeige.fragen.size(), 1);
    EXPECT_EQ(anlage.XY(2, 2).XY_LNCV(0), 0);
}

TEST_F(Part1_4, ABadLineEndsTheLoadThroughTheErrorReportKeepingWhatWasRead)
{
    const auto versuch = [&](const QByteArray& bytes) {
        try {
            Load_plt_bytes(bytes, anlage, katalog, editor, anzeige);
        } catch (const Laufzeitfehler& f) {
            return f.nummer();
        }
        return 0;
    };
    EXPECT_EQ(versuch("DimensionenX: 12\r\nohne Doppelpunkt\r\nDimensionenY: 12\r\n"), 5);
    EXPECT_EQ(anlage.DimensionenX, 12);
    EXPECT_EQ(anlage.DimensionenY, 30);
    EXPECT_EQ(versuch("DimensionenX: 12\r\n\r\n"), 5) << "an empty line";
    EXPECT_EQ(versuch("FS_Daten: 1,a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p,q,r,s,t,u\r\n"), 9) << "22 list items";
    EXPECT_EQ(versuch("XY: 100, 1, 9\r\n"), 9);
    EXPECT_EQ(anzeige.beendet, anzeige.begonnen) << "the grid comes back after an error";
}

TEST_F(Part1_4, ASideFileWithMoreValuesRaisesTheCatalogueCount)
{
    LNCV_Feld w;
    w(200) = 5;
    QFile f(ordner.filePath(QStringLiteral("47220_7.lcv")));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(lncv_bytes(4722, w, 201, QString(), QDate(2026, 1, 1)));
    f.close();
    QFile anl(ordner.filePath(QStringLiteral("x.anl")));
    ASSERT_TRUE(anl.open(QIODevice::WriteOnly));
    anl.write("XY: 2, 2, 800\r\nXY_ArtNr: 2, 2, 47220\r\nXY_File: 2, 2, 47220_7.lcv\r\n");
    anl.close();
    laden(ordner.path() + u'/', QStringLiteral("x.anl"));
    EXPECT_EQ(katalog.ElementTab(Empf800).LNCVAnz, 201);
    anlage.XY(2, 2).XY_LNCV(0) = 7;
    const ProjektBytes p = Save_plt_bytes(anlage, katalog, QStringLiteral("x.anl"), QDate(2026, 1, 1));
    EXPECT_TRUE(p.seitendateien.at(0).bytes.endsWith("200=     5 ; "));
}

TEST(Part1_4_Liste, DecodeListeKeepsBlanksAndHas21ItemsAtMost)
{
    EXPECT_EQ(decode_liste(QStringLiteral(" 1, a ,2")), (QStringList{QStringLiteral(" 1"), QStringLiteral(" a "),
                                                                      QStringLiteral("2")}));
    EXPECT_EQ(decode_liste(QString(20, u',')).size(), 21);
    EXPECT_THROW(decode_liste(QString(21, u',')), Laufzeitfehler);
}

TEST_F(Part1_4, ACommaInAStationNameSplitsTheLineOnReading)
{
    anlage.Bhf_Anz = 1;
    anlage.Bhf(3).Bhf_Name = QStringLiteral(" Nord, Gleis");
    anlage.Bhf(3).Bhf_EinfX = 5;
    const QByteArray anl = Save_plt_bytes(anlage, katalog, QStringLiteral("a.anl"), QDate(2026, 1, 1)).anl;
    EXPECT_TRUE(anl.contains("\r\nBhf_Daten: 3,  Nord, Gleis,  5 ,"));
    Anlage neu;
    Elementkatalog k;
    k.lesen(datei(QStringLiteral(PLANOR_TESTDATA "/Elemente_test.cfg")), neu);
    PultEditor e(neu, k, meldungen);
    Anzeige a(neu);
    Load_plt_bytes(anl, neu, k, e, a);
    EXPECT_EQ(neu.Bhf(3).Bhf_Name, QStringLiteral("  Nord"));
    EXPECT_EQ(neu.Bhf(3).Bhf_EinfX, 0) << "\" Gleis\" took the place of the first number";
    EXPECT_EQ(neu.Bhf(3).Bhf_EinfY, 5);
}

TEST_F(Part1_4, TwoModulesWithOneAddressShareASideFileTheLaterWins)
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
