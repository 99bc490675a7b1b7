// The text helpers against the plainest loops that do the same.
#include <algorithm>

#include "fetchkit/base/TextSearch.h"
#include "fetchkit/utility/StringHelpers.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

// Few different letters, so that a needle is found, nearly found and found overlapping.
Text SmallText(Input& in, int most) {
  static constexpr TextView kPieces[] = {u"a",  u"A",    u"b",  u",",      u" ",
                                         u"\\", u"aab,", u"部", u"\xD83D", u"aaaaaaaaaaaaaaaaB"};
  return in.Bool() ? in.Pieces(kPieces, most) : in.Units(most);
}

std::size_t FindByLoop(TextView text, TextView needle, std::size_t from) {
  for (std::size_t at = from; at + needle.size() <= text.size(); ++at)
    if (text.substr(at, needle.size()) == needle) return at;
  return Text::npos;
}

Text ReplaceByLoop(TextView text, TextView find, TextView replacement) {
  Text result;
  for (std::size_t at = 0; at < text.size();) {
    const bool hit = !find.empty() && text.substr(at, find.size()) == find;
    result.append(hit ? replacement : text.substr(at, 1));
    at += hit ? find.size() : 1;
  }
  return result;
}

// Where delimiters begin; each search goes on that far behind the hit before, as long as it begins
// inside the text.
std::vector<std::size_t> HitsByLoop(TextView text, TextView find, std::size_t step) {
  std::vector<std::size_t> hits;
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t at = FindByLoop(text, find, from);
    if (at == Text::npos) break;
    hits.push_back(at);
    from = at + step;
  }
  return hits;
}

void CheckSearch(TextView text, TextView needle, TextView other, std::size_t from) {
  const Text upper = UpperAscii(text);
  const Text upperNeedle = UpperAscii(needle);
  EXPECT_EQ(FindText(text, needle, from), FindByLoop(text, needle, from));
  EXPECT_EQ(FindFolded(text, needle, from), FindByLoop(upper, upperNeedle, from));
  EXPECT_EQ(ReplaceText(text, needle, other), ReplaceByLoop(text, needle, other));
  EXPECT_EQ(UpperAscii(ReplaceFolded(text, needle, other)),
            ReplaceByLoop(upper, upperNeedle, UpperAscii(other)));
  const auto pieces = Split(text, needle);
  Text joined;
  for (const TextView piece : pieces) {
    if (piece.data() != pieces.front().data()) joined.append(needle);
    joined.append(piece);
    EXPECT_TRUE(needle.empty() || piece.find(needle) == Text::npos);
  }
  EXPECT_EQ(joined, text);
}

void CheckHelpers(TextView text, TextView needle, TextView other, std::int16_t number) {
  using Helpers = StringHelpers;
  const auto pieces = Split(text, needle);
  const std::size_t first = FindByLoop(text, needle, 0);
  const auto piece = std::clamp<std::size_t>(static_cast<std::size_t>(std::max<int>(number, 1)), 1,
                                             std::max<std::size_t>(pieces.size(), 1));
  EXPECT_EQ(Helpers::GetNoXString(text, number, needle),
            pieces.empty() ? TextView() : TrimBlanks(pieces[piece - 1]));
  EXPECT_EQ(Helpers::StrCount(text, needle), static_cast<int>(pieces.size()) - 1);
  const auto overlapping = HitsByLoop(text, needle, 1);
  const bool there = number >= 1 && static_cast<std::size_t>(number) <= overlapping.size();
  EXPECT_EQ(Helpers::GetNoXPos(text, number, needle),
            there ? static_cast<int>(overlapping[static_cast<std::size_t>(number) - 1]) + 1 : 0);
  EXPECT_EQ(Helpers::TextCount(text, needle, CompareMethod::Binary),
            static_cast<int>(HitsByLoop(text, needle, needle.size() + 1).size()));
  EXPECT_EQ(Helpers::TextCount(text, needle, CompareMethod::IgnoreCase),
            Helpers::TextCount(UpperAscii(text), UpperAscii(needle), CompareMethod::Binary));
  EXPECT_EQ(Helpers::CharCount(text, needle),
            needle.size() == 1 ? std::count(text.begin(), text.end(), needle.front()) : 0);
  EXPECT_EQ(Helpers::GetFilePath(text) + Helpers::GetFileName(text), text);
  EXPECT_EQ(Helpers::GetFileName(text).find(u'\\'), Text::npos);
  if (first != Text::npos && !needle.empty()) {
    EXPECT_EQ(Join(Helpers::GetStrBefore(text, needle, true), needle,
                   Helpers::GetStrAfter(text, needle, true)),
              text);
    const Text between = Helpers::GetStrBetween(text, needle, other, false, true);
    const Text whole = Helpers::GetStrBetween(text, needle, other, true, true);
    EXPECT_TRUE(whole.empty() || whole == Join(needle, between, other));
    EXPECT_NE(text.find(whole), Text::npos);
  } else if (!needle.empty()) {
    EXPECT_EQ(Helpers::GetStrAfter(text, needle, false), text);
    EXPECT_EQ(Helpers::GetStrBefore(text, needle, true), u"");
  }
  const bool holds = std::any_of(text.begin(), text.end(), [&](char16_t unit) {
    return needle.find(unit) != Text::npos && other.find(unit) == Text::npos;
  });
  EXPECT_EQ(Helpers::ContainErrorChar(text, needle, other), holds);
  EXPECT_EQ(Helpers::StrInStr(text, other, needle, CompareMethod::Binary),
            std::find(pieces.begin(), pieces.end(), other) != pieces.end());
  EXPECT_EQ(Helpers::StrInStr(text, other, needle, CompareMethod::IgnoreCase),
            Helpers::StrInStr(UpperAscii(text), UpperAscii(other), UpperAscii(needle),
                              CompareMethod::Binary));
  EXPECT_EQ(Helpers::StrLeft(text, number).size(),
            std::min(text.size(), static_cast<std::size_t>(std::max<int>(number, 0))) + 1);
  EXPECT_EQ(Helpers::GetSpace(other, static_cast<std::int16_t>(number % 50)).size(),
            other.size() * static_cast<std::size_t>(std::max(number % 50, 0)));
}

// A text without lone surrogates survives; what a lone one became stays.
void CheckUtf8(TextView text) {
  const std::string bytes = ToUtf8(text);
  const Text back = FromUtf8(bytes);
  EXPECT_EQ(back.size(), text.size());
  EXPECT_EQ(ToUtf8(back), bytes);
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
  CheckHelpers(text, needle, other, number);
  CheckUtf8(text);
  const char16_t unit = needle.empty() ? u'a' : needle.front();
  EXPECT_EQ(CountUnit(text, unit),
            static_cast<std::size_t>(std::count(text.begin(), text.end(), unit)));
}

}  // namespace fetchkit::test
