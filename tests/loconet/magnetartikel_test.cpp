// Part 2.3: the accessory and report messages — Read_Mag, SendMag, SendRM,
// Ask_Navik — over the scaffold transport in virtual time.
#include "loconet/lncv_austausch.h"

#include "tests/loconet/lncv_modul.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

class Part2_3_Magnetartikel : public MitLncvBus {};

}  // namespace

TEST_F(Part2_3_Magnetartikel, ReadMagSendsOpcSwState)
{
    antworteMit(mitChk(hexBytes("B4 3C 30")));
    Integer zustand = 7;
    Long err = -1;
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(bus->gesendet, hexBytes("BC 00 00 43"));
    bus->gesendet.clear();
    Read_Mag(link, 300, zustand, err);
    EXPECT_EQ(bus->gesendet, hexBytes("BC 2B 02 6A"));
}

TEST_F(Part2_3_Magnetartikel, ReadMag30GivesState1)
{
    antworteMit(mitChk(hexBytes("B4 3C 30")));
    Integer zustand = 7;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(zustand, 1);
    EXPECT_NEAR(seit(t0), 0.05, 1e-9);
    EXPECT_EQ(bus->verworfen, 1);
}

TEST_F(Part2_3_Magnetartikel, ReadMag50GivesState0)
{
    antworteMit(mitChk(hexBytes("B4 3C 50")));
    Integer zustand = 7;
    Long err = -1;
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(zustand, 0);
}

TEST_F(Part2_3_Magnetartikel, ReadMagOtherPositionLeavesTheStateAlone)
{
    antworteMit(mitChk(hexBytes("B4 3C 20")));
    Integer zustand = 7;
    Long err = -1;
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(zustand, 7);
    EXPECT_EQ(bus->gesendet.size(), 4) << "one try";
}

TEST_F(Part2_3_Magnetartikel, ReadMagAnswerToAnotherOpcodeEndsWithStateUnchangedAndErr0)
{
    antworteMit(mitChk(hexBytes("B4 6D 30")));
    Integer zustand = 7;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(zustand, 7);
    EXPECT_EQ(bus->gesendet, hexBytes("BC 00 00 43")) << "no further try";
    EXPECT_NEAR(seit(t0), 0.05, 1e-9);
}

TEST_F(Part2_3_Magnetartikel, ReadMagRetriesUntilAnswered)
{
    int anfragen = 0;
    bus->antwort = [&](const QByteArray&) {
        if (++anfragen == 3)
            bus->senden(mitChk(hexBytes("B4 3C 30")), 0.05);
    };
    Integer zustand = 7;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(zustand, 1);
    EXPECT_EQ(anfragen, 3);
    EXPECT_NEAR(seit(t0), 2 * 0.5 + 0.05, 1e-9);
}

TEST_F(Part2_3_Magnetartikel, ReadMagWithoutAnswerGivesErr2After10TriesOf05s)
{
    Integer zustand = 7;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(zustand, 7);
    EXPECT_EQ(bus->gesendet, mal(hexBytes("BC 00 00 43"), 10));
    EXPECT_NEAR(seit(t0), 10 * 0.5, 1e-9);
}

TEST_F(Part2_3_Magnetartikel, ReadMagClearsOnlyPosition0AndTheFlagOfRows0To2)
{
    Empfang& e = link.empfang();
    e.setzeWert(ZeileLongAck, 0, 0xB4);
    e.setzeWert(ZeileLongAck, 1, 0x3C);
    e.setzeWert(ZeileLongAck, 2, 0x30);
    e.setzeWert(ZeileLongAck, EmpfangFlag, -1);
    e.setzeWert(ZeileNavik, EmpfangFlag, -1);
    Integer zustand = 7;
    Long err = -1;
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(zustand, 7);
    EXPECT_EQ(e.wert(ZeileLongAck, 0), 0);
    EXPECT_EQ(e.wert(ZeileLongAck, 1), 0x3C);
    EXPECT_TRUE(e.geflaggt(ZeileNavik));
}

