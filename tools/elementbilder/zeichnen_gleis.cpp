// Plain track: straights, curves, crossings, buffer stops, the platform.

#include "zeichnen.h"

namespace planor::elementbilder {

void strich(QPainter& p, const QPainterPath& pfad, const QColor& farbe, double breite)
{
    p.save();
    p.setPen(QPen(farbe, breite, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(pfad);
    p.restore();
}

void zeichneGleis(QPainter& p, const Bild& bild)
{
    for (const Bein& bein : bild.beine)
        if (bein.da)
            strich(p, weg(bein.a, bein.b), farbe::Gleis);
}

void zeichnePrellbock(QPainter& p, const Bild& bild)
{
    // The track comes in from the open side and stops a little past the
    // centre; the end stays free so that a neighbour cell is not joined.
    const Port von = gegenueber(bild.ende);
    const QPointF a = punkt(von);
    const QPointF d = richtung(von, bild.ende);
    const QPointF n = normale(von, bild.ende);
    const double laenge = QLineF(a, punkt(bild.ende)).length();
    const QPointF halt = a + d * (laenge * 0.62);

    QPainterPath gleis(a);
    gleis.lineTo(halt);
    strich(p, gleis, farbe::Gleis);

    // The stop: a bar across the track, the usual symbol of a Prellbock.
    const double quer = 11.0;
    const double dicke = 5.0;
    QPainterPath balken(halt + n * quer);
    balken.lineTo(halt - n * quer);
    p.save();
    p.translate(d * (dicke / 2.0));
    strich(p, balken, farbe::Prellbock, dicke);
    p.restore();
}

void zeichneBahnsteig(QPainter& p)
{
    // The platform runs over the whole width, so that neighbouring platform
    // cells make one long platform; its edge faces the track.
    const QRectF flaeche(0, 5, Breite, 12);
    p.fillRect(flaeche, farbe::Bahnsteig);
    QPainterPath kante(QPointF(0, flaeche.bottom()));
    kante.lineTo(Breite, flaeche.bottom());
    strich(p, kante, farbe::BahnsteigKante, 2.0);
    QPainterPath hinten(QPointF(0, flaeche.top()));
    hinten.lineTo(Breite, flaeche.top());
    strich(p, hinten, farbe::BahnsteigKante, 1.0);
    strich(p, weg(Port::W, Port::O), farbe::Gleis);
}

}  // namespace planor::elementbilder
