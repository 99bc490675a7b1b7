// Reading dates out of values, with the date texts that the platform understands, and its today.
#pragma once

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

// Dates as they are, numbers as day numbers, texts through the platform's parser. ConvertError for
// a text that is no date (the empty text included), for NaN and for what ToDouble refuses.
Date ToDate(const Value& value);

// "yyyy-MM-dd" of ToDate's date; the empty text for Empty and for a text without anything but
// blanks. ConvertError for Null and for what is no date.
Text ToDateText(const Value& value);

// Today by the platform's clock, without the time of day.
Date SystemDate();

// The date that a text stands for by the platform's parser, today for what is none.
Date DateOrToday(TextView text);

}  // namespace fetchkit
