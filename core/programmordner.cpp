#include "core/programmordner.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace planor {

QString Programmordner()
{
    return QCoreApplication::applicationDirPath();
}

QString Ablageordner()
{
    const QString programm = Programmordner();
    if (QFileInfo(programm).isWritable())
        return programm;
    const QString benutzer = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(benutzer);
    return benutzer;
}

QString Datenordner(const QString& name)
{
    const QDir nebenan(QDir(Programmordner()).filePath(name));
    const QString ordner = nebenan.exists() ? nebenan.path() : QDir(QStringLiteral(PLANOR_SHARE_DIR)).filePath(name);
    return ordner + u'/';
}

QString KonfPfad()
{
    return Datenordner(QStringLiteral("KT_Conf"));
}

}  // namespace planor
