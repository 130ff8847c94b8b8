#include "app/planor-cli/decode_befehl.h"

#include "app/planor-cli/cli.h"
#include "loconet/empfang.h"
#include "loconet/monitor_text.h"

#include <QRegularExpression>

namespace planor::cli {

namespace {

const char* const Aufruf = "Aufruf: planor-cli decode [--hex] [--ascii-hex] HEX...\n"
                           "\n"
                           "LocoNet-Nachrichten als Text, wie der LocoNet-Monitor sie zeigt. Die Bytes sind\n"
                           "hexadezimal (ein oder zwei Ziffern) mit Prüfsumme, einzeln oder in einem Argument\n"
                           "mit Leerzeichen, z. B. \"B0 00 30 7F BC 00 00 43\".\n"
                           "  --hex        nur hexadezimale Ausgabe (\"HEX Ausgabe\")\n"
                           "  --ascii-hex  unbekannte Nachrichten hexadezimal zeigen (\"ASCII+HEX\")\n";

void schreiben(std::FILE* ziel, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), ziel);
}

int aufruffehler(std::FILE* fehler, const QString& text)
{
    schreiben(fehler, text + QStringLiteral("\n\n") + QString::fromUtf8(Aufruf));
    return Aufruffehler;
}

} // namespace

int decode(const QStringList& argumente, std::FILE* aus, std::FILE* fehler)
{
    if (argumente == QStringList {QStringLiteral("--help")}) {
        schreiben(aus, QString::fromUtf8(Aufruf));
        return Erfolg;
    }
    MonitorZustand zustand;
    QByteArray daten;
    static const QRegularExpression Leerraum(QStringLiteral("\\s+"));
    static const QRegularExpression HexByte(QStringLiteral("^[0-9A-Fa-f]{1,2}$"));
    for (const QString& argument : argumente) {
        if (argument == u"--hex") {
            zustand.Hex_Ausgabe = true;
            continue;
        }
        if (argument == u"--ascii-hex") {
            zustand.Ascii_Hex = true;
            continue;
        }
        if (argument.startsWith(u"--"))
            return aufruffehler(fehler, QStringLiteral("Unbekannte Option: ") + argument);
        for (const QString& wort : argument.split(Leerraum, Qt::SkipEmptyParts)) {
            if (!HexByte.match(wort).hasMatch())
                return aufruffehler(fehler, QStringLiteral("Kein hexadezimales Byte: ") + wort);
            daten.append(static_cast<char>(wort.toUInt(nullptr, 16)));
        }
    }
    if (daten.isEmpty())
        return aufruffehler(fehler, QStringLiteral("Keine Bytes angegeben."));

    // The monitor framing, not a second framer.
    Empfang empfang;
    empfang.Monitor_Aktiv = true;
    empfang.decode_ln_mes = [&](const QByteArray& nachricht) {
        for (const QString& zeile : MonitorZeilen(zustand.Hex_Ausgabe, decode_ln_mes(zustand, nachricht)))
            schreiben(aus, zeile + u'\n');
    };
    empfang.bytes(daten);
    return Erfolg;
}

} // namespace planor::cli
