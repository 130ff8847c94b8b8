// LocoNet over TCP against a tiny line server in the test.
#include "platform/lbserver_transport.h"
#include "platform/uhr.h"
#include "tests/support/daten.h"
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
            kunde->write("VERSION Testserver 1.0\r\n");
            QObject::connect(kunde, &QTcpSocket::readyRead, [this] {
                for (eingang += kunde->readAll(); eingang.contains('\n'); eingang.remove(0, eingang.indexOf('\n') + 1))
                    zeilen << QString::fromLatin1(eingang.left(eingang.indexOf('\n')).trimmed());
            });
        });
        QObject::connect(&transport, &Transport::empfangen, [this](const QByteArray& b) { empfangen.push_back(h(b)); });
        QObject::connect(&transport, &Transport::verloren, [this](const QString& g) { verloren << g; });
    }
    void verbinden()
    {
        QString fehler;
        ASSERT_TRUE(transport.oeffnen(fehler)) << fehler.toStdString();
        ASSERT_TRUE(uhr.warten(5.0, [this] { return kunde != nullptr; }));
    }
    bool zeilenWarten(int anzahl) { return uhr.warten(5.0, [&] { return zeilen.size() >= anzahl; }); }
    void antworten(const QByteArray& text) { kunde->write(text), kunde->flush(); }
    quint16 lauschen() { return server.listen(QHostAddress::LocalHost) ? server.serverPort() : 0; }

    struct AnwendungZuerst {
        AnwendungZuerst() { QtAnwendungSicherstellen(); }
    } anwendung;
    SystemUhr uhr;
    QTcpServer server;
    quint16 port = lauschen();
    QTcpSocket* kunde = nullptr;
    QByteArray eingang;
    QStringList zeilen, verloren;
    LbServerTransport transport{QStringLiteral("127.0.0.1"), port, uhr};
    std::vector<std::string> empfangen;
};

}  // namespace

TEST(LbServerZeilen, SendLineIsUpperCaseHexSeparatedByBlanks)
{
    EXPECT_EQ(SendeZeile(hex("ED 0F 01 05 00 21 0a")), QByteArray("SEND ED 0F 01 05 00 21 0A\r\n"));
    EXPECT_EQ(HexBytesLesen("B0 00 10 5f"), hex("B0 00 10 5F"));
    EXPECT_EQ(HexBytesLesen("  83   7C "), hex("83 7C"));
    EXPECT_FALSE(HexBytesLesen("B0 0G"));
    EXPECT_FALSE(HexBytesLesen("B00"));
}

TEST_F(LbServer, OneSendInFlightTheNextAfterSent)
{
    verbinden();
    EXPECT_TRUE(uhr.warten(5.0, [this] { return transport.serverVersion() == QStringLiteral("Testserver 1.0"); }));
    // A message written byte by byte goes as one SEND.
    for (const char b : hex("E5 0F 05 49 4B 1F 00 00 01 00 00 00 00 00 4C"))
        ASSERT_TRUE(transport.schreiben(QByteArray(1, b)));
    ASSERT_TRUE(transport.schreiben(hex("B0 00 30 7F")));
    ASSERT_TRUE(transport.schreiben(hex("B0 00 10 5F")));
    ASSERT_TRUE(zeilenWarten(1));
    EXPECT_EQ(zeilen, QStringList{QStringLiteral("SEND E5 0F 05 49 4B 1F 00 00 01 00 00 00 00 00 4C")});
    // The rest waits for the first's SENT: a round trip through the
    // transport comes back before anything more reaches the server.
    antworten("RECEIVE 83 7C\r\n");
    ASSERT_TRUE(uhr.warten(5.0, [this] { return !empfangen.empty(); }));
    EXPECT_EQ(std::make_pair(zeilen.size(), transport.wartend()), std::make_pair(qsizetype(1), 2));
    EXPECT_FALSE(transport.ausgangLeer()) << "a close waits for these";
    // A SENT ERROR loses its message and goes on.
    antworten("SENT ERROR Did not receive echo\r\n");
    ASSERT_TRUE(zeilenWarten(2));
    EXPECT_EQ(zeilen[1], QStringLiteral("SEND B0 00 30 7F"));
    EXPECT_EQ(transport.sendeFehler(), 1);
    EXPECT_EQ(transport.letzterSendeFehler(), QStringLiteral("ERROR Did not receive echo"));
    antworten("SENT OK\r\n");
    ASSERT_TRUE(zeilenWarten(3));
    EXPECT_EQ(zeilen[2], QStringLiteral("SEND B0 00 10 5F"));
    EXPECT_EQ(transport.wartend(), 0);
    EXPECT_FALSE(transport.ausgangLeer()) << "the last one still in flight";
    antworten("SENT OK\r\n");
    EXPECT_TRUE(uhr.warten(5.0, [this] { return transport.ausgangLeer(); }));
    EXPECT_TRUE(transport.istOffen() && verloren.isEmpty());
}

