#pragma once
// A panel with the test catalogue (tests/data/Elemente_test.cfg), an editor on
// it, and the messages it shows recorded.

#include "core/benutzer.h"
#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "editor/pult_editor.h"
#include "tests/support/berichte.h"

#include <QFile>
#include <QPoint>

namespace planor::test {

struct GesammelteMeldungen final : Benutzer {
    void meldung(const QString& titel, const QString& text, Symbol symbol) override
    {
        texte << titel + u'|' + text;
        symbole.push_back(symbol);
    }
    QStringList texte;
    std::vector<Symbol> symbole;
};

// Indices of the test catalogue.
enum TestElement {
    Radierer = 1, Auswahl = 2, Leer = 3, GeradeW = 4, GeradeS = 5, Diagonale = 6, Bogen = 7,
    Weiche101 = 8, Weiche102 = 9, Dkw201 = 10, Signal511 = 11, Empf800 = 12, Empf801 = 13,
    Empf831 = 14, Uni840 = 15, Bahnsteig920 = 16,
};

class MitPult : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        QFile f(QStringLiteral(PLANOR_TESTDATA "/Elemente_test.cfg"));
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        katalog.lesen(f.readAll(), anlage);
        anlage.neues_pult_setzen();
        QObject::connect(&editor, &PultEditor::zelleGeaendert, [this](int x, int y) { neuGezeichnet << QPoint(x, y); });
    }

    // Places an element at (x, y) as a click with it chosen would.
    void setzen(int x, int y, int element)
    {
        editor.setzeAktuell(x, y);
        editor.SetzePultElement(element);
    }

    // A configured receiver module in the cell.
    void modul(int x, int y, int adresse, Long artNr = 47220)
    {
        setzen(x, y, Empf800);
        XY_Typ& z = anlage.XY(x, y);
        z.XY_ArtNr = artNr;
        z.XY_LNCV(0) = static_cast<Integer>(adresse);
        z.XY_LNCV(20) = 1234;
    }

    Anlage anlage;
    Elementkatalog katalog;
    GesammelteMeldungen meldungen;
    PultEditor editor{anlage, katalog, meldungen};
    QList<QPoint> neuGezeichnet;
};

}  // namespace planor::test
