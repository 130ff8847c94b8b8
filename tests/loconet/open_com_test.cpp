// Part 2.1 open_com for each kind, over the scaffold transport in virtual time.
#include "loconet/open_com.h"

#include "core/settings_file.h"
#include "loconet/empfang.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"
#include "tests/support/berichte.h"

using namespace planor;
using namespace planor::test;

namespace {

// A transport that the system refuses to open.
class VerweigerterPort final : public Transport {
public:
    explicit VerweigerterPort(QString grund) : grund_(std::move(grund)) {}
    bool oeffnen(QString& fehler) override
    {
        fehler = grund_;
        return false;
    }
    void schliessen() override {}
    bool istOffen() const override { return false; }
    bool schreiben(const QByteArray&) override { return false; }

private:
    QString grund_;
};

// The protocol lines of a text sent byte by byte.
QStringList geschrieben(const QByteArray& text)
{
    QStringList zeilen;
    for (const char c : text)
        zeilen << QStringLiteral("schreiben ") + QString::fromLatin1(QByteArray(1, c).toHex().toUpper());
    return zeilen;
}

class Part2_1_OpenCom : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        schnittstelle.setzeSerielleFabrik([this](const QString& geraet) -> std::unique_ptr<Transport> {
            geraete << geraet;
            if (!verweigern.isEmpty())
                return std::make_unique<VerweigerterPort>(verweigern);
            auto t = std::make_unique<GeruestTransport>(uhr);
            t->offen = false;  // a new port is closed
            port = t.get();
            return t;
        });
    }

    // The protocol without times; `ab` skips the first entries.
    QStringList schritte(std::size_t ab = 0) const
    {
        QStringList liste;
        for (std::size_t i = ab; port && i < port->protokoll.size(); ++i)
            liste << port->protokoll[i].was;
        return liste;
    }
    double zeitVon(const QString& was, int nummer = 1) const
    {
        for (const auto& schritt : port->protokoll)
            if (schritt.was == was && --nummer == 0)
                return schritt.zeit;
        ADD_FAILURE() << "no step " << was.toStdString();
        return -1;
    }

    // The command station: answers each command when its CR has gone out.
    void zentraleAntwortet(QList<QByteArray> antworten, double nach = 0.2)
    {
        port = nullptr;
        schnittstelle.setzeSerielleFabrik([this, antworten, nach](const QString& geraet) {
            geraete << geraet;
            auto t = std::make_unique<GeruestTransport>(uhr);
            t->offen = false;
            port = t.get();
            auto rest = std::make_shared<QList<QByteArray>>(antworten);
            GeruestTransport* p = t.get();
            t->antwort = [p, rest, nach](const QByteArray& bytes) {
                if (bytes.endsWith('\r') && !rest->isEmpty())
                    p->senden(rest->takeFirst(), nach);
            };
            return t;
        });
    }

    Einstellungen e;
    Meldungen meldungen;
    QStringList status;
    Schnittstelle schnittstelle{e, uhr, meldungen, [this](int feld, const QString& text) {
                                    status << QString::number(feld) + u'|' + text;
                                }};
    GeruestTransport* port = nullptr;
    QStringList geraete;
    QString verweigern;
};

}  // namespace

TEST_F(Part2_1_OpenCom, CommandStationNegotiatesByteByByteWithBreakAndReopen)
{
    e.ComPort = 1;
    zentraleAntwortet({"[OK]", "[LN]"});
    const double t0 = uhr.sekunden();
    Long err = -1;
    schnittstelle.open_com(err);

    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete, QStringList{QStringLiteral("/dev/ttyS0")});
    QStringList erwartet = {QStringLiteral("parameter 2400,n,8,2"), QStringLiteral("dtr 0 rts 1"),
                            QStringLiteral("oeffnen"), QStringLiteral("break an"), QStringLiteral("break aus")};
    erwartet << geschrieben("xB19200\r");
    erwartet << QStringLiteral("schliessen") << QStringLiteral("parameter 19200,n,8,2") << QStringLiteral("oeffnen");
    erwartet << geschrieben("x&LN$55AA\r");
    erwartet << QStringLiteral("schliessen") << QStringLiteral("oeffnen");
    EXPECT_EQ(schritte(), erwartet);

    // Break 1 s, 0.3 s; the answer 0.2 s after the CR, then 0.3 s.
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("break an")) - t0, 0.0);
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("break aus")) - t0, 1.0);
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("schreiben 78")) - t0, 1.3);
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("schliessen")) - t0, 1.8);
    EXPECT_DOUBLE_EQ(uhr.sekunden() - t0, 2.0);

    EXPECT_TRUE(schnittstelle.istOffen());
    EXPECT_TRUE(schnittstelle.link().ctsBeachten);
    EXPECT_EQ(status, (QStringList{QStringLiteral("2|ComPort wird geöffnet"), QStringLiteral("2|")}));
    EXPECT_TRUE(meldungen.texte.isEmpty());
}

