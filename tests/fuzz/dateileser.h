#pragma once
// The file readers behind one call, for the fuzz target and the seeded random-input
// test: whatever the bytes, a reader may fail only with planor::Laufzeitfehler.
#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/lncv_datei.h"
#include "core/project_file.h"
#include "editor/pult_editor.h"

#include <memory>

namespace planor::test {

enum class Dateileser { Lncv128, Lncv460, Projekt, Katalog };
inline constexpr int DateileserAnzahl = 4;

// Reports go nowhere: thousands of inputs fail on purpose, and a long run must not
// grow. The fuzz target links no test framework, so these live here.
struct StilleFehlerAnzeige final : FehlerAnzeige { void zeigen(const QString&, const QString&) override {} };
struct StillerBenutzer final : Benutzer { void meldung(const QString&, const QString&, Symbol) override {} };

// "Element löschen?" is answered no; a new panel empties the Anlage as the main window does.
struct NeinAnzeige final : ProjektAnzeige {
    explicit NeinAnzeige(Anlage& a) : anlage(a) {}
    void InfoTxt_anzeigen(int, const QString&) override {}
    bool pultNeuSetzen() const override { return neu; }
    void neues_pult_setzen() override { neu = false, anlage.neues_pult_setzen(); }
    bool elementLoeschen(const QString&, const QString&) override { return false; }
    Anlage& anlage;
    bool neu = true;
};

// Side files come from `projektOrdner` (ending in "/"). Project and catalogue are fresh
// for each input, as a side file may raise a type's LNCVAnz.
inline void einlesen(Dateileser leser, const QByteArray& bytes, const Elementkatalog& katalog,
                     const QString& projektOrdner)
{
    Elementkatalog eigenerKatalog = katalog;
    const auto anlage = std::make_unique<Anlage>();
    if (leser == Dateileser::Katalog) {
        Elementkatalog().lesen(bytes, *anlage);
    } else if (leser == Dateileser::Projekt) {
        anlage->setzeLeerElement(eigenerKatalog.LeerIndex);
        anlage->Pfad = projektOrdner;
        anlage->File = QStringLiteral("Zufall.anl");
        StillerBenutzer benutzer;
        PultEditor editor(*anlage, eigenerKatalog, benutzer);
        NeinAnzeige anzeige(*anlage);
        Load_plt_bytes(bytes, *anlage, eigenerKatalog, editor, anzeige);
    } else {
        Long artnr = 0;
        LNCV_Feld werte;
        Integer anzahl = leser == Dateileser::Lncv128 ? 128 : 460;  // receivers, universal controllers
        QString kommentar;
        int ergebnis = -1;
        load_lncv_bytes(bytes, artnr, werte, anzahl, kommentar, ergebnis);
    }
}

}  // namespace planor::test
