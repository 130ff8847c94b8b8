// open_com for each kind of connection, over the scaffold transport in virtual time.
#include "loconet/schnittstelle.h"

#include "core/settings_file.h"
#include "loconet/empfang.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"

using namespace planor;
using namespace planor::test;

namespace {

// A transport that the system refuses to open.
class VerweigerterPort final : public Transport {
public:
    explicit VerweigerterPort(QString grund) : grund_(std::move(grund)) {}
    bool oeffnen(QString& fehler) override { return fehler = grund_, false; }
    void schliessen() override {}
    bool istOffen() const override { return false; }
    bool schreiben(const QByteArray&) override { return false; }

private:
    QString grund_;
};

// The protocol of a text sent byte by byte.
QString geschrieben(const QByteArray& text)
{
    QString zeilen;
    for (const char c : text)
        zeilen += QStringLiteral("|schreiben ") + QString::fromLatin1(QByteArray(1, c).toHex().toUpper());
    return zeilen;
}

class OpenCom : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        schnittstelle.setzeSerielleFabrik([this](const QString& geraet) { return neuerPort(geraet); });
        schnittstelle.setzeLbServerFabrik(
            [this](const QString& host, Long p) { return neuerPort(host + u':' + QString::number(p)); });
        schnittstelle.setzeSimulator([this] { return neuerPort(QStringLiteral("simulator")); });
    }

    // A new port is closed; with `antworten` it is the command station,
    // answering each command when its CR has gone out.
    std::unique_ptr<Transport> neuerPort(const QString& geraet)
    {
        geraete << geraet;
        if (!verweigern.isEmpty())
            return std::make_unique<VerweigerterPort>(verweigern);
        auto t = std::make_unique<GeruestTransport>(uhr);
        t->offen = false;
        t->ctsHoch = ctsHoch;
        port = t.get();
        t->antwort = [p = port, this](const QByteArray& bytes) {
            if (bytes.endsWith('\r') && !antworten.isEmpty())
                p->senden(antworten.takeFirst(), 0.2);
        };
        return t;
    }

    QString schritte() const
    {
        QStringList liste;
        for (std::size_t i = 0; port && i < port->protokoll.size(); ++i)
            liste << port->protokoll[i].was;
        return liste.join(u'|');
    }
    void einstellen(Verbindungsart verbindung, bool lni, bool usb, Integer comPort, const char* geraet = "")
    {
        e.Verbindung = verbindung;
        e.LocoNetInterface = lni;
        e.USBInterface = usb;
        e.ComPort = comPort;
        e.ComPortGeraet = QLatin1String(geraet);
    }
    double zeitVon(const QString& was) const
    {
        for (const auto& schritt : port->protokoll)
            if (schritt.was == was)
                return schritt.zeit;
        return -1;
    }
    bool framerSiehtLongAck()
    {
        port->senden(QByteArray("\xB4\x30\x00\x7B", 4));
        uhr.weiter(10);
        return schnittstelle.link().empfang().geflaggt(ZeileLongAck);
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
    QList<QByteArray> antworten;
    bool ctsHoch = true;
    Long err = -1;
};

}  // namespace

TEST_F(OpenCom, CommandStationNegotiatesByteByByteWithBreakAndReopen)
{
    e.ComPort = 1;
    antworten = {QByteArray("\xB4\x30\x00\x7B]", 5), QByteArray("\xB4\x30\x00\x7B]", 5)};
    schnittstelle.open_com(err);

    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete, QStringList{QStringLiteral("/dev/ttyS0")});
    EXPECT_EQ(schritte(), QStringLiteral("parameter 2400,n,8,2|dtr 0 rts 1|oeffnen|break an|break aus") +
                              geschrieben("xB19200\r") + QStringLiteral("|schliessen|parameter 19200,n,8,2|oeffnen") +
                              geschrieben("x&LN$55AA\r") + QStringLiteral("|schliessen|oeffnen"));
    // Break 1 s, 0.3 s; the answer 0.2 s after the CR, then 0.3 s.
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("break aus")), 1.0);
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("schreiben 78")), 1.3);
    EXPECT_DOUBLE_EQ(zeitVon(QStringLiteral("schliessen")), 1.8);
    EXPECT_DOUBLE_EQ(uhr.sekunden(), 2.0);
    EXPECT_TRUE(schnittstelle.link().ctsBeachten);
    EXPECT_EQ(status, (QStringList{QStringLiteral("2|ComPort wird geöffnet"), QStringLiteral("2|")}));
    EXPECT_TRUE(meldungen.texte.isEmpty());
    EXPECT_FALSE(schnittstelle.link().empfang().geflaggt(ZeileLongAck)) << "negotiation bytes stay out";
    EXPECT_TRUE(framerSiehtLongAck());
}

TEST_F(OpenCom, CommandStationWithoutAnswerFailsAndLeavesThePortOpen)
{
    const struct {
        const char* was;
        QList<QByteArray> antworten;
        bool ctsHoch;
        double sekunden;
        int geschrieben;
    } faelle[] = {
        {"no bracket within 5 s", {"kein Ende"}, true, 1.3 + 5.0, 8},
        {"none for the second command", {"]"}, true, -1, 18},
        {"CTS low", {"]", "]"}, false, -1, 0},
    };
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.was);
        schnittstelle.schliessen();
        meldungen.texte.clear();
        status.clear();
        antworten = f.antworten;
        ctsHoch = f.ctsHoch;
        const double t0 = uhr.sekunden();
        schnittstelle.open_com(err);
        EXPECT_EQ(err, 1);
        EXPECT_EQ(meldungen.texte, QStringList{QStringLiteral("ComPort öffnen|ComPort: Keine Kommunikation!")});
        EXPECT_EQ(meldungen.symbole.back(), Symbol::Kritisch);
        if (f.sekunden > 0) {
            EXPECT_GE(uhr.sekunden() - t0, f.sekunden);
            EXPECT_LT(uhr.sekunden() - t0, f.sekunden + 0.1);
        }
        EXPECT_EQ(schritte().count(QStringLiteral("schreiben")), f.geschrieben);
        EXPECT_TRUE(schnittstelle.istOffen());
        EXPECT_EQ(status, QStringList{QStringLiteral("2|ComPort wird geöffnet")}) << "the status keeps its text";
    }
    // A further open_com finds it open: err 0, nothing sent, bytes reach the framer.
    const std::size_t vorher = port->protokoll.size();
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(port->protokoll.size(), vorher);
    EXPECT_TRUE(framerSiehtLongAck());
}

