#pragma once
// planor-cli sim: the built-in LocoNet simulator on its own, until SIGINT or
// SIGTERM ends it (the state file is saved then). It serves a
// pseudo-terminal (--pty, prints "PTY <path>") and/or an LbServer on TCP
// (--tcp [ADDRESS:]PORT, loopback unless an address is given; port 0 takes
// a free one; prints "TCP <port>"). Those lines go to stdout, flushed, in
// that order, before anything else; with --monitor every bus message
// follows as "BUS <hex>". --flood keeps the bus full for measurements
// (platform/sim_flut.h). Usage errors exit 2 with a German message.

#include <QStringList>

#include <cstdio>

namespace planor::cli {

int sim(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

}  // namespace planor::cli
