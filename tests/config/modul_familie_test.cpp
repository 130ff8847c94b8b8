// The options a new module takes from the basic settings, by module family.
#include "config/modul_familie.h"

#include "core/panel_model.h"

#include <gtest/gtest.h>

using namespace planor;

TEST(Modulfamilie, SetModulOptionenByFamily)
{
    struct Fall {
        Long artNr;
        Integer version;
        std::vector<std::pair<int, Integer>> lncv;  // LNCV -> value afterwards
        Integer blkMeld, betr, senStat;
    } const faelle[] = {
        {47220, 0, {{15, 9}, {14, 2880}}, 0, -1, 0},
        {47230, 2, {{15, 41}, {19, 10}}, 0, -1, 0},
        {47190, 0, {{17, 8}, {18, 10}}, 0, -1, 0},
        {47240, 0, {{2, 3}}, 0, 9, 1},  // a sensor module never stays without a mode
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.artNr);
        Anlage a;
        a.Grundeinst.BlkZustMeld = 0;
        a.Grundeinst.ZugKatRD2_47231 = 1;
        a.Grundeinst.LNCV14 = 2880;
        XY_Typ& z = a.XY(2, 2);
        z.XY_ArtNr = f.artNr;
        z.XY_Version = f.version;
        z.XY_BlkMeld = 1;
        set_modul_optionen(a, 2, 2);
        for (const auto& [nr, wert] : f.lncv)
            EXPECT_EQ(z.XY_LNCV(nr), wert) << "LNCV " << nr;
        EXPECT_EQ(z.XY_BlkMeld, f.blkMeld);
        EXPECT_EQ(z.XY_BETR, f.betr);
        EXPECT_EQ(z.XY_SenStat, f.senStat);
    }
}

// Family and number of train categories decide which LNCVs a module gets; an unknown one gets none.
TEST(Modulfamilie, FamilyAndCategoriesByArticleAndVersion)
{
    const std::tuple<Long, Integer, int, int> faelle[] = {
        {5330, 0, 1, 4},   {47220, 0, 1, 4},   {47230, 1, 1, 4}, {47230, 2, 2, 15}, {47230, 3, 0, 0},
        {47120, 0, 3, 15}, {47240, 0, 4, 4},   {47320, 0, 0, 15}, {4711, 0, 0, 0},
    };
    for (const auto& [artNr, version, familie, kategorien] : faelle) {
        Anlage a;
        a.XY(1, 1).XY_ArtNr = artNr;
        a.XY(1, 1).XY_Version = version;
        EXPECT_EQ(Modulfamilie(artNr, version), familie) << artNr << " v" << version;
        EXPECT_EQ(KatAnz(a, 1, 1), kategorien) << artNr << " v" << version;
    }
}
