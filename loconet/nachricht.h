#pragma once
// The messages the program composes, as the bytes of the
// send buffer (without the checksum, which `send` adds), and the helpers
// around them. Pure functions: one test per message pins every byte.

#include "core/vb_zahlen.h"

#include <QByteArray>
#include <QString>

namespace planor {

// The checksum: 0xFF XOR all bytes of the message.
quint8 Pruefsumme(const QByteArray& nachricht);
QByteArray mitPruefsumme(QByteArray nachricht);

// hex_$: upper-case hexadecimal; a text whose length is not 2 gets one "0"
// in front, so 5 gives "05" and 300 gives "012C".
QString hex_$(long long wert);

// The article number on the wire: XY_ArtNr divided by 10, 5330 unchanged.
Long DrahtArtikel(Long artNr);

// The LNCV message, PXCT-coded, bytes 0 to 13.
enum : quint8 { OPC_IMM_PACKET = 0xED, OPC_PEER_XFER = 0xE5, OPC_LONG_ACK = 0xB4, OPC_SW_REQ = 0xB0,
                OPC_SW_STATE = 0xBC, OPC_INPUT_REP = 0xB2, OPC_SL_RD_DATA = 0xE7, OPC_NAVIK = 0xE4 };
enum : quint8 { LNCV_LESEN = 0x21, LNCV_SCHREIBEN = 0x20, SITZUNG_START = 0x80, SITZUNG_ENDE = 0x40 };

QByteArray LNCV_Nachricht(quint8 opcode, quint8 befehl, Long artikel, Long lncv, Long wert, quint8 flags);

// PXCT coding in place: bit 7 of bytes 7..13 moves into byte 6.
void PXCT_kodieren(QByteArray& puffer);

QByteArray Prog_On_Nachricht(Long artikel, Long adresse);
QByteArray Prog_Off_Nachricht(Long artikel, Long adresse);
QByteArray Read_Lncv_Nachricht(Long artikel, Long lncv);
// value: the stored (two's complement) form, converted by Int_to_Unsig.
QByteArray Prog_Lncv_Nachricht(Long artikel, Long lncv, Integer wert);
QByteArray Read_Mag_Nachricht(Long adresse);
// SendMag's first message (with 16: "on"); `ein` false gives the second.
QByteArray SendMag_Nachricht(Long adresse, int stellung, bool ein);
QByteArray SendRM_Nachricht(Long adresse, int pegel);
QByteArray Ask_Navik_Nachricht(Long adresse);

}  // namespace planor
