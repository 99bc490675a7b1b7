#include "fetchkit/activity/DateRanges.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

#include "activity/SampleCalendar.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::test {
namespace {

using Sent = std::vector<std::string>;

constexpr TextView kUntouched = u"1990-01-01";

class DateRanges : public LoggedInTest {
 protected:
  // "begin..end", or "-" when the answer is False; then the outputs must be as they were.
  std::string Ask(TextView keyword, TextView reference, bool financial) {
    now_ = reference.empty() ? Date{} : D(reference);
    Date begin = D(kUntouched);
    Date end = D(kUntouched);
    if (activity_.GetBeginAndEndDate(keyword, now_, begin, end, financial))
      return Show(begin) + ".." + Show(end);
    EXPECT_EQ(Show(begin) + Show(end), "1990-01-011990-01-01") << "outputs of a False";
    return "-";
  }

  std::string AskRange(TextView text) {
    Date begin = D(kUntouched);
    Date end = D(kUntouched);
    if (activity_.GetDateRange(text, begin, end)) return Show(begin) + ".." + Show(end);
    EXPECT_EQ(Show(begin) + Show(end), "1990-01-011990-01-01") << "outputs of a False";
    return "-";
  }

  Date now_;
};

struct Expected {
  TextView reference;
  TextView keyword;
  const char* calendar;   // with the flag False
  const char* financial;  // with the flag True; null: the same
};

// What is about ends and neighbours of months, quarters and years alone stands in the test behind.
// clang-format off
constexpr Expected kRanges[] = {
    // A Wednesday.
    {u"2004-03-17", u"今天",             "2004-03-17..2004-03-17", nullptr},
    {u"2004-03-17", u"本周",             "2004-03-14..2004-03-20", nullptr},
    {u"2004-03-17", u"本周至今日",       "2004-03-14..2004-03-17", nullptr},
    {u"2004-03-17", u"上周",             "2004-03-07..2004-03-13", nullptr},
    {u"2004-03-17", u"本期",             "2004-03-01..2004-03-31", nullptr},
    {u"2004-03-17", u"本期至今日",       "2004-03-01..2004-03-17", nullptr},
    {u"2004-03-17", u"上期",             "2004-02-01..2004-02-29", nullptr},
    {u"2004-03-17", u"本月",             "2004-03-01..2004-03-31", nullptr},
    {u"2004-03-17", u"本月上旬",         "2004-03-01..2004-03-10", nullptr},
    {u"2004-03-17", u"本月中旬",         "2004-03-11..2004-03-20", nullptr},
    {u"2004-03-17", u"本月下旬",         "2004-03-21..2004-03-31", nullptr},
    {u"2004-03-17", u"本月至今日",       "2004-03-01..2004-03-17", nullptr},
    {u"2004-03-17", u"上月",             "2004-02-01..2004-02-29", nullptr},
    {u"2004-03-17", u"本季度",           "2004-01-01..2004-03-31", nullptr},
    {u"2004-03-17", u"本季至今日",       "2004-01-01..2004-03-17", nullptr},
    {u"2004-03-17", u"上季度",           "2003-10-01..2003-12-31", nullptr},
    {u"2004-03-17", u"本年",             "2004-01-01..2004-12-31", nullptr},
    {u"2004-03-17", u"本年至今日",       "2004-01-01..2004-03-17", nullptr},
    {u"2004-03-17", u"去年",             "2003-01-01..2003-12-31", "2002-12-26..2003-12-31"},
    {u"2004-03-17", u"去年同期",         "2003-02-26..2003-03-25", nullptr},
    {u"2004-03-17", u"去年同月",         "2003-03-01..2003-03-31", nullptr},
    {u"2004-03-17", u"去年初至去年今日", "2003-01-01..2003-03-17", nullptr},
    // A day that the year before lacks.
    {u"2004-02-29", u"去年同月",         "2003-02-01..2003-02-28", nullptr},
    {u"2004-02-29", u"去年初至去年今日", "2003-01-01..2003-02-28", nullptr},
    // An accounting year that has begun before the calendar's.
    {u"2000-12-31", u"本年",             "2000-01-01..2000-12-31", "2000-12-26..2001-12-25"},
    {u"2000-12-31", u"本年至今日",       "2000-01-01..2000-12-31", "2000-12-26..2000-12-31"},
    // No period at all, and none on the day before.
    {u"2006-03-15", u"本期",             "2006-03-15..2006-03-15", nullptr},
    {u"2006-03-15", u"上期",             "2006-03-14..2006-03-14", nullptr},
    {u"2006-03-15", u"本年",             "2006-01-01..2006-12-31", nullptr},
    {u"2006-03-15", u"本年至今日",       "2006-01-01..2006-03-15", "2010-05-06..2006-03-15"},
    {u"2006-03-15", u"去年",             "2005-01-01..2005-12-31", nullptr},
    {u"2006-07-10", u"上期",             "2006-06-30..2006-06-30", nullptr},
    {u"2006-07-10", u"本年",             "2006-01-01..2006-12-31", "2006-07-01..2006-12-31"},
    {u"2006-07-10", u"去年",             "2005-01-01..2005-12-31", "2006-01-01..2006-12-31"},
    // A time of day stays with what is counted from the reference date and goes from the rest.
    {u"2004-03-17 18:30", u"今天",       "2004-03-17 18:30:00..2004-03-17 18:30:00", nullptr},
    {u"2004-03-31 18:30", u"本期",       "2004-03-01..2004-03-31", nullptr},
    {u"2004-03-31 18:30", u"本期至今日", "2004-03-01..2004-03-31 18:30:00", nullptr},
    {u"2004-03-31 18:30", u"本月下旬",   "2004-03-21..2004-03-31", nullptr},
};
// clang-format on

TEST_F(DateRanges, EveryKeywordOnAwkwardDates) {
  for (const bool again : {false, true}) {
    for (const Expected& row : kRanges) {
      for (const bool financial : {false, true}) {
        SCOPED_TRACE(ToUtf8(Join(row.reference, u" ", row.keyword)) + (financial ? " T" : " F") +
                     (again ? " from the cache" : ""));
        EXPECT_EQ(Ask(row.keyword, row.reference, financial),
                  financial && row.financial ? row.financial : row.calendar);
        EXPECT_EQ(Show(now_), Show(D(row.reference))) << "a shifted date leaked to the caller";
      }
    }
  }
}

TEST_F(DateRanges, WhatHoldsOfEveryKeywordOnEveryDay) {
  using Range = MActivity::DateRange;
  std::map<Text, Range> day;
  std::map<Text, Range> dayBefore;
  const auto meet = [](const Range& one, const Range& next) {
    return AddDays(one.end, 1) == next.begin;
  };
  for (Date date = D(u"2000-01-01"); date <= D(u"2008-12-31"); date = AddDays(date, 1)) {
    for (const bool financial : {false, true}) {
      for (const TextView keyword : kDateKeywords) {
        // The flag means something to these alone.
        if (financial && keyword != u"本年" && keyword != u"本年至今日" && keyword != u"去年")
          continue;
        Date now = date;
        Range range;
        ASSERT_TRUE(activity_.GetBeginAndEndDate(keyword, now, range.begin, range.end, financial));
        ASSERT_EQ(now, date);
        // By accounting years, a year that is not there begins on the system date.
        if (keyword != u"本年至今日" || range.begin != D(u"2010-05-06")) {
          ASSERT_LE(range.begin, range.end) << Show(date) << ToUtf8(keyword);
        }
        if (keyword.ends_with(u"今日") && keyword != u"去年初至去年今日") {
          ASSERT_EQ(range.end, date);
        }
        day[Text(keyword) + (financial ? u" T" : u"")] = range;
      }
    }
    for (const TextView keyword : {u"本周", u"本期", u"本月", u"本季度", u"本年"}) {
      SCOPED_TRACE(Show(date) + ToUtf8(keyword));
      const Range& range = day[Text(keyword)];
      ASSERT_TRUE(range.begin <= date && date <= range.end) << "does not hold its date";
      if (dayBefore.empty()) continue;
      const Range& before = dayBefore[Text(keyword)];
      // A day in no period, and a year that is not whole, stand for themselves.
      ASSERT_TRUE((before.begin == range.begin && before.end == range.end) || meet(before, range))
          << "does not meet the range before";
    }
    const std::pair<TextView, TextView> neighbours[] = {
        {u"上周", u"本周"},        {u"上期", u"本期"},         {u"上月", u"本月"},
        {u"上季度", u"本季度"},    {u"本月上旬", u"本月中旬"}, {u"去年", u"本年"},
        {u"本月中旬", u"本月下旬"}};
    for (const auto& [one, next] : neighbours)
      ASSERT_TRUE(meet(day[Text(one)], day[Text(next)])) << Show(date) << ToUtf8(one);
    ASSERT_EQ(day[u"本月上旬"].begin, day[u"本月"].begin);
    ASSERT_EQ(day[u"本月下旬"].end, day[u"本月"].end);
    dayBefore = std::exchange(day, {});
  }
}

TEST_F(DateRanges, CostsAndFaults) {
  // By the calendar and by accounting years; none for the other words.
  const std::map<TextView, std::pair<std::size_t, std::size_t>> costs = {
      {u"本期", {3, 3}},       {u"本期至今日", {3, 3}}, {u"上期", {6, 6}},    {u"本年", {0, 2}},
      {u"本年至今日", {0, 2}}, {u"去年", {0, 4}},       {u"去年同期", {1, 1}}};
  for (const TextView keyword : kDateKeywords) {
    const auto cost = costs.find(keyword);
    for (const bool financial : {false, true}) {
      SCOPED_TRACE(ToUtf8(keyword) + (financial ? " T" : " F"));
      session().ActivityCaches.reset();
      const std::string first = Ask(keyword, u"", financial);
      EXPECT_EQ(Cost(), cost == costs.end() ? 0
                        : financial         ? cost->second.second
                                            : cost->second.first);
      EXPECT_EQ(Show(now_), "2004-03-17") << "the login date, given back on a miss";
      EXPECT_EQ(Ask(keyword, u"", financial), first);
      EXPECT_EQ(Cost(), 0u);
      EXPECT_EQ(Show(now_), "2004-03-17") << "and on a hit";
      ExpectEveryFault([&] { return Ask(keyword, u"", financial); }, "-");
    }
  }
}

TEST_F(DateRanges, StatementTexts) {
  Ask(u"本期", u"", false);
  EXPECT_EQ(host_->TakeSent(),
            (Sent{"static:  Select * From AccountPeriod Where strEndDate >= '2004-03-17' And "
                  "strStartDate <= '2004-03-17' And lngOrganizationID = 20",
                  "static:  Select * From AccountPeriod Where intYear = 2004 And "
                  "lngOrganizationID = 20 Order By intYear,bytPeriod",
                  "static:  Select * From AccountPeriod Where intYear = 2004 And "
                  "lngOrganizationID = 20 Order By bytPeriod"}));
  Ask(u"去年同期", u"", false);
  EXPECT_EQ(host_->TakeSent(), (Sent{"static:  Select * From AccountPeriod Where intYear = 2003 "
                                     "And bytPeriod = 3 And lngOrganizationID = 20"}));
}

TEST_F(DateRanges, WhatOneKeywordAsksOfAnotherIsKeptForItToo) {
  Ask(u"去年", u"", true);
  Cost();
  Ask(u"本年", u"2003-12-31", true);
  Ask(u"本年至今日", u"2004-03-17", true);
  EXPECT_EQ(Cost(), 0u);
}

TEST_F(DateRanges, SamePeriodLastYear) {
  for (PeriodRow& row : periods_)
    for (Text* date : {&row.start, &row.end})
      std::replace(date->begin(), date->end(), u'-', u'.');
  EXPECT_EQ(Ask(u"去年同期", u"1995-07-31", false), "2003-02-26..2003-03-25")
      << "the login's period, whatever the reference date; stored with dots";
  Cost();
  session().OrganizationThisYear = 2001;  // 2000 has no periods
  EXPECT_EQ(Ask(u"去年同期", u"1995-07-31", true), "2003-03-01..2003-03-31")
      << "the month of the login date";
  EXPECT_EQ(Show(now_), "1995-07-31");
  EXPECT_EQ(Cost(), 1u);
}

TEST_F(DateRanges, KeptPerLogin) {
  EXPECT_EQ(Ask(u"本期", u"", false), "2004-03-01..2004-03-31");
  EXPECT_EQ(Cost(), 3u);
  session().AccountKey = u"7$DBSRV$ACC02";
  periods_.clear();
  EXPECT_EQ(Ask(u"本期", u"", false), "2004-03-17..2004-03-17");
  EXPECT_EQ(Cost(), 2u);
  periods_ = SamplePeriods();
  session().LoginOrganizationId = 21;
  EXPECT_EQ(Ask(u"本期", u"", false), "2004-03-17..2004-03-17") << "has no calendar";
  EXPECT_EQ(Cost(), 2u);
  session().AccountKey = u"7$DBSRV$ACC01";
  session().LoginOrganizationId = 20;
  EXPECT_EQ(Ask(u"本期", u"", false), "2004-03-01..2004-03-31");
  session().AccountKey = u"7$DBSRV$ACC02";
  EXPECT_EQ(Ask(u"本期", u"", false), "2004-03-17..2004-03-17");
  EXPECT_EQ(Cost(), 0u) << "an earlier login finds its own again";
}

TEST_F(DateRanges, ReferenceDateNotGiven) {
  Table<TextView, std::string>{
      {"blanks around it", u" 2003-12-30 ", "2003-12-30..2003-12-30"},
      {"blanks alone: today, without the time", u"  ", "2010-05-06..2010-05-06"},
      {"no date", u"soon", "-"},
  }
      .Check([&](TextView loginDate, const std::string& expected) {
        session().LoginDate = loginDate;
        EXPECT_EQ(Ask(u"今天", u"", false), expected);
      });
}

TEST_F(DateRanges, WordsThatAreNoKeyword) {
  const RecordingSink sink;
  for (const TextView word : {u"", u"本", u" 本月", u"本月 ", u"今天$", u"自定义", u"所有"})
    for (int time = 0; time < 2; ++time)
      EXPECT_EQ(Ask(word, u"", true), "-") << ToUtf8(word);
  EXPECT_EQ(Show(now_), "2004-03-17") << "written all the same";
  EXPECT_EQ(Cost(), 0u);
  EXPECT_TRUE(sink.failures.empty()) << "a word is no failure";
  // A reference date that no calendar holds, and a step that leaves the calendar.
  for (const double serial : {1e9, -1e9, std::numeric_limits<double>::quiet_NaN()}) {
    Date now{serial}, begin, end;
    EXPECT_FALSE(activity_.GetBeginAndEndDate(u"今天", now, begin, end, false)) << serial;
  }
  EXPECT_EQ(Ask(u"上月", u"0100-01-15", false), "-");
}

TEST_F(DateRanges, CustomForm) {
  // Of GetBeginAndEndDate, and of GetDateRange where that differs.
  Table<TextView, std::string, std::string>{
      {"swapped", u"自定义:2004-03-31,2004-01-05", "2004-01-05..2004-03-31", ""},
      {"blanks around the dates", u"自定义: 2004-01-05 , 2004-03-31 ", "2004-01-05..2004-03-31",
       ""},
      {"a blank in front spoils the first date, but only here", u" 自定义:2004-01-05,2004-03-31",
       "2004-03-31..2010-05-06", "2004-01-05..2004-03-31"},
      {"no date becomes today", u"自定义:soon,2004-03-31", "2004-03-31..2010-05-06", ""},
      {"one date stands for both, but only here", u"自定义:2004-01-05", "2004-01-05..2004-01-05",
       "2010-05-06..2010-05-06"},
      {"nothing behind the colon", u"自定义:", "2010-05-06..2010-05-06", ""},
      {"any fourth character serves as the colon", u"自定义(2004-01-05,2004-03-31",
       "2004-01-05..2004-03-31", ""},
      {"words in front, but only there", u"日期 自定义:2004-01-05,2004-03-31", "-",
       "2004-01-05..2004-03-31"},
      {"a second comma ends the date here", u"自定义:2004-01-05,2004-03-31,x",
       "2004-01-05..2004-03-31", "2004-01-05..2010-05-06"},
  }
      .Check([&](TextView text, const std::string& expected, const std::string& ofRange) {
        EXPECT_EQ(Ask(text, u"", false), expected);
        EXPECT_EQ(AskRange(text), ofRange.empty() ? expected : ofRange);
      });
  EXPECT_EQ(Cost(), 0u);
}

TEST_F(DateRanges, GetDateRangeTakesKeywordsByTheAccountingYear) {
  EXPECT_EQ(AskRange(u"去年"), "2002-12-26..2003-12-31");
  EXPECT_EQ(AskRange(u"本月下旬"), "2004-03-21..2004-03-31");
  EXPECT_EQ(AskRange(u"明年"), "-");
  SpoilStatement(0, Throws());
  session().OrganizationThisPeriod = 4;
  EXPECT_EQ(AskRange(u"去年同期"), "-");
}

}  // namespace
}  // namespace fetchkit::test
