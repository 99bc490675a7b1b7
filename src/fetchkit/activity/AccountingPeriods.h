// Accounting years and periods of the login organization.
//
// A year is divided into numbered periods that need not be months. Dates count by their day: a
// time of day changes no answer. Every function traps its errors; a statement that the database
// refuses is an error like one that raises.
#pragma once

#include <cstdint>

#include "fetchkit/activity/ActivityCaches.h"
#include "fetchkit/base/Date.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MActivity {

// Year and period number of the date, whole numbers; its calendar year and month when no period
// contains it, or where a number cannot be read (2000 for the year then). On failure False, and
// both outputs are left alone.
bool GetAccountPeriod(Session& session, Date dDate, float& iYear, float& iPeriod);

// Periods of an accounting year, of the system date's calendar year for a number below 0; 0 on
// failure.
std::int16_t GetPeriodCount(Session& session, std::int16_t iYear);

// Brings a balance range into shape against the account's start date S and its year, and answers
// with the accounting year of the range. Both arguments are rewritten as "yyyy-MM-dd".
// Without an end: dBegin becomes the first day of its accounting year, dEnd the last day of the
// login date's year but not before S, or the day before S when the begin lies in the start year.
// With an end, whatever it is: the range runs from the first day of the begin's accounting year to
// the day before the begin, as an opening balance counts; an empty begin is S. A begin before S
// stays as it is and must lie in the start year: otherwise the answer is 0.
// A begin in no accounting year, or none at all and no end, gives the system date as dBegin and the
// day before S as dEnd, and counts as the start year. On failure 0, and both are left alone.
std::int16_t GetEndDate(Session& session, Value& dBegin, Value& dEnd);

// Period number and bounds of the date, of the first period in number order where two overlap.
// When no period contains it: 0, and both bounds are the date, so that callers still have a range.
// Kept for the session. On failure 0, and the outputs are left alone.
std::int16_t GetPeriodOfDate(Session& session, Date dDate, Date& dteBegin, Date& dteEnd);

// Accounting year of the date, first day of its first period and last day of its last. When no
// period contains the date: 0, and both bounds are the system date. Kept for the session.
// intPeriod is never written. On failure 0, and the outputs are left alone.
std::int16_t GetYearOfDate(Session& session, const Value& dDate, Date& dteBegin, Date& dteEnd,
                           std::int16_t& intPeriod);

// The same two for the library's own services, which have to tell a failure from a date that no
// period contains: these throw.
AccountPeriod FindAccountPeriod(Session& session, Date date);
AccountYear FindAccountYear(Session& session, Date date);

// A period's date as stored: a date text, where older rows have "." between its parts, or a date.
// ConvertError for anything else, NaN included.
Date ReadPeriodDate(const Value& stored);

}  // namespace fetchkit::MActivity
