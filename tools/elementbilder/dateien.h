#pragma once
// Writing the catalogue: Elemente.cfg and every picture it names.

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace planor::elementbilder {

// Elemente.cfg as bytes: Windows-1252, CR LF, closed by "###".
QByteArray katalogText();

// The catalogue as a Markdown table for data/KT_Conf/README.md, with the
// state pictures of each element.
QString markdownTabelle();

// Writes the catalogue and all pictures into `ordner`. Returns the names
// written; on failure an empty list and the reason in `fehler`.
QStringList allesSchreiben(const QString& ordner, QString& fehler);

}  // namespace planor::elementbilder
