#pragma once
// The link as it stands before the serial, TCP and simulated transports
// (Part 2.1, issue 5) are built in: every attempt to open it fails the way a
// port that cannot be opened fails (err 8002, message under "ComPort öffnen"),
// so the callers take their own failure paths.

#include "loconet/verbindung.h"

namespace planor {

class Benutzer;

class OhneSchnittstelle final : public LocoNetVerbindung {
public:
    OhneSchnittstelle(Benutzer& benutzer, const Integer& comPort) : benutzer_(benutzer), comPort_(comPort) {}
    void open_com(Long& err) override;
    bool istOffen() const override { return false; }

private:
    Benutzer& benutzer_;
    const Integer& comPort_;
};

}  // namespace planor
