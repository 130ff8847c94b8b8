#pragma once
// planor-cli's file tools: info and resave.

#include <QStringList>

#include <cstdio>

namespace planor::cli {

// planor-cli info PROJECT.anl
int info(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);
// planor-cli resave PROJECT.anl OUTDIR
int resave(const QStringList& argumente, std::FILE* aus, std::FILE* fehler);

}  // namespace planor::cli
