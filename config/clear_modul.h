#pragma once
// Clear_Modul: a module loses its function; its address and
// feedback address (LNCV 0 and 1) and the values above 127 survive.

namespace planor {

class Anlage;
class Zellanzeige;

void Clear_Modul(Anlage& anlage, Zellanzeige& anzeige, int x, int y);

}  // namespace planor
