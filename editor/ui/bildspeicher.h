#pragma once
// The catalogue's bitmaps, loaded once from KonfPfad. Names are looked up by
// exact name first, then without regard to case (catalogues made on Windows).

#include <QHash>
#include <QPixmap>
#include <QString>

namespace planor {

class Bildspeicher {
public:
    explicit Bildspeicher(QString ordner) : ordner_(std::move(ordner)) {}
    // The picture of that file name; a null pixmap for an empty or missing name.
    const QPixmap& bild(const QString& name);

private:
    QString ordner_;
    QHash<QString, QPixmap> bilder_;
};

}  // namespace planor
