#include "platform/serial_transport.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSerialPortInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace planor {

std::optional<PortParameter> PortParameterLesen(const QString& text)
{
    const QStringList teile = text.split(u',');
    if (teile.size() != 4)
        return std::nullopt;
    PortParameter p;
    bool zahl = false;
    p.baud = teile[0].trimmed().toInt(&zahl);
    if (!zahl || p.baud <= 0)
        return std::nullopt;

    const QString paritaet = teile[1].trimmed().toLower();
    if (paritaet == u"n")
        p.paritaet = QSerialPort::NoParity;
    else if (paritaet == u"e")
        p.paritaet = QSerialPort::EvenParity;
    else if (paritaet == u"o")
        p.paritaet = QSerialPort::OddParity;
    else if (paritaet == u"m")
        p.paritaet = QSerialPort::MarkParity;
    else if (paritaet == u"s")
        p.paritaet = QSerialPort::SpaceParity;
    else
        return std::nullopt;

    const int daten = teile[2].trimmed().toInt(&zahl);
    if (!zahl || daten < 5 || daten > 8)
        return std::nullopt;
    p.daten = static_cast<QSerialPort::DataBits>(daten);

    const QString stopp = teile[3].trimmed();
    if (stopp == u"1")
        p.stopp = QSerialPort::OneStop;
    else if (stopp == u"1.5")
        p.stopp = QSerialPort::OneAndHalfStop;
    else if (stopp == u"2")
        p.stopp = QSerialPort::TwoStop;
    else
        return std::nullopt;
    return p;
}

QString GeraetFuerComPort(Integer comPort, const QString& gewaehltesGeraet)
{
    const QString gewaehlt = gewaehltesGeraet.trimmed();
    if (!gewaehlt.isEmpty())
        return gewaehlt;
    if (comPort < 1)
        return {};
#ifdef Q_OS_WIN
    return QStringLiteral("COM%1").arg(comPort);
#else
    return QStringLiteral("/dev/ttyS%1").arg(comPort - 1);
#endif
}

std::optional<int> ComNummer(const QString& portName)
{
    static const QRegularExpression com(QStringLiteral("^COM(\\d+)$"), QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch treffer = com.match(portName.trimmed());
    if (!treffer.hasMatch())
        return std::nullopt;
    return treffer.captured(1).toInt();
}

QList<PortEintrag> SystemPorts()
{
    QList<PortEintrag> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        PortEintrag e;
        e.geraet = info.systemLocation();
        e.name = info.portName();
        e.beschreibung = info.description();
        if (info.hasVendorIdentifier())
            e.hersteller = info.vendorIdentifier();
        if (info.hasProductIdentifier())
            e.produkt = info.productIdentifier();
        ports.append(e);
    }
    std::sort(ports.begin(), ports.end(),
              [](const PortEintrag& a, const PortEintrag& b) { return a.geraet < b.geraet; });
    return ports;
}

QList<PortEintrag> UsbInterfaceSuchen(const QList<PortEintrag>& ports)
{
    QList<PortEintrag> funde;
    for (const PortEintrag& p : ports)
        if (p.hersteller == UsbHersteller && p.produkt == UsbProdukt)
            funde.append(p);
    return funde;
}

QString OeffnenFehlerText(OeffnenFehler art, const QString& geraet, const QString& systemText)
{
    // The group hint: on Linux only members of "dialout" may use serial ports.
    const QString dialout = QStringLiteral("Ihr Benutzer muss Mitglied der Gruppe \u201Edialout\u201C sein "
                                           "(sudo usermod -a -G dialout <Benutzername>, danach neu anmelden).");
    switch (art) {
    case OeffnenFehler::Keiner:
        return {};
    case OeffnenFehler::KeinGeraet:
        return QStringLiteral("Es ist keine Schnittstelle eingestellt.\n"
                              "Bitte wählen Sie sie unter \u201EComPort Einstellungen\u201C.");
    case OeffnenFehler::Fehlt:
        return QStringLiteral("Die Schnittstelle %1 ist nicht vorhanden.\n"
                              "Bitte prüfen Sie, ob das Interface angeschlossen ist, und wählen Sie unter "
                              "\u201EComPort Einstellungen\u201C den richtigen Anschluss.")
            .arg(geraet);
    case OeffnenFehler::Belegt:
        return QStringLiteral("Die Schnittstelle %1 ist belegt: ein anderes Programm benutzt sie.\n"
                              "Wenn das nicht so ist: ")
                   .arg(geraet)
               + dialout;
    case OeffnenFehler::KeinZugriff:
        return QStringLiteral("Keine Berechtigung für die Schnittstelle %1.\n").arg(geraet) + dialout;
    case OeffnenFehler::Parameter:
        return QStringLiteral("Die Schnittstelle %1 nimmt die Einstellung \u201E%2\u201C nicht an.")
            .arg(geraet, systemText);
    case OeffnenFehler::Sonstiges:
        break;
    }
    return QStringLiteral("Die Schnittstelle %1 kann nicht geöffnet werden:\n%2").arg(geraet, systemText);
}

SerialTransport::SerialTransport(QString geraet, QObject* parent) : Transport(parent), geraet_(std::move(geraet))
{
    connect(&port_, &QSerialPort::readyRead, this, &SerialTransport::lesen);
    connect(&port_, &QSerialPort::errorOccurred, this, &SerialTransport::fehlerAufgetreten);
}

