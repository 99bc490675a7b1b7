// Numbers in texts and values, rounded and written.
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/utility/CellNames.h"
#include "fetchkit/utility/StringHelpers.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

// Equal but for what lies behind the 15th digit.
bool Near(double a, double b) {
  return a == b || std::fabs(a - b) <= std::max(std::fabs(a), DBL_MIN) * 1e-14;
}

// The digits of a number's text, without zeros at either end.
std::string DigitsIn(TextView text) {
  std::string digits;
  for (const char16_t unit : text.substr(0, text.find(u'E')))
    if (unit >= u'0' && unit <= u'9') digits.push_back(static_cast<char>(unit));
  digits.erase(0, digits.find_first_not_of('0'));
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits;
}

std::string DigitsByPrintf(double value) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.14e", value);
  return DigitsIn(FromUtf8(std::string(buffer, std::strchr(buffer, 'e'))));
}

void CheckWriting(double value, int decimals) {
  const Text text = NumberText(value);
  const Text plain = PlainDecimalText(value);
  const Text fixed = FixedText(value, decimals);
  if (!std::isfinite(value)) {
    EXPECT_FALSE(IsNumericText(text) || IsNumericText(plain) || IsNumericText(fixed));
    return;
  }
  EXPECT_EQ(DigitsIn(text), DigitsByPrintf(value));
  const double read = NumericTextToDouble(text);
  EXPECT_TRUE(IsNumericText(text) && Near(value, read)) << ToUtf8(text);
  // Written again, it is the same text, unless rounding made it infinite.
  EXPECT_TRUE(!std::isfinite(read) || value == 0 || NumberText(read) == text) << ToUtf8(text);
  EXPECT_EQ(plain.find(u'E'), Text::npos);
  EXPECT_TRUE(Near(value, LeadingNumber(plain))) << ToUtf8(plain);
  const auto point = fixed.find(u'.');
  EXPECT_EQ(point == Text::npos ? 0 : static_cast<int>(fixed.size() - point) - 1, decimals);
  const double half = 0.5 * std::pow(10.0, -decimals);
  const double size = std::fabs(value);
  const auto off = [&](double rounded) { return std::fabs(rounded - value); };
  EXPECT_LE(off(NumericTextToDouble(fixed)), half + size * 1e-14 + DBL_MIN) << ToUtf8(fixed);
  if (size < 1e15) {
    EXPECT_EQ(RoundHalfToEven(value), std::nearbyint(value));
    EXPECT_LE(off(CellNames::C2Dbl(value)), 0.51e-9 + size * 1e-15);
  }
  if (size < 1e9 && decimals < 5) {
    EXPECT_LE(off(CellNames::FourLostFiveAdd(value, static_cast<std::uint8_t>(decimals))),
              half + 1e-6);
  }
}

template <class Whole>
void CheckWhole(double value, Whole (*convert)(const Value&)) {
  const double rounded = std::nearbyint(value);
  const bool fits =
      rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max();
  try {
    const Whole whole = convert(Value(value));
    EXPECT_TRUE(fits && whole == rounded);
  } catch (const ConvertError& error) {
    EXPECT_FALSE(fits);
    EXPECT_EQ(error.kind(), ErrorKind::Overflow);
  }
}

void CheckText(Input& in) {
  static constexpr TextView kPieces[] = {u"0", u"1", u"95", u"000000", u".", u",",    u"-",
                                         u"+", u"E", u"e",  u" ",      u"x", u"e308", u"٣"};
  const Text text = in.Pieces(kPieces, 10);
  const double leading = LeadingNumber(text);
  EXPECT_FALSE(std::isnan(leading));
  if (!IsNumericText(text)) {
    EXPECT_THROW(ToDouble(Value(text)), ConvertError);
    return;
  }
  const double number = NumericTextToDouble(text);
  EXPECT_FALSE(std::isnan(number));
  EXPECT_EQ(ToDouble(Value(text)), number);
  if (text.find_first_of(u",eE") == Text::npos) {
    EXPECT_EQ(leading, number);
  }
}

// Conversions answer or raise ConvertError alone; the helpers on top of them never raise.
void CheckValue(const Value& value) {
  try {
    const double number = ToDouble(value);
    EXPECT_TRUE(ToBoolean(value) == (number != 0) || value.Is<Text>());
  } catch (const ConvertError&) {
    EXPECT_FALSE(IsNumeric(value));
  }
  CellNames::C2Dbl(value);
  StringHelpers::DateIsValid(value);
  StringHelpers::NotNull(value, NullValue());
}

}  // namespace

FUZZ_TARGET(Numbers) {
  const double value = in.Number();
  CheckWriting(value, in.Below(20));
  CheckWhole(value, ToByte);
  CheckWhole(value, ToInteger);
  CheckWhole(value, ToLong);
  CheckText(in);
  CheckValue(AnyValue(in, in.Units(8)));
}

}  // namespace fetchkit::test
