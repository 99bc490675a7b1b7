#include "fetchkit/activity/DateRanges.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "fetchkit/activity/AccountingPeriods.h"
#include "fetchkit/activity/ActivityCaches.h"
#include "fetchkit/activity/ServiceRows.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/utility/DateKeywords.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit::MActivity {
namespace {

// Day 0 stands for "not given".
Date ReferenceDate(Session& session, Date given) {
  if (given.serial != 0) return given;
  const TextView login = TrimBlanks(session.LoginDate);
  if (login.empty()) return SystemDate();
  auto& [text, date] = ActivityCaches::Of(session).loginDate;
  if (text != login) {
    date = ToDate(login);
    text = login;
  }
  return date;
}

DateRange InOrder(Date one, Date other) {
  return {std::min(one, other), std::max(one, other)};
}

// The range of a keyword's rule; nothing for the rule None.
std::optional<DateRange> RangeOf(Session& session, DateRule rule, Date reference, bool financial);

Date MonthBegin(Date date) {
  return AddDays(date, 1 - static_cast<int>(DayOf(date)));
}

// From the first day of a month on.
DateRange MonthsFrom(Date begin, int months) {
  return {begin, AddDays(AddMonths(begin, months), -1)};
}

DateRange MonthRange(Date date) {
  return MonthsFrom(MonthBegin(date), 1);
}

// At midnight, unlike the dates that are counted from the reference date.
Date DayInMonth(Date date, unsigned day) {
  return DateFromYmd(YearOf(date), MonthOf(date), day).value();
}

Date WeekBegin(Date date) {
  return AddDays(date, 1 - WeekdayOf(date));
}

DateRange WeekRange(Date date) {
  const Date begin = WeekBegin(date);
  return {begin, AddDays(begin, 6)};
}

Date QuarterBegin(Date date) {
  return MonthBegin(AddMonths(date, -(static_cast<int>(MonthOf(date) - 1) % 3)));
}

DateRange QuarterRange(Date date) {
  return MonthsFrom(QuarterBegin(date), 3);
}

Date YearBegin(Date date) {
  return AddMonths(MonthBegin(date), 1 - static_cast<int>(MonthOf(date)));
}

DateRange PeriodRange(Session& session, Date date) {
  const AccountPeriod period = FindAccountPeriod(session, date);
  return {period.begin, period.end};
}

DateRange ThisYear(Session& session, Date date, bool financial) {
  if (!financial) {
    const Date begin = YearBegin(date);
    return {begin, AddDays(AddYears(begin, 1), -1)};
  }
  const AccountYear year = FindAccountYear(session, date);
  if (year.year == 0) return RangeOf(session, DateRule::ThisYear, date, false).value();
  return {year.begin, year.end};
}

// May end in a calendar year: when the table holds this accounting year but not the one before.
DateRange LastYear(Session& session, Date date, bool financial) {
  Date before = date;
  if (const auto year = financial ? FindAccountYear(session, date) : AccountYear();
      year.year != 0) {
    before = AddDays(year.begin, -1);
  } else {
    before = AddYears(date, -1);
  }
  return RangeOf(session, DateRule::ThisYear, before, financial).value();
}

// Counted from the login organization's current period, whatever the reference date; so is the
// calendar month that stands in for a period that is not there.
DateRange SamePeriodLastYear(Session& session, bool financial) {
  {
    ServiceRows row(session, Join(u" Select *", u" From AccountPeriod", u" Where intYear = ",
                                  session.OrganizationThisYear - 1, u" And bytPeriod = ",
                                  session.OrganizationThisPeriod, u" And lngOrganizationID = ",
                                  session.LoginOrganizationId));
    if (row.HasRow())
      return {ReadPeriodDate(row[u"strStartDate"]), ReadPeriodDate(row[u"strEndDate"])};
  }
  return RangeOf(session, DateRule::SameMonthLastYear, ReferenceDate(session, Date{}), financial)
      .value();
}

std::optional<DateRange> Evaluate(Session& session, DateRule rule, Date d, bool financial) {
  switch (rule) {
    case DateRule::Today:
      return {{d, d}};
    case DateRule::ThisWeek:
      return WeekRange(d);
    case DateRule::WeekToDate:
      return {{WeekBegin(d), d}};
    case DateRule::LastWeek:
      return WeekRange(AddDays(d, -7));
    case DateRule::ThisPeriod:
      return PeriodRange(session, d);
    case DateRule::PeriodToDate:
      return {{FindAccountPeriod(session, d).begin, d}};
    case DateRule::LastPeriod:
      return PeriodRange(session, AddDays(FindAccountPeriod(session, d).begin, -1));
    case DateRule::ThisMonth:
      return MonthRange(d);
    case DateRule::MonthToDate:
      return {{MonthBegin(d), d}};
    case DateRule::LastMonth:
      return MonthRange(AddMonths(d, -1));
    case DateRule::FirstTenDays:
      return {{DayInMonth(d, 1), DayInMonth(d, 10)}};
    case DateRule::SecondTenDays:
      return {{DayInMonth(d, 11), DayInMonth(d, 20)}};
    case DateRule::RestOfMonth:
      return {{DayInMonth(d, 21), AddDays(AddMonths(DayInMonth(d, 1), 1), -1)}};
    case DateRule::ThisQuarter:
      return QuarterRange(d);
    case DateRule::QuarterToDate:
      return {{QuarterBegin(d), d}};
    case DateRule::LastQuarter:
      return QuarterRange(AddMonths(d, -3));
    case DateRule::ThisYear:
      return ThisYear(session, d, financial);
    case DateRule::YearToDate:
      return {{financial ? FindAccountYear(session, d).begin : YearBegin(d), d}};
    case DateRule::LastYear:
      return LastYear(session, d, financial);
    case DateRule::SamePeriodLastYear:
      return SamePeriodLastYear(session, financial);
    case DateRule::SameMonthLastYear:
      return MonthRange(AddYears(d, -1));
    case DateRule::LastYearToDate:
      return {{YearBegin(AddYears(d, -1)), AddYears(d, -1)}};
    case DateRule::None:
      break;
  }
  return std::nullopt;
}

// What the database may be asked for; the others are computed sooner than they are looked up.
bool IsRemembered(DateRule rule, bool financial) {
  switch (rule) {
    case DateRule::ThisPeriod:
    case DateRule::PeriodToDate:
    case DateRule::LastPeriod:
    case DateRule::SamePeriodLastYear:
      return true;
    case DateRule::ThisYear:
    case DateRule::YearToDate:
    case DateRule::LastYear:
      return financial;
    default:
      return false;
  }
}

std::optional<DateRange> RangeOf(Session& session, DateRule rule, Date reference, bool financial) {
  if (!IsRemembered(rule, financial)) {
    // A date that no calendar holds is refused for every word alike.
    RequireInCalendar(reference);
    return Evaluate(session, rule, reference, financial);
  }
  auto& ranges = ActivityCaches::Of(session).ForLogin(session).ranges;
  const RangeKey key{rule, reference.serial, financial};
  if (const auto known = ranges.find(key); known != ranges.end()) return known->second;
  RequireInCalendar(reference);
  const auto range = Evaluate(session, rule, reference, financial);
  if (range) ranges.insert_or_assign(key, *range);
  return range;
}

// The range of a keyword, or of the custom form; nothing for any other word.
std::optional<DateRange> RangeOfWord(Session& session, TextView word, Date reference,
                                     bool financial) {
  if (const DateWord* keyword = DateWordOf(word); keyword != nullptr)
    return RangeOf(session, keyword->rule, reference, financial);
  RequireInCalendar(reference);
  // The test trims and the cut does not.
  const TextView trimmed = TrimBlanks(word);
  if (trimmed.size() <= kCustomRange.size() || !trimmed.starts_with(kCustomRange))
    return std::nullopt;
  const TextView dates = word.substr(kCustomRange.size() + 1);
  return InOrder(DateOrToday(StringHelpers::GetNoXString(dates, 1, u",")),
                 DateOrToday(StringHelpers::GetNoXString(dates, 2, u",")));
}

}  // namespace

