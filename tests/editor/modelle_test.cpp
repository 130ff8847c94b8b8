// What the grids show of a panel, and the text each cell carries.
#include "editor/mon_modell.h"
#include "editor/pult_modell.h"
#include "editor/zelltext.h"

#include "core/ansi_text.h"
#include "tests/editor/editor_umgebung.h"

#include <functional>

using namespace planor;
using namespace planor::test;

namespace {
using Gitter = MitPult;

TEST_F(Gitter, PultAdrHasAPictureAndTwoTextRowsAPanelRow)
{
    PultAdrModell m(anlage, katalog);
    EXPECT_EQ(m.rowCount(), 90);
    setzen(2, 3, Dkw201);
    anlage.XY(2, 3).XY_ADR1 = 12;
    anlage.XY(2, 3).XY_ADR2 = 13;
    modul(4, 3, 27);
    EXPECT_EQ(m.index(6, 1).data(BildRolle).toString(), QStringLiteral("d201_dkw.bmp"));
    EXPECT_FALSE(m.index(7, 1).data(BildRolle).isValid());
    EXPECT_FALSE(m.index(6, 1).data(Qt::DisplayRole).isValid());
    EXPECT_EQ(m.index(7, 1).data(Qt::DisplayRole).toString(), QStringLiteral("12/13"));
    EXPECT_EQ(m.index(8, 1).data(Qt::DisplayRole).toString(), QString());
    EXPECT_EQ(m.index(7, 3).data(Qt::DisplayRole).toString(), QString());
    EXPECT_EQ(m.index(8, 3).data(Qt::DisplayRole).toString(), QStringLiteral("27"));
    EXPECT_EQ(Qt::Alignment(m.index(8, 3).data(Qt::TextAlignmentRole).toInt()), Qt::AlignCenter);
    EXPECT_EQ(m.headerData(6, Qt::Vertical, Qt::DisplayRole).toInt(), 3);
    EXPECT_EQ(m.headerData(7, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("Adr:"));
    m.Show_LNCV_in_PultAdr();
    EXPECT_EQ(m.headerData(7, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("Mag.Art.:"));
    EXPECT_EQ(m.headerData(8, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("NAVIK/TOBRA:"));
    EXPECT_EQ(Qt::Alignment(m.headerData(8, Qt::Vertical, Qt::TextAlignmentRole).toInt()),
              Qt::AlignHCenter | Qt::AlignBottom);
}

// One row: the element, the fields set on the cell (applied in order), the text.
struct Textfall {
    const char* name;
    int element;
    std::function<void(XY_Typ&)> felder;
    QByteArray text;  // as the panel file would store it
};

TEST_F(Gitter, CellTexts)
{
    const std::vector<Textfall> faelle = {
        {"no address", Signal511, [](XY_Typ&) {}, ""},
        {"one address", Signal511, [](XY_Typ& z) { z.XY_ADR1 = 12; }, "12"},
        {"first and third", Signal511, [](XY_Typ& z) { z.XY_ADR1 = 12; z.XY_ADR3 = 14; }, "12/14"},
        {"three addresses", Signal511, [](XY_Typ& z) { z.XY_ADR1 = 12; z.XY_ADR2 = 13; z.XY_ADR3 = 14; }, "12/13/14"},
        {"without the first none", Signal511, [](XY_Typ& z) { z.XY_ADR2 = 13; z.XY_ADR3 = 14; }, ""},
        {"second sensor input", Empf800,
         [](XY_Typ& z) { z.XY_SenStat = 2; z.XY_LNCV(0) = 25; z.XY_SenX = 4; z.XY_SenY = 7; }, "25/\x9B\x96X/Y 4/7"},
        {"unconfigured receiver", Empf800, [](XY_Typ&) {}, ""},
        {"receiver address", Empf800, [](XY_Typ& z) { z.XY_ArtNr = 47220; z.XY_LNCV(0) = 25; }, "25"},
        {"second generation", Empf800,
         [](XY_Typ& z) { z.XY_ArtNr = 47220; z.XY_LNCV(0) = 25; z.XY_Version = 2; }, "25-2"},
        {"station track", Empf800,
         [](XY_Typ& z) { z.XY_ArtNr = 47220; z.XY_LNCV(0) = 25; z.XY_BETR = 6; z.XY_GleisIDX = 3; }, "Bhfgl.3"},
        {"single sensor with track", Empf800,
         [](XY_Typ& z) { z.XY_ArtNr = 47240; z.XY_BETR = 6; z.XY_GleisIDX = 3; }, "Einzels.472403"},
        {"single sensor", Empf800, [](XY_Typ& z) { z.XY_ArtNr = 47240; z.XY_BETR = 6; }, "Einzels.47240"},
        {"variant without label", Empf831, [](XY_Typ& z) { z.XY_ArtNr = 47240; z.XY_BETR = 9; }, "Einzelsensor"},
        {"universal controller", Uni840, [](XY_Typ&) {}, "UniSt."},
        {"block", Uni840, [](XY_Typ& z) { z.XY_ArtNr = 47320; z.XY_GleisIDX = 2; z.XY_BETR = 20; }, "2Block"},
        {"block entry", Uni840,
         [](XY_Typ& z) { z.XY_ArtNr = 47320; z.XY_GleisIDX = 2; z.XY_BETR = 22; }, "2Block/Einfm."},
        {"block exit", Uni840,
         [](XY_Typ& z) { z.XY_ArtNr = 47320; z.XY_GleisIDX = 2; z.XY_BETR = 23; }, "2Block/Ausfm."},
        {"track", GeradeW, [](XY_Typ& z) { z.XY_ADR1 = 5; }, ""},
    };
    for (const Textfall& f : faelle) {
        SCOPED_TRACE(f.name);
        anlage.neues_pult_setzen();
        setzen(3, 3, f.element);
        f.felder(anlage.XY(3, 3));
        EXPECT_EQ(ansi::encode(Zelltext(anlage, katalog, 3, 3)), f.text);
    }
    EXPECT_EQ(Zelltext(anlage, katalog, 9, 9), QString());
}
}  // namespace

TEST_F(Gitter, PultHasACellPerPanelCell)
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
    anlage.DimensionenX = 12;
    m.init_flexgrid();
    EXPECT_EQ(m.columnCount(), 12);
    EXPECT_EQ(m.rowCount(), 30);
}

TEST_F(Gitter, MonShowsTheMonitorPicture)
{
    MonModell m(anlage, katalog);
    setzen(2, 3, Signal511);
    EXPECT_EQ(m.index(2, 1).data(BildRolle).toString(), QStringLiteral("s511_mon.bmp"));
    EXPECT_FALSE(m.index(2, 1).data(Qt::DisplayRole).isValid());
}
