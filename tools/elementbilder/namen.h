#pragma once
// File names of an element's pictures, by the rules the program loads them
// by: Bmp, BmpAusw ("_mon"), the marking picture ("_ausw") and the
// monitor's state pictures, named from Bmp up to and including its first "_".

#include "element_tabelle.h"

#include <QStringList>

namespace planor::elementbilder {

QString bmpName(const Element& e);
// Empty for the tools and the empty cell: they never appear in the monitor.
QString monitorName(const Element& e);
QString markierungsName(const Element& e);

// The letters of every state picture that set_mon_mag may load for the type,
// besides the element's own Bmp.
QStringList zustaende(int typ);
QString zustandsName(const Element& e, const QString& buchstaben);

// Picture used by the printer for empty cells.
inline constexpr const char* WeissName = "weiss.bmp";
inline constexpr const char* KatalogName = "Elemente.cfg";

}  // namespace planor::elementbilder
