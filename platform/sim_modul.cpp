#include "platform/sim_modul.h"

#include "core/modul_artikel.h"
#include "loconet/nachricht.h"

namespace planor {

namespace {

constexpr int VersionsLncv = 16;
constexpr quint16 JedesModul = 65535;

char b(int wert) { return static_cast<char>(wert & 0xFF); }

}  // namespace

std::optional<LncvAnfrage> LncvAnfrageLesen(const QByteArray& nachricht)
{
    if (nachricht.size() != 15 || Pruefsumme(nachricht.left(14)) != quint8(nachricht.at(14)))
        return std::nullopt;
    const auto at = [&](int i) { return quint8(nachricht.at(i)); };
    // Requests go to destination 5 (an LNCV module) with command 0x20/0x21;
    // the modules' own answers (destination 0x49, 0x1F) are not requests.
    if ((at(0) != OPC_IMM_PACKET && at(0) != OPC_PEER_XFER) || at(1) != 0x0F || at(3) != 0x05)
        return std::nullopt;
    if (at(5) != LNCV_LESEN && at(5) != LNCV_SCHREIBEN)
        return std::nullopt;
    // Bit k of byte 6 is bit 7 of byte 7+k.
    quint8 d[7];
    for (int k = 0; k < 7; ++k)
        d[k] = quint8(at(7 + k) | ((at(6) >> k) & 1) << 7);
    LncvAnfrage a;
    a.opcode = at(0);
    a.befehl = at(5);
    a.artikel = quint16(d[0] | d[1] << 8);
    a.lncv = quint16(d[2] | d[3] << 8);
    a.wert = quint16(d[4] | d[5] << 8);
    a.flags = d[6];
    return a;
}

QByteArray LncvAntwort(quint16 artikel, quint16 lncv, quint16 wert)
{
    QByteArray m;
    m.append(b(OPC_PEER_XFER)).append(b(0x0F)).append(b(0x05)).append(b(0x49)).append(b(0x4B)).append(b(0x1F));
    m.append(b(0));
    m.append(b(artikel)).append(b(artikel >> 8));
    m.append(b(lncv)).append(b(lncv >> 8));
    m.append(b(wert)).append(b(wert >> 8));
    m.append(b(0));
    PXCT_kodieren(m);
    return mitPruefsumme(m);
}

QByteArray LncvQuittung(quint8 status)
{
    return mitPruefsumme(QByteArray().append(b(OPC_LONG_ACK)).append(b(OPC_IMM_PACKET & 0x7F)).append(b(status)));
}

bool SimModul::artikelBekannt(Long artikel)
{
    switch (artikel) {
    case 47120: case 47130: case 47190: case 47220: case 47230: case 47240: case 5330: case 47320: case 47330:
        return true;
    default:
        return false;
    }
}

int SimModul::standardVersion(Long artikel)
{
    // Get_Navik_Version sorts 5330 below 200 and 47230 below 205
    // into generation 1; a fresh module is of the newer generation.
    switch (artikel) {
    case 5330: return 200;
    case 47230: return 205;
    default: return 100;
    }
}

SimModul::SimModul(Long artikel, Long adresse, int version)
    : artikel_(artikel), anfangsAdresse_(adresse), werte_(istUniversal(artikel) ? 460 : 128, 0)
{
    werkseinstellung(version);
}

void SimModul::werkseinstellung(int version)
{
    std::fill(werte_.begin(), werte_.end(), quint16(0));
    werte_[0] = quint16(anfangsAdresse_);
    werte_[VersionsLncv] = quint16(version < 0 ? standardVersion(artikel_) : version);
}

quint16 SimModul::drahtArtikel() const
{
    return quint16(DrahtArtikel(artikel_));
}

quint16 SimModul::lncv(int nummer) const
{
    return nummer >= 0 && nummer < anzahl() ? werte_[std::size_t(nummer)] : 0;
}

void SimModul::setzeLncv(int nummer, quint16 wert)
{
    if (nummer >= 0 && nummer < anzahl())
        werte_[std::size_t(nummer)] = wert;
}

std::vector<QByteArray> SimModul::anfrage(const LncvAnfrage& a, bool& geaendert)
{
    if (stumm || a.artikel != drahtArtikel())
        return {};
    if (a.opcode == OPC_IMM_PACKET && a.befehl == LNCV_LESEN && a.flags == SITZUNG_START) {
        if (a.wert != adresse() && a.wert != JedesModul) {
            sitzung_ = false;
            return {};
        }
        sitzung_ = true;
        sitzungsAdresse_ = a.wert;
        return {LncvAntwort(drahtArtikel(), 0, adresse())};
    }
    if (a.opcode == OPC_PEER_XFER) {
        if (a.flags == SITZUNG_ENDE && (a.wert == adresse() || a.wert == sitzungsAdresse_ || a.wert == JedesModul))
            sitzung_ = false;
        return {};
    }
    if (!sitzung_ || a.flags != 0 || a.lncv >= anzahl())
        return {};
    if (a.befehl == LNCV_LESEN)
        return {LncvAntwort(drahtArtikel(), a.lncv, lncv(a.lncv))};
    return {schreiben(a, geaendert)};
}

QByteArray SimModul::schreiben(const LncvAnfrage& a, bool& geaendert)
{
    if (schreibenVerweigern)
        return LncvQuittung(LncvAbgelehnt);
    // The firmware number of a receiver cannot be changed (bulk programming
    // never writes it); the controllers keep LNCV 16 as an ordinary value.
    if (a.lncv == VersionsLncv && !istUniversal(artikel_))
        return LncvQuittung(LncvNurLesen);
    if (lncv(a.lncv) != a.wert) {
        setzeLncv(a.lncv, a.wert);
        geaendert = true;
    }
    return LncvQuittung(LncvOk);
}

}  // namespace planor
