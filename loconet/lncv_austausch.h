#pragma once
// The LNCV exchange — the operations by which the program talks to
// one module or accessory over the link: session start and end, reading and
// writing one LNCV, a turnout's state, switching a turnout, a simulated
// feedback input, the NAVIK report query, and the firmware generation of a
// module. Each composes its message (nachricht.h), sends it with the link's
// `send` and, where an answer is awaited, polls the reception table on the
// link's clock within the tries and limits below. Results are the `err`
// codes below, never exceptions; every operation carries the guard
// "LocoNet : <Procedure>".
//
// Articles: every `artikel` argument is the article on the wire, already
// converted by DrahtArtikel (XY_ArtNr / 10, 5330 unchanged). Only
// Get_Navik_Version takes its article from the cell and converts it itself.

#include "core/vb_zahlen.h"

#include <QString>

namespace planor {

class Anlage;
class Benutzer;
class LocoNetLink;

// The result codes of `err`.
inline constexpr Long ProgOK = 0;             // success
inline constexpr Long ProgSendeFehler = 1;    // `send` could not finish
inline constexpr Long ProgKeineAntwort = 2;   // no valid answer within all tries
inline constexpr Long ProgAbgelehnt = 3;      // the module refused

// Tries and waits per try, in seconds.
inline constexpr int Prog_On_Versuche = 5;
inline constexpr double Prog_On_Wartezeit = 0.2;
inline constexpr int Lncv_Versuche = 10;        // Read_Lncv, Prog_Lncv, Read_Mag
inline constexpr double Lncv_Wartezeit = 0.5;
inline constexpr double SendMag_Pause = 0.3;    // between "on" and "off"

// The broadcast address of Prog_On: any module of the type answers.
inline constexpr Long AlleModule = 65535;

// Opens a session with the module `adresse` (65535: any module of the type).
void Prog_On(LocoNetLink& link, Long artikel, Long adresse, Long& err);
// Ends the session; no answer is awaited, `err` is that of `send`.
void Prog_Off(LocoNetLink& link, Long artikel, Long adresse, Long& err);
// Prog_Off is an OPC_PEER_XFER (0xE5) like the modules' answers, and the bus
// echoes it into row 1 about one message time later. Arriving during the
// next Prog_On it would count as a wrong answer: that try is lost, and the
// answer to it then lands in the following exchange — a shift that feeds
// itself from exchange to exchange. Callers that open another session right
// after a Prog_Off (or Get_Navik_Version) therefore await the echo, at most
// ProgOffEchoGrenze (an interface without echo costs that once).
inline constexpr double ProgOffEchoGrenze = 0.1;
void ProgOffEcho_abwarten(LocoNetLink& link);
// Row 1 cleared, Prog_Off, and on success its echo awaited.
void Prog_Off_mit_Echo(LocoNetLink& link, Long artikel, Long adresse, Long& err);
// Reads one LNCV; `wert` is the unsigned value 0..65535, set only on success.
void Read_Lncv(LocoNetLink& link, Long artikel, Long lncv, Long& wert, Long& err);
// Writes one LNCV; `wert` in its stored form (16-bit two's complement, as in
// XY_LNCV), converted by Int_to_Unsig on the way out.
void Prog_Lncv(LocoNetLink& link, Long artikel, Long lncv, Integer wert, Long& err);
// Asks an accessory for its position: `zustand` 1 (green) or 0 (red), or left
// untouched when the answer does not tell.
void Read_Mag(LocoNetLink& link, Long adresse, Integer& zustand, Long& err);
// Switches an accessory to `stellung` 0 or 1: "on", 0.3 s, "off".
void SendMag(LocoNetLink& link, Long adresse, Integer stellung, Long& err);
// Simulates the feedback input `adresse` at `pegel` 0 or 1.
void SendRM(LocoNetLink& link, Long adresse, Integer pegel, Long& err);
// Asks NAVIK module `adresse` for its last report; the answer is seen through
// Get_Adr_from_LN when row 5 fills, this does not wait for it.
void Ask_Navik(LocoNetLink& link, Long adresse, Long& err);

// The text of a result code; any code other than 1, 2 and 3 gives
// "Unbekannter Fehler!".
QString ProgFehlerText(Long code);
// The message box of a failed exchange: title "Fehler bei Lesen oder
// Programmieren eines Moduls", stop icon, "Fehler:", a line break, the text.
void prog_error_meldung(Benutzer& benutzer, Long code);

// Decides XY_Version of the module at cell (x, y). The
// article comes from the cell's XY_ArtNr, the address from its XY_LNCV(0).
void Get_Navik_Version(LocoNetLink& link, Benutzer& benutzer, Anlage& anlage, int x, int y);

}  // namespace planor
