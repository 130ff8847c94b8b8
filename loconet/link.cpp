#include "loconet/link.h"

#include "core/fehlerbehandlung.h"
#include "loconet/nachricht.h"
#include "platform/transport.h"
#include "platform/uhr.h"

namespace planor {

LocoNetLink::LocoNetLink(Uhr& uhr, QObject* parent) : QObject(parent), uhr_(uhr) {}

LocoNetLink::~LocoNetLink() = default;

void LocoNetLink::setzeTransport(std::unique_ptr<Transport> transport)
{
    transport_ = std::move(transport);
    if (!transport_)
        return;
    connect(transport_.get(), &Transport::empfangen, this, [this](const QByteArray& bytes) {
        if (umleitung)
            umleitung(bytes);
        else
            empfang_.bytes(bytes);
    });
    connect(transport_.get(), &Transport::verloren, this, &LocoNetLink::verloren);
}

bool LocoNetLink::istOffen() const
{
    return transport_ && transport_->istOffen();
}

bool LocoNetLink::schliessen()
{
    if (!transport_)
        return true;
    // A Prog_Off still waiting would leave the module in its programming
    // session, and some modules keep written values only when that ends.
    const auto gesendet = [this] { return !transport_->istOffen() || transport_->ausgangLeer(); };
    const bool leer = gesendet() || uhr_.warten(SendeGrenze, gesendet);
    transport_->schliessen();
    if (!leer)
        Fehlerbehandlung(QStringLiteral("LocoNet : schliessen"),
                         Laufzeitfehler(int(Fehlernummer::GeraeteEA),
                                        QStringLiteral("Nachrichten an den Bus konnten vor dem Schließen der "
                                                       "Verbindung nicht mehr gesendet werden")));
    return leer;
}

void LocoNetLink::eingangVerwerfen()
{
    if (transport_)
        transport_->eingangVerwerfen();
}

void LocoNetLink::senden(const QByteArray& bytes, bool cts, Long& err)
{
    err = 1;
    if (!istOffen())
        return;
    transport_->ausgangVerwerfen();
    const double t0 = uhr_.sekunden();
    auto ctsHoch = [this] {
        // CTS changes bring no event: the wait looks again every 5 ms.
        if (transport_->cts())
            return true;
        uhr_.nach(0.005, [] {});
        return false;
    };
    if (!cts) {
        if (transport_->schreiben(bytes))
            err = 0;
        return;
    }
    // The command station takes a byte only while CTS is high.
    for (const char b : bytes) {
        const double rest = SendeGrenze - (uhr_.sekunden() - t0);
        if (rest <= 0 || !uhr_.warten(rest, ctsHoch))
            return;
        if (!transport_->schreiben(QByteArray(1, b)))
            return;
    }
    err = 0;
}

void LocoNetLink::send(const QByteArray& puffer, Long& err)
{
    // With CTS the checksum waits for CTS as well, under the same limit.
    senden(mitPruefsumme(puffer), ctsBeachten, err);
}

void LocoNetLink::send_str(const QByteArray& text, Long& err)
{
    senden(text, true, err);
}

}  // namespace planor
