// Reading numbers out of texts, writing them, and rounding. Every rule stands here once.
//
// None of these depends on a locale: the decimal sign is a point, the thousands sign a comma.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// The number at the front of a text: blanks are skipped, then an optional sign, digits and one
// point are read; reading stops at the first other character. No exponent, no hexadecimal, no
// thousands signs. 0 when there is no digit.
double LeadingNumber(TextView text);

// Whether the whole text is a number: optional blanks around it, an optional sign, digits that may
// hold commas before the point, at most one point, at least one digit, an optional exponent.
bool IsNumericText(TextView text);

// The number that a text accepted by IsNumericText stands for, commas left aside. Infinity when
// it is too large. The result for any other text is unspecified.
double NumericTextToDouble(TextView text);

// Nearest whole number, halves to the even neighbour (2.5 gives 2, 3.5 gives 4).
double RoundHalfToEven(double value);

// The same as an integer (std::uint8_t, std::int16_t or std::int32_t); ConvertError (Overflow)
// outside its range, and for what is no number.
template <class Whole>
Whole RoundedTo(double value);
extern template std::uint8_t RoundedTo(double value);
extern template std::int16_t RoundedTo(double value);
extern template std::int32_t RoundedTo(double value);

// At most 15 significant digits, without needless zeros, "1E+20" style beyond them: the form in
// which a double is shown and joined into SQL. Plain decimal for whole numbers below 1E15.
Text NumberText(double value);

// The same digits without ever an exponent, as SQL and people read a stored number.
Text PlainDecimalText(double value);

// Plain decimal with exactly that many decimals (below 0 counts as 0): the value's 15 significant
// decimal digits are rounded, halves away from zero, so that 2.345 with two gives "2.35" although
// the double lies below it. What rounds to zero has no minus sign.
Text FixedText(double value, int decimals);

}  // namespace fetchkit
