#include "loconet/schnittstelle.h"

#include "core/benutzer.h"
#include "core/fehlerbehandlung.h"
#include "core/settings_file.h"
#include "platform/lbserver_transport.h"
#include "platform/serial_transport.h"
#include "platform/uhr.h"

#include <QScopeGuard>

namespace planor {

Schnittstellenart ArtAusEinstellungen(const Einstellungen& e)
{
    switch (e.Verbindung) {
    case Verbindungsart::LbServer:
        return Schnittstellenart::LbServer;
    case Verbindungsart::Simulation:
        return Schnittstellenart::Simulation;
    case Verbindungsart::Seriell:
        break;
    }
    // USBInterface is read only when LocoNetInterface is true.
    if (!e.LocoNetInterface)
        return Schnittstellenart::Zentrale;
    return e.USBInterface ? Schnittstellenart::Usb : Schnittstellenart::Adapter;
}

Schnittstelle::Schnittstelle(const Einstellungen& einstellungen, Uhr& uhr, Benutzer& benutzer,
                             std::function<void(int, const QString&)> infoTxt)
    : einstellungen_(einstellungen), benutzer_(benutzer), infoTxt_(std::move(infoTxt)), link_(uhr)
{
    seriell_ = [](const QString& geraet) { return std::make_unique<SerialTransport>(geraet); };
    lbServer_ = [this](const QString& host, Long port) {
        return std::make_unique<LbServerTransport>(host, port, link_.uhr());
    };
    // A lost device closed the port already; the status line tells why, and
    // the next open_com opens it anew.
    QObject::connect(&link_, &LocoNetLink::verloren, &link_, [this](const QString& grund) { anzeigen(2, grund); });
}

Schnittstelle::~Schnittstelle()
{
    if (istOffen())
        schliessen();
}

bool Schnittstelle::istOffen() const
{
    return link_.istOffen();
}

bool Schnittstelle::schliessen()
{
    link_.umleitung = nullptr;
    return link_.schliessen();
}

void Schnittstelle::anzeigen(int feld, const QString& text)
{
    if (infoTxt_)
        infoTxt_(feld, text);
}

void Schnittstelle::open_com(Long& err)
{
    geschuetzt("LocoNet : open_com", [&] {
        // 1. Opening an open link changes nothing and sends nothing.
        err = 0;
        if (link_.istOffen())
            return;
        const Schnittstellenart art = ArtAusEinstellungen(einstellungen_);
        link_.ctsBeachten = art == Schnittstellenart::Zentrale;
        switch (art) {
        case Schnittstellenart::Zentrale:
            oeffnenZentrale(err);
            break;
        case Schnittstellenart::Adapter:
            oeffnenAdapter(err);
            break;
        case Schnittstellenart::Usb:
            oeffnenUsb(err);
            break;
        case Schnittstellenart::LbServer:
            oeffnenLbServer(err);
            break;
        case Schnittstellenart::Simulation:
            oeffnenSimulation(err);
            break;
        }
    });
}

Transport& Schnittstelle::uebernehmen(std::unique_ptr<Transport> transport)
{
    link_.setzeTransport(std::move(transport));
    return *link_.transport();
}

Transport& Schnittstelle::neuerSeriellerTransport()
{
    geraet_ = GeraetFuerComPort(einstellungen_.ComPort, einstellungen_.ComPortGeraet);
    return uebernehmen(seriell_(geraet_));
}

void Schnittstelle::abgelehnt(const QString& titel, const QString& text, Long& err)
{
    err = PortAbgelehnt;
    link_.umleitung = nullptr;
    link_.schliessen();
    benutzer_.meldung(titel, text, Symbol::Kritisch);
}

bool Schnittstelle::oeffnen(const QString& titel, Long& err)
{
    QString fehler;
    if (!link_.transport()->oeffnen(fehler)) {
        abgelehnt(titel, fehler, err);
        return false;
    }
    // What the command station answers is collected from this opening on.
    antwort_.clear();
    return true;
}

bool Schnittstelle::parameter(const QString& text, Long& err)
{
    if (link_.transport()->setzeParameter(text))
        return true;
    abgelehnt(ComPortOeffnenTitel, OeffnenFehlerText(OeffnenFehler::Parameter, geraet_, text), err);
    return false;
}

bool Schnittstelle::befehl(const QByteArray& text)
{
    Long err = 0;
    link_.send_str(text, err);
    if (err != 0)
        return false;
    // The first "]" ends the wait, whatever came before it.
    return link_.uhr().warten(ZentraleAntwortGrenze, [this] { return antwort_.contains(']'); });
}

void Schnittstelle::oeffnenZentrale(Long& err)
{
    // 1, 2. 2400 8N2, DTR off, RTS on.
    anzeigen(2, ComPortWirdGeoeffnetTxt);
    Transport& port = neuerSeriellerTransport();
    if (!parameter(QStringLiteral("2400,n,8,2"), err))
        return;
    port.setzeLeitungen(false, true);
    if (!oeffnen(ComPortOeffnenTitel, err))
        return;
    // The answers go to the negotiation, not to the framer.
    link_.umleitung = [this](const QByteArray& bytes) { antwort_ += bytes; };
    const auto framerZurueck = qScopeGuard([this] { link_.umleitung = nullptr; });
    auto keineKommunikation = [&] {
        // 9. The port stays open at the speed reached; the status line keeps its text.
        err = 1;
        benutzer_.meldung(ComPortOeffnenTitel, KeineKommunikationTxt, Symbol::Kritisch);
    };
    Uhr& uhr = link_.uhr();

    // 3. Break for 1 s, then 0.3 s.
    port.setzeBreak(true);
    uhr.delay(1.0);
    port.setzeBreak(false);
    uhr.delay(0.3);

    // 4, 5. "xB19200" until "]".
    if (!befehl(BefehlB19200))
        return keineKommunikation();

    // 6. 0.3 s, then 19200 8N2.
    uhr.delay(0.3);
    port.schliessen();
    if (!parameter(QStringLiteral("19200,n,8,2"), err) || !oeffnen(ComPortOeffnenTitel, err))
        return;

    // 7. "x&LN$55AA" until "]".
    if (!befehl(BefehlLocoNet))
        return keineKommunikation();

    // 8. Reopened for single bytes; the status line cleared.
    port.schliessen();
    if (!oeffnen(ComPortOeffnenTitel, err))
        return;
    anzeigen(2, QString());
}

void Schnittstelle::oeffnenAdapter(Long& err)
{
    // 1. Numbers other than 1 and 2 fail before the port is touched; a chosen
    //    device passes.
    const bool geraetGewaehlt = !einstellungen_.ComPortGeraet.trimmed().isEmpty();
    if (!geraetGewaehlt && einstellungen_.ComPort != 1 && einstellungen_.ComPort != 2) {
        benutzer_.meldung(QStringLiteral("Fehler"), NurComPort1Oder2Txt, Symbol::Kritisch);
        err = 1;
        return;
    }
    // 2. 19200 8N2, DTR off, RTS on.
    Transport& port = neuerSeriellerTransport();
    if (!parameter(QStringLiteral("19200,n,8,2"), err))
        return;
    port.setzeLeitungen(false, true);
    if (!oeffnen(ComPortOeffnenTitel, err))
        return;
    // 3. Pending input discarded; the status text stays.
    port.eingangVerwerfen();
    anzeigen(2, InterfaceWirdGeoeffnetTxt);
    // 4. The bus's own rate, 115200 / 7: set directly instead of the chip's divisor.
    parameter(QStringLiteral("16457,n,8,2"), err);
}

void Schnittstelle::oeffnenUsb(Long& err)
{
    Transport& port = neuerSeriellerTransport();
    if (!parameter(QStringLiteral("115200,n,8,1"), err))
        return;
    port.setzeLeitungen(false, false);
    oeffnen(ComPortOeffnenTitel, err);
}

void Schnittstelle::oeffnenLbServer(Long& err)
{
    uebernehmen(lbServer_(einstellungen_.LbServerHost, einstellungen_.LbServerPort));
    oeffnen(VerbindungOeffnenTitel, err);
}

void Schnittstelle::oeffnenSimulation(Long& err)
{
    std::unique_ptr<Transport> sim = simulator_ ? simulator_() : nullptr;
    if (!sim) {
        abgelehnt(VerbindungOeffnenTitel, KeineSimulationTxt, err);
        return;
    }
    uebernehmen(std::move(sim));
    oeffnen(VerbindungOeffnenTitel, err);
}

}  // namespace planor
