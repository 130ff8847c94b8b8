#include "editor/mon_modell.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"

namespace planor {

namespace {

quint32 schluessel(int x, int y) { return quint32(x) << 16 | quint32(y); }

}  // namespace

MonZelle MonModell::zelle(int x, int y) const
{
    const auto gezeichnet = zellen_.constFind(schluessel(x, y));
    if (gezeichnet != zellen_.constEnd())
        return *gezeichnet;
    MonZelle z;
    z.bild = katalog_.ElementTab(anlage_.XY(x, y).XY_Element).BmpAusw;
    return z;
}

void MonModell::setzeZelle(int x, int y, const MonZelle& inhalt)
{
    zellen_.insert(schluessel(x, y), inhalt);
    zelleNeu(x, y);
}

QVariant MonModell::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const int x = index.column() + 1, y = index.row() + 1;
    switch (role) {
    case BildRolle:
        return zelle(x, y).bild;
    case Qt::DisplayRole: {
        const QString text = zelle(x, y).text;
        return text.isEmpty() ? QVariant() : QVariant(text);
    }
    case SchriftRolle: {
        const ZellSchrift schrift = zelle(x, y).schrift;
        return schrift.name.isEmpty() ? QVariant() : QVariant::fromValue(schrift);
    }
    case Qt::TextAlignmentRole:
        return int(Ausrichtung(zelle(x, y).ausrichtung));
    case Qt::ToolTipRole:
        return katalog_.ElementTab(anlage_.XY(x, y).XY_Element).Name;
    default:
        return {};
    }
}

}  // namespace planor
