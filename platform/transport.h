#pragma once
// The one way to the bus: a byte pipe with, where the kind has them, line
// controls. Implementations: the serial port (three interface kinds),
// LocoNet over TCP (LbServer) and the built-in simulator. Bytes that arrive
// are announced by `empfangen`; a transport that loses its device says so
// by `verloren` and is closed.

#include <QByteArray>
#include <QObject>
#include <QString>

namespace planor {

class Transport : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~Transport() override = default;

    // Opens the transport; false with a German reason for the user.
    virtual bool oeffnen(QString& fehler) = 0;
    // Closes at once; what has not gone out yet is dropped (the link waits
    // for `ausgangLeer` first).
    virtual void schliessen() = 0;
    virtual bool istOffen() const = 0;

    // Writes bytes as they are (the caller adds the checksum); false when
    // the transport cannot take them.
    virtual bool schreiben(const QByteArray& bytes) = 0;

    // Drops what has arrived but not yet been announced, and what waits to go out.
    virtual void eingangVerwerfen() {}
    virtual void ausgangVerwerfen() {}
    // Everything handed to `schreiben` has left the program: passed to the
    // line, or confirmed by the server.
    virtual bool ausgangLeer() const { return true; }

    // Line state and controls of a serial port; other kinds have none.
    virtual bool cts() const { return true; }
    virtual void setzeBreak(bool) {}
    // Bit rate, parity, data and stop bits from a text such as "19200,n,8,2":
    // at once when open, else at the next opening. False when the
    // text or the port refuses it; kinds without a serial line take any.
    virtual bool setzeParameter(const QString&) { return true; }
    // DTR and RTS, set right after every opening.
    virtual void setzeLeitungen(bool /*dtr*/, bool /*rts*/) {}

signals:
    void empfangen(const QByteArray& bytes);
    void verloren(const QString& grund);
};

}  // namespace planor
