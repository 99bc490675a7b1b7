#include "fetchkit/listset/model/ConditionText.h"

#include <algorithm>

#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit {
namespace {

constexpr TextView kSeveralMark = u"1,";
constexpr TextView kOneMark = u"0,";

}  // namespace

Text ConditionRowText(TextView word, TextView value) {
  if (value.empty() || word == words::kNull || word == words::kZeroOrNull) return Text(word);
  return Join(word, u" ", value);
}

Text CustomPeriodText(TextView from, TextView to) {
  return Join(kCustomRange, u" (", from, u",", to, u")");
}

TextView WordToStore(TextView strFilter) {
  return WordToShow(TrimBlanks(strFilter));
}

TextView WordToFilterBy(TextView strFilter) {
  if (strFilter == words::kNull || strFilter == words::kZeroOrNull) return strFilter;
  return strFilter.find(u' ') == TextView::npos ? TextView() : WordToShow(strFilter);
}

TextView WordToShow(TextView strFilter) {
  return strFilter.substr(0, strFilter.find(u' '));
}

Text PairText(TextView first, TextView second) {
  return Join(first, u",", second);
}

TextView FirstValueOf(TextView strExtValue) {
  return strExtValue.substr(0, strExtValue.find(u','));
}

TextView SecondValueOf(TextView strExtValue) {
  const std::size_t comma = strExtValue.find(u',');
  return comma == TextView::npos ? TextView() : strExtValue.substr(comma + 1);
}

bool IsWholePair(TextView strExtValue) {
  return !FirstValueOf(strExtValue).empty() && !SecondValueOf(strExtValue).empty();
}

Choice ReadChoice(TextView strExtValue) {
  return {strExtValue.substr(0, 1),
          strExtValue.substr(std::min(kOneMark.size(), strExtValue.size()))};
}

Text ChoiceText(bool several, TextView items) {
  return Join(several ? kSeveralMark : kOneMark, items);
}

void ItemTexts::Add(TextView id, TextView name) {
  if (count++ > 0) {
    ids.push_back(u',');
    names.push_back(areCodes ? u' ' : u',');
  }
  ids.append(areCodes ? Text(id) : Join(u"'", id, u"'"));
  names.append(name);
}

bool IsMarked(TextView text) {
  return text.starts_with(kSeveralMark) || text.starts_with(kOneMark);
}

}  // namespace fetchkit