TEST_F(Part2_1_OpenCom, NegotiationBytesDoNotReachTheFramer)
{
    zentraleAntwortet({QByteArray("\xB4\x30\x00\x7B]", 5), QByteArray("\xB4\x30\x00\x7B]", 5)});
    Long err = -1;
    schnittstelle.open_com(err);
    ASSERT_EQ(err, 0);
    EXPECT_FALSE(schnittstelle.link().empfang().geflaggt(ZeileLongAck));

    // Once open, the bytes go through empfang.
    port->senden(QByteArray("\xB4\x30\x00\x7B", 4));
    uhr.weiter(10);
    EXPECT_TRUE(schnittstelle.link().empfang().geflaggt(ZeileLongAck));
}

TEST_F(Part2_1_OpenCom, TheFirstBracketEndsTheWaitWhateverCameBefore)
{
    zentraleAntwortet({QByteArray("\x00\xFFxB? err [x]", 13) + "more]", QByteArray("]")}, 1.0);
    const double t0 = uhr.sekunden();
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    // Answer at 1.3 + 1.0 s after the CR, then 0.3 s.
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("schliessen")) - t0, 2.6);
}

TEST_F(Part2_1_OpenCom, NoBracketWithin5sFailsAndLeavesThePortOpen)
{
    zentraleAntwortet({"kein Ende"});
    const double t0 = uhr.sekunden();
    Long err = -1;
    schnittstelle.open_com(err);

    EXPECT_EQ(err, 1);
    EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral("ComPort öffnen|ComPort: Keine Kommunikation!")});
    EXPECT_EQ(meldungen.symbole, std::vector<Symbol>{Symbol::Kritisch});
    EXPECT_GE(uhr.sekunden() - t0, 1.3 + 5.0);
    EXPECT_LT(uhr.sekunden() - t0, 1.3 + 5.1);
    // The port stays open at 2400 bit/s, the status line keeps its text.
    EXPECT_TRUE(schnittstelle.istOffen());
    EXPECT_EQ(schritte().filter(QStringLiteral("schliessen")).size(), 0);
    EXPECT_EQ(status, QStringList{QStringLiteral("2|ComPort wird geöffnet")});

    // A further open_com finds it open: err 0, nothing sent.
    const std::size_t vorher = port->protokoll.size();
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(port->protokoll.size(), vorher);
    // Bytes now go to the framer again.
    port->senden(QByteArray("\xB4\x30\x00\x7B", 4));
    uhr.weiter(10);
    EXPECT_TRUE(schnittstelle.link().empfang().geflaggt(ZeileLongAck));
}

TEST_F(Part2_1_OpenCom, NoBracketForTheSecondCommandFailsToo)
{
    zentraleAntwortet({"]"});
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 1);
    EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral("ComPort öffnen|ComPort: Keine Kommunikation!")});
    EXPECT_TRUE(schritte().contains(QStringLiteral("parameter 19200,n,8,2")));
    EXPECT_TRUE(schnittstelle.istOffen());
}

TEST_F(Part2_1_OpenCom, CommandStationWithCtsLowCannotSendItsCommand)
{
    zentraleAntwortet({"]", "]"});
    schnittstelle.setzeSerielleFabrik([this](const QString&) {
        auto t = std::make_unique<GeruestTransport>(uhr);
        t->ctsHoch = false;
        port = t.get();
        return t;
    });
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 1);
    EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral("ComPort öffnen|ComPort: Keine Kommunikation!")});
    EXPECT_TRUE(schritte().filter(QStringLiteral("schreiben")).isEmpty());
}

TEST_F(Part2_1_OpenCom, SerialAdapterWithComPort3FailsBeforeThePortIsTouched)
{
    e.LocoNetInterface = true;
    e.ComPort = 3;
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 1);
    EXPECT_TRUE(geraete.isEmpty());
    EXPECT_EQ(port, nullptr);
    EXPECT_EQ(meldungen.texte,
              QStringList{QStringLiteral("Fehler|Sie können das LocoNet-Interface nur mit Comport 1 oder Comport 2 "
                                         "benutzen!")});
    EXPECT_EQ(meldungen.symbole, std::vector<Symbol>{Symbol::Kritisch});
    EXPECT_TRUE(status.isEmpty());
}

