#pragma once
// Numbers as text: the one place where Morvane turns doubles into the texts that
// grid cells, labels and files hold, and those texts back into doubles.
//
// The figures of a probit analysis depend on where a number passes through text and
// how it is rounded there, so every module writes and reads numbers through these
// functions and no other.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/Fault.h"

namespace morvane {

// Plain text of a double: rounded to 15 significant digits (correct rounding of the
// binary value), trailing zeros dropped. Plain decimal form ("0.5", "-12.25", "0")
// unless that would need more than 15 digits, then exponent form such as
// "3.33333333333333E-04" or "1E+15".
//
// These and FormatNumber throw Fault for an infinite value or one that is no number:
// such a value is an arithmetic fault of the routine that made it, and is never
// written.
std::string PlainText(double value);

// The same 15-digit value always in plain decimal form, however many zeros it takes.
std::string PlainDecimalText(double value);

// A value written through a format pattern. Fixed patterns "0", "0.0" ... "0.000000"
// give exactly that many decimals, rounded half away from zero on the 15-digit
// decimal value. Exponent patterns "00000E+0" and "0E+0" give a whole mantissa of
// that many digits, "E", a sign and the exponent: 1234567 gives "12346E+2".
std::string FormatNumber(double value, std::string_view pattern);

// Text to number, the standard conversion: optional blanks, an optional sign, digits
// with an optional decimal point, an optional exponent. Empty or anything else: none.
// The decimal separator of the user's locale, when it is not the point, is read as
// the point too, so a user of a decimal-comma locale may type "2,5" for 2.5; a text
// holding both the point and that separator is no number.
std::optional<double> ParseNumber(std::string_view text);

// The decimal separator of the user's locale, which the desktop program sets at start
// (one character; "." by default, and for any text that is not one character).
// Writing is not affected: every written number keeps the point.
void SetTypedDecimalSeparator(std::string_view separator);
char TypedDecimalSeparator();

// The number of a text that must hold one; throws Fault otherwise.
double NumberOf(std::string_view text);

// The number of a text that reads as 0 when it is empty; throws when it holds
// something else that is not a number.
double NumberOrZero(std::string_view text);

// Whole number nearest to the value, halves to the even neighbour (100.5 -> 100,
// 101.5 -> 102). Returns none when the result does not fit in 32 bits.
std::optional<std::int32_t> RoundHalfEven32(double value);

// log10 as the program takes it, ln(x) / ln(10): the last digits depend on it.
double Log10(double x);

// 10 to the power m, from the power function.
double PowerOfTen(double m);

// The figures of the maximum-likelihood analysis, which never pass through the
// program's cells. RoundTripText: the shortest text that reads back as the very same
// double ("4.845491787624588", "1e-05"), for machine-readable output. SignificantText:
// rounded to that many significant digits, trailing zeros dropped, exponent form
// below 1e-4 or from 10^digits on ("4.84549", "0.00671068", "1.50408e-05"). Both
// throw Fault for an infinite value or one that is no number.
std::string RoundTripText(double value);
std::string SignificantText(double value, int digits);

}  // namespace morvane
