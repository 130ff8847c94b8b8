#pragma once
// The link to the bus — the transport, the framer and reception
// table, `send` with its checksum, CTS gating and 5 s limit, `send_str`, and
// the clock every wait runs on. One link per program; the LNCV exchange
// and everything above it compose into it and poll its table.

#include "core/vb_zahlen.h"
#include "loconet/empfang.h"

#include <QObject>

#include <functional>
#include <memory>

namespace planor {

class Transport;
class Uhr;

class LocoNetLink : public QObject {
    Q_OBJECT

public:
    explicit LocoNetLink(Uhr& uhr, QObject* parent = nullptr);
    ~LocoNetLink() override;

    Uhr& uhr() { return uhr_; }
    Empfang& empfang() { return empfang_; }

    // The transport in use (the link owns it); bytes it delivers go through `empfang`.
    void setzeTransport(std::unique_ptr<Transport> transport);
    Transport* transport() const { return transport_.get(); }
    bool istOffen() const;
    // Closes the transport once what was handed over has gone out, waiting
    // at most `SendeGrenze`; false, after a report, when some of it had not.
    bool schliessen();

    // With the command-station kind every byte waits for CTS.
    bool ctsBeachten = false;
    // While set, the transport's bytes go here instead of through `empfang`
    // (the command-station negotiation reads its own answers).
    std::function<void(const QByteArray&)> umleitung;

    // send: the bytes of the buffer, then the checksum; err 1 when the 5 s
    // limit passes (the message stays cut off), else 0.
    void send(const QByteArray& puffer, Long& err);
    // send_str: the text's characters, no checksum, always CTS-gated.
    void send_str(const QByteArray& text, Long& err);
    void eingangVerwerfen();

    static constexpr double SendeGrenze = 5.0;

signals:
    // The transport lost its device; the link has closed it.
    void verloren(const QString& grund);

private:
    void senden(const QByteArray& bytes, bool cts, Long& err);

    Uhr& uhr_;
    Empfang empfang_;
    std::unique_ptr<Transport> transport_;
};

}  // namespace planor
