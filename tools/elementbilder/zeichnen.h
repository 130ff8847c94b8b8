#pragma once
// The painters of the single kinds of element, shared by zeichnung.cpp. Each
// draws onto an already filled 84 x 54 background, antialiased.

#include "element_tabelle.h"

#include <QPainter>
#include <QString>

namespace planor::elementbilder {

// What a picture shows: the plan picture (turnouts diverging, signals at
// stop, which the monitor also uses for state "r"), the monitor's picture
// before any state is known, or a state picture with its letters.
struct Zustand {
    bool monitor = false;
    QString buchstaben{};
};

// A line with flat ends, so that it stops exactly at the cell's border.
void strich(QPainter& p, const QPainterPath& pfad, const QColor& farbe, double breite = GleisBreite);

void zeichneGleis(QPainter& p, const Bild& bild);
void zeichnePrellbock(QPainter& p, const Bild& bild);
void zeichneBahnsteig(QPainter& p);
void zeichneWeiche(QPainter& p, const Bild& bild, const Zustand& z);
void zeichneFahrwege(QPainter& p, const Bild& bild, const Zustand& z);
void zeichneSignal(QPainter& p, const Bild& bild, const Zustand& z);
void zeichneMelder(QPainter& p, const Bild& bild, const Zustand& z);
void zeichneBlocksteuerung(QPainter& p, const Bild& bild);
void zeichneRadierer(QPainter& p);
void zeichneAuswahl(QPainter& p);

}  // namespace planor::elementbilder