SerialTransport::~SerialTransport()
{
    disconnect(&port_, nullptr, this, nullptr);
    port_.close();
}

bool SerialTransport::parameterAnwenden()
{
    // On a closed port Qt keeps the values and sets them when it opens.
    return port_.setBaudRate(parameter_.baud) && port_.setParity(parameter_.paritaet)
           && port_.setDataBits(parameter_.daten) && port_.setStopBits(parameter_.stopp);
}

bool SerialTransport::setzeParameter(const QString& text)
{
    const std::optional<PortParameter> p = PortParameterLesen(text);
    if (!p)
        return false;
    parameter_ = *p;
    const bool ok = parameterAnwenden();
    port_.clearError();
    return ok;
}

void SerialTransport::setzeLeitungen(bool dtr, bool rts)
{
    dtr_ = dtr;
    rts_ = rts;
    if (port_.isOpen()) {
        port_.setDataTerminalReady(dtr_);
        port_.setRequestToSend(rts_);
        port_.clearError();
    }
}

OeffnenFehler SerialTransport::fehlerArt() const
{
    switch (port_.error()) {
    case QSerialPort::DeviceNotFoundError:
        return OeffnenFehler::Fehlt;
    case QSerialPort::PermissionError:
#ifdef Q_OS_UNIX
        // Qt says "permission" for a port in use as well: the file's rights tell them apart.
        if (::access(QFile::encodeName(geraet_).constData(), R_OK | W_OK) != 0 && errno == EACCES)
            return OeffnenFehler::KeinZugriff;
#endif
        return OeffnenFehler::Belegt;
    case QSerialPort::OpenError:
        return OeffnenFehler::Belegt;
    default:
        return OeffnenFehler::Sonstiges;
    }
}

bool SerialTransport::oeffnen(QString& fehler)
{
    letzterFehler_ = OeffnenFehler::Keiner;
    if (port_.isOpen())
        return true;
    if (geraet_.isEmpty()) {
        letzterFehler_ = OeffnenFehler::KeinGeraet;
        fehler = OeffnenFehlerText(letzterFehler_, geraet_);
        return false;
    }
    port_.setPortName(geraet_);
    // No hardware handshake with any kind.
    port_.setFlowControl(QSerialPort::NoFlowControl);
    parameterAnwenden();
    if (!port_.open(QIODevice::ReadWrite)) {
        letzterFehler_ = QFileInfo::exists(geraet_) ? fehlerArt() : OeffnenFehler::Fehlt;
        fehler = OeffnenFehlerText(letzterFehler_, geraet_, port_.errorString());
        port_.clearError();
        return false;
    }
    // DTR and RTS right after every opening. A port without
    // those lines (a pseudo-terminal) refuses them; that is no failure.
    port_.setDataTerminalReady(dtr_);
    port_.setRequestToSend(rts_);
    port_.clearError();
    return true;
}

void SerialTransport::schliessen()
{
    if (!port_.isOpen())
        return;
    // Closing a vanished device may raise errors of its own; they are not
    // a second loss.
    schliesst_ = true;
    port_.close();
    port_.clearError();
    schliesst_ = false;
}

bool SerialTransport::istOffen() const
{
    return port_.isOpen();
}

bool SerialTransport::schreiben(const QByteArray& bytes)
{
    if (!port_.isOpen())
        return false;
    return port_.write(bytes) == bytes.size();
}

void SerialTransport::eingangVerwerfen()
{
    if (port_.isOpen())
        port_.clear(QSerialPort::Input);
}

void SerialTransport::ausgangVerwerfen()
{
    if (port_.isOpen())
        port_.clear(QSerialPort::Output);
}

bool SerialTransport::ausgangLeer() const
{
    return !port_.isOpen() || port_.bytesToWrite() == 0;
}

bool SerialTransport::cts() const
{
    if (!port_.isOpen())
        return false;
#ifdef Q_OS_UNIX
    int leitungen = 0;
    // A pseudo-terminal has no modem lines: it counts as CTS high.
    if (::ioctl(port_.handle(), TIOCMGET, &leitungen) == -1)
        return true;
    return (leitungen & TIOCM_CTS) != 0;
#else
    return port_.pinoutSignals().testFlag(QSerialPort::ClearToSendSignal);
#endif
}

void SerialTransport::setzeBreak(bool an)
{
    if (port_.isOpen())
        port_.setBreakEnabled(an);
}

void SerialTransport::lesen()
{
    const QByteArray bytes = port_.readAll();
    if (!bytes.isEmpty())
        emit empfangen(bytes);
}

void SerialTransport::fehlerAufgetreten(QSerialPort::SerialPortError fehler)
{
    if (fehler != QSerialPort::ReadError && fehler != QSerialPort::ResourceError)
        return;
    if (schliesst_ || !port_.isOpen())
        return;
    // Qt 6.4 keeps a vanished device open and repeats ReadError without end:
    // close at once, then tell.
    schliessen();
    emit verloren(QStringLiteral("Die Verbindung über %1 ist unterbrochen: "
                                 "das Interface wurde entfernt oder ausgeschaltet.")
                      .arg(geraet_));
}

}  // namespace planor
