#pragma once
// set_PultAdr: the two text rows under a cell's picture in `PultAdr`.

#include <QString>

namespace planor {

class Anlage;
class Elementkatalog;

// Row 3y-1: an accessory's addresses joined by "/", as SetzeText writes them
// (XY_ADR1 when above 0, then "/" XY_ADR2 and "/" XY_ADR3 when not 0).
QString AdrZeileMagnetartikel(const Anlage& anlage, const Elementkatalog& katalog, int x, int y);

// Row 3y: a receiver's address XY_LNCV(0) once it is a module (XY_ArtNr not
// 0); a station track (XY_BETR 6) adds "/Gl." and its track, as "12/Gl.3".
// The second input of a single sensor shows SetzeText's pointer to its
// partner, "12/››X/Y 3/4". A universal controller's cell shows its main
// cell's address.
QString AdrZeileEmpfaenger(const Anlage& anlage, const Elementkatalog& katalog, int x, int y);

} // namespace planor
