// The simulated bus: framing per party, the echo, the wire time and the
// faults, in virtual time.
#include "loconet/nachricht.h"
#include "platform/sim_rahmen.h"
#include "tests/support/sim.h"

#include <functional>

using namespace planor;
using namespace planor::test;

using Liste = std::vector<std::string>;

TEST(SimRahmen, CutsWhatArrivesIntoMessagesAndTextLines)
{
    const QByteArray prog = mitPruefsumme(Prog_On_Nachricht(4722, 12));
    const struct {
        std::vector<QByteArray> teile;
        Liste erwartet;  // text lines as "text:..."
    } faelle[] = {
        {{hex("81 7E B0 00 10 5F A0 01 02 5C C0 01 02 03 04 3D")},
         {"81 7E", "B0 00 10 5F", "A0 01 02 5C", "C0 01 02 03 04 3D"}},
        {{prog.left(1), prog.mid(1, 6), prog.mid(7)}, {h(prog)}},
        // Stray data bytes, a message cut off by a new opcode, a length byte below 3.
        {{hex("05 06 B0 00 BC 01 02 40 E5 01 07 B2 00 50 1D")}, {"BC 01 02 40", "B2 00 50 1D"}},
        // A length byte of 1 never completes: what follows up to the next opcode is no text either.
        {{hex("E0 01") + "AB\r" + hex("E0 02 81 7E")}, {"E0 02", "81 7E"}},
        {{QByteArray("\0xB19200\r", 9) + hex("81 7E") + "x&LN$55AA\r\n"}, {"text:xB19200", "81 7E", "text:x&LN$55AA"}},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.erwartet.front());
        SimRahmen r;
        Liste n;
        for (const QByteArray& teil : f.teile)
            for (const auto& s : r.bytes(teil))
                n.push_back(s.text ? "text:" + s.bytes.toStdString() : h(s.bytes));
        EXPECT_EQ(n, f.erwartet);
    }
}

using SimBusTest = SimTest;

TEST_F(SimBusTest, EveryMessageReachesEveryPartyTheWriterIncluded)
{
    std::vector<QByteArray> anderer;
    const int zweiter = sim.bus().anschliessen([&](const QByteArray& b) { anderer.push_back(b); });
    schreiben(hex("B0 00"));
    EXPECT_TRUE(angekommen.empty()) << "half a message waits for the rest";
    schreiben(hex("10 5F"));
    sim.bus().schreiben(zweiter, hex("B2 00 50 1D"));
    uhr.weiter(10);
    EXPECT_EQ(nachrichten(), (Liste{"B0 00 10 5F", "B2 00 50 1D"}));
    EXPECT_EQ(anderer.size(), 2u);
    // A party leaving from inside its own call, and a detached one, get no more.
    int gerufen = 0, gehend = 0;
    gehend = sim.bus().anschliessen([&](const QByteArray&) { ++gerufen, sim.bus().abtrennen(gehend); });
    sim.bus().abtrennen(zweiter);
    schreiben(hex("B0 00 10 5F"));
    schreiben(hex("B0 00 00 4F"));
    EXPECT_EQ(std::make_tuple(gerufen, anderer.size(), angekommen.size()), std::make_tuple(1, 2u, 4u));
    // Text lines go to the command station; its answer only to the writer.
    schreiben("xB19200\r");
    schreiben("x&LN$55AA\r");
    EXPECT_EQ(nachrichten(4), (Liste{h("[OK]"), h("[OK]")}));
    EXPECT_EQ(anderer.size(), 2u);
}

TEST_F(SimBusTest, WireTimeAndReactionTime)
{
    sim.bus().zeiten = {true, 0.010};
    sim.modulHinzufuegen({47220, 12});
    schreiben(mitPruefsumme(Prog_On_Nachricht(4722, 12)));
    sim.bus().zeiten = {true, 0.0};
    sim.bus().schreiben(teilnehmer, hex("B0 00 10 5F"));
    sim.bus().schreiben(teilnehmer, hex("B0 00 00 4F"));
    uhr.weiter(10);
    ASSERT_EQ(angekommen.size(), 4u);
    // 15 bytes at 0.6 ms: the echo after 9 ms; the answer 10 ms later and 9 ms on the wire.
    // Two messages written at once queue for the wire.
    const double erwartet[] = {0.009, 0.028, 0.1024, 0.1048};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(angekommen[i].zeit, erwartet[i], 1e-6) << i;
}

TEST(SimBus, FaultsHitTheNextMessages)
{
    const QByteArray anfrage = mitPruefsumme(Prog_On_Nachricht(4722, 12));
    const QByteArray b0 = hex("B0 00 10 5F");
    // Written at 0 s and at 0.1 s; the arrival times of the first and the last message.
    const struct {
        const char* name;
        std::function<void(SimStoerungen&)> stoerung;
        QByteArray erste;
        Liste erwartet;
        int verworfen;
        double ersteAnkunft, letzteAnkunft;
    } faelle[] = {
        {"drop", [](auto& e) { e.naechsteVerwerfen = 1; }, b0, {"B0 00 00 4F"}, 1, 0.1, 0.1},
        {"duplicate", [](auto& e) { e.naechsteVerdoppeln = 1; }, b0, {h(b0), h(b0), "B0 00 00 4F"}, 0, 0, 0.1},
        {"delay", [](auto& e) { e.naechsteVerzoegern = 1, e.verzoegerung = 0.25; }, b0, {"B0 00 00 4F", h(b0)}, 0, 0.1,
         0.25},
        {"devices only: echo kept, answer lost", [](auto& e) { e.nurGeraete = true, e.verwerfen = 1.0; }, anfrage,
         {h(anfrage), "B0 00 00 4F"}, 1, 0, 0.1},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.name);
        SimUmgebung u;
        u.sim.modulHinzufuegen({47220, 12});
        f.stoerung(u.sim.bus().stoerung.einstellungen);
        u.schreiben(f.erste);
        u.schreiben(hex("B0 00 00 4F"), 300);
        EXPECT_EQ(u.nachrichten(), f.erwartet);
        EXPECT_EQ(u.sim.bus().stoerung.verworfen, f.verworfen);
        EXPECT_NEAR(u.angekommen.front().zeit, f.ersteAnkunft, 1e-6);
        EXPECT_NEAR(u.angekommen.back().zeit, f.letzteAnkunft, 1e-6);
    }
}

TEST_F(SimBusTest, ACorruptedMessageKeepsItsFrameButNotItsChecksum)
{
    sim.modulHinzufuegen({47220, 12});
    sim.bus().stoerung.einstellungen.naechsteVerfaelschen = 1;
    const QByteArray m = mitPruefsumme(Prog_On_Nachricht(4722, 12));
    schreiben(m);
    ASSERT_EQ(angekommen.size(), 1u) << "the garbled echo only, the module does not answer";
    const QByteArray& b = angekommen[0].bytes;
    ASSERT_EQ(b.size(), m.size());
    EXPECT_EQ(b.at(0), m.at(0)) << "the opcode keeps the frame";
    int anders = 0;
    for (int i = 0; i < m.size(); ++i) {
        anders += b.at(i) != m.at(i);
        EXPECT_EQ(quint8(b.at(i)) & 0x80, quint8(m.at(i)) & 0x80);
    }
    EXPECT_EQ(anders, 1);
    EXPECT_NE(Pruefsumme(b.left(m.size() - 1)), quint8(b.back()));
}
