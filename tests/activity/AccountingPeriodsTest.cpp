#include "fetchkit/activity/AccountingPeriods.h"

#include "activity/SampleCalendar.h"
#include "fetchkit/base/Utf8.h"
#include "support/Lines.h"

namespace fetchkit::test {
namespace {

using YearAndPeriod = std::pair<float, float>;

constexpr YearAndPeriod kUntouched = {-1, -2};

class AccountingPeriods : public LoggedInTest {
 protected:
  std::string PeriodOf(TextView date) {
    Date begin{-1};
    Date end{-1};
    const auto period = activity_.GetPeriodOfDate(D(date), begin, end);
    return std::to_string(period) + " " + Show(begin) + ".." + Show(end);
  }
  std::string YearOf(const Value& date) {
    Date begin{-1};
    Date end{-1};
    std::int16_t period = 77;
    const auto year = activity_.GetYearOfDate(date, begin, end, period);
    EXPECT_EQ(period, 77);
    return std::to_string(year) + " " + Show(begin) + ".." + Show(end);
  }
  // The outputs; they must be as they were when the answer is False.
  YearAndPeriod YearAndPeriodOf(Date date) {
    YearAndPeriod outputs = kUntouched;
    const bool found = activity_.GetAccountPeriod(date, outputs.first, outputs.second);
    EXPECT_EQ(found, outputs != kUntouched);
    return outputs;
  }
  // "year: begin .. end", both as texts.
  std::string EndDateOf(Value begin, Value end) {
    const auto year = activity_.GetEndDate(begin, end);
    return std::to_string(year) + ": " + ToUtf8(ToTextOrEmpty(begin)) + " .. " +
           ToUtf8(ToTextOrEmpty(end));
  }

