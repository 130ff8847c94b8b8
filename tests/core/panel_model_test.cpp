// Part 1.2: the panel data model.
#include "core/panel_model.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

#include <type_traits>

using namespace planor;

namespace {

int fehlernummer(const std::function<void()>& f)
{
    try {
        f();
    } catch (const Laufzeitfehler& e) {
        return e.nummer();
    }
    return 0;
}

}  // namespace

TEST(Part1_2, FieldsHaveTheSpecsWidths)
{
    static_assert(std::is_same_v<decltype(XY_Typ::XY_ArtNr), std::int32_t>);
    static_assert(std::is_same_v<decltype(XY_Typ::XY_Version), std::int16_t>);
    static_assert(std::is_same_v<decltype(XY_Typ::XY_BETR), std::int16_t>);
    static_assert(std::is_same_v<decltype(Grundeinst_Typ::LNCV14), std::int16_t>);
    static_assert(std::is_same_v<decltype(PultOpt_Typ::PultOptGPLocked), bool>);
    static_assert(std::is_trivially_copyable_v<XY_Typ>, "a cell copies as one block");
}

TEST(Part1_2, CellAtIndexZeroExistsInEitherDirection)
{
    Anlage a;
    a.XY(0, 0).XY_ArtNr = 47220;
    a.XY(0, 99).XY_ADR1 = 5;
    a.XY(99, 0).XY_ADR2 = 6;
    EXPECT_EQ(a.XY(0, 0).XY_ArtNr, 47220);
    EXPECT_EQ(a.XY(99, 99).XY_BETR, -1);
}

TEST(Part1_2, IndexOutOfBoundsRaisesError9)
{
    Anlage a;
    EXPECT_EQ(fehlernummer([&] { a.XY(100, 1); }), 9);
    EXPECT_EQ(fehlernummer([&] { a.XY(1, -1); }), 9);
    EXPECT_EQ(fehlernummer([&] { a.XY(1, 1).XY_LNCV(461); }), 9);
    EXPECT_EQ(fehlernummer([&] { a.Bhf(21); }), 9);
    EXPECT_EQ(fehlernummer([&] { a.Bhf(1).Bhf_GleisX(14); }), 9);
    EXPECT_EQ(fehlernummer([&] { a.FS(301); }), 9);
    EXPECT_EQ(fehlernummer([&] { a.FS(1).FS_MagBfl(101); }), 9);
    EXPECT_EQ(fehlernummer([&] { a.FS(300).FS_MagBfl(100) = QStringLiteral("S12 rot"); }), 0);
}

TEST(Part1_2, ACellHoldsUpTo461ValuesForTheUniversalController)
{
    // Types 840/841 use 460 values, the others 128: the cell holds 0..460.
    Anlage a;
    a.XY(3, 4).XY_LNCV(460) = 1234;
    a.XY(3, 4).XY_LNCV(127) = 99;
    EXPECT_EQ(a.XY(3, 4).XY_LNCV(460), 1234);
    EXPECT_EQ(a.XY(3, 4).XY_LNCV(127), 99);
}

TEST(Part1_2, ValuesAbove32767KeepTheirUnsignedMeaning)
{
    for (Long wert : {0, 1, 32767, 32768, 40000, 65535}) {
        const Integer gespeichert = Unsig_to_Int(wert);
        EXPECT_EQ(Int_to_Unsig(gespeichert), wert) << wert;
    }
    EXPECT_EQ(Unsig_to_Int(65535), -1);
    EXPECT_EQ(Unsig_to_Int(32768), -32768);
    EXPECT_EQ(Int_to_Unsig(-1), 65535);
    EXPECT_EQ(fehlernummer([] { Unsig_to_Int(100000); }), 6);
    EXPECT_EQ(fehlernummer([] { Unsig_to_Int(-40000); }), 6);
}

TEST(Part1_2, MaxAndMin)
{
    EXPECT_EQ(Max(3, -4), 3);
    EXPECT_EQ(Min(3, -4), -4);
    EXPECT_EQ(Max(7, 7), 7);
}

TEST(Part1_2, EmptyCellTemplateHasLeerElementAndNoMode)
{
    Anlage a;
    a.setzeLeerElement(2);
    EXPECT_EQ(a.XY_Leer().XY_Element, 2);
    EXPECT_EQ(a.XY_Leer().XY_BETR, -1);
    EXPECT_EQ(a.XY_Leer().XY_ArtNr, 0);
    EXPECT_EQ(a.XY_Leer().XY_LNCV(0), 0);
}

TEST(Part1_2, NeuesPultSetzenResetsAllRecords)
{
    Anlage a;
    a.setzeLeerElement(2);
    a.XY(0, 0).XY_ArtNr = 1;
    a.XY(99, 99).XY_LNCV(460) = 7;
    a.XY(5, 5).XY_BETR = 3;
    a.Bhf(20).Bhf_Name = QStringLiteral(" Nord");
    a.Bhf(1).Bhf_Art = 2;
    a.Bhf(1).Bhf_GleisX(13) = 4;
    a.FS(300).FS_Nummer = 1;
    a.FS(1).FS_MagBfl(100) = QStringLiteral("S12 rot");
    a.Bhf_Anz = 3;

    a.neues_pult_setzen();

    for (int x = 0; x <= MaxDimension; ++x)
        for (int y = 0; y <= MaxDimension; ++y)
            ASSERT_EQ(a.XY(x, y), a.XY_Leer()) << x << "," << y;
    for (int i = 0; i <= MaxBhf; ++i)
        EXPECT_EQ(a.Bhf(i), Bhf_Typ{});
    for (int i = 0; i <= MaxFS; ++i)
        EXPECT_EQ(a.FS(i), FS_Typ{});
    EXPECT_EQ(a.Bhf_Anz, 0);
}

TEST(Part1_2, GrundeinstDefaultsOfANewProject)
{
    const Grundeinst_Typ g;
    EXPECT_EQ(g.BlkZustMeld, 1);
    EXPECT_EQ(g.BetriebszustSpeichern, 1);
    EXPECT_EQ(g.LocoNetStatMessage, 1);
    EXPECT_EQ(g.ZugKatRD2_47231, 0);
    EXPECT_EQ(g.LNCV14, 0);
    EXPECT_EQ(g.LNCV17, 8);
    EXPECT_EQ(g.LNCV18, 10);
    EXPECT_EQ(g.LNCV19, 10);
    const Anlage a;
    EXPECT_EQ(a.DimensionenX, 30);
    EXPECT_EQ(a.DimensionenY, 30);
}

TEST(Part1_2, BetriebsartTxtLabels)
{
    const QStringList erwartet = {
        QStringLiteral("PV Zeit"),       QStringLiteral("PV Sig"),        QStringLiteral("Aufenthalt"),
        QStringLiteral("Block"),         QStringLiteral("Einfahrt Bhf."), QStringLiteral("Ausfahrt Bhf."),
        QStringLiteral("Bhfgl."),        QStringLiteral("Einfahrt"),      QStringLiteral("Ausfahrt"),
        QStringLiteral("Einzelsensor"),  QStringLiteral("Fkten./Geschw."),
    };
    for (int i = 0; i <= 10; ++i)
        EXPECT_EQ(BetriebsartTxt(i), erwartet.at(i));
    EXPECT_EQ(BetriebsartTxt(-1), QString());
    EXPECT_EQ(fehlernummer([] { BetriebsartTxt(11); }), 9);
}
