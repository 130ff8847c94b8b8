// The mouse, the keys and the edit menu on the track plan `Pult`.
#include "core/ui/main_win.h"

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "core/programmordner.h"
#include "editor/ansicht.h"
#include "editor/pult_editor.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"

#include <QAction>
#include <QEventLoop>
#include <QItemSelectionModel>
#include <QPixmap>

namespace planor {

void MainWin::bearbeitenVerbinden()
{
    PultEditor& e = *editor_;
    auto verbinden = [this](const char* name, auto tun) {
        connect(aktion(QLatin1String(name)), &QAction::triggered, this, [this, tun] {
            tun();
            ClipBoardFlags();
        });
    };
    verbinden("UndoMenu", [&e] { e.Cntrl_Z(); });
    verbinden("CopyMenu", [&e] { e.Cntrl_C_X(PultEditor::TasteC); });
    verbinden("CutMenu", [&e] { e.Cntrl_C_X(PultEditor::TasteX); });
    verbinden("PasteMenu", [&e] { e.Cntrl_V(); });
    verbinden("DelMenu", [&e] { e.SetzePultElement(1); });
    verbinden("EleDrehenMenu", [&e] { e.ElementDrehen(); });

    connect(&e, &PultEditor::undoMenuFreigeben, aktion(QStringLiteral("UndoMenu")), &QAction::setEnabled);
    connect(&e, &PultEditor::infoText, this, &MainWin::InfoTxt_anzeigen);
}

void MainWin::pultVerbinden()
{
    ZellenGrid* pult = bereich_->Pult;
    connect(pult, &ZellenGrid::linksGedrueckt, this, &MainWin::Pult_MouseDown);
    connect(pult, &ZellenGrid::linksLosgelassen, this, &MainWin::Pult_MouseUp_Links);
    connect(pult, &ZellenGrid::rechtsLosgelassen, this, &MainWin::Pult_MouseUp_Rechts);
    connect(pult, &ZellenGrid::tasteLosgelassen, this, &MainWin::Pult_KeyUp);
    connect(pult, &QTableView::clicked, this, [this](const QModelIndex& i) {
        editor_->setzeAktuell(i.column() + 1, i.row() + 1);
    });
    connect(bereich_, &PultBereich::elementGewaehlt, this, &MainWin::Elemente_Click);
}

void MainWin::Elemente_Click(int index)
{
    editor_->Elemente_Click(index);
    pultZeigerSetzen();
    ClipBoardFlags();
}

void MainWin::pultZeigerSetzen()
{
    ZellenGrid* pult = bereich_->Pult;
    switch (editor_->zeiger) {
    case PultZeiger::Radierer: {
        // The custom pointer 99: the eraser itself, half size.
        const QPixmap radierer(KonfPfad() + katalog_.ElementTab(editor_->ElementAusw).Bmp);
        if (radierer.isNull())
            pult->setCursor(Qt::PointingHandCursor);
        else
            pult->setCursor(QCursor(radierer.scaled(42, 27, Qt::KeepAspectRatio, Qt::SmoothTransformation), 8, 20));
        break;
    }
    case PultZeiger::Pfeil:
        pult->setCursor(Qt::ArrowCursor);
        break;
    case PultZeiger::Kreuz:
        pult->setCursor(Qt::CrossCursor);
        break;
    case PultZeiger::Standard:
        pult->unsetCursor();
        break;
    }
}

void MainWin::Pult_MouseDown(int x, int y)
{
    editor_->setzeAktuell(x, y);
    // The pick of a single module on the locked plan.
    if (EditMode == Gleisplan && anlage_.PultOpt.PultOptGPLocked && ProgAuswWartet) {
        ProgX = x;
        ProgY = y;
        ProgAuswFertig = true;
        if (auswahlSchleife_)
            auswahlSchleife_->quit();
        return;
    }
    if (EditMode != Gleisplan || anlage_.PultOpt.PultOptGPLocked)
        return;
    editor_->Pult_LinksKlick(x, y);
    aktion(QStringLiteral("EleDrehenMenu"))->setEnabled(editor_->EleDrehenMoeglich);
}

void MainWin::Pult_MouseUp_Links()
{
    if (EditMode == Adressen || anlage_.PultOpt.PultOptGPLocked || !editor_->MarkenMode)
        return;
    const QItemSelection auswahl = bereich_->Pult->selectionModel()->selection();
    if (auswahl.isEmpty())
        return;
    const QItemSelectionRange& r = auswahl.first();
    editor_->Pult_Auswahl(r.left() + 1, r.top() + 1, r.right() + 1, r.bottom() + 1);
    ClipBoardFlags();
}

void MainWin::Pult_MouseUp_Rechts(int x, int y)
{
    // Rotation works in view 1 only.
    if (EditMode != Gleisplan || anlage_.PultOpt.PultOptGPLocked)
        return;
    editor_->Pult_RechtsKlick(x, y);
    aktion(QStringLiteral("EleDrehenMenu"))->setEnabled(editor_->EleDrehenMoeglich);
}

void MainWin::Pult_KeyUp(int taste, Qt::KeyboardModifiers modifikatoren)
{
    if (anlage_.PultOpt.PultOptGPLocked)
        return;
    if (modifikatoren == Qt::ControlModifier && editor_->MarkenMode) {
        switch (taste) {
        case Qt::Key_Z:
            editor_->Cntrl_Z();
            break;
        case Qt::Key_C:
            editor_->Cntrl_C_X(PultEditor::TasteC);
            break;
        case Qt::Key_X:
            editor_->Cntrl_C_X(PultEditor::TasteX);
            break;
        case Qt::Key_V:
            editor_->Cntrl_V();
            break;
        default:
            break;
        }
        ClipBoardFlags();
    } else if (modifikatoren == Qt::NoModifier && taste == Qt::Key_Delete && EditMode == Gleisplan) {
        editor_->SetzePultElement(1);
    }
}

}  // namespace planor
