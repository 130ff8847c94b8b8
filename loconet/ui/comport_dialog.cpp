#include "loconet/ui/comport_dialog.h"

#include "core/fehlerbehandlung.h"
#include "core/settings_file.h"
#include "core/ui/check_wert_anzeige.h"
#include "core/ui/meldungs_box.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QVBoxLayout>

namespace planor {

namespace {

QLineEdit* zahlenfeld(const char* name, QWidget* eltern)
{
    auto* feld = new QLineEdit(eltern);
    feld->setObjectName(QLatin1String(name));
    feld->setFixedWidth(feld->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 16);
    Nur_Ziffern_Filter(feld);
    return feld;
}

}  // namespace

VerbindungsDialog::VerbindungsDialog(Einstellungen& einstellungen, ComPortUmgebung umgebung, const QString& titel,
                                     const QString& rahmenTitel, QWidget* parent)
    : QDialog(parent), einstellungen_(einstellungen), umgebung_(std::move(umgebung)), titel_(titel)
{
    setWindowTitle(titel);

    rahmen_ = new QGroupBox(rahmenTitel, this);
    rahmen_->setObjectName(QStringLiteral("Rahmen"));
    auto* rahmenLayout = new QVBoxLayout(rahmen_);
    IntOptGruppe = new QButtonGroup(this);
    for (int i = 0; i < IntOptAnz; ++i) {
        auto* knopf = new QRadioButton(IntOptText(i), rahmen_);
        knopf->setObjectName(QStringLiteral("IntOpt(%1)").arg(i));
        IntOptGruppe->addButton(knopf, i);
        rahmenLayout->addWidget(knopf, 0, Qt::AlignLeft);
        IntOpt[static_cast<std::size_t>(i)] = knopf;
    }

    auto* gitter = new QGridLayout;
    gitter->setColumnStretch(2, 1);
    ComPortNr_Lbl = new QLabel(ComPortNr_Text, rahmen_);
    ComPortNr_Lbl->setObjectName(QStringLiteral("ComPortNr_Lbl"));
    ComPortNr_Txt = zahlenfeld("ComPortNr_Txt", rahmen_);
    ComPortNr_Lbl->setBuddy(ComPortNr_Txt);
    gitter->addWidget(ComPortNr_Lbl, 0, 0);
    gitter->addWidget(ComPortNr_Txt, 0, 1);

    // A device from the list overrides the number. The list
    // is editable for a device the system does not list (an adapter's own
    // name, a pseudo-terminal).
    auto* geraetLbl = new QLabel(QStringLiteral("oder Anschluss:"), rahmen_);
    Geraet_Combo = new QComboBox(rahmen_);
    Geraet_Combo->setObjectName(QStringLiteral("Geraet_Combo"));
    Geraet_Combo->setEditable(true);
    Geraet_Combo->setInsertPolicy(QComboBox::NoInsert);
    Geraet_Combo->setMinimumContentsLength(18);
    geraetLbl->setBuddy(Geraet_Combo);
    gitter->addWidget(geraetLbl, 1, 0);
    gitter->addWidget(Geraet_Combo, 1, 1, 1, 2);

    auto* hostLbl = new QLabel(QStringLiteral("Rechner des LbServers:"), rahmen_);
    Host_Txt = new QLineEdit(rahmen_);
    Host_Txt->setObjectName(QStringLiteral("Host_Txt"));
    hostLbl->setBuddy(Host_Txt);
    gitter->addWidget(hostLbl, 2, 0);
    gitter->addWidget(Host_Txt, 2, 1, 1, 2);
    auto* tcpPortLbl = new QLabel(QStringLiteral("TCP-Port des LbServers:"), rahmen_);
    TcpPort_Txt = zahlenfeld("TcpPort_Txt", rahmen_);
    tcpPortLbl->setBuddy(TcpPort_Txt);
    gitter->addWidget(tcpPortLbl, 3, 0);
    gitter->addWidget(TcpPort_Txt, 3, 1);
    rahmenLayout->addSpacing(6);
    rahmenLayout->addLayout(gitter);

    gitter_ = gitter;

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(rahmen_);
    knoepfe_ = new QHBoxLayout;
    knoepfe_->addStretch(1);
    layout->addLayout(knoepfe_);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    OK_But = knopf(QStringLiteral("OK"), "OK_But");
    OK_But->setDefault(true);

    connect(IntOptGruppe, &QButtonGroup::idClicked, this, [this](int index) {
        IntOpt_Click(form_, index);
        formAnzeigen();
    });
    connect(ComPortNr_Txt, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.ComPortNr_Txt = text;
        ComPortNr_Txt_Change(form_);
        pruefungAnzeigen();
    });
    connect(TcpPort_Txt, &QLineEdit::textChanged, this, [this](const QString& text) {
        form_.TcpPort_Txt = text;
        TcpPort_Txt_Change(form_);
        pruefungAnzeigen();
    });
    connect(Host_Txt, &QLineEdit::textChanged, this, [this](const QString& text) { form_.Host_Txt = text; });
    connect(Geraet_Combo, &QComboBox::editTextChanged, this,
            [this](const QString& text) { form_.Geraet = text.trimmed(); });
    connect(OK_But, &QPushButton::clicked, this, &VerbindungsDialog::okGedrueckt);
}

