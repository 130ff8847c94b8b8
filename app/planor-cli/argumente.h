#pragma once
// The option values planor-cli's commands share; a wrong one ends the
// command as a wrong call (exit 2) with a German message.

#include "core/benutzer.h"
#include "core/settings_file.h"
#include "platform/simulator.h"

#include <QString>

#include <cstdio>

namespace planor::cli {

struct FalscherAufruf {
    QString text;
};

// A probability 0..1 ("0,5" or "0.5").
double wahrscheinlichkeit(const QString& option, QString wert);
// A whole number within bounds.
long long ganzzahl(const QString& option, const QString& wert, long long unten, long long oben);
// ARTIKEL:ADRESSE[:VERSION] of a simulated module.
SimModulAngabe modulAngabe(const QString& option, const QString& wert, bool mitVersion);

// PORT to the settings open_com reads: serial:DEVICE?kind=usb|adapter|station,
// tcp:HOST:PORT, or sim.
Einstellungen portEinstellungen(const QString& port);

// The messages of the link's procedures, as "title: text" lines on stderr.
class StderrBenutzer final : public Benutzer {
public:
    explicit StderrBenutzer(std::FILE* fehler) : fehler_(fehler) {}
    void meldung(const QString& titel, const QString& text, Symbol) override;

private:
    std::FILE* fehler_;
};

}  // namespace planor::cli
