#pragma once
// The text monitor frmMonitor without its widgets — running or
// stopped, the decoder's state, the text of the view `rtbMoni` with its cap,
// the trace file, and the handlers of the form's buttons. The window
// (loconet/ui/frm_monitor.h) and `planor-cli monitor` only show what comes
// out of here.

#include "core/vb_zahlen.h"
#include "loconet/monitor_text.h"
#include "loconet/monitor_verlauf.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

namespace planor {

class Empfang;
class Uhr;

// The captions and lines the monitor shows.
inline const QString StartText = QStringLiteral("Start");
inline const QString StopText = QStringLiteral("Stop");
inline const QString StartZeile = QStringLiteral(" START: Monitor läuft!");
inline const QString StopZeile = QStringLiteral(" STOP: Monitor angehalten!");
inline const QString VerlaufSpeichernText = QStringLiteral("Verlauf speichern");
inline const QString SpeichernAusText = QStringLiteral("Speichern aus");

class TextMonitor {
public:
    // Trace files go to `ordner`; their names and lines take the time from `uhr`.
    TextMonitor(Uhr& uhr, QString ordner);

    // The monitor framing of `empfang` hands its complete messages to
    // `nachricht` while the monitor runs. `empfang` must
    // outlive every later call of this monitor that starts or stops it.
    void anschliessen(Empfang& empfang);

    // Monitor_Aktiv, mirrored into the Empfang this monitor is hooked to.
    bool Monitor_Aktiv() const { return aktiv_; }
    // Start_TextMonitor and Form_Activate: runs without a line in the view.
    void starten() { setzeAktiv(true); }

    // decode_ln_mes for one complete message with its checksum: the view
    // capped, the text, its lines appended and the trace line (hexadecimal
    // texts as well). Returns the lines
    // appended; a stopped monitor takes nothing, so Slot_Tab fills only
    // while it runs.
    QStringList nachricht(const QByteArray& nachricht);

    // The form's buttons.
    void cmdStartStop_Click();
    // Turning the trace on can fail: then it stays off and `fehler` says why.
    bool btnTraceOnOff_Click(QString& fehler);
    void btnClear_Click();
    // Stopped, no trace, an empty view and a fresh decoder; the options
    // "HEX Ausgabe" and "ASCII+HEX" stay as the user set them.
    void btnCancel_Click();

    // The options and the decoder's tables (Slot_Tab, Letzte_Anfrage).
    MonitorZustand& zustand() { return zustand_; }
    const MonitorZustand& zustand() const { return zustand_; }

    // rtbMoni's text: lines ending in "\n". Every change is announced by
    // `geaendert`; `schnitte` counts the changes that were not appends (the
    // cap and btnClear), so that a view can append when it stayed the same.
    const QString& ansicht() const { return ansicht_; }
    int schnitte() const { return schnitte_; }
    Integer Zeilen() const { return Zeilen_; }
    std::function<void()> geaendert;

    QString cmdStartStopText() const { return aktiv_ ? StopText : StartText; }
    QString btnTraceOnOffText() const { return verlauf_.offen() ? SpeichernAusText : VerlaufSpeichernText; }
    bool Trace_Aktiv() const { return verlauf_.offen(); }
    // The full path of the trace running or last written; empty before the first.
    QString Trace_Name() const { return traceName_; }
    // StatusBar1: "Speichern: " or "Gespeichert unter: " with the path.
    QString status() const { return status_; }

private:
    void setzeAktiv(bool aktiv);
    // The lines of one text into the view, its line into the trace.
    QStringList zeigen(const QStringList& zeilen, const QString& text);
    void kappen();
    void traceAus();
    void melden();

    Uhr& uhr_;
    QString ordner_;
    Empfang* empfang_ = nullptr;
    bool aktiv_ = false;
    MonitorZustand zustand_;
    QString ansicht_;
    int schnitte_ = 0;
    Integer Zeilen_ = 0;
    MonitorVerlauf verlauf_;
    QString traceName_;
    QString status_;
};

} // namespace planor
