// Part 1.5: the module value files.
#include "core/lncv_datei.h"

#include "core/laufzeitfehler.h"
#include "tests/support/berichte.h"

#include <QFile>

using namespace planor;

namespace {

QByteArray golden()
{
    QFile f(QStringLiteral(PLANOR_TESTDATA "/4722_12_golden.lcv"));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    return f.readAll();
}

struct Gelesen {
    Long artnr = 0;
    LNCV_Feld werte;
    Integer anzahl = 0;
    QString kommentar;
    int ergebnis = -1;
};

Gelesen lesen(const QByteArray& bytes, Integer anzahl, LNCV_Feld vorher = {})
{
    Gelesen g;
    g.anzahl = anzahl;
    g.werte = vorher;
    load_lncv_bytes(bytes, g.artnr, g.werte, g.anzahl, g.kommentar, g.ergebnis);
    return g;
}

LNCV_Feld beispiel()
{
    LNCV_Feld w;
    const int werte[] = {12, 0, 16, 0, -1, 300, 7};
    for (int i = 0; i < 7; ++i)
        w(i) = static_cast<Integer>(werte[i]);
    return w;
}

}  // namespace

TEST(Part1_5, WrittenByteExactWithATableThatEndsInSemicolon)
{
    const QByteArray bytes =
        lncv_bytes(4722, beispiel(), 7, QStringLiteral(" Modul aus Demo.anl an Pos. (x,y)= 5, 3"), QDate(2026, 11, 21));
    EXPECT_EQ(bytes, golden());
    EXPECT_TRUE(bytes.endsWith("   6=     7 ; "));
    EXPECT_TRUE(bytes.contains("  0=    12 ;   1=     0 ;   2=    16 ;   3=     0 ;   4= 65535 \r\n"));
}

TEST(Part1_5, GoldenFileReadsBack)
{
    const Gelesen g = lesen(golden(), 7);
    EXPECT_EQ(g.artnr, 4722);
    EXPECT_EQ(g.werte(0), 12);
    EXPECT_EQ(g.werte(2), 16);
    EXPECT_EQ(g.werte(4), -1) << "65535 reads back as -1";
    EXPECT_EQ(g.werte(6), 7) << "the last entry without line end is not lost";
    EXPECT_EQ(g.anzahl, 7);
    EXPECT_EQ(g.kommentar, QStringLiteral(" Modul aus Demo.anl an Pos. (x,y)= 5, 3\r"));
    EXPECT_EQ(g.ergebnis, 0);
    EXPECT_EQ(lncv_bytes(g.artnr, g.werte, g.anzahl, g.kommentar.chopped(1), QDate(2026, 11, 21)), golden());
}

TEST(Part1_5, EmptyFileLeavesValuesAtZeroAndCountUnchanged)
{
    LNCV_Feld vorher;
    vorher(3) = 9;
    vorher(200) = 5;
    const Gelesen g = lesen(QByteArray(), 128, vorher);
    EXPECT_EQ(g.werte(3), 0);
    EXPECT_EQ(g.werte(200), 5) << "only 0..count-1 are cleared";
    EXPECT_EQ(g.anzahl, 128);
    EXPECT_TRUE(g.kommentar.isEmpty());
}

TEST(Part1_5, FileWithoutCommentLeavesTheCommentUnchanged)
{
    Gelesen g;
    g.kommentar = QStringLiteral("alt");
    g.anzahl = 5;
    load_lncv_bytes("4722:\r\n  1= 5 ", g.artnr, g.werte, g.anzahl, g.kommentar, g.ergebnis);
    EXPECT_EQ(g.kommentar, QStringLiteral("alt"));
    EXPECT_EQ(g.werte(1), 5);
}

TEST(Part1_5, NonDigitsInIndexOrValueAreIgnored)
{
    const Gelesen g = lesen("1x2= 1a2b3\r\n", 128);
    EXPECT_EQ(g.werte(12), 123);
}

TEST(Part1_5, AMissingIndexLeavesItsValueAtZero)
{
    LNCV_Feld vorher;
    vorher(1) = 44;
    const Gelesen g = lesen("0= 1; 2= 3\r\n", 5, vorher);
    EXPECT_EQ(g.werte(1), 0);
    EXPECT_EQ(g.werte(2), 3);
}

TEST(Part1_5, IndexAtOrAboveCountRaisesTheCount)
{
    EXPECT_EQ(lesen("127= 9\r\n", 128).anzahl, 128);
    EXPECT_EQ(lesen("128= 9\r\n", 128).anzahl, 129);
    EXPECT_EQ(lesen("200= 9 ; 150= 1\r\n", 128).anzahl, 201);
}

TEST(Part1_5, TheLargestIndexOverflowsInsteadOfWrapping)
{
    try {
        lesen("2147483647=", 128);
        FAIL();
    } catch (const Laufzeitfehler& f) {
        EXPECT_EQ(f.nummer(), 6);
    }
}

TEST(Part1_5, IndexAbove460RaisesTheBoundsError)
{
    try {
        lesen("5= 1\r\n461= 2\r\n", 128);
        FAIL();
    } catch (const Laufzeitfehler& f) {
        EXPECT_EQ(f.nummer(), 9);
    }
}

TEST(Part1_5, CommentsAndSlashesSkipToTheLineEnd)
{
    const Gelesen g = lesen("// kopf 1= 9\r\n3= 4 / 5= 6\r\n5= 7", 8);
    EXPECT_EQ(g.werte(1), 0);
    EXPECT_EQ(g.werte(3), 4);
    EXPECT_EQ(g.werte(5), 7);
}

TEST(Part1_5, UniversalControllerFilesHold460Values)
{
    LNCV_Feld w;
    w(459) = 1;
    const QByteArray bytes = lncv_bytes(4732, w, 460, QString(), QDate(2026, 1, 1));
    EXPECT_TRUE(bytes.endsWith("459=     1 \r\n"));
    EXPECT_EQ(lesen(bytes, 460).werte(459), 1);
}

class Part1_5_Datei : public test::MitFehlerbericht {};

TEST_F(Part1_5_Datei, SaveAndLoadAFile)
{
    const QString datei = ordner.filePath(QStringLiteral("47220_12.lcv"));
    save_lncv(4722, beispiel(), 7, datei, QStringLiteral(" Modul aus Demo.anl an Pos. (x,y)= 5, 3"));
    QFile f(datei);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), golden());
    Gelesen g;
    g.anzahl = 7;
    load_lncv(g.artnr, g.werte, g.anzahl, datei, g.kommentar, g.ergebnis);
    EXPECT_EQ(g.werte(5), 300);
}
