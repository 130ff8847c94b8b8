// The basic settings form: its field limits, what OK stores, the speed-measuring LNCV 14.
#include "core/grundeinstellungen.h"

#include "config/modul_familie.h"
#include "core/panel_model.h"
#include "tests/support/berichte.h"
#include "tests/support/daten.h"

using namespace planor;
using namespace planor::test;

namespace {

class Grundeinstellungen : public MitFehlerbericht {
protected:
    // No test expects an error report unless it clears them itself.
    void TearDown() override { EXPECT_EQ(berichte.texte, QStringList()); }

    Grundeinstellungen_Form geoeffnet() const
    {
        Grundeinstellungen_Form form;
        Form_Activate(form, anlage);
        return form;
    }

    Anlage anlage;
};

}  // namespace

TEST_F(Grundeinstellungen, OkStoresLncv19AsHalfSecondsAndLncv18AsItIs)
{
    anlage.Grundeinst.LNCV17 = 5;
    Grundeinstellungen_Form form = geoeffnet();
    form.FeldAnzX = QStringLiteral("45");
    form.FeldAnzY = QStringLiteral("12");
    form.BlkStatChk = false;
    form.AllgOptChk = {false, true, true};
    opSpur_Click(form, 3);
    form.Geschw_Txt = QStringLiteral("50");
    form.AutomZeitTxt = QStringLiteral("200");
    form.StartupZeitTxt = QStringLiteral("7");
    ASSERT_TRUE(OK_But_Click(form, anlage));
    EXPECT_EQ(anlage.DimensionenX, 45);
    EXPECT_EQ(anlage.DimensionenY, 12);
    Grundeinst_Typ erwartet;
    erwartet.BlkZustMeld = erwartet.BetriebszustSpeichern = 0;
    erwartet.ZugKatRD2_47231 = 1;
    erwartet.LNCV14 = Unsig_to_Int(50 * 810 + 3);
    erwartet.LNCV17 = 5;  // no control: untouched
    erwartet.LNCV18 = 200;
    erwartet.LNCV19 = 14;
    EXPECT_EQ(anlage.Grundeinst, erwartet);
    const Grundeinstellungen_Form wieder = geoeffnet();
    EXPECT_EQ(wieder.opSpur, 3);
    EXPECT_EQ(wieder.Geschw_Txt, QStringLiteral("50"));
    EXPECT_EQ(wieder.AllgOptChk, (std::array<bool, 3>{false, true, true}));
    // An odd LNCV 19 loses its half second through the form.
    anlage.Grundeinst.LNCV19 = 11;
    ASSERT_TRUE(OK_But_Click(geoeffnet(), anlage));
    EXPECT_EQ(anlage.Grundeinst.LNCV19, 10);
    // Dash and empty count as 0; H0 at distance 0 is just the scale's index.
    form.AutomZeitTxt = QString();
    form.StartupZeitTxt = form.Geschw_Txt = QStringLiteral("-");
    opSpur_Click(form, 2);
    ASSERT_TRUE(OK_But_Click(form, anlage));
    EXPECT_EQ(anlage.Grundeinst.LNCV18, 0);
    EXPECT_EQ(anlage.Grundeinst.LNCV19, 0);
    EXPECT_EQ(anlage.Grundeinst.LNCV14, 2);
}

