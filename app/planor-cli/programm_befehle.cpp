#include "app/planor-cli/programm_befehle.h"

#include "app/planor-cli/argumente.h"
#include "app/planor-cli/bus_verbindung.h"
#include "app/planor-cli/cli.h"
#include "app/planor-cli/projekt_laden.h"
#include "core/zellanzeige.h"
#include "loconet/schnittstelle.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"
#include "programmierung/programmierung.h"

#include <QFileInfo>

#include <map>
#include <optional>
#include <utility>

namespace planor::cli {

namespace {

const char* const Aufruf
    = "Aufruf: planor-cli program PROJEKT.anl --port PORT [--cell X,Y] [--on-error ask|retry|skip|abort]\n"
      "        planor-cli read    PROJEKT.anl --port PORT [--cell X,Y] [--on-error ...] [--save]\n"
      "\n"
      "Alle Module der Anlage (oder eines mit --cell) programmieren bzw. auslesen.\n"
      "  --port PORT      serial:GERÄT?kind=usb|adapter|station, tcp:HOST:PORT oder sim\n"
      "                   (sim: die Module der Anlage mit Werkswerten, im Programm simuliert)\n"
      "  --cell X,Y       nur das Modul dieser Zelle (Spalte, Zeile)\n"
      "  --on-error ...   Antwort bei einem fehlerhaften Modul: retry = nochmal (höchstens 3-mal je\n"
      "                   Modul, dann nächstes), skip = nächstes Modul, abort = Abbruch (Vorgabe),\n"
      "                   ask = auf der Konsole fragen (n/0 nochmal, ä/1 nächstes, a/2 Abbruch)\n"
      "  --save           read: die Anlage danach an ihrem Ort speichern (nur wenn alles gelesen wurde)\n"
      "\n"
      "Rückgabewerte: 0 alle Module erfolgreich, 1 Fehler, 2 falscher Aufruf.\n";

enum class BeiFehler { Fragen, Nochmal, Naechstes, Abbruch };

struct Auftrag {
    QString projekt;
    QString port;
    std::optional<std::pair<int, int>> zelle;
    BeiFehler beiFehler = BeiFehler::Abbruch;
    bool speichern = false;
};

Auftrag lesen(const QStringList& argumente, bool auslesen)
{
    Auftrag a;
    for (qsizetype i = 0; i < argumente.size(); ++i) {
        const QString& o = argumente[i];
        if (!o.startsWith(QStringLiteral("--"))) {
            if (!a.projekt.isEmpty())
                throw FalscherAufruf {QStringLiteral("Nur eine Anlage: \"%1\" ist zu viel.").arg(o)};
            a.projekt = o;
            continue;
        }
        if (o == u"--save") {
            if (!auslesen)
                throw FalscherAufruf {QStringLiteral("--save gehört nur zu read.")};
            a.speichern = true;
            continue;
        }
        if (i + 1 >= argumente.size())
            throw FalscherAufruf {QStringLiteral("%1 braucht einen Wert.").arg(o)};
        const QString w = argumente[++i];
        if (o == u"--port") {
            a.port = w;
        } else if (o == u"--cell") {
            const QStringList teile = w.split(u',');
            if (teile.size() != 2)
                throw FalscherAufruf {QStringLiteral("--cell erwartet X,Y, nicht \"%1\".").arg(w)};
            a.zelle
                = std::pair {int(ganzzahl(o, teile[0].trimmed(), 1, 99)), int(ganzzahl(o, teile[1].trimmed(), 1, 99))};
        } else if (o == u"--on-error") {
            if (w == u"ask")
                a.beiFehler = BeiFehler::Fragen;
            else if (w == u"retry")
                a.beiFehler = BeiFehler::Nochmal;
            else if (w == u"skip")
                a.beiFehler = BeiFehler::Naechstes;
            else if (w == u"abort")
                a.beiFehler = BeiFehler::Abbruch;
            else
                throw FalscherAufruf {
                    QStringLiteral("--on-error erwartet ask, retry, skip oder abort, nicht \"%1\".").arg(w)};
        } else {
            throw FalscherAufruf {QStringLiteral("Unbekannte Option: %1").arg(o)};
        }
    }
    if (a.projekt.isEmpty() || a.port.isEmpty())
        throw FalscherAufruf {QStringLiteral("PROJEKT.anl und --port sind nötig.")};
    return a;
}

void zeile(std::FILE* ziel, const QString& text)
{
    std::fputs(qPrintable(text + u'\n'), ziel);
    std::fflush(ziel);
}

// The user of a bulk run on a console.
class KonsolenAnzeige final : public ProgrammierAnzeige {
public:
    KonsolenAnzeige(const Auftrag& auftrag, std::FILE* aus)
        : auftrag_(auftrag)
        , aus_(aus)
    {
    }

