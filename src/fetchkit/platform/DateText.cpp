#include "fetchkit/platform/DateText.h"

#include <cmath>

#include "fetchkit/platform/Platform.h"

namespace fetchkit {

Date ToDate(const Value& value) {
  if (const auto* date = std::get_if<Date>(&value.data())) return *date;
  if (const auto* text = std::get_if<Text>(&value.data())) {
    if (const auto date = CurrentPlatform().ParseDate(*text)) return *date;
    throw ConvertError(ErrorKind::TypeMismatch, Join(u"\"", *text, u"\" is no date."));
  }
  return Date{ToDouble(value)};
}

Text ToDateText(const Value& value) {
  if (value.IsEmpty()) return {};
  if (const auto* text = std::get_if<Text>(&value.data()); text && TrimBlanks(*text).empty())
    return {};
  return FormatDate(ToDate(value));
}

Date SystemDate() {
  return {std::trunc(CurrentPlatform().Now().serial)};
}

Date DateOrToday(TextView text) {
  const auto date = CurrentPlatform().ParseDate(text);
  return date ? *date : SystemDate();
}

}  // namespace fetchkit