TEST_F(OpenCom, TheSettingsChooseDeviceAndSteps)
{
    using A = Schnittstellenart;
    using V = Verbindungsart;
    const char* adapter = "parameter 19200,n,8,2|dtr 0 rts 1|oeffnen|eingang verwerfen|parameter 16457,n,8,2";
    const QStringList adapterStatus = {QStringLiteral("2|LocoNet Interface wird geöffnet")};
    const struct {
        Verbindungsart verbindung;
        bool lni, usb;
        Integer comPort;
        const char *geraet, *erwartetesGeraet;
        A art;
        const char* schritte;
        QStringList status;
    } faelle[] = {
        {V::Seriell, true, false, 2, "", "/dev/ttyS1", A::Adapter, adapter, adapterStatus},
        {V::Seriell, true, false, 3, "/dev/ttyUSB0", "/dev/ttyUSB0", A::Adapter, adapter, adapterStatus},
        {V::Seriell, true, true, 4, "", "/dev/ttyS3", A::Usb, "parameter 115200,n,8,1|dtr 0 rts 0|oeffnen", {}},
        {V::LbServer, true, true, 1, "", "stellwerk:5550", A::LbServer, "oeffnen", {}},
        {V::Simulation, false, true, 1, "", "simulator", A::Simulation, "oeffnen", {}},
    };
    EXPECT_EQ(ArtAusEinstellungen(e), A::Zentrale);
    e.USBInterface = true;
    EXPECT_EQ(ArtAusEinstellungen(e), A::Zentrale) << "USB counts only with the interface";
    e.LbServerHost = QStringLiteral("stellwerk");
    e.LbServerPort = 5550;
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.erwartetesGeraet);
        schnittstelle.schliessen();
        geraete.clear();
        status.clear();
        einstellen(f.verbindung, f.lni, f.usb, f.comPort, f.geraet);
        EXPECT_EQ(ArtAusEinstellungen(e), f.art);
        schnittstelle.open_com(err);
        EXPECT_EQ(err, 0);
        EXPECT_EQ(geraete, QStringList{QLatin1String(f.erwartetesGeraet)});
        EXPECT_EQ(schritte(), QLatin1String(f.schritte));
        EXPECT_EQ(status, f.status);
        EXPECT_FALSE(schnittstelle.link().ctsBeachten);
    }
    // Open already: other settings change nothing and nothing is sent.
    e.Verbindung = Verbindungsart::Seriell;
    e.LocoNetInterface = false;
    schnittstelle.open_com(err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(geraete.size(), 1);
    EXPECT_EQ(schritte(), QStringLiteral("oeffnen"));
    emit port->verloren(QStringLiteral("Das Interface wurde entfernt."));
    EXPECT_EQ(status.last(), QStringLiteral("2|Das Interface wurde entfernt."));
}

TEST_F(OpenCom, ARefusedOpenIsToldWithTheSystemsText)
{
    using V = Verbindungsart;
    const struct {
        Verbindungsart verbindung;
        bool lni, usb;
        Integer comPort;
        const char* verweigern;
        Long err;
        QString meldung;
    } faelle[] = {
        {V::Seriell, true, true, 9, "Die Schnittstelle /dev/ttyS8 ist nicht vorhanden.", 8002,
         QStringLiteral("ComPort öffnen|Die Schnittstelle /dev/ttyS8 ist nicht vorhanden.")},
        {V::Seriell, false, false, 9, "weg", 8002, QStringLiteral("ComPort öffnen|weg")},
        {V::LbServer, false, false, 1, "kein LbServer", 8002, QStringLiteral("Verbindung öffnen|kein LbServer")},
        {V::Simulation, false, false, 1, "", 8002,
         QStringLiteral("Verbindung öffnen|Die Simulation ist in dieser Programmversion nicht verfügbar.")},
        // The serial adapter exists only on ports 1 and 2: the port is not touched.
        {V::Seriell, true, false, 3, "", 1,
         QStringLiteral("Fehler|Sie können das LocoNet-Interface nur mit Comport 1 oder Comport 2 benutzen!")},
    };
    schnittstelle.setzeSimulator({});
    for (const auto& f : faelle) {
        SCOPED_TRACE(f.meldung.toStdString());
        meldungen.texte.clear();
        geraete.clear();
        einstellen(f.verbindung, f.lni, f.usb, f.comPort);
        verweigern = QLatin1String(f.verweigern);
        schnittstelle.open_com(err);
        EXPECT_EQ(err, f.err);
        EXPECT_EQ(meldungen.texte, QStringList{f.meldung});
        EXPECT_EQ(meldungen.symbole.back(), Symbol::Kritisch);
        EXPECT_FALSE(schnittstelle.istOffen());
        EXPECT_EQ(geraete.size(), *f.verweigern ? 1 : 0);
    }
}
