// LocoNet over TCP (LbServer) against a tiny server in the test.
#include "platform/lbserver_transport.h"

#include "platform/uhr.h"
#include "tests/support/pty.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

using namespace planor;
using namespace planor::test;

namespace {

class LbServer : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_NE(port, 0);
        QObject::connect(&server, &QTcpServer::newConnection, [this] {
            kunde = server.nextPendingConnection();
            if (!begruessung.isEmpty())
                kunde->write(begruessung);
            QObject::connect(kunde, &QTcpSocket::readyRead, [this] {
                eingang += kunde->readAll();
                qsizetype ende;
                while ((ende = eingang.indexOf('\n')) >= 0) {
                    zeilen << QString::fromLatin1(eingang.left(ende).trimmed());
                    eingang.remove(0, ende + 1);
                }
            });
        });
        QObject::connect(&transport, &Transport::empfangen, [this](const QByteArray& b) { empfangen.push_back(b); });
        QObject::connect(&transport, &Transport::verloren, [this](const QString& g) { verloren << g; });
    }

    void verbinden()
    {
        QString fehler;
        ASSERT_TRUE(transport.oeffnen(fehler)) << fehler.toStdString();
        ASSERT_TRUE(uhr.warten(2.0, [this] { return kunde != nullptr; }));
    }
    bool zeilenWarten(int anzahl) { return uhr.warten(2.0, [&] { return zeilen.size() >= anzahl; }); }
    void antworten(const QByteArray& text)
    {
        kunde->write(text);
        kunde->flush();
    }

    quint16 lauschen()
    {
        server.listen(QHostAddress::LocalHost);
        return server.serverPort();
    }

    struct AnwendungZuerst {
        AnwendungZuerst() { QtAnwendungSicherstellen(); }
    } anwendung;
    SystemUhr uhr;
    QTcpServer server;
    quint16 port = lauschen();
    QByteArray begruessung = "VERSION Testserver 1.0\r\n";
    QTcpSocket* kunde = nullptr;
    QByteArray eingang;
    QStringList zeilen;
    LbServerTransport transport{QStringLiteral("127.0.0.1"), port, uhr};
    std::vector<QByteArray> empfangen;
    QStringList verloren;
};

}  // namespace

TEST(LbServerZeilen, SendLineIsUpperCaseHexSeparatedByBlanks)
{
    EXPECT_EQ(SendeZeile(QByteArray("\xB0\x00\x10\x5F", 4)), QByteArray("SEND B0 00 10 5F\r\n"));
    EXPECT_EQ(SendeZeile(QByteArray("\xED\x0F\x01\x05\x00\x21\x0a", 7)),
              QByteArray("SEND ED 0F 01 05 00 21 0A\r\n"));
    EXPECT_EQ(HexBytesLesen("B0 00 10 5f"), QByteArray("\xB0\x00\x10\x5F", 4));
    EXPECT_EQ(HexBytesLesen("  83   7C "), QByteArray("\x83\x7C", 2));
    EXPECT_FALSE(HexBytesLesen("B0 0G"));
    EXPECT_FALSE(HexBytesLesen("B00"));
}

TEST_F(LbServer, ConnectsAndReadsTheVersion)
{
    verbinden();
    EXPECT_TRUE(transport.istOffen());
    EXPECT_TRUE(uhr.warten(2.0, [this] { return !transport.serverVersion().isEmpty(); }));
    EXPECT_EQ(transport.serverVersion(), QStringLiteral("Testserver 1.0"));
}

TEST_F(LbServer, OneSendInFlightTheNextAfterSentOk)
{
    verbinden();
    ASSERT_TRUE(transport.schreiben(QByteArray("\xB0\x00\x10\x5F", 4)));
    ASSERT_TRUE(transport.schreiben(QByteArray("\xB0\x00\x30\x7F", 4)));
    ASSERT_TRUE(zeilenWarten(1));
    EXPECT_EQ(zeilen, QStringList{QStringLiteral("SEND B0 00 10 5F")});
    // The second waits for the first's SENT: a round trip through the
    // transport comes back before anything more reaches the server.
    antworten("RECEIVE 83 7C\r\n");
    ASSERT_TRUE(uhr.warten(2.0, [this] { return !empfangen.empty(); }));
    EXPECT_EQ(zeilen.size(), 1);
    EXPECT_EQ(transport.wartend(), 1);

    antworten("SENT OK\r\n");
    ASSERT_TRUE(zeilenWarten(2));
    EXPECT_EQ(zeilen[1], QStringLiteral("SEND B0 00 30 7F"));
    EXPECT_EQ(transport.wartend(), 0);
    EXPECT_TRUE(verloren.isEmpty());
}

TEST_F(LbServer, AMessageWrittenByteByByteGoesAsOneSend)
{
    verbinden();
    const QByteArray nachricht("\xE5\x0F\x05\x49\x4B\x1F\x00\x00\x01\x00\x00\x00\x00\x00\x4C", 15);
    for (const char b : nachricht)
        transport.schreiben(QByteArray(1, b));
    ASSERT_TRUE(zeilenWarten(1));
    EXPECT_EQ(zeilen[0], QStringLiteral("SEND E5 0F 05 49 4B 1F 00 00 01 00 00 00 00 00 4C"));
}

