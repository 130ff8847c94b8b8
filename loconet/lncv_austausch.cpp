#include "loconet/lncv_austausch.h"

#include "core/benutzer.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "loconet/link.h"
#include "loconet/nachricht.h"
#include "platform/uhr.h"

namespace planor {

namespace {

// How every exchange waits: the row flagged with the expected first byte
// within the limit; the table is re-read after every event.
bool warteAuf(LocoNetLink& link, int zeile, quint8 ersterByte, double grenze)
{
    return link.uhr().warten(grenze, [&] { return link.empfang().da(zeile, ersterByte); });
}

// Positions 7 and 8 of the answer stay coded and are compared with
// the coded request bytes. Do not mend: an article with bit 7 set in either
// byte matches because both sides are coded.
bool artikelPasst(const Empfang& e, const QByteArray& anfrage)
{
    return e.wert(ZeilePeerXfer, 7) == static_cast<quint8>(anfrage.at(7))
        && e.wert(ZeilePeerXfer, 8) == static_cast<quint8>(anfrage.at(8));
}

// Bit 7 of a position back by hand from position 6, in the table itself:
// (position 6 AND maske) times faktor.
void bitZurueck(Empfang& e, int position, int maske, int faktor)
{
    const int pxct = e.wert(ZeilePeerXfer, 6);
    e.setzeWert(ZeilePeerXfer, position, Integer(e.wert(ZeilePeerXfer, position) + (pxct & maske) * faktor));
}

// Positions 9 and 10, the LNCV number.
Long lncvDerAntwort(Empfang& e)
{
    bitZurueck(e, 9, 4, 32);
    bitZurueck(e, 10, 8, 16);
    return Long(e.wert(ZeilePeerXfer, 10)) * 256 + e.wert(ZeilePeerXfer, 9);
}

// Positions 11 and 12, the value (or the address in a session answer).
Long wertDerAntwort(Empfang& e)
{
    bitZurueck(e, 11, 16, 8);
    bitZurueck(e, 12, 32, 4);
    return Long(e.wert(ZeilePeerXfer, 12)) * 256 + e.wert(ZeilePeerXfer, 11);
}

// Prog_Lncv and Read_Mag clear only position 0 and the flag of rows 0 to 2.
void zeilen0bis2Loeschen(Empfang& e)
{
    for (int zeile = ZeileLongAck; zeile <= ZeileImmPacket; ++zeile)
        e.zeileLoeschen(zeile);
}

}  // namespace

void Prog_On(LocoNetLink& link, Long artikel, Long adresse, Long& err)
{
    geschuetzt("LocoNet : Prog_On", [&] {
        link.eingangVerwerfen();
        const QByteArray anfrage = Prog_On_Nachricht(artikel, adresse);
        Empfang& e = link.empfang();
        for (int versuch = 1;; ++versuch) {
            e.tabelleLoeschen();
            link.send(anfrage, err);
            if (err != ProgOK)
                return;
            if (warteAuf(link, ZeilePeerXfer, OPC_PEER_XFER, Prog_On_Wartezeit) && artikelPasst(e, anfrage)
                && lncvDerAntwort(e) == 0) {
                const Long antwortAdresse = wertDerAntwort(e);
                if (adresse == AlleModule || antwortAdresse == adresse)
                    return;
            }
            // A time-out and a failed check are both just a failed try.
            if (versuch == Prog_On_Versuche) {
                err = ProgKeineAntwort;
                return;
            }
        }
    });
}

void Prog_Off(LocoNetLink& link, Long artikel, Long adresse, Long& err)
{
    geschuetzt("LocoNet : Prog_Off", [&] {
        link.eingangVerwerfen();
        link.send(Prog_Off_Nachricht(artikel, adresse), err);
    });
}

void Read_Lncv(LocoNetLink& link, Long artikel, Long lncv, Long& wert, Long& err)
{
    geschuetzt("LocoNet : Read_Lncv", [&] {
        const QByteArray anfrage = Read_Lncv_Nachricht(artikel, lncv);
        Empfang& e = link.empfang();
        for (int versuch = 1; versuch <= Lncv_Versuche; ++versuch) {
            // Read_Lncv discards input in each try, just before sending.
            e.tabelleLoeschen();
            link.eingangVerwerfen();
            link.send(anfrage, err);
            if (err != ProgOK)
                return;
            if (warteAuf(link, ZeilePeerXfer, OPC_PEER_XFER, Lncv_Wartezeit) && artikelPasst(e, anfrage)
                && lncvDerAntwort(e) == lncv) {
                wert = wertDerAntwort(e);
                err = ProgOK;
                return;
            }
        }
        err = ProgKeineAntwort;
    });
}

void Prog_Lncv(LocoNetLink& link, Long artikel, Long lncv, Integer wert, Long& err)
{
    geschuetzt("LocoNet : Prog_Lncv", [&] {
        link.eingangVerwerfen();
        const QByteArray anfrage = Prog_Lncv_Nachricht(artikel, lncv, wert);
        Empfang& e = link.empfang();
        for (int versuch = 1; versuch <= Lncv_Versuche; ++versuch) {
            zeilen0bis2Loeschen(e);
            link.send(anfrage, err);
            if (err != ProgOK)
                return;
            // Any OPC_LONG_ACK ends the write, without a further try: it
            // either accepts (0x7F) or refuses.
            if (warteAuf(link, ZeileLongAck, OPC_LONG_ACK, Lncv_Wartezeit)) {
                err = e.wert(ZeileLongAck, 2) == 0x7F ? ProgOK : ProgAbgelehnt;
                return;
            }
        }
        err = ProgKeineAntwort;
    });
}

void ProgOffEcho_abwarten(LocoNetLink& link)
{
    const Empfang& e = link.empfang();
    link.uhr().warten(ProgOffEchoGrenze, [&] { return e.da(ZeilePeerXfer, OPC_PEER_XFER) && e.wert(ZeilePeerXfer, 2) == 0x08; });
}

void Prog_Off_mit_Echo(LocoNetLink& link, Long artikel, Long adresse, Long& err)
{
    link.empfang().zeileLoeschen(ZeilePeerXfer);
    Prog_Off(link, artikel, adresse, err);
    if (err == ProgOK)
        ProgOffEcho_abwarten(link);
}

void Read_Mag(LocoNetLink& link, Long adresse, Integer& zustand, Long& err)
{
    geschuetzt("LocoNet : Read_Mag", [&] {
        link.eingangVerwerfen();
        const QByteArray anfrage = Read_Mag_Nachricht(adresse);
        Empfang& e = link.empfang();
        for (int versuch = 1; versuch <= Lncv_Versuche; ++versuch) {
            zeilen0bis2Loeschen(e);
            link.send(anfrage, err);
            if (err != ProgOK)
                return;
            if (warteAuf(link, ZeileLongAck, OPC_LONG_ACK, Lncv_Wartezeit)) {
                // Only an answer to OPC_SW_STATE tells the position; whatever
                // came, err stays as send left it.
                if (e.wert(ZeileLongAck, 1) == 0x3C) {
                    const Integer stellung = e.wert(ZeileLongAck, 2);
                    if (stellung == 0x30)
                        zustand = 1;
                    else if (stellung == 0x50)
                        zustand = 0;
                }
                return;
            }
        }
        err = ProgKeineAntwort;
    });
}

void SendMag(LocoNetLink& link, Long adresse, Integer stellung, Long& err)
{
    geschuetzt("LocoNet : SendMag", [&] {
        link.eingangVerwerfen();
        link.send(SendMag_Nachricht(adresse, stellung, true), err);
        if (err != ProgOK)
            return;
        link.uhr().delay(SendMag_Pause);
        link.send(SendMag_Nachricht(adresse, stellung, false), err);
    });
}

void SendRM(LocoNetLink& link, Long adresse, Integer pegel, Long& err)
{
    geschuetzt("LocoNet : SendRM", [&] {
        link.eingangVerwerfen();
        link.send(SendRM_Nachricht(adresse, pegel), err);
    });
}

void Ask_Navik(LocoNetLink& link, Long adresse, Long& err)
{
    geschuetzt("LocoNet : Ask_Navik", [&] {
        link.empfang().tabelleLoeschen();
        link.eingangVerwerfen();
        link.send(Ask_Navik_Nachricht(adresse), err);
    });
}

QString ProgFehlerText(Long code)
{
    switch (code) {
    case ProgSendeFehler: return QStringLiteral("Message kann nicht auf ComPort gesendet werden!");
    case ProgKeineAntwort: return QStringLiteral("Modul reagiert nicht");
    case ProgAbgelehnt: return QStringLiteral("Programmierung des Wertes gescheitert");
    default: return QStringLiteral("Unbekannter Fehler!");
    }
}

void prog_error_meldung(Benutzer& benutzer, Long code)
{
    geschuetzt("LocoNet : prog_error_meldung", [&] {
        benutzer.meldung(QStringLiteral("Fehler bei Lesen oder Programmieren eines Moduls"),
                         QStringLiteral("Fehler:\n") + ProgFehlerText(code), Symbol::Kritisch);
    });
}

void Get_Navik_Version(LocoNetLink& link, Benutzer& benutzer, Anlage& anlage, int x, int y)
{
    geschuetzt("LocoNet : Get_Navik_Version", [&] {
        XY_Typ& zelle = anlage.XY(x, y);
        const Long artNr = zelle.XY_ArtNr;
        switch (artNr) {
        case 47120:
        case 47130:
        case 47190:
        case 47220:
        case 47240:
            // These types have no version distinction.
            zelle.XY_Version = 0;
            return;
        case 5330:
        case 47230: break;
        default: return;
        }
        // The default when nothing could be read.
        auto standard = [&] { zelle.XY_Version = artNr == 5330 ? 2 : 1; };

        if (!link.istOffen()) {
            benutzer.meldung(QStringLiteral("Fehler"),
                             QStringLiteral("               Der PC ist nicht mit der Rondel verbunden!\n"
                                            "              Die Software-Version kann nicht ermittelt werden!\n"
                                            "Bitte stellen Sie die Verbindung mit der Rondel her und wiederholen "
                                            "Sie den Vorgang!"),
                             Symbol::Kritisch);
            standard();
            return;
        }
        const Long artikel = DrahtArtikel(artNr);
        const Long adresse = Int_to_Unsig(zelle.XY_LNCV(0));
        Long err = ProgOK;
        Prog_On(link, artikel, adresse, err);
        if (err != ProgOK) {
            benutzer.meldung(QStringLiteral("Fehler"),
                             QStringLiteral("                   Modul antwortet nicht!\n"
                                            "     Die Software-Version kann nicht ermittelt werden!\n"
                                            "Bitte überprüfen Sie das Modul und wiederholen Sie den Vorgang!"),
                             Symbol::Kritisch);
            standard();
            return;
        }
        Long version = 0;
        Read_Lncv(link, artikel, 16, version, err);
        // The session ends whatever the read gave; its own result is not used.
        Long errOff = ProgOK;
        Prog_Off(link, artikel, adresse, errOff);
        // An unreadable LNCV 16 gives the default.
        if (err != ProgOK) {
            standard();
            return;
        }
        if (artNr == 5330)
            zelle.XY_Version = version < 200 ? 1 : 2;
        else
            zelle.XY_Version = version < 205 ? 1 : 2;
    });
}

}  // namespace planor
