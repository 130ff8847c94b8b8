#pragma once
// Placing, deleting, rotating, the selection, the
// clipboard and the one step of undo on the track plan `Pult`. Widget-free:
// the grid widgets call these procedures and repaint what they report.

#include "core/feld.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"

#include <QObject>

#include <memory>

namespace planor {

class Benutzer;
class Elementkatalog;

// The mouse pointer of `Pult` (set by Elemente_Click).
enum class PultZeiger { Standard, Radierer, Pfeil, Kreuz };

class PultEditor : public QObject, public Pultzellen {
    Q_OBJECT

public:
    PultEditor(Anlage& anlage, const Elementkatalog& katalog, Benutzer& benutzer, QObject* parent = nullptr);

    const Anlage& anlage() const { return anlage_; }
    const Elementkatalog& katalog() const { return katalog_; }

    // The current cell of `Pult`.
    int aktX() const { return aktX_; }
    int aktY() const { return aktY_; }
    void setzeAktuell(int x, int y);

    // Placing elements and drawing cells.
    void SetzePultElement(int index);
    void SetzeText(int x, int y) override;
    // The cell made current, then SetzePultElement.
    void elementSetzen(int x, int y, int index) override;
    void LNCV_uebernehmen(int x, int y);

    // The mouse and the selection on the plan.
    void Elemente_Click(int index);
    // A left click on a data cell in view 1 of an unlocked plan.
    void Pult_LinksKlick(int x, int y);
    // A right click in view 1 of an unlocked plan: rotates a cell that is not empty.
    void Pult_RechtsKlick(int x, int y);
    // The grid's selection at the left button's release, corners in any order.
    void Pult_Auswahl(int x1, int y1, int x2, int y2);
    void Cntrl_C_X(int taste);
    void Cntrl_V();
    void Cntrl_Z();
    void ElementDrehen();
    void Element_Loeschen(int x, int y);

    // Editing state (not saved).
    Integer ElementAusw = 0;
    bool MarkenMode = false;
    PultZeiger zeiger = PultZeiger::Standard;
    bool MarkAktiv = false;
    int MarkX = 0, MarkY = 0, MarkBreite = 0, MarkHoehe = 0;
    bool ClipVoll = false;
    int ClipBreite = 0, ClipHoehe = 0;
    XY_Typ XY_Undo;
    Integer UndoElement = 0;
    int UndoX = 0, UndoY = 0;
    Integer UndoGueltig = 0;  // -1 when valid
    XY_Typ XY_Alt;
    bool EleDrehenMoeglich = false;  // EleDrehenMenu enabled
    // The cell last clicked on a module, for the configuration.
    int AuswX = 0, AuswY = 0;

    XY_Typ& XY_Clip(int i, int j) { return (*XY_Clip_)(i, j); }

    static constexpr int TasteC = 67, TasteV = 86, TasteX = 88, TasteZ = 90;

signals:
    // A cell's picture or text is to be drawn again.
    void zelleGeaendert(int x, int y);
    // The current cell moved.
    void aktuellGeaendert(int x, int y);
    // Status line 1 or 2 of the main window.
    void infoText(int feld, const QString& text);
    void undoMenuFreigeben(bool frei);
    // A click on a module: NavikKonf(XY_BETR, False).
    void modulKonfigurieren(int x, int y, int betriebsart);

private:
    int typ(int index) const;
    int zellTyp(int x, int y) const;

    Anlage& anlage_;
    const Elementkatalog& katalog_;
    Benutzer& benutzer_;
    int aktX_ = 1, aktY_ = 1;
    std::unique_ptr<Feld2<XY_Typ, MaxClip, MaxClip>> XY_Clip_;
};

}  // namespace planor
