// The simulated bus: framing per party, the echo, the wire time and the
// faults, in virtual time.
#include "platform/sim_rahmen.h"
#include "tests/support/sim.h"

#include "loconet/nachricht.h"

using namespace planor;
using namespace planor::test;

using Liste = std::vector<std::string>;

TEST(SimRahmen, CutsMessagesByTheirOpcodeLength)
{
    SimRahmen r;
    const auto s = r.bytes(hex("81 7E B0 00 10 5F A0 01 02 5C C0 01 02 03 04 3D"));
    ASSERT_EQ(s.size(), 4u);
    EXPECT_EQ(h(s[0].bytes), "81 7E");
    EXPECT_EQ(h(s[1].bytes), "B0 00 10 5F");
    EXPECT_EQ(h(s[2].bytes), "A0 01 02 5C");
    EXPECT_EQ(h(s[3].bytes), "C0 01 02 03 04 3D");
    EXPECT_FALSE(s[0].text);
}

TEST(SimRahmen, VariableLengthSplitAcrossReads)
{
    SimRahmen r;
    const QByteArray m = mitPruefsumme(Prog_On_Nachricht(4722, 12));
    EXPECT_TRUE(r.bytes(m.left(1)).empty());
    EXPECT_TRUE(r.bytes(m.mid(1, 6)).empty());
    const auto s = r.bytes(m.mid(7));
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].bytes, m);
}

TEST(SimRahmen, JunkIsDroppedAndANewOpcodeRestarts)
{
    SimRahmen r;
    // Stray data bytes, a message cut off by a new opcode, a length byte below 3.
    const auto s = r.bytes(hex("05 06 B0 00 BC 01 02 40 E5 01 07 B2 00 50 1D"));
    ASSERT_EQ(s.size(), 2u);
    EXPECT_EQ(h(s[0].bytes), "BC 01 02 40");
    EXPECT_EQ(h(s[1].bytes), "B2 00 50 1D");
}

TEST(SimRahmen, TextLinesBetweenMessages)
{
    SimRahmen r;
    const auto s = r.bytes(QByteArray("\0xB19200\r", 9) + hex("81 7E") + "x&LN$55AA\r\n");
    ASSERT_EQ(s.size(), 3u);
    EXPECT_TRUE(s[0].text);
    EXPECT_EQ(s[0].bytes, "xB19200");
    EXPECT_EQ(h(s[1].bytes), "81 7E");
    EXPECT_EQ(s[2].bytes, "x&LN$55AA");
}

using SimBusTest = SimTest;

TEST_F(SimBusTest, EveryMessageReachesEveryPartyTheWriterIncluded)
{
    std::vector<QByteArray> anderer;
    const int zweiter = sim.bus().anschliessen([&](const QByteArray& b) { anderer.push_back(b); });
    std::vector<QByteArray> gesehen;
    QObject::connect(&sim.bus(), &SimBus::nachricht, [&](const QByteArray& b) { gesehen.push_back(b); });
    schreiben(hex("B0 00 10 5F"));
    sim.bus().schreiben(zweiter, hex("B2 00 50 1D"));
    uhr.weiter(10);
    EXPECT_EQ(nachrichten(), (Liste{"B0 00 10 5F", "B2 00 50 1D"}));
    ASSERT_EQ(anderer.size(), 2u);
    EXPECT_EQ(h(anderer[0]), "B0 00 10 5F");
    EXPECT_EQ(gesehen.size(), 2u);
}

TEST_F(SimBusTest, AMessageSplitAcrossWritesGoesOutWhole)
{
    sim.bus().schreiben(teilnehmer, hex("B0 00"));
    uhr.weiter(10);
    EXPECT_TRUE(angekommen.empty());
    schreiben(hex("10 5F"));
    EXPECT_EQ(nachrichten(), (Liste{"B0 00 10 5F"}));
}

