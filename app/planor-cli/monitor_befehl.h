#pragma once
// planor-cli monitor: the text monitor without a window. The port
// opens as for the other bus commands (open_com); every complete
// message of the monitor framing (Monitor_Aktiv) goes through
// decode_ln_mes with one state for the whole run, and each line the
// monitor's view would get is printed on stdout and flushed at once, until
// SIGINT or SIGTERM (exit 0, the trace closed).
//   planor-cli monitor --port PORT [--hex] [--ascii-hex] [--trace DATEI]
// --trace writes the monitor's trace file as well: one line per shown text in
// TraceZeile's format, Windows-1252 with CR LF. German messages on stderr.
// Exit codes: 0 ended by a signal, 1 the port cannot be opened, the trace
// cannot be written, the link is lost or stdout can no longer be written,
// 2 wrong call.

#include <QStringList>

#include <cstdio>

namespace planor::cli {

int monitor(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

}  // namespace planor::cli
