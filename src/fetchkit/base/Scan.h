// Fast looks over long text: the one room where the library looks at many units at once.
//
// Each function says what it finds; the loop that defines it stands in scan::loop under the same
// name, and the tests compare the two. How wide a processor looks is its own matter: sixteen units
// where it has AVX2, eight with SSE2, one elsewhere. Offsets are 0-based and count UTF-16 units;
// npos means that there is none.
#pragma once

#include <cstddef>
#include <cstdint>

#include "fetchkit/base/Text.h"

namespace fetchkit::scan {

// Where one unit stands and another one distance units behind it. A letter that is folded stands
// for both of its cases; nothing but an ASCII letter may be.
struct Pair {
  char16_t first;
  char16_t last;
  std::size_t distance;
  bool foldsFirst = false;
  bool foldsLast = false;
};

// A set of ASCII units but for NUL.
class AsciiSet {
 public:
  constexpr AsciiSet() = default;
  constexpr void Add(char16_t unit) { words_[unit >> 6] |= std::uint64_t{1} << (unit & 63); }
  constexpr void Remove(char16_t unit) { words_[unit >> 6] &= ~(std::uint64_t{1} << (unit & 63)); }
  constexpr bool Has(char16_t unit) const {
    return unit < 0x80 && (words_[unit >> 6] >> (unit & 63) & 1) != 0;
  }

 private:
  std::uint64_t words_[2] = {0, 0};
};

// How many units from the start were looked at, and how many of them are Chinese characters of the
// block that begins with U+4E00, up to U+9FA5.
struct Han {
  std::size_t units;
  std::size_t han;
};

std::size_t CountUnit(TextView text, char16_t unit);

// The nth one, from 1; npos for n = 0.
std::size_t FindNthUnit(TextView text, char16_t unit, std::size_t n);

// The first place at or after from where both units stand.
std::size_t FindPair(TextView text, const Pair& pair, std::size_t from);

// The first places at or after from, in order, not more than capacity; from becomes the place
// where the next call goes on, npos when there can be no more. Answers how many were found, which
// is 0 at the end alone.
std::size_t FindPairs(TextView text, const Pair& pair, std::size_t& from, std::size_t* places,
                      std::size_t capacity);

std::size_t FindAnyOf(TextView text, const AsciiSet& set);

// Looks from the start for as long as there are ASCII units and Chinese characters alone. May stop
// up to a block of sixteen before the unit that is neither.
Han LeadingHan(TextView text);

// Writes text to out with joint in the place of each unit; answers the end of what was written.
// out has room for exactly that much. joint holds 1 to 4 units.
char16_t* CopyReplacing(char16_t* out, TextView text, char16_t unit, TextView joint);

// The same, unit by unit: what each of them means.
namespace loop {
std::size_t CountUnit(TextView text, char16_t unit);
std::size_t FindNthUnit(TextView text, char16_t unit, std::size_t n);
std::size_t FindPair(TextView text, const Pair& pair, std::size_t from);
std::size_t FindAnyOf(TextView text, const AsciiSet& set);
Han LeadingHan(TextView text);
char16_t* CopyReplacing(char16_t* out, TextView text, char16_t unit, TextView joint);
}  // namespace loop

}  // namespace fetchkit::scan
