// The menus "Programmieren" and "Auslesen" in their common frame,
// and what the operations show and ask through ProgrammierAnzeige: the
// questions, the blinking mark (MarkTimer_Timer), the busy state,
// PultFehlMeldung_Form and the pick of a single module on the locked plan.
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
#include "programmierung/ui/pult_fehl_meldung.h"

#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QStatusBar>
#include <QTimer>

namespace planor {

namespace {

// The prompt's title after each menu entry.
const QString TitelProgAlle = QStringLiteral("alle Module programmieren");
const QString TitelProgEinzeln = QStringLiteral("ein Module programmieren");
const QString TitelAuslesen = QStringLiteral("-");

// The mark blinks every 300 ms while Prog_modul works on a module.
constexpr int MarkTakt = 300;

const QStringList HauptMenus = {QStringLiteral("ProgHauptMenu"), QStringLiteral("AuslHauptMenu"),
                                QStringLiteral("OptionHauptMenu")};

// The marking picture is the stem of Bmp + "_ausw.bmp".
QString markierungsBild(const QString& bmp)
{
    QString stamm = bmp;
    if (stamm.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive))
        stamm.chop(4);
    return stamm + QStringLiteral("_ausw.bmp");
}

}  // namespace

void MainWin::programmierMenusVerbinden()
{
    MarkTimer = new QTimer(this);
    MarkTimer->setObjectName(QStringLiteral("MarkTimer"));
    MarkTimer->setInterval(MarkTakt);
    connect(MarkTimer, &QTimer::timeout, this, &MainWin::MarkTimer_Timer);

    // ProgMenu(3) "Fahrstraßen" belongs to the route editor and stays disabled.
    for (int i : {1, 2}) {
        QAction* prog = aktion(QStringLiteral("ProgMenu(%1)").arg(i));
        prog->setEnabled(true);
        connect(prog, &QAction::triggered, this, [this, i] { ProgMenu_Click(i); });
        QAction* ausl = aktion(QStringLiteral("AuslMenu(%1)").arg(i));
        ausl->setEnabled(true);
        connect(ausl, &QAction::triggered, this, [this, i] { AuslMenu_Click(i); });
    }
}

void MainWin::ProgMenu_Click(int index)
{
    if (index == 1)
        programmierRahmen(TitelProgAlle, &Prog_all, "Programmierung : Prog_all");
    else if (index == 2)
        programmierRahmen(TitelProgEinzeln, &Prog_einzeln, "Programmierung : Prog_einzeln");
}

void MainWin::AuslMenu_Click(int index)
{
    if (index == 1)
        programmierRahmen(TitelAuslesen, &Read_all, "Programmierung : Read_all");
    else if (index == 2)
        programmierRahmen(TitelAuslesen, &Read_einzeln, "Programmierung : Read_einzeln");
}

void MainWin::programmierRahmen(const QString& fehlerTitel, bool (*operation)(Programmierumgebung&),
                                const char* name)
{
    // A menu reached again during a pick (the menus are still enabled then)
    // would nest a second run inside the first.
    if (programmierungLaeuft_)
        return;
    programmierungLaeuft_ = true;

    // 1. View 1.
    if (EditMode != Gleisplan) {
        EditMode = Gleisplan;
        ChangeEditMode();
        ClipBoardFlags();
    }
    // 2. The title of PultFehlMeldung_Form.
    fehlerTitel_ = fehlerTitel;
    QPointer<MainWin> selbst(this);
    // 3. The operation.
    geschuetzt(name, [&] {
        Programmierumgebung u{anlage_, katalog_, *verbindung_, verbindung_->link(), meldungen_, *editor_, *this};
        operation(u);
    });
    if (!selbst)
        return;
    // 4. Afterwards, always. The two menus of the lock take its state, which
    //    is "enabled" whenever they could be chosen.
    markierungAus();
    beschaeftigt(false);
    aktion(QStringLiteral("OptionHauptMenu"))->setEnabled(true);
    GleisPlan_Lock_Unlock();
    if (verbindung_->istOffen())
        verbindung_->schliessen();
    if (InfoTxt3)
        InfoTxt3->hide();
    fehlerTitel_.clear();
    programmierungLaeuft_ = false;
}

