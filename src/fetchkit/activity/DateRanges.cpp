#include "fetchkit/activity/DateRanges.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "fetchkit/activity/AccountingPeriods.h"
#include "fetchkit/activity/ActivityCaches.h"
#include "fetchkit/activity/ServiceRows.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/platform/Platform.h"
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

Date DateOrToday(TextView text) {
  const auto date = CurrentPlatform().ParseDate(text);
  return date ? *date : SystemDate();
}

DateRange InOrder(Date one, Date other) {
  return {std::min(one, other), std::max(one, other)};
}

// The range of a keyword, or of the custom form; nothing for any other word. What one keyword needs
// of another is asked here too, so that it is kept under its own key.
std::optional<DateRange> RangeOf(Session& session, TextView word, Date reference, bool financial);

DateRange KeywordRange(Session& session, TextView keyword, Date reference, bool financial) {
  return RangeOf(session, keyword, reference, financial).value();
}

Date MonthBegin(Date date) {
  return AddDays(date, 1 - static_cast<int>(DayOf(date)));
}

DateRange MonthRange(Date date) {
  const Date begin = MonthBegin(date);
  return {begin, AddDays(AddMonths(begin, 1), -1)};
}

// At midnight, unlike the dates that are counted from the reference date.
Date DayInMonth(Date date, unsigned day) {
  return DateFromYmd(YearOf(date), MonthOf(date), day).value();
}

Date WeekBegin(Date date) {
  return AddDays(date, 1 - WeekdayOf(date));
}

Date QuarterMonth(Date date, int number) {
  return AddMonths(date, number - static_cast<int>(MonthOf(date) - 1) % 3);
}

Date YearBegin(Date date) {
  return AddMonths(MonthBegin(date), 1 - static_cast<int>(MonthOf(date)));
}

DateRange ThisYear(Session& session, Date date, bool financial) {
  if (!financial) {
    const Date begin = YearBegin(date);
    return {begin, AddDays(AddYears(begin, 1), -1)};
  }
  const AccountYear year = FindAccountYear(session, date);
  if (year.year == 0) return KeywordRange(session, u"本年", date, false);
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
  return KeywordRange(session, u"本年", before, financial);
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
  return KeywordRange(session, u"去年同月", ReferenceDate(session, Date{}), financial);
}

struct Rule {
  TextView keyword;
  DateRange (*range)(Session& session, Date d, bool financial);
};

