#pragma once
// planor-cli: the headless front end over planor_core. Its command forms are
// contracts that other tools drive: names, options, exit codes and output.

#include <QStringList>

#include <cstdio>

namespace planor::cli {

// Exit codes.
inline constexpr int Erfolg = 0;
inline constexpr int Fehler = 1;       // the command failed (error report on stderr)
inline constexpr int Aufruffehler = 2; // unknown command or wrong arguments

// Runs one command line (without the program name).
int ausfuehren(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

}  // namespace planor::cli
