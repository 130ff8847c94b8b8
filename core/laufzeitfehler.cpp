#include "core/laufzeitfehler.h"

namespace planor {

QString Fehlerbeschreibung(int nummer)
{
    switch (static_cast<Fehlernummer>(nummer)) {
    case Fehlernummer::UnzulaessigerAufruf:
        return QStringLiteral("Unzulässiger Prozeduraufruf oder ungültiges Argument");
    case Fehlernummer::Ueberlauf:
        return QStringLiteral("Überlauf");
    case Fehlernummer::NichtGenugSpeicher:
        return QStringLiteral("Nicht genügend Speicher");
    case Fehlernummer::IndexAusserhalb:
        return QStringLiteral("Index außerhalb des gültigen Bereichs");
    case Fehlernummer::TypenUnvertraeglich:
        return QStringLiteral("Typen unverträglich");
    case Fehlernummer::DateiNichtGefunden:
        return QStringLiteral("Datei nicht gefunden");
    case Fehlernummer::GeraeteEA:
        return QStringLiteral("Geräte-E/A-Fehler");
    case Fehlernummer::EinlesenHinterDateiende:
        return QStringLiteral("Einlesen hinter Dateiende");
    case Fehlernummer::PfadDateiZugriff:
        return QStringLiteral("Fehler beim Zugriff auf Pfad/Datei");
    }
    return QStringLiteral("Anwendungs- oder objektdefinierter Fehler");
}

Laufzeitfehler::Laufzeitfehler(Fehlernummer nummer)
    : Laufzeitfehler(static_cast<int>(nummer), Fehlerbeschreibung(static_cast<int>(nummer)))
{
}

Laufzeitfehler::Laufzeitfehler(int nummer, const QString& beschreibung)
    : std::runtime_error(beschreibung.toStdString()), nummer_(nummer), beschreibung_(beschreibung)
{
}

}  // namespace planor
