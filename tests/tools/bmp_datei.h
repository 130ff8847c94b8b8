#pragma once
// A minimal reader of uncompressed 24-bit BMP files, independent of Qt's
// image reader, so the tests see the bytes the program will load.

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtEndian>

namespace planor::test {

struct BmpBild {
    bool gueltig = false;
    int breite = 0, hoehe = 0;
    QByteArray daten;  // the pixel rows, bottom-up, each padded to 4 bytes
};

inline BmpBild bmpLesen(const QString& pfad)
{
    QFile f(pfad);
    const QByteArray b = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    if (b.size() < 54 || !b.startsWith("BM"))
        return {};
    const auto le32 = [&](int at) { return qFromLittleEndian<qint32>(b.constData() + at); };
    BmpBild bild{false, le32(18), le32(22), {}};
    const int zeile = (bild.breite * 3 + 3) / 4 * 4;
    const bool bits24 = qFromLittleEndian<quint16>(b.constData() + 28) == 24 && le32(30) == 0;
    if (!bits24 || bild.breite <= 0 || bild.hoehe <= 0 || b.size() < le32(10) + zeile * bild.hoehe)
        return bild;
    bild.daten = b.mid(le32(10), zeile * bild.hoehe);
    bild.gueltig = true;
    return bild;
}

}  // namespace planor::test
