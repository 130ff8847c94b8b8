#pragma once
// The numbered run-time errors (6 overflow, 9 bounds, ...) that the
// procedures raise. A procedure raises one; the guard of the
// procedure (fehlerbehandlung.h) reports it and the caller carries on.

#include <QString>

#include <stdexcept>

namespace planor {

// Error numbers with the meaning the error report shows.
enum class Fehlernummer : int {
    UnzulaessigerAufruf = 5,   // "Unzulässiger Prozeduraufruf oder ungültiges Argument"
    Ueberlauf = 6,             // "Überlauf"
    NichtGenugSpeicher = 7,    // "Nicht genügend Speicher"
    IndexAusserhalb = 9,       // "Index außerhalb des gültigen Bereichs"
    TypenUnvertraeglich = 13,  // "Typen unverträglich"
    DateiNichtGefunden = 53,   // "Datei nicht gefunden"
    GeraeteEA = 57,            // "Geräte-E/A-Fehler"
    EinlesenHinterDateiende = 62,  // "Einlesen hinter Dateiende"
    PfadDateiZugriff = 75,     // "Fehler beim Zugriff auf Pfad/Datei"
};

// The German description of an error number, as the error report shows it.
QString Fehlerbeschreibung(int nummer);

class Laufzeitfehler : public std::runtime_error {
public:
    explicit Laufzeitfehler(Fehlernummer nummer);
    // An error number of the bus layer or the system with a text of its own.
    Laufzeitfehler(int nummer, const QString& beschreibung);

    int nummer() const { return nummer_; }
    const QString& beschreibung() const { return beschreibung_; }

private:
    int nummer_;
    QString beschreibung_;
};

}  // namespace planor
