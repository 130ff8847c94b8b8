// Receivers (NAVIK/TOBRA), single sensors, module boxes and the universal
// block controller. They are drawn in a frame laid along the track: local x
// runs along it, local y across, negative y is the side that stays free of
// the cell's text (north of a horizontal track, east of a vertical one).

#include "zeichnen.h"

#include <QPolygonF>

#include <cmath>

namespace planor::elementbilder {

namespace {

struct Rahmen {
    QPointF mitte;
    double winkel = 0;       // painter rotation, degrees clockwise
    double laenge = Breite;  // of the track inside the cell
    double versatz = 0;      // of the marks along the track
    double abstand = 20;     // of each sensor from the marks' centre
    double richtung = 1;     // +1 when travel runs along local +x
};

Rahmen rahmenFuer(const Bein& bein)
{
    const double diagWinkel = std::atan2(double(Hoehe), double(Breite)) * 180.0 / M_PI;
    const double diagLaenge = std::hypot(double(Breite), double(Hoehe));
    Rahmen r{.mitte = mitte()};
    const Port nach = bein.b;
    if (bein.a == Port::W || bein.a == Port::O) {
        r.richtung = nach == Port::O ? 1 : -1;
    } else if (bein.a == Port::N || bein.a == Port::S) {
        // Vertical: the marks sit in the upper part, the text goes below.
        r = Rahmen{.mitte = mitte(), .winkel = 90, .laenge = double(Hoehe), .versatz = -5, .abstand = 11};
        r.richtung = nach == Port::S ? 1 : -1;
    } else if (bein.a == Port::SW || bein.a == Port::NO) {
        r = Rahmen{.mitte = mitte(), .winkel = -diagWinkel, .laenge = diagLaenge, .abstand = 26};
        r.richtung = nach == Port::NO ? 1 : -1;
    } else {
        r = Rahmen{.mitte = mitte(), .winkel = diagWinkel, .laenge = diagLaenge, .abstand = 26};
        r.richtung = nach == Port::SO ? 1 : -1;
    }
    return r;
}

void betrete(QPainter& p, const Rahmen& r)
{
    p.translate(r.mitte);
    p.rotate(r.winkel);
}

// Sensor 1 is hollow, sensor 2 filled: the direction reads without text.
void sensor(QPainter& p, double x, bool gefuellt, double laengs = 10, double quer = 14)
{
    p.setPen(QPen(farbe::Melder, 2.2));
    p.setBrush(gefuellt ? farbe::Melder : farbe::Weiss);
    p.drawRect(QRectF(x - laengs / 2, -quer / 2, laengs, quer));
}

void pfeil(QPainter& p, QPointF von, QPointF nach, const QColor& farbe, double schaft, double spitze)
{
    const QLineF linie(von, nach);
    const QPointF d = (nach - von) / linie.length();
    const QPointF n(-d.y(), d.x());
    QPainterPath stiel(von);
    stiel.lineTo(nach - d * (spitze * 0.8));
    strich(p, stiel, farbe, schaft);
    QPolygonF kopf;
    kopf << nach << nach - d * spitze + n * (spitze * 0.62) << nach - d * spitze - n * (spitze * 0.62);
    p.setPen(Qt::NoPen);
    p.setBrush(farbe);
    p.drawPolygon(kopf);
}

void empfaengerPlan(QPainter& p, const Rahmen& r)
{
    const double x1 = r.versatz - r.richtung * r.abstand;
    const double x2 = r.versatz + r.richtung * r.abstand;
    sensor(p, x1, false);
    sensor(p, x2, true);
    pfeil(p, QPointF(x1, -14), QPointF(x2, -14), farbe::Melder, 2.4, 9);
}

void einzelsensorPlan(QPainter& p, const Rahmen& r)
{
    sensor(p, r.versatz, true, 12, 15);
    p.setPen(Qt::NoPen);
    p.setBrush(farbe::Weiss);
    p.drawEllipse(QPointF(r.versatz, 0), 2.3, 2.3);
}

// A module as a box beside the track with its two sensor leads.
void modulPlan(QPainter& p, const Rahmen& r)
{
    const double halb = std::min(26.0, r.laenge / 2 - 8);
    for (int seite : {-1, 1}) {
        const double x = r.versatz + seite * (halb - 6);
        QPainterPath leitung(QPointF(x, -10));
        leitung.lineTo(x, -3);
        strich(p, leitung, farbe::Melder, 2.0);
        sensor(p, x, seite * r.richtung > 0, 6, 11);
    }
    p.setPen(Qt::NoPen);
    p.setBrush(farbe::Melder);
    p.drawRoundedRect(QRectF(r.versatz - halb, -24, 2 * halb, 14), 3, 3);
    const double l = halb - 8;
    pfeil(p, QPointF(r.versatz - r.richtung * l, -17), QPointF(r.versatz + r.richtung * l, -17), farbe::Weiss, 2.2, 7);
}

// Monitor: the cell shows the reported locomotive in its centre,
// so the centre is a light display and the sensors move to the ends.
void melderMonitor(QPainter& p, const Bild& bild, const Rahmen& r)
{
    strich(p, weg(bild.beine[0].a, bild.beine[0].b), farbe::MonitorGleis, 5.0);
    p.save();
    betrete(p, r);
    // On a diagonal the turned box needs more room to stay inside the cell.
    const bool diagonal = r.winkel != 0 && r.winkel != 90;
    const double x = r.laenge / 2 - (diagonal ? 15 : 8);
    if (bild.art == Art::Einzelsensor) {
        sensor(p, -x, true);
    } else {
        sensor(p, -r.richtung * x, false);
        sensor(p, r.richtung * x, true);
    }
    p.restore();
    p.setPen(QPen(farbe::Melder, 2.5));
    p.setBrush(farbe::Weiss);
    p.drawRoundedRect(QRectF(Breite / 2.0 - 22, Hoehe / 2.0 - 13, 44, 26), 4, 4);
}

}  // namespace

void zeichneMelder(QPainter& p, const Bild& bild, const Zustand& z)
{
    const Rahmen r = rahmenFuer(bild.beine[0]);
    if (z.monitor) {
        melderMonitor(p, bild, r);
        return;
    }
    strich(p, weg(bild.beine[0].a, bild.beine[0].b), farbe::Gleis);
    p.save();
    betrete(p, r);
    if (bild.art == Art::Empfaenger)
        empfaengerPlan(p, r);
    else if (bild.art == Art::Einzelsensor)
        einzelsensorPlan(p, r);
    else
        modulPlan(p, r);
    p.restore();
}

void zeichneBlocksteuerung(QPainter& p, const Bild& bild)
{
    strich(p, weg(bild.beine[0].a, bild.beine[0].b), farbe::Gleis);
    const Rahmen r = rahmenFuer(bild.beine[0]);
    p.save();
    betrete(p, r);
    const double halb = std::min(25.0, r.laenge / 2 - 8);
    QPainterPath leitung(QPointF(r.versatz, -10));
    leitung.lineTo(r.versatz, -3);
    strich(p, leitung, farbe::Block, 2.0);
    p.setPen(QPen(farbe::Block, 2.0));
    p.setBrush(farbe::Weiss);
    p.drawRect(QRectF(r.versatz - halb, -25, 2 * halb, 15));
    // Four blocks: the controller drives four sections.
    const double schritt = (2 * halb - 6) / 4;
    p.setPen(Qt::NoPen);
    p.setBrush(farbe::Block);
    for (int i = 0; i < 4; ++i) {
        const double x = r.versatz - halb + 3 + schritt * (i + 0.5);
        p.drawRect(QRectF(x - 2.8, -20.3, 5.6, 5.6));
    }
    p.restore();
}

}  // namespace planor::elementbilder
