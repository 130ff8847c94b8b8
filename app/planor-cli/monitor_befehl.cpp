#include "app/planor-cli/monitor_befehl.h"

#include "app/planor-cli/argumente.h"
#include "app/planor-cli/bus_verbindung.h"
#include "app/planor-cli/cli.h"
#include "app/planor-cli/signale.h"
#include "loconet/link.h"
#include "loconet/monitor_text.h"
#include "loconet/monitor_verlauf.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

namespace planor::cli {

namespace {

const char* const Aufruf =
    "Aufruf: planor-cli monitor --port PORT [--hex] [--ascii-hex] [--trace DATEI]\n"
    "\n"
    "Der LocoNet-Monitor ohne Fenster: jede Nachricht auf dem Bus als Text, eine Zeile je Zeile\n"
    "des Monitors (Texte über 80 Zeichen umbrochen), bis Strg+C oder SIGTERM.\n"
    "  --port PORT    serial:GERÄT?kind=usb|adapter|station, tcp:HOST:PORT oder sim\n"
    "  --hex          nur hexadezimale Ausgabe (\"HEX Ausgabe\")\n"
    "  --ascii-hex    unbekannte Nachrichten hexadezimal zeigen (\"ASCII+HEX\")\n"
    "  --trace DATEI  den Verlauf auch in DATEI speichern: je Text eine Zeile mit der Uhrzeit\n"
    "                 in Sekunden (Windows-1252, CR LF)\n";

struct Auftrag {
    QString port;
    bool hex = false;
    bool asciiHex = false;
    QString verlauf;
};

Auftrag lesen(const QStringList& argumente)
{
    Auftrag a;
    for (qsizetype i = 0; i < argumente.size(); ++i) {
        const QString& o = argumente[i];
        auto wert = [&]() -> QString {
            if (i + 1 >= argumente.size())
                throw FalscherAufruf{QStringLiteral("%1 braucht einen Wert.").arg(o)};
            return argumente[++i];
        };
        if (o == u"--port")
            a.port = wert();
        else if (o == u"--hex")
            a.hex = true;
        else if (o == u"--ascii-hex")
            a.asciiHex = true;
        else if (o == u"--trace") {
            a.verlauf = wert();
            if (a.verlauf.isEmpty())
                throw FalscherAufruf{QStringLiteral("--trace braucht einen Dateinamen.")};
        }
        else
            throw FalscherAufruf{QStringLiteral("Unbekannte Option: %1").arg(o)};
    }
    if (a.port.isEmpty())
        throw FalscherAufruf{QStringLiteral("--port ist nötig.")};
    return a;
}

void text(std::FILE* ziel, const QString& t)
{
    std::fputs(t.toLocal8Bit().constData(), ziel);
    std::fflush(ziel);
}

}  // namespace

int monitor(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    if (argumente.size() == 1 && (argumente[0] == u"--help" || argumente[0] == u"-h")) {
        text(aus, QString::fromUtf8(Aufruf));
        return Erfolg;
    }
    Auftrag a;
    Einstellungen e;
    if (!busAufruf([&] { return lesen(argumente); }, Aufruf, fehler, a, e))
        return Aufruffehler;

    // The signals first, so that Ctrl+C while a command station is talked
    // into LocoNet mode ends the run as cleanly as later.
    QObject wurzel;
    if (!signaleUmleiten(&wurzel)) {
        text(fehler, QStringLiteral("Die Signale SIGINT und SIGTERM können nicht abgefangen werden.\n"));
        return Fehler;
    }
    // The port before the trace: a port that cannot be opened leaves no empty trace behind.
    BusVerbindung bus(e, {}, fehler);
    Long err = 0;
    bus.schnittstelle.open_com(err);
    if (err != 0)
        return Fehler;  // open_com has said why
    MonitorVerlauf verlauf;
    QString grund;
    if (!a.verlauf.isEmpty() && !verlauf.oeffnen(QFileInfo(a.verlauf).absoluteFilePath(), grund)) {
        text(fehler, grund + u'\n');
        return Fehler;
    }

    LocoNetLink& link = bus.schnittstelle.link();
    Empfang& empfang = link.empfang();
    MonitorZustand zustand;
    zustand.Hex_Ausgabe = a.hex;
    zustand.Ascii_Hex = a.asciiHex;
    // A run-time failure ends the run with status 1, once.
    auto beenden = [&](const QString& warum) {
        if (!empfang.Monitor_Aktiv)
            return;
        empfang.Monitor_Aktiv = false;
        text(fehler, warum + u'\n');
        QCoreApplication::exit(Fehler);
    };
    // decode_ln_mes up to the trace: the lines as the view gets them,
    // each flushed so that a pipe sees it at once; the text whole in the trace.
    empfang.decode_ln_mes = [&](const QByteArray& nachricht) {
        const QString t = decode_ln_mes(zustand, nachricht);
        for (const QString& zeile : MonitorZeilen(zustand.Hex_Ausgabe, t)) {
            std::fputs((zeile + u'\n').toLocal8Bit().constData(), aus);
            if (std::fflush(aus) != 0 || std::ferror(aus))
                return beenden(QStringLiteral("Die Ausgabe kann nicht geschrieben werden: %1")
                                   .arg(QString::fromLocal8Bit(std::strerror(errno))));
        }
        verlauf.zeile(bus.uhr.jetzt().time(), t);
    };
    empfang.Monitor_Aktiv = true;
    QObject::connect(&link, &LocoNetLink::verloren, &wurzel, beenden);

    text(fehler, QStringLiteral("LocoNet-Monitor läuft an %1. Ende mit Strg+C.\n").arg(a.port));
    if (verlauf.offen())
        text(fehler, QStringLiteral("Speichern: ") + verlauf.pfad() + u'\n');

    const int status = QCoreApplication::exec();

    empfang.Monitor_Aktiv = false;
    bus.schnittstelle.schliessen();
    if (verlauf.offen()) {
        const QString pfad = verlauf.pfad();
        verlauf.schliessen();
        text(fehler, QStringLiteral("Gespeichert unter: ") + pfad + u'\n');
    }
    return status;
}

}  // namespace planor::cli
