// Part 1.6: the element catalogue.
#include "core/element_katalog.h"

#include "core/panel_model.h"
#include "tests/support/berichte.h"

#include <QFile>

using namespace planor;

namespace {

QByteArray testKatalog()
{
    QFile f(QStringLiteral(PLANOR_TESTDATA "/Elemente_test.cfg"));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    return f.readAll();
}

int fehlernummer(const std::function<void()>& f)
{
    try {
        f();
    } catch (const Laufzeitfehler& e) {
        return e.nummer();
    }
    return 0;
}

class Part1_6 : public ::testing::Test {
protected:
    void SetUp() override { katalog.lesen(testKatalog(), anlage); }
    Anlage anlage;
    Elementkatalog katalog;
};

}  // namespace

TEST_F(Part1_6, ReadsEntriesFromIndex1UntilTheEndMark)
{
    EXPECT_EQ(katalog.ElementAnz, 16);
    const ElementTab_Typ& e = katalog.ElementTab(1);
    EXPECT_EQ(e.Typ, -99);
    EXPECT_EQ(e.Bmp, QStringLiteral("radierer.bmp"));
    EXPECT_EQ(katalog.ElementTab(12).Name, QStringLiteral("Empfänger Ost"));
    EXPECT_EQ(katalog.ElementTab(12).BmpAusw, QStringLiteral("e800_mon.bmp"));
    EXPECT_EQ(katalog.ElementTab(12).TextAusrichtung, 5);
    EXPECT_EQ(katalog.indexVonTyp(77), -1) << "nothing after ### is read";
}

TEST_F(Part1_6, UnquotedFieldsLoseTheirBlanks)
{
    EXPECT_EQ(katalog.ElementTab(4).Bmp, QStringLiteral("gl9_waag.bmp"));
    EXPECT_EQ(katalog.ElementTab(4).Name, QStringLiteral("Gleis waagerecht"));
    EXPECT_EQ(katalog.ElementTab(4).BmpAusw, QStringLiteral("gl9_mon.bmp"));
}

TEST_F(Part1_6, LeerEntryGivesTheTemplate)
{
    EXPECT_EQ(katalog.LeerIndex, 3);
    EXPECT_EQ(anlage.XY_Leer().XY_Element, 3);
    EXPECT_EQ(anlage.XY_Leer().XY_BETR, -1);
    anlage.neues_pult_setzen();
    EXPECT_EQ(anlage.XY(30, 30).XY_Element, 3);
}

TEST_F(Part1_6, LncvAnzByType)
{
    EXPECT_EQ(katalog.ElementTab(12).LNCVAnz, 128);  // 800
    EXPECT_EQ(katalog.ElementTab(14).LNCVAnz, 128);  // 831
    EXPECT_EQ(katalog.ElementTab(15).LNCVAnz, 460);  // 840
    EXPECT_EQ(katalog.ElementTab(8).LNCVAnz, 0);     // 101
    EXPECT_EQ(katalog.ElementTab(16).LNCVAnz, 0);    // 920
}

TEST_F(Part1_6, PaletteHasEightColumnsInCatalogueOrder)
{
    // Palette entries: 1, 2, 4, 7, 8, 10, 11, 12, 14, 15, 16: 11 entries, 2 rows.
    EXPECT_EQ(katalog.paletteZeilen(), 2);
    EXPECT_EQ(katalog.PaletteFeld(0, 0), 1);
    EXPECT_EQ(katalog.PaletteFeld(2, 0), 4);
    EXPECT_EQ(katalog.PaletteFeld(7, 0), 12);
    EXPECT_EQ(katalog.PaletteFeld(0, 1), 14);
    EXPECT_EQ(katalog.PaletteFeld(2, 1), 16);
    EXPECT_EQ(katalog.PaletteFeld(3, 1), 0);
}

TEST_F(Part1_6, RotationFamiliesListTheHeadThenItsMembers)
{
    const ElementTab_Typ& gerade = katalog.ElementTab(4);
    EXPECT_EQ(gerade.Drehung(0), 4);
    EXPECT_EQ(gerade.Drehung(1), 4);
    EXPECT_EQ(gerade.Drehung(2), 5);
    EXPECT_EQ(gerade.Drehung(3), 6);
    EXPECT_EQ(gerade.Drehung(4), -99);
    EXPECT_EQ(gerade.Drehung(20), -99);
}

TEST_F(Part1_6, FamilyWithNoMembersHasEndMarkAtPosition1)
{
    const ElementTab_Typ& bogen = katalog.ElementTab(7);
    EXPECT_EQ(bogen.Drehung(0), 7);
    EXPECT_EQ(bogen.Drehung(1), -99);
}

TEST(Part1_6_Grenzen, MoreThan100EntriesFailWithTheBoundsError)
{
    QByteArray bytes;
    for (int i = 1; i <= 101; ++i)
        bytes += "\"g" + QByteArray::number(i) + "_x.bmp\",\"G\"," + QByteArray::number(i) + ",0,0,4,\"\"\r\n";
    Anlage anlage;
    Elementkatalog katalog;
    EXPECT_EQ(fehlernummer([&] { katalog.lesen(bytes, anlage); }), 9);
    EXPECT_EQ(katalog.ElementAnz, 100);
}

TEST(Part1_6_Grenzen, WithoutLeerThereIsNoTemplate)
{
    Anlage anlage;
    Elementkatalog katalog;
    katalog.lesen("\"radierer.bmp\",\"Radierer\",-99,1,-99,4,\"\"\r\n\"###\"\r\n", anlage);
    EXPECT_EQ(katalog.LeerIndex, 0);
    EXPECT_EQ(anlage.XY_Leer().XY_Element, 0);
    // An empty cell then shows catalogue entry 0, which is nothing.
    EXPECT_TRUE(katalog.ElementTab(anlage.XY(1, 1).XY_Element).Bmp.isEmpty());
}

TEST(Part1_6_Grenzen, BadNumbersAndTruncatedEntries)
{
    Anlage anlage;
    Elementkatalog a, b;
    EXPECT_EQ(fehlernummer([&] { a.lesen("\"x.bmp\",\"X\",abc,1,1,4,\"\"\r\n", anlage); }), 13);
    EXPECT_EQ(fehlernummer([&] { b.lesen("\"x.bmp\",\"X\",5,1\r\n", anlage); }), 62);
}

TEST(Part1_6_Grenzen, WithoutEndMarkTheFileEndsTheCatalogue)
{
    Anlage anlage;
    Elementkatalog katalog;
    katalog.lesen("\"a.bmp\",\"A\",9,1,9,4,\"\"\n\"b.bmp\",\"B\",2,0,9,4,\"\"", anlage);
    EXPECT_EQ(katalog.ElementAnz, 2);
    EXPECT_EQ(katalog.ElementTab(1).Drehung(2), 2);
}

class Part1_6_Datei : public test::MitFehlerbericht {};

TEST_F(Part1_6_Datei, MissingFileRaisesError53)
{
    Anlage anlage;
    Elementkatalog katalog;
    EXPECT_EQ(fehlernummer([&] { Elemente_laden(ordner.filePath(QStringLiteral("Elemente.cfg")), katalog, anlage); }),
              53);
}
