#pragma once
// btnTraceOnOff: the text monitor's trace file. Windows-1252 with
// CR LF, one line per shown text in TraceZeile's
// format. Each line is written through at once, so that a trace survives a
// crash or a pulled plug of the very session it is to explain.

#include <QDateTime>
#include <QFile>
#include <QString>
#include <QTime>

namespace planor {

// The trace's name: the short date, "__" and the time as hh_mm_ss,
// e.g. "21.11.2026__14_30_05".
QString VerlaufName(const QDateTime& jetzt);

class MonitorVerlauf {
public:
    // Creates (or empties) the file; false with a German reason when it
    // cannot be written.
    bool oeffnen(const QString& pfad, QString& fehler);
    bool offen() const { return datei_.isOpen(); }
    QString pfad() const { return datei_.fileName(); }
    // One text with the time of day; an empty text writes nothing.
    void zeile(QTime zeit, const QString& text);
    void schliessen();

private:
    QFile datei_;
};

}  // namespace planor
