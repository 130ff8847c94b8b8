#pragma once
// The simulator's state file: the values of the simulated modules and the
// positions of the accessories, kept between runs. A plain text, one item a
// line, CR LF (any line end is read):
//
//   ; Planor-Simulator: Zustand
//   modul 47220 12        a module by article and the address it was created with
//   lncv 0 12             its values that are not 0
//   lncv 16 100
//   weiche 5 1            accessory 5: 1 green, 0 red
//
// Lines starting with ";" and empty lines are skipped.

#include "core/vb_zahlen.h"

#include <QByteArray>
#include <QString>

#include <map>
#include <vector>

namespace planor {

struct SimZustand {
    struct Modul {
        Long artikel = 0;
        Long adresse = 0;  // as created; LNCV 0 may differ
        std::map<int, quint16> werte;
        bool operator==(const Modul&) const = default;
    };
    std::vector<Modul> module;
    std::map<Long, int> weichen;

    bool operator==(const SimZustand&) const = default;
};

QByteArray SimZustandText(const SimZustand& zustand);
// False with a German reason (and the line) when the text is not a state file.
bool SimZustandLesen(const QByteArray& text, SimZustand& zustand, QString& fehler);

}  // namespace planor