bool MainWin::programmierFrage(const QString& titel, const QString& text, int knoepfe, int ja)
{
    QMessageBox box(QMessageBox::Question, titel, text, QMessageBox::StandardButtons(knoepfe), this);
    box.setObjectName(QStringLiteral("Meldung"));
    // The answer is given with the arrow, not under the busy pointer.
    if (beschaeftigt_)
        QApplication::setOverrideCursor(Qt::ArrowCursor);
    const int antwort = box.exec();
    if (beschaeftigt_)
        QApplication::restoreOverrideCursor();
    return antwort == ja;
}

bool MainWin::frageOkAbbrechen(const QString& titel, const QString& text)
{
    return programmierFrage(titel, text, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok);
}

bool MainWin::frageJaNein(const QString& titel, const QString& text)
{
    return programmierFrage(titel, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
}

void MainWin::markieren(int x, int y)
{
    if (markX_ != 0)
        markierungAus();
    markX_ = x;
    markY_ = y;
    markBild_ = markierungsBild(katalog_.ElementTab(anlage_.XY(x, y).XY_Element).Bmp);
    editor_->setzeAktuell(x, y);
    bereich_->Pult->scrollTo(bereich_->pultModell().index(y - 1, x - 1));
    // The mark shows at once; the timer then flips it.
    markZaehler_ = 1;
    bereich_->pultModell().setzeBildErsatz(x, y, markBild_);
    MarkTimer->start(MarkTakt);
}

void MainWin::MarkTimer_Timer()
{
    if (markX_ == 0)
        return;
    markZaehler_ = 1 - markZaehler_;
    bereich_->pultModell().setzeBildErsatz(markX_, markY_, markZaehler_ == 1 ? markBild_ : QString());
}

void MainWin::markierungAus()
{
    MarkTimer->stop();
    if (markX_ != 0)
        bereich_->pultModell().setzeBildErsatz(markX_, markY_, QString());
    markX_ = markY_ = markZaehler_ = 0;
}

void MainWin::beschaeftigt(bool an)
{
    for (const QString& name : HauptMenus)
        aktion(name)->setEnabled(!an);
    if (an == beschaeftigt_)
        return;
    beschaeftigt_ = an;
    if (an)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

FehlerAntwort MainWin::fehlerMeldung(const QString& titel)
{
    if (beschaeftigt_)
        QApplication::setOverrideCursor(Qt::ArrowCursor);
    // The title follows the menu entry the frame remembered.
    const FehlerAntwort antwort = PultFehlMeldungZeigen(fehlerTitel_.isEmpty() ? titel : fehlerTitel_, this);
    if (beschaeftigt_)
        QApplication::restoreOverrideCursor();
    return antwort;
}

bool MainWin::zelleWaehlen(int& x, int& y)
{
    // The window is gone: nobody could click.
    if (!isVisible())
        return false;
    ZellenGrid* pult = bereich_->Pult;
    ProgAuswFertig = false;
    ProgAuswWartet = true;
    pult->setCursor(Qt::WhatsThisCursor);
    QEventLoop schleife;
    auswahlSchleife_ = &schleife;
    QPointer<MainWin> selbst(this);
    schleife.exec();
    if (!selbst)
        return false;
    auswahlSchleife_ = nullptr;
    ProgAuswWartet = false;
    pultZeigerSetzen();
    if (!ProgAuswFertig || !isVisible())
        return false;
    x = ProgX;
    y = ProgY;
    return true;
}

void MainWin::fortschritt(int n, int m)
{
    if (!InfoTxt3) {
        InfoTxt3 = new QLabel(this);
        InfoTxt3->setObjectName(QStringLiteral("InfoTxt3"));
        InfoTxt3->setFrameShape(QFrame::StyledPanel);
        InfoTxt3->setFrameShadow(QFrame::Sunken);
        statusBar()->addPermanentWidget(InfoTxt3);
    }
    InfoTxt3->setText(QStringLiteral("Modul %1 von %2").arg(n).arg(m));
    InfoTxt3->show();
}

}  // namespace planor
