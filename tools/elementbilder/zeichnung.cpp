#include "zeichnung.h"

#include "zeichnen.h"

#include <QPainter>

namespace planor::elementbilder {

namespace {

void inhalt(QPainter& p, const Bild& bild, const Zustand& z)
{
    switch (bild.art) {
    case Art::Radierer: zeichneRadierer(p); break;
    case Art::Auswahl: zeichneAuswahl(p); break;
    case Art::Leer: break;
    case Art::Gleis: zeichneGleis(p, bild); break;
    case Art::Prellbock: zeichnePrellbock(p, bild); break;
    case Art::Bahnsteig: zeichneBahnsteig(p); break;
    case Art::Weiche: zeichneWeiche(p, bild, z); break;
    case Art::Fahrwege: zeichneFahrwege(p, bild, z); break;
    case Art::Signal: zeichneSignal(p, bild, z); break;
    case Art::Empfaenger:
    case Art::Einzelsensor:
    case Art::Modul: zeichneMelder(p, bild, z); break;
    case Art::Blocksteuerung: zeichneBlocksteuerung(p, bild); break;
    }
}

QImage gemalt(const Bild& bild, const QColor& grund, const Zustand& z)
{
    QImage bildchen = leeresBild(grund);
    QPainter p(&bildchen);
    p.setRenderHint(QPainter::Antialiasing);
    inhalt(p, bild, z);
    return bildchen;
}

}  // namespace

QImage leeresBild(const QColor& farbe)
{
    // RGB32 is written as a 24-bit BMP. The resolution is fixed, because its
    // default would come from the screen and make the files differ.
    QImage bild(Breite, Hoehe, QImage::Format_RGB32);
    bild.fill(farbe);
    bild.setDotsPerMeterX(3780);
    bild.setDotsPerMeterY(3780);
    return bild;
}

QImage bildZeichnen(const Element& e, Ansicht ansicht)
{
    if (ansicht == Ansicht::Markiert) {
        QImage bild = gemalt(e.bild, farbe::Markierung, Zustand{});
        QPainter p(&bild);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(farbe::MarkierungRahmen, 3.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRectF(1.5, 1.5, Breite - 3, Hoehe - 3));
        return bild;
    }
    return gemalt(e.bild, farbe::Hintergrund, Zustand{.monitor = ansicht == Ansicht::Monitor});
}

QImage zustandZeichnen(const Element& e, const QString& buchstaben)
{
    return gemalt(e.bild, farbe::Hintergrund, Zustand{.monitor = true, .buchstaben = buchstaben});
}

}  // namespace planor::elementbilder
