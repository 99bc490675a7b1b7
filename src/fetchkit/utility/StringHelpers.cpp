#include "fetchkit/utility/StringHelpers.h"

#include <algorithm>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/platform/Platform.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit {
namespace {

// Offsets count from 0 inside; npos + 1 is 0, which is what "not found" is outside.
std::int32_t ToPosition(std::size_t offset) {
  return static_cast<std::int32_t>(offset + 1);
}

// How often find stands in text when the search goes on step units behind the begin of each.
std::int32_t CountOccurrences(TextView text, TextView find, bool folded, std::size_t step) {
  Occurrences places(text, find, folded);
  std::int32_t count = 0;
  for (std::size_t at = 0; (at = places.Next(at)) != TextView::npos; at += step)
    ++count;
  return count;
}

// Whether a text that holds no delimiter is one of the pieces between them.
bool IsPiece(TextView source, TextView text, char16_t delimiter, bool folded) {
  Occurrences places(source, text, folded);
  for (std::size_t at = 0; (at = places.Next(at)) != TextView::npos; ++at) {
    const std::size_t end = at + text.size();
    if ((at == 0 || source[at - 1] == delimiter) &&
        (end == source.size() || source[end] == delimiter))
      return true;
  }
  return false;
}

}  // namespace

bool StringHelpers::ContainErrorChar(TextView strText, TextView strCheckChar,
                                     TextView strFilterChar) {
  const MemberScope scope;
  // The sets in use are ASCII, so that a long text is walked once.
  scan::AsciiSet marked;
  bool others = false;
  for (const char16_t unit : strCheckChar) {
    if (unit > 0 && unit < 0x80) {
      marked.Add(unit);
    } else {
      others = true;
    }
  }
  for (const char16_t unit : strFilterChar)
    if (unit < 0x80) marked.Remove(unit);
  if (scan::FindAnyOf(strText, marked) != TextView::npos) return true;
  return others && std::any_of(strText.begin(), strText.end(), [&](char16_t unit) {
           return strCheckChar.find(unit) != TextView::npos &&
                  strFilterChar.find(unit) == TextView::npos;
         });
}

Text StringHelpers::GetNoXString(TextView strText, std::int16_t intNumber, TextView strDelimiter) {
  return GuardedOutermost(u"Utility.GetNoXString", Text(), [&]() -> Text {
    // Walks no further than the piece that is asked for; with fewer, the last one answers.
    const auto wanted = static_cast<std::size_t>(std::max<std::int16_t>(intNumber, 1));
    std::size_t from = 0;
    std::size_t end = TextView::npos;
    if (strDelimiter.size() == 1) {
      const char16_t unit = strDelimiter.front();
      if (wanted > 1) {
        const std::size_t before = scan::FindNthUnit(strText, unit, wanted - 1);
        from = before != TextView::npos ? before + 1 : strText.rfind(unit) + 1;
      }
      const std::size_t length = scan::FindNthUnit(strText.substr(from), unit, 1);
      if (length != TextView::npos) end = from + length;
    } else {
      Occurrences delimiters(strText, strDelimiter);
      end = delimiters.Next(from);
      for (std::size_t piece = 1; piece < wanted && end != TextView::npos; ++piece) {
        from = end + strDelimiter.size();
        end = delimiters.Next(from);
      }
    }
    return Text(TrimBlanks(strText.substr(from, end == TextView::npos ? end : end - from)));
  });
}

std::int32_t StringHelpers::GetNoXPos(TextView strText, std::int16_t intNumber,
                                      TextView strDelimiter) {
  const MemberScope scope;
  if (intNumber < 1) return 0;
  // The empty delimiter stands at each place inside the text.
  if (strDelimiter.empty())
    return static_cast<std::size_t>(intNumber) <= strText.size() ? intNumber : 0;
  if (strDelimiter.size() == 1)
    return ToPosition(
        scan::FindNthUnit(strText, strDelimiter.front(), static_cast<std::size_t>(intNumber)));
  Occurrences delimiters(strText, strDelimiter);
  std::size_t at = delimiters.Next(0);
  for (int hit = 1; hit < intNumber && at != TextView::npos; ++hit)
    at = delimiters.Next(at + 1);
  return ToPosition(at);
}

