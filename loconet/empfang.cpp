#include "loconet/empfang.h"

#include "core/laufzeitfehler.h"

namespace planor {

namespace {

struct Erfassung {
    int zeile;
    int laenge;
};

// Capture lengths are fixed per first byte, whatever the
// message's own length byte says.
bool erfassung(quint8 b, Erfassung& e)
{
    switch (b) {
    case 0xB4: e = {ZeileLongAck, 4}; return true;
    case 0xE5: e = {ZeilePeerXfer, 15}; return true;
    case 0xED: e = {ZeileImmPacket, 15}; return true;
    case 0xE7: e = {ZeileSlRdData, 14}; return true;
    case 0xB0: e = {ZeileSwReq, 4}; return true;
    case 0xE4: e = {ZeileNavik, 8}; return true;
    default: return false;
    }
}

void pruefen(int zeile, int position)
{
    if (zeile < 0 || zeile >= EmpfangZeilen || position < 0 || position >= EmpfangPositionen)
        throw Laufzeitfehler(Fehlernummer::IndexAusserhalb);
}

}  // namespace

void Empfang::bytes(const QByteArray& daten)
{
    for (const char b : daten)
        byte(static_cast<quint8>(b));
}

void Empfang::byte(quint8 b)
{
    monitorFraming(b);
    zeilenFraming(b);
}

void Empfang::monitorFraming(quint8 b)
{
    if (monitorRahmen_.byte(b) == Nachrichtenrahmen::Stand::Fertig && Monitor_Aktiv && decode_ln_mes)
        decode_ln_mes(monitorRahmen_.nachricht());
}

void Empfang::zeilenFraming(quint8 b)
{
    Erfassung e{};
    // A new capturing opcode starts over; a byte of another opcode inside a
    // capture is stored as data (no resynchronisation).
    if (erfassung(b, e)) {
        erfassZeile_ = e.zeile;
        erfassLaenge_ = e.laenge;
        erfassPosition_ = 0;
        erfassen_ = true;
    }
    if (!erfassen_)
        return;
    tabelle_[std::size_t(erfassZeile_)][std::size_t(erfassPosition_++)] = Integer(b);
    if (erfassPosition_ == erfassLaenge_) {
        erfassen_ = false;
        tabelle_[std::size_t(erfassZeile_)][EmpfangFlag] = -1;
        if (Get_Adr_from_LN)
            Get_Adr_from_LN(erfassZeile_);
    }
}

Integer Empfang::wert(int zeile, int position) const
{
    pruefen(zeile, position);
    return tabelle_[std::size_t(zeile)][std::size_t(position)];
}

void Empfang::setzeWert(int zeile, int position, Integer wert)
{
    pruefen(zeile, position);
    tabelle_[std::size_t(zeile)][std::size_t(position)] = wert;
}

bool Empfang::da(int zeile, quint8 ersterByte) const
{
    return geflaggt(zeile) && wert(zeile, 0) == ersterByte;
}

void Empfang::tabelleLoeschen()
{
    for (auto& zeile : tabelle_)
        zeile.fill(0);
}

void Empfang::zeileLoeschen(int zeile)
{
    setzeWert(zeile, 0, 0);
    setzeWert(zeile, EmpfangFlag, 0);
}

void Empfang::decode_pxct1(int zeile)
{
    const Integer pxct = wert(zeile, 6);
    for (int k = 0; k <= 6; ++k)
        if (pxct & (1 << k))
            setzeWert(zeile, 7 + k, Integer(wert(zeile, 7 + k) + 128));
}

}  // namespace planor
