// The live monitor view `Mon`. The procedures are MonitorAnsicht's
// (editor/monitor_ansicht.h); this wires the grid's mouse, the dialogs and
// the bus to them.
#include "core/ui/main_win.h"

#include "editor/ansicht.h"
#include "editor/monitor_ansicht.h"
#include "editor/ui/mag_art_status_dialog.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/tausch_dialog.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/schnittstelle.h"

#include <QApplication>
#include <QPointer>

namespace planor {

void MainWin::monitorVerbinden()
{
    monitor_ = std::make_unique<MonitorAnsicht>(anlage_, katalog_, bereich_->monModell());
    connect(bereich_->Mon, &ZellenGrid::losgelassen, this,
            [this](int x, int y, Qt::MouseButton knopf, Qt::KeyboardModifiers modifikatoren) {
                Mon_MouseUp(knopf, modifikatoren, x, y);
            });
}

void MainWin::Show_Monitor()
{
    // Reading the states takes up to 5 s an address that does not answer.
    monitorBeschaeftigt_ = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QPointer<MainWin> selbst(this);
    monitor_->Show_Monitor(verbindung_->istOffen() ? &verbindung_->link() : nullptr);
    QApplication::restoreOverrideCursor();
    if (selbst)
        monitorBeschaeftigt_ = false;
}

void MainWin::monitorMeldung(const BusMeldung& m)
{
    monitor_->meldung(m);
}

void MainWin::Mon_MouseUp(Qt::MouseButton knopf, Qt::KeyboardModifiers modifikatoren, int x, int y)
{
    if (EditMode != Monitor || monitorBeschaeftigt_ || !monitor_->schaltbar(x, y))
        return;
    monitorBeschaeftigt_ = true;
    // The exchanges serve events while they wait; the window may go meanwhile.
    QPointer<MainWin> selbst(this);
    if (knopf == Qt::MiddleButton || (knopf == Qt::LeftButton && modifikatoren & Qt::ShiftModifier)) {
        MagArtStatus_zeigen(x, y);
    } else if (knopf == Qt::LeftButton && verbindung_->istOffen()) {
        // Each SendMag takes 0.3 s, shorter than a blink of MarkTimer: the
        // busy pointer tells that the click is being carried out.
        QApplication::setOverrideCursor(Qt::WaitCursor);
        monitor_->Mon_MouseUp_Links(verbindung_->link(), x, y);
        QApplication::restoreOverrideCursor();
    } else if (knopf == Qt::RightButton) {
        // TauschForm_OK stores the markers and sets PultGeaendert.
        if (TauschFormZeigen(anlage_, x, y, this))
            monitor_->neuZeichnen(x, y);
    }
    if (selbst)
        monitorBeschaeftigt_ = false;
}

void MainWin::MagArtStatus_zeigen(int x, int y)
{
    MagArtStatus_Zustand zustand = monitor_->MagArtStatus_laden(x, y);
    if (MagArtStatusZeigen(zustand, this) && verbindung_->istOffen())
        monitor_->MagArtStatus_OK(zustand, verbindung_->link());
}

}  // namespace planor
