#pragma once
// Where Planor keeps its files. Not everything "beside the program": an
// installed program's folder is often read-only, so writable files (Planor.CFG,
// Fehler.log, the monitor's trace files) go to the program's folder when it
// is writable, else to the per-user configuration folder; read-only data
// (KT_Conf, Hilfe, demo) is found beside the program or in the installed
// share folder.

#include <QString>

namespace planor {

// The folder of the running program.
QString Programmordner();

// The folder of Planor.CFG, Fehler.log and the trace files; created if needed.
QString Ablageordner();

// The folder of a read-only data set ("KT_Conf", "Hilfe", "demo"), ending in
// "/": beside the program when it is there, else in the share folder.
QString Datenordner(const QString& name);

// KonfPfad, the folder of Elemente.cfg and all bitmaps.
QString KonfPfad();

}  // namespace planor
