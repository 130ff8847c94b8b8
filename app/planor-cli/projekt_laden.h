#pragma once
// planor-cli's way to a project: the catalogue, the project file and its side
// files loaded without a display. Reports go to stderr; any report or a
// missing side file makes the command fail.

#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/project_file.h"
#include "editor/pult_editor.h"

#include <cstdio>

namespace planor::cli {

class ProjektLaden final : public ProjektAnzeige, public Benutzer, public FehlerAnzeige {
public:
    explicit ProjektLaden(std::FILE* fehler);
    ~ProjektLaden() override;

    // Reads the catalogue and PROJECT.anl; false when anything went wrong.
    bool laden(const QString& datei);
    // Saves the project as "Anlage speichern unter ..." would; false on failure.
    bool speichernNach(const QString& ordner);

    Anlage anlage;
    Elementkatalog katalog;

private:
    void InfoTxt_anzeigen(int, const QString&) override {}
    bool pultNeuSetzen() const override { return neuSetzen_; }
    void neues_pult_setzen() override;
    bool elementLoeschen(const QString& titel, const QString& text) override;
    void meldung(const QString& titel, const QString& text, Symbol symbol) override;
    void zeigen(const QString& titel, const QString& text) override;

    std::FILE* fehler_;
    PultEditor editor_;
    FehlerUmgebung vorher_;
    bool neuSetzen_ = true;
    int probleme_ = 0;
};

}  // namespace planor::cli
