#include "programmierung/ui/pult_fehl_meldung.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace planor {

PultFehlMeldung_Form::PultFehlMeldung_Form(const QString& titel, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("PultFehlMeldung_Form"));
    setWindowTitle(titel);

    const QString texte[] = {QStringLiteral("nochmal"), QStringLiteral("nächstes"), QStringLiteral("Abbruch")};
    for (int i = 0; i < 3; ++i) {
        auto* knopf = new QPushButton(texte[i], this);
        knopf->setObjectName(QStringLiteral("EXIT_But(%1)").arg(i));
        knopf->setAutoDefault(false);
        knopf->setMinimumWidth(100);
        connect(knopf, &QPushButton::clicked, this, [this, i] { EXIT_But_Click(i); });
        EXIT_But[static_cast<std::size_t>(i)] = knopf;
    }

    auto label = [this](const char* name, const QString& text) {
        auto* l = new QLabel(text, this);
        l->setObjectName(QLatin1String(name));
        return l;
    };
    // Each choice reads as a sentence: its text, then its button; "oder"
    // stands between the two, the way out below them.
    auto* gitter = new QGridLayout(this);
    gitter->setHorizontalSpacing(16);
    gitter->setVerticalSpacing(8);
    gitter->addWidget(label("Label1", QStringLiteral("neuer Versuch beim gleichen Modul ")), 0, 0, Qt::AlignLeft);
    gitter->addWidget(EXIT_But[0], 0, 1);
    gitter->addWidget(label("Label2", QStringLiteral("oder")), 1, 0, Qt::AlignLeft);
    gitter->addWidget(label("Label3", QStringLiteral("nächstes Modul")), 2, 0, Qt::AlignLeft);
    gitter->addWidget(EXIT_But[1], 2, 1);
    gitter->setRowMinimumHeight(3, 8);
    gitter->addWidget(EXIT_But[2], 4, 1);
    gitter->setSizeConstraint(QLayout::SetFixedSize);
    EXIT_But[0]->setDefault(true);
    EXIT_But[0]->setFocus();
}

void PultFehlMeldung_Form::EXIT_But_Click(int index)
{
    antwort_ = static_cast<FehlerAntwort>(index);
    hide();
    done(index);
}

void PultFehlMeldung_Form::reject()
{
    if (antwort_ == FehlerAntwort::Offen)
        antwort_ = FehlerAntwort::Abbruch;
    QDialog::reject();
}

FehlerAntwort PultFehlMeldungZeigen(const QString& titel, QWidget* parent)
{
    PultFehlMeldung_Form form(titel, parent);
    form.exec();
    return form.Antwort() == FehlerAntwort::Offen ? FehlerAntwort::Abbruch : form.Antwort();
}

}  // namespace planor
