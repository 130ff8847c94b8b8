#pragma once
// TauschForm: the swap markers of a turnout or signal with two
// addresses (XY_STATTAUSCH1, XY_STATTAUSCH2, XY_ADRTAUSCH). Widget-free
// form state and handlers; the dialog binds the three check boxes.

namespace planor {

class Anlage;

struct TauschForm_Zustand {
    bool TauschChk1 = false;  // "Rot/Grün tauschen für Adresse 1"
    bool TauschChk2 = false;  // "Rot/Grün tauschen für Adresse 2"
    bool TauschChk3 = false;  // "Adresse 1 und Adresse 2 tauschen"
};

// The boxes filled from the cell.
TauschForm_Zustand TauschForm_laden(const Anlage& anlage, int x, int y);

// OK: the markers are stored (1 for a set box, 0 else) and the project is changed.
void TauschForm_OK(const TauschForm_Zustand& zustand, Anlage& anlage, int x, int y);

}  // namespace planor
