// The file readers over seeded random input: mutated known-good files and
// plain random bytes. A reader may fail only with planor::Laufzeitfehler,
// which its caller's guard reports; anything else thrown is a defect. The
// seeds are fixed, so a failure comes back on every run.
#include "tests/fuzz/dateileser.h"
#include "tests/support/berichte.h"
#include "tests/support/daten.h"

#include <random>

using namespace planor;
using namespace planor::test;

TEST(ZufallEingaben, LeserWerfenNurLaufzeitfehler)
{
    QTemporaryDir ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    StilleFehlerAnzeige still;  // thousands of inputs fail on purpose
    FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), &uhr, &still});
    const QString projekt = testdaten(QStringLiteral("projekt/"));
    const QString echterKatalog = testdaten(QStringLiteral("../../data/KT_Conf/Elemente.cfg"));
    Anlage anlage;
    Elementkatalog katalog;
    Elemente_laden(echterKatalog, katalog, anlage);
    const QStringList lcv = {testdaten(QStringLiteral("4722_12_golden.lcv")), projekt + QStringLiteral("47220_12.lcv"),
                             projekt + QStringLiteral("47320_300.lcv")};
    const struct Fall {
        Dateileser leser;
        QStringList dateien;  // none: random bytes
        int anzahl;
    } faelle[] = {
        {Dateileser::Lncv128, lcv, 600}, {Dateileser::Lncv460, lcv, 600},
        {Dateileser::Projekt, {projekt + QStringLiteral("Golden.anl")}, 250},
        {Dateileser::Katalog, {echterKatalog, testdaten(QStringLiteral("Elemente_test.cfg"))}, 600},
        {Dateileser::Lncv128, {}, 300}, {Dateileser::Projekt, {}, 300}, {Dateileser::Katalog, {}, 300},
    };
    std::mt19937 zufall(14);
    const auto zahl = [&](qsizetype von, qsizetype bis) {
        return std::uniform_int_distribution<qsizetype>(von, bis)(zufall);
    };
    for (const Fall& f : faelle) {
        int gelesen = 0, abgebrochen = 0;
        for (int i = 0; i < f.anzahl; ++i) {
            QByteArray b(zahl(0, 400), '\0');
            for (char& c : b)
                c = char(zahl(0, 255));
            if (!f.dateien.isEmpty())
                b = datei(f.dateien[i % f.dateien.size()]);
            for (qsizetype n = f.dateien.isEmpty() ? 0 : zahl(1, 4); n > 0; --n) {
                const qsizetype stelle = zahl(0, b.size()), zeilenende = b.indexOf('\n', stelle);
                switch (zahl(0, 3)) {
                case 0: if (stelle < b.size()) b[stelle] = char(b[stelle] ^ (1 << zahl(0, 7))); break;
                case 1: b.truncate(stelle); break;
                // up to 40 copies of a line: past 100 entries, 20 members, 21 list items
                case 2: b.insert(stelle, b.mid(stelle, zeilenende - stelle + 1).repeated(int(zahl(1, 40)))); break;
                default: b.insert(stelle, QByteArray::number(zahl(0, 1) ? zahl(0, 9) : 99999999999LL)); break;
                }
            }
            try {
                einlesen(f.leser, b, katalog, projekt);
                ++gelesen;
            } catch (const Laufzeitfehler&) {
                ++abgebrochen;
            } catch (const std::exception& e) {
                ADD_FAILURE() << "Leser " << int(f.leser) << ": " << e.what() << "\nEingabe: " << b.toHex().constData();
            }
        }
        // Both ends occur: the mutations reach past the first check.
        if (!f.dateien.isEmpty()) {
            EXPECT_GT(gelesen, 10) << int(f.leser);
            EXPECT_GT(abgebrochen, 10) << int(f.leser);
        }
    }
}
