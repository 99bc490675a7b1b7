// Names of spreadsheet cells.
#include <algorithm>

#include "fetchkit/utility/CellNames.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

Text Letters(std::int32_t column) {
  Text name;
  for (; column > 0; column = (column - 1) / 26)
    name.insert(name.begin(), static_cast<char16_t>(u'A' + (column - 1) % 26));
  return name;
}

void CheckName(std::int32_t row, std::int32_t column) {
  const Text name = Join(Letters(column), row);
  std::int32_t readRow = -1;
  std::int32_t readColumn = -1;
  Text message;
  EXPECT_TRUE(CellNames::CellNameToRowCol(name, readRow, readColumn)) << ToUtf8(name);
  EXPECT_TRUE(readRow == row && readColumn == column) << ToUtf8(name);
  EXPECT_EQ(CellNames::CellNameToAbsolute(name), Join(u"$", Letters(column), u"$", row));
  EXPECT_TRUE(CellNames::CellIsValid(Join(u"Sheet!", name), message));
  EXPECT_EQ(message, u"");
}

}  // namespace

FUZZ_TARGET(Cells) {
  CheckName(std::max(in.Long(), 0), std::max(in.Long(), 1));

  const auto number = static_cast<std::int16_t>(in.Long());
  const Text column = CellNames::CellColToString(number);
  EXPECT_EQ(column.empty(), number < 1);
  if (number >= 1) {
    EXPECT_EQ(column.back(), u'A' + (number - 1) % 26);
  }

  static constexpr TextView kPieces[] = {u"A", u"z", u"1", u"0",       u"!",
                                         u":", u",", u"$", u"99999999"};
  const Text text = in.Bool() ? in.Pieces(kPieces, 8) : in.Units(8);
  Text message;
  std::int32_t row = -7;
  std::int32_t at = -7;
  const bool valid = CellNames::CellIsValid(text, message);
  EXPECT_EQ(valid, message.empty());
  const bool named = CellNames::CellNameToRowCol(text, row, at);
  EXPECT_EQ(named, row != -7 && at != -7);
  if (named) {
    EXPECT_TRUE(valid && row >= 0 && at >= 1);
  }
  if (named) {
    EXPECT_EQ(CellNames::CellNameToAbsolute(text).size(), text.size() + 2);
  }
}

}  // namespace fetchkit::test
