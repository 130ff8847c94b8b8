#include "platform/sim_transport.h"

#include "platform/sim_bus.h"

namespace planor {

SimTransport::SimTransport(SimBus& bus, QObject* parent) : Transport(parent), bus_(&bus) {}

SimTransport::~SimTransport()
{
    schliessen();
}

bool SimTransport::oeffnen(QString& fehler)
{
    if (!bus_) {
        fehler = QStringLiteral("Der Simulator läuft nicht mehr.");
        return false;
    }
    if (teilnehmer_ == 0)
        teilnehmer_ = bus_->anschliessen([this](const QByteArray& bytes) { emit empfangen(bytes); });
    return true;
}

void SimTransport::schliessen()
{
    if (bus_ && teilnehmer_ != 0)
        bus_->abtrennen(teilnehmer_);
    teilnehmer_ = 0;
}

bool SimTransport::istOffen() const
{
    return bus_ && teilnehmer_ != 0;
}

bool SimTransport::schreiben(const QByteArray& bytes)
{
    if (!istOffen())
        return false;
    bus_->schreiben(teilnehmer_, bytes);
    return true;
}

}  // namespace planor