constexpr Rule kRules[] = {
    {u"今天",
     [](Session&, Date d, bool) {
       return DateRange{d, d};
     }},
    {u"本周",
     [](Session&, Date d, bool) {
       return DateRange{WeekBegin(d), AddDays(WeekBegin(d), 6)};
     }},
    {u"本周至今日",
     [](Session&, Date d, bool) {
       return DateRange{WeekBegin(d), d};
     }},
    {u"上周", [](Session& s, Date d,
                 bool financial) { return KeywordRange(s, u"本周", AddDays(d, -7), financial); }},
    {u"本期",
     [](Session& s, Date d, bool) {
       const AccountPeriod period = FindAccountPeriod(s, d);
       return DateRange{period.begin, period.end};
     }},
    {u"本期至今日",
     [](Session& s, Date d, bool) {
       return DateRange{FindAccountPeriod(s, d).begin, d};
     }},
    {u"上期",
     [](Session& s, Date d, bool) {
       const AccountPeriod before =
           FindAccountPeriod(s, AddDays(FindAccountPeriod(s, d).begin, -1));
       return DateRange{before.begin, before.end};
     }},
    {u"本月", [](Session&, Date d, bool) { return MonthRange(d); }},
    {u"本月至今日",
     [](Session&, Date d, bool) {
       return DateRange{MonthBegin(d), d};
     }},
    {u"上月", [](Session& s, Date d,
                 bool financial) { return KeywordRange(s, u"本月", AddMonths(d, -1), financial); }},
    {u"本月上旬",
     [](Session&, Date d, bool) {
       return DateRange{DayInMonth(d, 1), DayInMonth(d, 10)};
     }},
    {u"本月中旬",
     [](Session&, Date d, bool) {
       return DateRange{DayInMonth(d, 11), DayInMonth(d, 20)};
     }},
    {u"本月下旬",
     [](Session&, Date d, bool) {
       return DateRange{DayInMonth(d, 21), AddDays(AddMonths(DayInMonth(d, 1), 1), -1)};
     }},
    {u"本季度",
     [](Session& s, Date d, bool financial) {
       return DateRange{KeywordRange(s, u"本月", QuarterMonth(d, 0), financial).begin,
                        KeywordRange(s, u"本月", QuarterMonth(d, 2), financial).end};
     }},
    {u"本季至今日",
     [](Session& s, Date d, bool financial) {
       return DateRange{KeywordRange(s, u"本月", QuarterMonth(d, 0), financial).begin, d};
     }},
    {u"上季度",
     [](Session& s, Date d, bool financial) {
       return KeywordRange(s, u"本季度", AddMonths(d, -3), financial);
     }},
    {u"本年", ThisYear},
    {u"本年至今日",
     [](Session& s, Date d, bool financial) {
       return DateRange{financial ? FindAccountYear(s, d).begin : YearBegin(d), d};
     }},
    {u"去年", LastYear},
    {u"去年同期",
     [](Session& s, Date, bool financial) { return SamePeriodLastYear(s, financial); }},
    {u"去年同月", [](Session&, Date d, bool) { return MonthRange(AddYears(d, -1)); }},
    {u"去年初至去年今日",
     [](Session& s, Date d, bool) {
       const Date before = AddYears(d, -1);
       return DateRange{KeywordRange(s, u"本年", before, false).begin, before};
     }},
};

static_assert(std::size(kRules) == kDateKeywords.size() &&
              std::all_of(kDateKeywords.begin(), kDateKeywords.end(), [](TextView keyword) {
                return std::any_of(std::begin(kRules), std::end(kRules),
                                   [&](const Rule& rule) { return rule.keyword == keyword; });
              }));

std::optional<DateRange> RangeOf(Session& session, TextView word, Date reference, bool financial) {
  auto& ranges = ActivityCaches::Of(session).ForLogin(session).ranges;
  const RangeKey<TextView> key{word, reference.serial, financial};
  if (const auto known = ranges.find(key); known != ranges.end()) return known->second;

  // A date that no calendar holds is refused for every word alike.
  YmdOf(reference);
  // The test trims and the cut does not.
  if (const TextView trimmed = TrimBlanks(word);
      trimmed.size() > kCustomRange.size() && trimmed.starts_with(kCustomRange)) {
    const TextView dates = word.substr(kCustomRange.size() + 1);
    return InOrder(DateOrToday(MUtility::GetNoXString(dates, 1, u",")),
                   DateOrToday(MUtility::GetNoXString(dates, 2, u",")));
  }
  const auto rule = std::find_if(std::begin(kRules), std::end(kRules),
                                 [&](const Rule& each) { return each.keyword == word; });
  if (rule == std::end(kRules)) return std::nullopt;
  const DateRange range = rule->range(session, reference, financial);
  ranges.insert_or_assign({Text(word), reference.serial, financial}, range);
  return range;
}

}  // namespace

bool GetBeginAndEndDate(Session& session, TextView strDateType, Date& dNow, Date& dteBegin,
                        Date& dteEnd, bool blnFinancial) {
  return Guarded(u"Activity.GetBeginAndEndDate", false, [&] {
    const Date reference = ReferenceDate(session, dNow);
    dNow = reference;
    const auto range = RangeOf(session, strDateType, reference, blnFinancial);
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
    const Text begin = MUtility::GetStrBetween(trimmed, custom, u",", false, true);
    const Text end = MUtility::GetStrAfter(trimmed, Join(begin, u","), false);
    const DateRange range = InOrder(DateOrToday(begin), DateOrToday(end));
    dteBegin = range.begin;
    dteEnd = range.end;
    return true;
  });
}

}  // namespace fetchkit::MActivity
