#include "app/planor-cli/sim_befehl.h"

#include "app/planor-cli/argumente.h"
#include "app/planor-cli/cli.h"
#include "app/planor-cli/projekt_laden.h"
#include "app/planor-cli/signale.h"
#include "app/planor-cli/sim_lbserver.h"
#include "app/planor-cli/sim_pty.h"
#include "platform/sim_flut.h"
#include "platform/simulator.h"
#include "platform/uhr.h"

#include <QCoreApplication>

#include <optional>

namespace planor::cli {

namespace {

const char* const Aufruf =
    "Aufruf: planor-cli sim [--pty] [--tcp [ADRESSE:]PORT] [OPTIONEN]\n"
    "\n"
    "Der eingebaute LocoNet-Simulator: NAVIK/TOBRA-Module, Universalsteuerungen und eine Zentrale\n"
    "mit Magnetartikeln, bis Strg+C oder SIGTERM (dann wird die Zustandsdatei gespeichert).\n"
    "\n"
    "  --pty                    Pseudo-Terminal für Planors serielle Schnittstellen; gibt \"PTY <Pfad>\" aus\n"
    "  --tcp [ADRESSE:]PORT     LbServer (LocoNet over TCP) auf 127.0.0.1 oder ADRESSE; Port 0 wählt\n"
    "                           einen freien; gibt \"TCP <Port>\" aus\n"
    "  --layout PROJEKT.anl     je konfiguriertem Modul der Anlage ein Modul mit Werkswerten\n"
    "  --module ARTIKEL:ADRESSE[:VERSION]   ein Modul (wiederholbar); VERSION steht in LNCV 16\n"
    "  --state DATEI            Zustandsdatei: beim Start laden, bei Änderung und am Ende speichern\n"
    "  --wire-time on|off       Leitungszeit 0,6 ms je Byte (Vorgabe on)\n"
    "  --reaction-ms N          Reaktionszeit der Module in ms (Vorgabe 10)\n"
    "  --monitor                jede Busnachricht als \"BUS <Hex>\" ausgeben\n"
    "  --flood                  den Bus für Messungen mit Nachrichten füllen, so schnell er sie nimmt\n"
    "                           (nicht zusammen mit Störungen)\n"
    "Störungen (P ist eine Wahrscheinlichkeit von 0 bis 1):\n"
    "  --drop P  --corrupt P  --duplicate P   Nachrichten verwerfen, ein Byte verfälschen, doppeln\n"
    "  --delay-ms N [--delay P] Nachrichten um N ms verzögern (ohne --delay jede)\n"
    "  --seed N                 Startwert des Zufalls (Vorgabe 1)\n"
    "  --faults-answers-only    Störungen nur an den Antworten der simulierten Geräte\n"
    "  --refuse-writes          alle Module lehnen das Schreiben ab\n"
    "  --silent ARTIKEL:ADRESSE ein Modul antwortet nicht (wiederholbar)\n";

struct Optionen {
    bool pty = false;
    std::optional<std::pair<QHostAddress, quint16>> tcp;
    QString layout;
    std::vector<SimModulAngabe> module;
    QString zustand;
    SimZeiten zeiten;
    SimStoerungen stoerungen;
    quint32 saat = 1;
    bool verweigern = false;
    std::vector<std::pair<Long, Long>> stumm;
    bool monitor = false;
    bool flut = false;
};

std::pair<QHostAddress, quint16> tcpAngabe(const QString& wert)
{
    const qsizetype doppelpunkt = wert.lastIndexOf(u':');
    QHostAddress adresse(QHostAddress::LocalHost);
    if (doppelpunkt >= 0 && !adresse.setAddress(wert.left(doppelpunkt)))
        throw FalscherAufruf{QStringLiteral("--tcp: \"%1\" ist keine IP-Adresse.").arg(wert.left(doppelpunkt))};
    return {adresse, quint16(ganzzahl(QStringLiteral("--tcp"), wert.mid(doppelpunkt + 1), 0, 65535))};
}

Optionen lesen(const QStringList& argumente)
{
    Optionen o;
    for (qsizetype i = 0; i < argumente.size(); ++i) {
        const QString& a = argumente[i];
        auto wert = [&]() -> QString {
            if (i + 1 >= argumente.size())
                throw FalscherAufruf{QStringLiteral("%1 braucht einen Wert.").arg(a)};
            return argumente[++i];
        };
        if (a == u"--pty")
            o.pty = true;
        else if (a == u"--tcp")
            o.tcp = tcpAngabe(wert());
        else if (a == u"--layout")
            o.layout = wert();
        else if (a == u"--module")
            o.module.push_back(modulAngabe(a, wert(), true));
        else if (a == u"--state")
            o.zustand = wert();
        else if (a == u"--wire-time") {
            const QString w = wert();
            if (w != u"on" && w != u"off")
                throw FalscherAufruf{QStringLiteral("--wire-time erwartet on oder off, nicht \"%1\".").arg(w)};
            o.zeiten.drahtzeit = w == u"on";
        } else if (a == u"--reaction-ms")
            o.zeiten.reaktion = double(ganzzahl(a, wert(), 0, 60000)) / 1000;
        else if (a == u"--drop")
            o.stoerungen.verwerfen = wahrscheinlichkeit(a, wert());
        else if (a == u"--corrupt")
            o.stoerungen.verfaelschen = wahrscheinlichkeit(a, wert());
        else if (a == u"--duplicate")
            o.stoerungen.verdoppeln = wahrscheinlichkeit(a, wert());
        else if (a == u"--delay")
            o.stoerungen.verzoegern = wahrscheinlichkeit(a, wert());
        else if (a == u"--delay-ms") {
            o.stoerungen.verzoegerung = double(ganzzahl(a, wert(), 0, 60000)) / 1000;
            // Alone it delays every message; --delay gives a probability.
            if (o.stoerungen.verzoegern == 0)
                o.stoerungen.verzoegern = 1;
        } else if (a == u"--seed")
            o.saat = quint32(ganzzahl(a, wert(), 0, 4294967295LL));
        else if (a == u"--faults-answers-only")
            o.stoerungen.nurGeraete = true;
        else if (a == u"--refuse-writes")
            o.verweigern = true;
        else if (a == u"--silent") {
            const SimModulAngabe m = modulAngabe(a, wert(), false);
            o.stumm.emplace_back(m.artikel, m.adresse);
        } else if (a == u"--monitor")
            o.monitor = true;
        else if (a == u"--flood")
            o.flut = true;
        else
            throw FalscherAufruf{QStringLiteral("Unbekannte Option: %1").arg(a)};
    }
    if (!o.pty && !o.tcp)
        throw FalscherAufruf{QStringLiteral("Bitte --pty oder --tcp PORT angeben.")};
    const SimStoerungen& s = o.stoerungen;
    if (o.flut && (s.verwerfen > 0 || s.verfaelschen > 0 || s.verdoppeln > 0 || s.verzoegern > 0))
        throw FalscherAufruf{QStringLiteral("--flood geht nicht zusammen mit Störungen (--drop, --corrupt, "
                                            "--duplicate, --delay, --delay-ms).")};
    return o;
}

void text(std::FILE* ziel, const QString& t)
{
    std::fputs(t.toLocal8Bit().constData(), ziel);
    std::fflush(ziel);
}

}  // namespace

int sim(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    if (argumente.size() == 1 && (argumente[0] == u"--help" || argumente[0] == u"-h")) {
        text(aus, QString::fromUtf8(Aufruf));
        return Erfolg;
    }
    Optionen o;
    try {
        o = lesen(argumente);
    } catch (const FalscherAufruf& e) {
        text(fehler, e.text + QStringLiteral("\n\n") + QString::fromUtf8(Aufruf));
        return Aufruffehler;
    }

    std::vector<SimModulAngabe> module;
    if (!o.layout.isEmpty()) {
        ProjektLaden projekt(fehler);
        if (!projekt.laden(o.layout))
            return Fehler;
        module = SimModuleAusAnlage(projekt.anlage);
    }
    module.insert(module.end(), o.module.begin(), o.module.end());

    SystemUhr uhr;
    Simulator simulator(uhr);
    simulator.bus().zeiten = o.zeiten;
    simulator.bus().stoerung.einstellungen = o.stoerungen;
    simulator.bus().stoerung.saat(o.saat);
    for (const SimModulAngabe& m : module)
        simulator.modulHinzufuegen(m);
    SimGeraete& geraete = simulator.geraete();
    if (!o.zustand.isEmpty()) {
        geraete.setzeZustandsdatei(o.zustand);
        QString grund;
        if (!geraete.zustandLaden(grund)) {
            text(fehler, grund + u'\n');
            return Fehler;
        }
        QObject::connect(&geraete, &SimGeraete::speicherFehler,
                         [fehler](const QString& t) { text(fehler, t + u'\n'); });
    }
    for (const auto& [artikel, adresse] : o.stumm) {
        SimModul* m = geraete.modul(artikel, adresse);
        if (!m) {
            text(fehler, QStringLiteral("--silent: Es gibt kein simuliertes Modul %1:%2.\n").arg(artikel).arg(adresse));
            return Aufruffehler;
        }
        m->stumm = true;
    }
    for (const auto& m : geraete.module())
        m->schreibenVerweigern = o.verweigern;

    QObject wurzel;
    SimPty pty(simulator.bus());
    SimLbServer server(simulator.bus());
    QString grund;
    if (o.pty && !pty.oeffnen(grund)) {
        text(fehler, grund + u'\n');
        return Fehler;
    }
    if (o.tcp && !server.starten(o.tcp->first, o.tcp->second, grund)) {
        text(fehler, grund + u'\n');
        return Fehler;
    }
    if (!signaleUmleiten(&wurzel)) {
        text(fehler, QStringLiteral("Die Signale SIGINT und SIGTERM können nicht abgefangen werden.\n"));
        return Fehler;
    }
    if (o.pty)
        text(aus, QStringLiteral("PTY ") + pty.pfad() + u'\n');
    if (o.tcp)
        text(aus, QStringLiteral("TCP %1\n").arg(server.port()));
    if (o.monitor)
        QObject::connect(&simulator.bus(), &SimBus::nachricht,
                         [aus](const QByteArray& b) {
                             text(aus, "BUS " + QString::fromLatin1(b.toHex(' ').toUpper()) + u'\n');
                         });
    SimFlut flut(simulator.bus());
    if (o.flut)
        flut.starten();
    QStringList liste;
    for (const auto& m : geraete.module())
        liste << QStringLiteral("%1:%2").arg(m->artikel()).arg(m->adresse());
    text(fehler, QStringLiteral("Simulator läuft, Module: %1. Ende mit Strg+C.\n")
                     .arg(liste.isEmpty() ? QStringLiteral("keine") : liste.join(QStringLiteral(", "))));

    QCoreApplication::exec();

    if (!o.zustand.isEmpty() && !geraete.zustandSpeichern(grund)) {
        text(fehler, grund + u'\n');
        return Fehler;
    }
    return Erfolg;
}

}  // namespace planor::cli
