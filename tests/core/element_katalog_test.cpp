// The element catalogue: entries, the empty-cell template, palette, rotation families.
#include "core/element_katalog.h"

#include "core/panel_model.h"
#include "tests/support/berichte.h"
#include "tests/support/daten.h"

using namespace planor;
using namespace planor::test;

TEST(Elementkatalog, TestCatalogue)
{
    Anlage anlage;
    Elementkatalog k;
    k.lesen(golden("Elemente_test.cfg"), anlage);
    EXPECT_EQ(k.ElementAnz, 16);
    EXPECT_EQ(k.indexVonTyp(77), -1) << "nothing after ### is read";
    EXPECT_EQ(k.ElementTab(1).Typ, -99);
    EXPECT_EQ(k.ElementTab(12).Name, QStringLiteral("Empfänger Ost"));
    EXPECT_EQ(k.ElementTab(12).BmpAusw, QStringLiteral("e800_mon.bmp"));
    EXPECT_EQ(k.ElementTab(12).TextAusrichtung, 5);
    EXPECT_EQ(k.ElementTab(4).Name, QStringLiteral("Gleis waagerecht")) << "unquoted fields lose their blanks";
    EXPECT_EQ(k.ElementTab(4).BmpAusw, QStringLiteral("gl9_mon.bmp"));
    for (const auto& [index, anzahl] : {std::pair{12, 128}, {14, 128}, {15, 460}, {8, 0}, {16, 0}})
        EXPECT_EQ(k.ElementTab(index).LNCVAnz, anzahl) << index;
    EXPECT_EQ(k.LeerIndex, 3);
    anlage.neues_pult_setzen();
    EXPECT_EQ(anlage.XY(30, 30).XY_Element, 3);
    EXPECT_EQ(anlage.XY(30, 30).XY_BETR, -1);
    // Palette entries 1, 2, 4, 7, 8, 10, 11, 12, 14, 15, 16 in rows of eight.
    EXPECT_EQ(k.paletteZeilen(), 2);
    for (const auto& [x, y, index] : {std::tuple{0, 0, 1}, {2, 0, 4}, {7, 0, 12}, {0, 1, 14}, {2, 1, 16}, {3, 1, 0}})
        EXPECT_EQ(k.PaletteFeld(x, y), index) << x << "," << y;
    // A family lists its head, then its members, then the end mark.
    for (const auto& [index, stelle, glied] : {std::tuple{4, 0, 4}, {4, 1, 4}, {4, 3, 6}, {4, 4, -99}, {4, 20, -99},
                                               {7, 0, 7}, {7, 1, -99}})
        EXPECT_EQ(k.ElementTab(index).Drehung(stelle), glied) << index << ":" << stelle;
}

TEST(Elementkatalog, ReaderLimits)
{
    QByteArray hunderteins;
    for (int i = 1; i <= 101; ++i)
        hunderteins += "\"g" + QByteArray::number(i) + "_x.bmp\",\"G\"," + QByteArray::number(i) + ",0,0,4,\"\"\r\n";
    const struct Fall {
        QByteArray bytes;
        int fehler, anzahl, leer;
    } faelle[] = {
        {hunderteins, 9, 100, 0},
        {"\"x.bmp\",\"X\",abc,1,1,4,\"\"\r\n", 13, -1, 0},
        {"\"x.bmp\",\"X\",5,1\r\n", 62, -1, 0},
        // without "Leer" an empty cell shows entry 0, which is nothing
        {"\"radierer.bmp\",\"Radierer\",-99,1,-99,4,\"\"\r\n\"###\"\r\n", 0, 1, 0},
        // without the end mark the file's end ends the catalogue
        {"\"a.bmp\",\"A\",9,1,9,4,\"\"\n\"b.bmp\",\"B\",2,0,9,4,\"\"", 0, 2, 0},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.bytes.left(30).toStdString());
        Anlage anlage;
        Elementkatalog k;
        if (f.fehler) {
            EXPECT_LAUFZEITFEHLER(f.fehler, k.lesen(f.bytes, anlage));
        } else {
            k.lesen(f.bytes, anlage);
        }
        if (f.anzahl < 0)
            continue;
        EXPECT_EQ(k.ElementAnz, f.anzahl);
        EXPECT_EQ(k.LeerIndex, f.leer);
        EXPECT_EQ(anlage.XY(1, 1).XY_Element, f.leer);
    }
}

class Elementkataloge : public MitFehlerbericht {};

TEST_F(Elementkataloge, MissingFileRaisesError53)
{
    Anlage anlage;
    Elementkatalog k;
    EXPECT_LAUFZEITFEHLER(53, Elemente_laden(ordner.filePath(QStringLiteral("Elemente.cfg")), k, anlage));
}
