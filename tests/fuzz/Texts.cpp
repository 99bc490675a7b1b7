// The text helpers against the plainest code that does the same.
#include <algorithm>

#include "fetchkit/base/TextSearch.h"
#include "fetchkit/utility/StringHelpers.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

using Helpers = StringHelpers;

// Few different letters, so that a needle is found, nearly found and found overlapping.
Text SmallText(Input& in, int most) {
  static constexpr TextView kPieces[] = {u"a",  u"A",    u"b",  u",",      u" ",
                                         u"\\", u"aab,", u"部", u"\xD83D", u"aaaaaaaaaaaaaaaaB"};
  return in.Bool() ? in.Pieces(kPieces, most) : in.Units(most);
}

// Where delimiters begin; each search goes on that far behind the hit before, as long as it begins
// inside the text.
std::vector<std::size_t> Hits(TextView text, TextView find, std::size_t step) {
  std::vector<std::size_t> hits;
  for (std::size_t at = text.find(find); at < text.size(); at = text.find(find, at + step))
    hits.push_back(at);
  return hits;
}

void CheckSearch(TextView text, TextView needle, TextView other, std::size_t from) {
  EXPECT_EQ(FindText(text, needle, from), text.find(needle, from));
  EXPECT_EQ(FindFolded(text, needle, from), UpperAscii(text).find(UpperAscii(needle), from));
  EXPECT_EQ(ReplaceText(text, needle, other), ReplaceByLoop(text, needle, other));
  EXPECT_EQ(ReplaceFolded(text, needle, other), ReplaceByLoop(text, needle, other, true));
  const char16_t unit = needle.empty() ? u'a' : needle.front();
  EXPECT_EQ(CountUnit(text, unit),
            static_cast<std::size_t>(std::count(text.begin(), text.end(), unit)));
  Text joined;
  for (const TextView piece : Split(text, needle)) {
    joined.append(piece.data() == text.data() ? TextView() : needle).append(piece);
    EXPECT_TRUE(needle.empty() || piece.find(needle) == Text::npos);
  }
  EXPECT_EQ(joined, text);
}

void CheckCounts(TextView text, TextView needle, std::int16_t number) {
  const auto pieces = Split(text, needle);
  const int count = static_cast<int>(pieces.size());
  EXPECT_EQ(Helpers::StrCount(text, needle), count - 1);
  const auto piece = static_cast<std::size_t>(std::clamp<int>(number, 1, std::max(count, 1)));
  EXPECT_EQ(Helpers::GetNoXString(text, number, needle),
            count == 0 ? TextView() : TrimBlanks(pieces[piece - 1]));
  const auto overlapping = Hits(text, needle, 1);
  const bool there = number >= 1 && static_cast<std::size_t>(number) <= overlapping.size();
  EXPECT_EQ(Helpers::GetNoXPos(text, number, needle),
            there ? static_cast<int>(overlapping[static_cast<std::size_t>(number) - 1]) + 1 : 0);
  EXPECT_EQ(Helpers::TextCount(text, needle, CompareMethod::Binary),
            static_cast<int>(Hits(text, needle, needle.size() + 1).size()));
  EXPECT_EQ(Helpers::TextCount(text, needle, CompareMethod::IgnoreCase),
            Helpers::TextCount(UpperAscii(text), UpperAscii(needle), CompareMethod::Binary));
  EXPECT_EQ(Helpers::CharCount(text, needle),
            needle.size() == 1 ? std::count(text.begin(), text.end(), needle.front()) : 0);
}

void CheckParts(TextView text, TextView needle, TextView other, std::int16_t number) {
  EXPECT_EQ(
      Helpers::StrLeft(text, number),
      Join(text.substr(0, static_cast<std::size_t>(std::max<int>(number, 0))), TextView(u"\0", 1)));
  EXPECT_EQ(Helpers::GetFilePath(text) + Helpers::GetFileName(text), text);
  EXPECT_EQ(Helpers::GetFileName(text).find(u'\\'), Text::npos);
  if (!needle.empty() && text.find(needle) != Text::npos) {
    EXPECT_EQ(Join(Helpers::GetStrBefore(text, needle, true), needle,
                   Helpers::GetStrAfter(text, needle, true)),
              text);
    const Text between = Helpers::GetStrBetween(text, needle, other, false, true);
    const Text whole = Helpers::GetStrBetween(text, needle, other, true, true);
    EXPECT_TRUE(whole.empty() || whole == Join(needle, between, other));
    EXPECT_NE(text.find(whole), Text::npos);
  }
  Text refused(needle);
  std::erase_if(refused, [&](char16_t unit) { return other.find(unit) != Text::npos; });
  EXPECT_EQ(Helpers::ContainErrorChar(text, needle, other),
            text.find_first_of(refused) != Text::npos);
  const auto pieces = Split(text, needle);
  EXPECT_EQ(Helpers::StrInStr(text, other, needle, CompareMethod::Binary),
            std::find(pieces.begin(), pieces.end(), other) != pieces.end());
  EXPECT_EQ(Helpers::StrInStr(text, other, needle, CompareMethod::IgnoreCase),
            Helpers::StrInStr(UpperAscii(text), UpperAscii(other), UpperAscii(needle),
                              CompareMethod::Binary));
}

// A text without lone surrogates survives; what a lone one became stays.
void CheckUtf8(TextView text) {
  const std::string bytes = ToUtf8(text);
  EXPECT_EQ(FromUtf8(bytes).size(), text.size());
  EXPECT_EQ(ToUtf8(FromUtf8(bytes)), bytes);
  std::string raw;
  for (const char16_t unit : text)
    raw.push_back(static_cast<char>(unit));
  const Text read = FromUtf8(raw);
  EXPECT_EQ(FromUtf8(ToUtf8(read)), read);
  EXPECT_LE(read.size(), raw.size());
}

}  // namespace

FUZZ_TARGET(Texts) {
  const Text needle = SmallText(in, 3);
  const Text other = SmallText(in, 4);
  const auto number = static_cast<std::int16_t>(in.Long());
  const auto from = static_cast<std::size_t>(in.Below(70));
  const Text text = SmallText(in, 60);
  CheckSearch(text, needle, other, from);
  CheckCounts(text, needle, number);
  CheckParts(text, needle, other, number);
  CheckUtf8(text);
}

}  // namespace fetchkit::test
