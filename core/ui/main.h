#pragma once
// Part 1.1: Main, the program's start in its fixed order.

#include "core/element_katalog.h"
#include "core/panel_model.h"
#include "core/settings_file.h"

#include <QString>

#include <memory>

namespace planor {

class MainWin;

// Everything one run of the program holds.
class Programm {
public:
    // Planor.CFG and Fehler.log live in `ablageordner`.
    explicit Programm(QString ablageordner);
    ~Programm();

    // Steps 1 to 12 of Main; afterwards the message loop takes over.
    MainWin& starten();

    QString settingsDatei() const;
    // A first start is one without Planor.CFG (Part 1.1, left to the implementer).
    bool ersterStart() const { return ersterStart_; }

    Einstellungen einstellungen;
    Anlage anlage;
    Elementkatalog katalog;

private:
    QString ablageordner_;
    bool ersterStart_ = false;
    std::unique_ptr<MainWin> mainWin_;
};

// The desktop program's entry.
int Main(int argc, char** argv);

}  // namespace planor
