#pragma once
// LocoNet over TCP to an LbServer (extension), the
// "LoconetOverTcp" protocol: ASCII lines ending in CR or LF (empty lines
// are skipped).
//   server -> client  "VERSION <text>"   once after connecting
//                     "RECEIVE <hex>"    every message on the bus, our own echo included
//                     "SENT OK ..." / "SENT ERROR <reason>"   the answer to each SEND
//   client -> server  "SEND <hex>"       one message with its checksum, bytes in
//                                        upper-case hex separated by blanks
// Other lines (TIMESTAMP, BREAK, ERROR ... of protocol version 2) are ignored.
//
// Bytes handed to `schreiben` are cut into whole LocoNet messages by the one
// length rule (loconet/rahmen.h), so a message written byte by byte still
// goes out as one SEND. Only one SEND is in flight; further messages wait in a queue
// until its SENT comes.
//
// Failures:
//  - "SENT ERROR": the server could not put the message on the bus. It is
//    lost as a message garbled on the wire is (no trace); the
//    caller's wait for an answer runs into its own time limit. Counted in
//    `sendeFehler()`.
//  - No SENT within `SentGrenze` seconds: the server is taken as gone. The
//    connection is closed, the queue dropped, and `verloren` says why; the
//    next open_com connects anew.
//  - The server closes the connection or the network fails: `verloren`.
//  - `schreiben` on a closed connection returns false.
// `ausgangVerwerfen` (called before each send) drops an unfinished message
// only: whole messages have been handed over and are as good as on the wire.

#include "core/vb_zahlen.h"
#include "loconet/rahmen.h"
#include "platform/transport.h"

#include <QTcpSocket>

#include <deque>
#include <optional>

namespace planor {

class Uhr;

// "SEND B0 00 10 5F" and CR LF for the message's bytes.
QByteArray SendeZeile(const QByteArray& nachricht);
// The bytes of a hex dump such as "B0 00 10 5F"; nothing when a part is no
// byte in hex.
std::optional<QByteArray> HexBytesLesen(QByteArrayView text);

class LbServerTransport final : public Transport {
    Q_OBJECT

public:
    static constexpr double VerbindenGrenze = 5.0;  // seconds to connect
    static constexpr double SentGrenze = 2.0;       // seconds from SEND to SENT

    LbServerTransport(QString host, Long port, Uhr& uhr, QObject* parent = nullptr);
    ~LbServerTransport() override;

    bool oeffnen(QString& fehler) override;
    void schliessen() override;
    bool istOffen() const override;
    bool schreiben(const QByteArray& bytes) override;
    void ausgangVerwerfen() override;
    bool ausgangLeer() const override;

    void setzeSentGrenze(double sekunden) { sentGrenze_ = sekunden; }
    // The server's VERSION line, without its token.
    const QString& serverVersion() const { return serverVersion_; }
    // Messages the server answered with SENT ERROR, and its last reason.
    int sendeFehler() const { return sendeFehler_; }
    const QString& letzterSendeFehler() const { return letzterSendeFehler_; }
    // Messages waiting behind the one in flight.
    int wartend() const { return static_cast<int>(warteschlange_.size()); }

private:
    void lesen();
    void zeileVerarbeiten(const QByteArray& zeile);
    void naechsteSenden();
    void verlorenMelden(const QString& grund);
    QString ziel() const;

    QString host_;
    Long port_;
    Uhr& uhr_;
    QTcpSocket socket_;
    bool offen_ = false;
    double sentGrenze_ = SentGrenze;

    QByteArray zeilenPuffer_;
    Nachrichtenrahmen rahmen_;  // cuts what `schreiben` gets into messages
    std::deque<QByteArray> warteschlange_;
    bool unterwegs_ = false;
    quint64 sendeNummer_ = 0;

    QString serverVersion_;
    int sendeFehler_ = 0;
    QString letzterSendeFehler_;
};

}  // namespace planor
