// Numbers in texts and values, rounded and written.
#include <cfloat>
#include <cmath>

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

void CheckWriting(double value, int decimals) {
  const Text text = NumberText(value);
  const Text plain = PlainDecimalText(value);
  const Text fixed = FixedText(value, decimals);
  if (!std::isfinite(value)) {
    EXPECT_FALSE(IsNumericText(text) || IsNumericText(plain) || IsNumericText(fixed));
    return;
  }
  EXPECT_TRUE(IsNumericText(text) && Near(value, NumericTextToDouble(text))) << ToUtf8(text);
  EXPECT_EQ(plain.find(u'E'), Text::npos);
  EXPECT_TRUE(Near(value, NumericTextToDouble(plain))) << ToUtf8(plain);
  EXPECT_EQ(LeadingNumber(plain), NumericTextToDouble(plain));
  // Written again, what was read is the same text, unless rounding made it infinite.
  if (const double read = NumericTextToDouble(text); std::isfinite(read) && value != 0) {
    EXPECT_EQ(NumberText(read), text);
  }
  const auto point = fixed.find(u'.');
  EXPECT_EQ(point == Text::npos ? 0 : static_cast<int>(fixed.size() - point) - 1, decimals);
  const double unit = std::pow(10.0, -decimals);
  EXPECT_LE(std::fabs(NumericTextToDouble(fixed) - value),
            0.5 * unit + std::fabs(value) * 1e-14 + DBL_MIN)
      << ToUtf8(fixed);
  if (std::fabs(value) < 1e15) {
    EXPECT_EQ(RoundHalfToEven(value), std::nearbyint(value));
    EXPECT_TRUE(std::fabs(CellNames::C2Dbl(value) - value) <= 0.51e-9 + std::fabs(value) * 1e-15);
  }
  const double rounded = CellNames::FourLostFiveAdd(value, static_cast<std::uint8_t>(decimals));
  if (std::fabs(value) < 1e9 && decimals < 5) {
    EXPECT_LE(std::fabs(rounded - value), 0.5 * unit + 1e-6);
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

// The value of any type that a database may hand over.
Value AnyValue(Input& in) {
  switch (in.Below(10)) {
    case 0:
      return NullValue();
    case 1:
      return EmptyValue();
    case 2:
      return MissingValue();
    case 3:
      return in.Bool();
    case 4:
      return static_cast<std::int16_t>(in.Long());
    case 5:
      return static_cast<float>(in.Long()) / 8;
    case 6:
      return Date{in.Number()};
    case 7:
      return Value(ValueArray{in.Bool(), 0, {}});
    case 8:
      return in.Units(8);
    default:
      return in.Number();
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
  const bool kept = !StringHelpers::NotNull(value, NullValue()).IsNull();
  const auto* text = std::get_if<Text>(&value.data());
  EXPECT_EQ(kept, text != nullptr ? !TrimBlanks(*text).empty()
                                  : !value.IsNull() && !value.IsEmpty() && !value.IsMissing());
}

}  // namespace

FUZZ_TARGET(Numbers) {
  const double value = in.Number();
  CheckWriting(value, in.Below(20));
  CheckWhole(value, ToByte);
  CheckWhole(value, ToInteger);
  CheckWhole(value, ToLong);
  CheckText(in);
  CheckValue(AnyValue(in));
}

}  // namespace fetchkit::test
