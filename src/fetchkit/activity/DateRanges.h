// The ranges that date keywords stand for, so that a saved condition means this month whenever it
// is run. The words are those of utility/DateKeywords.h.
#pragma once

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MActivity {

// The range of a keyword, or of the custom form "自定义:" begin "," end.
// - True when there is one. False for a word that is no keyword and on failure; dteBegin and dteEnd
//   are left alone then.
// - dNow is the reference date; 0 is replaced by the login date, or by the system date without one,
//   also when the answer is False.
// - blnFinancial: "本年", "本年至今日" and "去年" mean accounting years. The words for periods
// always
//   mean accounting periods.
// - "去年同期" is counted from the login organization's current period, whatever dNow says.
// - The begin is never after the end, except "本年至今日" by accounting years where no year
// contains
//   the reference date: its begin is the system date then.
// - Kept for the session, per reference date, flag and login: a keyword's range. Not kept: a custom
//   range and a failure.
// - The database is asked by the words for accounting periods and years only.
// - Custom form: a text that is no date becomes the system date. The dates are taken behind the
//   fourth character as it is passed: a blank in front of the word spoils the first of them.
bool GetBeginAndEndDate(Session& session, TextView strDateType, Date& dNow, Date& dteBegin,
                        Date& dteEnd, bool blnFinancial);

// What a date condition stands for: the custom form, found anywhere in the text, or a keyword as of
// the login date and by accounting years. The answer is that of GetBeginAndEndDate.
bool GetDateRange(Session& session, TextView strDate, Date& dteBegin, Date& dteEnd);

}  // namespace fetchkit::MActivity
