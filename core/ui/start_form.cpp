#include "core/ui/start_form.h"

#include "core/version.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace planor {

Start_Form::Start_Form(QWidget* parent)
    : QDialog(parent)
    , InfoLbl(new QLabel(this))
    , StartBut(new QPushButton(QStringLiteral("Start"), this))
{
    setObjectName(QStringLiteral("Start_Form"));
    setWindowTitle(QStringLiteral("NAVIK/TOBRA - Planor"));

    auto* titel = new QLabel(QStringLiteral("NAVIK/TOBRA - Planor"), this);
    QFont gross = titel->font();
    gross.setPointSizeF(gross.pointSizeF() * 2.2);
    gross.setBold(true);
    titel->setFont(gross);
    titel->setAlignment(Qt::AlignCenter);

    InfoLbl->setObjectName(QStringLiteral("InfoLbl"));
    InfoLbl->setText(VersionsInfo());
    InfoLbl->setAlignment(Qt::AlignCenter);

    StartBut->setObjectName(QStringLiteral("StartBut"));
    StartBut->setDefault(true);
    connect(StartBut, &QPushButton::clicked, this, &QDialog::accept);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(40, 32, 40, 24);
    layout->setSpacing(18);
    layout->addWidget(titel);
    layout->addWidget(InfoLbl);
    layout->addWidget(StartBut, 0, Qt::AlignHCenter);
}

void Start_Form::warteAufStart()
{
    exec();
    hide();
}

}  // namespace planor
