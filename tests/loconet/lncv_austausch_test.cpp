// Part 2.3: the LNCV exchange over the scaffold transport in virtual time,
// against a test module that answers as an Uhlenbrock LNCV module does.
#include "loconet/lncv_austausch.h"

#include "tests/loconet/lncv_modul.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

class Part2_3_Austausch : public MitLncvBus {};

}  // namespace

// --- Prog_On ---------------------------------------------------------------

TEST_F(Part2_3_Austausch, ProgOnOpensASessionAfterOneTry)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, ProgOn4723_1234);
    EXPECT_EQ(modul.anfragen, 1);
    EXPECT_TRUE(modul.sitzung);
    EXPECT_NEAR(seit(t0), 0.05, 1e-9);
    EXPECT_EQ(bus->verworfen, 1);
}

TEST_F(Part2_3_Austausch, ProgOnRetriesUntilTheModuleAnswers)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.schweigen = 3;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(modul.anfragen, 4);
    EXPECT_EQ(bus->gesendet, mal(ProgOn4723_1234, 4));
    EXPECT_NEAR(seit(t0), 3 * 0.2 + 0.05, 1e-9);
    // Each try starts right when the last one's 0.2 s are over.
    ASSERT_EQ(modul.zeiten.size(), 4u);
    for (std::size_t i = 1; i < modul.zeiten.size(); ++i)
        EXPECT_NEAR(modul.zeiten[i] - modul.zeiten[i - 1], 0.2, 1e-9);
    EXPECT_EQ(bus->verworfen, 1) << "Prog_On discards input once, at its beginning";
}

TEST_F(Part2_3_Austausch, ProgOnWithoutAnswerGivesErr2After5TriesOf02s)
{
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(bus->gesendet, mal(ProgOn4723_1234, 5));
    EXPECT_NEAR(seit(t0), 5 * 0.2, 1e-9);
}

TEST_F(Part2_3_Austausch, ProgOnBroadcastAddressAcceptsAnyModuleOfTheType)
{
    LncvModul modul(uhr, *bus, 4723, 77);
    Long err = -1;
    Prog_On(link, 4723, 65535, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, ProgOn4723_Alle);
    EXPECT_EQ(modul.anfragen, 1);
}

TEST_F(Part2_3_Austausch, ProgOnIgnoresAnAnswerWithAnotherArticle)
{
    LncvModul modul(uhr, *bus, 4722, 1234);
    modul.fremd = true;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(modul.anfragen, 5);
    // A failed check ends the try at once; the next one follows.
    EXPECT_NEAR(seit(t0), 5 * 0.05, 1e-9);
}

TEST_F(Part2_3_Austausch, ProgOnIgnoresAnAnswerWithAnotherAddress)
{
    LncvModul modul(uhr, *bus, 4723, 1235);
    modul.fremd = true;
    Long err = -1;
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(modul.anfragen, 5);
}

TEST_F(Part2_3_Austausch, ProgOnIgnoresAnAnswerForAnotherLncvThan0)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.lncvVersatz = 1;
    Long err = -1;
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(modul.anfragen, 5);
}

TEST_F(Part2_3_Austausch, ProgOnAcceptsAnArticleWithBit7BecauseBothSidesStayCoded)
{
    LncvModul modul(uhr, *bus, 5330, 1234);
    Long err = -1;
    Prog_On(link, 5330, 1234, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, ProgOn5330_1234);
    EXPECT_EQ(modul.anfragen, 1);
}

TEST_F(Part2_3_Austausch, ProgOnAddressWithBit7InBothBytesComesBack)
{
    // 0x8080: both address bytes travel in PXCT1 and get bit 7 back by hand.
    LncvModul modul(uhr, *bus, 4723, 0x8080);
    Long err = -1;
    Prog_On(link, 4723, 0x8080, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(modul.anfragen, 1);
}

TEST_F(Part2_3_Austausch, ProgOnClearsTheWholeTable)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    link.empfang().setzeWert(ZeileNavik, 0, 0xE4);
    link.empfang().setzeWert(ZeileNavik, EmpfangFlag, -1);
    link.empfang().setzeWert(ZeileSlRdData, 5, 42);
    Long err = -1;
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_FALSE(link.empfang().geflaggt(ZeileNavik));
    EXPECT_EQ(link.empfang().wert(ZeileNavik, 0), 0);
    EXPECT_EQ(link.empfang().wert(ZeileSlRdData, 5), 0);
}

TEST_F(Part2_3_Austausch, ProgOnOnAClosedPortGivesErr1AtOnce)
{
    bus->offen = false;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgSendeFehler);
    EXPECT_TRUE(bus->gesendet.isEmpty());
    EXPECT_EQ(seit(t0), 0.0);
}

