#include "platform/simulator.h"

#include "core/modul_artikel.h"
#include "core/panel_model.h"
#include "platform/sim_transport.h"

#include <algorithm>

namespace planor {

std::vector<SimModulAngabe> SimModuleAusAnlage(const Anlage& anlage)
{
    std::vector<SimModulAngabe> module;
    for (int x = 1; x <= anlage.DimensionenX; ++x)
        for (int y = 1; y <= anlage.DimensionenY; ++y) {
            const XY_Typ& z = anlage.XY(x, y);
            if (!SimModul::artikelBekannt(z.XY_ArtNr) || z.XY_SenStat == 2)
                continue;
            const XY_Typ* haupt = &z;
            if (istUniversal(z.XY_ArtNr) && z.XY_SenX >= 1 && z.XY_SenX <= anlage.DimensionenX
                && z.XY_SenY >= 1 && z.XY_SenY <= anlage.DimensionenY)
                haupt = &anlage.XY(z.XY_SenX, z.XY_SenY);
            const Long adresse = Int_to_Unsig(haupt->XY_LNCV(0));
            if (adresse == 0)
                continue;
            int version = -1;
            if (z.XY_Version == 1 && (z.XY_ArtNr == 5330 || z.XY_ArtNr == 47230))
                version = 110;
            const SimModulAngabe m{z.XY_ArtNr, adresse, version};
            const bool schonDa = std::any_of(module.begin(), module.end(), [&](const SimModulAngabe& n) {
                return n.artikel == m.artikel && n.adresse == m.adresse;
            });
            if (!schonDa)
                module.push_back(m);
        }
    return module;
}

Simulator::Simulator(Uhr& uhr) : bus_(uhr), geraete_(bus_) {}

Simulator::~Simulator() = default;

void Simulator::modulHinzufuegen(const SimModulAngabe& m)
{
    geraete_.modulHinzufuegen(m.artikel, m.adresse, m.version);
}

std::unique_ptr<SimTransport> Simulator::transport()
{
    return std::make_unique<SimTransport>(bus_);
}

}  // namespace planor
