// Part 2.3: Get_Navik_Version against the test module, and the texts of
// prog_error_meldung, through a Benutzer that records what would be shown.
#include "loconet/lncv_austausch.h"

#include "core/benutzer.h"
#include "core/panel_model.h"
#include "tests/loconet/lncv_modul.h"

#include <gtest/gtest.h>

#include <vector>

using namespace planor;
using namespace planor::test;

// --- prog_error_meldung ----------------------------------------------------

namespace {

struct Meldung {
    QString titel;
    QString text;
    Symbol symbol;
};

struct AufzeichnenderBenutzer final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol symbol) override
    {
        meldungen.push_back({titel, text, symbol});
    }
    std::vector<Meldung> meldungen;
};

}  // namespace

TEST(Part2_3, ProgFehlerTextOfEachCode)
{
    EXPECT_EQ(ProgFehlerText(1), QStringLiteral("Message kann nicht auf ComPort gesendet werden!"));
    EXPECT_EQ(ProgFehlerText(2), QStringLiteral("Modul reagiert nicht"));
    EXPECT_EQ(ProgFehlerText(3), QStringLiteral("Programmierung des Wertes gescheitert"));
    EXPECT_EQ(ProgFehlerText(0), QStringLiteral("Unbekannter Fehler!"));
    EXPECT_EQ(ProgFehlerText(4), QStringLiteral("Unbekannter Fehler!"));
    EXPECT_EQ(ProgFehlerText(8002), QStringLiteral("Unbekannter Fehler!"));
    EXPECT_EQ(ProgFehlerText(-1), QStringLiteral("Unbekannter Fehler!"));
}

TEST(Part2_3, ErrorCodesHaveTheSpecsValues)
{
    EXPECT_EQ(ProgOK, 0);
    EXPECT_EQ(ProgSendeFehler, 1);
    EXPECT_EQ(ProgKeineAntwort, 2);
    EXPECT_EQ(ProgAbgelehnt, 3);
}

TEST(Part2_3, ProgErrorMeldungShowsTheCodesTextUnderAStopIcon)
{
    AufzeichnenderBenutzer benutzer;
    prog_error_meldung(benutzer, 2);
    prog_error_meldung(benutzer, 7);
    ASSERT_EQ(benutzer.meldungen.size(), 2u);
    EXPECT_EQ(benutzer.meldungen[0].titel, QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls"));
    EXPECT_EQ(benutzer.meldungen[0].text, QStringLiteral("Fehler:\nModul reagiert nicht"));
    EXPECT_EQ(benutzer.meldungen[0].symbol, Symbol::Kritisch);
    EXPECT_EQ(benutzer.meldungen[1].text, QStringLiteral("Fehler:\nUnbekannter Fehler!"));
    EXPECT_EQ(benutzer.meldungen[1].symbol, Symbol::Kritisch);
}

// --- Get_Navik_Version -----------------------------------------------------

namespace {

const QString NichtVerbunden = QStringLiteral("               Der PC ist nicht mit der Rondel verbunden!\n"
                                              "              Die Software-Version kann nicht ermittelt werden!\n"
                                              "Bitte stellen Sie die Verbindung mit der Rondel her und "
                                              "wiederholen Sie den Vorgang!");
const QString AntwortetNicht = QStringLiteral("                   Modul antwortet nicht!\n"
                                              "     Die Software-Version kann nicht ermittelt werden!\n"
                                              "Bitte überprüfen Sie das Modul und wiederholen Sie den Vorgang!");

class Part2_3_NavikVersion : public MitLncvBus {
protected:
    // A module cell at (3, 4) with address 1234 and a version that shows change.
    XY_Typ& zelle(Long artNr, Integer version = 9)
    {
        XY_Typ& z = anlage.XY(3, 4);
        z.XY_ArtNr = artNr;
        z.XY_LNCV(0) = 1234;
        z.XY_Version = version;
        return z;
    }
    Integer versionMit(Long artNr, Long drahtArtikel, Long lncv16)
    {
        LncvModul modul(uhr, *bus, drahtArtikel, 1234);
        modul.werte[16] = lncv16;
        XY_Typ& z = zelle(artNr);
        Get_Navik_Version(link, benutzer, anlage, 3, 4);
        EXPECT_FALSE(modul.sitzung) << "the session is closed";
        bus->antwort = nullptr;
        return z.XY_Version;
    }

    Anlage anlage;
    AufzeichnenderBenutzer benutzer;
};

}  // namespace

TEST_F(Part2_3_NavikVersion, TypesWithoutDistinctionGetVersion0)
{
    for (Long art : {47120, 47130, 47190, 47220, 47240}) {
        XY_Typ& z = zelle(art, 2);
        Get_Navik_Version(link, benutzer, anlage, 3, 4);
        EXPECT_EQ(z.XY_Version, 0) << art;
    }
    EXPECT_TRUE(bus->gesendet.isEmpty());
    EXPECT_TRUE(benutzer.meldungen.empty());
}

TEST_F(Part2_3_NavikVersion, OtherTypesStayUnchanged)
{
    for (Long art : {0, 47320, 47330, 4723, 533}) {
        XY_Typ& z = zelle(art, 2);
        Get_Navik_Version(link, benutzer, anlage, 3, 4);
        EXPECT_EQ(z.XY_Version, 2) << art;
    }
    EXPECT_TRUE(bus->gesendet.isEmpty());
    EXPECT_TRUE(benutzer.meldungen.empty());
}

TEST_F(Part2_3_NavikVersion, Type5330ReadsLncv16UnderItsOwnNumber)
{
    EXPECT_EQ(versionMit(5330, 5330, 150), 1);
    EXPECT_EQ(bus->gesendet, ProgOn5330_1234 + Read5330_16 + ProgOff5330_1234);
    EXPECT_TRUE(benutzer.meldungen.empty());
}

TEST_F(Part2_3_NavikVersion, Type5330Below200GivesVersion1Else2)
{
    EXPECT_EQ(versionMit(5330, 5330, 199), 1);
    EXPECT_EQ(versionMit(5330, 5330, 200), 2);
    EXPECT_EQ(versionMit(5330, 5330, 0), 1);
    EXPECT_EQ(versionMit(5330, 5330, 65535), 2);
    EXPECT_TRUE(benutzer.meldungen.empty());
}

TEST_F(Part2_3_NavikVersion, Type47230Below205GivesVersion1Else2)
{
    EXPECT_EQ(versionMit(47230, 4723, 204), 1);
    EXPECT_EQ(bus->gesendet, ProgOn4723_1234 + Read4723_16 + ProgOff4723_1234);
    EXPECT_EQ(versionMit(47230, 4723, 205), 2);
    EXPECT_TRUE(benutzer.meldungen.empty());
}

TEST_F(Part2_3_NavikVersion, PortNotOpenShowsTheMessageAndTheDefault)
{
    bus->offen = false;
    XY_Typ& z = zelle(5330, 0);
    Get_Navik_Version(link, benutzer, anlage, 3, 4);
    EXPECT_EQ(z.XY_Version, 2);
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, QStringLiteral("Fehler"));
    EXPECT_EQ(benutzer.meldungen[0].text, NichtVerbunden);
    EXPECT_EQ(benutzer.meldungen[0].symbol, Symbol::Kritisch);

    XY_Typ& z2 = zelle(47230, 0);
    Get_Navik_Version(link, benutzer, anlage, 3, 4);
    EXPECT_EQ(z2.XY_Version, 1);
    ASSERT_EQ(benutzer.meldungen.size(), 2u);
    EXPECT_EQ(benutzer.meldungen[1].text, NichtVerbunden);
    EXPECT_TRUE(bus->gesendet.isEmpty());
}

