#include "platform/lbserver_transport.h"

#include "platform/uhr.h"

#include <QPointer>

namespace planor {

QByteArray SendeZeile(const QByteArray& nachricht)
{
    return "SEND " + nachricht.toHex(' ').toUpper() + "\r\n";
}

std::optional<QByteArray> HexBytesLesen(QByteArrayView text)
{
    QByteArray bytes;
    for (const QByteArray& teil : text.toByteArray().simplified().split(' ')) {
        if (teil.isEmpty())
            continue;
        bool ok = false;
        const uint wert = teil.toUInt(&ok, 16);
        if (!ok || teil.size() > 2 || wert > 0xFF)
            return std::nullopt;
        bytes.append(char(wert));
    }
    return bytes;
}

LbServerTransport::LbServerTransport(QString host, Long port, Uhr& uhr, QObject* parent)
    : Transport(parent), host_(std::move(host)), port_(port), uhr_(uhr)
{
    connect(&socket_, &QTcpSocket::readyRead, this, &LbServerTransport::lesen);
    connect(&socket_, &QTcpSocket::errorOccurred, this, [this](QAbstractSocket::SocketError fehler) {
        if (fehler == QAbstractSocket::RemoteHostClosedError)
            verlorenMelden(QStringLiteral("Der LbServer %1 hat die Verbindung beendet.").arg(ziel()));
        else
            verlorenMelden(QStringLiteral("Die Verbindung zum LbServer %1 ist unterbrochen: %2")
                               .arg(ziel(), socket_.errorString()));
    });
    connect(&socket_, &QTcpSocket::disconnected, this, [this] {
        verlorenMelden(QStringLiteral("Der LbServer %1 hat die Verbindung beendet.").arg(ziel()));
    });
}

LbServerTransport::~LbServerTransport()
{
    offen_ = false;
    disconnect(&socket_, nullptr, this, nullptr);
    socket_.abort();
}

QString LbServerTransport::ziel() const
{
    return host_ + u':' + QString::number(port_);
}

bool LbServerTransport::oeffnen(QString& fehler)
{
    if (istOffen())
        return true;
    if (port_ < 1 || port_ > 65535) {
        fehler = QStringLiteral("Die Portnummer %1 des LbServers ist ungültig (1 bis 65535).").arg(port_);
        return false;
    }
    if (host_.trimmed().isEmpty()) {
        fehler = QStringLiteral("Es ist kein Rechner für den LbServer eingestellt.");
        return false;
    }
    zeilenPuffer_.clear();
    rahmen_.abbrechen();
    socket_.abort();
    socket_.connectToHost(host_.trimmed(), quint16(port_));
    const bool entschieden = uhr_.warten(VerbindenGrenze, [this] {
        return socket_.state() == QAbstractSocket::ConnectedState
               || socket_.state() == QAbstractSocket::UnconnectedState;
    });
    if (socket_.state() != QAbstractSocket::ConnectedState) {
        QString grund;
        if (!entschieden)
            grund = QStringLiteral("keine Antwort innerhalb von %1 s").arg(VerbindenGrenze);
        else if (socket_.error() == QAbstractSocket::ConnectionRefusedError)
            grund = QStringLiteral("der Rechner lehnt die Verbindung ab (läuft dort der LbServer?)");
        else if (socket_.error() == QAbstractSocket::HostNotFoundError)
            grund = QStringLiteral("der Rechner ist nicht bekannt");
        else
            grund = socket_.errorString();
        socket_.abort();
        fehler = QStringLiteral("Keine Verbindung zum LbServer %1:\n%2.").arg(ziel(), grund);
        return false;
    }
    offen_ = true;
    return true;
}

void LbServerTransport::schliessen()
{
    // Closed on purpose: no `verloren`.
    offen_ = false;
    warteschlange_.clear();
    unterwegs_ = false;
    rahmen_.abbrechen();
    socket_.abort();
}

bool LbServerTransport::istOffen() const
{
    return offen_ && socket_.state() == QAbstractSocket::ConnectedState;
}

bool LbServerTransport::schreiben(const QByteArray& bytes)
{
    if (!istOffen())
        return false;
    for (const char c : bytes)
        if (rahmen_.byte(quint8(c)) == Nachrichtenrahmen::Stand::Fertig)
            warteschlange_.push_back(rahmen_.nachricht());
    naechsteSenden();
    return true;
}

void LbServerTransport::ausgangVerwerfen()
{
    rahmen_.abbrechen();
}

bool LbServerTransport::ausgangLeer() const
{
    return warteschlange_.empty() && !unterwegs_ && socket_.bytesToWrite() == 0;
}

void LbServerTransport::naechsteSenden()
{
    if (unterwegs_ || warteschlange_.empty() || !istOffen())
        return;
    const QByteArray nachricht = warteschlange_.front();
    warteschlange_.pop_front();
    socket_.write(SendeZeile(nachricht));
    unterwegs_ = true;
    const quint64 nummer = ++sendeNummer_;
    uhr_.nach(sentGrenze_, [waechter = QPointer<LbServerTransport>(this), nummer] {
        if (waechter && waechter->unterwegs_ && waechter->sendeNummer_ == nummer)
            waechter->verlorenMelden(QStringLiteral("Der LbServer %1 hat eine Nachricht nicht innerhalb von %2 s "
                                                    "bestätigt.")
                                         .arg(waechter->ziel())
                                         .arg(waechter->sentGrenze_));
    });
}

void LbServerTransport::lesen()
{
    zeilenPuffer_ += socket_.readAll();
    while (true) {
        qsizetype ende = -1;
        for (qsizetype i = 0; i < zeilenPuffer_.size(); ++i) {
            if (zeilenPuffer_.at(i) == '\r' || zeilenPuffer_.at(i) == '\n') {
                ende = i;
                break;
            }
        }
        if (ende < 0)
            return;
        const QByteArray zeile = zeilenPuffer_.left(ende).trimmed();
        zeilenPuffer_.remove(0, ende + 1);
        if (!zeile.isEmpty())
            zeileVerarbeiten(zeile);
        // A line may have closed the connection.
        if (!offen_)
            return;
    }
}

void LbServerTransport::zeileVerarbeiten(const QByteArray& zeile)
{
    const qsizetype leer = zeile.indexOf(' ');
    const QByteArray token = leer < 0 ? zeile : zeile.left(leer);
    const QByteArray parameter = leer < 0 ? QByteArray() : zeile.mid(leer + 1).trimmed();

    if (token == "RECEIVE") {
        const std::optional<QByteArray> bytes = HexBytesLesen(parameter);
        if (bytes && !bytes->isEmpty())
            emit empfangen(*bytes);
    } else if (token == "SENT") {
        if (!parameter.startsWith("OK")) {
            ++sendeFehler_;
            letzterSendeFehler_ = QString::fromLatin1(parameter);
        }
        unterwegs_ = false;
        naechsteSenden();
    } else if (token == "VERSION") {
        serverVersion_ = QString::fromLatin1(parameter);
    }
}

void LbServerTransport::verlorenMelden(const QString& grund)
{
    if (!offen_)
        return;
    offen_ = false;
    warteschlange_.clear();
    unterwegs_ = false;
    rahmen_.abbrechen();
    socket_.abort();
    emit verloren(grund);
}

}  // namespace planor
