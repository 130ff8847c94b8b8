#include "uebersicht.h"

#include "element_tabelle.h"
#include "namen.h"
#include "zeichnung.h"

#include <QPainter>

#include <vector>

namespace planor::elementbilder {

namespace {

constexpr int Luecke = 6;
const QColor Neutral{0x9A, 0x9A, 0x9A};

QImage vergroessert(const QImage& bild, int massstab)
{
    // Nearest pixel, so that the sheet shows the files' pixels as they are.
    return massstab == 1 ? bild : bild.scaled(bild.size() * massstab, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

const Element& elementMitTyp(int typ)
{
    for (const Element& e : elementTabelle())
        if (e.typ == typ)
            return e;
    qFatal("Typ %d fehlt in der Tabelle", typ);
}

QImage bogen(const std::vector<std::vector<QImage>>& zeilen, int spalten, int massstab)
{
    const int zelleB = (Breite + Luecke) * massstab;
    const int zelleH = (Hoehe + Luecke) * massstab;
    QImage bild(Luecke * massstab + spalten * zelleB, Luecke * massstab + int(zeilen.size()) * zelleH,
                QImage::Format_RGB32);
    bild.fill(Neutral);
    QPainter p(&bild);
    for (std::size_t y = 0; y < zeilen.size(); ++y)
        for (std::size_t x = 0; x < zeilen[y].size(); ++x)
            p.drawImage(Luecke * massstab + int(x) * zelleB, Luecke * massstab + int(y) * zelleH,
                        vergroessert(zeilen[y][x], massstab));
    return bild;
}

struct Feld {
    int x, y, typ;
};

// The demo layout: x to the east, y to the south; free cells are empty.
const std::vector<Feld> Plan = {
    // The oval's upper straight with two sidings ending at buffer stops.
    {2, 1, 3}, {3, 1, 9}, {4, 1, 104}, {5, 1, 800}, {6, 1, 9}, {7, 1, 102}, {8, 1, 9}, {9, 1, 541},
    {10, 1, 830}, {11, 1, 9}, {12, 1, 9}, {13, 1, 5},
    {3, 2, 1}, {2, 2, 16}, {8, 2, 7}, {9, 2, 9}, {10, 2, 14},
    // The two bends.
    {1, 2, 6}, {1, 3, 10}, {1, 4, 803}, {1, 5, 10}, {1, 6, 2}, {2, 7, 7},
    {14, 2, 4}, {14, 3, 10}, {14, 4, 802}, {14, 5, 10}, {14, 6, 8}, {13, 7, 1},
    // The station: three tracks between turnouts, signals at the exits.
    {3, 7, 101}, {4, 7, 532}, {5, 7, 9}, {6, 7, 9}, {7, 7, 9}, {8, 7, 840}, {9, 7, 9}, {10, 7, 9},
    {11, 7, 531}, {12, 7, 103},
    {4, 6, 105}, {5, 6, 512}, {6, 6, 9}, {7, 6, 801}, {8, 6, 9}, {9, 6, 9}, {10, 6, 511}, {11, 6, 108},
    {5, 5, 3}, {6, 5, 502}, {7, 5, 920}, {8, 5, 920}, {9, 5, 501}, {10, 5, 5},
};

}  // namespace

QImage uebersicht(int massstab)
{
    constexpr int Spalten = 10;
    std::vector<std::vector<QImage>> zeilen;
    for (const Element& e : elementTabelle()) {
        if (zeilen.empty() || zeilen.back().size() == Spalten)
            zeilen.emplace_back();
        zeilen.back().push_back(bildZeichnen(e, Ansicht::Plan));
    }
    return bogen(zeilen, Spalten, massstab);
}

QImage zustandsBogen(int massstab)
{
    std::vector<std::vector<QImage>> zeilen;
    int spalten = 0;
    for (const Element& e : elementTabelle()) {
        if (e.typ <= 0)
            continue;
        std::vector<QImage> zeile = {bildZeichnen(e, Ansicht::Plan), bildZeichnen(e, Ansicht::Markiert),
                                     bildZeichnen(e, Ansicht::Monitor)};
        for (const QString& z : zustaende(e.typ))
            zeile.push_back(zustandZeichnen(e, z));
        spalten = std::max(spalten, int(zeile.size()));
        zeilen.push_back(std::move(zeile));
    }
    return bogen(zeilen, spalten, massstab);
}

QImage beispielplan(int massstab)
{
    constexpr int Spalten = 16;
    constexpr int Zeilen = 9;
    QImage bild(Spalten * Breite, Zeilen * Hoehe, QImage::Format_RGB32);
    bild.fill(farbe::Hintergrund);
    QPainter p(&bild);
    for (const Feld& f : Plan)
        p.drawImage(f.x * Breite, f.y * Hoehe, bildZeichnen(elementMitTyp(f.typ), Ansicht::Plan));
    p.end();
    return vergroessert(bild, massstab);
}

}  // namespace planor::elementbilder
