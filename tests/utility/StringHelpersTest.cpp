#include "fetchkit/utility/StringHelpers.h"

#include <gtest/gtest.h>

#include <limits>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/DateKeywords.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

constexpr auto kBinary = CompareMethod::Binary;
constexpr auto kIgnoreCase = CompareMethod::IgnoreCase;

struct StringHelpers : testing::Test, fetchkit::StringHelpers {};

TEST_F(StringHelpers, GetNoXString) {
  Table<TextView, std::int16_t, TextView, TextView>{
      {"blanks around a piece go", u"a, b ,c", 2, u",", u"b"},
      {"a number too large gives the last piece", u"a, b ,c", 9, u",", u"c"},
      {"0 gives the first piece", u" a, b ,c", 0, u",", u"a"},
      {"an empty last piece is a piece", u"a,", 2, u",", u""},
      {"an empty delimiter splits nothing", u"a,b", 2, u"", u"a,b"},
      {"long delimiters", u"a--b---c", 3, u"--", u"-c"},
      {"letter case counts", u"axbXc", 2, u"X", u"c"},
  }
      .Check([](TextView text, std::int16_t number, TextView delimiter, TextView expected) {
        EXPECT_EQ(GetNoXString(text, number, delimiter), expected);
      });
}

TEST_F(StringHelpers, PositionsAndCounts) {
  EXPECT_EQ(GetNoXPos(u"a,b,c", 3, u","), 0);
  EXPECT_EQ(GetNoXPos(u"a,b,c", 0, u","), 0);
  EXPECT_EQ(GetNoXPos(u"aaaa", 3, u"aa"), 3) << "hits may overlap";
  EXPECT_EQ(GetNoXPos(u"", 1, u""), 0);
  EXPECT_EQ(GetNoXPos(u"ab", 2, u""), 2);
  EXPECT_EQ(GetNoXPos(u"ab", 3, u""), 0);

  EXPECT_EQ(StrCount(u"a,b,c", u","), 2);
  EXPECT_EQ(StrCount(u"", u","), -1);
  EXPECT_EQ(StrCount(u"aaaa", u"aa"), 2) << "pieces do not overlap";
  EXPECT_EQ(StrCount(u"abc", u""), 0);

  EXPECT_EQ(TextCount(u"aaaa", u"a", kBinary), 2);
  EXPECT_EQ(TextCount(u"aAxaA", u"AA", kIgnoreCase), 2);
  EXPECT_EQ(TextCount(u"aAxaA", u"AA", kBinary), 0);
  EXPECT_EQ(TextCount(u"abc", u"", kBinary), 3);
  EXPECT_EQ(TextCount(u"Éé", u"é", kIgnoreCase), 1) << "only ASCII letters fold";

  EXPECT_EQ(CharCount(u"banana", u"a"), 3);
  EXPECT_EQ(CharCount(u"banana", u"an"), 0);
  EXPECT_EQ(CharCount(u"banana", u""), 0);
}

TEST_F(StringHelpers, Cutting) {
  EXPECT_EQ(StrLen(TextView(u"部门a\0abc", 7)), 5) << "bytes, counted up to an inner NUL";
  EXPECT_EQ(StrLen(u"\u20AC\u0E01"), 2) << "what the code page lacks is one '?' each";
  EXPECT_EQ(StrLeft(u"abcdef", 3), Text(u"abc\0", 4));
  EXPECT_EQ(StrLeft(u"ab", 3), Text(u"ab\0", 3));
  EXPECT_EQ(StrLeft(u"ab", -1), Text(u"\0", 1));
  EXPECT_EQ(GetFilePath(u"C:\\dir\\file.txt"), u"C:\\dir\\");
  EXPECT_EQ(GetFilePath(u"file.txt"), u"");
  EXPECT_EQ(GetFileName(u"C:\\dir\\file.txt"), u"file.txt");
  EXPECT_EQ(GetFileName(u"file.txt"), u"file.txt");
  EXPECT_EQ(GetSpace(u"ab", 3), u"ababab");
  EXPECT_EQ(GetSpace(u"ab", -1), u"");
}

