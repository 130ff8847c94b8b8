// Part 3.4 AdrEingabe: the field table, loading, checking and storing.
#include "editor/adr_eingabe.h"

#include "core/check_wert.h"
#include "tests/loconet/programmier_umgebung.h"

#include <gtest/gtest.h>

namespace planor::test {
namespace {

struct Zeile {
    std::vector<int> typen;
    QString titel;
    QStringList beschriftungen;
    int obergrenze;
    bool empfaenger;
};

std::vector<int> bereich(int von, int bis)
{
    std::vector<int> v;
    for (int t = von; t <= bis; ++t)
        v.push_back(t);
    return v;
}

const QString Mag = QStringLiteral("Magnetartikeladresse");

std::vector<Zeile> feldtabelle()
{
    std::vector<int> empfaenger = bereich(800, 825);
    for (int t = 830; t <= 833; ++t)
        empfaenger.push_back(t);
    std::vector<int> einzeln = bereich(101, 110);
    for (int t : {501, 502})
        einzeln.push_back(t);
    return {
        {einzeln, Mag, {QStringLiteral("Magnetart.-Adresse:")}, 2047, false},
        {{201, 202, 203, 301, 302}, Mag,
            {QStringLiteral("Magnetart.-Adresse1:"), QStringLiteral("Magnetart.-Adresse2:")}, 2047, false},
        {{511, 512}, Mag, {QStringLiteral("Hautsignal-Adresse:"), QStringLiteral("Vorsignal-Adresse:")}, 2047, false},
        {{521, 522}, Mag, {QStringLiteral("Hautsignal-Adresse:"), QStringLiteral("Rangiersignal-Adr.:")}, 2047, false},
        {{531, 532}, Mag,
            {QStringLiteral("Hautsignal-Adresse:"), QStringLiteral("Vorsignal-Adresse:"),
                QStringLiteral("Rangiersignal-Adr.:")},
            2047, false},
        {{541, 542, 551, 552}, Mag, {QStringLiteral("Magnetart.-Adresse:")}, 2047, false},
        {empfaenger, QStringLiteral("NAVIK/TOBRA-Empfänger Adresse"),
            {QStringLiteral("Moduladresse:"), QStringLiteral("Art.Nr.:")}, 4096, true},
    };
}

TEST(AdrEingabeFelder, EveryTypeRowOfTheTable)
{
    for (const Zeile& z : feldtabelle())
        for (int typ : z.typen) {
            SCOPED_TRACE(typ);
            const std::optional<AdrFelder> f = AdrEingabeFelder(typ);
            ASSERT_TRUE(f.has_value());
            EXPECT_EQ(f->titel, z.titel);
            EXPECT_EQ(f->beschriftungen, z.beschriftungen);
            EXPECT_EQ(f->obergrenze, z.obergrenze);
            EXPECT_EQ(f->empfaenger, z.empfaenger);
        }
}

TEST(AdrEingabeFelder, TypesWithoutAddressesHaveNoForm)
{
    for (int typ : {-99, -1, 0, 1, 9, 27, 100, 111, 204, 303, 503, 510, 826, 829, 834, 840, 841, 920})
        EXPECT_FALSE(AdrEingabeFelder(typ).has_value()) << typ;
}

TEST(AdrEingabeFelder, ArticleList)
{
    EXPECT_EQ(ArtNrListe,
        (QStringList {QStringLiteral("5330"), QStringLiteral("47120"), QStringLiteral("47130"), QStringLiteral("47190"),
            QStringLiteral("47220"), QStringLiteral("47230"), QStringLiteral("47240")}));
}

TEST(AdrFeldZiel, FieldsToAddressesBySpecNotes)
{
    XY_Typ z;
    EXPECT_EQ(&AdrFeldZiel(z, 101, 0), &z.XY_ADR1);
    EXPECT_EQ(&AdrFeldZiel(z, 201, 1), &z.XY_ADR2);
    EXPECT_EQ(&AdrFeldZiel(z, 511, 1), &z.XY_ADR2);
    EXPECT_EQ(&AdrFeldZiel(z, 521, 1), &z.XY_ADR3);
    EXPECT_EQ(&AdrFeldZiel(z, 522, 1), &z.XY_ADR3);
    EXPECT_EQ(&AdrFeldZiel(z, 531, 1), &z.XY_ADR2);
    EXPECT_EQ(&AdrFeldZiel(z, 531, 2), &z.XY_ADR3);
}

class AdrEingabeTest : public MitProgrammierung {
protected:
    // Places the first catalogue element of type `typ` at (x, y).
    void setzen(int x, int y, int typ)
    {
        const int index = katalog.indexVonTyp(typ);
        ASSERT_GT(index, 0) << typ;
        anlage.XY(x, y) = anlage.XY_Leer();
        anlage.XY(x, y).XY_Element = Integer(index);
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
    void empfaenger(int x, int y, int adresse, Long artNr = 47220, int typ = 800)
    {
        setzen(x, y, typ);
        anlage.XY(x, y).XY_ArtNr = artNr;
        anlage.XY(x, y).XY_LNCV(0) = Integer(adresse);
    }
};

TEST_F(AdrEingabeTest, LoadsAnAccessoryByItsFields)
{
    setzen(2, 3, 521);
    anlage.XY(2, 3).XY_ADR1 = 5;
    anlage.XY(2, 3).XY_ADR2 = 99;
    anlage.XY(2, 3).XY_ADR3 = 7;
    const AdrEingabe_Zustand z = laden(2, 3);
    EXPECT_EQ(z.typ, 521);
    EXPECT_EQ(AdrTextfelder(z), 2);
    EXPECT_EQ(z.AdrTxt[0], QStringLiteral("5"));
    EXPECT_EQ(z.AdrTxt[1], QStringLiteral("7"));
    EXPECT_FALSE(EingangSichtbar(z));
}

TEST_F(AdrEingabeTest, UnsetAddressesLoadEmpty)
{
    setzen(1, 1, 101);
    EXPECT_EQ(laden(1, 1).AdrTxt[0], QString());
}

TEST_F(AdrEingabeTest, NoFormForAnEmptyCellOrATrack)
{
    EXPECT_FALSE(AdrEingabe_laden(anlage, katalog, 4, 4).has_value());
    setzen(4, 4, 9);
    EXPECT_FALSE(AdrEingabe_laden(anlage, katalog, 4, 4).has_value());
}

TEST_F(AdrEingabeTest, LoadsAReceiverWithItsArticle)
{
    empfaenger(3, 3, 12, 47130);
    const AdrEingabe_Zustand z = laden(3, 3);
    EXPECT_TRUE(z.felder.empfaenger);
    EXPECT_EQ(AdrTextfelder(z), 1);
    EXPECT_EQ(z.AdrTxt[0], QStringLiteral("12"));
    EXPECT_EQ(z.ArtNrCb, 2);
    EXPECT_EQ(z.EingangOpt, 0);
}

TEST_F(AdrEingabeTest, ANewReceiverHasNoArticleAndOKWaitsForOne)
{
    setzen(3, 3, 830);
    AdrEingabe_Zustand z = laden(3, 3);
    EXPECT_EQ(z.ArtNrCb, -1);
    z.AdrTxt[0] = QStringLiteral("5");
    EXPECT_FALSE(AdrOKFrei(z));
    z.ArtNrCb = 4;
    EXPECT_TRUE(AdrOKFrei(z));
}

TEST_F(AdrEingabeTest, UpperLimits2047And4096TurnTheFieldRedAndDisableOK)
{
    setzen(1, 1, 201);
    AdrEingabe_Zustand z = laden(1, 1);
    z.AdrTxt[1] = QStringLiteral("2047");
    EXPECT_TRUE(AdrFeldPruefen(z, 1).gueltig);
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
    EXPECT_FALSE(AdrFeldPruefen(e, 0).gueltig);
    EXPECT_FALSE(AdrOKFrei(e));
}

TEST_F(AdrEingabeTest, InputChoiceOnlyFor47240AndInput2DisablesTheAddress)
{
    empfaenger(2, 2, 9, 47240, 808);
    AdrEingabe_Zustand z = laden(2, 2);
    EXPECT_TRUE(EingangSichtbar(z));
    EXPECT_TRUE(AdrFeldFrei(z, 0));
    z.EingangOpt = 1;
    EXPECT_FALSE(AdrFeldFrei(z, 0));
    z.AdrTxt[0] = QStringLiteral("99999"); // not checked while disabled
    EXPECT_TRUE(AdrOKFrei(z));
    z.ArtNrCb = 4;
    EXPECT_FALSE(EingangSichtbar(z));
}

TEST_F(AdrEingabeTest, OKStoresEveryAccessoryRowByItsFields)
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

TEST_F(AdrEingabeTest, OKStoresANewReceiverWithTheGeneralValues)
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
}

TEST_F(AdrEingabeTest, ANewAddressKeepsTheFunctionOfTheSameArticle)
{
    empfaenger(4, 2, 17);
    anlage.XY(4, 2).XY_BETR = 3;
    anlage.XY(4, 2).XY_LNCV(2) = 7;
    AdrEingabe_Zustand z = laden(4, 2);
    z.AdrTxt[0] = QStringLiteral("18");
    EXPECT_EQ(ok(z, 4, 2), AdrEingabeErgebnis::Gespeichert);
    EXPECT_EQ(anlage.XY(4, 2).XY_LNCV(0), 18);
    EXPECT_EQ(anlage.XY(4, 2).XY_BETR, 3);
    EXPECT_EQ(anlage.XY(4, 2).XY_LNCV(2), 7);
}

// Edge case of Part 3.4.
TEST_F(AdrEingabeTest, AReceiverAddressAlreadyUsedElsewhereIsRefused)
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

TEST_F(AdrEingabeTest, TheSameCellAndItsPartnerAreNoDuplicates)
{
    empfaenger(2, 2, 9, 47240, 808);
    anlage.XY(2, 2).XY_SenStat = 1;
    anlage.XY(2, 2).XY_SenX = 3;
    anlage.XY(2, 2).XY_SenY = 2;
    empfaenger(3, 2, 9, 47240, 808);
    anlage.XY(3, 2).XY_SenStat = 2;
    anlage.XY(3, 2).XY_SenX = 2;
    anlage.XY(3, 2).XY_SenY = 2;
    EXPECT_FALSE(chk_navik_adr(anlage, katalog, 2, 2, 9).has_value());
    EXPECT_FALSE(chk_navik_adr(anlage, katalog, 3, 2, 9).has_value());
    empfaenger(6, 6, 9);
    EXPECT_EQ(chk_navik_adr(anlage, katalog, 2, 2, 9), QPoint(6, 6));
}

TEST_F(AdrEingabeTest, AddressZeroIsNoAddressAndNeverADuplicate)
{
    setzen(2, 2, 800);
    setzen(3, 3, 800);
    EXPECT_FALSE(chk_navik_adr(anlage, katalog, 2, 2, 0).has_value());
}

TEST_F(AdrEingabeTest, AccessoryAddressesAreNoReceiverAddresses)
{
    setzen(2, 2, 101);
    anlage.XY(2, 2).XY_LNCV(0) = 5; // never so in a real panel, but only modules count
    EXPECT_FALSE(chk_navik_adr(anlage, katalog, 3, 3, 5).has_value());
}

TEST_F(AdrEingabeTest, Input2Of47240AsksForInput1AndStoresNothing)
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

TEST_F(AdrEingabeTest, ChangingInput1sAddressTakesTheSecondInputAlong)
{
    empfaenger(2, 2, 9, 47240, 808);
    anlage.XY(2, 2).XY_SenStat = 1;
    anlage.XY(2, 2).XY_SenX = 3;
    anlage.XY(2, 2).XY_SenY = 2;
    empfaenger(3, 2, 9, 47240, 808);
    anlage.XY(3, 2).XY_SenStat = 2;
    anlage.XY(3, 2).XY_SenX = 2;
    anlage.XY(3, 2).XY_SenY = 2;
    AdrEingabe_Zustand z = laden(2, 2);
    z.AdrTxt[0] = QStringLiteral("44");
    EXPECT_EQ(ok(z, 2, 2), AdrEingabeErgebnis::Gespeichert);
    EXPECT_EQ(anlage.XY(3, 2).XY_LNCV(0), 44);
    EXPECT_EQ(anlage.XY(3, 2).XY_SenStat, 2);
    EXPECT_TRUE(zellen.gezeichnet.contains(QPoint(3, 2)));
}

TEST_F(AdrEingabeTest, ASecondInputGivenAModuleOfItsOwnLeavesThePair)
{
    empfaenger(2, 2, 9, 47240, 808);
    anlage.XY(2, 2).XY_SenStat = 1;
    anlage.XY(2, 2).XY_SenX = 3;
    anlage.XY(2, 2).XY_SenY = 2;
    empfaenger(3, 2, 9, 47240, 808);
    anlage.XY(3, 2).XY_SenStat = 2;
    anlage.XY(3, 2).XY_SenX = 2;
    anlage.XY(3, 2).XY_SenY = 2;
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
