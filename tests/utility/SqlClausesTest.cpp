#include "fetchkit/utility/SqlClauses.h"

#include <gtest/gtest.h>

#include "fetchkit/base/Utf8.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

struct SqlClauses : testing::Test, fetchkit::SqlClauses {};

// "first,first+1,...,last", each between the quotes.
Text Items(int first, int last, TextView quote = u"", TextView separator = u",") {
  Text items;
  for (int item = first; item <= last; ++item)
    items.append(Join(item > first ? separator : u"", quote, item, quote));
  return items;
}

TEST_F(SqlClauses, DecomposeShortLists) {
  Table<TextView, bool, Value, TextView>{
      {"the blank before the last bracket stays", u"1,2,3", false, {}, u"(f In(1,2,3) )"},
      {"items stay untrimmed", u" A, B ", true, {}, u"(f In(' A',' B ') )"},
      {"a quote inside is not doubled", u"O'Hara", true, {}, u"(f In('O'Hara') )"},
      {"a list of blanks is empty", u"  ", true, u"-1", u"(f In('-1') )"},
      {"the stand-in is not cut", u"", true, u"a,b", u"(f In('a,b') )"},
      {"no stand-in given", u"", false, MissingValue(), u"(f In() )"},
      {"a stand-in that is no text", u"", false, Value(ValueArray{}), u""},
  }
      .Check([](TextView list, bool quoted, const Value& whenEmpty, TextView expected) {
        EXPECT_EQ(ToUtf8(DecomposeInClause(u"f", list, quoted, whenEmpty)), ToUtf8(expected));
      });
  EXPECT_EQ(DecomposeInClause(u"f", u"", false), u"(f In() )");
}

TEST_F(SqlClauses, DecomposeGroups) {
  for (const TextView quote : {u"", u"'"}) {
    const auto expect = [&](int items, const Text& groups) {
      EXPECT_EQ(ToUtf8(DecomposeInClause(u"c", Items(1, items), !quote.empty())),
                ToUtf8(Join(u"(c In(", groups, u") )")));
    };
    const auto two = [&](int last) {
      return Join(Items(1, 999, quote), u") OR c In(", Items(1000, last, quote));
    };
    expect(1000, Items(1, 1000, quote));  // one group yet
    expect(1001, two(1001));
    expect(1999, two(1999));
    expect(2000, Join(two(1999), u") OR c In(", Items(2000, 2000, quote)));
  }
  EXPECT_EQ(DecomposeInClause(u"c", Items(1, 1999) + u",", true),
            Join(u"(c In(", Items(1, 999, u"'"), u") OR c In(", Items(1000, 1999, u"'"),
                 u") OR c In('') )"))
      << "a group of one empty item";
}

TEST_F(SqlClauses, Split) {
  EXPECT_EQ(SplitInClause(u"1, 2", u",", u"c"), u"c IN (1, 2)");
  EXPECT_EQ(SplitInClause(u"1,2", u"", u"c"), u"c IN (1,2)");
  for (const TextView separator : {u",", u"$", u"--"}) {
    const auto expect = [&](int items, const Text& groups) {
      EXPECT_EQ(ToUtf8(SplitInClause(Items(1, items, u"", separator), separator, u"c")),
                ToUtf8(Join(u"c IN (", groups, u")")));
    };
    const auto two = [](int last) { return Join(Items(1, 800), u") Or c IN (", Items(801, last)); };
    expect(999, Items(1, 999, u"", separator));  // a short list keeps its separators
    expect(1000, two(1000));
    expect(1600, two(1600));  // no empty group behind the last full one
    expect(1601, Join(two(1600), u") Or c IN (1601"));
  }
}

TEST_F(SqlClauses, DateCondition) {
  Table<TextView, TextView, bool, TextView>{
      {"both", u"2004-01-01", u"2004-03-31", true, u" And d>='2004-01-01' And d<='2004-03-31'"},
      {"other forms are written alike, without a time", u"2004/1/5 08:30", u"2004年2月9日 23:59",
       false, u"d>='2004-01-05' And d<='2004-02-09'"},
      {"an end on day 0 is none", u"2004-01-01", u"1899-12-30", true, u" And d>='2004-01-01'"},
      {"day 1 is one", u"", u"1899-12-31", false, u"d<='1899-12-31'"},
      {"an end that is no date is none", u"2004-01-01", u"所有", true, u" And d>='2004-01-01'"},
      {"a begin that is no date spoils all", u"2004-02-30", u"2004-03-31", true, u""},
      {"a begin before day 0 is a date", u"1898-01-01", u"", false, u"d>='1898-01-01'"},
  }
      .Check([](TextView begin, TextView end, bool showAnd, TextView expected) {
        EXPECT_EQ(ToUtf8(FormatDateCond(u"d", begin, end, showAnd)), ToUtf8(expected));
      });
}

// FormatCond, and FormatString with more values, are checked by the fuzz target Clauses.
TEST_F(SqlClauses, Links) {
  EXPECT_EQ(FormatLink(u"b=2", u"a=1", u" Or "), u"a=1 Or b=2") << "the clause comes last";
  EXPECT_EQ(FormatLink(u"", u"a=1", u" Or "), u"a=1");
  EXPECT_EQ(FormatLink(u"b=2", u"", u" Or "), u"b=2");
  EXPECT_EQ(FormatLink(u" ", u"a=1", u" Or "), u"a=1 Or  ") << "a blank is not empty";
}

TEST_F(SqlClauses, FormatString) {
  const std::vector<Text> values = {u"{", u"b"};
  EXPECT_EQ(FormatString(u"{0}1}", values), u"b") << "two values make one placeholder";
  EXPECT_EQ(FormatString(u"{99999999999999999999999}", values), u"{99999999999999999999999}");
  const ValueArray fromOne{true, 1, {Value(std::int32_t{7}), Value(2.5), Value()}};
  EXPECT_EQ(FormatString(u"{0}/{1}/{2}/{3}", Value(fromOne)), u"7/2.5//{3}");
  EXPECT_EQ(FormatString(u"{0}", Value(ValueArray{})), u"{0}");
  EXPECT_EQ(FormatString(u"{0}", Value(ValueArray{true, 0, {Value(NullValue())}})), u"");
  EXPECT_EQ(FormatString(u"{0}", Value(u"no array")), u"");
}

}  // namespace
}  // namespace fetchkit::test
