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

// A bus command's call: its options by `lesen`, then the settings of its
// --port. A wrong call is told on `fehler` with the usage text `aufruf`, and
// gives false (the command then ends with exit 2).
template <typename Auftrag, typename Lesen>
bool busAufruf(Lesen lesen, const char* aufruf, std::FILE* fehler, Auftrag& a, Einstellungen& e)
{
    try {
        a = lesen();
        e = portEinstellungen(a.port);
        return true;
    } catch (const FalscherAufruf& f) {
        std::fputs(qPrintable(f.text + QStringLiteral("\n\n") + QString::fromUtf8(aufruf)), fehler);
        return false;
    }
}

// The messages of the link's procedures, as "title: text" lines on stderr.
class StderrBenutzer final : public Benutzer {
public:
    explicit StderrBenutzer(std::FILE* fehler) : fehler_(fehler) {}
    void meldung(const QString& titel, const QString& text, Symbol) override;

private:
    std::FILE* fehler_;
};

}  // namespace planor::cli
