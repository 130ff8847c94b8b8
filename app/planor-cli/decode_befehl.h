#pragma once
// planor-cli decode: the text monitor over bytes given on the command
// line. The bytes go through the monitor framing (Empfang, with
// Monitor_Aktiv), each complete message through decode_ln_mes with one state
// kept from message to message; each text is printed after ZeilenUmbruch's
// 80-column cut, one line per line.
//   planor-cli decode [--hex] [--ascii-hex] HEX...
// The bytes are hexadecimal, one or two digits each, with their checksums;
// separate arguments or one argument with blanks. Usage errors exit 2.

#include <QStringList>

#include <cstdio>

namespace planor::cli {

int decode(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

} // namespace planor::cli
