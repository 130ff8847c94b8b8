#include "editor/palette_modell.h"

#include "core/element_katalog.h"
#include "editor/pult_modell.h"

namespace planor {

PaletteModell::PaletteModell(const Elementkatalog& katalog, QObject* parent)
    : QAbstractTableModel(parent), katalog_(katalog)
{
}

int PaletteModell::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : katalog_.paletteZeilen();
}

int PaletteModell::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : PaletteSpalten;
}

QVariant PaletteModell::data(const QModelIndex& index, int role) const
{
    const int element = katalog_.PaletteFeld(index.column(), index.row());
    if (!index.isValid() || element == 0)
        return {};
    const ElementTab_Typ& e = katalog_.ElementTab(element);
    switch (role) {
    case BildRolle:
        return e.Bmp;
    case Qt::ToolTipRole:
        return e.Name;
    case Qt::UserRole:
        return element;
    default:
        return {};
    }
}

Qt::ItemFlags PaletteModell::flags(const QModelIndex& index) const
{
    if (katalog_.PaletteFeld(index.column(), index.row()) == 0)
        return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

void PaletteModell::neuAufbauen()
{
    beginResetModel();
    endResetModel();
}

}  // namespace planor
