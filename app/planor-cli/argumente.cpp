#include "app/planor-cli/argumente.h"

#include "platform/sim_modul.h"

#include <QUrlQuery>

namespace planor::cli {

double wahrscheinlichkeit(const QString& option, QString wert)
{
    bool ok = false;
    const double p = wert.replace(u',', u'.').toDouble(&ok);
    if (!ok || p < 0 || p > 1)
        throw FalscherAufruf{
            QStringLiteral("%1 erwartet eine Wahrscheinlichkeit von 0 bis 1, nicht \"%2\".").arg(option, wert)};
    return p;
}

long long ganzzahl(const QString& option, const QString& wert, long long unten, long long oben)
{
    bool ok = false;
    const long long n = wert.toLongLong(&ok);
    if (!ok || n < unten || n > oben)
        throw FalscherAufruf{QStringLiteral("%1 erwartet eine Zahl von %2 bis %3, nicht \"%4\".")
                               .arg(option).arg(unten).arg(oben).arg(wert)};
    return n;
}

SimModulAngabe modulAngabe(const QString& option, const QString& wert, bool mitVersion)
{
    const QStringList teile = wert.split(u':');
    if (teile.size() < 2 || teile.size() > (mitVersion ? 3 : 2))
        throw FalscherAufruf{QStringLiteral("%1 erwartet ARTIKEL:ADRESSE%2, nicht \"%3\".")
                               .arg(option, mitVersion ? QStringLiteral("[:VERSION]") : QString(), wert)};
    SimModulAngabe m;
    m.artikel = Long(ganzzahl(option, teile[0], 1, 99999));
    if (!SimModul::artikelBekannt(m.artikel))
        throw FalscherAufruf{QStringLiteral("%1: Artikel %2 wird nicht simuliert (bekannt: 47120, 47130, 47190, "
                                          "47220, 47230, 47240, 5330, 47320, 47330).")
                               .arg(option).arg(m.artikel)};
    m.adresse = Long(ganzzahl(option, teile[1], 1, 65534));
    if (teile.size() == 3)
        m.version = int(ganzzahl(option, teile[2], 0, 65535));
    return m;
}


// PORT to the settings open_com reads.
Einstellungen portEinstellungen(const QString& port)
{
    Einstellungen e;
    if (port == u"sim") {
        e.Verbindung = Verbindungsart::Simulation;
    } else if (port.startsWith(QStringLiteral("tcp:"))) {
        const qsizetype doppelpunkt = port.lastIndexOf(u':');
        if (doppelpunkt <= 3)
            throw FalscherAufruf{QStringLiteral("--port tcp:HOST:PORT erwartet, nicht \"%1\".").arg(port)};
        e.Verbindung = Verbindungsart::LbServer;
        e.LbServerHost = port.mid(4, doppelpunkt - 4);
        e.LbServerPort = Long(ganzzahl(QStringLiteral("--port"), port.mid(doppelpunkt + 1), 1, 65535));
    } else if (port.startsWith(QStringLiteral("serial:"))) {
        const QString rest = port.mid(7);
        const qsizetype frage = rest.indexOf(u'?');
        e.ComPortGeraet = rest.left(frage);
        const QString art = frage < 0 ? QString() : QUrlQuery(rest.mid(frage + 1)).queryItemValue(QStringLiteral("kind"));
        if (art == u"usb") {
            e.LocoNetInterface = e.USBInterface = true;
        } else if (art == u"adapter") {
            e.LocoNetInterface = true;
        } else if (art != u"station") {
            throw FalscherAufruf{QStringLiteral("--port serial:GERÄT?kind=usb|adapter|station erwartet.")};
        }
        if (e.ComPortGeraet.isEmpty())
            throw FalscherAufruf{QStringLiteral("--port serial: braucht ein Gerät, z. B. serial:/dev/ttyUSB0?kind=usb")};
    } else {
        throw FalscherAufruf{QStringLiteral("Unbekannter --port: %1").arg(port)};
    }
    return e;
}

void StderrBenutzer::meldung(const QString& titel, const QString& text, Symbol)
{
    std::fputs(qPrintable(titel + QStringLiteral(": ") + text + u'\n'), fehler_);
}

}  // namespace planor::cli
