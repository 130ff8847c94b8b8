#pragma once
// The three file readers (Parts 1.4, 1.5, 1.6) behind one call, for the
// fuzz target and the seeded random-input test alike. Whatever the bytes,
// a reader may fail only with planor::Laufzeitfehler; that passes through
// here, as it reaches the callers' guard in the program.

#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/lncv_datei.h"
#include "core/panel_model.h"
#include "core/project_file.h"
#include "editor/pult_editor.h"

#include <QByteArray>
#include <QString>

#include <memory>

namespace planor::test {

// Which reader an input goes to.
enum class Dateileser { Lncv128, Lncv460, Projekt, Katalog };
inline constexpr int DateileserAnzahl = 4;

// The module counts Part 1.6 gives: receivers 128, universal controllers 460.
inline Integer lncvAnzahl(Dateileser leser) { return leser == Dateileser::Lncv128 ? 128 : 460; }

struct StillerBenutzer final : Benutzer {
    void meldung(const QString&, const QString&, Symbol) override {}
};

// A guarded procedure's report goes nowhere: thousands of inputs fail on purpose.
struct StilleFehlerAnzeige final : FehlerAnzeige {
    void zeigen(const QString&, const QString&) override {}
};

// Answers "no" to "Element löschen?"; a new panel empties the Anlage as the
// main window's neues_pult_setzen does.
class NeinAnzeige final : public ProjektAnzeige {
public:
    explicit NeinAnzeige(Anlage& anlage) : anlage_(anlage) {}
    void InfoTxt_anzeigen(int, const QString&) override {}
    bool pultNeuSetzen() const override { return neuSetzen_; }
    void neues_pult_setzen() override
    {
        neuSetzen_ = false;
        anlage_.neues_pult_setzen();
    }
    bool elementLoeschen(const QString&, const QString&) override { return false; }

private:
    Anlage& anlage_;
    bool neuSetzen_ = true;
};

// Load_plt_bytes into a fresh project. Side files are looked up in
// `projektOrdner` (ending in "/"). The catalogue is copied, because a side
// file with more values raises its LNCVAnz (Part 1.5): no input may leave
// anything behind for the next one.
inline void projektLesen(const QByteArray& bytes, const Elementkatalog& katalog, const QString& projektOrdner)
{
    Elementkatalog eigenerKatalog = katalog;
    const auto anlage = std::make_unique<Anlage>();
    anlage->setzeLeerElement(eigenerKatalog.LeerIndex);
    anlage->Pfad = projektOrdner;
    anlage->File = QStringLiteral("Zufall.anl");
    StillerBenutzer benutzer;
    PultEditor editor(*anlage, eigenerKatalog, benutzer);
    NeinAnzeige anzeige(*anlage);
    Load_plt_bytes(bytes, *anlage, eigenerKatalog, editor, anzeige);
}

// Runs one reader over the bytes; see projektLesen for the project reader.
inline void einlesen(Dateileser leser, const QByteArray& bytes, const Elementkatalog& katalog,
                     const QString& projektOrdner)
{
    switch (leser) {
    case Dateileser::Lncv128:
    case Dateileser::Lncv460: {
        Long artnr = 0;
        LNCV_Feld werte;
        Integer anzahl = lncvAnzahl(leser);
        QString kommentar;
        int ergebnis = -1;
        load_lncv_bytes(bytes, artnr, werte, anzahl, kommentar, ergebnis);
        break;
    }
    case Dateileser::Projekt:
        projektLesen(bytes, katalog, projektOrdner);
        break;
    case Dateileser::Katalog: {
        // lesen only sets the empty-cell template's index in the Anlage,
        // which no later input reads: one Anlage serves them all.
        static Anlage anlage;
        Elementkatalog neu;
        neu.lesen(bytes, anlage);
        break;
    }
    }
}

}  // namespace planor::test