TEST_F(Part2_3_Magnetartikel, ReadMagOnAClosedPortGivesErr1AtOnce)
{
    bus->offen = false;
    Integer zustand = 7;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Read_Mag(link, 1, zustand, err);
    EXPECT_EQ(err, ProgSendeFehler);
    EXPECT_EQ(zustand, 7);
    EXPECT_EQ(seit(t0), 0.0);
}

// --- SendMag, SendRM, Ask_Navik --------------------------------------------

TEST_F(Part2_3_Magnetartikel, SendMagAddress1Position0SendsOnThenOffAfter03s)
{
    std::vector<double> zeiten;
    bus->antwort = [&](const QByteArray&) { zeiten.push_back(uhr.sekunden()); };
    Long err = -1;
    SendMag(link, 1, 0, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, hexBytes("B0 00 10 5F B0 00 00 4F"));
    ASSERT_EQ(zeiten.size(), 2u);
    EXPECT_NEAR(zeiten[1] - zeiten[0], 0.3, 1e-9);
}

TEST_F(Part2_3_Magnetartikel, SendMagPosition1OnAHighAddress)
{
    Long err = -1;
    SendMag(link, 300, 1, err);
    EXPECT_EQ(err, ProgOK);
    // 299 = 2 * 128 + 43: 0x2B, then 2 + 32 + 16 = 0x32 and 2 + 32 = 0x22.
    EXPECT_EQ(bus->gesendet, mitChk(hexBytes("B0 2B 32")) + mitChk(hexBytes("B0 2B 22")));
    EXPECT_EQ(bus->verworfen, 1);
}

TEST_F(Part2_3_Magnetartikel, SendMagStopsWhenTheFirstMessageFails)
{
    bus->offen = false;
    Long err = -1;
    const double t0 = uhr.sekunden();
    SendMag(link, 1, 0, err);
    EXPECT_EQ(err, ProgSendeFehler);
    EXPECT_TRUE(bus->gesendet.isEmpty());
    EXPECT_EQ(seit(t0), 0.0) << "no pause without a first message";
}

TEST_F(Part2_3_Magnetartikel, SendRmAddress1Level1)
{
    Long err = -1;
    const double t0 = uhr.sekunden();
    SendRM(link, 1, 1, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, hexBytes("B2 00 50 1D"));
    EXPECT_EQ(seit(t0), 0.0);
    EXPECT_EQ(bus->verworfen, 1);
    bus->gesendet.clear();
    // Address 4: (3 div 2) = 1; the odd input sets 32, plus 64.
    SendRM(link, 4, 0, err);
    EXPECT_EQ(bus->gesendet, hexBytes("B2 01 60 2C"));
}

TEST_F(Part2_3_Magnetartikel, SendRmOnAClosedPortGivesErr1)
{
    bus->offen = false;
    Long err = -1;
    SendRM(link, 1, 1, err);
    EXPECT_EQ(err, ProgSendeFehler);
}

TEST_F(Part2_3_Magnetartikel, AskNavikClearsTheTableSendsAndDoesNotWait)
{
    link.empfang().setzeWert(ZeileNavik, 0, 0xE4);
    link.empfang().setzeWert(ZeileNavik, EmpfangFlag, -1);
    antworteMit(mitChk(hexBytes("E4 08 01 22 2C 05 06")));
    Long err = -1;
    const double t0 = uhr.sekunden();
    Ask_Navik(link, 300, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, hexBytes("E4 08 01 22 2C 00 00 1C"));
    EXPECT_EQ(seit(t0), 0.0);
    EXPECT_FALSE(link.empfang().geflaggt(ZeileNavik));
    EXPECT_EQ(bus->verworfen, 1);
}

TEST_F(Part2_3_Magnetartikel, AskNavikOnAClosedPortGivesErr1)
{
    bus->offen = false;
    Long err = -1;
    Ask_Navik(link, 300, err);
    EXPECT_EQ(err, ProgSendeFehler);
}