TEST_F(SimBusTest, DetachedPartyGetsNothing)
{
    sim.bus().abtrennen(teilnehmer);
    const int anderer = sim.bus().anschliessen([](const QByteArray&) {});
    sim.bus().schreiben(anderer, hex("B0 00 10 5F"));
    uhr.weiter(10);
    EXPECT_TRUE(angekommen.empty());
}

TEST_F(SimBusTest, APartyMayLeaveFromInsideItsOwnCall)
{
    int gerufen = 0;
    int gehend = 0;
    gehend = sim.bus().anschliessen([&](const QByteArray&) {
        ++gerufen;
        sim.bus().abtrennen(gehend);
    });
    schreiben(hex("B0 00 10 5F"));
    schreiben(hex("B0 00 00 4F"));
    EXPECT_EQ(gerufen, 1);
    EXPECT_EQ(angekommen.size(), 2u);
}

TEST_F(SimBusTest, WireTimeAndReactionTime)
{
    sim.bus().zeiten = {true, 0.010};
    sim.modulHinzufuegen({47220, 12});
    const double t0 = uhr.sekunden();
    schreiben(mitPruefsumme(Prog_On_Nachricht(4722, 12)));
    ASSERT_EQ(angekommen.size(), 2u);
    // 15 bytes at 0.6 ms: the echo after 9 ms; the answer 10 ms later and 9 ms on the wire.
    EXPECT_NEAR(angekommen[0].zeit - t0, 0.009, 1e-6);
    EXPECT_NEAR(angekommen[1].zeit - t0, 0.018 + 0.010, 1e-6);
    EXPECT_EQ(angekommen[1].bytes.at(0), char(0xE5));
}

TEST_F(SimBusTest, MessagesWaitForTheWire)
{
    sim.bus().zeiten = {true, 0.0};
    const double t0 = uhr.sekunden();
    sim.bus().schreiben(teilnehmer, hex("B0 00 10 5F"));
    sim.bus().schreiben(teilnehmer, hex("B0 00 00 4F"));
    uhr.weiter(10);
    ASSERT_EQ(angekommen.size(), 2u);
    EXPECT_NEAR(angekommen[0].zeit - t0, 0.0024, 1e-6);
    EXPECT_NEAR(angekommen[1].zeit - t0, 0.0048, 1e-6);
}

TEST_F(SimBusTest, WithoutTimesEverythingArrivesAtOnce)
{
    sim.modulHinzufuegen({47220, 12});
    const double t0 = uhr.sekunden();
    schreiben(mitPruefsumme(Prog_On_Nachricht(4722, 12)));
    ASSERT_EQ(angekommen.size(), 2u);
    EXPECT_EQ(angekommen[1].zeit, t0);
}

TEST_F(SimBusTest, DropTheNextMessage)
{
    sim.bus().stoerung.einstellungen.naechsteVerwerfen = 1;
    schreiben(hex("B0 00 10 5F"));
    schreiben(hex("B0 00 00 4F"));
    EXPECT_EQ(nachrichten(), (Liste{"B0 00 00 4F"}));
    EXPECT_EQ(sim.bus().stoerung.verworfen, 1);
}

TEST_F(SimBusTest, DuplicateTheNextMessage)
{
    sim.bus().stoerung.einstellungen.naechsteVerdoppeln = 1;
    schreiben(hex("B0 00 10 5F"));
    EXPECT_EQ(nachrichten(), (Liste{"B0 00 10 5F", "B0 00 10 5F"}));
}

TEST_F(SimBusTest, DelayTheNextMessage)
{
    sim.bus().stoerung.einstellungen.naechsteVerzoegern = 1;
    sim.bus().stoerung.einstellungen.verzoegerung = 0.25;
    const double t0 = uhr.sekunden();
    schreiben(hex("B0 00 10 5F"), 200);
    EXPECT_TRUE(angekommen.empty());
    uhr.weiter(100);
    ASSERT_EQ(angekommen.size(), 1u);
    EXPECT_NEAR(angekommen[0].zeit - t0, 0.25, 1e-6);
}

