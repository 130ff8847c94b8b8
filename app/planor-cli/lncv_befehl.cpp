#include "app/planor-cli/lncv_befehl.h"

#include "app/planor-cli/argumente.h"
#include "app/planor-cli/bus_verbindung.h"
#include "app/planor-cli/cli.h"
#include "core/benutzer.h"
#include "core/panel_model.h"
#include "core/settings_file.h"
#include "loconet/lncv_austausch.h"
#include "loconet/nachricht.h"
#include "loconet/schnittstelle.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"

#include <optional>

namespace planor::cli {

namespace {

const char* const Aufruf =
    "Aufruf: planor-cli lncv read|write --article N --address A --lncv K [--value V] --port PORT\n"
    "                        [--module ARTIKEL:ADRESSE[:VERSION] ...]\n"
    "\n"
    "Eine LNCV-Sitzung mit einem Modul: Prog_On, ein Wert lesen oder schreiben, Prog_Off.\n"
    "  --article N   Artikelnummer (47220, 47320, 5330 ...; vierstellig: schon wie auf dem LocoNet)\n"
    "  --address A   Moduladresse (65535: jedes Modul des Artikels)\n"
    "  --lncv K      Nummer des Wertes\n"
    "  --value V     zu schreibender Wert 0..65535 (nur write)\n"
    "  --port PORT   serial:GERÄT?kind=usb|adapter|station, tcp:HOST:PORT oder sim\n"
    "  --module ...  bei --port sim: ein simuliertes Modul (wiederholbar)\n";

struct Auftrag {
    bool schreiben = false;
    Long artikel = -1, adresse = -1, lncv = -1, wert = -1;
    QString port;
    std::vector<SimModulAngabe> module;
};

Auftrag lesen(const QStringList& argumente)
{
    Auftrag a;
    if (argumente.isEmpty() || (argumente[0] != u"read" && argumente[0] != u"write"))
        throw FalscherAufruf{QStringLiteral("Erwartet wird \"read\" oder \"write\".")};
    a.schreiben = argumente[0] == u"write";
    for (qsizetype i = 1; i < argumente.size(); ++i) {
        const QString& o = argumente[i];
        if (i + 1 >= argumente.size())
            throw FalscherAufruf{QStringLiteral("%1 braucht einen Wert.").arg(o)};
        const QString w = argumente[++i];
        if (o == u"--article")
            a.artikel = Long(ganzzahl(o, w, 1, 99999));
        else if (o == u"--address")
            a.adresse = Long(ganzzahl(o, w, 0, 65535));
        else if (o == u"--lncv")
            a.lncv = Long(ganzzahl(o, w, 0, 65535));
        else if (o == u"--value")
            a.wert = Long(ganzzahl(o, w, 0, 65535));
        else if (o == u"--port")
            a.port = w;
        else if (o == u"--module")
            a.module.push_back(modulAngabe(o, w, true));
        else
            throw FalscherAufruf{QStringLiteral("Unbekannte Option: %1").arg(o)};
    }
    if (a.artikel < 0 || a.adresse < 0 || a.lncv < 0 || a.port.isEmpty())
        throw FalscherAufruf{QStringLiteral("--article, --address, --lncv und --port sind nötig.")};
    if (a.schreiben != (a.wert >= 0))
        throw FalscherAufruf{a.schreiben ? QStringLiteral("write braucht --value.")
                                         : QStringLiteral("--value gehört nur zu write.")};
    return a;
}

}  // namespace

int lncv(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    Auftrag a;
    Einstellungen e;
    if (!busAufruf([&] { return lesen(argumente); }, Aufruf, fehler, a, e))
        return Aufruffehler;

    BusVerbindung bus(e, a.module, fehler);
    Schnittstelle& schnittstelle = bus.schnittstelle;

    Long err = 0;
    schnittstelle.open_com(err);
    if (err != 0)
        return Fehler;
    LocoNetLink& link = schnittstelle.link();
    // A four-digit number is already the article as the bus knows it.
    const Long artikel = a.artikel >= 10000 ? DrahtArtikel(a.artikel) : a.artikel;
    Prog_On(link, artikel, a.adresse, err);
    if (err == ProgOK) {
        Long wert = 0;
        if (a.schreiben)
            Prog_Lncv(link, artikel, a.lncv, Unsig_to_Int(a.wert), err);
        else
            Read_Lncv(link, artikel, a.lncv, wert, err);
        Long ende = 0;
        Prog_Off(link, artikel, a.adresse, ende);
        if (err == ProgOK && !a.schreiben)
            std::fprintf(aus, "%d\n", int(wert));
    }
    const bool gesendet = schnittstelle.schliessen();
    if (err != ProgOK) {
        std::fputs(qPrintable(ProgFehlerText(err) + u'\n'), fehler);
        return Fehler;
    }
    return gesendet ? Erfolg : Fehler;
}

}  // namespace planor::cli
