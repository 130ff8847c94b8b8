#pragma once
// The serial port on QSerialPort. Ports are named by device path (ComPort n
// is /dev/ttyS(n-1) on Linux unless a device was chosen), DTR and RTS are
// set right after every opening, a port without modem lines (a
// pseudo-terminal) counts as CTS high,
// and a device that vanishes closes the port at once and is reported by
// `verloren` (Qt 6.4 would otherwise keep it "open" and spin on ReadError).
// Also here: the list of the system's ports and the search for the USB
// interface by its IDs (scan_reg).

#include "core/vb_zahlen.h"
#include "platform/transport.h"

#include <QList>
#include <QSerialPort>

#include <optional>

namespace planor {

// The settings of a port from a text such as "19200,n,8,2": bit rate, parity
// (n, e, o, m, s), data bits (5..8), stop bits (1, 1.5, 2). Any positive bit
// rate is taken; 16457 is set directly as a custom rate.
struct PortParameter {
    qint32 baud = 9600;
    QSerialPort::Parity paritaet = QSerialPort::NoParity;
    QSerialPort::DataBits daten = QSerialPort::Data8;
    QSerialPort::StopBits stopp = QSerialPort::OneStop;

    bool operator==(const PortParameter&) const = default;
};
std::optional<PortParameter> PortParameterLesen(const QString& text);

// The device of ComPort n (/dev/ttyS(n-1) on Linux, COMn on
// Windows); a chosen device path overrides the number. Empty for a number
// below 1 without a chosen device.
QString GeraetFuerComPort(Integer comPort, const QString& gewaehltesGeraet = {});
// The number of a port named COMn ("COM12" gives 12; scan_reg).
std::optional<int> ComNummer(const QString& portName);

// One serial port of the system, as the dialogs list it.
struct PortEintrag {
    QString geraet;  // the device path, e.g. /dev/ttyUSB0
    QString name;    // the port's name, e.g. ttyUSB0 or COM7
    QString beschreibung;
    std::optional<quint16> hersteller;  // USB vendor ID
    std::optional<quint16> produkt;     // USB product ID
};
QList<PortEintrag> SystemPorts();

// The USB interface: "VID_10C4&PID_EA60".
inline constexpr quint16 UsbHersteller = 0x10C4;
inline constexpr quint16 UsbProdukt = 0xEA60;
// scan_reg on the port list: the ports with those IDs, in the list's order.
QList<PortEintrag> UsbInterfaceSuchen(const QList<PortEintrag>& ports);

// Why a port could not be opened. Missing, busy and no permission all give
// err 8002; the text says which and what to do.
enum class OeffnenFehler { Keiner, KeinGeraet, Fehlt, Belegt, KeinZugriff, Parameter, Sonstiges };
QString OeffnenFehlerText(OeffnenFehler art, const QString& geraet, const QString& systemText = {});

class SerialTransport final : public Transport {
    Q_OBJECT

public:
    explicit SerialTransport(QString geraet, QObject* parent = nullptr);
    ~SerialTransport() override;

    const QString& geraet() const { return geraet_; }

    bool oeffnen(QString& fehler) override;
    void schliessen() override;
    bool istOffen() const override;
    bool schreiben(const QByteArray& bytes) override;
    void eingangVerwerfen() override;
    void ausgangVerwerfen() override;
    bool ausgangLeer() const override;
    // CTS of the line; a port that has no modem lines counts as CTS high.
    bool cts() const override;
    void setzeBreak(bool an) override;
    bool setzeParameter(const QString& text) override;
    void setzeLeitungen(bool dtr, bool rts) override;

    OeffnenFehler letzterFehler() const { return letzterFehler_; }
    // What the port is set to (and runs at while open).
    const PortParameter& parameter() const { return parameter_; }
    qint32 laufendeBaudrate() const { return port_.baudRate(); }

private:
    bool parameterAnwenden();
    void lesen();
    void fehlerAufgetreten(QSerialPort::SerialPortError fehler);
    OeffnenFehler fehlerArt() const;

    QString geraet_;
    mutable QSerialPort port_;
    PortParameter parameter_;
    bool dtr_ = false;
    bool rts_ = false;
    bool schliesst_ = false;
    OeffnenFehler letzterFehler_ = OeffnenFehler::Keiner;
};

}  // namespace planor
