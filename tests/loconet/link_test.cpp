// send and send_str over the scaffold transport in virtual time.
#include "loconet/link.h"

#include "loconet/nachricht.h"
#include "tests/support/bus.h"

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

TEST_F(Link, CommandStationWithCtsLowOver5sSendsNoChecksum)
{
    link.ctsBeachten = true;
    int geschrieben = 0;
    transport->antwort = [&](const QByteArray&) {
        if (++geschrieben == 2)
            transport->ctsHoch = false;
    };
    link.send(QByteArray("\xB0\x00\x10", 3), err);
    EXPECT_EQ(err, 1);
    EXPECT_EQ(transport->gesendet, QByteArray("\xB0\x00", 2)) << "cut off, no checksum";
    EXPECT_GE(uhr.sekunden(), 5.0);
    EXPECT_LT(uhr.sekunden(), 5.1);
}

TEST_F(Link, CtsComingBackInTimeLetsTheMessageThrough)
{
    link.ctsBeachten = true;
    transport->ctsHoch = false;
    uhr.nach(2.0, [&] { transport->ctsHoch = true; });
    link.send(QByteArray("\xB0\x00\x10", 3), err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(transport->gesendet.size(), 4);
}

TEST_F(Link, ReceivedBytesReachTheReceptionTable)
{
    transport->senden(QByteArray("\xB4\x6D\x7F\x5B", 4), 0.1);
    EXPECT_TRUE(uhr.warten(0.5, [&] { return link.empfang().da(ZeileLongAck, 0xB4); }));
    EXPECT_NEAR(uhr.sekunden(), 0.1, 1e-9);
}
