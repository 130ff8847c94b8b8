#pragma once
// The version text from the file's version values.

#include <QString>

namespace planor {

// "1.1.6": major, minor and revision joined with ".".
QString Version();

// The splash form's InfoLbl.
QString VersionsInfo();

}  // namespace planor
