// Part 2.3 from the module's side: what a simulated LNCV module answers,
// byte by byte, in virtual time.
#include "platform/sim_modul.h"
#include "tests/support/sim.h"

#include "loconet/nachricht.h"

using namespace planor;
using namespace planor::test;

using Liste = std::vector<std::string>;

namespace {

class SimModulTest : public SimTest {
protected:
    // Sends a request (checksum added) and returns what came back after its echo.
    Liste anfrage(const QByteArray& puffer)
    {
        const std::size_t vorher = angekommen.size();
        schreiben(mitPruefsumme(puffer));
        Liste n = nachrichten(vorher);
        EXPECT_FALSE(n.empty());
        if (!n.empty()) {
            EXPECT_EQ(n.front(), h(mitPruefsumme(puffer))) << "the echo first";
            n.erase(n.begin());
        }
        return n;
    }
};

}  // namespace

TEST_F(SimModulTest, SessionStartIsAnsweredWithLncv0AndTheAddress)
{
    sim.modulHinzufuegen({47220, 12});
    EXPECT_EQ(h(mitPruefsumme(Prog_On_Nachricht(4722, 12))), "ED 0F 08 05 00 21 40 72 12 00 00 0C 00 00 1D");
    EXPECT_EQ(anfrage(Prog_On_Nachricht(4722, 12)), (Liste{"E5 0F 05 49 4B 1F 00 72 12 00 00 0C 00 00 61"}));
    EXPECT_TRUE(sim.geraete().modul(47220, 12)->sitzungOffen());
}

TEST_F(SimModulTest, ArticleWithBit7IsCodedInTheAnswer)
{
    sim.modulHinzufuegen({5330, 7});
    EXPECT_EQ(anfrage(Prog_On_Nachricht(5330, 7)), (Liste{"E5 0F 05 49 4B 1F 01 52 14 00 00 07 00 00 4D"}));
}

TEST_F(SimModulTest, SessionStartForAnotherAddressOrArticleIsNotAnswered)
{
    sim.modulHinzufuegen({47220, 12});
    EXPECT_EQ(anfrage(Prog_On_Nachricht(4722, 13)), Liste{});
    EXPECT_EQ(anfrage(Prog_On_Nachricht(4723, 12)), Liste{});
}

TEST_F(SimModulTest, BroadcastSessionStartReachesAnyModuleOfTheArticle)
{
    sim.modulHinzufuegen({47320, 300});
    sim.modulHinzufuegen({47220, 12});
    EXPECT_EQ(anfrage(Prog_On_Nachricht(4732, 65535)), (Liste{"E5 0F 05 49 4B 1F 00 7C 12 00 00 2C 01 00 4E"}));
    EXPECT_FALSE(sim.geraete().modul(47220, 12)->sitzungOffen());
}

TEST_F(SimModulTest, ReadInsideTheSession)
{
    sim.modulHinzufuegen({47220, 12});
    anfrage(Prog_On_Nachricht(4722, 12));
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4722, 16)), (Liste{"E5 0F 05 49 4B 1F 00 72 12 10 00 64 00 00 19"}))
        << "firmware 100 in LNCV 16";
}

TEST_F(SimModulTest, ReadOfAValueWithBit7SetAndAnLncvAbove127)
{
    sim.modulHinzufuegen({47320, 300});
    sim.geraete().modul(47320, 300)->setzeLncv(128, 0xFFFF);
    anfrage(Prog_On_Nachricht(4732, 300));
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4732, 128)), (Liste{"E5 0F 05 49 4B 1F 34 7C 12 00 00 7F 7F 00 57"}));
}

TEST_F(SimModulTest, ReadOutsideASessionIsNotAnswered)
{
    sim.modulHinzufuegen({47220, 12});
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4722, 16)), Liste{});
    anfrage(Prog_On_Nachricht(4722, 12));
    anfrage(Prog_Off_Nachricht(4722, 12));
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4722, 16)), Liste{});
}

TEST_F(SimModulTest, SessionEndIsSilent)
{
    sim.modulHinzufuegen({47220, 12});
    anfrage(Prog_On_Nachricht(4722, 12));
    EXPECT_EQ(anfrage(Prog_Off_Nachricht(4722, 12)), Liste{});
    EXPECT_FALSE(sim.geraete().modul(47220, 12)->sitzungOffen());
}

TEST_F(SimModulTest, WriteIsAcknowledgedAndStored)
{
    sim.modulHinzufuegen({47220, 12});
    anfrage(Prog_On_Nachricht(4722, 12));
    EXPECT_EQ(anfrage(Prog_Lncv_Nachricht(4722, 2, -1)), (Liste{"B4 6D 7F 59"}));
    EXPECT_EQ(sim.geraete().modul(47220, 12)->lncv(2), 0xFFFF);
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4722, 2)), (Liste{"E5 0F 05 49 4B 1F 30 72 12 02 00 7F 7F 00 5F"}));
}

TEST_F(SimModulTest, RefusedWrite)
{
    sim.modulHinzufuegen({47220, 12});
    sim.geraete().modul(47220, 12)->schreibenVerweigern = true;
    anfrage(Prog_On_Nachricht(4722, 12));
    EXPECT_EQ(anfrage(Prog_Lncv_Nachricht(4722, 2, 5)), (Liste{"B4 6D 00 26"}));
    EXPECT_EQ(sim.geraete().modul(47220, 12)->lncv(2), 0);
}

