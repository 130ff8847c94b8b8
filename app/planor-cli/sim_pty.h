#pragma once
// `planor-cli sim --pty`: the simulated bus behind a pseudo-terminal, for
// Planor's serial kinds. Bytes from the terminal go onto the bus (framed
// there, so the command station's text commands are answered too), and
// everything on the bus goes back to the terminal as raw LocoNet.
//
// The simulator keeps its own descriptor of the terminal's slave side open:
// without it the master reads EIO over and over once the program closes the
// port (open_com closes and reopens it while talking to a command station).
// So bytes written while no program listens pile up in the terminal; past
// `StauGrenze` further messages are dropped, as on a jammed line, so that a
// program opening the port late gets no more old traffic than that, and a
// program that reads too slowly loses whole messages. Bytes already in the
// terminal are never taken back: flushing them races the reading program's
// read, which QSerialPort then reports as a read error, as if the device
// had been pulled.

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
