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

// Cells as a loaded panel holds them: the first catalogue element of type
// `typ`, and its addresses.
inline void zelleSetzen(Anlage& anlage, const Elementkatalog& katalog, int x, int y, int typ,
    Integer a1 = 0, Integer a2 = 0, Integer a3 = 0)
{
    XY_Typ& z = anlage.XY(x, y);
    z = anlage.XY_Leer();
    z.XY_Element = Integer(katalog.indexVonTyp(typ));
    EXPECT_GT(z.XY_Element, 0) << typ;
    z.XY_ADR1 = a1;
    z.XY_ADR2 = a2;
    z.XY_ADR3 = a3;
}

// A receiver module with its article and address.
inline void empfaengerSetzen(Anlage& anlage, const Elementkatalog& katalog, int x, int y, int adresse,
    Long artNr = 47220, int typ = 800)
{
    zelleSetzen(anlage, katalog, x, y, typ);
    anlage.XY(x, y).XY_ArtNr = artNr;
    anlage.XY(x, y).XY_LNCV(0) = Integer(adresse);
}

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
    Meldungen meldungen;
    PultEditor editor{anlage, katalog, meldungen};
    QList<QPoint> neuGezeichnet;
};

}  // namespace planor::test
