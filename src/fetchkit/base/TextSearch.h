// Searching in long text.
//
// The standard traits compare 16-bit units one at a time; on a text of megabytes that is the whole
// cost of a helper. These functions look at blocks of eight units where the processor can, behind
// one signature; the portable loop stands beside it and gives the same answers.
#pragma once

#include "fetchkit/base/Text.h"

namespace fetchkit {

// Offset (0-based) of the first needle in text at or after from; TextView::npos when there is
// none. An empty needle is found at from as long as from is inside the text or at its end.
std::size_t FindText(TextView text, TextView needle, std::size_t from = 0);

// The same without regard to the case of ASCII letters.
std::size_t FindFolded(TextView text, TextView needle, std::size_t from = 0);

// text with every find replaced, from left to right; what was inserted is not looked at again. An
// empty find replaces nothing.
Text ReplaceText(TextView text, TextView find, TextView replacement);

// The same, finding without regard to the case of ASCII letters.
Text ReplaceFolded(TextView text, TextView find, TextView replacement);

// How many units of text equal unit.
std::size_t CountUnit(TextView text, char16_t unit);

}  // namespace fetchkit
