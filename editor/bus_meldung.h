#pragma once
// Get_Adr_from_LN, first half: what a completed row of the
// reception table tells the address view and the live monitor.
// The views decide what to do with it; this only reads the bytes.

#include "core/vb_zahlen.h"

namespace planor {

class Empfang;

struct BusMeldung {
    enum Art { Keine, Empfaenger, Magnetartikel };
    Art art = Keine;
    // Empfaenger: the receiver, (b3 AND 31) × 128 + b4.
    // Magnetartikel: b1 + (b2 AND 15) × 128 + 1.
    Long adresse = 0;
    // Empfaenger: byte 3, whose bits 5 and 6 tell the kind and direction.
    Integer status = 0;
    // Empfaenger: the locomotive, b5 × 128 + b6.
    Long lok = 0;
    // Magnetartikel: bit 5 of byte 2, the position (1 green, 0 red).
    Integer zustand = 0;

    // A train report, not a speed, block state or query answer (b3 AND 0xE0 not 0x20).
    bool zugmeldung() const { return (status & 0xE0) != 0x20; }
    // View 2 drops reports whose bits 5 and 6 of byte 3 equal 32.
    bool fuerAdressAnsicht() const { return (status & 0x60) != 0x20; }
};

// Row `zeile` has just been filled. 0xE4 gives a receiver report; 0xB0 a
// switch command only with bit 4 of byte 2 set (the "on" half of SendMag);
// anything else Keine.
BusMeldung Get_Adr_from_LN(const Empfang& empfang, int zeile);

}  // namespace planor
