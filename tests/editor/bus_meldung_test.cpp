// What a filled reception row reports to the address and monitor views.
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

TEST(BusMeldung, WhatEachRowReports)
{
    struct Erwartet {
        BusMeldung::Art art;
        int adresse, lok = 0, status = -1, zustand = -1;
        bool zug = false, adressAnsicht = false;
    };
    struct Fall {
        const char* name;
        QByteArray daten;
        std::vector<Erwartet> erwartet;
    };
    const Fall faelle[] = {
        // Receiver 300 = 2 × 128 + 44, locomotive 1234 = 9 × 128 + 82, S2 to S1.
        {"train report", ZugMeldung(300, 1234, 1, 2), {{BusMeldung::Empfaenger, 300, 1234, 0x62, -1, true, true}}},
        // Status query and speed report have b3 AND 0x60 = 0x20: no train.
        {"status query", Ask_Navik_Nachricht(5) + char(0), {{BusMeldung::Empfaenger, 5}}},
        {"speed report", bytes({0xE4, 0x08, 0x00, 0x20, 0x05, 0x00, 0x30, 0x00}), {{BusMeldung::Empfaenger, 5}}},
        // Only the "on" half of a switch command (bit 4) names the position.
        {"switch on and off", SendMag_Nachricht(1, 0, true) + char(0) + SendMag_Nachricht(1, 0, false) + char(0),
         {{BusMeldung::Magnetartikel, 1, 0, -1, 0}, {BusMeldung::Keine, -1}}},
        // b1 = 0x7F, b2 AND 15 = 3: address 3 × 128 + 127 + 1 = 512; bit 5 green.
        {"high address, green", bytes({0xB0, 0x7F, 0x33, 0x00}), {{BusMeldung::Magnetartikel, 512, 0, -1, 1}}},
        {"other opcode", bytes({0xB4, 0x3C, 0x30, 0x00}), {{BusMeldung::Keine, -1}}},
    };
    for (const Fall& f : faelle) {
        SCOPED_TRACE(f.name);
        const auto m = meldungen(f.daten);
        ASSERT_EQ(m.size(), f.erwartet.size());
        for (std::size_t i = 0; i < m.size(); ++i) {
            const Erwartet& e = f.erwartet[i];
            EXPECT_EQ(m[i].art, e.art);
            if (e.adresse >= 0) {
                EXPECT_EQ(m[i].adresse, e.adresse);
            }
            if (e.art == BusMeldung::Empfaenger) {
                EXPECT_EQ(m[i].zugmeldung(), e.zug);
                EXPECT_EQ(m[i].fuerAdressAnsicht(), e.adressAnsicht);
            }
            if (e.zug) {
                EXPECT_EQ(m[i].lok, e.lok);
                EXPECT_EQ(m[i].status, e.status);
            }
            if (e.zustand >= 0) {
                EXPECT_EQ(m[i].zustand, e.zustand);
            }
        }
    }
}

}  // namespace
