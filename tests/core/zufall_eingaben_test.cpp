// Parts 1.4, 1.5, 1.6: the file readers over seeded random input. Random
// bytes and mutated golden files (bytes flipped, cut off, lines repeated,
// separators and digits inserted) go to load_lncv_bytes, Load_plt_bytes and
// Elementkatalog::lesen. planor::Laufzeitfehler is the specified way of
// failing; anything else thrown is a defect. The seeds are fixed, so a
// failure comes back on every run; scripts/fuzz.sh searches further.
#include "tests/support/berichte.h"
#include "tests/fuzz/dateileser.h"

#include "tests/support/daten.h"

#include <QFile>

#include <random>
#include <typeinfo>

using namespace planor;
using namespace planor::test;

namespace {


const QString testdaten = QStringLiteral(PLANOR_TESTDATA "/");
const QString projektOrdner = QStringLiteral(PLANOR_TESTDATA "/projekt/");
const QString echterKatalog = QStringLiteral(PLANOR_TESTDATA "/../../data/KT_Conf/Elemente.cfg");

// Makes inputs from a fixed seed.
class Mutierer {
public:
    explicit Mutierer(unsigned saat) : zufall_(saat) {}

    int zahl(int von, int bis) { return std::uniform_int_distribution<int>(von, bis)(zufall_); }

    // Bytes of any value, or only of the characters the readers react to.
    QByteArray zufallsBytes(int hoechstens)
    {
        static const QByteArray zeichen = "0123456789,:;=!/\"\r\n -&HXY_";
        const bool nurZeichen = zahl(0, 1) == 1;
        QByteArray b(zahl(0, hoechstens), '\0');
        for (char& c : b)
            c = nurZeichen ? zeichen.at(zahl(0, int(zeichen.size()) - 1)) : char(zahl(0, 255));
        return b;
    }

    // One to four mutations of a golden file.
    QByteArray mutiert(QByteArray b)
    {
        for (int n = zahl(1, 4); n > 0; --n) {
            switch (zahl(0, 4)) {
            case 0: byteKippen(b); break;
            case 1: abschneiden(b); break;
            case 2: zeileWiederholen(b); break;
            case 3: zeileLoeschen(b); break;
            default: einfuegen(b); break;
            }
        }
        return b;
    }

private:
    qsizetype stelle(const QByteArray& b) { return zahl(0, int(b.size())); }

    void byteKippen(QByteArray& b)
    {
        if (b.isEmpty())
            return;
        const qsizetype i = zahl(0, int(b.size()) - 1);
        b[i] = zahl(0, 1) ? char(b.at(i) ^ (1 << zahl(0, 7))) : char(zahl(0, 255));
    }

    void abschneiden(QByteArray& b) { b.truncate(stelle(b)); }

    // The line around a position: its start and its end behind the line feed.
    std::pair<qsizetype, qsizetype> zeile(const QByteArray& b)
    {
        const qsizetype i = stelle(b);
        const qsizetype anfang = i == 0 ? 0 : b.lastIndexOf('\n', i - 1) + 1;
        const qsizetype lf = b.indexOf('\n', i);
        return {anfang, lf < 0 ? b.size() : lf + 1};
    }

    // Up to 40 copies: enough to pass the 100 catalogue entries, the 20
    // family members and the 21 list items.
    void zeileWiederholen(QByteArray& b)
    {
        const auto [anfang, ende] = zeile(b);
        const QByteArray z = b.mid(anfang, ende - anfang);
        b.insert(ende, z.repeated(zahl(1, 40)));
    }

    void zeileLoeschen(QByteArray& b)
    {
        const auto [anfang, ende] = zeile(b);
        b.remove(anfang, ende - anfang);
    }

    // A separator, a marker or a run of digits (up to twelve: past 16 and
    // 32 bits).
    void einfuegen(QByteArray& b)
    {
        static const QByteArray trenner = ",:;=!/\"\r\n-";
        QByteArray neu;
        if (zahl(0, 1) == 0) {
            neu = QByteArray(1, trenner.at(zahl(0, int(trenner.size()) - 1)));
        } else {
            for (int n = zahl(1, 12); n > 0; --n)
                neu += char('0' + zahl(0, 9));
        }
        b.insert(stelle(b), neu);
    }

