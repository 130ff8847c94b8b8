#pragma once
// The element catalogue ElementTab, read from KT_Conf/Elemente.cfg,
// with the palette and the rotation families.

#include "core/feld.h"
#include "core/vb_zahlen.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace planor {

class Anlage;

inline constexpr int MaxElemente = 100;   // ElementTab(0..100)
inline constexpr int MaxDrehung = 20;     // Drehung(0..20)
inline constexpr int DrehungEnde = -99;   // ends a rotation list
inline constexpr int PaletteSpalten = 8;  // the palette Elemente has 8 columns

// Type codes with a meaning of their own.
inline constexpr int TypRadierer = -99;
inline constexpr int TypAuswahl = -1;

struct ElementTab_Typ {
    QString Bmp;
    QString BmpAusw;
    QString Name;
    Integer Typ = 0;
    Integer LNCVAnz = 0;
    Integer Palette = 0;
    Integer Familie = 0;
    Feld<Integer, 0, MaxDrehung> Drehung;
    Integer TextAusrichtung = 0;
};

class Elementkatalog {
public:
    ElementTab_Typ& ElementTab(int i) { return ElementTab_(i); }
    const ElementTab_Typ& ElementTab(int i) const { return ElementTab_(i); }

    // Count of entries read; entries are 1..ElementAnz.
    Integer ElementAnz = 0;
    // Index of the entry named "Leer"; 0 while there is none.
    Integer LeerIndex = 0;

    // The palette: catalogue indices in reading order, 8 a row.
    int paletteZeilen() const;
    // PaletteFeld: the index at a palette cell, 0 for a cell without entry.
    int PaletteFeld(int spalte, int zeile) const;
    const std::vector<int>& palette() const { return palette_; }

    // The first entry 0..100 with this type code, or -1. Index 0 is searched
    // too and, never filled, answers type 0 before "Leer" does.
    int indexVonTyp(int typ) const;

    // Reads Elemente.cfg's bytes (the palette and the
    // rotation families) and builds the anlage's empty-cell template from
    // the "Leer" entry. An entry beyond index 100 raises run-time error 9,
    // a number field that holds no number error 13, a file ending inside an
    // entry error 62; what was read before stays.
    void lesen(const QByteArray& bytes, Anlage& anlage);

private:
    void familienBilden();

    Feld<ElementTab_Typ, 0, MaxElemente> ElementTab_;
    std::vector<int> palette_;
};

// Reads the catalogue from a file; a missing file raises error 53.
void Elemente_laden(const QString& datei, Elementkatalog& katalog, Anlage& anlage);

}  // namespace planor
