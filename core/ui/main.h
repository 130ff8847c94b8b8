#pragma once
// Main, the program's start in its fixed order.

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "core/settings_file.h"
#include "platform/uhr.h"

#include <QString>

#include <functional>
#include <memory>

namespace planor {

class MainWin;
class Transport;

// The message when the first start cannot connect.
inline const QString VerbindungsFehlerTitel = QStringLiteral("Fehler beim Verbinden mit dem Computer");
inline const QString VerbindungsFehlerText = QStringLiteral("Bitte stellen Sie die Verbindungsdaten richtig ein oder\n"
                                                            "verbinden Sie den PC mit der Zentrale.");

// Everything one run of the program holds.
class Programm {
public:
    // Planor.CFG and Fehler.log live in `ablageordner`.
    explicit Programm(QString ablageordner);
    ~Programm();

    // Main's start in its fixed order; afterwards the message loop takes over.
    MainWin& starten();

    QString settingsDatei() const;
    // A first start is one without Planor.CFG.
    bool ersterStart() const { return ersterStart_; }

    Einstellungen einstellungen;
    Anlage anlage;
    Elementkatalog katalog;

    // The clock of the link's waits: the system's, unless set before starten.
    Uhr* uhr = &systemUhr_;
    // Makes the transport of "Simulation (ohne Hardware)";
    // without it that kind cannot be opened.
    std::function<std::unique_ptr<Transport>()> simulator;
    // The user ended the program with Erststart's "Ende"; the main
    // window is hidden and the message loop is not to be entered.
    bool beendet() const { return beendet_; }

private:
    // Erststart, then open_com, until it connects (true) or the
    // user ends the program (false).
    bool ersteVerbindung();

    SystemUhr systemUhr_;
    bool beendet_ = false;
    QString ablageordner_;
    bool ersterStart_ = false;
    std::unique_ptr<MainWin> mainWin_;
};

// The desktop program's entry.
int Main(int argc, char** argv);

}  // namespace planor