std::int32_t StringHelpers::StrCount(TextView strText, TextView strDelimiter) {
  const MemberScope scope;
  if (strText.empty()) return -1;
  if (strDelimiter.empty()) return 0;
  if (strDelimiter.size() == 1)
    return static_cast<std::int32_t>(CountUnit(strText, strDelimiter.front()));
  return CountOccurrences(strText, strDelimiter, false, strDelimiter.size());
}

std::int32_t StringHelpers::TextCount(TextView strText, TextView strFind,
                                      CompareMethod enmCompareMethod) {
  const MemberScope scope;
  // The empty text stands at each place inside the other.
  if (strFind.empty()) return static_cast<std::int32_t>(strText.size());
  return CountOccurrences(strText, strFind, enmCompareMethod != CompareMethod::Binary,
                          strFind.size() + 1);
}

std::int32_t StringHelpers::CharCount(TextView strText, TextView strChar) {
  const MemberScope scope;
  if (strChar.size() != 1) return 0;
  return static_cast<std::int32_t>(CountUnit(strText, strChar.front()));
}

std::int32_t StringHelpers::StrLen(TextView strText) {
  return GuardedOutermost(u"Utility.StrLen", std::int32_t{0}, [&]() -> std::int32_t {
    return static_cast<std::int32_t>(
        CurrentPlatform().AnsiLength(strText.substr(0, scan::FindNthUnit(strText, u'\0', 1))));
  });
}

Text StringHelpers::StrLeft(TextView strText, std::int32_t n) {
  return GuardedOutermost(u"Utility.StrLeft", Text(), [&]() -> Text {
    const TextView left = strText.substr(0, static_cast<std::size_t>(std::max(n, 0)));
    return Join(left, TextView(u"\0", 1));
  });
}

Text StringHelpers::GetFilePath(TextView strFile) {
  return GuardedOutermost(u"Utility.GetFilePath", Text(), [&]() -> Text {
    return Text(strFile.substr(0, strFile.rfind(u'\\') + 1));
  });
}

Text StringHelpers::GetFileName(TextView strFile) {
  return GuardedOutermost(u"Utility.GetFileName", Text(),
                          [&]() -> Text { return Text(strFile.substr(strFile.rfind(u'\\') + 1)); });
}

Text StringHelpers::GetStrAfter(TextView strInfo, TextView strSearch, bool bMustFind) {
  return GuardedOutermost(u"Utility.GetStrAfter", Text(), [&]() -> Text {
    const std::size_t at = FindText(strInfo, strSearch);
    if (at == TextView::npos) return bMustFind ? Text() : Text(strInfo);
    return Text(strInfo.substr(at + strSearch.size()));
  });
}

Text StringHelpers::GetStrBefore(TextView strInfo, TextView strSearch, bool bMustFind) {
  return GuardedOutermost(u"Utility.GetStrBefore", Text(), [&]() -> Text {
    if (strInfo.empty() || strSearch.empty()) return {};
    const std::size_t at = FindText(strInfo, strSearch);
    if (at == TextView::npos) return bMustFind ? Text() : Text(strInfo);
    return Text(strInfo.substr(0, at));
  });
}

Text StringHelpers::GetStrBetween(TextView strSource, TextView strFrom, TextView strTo,
                                  bool bInclude, [[maybe_unused]] bool bMustFind) {
  return GuardedOutermost(u"Utility.GetStrBetween", Text(), [&]() -> Text {
    if (strSource.empty()) return {};
    const std::size_t from = FindText(strSource, strFrom);
    if (from == TextView::npos) return {};
    const std::size_t inner = from + strFrom.size();
    // Behind the end nothing is found, not even an empty mark.
    const std::size_t to =
        inner < strSource.size() ? FindText(strSource, strTo, inner) : TextView::npos;
    // Both marks are there from here on: what bMustFind would excuse cannot happen any more.
    if (to == TextView::npos) return {};
    return Text(bInclude ? strSource.substr(from, to + strTo.size() - from)
                         : strSource.substr(inner, to - inner));
  });
}

