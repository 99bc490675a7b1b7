// SQL clauses: nothing is lost, no list is longer than the database takes.
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/utility/SqlClauses.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

// What stands in the brackets behind each "In(", put together again.
Text ItemsOf(TextView sql, TextView opening, std::size_t longest) {
  EXPECT_TRUE(IsWellFormed(sql)) << ToUtf8(sql);
  Text items;
  for (std::size_t at = FindFolded(sql, opening); at != Text::npos;
       at = FindFolded(sql, opening, at)) {
    at += opening.size();
    const TextView group = sql.substr(at, sql.find(u')', at) - at);
    EXPECT_LE(Split(group, u",").size(), longest);
    AppendWith(items, u',', group);
  }
  return items;
}

void CheckLists(Input& in) {
  const int distinct = in.Below(4) + 1;
  const int count =
      in.Pick({1, 2, 5, 799, 800, 801, 999, 1000, 1001, 1600, 1999, 2000, 2001, 2400});
  Text list;
  for (int i = 0; i < count; ++i)
    AppendWith(list, u',', Join(i % distinct == 0 ? i : in.Byte()));
  EXPECT_EQ(ItemsOf(SqlClauses::DecomposeInClause(u"f", list, false), u" In(", 1000), list);
  const Text quoted = SqlClauses::DecomposeInClause(u"f", list, true);
  EXPECT_EQ(ReplaceText(ItemsOf(quoted, u" In(", 1000), u"'", u""), list);
  EXPECT_EQ(CountUnit(quoted, u'\''), static_cast<std::size_t>(count) * 2);
  EXPECT_EQ(ItemsOf(SqlClauses::SplitInClause(list, u",", u"f"), u" IN (", 1000), list);
  EXPECT_EQ(ItemsOf(CodeCondition(u"T", u"X", list, u"X"), u" IN (", 1001), list);
}

// Number by number over the growing text: that is how it is defined.
void CheckPlaceholders(Input& in) {
  static constexpr TextView kPieces[] = {u"{", u"}", u"{0}", u"{1}",  u"{2}",
                                         u"0", u"1", u"a",   u"{10}", u"{01}"};
  std::vector<Text> values;
  for (int i = in.Below(4) + (in.Below(8) == 0 ? 9 : 0); i > 0; --i)
    values.push_back(in.Pieces(kPieces, 3));
  const Text format = in.Pieces(kPieces, 8);
  Text expected = format;
  for (std::size_t i = 0; i < values.size() && expected.size() < 100000; ++i)
    expected = ReplaceText(expected, Join(u"{", i, u"}"), values[i]);
  EXPECT_EQ(SqlClauses::FormatString(format, values), expected);
}

void CheckConditions(Input& in) {
  static constexpr TextView kPieces[] = {u"a = 1", u" Or ", u"(", u")", u"'", u" or ", u"or", u" "};
  const Text sql = in.Pieces(kPieces, 8);
  const Text once = Bracketed(sql);
  EXPECT_TRUE(once == sql || once == Join(u"(", sql, u")"));
  EXPECT_EQ(SqlClauses::FormatCond(sql),
            TrimBlanks(sql).empty() ? u" AND 1=1 " : Join(u" AND ", sql, u" "));
  EXPECT_EQ(SqlClauses::FormatLink(sql, once, u"+").size(),
            sql.empty() ? 0 : sql.size() + once.size() + 1);

  static constexpr TextView kDates[] = {u"2004-03-17", u"2003/1/5", u"x", u" ",
                                        u"1899-12-30", u"1800-1-1", u""};
  const Text begin = in.Pieces(kDates, 1);
  const Text end = in.Pieces(kDates, 1);
  const Text range = SqlClauses::FormatDateCond(u"d", begin, end, in.Bool());
  EXPECT_TRUE(CountUnit(range, u'\'') == 2 * CountUnit(range, u'=')) << ToUtf8(range);
}

}  // namespace

FUZZ_TARGET(Clauses) {
  CheckPlaceholders(in);
  CheckConditions(in);
  // Long lists are slow to check: one of four.
  if (in.Below(4) == 3) CheckLists(in);
}

}  // namespace fetchkit::test
