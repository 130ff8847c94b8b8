#pragma once
// ExitFrage, the one exit check of "Beenden" and of closing the
// main window. Widget-free: the questions and dialogs come through the
// interface, so that the logic runs in tests without a display.

#include <QString>

#include <optional>

namespace planor {

class Anlage;

enum class Antwort { Ja, Nein, Abbrechen };

class ExitFrageUmgebung {
public:
    virtual ~ExitFrageUmgebung() = default;
    // Save_conf with its own guard.
    virtual void Save_conf() = 0;
    // A question with yes, no and cancel, cancel the default.
    virtual Antwort frage(const QString& titel, const QString& text) = 0;
    // The file dialog "Speichern unter: ..."; the chosen full path or nothing.
    virtual std::optional<QString> speichernUnter() = 0;
    // Save_plt to the project's Pfad + File.
    virtual void Save_plt() = 0;
};

inline const QString ExitFrageTitel = QStringLiteral("Achtung: Sie haben das Programm beendet!");
inline const QString ExitFrageText = QStringLiteral("Sollen die Daten gespeichert werden?");

// True when the program may end.
bool ExitFrage(Anlage& anlage, ExitFrageUmgebung& umgebung);

// A full path split at the last "/" into Pfad (with the separator) and File.
void PfadUndFileSetzen(Anlage& anlage, const QString& vollerPfad);

}  // namespace planor
