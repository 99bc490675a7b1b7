#include "fetchkit/listset/model/ConditionWords.h"

#include <algorithm>
#include <iterator>

namespace fetchkit {
namespace {

constexpr Comparison kComparisons[] = {
    {words::kEqual, u"1", u" = "},      {words::kGreater, u"2", u" > "},
    {words::kLess, u"3", u" < "},       {words::kGreaterEqual, u"4", u" >= "},
    {words::kLessEqual, u"5", u" <= "}, {words::kNotEqual, u"9", u" <> "},
};

struct OperatorCode {
  TextView word, code;
};

// Of the operators that are more than a comparison. Date words have codes of the same numbers.
constexpr OperatorCode kOperatorCodes[] = {
    {words::kBeginsWith, u"6"}, {words::kBetween, u"6"}, {words::kContains, u"7"},
    {words::kZeroOrNull, u"7"}, {words::kSimilar, u"8"}, {words::kNull, u"11"},
};

template <class Rows, class Matches>
auto FindRow(const Rows& rows, Matches&& matches) {
  const auto found = std::find_if(std::begin(rows), std::end(rows), matches);
  return found == std::end(rows) ? nullptr : &*found;
}

}  // namespace

TextView CondStrToNum(TextView strOperate) {
  if (const auto* comparison = ComparisonByWord(strOperate)) return comparison->code;
  const auto* row =
      FindRow(kOperatorCodes, [&](const OperatorCode& each) { return each.word == strOperate; });
  if (row != nullptr) return row->code;
  const DateWord* date = FindDateWord(&DateWord::word, strOperate);
  return date == nullptr ? TextView() : date->code;
}

const Comparison* ComparisonByWord(TextView word) {
  return FindRow(kComparisons, [&](const Comparison& row) { return row.word == word; });
}

const Comparison* ComparisonByCode(TextView code) {
  return FindRow(kComparisons, [&](const Comparison& row) { return row.code == code; });
}

TextView DateWordByCode(TextView code) {
  if (code.empty()) return {};  // as the words are that no condition can hold
  const DateWord* row = FindDateWord(&DateWord::code, code);
  return row == nullptr ? TextView() : row->word;
}

}  // namespace fetchkit