bool GetBeginAndEndDate(Session& session, TextView strDateType, Date& dNow, Date& dteBegin,
                        Date& dteEnd, bool blnFinancial) {
  return Guarded(u"Activity.GetBeginAndEndDate", false, [&] {
    const Date reference = ReferenceDate(session, dNow);
    dNow = reference;
    const auto range = RangeOfWord(session, strDateType, reference, blnFinancial);
    if (!range) return false;
    dteBegin = range->begin;
    dteEnd = range->end;
    return true;
  });
}

bool GetDateRange(Session& session, TextView strDate, Date& dteBegin, Date& dteEnd) {
  return Guarded(u"Activity.GetDateRange", false, [&] {
    const Text custom = Join(kCustomRange, u":");
    if (FindText(strDate, custom) == TextView::npos) {
      Date now;
      return GetBeginAndEndDate(session, strDate, now, dteBegin, dteEnd, true);
    }
    const TextView trimmed = TrimBlanks(strDate);
    const Text begin = StringHelpers::GetStrBetween(trimmed, custom, u",", false, true);
    const Text end = StringHelpers::GetStrAfter(trimmed, Join(begin, u","), false);
    const DateRange range = InOrder(DateOrToday(begin), DateOrToday(end));
    dteBegin = range.begin;
    dteEnd = range.end;
    return true;
  });
}

}  // namespace fetchkit::MActivity
