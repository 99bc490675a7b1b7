#include "fetchkit/utility/StringHelpers.h"

#include <gtest/gtest.h>

#include <limits>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/DateKeywords.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

struct StringHelpers : testing::Test, fetchkit::StringHelpers {};

// Pieces, positions and counts, and what a text holds of a set, are compared with plain loops by
// the fuzz target Texts.
TEST_F(StringHelpers, Cutting) {
  EXPECT_EQ(StrLen(TextView(u"部门a\0abc", 7)), 5) << "bytes, counted up to an inner NUL";
  EXPECT_EQ(StrLen(u"\u20AC\u0E01"), 2) << "what the code page lacks is one '?' each";
  EXPECT_EQ(StrLeft(u"abcdef", 3), Text(u"abc\0", 4));
  EXPECT_EQ(StrLeft(u"ab", 3), Text(u"ab\0", 3));
  EXPECT_EQ(StrLeft(u"ab", -1), Text(u"\0", 1));
  EXPECT_EQ(GetFilePath(u"C:\\dir\\file.txt"), u"C:\\dir\\");
  EXPECT_EQ(GetSpace(u"ab", 3), u"ababab");
}

TEST_F(StringHelpers, AfterAndBefore) {
  Table<TextView, TextView, bool, TextView, TextView>{
      {"the first one counts", u"k=v=w", u"=", false, u"v=w", u"k"},
      {"need not be found", u"kv", u"=", false, u"kv", u"kv"},
      {"must be found", u"kv", u"=", true, u"", u""},
      {"the two differ for an empty search", u"kv", u"", false, u"kv", u""},
  }
      .Check([](TextView text, TextView search, bool mustFind, TextView after, TextView before) {
        EXPECT_EQ(GetStrAfter(text, search, mustFind), after);
        EXPECT_EQ(GetStrBefore(text, search, mustFind), before);
      });
}

TEST_F(StringHelpers, Between) {
  Table<TextView, TextView, TextView, TextView, TextView>{
      {"no closing mark", u"x[ab", u"[", u"]", u"", u""},
      {"no opening mark", u"ab]", u"[", u"]", u"", u""},
      {"a closing mark in front does not count", u"]x[ab]", u"[", u"]", u"ab", u"[ab]"},
      {"equal marks", u"'a'b'", u"'", u"'", u"a", u"'a'"},
      {"empty closing mark", u"x[ab", u"[", u"", u"", u"["},
      {"empty closing mark behind the end", u"x[", u"[", u"", u"", u""},
  }
      .Check([](TextView text, TextView from, TextView to, TextView inner, TextView outer) {
        for (const bool mustFind : {false, true}) {
          EXPECT_EQ(GetStrBetween(text, from, to, false, mustFind), inner);
          EXPECT_EQ(GetStrBetween(text, from, to, true, mustFind), outer);
        }
      });
}

TEST_F(StringHelpers, SetsArraysAndEnds) {
  EXPECT_TRUE(ContainErrorChar(u"a'b", kErrorChars, u""));
  EXPECT_FALSE(ContainErrorChar(u"部门(一)-2", kErrorChars, u""));
  EXPECT_EQ(kErrorChars.size(), 21u);
  EXPECT_EQ(kAllErrorChars.size(), 31u);
  EXPECT_FALSE(StrInStr(u"", u"", u",", CompareMethod::Binary));
  EXPECT_EQ(GetNoXPos(u"ab", 3, u""), 0) << "nothing is found behind the end";
  EXPECT_TRUE(ArrayIsEmpty(Value(ValueArray{})));
  EXPECT_FALSE(ArrayIsEmpty(Value(ValueArray{true, 0, {}})));
  EXPECT_TRUE(ArrayIsEmpty(u"no array"));
}

TEST_F(StringHelpers, DateIsValid) {
  for (const TextView keyword : kDateKeywords)
    EXPECT_TRUE(DateIsValid(keyword)) << ToUtf8(keyword);
  Table<Value, bool>{
      {"a keyword with a blank is none", u" 今天", false},
      {"a hyphenated date is refused", u"2004-01-31", false},
      {"slashes", u"2004/1/31", true},
      {"custom range", u"自定义:2004-01-01,2004-03-31", true},
      {"custom range with a bad end", u"自定义:2004-01-01,2004-02-30", false},
      {"custom range with a bad begin", u"自定义:2004-02-30,2004-03-31", false},
      {"custom range with one date stands for both", u"自定义:2004-01-01", true},
      {"no date", u"所有", false},
      {"a real date, whose text has hyphens", Date{38017.5}, true},
      {"NaN", Date{std::numeric_limits<double>::quiet_NaN()}, false},
      {"an array", Value(ValueArray{}), false},
  }
      .Check([](const Value& value, bool expected) { EXPECT_EQ(DateIsValid(value), expected); });
}

TEST_F(StringHelpers, NotNull) {
  const Value fallback = u"none";
  for (const Value& nothing : {Value(), Value(NullValue()), Value(MissingValue()), Value(u"  ")})
    EXPECT_EQ(ToText(NotNull(nothing, fallback)), u"none");
  Table<Value, double>{
      {"a whole text is read", u" -0012.5", -12.5},
      {"up to a comma", u"1,234", 1},
      {"up to an exponent", u"1e5", 1},
      {"a double", 2.5, 2.5},
      {"a whole number", std::int16_t{-4}, -4},
      {"a Boolean has no number in its text", true, 0},
  }
      .Check([&](const Value& value, double expected) {
        const Value read = NotNull(value, fallback);
        ASSERT_TRUE(read.Is<double>());
        EXPECT_EQ(std::get<double>(read.data()), expected);
      });
  EXPECT_EQ(ToText(NotNull(u" 12a ", fallback)), u" 12a ") << "other texts stay untrimmed";
  EXPECT_TRUE(NotNull(Date{38000}, fallback).Is<Date>());
}

}  // namespace
}  // namespace fetchkit::test
