// The live monitor view: the pictures by state, reading the states, switching
// by click and following the bus, over the installation's catalogue and the
// built-in simulator in virtual time.
#include "editor/monitor_ansicht.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "editor/bus_meldung.h"
#include "editor/mon_modell.h"
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "tests/editor/editor_umgebung.h"
#include "tests/support/berichte.h"

#include <gtest/gtest.h>

#include <memory>

using namespace planor;
using namespace planor::test;

namespace {

class Monitoransicht : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        Elemente_laden(QStringLiteral(PLANOR_TESTDATA "/../../data/KT_Conf/Elemente.cfg"), katalog, anlage);
        anlage.neues_pult_setzen();
        link.setzeTransport(sim.transport());
        QString fehler;
        ASSERT_TRUE(link.transport()->oeffnen(fehler));
        sim.bus().anschliessen([this](const QByteArray& b) { aufDemBus.push_back(b); });
        // The view-4 half of Get_Adr_from_LN, as the main window runs it.
        link.empfang().Get_Adr_from_LN = [this](int zeile) {
            monitor->meldung(Get_Adr_from_LN(link.empfang(), zeile));
        };
    }
    void TearDown() override { EXPECT_TRUE(berichte.texte.isEmpty()) << berichte.texte.join(u'\n').toStdString(); }

    void setzen(int x, int y, int typ, Integer a1 = 0, Integer a2 = 0, Integer a3 = 0)
    {
        zelleSetzen(anlage, katalog, x, y, typ, a1, a2, a3);
    }
    void empfaenger(int x, int y, Integer adresse, Long artNr = 47220)
    {
        empfaengerSetzen(anlage, katalog, x, y, adresse, artNr);
    }
    QString bild(int x, int y) const { return mon.index(y - 1, x - 1).data(BildRolle).toString(); }
    QString text(int x, int y) const { return mon.index(y - 1, x - 1).data(Qt::DisplayRole).toString(); }
    QString bmp(int x, int y) const { return katalog.ElementTab(anlage.XY(x, y).XY_Element).Bmp; }
    QString monBild(int x, int y) const { return katalog.ElementTab(anlage.XY(x, y).XY_Element).BmpAusw; }
    // The addresses of the messages with this opcode seen on the bus, in order:
    // 0xBC as b1 + (b2 AND 15) × 128 + 1, 0xE4 queries (b2 = 1) as (b3 AND 31) × 128 + b4.
    std::vector<int> gefragt(quint8 opcode) const
    {
        std::vector<int> a;
        for (const QByteArray& b : aufDemBus) {
            const auto at = [&](int i) { return int(quint8(b.at(i))); };
            if (at(0) == 0xBC && opcode == 0xBC)
                a.push_back(at(1) + (at(2) & 15) * 128 + 1);
            else if (at(0) == 0xE4 && opcode == 0xE4 && b.size() > 4 && at(2) == 1)
                a.push_back((at(3) & 31) * 128 + at(4));
        }
        return a;
    }
    // Lets the bus and the modules answer.
    void warten(qint64 ms = 200) { uhr.weiter(ms); }

    Anlage anlage;
    Elementkatalog katalog;
    std::vector<QByteArray> aufDemBus;
    Simulator sim{uhr};
    LocoNetLink link{uhr};
    MonModell mon{anlage, katalog};
    std::unique_ptr<MonitorAnsicht> monitor = std::make_unique<MonitorAnsicht>(anlage, katalog, mon);
};

}  // namespace

TEST_F(Monitoransicht, SetMonDrawsTheMonitorPictureAndNotesEveryAddress)
{
    setzen(2, 3, 101, 5);
    setzen(4, 4, 531, 20, 21, 22);
    monitor->set_mon(2, 3);
    monitor->set_mon(4, 4);
    EXPECT_EQ(bild(2, 3), QStringLiteral("w101_w_no_mon.bmp"));
    EXPECT_FALSE(mon.index(2, 1).data(Qt::DisplayRole).isValid());
    EXPECT_FALSE(mon.index(2, 1).data(SchriftRolle).isValid());
    for (const Long a : {5, 20, 21, 22}) {
        EXPECT_EQ(monitor->MagZelle(a).x, a == 5 ? 2 : 4) << a;
        EXPECT_EQ(monitor->MagZelle(a).y, a == 5 ? 3 : 4) << a;
    }
    EXPECT_EQ(monitor->MagZelle(23).x, 0);
}

