#pragma once
// Removing a station, or a part of it, with the routes and
// locomotive lists that hang on it. n 0 does nothing.

namespace planor {

class Anlage;
class Zellanzeige;

void Clr_Bhf(Anlage& anlage, Zellanzeige& anzeige, int n);
void Clear_Bhf_Einfahr(Anlage& anlage, Zellanzeige& anzeige, int n);
void Clear_Bhf_Ausfahr(Anlage& anlage, Zellanzeige& anzeige, int n);
void Clear_Bhf_Umfahr(Anlage& anlage, int n);
void Clear_Bhf_Gleis(Anlage& anlage, Zellanzeige& anzeige, int n, int slot);
void Clear_FS(Anlage& anlage, int fs);
void LokListe_clear(Anlage& anlage, int bhf, int gleis);

}  // namespace planor
