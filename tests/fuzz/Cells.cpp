// Names of spreadsheet cells.
#include <algorithm>

#include "fetchkit/utility/CellNames.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

// A name made of row and column is read back as these.
void CheckName(std::int32_t row, std::int32_t column) {
  Text letters;
  for (std::int32_t left = column; left > 0; left = (left - 1) / 26)
    letters.insert(letters.begin(), static_cast<char16_t>(u'A' + (left - 1) % 26));
  const Text name = Join(letters, row);
  std::int32_t readRow = -1;
  std::int32_t readColumn = -1;
  Text message;
  EXPECT_TRUE(CellNames::CellNameToRowCol(name, readRow, readColumn)) << ToUtf8(name);
  EXPECT_TRUE(readRow == row && readColumn == column) << ToUtf8(name);
  EXPECT_EQ(CellNames::CellNameToAbsolute(name), Join(u"$", letters, u"$", row));
  EXPECT_TRUE(CellNames::CellIsValid(Join(u"Sheet!", name), message));
}

}  // namespace

FUZZ_TARGET(Cells) {
  const std::int32_t any = std::max(in.Long(), 0);
  CheckName(any, std::max(in.Long(), 1));

  const auto number = static_cast<std::int16_t>(in.Long());
  const Text column = CellNames::CellColToString(number);
  EXPECT_EQ(number < 1 ? column : column.substr(column.size() - 1),
            number < 1 ? Text() : Text(1, static_cast<char16_t>(u'A' + (number - 1) % 26)));

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
  if (!named) return;
  EXPECT_TRUE(valid && row >= 0 && at >= 1);
  EXPECT_EQ(CellNames::CellNameToAbsolute(text).size(), text.size() + 2);
}

}  // namespace fetchkit::test
