#pragma once
// The form frmMonitor, " LocoNet-Monitor", a tool window beside
// the main window. The logic is in loconet/text_monitor.h; this window binds
// the widgets, named as the monitor's state names the controls, to it. Closing the
// window is btnCancel.

#include "loconet/text_monitor.h"

#include <QMainWindow>

class QCheckBox;
class QPlainTextEdit;
class QStatusBar;
class QTimer;
class QToolBar;
class QToolButton;

namespace planor {

class Benutzer;
class Empfang;
class Uhr;

class FrmMonitor final : public QMainWindow {
    Q_OBJECT

public:
    // The monitor takes the complete messages of `empfang`'s framing; trace
    // files go to `ordner`. A trace that cannot be written is told through
    // `benutzer`.
    FrmMonitor(Empfang& empfang, Uhr& uhr, const QString& ordner, Benutzer& benutzer, QWidget* parent = nullptr);

    TextMonitor& monitor() { return monitor_; }

    // Start_TextMonitor: the monitor runs (Form_Activate) and the window
    // shows, the first time beside its parent.
    void zeigen();

    // Under a burst of bus traffic the view follows the monitor's text at most
    // this often; captions and the status follow each click at once.
    static constexpr int AnzeigeAbstandMs = 50;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void cmdStartStop_Click();
    void btnTraceOnOff_Click();
    void btnClear_Click();
    // Everything the widgets show, from the monitor's state.
    void anzeigen();
    // rtbMoni follows the monitor's text: appends when it only grew.
    void ansichtNachziehen();
    void nebenDemHauptfenster();

    TextMonitor monitor_;
    Benutzer& benutzer_;
    bool platziert_ = false;
    // What rtbMoni holds: the monitor's cuts and length at the last update.
    int schnitte_ = 0;
    qsizetype gezeigt_ = 0;
    QTimer* anzeigeTimer_;

    QToolBar* Toolbar1;
    QToolButton* cmdStartStop;
    QToolButton* btnTraceOnOff;
    QToolButton* btnClear;
    QToolButton* btnCancel;
    QCheckBox* LNM_hex_chk;
    QCheckBox* LNM_ascii_hex_chk;
    QPlainTextEdit* rtbMoni;
    QStatusBar* StatusBar1;
};

} // namespace planor
