#include "loconet/monitor_verlauf.h"

#include "core/ansi_text.h"
#include "loconet/monitor_text.h"

namespace planor {

QString VerlaufName(const QDateTime& jetzt)
{
    return jetzt.toString(QStringLiteral("dd.MM.yyyy")) + QStringLiteral("__")
           + jetzt.toString(QStringLiteral("HH_mm_ss"));
}

bool MonitorVerlauf::oeffnen(const QString& pfad, QString& fehler)
{
    schliessen();
    datei_.setFileName(pfad);
    if (datei_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        return true;
    fehler = QStringLiteral("Die Datei \"%1\" kann nicht geschrieben werden: %2").arg(pfad, datei_.errorString());
    return false;
}

void MonitorVerlauf::zeile(QTime zeit, const QString& text)
{
    if (!offen() || text.isEmpty())
        return;
    datei_.write(ansi::Schreiber().zeile(TraceZeile(zeit, text)).bytes());
}

void MonitorVerlauf::schliessen()
{
    if (datei_.isOpen())
        datei_.close();
}

}  // namespace planor
