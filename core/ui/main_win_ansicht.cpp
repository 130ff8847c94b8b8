// The four views, the lock of the plan and the menus that follow them.
#include "core/ui/main_win.h"

#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "editor/ansicht.h"
#include "editor/pult_editor.h"
#include "editor/pult_modell.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/schnittstelle.h"

#include <QAction>
#include <QLabel>
#include <QMessageBox>

namespace planor {

void MainWin::ChangeEditMode()
{
    geschuetzt("MainWin : ChangeEditMode", [&] {
        PultBereich& b = *bereich_;
        editor_->ElementAusw = 0;
        for (int i = 1; i <= 4; ++i)
            aktion(QStringLiteral("EditMode(%1)").arg(i))->setChecked(i == EditMode);
        b.Pult->unsetCursor();
        b.PultAdr->unsetCursor();

        switch (EditMode) {
        case Gleisplan:
            b.paletteZeigen(true);
            b.Pult->setVisible(!PultNeuSetzen);
            b.PultAdr->hide();
            b.Mon->hide();
            Stop_TextMonitor();
            InfoTxt_anzeigen(1, AnsichtInfoText(Gleisplan));
            InfoTxt_anzeigen(2, QStringLiteral(" Auswahl: ") + katalog_.ElementTab(editor_->ElementAusw).Name);
            break;
        case Adressen: {
            Long err = 0;
            verbindung_->open_com(err);
            if (err != 0)
                meldungen_.meldung(QStringLiteral("Achtung"),
                                   QStringLiteral("Wenn der Computer nicht mit der Rondel verbunden ist,\n"
                                                  "können keine Adressen von der Anlage übertragen werden!"),
                                   Symbol::Kritisch);
            b.Pult->setCursor(Qt::ArrowCursor);
            b.Pult->hide();
            b.paletteZeigen(false);
            b.Mon->hide();
            b.PultAdr->setVisible(!PultNeuSetzen);
            Stop_TextMonitor();
            Show_LNCV_in_PultAdr();
            InfoTxt_anzeigen(1, AnsichtInfoText(Adressen));
            break;
        }
        case Monitor: {
            Long err = 0;
            verbindung_->open_com(err);
            // Without a connection the old grid stays, the menu entry checked.
            if (err != 0)
                return;
            b.PultAdr->hide();
            b.Pult->hide();
            b.paletteZeigen(false);
            b.Mon->setVisible(!PultNeuSetzen);
            InfoTxt_anzeigen(1, AnsichtInfoText(Monitor));
            Show_Monitor();
            Start_TextMonitor();
            break;
        }
        case Tabelle:
            b.Pult->setCursor(Qt::ArrowCursor);
            b.Pult->setVisible(!PultNeuSetzen);
            b.paletteZeigen(false);
            b.Mon->hide();
            b.PultAdr->hide();
            Stop_TextMonitor();
            InfoTxt_anzeigen(1, AnsichtInfoText(Tabelle));
            break;
        default:
            break;
        }
    });
}

void MainWin::ClipBoardFlags()
{
    const ClipBoardMenus m = planor::ClipBoardFlags({EditMode, anlage_.PultOpt.PultOptGPLocked, editor_->MarkenMode,
                                             editor_->MarkAktiv, editor_->ClipVoll});
    aktion(QStringLiteral("CopyMenu"))->setEnabled(m.CopyMenu);
    aktion(QStringLiteral("CutMenu"))->setEnabled(m.CutMenu);
    aktion(QStringLiteral("PasteMenu"))->setEnabled(m.PasteMenu);
    aktion(QStringLiteral("DelMenu"))->setEnabled(m.DelMenu);
    if (m.eleDrehenAendern)
        aktion(QStringLiteral("EleDrehenMenu"))->setEnabled(m.EleDrehenMenu);
    ZellenGrid* pult = bereich_->Pult;
    pult->setSelectionMode(m.hervorheben ? QAbstractItemView::ContiguousSelection : QAbstractItemView::NoSelection);
    if (!m.hervorheben)
        pult->clearSelection();
}

void MainWin::GleisPlan_Lock_Unlock()
{
    const SperrZustand s = planor::GleisPlan_Lock_Unlock(anlage_.PultOpt.PultOptGPLocked);
    aktion(QStringLiteral("GPLockMenu"))->setChecked(s.GPLockMenu);
    setWindowTitle(s.titel);
    aktion(QStringLiteral("ProgHauptMenu"))->setEnabled(s.ProgHauptMenu);
    // "Auslesen" follows the lock as "Programmieren" does.
    aktion(QStringLiteral("AuslHauptMenu"))->setEnabled(s.ProgHauptMenu);
    aktion(QStringLiteral("KonfHauptMenu"))->setEnabled(s.KonfHauptMenu);
}

void MainWin::GPLockMenu_Click()
{
    anlage_.PultOpt.PultOptGPLocked = !anlage_.PultOpt.PultOptGPLocked;
    GleisPlan_Lock_Unlock();
    ClipBoardFlags();
}

void MainWin::EditMode_Click(int index)
{
    EditMode = index;
    ChangeEditMode();
    ClipBoardFlags();
}

void MainWin::Get_Adr_from_LN(int zeile)
{
    const BusMeldung m = planor::Get_Adr_from_LN(verbindung_->link().empfang(), zeile);
    if (m.art == BusMeldung::Keine)
        return;
    QMetaObject::invokeMethod(
        this,
        [this, m] {
            if (EditMode == Adressen)
                adressenMeldung(m);
            else if (EditMode == Monitor)
                monitorMeldung(m);
        },
        Qt::QueuedConnection);
}

void MainWin::InfoTxt_anzeigen(int feld, const QString& text)
{
    QLabel* ziel = feld == 1 ? InfoTxt1 : InfoTxt2;
    ziel->setText(text);
    // Saving and loading report every cell; painting each would cost more
    // than the work itself, so a repaint comes at most every 40 ms.
    if (!letzteAnzeige_.isValid() || letzteAnzeige_.elapsed() >= 40) {
        ziel->repaint();
        letzteAnzeige_.restart();
    }
}

}  // namespace planor
