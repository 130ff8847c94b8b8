// Part 3.6 MagArtStatus: the options' labels by the element's type, the
// choice within each group, and what OK takes from it.
#include "editor/mag_art_status.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "tests/support/berichte.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

class Part3_6_MagArtStatus : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        Elemente_laden(QStringLiteral(PLANOR_TESTDATA "/../../data/KT_Conf/Elemente.cfg"), katalog, anlage);
        anlage.neues_pult_setzen();
    }
    void TearDown() override { EXPECT_TRUE(berichte.texte.isEmpty()) << berichte.texte.join(u'\n').toStdString(); }

    MagArtStatus_Zustand laden(int typ, Integer a1, Integer a2 = 0, Integer a3 = 0)
    {
        XY_Typ& z = anlage.XY(3, 4);
        z.XY_Element = katalog.indexVonTyp(typ);
        z.XY_ADR1 = a1;
        z.XY_ADR2 = a2;
        z.XY_ADR3 = a3;
        return MagArtStatus_fuerMonitor(anlage, katalog, 3, 4);
    }
    static QStringList texte(const MagArtStatus_Zustand& z)
    {
        return {z.AdrOptText(1), z.AdrOptText(2), z.AdrOptText(3)};
    }
    static QList<bool> aktiv(const MagArtStatus_Zustand& z)
    {
        return {z.AdrOptAktiv(1), z.AdrOptAktiv(2), z.AdrOptAktiv(3)};
    }

    Anlage anlage;
    Elementkatalog katalog;
};

}  // namespace

TEST_F(Part3_6_MagArtStatus, TurnoutsAreLabelledAdresse)
{
    const MagArtStatus_Zustand z = laden(201, 12, 13);
    EXPECT_EQ(texte(z), (QStringList{"Adresse: 12", "Adresse: 13", "Adresse: -"}));
    EXPECT_EQ(aktiv(z), (QList<bool>{true, true, false}));
    EXPECT_EQ(texte(laden(101, 5)), (QStringList{"Adresse: 5", "Adresse: -", "Adresse: -"}));
    EXPECT_EQ(texte(laden(302, 7, 8)), (QStringList{"Adresse: 7", "Adresse: 8", "Adresse: -"}));
}

TEST_F(Part3_6_MagArtStatus, SignalHeadsAreLabelledByTheirKind)
{
    EXPECT_EQ(texte(laden(501, 20)), (QStringList{"Hauptsignal: 20", "Adresse: -", "Adresse: -"}));
    EXPECT_EQ(texte(laden(512, 20, 21)), (QStringList{"Hauptsignal: 20", "Vorsignal: 21", "Adresse: -"}));
    EXPECT_EQ(texte(laden(521, 20, 0, 22)), (QStringList{"Hauptsignal: 20", "Adresse: -", "Rangiersignal: 22"}));
    EXPECT_EQ(texte(laden(532, 20, 21, 22)), (QStringList{"Hauptsignal: 20", "Vorsignal: 21", "Rangiersignal: 22"}));
    EXPECT_EQ(texte(laden(541, 23)), (QStringList{"Vorsignal: 23", "Adresse: -", "Adresse: -"}));
    EXPECT_EQ(texte(laden(552, 24)), (QStringList{"Rangiersignal: 24", "Adresse: -", "Adresse: -"}));
    // A head without an address shows "-" and cannot be chosen.
    const MagArtStatus_Zustand z = laden(511, 20, 0);
    EXPECT_EQ(z.AdrOptText(2), QStringLiteral("Vorsignal: -"));
    EXPECT_FALSE(z.AdrOptAktiv(2));
}

TEST_F(Part3_6_MagArtStatus, TheFirstAddressAndRotAreChosen)
{
    MagArtStatus_Zustand z = laden(521, 0, 0, 22);
    EXPECT_EQ(MagArtStatus_Adresse(z), 22);
    EXPECT_TRUE(z.AdrOpt(3));
    EXPECT_TRUE(z.StatOpt(0));
    EXPECT_FALSE(z.StatOpt(1));
    EXPECT_EQ(MagArtStatus_Stellung(z), 0);
}

TEST_F(Part3_6_MagArtStatus, EachGroupHoldsOneChoice)
{
    MagArtStatus_Zustand z = laden(201, 12, 13);
    AdrOpt_Click(z, 2);
    StatOpt_Click(z, 1);
    EXPECT_FALSE(z.AdrOpt(1));
    EXPECT_TRUE(z.AdrOpt(2));
    EXPECT_FALSE(z.StatOpt(0));
    EXPECT_EQ(MagArtStatus_Adresse(z), 13);
    EXPECT_EQ(MagArtStatus_Stellung(z), 1);
    // A disabled option gives no address.
    AdrOpt_Click(z, 3);
    EXPECT_EQ(MagArtStatus_Adresse(z), 0);
}

TEST_F(Part3_6_MagArtStatus, TheFormTextsAreTheSpecs)
{
    EXPECT_EQ(MagArtStatusTitel, QStringLiteral("Magnetartikel Status"));
    EXPECT_EQ(StatOptText0, QStringLiteral("rot"));
    EXPECT_EQ(StatOptText1, QStringLiteral("grün"));
}