TEST_F(Part2_3_Austausch, OwnEchoIsNotTakenForTheAnswer)
{
    bus->echo = true;
    Long err = -1;
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    Long wert = -1;
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(wert, -1);
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgKeineAntwort);

    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.werte[16] = 210;
    Prog_On(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgOK);
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 210);
}

// --- Prog_Off --------------------------------------------------------------

TEST_F(Part2_3_Austausch, ProgOffSendsOpcodeE5AndAwaitsNothing)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_Off(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, ProgOff4723_1234);
    EXPECT_EQ(seit(t0), 0.0);
    EXPECT_EQ(bus->verworfen, 1);
    EXPECT_FALSE(modul.sitzung);
}

TEST_F(Part2_3_Austausch, ProgOffOnAClosedPortGivesErr1)
{
    bus->offen = false;
    Long err = -1;
    Prog_Off(link, 4723, 1234, err);
    EXPECT_EQ(err, ProgSendeFehler);
}

// --- Read_Lncv -------------------------------------------------------------

TEST_F(Part2_3_Austausch, ReadLncvGivesTheValue)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    modul.werte[16] = 300;
    Long wert = -1, err = -1;
    const double t0 = uhr.sekunden();
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 300);
    EXPECT_EQ(bus->gesendet, Read4723_16);
    EXPECT_NEAR(seit(t0), 0.05, 1e-9);
}

TEST_F(Part2_3_Austausch, ReadLncvGivesUnsignedValuesWithBit7InBothBytes)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    modul.werte[3] = 65535;
    modul.werte[4] = 0x80FF;
    Long wert = -1, err = -1;
    Read_Lncv(link, 4723, 3, wert, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 65535);
    Read_Lncv(link, 4723, 4, wert, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 0x80FF);
}

TEST_F(Part2_3_Austausch, ReadLncv128TravelsAsLowZeroWithBit2)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    modul.werte[128] = 7;
    Long wert = -1, err = -1;
    Read_Lncv(link, 4723, 128, wert, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 7);
    EXPECT_EQ(bus->gesendet, Read4723_128);
}

TEST_F(Part2_3_Austausch, ReadLncvRetriesAndDiscardsInputInEachTry)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    modul.werte[16] = 9;
    modul.schweigen = 2;
    Long wert = -1, err = -1;
    const double t0 = uhr.sekunden();
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 9);
    EXPECT_EQ(modul.anfragen, 3);
    EXPECT_EQ(bus->gesendet, mal(Read4723_16, 3));
    EXPECT_NEAR(seit(t0), 2 * 0.5 + 0.05, 1e-9);
    // Discarded just before each send, not once at the beginning.
    EXPECT_EQ(modul.verworfenBeiAnfrage, (std::vector<int>{1, 2, 3}));
}

TEST_F(Part2_3_Austausch, ReadLncvWithoutAnswerGivesErr2After10TriesOf05s)
{
    Long wert = -1, err = -1;
    const double t0 = uhr.sekunden();
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(wert, -1);
    EXPECT_EQ(bus->gesendet, mal(Read4723_16, 10));
    EXPECT_EQ(bus->verworfen, 10);
    EXPECT_NEAR(seit(t0), 10 * 0.5, 1e-9);
}

TEST_F(Part2_3_Austausch, ReadLncvIgnoresAnAnswerForAnotherLncv)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    modul.werte[16] = 9;
    modul.lncvVersatz = 1;
    Long wert = -1, err = -1;
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(wert, -1);
    EXPECT_EQ(modul.anfragen, 10);
}

TEST_F(Part2_3_Austausch, ReadLncvIgnoresAnAnswerWithAnotherArticle)
{
    LncvModul modul(uhr, *bus, 4722, 1234);
    modul.sitzung = true;
    modul.fremd = true;
    modul.werte[16] = 9;
    Long wert = -1, err = -1;
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(wert, -1);
    EXPECT_EQ(modul.anfragen, 10);
}

TEST_F(Part2_3_Austausch, ReadLncvClearsTheWholeTable)
{
    link.empfang().setzeWert(ZeileNavik, 0, 0xE4);
    link.empfang().setzeWert(ZeileNavik, EmpfangFlag, -1);
    Long wert = -1, err = -1;
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_FALSE(link.empfang().geflaggt(ZeileNavik));
}

TEST_F(Part2_3_Austausch, ReadLncvOnAClosedPortGivesErr1AtOnce)
{
    bus->offen = false;
    Long wert = -1, err = -1;
    const double t0 = uhr.sekunden();
    Read_Lncv(link, 4723, 16, wert, err);
    EXPECT_EQ(err, ProgSendeFehler);
    EXPECT_EQ(seit(t0), 0.0);
    EXPECT_EQ(bus->verworfen, 1);
}

