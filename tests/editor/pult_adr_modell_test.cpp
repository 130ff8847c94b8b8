// Part 3.4: the grid `PultAdr` shows the two text rows of set_PultAdr.
#include "editor/pult_modell.h"

#include "tests/editor/editor_umgebung.h"

#include <gtest/gtest.h>

namespace planor::test {
namespace {

using Part3_4_PultAdr = MitPult;

// The ranges of dataChanged, as (top-left, bottom-right).
struct Aenderungen {
    explicit Aenderungen(PultAdrModell& m)
    {
        QObject::connect(&m, &QAbstractItemModel::dataChanged, [this](const QModelIndex& a, const QModelIndex& b) {
            bereiche.push_back({a, b});
        });
    }
    std::vector<std::pair<QModelIndex, QModelIndex>> bereiche;
};

TEST_F(Part3_4_PultAdr, TextRowsShowAccessoryAndReceiverAddresses)
{
    PultAdrModell m(anlage, katalog);
    setzen(2, 3, Dkw201);
    anlage.XY(2, 3).XY_ADR1 = 12;
    anlage.XY(2, 3).XY_ADR2 = 13;
    modul(4, 3, 27);
    // Cell (2, 3): picture in model row 6, accessory row 7, receiver row 8.
    EXPECT_EQ(m.index(7, 1).data(Qt::DisplayRole).toString(), QStringLiteral("12/13"));
    EXPECT_EQ(m.index(8, 1).data(Qt::DisplayRole).toString(), QString());
    EXPECT_EQ(m.index(7, 3).data(Qt::DisplayRole).toString(), QString());
    EXPECT_EQ(m.index(8, 3).data(Qt::DisplayRole).toString(), QStringLiteral("27"));
    EXPECT_EQ(Qt::Alignment(m.index(8, 3).data(Qt::TextAlignmentRole).toInt()), Qt::AlignCenter);
    EXPECT_FALSE(m.index(6, 1).data(Qt::DisplayRole).isValid());
}

TEST_F(Part3_4_PultAdr, SetPultAdrRedrawsTheTwoTextRows)
{
    PultAdrModell m(anlage, katalog);
    Aenderungen geaendert(m);
    m.set_PultAdr(2, 3);
    ASSERT_EQ(geaendert.bereiche.size(), 1u);
    EXPECT_EQ(geaendert.bereiche[0].first, m.index(7, 1));
    EXPECT_EQ(geaendert.bereiche[0].second, m.index(8, 1));
}

TEST_F(Part3_4_PultAdr, ShowLncvLabelsColumn0AndRedrawsAll)
{
    PultAdrModell m(anlage, katalog);
    Aenderungen geaendert(m);
    m.Show_LNCV_in_PultAdr();
    EXPECT_EQ(m.headerData(7, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("Mag.Art.:"));
    ASSERT_EQ(geaendert.bereiche.size(), 1u);
    EXPECT_EQ(geaendert.bereiche[0].first, m.index(0, 0));
    EXPECT_EQ(geaendert.bereiche[0].second, m.index(m.rowCount() - 1, m.columnCount() - 1));
}

} // namespace
} // namespace planor::test
