#pragma once
// A hand-written LNCV module on the scaffold transport, kept apart from the
// shipped simulator so that the exchange is checked against an independent
// reading of the protocol, and for what the simulator cannot do: answer for
// a foreign article or LNCV, and answer after an exact delay.

#include "core/vb_zahlen.h"
#include "tests/support/bus.h"

#include <array>
#include <map>
#include <vector>

namespace planor::test {

// The checksum as a module computes it: 0xFF XOR all bytes.
inline QByteArray mitChk(QByteArray m)
{
    quint8 c = 0xFF;
    for (const char b : m)
        c ^= static_cast<quint8>(b);
    return m.append(static_cast<char>(c));
}

// It answers a session start for its article and its address (or 65535)
// with LNCV 0 and its address, a read in a session with the value, a write
// in a session with OPC_LONG_ACK, each `verzoegerung` seconds after the
// request. A session end (0xE5, flag 0x40) is not answered.
class LncvModul {
public:
    LncvModul(Uhr& uhr, GeruestTransport& bus, Long artikelNr, Long modulAdresse)
        : artikel(artikelNr), adresse(modulAdresse), uhr_(uhr), bus_(bus)
    {
        bus_.antwort = [this](const QByteArray& b) { empfangen(b); };
    }

    Long artikel, adresse;
    std::map<Long, Long> werte;  // LNCVs not in here go unanswered
    static constexpr double verzoegerung = 0.05;
    int schweigen = 0;            // the first n requests go unanswered
    quint8 status = 0x7F;         // of a write's OPC_LONG_ACK; anything else refuses
    bool sitzung = false;
    bool fremd = false;           // answers every request with its own article and address
    Long lncvVersatz = 0;         // answers for another LNCV than asked
    std::vector<double> zeiten;   // virtual time of each 0xED request
    std::vector<int> verworfenBeiAnfrage;  // the transport's discard count at each request

private:
    void empfangen(const QByteArray& b)
    {
        if (b.size() != 15)
            return;
        std::array<int, 14> d{};
        for (int i = 0; i < 14; ++i)
            d[std::size_t(i)] = static_cast<quint8>(b.at(i)) | ((i >= 7 && (b.at(6) & (1 << (i - 7)))) ? 0x80 : 0);
        const Long art = d[7] | d[8] << 8, lncv = d[9] | d[10] << 8, wert = d[11] | d[12] << 8;
        if (d[0] == 0xE5 && d[13] == 0x40 && art == artikel)
            sitzung = false;
        if (d[0] != 0xED)
            return;
        zeiten.push_back(uhr_.sekunden());
        verworfenBeiAnfrage.push_back(bus_.verworfen);
        if (int(zeiten.size()) <= schweigen || !(fremd || art == artikel))
            return;
        if (d[5] == 0x21 && d[13] == 0x80 && (fremd || wert == adresse || wert == 65535)) {
            sitzung = true;
            antworten(lncvVersatz, adresse);
        } else if (d[5] == 0x21 && d[13] == 0 && sitzung && werte.count(lncv)) {
            antworten(lncv + lncvVersatz, werte[lncv]);
        } else if (d[5] == 0x20 && sitzung) {
            if (status == 0x7F)
                werte[lncv] = wert;
            bus_.senden(mitChk(QByteArray("\xB4\x6D", 2).append(char(status))), verzoegerung);
        }
    }

    // OPC_PEER_XFER E5 0F 05 49 4B 1F <PXCT1> art lncv value 00, with bit 7
    // of bytes 7..13 moved into PXCT1.
    void antworten(Long lncv, Long wert)
    {
        const Long m[7] = {artikel & 0xFF, artikel >> 8, lncv & 0xFF, lncv >> 8, wert & 0xFF, wert >> 8 & 0xFF, 0};
        QByteArray antwort("\xE5\x0F\x05\x49\x4B\x1F\x00", 7);
        for (int k = 0; k < 7; ++k) {
            antwort[6] = char(antwort[6] | ((m[k] & 0x80) ? 1 << k : 0));
            antwort.append(char(m[k] & 0x7F));
        }
        bus_.senden(mitChk(antwort), verzoegerung);
    }

    Uhr& uhr_;
    GeruestTransport& bus_;
};

}  // namespace planor::test
