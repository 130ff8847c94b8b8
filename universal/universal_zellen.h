#pragma once
// The cells of a universal block controller. One controller is a
// group of up to four cells sharing article and address; the main cell
// (XY_SenStat 3) holds the values, further cells (4) point at it.

namespace planor {

class Anlage;
class Zellanzeige;

// Resets a whole controller: every cell of the group loses its values and
// station and goes back to mode 20; the cells stay linked.
void Clear_Universal(Anlage& anlage, Zellanzeige& anzeige, int x, int y);

// Element_Loeschen: before the main cell (x, y) is deleted,
// the first further cell of the group (of at most five found) becomes the
// main cell and the others point at it, so the controller stays alive.
void Universal_Hauptzelle_weitergeben(Anlage& anlage, int x, int y);

}  // namespace planor
