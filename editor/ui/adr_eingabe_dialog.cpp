#include "editor/ui/adr_eingabe_dialog.h"

#include "core/ui/check_wert_anzeige.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace planor {

namespace {

QString arrayName(const char* name, int i)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i);
}

} // namespace

AdrEingabe::AdrEingabe(AdrEingabe_Zustand zustand, Anlage& anlage, const Elementkatalog& katalog, Zellanzeige& anzeige,
    Benutzer& benutzer, int x, int y, QWidget* parent)
    : QDialog(parent)
    , z_(std::move(zustand))
    , ArtNrCb(new QComboBox(this))
{
    setObjectName(QStringLiteral("AdrEingabe"));
    setWindowTitle(z_.felder.titel);
    auto* felder = new QGridLayout;
    const int textfelder = AdrTextfelder(z_);
    for (int i = 0; i < 3; ++i) {
        AdrLbl[i] = new QLabel(z_.felder.beschriftungen.value(i), this);
        AdrLbl[i]->setObjectName(arrayName("AdrLbl", i));
        AdrTxt[i] = new QLineEdit(z_.AdrTxt[i], this);
        AdrTxt[i]->setObjectName(arrayName("AdrTxt", i));
        AdrTxt[i]->setMaxLength(5);
        Nur_Ziffern_Filter(AdrTxt[i]);
        const bool sichtbar = i < textfelder;
        AdrLbl[i]->setVisible(sichtbar || (z_.felder.empfaenger && i == 1));
        AdrTxt[i]->setVisible(sichtbar);
        felder->addWidget(AdrLbl[i], i, 0);
        felder->addWidget(AdrTxt[i], i, 1);
        connect(AdrTxt[i], &QLineEdit::textEdited, this, [this, i](const QString& text) {
            z_.AdrTxt[i] = text;
            zeigen();
        });
    }
    ArtNrCb->setObjectName(QStringLiteral("ArtNrCb"));
    ArtNrCb->addItems(ArtNrListe);
    ArtNrCb->setCurrentIndex(z_.ArtNrCb);
    ArtNrCb->setVisible(z_.felder.empfaenger);
    felder->addWidget(ArtNrCb, 1, 1);
    connect(ArtNrCb, &QComboBox::currentIndexChanged, this, [this](int index) {
        z_.ArtNrCb = index;
        zeigen();
    });

    auto* eingaenge = new QButtonGroup(this);
    auto* eingangZeile = new QHBoxLayout;
    for (int i = 0; i < 2; ++i) {
        EingangOpt[i] = new QRadioButton(QStringLiteral("Eingang %1").arg(i + 1), this);
        EingangOpt[i]->setObjectName(arrayName("EingangOpt", i));
        eingaenge->addButton(EingangOpt[i], i);
        eingangZeile->addWidget(EingangOpt[i]);
    }
    EingangOpt[z_.EingangOpt == 1 ? 1 : 0]->setChecked(true);
    connect(eingaenge, &QButtonGroup::idClicked, this, [this](int id) {
        z_.EingangOpt = id;
        zeigen();
    });
    felder->addLayout(eingangZeile, 2, 0, 1, 2);

    auto* knoepfe = new QDialogButtonBox(this);
    OK_But = knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    QPushButton* abbruch = knoepfe->addButton(QStringLiteral("Abbrechen"), QDialogButtonBox::RejectRole);
    OK_But->setObjectName(QStringLiteral("OK_But"));
    abbruch->setObjectName(QStringLiteral("Abbruch_But"));
    connect(knoepfe, &QDialogButtonBox::accepted, this, [=, this, &anlage, &katalog, &anzeige, &benutzer] {
        ergebnis_ = AdrEingabe_OK(z_, anlage, katalog, anzeige, benutzer, x, y);
        if (ergebnis_ == AdrEingabeErgebnis::Abgelehnt) {
            AdrTxt[0]->setFocus(); // the refused address is corrected or the form cancelled
            AdrTxt[0]->selectAll();
            return;
        }
        accept();
    });
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(felder);
    layout->addWidget(knoepfe);
    zeigen();
    setMinimumWidth(320);
}

void AdrEingabe::zeigen()
{
    for (int i = 0; i < AdrTextfelder(z_); ++i) {
        const bool frei = AdrFeldFrei(z_, i);
        AdrTxt[i]->setEnabled(frei);
        if (frei)
            CheckWertAnzeigen(AdrFeldPruefen(z_, i), AdrTxt[i], AdrLbl[i]);
        else
            AdrLbl[i]->setText(z_.felder.beschriftungen.value(i));
    }
    const bool eingang = EingangSichtbar(z_);
    for (QRadioButton* opt : EingangOpt)
        opt->setVisible(eingang);
    OK_But->setEnabled(AdrOKFrei(z_));
    adjustSize();
}

AdrEingabeErgebnis AdrEingabeZeigen(Anlage& anlage, const Elementkatalog& katalog, Zellanzeige& anzeige,
    Benutzer& benutzer, int x, int y, QWidget* parent)
{
    std::optional<AdrEingabe_Zustand> z = AdrEingabe_laden(anlage, katalog, x, y);
    if (!z)
        return AdrEingabeErgebnis::Abgebrochen;
    AdrEingabe form(std::move(*z), anlage, katalog, anzeige, benutzer, x, y, parent);
    // Closing the window, after a refused OK too, is cancel.
    return form.exec() == QDialog::Accepted ? form.ergebnis() : AdrEingabeErgebnis::Abgebrochen;
}

int Adr12_AbfrageZeigen(int anzahl, QWidget* parent)
{
    QDialog abfrage(parent);
    abfrage.setObjectName(QStringLiteral("Adr12_Abfrage"));
    abfrage.setWindowTitle(QStringLiteral("Adresszuordnung mit der Maus"));
    auto* layout = new QVBoxLayout(&abfrage);
    layout->addWidget(new QLabel(QStringLiteral("Welcher Adresswert soll zugewiesen werden?"), &abfrage));
    auto* zeile = new QHBoxLayout;
    for (int i = 1; i <= anzahl; ++i) {
        auto* knopf = new QPushButton(QStringLiteral("Adresse %1").arg(i), &abfrage);
        knopf->setObjectName(QStringLiteral("Adr%1_But").arg(i));
        knopf->setAutoDefault(false);
        QObject::connect(knopf, &QPushButton::clicked, &abfrage, [&abfrage, i] { abfrage.done(i); });
        zeile->addWidget(knopf);
    }
    layout->addLayout(zeile);
    // Closing the window (or Escape) gives 0: nothing is assigned.
    return abfrage.exec();
}

} // namespace planor
