#include "app/planor-cli/projekt_laden.h"

#include "core/laufzeitfehler.h"
#include "core/programmordner.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace planor::cli {

ProjektLaden::ProjektLaden(std::FILE* fehler)
    : fehler_(fehler), editor_(anlage, katalog, *this), vorher_(FehlerbehandlungUmgebung())
{
    FehlerUmgebung u = vorher_;
    u.anzeige = this;
    FehlerbehandlungEinrichten(u);
}

ProjektLaden::~ProjektLaden()
{
    FehlerbehandlungEinrichten(vorher_);
}

void ProjektLaden::zeigen(const QString& titel, const QString& text)
{
    ++probleme_;
    std::fputs(qPrintable(titel + u'\n' + text + u'\n'), fehler_);
}

void ProjektLaden::meldung(const QString& titel, const QString& text, Symbol)
{
    std::fputs(qPrintable(titel + QStringLiteral(": ") + text + u'\n'), fehler_);
}

bool ProjektLaden::elementLoeschen(const QString& titel, const QString& text)
{
    // Without a user to ask the cell is kept without its values, and the
    // command fails, so that no project loses its values unnoticed.
    ++probleme_;
    std::fputs(qPrintable(titel + QStringLiteral(": ") + text.section(u'\n', 0, 0) + u'\n'), fehler_);
    return false;
}

void ProjektLaden::neues_pult_setzen()
{
    neuSetzen_ = false;
    anlage.neues_pult_setzen();
}

bool ProjektLaden::laden(const QString& datei)
{
    geschuetzt("Funktionen : Elemente_laden",
               [&] { Elemente_laden(KonfPfad() + QStringLiteral("Elemente.cfg"), katalog, anlage); });
    if (probleme_ != 0)
        return false;
    const QFileInfo info(datei);
    anlage.Pfad = info.absolutePath() + u'/';
    anlage.File = info.fileName();
    geschuetzt("Laden_und_Speichern : Load_plt", [&] {
        QFile f(datei);
        if (!f.exists())
            throw Laufzeitfehler(Fehlernummer::DateiNichtGefunden);
        if (!f.open(QIODevice::ReadOnly))
            throw Laufzeitfehler(Fehlernummer::PfadDateiZugriff);
        const QByteArray bytes = f.readAll();
        // A project file always states its dimensions; a file without them
        // is no project (the reader alone would take unknown lines quietly).
        if (!bytes.contains("DimensionenX:"))
            throw Laufzeitfehler(Fehlernummer::UnzulaessigerAufruf);
        Load_plt_bytes(bytes, anlage, katalog, editor_, *this);
    });
    return probleme_ == 0;
}

bool ProjektLaden::speichernNach(const QString& ordner)
{
    anlage.Pfad = QDir(ordner).absolutePath() + u'/';
    geschuetzt("Laden_und_Speichern : Save_plt", [&] { Save_plt(anlage, katalog, *this); });
    return probleme_ == 0;
}

}  // namespace planor::cli
