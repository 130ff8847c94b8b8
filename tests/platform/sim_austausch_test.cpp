// The whole way without hardware: the exchanges of Part 2.3 over Planor's
// link and the simulator's transport, on the wire's and the modules' times,
// in virtual time — including the faults they must ride out.
#include "loconet/link.h"
#include "loconet/lncv_austausch.h"
#include "platform/sim_transport.h"
#include "tests/support/sim.h"

using namespace planor;
using namespace planor::test;

namespace {

class SimAustausch : public ::testing::Test {
protected:
    void SetUp() override
    {
        sim.modulHinzufuegen({47220, 12});
        link.setzeTransport(sim.transport());
        QString fehler;
        ASSERT_TRUE(link.transport()->oeffnen(fehler));
    }

    SimModul& modul() { return *sim.geraete().modul(47220, 12); }

    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    Simulator sim{uhr};  // wire time and 10 ms reaction, as set out of the box
    LocoNetLink link{uhr};
};

}  // namespace

TEST_F(SimAustausch, ProgrammingAModule)
{
    Long err = -1;
    Prog_On(link, 4722, 12, err);
    ASSERT_EQ(err, ProgOK);
    Prog_Lncv(link, 4722, 2, -1, err);
    EXPECT_EQ(err, ProgOK);
    Long wert = 0;
    Read_Lncv(link, 4722, 2, wert, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 65535);
    Read_Lncv(link, 4722, 16, wert, err);
    EXPECT_EQ(wert, 100);
    Prog_Lncv(link, 4722, 16, 300, err);
    EXPECT_EQ(err, ProgAbgelehnt) << "the firmware number is read-only";
    Prog_Off(link, 4722, 12, err);
    EXPECT_EQ(err, ProgOK);
    uhr.weiter(100);
    EXPECT_FALSE(modul().sitzungOffen());
    EXPECT_EQ(modul().lncv(2), 65535);
}

TEST_F(SimAustausch, RetriesRideOutLostAnswers)
{
    sim.bus().stoerung.einstellungen.nurGeraete = true;
    sim.bus().stoerung.einstellungen.naechsteVerwerfen = 2;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_On(link, 4722, 12, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_GT(uhr.sekunden() - t0, 0.4) << "two tries of 0.2 s lost";
    EXPECT_EQ(sim.bus().stoerung.verworfen, 2);
}

TEST_F(SimAustausch, SilentModuleGivesErr2)
{
    modul().stumm = true;
    Long err = -1;
    Prog_On(link, 4722, 12, err);
    EXPECT_EQ(err, ProgKeineAntwort);
}

TEST_F(SimAustausch, RefusedWriteGivesErr3)
{
    modul().schreibenVerweigern = true;
    Long err = -1;
    Prog_On(link, 4722, 12, err);
    Prog_Lncv(link, 4722, 3, 7, err);
    EXPECT_EQ(err, ProgAbgelehnt);
}

TEST_F(SimAustausch, AccessoryStateRoundTrip)
{
    Long err = -1;
    SendMag(link, 5, 0, err);
    EXPECT_EQ(err, ProgOK);
    Integer zustand = -1;
    Read_Mag(link, 5, zustand, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(zustand, 0);
    SendMag(link, 5, 1, err);
    Read_Mag(link, 5, zustand, err);
    EXPECT_EQ(zustand, 1);
}
