// Table names in statements, and the irregular names of code tables.
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/ListQuery.h"
#include "fetchkit/utility/CodeTables.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

Text Renamed(TextView text, TextView find, TextView replacement) {
  const Text upper = UpperAscii(text);
  const Text wanted = UpperAscii(find);
  Text result;
  for (std::size_t at = 0; at < text.size();) {
    const bool hit = !wanted.empty() && upper.compare(at, wanted.size(), wanted) == 0;
    result.append(hit ? replacement : text.substr(at, 1));
    at += hit ? wanted.size() : 1;
  }
  return result;
}

Text WithPoint(TextView name) {
  return Join(name.substr(0, name.empty() ? 0 : name.size() - 1), u".");
}

}  // namespace

FUZZ_TARGET(TableNames) {
  static constexpr TextView kPieces[] = {u"Voucher", u"VOUCHER ", u"voucher.", u"V",       u" ",
                                         u".",       u",",        u"'",        u"Select ", u"er "};
  const Text name = in.Pieces(kPieces, 2);
  const Text other = in.Pieces(kPieces, 2);
  const Text sql = in.Bool() ? in.Pieces(kPieces, 12) : in.Units(30);
  const Text expected =
      name.empty() ? sql : Renamed(Renamed(sql, name, other), WithPoint(name), WithPoint(other));
  EXPECT_EQ(ToUtf8(MListSet::ModifyTableName(sql, name, other)), ToUtf8(expected));

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
  EXPECT_NE(CodeIdSelect(table).find(u"WHERE "), Text::npos);
}

}  // namespace fetchkit::test