TEST_F(SimBusTest, CorruptOneByteOfTheNextMessage)
{
    sim.bus().stoerung.einstellungen.naechsteVerfaelschen = 1;
    const QByteArray m = hex("B0 00 10 5F");
    schreiben(m);
    ASSERT_EQ(angekommen.size(), 1u);
    const QByteArray& b = angekommen[0].bytes;
    ASSERT_EQ(b.size(), 4);
    EXPECT_EQ(b.at(0), m.at(0)) << "the opcode keeps the frame";
    int anders = 0;
    for (int i = 0; i < 4; ++i) {
        anders += b.at(i) != m.at(i);
        EXPECT_EQ(quint8(b.at(i)) & 0x80, quint8(m.at(i)) & 0x80);
    }
    EXPECT_EQ(anders, 1);
    EXPECT_NE(Pruefsumme(b.left(3)), quint8(b.at(3)));
}

TEST_F(SimBusTest, ACorruptedRequestIsNotAnswered)
{
    sim.modulHinzufuegen({47220, 12});
    sim.bus().stoerung.einstellungen.naechsteVerfaelschen = 1;
    schreiben(mitPruefsumme(Prog_On_Nachricht(4722, 12)));
    EXPECT_EQ(angekommen.size(), 1u) << "the garbled echo only";
}

TEST_F(SimBusTest, FaultsOnlyOnTheDevicesAnswers)
{
    sim.modulHinzufuegen({47220, 12});
    sim.bus().stoerung.einstellungen.nurGeraete = true;
    sim.bus().stoerung.einstellungen.verwerfen = 1.0;
    schreiben(mitPruefsumme(Prog_On_Nachricht(4722, 12)));
    EXPECT_EQ(nachrichten(), (Liste{h(mitPruefsumme(Prog_On_Nachricht(4722, 12)))})) << "echo kept, answer lost";
}

TEST_F(SimBusTest, ProbabilitiesAreDeterministicWithASeed)
{
    auto lauf = [](quint32 saat) {
        TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
        SimBus bus(uhr);
        bus.zeiten = {false, 0.0};
        bus.stoerung.saat(saat);
        bus.stoerung.einstellungen.verwerfen = 0.3;
        bus.stoerung.einstellungen.verdoppeln = 0.2;
        bus.stoerung.einstellungen.verfaelschen = 0.2;
        QByteArray alles;
        const int t = bus.anschliessen([&](const QByteArray& b) { alles += b; });
        for (int i = 0; i < 200; ++i)
            bus.schreiben(t, mitPruefsumme(SendMag_Nachricht(i + 1, i & 1, true)));
        uhr.weiter(10);
        return std::make_pair(alles, bus.stoerung.verworfen);
    };
    const auto a = lauf(7), b = lauf(7), c = lauf(8);
    EXPECT_EQ(a, b);
    EXPECT_NE(a.first, c.first);
    // About 30 % dropped.
    EXPECT_GT(a.second, 30);
    EXPECT_LT(a.second, 90);
}

TEST_F(SimBusTest, TextLinesGoToTheCommandStationAndTheAnswerOnlyToTheWriter)
{
    std::vector<QByteArray> anderer;
    sim.bus().anschliessen([&](const QByteArray& b) { anderer.push_back(b); });
    schreiben("xB19200\r");
    ASSERT_EQ(angekommen.size(), 1u);
    EXPECT_EQ(angekommen[0].bytes, "[OK]");
    schreiben("x&LN$55AA\r");
    ASSERT_EQ(angekommen.size(), 2u);
    EXPECT_EQ(angekommen[1].bytes, "[OK]");
    EXPECT_TRUE(anderer.empty());
}

TEST_F(SimBusTest, TheBusGoingFirstLeavesNoDanglingTimer)
{
    {
        SimBus bus(uhr);
        const int t = bus.anschliessen([](const QByteArray&) {});
        bus.schreiben(t, hex("B0 00 10 5F"));
        bus.antworten(hex("B4 3C 30 47"));
    }
    uhr.weiter(100);
    SUCCEED();
}
