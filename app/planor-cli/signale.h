#pragma once
// SIGINT and SIGTERM end the event loop of a planor-cli command that runs
// until it is stopped (sim, monitor): QCoreApplication::exec() returns 0, so
// the command closes its files and ends as on a normal end. The handler only
// writes a byte to a pipe; the event loop reads it. SIGPIPE is ignored, so a
// reader that goes away shows as a failed write instead of killing the process.

class QObject;

namespace planor::cli {

// False when the signals cannot be caught (the caller reports it).
bool signaleUmleiten(QObject* eltern);

}  // namespace planor::cli
