#pragma once
// The built-in LocoNet simulator as one piece: the bus, the devices on it,
// and transports for the program. Planor's fifth interface choice
// "Simulation (ohne Hardware)" keeps one Simulator for the run and hands the
// link a `transport()`; `planor-cli sim` serves the same over a
// pseudo-terminal and TCP.

#include "core/vb_zahlen.h"
#include "platform/sim_bus.h"
#include "platform/sim_geraete.h"

#include <memory>
#include <vector>

namespace planor {

class Anlage;
class SimTransport;
class Uhr;

// One simulated module: article, address and firmware number (below 0: the article's default).
struct SimModulAngabe {
    Long artikel = 0;
    Long adresse = 0;
    int version = -1;
    bool operator==(const SimModulAngabe&) const = default;
};

// The modules of a project, one per configured module cell at factory
// values: article XY_ArtNr, address XY_LNCV(0). The further cells of a
// universal controller share their main cell's module (XY_SenX, XY_SenY),
// the second input of a sensor pair (XY_SenStat 2) has none, and two cells
// with the same article and address are one module. A 5330 or 47230 whose
// XY_Version is 1 gets a firmware number of generation 1.
std::vector<SimModulAngabe> SimModuleAusAnlage(const Anlage& anlage);

class Simulator {
public:
    explicit Simulator(Uhr& uhr);
    ~Simulator();

    SimBus& bus() { return bus_; }
    SimGeraete& geraete() { return geraete_; }

    void modulHinzufuegen(const SimModulAngabe& m);
    // A transport on this simulator's bus (not yet open).
    std::unique_ptr<SimTransport> transport();

private:
    SimBus bus_;
    SimGeraete geraete_;
};

}  // namespace planor