TEST_F(Part2_1_OpenCom, SerialAdapterRunsAtTheBusRate)
{
    e.LocoNetInterface = true;
    e.ComPort = 2;
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete, QStringList{QStringLiteral("/dev/ttyS1")});
    EXPECT_EQ(schritte(), (QStringList{QStringLiteral("parameter 19200,n,8,2"), QStringLiteral("dtr 0 rts 1"),
                                       QStringLiteral("oeffnen"), QStringLiteral("eingang verwerfen"),
                                       QStringLiteral("parameter 16457,n,8,2")}));
    EXPECT_EQ(status, QStringList{QStringLiteral("2|LocoNet Interface wird geöffnet")});
    EXPECT_FALSE(schnittstelle.link().ctsBeachten);
}

TEST_F(Part2_1_OpenCom, SerialAdapterOnAChosenDevicePassesTheNumberCheck)
{
    e.LocoNetInterface = true;
    e.ComPort = 3;
    e.ComPortGeraet = QStringLiteral("/dev/ttyUSB0");
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete, QStringList{QStringLiteral("/dev/ttyUSB0")});
}

TEST_F(Part2_1_OpenCom, UsbDeviceOpensAt115200)
{
    e.LocoNetInterface = e.USBInterface = true;
    e.ComPort = 4;
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete, QStringList{QStringLiteral("/dev/ttyS3")});
    EXPECT_EQ(schritte(), (QStringList{QStringLiteral("parameter 115200,n,8,1"), QStringLiteral("dtr 0 rts 0"),
                                       QStringLiteral("oeffnen")}));
    EXPECT_TRUE(status.isEmpty());
    EXPECT_FALSE(schnittstelle.link().ctsBeachten);
}

TEST_F(Part2_1_OpenCom, OpeningAnOpenPortChangesNothingAndSendsNothing)
{
    e.LocoNetInterface = e.USBInterface = true;
    e.ComPort = 1;
    Long err = -1;
    schnittstelle.open_com(err);
    ASSERT_EQ(err, 0);
    const std::size_t vorher = port->protokoll.size();

    // Settings changed by other means than the dialog.
    e.LocoNetInterface = false;
    e.ComPort = 2;
    err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete.size(), 1);
    EXPECT_EQ(port->protokoll.size(), vorher);
    EXPECT_TRUE(port->gesendet.isEmpty());
    EXPECT_FALSE(schnittstelle.link().ctsBeachten);
}

TEST_F(Part2_1_OpenCom, ClosingLetsTheNextOpenComUseTheNewSettings)
{
    e.LocoNetInterface = e.USBInterface = true;
    e.ComPort = 1;
    Long err = -1;
    schnittstelle.open_com(err);
    schnittstelle.schliessen();
    EXPECT_FALSE(schnittstelle.istOffen());
    e.ComPort = 2;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete, (QStringList{QStringLiteral("/dev/ttyS0"), QStringLiteral("/dev/ttyS1")}));
}

TEST_F(Part2_1_OpenCom, RefusedPortGives8002WithTheSystemsText)
{
    e.LocoNetInterface = e.USBInterface = true;
    e.ComPort = 9;
    verweigern = QStringLiteral("Die Schnittstelle /dev/ttyS8 ist nicht vorhanden.");
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 8002);
    EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral("ComPort öffnen|") + verweigern});
    EXPECT_EQ(meldungen.symbole, std::vector<Symbol>{Symbol::Kritisch});
    EXPECT_FALSE(schnittstelle.istOffen());
}

TEST_F(Part2_1_OpenCom, CommandStationOnAMissingPortGives8002)
{
    e.ComPort = 9;
    verweigern = QStringLiteral("weg");
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 8002);
    EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral("ComPort öffnen|weg")});
}

TEST_F(Part2_1_OpenCom, MissingDeviceThroughTheRealSerialPort)
{
    Schnittstelle echt(e, uhr, meldungen);
    e.LocoNetInterface = e.USBInterface = true;
    e.ComPortGeraet = QStringLiteral("/dev/planor-gibt-es-nicht");
    Long err = -1;
    echt.open_com(err);
    EXPECT_EQ(err, 8002);
    ASSERT_EQ(meldungen.texte.size(), 1);
    EXPECT_TRUE(meldungen.texte[0].startsWith(
        QStringLiteral("ComPort öffnen|Die Schnittstelle /dev/planor-gibt-es-nicht ist nicht vorhanden.")))
        << meldungen.texte[0].toStdString();
}

