// Parts 2.2 and 2.3: every message the program composes, byte for byte.
#include "loconet/nachricht.h"

#include "tests/support/daten.h"

#include <gtest/gtest.h>

using namespace planor;
using planor::test::bytes;

TEST(Part2_2, ChecksumIsFFXorAllBytes)
{
    EXPECT_EQ(Pruefsumme(bytes({0xB0, 0x00, 0x10})), 0xFF ^ 0xB0 ^ 0x10);
    EXPECT_EQ(mitPruefsumme(bytes({0xB4, 0x6D, 0x7F})), bytes({0xB4, 0x6D, 0x7F, 0xFF ^ 0xB4 ^ 0x6D ^ 0x7F}));
}

TEST(Part2_2, HexOfAValue)
{
    EXPECT_EQ(hex_$(0), QStringLiteral("00"));
    EXPECT_EQ(hex_$(255), QStringLiteral("FF"));
    EXPECT_EQ(hex_$(5), QStringLiteral("05"));
    EXPECT_EQ(hex_$(300), QStringLiteral("012C"));
}

TEST(Part2_3, WireArticle)
{
    EXPECT_EQ(DrahtArtikel(47220), 4722);
    EXPECT_EQ(DrahtArtikel(47320), 4732);
    EXPECT_EQ(DrahtArtikel(5330), 5330);
}

TEST(Part2_3, ProgOnStartsASessionWithTheAddress)
{
    EXPECT_EQ(Prog_On_Nachricht(4722, 12),
              bytes({0xED, 0x0F, 0x08, 0x05, 0x00, 0x21, 0x40, 0x72, 0x12, 0x00, 0x00, 0x0C, 0x00, 0x00}));
    // 4722 = 0x1272: low byte 0x72, high 0x12; the session flag 0x80 travels as bit 6 of byte 6.
}

TEST(Part2_3, ProgOnBroadcastAddress)
{
    EXPECT_EQ(Prog_On_Nachricht(4722, 65535),
              bytes({0xED, 0x0F, 0x08, 0x05, 0x00, 0x21, 0x70, 0x72, 0x12, 0x00, 0x00, 0x7F, 0x7F, 0x00}));
}

TEST(Part2_3, ProgOffUsesOpcodeE5AndTheEndFlagInTheOpen)
{
    EXPECT_EQ(Prog_Off_Nachricht(4722, 12),
              bytes({0xE5, 0x0F, 0x08, 0x05, 0x00, 0x21, 0x00, 0x72, 0x12, 0x00, 0x00, 0x0C, 0x00, 0x40}));
}

TEST(Part2_3, ReadLncv)
{
    EXPECT_EQ(Read_Lncv_Nachricht(4722, 15),
              bytes({0xED, 0x0F, 0x08, 0x05, 0x00, 0x21, 0x00, 0x72, 0x12, 0x0F, 0x00, 0x00, 0x00, 0x00}));
}

TEST(Part2_3, Lncv128TravelsAsLowZeroWithBit2OfByte6)
{
    EXPECT_EQ(Read_Lncv_Nachricht(4722, 128),
              bytes({0xED, 0x0F, 0x08, 0x05, 0x00, 0x21, 0x04, 0x72, 0x12, 0x00, 0x00, 0x00, 0x00, 0x00}));
}

TEST(Part2_3, ValueMinusOneGoesOutAs255And255WithBothFlags)
{
    EXPECT_EQ(Prog_Lncv_Nachricht(4722, 2, -1),
              bytes({0xED, 0x0F, 0x08, 0x05, 0x00, 0x20, 0x30, 0x72, 0x12, 0x02, 0x00, 0x7F, 0x7F, 0x00}));
}

TEST(Part2_3, ArticleWithBit7IsCodedToo)
{
    // 5330 = 0x14D2: the low byte's bit 7 goes to bit 0 of byte 6.
    EXPECT_EQ(Prog_On_Nachricht(5330, 1),
              bytes({0xED, 0x0F, 0x08, 0x05, 0x00, 0x21, 0x41, 0x52, 0x14, 0x00, 0x00, 0x01, 0x00, 0x00}));
}

TEST(Part2_3, ReadMag)
{
    EXPECT_EQ(Read_Mag_Nachricht(1), bytes({0xBC, 0x00, 0x00}));
    EXPECT_EQ(Read_Mag_Nachricht(300), bytes({0xBC, 0x2B, 0x02}));
}

TEST(Part2_3, SendMagOnAddress1Position0)
{
    EXPECT_EQ(SendMag_Nachricht(1, 0, true), bytes({0xB0, 0x00, 0x10}));
    EXPECT_EQ(SendMag_Nachricht(1, 0, false), bytes({0xB0, 0x00, 0x00}));
    EXPECT_EQ(SendMag_Nachricht(2048, 1, true), bytes({0xB0, 0x7F, 0x3F}));
}

TEST(Part2_3, SendRmOnAddress1Level1)
{
    EXPECT_EQ(SendRM_Nachricht(1, 1), bytes({0xB2, 0x00, 0x50}));
    EXPECT_EQ(SendRM_Nachricht(2, 0), bytes({0xB2, 0x00, 0x60}));
    EXPECT_EQ(SendRM_Nachricht(4096, 1), bytes({0xB2, 0x7F, 0x7F}));
}

TEST(Part2_3, AskNavik)
{
    EXPECT_EQ(Ask_Navik_Nachricht(300), bytes({0xE4, 0x08, 0x01, 0x22, 0x2C, 0x00, 0x00}));
}
