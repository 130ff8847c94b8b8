#pragma once
// The text monitor's formatter. Turns one complete message of the
// monitor framing into the German text the monitor shows; the
// window, the CLI and the trace only show what comes out of here.

#include "core/vb_zahlen.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTime>

#include <array>

namespace planor {

inline constexpr int SlotTabZeilen = 21; // rows 0..20
inline constexpr int SlotTabSlots = 129; // slots 0..128

// Letzte_Anfrage after a switch state query (0xBC).
inline constexpr Integer AnfrageMagStatus = 188;

// The decoder's state across messages.
struct MonitorZustand {
    // Slot_Tab(row, slot): byte `row` of the slot's last OPC_SL_RD_DATA.
    std::array<std::array<Long, SlotTabSlots>, SlotTabZeilen> Slot_Tab {};
    Integer Letzte_Anfrage = 0;
    bool Hex_Ausgabe = false; // "HEX Ausgabe": only hexadecimal output
    bool Ascii_Hex = false; // "ASCII+HEX": unknown opcodes in hexadecimal

    Long slotTab(int zeile, int slot) const;
    // A locomotive address: row 9 times 128 plus row 4 of its slot.
    Long Lokadresse(int slot) const;
};

// decode_ln_mes: `nachricht` is one complete message with its
// checksum. Returns the text to show; empty shows nothing. Changes the state
// (Slot_Tab at 0xE7, Letzte_Anfrage at 0xBC and 0xB4).
QString decode_ln_mes(MonitorZustand& zustand, const QByteArray& nachricht);

// The message's bytes but the checksum, each as hex_$ and " ".
QString MonitorHex(const QByteArray& nachricht);

// ZeilenUmbruch's cut: no line for an empty text, else lines of at most 80
// characters. Each line raises Zeilen.
QStringList ZeilenUmbruch(const QString& text);

// The lines one text gives in the view: with Hex_Ausgabe the hex line is
// appended whole, any other text goes through ZeilenUmbruch.
QStringList MonitorZeilen(bool hexAusgabe, const QString& text);

// A view of more than 5000 characters keeps its last 4900 (the
// caller then sets Zeilen to 0); a shorter one comes back unchanged.
inline constexpr int MonitorHoechstZeichen = 5000;
inline constexpr int MonitorBehalteneZeichen = 4900;
QString MonitorKappen(const QString& ansicht);

// One trace line without its line end: the time of day in seconds as
// "000000,000" (German decimal comma), " - ", the text.
QString TraceZeile(QTime zeit, const QString& text);

} // namespace planor
