// The file menus, the project's loading and saving, and ExitFrage's dialogs.
#include "core/ui/main_win.h"

#include "core/element_katalog.h"
#include "core/fehlerbehandlung.h"
#include "core/panel_model.h"
#include "core/programmordner.h"
#include "core/ui/grundeinstellungen_dialog.h"
#include "editor/pult_editor.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QScrollBar>

namespace planor {

namespace {

const QString AnlFilter = QStringLiteral("ANL Dateien (*.anl)");

// The dialogs start in the program folder; an installed program's
// folder is not the user's, so then the home folder serves.
QString startOrdner()
{
    const QString programm = Programmordner();
    return QFileInfo(programm).isWritable() ? programm : QDir::homePath();
}

}  // namespace

void MainWin::dateiMenusVerbinden()
{
    const std::pair<const char*, void (MainWin::*)()> menus[] = {
        {"PultLadenMenu", &MainWin::PultLadenMenu_Click},
        {"PultSpeichernMenu", &MainWin::PultSpeichernMenu_Click},
        {"PultSpeichernUnterMenu", &MainWin::PultSpeichernUnterMenu_Click},
        {"NeuesPultMenu", &MainWin::NeuesPultMenu_Click},
        {"OptionMenu(0)", &MainWin::GrundeinstellungenMenu_Click},
        {"OptionMenu(1)", &MainWin::ComPortNummer_aendern},
        {"OptionMenu(2)", &MainWin::ModulInitialisieren_Click},
    };
    for (const auto& [name, handler] : menus) {
        QAction* a = aktion(QLatin1String(name));
        a->setEnabled(true);
        connect(a, &QAction::triggered, this, handler);
    }
}

std::optional<QString> MainWin::dateiWaehlen(const QString& titel, bool speichern, const QString& vorgabe)
{
    QFileDialog dialog(this, titel, startOrdner(), AnlFilter);
    dialog.setObjectName(QStringLiteral("Dateiauswahl"));
    dialog.setAcceptMode(speichern ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(speichern ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (!vorgabe.isEmpty())
        dialog.selectFile(vorgabe);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}

void MainWin::anlageLaden()
{
    geschuetzt("Laden_und_Speichern : Load_plt", [&] { Load_plt(anlage_, katalog_, *editor_, *this); });
    // The plan opens at its top left, not where the reader placed its last cell.
    editor_->setzeAktuell(1, 1);
    bereich_->Pult->scrollToTop();
    bereich_->Pult->horizontalScrollBar()->setValue(0);
    EditMode = 1;
    ChangeEditMode();
    ClipBoardFlags();
    GleisPlan_Lock_Unlock();
    anlage_.PultGeaendert = 0;
}

void MainWin::PultLadenMenu_Click()
{
    const std::optional<QString> datei = dateiWaehlen(QStringLiteral("Anlage laden"), false);
    if (!datei)
        return;
    PultNeuSetzen = true;
    PfadUndFileSetzen(anlage_, *datei);
    anlageLaden();
}

bool MainWin::speichern()
{
    return geschuetzt("Laden_und_Speichern : Save_plt", false, [&] {
        planor::Save_plt(anlage_, katalog_, *this);
        return true;
    });
}

void MainWin::PultSpeichernMenu_Click()
{
    // The dirty flag is cleared only when the project really went to disk.
    if (speichern())
        anlage_.PultGeaendert = 0;
}

void MainWin::PultSpeichernUnterMenu_Click()
{
    const std::optional<QString> datei = speichernUnter();
    if (!datei)
        return;
    PfadUndFileSetzen(anlage_, *datei);
    PultSpeichernMenu_Click();
}

void MainWin::NeuesPultMenu_Click()
{
    const std::optional<QString> datei = dateiWaehlen(QStringLiteral("Neues Projekt: Datenfile in neuem Ordner anlegen!"),
                                                      true, QDir(startOrdner()).filePath(QStringLiteral(".")));
    if (!datei)
        return;
    const QString altPfad = anlage_.Pfad, altFile = anlage_.File;
    PfadUndFileSetzen(anlage_, *datei);
    // Only the file name is tested.
    if (!anlage_.File.contains(u'.') || !anlage_.File.toUpper().contains(QStringLiteral(".ANL")))
        return;
    const Integer altX = anlage_.DimensionenX, altY = anlage_.DimensionenY;
    const Grundeinst_Typ altGrundeinst = anlage_.Grundeinst;
    anlage_.DimensionenX = anlage_.DimensionenY = NeueDimension;
    anlage_.Grundeinst = Grundeinst_Typ{};
    if (GrundeinstellungenZeigen(anlage_, this) != 1) {
        // A cancelled basic-settings dialog leaves the previous project as it was.
        anlage_.Pfad = altPfad;
        anlage_.File = altFile;
        anlage_.DimensionenX = altX;
        anlage_.DimensionenY = altY;
        anlage_.Grundeinst = altGrundeinst;
        return;
    }
    neuesPultZeigen();
}

void MainWin::GrundeinstellungenMenu_Click()
{
    // The settings belong to the project file: a change is one to save.
    if (GrundeinstellungenZeigen(anlage_, this) == 1)
        anlage_.PultGeaendert = 1;
}

std::optional<QString> MainWin::speichernUnter()
{
    return dateiWaehlen(QStringLiteral("Speichern unter: Anlage in neuem Ordner anlegen!"), true);
}

void MainWin::Save_plt()
{
    planor::Save_plt(anlage_, katalog_, *this);
}

void MainWin::ladenBeginnt()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    bereich_->Pult->hide();
}

void MainWin::ladenEndet()
{
    bereich_->Pult->setVisible(!PultNeuSetzen && EditMode != 2 && EditMode != 4);
    QApplication::restoreOverrideCursor();
}

bool MainWin::elementLoeschen(const QString& titel, const QString& text)
{
    QMessageBox box(QMessageBox::Critical, titel, text, QMessageBox::Yes | QMessageBox::No, this);
    box.setObjectName(QStringLiteral("Meldung"));
    return box.exec() == QMessageBox::Yes;
}

}  // namespace planor
