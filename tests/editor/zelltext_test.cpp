// Part 3.1: SetzeText's table.
#include "editor/zelltext.h"

#include "core/ansi_text.h"
#include "tests/editor/editor_umgebung.h"

using namespace planor;
using namespace planor::test;

namespace {
class Part3_1_Text : public MitPult {
protected:
    QString text(int x, int y) { return Zelltext(anlage, katalog, x, y); }
};
}  // namespace

TEST_F(Part3_1_Text, AddressesOfTurnoutsAndSignals)
{
    setzen(2, 2, Signal511);
    XY_Typ& z = anlage.XY(2, 2);
    EXPECT_EQ(text(2, 2), QString());
    z.XY_ADR1 = 12;
    EXPECT_EQ(text(2, 2), QStringLiteral("12"));
    z.XY_ADR3 = 14;
    EXPECT_EQ(text(2, 2), QStringLiteral("12/14"));
    z.XY_ADR2 = 13;
    EXPECT_EQ(text(2, 2), QStringLiteral("12/13/14"));
    z.XY_ADR1 = 0;
    EXPECT_EQ(text(2, 2), QString());
}

TEST_F(Part3_1_Text, SecondSensorInputPointsToItsPartner)
{
    setzen(3, 3, Empf800);
    XY_Typ& z = anlage.XY(3, 3);
    z.XY_SenStat = 2;
    z.XY_LNCV(0) = 25;
    z.XY_SenX = 4;
    z.XY_SenY = 7;
    EXPECT_EQ(ansi::encode(text(3, 3)), QByteArray("25/\x9B\x96X/Y 4/7"));
}

TEST_F(Part3_1_Text, ReceiverShowsItsModeTrackOrAddress)
{
    setzen(3, 3, Empf800);
    XY_Typ& z = anlage.XY(3, 3);
    EXPECT_EQ(text(3, 3), QString());
    z.XY_ArtNr = 47220;
    z.XY_LNCV(0) = 25;
    EXPECT_EQ(text(3, 3), QStringLiteral("25"));
    z.XY_Version = 2;
    EXPECT_EQ(text(3, 3), QStringLiteral("25-2"));
    z.XY_BETR = 6;
    z.XY_GleisIDX = 3;
    EXPECT_EQ(text(3, 3), QStringLiteral("Bhfgl.3"));
    z.XY_ArtNr = 47240;
    EXPECT_EQ(text(3, 3), QStringLiteral("Einzels.472403"));
    z.XY_GleisIDX = 0;
    EXPECT_EQ(text(3, 3), QStringLiteral("Einzels.47240"));
}

TEST_F(Part3_1_Text, Variants831And833HaveNoLabelFor47240)
{
    setzen(3, 3, Empf831);
    XY_Typ& z = anlage.XY(3, 3);
    z.XY_ArtNr = 47240;
    z.XY_BETR = 9;
    EXPECT_EQ(text(3, 3), QStringLiteral("Einzelsensor"));
}

TEST_F(Part3_1_Text, UniversalControllerCells)
{
    setzen(3, 3, Uni840);
    XY_Typ& z = anlage.XY(3, 3);
    EXPECT_EQ(text(3, 3), QStringLiteral("UniSt."));
    z.XY_ArtNr = 47320;
    z.XY_GleisIDX = 2;
    z.XY_BETR = 20;
    EXPECT_EQ(text(3, 3), QStringLiteral("2Block"));
    z.XY_BETR = 22;
    EXPECT_EQ(text(3, 3), QStringLiteral("2Block/Einfm."));
    z.XY_BETR = 23;
    EXPECT_EQ(text(3, 3), QStringLiteral("2Block/Ausfm."));
}

TEST_F(Part3_1_Text, TrackAndOtherElementsHaveNoText)
{
    setzen(3, 3, GeradeW);
    anlage.XY(3, 3).XY_ADR1 = 5;
    EXPECT_EQ(text(3, 3), QString());
    EXPECT_EQ(text(9, 9), QString());
}
