#pragma once
// Part 1.1 step 2: the version text from the file's version values.

#include <QString>

namespace planor {

// "1.1.6": major, minor and revision joined with ".".
QString Version();

// Part 1.1 step 3: the splash form's InfoLbl.
QString VersionsInfo();

}  // namespace planor