  // What the outputs hold when nothing was written.
  const std::string kFailed = "0 1899-12-29..1899-12-29";
};

TEST_F(AccountingPeriods, PeriodAndYearOfADate) {
  for (const auto& row : Lines(R"(
a leap day's end¦2004-02-29 23:59:59¦2 2004-02-01..2004-02-29¦2004 2004-01-01..2004-12-31
the last day of a year¦2002-12-25¦12 2002-11-26..2002-12-25¦2002 2001-12-26..2002-12-25
the first of the next¦2002-12-26¦1 2002-12-26..2003-01-25¦2003 2002-12-26..2003-12-31
a thirteenth period¦2003-12-31¦13 2003-12-26..2003-12-31¦2003 2002-12-26..2003-12-31
a year of six periods¦2006-12-31¦12 2006-12-01..2006-12-31¦2006 2006-07-01..2006-12-31
in no period¦2006-06-30 08:00¦0 2006-06-30..2006-06-30¦0 2010-05-06..2010-05-06
)")) {
    const Text date = FromUtf8(row[1]);
    for (const char* time : {" first", " second"}) {
      SCOPED_TRACE(row[0] + time);
      EXPECT_EQ(PeriodOf(date), row[2]);
      EXPECT_EQ(YearOf(D(date)), row[3]);
    }
    Cost();
    PeriodOf(date);
    YearOf(date);  // as a text, too
    EXPECT_EQ(Cost(), 0u);
  }
}

TEST_F(AccountingPeriods, StoredDates) {
  Table<Value, Value, std::string>{
      {"dots without zeros", u"2004.2.1", u"2004.2.29", "2 2004-02-01..2004-02-29"},
      {"dates", D(u"2004-02-01"), D(u"2004-02-29 12:00"), "2 2004-02-01..2004-02-29"},
      {"no date", u"2004.02", u"2004-02-29", kFailed},
      {"Null", u"2004-02-01", NullValue(), kFailed},
  }
      .Check([&](const Value& start, const Value& end, const std::string& expected) {
        session().ActivityCaches.reset();
        const auto answer = Rows({u"intYear", u"bytPeriod", u"strStartDate", u"strEndDate"},
                                 {{std::int32_t{2004}, std::int32_t{2}, start, end}});
        host_->fallback = [&](TextView) { return &answer; };
        EXPECT_EQ(PeriodOf(u"2004-02-10"), expected);
      });
}

TEST_F(AccountingPeriods, TheFirstPeriodInNumberOrderWinsWhereTwoOverlap) {
  periods_ = {{2004, 1, u"2004-01-01", u"2004-01-31"},
              {2004, 2, u"2004-01-20", u"2004-02-29"},
              {2004, 3, u"2004-03-10", u"2004-03-31"}};
  EXPECT_EQ(PeriodOf(u"2004-01-25"), "1 2004-01-01..2004-01-31");
  EXPECT_EQ(PeriodOf(u"2004-02-01"), "2 2004-01-20..2004-02-29");
  EXPECT_EQ(PeriodOf(u"2004-03-05"), "0 2004-03-05..2004-03-05") << "a gap within a year";
}

TEST_F(AccountingPeriods, GetAccountPeriod) {
  EXPECT_EQ(YearAndPeriodOf(D(u"2002-12-26")), YearAndPeriod(2003, 1))
      << "the next year's first period";
  EXPECT_EQ(YearAndPeriodOf(D(u"2003-12-26 10:00")), YearAndPeriod(2003, 13));
  EXPECT_EQ(YearAndPeriodOf(D(u"2006-06-30")), YearAndPeriod(2006, 6))
      << "in no period: the calendar's";
  host_->TakeSent();
  YearAndPeriodOf(D(u"2004-03-07"));
  const Text sql =
      u" SELECT intYear,bytPeriod FROM AccountPeriod WHERE '2004-03-07'>=strStartDate And "
      u"'2004-03-07'<=strEndDate And lngOrganizationID = 20";
  EXPECT_EQ(host_->TakeSent(), Sent{"static: " + ToUtf8(sql)});

  const auto row = [](Value year, Value period) {
    return Rows({u"intYear", u"bytPeriod"}, {{year, period}});
  };
  Table<Answer, YearAndPeriod>{
      {"Null year", row(NullValue(), std::int32_t{4}), {2000, 4}},
      {"Null period", row(std::int32_t{2001}, NullValue()), {2001, 3}},
      {"texts", row(u"x", u" 5 "), {2000, 5}},
      {"refused", Refused(), kUntouched},
      {"too large", row(std::int32_t{40000}, std::int32_t{1}), kUntouched},
  }
      .Check([&](const Answer& answer, const YearAndPeriod& expected) {
        host_->On(sql, answer);
        EXPECT_EQ(YearAndPeriodOf(D(u"2004-03-07")), expected);
      });
  EXPECT_EQ(YearAndPeriodOf(Date{1e8}), kUntouched);
}

// The account starts on 2003-01-01, in the accounting year 2003, which begins on 2002-12-26.
TEST_F(AccountingPeriods, GetEndDate) {
  Table<Value, Value, std::string>{
      {"no end: to before the start", u"2003-05-10", u"", "2003: 2002-12-26 .. 2002-12-31"},
      {"no end: to the login year's", u"2005-05-10", NullValue(), "2005: 2005-01-01 .. 2004-12-31"},
      {"begin before the start", D(u"2002-05-10"), Value(), "2002: 2001-12-26 .. 2004-12-31"},
      {"neither", NullValue(), u" ", "2003: 2010-05-06 .. 2002-12-31"},
      {"the day before the begin", D(u"2004-05-10 12:00"), u"2008年12月31日",
       "2004: 2004-01-01 .. 2004-05-09"},
      {"no begin: the start date", u"", u"2003-03-31", "2003: 2002-12-26 .. 2002-12-31"},
      {"before its year: at once", u"2002/5/10", u"2003/3/31", "0: 2002-05-10 .. 2003-03-31"},
      {"a begin in no year", u"2006-05-10", u"2006-12-31", "2003: 2010-05-06 .. 2002-12-31"},
      {"no date", u"soon", u"2006/12/31", "0: soon .. 2006/12/31"},
      {"an end that is no date", u"2004/5/1", u"soon", "0: 2004/5/1 .. soon"},
  }
      .Check([&](const Value& begin, const Value& end, const std::string& expected) {
        EXPECT_EQ(EndDateOf(begin, end), expected);
      });

  session().LoginDate = u"2002-06-01";
  EXPECT_EQ(EndDateOf(u"2004-05-10", u""), "2004: 2004-01-01 .. 2003-01-01")
      << "a login year that ends before the start";
}

TEST_F(AccountingPeriods, EveryFaultLeavesZeroAndTheArguments) {
  ExpectEveryFault([&] { return PeriodOf(u"2004-03-17"); }, kFailed);
  ExpectEveryFault([&] { return YearOf(u"2004-03-17"); }, kFailed);
  ExpectEveryFault([&] { return EndDateOf(u"2004/5/10", u"2004/12/31"); },
                   "0: 2004/5/10 .. 2004/12/31");
  for (const Value& noDate : {Value(NullValue()), Value(u""), Value(u"soon")})
    EXPECT_EQ(YearOf(noDate), kFailed);
}

}  // namespace
}  // namespace fetchkit::test
