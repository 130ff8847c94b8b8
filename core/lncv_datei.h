#pragma once
// The module value files <XY_ArtNr>_<address>.lcv.

#include "core/feld.h"
#include "core/panel_model.h"

#include <QByteArray>
#include <QDate>
#include <QString>

namespace planor {

using LNCV_Feld = Feld<Integer, 0, MaxLNCV>;

// The bytes save_lncv writes: header, "!: " comment, the article line and the
// table of `count` entries, five a line.
QByteArray lncv_bytes(Long artnr, const LNCV_Feld& values, int count, const QString& comment, const QDate& datum);

// save_lncv: artnr is the already divided article number. Overwrites the file
// (through a temporary file, so a failed write never destroys the old one).
void save_lncv(Long artnr, const LNCV_Feld& values, int count, const QString& filename, const QString& comment);

// load_lncv's state machine over a file's bytes. Clears values 0..count-1,
// reads index/value pairs; an index at or above count raises count to
// index + 1; a comment line's text (CR included) is
// appended to `comment`; the article line's number goes to artnr; `result`
// becomes 0 at the end. An index above 460 raises run-time error 9.
void load_lncv_bytes(const QByteArray& bytes, Long& artnr, LNCV_Feld& values, Integer& count, QString& comment,
                     int& result);

// load_lncv on a file; one that cannot be opened raises error 53 or 75.
void load_lncv(Long& artnr, LNCV_Feld& values, Integer& count, const QString& filename, QString& comment,
               int& result);

}  // namespace planor
