#pragma once
// Part 2.3 test scaffold: a module that answers as an Uhlenbrock LNCV module
// does, on the scaffold transport in virtual time, the byte-exact requests of
// Part 2.3, and a fixture with a link over the scaffold transport.

#include "core/vb_zahlen.h"
#include "loconet/link.h"
#include "tests/support/berichte.h"
#include "tests/support/bus.h"

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace planor::test {

// Bytes as the spec writes them, "ED 0F ...".
inline QByteArray hexBytes(const char* text)
{
    return QByteArray::fromHex(QByteArray(text).replace(' ', ""));
}

inline QByteArray mal(const QByteArray& nachricht, int n)
{
    return nachricht.repeated(n);
}

// The checksum as a module computes it: 0xFF XOR all bytes.
inline QByteArray mitChk(QByteArray m)
{
    quint8 c = 0xFF;
    for (const char b : m)
        c ^= static_cast<quint8>(b);
    return m.append(static_cast<char>(c));
}

// A module of the Uhlenbrock kind. It answers a session start for its
// article and its address (or 65535) with LNCV 0 and its address, a read in
// a session with the value, a write in a session with OPC_LONG_ACK; every
// answer comes `verzoegerung` seconds after the request. A session end
// (0xE5, flag 0x40) is not answered.
class LncvModul {
public:
    LncvModul(Uhr& uhr, GeruestTransport& bus, Long artikelNr, Long modulAdresse)
        : artikel(artikelNr), adresse(modulAdresse), uhr_(uhr), bus_(bus)
    {
        bus_.antwort = [this](const QByteArray& b) { empfangen(b); };
    }

    Long artikel;
    Long adresse;
    std::map<Long, Long> werte;  // LNCVs not in here go unanswered
    double verzoegerung = 0.05;
    int schweigen = 0;            // the first n requests go unanswered
    quint8 status = 0x7F;         // of a write's OPC_LONG_ACK; anything else refuses
    bool sitzung = false;
    bool fremd = false;           // answers every request with its own article and address
    Long lncvVersatz = 0;         // answers for another LNCV than asked
    int anfragen = 0;             // 0xED requests seen
    std::vector<double> zeiten;   // virtual time of each request
    std::vector<int> verworfenBeiAnfrage;  // the transport's discard count at each request

private:
    void empfangen(const QByteArray& b)
    {
        if (b.size() != 15)
            return;
        std::array<int, 14> d{};
        for (int i = 0; i < 14; ++i)
            d[std::size_t(i)] = static_cast<quint8>(b.at(i));
        for (int k = 0; k <= 6; ++k)
            if (d[6] & (1 << k))
                d[std::size_t(7 + k)] |= 0x80;
        const Long art = d[7] | d[8] << 8, lncv = d[9] | d[10] << 8, wert = d[11] | d[12] << 8;
        const int befehl = d[5], flags = d[13];
        if (d[0] == 0xE5 && flags == 0x40 && art == artikel) {
            sitzung = false;
            return;
        }
        if (d[0] != 0xED)
            return;
        ++anfragen;
        zeiten.push_back(uhr_.sekunden());
        verworfenBeiAnfrage.push_back(bus_.verworfen);
        if (anfragen <= schweigen)
            return;
        const bool meins = fremd || art == artikel;
        if (befehl == 0x21 && flags == 0x80) {
            if (meins && (fremd || wert == adresse || wert == 65535)) {
                sitzung = true;
                antworten(0 + lncvVersatz, adresse);
            }
        } else if (befehl == 0x21 && flags == 0) {
            if (meins && sitzung && werte.count(lncv))
                antworten(lncv + lncvVersatz, werte[lncv]);
        } else if (befehl == 0x20) {
            if (meins && sitzung) {
                if (status == 0x7F)
                    werte[lncv] = wert;
                bus_.senden(mitChk(QByteArray().append(char(0xB4)).append(char(0x6D)).append(char(status))),
                            verzoegerung);
            }
        }
    }

    // OPC_PEER_XFER E5 0F 05 49 4B 1F <PXCT1> art lncv value 00, with bit 7
    // of bytes 7..13 moved into PXCT1.
    void antworten(Long lncv, Long wert)
    {
        std::array<int, 14> m{0xE5, 0x0F, 0x05, 0x49, 0x4B, 0x1F, 0, artikel & 0xFF, artikel >> 8 & 0xFF,
                              lncv & 0xFF, lncv >> 8 & 0xFF, wert & 0xFF, wert >> 8 & 0xFF, 0};
        for (int k = 0; k <= 6; ++k) {
            if (m[std::size_t(7 + k)] & 0x80) {
                m[6] |= 1 << k;
                m[std::size_t(7 + k)] &= 0x7F;
            }
        }
        QByteArray antwort;
        for (int x : m)
            antwort.append(static_cast<char>(x));
        bus_.senden(mitChk(antwort), verzoegerung);
    }

    Uhr& uhr_;
    GeruestTransport& bus_;
};

// Part 2.3's requests, checksums included (4723 = 0x1273, 1234 = 0x04D2).
inline const QByteArray ProgOn4723_1234 = hexBytes("ED 0F 08 05 00 21 50 73 12 00 00 52 04 00 56");
inline const QByteArray ProgOn4723_Alle = hexBytes("ED 0F 08 05 00 21 70 73 12 00 00 7F 7F 00 20");
inline const QByteArray ProgOff4723_1234 = hexBytes("E5 0F 08 05 00 21 10 73 12 00 00 52 04 40 5E");
inline const QByteArray Read4723_16 = hexBytes("ED 0F 08 05 00 21 00 73 12 10 00 00 00 00 40");
inline const QByteArray Read4723_128 = hexBytes("ED 0F 08 05 00 21 04 73 12 00 00 00 00 00 54");
inline const QByteArray Prog4723_5_300 = hexBytes("ED 0F 08 05 00 20 00 73 12 05 00 2C 01 00 79");
inline const QByteArray Prog4723_5_Minus1 = hexBytes("ED 0F 08 05 00 20 30 73 12 05 00 7F 7F 00 64");
// 5330 = 0x14D2: the article's low byte travels coded too.
inline const QByteArray ProgOn5330_1234 = hexBytes("ED 0F 08 05 00 21 51 52 14 00 00 52 04 00 70");
inline const QByteArray Read5330_16 = hexBytes("ED 0F 08 05 00 21 01 52 14 10 00 00 00 00 66");
inline const QByteArray ProgOff5330_1234 = hexBytes("E5 0F 08 05 00 21 11 52 14 00 00 52 04 40 78");

// A link over the scaffold transport on the test's clock; a run-time error
// reported by a guard fails the test.
class MitLncvBus : public MitFehlerbericht {
protected:
    void SetUp() override
    {
        MitFehlerbericht::SetUp();
        auto t = std::make_unique<GeruestTransport>(uhr);
        bus = t.get();
        link.setzeTransport(std::move(t));
    }
    void TearDown() override { EXPECT_TRUE(berichte.texte.isEmpty()) << "no run-time error was reported"; }

    double seit(double t0) const { return uhr.sekunden() - t0; }
    // A reply `sekunden` after each request, e.g. to Read_Mag.
    void antworteMit(const QByteArray& antwort, double sekunden = 0.05)
    {
        bus->antwort = [this, antwort, sekunden](const QByteArray&) { bus->senden(antwort, sekunden); };
    }

    LocoNetLink link{uhr};
    GeruestTransport* bus = nullptr;
};

}  // namespace planor::test
