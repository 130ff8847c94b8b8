#pragma once
// empfang: the bytes from the port through both framings, byte by
// byte — the monitor framing (whole messages for the text monitor) and the
// row capture into the reception table for the waiting callers. One pure
// framer fed by every transport.

#include "core/vb_zahlen.h"
#include "loconet/rahmen.h"

#include <QByteArray>

#include <array>
#include <functional>

namespace planor {

inline constexpr int EmpfangZeilen = 11;     // rows 0..10
inline constexpr int EmpfangPositionen = 34; // positions 0..33; 33 is the received flag
inline constexpr int EmpfangFlag = 33;

// Rows of the reception table by first byte.
enum EmpfangZeile : int { ZeileLongAck = 0, ZeilePeerXfer = 1, ZeileImmPacket = 2, ZeileSlRdData = 3,
                          ZeileSwReq = 4, ZeileNavik = 5 };

class Empfang {
public:
    // One byte from the port.
    void byte(quint8 b);
    void bytes(const QByteArray& daten);

    // The reception table: 16-bit signed values; a row's flag is 0xFFFF (-1)
    // once the row has been filled completely.
    Integer wert(int zeile, int position) const;
    bool geflaggt(int zeile) const { return wert(zeile, EmpfangFlag) == -1; }
    // The caller's wait: the row is flagged and begins with the expected byte.
    bool da(int zeile, quint8 ersterByte) const;
    // Clearing before sending: the whole table, or position 0 and the flag of a row.
    void tabelleLoeschen();
    void zeileLoeschen(int zeile);
    void setzeWert(int zeile, int position, Integer wert);

    // decode_pxct1: bit k of position 6 is added as 128 to position 7+k.
    void decode_pxct1(int zeile);

    // Monitor_Aktiv: complete messages of the monitor framing go to decode_ln_mes.
    bool Monitor_Aktiv = false;
    std::function<void(const QByteArray&)> decode_ln_mes;
    // Each completed row goes to Get_Adr_from_LN.
    std::function<void(int zeile)> Get_Adr_from_LN;

private:
    void monitorFraming(quint8 b);
    void zeilenFraming(quint8 b);

    std::array<std::array<Integer, EmpfangPositionen>, EmpfangZeilen> tabelle_{};
    bool erfassen_ = false;
    int erfassZeile_ = 0, erfassPosition_ = 0, erfassLaenge_ = 0;
    Nachrichtenrahmen monitorRahmen_{513};
};

}  // namespace planor
