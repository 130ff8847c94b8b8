#pragma once
// A simulated LNCV module that answers LNCV requests as the receivers do
// (the LNCV exchange seen from the module's side): NAVIK/TOBRA receivers (47120,
// 47130, 47190, 47220, 47230, 47240, 5330) with 128 LNCVs and the universal
// block controllers (47320, 47330) with 460. LNCV 0 is the address, LNCV 16
// the firmware version.
//
// Sessions: a session start (0xED, command 0x21, flags 0x80) with the
// module's address, or 65535 for any module of the article, opens the
// module's session and is answered with LNCV 0. Reads and writes carry only
// the article, so a module answers them only while its session is open, as
// the real modules do; a session start for another module of the same
// article closes its session, so that one module answers at a time. A
// session end (0xE5, flags 0x40) with the module's address, the address that
// opened the session, or 65535 closes it silently. An LNCV at or beyond the
// module's count gets no answer.

#include "core/vb_zahlen.h"

#include <QByteArray>

#include <optional>
#include <vector>

namespace planor {

// An LNCV request, PXCT coding undone.
struct LncvAnfrage {
    quint8 opcode = 0;   // 0xED, or 0xE5 for the session end
    quint8 befehl = 0;   // 0x21 read and session, 0x20 write
    quint16 artikel = 0; // on the wire (article / 10, 5330 unchanged)
    quint16 lncv = 0;
    quint16 wert = 0;    // value, or the address in session commands
    quint8 flags = 0;    // 0x80 session start, 0x40 session end, 0 otherwise
};

// A message (with checksum) that is an LNCV request to a module; nothing otherwise.
std::optional<LncvAnfrage> LncvAnfrageLesen(const QByteArray& nachricht);

// A module's answer to a read or a session start, checksum included:
// E5 0F 05 49 4B 1F <PXCT1> <article> <lncv> <value> 00 <chk>.
QByteArray LncvAntwort(quint16 artikel, quint16 lncv, quint16 wert);
// The answer to a write: B4 6D <status> <chk>.
QByteArray LncvQuittung(quint8 status);

// Status bytes of the write answer.
enum : quint8 { LncvOk = 0x7F, LncvAbgelehnt = 0x00, LncvNurLesen = 0x02 };

class SimModul {
public:
    // `version`: the firmware number in LNCV 16; below 0 the article's default.
    SimModul(Long artikel, Long adresse, int version = -1);

    static bool artikelBekannt(Long artikel);
    // The firmware number a fresh module of the article carries.
    static int standardVersion(Long artikel);

    Long artikel() const { return artikel_; }
    quint16 drahtArtikel() const;
    int anzahl() const { return int(werte_.size()); }
    // The address the module was created with (its key in the state file).
    Long anfangsAdresse() const { return anfangsAdresse_; }
    Long adresse() const { return werte_[0]; }
    bool sitzungOffen() const { return sitzung_; }

    quint16 lncv(int nummer) const;
    void setzeLncv(int nummer, quint16 wert);
    // Back to the factory: all values 0 except address and version.
    void werkseinstellung(int version = -1);

    // Faults: a module that answers nothing at all; one that refuses every write.
    bool stumm = false;
    bool schreibenVerweigern = false;

    // The answers to one request (none, or one message with checksum); sets
    // `geaendert` when a value was written.
    std::vector<QByteArray> anfrage(const LncvAnfrage& a, bool& geaendert);

private:
    QByteArray schreiben(const LncvAnfrage& a, bool& geaendert);

    Long artikel_;
    Long anfangsAdresse_;
    std::vector<quint16> werte_;
    bool sitzung_ = false;
    quint16 sitzungsAdresse_ = 0;
};

}  // namespace planor
