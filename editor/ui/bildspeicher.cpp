#include "editor/ui/bildspeicher.h"

#include <QDir>
#include <QFileInfo>

namespace planor {

const QPixmap& Bildspeicher::bild(const QString& name)
{
    auto gefunden = bilder_.find(name);
    if (gefunden != bilder_.end())
        return *gefunden;
    QPixmap pixmap;
    if (!name.isEmpty()) {
        QDir ordner(ordner_);
        QString datei = ordner.filePath(name);
        if (!QFileInfo::exists(datei)) {
            const QStringList alle = ordner.entryList(QDir::Files);
            for (const QString& kandidat : alle)
                if (kandidat.compare(name, Qt::CaseInsensitive) == 0)
                    datei = ordner.filePath(kandidat);
        }
        pixmap.load(datei);
    }
    return *bilder_.insert(name, pixmap);
}

}  // namespace planor
