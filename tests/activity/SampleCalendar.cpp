#include "activity/SampleCalendar.h"

#include <utility>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {
namespace {

// What stands behind the mark, up to a blank or a quote; empty where the mark is not.
Text Behind(TextView mark, TextView sql) {
  const auto at = sql.find(mark);
  if (at == TextView::npos) return {};
  const TextView rest = sql.substr(at + mark.size());
  return Text(rest.substr(0, rest.find_first_of(u" '")));
}

}  // namespace

Date D(TextView text) {
  const auto date = PortablePlatform().ParseDate(text);
  EXPECT_TRUE(date) << ToUtf8(text);
  return date.value_or(Date{});
}

std::string Show(Date date) {
  return ToUtf8(DefaultDateText(date));
}

std::vector<PeriodRow> SamplePeriods() {
  std::vector<PeriodRow> rows;
  for (int year = 2001; year <= 2007; ++year) {
    for (int month = year == 2006 ? 7 : 1; month <= 12; ++month) {
      const Date first = DateFromYmd(year, static_cast<unsigned>(month), 1).value();
      const Date begin = year <= 2003 ? AddDays(AddMonths(first, -1), 25) : first;
      rows.push_back(
          {year, month, FormatDate(begin), FormatDate(AddDays(AddMonths(begin, 1), -1))});
    }
    if (year == 2003) rows.push_back({2003, 13, u"2003-12-26", u"2003-12-31"});
  }
  return rows;
}

LoggedInTest::LoggedInTest() {
  host_->fallback = [this](TextView sql) { return AnswerFromCalendar(sql); };
  session().Connection = host_;
  session().AccountKey = u"7$DBSRV$ACC01";
  session().LoginDate = u"2004-03-17";
  session().LoginOrganizationId = 20;
  session().AccountStartDate = u"2003-01-01";
  session().AccountStartYear = 2003;
  session().OrganizationThisYear = 2004;
  session().OrganizationThisPeriod = 3;
  session().NaturalCurrencyId = 7;
}

void LoggedInTest::ExpectEveryFault(const std::function<std::string()>& act,
                                    const std::string& failed) {
  const std::vector<Text> columns = {u"intYear", u"bytPeriod", u"strStartDate", u"strEndDate"};
  Answer lostRow =
      Rows(columns, {{std::int32_t{2004}, std::int32_t{1}, u"2004-01-01", u"2004-01-31"}});
  lostRow.throwAtRow = 0;
  const Answer noDate = Rows(columns, {{NullValue(), std::int32_t{1}, NullValue(), NullValue()}});
  const std::pair<const char*, Answer> faults[] = {
      {"refused", Refused()}, {"throws", Throws()}, {"row lost", lostRow}, {"Null", noDate}};
  session().ActivityCaches.reset();
  Cost();
  const std::string whole = act();
  EXPECT_NE(whole, failed);
  const std::size_t statements = Cost();
  for (std::size_t statement = 0; statement < statements; ++statement) {
    for (const auto& [fault, answer] : faults) {
      SCOPED_TRACE(whole + ", " + fault + " at " + std::to_string(statement));
      session().ActivityCaches.reset();
      untilSpoilt_ = static_cast<int>(statement);
      spoilt_ = answer;
      EXPECT_EQ(act(), failed);
      EXPECT_EQ(Cost(), statement + 1);
      EXPECT_EQ(act(), whole);
      EXPECT_GT(Cost(), 0u);
    }
  }
}

// The conditions of a statement about periods, evaluated as the database does: as texts.
const Answer* LoggedInTest::AnswerFromCalendar(TextView sql) {
  const Text year = Behind(u" Select * From AccountPeriod Where intYear = ", sql);
  const Text period = Behind(u" And bytPeriod = ", sql);
  const Text date = Join(Behind(u" Select * From AccountPeriod Where strEndDate >= '", sql),
                         Behind(u" SELECT intYear,bytPeriod FROM AccountPeriod WHERE '", sql));
  if (year.empty() && date.empty()) return nullptr;
  if (untilSpoilt_ >= 0 && untilSpoilt_-- == 0) return &spoilt_;
  answer_ =
      Rows({u"lngOrganizationID", u"intYear", u"bytPeriod", u"strStartDate", u"strEndDate"}, {});
  // Other organizations have no calendar.
  if (sql.find(u"lngOrganizationID = 20") == TextView::npos) return &answer_;
  for (const PeriodRow& row : periods_)
    if (date.empty() ? Join(row.year) == year && (period.empty() || Join(row.period) == period)
                     : row.start <= date && date <= row.end)
      answer_.rows.push_back(
          {std::int32_t{20}, std::int32_t{row.year}, std::int32_t{row.period}, row.start, row.end});
  return &answer_;
}

}  // namespace fetchkit::test
