#pragma once
// What a module's article number says about it, for every layer that needs
// it: the family by which several procedures sort modules, and whether it is
// a universal block controller (two cells, 460 LNCVs, its own forms).

#include "core/vb_zahlen.h"

namespace planor {

constexpr bool istUniversal(Long artNr) { return artNr == 47320 || artNr == 47330; }

// The four families by which several procedures sort a module; 0 for none.
// A 47230 belongs to a family by its generation only.
constexpr int Modulfamilie(Long artNr, Integer version)
{
    switch (artNr) {
    case 5330:
    case 47220:
        return 1;
    case 47230:
        return version == 1 ? 1 : version == 2 ? 2 : 0;
    case 47120:
    case 47130:
    case 47190:
        return 3;
    case 47240:
        return 4;
    default:
        return 0;
    }
}

}  // namespace planor
