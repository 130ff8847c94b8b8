#pragma once
// Rendering of the catalogue's pictures: the plan picture, its marking
// picture, the monitor picture and the monitor's state pictures.

#include "element_tabelle.h"

#include <QImage>
#include <QString>

namespace planor::elementbilder {

enum class Ansicht {
    Plan,      // Bmp
    Markiert,  // stem + "_ausw.bmp", blinks with Bmp while a module is programmed
    Monitor,   // BmpAusw, the monitor's picture before any state is known
};

QImage leeresBild(const QColor& farbe);
QImage bildZeichnen(const Element& e, Ansicht ansicht);
QImage zustandZeichnen(const Element& e, const QString& buchstaben);

}  // namespace planor::elementbilder
