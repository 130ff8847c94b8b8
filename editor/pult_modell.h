#pragma once
// What the three grids show of the panel, as table models that the
// grid views paint. Row r, column c of a model is the panel cell (c+1, r+1);
// the grids' fixed first row and column are the views' headers.

#include <QAbstractTableModel>
#include <QHash>
#include <QString>

namespace planor {

class Anlage;
class Elementkatalog;
class PultEditor;

enum ZellRolle {
    // The bitmap file name (in KonfPfad) of the cell's picture; empty for none.
    BildRolle = Qt::UserRole + 1,
    // A ZellSchrift for a cell whose text has a font of its own (set_mon).
    SchriftRolle,
};

// A cell's font as the models set it (planor_core has no QFont): name,
// size in points, bold.
struct ZellSchrift {
    QString name;
    int punkte = 0;
    bool fett = false;
    bool operator==(const ZellSchrift&) const = default;
};

// Qt alignment for the flex-grid alignment codes of TextAusrichtung:
// 0 left-top ... 8 right-bottom, 9 general (left-centre).
Qt::Alignment Ausrichtung(int code);

// The grid `Pult`: the track plan, picture and text per cell.
class PultModell : public QAbstractTableModel {
    Q_OBJECT

public:
    PultModell(const Anlage& anlage, const Elementkatalog& katalog, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // init_flexgrid: the grid takes the panel's dimensions.
    void init_flexgrid();
    // A cell is to be drawn again.
    void zelleNeu(int x, int y);
    // The marked cell shows another picture while it blinks.
    void setzeBildErsatz(int x, int y, const QString& bild);

protected:
    const Anlage& anlage_;
    const Elementkatalog& katalog_;

private:
    QHash<quint32, QString> bildErsatz_;
};

// The grid `PultAdr`: three rows a panel row, the picture in row 3y-2 and
// two text rows below it (accessory addresses, receiver address).
class PultAdrModell : public QAbstractTableModel {
    Q_OBJECT

public:
    PultAdrModell(const Anlage& anlage, const Elementkatalog& katalog, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    void init_flexgrid();
    void zelleNeu(int x, int y);
    // Beschrifte_Spalte_0: the two address rows get their labels (view 2).
    void Beschrifte_Spalte_0();
    // set_PultAdr: the cell's two text rows are written again.
    void set_PultAdr(int x, int y);
    // Show_LNCV_in_PultAdr: the labels, then every cell's text rows.
    void Show_LNCV_in_PultAdr();

    static constexpr int BildZeilenHoehe = 54;
    static constexpr int TextZeilenHoehe = 13;

private:
    const Anlage& anlage_;
    const Elementkatalog& katalog_;
    bool beschriftet_ = false;
};

}  // namespace planor
