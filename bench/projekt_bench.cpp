// Benchmark: Save_plt and Load_plt of a full 99×99 project with
// the real catalogue: track in every cell, 200 receiver modules with 128
// values each (200 side files), turnouts, stations and routes.
// Prints the minimum and the median of each in ms; a load that does not give
// back the saved project, or any error report, ends with status 1.
//   planor-bench-projekt [Wiederholungen] [KT_Conf-Ordner]
#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/programmordner.h"
#include "core/project_file.h"
#include "editor/pult_editor.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

using namespace planor;

namespace {

constexpr int Empfaenger = 200;
constexpr int Weichen = 400;
constexpr int Bahnhoefe = 5;
constexpr int Fahrstrassen = 40;

struct StillerBenutzer final : Benutzer {
    void meldung(const QString&, const QString&, Symbol) override {}
};

// Error reports go to stderr and are counted: the benchmark must run clean.
struct ZaehlendeFehlerAnzeige final : FehlerAnzeige {
    void zeigen(const QString& titel, const QString& text) override
    {
        std::fprintf(stderr, "%s\n%s\n", qPrintable(titel), qPrintable(text));
        ++anzahl;
    }
    int anzahl = 0;
};

// What the main window shows while saving and loading: here nothing, but the
// texts are still built, as they are for the status line.
class BenchAnzeige final : public ProjektAnzeige {
public:
    explicit BenchAnzeige(Anlage& anlage) : anlage_(anlage) {}
    void InfoTxt_anzeigen(int, const QString&) override {}
    bool pultNeuSetzen() const override { return neuSetzen_; }
    void neues_pult_setzen() override
    {
        neuSetzen_ = false;
        anlage_.neues_pult_setzen();
    }
    bool elementLoeschen(const QString&, const QString& text) override
    {
        std::fprintf(stderr, "Seitendatei fehlt: %s\n", qPrintable(text));
        ++fehlendeSeitendateien;
        return false;
    }
    int fehlendeSeitendateien = 0;

private:
    Anlage& anlage_;
    bool neuSetzen_ = true;
};

// Places an element as a click with it chosen would.
void setzen(PultEditor& editor, int x, int y, int index)
{
    editor.setzeAktuell(x, y);
    editor.SetzePultElement(index);
}

void projektBauen(Anlage& anlage, const Elementkatalog& katalog, PultEditor& editor)
{
    anlage.DimensionenX = anlage.DimensionenY = MaxDimension;
    anlage.neues_pult_setzen();
    const int gleis = katalog.indexVonTyp(9), weiche = katalog.indexVonTyp(101),
              empfaenger = katalog.indexVonTyp(800);
    for (int x = 1; x <= MaxDimension; ++x)
        for (int y = 1; y <= MaxDimension; ++y)
            setzen(editor, x, y, gleis);

    // Receivers on every fifth row, every second column from the third.
    for (int k = 0; k < Empfaenger; ++k) {
        const int x = 3 + 2 * (k % 48), y = 5 + 5 * (k / 48);
        setzen(editor, x, y, empfaenger);
        XY_Typ& z = anlage.XY(x, y);
        z.XY_ArtNr = 47220;
        z.XY_BETR = static_cast<Integer>(k % 11);
        z.XY_Version = static_cast<Integer>(1 + k % 3);
        z.XY_LNCV(0) = static_cast<Integer>(100 + k);
        for (int i = 1; i < 128; ++i) {
            // Small settings, addresses, and now and then a full 16-bit value.
            const int art = (i + k) % 7;
            const int wert = art == 0 ? (k * 7919 + i * 104729) % 65536 - 32768
                             : art < 3 ? (k + i) % 4 : art < 5 ? (k * 13 + i) % 2048 : 0;
            z.XY_LNCV(i) = static_cast<Integer>(wert);
        }
    }

    // Turnouts with addresses on the rows between.
    for (int k = 0; k < Weichen; ++k) {
        const int x = 2 + k % 97, y = 2 + 5 * (k / 97);
        setzen(editor, x, y, weiche);
        anlage.XY(x, y).XY_ADR1 = static_cast<Integer>(1 + k);
        if (k % 3 == 0)
            anlage.XY(x, y).XY_STATTAUSCH1 = 1;
    }

    anlage.Bhf_Anz = Bahnhoefe;
    for (int i = 1; i <= Bahnhoefe; ++i) {
        Bhf_Typ& b = anlage.Bhf(i);
        b.Bhf_Name = QStringLiteral(" Bahnhof %1").arg(i);
        b.Bhf_EinfX = static_cast<Integer>(3 + 2 * i);
        b.Bhf_EinfY = 5;
        b.Bhf_AusfX = static_cast<Integer>(5 + 2 * i);
        b.Bhf_AusfY = 5;
        b.Bhf_Adr = static_cast<Integer>(i);
        b.Bhf_Art = 1;
        for (int g = 1; g <= MaxGleis; ++g) {
            b.Bhf_GleisX(g) = static_cast<Integer>(g);
            b.Bhf_GleisY(g) = static_cast<Integer>(10 + i);
            b.Bhf_EinfFS(g) = static_cast<Integer>((i - 1) * 8 + g % 8 + 1);
        }
    }
    for (int i = 1; i <= Fahrstrassen; ++i) {
        FS_Typ& fs = anlage.FS(i);
        fs.FS_Name = QStringLiteral(" Fahrstraße %1").arg(i);
        fs.FS_Nummer = static_cast<Integer>(i);
        fs.FS_Art = static_cast<Integer>(i % 3);
        fs.FS_Mag = 120;
        for (int j = 0; j < 12; ++j)
            fs.FS_MagBfl(j) = QStringLiteral("W%1 %2").arg(1 + (i * 12 + j) % Weichen).arg(j % 2 ? u'r' : u'g');
    }
}

// Whether the loaded project is the saved one. The cells are compared as
// written (XY_BlkMeld is not saved) and by their values; stations and routes as records, since a
// name comes back with one more leading blank at each load.
bool gleichGeladen(const Anlage& alt, const Anlage& neu, const Elementkatalog& katalog, const QDate& datum)
{
    auto zellen = [&](const Anlage& a) {
        const QByteArray anl = Save_plt_bytes(a, katalog, a.File, datum).anl;
        return anl.left(anl.indexOf("Bhf_Anz:"));
    };
    if (zellen(alt) != zellen(neu) || alt.Bhf_Anz != neu.Bhf_Anz)
        return false;
    // The modules' values come back from the side files.
    for (int x = 1; x <= MaxDimension; ++x)
        for (int y = 1; y <= MaxDimension; ++y)
            if (!(alt.XY(x, y).XY_LNCV == neu.XY(x, y).XY_LNCV))
                return false;
    for (int i = 1; i <= MaxBhf; ++i) {
        Bhf_Typ b = alt.Bhf(i);
        if (!b.Bhf_Name.isEmpty())
            b.Bhf_Name.prepend(u' ');
        if (!(b == neu.Bhf(i)))
            return false;
    }
    for (int i = 1; i <= MaxFS; ++i) {
        FS_Typ fs = alt.FS(i);
        if (fs.FS_Nummer != 0)
            fs.FS_Name.prepend(u' ');
        if (!(fs == neu.FS(i)))
            return false;
    }
    return true;
}

struct Zeiten {
    double min = 0, median = 0;
};

Zeiten auswerten(std::vector<double> ms)
{
    std::sort(ms.begin(), ms.end());
    const std::size_t n = ms.size();
    return {ms.front(), n % 2 ? ms[n / 2] : (ms[n / 2 - 1] + ms[n / 2]) / 2};
}

}  // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int wiederholungen = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const QString konfPfad = argc > 2 ? QString::fromLocal8Bit(argv[2]) + u'/' : KonfPfad();

    QTemporaryDir ordner;
    if (!ordner.isValid()) {
        std::fprintf(stderr, "Kein temporärer Ordner\n");
        return 1;
    }
    ZaehlendeFehlerAnzeige berichte;
    FehlerbehandlungEinrichten({ordner.filePath(QStringLiteral("Fehler.log")), nullptr, &berichte});

    Anlage anlage;
    Elementkatalog katalog;
    try {
        Elemente_laden(konfPfad + QStringLiteral("Elemente.cfg"), katalog, anlage);
    } catch (const Laufzeitfehler& f) {
        std::fprintf(stderr, "Elemente.cfg: %s\n", qPrintable(f.beschreibung()));
        return 1;
    }
    StillerBenutzer benutzer;
    PultEditor editor(anlage, katalog, benutzer);
    projektBauen(anlage, katalog, editor);
    anlage.Pfad = ordner.path() + u'/';
    anlage.File = QStringLiteral("Bench.anl");
    const QDate datum(2026, 11, 21);

    std::vector<double> speichern, bytes, laden;
    bool gleich = true;
    int fehlend = 0;
    try {
        for (int r = 0; r < wiederholungen; ++r) {
            BenchAnzeige anzeige(anlage);
            QElapsedTimer uhr;
            uhr.start();
            Save_plt(anlage, katalog, anzeige);
            speichern.push_back(uhr.nsecsElapsed() / 1e6);
            // The text alone, without the 201 files: what the disk costs shows.
            uhr.restart();
            Save_plt_bytes(anlage, katalog, anlage.File, datum, &anzeige);
            bytes.push_back(uhr.nsecsElapsed() / 1e6);

            // A fresh project, as "Anlage laden" reads into; its set-up is not timed.
            const auto neu = std::make_unique<Anlage>();
            neu->setzeLeerElement(katalog.LeerIndex);
            neu->Pfad = anlage.Pfad;
            neu->File = anlage.File;
            Elementkatalog neuerKatalog = katalog;
            PultEditor neuerEditor(*neu, neuerKatalog, benutzer);
            BenchAnzeige neueAnzeige(*neu);
            uhr.restart();
            Load_plt(*neu, neuerKatalog, neuerEditor, neueAnzeige);
            laden.push_back(uhr.nsecsElapsed() / 1e6);

            fehlend += neueAnzeige.fehlendeSeitendateien;
            gleich = gleich && gleichGeladen(anlage, *neu, katalog, datum);
        }
    } catch (const Laufzeitfehler& f) {
        std::fprintf(stderr, "Laufzeitfehler %d: %s\n", f.nummer(), qPrintable(f.beschreibung()));
        return 1;
    }

    const Zeiten s = auswerten(speichern), b = auswerten(bytes), l = auswerten(laden);
    const qint64 groesse = QFileInfo(anlage.Pfad + anlage.File).size();
    const qsizetype seiten = QDir(ordner.path()).entryList({QStringLiteral("*.lcv")}, QDir::Files).size();
    std::printf("Projekt 99x99: %lld Bytes .anl, %lld Seitendateien, %d Wiederholungen\n",
                static_cast<long long>(groesse), static_cast<long long>(seiten), wiederholungen);
    std::printf("Save_plt: min %.1f ms, Median %.1f ms\n", s.min, s.median);
    std::printf("  davon Save_plt_bytes (ohne Dateien): min %.1f ms, Median %.1f ms\n", b.min, b.median);
    std::printf("Load_plt: min %.1f ms, Median %.1f ms\n", l.min, l.median);
    if (!gleich)
        std::fprintf(stderr, "Geladenes Projekt weicht vom gespeicherten ab\n");
    return gleich && fehlend == 0 && berichte.anzahl == 0 && seiten == Empfaenger ? 0 : 1;
}
