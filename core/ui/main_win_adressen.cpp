// The address view `PultAdr`.
#include "core/ui/main_win.h"

#include "editor/adr_zuordnung.h"
#include "editor/ansicht.h"
#include "editor/pult_editor.h"
#include "editor/pult_modell.h"
#include "editor/ui/adr_eingabe_dialog.h"
#include "editor/ui/pult_bereich.h"
#include "editor/ui/zellen_grid.h"
#include "loconet/schnittstelle.h"

#include <QApplication>

namespace planor {

class MainWin::AdrFenster final : public QObject, public AdrAnzeige {
public:
    explicit AdrFenster(MainWin& win)
        : QObject(&win)
        , win_(win)
        , maus(win.anlage_, win.katalog_, win.verbindung_->link(), win.meldungen_, *win.editor_, *this)
    {
    }

    AdrEingabeErgebnis AdrEingabe_zeigen(int x, int y) override
    {
        return AdrEingabeZeigen(win_.anlage_, win_.katalog_, *win_.editor_, win_.meldungen_, x, y, &win_);
    }
    int Adr12_Abfrage(int anzahl) override { return Adr12_AbfrageZeigen(anzahl, &win_); }
    bool frageJaNein(const QString& titel, const QString& text) override { return win_.frageJaNein(titel, text); }
    void set_PultAdr(int x, int y) override { win_.bereich_->pultAdrModell().set_PultAdr(x, y); }
    void beschaeftigt(bool an) override
    {
        win_.beschaeftigt(an);
        // The main menus come back as the lock has them.
        if (!an)
            win_.GleisPlan_Lock_Unlock();
    }

    MainWin& win_;
    PultAdrMaus maus;
};

void MainWin::adressenVerbinden()
{
    adrFenster_ = new AdrFenster(*this);
    ZellenGrid* grid = bereich_->PultAdr;
    // The grid reports the panel cell; which of its three rows was hit is
    // told by the press on the model index, which comes first.
    connect(grid, &QAbstractItemView::pressed, this, [this](const QModelIndex& i) { adrGedrueckteZeile_ = i.row(); });
    connect(grid, &ZellenGrid::linksGedrueckt, this, [this](int x, int y) {
        const bool bildZeile = adrGedrueckteZeile_ % 3 == 0;
        adrGedrueckteZeile_ = -1;
        if (EditMode == Adressen && bildZeile)
            adrFenster_->maus.PultAdr_MouseDown(x, y);
    });
}

void MainWin::Show_LNCV_in_PultAdr()
{
    // Entering view 2 starts without a waiting assignment (as ChangeEditMode does).
    adrFenster_->maus.flagsLoeschen();
    bereich_->pultAdrModell().Show_LNCV_in_PultAdr();
}

void MainWin::adressenMeldung(const BusMeldung& m)
{
    // One question at a time: a report is dropped while an operation runs or
    // any modal window (a question, a dialog, a message) is open.
    if (beschaeftigt_ || QApplication::activeModalWidget())
        return;
    adrFenster_->maus.Get_Adr_from_LN(m);
}

} // namespace planor
