#pragma once
// The palette `Elemente`, 8 columns, filled from the top left in
// catalogue order with the entries marked for the palette.

#include <QAbstractTableModel>

namespace planor {

class Elementkatalog;

class PaletteModell : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit PaletteModell(const Elementkatalog& katalog, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // The catalogue has been read (again).
    void neuAufbauen();

private:
    const Elementkatalog& katalog_;
};

}  // namespace planor
