#include "core/ui/grundeinstellungen_dialog.h"

#include "core/fehlerbehandlung.h"
#include "core/ui/check_wert_anzeige.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace planor {

namespace {

QString feldName(const char* name, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

QLabel* beschriftung(const QString& text, const char* name, QWidget* eltern)
{
    auto* label = new QLabel(text, eltern);
    label->setObjectName(QLatin1String(name));
    return label;
}

// One row of a group: label, field and its unit.
void zeile(QGridLayout* gitter, int reihe, QLabel* label, QLineEdit* feld, const QString& einheit = {})
{
    label->setBuddy(feld);
    gitter->addWidget(label, reihe, 0);
    gitter->addWidget(feld, reihe, 1);
    if (!einheit.isEmpty())
        gitter->addWidget(new QLabel(einheit, feld->parentWidget()), reihe, 2);
}

QGridLayout* zeilengitter(QGroupBox* gruppe)
{
    auto* gitter = new QGridLayout(gruppe);
    gitter->setColumnStretch(3, 1);
    gitter->setHorizontalSpacing(8);
    return gitter;
}

}  // namespace

Grundeinstellungen::Grundeinstellungen(Anlage& anlage, QWidget* parent)
    : QDialog(parent)
    , anlage_(anlage)
{
    setObjectName(QStringLiteral("Grundeinstellungen"));
    setWindowTitle(QStringLiteral("Grundeinstellungen für alle NAVIK und TOBRA Module"));

    FeldAnzX = zahlenfeld("FeldAnzX");
    FeldAnzY = zahlenfeld("FeldAnzY");
    Geschw_Txt = zahlenfeld("Geschw_Txt");
    AutomZeitTxt = zahlenfeld("AutomZeitTxt");
    StartupZeitTxt = zahlenfeld("StartupZeitTxt");

    auto* editierfeld = new QGroupBox(QStringLiteral("Editierfeld"), this);
    FeldAnzX_Lbl = beschriftung(FeldAnzX_Text, "FeldAnzX_Lbl", editierfeld);
    FeldAnzY_Lbl = beschriftung(FeldAnzY_Text, "FeldAnzY_Lbl", editierfeld);
    auto* editierGitter = zeilengitter(editierfeld);
    zeile(editierGitter, 0, FeldAnzX_Lbl, FeldAnzX);
    zeile(editierGitter, 1, FeldAnzY_Lbl, FeldAnzY);

    auto* optionen = new QGroupBox(QStringLiteral("Allgemeine Moduloptionen"), this);
    auto* optionenLayout = new QVBoxLayout(optionen);
    BlkStatChk = new QCheckBox(QStringLiteral("Blockzustand \"frei\" oder \"belegt\" auf LocoNet melden"), optionen);
    BlkStatChk->setObjectName(QStringLiteral("BlkStatChk"));
    optionenLayout->addWidget(BlkStatChk);
    const std::array<QString, 3> optionsTexte = {
        QStringLiteral("Betriebszustände bei Abschalten abspeichern"),
        QStringLiteral("Lokadresse und Fahrtrichtung auf Loconet ausgeben"),
        QStringLiteral("Zugkategorie aus der Rondel2 verwenden (nur 47230 Version 205)"),
    };
    for (int i = 0; i < 3; ++i) {
        auto* box = new QCheckBox(optionsTexte[static_cast<std::size_t>(i)], optionen);
        box->setObjectName(feldName("AllgOptChk", i));
        optionenLayout->addWidget(box);
        AllgOptChk[static_cast<std::size_t>(i)] = box;
    }

    auto* geschw = new QGroupBox(QStringLiteral("Geschwindigkeitsmessung"), this);
    auto* geschwLayout = new QVBoxLayout(geschw);
    auto* spuren = new QHBoxLayout;
    spuren->setSpacing(16);
    // Exclusive as option buttons are; at opening none may be selected
    // (formAnzeigen lifts the exclusion for that moment).
    opSpurGruppe = new QButtonGroup(this);
    for (int i = 0; i < SpurAnz; ++i) {
        auto* knopf = new QRadioButton(SpurName(i), geschw);
        knopf->setObjectName(feldName("opSpur", i));
        opSpurGruppe->addButton(knopf, i);
        spuren->addWidget(knopf);
        opSpur[static_cast<std::size_t>(i)] = knopf;
    }
    spuren->addStretch(1);
    geschwLayout->addLayout(spuren);
    auto* abstandGitter = new QGridLayout;
    abstandGitter->setColumnStretch(3, 1);
    Geschw_Lbl = beschriftung(Geschw_Text, "Geschw_Lbl", geschw);
    zeile(abstandGitter, 0, Geschw_Lbl, Geschw_Txt, QStringLiteral("mm"));
    geschwLayout->addLayout(abstandGitter);

    auto* zeiten = new QGroupBox(QStringLiteral("Zeiten"), this);
    AutomZeit_Lbl = beschriftung(AutomZeit_Text, "AutomZeit_Lbl", zeiten);
    StartupZeit_Lbl = beschriftung(StartupZeit_Text, "StartupZeit_Lbl", zeiten);
    auto* zeitenGitter = zeilengitter(zeiten);
    zeile(zeitenGitter, 0, AutomZeit_Lbl, AutomZeitTxt, QStringLiteral("Sek."));
    zeile(zeitenGitter, 1, StartupZeit_Lbl, StartupZeitTxt, QStringLiteral("Sek."));

    // One label column for all groups, wide enough for every label and for
    // Check_Wert's texts, so that the fields line up and stay in place.
    int labelBreite = std::max(fontMetrics().horizontalAdvance(WertZuGrossTxt),
                               fontMetrics().horizontalAdvance(WertZuKleinTxt));
    for (QLabel* label : {FeldAnzX_Lbl, FeldAnzY_Lbl, Geschw_Lbl, AutomZeit_Lbl, StartupZeit_Lbl})
        labelBreite = std::max(labelBreite, label->sizeHint().width());
    for (QGridLayout* gitter : {editierGitter, abstandGitter, zeitenGitter})
        gitter->setColumnMinimumWidth(0, labelBreite);

    OK_But = new QPushButton(QStringLiteral("OK"), this);
    OK_But->setObjectName(QStringLiteral("OK_But"));
    OK_But->setDefault(true);
    Abbruch_But = new QPushButton(QStringLiteral("Abbruch"), this);
    Abbruch_But->setObjectName(QStringLiteral("Abbruch_But"));
    auto* knoepfe = new QHBoxLayout;
    knoepfe->addStretch(1);
    knoepfe->addWidget(OK_But);
    knoepfe->addWidget(Abbruch_But);

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(editierfeld);
    layout->addWidget(optionen);
    layout->addWidget(geschw);
    layout->addWidget(zeiten);
    layout->addSpacing(4);
    layout->addLayout(knoepfe);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // The change handlers: the widget's text into the form, the handler,
    // then what the checks say back onto the widgets.
    auto beiAenderung = [this](QLineEdit* feld, QString Grundeinstellungen_Form::*text,
                               void (*handler)(Grundeinstellungen_Form&)) {
        connect(feld, &QLineEdit::textChanged, this, [this, text, handler](const QString& neu) {
            form_.*text = neu;
            handler(form_);
            pruefungenAnzeigen();
        });
    };
    beiAenderung(FeldAnzX, &Grundeinstellungen_Form::FeldAnzX, &FeldAnzX_Change);
    beiAenderung(FeldAnzY, &Grundeinstellungen_Form::FeldAnzY, &FeldAnzY_Change);
    beiAenderung(Geschw_Txt, &Grundeinstellungen_Form::Geschw_Txt, &Geschw_Txt_Change);
    beiAenderung(AutomZeitTxt, &Grundeinstellungen_Form::AutomZeitTxt, &AutomZeitTxt_Change);
    beiAenderung(StartupZeitTxt, &Grundeinstellungen_Form::StartupZeitTxt, &StartupZeitTxt_Change);
    connect(opSpurGruppe, &QButtonGroup::idClicked, this, [this](int spur) {
        opSpur_Click(form_, spur);
        pruefungenAnzeigen();
    });
    connect(BlkStatChk, &QCheckBox::toggled, this, [this](bool an) { form_.BlkStatChk = an; });
    for (std::size_t i = 0; i < AllgOptChk.size(); ++i)
        connect(AllgOptChk[i], &QCheckBox::toggled, this, [this, i](bool an) { form_.AllgOptChk[i] = an; });
    connect(OK_But, &QPushButton::clicked, this, &Grundeinstellungen::okGedrueckt);
    connect(Abbruch_But, &QPushButton::clicked, this, &Grundeinstellungen::reject);
}

QLineEdit* Grundeinstellungen::zahlenfeld(const char* name)
{
    auto* feld = new QLineEdit(this);
    feld->setObjectName(QLatin1String(name));
    feld->setFixedWidth(feld->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 16);
    Nur_Ziffern_Filter(feld);
    return feld;
}

void Grundeinstellungen::showEvent(QShowEvent* ereignis)
{
    // A spontaneous show is the window coming back from minimised.
    if (!ereignis->spontaneous()) {
        ergebnis_ = GrundeinstOffen;
        Form_Activate(form_, anlage_);
        formAnzeigen();
        FeldAnzX->setFocus();
        FeldAnzX->selectAll();
    }
    QDialog::showEvent(ereignis);
}

void Grundeinstellungen::formAnzeigen()
{
    const QSignalBlocker sperreX(FeldAnzX), sperreY(FeldAnzY), sperreG(Geschw_Txt), sperreA(AutomZeitTxt),
        sperreS(StartupZeitTxt);
    FeldAnzX->setText(form_.FeldAnzX);
    FeldAnzY->setText(form_.FeldAnzY);
    Geschw_Txt->setText(form_.Geschw_Txt);
    AutomZeitTxt->setText(form_.AutomZeitTxt);
    StartupZeitTxt->setText(form_.StartupZeitTxt);
    BlkStatChk->setChecked(form_.BlkStatChk);
    for (std::size_t i = 0; i < AllgOptChk.size(); ++i)
        AllgOptChk[i]->setChecked(form_.AllgOptChk[i]);
    // An exclusive group refuses to clear its checked button.
    opSpurGruppe->setExclusive(false);
    for (int i = 0; i < SpurAnz; ++i)
        opSpur[static_cast<std::size_t>(i)]->setChecked(i == form_.opSpur);
    opSpurGruppe->setExclusive(true);
    pruefungenAnzeigen();
}

void Grundeinstellungen::pruefungenAnzeigen()
{
    CheckWertAnzeigen(form_.FeldAnzX_Pruefung, FeldAnzX, FeldAnzX_Lbl);
    CheckWertAnzeigen(form_.FeldAnzY_Pruefung, FeldAnzY, FeldAnzY_Lbl);
    CheckWertAnzeigen(form_.Geschw_Pruefung, Geschw_Txt, Geschw_Lbl);
    CheckWertAnzeigen(form_.AutomZeit_Pruefung, AutomZeitTxt, AutomZeit_Lbl);
    CheckWertAnzeigen(form_.StartupZeit_Pruefung, StartupZeitTxt, StartupZeit_Lbl);
    OK_But->setEnabled(OK_But_Enabled(form_));
}

void Grundeinstellungen::okGedrueckt()
{
    if (!OK_But_Click(form_, anlage_))
        return;
    ergebnis_ = GrundeinstOK;
    accept();
}

void Grundeinstellungen::reject()
{
    ergebnis_ = GrundeinstAbbruch;
    QDialog::reject();
}

int GrundeinstellungenZeigen(Anlage& anlage, QWidget* parent)
{
    return geschuetzt("Grundeinstellungen : GrundeinstellungenZeigen", GrundeinstAbbruch, [&] {
        Grundeinstellungen form(anlage, parent);
        form.exec();
        return form.GrundeinstErgebnis();
    });
}

}  // namespace planor
