#pragma once
// A grid with a picture and a text per cell, fixed first row and
// column holding the coordinates, and per-row and per-column sizes. Serves
// as `Pult`, `PultAdr` and `Mon`; only the visible cells are painted, so a
// 99×99 panel scrolls smoothly.

#include <QStyledItemDelegate>
#include <QTableView>

class QLabel;

namespace planor {

class Bildspeicher;

// Paints a cell's picture scaled to the cell, then its text.
class ZellenDelegate : public QStyledItemDelegate {
public:
    ZellenDelegate(Bildspeicher& bilder, QObject* parent) : QStyledItemDelegate(parent), bilder_(bilder) {}
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    Bildspeicher& bilder_;
};

struct GridMasse {
    int spalte0Breite;  // column 0 (row numbers)
    int zeile0Hoehe;    // row 0 (column numbers)
    int spaltenBreite;  // data columns
    int zeilenHoehe;    // data rows
};

class ZellenGrid : public QTableView {
    Q_OBJECT

public:
    ZellenGrid(const QString& name, const QString& ecke, GridMasse masse, Bildspeicher& bilder,
               QWidget* parent = nullptr);

    // Applies the geometry to the model's current rows and columns.
    virtual void masseAnwenden();
    const GridMasse& masse() const { return masse_; }

    // The panel cell (x, y) under a point of the viewport; false outside the data cells.
    bool zelleBei(const QPoint& punkt, int& x, int& y) const;

signals:
    void linksGedrueckt(int x, int y);
    void linksLosgelassen();
    void rechtsLosgelassen(int x, int y);
    // Any button released over a data cell (Mon_MouseUp).
    void losgelassen(int x, int y, Qt::MouseButton knopf, Qt::KeyboardModifiers modifikatoren);
    void tasteLosgelassen(int taste, Qt::KeyboardModifiers modifikatoren);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void updateGeometries() override;
    // The panel row of a model row (PultAdr has three model rows a panel row).
    virtual int panelZeile(int modellZeile) const { return modellZeile + 1; }

private:
    GridMasse masse_;
    QLabel* ecke_;
};

}  // namespace planor
