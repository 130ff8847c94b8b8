// Part 4.1: module families, KatAnz and set_modul_optionen.
#include "config/modul_familie.h"

#include "core/panel_model.h"

#include <gtest/gtest.h>

using namespace planor;

TEST(Part4_1, ModuleFamilies)
{
    EXPECT_EQ(Modulfamilie(5330, 0), 1);
    EXPECT_EQ(Modulfamilie(47220, 3), 1);
    EXPECT_EQ(Modulfamilie(47230, 1), 1);
    EXPECT_EQ(Modulfamilie(47230, 2), 2);
    EXPECT_EQ(Modulfamilie(47230, 0), 0);
    EXPECT_EQ(Modulfamilie(47190, 0), 3);
    EXPECT_EQ(Modulfamilie(47240, 0), 4);
    EXPECT_EQ(Modulfamilie(47320, 0), 0);
}

TEST(Part4_1, KatAnzLooksAtArticleAndVersionOnly)
{
    Anlage a;
    XY_Typ& z = a.XY(1, 1);
    const std::pair<Long, int> faelle[] = {{47220, 4}, {47240, 4}, {5330, 4}, {47120, 15}, {47320, 15},
                                           {47330, 15}, {47520, 0}, {0, 0}};
    for (const auto& [artNr, anzahl] : faelle) {
        z.XY_ArtNr = artNr;
        EXPECT_EQ(KatAnz(a, 1, 1), anzahl) << artNr;
    }
    z.XY_ArtNr = 47230;
    z.XY_Version = 0;
    EXPECT_EQ(KatAnz(a, 1, 1), 4);
    z.XY_Version = 2;
    z.XY_LNCV(15) = 0;
    EXPECT_EQ(KatAnz(a, 1, 1), 15);
    z.XY_Version = 3;
    EXPECT_EQ(KatAnz(a, 1, 1), 0);
}

TEST(Part4_1, SetModulOptionenByFamily)
{
    Anlage a;
    a.Grundeinst.BlkZustMeld = 0;
    a.Grundeinst.BetriebszustSpeichern = 1;
    a.Grundeinst.LocoNetStatMessage = 1;
    a.Grundeinst.ZugKatRD2_47231 = 1;
    a.Grundeinst.LNCV14 = 2880;
    XY_Typ& z = a.XY(2, 2);

    z.XY_ArtNr = 47220;
    z.XY_BlkMeld = 1;
    set_modul_optionen(a, 2, 2);
    EXPECT_EQ(z.XY_LNCV(15), 9);
    EXPECT_EQ(z.XY_LNCV(14), 2880);
    EXPECT_EQ(z.XY_BlkMeld, 0);

    z.XY_ArtNr = 47230;
    z.XY_Version = 2;
    set_modul_optionen(a, 2, 2);
    EXPECT_EQ(z.XY_LNCV(15), 41);
    EXPECT_EQ(z.XY_LNCV(19), 10);

    z.XY_ArtNr = 47190;
    set_modul_optionen(a, 2, 2);
    EXPECT_EQ(z.XY_LNCV(17), 8);
    EXPECT_EQ(z.XY_LNCV(18), 10);
    EXPECT_EQ(z.XY_BETR, -1);

    z.XY_ArtNr = 47240;
    set_modul_optionen(a, 2, 2);
    EXPECT_EQ(z.XY_SenStat, 1);
    EXPECT_EQ(z.XY_LNCV(2), 3);
    EXPECT_EQ(z.XY_BETR, 9) << "a sensor module never stays without a mode";
}
