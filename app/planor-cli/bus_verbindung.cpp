#include "app/planor-cli/bus_verbindung.h"

#include "platform/sim_transport.h"

namespace planor::cli {

BusVerbindung::BusVerbindung(const Einstellungen& einstellungen, const std::vector<SimModulAngabe>& module,
                             std::FILE* fehler, std::function<void(int, const QString&)> infoTxt)
    : benutzer(fehler), simulator(uhr), schnittstelle(einstellungen, uhr, benutzer, std::move(infoTxt))
{
    for (const SimModulAngabe& m : module)
        simulator.modulHinzufuegen(m);
    schnittstelle.setzeSimulator([this]() -> std::unique_ptr<Transport> { return simulator.transport(); });
}

}  // namespace planor::cli