Text StringHelpers::GetSpace(TextView strText, std::int16_t intNumber) {
  return GuardedOutermost(u"Utility.GetSpace", Text(), [&]() -> Text {
    Text repeated;
    if (intNumber > 0) repeated.reserve(strText.size() * static_cast<std::size_t>(intNumber));
    for (int i = 0; i < intNumber; ++i)
      repeated.append(strText);
    return repeated;
  });
}

bool StringHelpers::StrInStr(TextView strSource, TextView strText, TextView strDelimiter,
                             CompareMethod enmCompareMethod) {
  return GuardedOutermost(u"Utility.StrInStr", false, [&]() -> bool {
    const bool folded = enmCompareMethod != CompareMethod::Binary;
    const auto isText = [&](TextView piece) {
      return folded ? EqualFolded(piece, strText) : piece == strText;
    };
    if (strSource.empty()) return false;
    if (strDelimiter.size() == 1 && !strText.empty()) {
      const char16_t delimiter = strDelimiter.front();
      if (!folded || !IsAsciiLetter(delimiter))
        return strText.find(delimiter) == TextView::npos &&
               IsPiece(strSource, strText, delimiter, folded);
    }
    std::size_t from = 0;
    Occurrences delimiters(strSource, strDelimiter, folded);
    for (std::size_t at; (at = delimiters.Next(from)) != TextView::npos;
         from = at + strDelimiter.size())
      if (isText(strSource.substr(from, at - from))) return true;
    return isText(strSource.substr(from));
  });
}

bool StringHelpers::ArrayIsEmpty(const Value& varArray) {
  const MemberScope scope;
  if (const auto* opaque = std::get_if<OpaqueValue>(&varArray.data())) return !opaque->isArray;
  const auto* array = std::get_if<Value::Array>(&varArray.data());
  return array == nullptr || *array == nullptr || !(*array)->dimensioned;
}

bool StringHelpers::DateIsValid(const Value& varDate) {
  return Guarded(u"Utility.DateIsValid", false, [&] {
    if (const auto* date = std::get_if<Date>(&varDate.data())) {
      YmdOf(*date);  // throws for what no calendar holds
      return true;
    }
    const Text text = ToTextOrEmpty(varDate);
    if (const DateWord* keyword = DateWordOf(text);
        keyword != nullptr && keyword->rule != DateRule::None)
      return true;
    const Platform& platform = CurrentPlatform();
    if (FindText(text, kCustomRange) != TextView::npos) {
      const Text range = GetNoXString(text, 2, u":");
      return platform.ParseDate(GetNoXString(range, 1, u",")).has_value() &&
             platform.ParseDate(GetNoXString(range, 2, u",")).has_value();
    }
    if (text.find_first_of(u",-") != Text::npos) return false;
    return platform.ParseDate(text).has_value();
  });
}

Value StringHelpers::NotNull(const Value& varValue, const Value& varDefaultValue) {
  return GuardedOutermost(u"Utility.NotNull", Value(), [&]() -> Value {
    if (StandsForNothing(varValue)) return varDefaultValue;
    if (const auto number = NumberInFront(varValue)) return *number;
    return varValue;
  });
}

bool StandsForNothing(const Value& value) {
  if (const auto* text = std::get_if<Text>(&value.data())) return TrimBlanks(*text).empty();
  return value.IsEmpty() || value.IsNull() || value.IsMissing();
}

std::optional<double> NumberInFront(const Value& value) {
  // Whole numbers are what their text reads as; the lists ask for thousands of them.
  if (value.Is<std::int32_t>() || value.Is<std::int16_t>() || value.Is<std::uint8_t>())
    return ToDouble(value);
  if (!IsNumeric(value)) return std::nullopt;
  if (const auto* text = std::get_if<Text>(&value.data())) return LeadingNumber(*text);
  return LeadingNumber(ToText(value));
}

}  // namespace fetchkit