TEST_F(SimModulTest, TheReceiversFirmwareNumberIsReadOnly)
{
    sim.modulHinzufuegen({47230, 3, 110});
    anfrage(Prog_On_Nachricht(4723, 3));
    EXPECT_EQ(anfrage(Prog_Lncv_Nachricht(4723, 16, 300)), (Liste{"B4 6D 02 24"}));
    EXPECT_EQ(sim.geraete().modul(47230, 3)->lncv(16), 110);
}

TEST_F(SimModulTest, LncvBeyondTheCountGetsNoAnswer)
{
    sim.modulHinzufuegen({47220, 12});
    sim.modulHinzufuegen({47330, 5});
    anfrage(Prog_On_Nachricht(4722, 12));
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4722, 127)).size(), 1u);
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4722, 128)), Liste{});
    EXPECT_EQ(anfrage(Prog_Lncv_Nachricht(4722, 128, 1)), Liste{});
    anfrage(Prog_On_Nachricht(4733, 5));
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4733, 459)).size(), 1u);
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4733, 460)), Liste{});
}

TEST_F(SimModulTest, NewAddressInsideABroadcastSession)
{
    // Part 2.5: Prog_On 65535, LNCV 0 := new address, Prog_Off 65535.
    sim.modulHinzufuegen({47220, 1});
    anfrage(Prog_On_Nachricht(4722, 65535));
    EXPECT_EQ(anfrage(Prog_Lncv_Nachricht(4722, 0, 42)), (Liste{"B4 6D 7F 59"}));
    anfrage(Prog_Off_Nachricht(4722, 65535));
    EXPECT_NE(sim.geraete().modul(47220, 42), nullptr);
    EXPECT_EQ(anfrage(Prog_On_Nachricht(4722, 1)), Liste{});
    EXPECT_EQ(anfrage(Prog_On_Nachricht(4722, 42)).size(), 1u);
}

TEST_F(SimModulTest, OpeningAnotherModuleOfTheArticleClosesTheSession)
{
    sim.modulHinzufuegen({47220, 12});
    sim.modulHinzufuegen({47220, 13});
    anfrage(Prog_On_Nachricht(4722, 12));
    anfrage(Prog_On_Nachricht(4722, 13));
    EXPECT_FALSE(sim.geraete().modul(47220, 12)->sitzungOffen());
    EXPECT_EQ(anfrage(Read_Lncv_Nachricht(4722, 0)), (Liste{"E5 0F 05 49 4B 1F 00 72 12 00 00 0D 00 00 60"}));
}

TEST_F(SimModulTest, SilentModuleAnswersNothing)
{
    sim.modulHinzufuegen({47220, 12});
    sim.geraete().modul(47220, 12)->stumm = true;
    EXPECT_EQ(anfrage(Prog_On_Nachricht(4722, 12)), Liste{});
}

TEST(SimModul, FactoryValuesAndCounts)
{
    SimModul navik(47240, 9);
    EXPECT_EQ(navik.anzahl(), 128);
    EXPECT_EQ(navik.drahtArtikel(), 4724);
    EXPECT_EQ(navik.lncv(0), 9);
    EXPECT_EQ(navik.lncv(16), 100);
    EXPECT_EQ(navik.lncv(1), 0);
    SimModul uni(47330, 2, 7);
    EXPECT_EQ(uni.anzahl(), 460);
    EXPECT_EQ(uni.lncv(16), 7);
    EXPECT_EQ(SimModul(5330, 1).drahtArtikel(), 5330);
    EXPECT_EQ(SimModul(5330, 1).lncv(16), 200);
    EXPECT_EQ(SimModul(47230, 1).lncv(16), 205);
    EXPECT_FALSE(SimModul::artikelBekannt(47250));
}

TEST(SimModul, RequestParsingUndoesThePxctCoding)
{
    const auto a = LncvAnfrageLesen(mitPruefsumme(Prog_Lncv_Nachricht(5330, 128, -1)));
    ASSERT_TRUE(a.has_value());
    EXPECT_EQ(a->opcode, 0xED);
    EXPECT_EQ(a->befehl, 0x20);
    EXPECT_EQ(a->artikel, 5330);
    EXPECT_EQ(a->lncv, 128);
    EXPECT_EQ(a->wert, 0xFFFF);
    EXPECT_EQ(a->flags, 0);
    const auto start = LncvAnfrageLesen(mitPruefsumme(Prog_On_Nachricht(4722, 65535)));
    ASSERT_TRUE(start.has_value());
    EXPECT_EQ(start->flags, 0x80);
    EXPECT_EQ(start->wert, 65535);
    // A wrong checksum, a module's answer: no request.
    QByteArray kaputt = mitPruefsumme(Prog_On_Nachricht(4722, 12));
    kaputt[14] = char(kaputt.at(14) ^ 1);
    EXPECT_FALSE(LncvAnfrageLesen(kaputt).has_value());
    EXPECT_FALSE(LncvAnfrageLesen(LncvAntwort(4722, 0, 12)).has_value());
}
