#include "app/planor-cli/init_befehl.h"

#include "app/planor-cli/argumente.h"
#include "app/planor-cli/bus_verbindung.h"
#include "app/planor-cli/cli.h"
#include "core/settings_file.h"
#include "loconet/lncv_austausch.h"
#include "loconet/nav_init.h"
#include "loconet/schnittstelle.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"

#include <optional>

namespace planor::cli {

namespace {

const char* const Aufruf =
    "Aufruf: planor-cli init --article N --address A [--address2 B] --sensors single|double --port PORT\n"
    "                        [--module ARTIKEL:ADRESSE[:VERSION] ...]\n"
    "\n"
    "Modul initialisieren: das einzige Modul des Artikels am LocoNet bekommt eine neue Adresse\n"
    "und wird gelöscht (Sitzung mit der Adresse 65535).\n"
    "  --article N    5330, 47120, 47220, 47230, 47240, 47320 oder 47330\n"
    "  --address A    Moduladresse 1 (1..4095)\n"
    "  --address2 B   Moduladresse 2 (bei --sensors single nötig)\n"
    "  --sensors ...  single: zwei einzelne Sensoren, double: ein Doppel-Sensor\n"
    "                 (entfällt bei 47320 und 47330)\n"
    "  --port PORT    serial:GERÄT?kind=usb|adapter|station, tcp:HOST:PORT oder sim\n"
    "  --module ...   bei --port sim: ein simuliertes Modul (wiederholbar)\n";

struct Auftrag {
    NavInitForm form;
    QString port;
    std::vector<SimModulAngabe> module;
};

Auftrag lesen(const QStringList& argumente)
{
    Auftrag a;
    NavInit_Form_Load(a.form);
    QString artikel;
    for (qsizetype i = 0; i < argumente.size(); ++i) {
        const QString& o = argumente[i];
        if (i + 1 >= argumente.size())
            throw FalscherAufruf{QStringLiteral("%1 braucht einen Wert.").arg(o)};
        const QString w = argumente[++i];
        if (o == u"--article")
            artikel = w;
        else if (o == u"--address")
            a.form.adr1 = w;
        else if (o == u"--address2")
            a.form.adr2 = w;
        else if (o == u"--sensors" && (w == u"single" || w == u"double"))
            NavInit_SenOpt_Click(a.form, w == u"single" ? 0 : 1);
        else if (o == u"--sensors")
            throw FalscherAufruf{QStringLiteral("--sensors erwartet single oder double, nicht \"%1\".").arg(w)};
        else if (o == u"--port")
            a.port = w;
        else if (o == u"--module")
            a.module.push_back(modulAngabe(o, w, true));
        else
            throw FalscherAufruf{QStringLiteral("Unbekannte Option: %1").arg(o)};
    }
    const int index = int(a.form.artikelListe.indexOf(artikel));
    if (index < 0)
        throw FalscherAufruf{QStringLiteral("--article: eine von %1 erwartet.").arg(a.form.artikelListe.join(u", "))};
    NavInit_ArtNrCb_Click(a.form, index);
    if (a.port.isEmpty())
        throw FalscherAufruf{QStringLiteral("--port ist nötig.")};
    return a;
}

// The question is answered yes; status and progress as lines on stdout.
class CliAnzeige final : public NavInitAnzeige {
public:
    explicit CliAnzeige(std::FILE* aus) : aus_(aus) {}
    bool frageJaNein(const QString& titel, const QString& text) override
    {
        zeile(titel + QStringLiteral(" ") + text + QStringLiteral("? ja"));
        return true;
    }
    void fortschritt(double, const QString& text) override
    {
        // One line per new whole percent, so that the log stays short.
        if (text != letzter_)
            zeile(text);
        letzter_ = text;
    }
    void zeile(const QString& text)
    {
        std::fputs(qPrintable(text + u'\n'), aus_);
        std::fflush(aus_);
    }

private:
    std::FILE* aus_;
    QString letzter_;
};

}  // namespace

int init(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    Auftrag a;
    Einstellungen e;
    if (!busAufruf([&] { return lesen(argumente); }, Aufruf, fehler, a, e))
        return Aufruffehler;

    CliAnzeige anzeige(aus);
    BusVerbindung bus(e, a.module, fehler, [&anzeige](int, const QString& text) { anzeige.zeile(text); });
    Schnittstelle& schnittstelle = bus.schnittstelle;
    StderrBenutzer& benutzer = bus.benutzer;

    anzeige.zeile(NavInitTitel + QStringLiteral(": ") + a.form.artikelListe.value(a.form.artikelIndex));
    Long code = 0;
    const NavInitErgebnis ergebnis =
        NavInit_OK_But_Click(a.form, schnittstelle, schnittstelle.link(), benutzer, anzeige, &code);
    // The menu frame's part: the port is closed after the form. A module
    // whose Prog_Off did not go out may not have kept its new values.
    const bool gesendet = schnittstelle.schliessen();
    if (ergebnis != NavInitErgebnis::Geschrieben || !gesendet)
        return Fehler;
    anzeige.zeile(QStringLiteral("Modul initialisiert."));
    return Erfolg;
}

}  // namespace planor::cli