TEST_F(StringHelpers, AfterAndBefore) {
  Table<TextView, TextView, bool, TextView, TextView>{
      {"the first one counts", u"k=v=w", u"=", false, u"v=w", u"k"},
      {"need not be found", u"kv", u"=", false, u"kv", u"kv"},
      {"must be found", u"kv", u"=", true, u"", u""},
      {"the two differ for an empty search", u"kv", u"", false, u"kv", u""},
      {"letter case counts", u"aXb", u"x", false, u"aXb", u"aXb"},
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
      {"nothing between", u"[]", u"[", u"]", u"", u"[]"},
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

TEST_F(StringHelpers, Sets) {
  EXPECT_TRUE(ContainErrorChar(u"a'b", kErrorChars, u""));
  EXPECT_FALSE(ContainErrorChar(u"a'b", kErrorChars, u"'\""));
  EXPECT_FALSE(ContainErrorChar(u"部门(一)-2", kErrorChars, u""));
  EXPECT_TRUE(ContainErrorChar(u"a，b", u"，。", u"。")) << "sets may hold any character";
  EXPECT_EQ(kErrorChars.size(), 21u);
  EXPECT_EQ(kAllErrorChars.size(), 31u);

  EXPECT_TRUE(StrInStr(u"a,B,c", u"B", u",", kBinary));
  EXPECT_FALSE(StrInStr(u"a,B,c", u"b", u",", kBinary));
  EXPECT_TRUE(StrInStr(u"1X2bx3", u"2B", u"x", kIgnoreCase)) << "delimiters fold, too";
  EXPECT_FALSE(StrInStr(u"a, b", u"b", u",", kBinary)) << "pieces are not trimmed";
  EXPECT_FALSE(StrInStr(u"", u"", u",", kBinary));
  EXPECT_TRUE(StrInStr(u"a,", u"", u",", kBinary));

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
      {"a day that does not exist", u"2003/2/29", false},
      {"custom range", u"自定义:2004-01-01,2004-03-31", true},
      {"custom range with a bad end", u"自定义:2004-01-01,2004-02-30", false},
      {"custom range with a bad begin", u"自定义:2004-02-30,2004-03-31", false},
      {"custom range with an end alone", u"自定义:,2004-03-31", false},
      {"custom range with one date stands for both", u"自定义:2004-01-01", true},
      {"the word with a date behind it", u"2004/1/31自定义", false},
      {"no date", u"所有", false},
      {"a real date, whose text has hyphens", Date{38017.5}, true},
      {"NaN", Date{std::numeric_limits<double>::quiet_NaN()}, false},
      {"Null", NullValue(), false},
      {"an array", Value(ValueArray{}), false},
  }
      .Check([](const Value& value, bool expected) { EXPECT_EQ(DateIsValid(value), expected); });
}

TEST_F(StringHelpers, NotNull) {
  const Value fallback = u"none";
  for (const Value& nothing : {Value(), Value(NullValue()), Value(MissingValue()), Value(u"  ")})
    EXPECT_EQ(ToText(NotNull(nothing, fallback)), u"none");
  Table<Value, double>{
      {"a whole text is read", u"12.5", 12.5},  {"leading zeros", u"00123", 123},
      {"up to a comma", u"1,234", 1},           {"blanks and a sign", u" -7 ", -7},
      {"up to an exponent", u"1e5", 1},         {"a double", 2.5, 2.5},
      {"a whole number", std::int16_t{-4}, -4}, {"a Boolean has no number in its text", true, 0},
  }
      .Check([&](const Value& value, double expected) {
        const Value read = NotNull(value, fallback);
        ASSERT_TRUE(read.Is<double>());
        EXPECT_EQ(std::get<double>(read.data()), expected);
      });
  EXPECT_EQ(ToText(NotNull(u" 12a ", fallback)), u" 12a ") << "other texts stay untrimmed";
  EXPECT_EQ(ToText(NotNull(u"12,15,x", fallback)), u"12,15,x");
  EXPECT_TRUE(NotNull(Date{38000}, fallback).Is<Date>());
}

}  // namespace
}  // namespace fetchkit::test
