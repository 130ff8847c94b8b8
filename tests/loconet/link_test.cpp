// send and send_str over the scaffold transport in virtual time.
#include "loconet/link.h"

#include "loconet/nachricht.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"
#include "tests/support/daten.h"

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

class Link : public ::testing::Test {
protected:
    void SetUp() override
    {
        auto t = std::make_unique<GeruestTransport>(uhr);
        transport = t.get();
        link.setzeTransport(std::move(t));
    }

    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    LocoNetLink link{uhr};
    GeruestTransport* transport = nullptr;
    Long err = -1;
};

}  // namespace

TEST_F(Link, SendAddsTheChecksumSendStrDoesNot)
{
    link.send(SendMag_Nachricht(1, 0, true), err);
    EXPECT_EQ(err, 0);
    link.send_str("xB19200\r", err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(transport->gesendet, mitPruefsumme(SendMag_Nachricht(1, 0, true)) + "xB19200\r");
}

TEST_F(Link, ACommandStationHoldingCtsLowFor5sCutsTheMessage)
{
    const struct {
        double ctsNiedrigAb, ctsHochAb;  // write number, virtual time
        Long err;
        const char* gesendet;
        double sekunden;
    } faelle[] = {{2, 99, 1, "B0 00", 5.0}, {0, 2.0, 0, "B0 00 10 5F", 2.0}};
    link.ctsBeachten = true;
    for (const auto& f : faelle) {
        const double t0 = uhr.sekunden();
        transport->gesendet.clear();
        transport->ctsHoch = f.ctsNiedrigAb > 0;
        transport->antwort = [&, n = 0](const QByteArray&) mutable { transport->ctsHoch &= ++n != f.ctsNiedrigAb; };
        uhr.nach(f.ctsHochAb, [&] { transport->ctsHoch = true; });
        link.send(hex("B0 00 10"), err);
        EXPECT_EQ(err, f.err);
        EXPECT_EQ(h(transport->gesendet), f.gesendet) << "cut off without a checksum";
        EXPECT_GE(uhr.sekunden() - t0, f.sekunden);
        EXPECT_LT(uhr.sekunden() - t0, f.sekunden + 0.1);
    }
}

TEST_F(Link, ReceivedBytesReachTheReceptionTable)
{
    transport->senden(QByteArray("\xB4\x6D\x7F\x5B", 4), 0.1);
    EXPECT_TRUE(uhr.warten(0.5, [&] { return link.empfang().da(ZeileLongAck, 0xB4); }));
    EXPECT_NEAR(uhr.sekunden(), 0.1, 1e-9);
}

// Output still on its way holds the close back, at most 5 s; what is left then is reported.
TEST_F(Link, ClosingWaitsUntilTheOutputHasGone)
{
    GesammelteBerichte berichte;
    QTemporaryDir ordner;
    FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});
    for (const double gegangen : {1.0, 6.0}) {
        const double t0 = uhr.sekunden();
        transport->offen = true;
        transport->leer = false;
        uhr.nach(gegangen, [&] { transport->leer = true; });
        EXPECT_EQ(link.schliessen(), gegangen < 5);
        EXPECT_DOUBLE_EQ(uhr.sekunden() - t0, std::min(gegangen, 5.0));
        EXPECT_FALSE(transport->offen);
        uhr.weiter(2000);
    }
    ASSERT_EQ(berichte.texte.size(), 1);
    EXPECT_TRUE(berichte.texte[0].contains(QStringLiteral("Fehlernummer: 57 -> Nachrichten an den Bus konnten vor "
                                                          "dem Schließen der Verbindung nicht mehr gesendet werden")));
}
