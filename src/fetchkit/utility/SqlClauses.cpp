#include "fetchkit/utility/SqlClauses.h"

#include <algorithm>
#include <array>
#include <optional>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/platform/Platform.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit {
namespace {

// Where the count items end of which the first begins at from: the offset of the separator behind
// the last one, or the list's end.
std::size_t EndOfItems(TextView list, std::size_t from, std::size_t count, TextView separator) {
  if (from >= list.size()) return from;
  if (separator.size() == 1) {
    const std::size_t at = scan::FindNthUnit(list.substr(from), separator.front(), count);
    return at == TextView::npos ? list.size() : from + at;
  }
  std::size_t end = from;
  for (Occurrences separators(list, separator); count > 0; --count) {
    const std::size_t at = separators.Next(end);
    if (at == TextView::npos) return list.size();
    if (count == 1) return at;
    end = at + separator.size();
  }
  return end;
}

// Appends items with joint, of 1 to 4 units, in the place of separator.
void AppendItems(Text& sql, TextView items, TextView separator, TextView joint) {
  if (joint == separator || separator.empty()) {
    sql.append(items);
    return;
  }
  if (separator.size() == 1) {
    const std::size_t before = sql.size();
    const std::size_t separators = CountUnit(items, separator.front());
    sql.resize(before + items.size() + separators * (joint.size() - 1));
    scan::CopyReplacing(sql.data() + before, items, separator.front(), joint);
    return;
  }
  std::size_t from = 0;
  Occurrences separators(items, separator);
  for (std::size_t at; (at = separators.Next(from)) != TextView::npos; from = at + separator.size())
    sql.append(items.substr(from, at - from)).append(joint);
  sql.append(items.substr(from));
}

// The number of the placeholder whose "{" stands at open, when it is one of the first count: its
// digits are exactly those that the number is written with.
std::optional<std::size_t> PlaceholderAt(TextView text, std::size_t open, std::size_t count) {
  std::size_t at = open + 1;
  std::size_t number = 0;
  for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at) {
    if (at > open + 1 && number == 0) return std::nullopt;
    number = number * 10 + (text[at] - u'0');
    if (number >= count) return std::nullopt;
  }
  if (at == open + 1 || at == text.size() || text[at] != u'}') return std::nullopt;
  return number;
}

std::size_t PlaceholderSize(std::size_t number) {
  std::size_t size = 3;
  for (; number >= 10; number /= 10)
    ++size;
  return size;
}

// A placeholder of a format: where its "{" stands, and its number.
struct Hole {
  std::size_t open;
  std::size_t number;
};

// Calls visit(hole) for each placeholder, from left to right.
template <class Visit>
void VisitHoles(TextView format, std::size_t count, Visit visit) {
  Occurrences braces(format, u"{");
  for (std::size_t open = 0; (open = braces.Next(open)) != TextView::npos; ++open)
    if (const auto number = PlaceholderAt(format, open, count)) visit(Hole{open, *number});
}

// Whether a "{" has nothing but digits between it and the unit, or, with orEnd, the end.
bool OpenBraceLeadsTo(char16_t unit, bool orEnd, TextView text) {
  Occurrences braces(text, u"{");
  for (std::size_t open = 0; (open = braces.Next(open)) != TextView::npos; ++open) {
    std::size_t next = open + 1;
    while (next < text.size() && text[next] >= u'0' && text[next] <= u'9')
      ++next;
    if (next == text.size() ? orEnd : text[next] == unit) return true;
  }
  return false;
}

// valueAt(number) answers a view that stays.
template <class ValueAt>
Text Format(TextView format, std::size_t count, ValueAt valueAt) {
  // The first ones are remembered; a format with more is walked again.
  std::array<Hole, 64> holes;
  std::size_t found = 0;
  std::size_t length = format.size();
  // An insertion can become part of a placeholder in two ways only: behind an open brace of the
  // format, as in "{1{0}}", and by bringing in one itself.
  bool mayNest = OpenBraceLeadsTo(u'{', false, format);
  VisitHoles(format, count, [&](Hole hole) {
    const TextView value = valueAt(hole.number);
    length = length - PlaceholderSize(hole.number) + value.size();
    mayNest = mayNest || OpenBraceLeadsTo(u'}', true, value);
    if (found < holes.size()) holes[found] = hole;
    ++found;
  });
  if (mayNest) {
    // What one value brings in, the next ones may replace: number by number, as it is defined.
    Text text(format);
    for (std::size_t number = 0; number < count; ++number) {
      const Text placeholder = Join(u"{", number, u"}");
      if (FindText(text, placeholder) != TextView::npos)
        text = ReplaceText(text, placeholder, valueAt(number));
    }
    return text;
  }
  Text text;
  text.reserve(length);
  std::size_t copied = 0;
  const auto fill = [&](Hole hole) {
    text.append(format.substr(copied, hole.open - copied)).append(valueAt(hole.number));
    copied = hole.open + PlaceholderSize(hole.number);
  };
  if (found <= holes.size()) {
    for (std::size_t i = 0; i < found; ++i)
      fill(holes[i]);
  } else {
    VisitHoles(format, count, fill);
  }
  return text.append(format.substr(copied));
}

}  // namespace