QPushButton* VerbindungsDialog::knopf(const QString& text, const char* name)
{
    auto* k = new QPushButton(text, this);
    k->setObjectName(QLatin1String(name));
    k->setAutoDefault(false);
    knoepfe_->addWidget(k);
    return k;
}

void VerbindungsDialog::usbKnopfEinbauen(QPushButton* knopf)
{
    // In the frame, beside the number it fills in.
    USB_But = knopf;
    gitter_->addWidget(knopf, 0, 2, Qt::AlignLeft);
}

void VerbindungsDialog::showEvent(QShowEvent* ereignis)
{
    // 1. When shown: the title kept aside, the selection and fields from the
    //    settings. A spontaneous show is the window coming back from minimised.
    if (!ereignis->spontaneous()) {
        ergebnis_ = ComPortOffen;
        Form_Activate(form_, einstellungen_, titel_);
        geraeteListeFuellen();
        formAnzeigen();
        ComPortNr_Txt->setFocus();
        ComPortNr_Txt->selectAll();
    }
    QDialog::showEvent(ereignis);
}

void VerbindungsDialog::geraeteListeFuellen()
{
    const QSignalBlocker sperre(Geraet_Combo);
    Geraet_Combo->clear();
    // The first entry: no device, the number decides.
    Geraet_Combo->addItem(QString());
    Geraet_Combo->lineEdit()->setPlaceholderText(QStringLiteral("über die Nummer"));
    for (const PortEintrag& port : portsListen()) {
        Geraet_Combo->addItem(port.geraet);
        if (!port.beschreibung.isEmpty())
            Geraet_Combo->setItemData(Geraet_Combo->count() - 1, port.beschreibung, Qt::ToolTipRole);
    }
}

void VerbindungsDialog::formAnzeigen()
{
    const QSignalBlocker sperreNr(ComPortNr_Txt), sperreHost(Host_Txt), sperreTcp(TcpPort_Txt),
        sperreGeraet(Geraet_Combo);
    IntOpt[static_cast<std::size_t>(form_.IntOpt)]->setChecked(true);
    if (ComPortNr_Txt->text() != form_.ComPortNr_Txt)
        ComPortNr_Txt->setText(form_.ComPortNr_Txt);
    if (Host_Txt->text() != form_.Host_Txt)
        Host_Txt->setText(form_.Host_Txt);
    if (TcpPort_Txt->text() != form_.TcpPort_Txt)
        TcpPort_Txt->setText(form_.TcpPort_Txt);
    if (Geraet_Combo->currentText() != form_.Geraet) {
        const int index = Geraet_Combo->findText(form_.Geraet);
        if (index >= 0)
            Geraet_Combo->setCurrentIndex(index);
        else
            Geraet_Combo->setEditText(form_.Geraet);
    }
    Geraet_Combo->setEnabled(form_.SerielleFelder);
    Host_Txt->setEnabled(form_.TcpFelder);
    TcpPort_Txt->setEnabled(form_.TcpFelder);
    if (USB_But)
        USB_But->setVisible(form_.USB_But_Visible);
    pruefungAnzeigen();
}

