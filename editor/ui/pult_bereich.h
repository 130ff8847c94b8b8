#pragma once
// The panel area of the main window: the palette `Elemente` with the logo,
// and the three grids `Pult`, `PultAdr`, `Mon` on the same place, one
// visible at a time.

#include "editor/ui/bildspeicher.h"

#include <QWidget>

class QLabel;
class QTableView;

namespace planor {

class Anlage;
class Elementkatalog;
class MonModell;
class PaletteModell;
class PultAdrModell;
class PultEditor;
class PultModell;
class ZellenGrid;

// Size in pixels of a panel and palette cell.
inline constexpr int FeldBreite = 84;
inline constexpr int FeldHoehe = 54;

class PultBereich : public QWidget {
    Q_OBJECT

    // First, so that it stands before the grids that paint from it.
    Bildspeicher bilder_;

public:
    PultBereich(Anlage& anlage, const Elementkatalog& katalog, PultEditor& editor, const QString& konfPfad,
                QWidget* parent = nullptr);

    ZellenGrid* Pult;
    ZellenGrid* PultAdr;
    ZellenGrid* Mon;
    QTableView* Elemente;
    QLabel* Logo;

    PultModell& pultModell() { return *pultModell_; }
    PultAdrModell& pultAdrModell() { return *pultAdrModell_; }
    MonModell& monModell() { return *monModell_; }

    // The catalogue has been read: the palette is built.
    void paletteAufbauen();
    // init_flexgrid: all three grids take the panel's dimensions.
    void init_flexgrid();
    // View 1 and 3 place `Pult` beside the palette or at the left edge.
    void paletteZeigen(bool sichtbar);

signals:
    // A palette cell was clicked: the catalogue index.
    void elementGewaehlt(int index);

private:
    PultModell* pultModell_;
    PultAdrModell* pultAdrModell_;
    MonModell* monModell_;
    PaletteModell* paletteModell_;
    QWidget* links_;
};

}  // namespace planor
