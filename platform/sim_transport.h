#pragma once
// The in-process way to the built-in simulator: the interface choice
// "Simulation (ohne Hardware)". What the program writes goes onto the
// simulated bus, and everything on the bus, the program's own messages
// included, comes back through `empfangen`. No line controls: CTS is always
// high and a break does nothing.

#include "platform/transport.h"

#include <QPointer>

namespace planor {

class SimBus;

class SimTransport final : public Transport {
    Q_OBJECT

public:
    explicit SimTransport(SimBus& bus, QObject* parent = nullptr);
    ~SimTransport() override;

    bool oeffnen(QString& fehler) override;
    void schliessen() override;
    bool istOffen() const override;
    bool schreiben(const QByteArray& bytes) override;

private:
    QPointer<SimBus> bus_;
    int teilnehmer_ = 0;  // 0: not attached
};

}  // namespace planor
