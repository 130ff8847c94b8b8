#include "geometrie.h"

#include <QLineF>

#include <cmath>

namespace planor::elementbilder {

QPointF punkt(Port p)
{
    switch (p) {
    case Port::W: return {0, Hoehe / 2.0};
    case Port::O: return {Breite, Hoehe / 2.0};
    case Port::N: return {Breite / 2.0, 0};
    case Port::S: return {Breite / 2.0, Hoehe};
    case Port::NW: return {0, 0};
    case Port::NO: return {Breite, 0};
    case Port::SW: return {0, Hoehe};
    case Port::SO: return {Breite, Hoehe};
    }
    return mitte();
}

Port gegenueber(Port p)
{
    switch (p) {
    case Port::W: return Port::O;
    case Port::O: return Port::W;
    case Port::N: return Port::S;
    case Port::S: return Port::N;
    case Port::NW: return Port::SO;
    case Port::NO: return Port::SW;
    case Port::SW: return Port::NO;
    case Port::SO: return Port::NW;
    }
    return p;
}

bool istEcke(Port p)
{
    return p == Port::NW || p == Port::NO || p == Port::SW || p == Port::SO;
}

QPainterPath weg(Port a, Port b)
{
    QPainterPath pfad(punkt(a));
    if (b == gegenueber(a))
        pfad.lineTo(punkt(b));
    else
        pfad.quadTo(mitte(), punkt(b));
    return pfad;
}

QPainterPath teilweg(const QPainterPath& pfad, double von, double bis)
{
    // Fine enough that the polyline of a curve shows no corners at 84 px.
    constexpr int Schritte = 48;
    QPainterPath teil(pfad.pointAtPercent(von));
    for (int i = 1; i <= Schritte; ++i)
        teil.lineTo(pfad.pointAtPercent(von + (bis - von) * i / Schritte));
    return teil;
}

QPointF richtung(Port a, Port b)
{
    const QPointF d = punkt(b) - punkt(a);
    const double l = std::hypot(d.x(), d.y());
    return d / l;
}

QPointF normale(Port a, Port b)
{
    const QPointF d = richtung(a, b);
    return {d.y(), -d.x()};
}

double winkelGrad(Port a, Port b)
{
    return QLineF(punkt(a), punkt(b)).angle();
}

}  // namespace planor::elementbilder