// --- Prog_Lncv -------------------------------------------------------------

TEST_F(Part2_3_Austausch, ProgLncvWritesAndIsAcknowledged)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, Prog4723_5_300);
    EXPECT_EQ(modul.werte[5], 300);
    EXPECT_NEAR(seit(t0), 0.05, 1e-9);
    EXPECT_EQ(bus->verworfen, 1);
}

TEST_F(Part2_3_Austausch, ProgLncvMinus1GoesOutAs255And255WithBothFlags)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    Long err = -1;
    Prog_Lncv(link, 4723, 5, -1, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, Prog4723_5_Minus1);
    EXPECT_EQ(modul.werte[5], 65535);
}

TEST_F(Part2_3_Austausch, ProgLncvRefusedEndsAtOnceWithErr3)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    modul.status = 0x00;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgAbgelehnt);
    EXPECT_EQ(modul.anfragen, 1) << "no further try";
    EXPECT_EQ(bus->gesendet, Prog4723_5_300);
    EXPECT_NEAR(seit(t0), 0.05, 1e-9);
    EXPECT_EQ(modul.werte.count(5), 0u);
}

TEST_F(Part2_3_Austausch, ProgLncvAcceptsAnyLongAck)
{
    // Which opcode the acknowledgement answers is not tested.
    antworteMit(mitChk(hexBytes("B4 3C 7F")));
    Long err = -1;
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, Prog4723_5_300);
}

TEST_F(Part2_3_Austausch, ProgLncvRetriesUntilAcknowledged)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.sitzung = true;
    modul.schweigen = 4;
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgOK);
    EXPECT_EQ(modul.anfragen, 5);
    EXPECT_EQ(bus->gesendet, mal(Prog4723_5_300, 5));
    EXPECT_NEAR(seit(t0), 4 * 0.5 + 0.05, 1e-9);
    EXPECT_EQ(bus->verworfen, 1) << "Prog_Lncv discards input once, at its beginning";
}

TEST_F(Part2_3_Austausch, ProgLncvWithoutAnswerGivesErr2After10TriesOf05s)
{
    Long err = -1;
    const double t0 = uhr.sekunden();
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgKeineAntwort);
    EXPECT_EQ(bus->gesendet, mal(Prog4723_5_300, 10));
    EXPECT_NEAR(seit(t0), 10 * 0.5, 1e-9);
}

TEST_F(Part2_3_Austausch, ProgLncvClearsOnlyPosition0AndTheFlagOfRows0To2)
{
    Empfang& e = link.empfang();
    for (int zeile = 0; zeile <= 2; ++zeile) {
        e.setzeWert(zeile, 0, 0xB4);
        e.setzeWert(zeile, 1, 0x3C);
        e.setzeWert(zeile, EmpfangFlag, -1);
    }
    e.setzeWert(ZeileNavik, 0, 0xE4);
    e.setzeWert(ZeileNavik, EmpfangFlag, -1);
    Long err = -1;
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgKeineAntwort) << "the stale row 0 is not taken for an answer";
    for (int zeile = 0; zeile <= 2; ++zeile) {
        EXPECT_EQ(e.wert(zeile, 0), 0);
        EXPECT_FALSE(e.geflaggt(zeile));
        EXPECT_EQ(e.wert(zeile, 1), 0x3C);
    }
    EXPECT_TRUE(e.geflaggt(ZeileNavik));
}

TEST_F(Part2_3_Austausch, ProgLncvOnAClosedPortGivesErr1AtOnce)
{
    bus->offen = false;
    Long err = -1;
    Prog_Lncv(link, 4723, 5, 300, err);
    EXPECT_EQ(err, ProgSendeFehler);
    EXPECT_TRUE(bus->gesendet.isEmpty());
}

TEST_F(Part2_3_Austausch, WholeSessionProgramsTheModule)
{
    LncvModul modul(uhr, *bus, 4723, 1234);
    modul.werte[16] = 210;
    Long err = -1, wert = -1;
    Prog_On(link, 4723, 1234, err);
    ASSERT_EQ(err, ProgOK);
    Read_Lncv(link, 4723, 16, wert, err);
    ASSERT_EQ(err, ProgOK);
    EXPECT_EQ(wert, 210);
    Prog_Lncv(link, 4723, 5, 300, err);
    ASSERT_EQ(err, ProgOK);
    Prog_Off(link, 4723, 1234, err);
    ASSERT_EQ(err, ProgOK);
    EXPECT_EQ(bus->gesendet, ProgOn4723_1234 + Read4723_16 + Prog4723_5_300 + ProgOff4723_1234);
    EXPECT_EQ(modul.werte[5], 300);
    EXPECT_FALSE(modul.sitzung);
}

// --- Read_Mag --------------------------------------------------------------
