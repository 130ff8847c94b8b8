#include "loconet/nachricht.h"

#include "core/panel_model.h"

namespace planor {

quint8 Pruefsumme(const QByteArray& nachricht)
{
    quint8 summe = 0xFF;
    for (const char b : nachricht)
        summe ^= static_cast<quint8>(b);
    return summe;
}

QByteArray mitPruefsumme(QByteArray nachricht)
{
    nachricht.append(static_cast<char>(Pruefsumme(nachricht)));
    return nachricht;
}

QString hex_$(long long wert)
{
    QString text = QString::number(wert, 16).toUpper();
    if (text.size() != 2)
        text.prepend(u'0');
    return text;
}

Long DrahtArtikel(Long artNr)
{
    return artNr == 5330 ? artNr : artNr / 10;
}

namespace {

char b(long long wert) { return static_cast<char>(wert & 0xFF); }

}  // namespace

void PXCT_kodieren(QByteArray& puffer)
{
    quint8 pxct = 0;
    for (int k = 0; k <= 6; ++k) {
        const auto wert = static_cast<quint8>(puffer.at(7 + k));
        if (wert & 0x80)
            pxct |= quint8(1 << k);
        puffer[7 + k] = static_cast<char>(wert & 0x7F);
    }
    puffer[6] = static_cast<char>(pxct);
}

QByteArray LNCV_Nachricht(quint8 opcode, quint8 befehl, Long artikel, Long lncv, Long wert, quint8 flags)
{
    QByteArray puffer;
    puffer.append(b(opcode)).append(b(0x0F)).append(b(0x08)).append(b(0x05)).append(b(0x00)).append(b(befehl));
    puffer.append(b(0x00));
    puffer.append(b(artikel)).append(b(artikel >> 8));
    puffer.append(b(lncv)).append(b(lncv >> 8));
    puffer.append(b(wert)).append(b(wert >> 8));
    puffer.append(b(flags));
    PXCT_kodieren(puffer);
    return puffer;
}

QByteArray Prog_On_Nachricht(Long artikel, Long adresse)
{
    return LNCV_Nachricht(OPC_IMM_PACKET, LNCV_LESEN, artikel, 0, adresse, SITZUNG_START);
}

QByteArray Prog_Off_Nachricht(Long artikel, Long adresse)
{
    // The opcode here is 0xE5, not 0xED.
    return LNCV_Nachricht(OPC_PEER_XFER, LNCV_LESEN, artikel, 0, adresse, SITZUNG_ENDE);
}

QByteArray Read_Lncv_Nachricht(Long artikel, Long lncv)
{
    return LNCV_Nachricht(OPC_IMM_PACKET, LNCV_LESEN, artikel, lncv, 0, 0);
}

QByteArray Prog_Lncv_Nachricht(Long artikel, Long lncv, Integer wert)
{
    return LNCV_Nachricht(OPC_IMM_PACKET, LNCV_SCHREIBEN, artikel, lncv, Int_to_Unsig(wert), 0);
}

QByteArray Read_Mag_Nachricht(Long adresse)
{
    return QByteArray().append(b(OPC_SW_STATE)).append(b((adresse - 1) & 127)).append(b(((adresse - 1) / 128) & 15));
}

QByteArray SendMag_Nachricht(Long adresse, int stellung, bool ein)
{
    return QByteArray()
        .append(b(OPC_SW_REQ))
        .append(b((adresse - 1) & 127))
        .append(b((((adresse - 1) / 128) & 15) + stellung * 32 + (ein ? 16 : 0)));
}

QByteArray SendRM_Nachricht(Long adresse, int pegel)
{
    return QByteArray()
        .append(b(OPC_INPUT_REP))
        .append(b(((adresse - 1) / 2) & 127))
        .append(b((((adresse - 1) / 256) & 15) + pegel * 16 + ((adresse - 1) & 1) * 32 + 64));
}

QByteArray Ask_Navik_Nachricht(Long adresse)
{
    return QByteArray()
        .append(b(OPC_NAVIK))
        .append(b(0x08))
        .append(b(0x01))
        .append(b(((adresse / 128) & 31) + 32))
        .append(b(adresse & 127))
        .append(b(0))
        .append(b(0));
}

}  // namespace planor
