#include "app/planor-cli/sim_lbserver.h"

#include "core/version.h"
#include "loconet/nachricht.h"
#include "platform/sim_bus.h"
#include "platform/sim_rahmen.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace planor::cli {

QString SendeFehler(const QByteArray& bytes)
{
    if (bytes.size() < 2)
        return QStringLiteral("zu wenige Bytes");
    if (!(quint8(bytes.at(0)) & 0x80))
        return QStringLiteral("das erste Byte ist kein Opcode");
    for (int i = 1; i < bytes.size(); ++i)
        if (quint8(bytes.at(i)) & 0x80)
            return QStringLiteral("Byte %1 hat Bit 7 gesetzt").arg(i);
    // One whole message by the length rule, and nothing after it.
    Nachrichtenrahmen rahmen;
    bool ganz = false;
    for (int i = 0; i < bytes.size(); ++i)
        ganz = rahmen.byte(quint8(bytes.at(i))) == Nachrichtenrahmen::Stand::Fertig && i == bytes.size() - 1;
    if (!ganz)
        return QStringLiteral("die Laenge passt nicht zum Opcode");
    if (Pruefsumme(bytes.left(bytes.size() - 1)) != quint8(bytes.back()))
        return QStringLiteral("Pruefsumme falsch");
    return {};
}

namespace {

// "B0 00 10 5F": hex pairs separated by blanks; nothing else.
bool hexLesen(const QByteArray& text, QByteArray& bytes)
{
    bytes.clear();
    for (const QByteArray& teil : text.simplified().split(' ')) {
        bool ok = false;
        const uint wert = teil.toUInt(&ok, 16);
        if (teil.isEmpty() || teil.size() > 2 || !ok)
            return false;
        bytes.append(char(wert));
    }
    return true;
}

qsizetype zeilenEnde(const QByteArray& puffer)
{
    for (qsizetype i = 0; i < puffer.size(); ++i)
        if (puffer.at(i) == '\r' || puffer.at(i) == '\n')
            return i;
    return -1;
}

}  // namespace

SimLbServer::SimLbServer(SimBus& bus, QObject* parent) : QObject(parent), bus_(bus), server_(new QTcpServer(this))
{
    connect(server_, &QTcpServer::newConnection, this, &SimLbServer::verbinden);
}

SimLbServer::~SimLbServer()
{
    for (const auto& [socket, klient] : klienten_)
        bus_.abtrennen(klient.teilnehmer);
}

bool SimLbServer::starten(const QHostAddress& adresse, quint16 port, QString& fehler)
{
    if (!server_->listen(adresse, port)) {
        fehler = QStringLiteral("Der TCP-Port %1 kann nicht geöffnet werden: %2")
                     .arg(port)
                     .arg(server_->errorString());
        return false;
    }
    return true;
}

quint16 SimLbServer::port() const
{
    return server_->serverPort();
}

void SimLbServer::verbinden()
{
    while (QTcpSocket* socket = server_->nextPendingConnection()) {
        Klient& k = klienten_[socket];
        k.teilnehmer = bus_.anschliessen([socket](const QByteArray& bytes) {
            // A text answer of the command station is no bus message: LbServer has no line for it.
            if (!bytes.isEmpty() && (quint8(bytes.at(0)) & 0x80))
                socket->write("RECEIVE " + bytes.toHex(' ').toUpper() + "\r\n");
        });
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { lesen(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] { trennen(socket); });
        socket->write("VERSION Planor-Simulator " + Version().toLatin1() + "\r\n");
    }
}

void SimLbServer::lesen(QTcpSocket* socket)
{
    auto k = klienten_.find(socket);
    if (k == klienten_.end())
        return;
    k->second.puffer += socket->readAll();
    while (true) {
        QByteArray& puffer = k->second.puffer;
        const qsizetype ende = zeilenEnde(puffer);
        if (ende < 0) {
            if (puffer.size() > ZeilenGrenze)
                socket->abort();  // disconnects, and `trennen` drops the client
            return;
        }
        const QByteArray text = puffer.left(ende).trimmed();
        puffer.remove(0, ende + 1);
        if (!text.isEmpty())
            zeile(socket, text);
        // `zeile` may have dropped the client.
        k = klienten_.find(socket);
        if (k == klienten_.end())
            return;
    }
}

void SimLbServer::zeile(QTcpSocket* socket, const QByteArray& text)
{
    const qsizetype blank = text.indexOf(' ');
    const QByteArray befehl = text.left(blank < 0 ? text.size() : blank).toUpper();
    if (befehl != "SEND")
        return;
    QByteArray bytes;
    QString grund = !hexLesen(blank < 0 ? QByteArray() : text.mid(blank + 1), bytes)
                        ? QStringLiteral("keine Hex-Bytes")
                        : SendeFehler(bytes);
    if (!grund.isEmpty()) {
        socket->write("SENT ERROR " + grund.toLatin1() + "\r\n");
        return;
    }
    socket->write("SENT OK\r\n");
    bus_.schreiben(klienten_[socket].teilnehmer, bytes);
}

void SimLbServer::trennen(QTcpSocket* socket)
{
    auto k = klienten_.find(socket);
    if (k == klienten_.end())
        return;
    bus_.abtrennen(k->second.teilnehmer);
    klienten_.erase(k);
    socket->deleteLater();
}

}  // namespace planor::cli
