#pragma once
// MagArtStatus ("Magnetartikel Status"): a state set by hand for one
// address of an accessory. Widget-free form state; the dialog binds the
// option buttons StatOpt(0..1) in the frame "Status:" and AdrOpt(1..3) in
// the frame "Adresse 1 oder 2:". AdrOpt(i) stands for XY_ADRi of the cell,
// so the route editor (Magadr_Maus_Ausw) uses the same state with its own labels.

#include "core/feld.h"
#include "core/vb_zahlen.h"

#include <QString>

namespace planor {

class Anlage;
class Elementkatalog;

inline const QString MagArtStatusTitel = QStringLiteral("Magnetartikel Status");
inline const QString StatOptText0 = QStringLiteral("rot");
inline const QString StatOptText1 = QStringLiteral("grün");

struct MagArtStatus_Zustand {
    Feld<bool, 0, 1> StatOpt;            // (0) "rot", (1) "grün"; one set
    Feld<bool, 1, 3> AdrOpt;             // the chosen address; one set
    Feld<QString, 1, 3> AdrOptText;      // the options' labels
    Feld<bool, 1, 3> AdrOptAktiv;        // enabled
    Feld<Integer, 1, 3> Adresse;         // the address behind each option, 0 none
};

// View 4: the options labelled by the element's type — "Adresse: " for
// turnouts, "Hauptsignal: ", "Vorsignal: ", "Rangiersignal: " for the heads
// of a signal — with the address; an address the cell lacks shows "-" and
// is disabled. The first enabled option is chosen, and "rot".
MagArtStatus_Zustand MagArtStatus_fuerMonitor(const Anlage& anlage, const Elementkatalog& katalog, int x, int y);

// Chooses one option of a group (the others are cleared).
void StatOpt_Click(MagArtStatus_Zustand& z, int index);
void AdrOpt_Click(MagArtStatus_Zustand& z, int index);

// The chosen address (0 when none is chosen) and the chosen state (0 rot, 1 grün).
Long MagArtStatus_Adresse(const MagArtStatus_Zustand& z);
Integer MagArtStatus_Stellung(const MagArtStatus_Zustand& z);

}  // namespace planor
