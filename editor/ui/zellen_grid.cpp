#include "editor/ui/zellen_grid.h"

#include "editor/pult_modell.h"
#include "editor/ui/bildspeicher.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

namespace planor {

void ZellenDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QRect r = option.rect;
    painter->save();
    const QPixmap& bild = bilder_.bild(index.data(BildRolle).toString());
    if (!bild.isNull())
        painter->drawPixmap(r, bild);
    if (option.state & QStyle::State_Selected)
        painter->fillRect(r, QColor(40, 110, 220, 70));
    const QString text = index.data(Qt::DisplayRole).toString();
    if (!text.isEmpty()) {
        // "Arial" as SetzeText sets it, or the cell's own font (set_mon).
        QFont schrift(QStringLiteral("Arial"));
        schrift.setPixelSize(11);
        if (const QVariant eigene = index.data(SchriftRolle); eigene.canConvert<ZellSchrift>()) {
            const auto z = eigene.value<ZellSchrift>();
            schrift.setFamily(z.name);
            schrift.setPointSize(z.punkte);
            schrift.setBold(z.fett);
        }
        painter->setFont(schrift);
        painter->setPen(Qt::black);
        const auto ausrichtung = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt());
        painter->drawText(r.adjusted(2, 1, -2, -1), int(ausrichtung) | Qt::TextSingleLine, text);
    }
    painter->restore();
}

ZellenGrid::ZellenGrid(const QString& name, const QString& ecke, GridMasse masse, Bildspeicher& bilder,
                       QWidget* parent)
    : QTableView(parent), masse_(masse), ecke_(new QLabel(ecke, this))
{
    setObjectName(name);
    setItemDelegate(new ZellenDelegate(bilder, this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setCornerButtonEnabled(false);
    setMouseTracking(true);
    // A plan scrolls smoothly, by pixels rather than by whole cells.
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setDefaultSectionSize(masse.spaltenBreite);
    verticalHeader()->setDefaultSectionSize(masse.zeilenHoehe);
    horizontalHeader()->setFixedHeight(masse.zeile0Hoehe);
    verticalHeader()->setFixedWidth(masse.spalte0Breite);
    ecke_->setAlignment(Qt::AlignCenter);
    setShowGrid(true);
    setGridStyle(Qt::DotLine);
}

void ZellenGrid::masseAnwenden()
{
    horizontalHeader()->setDefaultSectionSize(masse_.spaltenBreite);
    verticalHeader()->setDefaultSectionSize(masse_.zeilenHoehe);
}

void ZellenGrid::updateGeometries()
{
    QTableView::updateGeometries();
    ecke_->setGeometry(frameWidth(), frameWidth(), masse_.spalte0Breite, masse_.zeile0Hoehe);
    ecke_->raise();
}

bool ZellenGrid::zelleBei(const QPoint& punkt, int& x, int& y) const
{
    const QModelIndex index = indexAt(punkt);
    if (!index.isValid())
        return false;
    x = index.column() + 1;
    y = panelZeile(index.row());
    return true;
}

void ZellenGrid::mousePressEvent(QMouseEvent* event)
{
    QTableView::mousePressEvent(event);
    int x = 0, y = 0;
    if (event->button() == Qt::LeftButton && zelleBei(event->position().toPoint(), x, y))
        emit linksGedrueckt(x, y);
}

void ZellenGrid::mouseReleaseEvent(QMouseEvent* event)
{
    QTableView::mouseReleaseEvent(event);
    int x = 0, y = 0;
    const bool inZelle = zelleBei(event->position().toPoint(), x, y);
    if (event->button() == Qt::LeftButton)
        emit linksLosgelassen();
    else if (event->button() == Qt::RightButton && inZelle)
        emit rechtsLosgelassen(x, y);
    if (inZelle)
        emit losgelassen(x, y, event->button(), event->modifiers());
}

void ZellenGrid::keyReleaseEvent(QKeyEvent* event)
{
    QTableView::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        emit tasteLosgelassen(event->key(), event->modifiers());
}

}  // namespace planor
