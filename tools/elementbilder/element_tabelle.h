#pragma once
// The element catalogue as one table: every line of Elemente.cfg and every
// picture written for it come from here.

#include "geometrie.h"

#include <QString>

#include <array>
#include <vector>

namespace planor::elementbilder {

enum class Art {
    Radierer,
    Auswahl,
    Leer,
    Gleis,         // plain legs: straights, curves, crossings
    Prellbock,     // track ending at a buffer stop
    Weiche,        // one address: Beine[0] straight (green), Beine[1] branch (red)
    Fahrwege,      // two addresses: Beine indexed by the state gg, rr, gr, rg
    Signal,
    Empfaenger,    // two sensors; Beine[0] runs in the travel direction, sensor 1 -> 2
    Einzelsensor,
    Modul,         // a receiver drawn as a module box beside the track
    Blocksteuerung,
    Bahnsteig,
};

// A track leg between two border points; `da` false leaves the slot empty.
struct Bein {
    Port a = Port::W;
    Port b = Port::O;
    bool da = false;
};

// Signal heads, in the order of the element's addresses.
enum class Kopf { Haupt, Vor, Rangier };

struct Bild {
    Art art = Art::Leer;
    std::array<Bein, 4> beine{};
    Port ende = Port::O;               // Prellbock: the end that is closed
    std::vector<Kopf> koepfe{};        // Signal
    bool nachWest = false;             // Signal: stands for the west-bound track
};

// Order of the legs of Art::Fahrwege, named by the letters of their state.
inline constexpr std::array<const char*, 4> FahrwegZustaende = {"gg", "rr", "gr", "rg"};

struct Element {
    QString stamm;  // file name of Bmp without ".bmp"
    QString name;
    int typ = 0;
    int palette = 0;
    int familie = 0;
    int textAusrichtung = 4;
    Bild bild;
};

// The catalogue in file order; entry i of the vector gets index i + 1.
const std::vector<Element>& elementTabelle();

}  // namespace planor::elementbilder
