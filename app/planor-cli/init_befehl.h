#pragma once
// planor-cli init: Nav_Init without a display. The question
// "only one module?" counts as answered yes; the status and progress go to
// stdout, a refused entry or a failed exchange to stderr (exit 1).
//   planor-cli init --article N --address A [--address2 B] --sensors single|double --port PORT
//                   [--module ARTIKEL:ADRESSE[:VERSION] ...]

#include <QStringList>

#include <cstdio>

namespace planor::cli {

int init(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

}  // namespace planor::cli