    void InfoTxt_anzeigen(int, const QString& text) override
    {
        if (!text.isEmpty())
            zeile(aus_, text);
    }
    bool frageOkAbbrechen(const QString&, const QString&) override { return true; }
    // Read_einzeln's "Soll die Auswahl abgebrochen werden?": yes.
    bool frageJaNein(const QString&, const QString&) override { return true; }
    void markieren(int x, int y) override { modul_ = {x, y}; }
    void markierungAus() override { }
    void beschaeftigt(bool) override { }
    FehlerAntwort fehlerMeldung(const QString&) override
    {
        switch (auftrag_.beiFehler) {
        case BeiFehler::Nochmal:
            if (++versuche_[modul_] <= RetryGrenze)
                return FehlerAntwort::Nochmal;
            zeile(aus_, QStringLiteral("Aufgegeben nach %1 Wiederholungen").arg(RetryGrenze));
            return FehlerAntwort::Naechstes;
        case BeiFehler::Naechstes:
            return FehlerAntwort::Naechstes;
        case BeiFehler::Abbruch:
            return FehlerAntwort::Abbruch;
        case BeiFehler::Fragen:
            return fragen();
        }
        return FehlerAntwort::Abbruch;
    }
    // The pick is the --cell; a second pick (a cell without module) gives up.
    bool zelleWaehlen(int& x, int& y) override
    {
        if (gewaehlt_ || !auftrag_.zelle)
            return false;
        gewaehlt_ = true;
        x = auftrag_.zelle->first;
        y = auftrag_.zelle->second;
        return true;
    }
    void fortschritt(int n, int m) override { zeile(aus_, QStringLiteral("Modul %1 von %2").arg(n).arg(m)); }

private:
    FehlerAntwort fragen()
    {
        for (;;) {
            std::fputs(qPrintable(QStringLiteral("nochmal (n), nächstes Modul (ä) oder Abbruch (a)? ")), aus_);
            std::fflush(aus_);
            char puffer[64];
            if (!std::fgets(puffer, sizeof puffer, stdin))
                return FehlerAntwort::Abbruch;
            int antwort = 0;
            if (fehlerAntwortLesen(QString::fromLocal8Bit(puffer), antwort))
                return FehlerAntwort(antwort);
        }
    }

    const Auftrag& auftrag_;
    std::FILE* aus_;
    std::pair<int, int> modul_ {0, 0};
    std::map<std::pair<int, int>, int> versuche_;
    bool gewaehlt_ = false;
};

struct KeineZellanzeige final : Zellanzeige {
    void SetzeText(int, int) override { }
};

int bulk(const QStringList& argumente, std::FILE* aus, std::FILE* fehler, bool auslesen)
{
    Auftrag a;
    Einstellungen e;
    if (!busAufruf([&] { return lesen(argumente, auslesen); }, Aufruf, fehler, a, e))
        return Aufruffehler;

    ProjektLaden projekt(fehler);
    if (!projekt.laden(a.projekt))
        return Fehler;
    Anlage& anlage = projekt.anlage;
    if (a.zelle) {
        const auto [x, y] = *a.zelle;
        if (x > anlage.DimensionenX || y > anlage.DimensionenY || anlage.XY(x, y).XY_ArtNr == 0) {
            zeile(fehler, QStringLiteral("In Zelle %1,%2 ist kein Modul.").arg(x).arg(y));
            return Fehler;
        }
    }

    // With the simulation the modules are the project's, at factory values.
    BusVerbindung bus(e, e.Verbindung == Verbindungsart::Simulation ? SimModuleAusAnlage(anlage)
                                                                     : std::vector<SimModulAngabe>{},
                      fehler);
    Schnittstelle& schnittstelle = bus.schnittstelle;
    StderrBenutzer& benutzer = bus.benutzer;

    KonsolenAnzeige anzeige(a, aus);
    KeineZellanzeige zellen;
    Programmierumgebung u {anlage, projekt.katalog, schnittstelle, schnittstelle.link(), benutzer, zellen, anzeige};
    bool gut = false;
    if (auslesen)
        gut = a.zelle ? Read_einzeln(u) : Read_all(u);
    else
        gut = a.zelle ? Prog_einzeln(u) : Prog_all(u);
    const bool gesendet = schnittstelle.schliessen();

    if (a.speichern) {
        if (!gut) {
            zeile(fehler, QStringLiteral("Nicht alle Module wurden gelesen: die Anlage wird nicht gespeichert."));
            return Fehler;
        }
        if (!projekt.speichernNach(QFileInfo(a.projekt).absolutePath()))
            return Fehler;
    }
    return gut && gesendet ? Erfolg : Fehler;
}

} // namespace

bool fehlerAntwortLesen(const QString& zeile, int& antwort)
{
    const QString w = zeile.trimmed().toLower();
    if (w == u"n" || w == u"0" || w == u"nochmal")
        antwort = int(FehlerAntwort::Nochmal);
    else if (w == u"ä" || w == u"ae" || w == u"1" || w == u"nächstes" || w == u"naechstes")
        antwort = int(FehlerAntwort::Naechstes);
    else if (w == u"a" || w == u"2" || w == u"abbruch")
        antwort = int(FehlerAntwort::Abbruch);
    else
        return false;
    return true;
}

int program(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    return bulk(argumente, aus, fehler, false);
}

int read(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    return bulk(argumente, aus, fehler, true);
}

} // namespace planor::cli
