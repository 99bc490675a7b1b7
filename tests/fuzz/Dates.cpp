// Day numbers, their texts, and the ranges of the date words.
#include <cmath>

#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/base/Date.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/platform/CommonDates.h"
#include "fetchkit/utility/DateKeywords.h"
#include "fetchkit/utility/StringHelpers.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

constexpr int kFirstDay = -657434;  // 0100-01-01
constexpr int kLastDay = 2958465;   // 9999-12-31

Date AnyDate(Input& in) {
  if (in.Below(4) == 0) return {in.Number()};
  const int day = in.Bool() ? 38000 + in.Long() % 9000 : in.Long() % 3000000;
  return {day + in.Pick({0.0, 0.25, 0.999999, 0.5, 1 / 86400.0, 0.0}) * (day < 0 ? -1 : 1)};
}

bool InRange(double day) {
  return std::trunc(day) >= kFirstDay && std::trunc(day) <= kLastDay;
}

// The result, nothing when it raises.
template <class Work>
std::optional<Date> Try(Work work) {
  try {
    return work();
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::Overflow);
    return std::nullopt;
  }
}

void CheckSteps(Date date, int count) {
  const double day = std::trunc(date.serial);
  const auto later = Try([&] { return AddDays(date, count); });
  EXPECT_EQ(later.has_value(), InRange(day + count));
  if (later) {
    EXPECT_EQ(std::trunc(later->serial), day + count);
    EXPECT_EQ(SecondOfDay(*later), SecondOfDay(date));
  }
  const long long month = 12LL * YearOf(date) + MonthOf(date) - 1 + count;
  const auto moved = Try([&] { return AddMonths(date, count); });
  EXPECT_EQ(moved.has_value(), month >= 12LL * kFirstYear && month < 12LL * (kLastYear + 1));
  if (moved) {
    EXPECT_EQ(12LL * YearOf(*moved) + MonthOf(*moved) - 1, month);
    EXPECT_TRUE(DayOf(*moved) == DayOf(date) ||
                (DayOf(*moved) < DayOf(date) &&
                 !DateFromYmd(YearOf(*moved), MonthOf(*moved), DayOf(*moved) + 1)))
        << "the same day, or the month's last";
  }
  EXPECT_EQ(Try([&] { return AddYears(date, count % 10001); }),
            Try([&] { return AddMonths(date, count % 10001 * 12); }));
}

void CheckDate(Date date) {
  const double day = std::trunc(date.serial);
  EXPECT_EQ(DateFromYmd(YearOf(date), MonthOf(date), DayOf(date)), Date{day});
  EXPECT_EQ((WeekdayOf(date) + 6) % 7, (static_cast<int>(day) % 7 + 7 + 6) % 7);
  EXPECT_EQ(ParseCommonDate(FormatDate(date)), Date{day});
  const Text text = DefaultDateText(date);
  const auto read = ParseCommonDate(text);
  EXPECT_TRUE(read && DefaultDateText(*read) == text) << ToUtf8(text);
}

void CheckText(TextView text) {
  StringHelpers::DateIsValid(text);
  if (const auto date = ParseCommonDate(text)) {
    EXPECT_TRUE(InRange(date->serial));
    EXPECT_EQ(ParseCommonDate(DefaultDateText(*date)), date) << ToUtf8(text);
  }
}

// Without a connection: the words that ask the database fail and leave the dates alone, all others
// have their range, the second time, too.
void CheckRanges(TextView word, Date now) {
  Session session;
  session.LoginDate = u"2004-03-17";
  const Date none{-1};
  Date begin = none, end = none, begin2 = none, end2 = none, again = now;
  const bool found = MActivity::GetBeginAndEndDate(session, word, now, begin, end, false);
  EXPECT_TRUE(found ? begin <= end : begin == none && end == none) << ToUtf8(word);
  EXPECT_EQ(MActivity::GetBeginAndEndDate(session, word, again, begin2, end2, false), found);
  EXPECT_TRUE(begin2 == begin && end2 == end) << ToUtf8(word);
}

}  // namespace

FUZZ_TARGET(Dates) {
  const Date date = AnyDate(in);
  const int count = in.Bool() ? in.Long() % 1000 : in.Long();
  if (InRange(date.serial)) {
    CheckDate(date);
    CheckSteps(date, count);
  } else {
    EXPECT_THROW(FormatDate(date), Error);
  }
  CheckRanges(kDateKeywords[static_cast<std::size_t>(in.Below(kDateKeywords.size()))], date);
  static constexpr TextView kPieces[] = {u"2004", u"-",  u"/",    u".",       u"年", u"月", u"日",
                                         u"2",    u"12", u" ",    u":",       u"59", u"29", u"0",
                                         u"31",   u"24", u"0100", u"自定义:", u","};
  CheckText(in.Pieces(kPieces, 12));
}

}  // namespace fetchkit::test
