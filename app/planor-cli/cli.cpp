#include "app/planor-cli/cli.h"

#include "app/planor-cli/projekt_befehle.h"
#include "app/planor-cli/decode_befehl.h"
#include "app/planor-cli/init_befehl.h"
#include "app/planor-cli/lncv_befehl.h"
#include "app/planor-cli/monitor_befehl.h"
#include "app/planor-cli/programm_befehle.h"
#include "app/planor-cli/sim_befehl.h"
#include "core/version.h"

namespace planor::cli {

namespace {

void schreiben(std::FILE* ziel, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), ziel);
}

QString hilfe()
{
    return QStringLiteral(
        "Aufruf: planor-cli BEFEHL [ARGUMENTE]\n"
        "\n"
        "NAVIK/TOBRA-Planor ohne Fenster: Programmieren, Auslesen, Monitor und Dateiwerkzeuge.\n"
        "\n"
        "Befehle:\n"
        "  --help                          diese Übersicht\n"
        "  --version                       die Programmversion\n"
        "  info PROJEKT.anl                Abmessungen, Grundeinstellungen, Module, Bahnhöfe und\n"
        "                                  Fahrstraßen der Anlage, eine je Zeile\n"
        "  resave PROJEKT.anl ZIELORDNER   lädt die Anlage und speichert sie mit ihren .lcv-Dateien\n"
        "                                  unter gleichem Namen im Zielordner\n"
        "  lncv read|write --article N --address A --lncv K [--value V] --port PORT\n"
        "                                  eine LNCV eines Moduls lesen oder schreiben; PORT:\n"
        "                                  serial:GERÄT?kind=usb|adapter|station, tcp:HOST:PORT, sim\n"
        "  program PROJEKT.anl --port PORT [--cell X,Y] [--on-error ask|retry|skip|abort]\n"
        "                                  alle Module der Anlage (oder eines) programmieren\n"
        "  read PROJEKT.anl --port PORT [--cell X,Y] [--on-error ...] [--save]\n"
        "                                  alle Module (oder eines) auslesen, mit --save speichern\n"
        "  init --article N --address A [--address2 B] --sensors single|double --port PORT\n"
        "                                  Modul initialisieren: das einzige Modul des Artikels am\n"
        "                                  LocoNet bekommt eine neue Adresse und wird gelöscht\n"
        "  sim [--pty] [--tcp PORT] [...]  der eingebaute LocoNet-Simulator mit NAVIK/TOBRA-Modulen und\n"
        "                                  Zentrale, bis Strg+C; \"planor-cli sim --help\" zeigt die Optionen\n"
        "  decode [--hex] [--ascii-hex] HEX...\n"
        "                                  LocoNet-Nachrichten (Bytes mit Prüfsumme) als Text des\n"
        "                                  LocoNet-Monitors, eine Zeile je Text\n"
        "  monitor --port PORT [--hex] [--ascii-hex] [--trace DATEI]\n"
        "                                  der LocoNet-Monitor: jede Nachricht auf dem Bus als Text,\n"
        "                                  bis Strg+C\n"
        "\n"
        "Rückgabewerte: 0 Erfolg, 1 Fehler (Fehlerbericht auf stderr), 2 falscher Aufruf.\n");
}

}  // namespace

int ausfuehren(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    const QString befehl = argumente.value(0);
    if (befehl == u"--version" && argumente.size() == 1) {
        schreiben(aus, Version() + u'\n');
        return Erfolg;
    }
    if ((befehl == u"--help" || befehl == u"-h") && argumente.size() == 1) {
        schreiben(aus, hilfe());
        return Erfolg;
    }
    if (befehl == u"info")
        return info(argumente.mid(1), aus, fehler);
    if (befehl == u"resave")
        return resave(argumente.mid(1), aus, fehler);
    if (befehl == u"lncv")
        return lncv(argumente.mid(1), aus, fehler);
    if (befehl == u"program")
        return program(argumente.mid(1), aus, fehler);
    if (befehl == u"read")
        return read(argumente.mid(1), aus, fehler);
    if (befehl == u"init")
        return init(argumente.mid(1), aus, fehler);
    if (befehl == u"decode")
        return decode(argumente.mid(1), aus, fehler);
    if (befehl == u"monitor")
        return monitor(argumente.mid(1), aus, fehler);
    if (befehl == u"sim")
        return sim(argumente.mid(1), aus, fehler);
    schreiben(fehler, befehl.isEmpty() ? QStringLiteral("Kein Befehl angegeben.\n\n")
                                        : QStringLiteral("Unbekannter Befehl: ") + argumente.join(u' ') + QStringLiteral("\n\n"));
    schreiben(fehler, hilfe());
    return Aufruffehler;
}

}  // namespace planor::cli
