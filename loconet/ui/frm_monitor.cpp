#include "loconet/ui/frm_monitor.h"

#include "core/benutzer.h"
#include "core/fehlerbehandlung.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

namespace planor {

FrmMonitor::FrmMonitor(Empfang& empfang, Uhr& uhr, const QString& ordner, Benutzer& benutzer, QWidget* parent)
    : QMainWindow(parent, Qt::Tool)
    , monitor_(uhr, ordner)
    , benutzer_(benutzer)
    , anzeigeTimer_(new QTimer(this))
{
    setObjectName(QStringLiteral("frmMonitor"));
    setWindowTitle(QStringLiteral(" LocoNet-Monitor"));

    Toolbar1 = addToolBar(QStringLiteral("Toolbar1"));
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setMovable(false);
    Toolbar1->setFloatable(false);
    Toolbar1->toggleViewAction()->setVisible(false);
    auto knopf = [this](const char* name, const QString& text, auto klick) {
        auto* k = new QToolButton(Toolbar1);
        k->setObjectName(QLatin1String(name));
        k->setText(text);
        k->setToolButtonStyle(Qt::ToolButtonTextOnly);
        Toolbar1->addWidget(k);
        connect(k, &QToolButton::clicked, this, klick);
        return k;
    };
    cmdStartStop = knopf("cmdStartStop", StartText, &FrmMonitor::cmdStartStop_Click);
    btnTraceOnOff = knopf("btnTraceOnOff", VerlaufSpeichernText, &FrmMonitor::btnTraceOnOff_Click);
    btnClear = knopf("btnClear", QStringLiteral("Monitor Löschen?"), &FrmMonitor::btnClear_Click);
    // btnCancel closes; closeEvent does what it does, for the window manager's close as well.
    btnCancel = knopf("btnCancel", QStringLiteral("Abbruch"), &QWidget::close);
    Toolbar1->addSeparator();
    auto option = [this](const char* name, const QString& text, bool MonitorZustand::*feld) {
        auto* c = new QCheckBox(text, Toolbar1);
        c->setObjectName(QLatin1String(name));
        Toolbar1->addWidget(c);
        connect(c, &QCheckBox::toggled, this, [this, feld](bool an) { monitor_.zustand().*feld = an; });
        return c;
    };
    LNM_hex_chk = option("LNM_hex_chk", QStringLiteral("HEX Ausgabe"), &MonitorZustand::Hex_Ausgabe);
    LNM_ascii_hex_chk = option("LNM_ascii_hex_chk", QStringLiteral("ASCII+HEX"), &MonitorZustand::Ascii_Hex);

    // Form_Resize: the view fills the form.
    rtbMoni = new QPlainTextEdit(this);
    rtbMoni->setObjectName(QStringLiteral("rtbMoni"));
    rtbMoni->setReadOnly(true);
    rtbMoni->setUndoRedoEnabled(false);
    rtbMoni->setLineWrapMode(QPlainTextEdit::NoWrap);
    rtbMoni->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    // Room for a line of 80 characters (ZeilenUmbruch) and some 25 lines.
    const QFontMetrics fm(rtbMoni->font());
    const int rand = 2 * (rtbMoni->frameWidth() + int(rtbMoni->document()->documentMargin()) + 2);
    rtbMoni->setMinimumWidth(
        fm.horizontalAdvance(QString(80, u'0')) + rand + rtbMoni->verticalScrollBar()->sizeHint().width());
    setCentralWidget(rtbMoni);

    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->setSizeGripEnabled(true);
    setStatusBar(StatusBar1);

    resize(minimumSizeHint().width(),
        Toolbar1->sizeHint().height() + fm.lineSpacing() * 25 + rand + StatusBar1->sizeHint().height());

    monitor_.anschliessen(empfang);
    // Bus traffic only marks the view as behind; one update serves a burst.
    anzeigeTimer_->setSingleShot(true);
    anzeigeTimer_->setInterval(AnzeigeAbstandMs);
    connect(anzeigeTimer_, &QTimer::timeout, this, &FrmMonitor::anzeigen);
    monitor_.geaendert = [this] {
        if (!anzeigeTimer_->isActive())
            anzeigeTimer_->start();
    };
    anzeigen();
}

void FrmMonitor::zeigen()
{
    monitor_.starten();
    anzeigen();
    if (!platziert_)
        nebenDemHauptfenster();
    show();
    raise();
}

void FrmMonitor::nebenDemHauptfenster()
{
    platziert_ = true;
    QWidget* haupt = parentWidget();
    if (!haupt)
        return;
    const QRect h = haupt->frameGeometry();
    const QRect frei = haupt->screen()->availableGeometry();
    // Right of the main window where the screen has room, else at the screen's right edge over it.
    const int x = h.right() + 1 + width() <= frei.right() ? h.right() + 1 : qMax(frei.left(), frei.right() - width());
    move(x, qMax(frei.top(), h.top()));
}

void FrmMonitor::cmdStartStop_Click()
{
    geschuetzt("frmMonitor : cmdStartStop_Click", [&] { monitor_.cmdStartStop_Click(); });
    anzeigen();
}

void FrmMonitor::btnTraceOnOff_Click()
{
    QString fehler;
    if (!geschuetzt("frmMonitor : btnTraceOnOff_Click", true, [&] { return monitor_.btnTraceOnOff_Click(fehler); }))
        benutzer_.meldung(VerlaufSpeichernText, fehler, Symbol::Kritisch);
    anzeigen();
}

void FrmMonitor::btnClear_Click()
{
    monitor_.btnClear_Click();
    anzeigen();
}

void FrmMonitor::closeEvent(QCloseEvent* event)
{
    geschuetzt("frmMonitor : btnCancel_Click", [&] { monitor_.btnCancel_Click(); });
    anzeigen();
    event->accept();
}

void FrmMonitor::anzeigen()
{
    anzeigeTimer_->stop();
    cmdStartStop->setText(monitor_.cmdStartStopText());
    btnTraceOnOff->setText(monitor_.btnTraceOnOffText());
    LNM_hex_chk->setChecked(monitor_.zustand().Hex_Ausgabe);
    LNM_ascii_hex_chk->setChecked(monitor_.zustand().Ascii_Hex);
    StatusBar1->showMessage(monitor_.status());
    ansichtNachziehen();
}

void FrmMonitor::ansichtNachziehen()
{
    const QString& text = monitor_.ansicht();
    if (monitor_.schnitte() != schnitte_) {
        rtbMoni->setPlainText(text);
    } else if (text.size() > gezeigt_) {
        QTextCursor ende(rtbMoni->document());
        ende.movePosition(QTextCursor::End);
        ende.insertText(text.mid(gezeigt_));
    }
    schnitte_ = monitor_.schnitte();
    gezeigt_ = text.size();
    // The view scrolls to the end.
    rtbMoni->moveCursor(QTextCursor::End);
    QScrollBar* leiste = rtbMoni->verticalScrollBar();
    leiste->setValue(leiste->maximum());
}

} // namespace planor
