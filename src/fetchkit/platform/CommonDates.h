// Date texts that are understood whatever the system's locale is.
#pragma once

#include <optional>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Text.h"

namespace fetchkit {

// "yyyy-MM-dd", "yyyy/M/d", "yyyy.M.d" and "yyyy年M月d日", each optionally with a time "H:mm" or
// "H:mm:ss" behind a blank; blanks around the text are ignored. Nothing for any other text and for
// days that the calendar does not have.
std::optional<Date> ParseCommonDate(TextView text);

}  // namespace fetchkit
