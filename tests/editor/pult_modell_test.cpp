// Part 3.1: what the grids show.
#include "editor/mon_modell.h"
#include "editor/pult_modell.h"

#include "tests/editor/editor_umgebung.h"

using namespace planor;
using namespace planor::test;

namespace {
class Part3_1_Grid : public MitPult {};
}  // namespace

TEST_F(Part3_1_Grid, PultHasACellPerPanelCell)
{
    PultModell m(anlage, katalog);
    EXPECT_EQ(m.rowCount(), 30);
    EXPECT_EQ(m.columnCount(), 30);
    setzen(4, 2, Weiche101);
    anlage.XY(4, 2).XY_ADR1 = 12;
    const QModelIndex i = m.index(1, 3);
    EXPECT_EQ(i.data(BildRolle).toString(), QStringLiteral("w101_re.bmp"));
    EXPECT_EQ(i.data(Qt::DisplayRole).toString(), QStringLiteral("12"));
    EXPECT_EQ(i.data(Qt::ToolTipRole).toString(), QStringLiteral("Weiche rechts"));
    EXPECT_EQ(Qt::Alignment(i.data(Qt::TextAlignmentRole).toInt()), Qt::AlignLeft | Qt::AlignBottom);
    EXPECT_EQ(m.headerData(3, Qt::Horizontal, Qt::DisplayRole).toInt(), 4);
}

TEST_F(Part3_1_Grid, ChangingDimensionenXChangesOnlyTheColumnCount)
{
    PultModell m(anlage, katalog);
    anlage.DimensionenX = 12;
    m.init_flexgrid();
    EXPECT_EQ(m.columnCount(), 12);
    EXPECT_EQ(m.rowCount(), 30);
}

TEST_F(Part3_1_Grid, PultAdrHasThreeRowsAPanelRow)
{
    PultAdrModell m(anlage, katalog);
    EXPECT_EQ(m.rowCount(), 90);
    setzen(2, 3, Signal511);
    EXPECT_EQ(m.index(6, 1).data(BildRolle).toString(), QStringLiteral("s511_hv.bmp"));
    EXPECT_FALSE(m.index(7, 1).data(BildRolle).isValid());
    EXPECT_EQ(m.headerData(6, Qt::Vertical, Qt::DisplayRole).toInt(), 3);
    EXPECT_EQ(m.headerData(7, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("Adr:"));
    m.Beschrifte_Spalte_0();
    EXPECT_EQ(m.headerData(7, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("Mag.Art.:"));
    EXPECT_EQ(m.headerData(8, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("NAVIK/TOBRA:"));
    EXPECT_EQ(Qt::Alignment(m.headerData(8, Qt::Vertical, Qt::TextAlignmentRole).toInt()),
              Qt::AlignHCenter | Qt::AlignBottom);
}

TEST_F(Part3_1_Grid, MonShowsTheMonitorPicture)
{
    MonModell m(anlage, katalog);
    setzen(2, 3, Signal511);
    EXPECT_EQ(m.index(2, 1).data(BildRolle).toString(), QStringLiteral("s511_mon.bmp"));
    EXPECT_FALSE(m.index(2, 1).data(Qt::DisplayRole).isValid());
}

TEST(Part3_1_Ausrichtung, FlexGridCodes)
{
    EXPECT_EQ(Ausrichtung(0), Qt::AlignLeft | Qt::AlignTop);
    EXPECT_EQ(Ausrichtung(4), Qt::AlignHCenter | Qt::AlignVCenter);
    EXPECT_EQ(Ausrichtung(5), Qt::AlignHCenter | Qt::AlignBottom);
    EXPECT_EQ(Ausrichtung(8), Qt::AlignRight | Qt::AlignBottom);
    EXPECT_EQ(Ausrichtung(9), Qt::AlignLeft | Qt::AlignVCenter);
}
