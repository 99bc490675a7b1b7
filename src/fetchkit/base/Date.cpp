#include "fetchkit/base/Date.h"

#include <cmath>

#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = sys_days(year(1899) / 12 / 30);
constexpr double kFirstSerial =
    static_cast<double>((sys_days(year(kFirstYear) / 1 / 1) - kDayZero).count());
constexpr double kEndSerial =
    static_cast<double>((sys_days(year(kLastYear + 1) / 1 / 1) - kDayZero).count());

[[noreturn]] void ThrowOutOfRange() {
  throw Error(ErrorKind::Overflow, u"A date lies outside the years 100 to 9999.");
}

double DayNumber(Date date) {
  const double whole = std::trunc(date.serial);
  if (!(whole >= kFirstSerial && whole < kEndSerial)) ThrowOutOfRange();
  return whole;
}

double TimeOf(Date date) {
  return std::fabs(date.serial - std::trunc(date.serial));
}

// A negative day carries its time away from zero, so that the same fraction means the same hour.
Date Compose(sys_days at, double time) {
  const auto whole = static_cast<double>((at - kDayZero).count());
  if (!(whole >= kFirstSerial && whole < kEndSerial)) ThrowOutOfRange();
  return Date{whole < 0 ? whole - time : whole + time};
}

sys_days DaysOf(Date date) {
  return kDayZero + days(static_cast<int>(DayNumber(date)));
}

void AppendPadded(Text& text, int number, int width) {
  for (int scale = width == 4 ? 1000 : 10; scale > 0; scale /= 10)
    text.push_back(static_cast<char16_t>(u'0' + number / scale % 10));
}

}  // namespace

std::optional<Date> DateFromYmd(int yearNumber, unsigned monthNumber, unsigned dayNumber) {
  const year_month_day ymd = year(yearNumber) / month(monthNumber) / day(dayNumber);
  if (!ymd.ok() || yearNumber < kFirstYear || yearNumber > kLastYear) return std::nullopt;
  return Compose(sys_days(ymd), 0);
}

void RequireInCalendar(Date date) {
  DayNumber(date);
}

year_month_day YmdOf(Date date) {
  return {DaysOf(date)};
}

int YearOf(Date date) {
  return static_cast<int>(YmdOf(date).year());
}

unsigned MonthOf(Date date) {
  return static_cast<unsigned>(YmdOf(date).month());
}

unsigned DayOf(Date date) {
  return static_cast<unsigned>(YmdOf(date).day());
}

int WeekdayOf(Date date) {
  return static_cast<int>(std::chrono::weekday(DaysOf(date)).c_encoding()) + 1;
}

int SecondOfDay(Date date) {
  const auto second = static_cast<int>(std::lround(TimeOf(date) * 86400));
  return second < 86400 ? second : 86399;
}

Date AddDays(Date date, int count) {
  // In doubles: a count near the 32-bit limits must be refused, not wrapped around.
  const double target = DayNumber(date) + count;
  if (!(target >= kFirstSerial && target < kEndSerial)) ThrowOutOfRange();
  return Compose(kDayZero + days(static_cast<int>(target)), TimeOf(date));
}

Date AddMonths(Date date, int count) {
  const year_month_day from = YmdOf(date);
  const long long index = 12LL * static_cast<int>(from.year()) +
                          static_cast<int>(static_cast<unsigned>(from.month())) - 1 + count;
  if (index < 12LL * kFirstYear || index >= 12LL * (kLastYear + 1)) ThrowOutOfRange();
  const auto target =
      year(static_cast<int>(index / 12)) / month(static_cast<unsigned>(index % 12) + 1);
  const day last = (target / std::chrono::last).day();
  return Compose(sys_days(target / std::min(from.day(), last)), TimeOf(date));
}

Date AddYears(Date date, int count) {
  if (count > kLastYear || count < -kLastYear) ThrowOutOfRange();
  return AddMonths(date, 12 * count);
}

Text FormatDate(Date date) {
  const year_month_day ymd = YmdOf(date);
  Text text;
  text.reserve(10);
  AppendPadded(text, static_cast<int>(ymd.year()), 4);
  text.push_back(u'-');
  AppendPadded(text, static_cast<int>(static_cast<unsigned>(ymd.month())), 2);
  text.push_back(u'-');
  AppendPadded(text, static_cast<int>(static_cast<unsigned>(ymd.day())), 2);
  return text;
}

Text DefaultDateText(Date date) {
  Text text = FormatDate(date);
  const int second = SecondOfDay(date);
  if (second == 0) return text;
  text.push_back(u' ');
  AppendPadded(text, second / 3600, 2);
  text.push_back(u':');
  AppendPadded(text, second / 60 % 60, 2);
  text.push_back(u':');
  AppendPadded(text, second % 60, 2);
  return text;
}

}  // namespace fetchkit
