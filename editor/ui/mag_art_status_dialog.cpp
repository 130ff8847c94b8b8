#include "editor/ui/mag_art_status_dialog.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace planor {

MagArtStatusForm::MagArtStatusForm(const MagArtStatus_Zustand& zustand, QWidget* parent)
    : QDialog(parent), zustand_(zustand)
{
    setObjectName(QStringLiteral("MagArtStatus"));
    setWindowTitle(MagArtStatusTitel);

    auto* status = new QGroupBox(QStringLiteral("Status:"), this);
    status->setObjectName(QStringLiteral("StatusFrame"));
    auto* statusLayout = new QVBoxLayout(status);
    const QString statText[2] = {StatOptText0, StatOptText1};
    for (int i = 0; i <= 1; ++i) {
        StatOpt[i] = new QRadioButton(statText[i], status);
        StatOpt[i]->setObjectName(QStringLiteral("StatOpt(%1)").arg(i));
        StatOpt[i]->setChecked(zustand_.StatOpt(i));
        statusLayout->addWidget(StatOpt[i]);
        connect(StatOpt[i], &QRadioButton::toggled, this, [this, i](bool an) {
            if (an)
                StatOpt_Click(zustand_, i);
        });
    }

    auto* adressen = new QGroupBox(QStringLiteral("Adresse 1 oder 2:"), this);
    adressen->setObjectName(QStringLiteral("AdrFrame"));
    auto* adrLayout = new QVBoxLayout(adressen);
    for (int i = 1; i <= 3; ++i) {
        QRadioButton*& knopf = AdrOpt[i - 1];
        knopf = new QRadioButton(zustand_.AdrOptText(i), adressen);
        knopf->setObjectName(QStringLiteral("AdrOpt(%1)").arg(i));
        knopf->setEnabled(zustand_.AdrOptAktiv(i));
        knopf->setChecked(zustand_.AdrOpt(i));
        adrLayout->addWidget(knopf);
        connect(knopf, &QRadioButton::toggled, this, [this, i](bool an) {
            if (an)
                AdrOpt_Click(zustand_, i);
        });
    }

    auto* knoepfe = new QDialogButtonBox(this);
    QPushButton* ok = knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    QPushButton* abbruch = knoepfe->addButton(QStringLiteral("Abbruch"), QDialogButtonBox::RejectRole);
    ok->setObjectName(QStringLiteral("OK_But"));
    abbruch->setObjectName(QStringLiteral("Abbruch_But"));
    connect(knoepfe, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(status);
    layout->addWidget(adressen);
    layout->addWidget(knoepfe);
}

bool MagArtStatusZeigen(MagArtStatus_Zustand& zustand, QWidget* parent)
{
    MagArtStatusForm form(zustand, parent);
    if (form.exec() != QDialog::Accepted)
        return false;
    zustand = form.zustand();
    return true;
}

}  // namespace planor
