#include "loconet/monitor_text.h"

#include "loconet/nachricht.h"

namespace planor {

namespace {

// A bad message still produces text from what it holds: a byte the
// message does not have reads as 0.
class Bytes {
public:
    explicit Bytes(const QByteArray& n)
        : n_(n)
    {
    }
    int operator[](int i) const { return i < n_.size() ? static_cast<quint8>(n_[i]) : 0; }

private:
    const QByteArray& n_;
};

bool bit(int wert, int nummer)
{
    return (wert >> nummer) & 1;
}

// 0xA1 and 0xE7's byte 6: direction, then F0 to F4.
QString RichtungF0bisF4(int b)
{
    QString t = bit(b, 5) ? QStringLiteral("rückwärts ") : QStringLiteral("vorwärts ");
    if (bit(b, 4))
        t += u"F0 ";
    static const char* const namen[] = {"F1 ", "F2 ", "F3 ", "F4 "};
    for (int i = 0; i < 4; ++i)
        if (bit(b, i))
            t += QLatin1String(namen[i]);
    return t;
}

// 0xA2 and 0xE7's byte 10: F5 to F8 for bits 0 to 3.
QString F5bisF8(int b)
{
    QString t;
    static const char* const namen[] = {"F5 ", "F6 ", "F7 ", "F8 "};
    for (int i = 0; i < 4; ++i)
        if (bit(b, i))
            t += QLatin1String(namen[i]);
    return t;
}

QString rotGruen(int b)
{
    return bit(b, 5) ? QStringLiteral("grün") : QStringLiteral("rot");
}

// Receiver = (b3 AND 31) x 128 + b4, locomotive = b5 x 128 + b6.
QString NavikText(const Bytes& b)
{
    if (b[1] != 8)
        return {};
    const QString start = QStringLiteral("NAVIK/TOBRA Empf.") + Str((b[3] & 31) * 128 + b[4]);
    if ((b[3] & 0xE0) != 0x20) {
        QString t = start + QStringLiteral(": Adr.=") + Str(b[5] * 128 + b[6]) + QStringLiteral(" Kat.=")
            + Str((b[2] & 3) + 1) + u' ';
        if (bit(b[3], 5))
            t += QStringLiteral(", von S2 nach S1");
        else if (bit(b[3], 6))
            t += QStringLiteral(", von S1 nach S2");
        return t;
    }
    if (b[2] == 0)
        return start + QStringLiteral(": Geschw.=") + Str(b[5] * 128 + b[6]) + QStringLiteral(" Km/h");
    if (b[2] == 1 && b[5] == 0) {
        switch (b[6]) {
        case 0:
            return start + QStringLiteral(" Senderabfrage ");
        case 2:
            return start + QStringLiteral(": Block frei");
        case 3:
            return start + QStringLiteral(": Block belegt");
        default:
            break;
        }
    }
    return {};
}

} // namespace

Long MonitorZustand::slotTab(int zeile, int slot) const
{
    if (zeile < 0 || zeile >= SlotTabZeilen || slot < 0 || slot >= SlotTabSlots)
        return 0;
    return Slot_Tab[static_cast<std::size_t>(zeile)][static_cast<std::size_t>(slot)];
}

Long MonitorZustand::Lokadresse(int slot) const
{
    return slotTab(9, slot) * 128 + slotTab(4, slot);
}

QString MonitorHex(const QByteArray& nachricht)
{
    QString t;
    for (qsizetype i = 0; i + 1 < nachricht.size(); ++i)
        t += hex_$(static_cast<quint8>(nachricht[i])) + u' ';
    return t;
}

QString decode_ln_mes(MonitorZustand& z, const QByteArray& nachricht)
{
    if (nachricht.isEmpty())
        return {};
    // In hex mode the text table is not used at all.
    if (z.Hex_Ausgabe)
        return MonitorHex(nachricht);

    const Bytes b(nachricht);
    // Every number inside a text goes
    // through Str, so "Slot " b2 gives "Slot  16".
    switch (b[0]) {
    case 0x81:
        return {};
    case 0x82:
        return QStringLiteral("Gleisspannung ausgeschaltet");
    case 0x83:
        return QStringLiteral("Gleisspannung eingeschaltet");
    case 0xA0:
        return QStringLiteral("Lok") + Str(z.Lokadresse(b[1])) + QStringLiteral(" = Geschw.") + Str(b[2]);
    case 0xA1:
        return QStringLiteral("Lok") + Str(z.Lokadresse(b[1])) + QStringLiteral(" = ") + RichtungF0bisF4(b[2]);
    case 0xA2:
        return QStringLiteral("Lok") + Str(z.Lokadresse(b[1])) + QStringLiteral(" = ") + F5bisF8(b[2]);
    case 0xB0:
        return QStringLiteral("Mag.-Art.:") + Str((b[2] & 15) * 128 + b[1] + 1)
            + (bit(b[2], 5) ? QStringLiteral(" - grün ") : QStringLiteral(" - rot "))
            + (bit(b[2], 4) ? QStringLiteral("- ein ") : QStringLiteral("- aus "));
    case 0xB2: {
        const int nummer = b[1] * 2 + 1 + (b[2] & 15) * 256 + (bit(b[2], 5) ? 1 : 0);
        return QStringLiteral("Rückmelder") + Str(nummer)
            + (bit(b[2], 4) ? QStringLiteral(" = belegt") : QStringLiteral(" = frei"));
    }
    case 0xB4: {
        // 60 is 0xBC without bit 7: the answer to the switch state query.
        const bool antwort = z.Letzte_Anfrage == AnfrageMagStatus && b[1] == 60;
        z.Letzte_Anfrage = 0;
        return antwort ? QStringLiteral(" Antwort: ") + rotGruen(b[2]) : QString();
    }
    case 0xBB:
        return QStringLiteral("Statusanfrage nach Slot") + Str(b[1]);
    case 0xBC:
        z.Letzte_Anfrage = AnfrageMagStatus;
        return QStringLiteral("Statusanfrage nach Mag.-Art.") + Str((b[2] & 15) * 128 + b[1] + 1);
    case 0xBF:
        return QStringLiteral("Anfrage nach Lokadresse:") + Str(b[1] * 128 + b[2]);
    case 0xE4:
        return NavikText(b);
    case 0xE7: {
        const int slot = b[2]; // a data byte: 0..127, inside Slot_Tab
        for (int zeile = 0; zeile <= 12; ++zeile)
            z.Slot_Tab[static_cast<std::size_t>(zeile)][static_cast<std::size_t>(slot)] = b[zeile];
        return QStringLiteral("Slot ") + Str(slot) + QStringLiteral(" = Lokadr.") + Str(z.Lokadresse(slot))
            + QStringLiteral(", Geschw.") + Str(b[5]) + QStringLiteral(" ,") + RichtungF0bisF4(b[6]) + F5bisF8(b[10]);
    }
    default:
        // An opcode outside the table.
        return z.Ascii_Hex ? QStringLiteral("HEX: ") + MonitorHex(nachricht) : QString();
    }
}

QStringList ZeilenUmbruch(const QString& text)
{
    constexpr qsizetype Breite = 80;
    QStringList zeilen;
    for (qsizetype i = 0; i < text.size(); i += Breite)
        zeilen.append(text.mid(i, Breite));
    return zeilen;
}

QStringList MonitorZeilen(bool hexAusgabe, const QString& text)
{
    if (text.isEmpty())
        return {};
    return hexAusgabe ? QStringList {text} : ZeilenUmbruch(text);
}

QString MonitorKappen(const QString& ansicht)
{
    return ansicht.size() > MonitorHoechstZeichen ? ansicht.right(MonitorBehalteneZeichen) : ansicht;
}

QString TraceZeile(QTime zeit, const QString& text)
{
    const int ms = zeit.isValid() ? zeit.msecsSinceStartOfDay() : 0;
    return QStringLiteral("%1,%2 - ").arg(ms / 1000, 6, 10, QLatin1Char('0')).arg(ms % 1000, 3, 10, QLatin1Char('0'))
        + text;
}

} // namespace planor
