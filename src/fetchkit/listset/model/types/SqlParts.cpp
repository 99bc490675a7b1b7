#include "fetchkit/listset/model/types/SqlParts.h"

#include "fetchkit/listset/model/ConditionText.h"

namespace fetchkit {

Text Quoted(TextView value) {
  return Join(u"'", value, u"'");
}

Text ScalarPredicate(TextView column, TextView shown, TextView value, TextView quote) {
  const TextView word = WordToFilterBy(shown);
  if (word == words::kNull) return Join(column, u" Is Null");
  if (word == words::kZeroOrNull) return Join(u"(", column, u" Is Null or ", column, u"=0)");
  // Without its bounds, unlike a period.
  if (word == words::kBetween)
    return IsWholePair(value)
               ? Join(u"(", column, u" > ", quote, FirstValueOf(value), quote, u" And ", column,
                      u" < ", quote, SecondValueOf(value), quote, u")")
               : Text();
  if (value.empty()) return {};
  if (const Comparison* comparison = ComparisonByWord(word))
    return Join(column, comparison->sql, quote, value, quote);
  if (word == words::kBeginsWith) return Join(column, u" Like ", quote, value, u"%", quote);
  if (word == words::kContains) return Join(column, u" Like ", quote, u"%", value, u"%", quote);
  // The same match as "打头字符为", in brackets.
  if (word == words::kSimilar)
    return Join(u"(", column, u" Like ", quote, value, u"%", quote, u")");
  return {};
}

Text ChoicePredicate(TextView column, TextView value) {
  const Choice choice = ReadChoice(value);
  if (choice.items.empty()) return {};
  return choice.IsSeveral() ? Join(column, u" In(", choice.items, u")")
                            : Join(column, u" = ", choice.items);
}

}  // namespace fetchkit
