#pragma once
// The option values planor-cli's commands share; a wrong one ends the
// command as a wrong call (exit 2) with a German message.

#include "platform/simulator.h"

#include <QString>

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

}  // namespace planor::cli
