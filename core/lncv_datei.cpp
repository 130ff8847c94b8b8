#include "core/lncv_datei.h"

#include "core/ansi_text.h"
#include "core/fehlerbehandlung.h"
#include "core/laufzeitfehler.h"
#include "core/version.h"
#include "platform/uhr.h"

#include <QFile>
#include <QSaveFile>

namespace planor {

QByteArray lncv_bytes(Long artnr, const LNCV_Feld& values, int count, const QString& comment, const QDate& datum)
{
    ansi::Schreiber datei;
    datei.zeile(QStringLiteral("// Erzeugt mit NAVIK/TOBRA-Planor Ver. ") + Version() + QStringLiteral(" am ")
                + datum.toString(QStringLiteral("dd.MM.yyyy")) + QStringLiteral(" //"));
    datei.zeile(QStringLiteral("!: ") + comment);
    datei.zeile(QString::number(artnr) + u':');
    for (int i = 0; i < count; ++i) {
        datei.text(QStringLiteral("%1= %2 ").arg(i, 3).arg(Int_to_Unsig(values(i)), 5));
        if (i % 5 == 4)
            datei.zeile(QString());
        else
            datei.text(QStringLiteral("; "));
    }
    return datei.bytes();
}

void save_lncv(Long artnr, const LNCV_Feld& values, int count, const QString& filename, const QString& comment)
{
    QSaveFile f(filename);
    if (!f.open(QIODevice::WriteOnly))
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    f.write(lncv_bytes(artnr, values, count, comment, FehlerbehandlungUmgebung().uhr->jetzt().date()));
    if (!f.commit())
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
}

namespace {

enum Zustand { Index = 0, Wert = 1, Kommentar = 3, Ueberspringen = 10 };

Long zahl(const QByteArray& ziffern) { return CLng(Val(QString::fromLatin1(ziffern))); }

}  // namespace

void load_lncv_bytes(const QByteArray& bytes, Long& artnr, LNCV_Feld& values, Integer& count, QString& comment,
                     int& result)
{
    for (int i = 0; i < count; ++i)
        values(i) = 0;
    int zustand = Index;
    QByteArray indexPuffer, wertPuffer;
    int index = 0, auslassen = 0;

    auto wertSpeichern = [&] {
        values(index) = Unsig_to_Int(zahl(wertPuffer));
        wertPuffer.clear();
    };

    for (const char c : bytes) {
        const bool ziffer = c >= '0' && c <= '9';
        switch (zustand) {
        case Index:
            if (ziffer) {
                indexPuffer += c;
            } else if (c == '=') {
                index = zahl(indexPuffer);
                if (index >= count)
                    count = CInt(double(index) + 1);
                indexPuffer.clear();
                zustand = Wert;
            } else if (c == ':') {
                artnr = zahl(indexPuffer);
                indexPuffer.clear();
            } else if (c == '/') {
                zustand = Ueberspringen;
            } else if (c == '\r' || c == ';') {
                indexPuffer.clear();
            } else if (c == '!') {
                indexPuffer.clear();
                auslassen = 2;
                zustand = Kommentar;
            }
            break;
        case Wert:
            if (ziffer) {
                wertPuffer += c;
            } else if (c == '\r' || c == ';' || c == '/') {
                wertSpeichern();
                zustand = c == '/' ? Ueberspringen : Index;
                if (c == ';')
                    indexPuffer.clear();
            }
            break;
        case Kommentar:
            if (auslassen > 0) {
                --auslassen;
            } else {
                comment += ansi::decode(QByteArray(1, c));
                if (c == '\r')
                    zustand = Index;
            }
            break;
        case Ueberspringen:
            if (c == '\r')
                zustand = Index;
            break;
        }
    }
    // The last entry need not end in CR.
    if (!wertPuffer.isEmpty())
        wertSpeichern();
    result = 0;
}

void load_lncv(Long& artnr, LNCV_Feld& values, Integer& count, const QString& filename, QString& comment,
               int& result)
{
    QFile f(filename);
    if (!f.exists())
        throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
    if (!f.open(QIODevice::ReadOnly))
        throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
    load_lncv_bytes(f.readAll(), artnr, values, count, comment, result);
}

}  // namespace planor
