#pragma once
// The bus as planor-cli's bus commands reach it: the system clock, messages
// on stderr, and the port the settings name — the in-process simulator with
// the given modules when they name the simulation.

#include "app/planor-cli/argumente.h"
#include "loconet/schnittstelle.h"
#include "platform/simulator.h"
#include "platform/uhr.h"

#include <cstdio>
#include <functional>
#include <vector>

namespace planor::cli {

class BusVerbindung {
public:
    BusVerbindung(const Einstellungen& einstellungen, const std::vector<SimModulAngabe>& module, std::FILE* fehler,
                  std::function<void(int feld, const QString& text)> infoTxt = {});

    SystemUhr uhr;
    StderrBenutzer benutzer;
    Simulator simulator;
    Schnittstelle schnittstelle;
};

}  // namespace planor::cli