Text SqlClauses::DecomposeInClause(TextView strCondName, TextView strIdList, bool blnIsCharInClause,
                                   const Value& varEmptyItem) {
  return Guarded(u"Utility.DecomposeInClause", Text(), [&] {
    // What stands in for an empty list is one item, even when it holds commas.
    const bool standsIn = TrimBlanks(strIdList).empty();
    const Text onlyItem = standsIn ? ToTextOrEmpty(varEmptyItem) : Text();
    const TextView list = standsIn ? TextView(onlyItem) : strIdList;
    const TextView separator = standsIn ? u"" : u",";
    const std::size_t items = standsIn ? 1 : CountUnit(list, u',') + 1;
    // The group is closed in front of each item whose number is a multiple of 1000, so the first
    // one is an item short.
    const std::size_t groups = items > 1000 ? items / 1000 + 1 : 1;
    const TextView quote = blnIsCharInClause ? u"'" : u"";
    const TextView joint = blnIsCharInClause ? u"','" : u",";

    Text sql;
    sql.reserve(2 + groups * (strCondName.size() + 2 * quote.size() + 9) + list.size() +
                (joint.size() - 1) * items);
    sql.push_back(u'(');
    std::size_t from = 0;
    for (std::size_t group = 0; group < groups; ++group) {
      sql.append(group > 0 ? u"OR " : u"").append(strCondName).append(u" In(").append(quote);
      const std::size_t end = group + 1 < groups
                                  ? EndOfItems(list, from, group == 0 ? 999 : 1000, separator)
                                  : list.size();
      AppendItems(sql, list.substr(from, end - from), separator, joint);
      from = end + separator.size();
      sql.append(quote).append(u") ");
    }
    sql.push_back(u')');
    return sql;
  });
}

Text SqlClauses::SplitInClause(TextView strList, TextView strSeparator, TextView strField) {
  return GuardedOutermost(u"Utility.SplitInClause", Text(), [&]() -> Text {
    constexpr std::size_t kGroup = 800;
    const std::int32_t separators = StringHelpers::StrCount(strList, strSeparator);
    if (separators < 999) return Join(strField, u" IN (", strList, u")");
    const std::size_t items = static_cast<std::size_t>(separators) + 1;
    const std::size_t groups = (items + kGroup - 1) / kGroup;
    Text sql;
    sql.reserve(strList.size() + items + groups * (strField.size() + 10));
    std::size_t from = 0;
    for (std::size_t group = 0; group < groups; ++group) {
      sql.append(group > 0 ? u" Or " : u"").append(strField).append(u" IN (");
      const std::size_t end = EndOfItems(strList, from, kGroup, strSeparator);
      AppendItems(sql, strList.substr(from, end - from), strSeparator, u",");
      from = end + strSeparator.size();
      sql.push_back(u')');
    }
    return sql;
  });
}

Text SqlClauses::FormatDateCond(TextView strDateField, TextView strBeginDate, TextView strEndDate,
                                bool IsShowAnd) {
  return Guarded(u"Utility.FormatDateCond", Text(), [&] {
    const TextView prefix = IsShowAnd ? u" And " : u"";
    const Text begin = ToDateText(strBeginDate);
    const auto end = CurrentPlatform().ParseDate(strEndDate);
    const bool hasEnd = end && end->serial >= 1;
    const Text endText = hasEnd ? FormatDate(*end) : Text();
    if (begin.empty()) return hasEnd ? Join(prefix, strDateField, u"<='", endText, u"'") : Text();
    if (!hasEnd) return Join(prefix, strDateField, u">='", begin, u"'");
    return Join(prefix, strDateField, u">='", begin, u"' And ", strDateField, u"<='", endText,
                u"'");
  });
}

Text SqlClauses::FormatCond(TextView strCond) {
  return GuardedOutermost(u"Utility.FormatCond", Text(), [&]() -> Text {
    if (TrimBlanks(strCond).empty()) return u" AND 1=1 ";
    return Join(u" AND ", strCond, u" ");
  });
}

Text SqlClauses::FormatLink(TextView strClause, TextView strText, TextView strLinkSign) {
  return GuardedOutermost(u"Utility.FormatLink", Text(), [&]() -> Text {
    if (strClause.empty()) return Text(strText);
    if (strText.empty()) return Text(strClause);
    return Join(strText, strLinkSign, strClause);
  });
}

Text SqlClauses::FormatString(TextView strFormatText, const std::vector<Text>& arrValues) {
  return GuardedOutermost(u"Utility.FormatString", Text(), [&]() -> Text {
    return Format(strFormatText, arrValues.size(),
                  [&](std::size_t number) { return TextView(arrValues[number]); });
  });
}

Text SqlClauses::FormatString(TextView strFormatText, const Value& arrValues) {
  return Guarded(u"Utility.FormatString", Text(), [&] {
    const auto* array = std::get_if<Value::Array>(&arrValues.data());
    if (array == nullptr || *array == nullptr)
      throw ConvertError(ErrorKind::TypeMismatch, u"The values are no array.");
    const std::vector<Value>& items = (*array)->items;
    // Texts stand where they are; what is none becomes one here.
    std::vector<Text> made;
    for (std::size_t number = 0; number < items.size(); ++number)
      if (!items[number].Is<Text>()) {
        made.resize(items.size());
        made[number] = ToText(items[number]);
      }
    return Format(strFormatText, items.size(), [&](std::size_t number) {
      const auto* text = std::get_if<Text>(&items[number].data());
      return TextView(text != nullptr ? *text : made[number]);
    });
  });
}

}  // namespace fetchkit