TEST_F(LbServer, ReceiveLinesBecomeBytesWhateverTheLineEnds)
{
    verbinden();
    antworten("RECEIVE B0 00 10 5F\r\n\r\nTIMESTAMP 1234\nRECEIVE 83 7C\rRECEIVE E4 0");
    antworten("8 00 01 00 00 00 12\n");
    ASSERT_TRUE(uhr.warten(5.0, [this] { return empfangen.size() >= 3; }));
    EXPECT_EQ(empfangen, (std::vector<std::string>{"B0 00 10 5F", "83 7C", "E4 08 00 01 00 00 00 12"}));
}

TEST_F(LbServer, NoSentInTimeClosesTheConnection)
{
    TestUhr virtuell{QDateTime(QDate(2026, 11, 21), QTime(9, 0))};
    LbServerTransport t{QStringLiteral("127.0.0.1"), port, virtuell};
    t.setzeSentGrenze(0.3);
    QStringList weg;
    QObject::connect(&t, &Transport::verloren, [&](const QString& g) { weg << g; });
    // The socket connects in real time: the first virtual task waits for it.
    virtuell.nach(0.001, [&] { uhr.warten(5.0, [&] { return kunde && t.istOffen(); }); });
    QString fehler;
    ASSERT_TRUE(t.oeffnen(fehler)) << fehler.toStdString();
    t.schreiben(hex("B0 00 10 5F"));
    t.schreiben(hex("B0 00 30 7F"));
    ASSERT_TRUE(zeilenWarten(1));
    virtuell.weiter(290);
    EXPECT_TRUE(weg.isEmpty());
    virtuell.weiter(20);
    ASSERT_EQ(weg.size(), 1);
    EXPECT_TRUE(weg[0].contains(QStringLiteral("nicht innerhalb von 0.3 s"))) << weg[0].toStdString();
    EXPECT_EQ(std::make_pair(t.istOffen(), t.wartend()), std::make_pair(false, 0));
    EXPECT_FALSE(t.schreiben(hex("B0 00 10 5F")));
}

TEST_F(LbServer, ServerClosingIsALossClosingOnPurposeIsNot)
{
    verbinden();
    transport.schliessen();
    EXPECT_FALSE(transport.istOffen());
    kunde = nullptr;
    verbinden();
    kunde->close();
    ASSERT_TRUE(uhr.warten(5.0, [this] { return !verloren.isEmpty(); }));
    ASSERT_EQ(verloren.size(), 1) << "the purposeful close was none";
    EXPECT_TRUE(verloren[0].contains(QStringLiteral("hat die Verbindung beendet")));
    EXPECT_FALSE(transport.istOffen());
}

TEST_F(LbServer, RefusedConnectionAndInvalidPortAreTold)
{
    server.close();
    QString fehler;
    EXPECT_FALSE(transport.oeffnen(fehler));
    EXPECT_TRUE(fehler.startsWith(QStringLiteral("Keine Verbindung zum LbServer 127.0.0.1:%1").arg(port)));
    EXPECT_TRUE(fehler.contains(QStringLiteral("lehnt die Verbindung ab"))) << fehler.toStdString();
    EXPECT_FALSE(transport.istOffen());
    LbServerTransport falsch(QStringLiteral("127.0.0.1"), 70000, uhr);
    EXPECT_FALSE(falsch.oeffnen(fehler));
    EXPECT_EQ(fehler, QStringLiteral("Die Portnummer 70000 des LbServers ist ungültig (1 bis 65535)."));
}
