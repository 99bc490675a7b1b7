#include "fetchkit/dialogs/ValueCheck.h"

#include <cmath>

#include "fetchkit/base/Numbers.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit {
namespace {

constexpr TextView kNumberWarning = u"请输入一个数字！";
constexpr TextView kOrderWarning = u"终止值不应大于起始值，请正确输入！";

constexpr double kLargestNumber = 1E125;

bool HasErrorChar(TextView text) {
  return StringHelpers::ContainErrorChar(text, StringHelpers::kErrorChars, u"");
}

}  // namespace

bool IsDatabaseNumber(TextView text) {
  return IsNumericText(text) && std::abs(NumericTextToDouble(text)) <= kLargestNumber;
}

TextView WarningOf(bool isNumber, TextView value) {
  if (isNumber && !IsDatabaseNumber(value)) return kNumberWarning;
  return HasErrorChar(value) ? kCharacterWarning : TextView();
}

RefusedBound WarningOf(bool areNumbers, TextView from, TextView to) {
  if (areNumbers && !IsDatabaseNumber(from)) return {kNumberWarning, false};
  if (areNumbers && !IsDatabaseNumber(to)) return {kNumberWarning, true};
  // A bound that is missing.
  if (from.empty() || to.empty()) return {kOrderWarning, to.empty()};
  if (HasErrorChar(from) || HasErrorChar(to)) return {kCharacterWarning, !HasErrorChar(from)};
  const bool reversed =
      areNumbers ? NumericTextToDouble(from) > NumericTextToDouble(to) : from > to;
  return {reversed ? kOrderWarning : TextView(), true};
}

}  // namespace fetchkit
