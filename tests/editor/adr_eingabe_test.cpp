// The address form: loading a cell, checking the fields and storing them.
#include "editor/adr_eingabe.h"

#include "core/check_wert.h"
#include "tests/editor/editor_umgebung.h"
#include "tests/programmierung/programmier_umgebung.h"

#include <gtest/gtest.h>

namespace planor::test {
namespace {

class AdrEingabe : public MitProgrammierung {
protected:
    void setzen(int x, int y, int typ) { zelleSetzen(anlage, katalog, x, y, typ); }
    void empfaenger(int x, int y, int adresse, Long artNr = 47220, int typ = 800)
    {
        empfaengerSetzen(anlage, katalog, x, y, adresse, artNr, typ);
    }
    // Two inputs of one single sensor 47240 at (2, 2) and (3, 2), address 9.
    void sensorPaar()
    {
        empfaenger(2, 2, 9, 47240, 808);
        empfaenger(3, 2, 9, 47240, 808);
        for (auto [x, stat, partner] : {std::tuple {2, 1, 3}, std::tuple {3, 2, 2}}) {
            anlage.XY(x, 2).XY_SenStat = Integer(stat);
            anlage.XY(x, 2).XY_SenX = Integer(partner);
            anlage.XY(x, 2).XY_SenY = 2;
        }
    }
    AdrEingabe_Zustand laden(int x, int y)
    {
        std::optional<AdrEingabe_Zustand> z = AdrEingabe_laden(anlage, katalog, x, y);
        EXPECT_TRUE(z.has_value());
        return z.value_or(AdrEingabe_Zustand {});
    }
    AdrEingabeErgebnis ok(const AdrEingabe_Zustand& z, int x, int y)
    {
        return AdrEingabe_OK(z, anlage, katalog, zellen, meldungen, x, y);
    }
};

TEST_F(AdrEingabe, UpperLimits2047And4096TurnTheFieldRedAndDisableOK)
{
    setzen(1, 1, 201);
    AdrEingabe_Zustand z = laden(1, 1);
    z.AdrTxt[1] = QStringLiteral("2047");
    EXPECT_EQ(AdrFeldPruefen(z, 1).labelText, QStringLiteral("Magnetart.-Adresse2:"));
    EXPECT_TRUE(AdrOKFrei(z));
    z.AdrTxt[1] = QStringLiteral("2048");
    EXPECT_FALSE(AdrFeldPruefen(z, 1).gueltig);
    EXPECT_EQ(AdrFeldPruefen(z, 1).labelText, WertZuGrossTxt);
    EXPECT_FALSE(AdrOKFrei(z));

    empfaenger(2, 2, 0);
    AdrEingabe_Zustand e = laden(2, 2);
    e.AdrTxt[0] = QStringLiteral("4096");
    EXPECT_TRUE(AdrOKFrei(e));
    e.AdrTxt[0] = QStringLiteral("4097");
    EXPECT_FALSE(AdrOKFrei(e));
}

TEST_F(AdrEingabe, OKStoresEveryAccessoryRowByItsFields)
{
    struct Fall {
        int typ;
        Integer adr1, adr2, adr3;
    };
    // Typed 11, 22, 33 into as many fields as the type shows.
    for (const Fall& f : {Fall {101, 11, 0, 0}, Fall {502, 11, 0, 0}, Fall {203, 11, 22, 0}, Fall {302, 11, 22, 0},
             Fall {512, 11, 22, 0}, Fall {521, 11, 0, 22}, Fall {522, 11, 0, 22}, Fall {531, 11, 22, 33},
             Fall {552, 11, 0, 0}}) {
        SCOPED_TRACE(f.typ);
        setzen(5, 5, f.typ);
        anlage.PultGeaendert = 0;
        zellen.gezeichnet.clear();
        AdrEingabe_Zustand z = laden(5, 5);
        z.AdrTxt = {QStringLiteral("11"), QStringLiteral("22"), QStringLiteral("33")};
        EXPECT_EQ(ok(z, 5, 5), AdrEingabeErgebnis::Gespeichert);
        EXPECT_EQ(anlage.XY(5, 5).XY_ADR1, f.adr1);
        EXPECT_EQ(anlage.XY(5, 5).XY_ADR2, f.adr2);
        EXPECT_EQ(anlage.XY(5, 5).XY_ADR3, f.adr3);
        EXPECT_EQ(anlage.PultGeaendert, 1);
        EXPECT_TRUE(zellen.gezeichnet.contains(QPoint(5, 5)));
    }
}

TEST_F(AdrEingabe, OKStoresANewReceiverWithTheGeneralValues)
{
    setzen(4, 2, 800);
    anlage.Grundeinst.LNCV14 = 321;
    AdrEingabe_Zustand z = laden(4, 2);
    z.AdrTxt[0] = QStringLiteral("17");
    z.ArtNrCb = Vorhanden(ArtNrListe, QStringLiteral("47220"));
    EXPECT_EQ(ok(z, 4, 2), AdrEingabeErgebnis::Gespeichert);
    const XY_Typ& c = anlage.XY(4, 2);
    EXPECT_EQ(c.XY_LNCV(0), 17);
    EXPECT_EQ(c.XY_ArtNr, 47220);
    EXPECT_EQ(c.XY_Version, 0);
    EXPECT_EQ(c.XY_LNCV(14), 321);
    EXPECT_EQ(c.XY_LNCV(15), 8 * anlage.Grundeinst.BetriebszustSpeichern + anlage.Grundeinst.LocoNetStatMessage);
    EXPECT_EQ(c.XY_BlkMeld, anlage.Grundeinst.BlkZustMeld);
    EXPECT_EQ(anlage.PultGeaendert, 1);
    EXPECT_TRUE(meldungen.texte.isEmpty());

    // A new address keeps the function of the same article.
    anlage.XY(4, 2).XY_BETR = 3;
    anlage.XY(4, 2).XY_LNCV(2) = 7;
    z = laden(4, 2);
    z.AdrTxt[0] = QStringLiteral("18");
    EXPECT_EQ(ok(z, 4, 2), AdrEingabeErgebnis::Gespeichert);
    EXPECT_EQ(anlage.XY(4, 2).XY_LNCV(0), 18);
    EXPECT_EQ(anlage.XY(4, 2).XY_BETR, 3);
    EXPECT_EQ(anlage.XY(4, 2).XY_LNCV(2), 7);
}

TEST_F(AdrEingabe, AReceiverAddressAlreadyUsedElsewhereIsRefused)
{
    empfaenger(7, 9, 25, 47120);
    setzen(2, 2, 830);
    const XY_Typ vorher = anlage.XY(2, 2);
    AdrEingabe_Zustand z = laden(2, 2);
    z.AdrTxt[0] = QStringLiteral("25");
    z.ArtNrCb = 4;
    EXPECT_EQ(ok(z, 2, 2), AdrEingabeErgebnis::Abgelehnt);
    EXPECT_EQ(meldungen.texte,
        QStringList {QStringLiteral("Fehler|NAVIK/TOBRA Adresse schon vorhanden \nan Position: 7, 9 !!")});
    EXPECT_EQ(anlage.XY(2, 2), vorher);
    EXPECT_EQ(anlage.PultGeaendert, 0);
}

TEST_F(AdrEingabe, DuplicateCheckCountsOnlyOtherModules)
{
    sensorPaar();
    setzen(5, 5, 101);
    anlage.XY(5, 5).XY_LNCV(0) = 5; // never so in a real panel, but only modules count
    setzen(6, 5, 800);
    struct Fall {
        const char* name;
        int x, y, adresse;
        std::optional<QPoint> gefunden;
    };
    const Fall faelle[] = {
        {"the cell itself and its partner input", 2, 2, 9, std::nullopt},
        {"the partner input from the other side", 3, 2, 9, std::nullopt},
        {"address 0 is no address", 2, 2, 0, std::nullopt},
        {"accessory cells", 3, 3, 5, std::nullopt},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.name);
        EXPECT_EQ(chk_navik_adr(anlage, katalog, f.x, f.y, f.adresse), f.gefunden);
    }
    empfaenger(6, 6, 9);
    EXPECT_EQ(chk_navik_adr(anlage, katalog, 2, 2, 9), QPoint(6, 6));
}

TEST_F(AdrEingabe, Input2Of47240AsksForInput1AndStoresNothing)
{
    setzen(3, 2, 808);
    const XY_Typ vorher = anlage.XY(3, 2);
    AdrEingabe_Zustand z = laden(3, 2);
    z.ArtNrCb = Vorhanden(ArtNrListe, QStringLiteral("47240"));
    z.EingangOpt = 1;
    EXPECT_EQ(ok(z, 3, 2), AdrEingabeErgebnis::Sensor2Wartet);
    EXPECT_EQ(meldungen.texte,
        QStringList {QStringLiteral("Einzelsensor Eingang2 ausgewählt:|Bitte wählen Sie mit der "
                                    "Maus im Plan das Modul aus,\ndass den zughörigen Eingang 1 "
                                    "enthält!")});
    EXPECT_EQ(anlage.XY(3, 2), vorher);
}

TEST_F(AdrEingabe, ChangingInput1sAddressTakesTheSecondInputAlong)
{
    sensorPaar();
    AdrEingabe_Zustand z = laden(2, 2);
    z.AdrTxt[0] = QStringLiteral("44");
    EXPECT_EQ(ok(z, 2, 2), AdrEingabeErgebnis::Gespeichert);
    EXPECT_EQ(anlage.XY(3, 2).XY_LNCV(0), 44);
    EXPECT_EQ(anlage.XY(3, 2).XY_SenStat, 2);
    EXPECT_TRUE(zellen.gezeichnet.contains(QPoint(3, 2)));
}

TEST_F(AdrEingabe, ASecondInputGivenAModuleOfItsOwnLeavesThePair)
{
    sensorPaar();
    AdrEingabe_Zustand z = laden(3, 2);
    EXPECT_EQ(z.EingangOpt, 1);
    z.EingangOpt = 0;
    z.AdrTxt[0] = QStringLiteral("10");
    EXPECT_EQ(ok(z, 3, 2), AdrEingabeErgebnis::Gespeichert);
    EXPECT_EQ(anlage.XY(3, 2).XY_LNCV(0), 10);
    EXPECT_EQ(anlage.XY(3, 2).XY_SenStat, 1); // a 47240 of its own
    EXPECT_EQ(anlage.XY(3, 2).XY_SenX, 0);
    EXPECT_EQ(anlage.XY(2, 2).XY_SenStat, 1);
    EXPECT_EQ(anlage.XY(2, 2).XY_SenX, 0);
}

} // namespace
} // namespace planor::test
