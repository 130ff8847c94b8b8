#pragma once
// KatAnz and set_modul_optionen, by the module families of core/modul_artikel.h.

#include "core/modul_artikel.h"

namespace planor {

class Anlage;

// Number of train categories of the module in the cell: 4 or 15, 0 for none.
// For 47230 only the version counts, not bit 5 of LNCV 15.
int KatAnz(const Anlage& anlage, int x, int y);

// Presets a module's general values from Grundeinst.
void set_modul_optionen(Anlage& anlage, int x, int y);

}  // namespace planor
