// Table names in statements, and the irregular names of code tables.
#include "fetchkit/listset/ListQuery.h"
#include "fetchkit/utility/CodeTables.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {

FUZZ_TARGET(TableNames) {
  static constexpr TextView kPieces[] = {u"Voucher", u"VOUCHER ", u"voucher.", u"V",       u" ",
                                         u".",       u",",        u"'",        u"Select ", u"er "};
  Text name = in.Pieces(kPieces, 2);
  Text other = in.Pieces(kPieces, 2);
  const Text sql = in.Bool() ? in.Pieces(kPieces, 12) : in.Units(30);
  const Text modified = MListSet::ModifyTableName(sql, name, other);
  Text expected = ReplaceByLoop(sql, name, other, true);
  if (!name.empty()) {
    // The second time with a point in place of the last character.
    name.back() = u'.';
    other.resize(std::max<std::size_t>(other.size(), 1), u'.');
    other.back() = u'.';
    expected = ReplaceByLoop(expected, name, other, true);
  }
  EXPECT_EQ(ToUtf8(modified), ToUtf8(expected));

  static constexpr TextView kTables[] = {
      u"Class1",          u"mmRoute", u"CURRENCYS", u"custom5", u"FlexibleField",
      u"FLEXIBLEFIELD07", u"3",       u"0",         u"mm",      u"Account"};
  const Text table = in.Bool() ? in.Pieces(kTables, 2) : in.Units(18);
  for (const TextView stem : {CodeStem(table), ConditionKeyStem(table), FilterKeyStem(table)})
    EXPECT_LE(stem.size(), std::max<std::size_t>(table.size(), 8));
  // In any letter case.
  const Text upper = UpperAscii(table);
  EXPECT_TRUE(EqualFolded(CodeStem(table), CodeStem(upper)));
  EXPECT_EQ(FindCodeTable(table), FindCodeTable(upper));
}

}  // namespace fetchkit::test
