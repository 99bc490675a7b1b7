#include "fetchkit/activity/AccountingPeriods.h"

#include <cmath>
#include <utility>

#include "fetchkit/activity/ServiceRows.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/platform/DateText.h"

namespace fetchkit::MActivity {
namespace {

Date DayAlone(Date date) {
  return Date{std::trunc(date.serial)};
}

// The value, or the fallback when the column does not hold a number.
std::int16_t NumberOr(const Value& value, std::int16_t fallback) {
  return IsNumeric(value) ? ToInteger(value) : fallback;
}

bool IsNotGiven(const Value& value) {
  return TrimBlanks(ToTextOrEmpty(value)).empty();
}

AccountYear ReadAccountYear(Session& session, Date day) {
  const Date today = SystemDate();
  const AccountYear none{0, today, today};
  const Text date = FormatDate(day);
  const auto year = ReadFirst(session,
                              Join(u" Select *", u" From AccountPeriod", u" Where strEndDate >= '",
                                   date, u"'", u" And strStartDate <= '", date, u"'",
                                   u" And lngOrganizationID = ", session.LoginOrganizationId),
                              u"intYear");
  if (!year) return none;

  AccountYear found{ToInteger(*year), {}, {}};
  ServiceRows rows(session, Join(u" Select *", u" From AccountPeriod", u" Where intYear = ",
                                 found.year, u" And lngOrganizationID = ",
                                 session.LoginOrganizationId, u" Order By intYear,bytPeriod"));
  if (!rows.HasRow()) return none;
  found.begin = ReadPeriodDate(rows[u"strStartDate"]);
  rows->MoveLast();
  found.end = ReadPeriodDate(rows[u"strEndDate"]);
  return found;
}

AccountPeriod ReadAccountPeriod(Session& session, Date day) {
  const std::int16_t year = FindAccountYear(session, day).year;
  ServiceRows rows(session, Join(u" Select *", u" From AccountPeriod", u" Where intYear = ", year,
                                 u" And lngOrganizationID = ", session.LoginOrganizationId,
                                 u" Order By bytPeriod"));
  if (rows.HasRow()) {
    const std::size_t start = rows->Column(u"strStartDate");
    const std::size_t end = rows->Column(u"strEndDate");
    const std::size_t period = rows->Column(u"bytPeriod");
    for (; !rows->Eof(); rows->MoveNext()) {
      const DateRange bounds{ReadPeriodDate(rows->At(start)), ReadPeriodDate(rows->At(end))};
      if (bounds.begin <= day && day <= bounds.end)
        return {ToInteger(rows->At(period)), bounds.begin, bounds.end};
    }
  }
  return {0, day, day};
}

// The day before a "yyyy-MM-dd" text, as one.
Text DayBefore(const Text& date) {
  return FormatDate(AddDays(ToDate(date), -1));
}

}  // namespace

Date ReadPeriodDate(const Value& stored) {
  if (const auto* text = std::get_if<Text>(&stored.data())) {
    if (const auto parts = Split(*text, u"."); parts.size() >= 3)
      return DayAlone(ToDate(Join(parts[0], u"-", parts[1], u"-", parts[2])));
  }
  return DayAlone(ToDate(stored));
}

AccountYear FindAccountYear(Session& session, Date date) {
  const Date day = DayAlone(date);
  auto& years = ActivityCaches::Of(session).ForLogin(session).years;
  if (const auto known = years.find(day.serial); known != years.end()) return known->second;
  const AccountYear found = ReadAccountYear(session, day);
  years.insert_or_assign(day.serial, found);
  return found;
}

AccountPeriod FindAccountPeriod(Session& session, Date date) {
  const Date day = DayAlone(date);
  auto& periods = ActivityCaches::Of(session).ForLogin(session).periods;
  if (const auto known = periods.find(day.serial); known != periods.end()) return known->second;
  const AccountPeriod found = ReadAccountPeriod(session, day);
  periods.insert_or_assign(day.serial, found);
  return found;
}

bool GetAccountPeriod(Session& session, Date dDate, float& iYear, float& iPeriod) {
  return Guarded(u"Activity.GetAccountPeriod", false, [&] {
    const Text date = FormatDate(dDate);
    auto period = static_cast<std::int16_t>(MonthOf(dDate));
    auto year = static_cast<std::int16_t>(YearOf(dDate));
    ServiceRows row(session, Join(u" SELECT intYear,bytPeriod FROM AccountPeriod", u" WHERE '",
                                  date, u"'>=strStartDate", u" And '", date, u"'<=strEndDate",
                                  u" And lngOrganizationID = ", session.LoginOrganizationId));
    if (row.HasRow()) {
      year = NumberOr(row[u"intYear"], 2000);
      period = NumberOr(row[u"bytPeriod"], period);
    }
    iYear = year;
    iPeriod = period;
    return true;
  });
}

std::int16_t GetPeriodCount(Session& session, std::int16_t iYear) {
  return Guarded(u"Activity.GetPeriodCount", std::int16_t{0}, [&] {
    const int year = iYear < 0 ? YearOf(SystemDate()) : iYear;
    const auto count = ReadFirst(
        session,
        Join(u" Select Count(*) As lngCount", u" From AccountPeriod", u" Where intYear = ", year,
             u" And lngOrganizationID = ", session.LoginOrganizationId),
        u"lngCount");
    return count ? ToInteger(*count) : std::int16_t{0};
  });
}

std::int16_t GetEndDate(Session& session, Value& dBegin, Value& dEnd) {
  return Guarded(u"Activity.GetEndDate", std::int16_t{0}, [&] {
    const Text& start = session.AccountStartDate;
    const std::int16_t startYear = session.AccountStartYear;
    const bool hasBegin = !IsNotGiven(dBegin);
    AccountYear year;
    Text begin;
    Text end;
    if (IsNotGiven(dEnd)) {
      if (hasBegin) {
        year = FindAccountYear(session, ToDate(dBegin));
        begin = FormatDate(year.begin);
      } else {
        begin = FormatDate(SystemDate());
      }
      if (year.year == startYear) {
        end = DayBefore(start);
      } else {
        end = FormatDate(FindAccountYear(session, ToDate(session.LoginDate)).end);
        if (end < start) end = start;
      }
    } else {
      begin = hasBegin ? FormatDate(ToDate(dBegin)) : start;
      end = FormatDate(ToDate(dEnd));
      year = FindAccountYear(session, ToDate(begin));
      if (begin >= start) {
        end = DayBefore(begin);
        begin = FormatDate(year.begin);
      } else if (year.year == startYear) {
        end = DayBefore(begin);
      } else {
        // At once: a range that lies before the account has no year, and none is made up for it.
        dBegin = begin;
        dEnd = end;
        return std::int16_t{0};
      }
    }
    if (year.year == 0) {
      end = DayBefore(start);
      year.year = startYear;
    }
    dBegin = std::move(begin);
    dEnd = std::move(end);
    return year.year;
  });
}

std::int16_t GetPeriodOfDate(Session& session, Date dDate, Date& dteBegin, Date& dteEnd) {
  return Guarded(u"Activity.GetPeriodOfDate", std::int16_t{0}, [&] {
    const AccountPeriod found = FindAccountPeriod(session, dDate);
    dteBegin = found.begin;
    dteEnd = found.end;
    return found.period;
  });
}

std::int16_t GetYearOfDate(Session& session, const Value& dDate, Date& dteBegin, Date& dteEnd,
                           [[maybe_unused]] std::int16_t& intPeriod) {
  return Guarded(u"Activity.GetYearOfDate", std::int16_t{0}, [&] {
    const AccountYear found = FindAccountYear(session, ToDate(dDate));
    dteBegin = found.begin;
    dteEnd = found.end;
    return found.year;
  });
}

}  // namespace fetchkit::MActivity
