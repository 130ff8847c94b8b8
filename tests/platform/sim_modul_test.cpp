// What a simulated LNCV module answers, byte by byte, in virtual time.
#include "loconet/nachricht.h"
#include "platform/sim_modul.h"
#include "tests/support/sim.h"

#include <functional>

using namespace planor;
using namespace planor::test;

using Liste = std::vector<std::string>;
using Pruefung = std::function<void(SimGeraete&)>;

TEST(SimModul, AnswersEachRequestByteForByte)
{
    const Liste keine{}, ok{"B4 6D 7F 59"}, auf12{"E5 0F 05 49 4B 1F 00 72 12 00 00 0C 00 00 61"};
    const QByteArray on12 = Prog_On_Nachricht(4722, 12);
    const struct {
        const char* name;
        std::vector<SimModulAngabe> module;
        Pruefung vorher;
        std::vector<std::pair<QByteArray, Liste>> schritte;  // request, answer after the echo
        Pruefung danach;
    } faelle[] = {
        {"session start answers LNCV 0 with the address", {{47220, 12}}, {}, {{on12, auf12}},
         [](SimGeraete& g) { EXPECT_TRUE(g.modul(47220, 12)->sitzungOffen()); }},
        {"article with bit 7", {{5330, 7}}, {},
         {{Prog_On_Nachricht(5330, 7), {"E5 0F 05 49 4B 1F 01 52 14 00 00 07 00 00 4D"}}}, {}},
        {"foreign address or article", {{47220, 12}}, {},
         {{Prog_On_Nachricht(4722, 13), keine}, {Prog_On_Nachricht(4723, 12), keine}}, {}},
        {"broadcast start reaches the module of the article", {{47320, 300}, {47220, 12}}, {},
         {{Prog_On_Nachricht(4732, 65535), {"E5 0F 05 49 4B 1F 00 7C 12 00 00 2C 01 00 4E"}}},
         [](SimGeraete& g) { EXPECT_FALSE(g.modul(47220, 12)->sitzungOffen()); }},
        {"read inside the session only; the end is silent", {{47220, 12}}, {},
         {{Read_Lncv_Nachricht(4722, 16), keine}, {on12, auf12},
          {Read_Lncv_Nachricht(4722, 16), {"E5 0F 05 49 4B 1F 00 72 12 10 00 64 00 00 19"}},
          {Prog_Off_Nachricht(4722, 12), keine}, {Read_Lncv_Nachricht(4722, 16), keine}},
         [](SimGeraete& g) { EXPECT_FALSE(g.modul(47220, 12)->sitzungOffen()); }},
        {"value with bit 7 in LNCV 128", {{47320, 300}}, [](SimGeraete& g) { g.modul(47320, 300)->setzeLncv(128, 0xFFFF); },
         {{Prog_On_Nachricht(4732, 300), {"E5 0F 05 49 4B 1F 00 7C 12 00 00 2C 01 00 4E"}},
          {Read_Lncv_Nachricht(4732, 128), {"E5 0F 05 49 4B 1F 34 7C 12 00 00 7F 7F 00 57"}}}, {}},
        {"write is acknowledged and stored", {{47220, 12}}, {},
         {{on12, auf12}, {Prog_Lncv_Nachricht(4722, 2, -1), ok},
          {Read_Lncv_Nachricht(4722, 2), {"E5 0F 05 49 4B 1F 30 72 12 02 00 7F 7F 00 5F"}}},
         [](SimGeraete& g) { EXPECT_EQ(g.modul(47220, 12)->lncv(2), 0xFFFF); }},
        {"refused write", {{47220, 12}}, [](SimGeraete& g) { g.modul(47220, 12)->schreibenVerweigern = true; },
         {{on12, auf12}, {Prog_Lncv_Nachricht(4722, 2, 5), {"B4 6D 00 26"}}},
         [](SimGeraete& g) { EXPECT_EQ(g.modul(47220, 12)->lncv(2), 0); }},
        {"the receiver's firmware number is read-only", {{47230, 3, 110}}, {},
         {{Prog_On_Nachricht(4723, 3), {"E5 0F 05 49 4B 1F 00 73 12 00 00 03 00 00 6F"}},
          {Prog_Lncv_Nachricht(4723, 16, 300), {"B4 6D 02 24"}}},
         [](SimGeraete& g) { EXPECT_EQ(g.modul(47230, 3)->lncv(16), 110); }},
        {"no LNCV beyond the module's 128", {{47220, 12}}, {},
         {{on12, auf12}, {Read_Lncv_Nachricht(4722, 127), {"E5 0F 05 49 4B 1F 00 72 12 7F 00 00 00 00 12"}},
          {Read_Lncv_Nachricht(4722, 128), keine}, {Prog_Lncv_Nachricht(4722, 128, 1), keine}}, {}},
        {"the controller has 460 LNCVs", {{47330, 5}}, {},
         {{Prog_On_Nachricht(4733, 5), {"E5 0F 05 49 4B 1F 00 7D 12 00 00 05 00 00 67"}},
          {Read_Lncv_Nachricht(4733, 459), {"E5 0F 05 49 4B 1F 04 7D 12 4B 01 00 00 00 2C"}},
          {Read_Lncv_Nachricht(4733, 460), keine}}, {}},
        {"new address inside a broadcast session", {{47220, 1}}, {},
         {{Prog_On_Nachricht(4722, 65535), {"E5 0F 05 49 4B 1F 00 72 12 00 00 01 00 00 6C"}},
          {Prog_Lncv_Nachricht(4722, 0, 42), ok}, {Prog_Off_Nachricht(4722, 65535), keine},
          {Prog_On_Nachricht(4722, 1), keine}},
         [](SimGeraete& g) { EXPECT_NE(g.modul(47220, 42), nullptr); }},
        {"opening another module of the article closes the session", {{47220, 12}, {47220, 13}}, {},
         {{on12, auf12}, {Prog_On_Nachricht(4722, 13), {"E5 0F 05 49 4B 1F 00 72 12 00 00 0D 00 00 60"}},
          {Read_Lncv_Nachricht(4722, 0), {"E5 0F 05 49 4B 1F 00 72 12 00 00 0D 00 00 60"}}},
         [](SimGeraete& g) { EXPECT_FALSE(g.modul(47220, 12)->sitzungOffen()); }},
        {"silent module", {{47220, 12}}, [](SimGeraete& g) { g.modul(47220, 12)->stumm = true; }, {{on12, keine}}, {}},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.name);
        SimUmgebung u;
        for (const SimModulAngabe& m : f.module)
            u.sim.modulHinzufuegen(m);
        if (f.vorher)
            f.vorher(u.sim.geraete());
        for (const auto& [anfrage, antwort] : f.schritte) {
            const std::size_t vorher = u.angekommen.size();
            u.schreiben(mitPruefsumme(anfrage));
            Liste n = u.nachrichten(vorher);
            ASSERT_FALSE(n.empty());
            EXPECT_EQ(n.front(), h(mitPruefsumme(anfrage))) << "the echo first";
            EXPECT_EQ(Liste(n.begin() + 1, n.end()), antwort) << h(anfrage);
        }
        if (f.danach)
            f.danach(u.sim.geraete());
    }
}

TEST(SimModul, RequestParsingUndoesThePxctCoding)
{
    const auto a = LncvAnfrageLesen(mitPruefsumme(Prog_Lncv_Nachricht(5330, 128, -1)));
    ASSERT_TRUE(a.has_value());
    EXPECT_EQ(std::tie(a->opcode, a->befehl, a->artikel, a->lncv, a->wert, a->flags),
              std::make_tuple(0xED, 0x20, 5330, 128, 0xFFFF, 0));
    const auto start = LncvAnfrageLesen(mitPruefsumme(Prog_On_Nachricht(4722, 65535)));
    ASSERT_TRUE(start.has_value());
    EXPECT_EQ(std::make_pair(int(start->flags), int(start->wert)), std::make_pair(0x80, 65535));
    // A wrong checksum, a module's answer: no request.
    QByteArray kaputt = mitPruefsumme(Prog_On_Nachricht(4722, 12));
    kaputt[14] = char(kaputt.at(14) ^ 1);
    EXPECT_FALSE(LncvAnfrageLesen(kaputt).has_value());
    EXPECT_FALSE(LncvAnfrageLesen(LncvAntwort(4722, 0, 12)).has_value());
}