TEST_F(Part2_1_OpenCom, NoComPortSetIsTold)
{
    Schnittstelle echt(e, uhr, meldungen);
    e.LocoNetInterface = e.USBInterface = true;
    e.ComPort = 0;
    Long err = -1;
    echt.open_com(err);
    EXPECT_EQ(err, 8002);
    ASSERT_EQ(meldungen.texte.size(), 1);
    EXPECT_TRUE(meldungen.texte[0].contains(QStringLiteral("keine Schnittstelle eingestellt")));
}

TEST_F(Part2_1_OpenCom, SimulationWithoutSimulatorIsRefused)
{
    e.Verbindung = Verbindungsart::Simulation;
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 8002);
    EXPECT_EQ(meldungen.texte,
              QStringList{QStringLiteral("Verbindung öffnen|Die Simulation ist in dieser Programmversion nicht "
                                         "verfügbar.")});
}

TEST_F(Part2_1_OpenCom, SimulationOpensTheFactorysTransport)
{
    e.Verbindung = Verbindungsart::Simulation;
    int erzeugt = 0;
    schnittstelle.setzeSimulator([&] {
        ++erzeugt;
        auto t = std::make_unique<GeruestTransport>(uhr);
        t->offen = false;
        port = t.get();
        return t;
    });
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(erzeugt, 1);
    EXPECT_EQ(schritte(), QStringList{QStringLiteral("oeffnen")});
    EXPECT_TRUE(geraete.isEmpty());
    EXPECT_FALSE(schnittstelle.link().ctsBeachten);
    schnittstelle.open_com(err);
    EXPECT_EQ(erzeugt, 1);
}

TEST_F(Part2_1_OpenCom, LbServerConnectsToHostAndPort)
{
    e.Verbindung = Verbindungsart::LbServer;
    e.LbServerHost = QStringLiteral("stellwerk");
    e.LbServerPort = 5550;
    QString ziel;
    schnittstelle.setzeLbServerFabrik([&](const QString& host, Long p) -> std::unique_ptr<Transport> {
        ziel = host + u':' + QString::number(p);
        auto t = std::make_unique<GeruestTransport>(uhr);
        t->offen = false;
        port = t.get();
        return t;
    });
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(ziel, QStringLiteral("stellwerk:5550"));
    EXPECT_EQ(schritte(), QStringList{QStringLiteral("oeffnen")});
}

TEST_F(Part2_1_OpenCom, LbServerRefusedGives8002)
{
    e.Verbindung = Verbindungsart::LbServer;
    schnittstelle.setzeLbServerFabrik([](const QString&, Long) -> std::unique_ptr<Transport> {
        return std::make_unique<VerweigerterPort>(QStringLiteral("Keine Verbindung zum LbServer localhost:1234"));
    });
    Long err = -1;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 8002);
    EXPECT_EQ(meldungen.texte,
              QStringList{QStringLiteral("Verbindung öffnen|Keine Verbindung zum LbServer localhost:1234")});
}

TEST_F(Part2_1_OpenCom, ALostDeviceIsShownOnStatusLine2)
{
    e.LocoNetInterface = e.USBInterface = true;
    e.ComPort = 1;
    Long err = -1;
    schnittstelle.open_com(err);
    emit port->verloren(QStringLiteral("Das Interface wurde entfernt."));
    EXPECT_EQ(status.last(), QStringLiteral("2|Das Interface wurde entfernt."));
}

TEST(Part2_1_Art, KindFromTheSettings)
{
    Einstellungen e;
    EXPECT_EQ(ArtAusEinstellungen(e), Schnittstellenart::Zentrale);
    e.USBInterface = true;
    EXPECT_EQ(ArtAusEinstellungen(e), Schnittstellenart::Zentrale);
    e.LocoNetInterface = true;
    EXPECT_EQ(ArtAusEinstellungen(e), Schnittstellenart::Usb);
    e.USBInterface = false;
    EXPECT_EQ(ArtAusEinstellungen(e), Schnittstellenart::Adapter);
    e.Verbindung = Verbindungsart::LbServer;
    EXPECT_EQ(ArtAusEinstellungen(e), Schnittstellenart::LbServer);
    e.Verbindung = Verbindungsart::Simulation;
    EXPECT_EQ(ArtAusEinstellungen(e), Schnittstellenart::Simulation);
}
