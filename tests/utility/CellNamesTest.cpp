#include "fetchkit/utility/CellNames.h"

#include <gtest/gtest.h>

#include "fetchkit/base/Utf8.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

struct CellNames : testing::Test, fetchkit::CellNames {};

TEST_F(CellNames, Absolute) {
  Table<TextView, TextView>{
      {"no column", u"12", u""},
      {"no row", u"B", u""},
      {"a second \"$\" in front of each part", u"$B$12", u"$$B$$12"},
      {"the sheet belongs to the column part", u"Sheet!B3", u"$Sheet!B$3"},
      {"whatever counts as a number", u"B1.5", u"$B$1.5"},
  }
      .Check([](TextView cell, TextView expected) {
        EXPECT_EQ(ToUtf8(CellNameToAbsolute(cell)), ToUtf8(expected));
      });
}

TEST_F(CellNames, RowAndColumn) {
  Table<TextView, bool, std::int32_t, std::int32_t>{
      {"either case", u"aZ1", true, 1, 52},
      {"one more", u"A2147483648", false, -1, -1},
      {"one more column", u"FXSHRXX1", false, -1, -1},
      {"what stands behind Z", u"[1", false, -1, -1},
  }
      .Check([](TextView cell, bool expected, std::int32_t row, std::int32_t column) {
        std::int32_t lngRow = -1;
        std::int32_t lngCol = -1;
        EXPECT_EQ(CellNameToRowCol(cell, lngRow, lngCol), expected);
        EXPECT_EQ(lngRow, row);
        EXPECT_EQ(lngCol, column);
      });
}

TEST_F(CellNames, Validity) {
  constexpr TextView kInvalid = u"无效的单元格！";
  constexpr TextView kSeveral = u"不允许多单元格！";
  Table<TextView, TextView>{
      {"blanks around the part behind the sheet go", u"Sheet1! C3 ", u""},
      {"but not around a plain name", u" C3", kInvalid},
      {"the sheet's name is not looked at", u"!C3", u""},
      {"only up to a second \"!\"", u"a!C3!x", u""},
      {"empty", u"", u"单元格不能为空！"},
      {"a blank is no empty name", u" ", kInvalid},
      {"a range", u"A1:B2", kSeveral},
      {"a comma in the sheet's name too", u"a,b!C3", kSeveral},
  }
      .Check([](TextView cell, TextView expected) {
        Text message = u"of the call before";
        EXPECT_EQ(CellIsValid(cell, message), expected.empty());
        EXPECT_EQ(ToUtf8(message), ToUtf8(expected));
      });
}

TEST_F(CellNames, ColumnLetters) {
  const std::pair<std::int16_t, TextView> kRows[] = {
      {26, u"Z"}, {27, u"AA"}, {39, u"AM"}, {40, u"BN"}, {66, u"BN"}, {67, u"CO"}, {702, u"AAZ"},
  };
  for (const auto& [column, expected] : kRows)
    EXPECT_EQ(ToUtf8(CellColToString(column)), ToUtf8(expected)) << column;
}

TEST_F(CellNames, TextToNumber) {
  Table<Value, double>{
      {"commas go wherever they stand", u",1,234.5,", 1234.5},
      {"Null", NullValue(), 0},
      {"no text at all", Value(ValueArray{}), 0},
      {"a half goes to the even neighbour below", u"0.0000000005", 0},
      {"and above", u"0.0000000015", 0.000000002},
      {"digits that a scaled double could not keep", u"12345678.1", 12345678.1},
      {"a double is not read back from its text", 1e20, 1e20},
      {"but rounded", 2.00000000049, 2},
      {"one that scaling would change", u"3587646663496.18", 3587646663496.18},
      {"a whole one that scaling would change", 8767946696361776.0, 8767946696361776.0},
      {"one that scaling would make infinite", 1e300, 1e300},
  }
      .Check([](const Value& value, double expected) { EXPECT_EQ(C2Dbl(value), expected); });
}

TEST_F(CellNames, HalvesUpwards) {
  Table<double, std::uint8_t, double>{
      {"a half goes up", 2.345, 2, 2.35},
      {"below the half in binary goes down", 1.005, 2, 1},
      {"negative ones", -2.5, 0, -2},
      {"a scaled number beyond a double", 1e300, 200, 0},
  }
      .Check([](double value, std::uint8_t decimals, double expected) {
        EXPECT_EQ(FourLostFiveAdd(value, decimals), expected);
      });
}

TEST_F(CellNames, NumberFormat) {
  EXPECT_EQ(FormatDec(3), u"#0.000");
  EXPECT_EQ(FormatDec(0), u"");
  EXPECT_EQ(FormatDec(-3), u"");
}

}  // namespace
}  // namespace fetchkit::test
