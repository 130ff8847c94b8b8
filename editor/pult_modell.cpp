#include "editor/pult_modell.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "editor/adr_zeilen.h"
#include "editor/zelltext.h"

namespace planor {

Qt::Alignment Ausrichtung(int code)
{
    static const Qt::Alignment waagerecht[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    static const Qt::Alignment senkrecht[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    if (code < 0 || code > 8)
        return Qt::AlignLeft | Qt::AlignVCenter;
    return waagerecht[code / 3] | senkrecht[code % 3];
}

namespace {

quint32 schluessel(int x, int y) { return quint32(x) << 16 | quint32(y); }

}  // namespace

PultModell::PultModell(const Anlage& anlage, const Elementkatalog& katalog, QObject* parent)
    : QAbstractTableModel(parent), anlage_(anlage), katalog_(katalog)
{
}

int PultModell::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : anlage_.DimensionenY;
}

int PultModell::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : anlage_.DimensionenX;
}

QVariant PultModell::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int x = index.column() + 1, y = index.row() + 1;
    const ElementTab_Typ& e = katalog_.ElementTab(anlage_.XY(x, y).XY_Element);
    switch (role) {
    case Qt::DisplayRole:
        return Zelltext(anlage_, katalog_, x, y);
    case BildRolle:
        return bildErsatz_.value(schluessel(x, y), e.Bmp);
    case Qt::TextAlignmentRole:
        return int(Ausrichtung(e.TextAusrichtung));
    case Qt::ToolTipRole:
        return e.Name;
    default:
        return {};
    }
}

QVariant PultModell::headerData(int section, Qt::Orientation, int role) const
{
    if (role == Qt::DisplayRole)
        return section + 1;
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    return {};
}

void PultModell::init_flexgrid()
{
    beginResetModel();
    endResetModel();
}

void PultModell::zelleNeu(int x, int y)
{
    const QModelIndex i = index(y - 1, x - 1);
    if (i.isValid())
        emit dataChanged(i, i);
}

void PultModell::setzeBildErsatz(int x, int y, const QString& bild)
{
    if (bild.isEmpty())
        bildErsatz_.remove(schluessel(x, y));
    else
        bildErsatz_.insert(schluessel(x, y), bild);
    zelleNeu(x, y);
}

PultAdrModell::PultAdrModell(const Anlage& anlage, const Elementkatalog& katalog, QObject* parent)
    : QAbstractTableModel(parent), anlage_(anlage), katalog_(katalog)
{
}

int PultAdrModell::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 3 * anlage_.DimensionenY;
}

int PultAdrModell::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : anlage_.DimensionenX;
}

QVariant PultAdrModell::data(const QModelIndex& index, int role) const
{
    // Grid row r + 1 is row 3y-2 (picture), 3y-1 or 3y (text) of cell y.
    if (!index.isValid())
        return {};
    const int x = index.column() + 1, y = index.row() / 3 + 1;
    if (index.row() % 3 != 0) {
        // set_PultAdr: accessory addresses in row 3y-1, the receiver's in row 3y.
        if (role == Qt::DisplayRole)
            return index.row() % 3 == 1 ? AdrZeileMagnetartikel(anlage_, katalog_, x, y)
                                        : AdrZeileEmpfaenger(anlage_, katalog_, x, y);
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignCenter);
        return {};
    }
    const ElementTab_Typ& e = katalog_.ElementTab(anlage_.XY(x, y).XY_Element);
    switch (role) {
    case BildRolle:
        return e.Bmp;
    case Qt::ToolTipRole:
        return e.Name;
    default:
        return {};
    }
}

QVariant PultAdrModell::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal || section % 3 == 0) {
        if (role == Qt::DisplayRole)
            return orientation == Qt::Horizontal ? section + 1 : section / 3 + 1;
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignCenter);
        return {};
    }
    if (role == Qt::DisplayRole) {
        if (!beschriftet_)
            return QStringLiteral("Adr:");
        return section % 3 == 1 ? QStringLiteral("Mag.Art.:") : QStringLiteral("NAVIK/TOBRA:");
    }
    if (role == Qt::TextAlignmentRole)
        return int(Ausrichtung(5));
    return {};
}

void PultAdrModell::init_flexgrid()
{
    beginResetModel();
    endResetModel();
}

void PultAdrModell::zelleNeu(int x, int y)
{
    const QModelIndex oben = index(3 * y - 3, x - 1), unten = index(3 * y - 1, x - 1);
    if (oben.isValid())
        emit dataChanged(oben, unten);
}

void PultAdrModell::set_PultAdr(int x, int y)
{
    const QModelIndex oben = index(3 * y - 2, x - 1), unten = index(3 * y - 1, x - 1);
    if (oben.isValid())
        emit dataChanged(oben, unten, {Qt::DisplayRole});
}

void PultAdrModell::Show_LNCV_in_PultAdr()
{
    Beschrifte_Spalte_0();
    if (rowCount() > 0 && columnCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void PultAdrModell::Beschrifte_Spalte_0()
{
    beschriftet_ = true;
    if (rowCount() > 0)
        emit headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

}  // namespace planor
