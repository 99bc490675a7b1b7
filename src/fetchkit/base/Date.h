// Dates as day numbers.
//
// 1899-12-30 is day 0 and the fraction of a day is the time, as OLE Automation counts them; a
// negative number keeps its fraction as a time after midnight (-1.25 is 1899-12-29 06:00).
// Day 0 also stands for "not given" wherever a date argument may be left out.
// Calendar arithmetic is that of std::chrono (proleptic Gregorian).
#pragma once

#include <chrono>
#include <compare>
#include <optional>

#include "fetchkit/base/Text.h"

namespace fetchkit {

struct Date {
  double serial = 0;

  friend bool operator==(const Date&, const Date&) = default;
  friend auto operator<=>(const Date&, const Date&) = default;  // NOLINT(modernize-use-nullptr)
};

// The first and last day that a date can hold: 0100-01-01 and 9999-12-31.
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

// The date at midnight; nothing when the calendar has no such day in kFirstYear to kLastYear.
std::optional<Date> DateFromYmd(int year, unsigned month, unsigned day);

// Error (Overflow) for a date outside the range above.
void RequireInCalendar(Date date);

// Year, month and day of the date, its time left aside. Error (Overflow) outside the range above.
std::chrono::year_month_day YmdOf(Date date);

int YearOf(Date date);
unsigned MonthOf(Date date);
unsigned DayOf(Date date);

// 1 for Sunday to 7 for Saturday.
int WeekdayOf(Date date);

// Seconds since midnight, 0 to 86399; rounded to the nearest second.
int SecondOfDay(Date date);

// Whole days on; the time of day is kept. Error (Overflow) when the result is out of range.
Date AddDays(Date date, int days);

// Whole months or years on; a day that the target month lacks becomes the month's last day, the
// time of day is kept. Error (Overflow) when the result is out of range.
Date AddMonths(Date date, int months);
Date AddYears(Date date, int years);

// "yyyy-MM-dd"; the form in which dates travel as text and are compared, also by the database.
Text FormatDate(Date date);

// "yyyy-MM-dd", with " HH:mm:ss" behind it when there is a time of day. Reads back to the same
// date, to the second.
Text DefaultDateText(Date date);

}  // namespace fetchkit
