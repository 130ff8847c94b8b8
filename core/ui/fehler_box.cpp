#include "core/ui/fehler_box.h"

#include <QApplication>
#include <QMessageBox>

namespace planor {

void FehlerBox::zeigen(const QString& titel, const QString& text)
{
    QMessageBox box(QMessageBox::Critical, titel, text, QMessageBox::Ok, QApplication::activeWindow());
    box.setObjectName(QStringLiteral("Fehlerbehandlung"));
    box.exec();
}

}  // namespace planor
