// The text monitor frmMonitor beside the live monitor view.
#include "core/ui/main_win.h"

#include "loconet/schnittstelle.h"
#include "loconet/ui/frm_monitor.h"

#include <QFileInfo>

namespace planor {

void MainWin::Start_TextMonitor()
{
    if (frmMonitor_ && frmMonitor_->monitor().Monitor_Aktiv())
        return;
    // Made at the first start, then kept for the run (with its options and
    // place). Trace files go beside Planor.CFG: the program's folder where
    // it is writable, else the user's configuration folder (Ablageordner).
    if (!frmMonitor_)
        frmMonitor_ = new FrmMonitor(verbindung_->link().empfang(), verbindung_->link().uhr(),
            QFileInfo(settingsDatei_).absolutePath(), meldungen_, this);
    frmMonitor_->zeigen();
}

void MainWin::Stop_TextMonitor()
{
    if (!frmMonitor_ || !frmMonitor_->monitor().Monitor_Aktiv())
        return;
    frmMonitor_->close();
}

} // namespace planor