TEST_F(Monitoransicht, ShowMonitorReadsTheStatesOfTheAddressesInUse)
{
    setzen(2, 2, 101, 1);
    setzen(3, 2, 101, 2);
    setzen(4, 2, 201, 3, 4);
    for (const auto& [adresse, stellung] : {std::pair{1, 0}, {2, 1}, {3, 1}, {4, 0}})
        sim.geraete().setzeWeiche(adresse, stellung);
    monitor->MagStatus(9) = 1;
    monitor->Show_Monitor(&link);
    EXPECT_EQ(gefragt(0xBC), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(bild(2, 2), bmp(2, 2));
    EXPECT_EQ(bild(3, 2), QStringLiteral("w101_g.bmp"));
    EXPECT_EQ(bild(4, 2), QStringLiteral("dkw201_gr.bmp"));
    EXPECT_EQ(std::vector<Long>({monitor->MagStatus(1), monitor->MagStatus(2), monitor->MagStatus(3), monitor->MagStatus(4)}),
              std::vector<Long>({0, 1, 1, 0}));
    EXPECT_EQ(monitor->MagStatus(9), 1) << "an address not in use is not asked";
}

TEST_F(Monitoransicht, ShowMonitorAsksTheReceiversAndShowsTheirLastTrain)
{
    empfaenger(2, 5, 3);
    empfaenger(6, 5, 4);
    sim.geraete().zugMelden(3, 1234);
    warten();
    EXPECT_EQ(text(2, 5), QString()) << "not yet shown";
    const double t0 = uhr.sekunden();
    monitor->Show_Monitor(&link);
    EXPECT_GE(uhr.sekunden() - t0, 2 * 0.02 - 1e-9) << "0.02 s after each Ask_Navik";
    EXPECT_EQ(gefragt(0xE4), (std::vector<int>{3, 4}));
    EXPECT_EQ(gefragt(0xBC), std::vector<int>());
    warten();
    EXPECT_EQ(text(2, 5), QStringLiteral("1234"));
    EXPECT_EQ(text(6, 5), QStringLiteral("-")) << "a receiver without a report stays silent";
    EXPECT_EQ(monitor->NavikStatus(3).lok, 1234);
}

TEST_F(Monitoransicht, AddressesOutsideTheTablesRaiseError9)
{
    monitor->set_mon_mag(7, 1); // no cell: not even stored
    EXPECT_EQ(monitor->MagStatus(7), 0);
    monitor->set_mon_mag(0, 1);
    monitor->set_mon_mag(2049, 1);
    ASSERT_EQ(berichte.texte.size(), 2);
    for (const QString& t : berichte.texte)
        EXPECT_TRUE(t.contains(QStringLiteral("Index außerhalb des gültigen Bereichs"))) << t.toStdString();
    berichte.texte.clear();
    // Bus data is outside input: a module not yet given an address reports as receiver 0.
    BusMeldung m;
    m.art = BusMeldung::Empfaenger;
    m.lok = 7;
    monitor->meldung(m);
    EXPECT_EQ(berichte.texte, QStringList());
}


namespace {

struct Zeile {
    int typ;
    Integer a1, a2, a3;
    Integer tausch1, tausch2, adrTausch;
    Long s1, s2, s3;          // stored states of the addresses (after the report)
    Integer zustand;          // the reported state
    const char* erwartet;     // "" for the element's own Bmp, "-" for no new picture
};

}  // namespace

TEST_F(Monitoransicht, EveryRowOfThePictureTable)
{
    const Zeile zeilen[] = {
        // 101..199, 501, 502, 541, 542, 551, 552: s = state XOR XY_STATTAUSCH1.
        {101, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, ""},
        {101, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "w101_g.bmp"},
        {101, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, ""},
        {101, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, "w101_g.bmp"},
        {110, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "w110_g.bmp"},
        {501, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "s501_g.bmp"},
        {502, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, ""},
        {541, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "s541_g.bmp"},
        {542, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "s542_g.bmp"},
        {551, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "s551_g.bmp"},
        {552, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, ""},
        // 201..299 with XY_ADR2 = 0: rr / rg by s.
        {201, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, "dkw201_rr.bmp"},
        {202, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "dkw202_rg.bmp"},
        {203, 1, 0, 0, 1, 0, 0, 1, 0, 0, 1, "ekw203_rr.bmp"},
        // 201..299 with XY_ADR2: a from S1, b from S2, each with its own swap marker.
        {201, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, "dkw201_rr.bmp"},
        {201, 1, 2, 0, 0, 0, 0, 1, 0, 0, 1, "dkw201_gr.bmp"},
        {201, 1, 2, 0, 0, 0, 0, 0, 1, 0, 1, "dkw201_rg.bmp"},
        {201, 1, 2, 0, 0, 0, 0, 1, 1, 0, 1, "dkw201_gg.bmp"},
        {201, 1, 2, 0, 1, 0, 0, 1, 0, 0, 1, "dkw201_rr.bmp"},
        {201, 1, 2, 0, 0, 1, 0, 1, 0, 0, 1, "dkw201_gg.bmp"},
        {201, 1, 2, 0, 0, 0, 1, 1, 0, 0, 1, "dkw201_rg.bmp"},
        {202, 1, 2, 0, 0, 0, 1, 0, 1, 0, 1, "dkw202_gr.bmp"},
        // 301..399: a and b as above; XY_ADRTAUSCH changes nothing here, and is to stay so.
        {301, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, "dw301_rr.bmp"},
        {301, 1, 2, 0, 0, 0, 0, 1, 0, 0, 1, "dw301_gr.bmp"},
        {301, 1, 2, 0, 0, 0, 0, 0, 1, 0, 1, "dw301_rg.bmp"},
        {302, 1, 2, 0, 0, 0, 0, 1, 1, 0, 1, "dw302_gg.bmp"},
        {301, 1, 2, 0, 0, 0, 1, 1, 0, 0, 1, "dw301_gr.bmp"},
        {301, 1, 2, 0, 0, 0, 1, 0, 1, 0, 1, "dw301_rg.bmp"},
        {301, 1, 2, 0, 1, 1, 1, 1, 0, 0, 1, "dw301_rg.bmp"},
        // 511, 512 by (S1, S2).
        {511, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, ""},
        {511, 1, 2, 0, 0, 0, 0, 1, 0, 0, 1, "s511_gr.bmp"},
        {511, 1, 2, 0, 0, 0, 0, 0, 1, 0, 1, "s511_rr.bmp"},
        {512, 1, 2, 0, 0, 0, 0, 1, 1, 0, 1, "s512_gg.bmp"},
        // 521, 522 by (S1, S3).
        {521, 1, 0, 3, 0, 0, 0, 0, 0, 0, 0, ""},
        {521, 1, 0, 3, 0, 0, 0, 1, 0, 0, 1, "s521_gr.bmp"},
        {521, 1, 0, 3, 0, 0, 0, 0, 0, 1, 1, "s521_rg.bmp"},
        {522, 1, 0, 3, 0, 0, 0, 1, 0, 1, 1, "s522_gr.bmp"},
        // 531, 532 by (S1, S2, S3).
        {531, 1, 2, 3, 0, 0, 0, 0, 0, 0, 0, ""},
        {531, 1, 2, 3, 0, 0, 0, 0, 1, 0, 1, ""},
        {531, 1, 2, 3, 0, 0, 0, 0, 0, 1, 1, "s531_rrg.bmp"},
        {531, 1, 2, 3, 0, 0, 0, 0, 1, 1, 1, "s531_rrg.bmp"},
        {531, 1, 2, 3, 0, 0, 0, 1, 0, 0, 1, "s531_grr.bmp"},
        {532, 1, 2, 3, 0, 0, 0, 1, 0, 1, 1, "s532_grr.bmp"},
        {531, 1, 2, 3, 0, 0, 0, 1, 1, 0, 1, "s531_ggr.bmp"},
        {532, 1, 2, 3, 0, 0, 0, 1, 1, 1, 1, "s532_ggr.bmp"},
        // Other types: no new picture.
        {9, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "-"},
        {800, 1, 0, 0, 0, 0, 0, 1, 0, 0, 1, "-"},
    };
    for (const Zeile& z : zeilen) {
        SCOPED_TRACE(testing::Message() << z.typ << " S=" << z.s1 << z.s2 << z.s3 << " tausch=" << z.tausch1
                                        << z.tausch2 << z.adrTausch << " -> " << z.erwartet);
        anlage.neues_pult_setzen();
        monitor = std::make_unique<MonitorAnsicht>(anlage, katalog, mon);
        setzen(5, 6, z.typ, z.a1, z.a2, z.a3);
        XY_Typ& c = anlage.XY(5, 6);
        c.XY_STATTAUSCH1 = z.tausch1;
        c.XY_STATTAUSCH2 = z.tausch2;
        c.XY_ADRTAUSCH = z.adrTausch;
        monitor->Show_Monitor(nullptr);
        // set_mon writes MagZelle only for accessories; other types take the cell by hand.
        monitor->MagZelle(1) = {5, 6};
        monitor->MagStatus(2) = z.s2;
        monitor->MagStatus(3) = z.s3;
        monitor->set_mon_mag(1, Integer(z.s1));
        ASSERT_EQ(monitor->MagStatus(1), z.s1);
        const QString erwartet = QString::fromLatin1(z.erwartet);
        EXPECT_EQ(bild(5, 6), erwartet == u'-' ? monBild(5, 6) : erwartet.isEmpty() ? bmp(5, 6) : erwartet);
        EXPECT_TRUE(QFile::exists(QStringLiteral(PLANOR_TESTDATA "/../../data/KT_Conf/") + bild(5, 6)));
    }
}

TEST_F(Monitoransicht, ALeftClickSwitchesByFamily)
{
    struct Fall {
        int typ;
        std::vector<Integer> adressen;
        std::vector<int> vorher, nachher;
        QString bild; // "" for the element's own Bmp
    };
    const Fall faelle[] = {
        {101, {6}, {0}, {1}, QStringLiteral("w101_g.bmp")},
        {101, {6}, {1}, {0}, QString()},
        {502, {20}, {1}, {0}, QString()}, // a main signal switches as a turnout
        {201, {3, 4}, {0, 1}, {1, 0}, QStringLiteral("dkw201_gr.bmp")},
        {531, {20, 21, 22}, {1, 0, 1}, {0, 1, 0}, QString()},
        // Never switched reads green, so red now.
        {521, {23, 0, 24}, {-1, -1, -1}, {0, -1, 0}, QString()},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(testing::Message() << f.typ << " from " << f.vorher[0]);
        anlage.neues_pult_setzen();
        monitor = std::make_unique<MonitorAnsicht>(anlage, katalog, mon);
        const auto adr = [&](std::size_t i) { return i < f.adressen.size() ? f.adressen[i] : Integer(0); };
        setzen(2, 2, f.typ, adr(0), adr(1), adr(2));
        for (std::size_t i = 0; i < f.adressen.size(); ++i)
            if (f.vorher[i] >= 0)
                sim.geraete().setzeWeiche(f.adressen[i], f.vorher[i]);
        monitor->Show_Monitor(&link);
        monitor->Mon_MouseUp_Links(link, 2, 2);
        warten();
        for (std::size_t i = 0; i < f.adressen.size(); ++i) {
            if (f.nachher[i] >= 0) {
                EXPECT_EQ(sim.geraete().weiche(f.adressen[i]), f.nachher[i]) << f.adressen[i];
            }
        }
        EXPECT_EQ(bild(2, 2), f.bild.isEmpty() ? bmp(2, 2) : f.bild);
    }
}

TEST_F(Monitoransicht, AThreeWayTurnoutCyclesItsAspectsSkippingZero)
{
    setzen(2, 2, 301, 7, 8);
    sim.geraete().setzeWeiche(7, 0);
    sim.geraete().setzeWeiche(8, 0);
    monitor->Show_Monitor(&link);
    // s = 2 × S2 + S1: 0 -> 1 -> 2 -> 3 -> 1 -> 2.
    const int folge[] = {1, 2, 3, 1, 2};
    for (const int s : folge) {
        monitor->Mon_MouseUp_Links(link, 2, 2);
        warten();
        EXPECT_EQ(sim.geraete().weiche(7), s & 1) << s;
        EXPECT_EQ(sim.geraete().weiche(8), s >> 1) << s;
        EXPECT_EQ(bild(2, 2), QStringLiteral("dw301_%1%2.bmp").arg(s & 1 ? 'g' : 'r').arg(s >> 1 ? 'g' : 'r'));
    }
}

TEST_F(Monitoransicht, ASwitchCommandOnTheBusShowsItsState)
{
    setzen(2, 2, 101, 12);
    monitor->Show_Monitor(nullptr);
    // Another party on the bus, a throttle or the command station, switches 12.
    LocoNetLink andere{uhr};
    andere.setzeTransport(sim.transport());
    QString fehler;
    ASSERT_TRUE(andere.transport()->oeffnen(fehler));
    Long err = -1;
    SendMag(andere, 12, 1, err);
    ASSERT_EQ(err, ProgOK);
    warten();
    EXPECT_EQ(bild(2, 2), QStringLiteral("w101_g.bmp"));
    EXPECT_EQ(monitor->MagStatus(12), 1);
}

TEST_F(Monitoransicht, ATrainReportShowsTheLocomotiveOnTheReceiversCell)
{
    empfaenger(3, 4, 2);
    empfaenger(5, 4, 4);
    monitor->Show_Monitor(nullptr);
    sim.geraete().zugMelden(4, 815);
    warten();
    EXPECT_EQ(text(5, 4), QStringLiteral("815"));
    EXPECT_EQ(text(3, 4), QStringLiteral("-"));
    EXPECT_EQ(monitor->NavikStatus(4).lok, 815);
    // A receiver not in the plan: nothing happens.
    sim.geraete().zugMelden(9, 11);
    warten();
    EXPECT_EQ(monitor->NavikStatus(9).lok, 0);
}

TEST_F(Monitoransicht, MagArtStatusOkSendsTheChosenStateToTheChosenAddress)
{
    setzen(2, 2, 511, 20, 21);
    sim.geraete().setzeWeiche(20, 0);
    sim.geraete().setzeWeiche(21, 1);
    monitor->Show_Monitor(&link);
    MagArtStatus_Zustand z = monitor->MagArtStatus_laden(2, 2);
    EXPECT_TRUE(z.AdrOpt(1));
    EXPECT_TRUE(z.StatOpt(0)) << "the stored state of the chosen address";
    AdrOpt_Click(z, 2);
    StatOpt_Click(z, 0);
    monitor->MagArtStatus_OK(z, link);
    warten();
    EXPECT_EQ(sim.geraete().weiche(21), 0);
    EXPECT_EQ(sim.geraete().weiche(20), 0);
    EXPECT_EQ(monitor->MagStatus(21), 0);
    EXPECT_EQ(bild(2, 2), bmp(2, 2));
    z = monitor->MagArtStatus_laden(2, 2);
    StatOpt_Click(z, 1);
    monitor->MagArtStatus_OK(z, link);
    warten();
    EXPECT_EQ(sim.geraete().weiche(20), 1);
    EXPECT_EQ(bild(2, 2), QStringLiteral("s511_gr.bmp"));
    EXPECT_TRUE(monitor->MagArtStatus_laden(2, 2).StatOpt(1));
}
