// Every message the program composes, byte for byte.
#include "loconet/nachricht.h"

#include "tests/support/daten.h"

#include <gtest/gtest.h>

using namespace planor;
using planor::test::h;
using planor::test::hex;

TEST(Nachricht, ChecksumHexAndWireArticle)
{
    EXPECT_EQ(Pruefsumme(hex("B0 00 10")), 0xFF ^ 0xB0 ^ 0x10);
    EXPECT_EQ(h(mitPruefsumme(hex("B4 6D 7F"))), "B4 6D 7F 59");
    EXPECT_EQ(hex_$(0) + hex_$(5) + hex_$(255) + hex_$(300), QStringLiteral("0005FF012C"));
    EXPECT_EQ(DrahtArtikel(47220), 4722);
    EXPECT_EQ(DrahtArtikel(47320), 4732);
    EXPECT_EQ(DrahtArtikel(5330), 5330);
}

TEST(Nachricht, EachBuilderByteForByte)
{
    // Bit 7 of bytes 7..13 travels in byte 6, so 4722 = 0x1272, LNCV 128,
    // the value -1 and the article 5330 = 0x14D2 each set a flag there.
    const struct {
        QByteArray nachricht;
        const char* erwartet;
    } faelle[] = {
        {Prog_On_Nachricht(4722, 12), "ED 0F 08 05 00 21 40 72 12 00 00 0C 00 00"},
        {Prog_On_Nachricht(4722, 65535), "ED 0F 08 05 00 21 70 72 12 00 00 7F 7F 00"},
        {Prog_Off_Nachricht(4722, 12), "E5 0F 08 05 00 21 00 72 12 00 00 0C 00 40"},
        {Read_Lncv_Nachricht(4722, 15), "ED 0F 08 05 00 21 00 72 12 0F 00 00 00 00"},
        {Read_Lncv_Nachricht(4722, 128), "ED 0F 08 05 00 21 04 72 12 00 00 00 00 00"},
        {Prog_Lncv_Nachricht(4722, 2, -1), "ED 0F 08 05 00 20 30 72 12 02 00 7F 7F 00"},
        {Prog_On_Nachricht(5330, 1), "ED 0F 08 05 00 21 41 52 14 00 00 01 00 00"},
        {Read_Mag_Nachricht(1), "BC 00 00"},
        {Read_Mag_Nachricht(300), "BC 2B 02"},
        {SendMag_Nachricht(1, 0, true), "B0 00 10"},
        {SendMag_Nachricht(1, 0, false), "B0 00 00"},
        {SendMag_Nachricht(2048, 1, true), "B0 7F 3F"},
        {SendRM_Nachricht(1, 1), "B2 00 50"},
        {SendRM_Nachricht(2, 0), "B2 00 60"},
        {SendRM_Nachricht(4096, 1), "B2 7F 7F"},
        {Ask_Navik_Nachricht(300), "E4 08 01 22 2C 00 00"},
        // As they go on the wire, checksum included (4723 = 0x1273, 1234 = 0x04D2).
        {mitPruefsumme(Prog_On_Nachricht(4723, 1234)), "ED 0F 08 05 00 21 50 73 12 00 00 52 04 00 56"},
        {mitPruefsumme(Prog_On_Nachricht(4723, 65535)), "ED 0F 08 05 00 21 70 73 12 00 00 7F 7F 00 20"},
        {mitPruefsumme(Prog_Off_Nachricht(4723, 1234)), "E5 0F 08 05 00 21 10 73 12 00 00 52 04 40 5E"},
        {mitPruefsumme(Read_Lncv_Nachricht(4723, 16)), "ED 0F 08 05 00 21 00 73 12 10 00 00 00 00 40"},
        {mitPruefsumme(Read_Lncv_Nachricht(4723, 128)), "ED 0F 08 05 00 21 04 73 12 00 00 00 00 00 54"},
        {mitPruefsumme(Prog_Lncv_Nachricht(4723, 5, 300)), "ED 0F 08 05 00 20 00 73 12 05 00 2C 01 00 79"},
        {mitPruefsumme(Prog_Lncv_Nachricht(4723, 5, -1)), "ED 0F 08 05 00 20 30 73 12 05 00 7F 7F 00 64"},
        {mitPruefsumme(Prog_On_Nachricht(5330, 1234)), "ED 0F 08 05 00 21 51 52 14 00 00 52 04 00 70"},
        {mitPruefsumme(Read_Lncv_Nachricht(5330, 16)), "ED 0F 08 05 00 21 01 52 14 10 00 00 00 00 66"},
        {mitPruefsumme(Prog_Off_Nachricht(5330, 1234)), "E5 0F 08 05 00 21 11 52 14 00 00 52 04 40 78"},
    };
    for (const auto& f : faelle)
        EXPECT_EQ(h(f.nachricht), f.erwartet);
}
