#pragma once
// planor-cli lncv read|write: one LNCV session with one module
// (Prog_On, one Read_Lncv or Prog_Lncv, Prog_Off).
//   planor-cli lncv read  --article N --address A --lncv K --port PORT [--module ART:ADR[:VER] ...]
//   planor-cli lncv write --article N --address A --lncv K --value V --port PORT [...]
// PORT: serial:DEVICE?kind=usb|adapter|station, tcp:HOST:PORT, or sim (in-process,
// with the --module options). A read prints the value (0..65535) on stdout.
// On failure prog_error_meldung's text goes to stderr and the exit status is 1.

#include <QStringList>

#include <cstdio>

namespace planor::cli {

int lncv(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

}  // namespace planor::cli
