#pragma once
// Sheets for looking at the pictures; not part of the catalogue.

#include <QImage>

namespace planor::elementbilder {

// Every plan picture (Bmp) in catalogue order, ten to a row.
QImage uebersicht(int massstab);
// One row per element: Bmp, marking picture, monitor picture, state pictures.
QImage zustandsBogen(int massstab);
// A small layout built from the plan pictures (an oval with a three-track
// station), to judge whether neighbouring cells join.
QImage beispielplan(int massstab);

}  // namespace planor::elementbilder
