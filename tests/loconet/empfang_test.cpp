// The two framings of the reception: the capture table and the monitor.
#include "loconet/empfang.h"

#include "tests/support/daten.h"

#include <gtest/gtest.h>

#include <vector>

using namespace planor;
using planor::test::bytes;

namespace {

struct Mitschnitt {
    explicit Mitschnitt(Empfang& e)
    {
        e.Monitor_Aktiv = true;
        e.decode_ln_mes = [this](const QByteArray& n) { nachrichten.push_back(n); };
        e.Get_Adr_from_LN = [this](int z) { zeilen.push_back(z); };
    }
    std::vector<QByteArray> nachrichten;
    std::vector<int> zeilen;
};

}  // namespace

TEST(Empfang, PeerXferCutByALongAckLeavesRow1UnflaggedAndRow0Filling)
{
    Empfang e;
    e.bytes(bytes({0xE5, 0x0F, 0xB4, 0x6D}));
    EXPECT_FALSE(e.geflaggt(ZeilePeerXfer));
    EXPECT_EQ(e.wert(ZeilePeerXfer, 1), 0x0F);
    EXPECT_FALSE(e.geflaggt(ZeileLongAck));
    e.bytes(bytes({0x7F, 0x00}));
    EXPECT_TRUE(e.da(ZeileLongAck, 0xB4));
    EXPECT_FALSE(e.geflaggt(ZeilePeerXfer));
}

TEST(Empfang, NavikReportIsCapturedAs8BytesWhateverItsLength)
{
    Empfang e;
    Mitschnitt m(e);
    QByteArray lang = bytes({0xE4, 0x10, 0x01, 0x22, 0x2C, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x0E});
    e.bytes(lang.left(8));
    EXPECT_TRUE(e.da(ZeileNavik, 0xE4));
    EXPECT_EQ(e.wert(ZeileNavik, 7), 0x07);
    e.bytes(lang.mid(8));
    EXPECT_EQ(e.wert(ZeileNavik, 8), 0) << "the remainder is not captured";
    EXPECT_TRUE(m.nachrichten.empty()) << "the monitor waits for 16 bytes";
    e.byte(0x00);
    ASSERT_EQ(m.nachrichten.size(), 1u);
    EXPECT_EQ(m.nachrichten[0].size(), 16);
}

TEST(Empfang, WhatReachesWhichFraming)
{
    const struct {
        const char* was;
        QByteArray eingang;
        bool monitorAktiv;
        std::size_t anMonitor;
        int zeile;  // the row flagged and reported, -1 for none
    } faelle[] = {
        {"long ack", bytes({0xB4, 0x6D, 0x7F, 0x5B}), true, 1, ZeileLongAck},
        {"stray bytes", bytes({0x12, 0x34}), true, 0, -1},
        {"uncaptured opcodes", bytes({0x83, 0x7C, 0xA0, 0x01, 0x02, 0x5C}), true, 2, -1},
        {"monitor off", bytes({0x83, 0x7C}), false, 0, -1},
        {"our echo", bytes({0xED, 0x0F, 0x08, 0x05, 0x00, 0x21, 0x40, 0x72, 0x12, 0x00, 0x00, 0x0C, 0x00, 0x00, 0x44}),
         true, 1, ZeileImmPacket},
        {"switch request", bytes({0xB0, 0x00, 0x10, 0x5F}), true, 1, ZeileSwReq},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.was);
        Empfang e;
        Mitschnitt m(e);
        e.Monitor_Aktiv = f.monitorAktiv;
        e.bytes(f.eingang);
        EXPECT_EQ(m.nachrichten.size(), f.anMonitor);
        EXPECT_EQ(m.zeilen, f.zeile < 0 ? std::vector<int>{} : std::vector<int>{f.zeile});
        for (int z = 0; z < EmpfangZeilen; ++z)
            EXPECT_EQ(e.geflaggt(z), z == f.zeile) << z;
    }
}

TEST(Empfang, VariableLengthZeroOrOneNeverCompletesTheNextOpcodeRestarts)
{
    for (int laenge : {0, 1}) {
        Empfang e;
        Mitschnitt m(e);
        e.bytes(bytes({0xE0, laenge, 0x01, 0x02, 0x03}));
        for (int i = 0; i < 600; ++i)
            e.byte(0x11);
        EXPECT_TRUE(m.nachrichten.empty());
        e.bytes(bytes({0x83, 0x7C}));
        EXPECT_EQ(m.nachrichten, std::vector<QByteArray>{bytes({0x83, 0x7C})});
    }
}

TEST(Empfang, ClearingRowsAndDecodingPxct)
{
    Empfang e;
    e.bytes(bytes({0xE5, 0x0F, 0x05, 0x49, 0x4B, 0x1F, 0x31, 0x72, 0x12, 0x00, 0x00, 0x7F, 0x7F, 0x00, 0x00}));
    EXPECT_TRUE(e.geflaggt(ZeilePeerXfer));
    e.decode_pxct1(ZeilePeerXfer);
    EXPECT_EQ(e.wert(ZeilePeerXfer, 7), 0x72 + 128);
    EXPECT_EQ(e.wert(ZeilePeerXfer, 11), 0xFF);
    EXPECT_EQ(e.wert(ZeilePeerXfer, 12), 0xFF);
    e.zeileLoeschen(ZeilePeerXfer);
    EXPECT_FALSE(e.geflaggt(ZeilePeerXfer));
    EXPECT_EQ(e.wert(ZeilePeerXfer, 0), 0);
    EXPECT_EQ(e.wert(ZeilePeerXfer, 1), 0x0F) << "only position 0 and the flag";
    e.tabelleLoeschen();
    EXPECT_EQ(e.wert(ZeilePeerXfer, 1), 0);
}

// The one length rule that the monitor, the LbServer transport and the simulator share.
TEST(Nachrichtenrahmen, CutsByTheOpcodesLength)
{
    const struct {
        QByteArray eingang;
        std::vector<QByteArray> fertig;
    } faelle[] = {
        {bytes({0x83, 0x7C, 0xB0, 0x01, 0x02, 0x4C, 0xC0, 1, 2, 3, 4, 0x3D}),
         {bytes({0x83, 0x7C}), bytes({0xB0, 0x01, 0x02, 0x4C}), bytes({0xC0, 1, 2, 3, 4, 0x3D})}},
        {bytes({0xE5, 0x04, 0x01, 0x1E}), {bytes({0xE5, 0x04, 0x01, 0x1E})}},
        {bytes({0xE0, 0x02}), {bytes({0xE0, 0x02})}},
        {bytes({0x11, 0xB0, 0x01, 0x83, 0x7C}), {bytes({0x83, 0x7C})}},  // stray byte, a message cut off
        {bytes({0xE0, 0x01, 0x11, 0x22, 0x83, 0x7C}), {bytes({0x83, 0x7C})}},
    };
    for (const auto& f : faelle) {
        Nachrichtenrahmen r;
        std::vector<QByteArray> fertig;
        for (const char b : f.eingang)
            if (r.byte(quint8(b)) == Nachrichtenrahmen::Stand::Fertig)
                fertig.push_back(r.nachricht());
        EXPECT_EQ(fertig, f.fertig) << test::h(f.eingang);
    }
    Nachrichtenrahmen klein(3);
    for (const int b : {0xE0, 0x01, 0x11, 0x22})
        klein.byte(quint8(b));
    EXPECT_EQ(klein.byte(0x33), Nachrichtenrahmen::Stand::Ausserhalb) << "past its size it was dropped";
}
