#pragma once
// `planor-cli sim --pty`: the simulated bus behind a pseudo-terminal, for
// Planor's serial kinds. Bytes from the terminal go onto the bus (framed
// there, so the command station's text commands are answered too), and
// everything on the bus goes back to the terminal as raw LocoNet.
//
// The simulator keeps its own descriptor of the terminal's slave side open:
// without it the master reads EIO over and over once the program closes the
// port (Part 2.1 closes and reopens it while talking to a command station).
// So bytes written while no program listens pile up in the terminal; past
// `StauGrenze` they are dropped, so that a program opening the port late
// does not get a flood of old traffic.

#include <QObject>
#include <QString>

class QSocketNotifier;

namespace planor {
class SimBus;
}

namespace planor::cli {

class SimPty final : public QObject {
    Q_OBJECT

public:
    static constexpr int StauGrenze = 2048;

    explicit SimPty(SimBus& bus, QObject* parent = nullptr);
    ~SimPty() override;

    // Creates the terminal; false with a German reason.
    bool oeffnen(QString& fehler);
    // The slave side's path, e.g. /dev/pts/3.
    QString pfad() const { return pfad_; }

private:
    void lesen();
    void schreiben(const QByteArray& bytes);

    SimBus& bus_;
    int master_ = -1;
    int slave_ = -1;
    int teilnehmer_ = 0;
    QString pfad_;
    QSocketNotifier* melder_ = nullptr;
};

}  // namespace planor::cli
