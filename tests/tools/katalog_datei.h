#pragma once
// Reads data/KT_Conf/Elemente.cfg for the tests, on its own and without the
// generator's code, so that the tests check the file against the spec
// (Part 1.6) rather than against the generator.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace planor::test {

struct KatalogEintrag {
    int index = 0;  // 1 for the first entry
    QString bmp;
    QString name;
    int typ = 0;
    int palette = 0;
    int familie = 0;
    int textAusrichtung = 0;
    QString bmpAusw;
};

struct Katalog {
    std::vector<KatalogEintrag> eintraege;
    QStringList fehler;  // lines that do not have the seven fields
    bool endeGefunden = false;
};

// Splits one line at commas outside double quotes and drops the quotes.
inline QStringList felderVon(const QByteArray& zeile)
{
    QStringList felder;
    QString feld;
    bool inAnfuehrung = false;
    for (const char c : zeile) {
        if (c == '"')
            inAnfuehrung = !inAnfuehrung;
        else if (c == ',' && !inAnfuehrung) {
            felder.append(feld);
            feld.clear();
        } else
            feld.append(QChar(static_cast<unsigned char>(c)));  // Windows-1252 names use Latin-1 only
    }
    felder.append(feld);
    return felder;
}

inline Katalog katalogLesen(const QByteArray& text)
{
    Katalog k;
    const QList<QByteArray> zeilen = text.split('\n');
    for (QByteArray zeile : zeilen) {
        if (zeile.endsWith('\r'))
            zeile.chop(1);
        if (zeile.isEmpty())
            continue;
        const QStringList f = felderVon(zeile);
        if (f.front() == QLatin1String("###")) {
            k.endeGefunden = true;
            break;
        }
        bool ok[5] = {};
        KatalogEintrag e;
        if (f.size() == 7) {
            e.index = static_cast<int>(k.eintraege.size()) + 1;
            e.bmp = f[0];
            e.name = f[1];
            e.typ = f[2].toInt(&ok[0]);
            e.palette = f[3].toInt(&ok[1]);
            e.familie = f[4].toInt(&ok[2]);
            e.textAusrichtung = f[5].toInt(&ok[3]);
            e.bmpAusw = f[6];
            ok[4] = true;
        }
        if (f.size() != 7 || !(ok[0] && ok[1] && ok[2] && ok[3] && ok[4]))
            k.fehler.append(QString::fromLatin1(zeile));
        else
            k.eintraege.push_back(e);
    }
    return k;
}

}  // namespace planor::test
