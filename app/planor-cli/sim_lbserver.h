#pragma once
// `planor-cli sim --tcp PORT`: the simulated bus as an LbServer, the
// "LocoNet over TCP" protocol that LbServer clients speak. ASCII lines, CR LF:
//   server -> client  "VERSION Planor-Simulator <version>" on connecting,
//                     "RECEIVE <hex>" for every message on the bus, the
//                     client's own echo included,
//                     "SENT OK" or "SENT ERROR <reason>" for each SEND.
//   client -> server  "SEND <hex>": one whole message with its checksum.
// Hex bytes are upper case, separated by blanks ("SEND B0 00 10 5F"); lines
// may end in CR, LF or both; other commands are ignored. Each client is a
// party of its own on the bus.

#include <QHostAddress>
#include <QObject>
#include <QString>

#include <map>

class QTcpServer;
class QTcpSocket;

namespace planor {
class SimBus;
}

namespace planor::cli {

// The reason a SEND's bytes are refused, or empty when they are one whole
// message. Plain ASCII, as the protocol's lines are.
QString SendeFehler(const QByteArray& bytes);

class SimLbServer final : public QObject {
    Q_OBJECT

public:
    // A line this long without an end is no LbServer client: it is dropped.
    static constexpr int ZeilenGrenze = 4096;

    explicit SimLbServer(SimBus& bus, QObject* parent = nullptr);
    ~SimLbServer() override;

    // Listens; port 0 takes a free one. False with a German reason.
    bool starten(const QHostAddress& adresse, quint16 port, QString& fehler);
    quint16 port() const;

private:
    struct Klient {
        int teilnehmer = 0;
        QByteArray puffer;
    };

    void verbinden();
    void lesen(QTcpSocket* socket);
    void zeile(QTcpSocket* socket, const QByteArray& text);
    void trennen(QTcpSocket* socket);

    SimBus& bus_;
    QTcpServer* server_;
    std::map<QTcpSocket*, Klient> klienten_;
};

}  // namespace planor::cli
