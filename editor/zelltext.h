#pragma once
// SetzeText's table: the text under a cell's picture.

#include <QString>

namespace planor {

class Anlage;
class Elementkatalog;

// The text of cell (x, y) by the type code of its element.
QString Zelltext(const Anlage& anlage, const Elementkatalog& katalog, int x, int y);

}  // namespace planor
