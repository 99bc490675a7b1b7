#include "fetchkit/base/Value.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/Utf8.h"
#include "support/FailingAllocations.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

TEST(Numbers, LeadingNumberStopsAtTheFirstOtherCharacter) {
  const std::pair<TextView, double> kRows[] = {
      {u"12.5", 12.5}, {u"  -7x", -7}, {u"+3", 3},   {u"1,234", 1}, {u"1e5", 1}, {u"0x1F", 0},
      {u"1.2.3", 1.2}, {u".5", 0.5},   {u"5.", 5},   {u"-", 0},     {u".", 0},   {u"", 0},
      {u"- 5", 0},     {u"\t5", 0},    {u"１２", 0}, {u"5 6", 5},
  };
  for (const auto& [text, expected] : kRows)
    EXPECT_EQ(LeadingNumber(text), expected) << ToUtf8(text);
}

TEST(Numbers, NumericTest) {
  for (const TextView yes : {u"1", u" 1 ", u"-1.5", u"+.5", u"5.", u"1,234,567.8", u"1,2", u"1e5",
                             u"1.5E-3", u"1,234e+2"})
    EXPECT_TRUE(IsNumericText(yes)) << ToUtf8(yes);
  for (const TextView no : {u"", u" ", u"-", u".", u"1.2.3", u"1.2,3", u",1", u"1e", u"1e1.5",
                            u"1 2", u"2004-01-31", u"0x10", u"１", u"1\t", u"--1"})
    EXPECT_FALSE(IsNumericText(no)) << ToUtf8(no);
  EXPECT_EQ(NumericTextToDouble(u" +1,234.5e1 "), 12345);
  EXPECT_TRUE(std::isinf(NumericTextToDouble(u"1e999")));
  EXPECT_EQ(NumericTextToDouble(u"1e-999"), 0);
}

TEST(Numbers, NumberText) {
  const std::pair<double, TextView> kRows[] = {{0, u"0"},
                                               {-0.0, u"0"},
                                               {-12.5, u"-12.5"},
                                               {0.1 + 0.2, u"0.3"},
                                               {1e14, u"100000000000000"},
                                               {1e15, u"1E+15"},
                                               {123456789012345678.0, u"1.23456789012346E+17"},
                                               {0.001, u"0.001"},
                                               {1e-15, u"0.000000000000001"},
                                               {1e-16, u"1E-16"},
                                               {1.5e-20, u"1.5E-20"},
                                               {0.1f, u"0.100000001490116"}};
  for (const auto& [value, expected] : kRows)
    EXPECT_EQ(NumberText(value), expected);
  EXPECT_EQ(ToText(Value(0.1f)), u"0.1") << "a single shows its own digits";
}

// Rounding and the bounds of whole numbers are checked by the fuzz target Numbers.
TEST(ValueConversions, NumbersOfOtherTypes) {
  EXPECT_EQ(ToLong(u" 1,234.5 "), 1234);
  EXPECT_EQ(ToLong(true), -1);
  EXPECT_EQ(ToLong(Value()), 0);
  Table<Value, ErrorKind>{
      {"Null", NullValue(), ErrorKind::InvalidUseOfNull},
      {"missing", MissingValue(), ErrorKind::TypeMismatch},
      {"empty text", u"", ErrorKind::TypeMismatch},
      {"array", Value(ValueArray{}), ErrorKind::TypeMismatch},
      {"not a number", std::nan(""), ErrorKind::Overflow},
  }
      .Check([](const Value& value, ErrorKind kind) {
        try {
          ToLong(value);
          ADD_FAILURE() << "was converted";
        } catch (const ConvertError& error) {
          EXPECT_EQ(error.kind(), kind);
        }
      });
}

TEST(ValueConversions, BooleansAndTexts) {
  EXPECT_TRUE(ToBoolean(std::int32_t{1}));
  EXPECT_TRUE(ToBoolean(u"true"));
  EXPECT_FALSE(ToBoolean(u"FALSE"));
  EXPECT_THROW(ToBoolean(u"是"), ConvertError);
  EXPECT_EQ(ToText(false), u"False");
  EXPECT_EQ(ToText(*DateFromYmd(2004, 2, 29)), u"2004-02-29");
  EXPECT_EQ(ToTextOrEmpty(NullValue()), u"");
  EXPECT_EQ(ToTextOrEmpty(MissingValue()), u"");
  EXPECT_FALSE(IsNumeric(*DateFromYmd(2004, 2, 29)));
  EXPECT_FALSE(IsNumeric(NullValue()));
}

TEST(Values, ACopyWithoutMemoryLeavesTheTarget) {
  const Value longText = u"longer than what fits without memory";
  for (const Value& before : {Value(), Value(std::int32_t{7}), Value(Text(100, u'x'))}) {
    Value target = before;
    const auto assign = [&] {
      const FailingAllocations fail(1);
      target = longText;
    };
    EXPECT_THROW(assign(), std::bad_alloc);
    EXPECT_EQ(ToText(target), ToText(before));
  }
}

}  // namespace
}  // namespace fetchkit::test
