#pragma once
// The BASIC-style numeric types and conversions (16-bit Integer, 32-bit
// Long, Val, Str) that the files and the bus depend on.

#include <QString>

#include <cstdint>

namespace planor {

using Integer = std::int16_t;  // 16-bit signed
using Long = std::int32_t;     // 32-bit signed

// Assignment to an Integer: rounds half to even; outside -32768..32767 raises
// run-time error 6 ("Überlauf").
Integer CInt(double wert);
// Assignment to a Long, same rules for -2^31..2^31-1.
Long CLng(double wert);

// The leading number of a text as Val reads it: blanks, tabs and line breaks
// are skipped, a sign, digits, one decimal point and an exponent are taken,
// "&H" and "&O" introduce hexadecimal and octal; reading stops at the first
// other character. No number gives 0.
double Val(const QString& text);

// A number as Str writes it: a leading blank for a number that is not
// negative, the minus sign otherwise; whole numbers only.
QString Str(long long wert);

}  // namespace planor
