// What the filter dialog refuses of what was typed as a condition's value.
#pragma once

#include "fetchkit/base/Text.h"

namespace fetchkit {

// Of a value with a character that none may hold.
inline constexpr TextView kCharacterWarning = u"输入了非法字符,如:'.";

// Whether the text is a number, in the sense of the text helpers, that a database can hold: at most
// 1E125, whatever its sign.
bool IsDatabaseNumber(TextView text);

// Why the value is refused; empty for one that is taken.
TextView WarningOf(bool isNumber, TextView value);

struct RefusedBound {
  TextView warning;       // empty when both are taken
  bool isSecond = false;  // which of them is at fault
};

// The same of two bounds; an empty one is missing.
RefusedBound WarningOf(bool areNumbers, TextView from, TextView to);

}  // namespace fetchkit
