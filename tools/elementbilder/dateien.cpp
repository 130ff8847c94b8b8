#include "dateien.h"

#include "element_tabelle.h"
#include "namen.h"
#include "zeichnung.h"

#include <QDir>
#include <QFile>
#include <QSet>

namespace planor::elementbilder {

namespace {

QString inAnfuehrung(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

// Windows-1252 equals Latin-1 except 0x80..0x9F; the names use none of those.
QByteArray alsAnsi(const QString& text)
{
    for (const QChar c : text)
        if (c.unicode() > 0xFF || (c.unicode() >= 0x80 && c.unicode() < 0xA0))
            qFatal("Zeichen ausserhalb von Windows-1252 in \"%s\"", qPrintable(text));
    return text.toLatin1();
}

class Schreiber {
public:
    explicit Schreiber(const QString& ordner) : m_ordner(ordner) { }

    bool bild(const QString& name, const QImage& bild)
    {
        if (!neu(name))
            return false;
        if (!bild.save(m_ordner.filePath(name), "BMP")) {
            m_fehler = QStringLiteral("Kann %1 nicht schreiben").arg(m_ordner.filePath(name));
            return false;
        }
        return true;
    }

    bool datei(const QString& name, const QByteArray& inhalt)
    {
        if (!neu(name))
            return false;
        QFile f(m_ordner.filePath(name));
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(inhalt) != inhalt.size()) {
            m_fehler = QStringLiteral("Kann %1 nicht schreiben").arg(f.fileName());
            return false;
        }
        return true;
    }

    const QStringList& geschrieben() const { return m_geschrieben; }
    const QString& fehler() const { return m_fehler; }

private:
    // Two pictures with one name would silently overwrite each other.
    bool neu(const QString& name)
    {
        if (m_namen.contains(name.toLower())) {
            m_fehler = QStringLiteral("Dateiname doppelt vergeben: %1").arg(name);
            return false;
        }
        m_namen.insert(name.toLower());
        m_geschrieben.append(name);
        return true;
    }

    QDir m_ordner;
    QSet<QString> m_namen;
    QStringList m_geschrieben;
    QString m_fehler;
};

bool elementSchreiben(Schreiber& s, const Element& e)
{
    if (!s.bild(bmpName(e), bildZeichnen(e, Ansicht::Plan)))
        return false;
    if (e.typ <= 0)
        return true;
    if (!s.bild(monitorName(e), bildZeichnen(e, Ansicht::Monitor)))
        return false;
    if (!s.bild(markierungsName(e), bildZeichnen(e, Ansicht::Markiert)))
        return false;
    for (const QString& z : zustaende(e.typ))
        if (!s.bild(zustandsName(e, z), zustandZeichnen(e, z)))
            return false;
    return true;
}

}  // namespace

QByteArray katalogText()
{
    QByteArray text;
    for (const Element& e : elementTabelle()) {
        const QStringList felder = {
            inAnfuehrung(bmpName(e)),       inAnfuehrung(e.name),        QString::number(e.typ),
            QString::number(e.palette),     QString::number(e.familie),  QString::number(e.textAusrichtung),
            inAnfuehrung(monitorName(e)),
        };
        text += alsAnsi(felder.join(QLatin1Char(','))) + "\r\n";
    }
    text += "\"###\"\r\n";
    return text;
}

QString markdownTabelle()
{
    QString text = QStringLiteral("| Index | Bmp | Name | Typ | Palette | Familie | TextAusrichtung | BmpAusw | "
                                  "Zustandsbilder |\n|---|---|---|---|---|---|---|---|---|\n");
    int index = 0;
    for (const Element& e : elementTabelle()) {
        QStringList bilder;
        for (const QString& z : zustaende(e.typ))
            bilder.append(zustandsName(e, z));
        const QString mon = monitorName(e);
        text += QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 | %7 | %8 | %9 |\n")
                    .arg(++index)
                    .arg(bmpName(e), e.name)
                    .arg(e.typ)
                    .arg(e.palette)
                    .arg(e.familie)
                    .arg(e.textAusrichtung)
                    .arg(mon.isEmpty() ? QStringLiteral("\"\"") : mon, bilder.join(QStringLiteral(", ")));
    }
    return text;
}

QStringList allesSchreiben(const QString& ordner, QString& fehler)
{
    if (!QDir().mkpath(ordner)) {
        fehler = QStringLiteral("Kann den Ordner %1 nicht anlegen").arg(ordner);
        return {};
    }
    Schreiber s(ordner);
    bool gut = s.datei(QString::fromLatin1(KatalogName), katalogText())
        && s.bild(QString::fromLatin1(WeissName), leeresBild(farbe::Weiss));
    for (const Element& e : elementTabelle())
        gut = gut && elementSchreiben(s, e);
    if (!gut) {
        fehler = s.fehler();
        return {};
    }
    return s.geschrieben();
}

}  // namespace planor::elementbilder
