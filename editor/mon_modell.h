#pragma once
// What the grid `Mon` shows of the panel. Each cell holds what the
// monitor drew into it (set_mon, set_mon_mag, a train report): a picture, a
// text and its font and alignment. A cell the monitor has not drawn yet
// shows the element's monitor picture `BmpAusw`.

#include "editor/pult_modell.h"

namespace planor {

// The content of one cell of `Mon`.
struct MonZelle {
    QString bild;           // file name in KonfPfad; empty: no picture
    QString text;
    ZellSchrift schrift;    // empty name: the grid's own font
    int ausrichtung = 9;    // flex-grid alignment code
    bool operator==(const MonZelle&) const = default;
};

class MonModell : public PultModell {
    Q_OBJECT

public:
    using PultModell::PultModell;
    QVariant data(const QModelIndex& index, int role) const override;

    // What cell (x, y) shows now.
    MonZelle zelle(int x, int y) const;
    // Draws the cell anew with this content.
    void setzeZelle(int x, int y, const MonZelle& inhalt);

private:
    QHash<quint32, MonZelle> zellen_;
};

}  // namespace planor
