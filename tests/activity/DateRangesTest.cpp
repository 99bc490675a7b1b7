#include "fetchkit/activity/DateRanges.h"

#include <algorithm>
#include <map>
#include <utility>

#include "activity/SampleCalendar.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/DateKeywords.h"
#include "support/Lines.h"

namespace fetchkit::test {
namespace {

class DateRanges : public LoggedInTest {
 protected:
  // "begin..end", or "-" when the answer is False; then the outputs must be as they were.
  std::string Ask(TextView keyword, TextView reference, bool financial) {
    now_ = reference.empty() ? Date{} : D(reference);
    Date begin{-1}, end{-1};
    if (activity_.GetBeginAndEndDate(keyword, now_, begin, end, financial))
      return Show(begin) + ".." + Show(end);
    EXPECT_TRUE(begin == Date{-1} && end == Date{-1}) << "outputs of a False";
    return "-";
  }

  std::string AskRange(TextView text) {
    Date begin{-1}, end{-1};
    if (activity_.GetDateRange(text, begin, end)) return Show(begin) + ".." + Show(end);
    EXPECT_TRUE(begin == Date{-1} && end == Date{-1}) << "outputs of a False";
    return "-";
  }

  Date now_;
};

// What is about ends and neighbours of weeks, periods, months, quarters and years alone, and what
// reaches to the reference date, stands in the test behind.
TEST_F(DateRanges, AwkwardDates) {
  // The range, and where the flag makes another, that one. 2004-03-17 is a Wednesday; 2003 has no
  // 29th of February; on 2000-12-31 the accounting year has begun before the calendar's; on
  // 2006-03-15 and before 2006-07-10 there is no period. A time of day stays with what is counted
  // from the reference date and goes from the rest.
  for (const auto& row : Lines(R"(
2004-03-17¦本周¦2004-03-14..2004-03-20
2004-03-17¦本月中旬¦2004-03-11..2004-03-20
2004-03-17¦本季度¦2004-01-01..2004-03-31
2004-03-17¦去年¦2003-01-01..2003-12-31¦2002-12-26..2003-12-31
2004-02-29¦去年同月¦2003-02-01..2003-02-28
2004-02-29¦去年初至去年今日¦2003-01-01..2003-02-28
2000-12-31¦本年¦2000-01-01..2000-12-31¦2000-12-26..2001-12-25
2000-12-31¦本年至今日¦2000-01-01..2000-12-31¦2000-12-26..2000-12-31
2006-03-15¦本年¦2006-01-01..2006-12-31
2006-03-15¦本年至今日¦2006-01-01..2006-03-15¦2010-05-06..2006-03-15
2006-07-10¦本年¦2006-01-01..2006-12-31¦2006-07-01..2006-12-31
2006-07-10¦去年¦2005-01-01..2005-12-31¦2006-01-01..2006-12-31
2004-03-17 18:30:00¦今天¦2004-03-17 18:30:00..2004-03-17 18:30:00
2004-03-31 18:30:00¦本期至今日¦2004-03-01..2004-03-31 18:30:00
2004-03-31 18:30:00¦本月下旬¦2004-03-21..2004-03-31
)")) {
    for (const bool financial : {false, true}) {
      SCOPED_TRACE(row[0] + " " + row[1] + (financial ? " T" : " F"));
      EXPECT_EQ(Ask(FromUtf8(row[1]), FromUtf8(row[0]), financial),
                financial ? row.back() : row[2]);
      EXPECT_EQ(Show(now_), row[0]) << "a shifted date leaked to the caller";
    }
  }
}

TEST_F(DateRanges, WhatHoldsOfEveryKeywordOnEveryDay) {
  const auto ask = [&](TextView keyword, Date date, bool financial = false) {
    Date now = date, begin, end;
    EXPECT_TRUE(activity_.GetBeginAndEndDate(keyword, now, begin, end, financial));
    EXPECT_EQ(now, date);
    return std::pair(begin, end);
  };
  const TextView units[][3] = {{u"本周", u"本周至今日", u"上周"},
                               {u"本期", u"本期至今日", u"上期"},
                               {u"本月", u"本月至今日", u"上月"},
                               {u"本季度", u"本季至今日", u"上季度"},
                               {u"本年", u"本年至今日", u"去年"}};
  const Date behind = D(u"2009-01-01");
  for (Date date = D(u"2000-01-01"); date < behind; date = AddDays(date, 1)) {
    const std::string day = Show(date);
    for (const auto& [whole, toDate, last] : units) {
      const auto [begin, end] = ask(whole, date);
      ASSERT_TRUE(begin <= date && date <= end) << day << ToUtf8(whole);
      ASSERT_EQ(ask(whole, begin), ask(whole, end)) << day << ToUtf8(whole);
      ASSERT_EQ(ask(toDate, date), std::pair(begin, date)) << day << ToUtf8(toDate);
      const auto before = ask(whole, AddDays(begin, -1));
      ASSERT_EQ(AddDays(before.second, 1), begin) << day << ToUtf8(whole);
      ASSERT_EQ(ask(last, date), before) << day << ToUtf8(last);
    }
    const auto [begin, end] = ask(u"本月", date);
    const auto second = ask(u"本月中旬", date);
    ASSERT_EQ(ask(u"本月上旬", date), std::pair(begin, AddDays(second.first, -1))) << day;
    ASSERT_EQ(ask(u"本月下旬", date), std::pair(AddDays(second.second, 1), end)) << day;
    for (const TextView keyword : {u"本年", u"去年", u"去年同月", u"去年初至去年今日"}) {
      const auto [first, last] = ask(keyword, date, true);
      ASSERT_LE(first, last) << day << ToUtf8(keyword);
    }
  }
}

TEST_F(DateRanges, CostsAndFaults) {
  // By the calendar and by accounting years; none for the other words.
  std::map<TextView, std::pair<std::size_t, std::size_t>> costs = {
      {u"本期", {3, 3}},       {u"本期至今日", {3, 3}}, {u"上期", {6, 6}},    {u"本年", {0, 2}},
      {u"本年至今日", {0, 2}}, {u"去年", {0, 4}},       {u"去年同期", {1, 1}}};
  for (const TextView keyword : kDateKeywords) {
    const auto [byCalendar, byYears] = costs[keyword];
    for (const bool financial : {false, true}) {
      SCOPED_TRACE(ToUtf8(keyword) + (financial ? " T" : " F"));
      session().ActivityCaches.reset();
      const std::string first = Ask(keyword, u"", financial);
      EXPECT_EQ(Cost(), financial ? byYears : byCalendar);
      EXPECT_EQ(Show(now_), "2004-03-17") << "the login date, given back on a miss";
      EXPECT_EQ(Ask(keyword, u"", financial), first);
      EXPECT_EQ(Cost(), 0u);
      EXPECT_EQ(Show(now_), "2004-03-17") << "and on a hit";
      ExpectEveryFault([&] { return Ask(keyword, u"", financial); }, "-");
    }
  }
}

TEST_F(DateRanges, StatementsAndWhatIsKeptOfThem) {
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
  // What one keyword asks of another is kept for it, too.
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
  const auto expect = [&](TextView account, std::int32_t organization, const char* range,
                          std::size_t cost) {
    session().AccountKey = account;
    session().LoginOrganizationId = organization;
    EXPECT_EQ(Ask(u"本期", u"", false), range);
    EXPECT_EQ(Cost(), cost);
  };
  expect(u"7$DBSRV$ACC01", 20, "2004-03-01..2004-03-31", 3);
  periods_.clear();
  expect(u"7$DBSRV$ACC02", 20, "2004-03-17..2004-03-17", 2);
  periods_ = SamplePeriods();
  expect(u"7$DBSRV$ACC02", 21, "2004-03-17..2004-03-17", 2);  // has no calendar
  expect(u"7$DBSRV$ACC01", 20, "2004-03-01..2004-03-31", 0);  // an earlier login's
}

TEST_F(DateRanges, LoginDatesAndWordsThatAreNone) {
  const RecordingSink sink;
  for (const TextView word : {u"", u"本", u" 本月", u"本月 ", u"今天$", u"自定义", u"所有"})
    EXPECT_EQ(Ask(word, u"", true), "-") << ToUtf8(word);
  EXPECT_EQ(Show(now_), "2004-03-17") << "written all the same";
  EXPECT_EQ(Cost(), 0u);
  EXPECT_TRUE(sink.failures.empty()) << "a word is no failure";
  EXPECT_EQ(Ask(u"上月", u"0100-01-15", false), "-") << "a step that leaves the calendar";
  session().LoginDate = u" 2003-12-30 ";
  EXPECT_EQ(Ask(u"今天", u"", false), "2003-12-30..2003-12-30");
  session().LoginDate = u"  ";
  EXPECT_EQ(Ask(u"今天", u"", false), "2010-05-06..2010-05-06") << "today, without the time";
  session().LoginDate = u"soon";
  EXPECT_EQ(Ask(u"今天", u"", false), "-");
}

TEST_F(DateRanges, CustomForm) {
  const std::string both = "2004-01-05..2004-03-31";
  const std::string toToday = "2004-03-31..2010-05-06";
  // Of GetBeginAndEndDate, and of GetDateRange.
  Table<TextView, std::string, std::string>{
      {"swapped", u"自定义:2004-03-31,2004-01-05", both, both},
      {"blanks around the dates", u"自定义: 2004-01-05 , 2004-03-31 ", both, both},
      {"a blank in front spoils the first date", u" 自定义:2004-01-05,2004-03-31", toToday, both},
      {"no date becomes today", u"自定义:soon,2004-03-31", toToday, toToday},
      {"one date stands for both", u"自定义:2004-01-05", "2004-01-05..2004-01-05",
       "2010-05-06..2010-05-06"},
      {"any fourth character is a colon", u"自定义(2004-01-05,2004-03-31", both, both},
      {"words in front", u"日期 自定义:2004-01-05,2004-03-31", "-", both},
      {"a second comma", u"自定义:2004-01-05,2004-03-31,x", both, "2004-01-05..2010-05-06"},
  }
      .Check([&](TextView text, const std::string& expected, const std::string& ofRange) {
        EXPECT_EQ(Ask(text, u"", false), expected);
        EXPECT_EQ(AskRange(text), ofRange);
      });
  EXPECT_EQ(Cost(), 0u);
  EXPECT_EQ(AskRange(u"去年"), "2002-12-26..2003-12-31") << "keywords, by the accounting year";
  EXPECT_EQ(AskRange(u"明年"), "-");
}

}  // namespace
}  // namespace fetchkit::test