TEST_F(Grundeinstellungen, Lncv14RoundTripForEachScale)
{
    // distance · factor + index; the largest distance that stays within 65530.
    const std::array<std::pair<Long, Long>, SpurAnz> faelle = {{{22, 63360}, {30, 64801}, {41, 64208},
                                                                {80, 64803}, {113, 65092}}};
    for (int spur = 0; spur < SpurAnz; ++spur) {
        const auto [abstand, wert] = faelle[static_cast<std::size_t>(spur)];
        for (const auto& [d, u] : {std::pair{Long(1), Long(SpurFaktor[static_cast<std::size_t>(spur)] + spur)},
                                   std::pair{abstand, wert}}) {
            const Integer lncv14 = LNCV14_bilden(spur, d);
            EXPECT_EQ(Int_to_Unsig(lncv14), u) << spur;
            const Geschwindigkeitsmessung m = LNCV14_lesen(lncv14);
            EXPECT_EQ(m.spur, spur);
            EXPECT_EQ(m.abstand, d);
        }
    }
    EXPECT_EQ(LNCV14_bilden(SpurKeine, 3), 1728) << "no scale: distance times 576, no index";
    Grundeinstellungen_Form form = geoeffnet();
    opSpur_Click(form, 2);
    form.Geschw_Txt = QStringLiteral("40");
    ASSERT_TRUE(OK_But_Click(form, anlage));
    EXPECT_EQ(anlage.Grundeinst.LNCV14, 62642 - 65536) << "stored as the 16-bit two's complement";
    for (Integer lncv14 : {Integer(0), Integer(5), Integer(576), Integer(-1)}) {
        anlage.Grundeinst.LNCV14 = lncv14;
        EXPECT_EQ(geoeffnet().opSpur, SpurKeine) << lncv14;
        EXPECT_EQ(geoeffnet().Geschw_Txt, QStringLiteral("-")) << lncv14;
    }
    // Where two scales fit, the higher index stands: 6 mod 6 = 0, 6 mod 5 = 1.
    EXPECT_EQ(SpurAuswahl(6, std::array<int, 2>{6, 5}), 1);
}

TEST_F(Grundeinstellungen, ExistingModulesKeepTheirValues)
{
    XY_Typ& alt = anlage.XY(2, 2);
    alt.XY_ArtNr = 47190;
    set_modul_optionen(anlage, 2, 2);
    const XY_Typ vorher = alt;
    anlage.XY(25, 3).XY_ADR1 = 12;
    Grundeinstellungen_Form form = geoeffnet();
    form.AutomZeitTxt = QStringLiteral("60");
    form.StartupZeitTxt = QStringLiteral("20");
    form.BlkStatChk = false;
    form.AllgOptChk[0] = false;
    form.FeldAnzX = QStringLiteral("20");
    ASSERT_TRUE(OK_But_Click(form, anlage));
    EXPECT_EQ(anlage.XY(2, 2), vorher) << "OK does not touch existing modules";
    EXPECT_EQ(anlage.XY(25, 3).XY_ADR1, 12) << "nor cells beyond the new size";

    // A module whose options are set anew takes the new values.
    XY_Typ& neu = anlage.XY(3, 2);
    neu.XY_ArtNr = 47190;
    set_modul_optionen(anlage, 3, 2);
    EXPECT_EQ(neu.XY_LNCV(18), 60);
    EXPECT_EQ(neu.XY_LNCV(19), 40);
    EXPECT_EQ(neu.XY_LNCV(15), 1);
    EXPECT_EQ(neu.XY_BlkMeld, 0);
}

TEST_F(Grundeinstellungen, DistanceTooLargeFor16BitsIsRefused)
{
    Grundeinstellungen_Form form = geoeffnet();
    opSpur_Click(form, 2);  // H0, 1566: 156600 does not fit
    form.Geschw_Txt = QStringLiteral("100");
    Geschw_Txt_Change(form);
    form.FeldAnzY = QStringLiteral("40");
    FeldAnzY_Change(form);  // one accepted field does not enable OK while another is refused
    EXPECT_FALSE(OK_But_Enabled(form));
    EXPECT_FALSE(OK_But_Click(form, anlage));
    EXPECT_EQ(anlage.Grundeinst, Grundeinst_Typ{});
    Grundeinstellungen_Form ungeprueft = geoeffnet();
    ungeprueft.FeldAnzY = QStringLiteral("100");
    EXPECT_FALSE(OK_But_Click(ungeprueft, anlage)) << "OK checks anew, even when no change handler ran";
    EXPECT_EQ(anlage.DimensionenY, NeueDimension);
    opSpur_Click(form, 4);  // a click on a scale checks the distance anew: 57600
    EXPECT_TRUE(form.Geschw_Pruefung.gueltig);
    opSpur_Click(form, 0);  // 288000
    EXPECT_FALSE(form.Geschw_Pruefung.gueltig);
}
