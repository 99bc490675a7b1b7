#include "fetchkit/platform/CommonDates.h"

#include <cstddef>

namespace fetchkit {
namespace {

// Reads digits off the front of text; nothing when there are none or more than most.
std::optional<int> TakeNumber(TextView& text, std::size_t most) {
  int number = 0;
  std::size_t length = 0;
  while (length < text.size() && text[length] >= u'0' && text[length] <= u'9') {
    if (length == most) return std::nullopt;
    number = number * 10 + (text[length++] - u'0');
  }
  if (length == 0) return std::nullopt;
  text.remove_prefix(length);
  return number;
}

bool TakeUnit(TextView& text, char16_t unit) {
  if (text.empty() || text.front() != unit) return false;
  text.remove_prefix(1);
  return true;
}

// Seconds since midnight of "H:mm" or "H:mm:ss", the whole text.
std::optional<int> ReadTime(TextView text) {
  const auto hour = TakeNumber(text, 2);
  if (!hour || *hour > 23 || !TakeUnit(text, u':')) return std::nullopt;
  const auto minute = TakeNumber(text, 2);
  if (!minute || *minute > 59) return std::nullopt;
  int second = 0;
  if (TakeUnit(text, u':')) {
    const auto read = TakeNumber(text, 2);
    if (!read || *read > 59) return std::nullopt;
    second = *read;
  }
  if (!text.empty()) return std::nullopt;
  return *hour * 3600 + *minute * 60 + second;
}

}  // namespace

std::optional<Date> ParseCommonDate(TextView text) {
  struct Form {
    char16_t afterYear, afterMonth, afterDay;  // 0: nothing behind the day
  };
  constexpr Form kForms[] = {
      {u'-', u'-', 0}, {u'/', u'/', 0}, {u'.', u'.', 0}, {u'年', u'月', u'日'}};

  text = TrimBlanks(text);
  const std::size_t length = text.size();
  const auto year = TakeNumber(text, 4);
  // A year of two digits would leave the century to guesswork.
  if (!year || length - text.size() != 4 || text.empty()) return std::nullopt;
  for (const Form& form : kForms) {
    if (text.front() != form.afterYear) continue;
    text.remove_prefix(1);
    const auto month = TakeNumber(text, 2);
    if (!month || !TakeUnit(text, form.afterMonth)) return std::nullopt;
    const auto day = TakeNumber(text, 2);
    if (!day || (form.afterDay != 0 && !TakeUnit(text, form.afterDay))) return std::nullopt;
    auto date = DateFromYmd(*year, static_cast<unsigned>(*month), static_cast<unsigned>(*day));
    if (!date || text.empty()) return date;
    if (!TakeUnit(text, u' ')) return std::nullopt;
    const auto time = ReadTime(TrimBlanks(text));
    if (!time) return std::nullopt;
    const double part = *time / 86400.0;
    return Date{date->serial < 0 ? date->serial - part : date->serial + part};
  }
  return std::nullopt;
}

}  // namespace fetchkit
