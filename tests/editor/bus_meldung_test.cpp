// Parts 3.4 / 3.6: what Get_Adr_from_LN reads from a filled reception row.
#include "editor/bus_meldung.h"

#include "loconet/empfang.h"
#include "loconet/nachricht.h"
#include "platform/sim_geraete.h"
#include "tests/support/daten.h"

#include <gtest/gtest.h>

#include <vector>

using namespace planor;
using planor::test::bytes;

namespace {

// The reports of every row filled while `daten` passes the framer.
std::vector<BusMeldung> meldungen(const QByteArray& daten)
{
    Empfang e;
    std::vector<BusMeldung> m;
    e.Get_Adr_from_LN = [&](int zeile) { m.push_back(Get_Adr_from_LN(e, zeile)); };
    e.bytes(daten);
    return m;
}

}  // namespace

TEST(Part3_4, TrainReportGivesReceiverLocomotiveAndStatusByte)
{
    // Receiver 300 = 2 × 128 + 44, locomotive 1234 = 9 × 128 + 82, S2 to S1.
    const auto m = meldungen(ZugMeldung(300, 1234, 1, 2));
    ASSERT_EQ(m.size(), 1u);
    EXPECT_EQ(m[0].art, BusMeldung::Empfaenger);
    EXPECT_EQ(m[0].adresse, 300);
    EXPECT_EQ(m[0].lok, 1234);
    EXPECT_EQ(m[0].status, 0x62);
    EXPECT_TRUE(m[0].zugmeldung());
    EXPECT_TRUE(m[0].fuerAdressAnsicht());
}

TEST(Part3_4, StatusReportsAreNoTrainReportsAndNotForTheAddressView)
{
    // Ask_Navik's query and a speed report have b3 AND 0x60 = 0x20.
    for (const QByteArray& nachricht : {Ask_Navik_Nachricht(5), bytes({0xE4, 0x08, 0x00, 0x20, 0x05, 0x00, 0x30})}) {
        const auto m = meldungen(nachricht + char(0));
        ASSERT_EQ(m.size(), 1u);
        EXPECT_EQ(m[0].art, BusMeldung::Empfaenger);
        EXPECT_EQ(m[0].adresse, 5);
        EXPECT_FALSE(m[0].zugmeldung());
        EXPECT_FALSE(m[0].fuerAdressAnsicht());
    }
}

TEST(Part3_4, SwitchCommandCountsOnlyWithBit4)
{
    // SendMag on address 1, position 0: "on" then "off" (Part 2.3's edge case).
    const auto m = meldungen(SendMag_Nachricht(1, 0, true) + char(0) + SendMag_Nachricht(1, 0, false) + char(0));
    ASSERT_EQ(m.size(), 2u);
    EXPECT_EQ(m[0].art, BusMeldung::Magnetartikel);
    EXPECT_EQ(m[0].adresse, 1);
    EXPECT_EQ(m[0].zustand, 0);
    EXPECT_EQ(m[1].art, BusMeldung::Keine);
}

TEST(Part3_4, SwitchCommandAddressAndGreen)
{
    // b1 = 0x7F, b2 AND 15 = 3: address 3 × 128 + 127 + 1 = 512; bit 5 green.
    const auto m = meldungen(bytes({0xB0, 0x7F, 0x33, 0x00}));
    ASSERT_EQ(m.size(), 1u);
    EXPECT_EQ(m[0].adresse, 512);
    EXPECT_EQ(m[0].zustand, 1);
}

TEST(Part3_4, OtherRowsTellNothing)
{
    const auto m = meldungen(bytes({0xB4, 0x3C, 0x30, 0x00}));
    ASSERT_EQ(m.size(), 1u);
    EXPECT_EQ(m[0].art, BusMeldung::Keine);
}
