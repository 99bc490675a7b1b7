#include "fetchkit/platform/DateText.h"

#include <cmath>

#include "fetchkit/platform/Platform.h"

namespace fetchkit {

Date ToDate(const Value& value) {
  if (const auto* text = std::get_if<Text>(&value.data())) {
    if (const auto date = CurrentPlatform().ParseDate(*text)) return *date;
    throw ConvertError(ErrorKind::TypeMismatch, Join(u"\"", *text, u"\" is no date."));
  }
  const Date date{ToDouble(value)};
  // It would be equal to nothing, and before and after nothing.
  if (std::isnan(date.serial)) throw ConvertError(ErrorKind::TypeMismatch, u"NaN is no date.");
  return date;
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
