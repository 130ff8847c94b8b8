// The module value files (.lcv): byte-exact writing, what the reader makes of odd input.
#include "core/lncv_datei.h"

#include "tests/support/berichte.h"
#include "tests/support/daten.h"

using namespace planor;
using namespace planor::test;

namespace {

struct Gelesen {
    Long artnr = 0;
    LNCV_Feld werte;
    Integer anzahl = 0;
    QString kommentar;
    int ergebnis = -1;
};

Gelesen lesen(const QByteArray& bytes, Integer anzahl, LNCV_Feld vorher = {}, const QString& kommentar = {})
{
    Gelesen g{0, vorher, anzahl, kommentar};
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

const QString Kommentar = QStringLiteral(" Modul aus Demo.anl an Pos. (x,y)= 5, 3");

}  // namespace

TEST(Modulwertdatei, WrittenByteExactAndReadBack)
{
    const QByteArray bytes = lncv_bytes(4722, beispiel(), 7, Kommentar, QDate(2026, 11, 21));
    EXPECT_EQ(bytes, golden("4722_12_golden.lcv"));
    EXPECT_TRUE(bytes.endsWith("   6=     7 ; "));
    EXPECT_TRUE(bytes.contains("  0=    12 ;   1=     0 ;   2=    16 ;   3=     0 ;   4= 65535 \r\n"));
    const Gelesen g = lesen(bytes, 7);
    EXPECT_EQ(g.artnr, 4722);
    EXPECT_EQ(g.werte, beispiel()) << "65535 reads back as -1, the last entry without line end is not lost";
    EXPECT_EQ(g.anzahl, 7);
    EXPECT_EQ(g.kommentar, Kommentar + u'\r');
    EXPECT_EQ(g.ergebnis, 0);
    EXPECT_EQ(lncv_bytes(g.artnr, g.werte, g.anzahl, g.kommentar.chopped(1), QDate(2026, 11, 21)), bytes);

    LNCV_Feld w;
    w(459) = 1;
    const QByteArray gross = lncv_bytes(4732, w, 460, QString(), QDate(2026, 1, 1));
    EXPECT_TRUE(gross.endsWith("459=     1 \r\n")) << "the universal controller's 460 values";
    EXPECT_EQ(lesen(gross, 460).werte(459), 1);
}

TEST(Modulwertdatei, OddInput)
{
    LNCV_Feld vorher;
    vorher(1) = 44;
    vorher(200) = 5;
    const struct Fall {
        const char* bytes;
        int index, wert;          // one value afterwards
        Integer anzahl;           // the count afterwards, from 128
        const char* kommentar;
    } faelle[] = {
        {"", 1, 0, 128, "alt"},  // values 0..count-1 are cleared, nothing else changes
        {"", 200, 5, 128, "alt"},
        {"4722:\r\n  1= 5 ", 1, 5, 128, "alt"},
        {"1x2= 1a2b3\r\n", 12, 123, 128, "alt"},  // non-digits are ignored
        {"0= 1; 2= 3\r\n", 1, 0, 128, "alt"},     // a missing index stays 0
        {"127= 9\r\n", 127, 9, 128, "alt"},
        {"128= 9\r\n", 128, 9, 129, "alt"},       // an index at the count raises it
        {"200= 9 ; 150= 1\r\n", 200, 9, 201, "alt"},
        {"// kopf 1= 9\r\n3= 4 / 5= 6\r\n", 1, 0, 128, "alt"},  // comments run to the line end
        {"3= 4 / 5= 6\r\n5= 7", 5, 7, 128, "alt"},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.bytes);
        const Gelesen g = lesen(f.bytes, 128, vorher, QStringLiteral("alt"));
        EXPECT_EQ(g.werte(f.index), f.wert);
        EXPECT_EQ(g.anzahl, f.anzahl);
        EXPECT_EQ(g.kommentar, QLatin1String(f.kommentar));
    }
    EXPECT_LAUFZEITFEHLER(6, lesen("2147483647=", 128));
    EXPECT_LAUFZEITFEHLER(9, lesen("5= 1\r\n461= 2\r\n", 128));
}

class Modulwertdateien : public MitFehlerbericht {};

TEST_F(Modulwertdateien, SaveAndLoadAFile)
{
    const QString pfad = ordner.filePath(QStringLiteral("47220_12.lcv"));
    save_lncv(4722, beispiel(), 7, pfad, Kommentar);
    EXPECT_EQ(datei(pfad), golden("4722_12_golden.lcv"));
    Gelesen g;
    g.anzahl = 7;
    load_lncv(g.artnr, g.werte, g.anzahl, pfad, g.kommentar, g.ergebnis);
    EXPECT_EQ(g.werte(5), 300);
}
