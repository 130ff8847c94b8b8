#include "loconet/ui/nav_init_dialog.h"

#include "core/check_wert.h"

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <cmath>

namespace planor {

namespace {

QLineEdit* adressFeld(const char* name)
{
    auto* feld = new QLineEdit;
    feld->setObjectName(QLatin1String(name));
    // Nur_Ziffern: digits only; "-" stands until the user types over it.
    feld->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("-|[0-9]{0,5}")), feld));
    return feld;
}

}  // namespace

NavInitDialog::NavInitDialog(LocoNetVerbindung& verbindung, LocoNetLink& link, Benutzer& benutzer, QWidget* parent)
    : QDialog(parent), verbindung_(verbindung), link_(link), benutzer_(benutzer)
{
    setObjectName(QStringLiteral("Nav_Init"));
    setWindowTitle(NavInitTitel);
    auto* haupt = new QVBoxLayout(this);

    auto* text = new QLabel(NavInitText);
    text->setObjectName(QStringLiteral("Label1"));
    text->setWordWrap(true);
    haupt->addWidget(text);

    auto* felder = new QFormLayout;
    ArtNrCb = new QComboBox;
    ArtNrCb->setObjectName(QStringLiteral("ArtNrCb"));
    Adr_Txt1 = adressFeld("Adr_Txt1");
    Adr_Txt2 = adressFeld("Adr_Txt2");
    felder->addRow(ArtNrCb_Text, ArtNrCb);
    felder->addRow(Adr1_Text, Adr_Txt1);
    felder->addRow(Adr2_Text, Adr_Txt2);
    haupt->addLayout(felder);

    SensorFrame = new QGroupBox(SensorFrame_Text);
    SensorFrame->setObjectName(QStringLiteral("SensorFrame"));
    auto* sensoren = new QVBoxLayout(SensorFrame);
    for (int i = 0; i < 2; ++i) {
        SenOpt[std::size_t(i)] = new QRadioButton(i == 0 ? SenOpt0_Text : SenOpt1_Text);
        SenOpt[std::size_t(i)]->setObjectName(QStringLiteral("SenOpt(%1)").arg(i));
        sensoren->addWidget(SenOpt[std::size_t(i)]);
        connect(SenOpt[std::size_t(i)], &QRadioButton::clicked, this, [this, i] {
            NavInit_SenOpt_Click(form_, i);
            formAnzeigen();
        });
    }
    haupt->addWidget(SensorFrame);

    Label4 = new QLabel;
    Label4->setObjectName(QStringLiteral("Label4"));
    Label4->setWordWrap(true);
    haupt->addWidget(Label4);

    ProzFrame = new QFrame;
    ProzFrame->setObjectName(QStringLiteral("ProzFrame"));
    auto* proz = new QHBoxLayout(ProzFrame);
    // ProzHinterg and ProzBalken as one bar: the background is the bar's groove.
    ProzBalken = new QProgressBar;
    ProzBalken->setObjectName(QStringLiteral("ProzBalken"));
    ProzBalken->setRange(0, 1000);
    ProzBalken->setTextVisible(false);
    ProzTxt = new QLabel;
    ProzTxt->setObjectName(QStringLiteral("ProzTxt"));
    proz->addWidget(ProzBalken, 1);
    proz->addWidget(ProzTxt);
    haupt->addWidget(ProzFrame);

    auto* knoepfe = new QHBoxLayout;
    knoepfe->addStretch();
    OK_But = new QPushButton(OK_But_Text);
    OK_But->setObjectName(QStringLiteral("OK_But"));
    OK_But->setDefault(true);
    Abbruch_Cmd = new QPushButton(Abbruch_Cmd_Text);
    Abbruch_Cmd->setObjectName(QStringLiteral("Abbruch_Cmd"));
    knoepfe->addWidget(OK_But);
    knoepfe->addWidget(Abbruch_Cmd);
    haupt->addLayout(knoepfe);

    NavInit_Form_Load(form_);
    ArtNrCb->addItems(form_.artikelListe);
    formAnzeigen();

    connect(ArtNrCb, &QComboBox::activated, this, [this](int index) {
        NavInit_ArtNrCb_Click(form_, index);
        formAnzeigen();
    });
    connect(Adr_Txt1, &QLineEdit::textEdited, this, [this](const QString& t) { form_.adr1 = t; });
    connect(Adr_Txt2, &QLineEdit::textEdited, this, [this](const QString& t) { form_.adr2 = t; });
    connect(OK_But, &QPushButton::clicked, this, &NavInitDialog::OK_But_Click);
    connect(Abbruch_Cmd, &QPushButton::clicked, this, &NavInitDialog::reject);
}

void NavInitDialog::formAnzeigen()
{
    ArtNrCb->setCurrentIndex(form_.artikelIndex);
    if (Adr_Txt1->text() != form_.adr1)
        Adr_Txt1->setText(form_.adr1);
    if (Adr_Txt2->text() != form_.adr2)
        Adr_Txt2->setText(form_.adr2);
    Adr_Txt2->setEnabled(form_.adr2Aktiv);
    SensorFrame->setVisible(form_.sensorFrameSichtbar);
    for (int i = 0; i < 2; ++i)
        SenOpt[std::size_t(i)]->setChecked(form_.senOpt == i);
    Label4->setText(form_.warnung);
    ProzBalken->setValue(int(std::lround(form_.prozAnteil * 1000.0)));
    ProzTxt->setText(form_.prozTxt);
    OK_But->setEnabled(form_.knoepfeAktiv);
    Abbruch_Cmd->setEnabled(form_.knoepfeAktiv);
}

void NavInitDialog::OK_But_Click()
{
    NavInit_OK_But_Click(form_, verbindung_, link_, benutzer_, *this);
    formAnzeigen();
    if (!form_.sichtbar)
        accept();
}

void NavInitDialog::reject()
{
    // Closing the window is Abbruch_Cmd; not while the module is written.
    if (!form_.knoepfeAktiv)
        return;
    NavInit_Abbruch_Cmd_Click(form_);
    QDialog::reject();
}

bool NavInitDialog::frageJaNein(const QString& titel, const QString& text)
{
    if (frage)
        return frage(titel, text);
    QMessageBox box(QMessageBox::Question, titel, text, QMessageBox::Yes | QMessageBox::No, this);
    box.setObjectName(QStringLiteral("NurEinModulFrage"));
    return box.exec() == QMessageBox::Yes;
}

void NavInitDialog::beschaeftigt(bool ja)
{
    formAnzeigen();
    if (ja)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void NavInitDialog::fortschritt(double, const QString&)
{
    ProzBalken->setValue(int(std::lround(form_.prozAnteil * 1000.0)));
    ProzTxt->setText(form_.prozTxt);
}

void NavInitZeigen(LocoNetVerbindung& verbindung, LocoNetLink& link, Benutzer& benutzer, QWidget* parent)
{
    NavInitDialog dialog(verbindung, link, benutzer, parent);
    dialog.exec();
}

}  // namespace planor
