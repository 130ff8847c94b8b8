#pragma once
// The project file (.anl) with its side files (.lcv).

#include "core/vb_zahlen.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace planor {

class Anlage;
class Elementkatalog;
class Pultzellen;

// decode_liste: the text split at each ","; blanks stay in the items. More
// than 21 items raise the bounds error, as the list has room for 0..20.
QStringList decode_liste(const QString& text);

// What saving and loading show and ask while they run.
class ProjektAnzeige {
public:
    virtual ~ProjektAnzeige() = default;
    // Status line 1 or 2 (progress per cell).
    virtual void InfoTxt_anzeigen(int feld, const QString& text) = 0;
    // Loading: the grid hidden and the hourglass; then the grid back.
    virtual void ladenBeginnt() {}
    virtual void ladenEndet() {}
    // The first XY line of a load while PultNeuSetzen is set: a new panel.
    virtual bool pultNeuSetzen() const = 0;
    virtual void neues_pult_setzen() = 0;
    // A missing side file: "Element löschen?" — true for yes.
    virtual bool elementLoeschen(const QString& titel, const QString& text) = 0;
};

// A side file as Save_plt writes it.
struct Seitendatei {
    QString name;  // <XY_ArtNr>_<XY_LNCV(0)>.lcv
    QByteArray bytes;
};

struct ProjektBytes {
    QByteArray anl;
    std::vector<Seitendatei> seitendateien;  // in the order of the scan; a later one of the same name wins
};

// Save_plt's bytes for the project named `file`, dated `datum`.
ProjektBytes Save_plt_bytes(const Anlage& anlage, const Elementkatalog& katalog, const QString& file,
                            const QDate& datum, ProjektAnzeige* anzeige = nullptr);

// Save_plt: writes Pfad + File and the side files beside it, each through a
// temporary file and an atomic rename. A file that cannot be written raises
// error 75.
void Save_plt(const Anlage& anlage, const Elementkatalog& katalog, ProjektAnzeige& anzeige);

// Load_plt: reads Pfad + File line by line into the project through the
// editor (each cell is built as a click of the user builds it). The catalogue's LNCVAnz may be
// raised by a side file with more values. A line without ":"
// raises error 5, a list of more than 21 items error 9; what was read stays.
void Load_plt(Anlage& anlage, Elementkatalog& katalog, Pultzellen& editor, ProjektAnzeige& anzeige);

// The same over a file's bytes; side files are looked up in anlage.Pfad.
void Load_plt_bytes(const QByteArray& bytes, Anlage& anlage, Elementkatalog& katalog, Pultzellen& editor,
                    ProjektAnzeige& anzeige);

}  // namespace planor
