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

TEST_F(MagArtStatusForm, OptionsAreLabelledByTheElementsType)
{
    struct Fall {
        int typ;
        Integer a1, a2, a3;
        QStringList texte;
    };
    const Fall faelle[] = {
        {201, 12, 13, 0, {"Adresse: 12", "Adresse: 13", "Adresse: -"}},
        {101, 5, 0, 0, {"Adresse: 5", "Adresse: -", "Adresse: -"}},
        {302, 7, 8, 0, {"Adresse: 7", "Adresse: 8", "Adresse: -"}},
        {501, 20, 0, 0, {"Hauptsignal: 20", "Adresse: -", "Adresse: -"}},
        {512, 20, 21, 0, {"Hauptsignal: 20", "Vorsignal: 21", "Adresse: -"}},
        {521, 20, 0, 22, {"Hauptsignal: 20", "Adresse: -", "Rangiersignal: 22"}},
        {532, 20, 21, 22, {"Hauptsignal: 20", "Vorsignal: 21", "Rangiersignal: 22"}},
        {541, 23, 0, 0, {"Vorsignal: 23", "Adresse: -", "Adresse: -"}},
        {552, 24, 0, 0, {"Rangiersignal: 24", "Adresse: -", "Adresse: -"}},
        // A head without an address shows "-" and cannot be chosen.
        {511, 20, 0, 0, {"Hauptsignal: 20", "Vorsignal: -", "Adresse: -"}},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.typ);
        const MagArtStatus_Zustand z = laden(f.typ, f.a1, f.a2, f.a3);
        EXPECT_EQ(texte(z), f.texte);
        EXPECT_EQ(aktiv(z), (QList<bool>{f.a1 != 0, f.a2 != 0, f.a3 != 0}));
    }
}

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
