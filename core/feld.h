#pragma once
// Fixed-bound arrays as the data model declares them ("Dim XY(99, 99)"):
// allocated once at their full size, index 0 included, never resized.
// Every access is checked; an index out of bounds raises run-time error 9,
// which the guard of the calling procedure reports.

#include "core/laufzeitfehler.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace planor {

// One dimension, indices Lo..Hi. Held inline: for small arrays inside records,
// so that a record stays plain data and copies as one block.
template <typename T, int Lo, int Hi>
class Feld {
    static_assert(Lo <= Hi);

public:
    static constexpr int LBound = Lo;
    static constexpr int UBound = Hi;

    T& operator()(int i) { return daten_[stelle(i)]; }
    const T& operator()(int i) const { return daten_[stelle(i)]; }

    void fuellen(const T& wert) { daten_.fill(wert); }
    bool operator==(const Feld&) const = default;

private:
    static std::size_t stelle(int i)
    {
        if (i < Lo || i > Hi)
            throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
        return static_cast<std::size_t>(i - Lo);
    }

    std::array<T, Hi - Lo + 1> daten_{};
};

// Two dimensions, indices 0..HiX by 0..HiY, held on the heap (the panel's
// cells are too large for the stack).
template <typename T, int HiX, int HiY>
class Feld2 {
public:
    static constexpr int UBoundX = HiX;
    static constexpr int UBoundY = HiY;

    Feld2() : daten_(static_cast<std::size_t>((HiX + 1) * (HiY + 1))) {}

    T& operator()(int x, int y) { return daten_[stelle(x, y)]; }
    const T& operator()(int x, int y) const { return daten_[stelle(x, y)]; }

    void fuellen(const T& wert) { std::fill(daten_.begin(), daten_.end(), wert); }

private:
    static std::size_t stelle(int x, int y)
    {
        if (x < 0 || x > HiX || y < 0 || y > HiY)
            throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
        return static_cast<std::size_t>(x * (HiY + 1) + y);
    }

    std::vector<T> daten_;
};

}  // namespace planor
