// Turnouts and elements with two drives. The plan picture of a one-address
// turnout is also its "red" picture in the monitor, so it must look
// like a plain plan symbol and still show the position: the leg that is not
// set keeps its colour but is interrupted just behind the frog, the usual
// mark of a Gleisbildstellpult.

#include "zeichnen.h"

#include <algorithm>
#include <cmath>

namespace planor::elementbilder {

namespace {

constexpr double LueckeLaenge = 8.0;

// Length along the leg `frei` at which it has parted from `gestellt` far
// enough that a gap there cuts only this leg.
double getrenntAb(const QPainterPath& frei, const QPainterPath& gestellt)
{
    constexpr int Proben = 200;
    const double abstand = GleisBreite + 1.5;
    for (int i = 0; i <= Proben; ++i) {
        const QPointF q = frei.pointAtPercent(double(i) / Proben);
        double naechster = 1e9;
        for (int j = 0; j <= Proben; ++j) {
            const QPointF d = gestellt.pointAtPercent(double(j) / Proben) - q;
            naechster = std::min(naechster, std::hypot(d.x(), d.y()));
        }
        if (naechster >= abstand)
            return frei.length() * i / Proben;
    }
    return frei.length() / 2;
}

void unterbrochen(QPainter& p, const Bein& frei, const Bein& gestellt, const QColor& farbe)
{
    const QPainterPath bein = weg(frei.a, frei.b);
    const double l = bein.length();
    const double von = getrenntAb(bein, weg(gestellt.a, gestellt.b));
    strich(p, teilweg(bein, 0.0, von / l), farbe);
    strich(p, teilweg(bein, (von + LueckeLaenge) / l, 1.0), farbe);
}

}  // namespace

void zeichneWeiche(QPainter& p, const Bild& bild, const Zustand& z)
{
    const Bein& gerade = bild.beine[0];
    const Bein& abzweig = bild.beine[1];
    if (z.monitor && z.buchstaben.isEmpty()) {
        // State not known yet: both legs plain.
        strich(p, weg(gerade.a, gerade.b), farbe::Gleis);
        strich(p, weg(abzweig.a, abzweig.b), farbe::Gleis);
        return;
    }
    const bool gruen = z.buchstaben == QLatin1String("g");
    const Bein& frei = gruen ? abzweig : gerade;
    const Bein& gestellt = gruen ? gerade : abzweig;
    unterbrochen(p, frei, gestellt, farbe::Gleis);
    strich(p, weg(gestellt.a, gestellt.b), farbe::Gleis);
}

void zeichneFahrwege(QPainter& p, const Bild& bild, const Zustand& z)
{
    // Plan and unknown state: every leg plain. A state: the set route dark,
    // the other legs pale; "no route" (both drives of a three-way turnout
    // red, the missing curve of a single slip) leaves all pale.
    int gestellt = -1;
    for (int i = 0; i < 4; ++i)
        if (z.buchstaben == QLatin1String(FahrwegZustaende[i]))
            gestellt = i;
    const bool neutral = z.buchstaben.isEmpty();
    for (const Bein& bein : bild.beine)
        if (bein.da)
            strich(p, weg(bein.a, bein.b), neutral ? farbe::Gleis : farbe::GleisFrei);
    if (gestellt >= 0 && bild.beine[gestellt].da)
        strich(p, weg(bild.beine[gestellt].a, bild.beine[gestellt].b), farbe::Gleis);
}

}  // namespace planor::elementbilder