    std::mt19937 zufall_;
};

class ZufallEingaben : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        // Thousands of guarded reports: none is shown or collected.
        FehlerbehandlungEinrichten({logDatei(), &uhr, &stilleAnzeige});
        Anlage anlage;
        Elemente_laden(echterKatalog, katalog, anlage);
        ASSERT_EQ(katalog.ElementAnz, 75);
    }

    // How the inputs ended, for the XML report (--gtest_output=xml).
    void TearDown() override
    {
        RecordProperty("gelesen", gelesen);
        RecordProperty("abgebrochen", abgebrochen);
        MitFehlerbericht::TearDown();
    }

    // Runs the reader; counts how inputs ended, records what else escaped.
    void pruefen(Dateileser leser, const QByteArray& bytes, const char* herkunft, int nummer)
    {
        try {
            einlesen(leser, bytes, katalog, projektOrdner);
            ++gelesen;
        } catch (const Laufzeitfehler&) {
            ++abgebrochen;
        } catch (const std::exception& e) {
            ADD_FAILURE() << herkunft << " #" << nummer << ", Leser " << int(leser) << ": " << typeid(e).name()
                          << ": " << e.what() << "\nEingabe (hex): " << bytes.toHex().constData();
        } catch (...) {
            ADD_FAILURE() << herkunft << " #" << nummer << ", Leser " << int(leser)
                          << ": unbekannte Ausnahme\nEingabe (hex): " << bytes.toHex().constData();
        }
    }

    // Mutations of the golden files for one reader.
    void goldenMutieren(Dateileser leser, const QStringList& dateien, int anzahl, unsigned saat)
    {
        Mutierer m(saat);
        std::vector<QByteArray> golden;
        for (const QString& d : dateien)
            golden.push_back(datei(d));
        for (int i = 0; i < anzahl; ++i)
            pruefen(leser, m.mutiert(golden[std::size_t(i) % golden.size()]), "Mutation", i);
    }

    StilleFehlerAnzeige stilleAnzeige;
    Elementkatalog katalog;
    int gelesen = 0, abgebrochen = 0;
};

const QStringList lcvDateien = {testdaten + QStringLiteral("4722_12_golden.lcv"),
                                projektOrdner + QStringLiteral("47220_12.lcv"),
                                projektOrdner + QStringLiteral("47320_300.lcv")};

TEST_F(ZufallEingaben, ModulwertdateienWerfenNurLaufzeitfehler)
{
    goldenMutieren(Dateileser::Lncv128, lcvDateien, 700, 14);
    goldenMutieren(Dateileser::Lncv460, lcvDateien, 700, 15);
    // Both ends occur: the inputs reach past the first check.
    EXPECT_GT(gelesen, 100);
    EXPECT_GT(abgebrochen, 10);
}

TEST_F(ZufallEingaben, ProjektdateienWerfenNurLaufzeitfehler)
{
    goldenMutieren(Dateileser::Projekt, {projektOrdner + QStringLiteral("Golden.anl")}, 250, 16);
    EXPECT_GT(gelesen, 10);
    EXPECT_GT(abgebrochen, 10);
}

TEST_F(ZufallEingaben, ElementkatalogeWerfenNurLaufzeitfehler)
{
    goldenMutieren(Dateileser::Katalog, {echterKatalog, testdaten + QStringLiteral("Elemente_test.cfg")}, 800, 17);
    EXPECT_GT(gelesen, 100);
    EXPECT_GT(abgebrochen, 10);
}

TEST_F(ZufallEingaben, ZufallsbytesWerfenNurLaufzeitfehler)
{
    Mutierer m(18);
    for (int i = 0; i < 1000; ++i) {
        const auto leser = static_cast<Dateileser>(i % DateileserAnzahl);
        pruefen(leser, m.zufallsBytes(leser == Dateileser::Projekt ? 200 : 600), "Zufall", i);
    }
    EXPECT_GT(gelesen, 100);
    EXPECT_GT(abgebrochen, 100);
}

}  // namespace