void VerbindungsDialog::pruefungAnzeigen()
{
    // 2. Check_Wert: the field red, the form's title, OK_But.
    CheckWertFarbe(ComPortNr_Txt, !form_.ComPortNr_Rot);
    CheckWertFarbe(TcpPort_Txt, !form_.TcpPort_Rot);
    setWindowTitle(form_.Caption);
    OK_But->setEnabled(form_.OK_But_Enabled);
}

void VerbindungsDialog::okGedrueckt()
{
    // 3. Port closed, values taken over, Planor.CFG written, the form hidden.
    const bool ok = geschuetzt("ComPortForm : OK_But_Click", false,
                               [&] { return OK_But_Click(form_, einstellungen_, umgebung_); });
    if (!ok)
        return;
    ergebnis_ = ComPortOK;
    accept();
}

void VerbindungsDialog::reject()
{
    // 4. The done signal, nothing changed.
    ergebnis_ = ComPortAbbruch;
    QDialog::reject();
}

ComPortForm::ComPortForm(Einstellungen& einstellungen, ComPortUmgebung umgebung, QWidget* parent)
    : VerbindungsDialog(einstellungen, std::move(umgebung), ComPortFormTitel, ComPortRahmenTitel, parent)
{
    setObjectName(QStringLiteral("ComPortForm"));
    Abbruch_Cmd = knopf(QStringLiteral("abbrechen"), "Abbruch_Cmd");
    connect(Abbruch_Cmd, &QPushButton::clicked, this, &ComPortForm::reject);
}

Erststart::Erststart(Einstellungen& einstellungen, ComPortUmgebung umgebung, QWidget* parent)
    : VerbindungsDialog(einstellungen, std::move(umgebung), ErststartTitel, ErststartRahmenTitel, parent)
{
    setObjectName(QStringLiteral("Erststart"));
    auto* usb = new QPushButton(QStringLiteral("USB Port suchen"), this);
    usb->setObjectName(QStringLiteral("USB_But"));
    usb->setAutoDefault(false);
    usbKnopfEinbauen(usb);
    End_But = knopf(QStringLiteral("Ende"), "End_But");
    connect(USB_But, &QPushButton::clicked, this, &Erststart::usbSuchen);
    connect(End_But, &QPushButton::clicked, this, &Erststart::reject);
}

void Erststart::usbSuchen()
{
    MeldungsBox meldungen(this);
    USB_But_Click(form_, portsListen(), meldungen);
    formAnzeigen();
}

namespace {

int zeigen(VerbindungsDialog& form)
{
    form.exec();
    return form.Ergebnis();
}

}  // namespace

int ComPortFormZeigen(Einstellungen& einstellungen, const ComPortUmgebung& umgebung, QWidget* parent)
{
    return geschuetzt("ComPortForm : ComPortNummer_aendern", ComPortAbbruch, [&] {
        ComPortForm form(einstellungen, umgebung, parent);
        return zeigen(form);
    });
}

int ErststartZeigen(Einstellungen& einstellungen, const ComPortUmgebung& umgebung, QWidget* parent)
{
    return geschuetzt("Erststart : Erststart_zeigen", ComPortAbbruch, [&] {
        Erststart form(einstellungen, umgebung, parent);
        return zeigen(form);
    });
}

}  // namespace planor
