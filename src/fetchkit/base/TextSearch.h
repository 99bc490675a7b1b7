// Searching in long text.
//
// The standard traits compare 16-bit units one at a time; on a text of megabytes that is the whole
// cost of a helper. These functions find by base/Scan, which looks at blocks of units.
#pragma once

#include <array>

#include "fetchkit/base/Scan.h"
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

// The places of a needle from left to right, without a new search for each: for texts in which it
// stands often. Both views are the caller's, who keeps them until the last call.
class Occurrences {
 public:
  // An empty needle occurs nowhere.
  Occurrences(TextView text, TextView needle, bool folded = false);

  // The offset of the first one at or after from; npos when there is none. from never goes back.
  std::size_t Next(std::size_t from);

 private:
  TextView text_;
  TextView needle_;
  scan::Pair pair_;
  bool folded_;
  std::size_t scanned_ = 0;  // where the next look at the text begins
  std::size_t count_ = 0;
  std::size_t at_ = 0;
  std::array<std::size_t, 32> places_;  // of both its ends; what lies between is not looked at yet
};

// How many units of text equal unit.
using scan::CountUnit;

}  // namespace fetchkit
