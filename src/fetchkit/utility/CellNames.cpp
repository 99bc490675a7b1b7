#include "fetchkit/utility/CellNames.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit {
namespace {

struct CellParts {
  TextView column, row;  // cut at the first digit, which begins the row
};

CellParts CutAtFirstDigit(TextView name) {
  const std::size_t digit = std::min(name.find_first_of(u"0123456789"), name.size());
  return {name.substr(0, digit), name.substr(digit)};
}

// Nothing when the part is empty, holds a unit without a place value, or is beyond 32 bits.
template <class PlaceValue>
std::optional<std::int32_t> ReadPlaces(TextView part, std::int32_t base, PlaceValue placeValue) {
  if (part.empty()) return std::nullopt;
  std::int64_t number = 0;
  for (const char16_t unit : part) {
    const std::optional<std::int32_t> value = placeValue(unit);
    if (!value) return std::nullopt;
    number = number * base + *value;
    if (number > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
  }
  return static_cast<std::int32_t>(number);
}

std::optional<std::int32_t> LetterValue(char16_t unit) {
  unit = UpperAscii(unit);
  if (unit < u'A' || unit > u'Z') return std::nullopt;
  return unit - u'A' + 1;
}

std::optional<std::int32_t> DigitValue(char16_t unit) {
  if (unit < u'0' || unit > u'9') return std::nullopt;
  return unit - u'0';
}

double RoundToNineDecimals(double value) {
  constexpr double kScale = 1e9;
  const double scaled = value * kScale;
  // From here on a double has no tenth decimal to round, and scaling could only spoil it.
  if (!(std::fabs(scaled) < 9007199254740992.0)) return value;
  return RoundHalfToEven(scaled) / kScale;
}

}  // namespace

Text CellNames::CellNameToAbsolute(TextView strCellName) {
  return GuardedOutermost(u"Utility.CellNameToAbsolute", Text(), [&]() -> Text {
    const auto [column, row] = CutAtFirstDigit(strCellName);
    if (column.empty() || !IsNumericText(row)) return {};
    return Join(u"$", column, u"$", row);
  });
}

bool CellNames::CellNameToRowCol(TextView strCellName, std::int32_t& lngRow, std::int32_t& lngCol) {
  const MemberScope scope;
  const auto parts = CutAtFirstDigit(strCellName);
  const auto column = ReadPlaces(parts.column, 26, LetterValue);
  const auto row = ReadPlaces(parts.row, 10, DigitValue);
  if (!column || !row) return false;
  lngRow = *row;
  lngCol = *column;
  return true;
}

bool CellNames::CellIsValid(TextView strCell, Text& strMsg) {
  return GuardedOutermost(u"Utility.CellIsValid", false, [&]() -> bool {
    std::int32_t row = 0;
    std::int32_t column = 0;
    // Aside: strMsg may be the text that strCell looks into.
    Text message;
    if (strCell.empty()) {
      message = u"单元格不能为空！";
    } else if (strCell.find_first_of(u":,") != TextView::npos) {
      message = u"不允许多单元格！";
    } else {
      const bool onSheet = strCell.find(u'!') != TextView::npos;
      const Text cell = onSheet ? StringHelpers::GetNoXString(strCell, 2, u"!") : Text(strCell);
      if (!CellNameToRowCol(cell, row, column)) message = u"无效的单元格！";
    }
    strMsg = std::move(message);
    return strMsg.empty();
  });
}

Text CellNames::CellColToString(std::int16_t intCol) {
  return GuardedOutermost(u"Utility.CellColToString", Text(), [&]() -> Text {
    // From the last letter on; four are enough for every column.
    std::array<char16_t, 4> letters;
    std::size_t first = letters.size();
    for (int column = intCol; column >= 1;) {
      const int before = column - 1;
      letters[--first] = static_cast<char16_t>(before % 26 + u'A');
      // The quotient is rounded half to even.
      const int whole = before / 26;
      const int rest = before % 26;
      column = column > 26 ? whole + (rest > 13 || (rest == 13 && whole % 2 != 0) ? 1 : 0) : 0;
    }
    return {letters.data() + first, letters.size() - first};
  });
}

double CellNames::C2Dbl(const Value& varText) {
  return Guarded(u"Utility.C2Dbl", 0.0, [&] {
    if (const auto* number = std::get_if<double>(&varText.data()))
      return RoundToNineDecimals(*number);
    Text text = ToTextOrEmpty(varText);
    std::erase(text, u',');
    return RoundToNineDecimals(LeadingNumber(text));
  });
}

double CellNames::FourLostFiveAdd(double dblValue, std::uint8_t bytNaturalCurDec) {
  return Guarded(u"Utility.FourLostFiveAdd", 0.0, [&] {
    const Text zeros(bytNaturalCurDec, u'0');
    const double half = LeadingNumber(Join(u"0.", zeros, u"5"));
    const double units = LeadingNumber(Join(u"1", zeros));
    const double scaled = (dblValue + half) * units;
    if (!std::isfinite(scaled))
      throw Error(ErrorKind::Overflow, u"A number is too large to be rounded.");
    return std::floor(scaled) / units;
  });
}

Text CellNames::FormatDec(std::int16_t intDec) {
  return GuardedOutermost(u"Utility.FormatDec", Text(), [&]() -> Text {
    if (intDec <= 0) return {};
    return Join(u"#0.", Text(static_cast<std::size_t>(intDec), u'0'));
  });
}

}  // namespace fetchkit