TEST_F(Part2_3_NavikVersion, NoAnswerShowsTheMessageAndTheDefault)
{
    XY_Typ& z = zelle(5330, 0);
    const double t0 = uhr.sekunden();
    Get_Navik_Version(link, benutzer, anlage, 3, 4);
    EXPECT_EQ(z.XY_Version, 2);
    EXPECT_NEAR(seit(t0), 5 * 0.2, 1e-9);
    EXPECT_EQ(bus->gesendet, mal(ProgOn5330_1234, 5)) << "no read and no Prog_Off without a session";
    ASSERT_EQ(benutzer.meldungen.size(), 1u);
    EXPECT_EQ(benutzer.meldungen[0].titel, QStringLiteral("Fehler"));
    EXPECT_EQ(benutzer.meldungen[0].text, AntwortetNicht);
    EXPECT_EQ(benutzer.meldungen[0].symbol, Symbol::Kritisch);

    XY_Typ& z2 = zelle(47230, 2);
    Get_Navik_Version(link, benutzer, anlage, 3, 4);
    EXPECT_EQ(z2.XY_Version, 1);
    ASSERT_EQ(benutzer.meldungen.size(), 2u);
    EXPECT_EQ(benutzer.meldungen[1].text, AntwortetNicht);
}

TEST_F(Part2_3_NavikVersion, Lncv16UnreadableGivesTheDefaultAndClosesTheSession)
{
    LncvModul modul(uhr, *bus, 4723, 1234);  // without LNCV 16: reads go unanswered
    XY_Typ& z = zelle(47230, 2);
    const double t0 = uhr.sekunden();
    Get_Navik_Version(link, benutzer, anlage, 3, 4);
    EXPECT_EQ(z.XY_Version, 1);
    EXPECT_NEAR(seit(t0), 0.05 + 10 * 0.5, 1e-9);
    EXPECT_EQ(bus->gesendet, ProgOn4723_1234 + mal(Read4723_16, 10) + ProgOff4723_1234);
    EXPECT_FALSE(modul.sitzung);
    EXPECT_TRUE(benutzer.meldungen.empty()) << "spec-notes: only the default, no message";

    LncvModul modul5330(uhr, *bus, 5330, 1234);
    XY_Typ& z2 = zelle(5330, 1);
    Get_Navik_Version(link, benutzer, anlage, 3, 4);
    EXPECT_EQ(z2.XY_Version, 2);
    EXPECT_TRUE(benutzer.meldungen.empty());
}
