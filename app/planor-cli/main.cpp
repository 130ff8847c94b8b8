#include "app/planor-cli/cli.h"

#include "core/fehlerbehandlung.h"
#include "core/programmordner.h"
#include "platform/uhr.h"

#include <QCoreApplication>
#include <QDir>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Planor"));
    QCoreApplication::setOrganizationName(QStringLiteral("Planor"));

    // The error report goes to stderr (the default display) and to Fehler.log.
    planor::SystemUhr uhr;
    planor::FehlerbehandlungEinrichten(
        {QDir(planor::Ablageordner()).filePath(QStringLiteral("Fehler.log")), &uhr, nullptr});

    QStringList argumente = QCoreApplication::arguments();
    argumente.removeFirst();
    return planor::cli::ausfuehren(argumente, stdout, stderr);
}
