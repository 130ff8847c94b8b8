#include "core/ui/meldungs_box.h"

#include <QMessageBox>

namespace planor {

void MeldungsBox::meldung(const QString& titel, const QString& text, Symbol symbol)
{
    const QMessageBox::Icon icon = symbol == Symbol::Kritisch  ? QMessageBox::Critical
                                   : symbol == Symbol::Ausruf ? QMessageBox::Warning
                                                              : QMessageBox::Information;
    QMessageBox box(icon, titel, text, QMessageBox::Ok, eltern_);
    box.setObjectName(QStringLiteral("Meldung"));
    box.exec();
}

}  // namespace planor
