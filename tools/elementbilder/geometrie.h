#pragma once
// The geometry and colours every picture of the catalogue shares. A track leg
// always runs between two "ports" on the cell's border (edge midpoints and
// corners), so pieces drawn in neighbouring cells meet exactly.

#include <QColor>
#include <QPainterPath>
#include <QPointF>

namespace planor::elementbilder {

// A data cell of the plan grid is 84 x 54 pixels.
inline constexpr int Breite = 84;
inline constexpr int Hoehe = 54;

// Points on the cell border where track may leave the cell (O = Ost, east).
enum class Port { W, O, N, S, NW, NO, SW, SO };

QPointF punkt(Port p);
inline QPointF mitte() { return {Breite / 2.0, Hoehe / 2.0}; }
Port gegenueber(Port p);
bool istEcke(Port p);

// The leg from a to b: a straight line through the centre for opposite ports,
// else a quadratic curve with the centre as control point, so that each end
// leaves the border in the direction of the straight piece that joins there.
QPainterPath weg(Port a, Port b);

// The part of a path between two fractions of its length, as a polyline.
QPainterPath teilweg(const QPainterPath& pfad, double von, double bis);

// Unit vector along the straight a -> b and the normal to its left on screen.
QPointF richtung(Port a, Port b);
QPointF normale(Port a, Port b);
double winkelGrad(Port a, Port b);

// Colours and widths, chosen for a light Gleisbildstellpult look.
namespace farbe {
inline const QColor Hintergrund{0xF4, 0xF4, 0xF0};
inline const QColor Weiss{0xFF, 0xFF, 0xFF};
inline const QColor Gleis{0x3A, 0x3A, 0x3A};
inline const QColor GleisFrei{0xC2, 0xC2, 0xBE};  // legs of a route that is not set
inline const QColor MonitorGleis{0x8E, 0x8E, 0x8A};
inline const QColor Prellbock{0xB2, 0x36, 0x2A};
inline const QColor Melder{0x1E, 0x5F, 0xC4};
inline const QColor Block{0x12, 0x7A, 0x62};
inline const QColor Mast{0x2A, 0x2A, 0x2A};
inline const QColor Rot{0xDC, 0x1E, 0x1E};
inline const QColor Gruen{0x18, 0xA8, 0x3C};
inline const QColor Gelb{0xF2, 0xB2, 0x00};
inline const QColor LampeAus{0x70, 0x70, 0x70};
inline const QColor LampeWeiss{0xFF, 0xFF, 0xFF};
inline const QColor Bahnsteig{0xD8, 0xD2, 0xC4};
inline const QColor BahnsteigKante{0x8A, 0x82, 0x70};
inline const QColor Markierung{0xFF, 0xD9, 0x4A};
inline const QColor MarkierungRahmen{0xF0, 0x86, 0x00};
}  // namespace farbe

inline constexpr double GleisBreite = 6.0;

}  // namespace planor::elementbilder