TEST_F(LbServer, ReceiveLinesBecomeBytesWhateverTheLineEnds)
{
    verbinden();
    antworten("RECEIVE B0 00 10 5F\r\n\r\nTIMESTAMP 1234\nRECEIVE 83 7C\rRECEIVE E4 0");
    antworten("8 00 01 00 00 00 12\n");
    ASSERT_TRUE(uhr.warten(2.0, [this] { return empfangen.size() >= 3; }));
    EXPECT_EQ(empfangen[0], QByteArray("\xB0\x00\x10\x5F", 4));
    EXPECT_EQ(empfangen[1], QByteArray("\x83\x7C", 2));
    EXPECT_EQ(empfangen[2], QByteArray("\xE4\x08\x00\x01\x00\x00\x00\x12", 8));
}

TEST_F(LbServer, SentErrorLosesTheMessageAndGoesOn)
{
    verbinden();
    transport.schreiben(QByteArray("\xB0\x00\x10\x5F", 4));
    transport.schreiben(QByteArray("\xB0\x00\x30\x7F", 4));
    ASSERT_TRUE(zeilenWarten(1));
    antworten("SENT ERROR Did not receive echo\r\n");
    ASSERT_TRUE(zeilenWarten(2));
    EXPECT_EQ(transport.sendeFehler(), 1);
    EXPECT_EQ(transport.letzterSendeFehler(), QStringLiteral("ERROR Did not receive echo"));
    EXPECT_TRUE(transport.istOffen());
    EXPECT_TRUE(verloren.isEmpty());
}

TEST_F(LbServer, NoSentInTimeClosesTheConnection)
{
    TestUhr virtuell{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    LbServerTransport t{QStringLiteral("127.0.0.1"), port, virtuell};
    t.setzeSentGrenze(0.3);
    QStringList weg;
    QObject::connect(&t, &Transport::verloren, [&](const QString& g) { weg << g; });
    // The socket connects in real time: the first virtual task waits for it.
    virtuell.nach(0.001, [&] { uhr.warten(2.0, [&] { return kunde && t.istOffen(); }); });
    QString fehler;
    ASSERT_TRUE(t.oeffnen(fehler)) << fehler.toStdString();
    t.schreiben(QByteArray("\xB0\x00\x10\x5F", 4));
    t.schreiben(QByteArray("\xB0\x00\x30\x7F", 4));
    ASSERT_TRUE(zeilenWarten(1));
    virtuell.weiter(290);
    EXPECT_TRUE(weg.isEmpty());
    virtuell.weiter(20);
    ASSERT_EQ(weg.size(), 1);
    EXPECT_TRUE(weg[0].contains(QStringLiteral("nicht innerhalb von 0.3 s"))) << weg[0].toStdString();
    EXPECT_FALSE(t.istOffen());
    EXPECT_EQ(t.wartend(), 0);
    EXPECT_FALSE(t.schreiben(QByteArray("\xB0\x00\x10\x5F", 4)));
}

TEST_F(LbServer, ServerClosingIsALoss)
{
    verbinden();
    kunde->close();
    ASSERT_TRUE(uhr.warten(2.0, [this] { return !verloren.isEmpty(); }));
    EXPECT_EQ(verloren.size(), 1);
    EXPECT_TRUE(verloren[0].contains(QStringLiteral("hat die Verbindung beendet")));
    EXPECT_FALSE(transport.istOffen());
}

TEST_F(LbServer, ClosingOnPurposeIsNoLoss)
{
    verbinden();
    transport.schliessen();
    uhr.delay(0.1);
    EXPECT_FALSE(transport.istOffen());
    EXPECT_TRUE(verloren.isEmpty());
    // And it connects again.
    kunde = nullptr;
    verbinden();
    EXPECT_TRUE(transport.istOffen());
}

TEST_F(LbServer, RefusedConnectionIsTold)
{
    const quint16 frei = server.serverPort();
    server.close();
    LbServerTransport ohneServer(QStringLiteral("127.0.0.1"), frei, uhr);
    QString fehler;
    EXPECT_FALSE(ohneServer.oeffnen(fehler));
    EXPECT_TRUE(fehler.startsWith(QStringLiteral("Keine Verbindung zum LbServer 127.0.0.1:%1").arg(frei)))
        << fehler.toStdString();
    EXPECT_TRUE(fehler.contains(QStringLiteral("lehnt die Verbindung ab")));
    EXPECT_FALSE(ohneServer.istOffen());
}

TEST_F(LbServer, InvalidPortIsTold)
{
    LbServerTransport falsch(QStringLiteral("127.0.0.1"), 70000, uhr);
    QString fehler;
    EXPECT_FALSE(falsch.oeffnen(fehler));
    EXPECT_EQ(fehler, QStringLiteral("Die Portnummer 70000 des LbServers ist ungültig (1 bis 65535)."));
}
