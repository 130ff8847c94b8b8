// Benchmark: Prog_modul and Read_modul of an
// unchanged module against the in-process simulator on the wall clock, with
// the wire's time on: a receiver 47220 (LNCVs 2..119) and a universal block
// controller 47320 (LNCVs 2..459). For each run it prints the messages the
// program sent, the wall time, the lower bound the wire sets (all bytes on
// the bus × 0.6 ms + the modules' reaction time per answer), their ratio,
// and the CPU time the process used (getrusage). Any failure or error report
// ends with status 1.
//   planor-bench-programmieren [--ohne-drahtzeit]
// --ohne-drahtzeit: no wire time and no reaction time (the tests' smoke run).
#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"
#include "loconet/link.h"
#include "programmierung/programmierung.h"
#include "loconet/verbindung.h"
#include "platform/sim_transport.h"
#include "platform/simulator.h"
#include "platform/uhr.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <cstdio>
#include <cstring>

using namespace planor;

namespace {

struct StillerBenutzer final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol) override
    {
        std::fprintf(stderr, "%s: %s\n", qPrintable(titel), qPrintable(text));
    }
};

struct ZaehlendeFehlerAnzeige final : FehlerAnzeige {
    void zeigen(const QString& titel, const QString& text) override
    {
        std::fprintf(stderr, "%s\n%s\n", qPrintable(titel), qPrintable(text));
        ++anzahl;
    }
    int anzahl = 0;
};

struct StilleAnzeige final : ProgrammierAnzeige {
    void InfoTxt_anzeigen(int, const QString&) override { }
    bool frageOkAbbrechen(const QString&, const QString&) override { return true; }
    bool frageJaNein(const QString&, const QString&) override { return false; }
    void markieren(int, int) override { }
    void markierungAus() override { }
    void beschaeftigt(bool) override { }
    FehlerAntwort fehlerMeldung(const QString&) override { return FehlerAntwort::Abbruch; }
    bool zelleWaehlen(int&, int&) override { return false; }
};

struct KeineZellen final : Zellanzeige {
    void SetzeText(int, int) override { }
};

struct OffeneVerbindung final : LocoNetVerbindung {
    explicit OffeneVerbindung(LocoNetLink& l)
        : link(l)
    {
    }
    void open_com(Long& err) override { err = link.istOffen() ? 0 : 1; }
    bool istOffen() const override { return link.istOffen(); }
    LocoNetLink& link;
};

double cpuSekunden()
{
    rusage r {};
    getrusage(RUSAGE_SELF, &r);
    return double(r.ru_utime.tv_sec + r.ru_stime.tv_sec) + double(r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e6;
}

// What crossed the bus during one run.
struct Verkehr {
    int gesendet = 0; // messages of the program
    int antworten = 0; // messages of the modules
    long long bytes = 0;
    void zaehlen(const QByteArray& m)
    {
        bytes += m.size();
        // The program's LNCV messages carry source 0x08 in byte 2.
        if (m.size() == 15 && quint8(m.at(2)) == 0x08)
            ++gesendet;
        else
            ++antworten;
    }
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const bool ohneDraht = argc > 1 && std::strcmp(argv[1], "--ohne-drahtzeit") == 0;
    QTemporaryDir ordner;
    SystemUhr uhr;
    ZaehlendeFehlerAnzeige berichte;
    FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), &uhr, &berichte});

    Simulator sim(uhr);
    if (ohneDraht)
        sim.bus().zeiten = {false, 0.0};
    Verkehr verkehr;
    sim.bus().anschliessen([&verkehr](const QByteArray& m) { verkehr.zaehlen(m); });

    Anlage anlage;
    struct Modul {
        const char* name;
        int x, y;
        Long artNr, adresse;
    };
    const Modul module[] = {{"47220 (128 LNCVs)", 1, 1, 47220, 1}, {"47320 (460 LNCVs)", 2, 1, 47320, 100}};
    for (const Modul& m : module) {
        XY_Typ& z = anlage.XY(m.x, m.y);
        z.XY_ArtNr = m.artNr;
        z.XY_LNCV(0) = Integer(m.adresse);
        z.XY_SenX = m.x;
        z.XY_SenY = m.y;
        sim.modulHinzufuegen({m.artNr, m.adresse});
        SimModul& s = *sim.geraete().modul(m.artNr, m.adresse);
        // An unchanged module: it holds what the cell says.
        for (int i = 2; i <= LetzteLncv(m.artNr, 0); ++i) {
            if (i == NieGeschrieben(m.artNr))
                continue;
            const Integer wert = Integer((i * 37) % 1000);
            z.XY_LNCV(i) = wert;
            s.setzeLncv(i, quint16(wert));
        }
    }

    LocoNetLink link(uhr);
    link.setzeTransport(sim.transport());
    QString fehler;
    if (!link.transport()->oeffnen(fehler)) {
        std::fprintf(stderr, "%s\n", qPrintable(fehler));
        return 1;
    }
    Elementkatalog katalog;
    OffeneVerbindung verbindung(link);
    StillerBenutzer benutzer;
    KeineZellen zellen;
    StilleAnzeige anzeige;
    Programmierumgebung u {anlage, katalog, verbindung, link, benutzer, zellen, anzeige};

    const double reaktion = sim.bus().zeiten.reaktion;
    const double byteZeit = sim.bus().zeiten.drahtzeit ? SimBus::ByteZeit : 0.0;
    std::printf(
        "%-18s %-6s %9s %9s %11s %7s %9s\n", "Modul", "Lauf", "gesendet", "Wand ms", "Grenze ms", "Faktor", "CPU ms");
    bool gut = true;
    for (const Modul& m : module) {
        for (const bool lesen : {false, true}) {
            verkehr = {};
            const double cpu0 = cpuSekunden();
            QElapsedTimer wand;
            wand.start();
            Long err = 0, artikel = 0, adresse = 0;
            bool on = false;
            if (lesen)
                Read_modul(u, m.x, m.y, err, on, artikel, adresse);
            else
                Prog_modul(u, m.x, m.y, err, on, artikel, adresse);
            const double wandMs = double(wand.nsecsElapsed()) / 1e6;
            const double cpuMs = (cpuSekunden() - cpu0) * 1000;
            const double grenzeMs = (double(verkehr.bytes) * byteZeit + double(verkehr.antworten) * reaktion) * 1000;
            std::printf("%-18s %-6s %9d %9.0f %11.0f %7.2f %9.0f\n", m.name, lesen ? "lesen" : "prog.",
                verkehr.gesendet, wandMs, grenzeMs, grenzeMs > 0 ? wandMs / grenzeMs : 0.0, cpuMs);
            if (err != 0) {
                std::fprintf(stderr, "%s: err %ld\n", m.name, long(err));
                gut = false;
            }
        }
    }
    return gut && berichte.anzahl == 0 ? 0 : 1;
}
