#include "fetchkit/utility/ListSearch.h"

#include <algorithm>
#include <array>
#include <utility>

#include "fetchkit/platform/Platform.h"
#include "fetchkit/utility/PinyinTable.h"

namespace fetchkit {
namespace {

// The characters of code page 936 that have readings lie in these ranges, ends included: the zero,
// the ideographs, and 21 that were added for compatibility.
constexpr char16_t kFirst = 0x3007;
constexpr char16_t kLast = 0xFA29;
constexpr std::array<std::pair<char16_t, char16_t>, 3> kWithReadings = {
    {{kFirst, kFirst}, {0x4E00, 0x9FA5}, {0xF92C, kLast}}};

// Upper case, and the half width of what has both.
char16_t Folded(char16_t unit) {
  if (unit == 0x3000) return u' ';
  if (unit >= 0xFF01 && unit <= 0xFF5E) unit = static_cast<char16_t>(unit - 0xFF01 + u'!');
  return UpperAscii(unit);
}

bool IsLetter(char16_t folded) {
  return folded >= u'A' && folded <= u'Z';
}

bool IsBlankOrMark(char16_t folded) {
  if (folded < 0x80) return !IsLetter(folded) && !(folded >= u'0' && folded <= u'9');
  return folded == u'·' || (folded >= 0x2010 && folded <= 0x2027) || folded == u'、' ||
         folded == u'。' || (folded >= u'〈' && folded <= u'〟');
}

std::uint32_t Bits(const char* initials) {
  std::uint32_t bits = 0;
  for (; *initials != 0; ++initials)
    bits |= 1U << (*initials - 'a');
  return bits;
}

std::uint32_t InitialsOf(std::uint16_t code) {
  const int row = (code >> 8) - kFirstLeadByte;
  const int column = (code & 0xFF) - kFirstTrailByte;
  if (row < 0 || column < 0) return 0;
  const char letter = kPinyinRows[row][column];
  if (letter >= 'a' && letter <= 'z') return 1U << (letter - 'a');
  if (letter < 'A' || letter > 'Z') return 0;
  return Bits(std::lower_bound(kPinyinOfSeveral.begin(), kPinyinOfSeveral.end(), code,
                               [](const PinyinInitials& entry, std::uint16_t sought) {
                                 return entry.code < sought;
                               })
                  ->initials);
}

std::vector<std::uint32_t> ReadInitials() {
  const Platform& platform = CurrentPlatform();
  std::vector<std::uint32_t> initials(kLast - kFirst + 1);
  for (const auto& [first, last] : kWithReadings)
    for (char16_t unit = first; unit <= last; ++unit)
      initials[unit - kFirst] = InitialsOf(platform.GbkCode(unit));
  return initials;
}

}  // namespace

void ListSearch::SearchFor(TextView typed) {
  Text folded(typed);
  std::transform(folded.begin(), folded.end(), folded.begin(), Folded);
  if (initials_.empty() && std::any_of(folded.begin(), folded.end(), IsLetter))
    initials_ = ReadInitials();
  typed_ = TrimBlanks(folded);
}

bool ListSearch::IsInitialOf(char16_t sought, char16_t unit) const {
  const auto index = static_cast<std::size_t>(unit - kFirst);
  return IsLetter(sought) && unit >= kFirst && index < initials_.size() &&
         (initials_[index] >> (sought - u'A') & 1) != 0;
}

bool ListSearch::FoundAt(TextView text, std::size_t at) const {
  std::size_t found = 0;
  bool byInitial = false;  // how the last unit was found
  bool passed = false;     // a blank or mark was left out, so that the next has to be by initial
  for (; found < typed_.size() && at < text.size(); ++at) {
    const char16_t sought = typed_[found];
    const char16_t unit = Folded(text[at]);
    if (unit == sought && !passed) {
      byInitial = false;
      ++found;
    } else if (IsInitialOf(sought, text[at])) {
      byInitial = true;
      passed = false;
      ++found;
    } else if (IsBlankOrMark(unit)) {
      passed = passed || !byInitial;
    } else {
      return false;
    }
  }
  return found == typed_.size();
}

bool ListSearch::Begins(TextView text) const {
  return FoundAt(text, 0);
}

SearchRank ListSearch::Rank(TextView text) const {
  if (Begins(text)) return SearchRank::Begins;
  const char16_t first = typed_.front();
  for (std::size_t at = 1; at < text.size(); ++at)
    if ((Folded(text[at]) == first || IsInitialOf(first, text[at])) && FoundAt(text, at))
      return SearchRank::Inside;
  return SearchRank::None;
}

}  // namespace fetchkit
