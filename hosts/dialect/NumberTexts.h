// Numbers and the texts of numbers, as the library's dialect converts one into the other.
#pragma once

#include <cstdint>
#include <optional>
#include <variant>

#include "fetchkit/base/Text.h"

namespace fetchkit::hosts {

// The number that a whole text stands for: blanks around it, a sign, digits with at most one point,
// an exponent. None for any other text, and for one with more digits than a number here can hold:
// 15, or a whole number of 64 bits.
std::optional<std::variant<std::int64_t, double>> NumberOf(TextView text);

// At most 14 digits, no exponent, no zero in front of the point: 0.5 is ".5". Empty for a number
// with more digits, of which the last may be cut off, and for one of more than 40 places, which has
// another form there.
Text TextOfNumber(double number);

}  // namespace fetchkit::hosts
