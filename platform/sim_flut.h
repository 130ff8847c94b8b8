#pragma once
// The simulator's flood (`planor-cli sim --flood`): the bus kept full for
// measurements (planor-bench-monitor). A fixed round of messages goes onto the bus over
// and over, as fast as the bus takes them: `Vorlauf` of them are always on
// their way, and each one that reaches the parties brings the next. With
// wire time that is the wire's speed (0.6 ms a byte); without it as fast as
// the simulator delivers. Every message of the round is one the text
// monitor shows as exactly one line, and none is answered by the
// simulated devices, so the bus carries the flood and nothing else.
// The next messages are laid on from a zero timer, not from inside the
// delivery: without wire time each message's delivery is a posted event, and
// one posted while Qt sends posted events is sent in the same pass, so the
// event loop would never get past them (SIGTERM unheard, memory growing).
// Faults would lose messages of the round and stall it: the sim command
// refuses --flood together with them.

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QTimer>

namespace planor {

class SimBus;

class SimFlut final : public QObject {
    Q_OBJECT

public:
    static constexpr int Vorlauf = 32;

    explicit SimFlut(SimBus& bus, QObject* parent = nullptr);

    // The round, each message with its checksum.
    static const QList<QByteArray>& Runde();

    void starten();

private:
    void angekommen(const QByteArray& nachricht);
    void nachlegen();

    SimBus& bus_;
    int naechste_ = 0;
    int unterwegs_ = 0;
    QTimer nachlegenZeit_;
};

}  // namespace planor
