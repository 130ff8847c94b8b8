// The project's records: their bounds, the 16-bit values, a new panel.
#include "core/panel_model.h"
#include "tests/support/daten.h"

using namespace planor;

TEST(Anlagedaten, IndexOutsideTheRecordsRaisesError9)
{
    Anlage a;
    a.XY(0, 99).XY_ADR1 = 5;
    a.XY(3, 4).XY_LNCV(460) = 1234;  // the universal controller's 460 values
    EXPECT_EQ(a.XY(3, 4).XY_LNCV(460), 1234);
    EXPECT_LAUFZEITFEHLER(9, a.XY(100, 1));
    EXPECT_LAUFZEITFEHLER(9, a.XY(1, -1));
    EXPECT_LAUFZEITFEHLER(9, a.XY(1, 1).XY_LNCV(461));
    EXPECT_LAUFZEITFEHLER(9, a.Bhf(21));
    EXPECT_LAUFZEITFEHLER(9, a.Bhf(1).Bhf_GleisX(14));
    EXPECT_LAUFZEITFEHLER(9, a.FS(301));
    EXPECT_LAUFZEITFEHLER(9, a.FS(1).FS_MagBfl(101));
    EXPECT_LAUFZEITFEHLER(9, BetriebsartTxt(11));
    a.FS(300).FS_MagBfl(100) = QStringLiteral("S12 rot");
}

TEST(Anlagedaten, ValuesAbove32767KeepTheirUnsignedMeaning)
{
    for (Long wert : {0, 32767, 32768, 40000, 65535})
        EXPECT_EQ(Int_to_Unsig(Unsig_to_Int(wert)), wert) << wert;
    EXPECT_EQ(Unsig_to_Int(65535), -1);
    EXPECT_EQ(Unsig_to_Int(32768), -32768);
    EXPECT_LAUFZEITFEHLER(6, Unsig_to_Int(100000));
    EXPECT_LAUFZEITFEHLER(6, Unsig_to_Int(-40000));
}

TEST(Anlagedaten, NeuesPultSetzenLeavesNothingOfTheOldProject)
{
    Anlage a;
    a.setzeLeerElement(2);
    EXPECT_EQ(a.XY_Leer().XY_BETR, -1);
    a.XY(99, 99).XY_LNCV(460) = 7;
    a.Bhf(20).Bhf_Name = QStringLiteral(" Nord");
    a.Bhf(1).Bhf_GleisX(13) = 4;
    a.FS(1).FS_MagBfl(100) = QStringLiteral("S12 rot");
    a.Bhf_Anz = 3;
    a.neues_pult_setzen();
    for (int x = 0; x <= MaxDimension; ++x)
        for (int y = 0; y <= MaxDimension; ++y)
            ASSERT_EQ(a.XY(x, y), a.XY_Leer()) << x << "," << y;
    EXPECT_EQ(a.XY(0, 0).XY_Element, 2);
    EXPECT_EQ(a.Bhf(20), Bhf_Typ{});
    EXPECT_EQ(a.Bhf(1), Bhf_Typ{});
    EXPECT_EQ(a.FS(1), FS_Typ{});
    EXPECT_EQ(a.Bhf_Anz, 0);
}
