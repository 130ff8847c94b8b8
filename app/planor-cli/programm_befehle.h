#pragma once
// planor-cli program|read: the bulk operations on a project.
//   planor-cli program PROJEKT.anl --port PORT [--cell X,Y] [--on-error ask|retry|skip|abort]
//   planor-cli read    PROJEKT.anl --port PORT [--cell X,Y] [--on-error ...] [--save]
// Without --cell: Prog_all / Read_all; with it: Prog_einzeln / Read_einzeln,
// the pick answered with that cell. The start question is answered OK; the
// status lines go to stdout one a line, the messages of the link to stderr.
// --on-error answers PultFehlMeldung_Form: retry = "nochmal" (at most
// RetryGrenze times for one module, then "nächstes"), skip = "nächstes",
// abort = "Abbruch" (the default), ask = read from stdin.
// Exit 0 when every module went through, 1 otherwise, 2 for a wrong call.
// --save saves the project in place (Save_plt) after a read in which every
// module answered; after a failed read nothing is saved.

#include <QStringList>

#include <cstdio>

namespace planor::cli {

// How often "retry" repeats one module before going on with the next.
inline constexpr int RetryGrenze = 3;

int program(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);
int read(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

// The answer typed at the prompt of --on-error ask: n or 0 "nochmal",
// ä, ae or 1 "nächstes", a or 2 "Abbruch"; anything else is asked again
// (false), the end of input is "Abbruch".
bool fehlerAntwortLesen(const QString& zeile, int& antwort);

} // namespace planor::cli
