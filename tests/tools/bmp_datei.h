#pragma once
// A minimal reader of uncompressed 24-bit BMP files, independent of Qt's
// image reader, so the tests see the bytes the program will load.

#include <QByteArray>
#include <QFile>
#include <QString>

#include <cstdint>

namespace planor::test {

struct BmpBild {
    bool gueltig = false;
    int breite = 0;
    int hoehe = 0;
    int bitsProPixel = 0;
    QByteArray daten;

    // Colour of the pixel (x, y), y counted from the top, as 0xRRGGBB.
    std::uint32_t pixel(int x, int y) const
    {
        const int zeilenLaenge = (breite * 3 + 3) / 4 * 4;
        const int zeile = hoehe - 1 - y;  // rows are stored bottom-up
        const auto* p = reinterpret_cast<const unsigned char*>(daten.constData()) + zeile * zeilenLaenge + x * 3;
        return (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[1]) << 8) | p[0];
    }
};

inline std::uint32_t le32(const QByteArray& b, int at)
{
    const auto* p = reinterpret_cast<const unsigned char*>(b.constData()) + at;
    return std::uint32_t(p[0]) | (std::uint32_t(p[1]) << 8) | (std::uint32_t(p[2]) << 16) | (std::uint32_t(p[3]) << 24);
}

inline BmpBild bmpLesen(const QString& pfad)
{
    BmpBild bild;
    QFile f(pfad);
    if (!f.open(QIODevice::ReadOnly))
        return bild;
    const QByteArray b = f.readAll();
    if (b.size() < 54 || !b.startsWith("BM"))
        return bild;
    const auto start = static_cast<int>(le32(b, 10));
    bild.breite = static_cast<int>(le32(b, 18));
    bild.hoehe = static_cast<int>(le32(b, 22));
    bild.bitsProPixel = static_cast<unsigned char>(b[28]) | (static_cast<unsigned char>(b[29]) << 8);
    const std::uint32_t kompression = le32(b, 30);
    const int zeilenLaenge = (bild.breite * 3 + 3) / 4 * 4;
    if (bild.bitsProPixel != 24 || kompression != 0 || bild.breite <= 0 || bild.hoehe <= 0
        || b.size() < start + zeilenLaenge * bild.hoehe)
        return bild;
    bild.daten = b.mid(start, zeilenLaenge * bild.hoehe);
    bild.gueltig = true;
    return bild;
}

}  // namespace planor::test
