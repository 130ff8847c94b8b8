#include "editor/ui/tausch_dialog.h"

#include "editor/tausch_form.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace planor {

TauschForm::TauschForm(Anlage& anlage, int x, int y, QWidget* parent)
    : QDialog(parent)
    , TauschChk1(new QCheckBox(QStringLiteral("Rot/Grün tauschen für Adresse 1"), this))
    , TauschChk2(new QCheckBox(QStringLiteral("Rot/Grün tauschen für Adresse 2"), this))
    , TauschChk3(new QCheckBox(QStringLiteral("Adresse 1 und Adresse 2 tauschen"), this))
{
    setObjectName(QStringLiteral("TauschForm"));
    setWindowTitle(QStringLiteral("Magnetartikel X: %1 - Y: %2").arg(x).arg(y));
    TauschChk1->setObjectName(QStringLiteral("TauschChk1"));
    TauschChk2->setObjectName(QStringLiteral("TauschChk2"));
    TauschChk3->setObjectName(QStringLiteral("TauschChk3"));

    const TauschForm_Zustand z = TauschForm_laden(anlage, x, y);
    TauschChk1->setChecked(z.TauschChk1);
    TauschChk2->setChecked(z.TauschChk2);
    TauschChk3->setChecked(z.TauschChk3);

    auto* knoepfe = new QDialogButtonBox(this);
    QPushButton* ok = knoepfe->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
    QPushButton* abbruch = knoepfe->addButton(QStringLiteral("Abbruch"), QDialogButtonBox::RejectRole);
    ok->setObjectName(QStringLiteral("OK_But"));
    abbruch->setObjectName(QStringLiteral("Abbruch_But"));
    connect(knoepfe, &QDialogButtonBox::accepted, this, [this, &anlage, x, y] {
        TauschForm_OK({TauschChk1->isChecked(), TauschChk2->isChecked(), TauschChk3->isChecked()}, anlage, x, y);
        accept();
    });
    connect(knoepfe, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    for (QCheckBox* box : {TauschChk1, TauschChk2, TauschChk3})
        layout->addWidget(box);
    layout->addWidget(knoepfe);
}

bool TauschFormZeigen(Anlage& anlage, int x, int y, QWidget* parent)
{
    TauschForm form(anlage, x, y, parent);
    return form.exec() == QDialog::Accepted;
}

}  // namespace planor
