#include "station/bhf_loeschen.h"

#include "core/fehlerbehandlung.h"
#include "core/modul_artikel.h"
#include "core/panel_model.h"
#include "core/zellanzeige.h"

namespace planor {

namespace {


bool istNavik(Long artNr)
{
    switch (artNr) {
    case 47120: case 47130: case 47190: case 47220: case 47230: case 47240: case 5330:
        return true;
    default:
        return false;
    }
}

void lncvNull(XY_Typ& zelle, int von, int bis)
{
    for (int i = von; i <= bis; ++i)
        zelle.XY_LNCV(i) = 0;
}

// Clears the routes of a station's slots 1..bis in one direction.
void routenLoeschen(Anlage& anlage, Feld<Integer, 0, MaxGleis>& routen, int bis)
{
    for (int i = 1; i <= bis; ++i) {
        Clear_FS(anlage, routen(i));
        routen(i) = 0;
    }
}

// The common end of Clear_Bhf_Einfahr and Clear_Bhf_Ausfahr.
void managerFelderNull(Bhf_Typ& bhf)
{
    bhf.Bhf_Status66 = 0;
    bhf.Bhf_UmfAktiv = 0;
    bhf.Bhf_UmfLNCV = 0;
    bhf.Bhf_UmfAdr = 0;
}

// A NAVIK manager module loses its station function.
void navikManagerLoeschen(Anlage& anlage, Zellanzeige& anzeige, int x, int y)
{
    XY_Typ& zelle = anlage.XY(x, y);
    zelle.XY_BETR = -1;
    zelle.XY_BhfIDX = 0;
    zelle.XY_GleisIDX = 0;
    anzeige.SetzeText(x, y);
    lncvNull(zelle, 2, 13);
    lncvNull(zelle, 20, 127);
}

}  // namespace

void Clear_FS(Anlage& anlage, int fs)
{
    geschuetzt("Funktionen : Clear_FS", [&] {
        FS_Typ& r = anlage.FS(fs);
        r.FS_Name.clear();
        r.FS_Kennung = r.FS_Nummer = r.FS_Sub = r.FS_Art = r.FS_RM = 0;
        r.FS_Mag = 0;
        r.FS_MagBfl.fuellen(QString());
        r.FS_MagAnz = 0;
    });
}

void LokListe_clear(Anlage& anlage, int bhf, int gleis)
{
    geschuetzt("Funktionen : LokListe_clear", [&] {
        const Bhf_Typ& b = anlage.Bhf(bhf);
        if (b.Bhf_EinfX == 0 && b.Bhf_EinfY == 0)
            return;
        const XY_Typ& einfahrt = anlage.XY(b.Bhf_EinfX, b.Bhf_EinfY);
        if (istUniversal(einfahrt.XY_ArtNr)) {
            XY_Typ& haupt = anlage.XY(einfahrt.XY_SenX, einfahrt.XY_SenY);
            lncvNull(haupt, 10 * gleis + 51, 10 * gleis + 51 + 8);
        } else {
            // Slot 11 clears only six entries; that stays.
            XY_Typ& zelle = anlage.XY(b.Bhf_EinfX, b.Bhf_EinfY);
            lncvNull(zelle, 10 * gleis + 12, 10 * gleis + 12 + (gleis == 11 ? 5 : 7));
        }
    });
}

void Clear_Bhf_Gleis(Anlage& anlage, Zellanzeige& anzeige, int n, int slot)
{
    geschuetzt("Funktionen : Clear_Bhf_Gleis", [&] {
        LokListe_clear(anlage, n, slot);
        Bhf_Typ& b = anlage.Bhf(n);
        const int x = b.Bhf_GleisX(slot), y = b.Bhf_GleisY(slot);
        if (b.Bhf_Adr != -1 && x > 0 && y > 0) {
            XY_Typ& gleis = anlage.XY(x, y);
            gleis.XY_BETR = -1;
            gleis.XY_BhfIDX = 0;
            gleis.XY_GleisIDX = 0;
            anzeige.SetzeText(x, y);
            lncvNull(gleis, 2, 13);
        }
        for (Feld<Integer, 0, MaxGleis>* routen : {&b.Bhf_EinfFS, &b.Bhf_AusfFS}) {
            if ((*routen)(slot) != 0) {
                Clear_FS(anlage, (*routen)(slot));
                (*routen)(slot) = 0;
            }
        }
        b.Bhf_GleisX(slot) = 0;
        b.Bhf_GleisY(slot) = 0;
        if (b.Bhf_Adr >= 1)
            --b.Bhf_Adr;
    });
}

void Clear_Bhf_Einfahr(Anlage& anlage, Zellanzeige& anzeige, int n)
{
    geschuetzt("Funktionen : Clear_Bhf_Einfahr", [&] {
        if (n == 0)
            return;
        Bhf_Typ& b = anlage.Bhf(n);
        const int x = b.Bhf_EinfX, y = b.Bhf_EinfY;
        if (x == 0 || y == 0)
            return;
        XY_Typ& zelle = anlage.XY(x, y);
        if (istUniversal(zelle.XY_ArtNr)) {
            lncvNull(zelle, 50, 459);
            if (zelle.XY_BETR == 22) {
                for (int gx = 1; gx <= anlage.DimensionenX; ++gx) {
                    for (int gy = 1; gy <= anlage.DimensionenY; ++gy) {
                        XY_Typ& andere = anlage.XY(gx, gy);
                        if (andere.XY_BhfIDX == n) {
                            andere.XY_BhfIDX = 0;
                            andere.XY_BETR = 20;
                            anzeige.SetzeText(gx, gy);
                        }
                    }
                }
                zelle.XY_BhfIDX = 0;
                zelle.XY_BETR = 20;
                anzeige.SetzeText(x, y);
            }
            routenLoeschen(anlage, b.Bhf_EinfFS, 13);
        } else if (istNavik(zelle.XY_ArtNr)) {
            navikManagerLoeschen(anlage, anzeige, x, y);
            routenLoeschen(anlage, b.Bhf_EinfFS, 11);
        }
        b.Bhf_EinfX = b.Bhf_EinfY = 0;
        b.Bhf_EinfAktiv = 0;
        managerFelderNull(b);
    });
}

void Clear_Bhf_Ausfahr(Anlage& anlage, Zellanzeige& anzeige, int n)
{
    geschuetzt("Funktionen : Clear_Bhf_Ausfahr", [&] {
        if (n == 0)
            return;
        Bhf_Typ& b = anlage.Bhf(n);
        const int x = b.Bhf_AusfX, y = b.Bhf_AusfY;
        if (x == 0 || y == 0)
            return;
        XY_Typ& zelle = anlage.XY(x, y);
        if (istUniversal(zelle.XY_ArtNr)) {
            zelle.XY_BhfIDX = 0;
            lncvNull(zelle, 50, 459);
            zelle.XY_BETR = 20;
            anzeige.SetzeText(x, y);
            routenLoeschen(anlage, b.Bhf_AusfFS, 13);
        } else if (istNavik(zelle.XY_ArtNr)) {
            navikManagerLoeschen(anlage, anzeige, x, y);
            routenLoeschen(anlage, b.Bhf_AusfFS, 11);
            Clear_FS(anlage, b.Bhf_EinfFS(11));
            b.Bhf_EinfFS(11) = 0;
        }
        b.Bhf_AusfX = b.Bhf_AusfY = 0;
        b.Bhf_AusfAktiv = 0;
        managerFelderNull(b);
    });
}

void Clear_Bhf_Umfahr(Anlage& anlage, int n)
{
    geschuetzt("Funktionen : Clear_Bhf_Umfahr", [&] {
        if (n == 0)
            return;
        Bhf_Typ& b = anlage.Bhf(n);
        Long artNr = 0;
        if (b.Bhf_EinfAktiv == 1)
            artNr = anlage.XY(b.Bhf_EinfX, b.Bhf_EinfY).XY_ArtNr;
        if (b.Bhf_AusfAktiv == 1)
            artNr = anlage.XY(b.Bhf_AusfX, b.Bhf_AusfY).XY_ArtNr;
        const int slot = istUniversal(artNr) ? 13 : 11;
        b.Bhf_UmfLNCV = 0;
        b.Bhf_UmfAdr = 0;
        Clear_FS(anlage, b.Bhf_EinfFS(slot));
        b.Bhf_EinfFS(slot) = 0;
        // For NAVIK modules the exit's slot-11 route is the halt route and stays.
        if (b.Bhf_AusfAktiv == 1 && istUniversal(artNr)) {
            Clear_FS(anlage, b.Bhf_AusfFS(slot));
            b.Bhf_AusfFS(slot) = 0;
        }
        LokListe_clear(anlage, n, slot);
        b.Bhf_UmfAktiv = 0;
    });
}

void Clr_Bhf(Anlage& anlage, Zellanzeige& anzeige, int n)
{
    geschuetzt("Funktionen : Clr_Bhf", [&] {
        if (n == 0)
            return;
        Clear_Bhf_Einfahr(anlage, anzeige, n);
        Clear_Bhf_Ausfahr(anlage, anzeige, n);
        Clear_Bhf_Umfahr(anlage, n);
        for (int slot = 1; slot <= 10; ++slot)
            Clear_Bhf_Gleis(anlage, anzeige, n, slot);
        // Bhf_Art stays and Bhf_Anz is the caller's.
        Bhf_Typ& b = anlage.Bhf(n);
        b.Bhf_Name.clear();
        b.Bhf_Adr = 0;
        b.Bhf_EinfAktiv = 0;
        b.Bhf_AusfAktiv = 0;
        b.Bhf_UmfAktiv = 0;
    });
}

}  // namespace planor
