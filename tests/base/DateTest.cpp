#include "fetchkit/base/Date.h"

#include <gtest/gtest.h>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/platform/PortablePlatform.h"

namespace fetchkit {
namespace {

Date D(int year, unsigned month, unsigned day) {
  return DateFromYmd(year, month, day).value();
}

TEST(Dates, DayNumbers) {
  EXPECT_EQ(D(1899, 12, 30).serial, 0);
  EXPECT_EQ(D(1900, 3, 1).serial, 61);
  EXPECT_EQ(D(2004, 3, 17).serial, 38063);
  EXPECT_EQ(DefaultDateText(Date{-1.25}), u"1899-12-29 06:00:00");
  EXPECT_EQ(FormatDate(D(100, 1, 1)), u"0100-01-01");
  EXPECT_EQ(WeekdayOf(D(2004, 3, 17)), 4) << "a Wednesday, Sunday counting 1";
  EXPECT_EQ(WeekdayOf(D(2004, 3, 14)), 1);
  EXPECT_FALSE(DateFromYmd(2003, 2, 29));
  EXPECT_FALSE(DateFromYmd(99, 1, 1));
  EXPECT_FALSE(DateFromYmd(10000, 1, 1));
}

// What holds for steps from any day is checked by the fuzz target Dates.
TEST(Dates, StepsEndWithTheCalendar) {
  EXPECT_EQ(DefaultDateText(AddMonths(Date{D(2004, 3, 31).serial + 0.5}, -1)),
            u"2004-02-29 12:00:00");
  EXPECT_EQ(DefaultDateText(AddDays(Date{D(9999, 12, 30).serial + 0.5}, 1)),
            u"9999-12-31 12:00:00");
  EXPECT_THROW(AddDays(D(9999, 12, 31), 1), Error);
  EXPECT_THROW(AddMonths(D(100, 1, 31), -1), Error);
  EXPECT_THROW(AddYears(D(2004, 1, 1), 2000000000), Error);
}

TEST(Dates, PortableParser) {
  const PortablePlatform platform;
  for (const TextView text :
       {u"2004-02-09", u"2004-2-9", u"2004/2/9", u"2004.02.09", u" 2004-2-9 ", u"2004年2月9日"})
    EXPECT_EQ(platform.ParseDate(text), D(2004, 2, 9)) << ToUtf8(text);
  for (const TextView text :
       {u"2004-2-9 18:00", u"2004/02/09 18:00:00", u"2004年2月9日 18:00", u"2004.2.9  18:0"})
    EXPECT_EQ(DefaultDateText(platform.ParseDate(text).value()), u"2004-02-09 18:00:00")
        << ToUtf8(text);
  for (const TextView text : {u"", u"2004", u"2004-2", u"04-02-09", u"2004-02-30", u"2004-13-01",
                              u"2004-00-01", u"2004/2-9", u"2004-2-9x", u"2004年2月9", u"20040209",
                              u"2004-002-09", u"-2004-2-9", u"今天", u"2004-2-x"})
    EXPECT_FALSE(platform.ParseDate(text)) << ToUtf8(text);
  for (const TextView time :
       {u"24:00", u"1:60", u"18", u"x", u"1:x", u"1:2:x", u"1:2:60", u"1:2:3 x"})
    EXPECT_FALSE(platform.ParseDate(Join(u"2004-2-9 ", time))) << ToUtf8(time);
}

TEST(Dates, ValuesAsDateTexts) {
  EXPECT_EQ(ToDateText(u"2004.3.7"), u"2004-03-07");
  EXPECT_EQ(ToDateText(38063.75), u"2004-03-17");
  EXPECT_EQ(ToDateText(Value()), u"");
  EXPECT_EQ(ToDateText(u" "), u"");
  EXPECT_THROW(ToDateText(u"soon"), ConvertError);
  EXPECT_THROW(ToDateText(NullValue()), ConvertError);
  EXPECT_THROW(ToDate(u""), ConvertError);
}

}  // namespace
}  // namespace fetchkit
