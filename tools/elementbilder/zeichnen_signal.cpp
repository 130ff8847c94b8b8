// Signals: the track through the cell and the signal beside it, on the right
// of the direction of travel, its heads towards the approaching train. The
// letters of a state name the heads in the order of the addresses (main,
// then distant or shunting); "r" is stop, "g" clear.

#include "zeichnen.h"

namespace planor::elementbilder {

namespace {

enum class Licht { Aus, Rot, Gruen };

constexpr double MastY = 43.0;    // the mast runs parallel to the track
constexpr double FussX = 66.0;    // the foot stands behind the heads
constexpr double KopfAbstand = 15.0;

void kreisKopf(QPainter& p, QPointF m, double radius, const QColor& farbe)
{
    p.setPen(QPen(farbe::Mast, 1.4));
    p.setBrush(farbe);
    p.drawEllipse(m, radius, radius);
}

// Shunting signal (Sh 0 / Sh 1): a dark plate with two lamps, red side by
// side for stop, white on the diagonal for clear.
void rangierKopf(QPainter& p, QPointF m, Licht licht)
{
    p.setPen(Qt::NoPen);
    p.setBrush(farbe::Mast);
    p.drawRoundedRect(QRectF(m.x() - 6.5, m.y() - 6.5, 13, 13), 2.5, 2.5);
    const double r = 2.1;
    if (licht == Licht::Gruen) {
        p.setBrush(farbe::LampeWeiss);
        p.drawEllipse(m + QPointF(-3, 3), r, r);
        p.drawEllipse(m + QPointF(3, -3), r, r);
    } else {
        p.setBrush(licht == Licht::Rot ? farbe::Rot : farbe::LampeAus);
        p.drawEllipse(m + QPointF(-3, 0), r, r);
        p.drawEllipse(m + QPointF(3, 0), r, r);
    }
}

void kopf(QPainter& p, Kopf art, QPointF m, Licht licht)
{
    const QColor& gruen = farbe::Gruen;
    const QColor& aus = farbe::LampeAus;
    switch (art) {
    case Kopf::Haupt:
        kreisKopf(p, m, 6.3, licht == Licht::Rot ? farbe::Rot : licht == Licht::Gruen ? gruen : aus);
        break;
    case Kopf::Vor:
        // A distant signal's stop is "expect stop", yellow.
        kreisKopf(p, m, 5.3, licht == Licht::Rot ? farbe::Gelb : licht == Licht::Gruen ? gruen : aus);
        break;
    case Kopf::Rangier:
        rangierKopf(p, m, licht);
        break;
    }
}

Licht lichtVon(const Zustand& z, std::size_t i)
{
    if (z.buchstaben.isEmpty())
        return z.monitor ? Licht::Aus : Licht::Rot;
    if (i >= static_cast<std::size_t>(z.buchstaben.size()))
        return Licht::Rot;
    return z.buchstaben.at(static_cast<qsizetype>(i)) == QLatin1Char('g') ? Licht::Gruen : Licht::Rot;
}

}  // namespace

void zeichneSignal(QPainter& p, const Bild& bild, const Zustand& z)
{
    strich(p, weg(Port::W, Port::O), farbe::Gleis);

    p.save();
    // Drawn for the east-bound track (signal south of it, facing west); the
    // west-bound one is the same turned by half a circle.
    if (bild.nachWest) {
        p.translate(Breite, Hoehe);
        p.rotate(180);
    }
    const std::size_t n = bild.koepfe.size();
    const double ersterX = FussX - 10.0 - KopfAbstand * static_cast<double>(n - 1);

    QPainterPath fuss(QPointF(FussX, MastY - 7.5));
    fuss.lineTo(FussX, MastY + 7.5);
    strich(p, fuss, farbe::Mast, 2.6);
    QPainterPath mast(QPointF(FussX, MastY));
    mast.lineTo(ersterX, MastY);
    strich(p, mast, farbe::Mast, 2.2);

    for (std::size_t i = 0; i < n; ++i)
        kopf(p, bild.koepfe[i], QPointF(ersterX + KopfAbstand * static_cast<double>(i), MastY), lichtVon(z, i));
    p.restore();
}

}  // namespace planor::elementbilder
