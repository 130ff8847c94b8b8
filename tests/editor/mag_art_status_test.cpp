// The accessory status form: the options' labels by the element's type, the
// choice within each group, and what OK takes from it.
#include "editor/mag_art_status.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "tests/support/berichte.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

class MagArtStatusForm : public MitFehlerbericht {
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

TEST_F(MagArtStatusForm, TheFirstAddressAndRotAreChosen)
{
    MagArtStatus_Zustand z = laden(521, 0, 0, 22);
    EXPECT_EQ(MagArtStatus_Adresse(z), 22);
    EXPECT_TRUE(z.AdrOpt(3));
    EXPECT_TRUE(z.StatOpt(0));
    EXPECT_FALSE(z.StatOpt(1));
    EXPECT_EQ(MagArtStatus_Stellung(z), 0);
}

TEST_F(MagArtStatusForm, EachGroupHoldsOneChoice)
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
