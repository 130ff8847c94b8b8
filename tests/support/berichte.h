#pragma once
// A test's own error-report environment: reports are collected instead of
// shown, Fehler.log goes to a temporary folder, the clock stands still.

#include "core/benutzer.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/project_file.h"
#include "platform/uhr.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vector>

namespace planor::test {

struct GesammelteBerichte final : FehlerAnzeige {
    void zeigen(const QString& titel, const QString& text) override
    {
        titel_.push_back(titel);
        texte.push_back(text);
    }
    QStringList titel_;
    QStringList texte;
};

// The messages a procedure would have shown, recorded as "title|text" with
// their icons.
struct Meldungen final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol symbol) override
    {
        texte << titel + u'|' + text;
        symbole.push_back(symbol);
    }
    QStringList texte;
    std::vector<Symbol> symbole;
};

// What loading and saving a project showed and asked; "Element löschen?" is
// answered with `loeschen`, a new panel empties the Anlage as the main window does.
struct Projektanzeige final : ProjektAnzeige {
    explicit Projektanzeige(Anlage& a) : anlage(a) {}
    void InfoTxt_anzeigen(int feld, const QString& text) override { (feld == 1 ? feld1 : feld2) << text; }
    void ladenBeginnt() override { ++begonnen; }
    void ladenEndet() override { ++beendet; }
    bool pultNeuSetzen() const override { return neuSetzen; }
    void neues_pult_setzen() override
    {
        neuSetzen = false;
        anlage.neues_pult_setzen();
    }
    bool elementLoeschen(const QString& titel, const QString& text) override
    {
        fragen << titel + u'|' + text;
        return loeschen;
    }

    Anlage& anlage;
    QStringList feld1, feld2, fragen;
    bool neuSetzen = true, loeschen = false;
    int begonnen = 0, beendet = 0;
};

class MitFehlerbericht : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(ordner.isValid());
        FehlerbehandlungEinrichten({logDatei(), &uhr, &berichte});
    }

    QString logDatei() const { return ordner.filePath(QStringLiteral("Fehler.log")); }

    QTemporaryDir ordner;
    TestUhr uhr{QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7))};
    GesammelteBerichte berichte;
};

}  // namespace planor::test
