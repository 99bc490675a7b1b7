#include "fetchkit/utility/SqlClauses.h"

#include <gtest/gtest.h>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::MUtility {
namespace {

// "first,first+1,...,last", each between the quotes.
Text Items(int first, int last, TextView quote = u"", TextView separator = u",") {
  Text items;
  for (int item = first; item <= last; ++item)
    items.append(Join(item > first ? separator : u"", quote, item, quote));
  return items;
}

TEST(SqlClauses, DecomposeShortLists) {
  const struct {
    const char* name;
    TextView list;
    bool quoted;
    Value whenEmpty;
    TextView expected;
  } kRows[] = {
      {"the blank before the last bracket stays", u"1,2,3", false, {}, u"(f In(1,2,3) )"},
      {"quoted", u"A,B", true, {}, u"(f In('A','B') )"},
      {"items stay untrimmed", u" 1, 2 ", false, {}, u"(f In( 1, 2 ) )"},
      {"also between quotes", u" A, B ", true, {}, u"(f In(' A',' B ') )"},
      {"empty items are items", u",1,", true, {}, u"(f In('','1','') )"},
      {"a quote inside is not doubled", u"O'Hara", true, {}, u"(f In('O'Hara') )"},
      {"empty list", u"", false, std::int32_t{-1}, u"(f In(-1) )"},
      {"a list of blanks is empty", u"  ", true, u"-1", u"(f In('-1') )"},
      {"the stand-in is not cut", u"", true, u"a,b", u"(f In('a,b') )"},
      {"no stand-in given", u"", false, MissingValue(), u"(f In() )"},
      {"a stand-in that is no text", u"", false, Value(ValueArray{}), u""},
      {"not looked at while there is a list", u"1", false, Value(ValueArray{}), u"(f In(1) )"},
  };
  for (const auto& row : kRows)
    EXPECT_EQ(ToUtf8(DecomposeInClause(u"f", row.list, row.quoted, row.whenEmpty)),
              ToUtf8(row.expected))
        << row.name;
  EXPECT_EQ(DecomposeInClause(u"f", u"", false), u"(f In() )");
}

TEST(SqlClauses, DecomposeGroups) {
  for (const TextView quote : {u"", u"'"}) {
    const bool quoted = !quote.empty();
    const auto decomposed = [&](int items) {
      return ToUtf8(DecomposeInClause(u"c", Items(1, items), quoted));
    };
    EXPECT_EQ(decomposed(1000), ToUtf8(Join(u"(c In(", Items(1, 1000, quote), u") )")))
        << "1000 items are one group yet";
    EXPECT_EQ(decomposed(1001), ToUtf8(Join(u"(c In(", Items(1, 999, quote), u") OR c In(",
                                            Items(1000, 1001, quote), u") )")));
    EXPECT_EQ(decomposed(1999), ToUtf8(Join(u"(c In(", Items(1, 999, quote), u") OR c In(",
                                            Items(1000, 1999, quote), u") )")));
    EXPECT_EQ(decomposed(2000),
              ToUtf8(Join(u"(c In(", Items(1, 999, quote), u") OR c In(", Items(1000, 1999, quote),
                          u") OR c In(", Items(2000, 2000, quote), u") )")));
  }
  EXPECT_EQ(DecomposeInClause(u"c", Items(1, 999) + u",", true),
            Join(u"(c In(", Items(1, 999, u"'"), u",'') )"));
  EXPECT_EQ(DecomposeInClause(u"c", Items(1, 1999) + u",", true),
            Join(u"(c In(", Items(1, 999, u"'"), u") OR c In(", Items(1000, 1999, u"'"),
                 u") OR c In('') )"))
      << "a group of one empty item";
}

TEST(SqlClauses, Split) {
  EXPECT_EQ(SplitInClause(u"1, 2", u",", u"c"), u"c IN (1, 2)");
  EXPECT_EQ(SplitInClause(u"", u",", u"c"), u"c IN ()");
  EXPECT_EQ(SplitInClause(u"1,2", u"", u"c"), u"c IN (1,2)");
  for (const TextView separator : {u",", u"$", u"--"}) {
    const auto split = [&](int items) {
      return ToUtf8(SplitInClause(Items(1, items, u"", separator), separator, u"c"));
    };
    EXPECT_EQ(split(999), ToUtf8(Join(u"c IN (", Items(1, 999, u"", separator), u")")))
        << "a short list keeps its separators";
    EXPECT_EQ(split(1000),
              ToUtf8(Join(u"c IN (", Items(1, 800), u") Or c IN (", Items(801, 1000), u")")));
    EXPECT_EQ(split(1600),
              ToUtf8(Join(u"c IN (", Items(1, 800), u") Or c IN (", Items(801, 1600), u")")))
        << "no empty group behind the last full one";
    EXPECT_EQ(split(1601), ToUtf8(Join(u"c IN (", Items(1, 800), u") Or c IN (", Items(801, 1600),
                                       u") Or c IN (1601)")));
  }
}

TEST(SqlClauses, DateCondition) {
  const struct {
    const char* name;
    TextView begin, end;
    bool showAnd;
    TextView expected;
  } kRows[] = {
      {"both", u"2004-01-01", u"2004-03-31", true, u" And d>='2004-01-01' And d<='2004-03-31'"},
      {"both, no prefix", u"2004-01-01", u"2004-03-31", false,
       u"d>='2004-01-01' And d<='2004-03-31'"},
      {"begin alone", u"2004-01-01", u"", true, u" And d>='2004-01-01'"},
      {"end alone", u"", u"2004-03-31", true, u" And d<='2004-03-31'"},
      {"end alone, no prefix", u"", u"2004-03-31", false, u"d<='2004-03-31'"},
      {"no dates, no prefix either", u"", u"", true, u""},
      {"other forms are written alike", u"2004/1/5", u"2004年2月9日", false,
       u"d>='2004-01-05' And d<='2004-02-09'"},
      {"the time of day goes", u"2004-01-01 08:30", u"2004-03-31 23:59:59", false,
       u"d>='2004-01-01' And d<='2004-03-31'"},
      {"an end on day 0 is none", u"2004-01-01", u"1899-12-30", true, u" And d>='2004-01-01'"},
      {"at noon of day 0 too", u"", u"1899-12-30 12:00", true, u""},
      {"day 1 is one", u"", u"1899-12-31", false, u"d<='1899-12-31'"},
      {"an end that is no date is none", u"2004-01-01", u"所有", true, u" And d>='2004-01-01'"},
      {"nor without a begin", u"", u"2004-02-30", true, u""},
      {"a begin that is no date spoils all", u"2004-02-30", u"2004-03-31", true, u""},
      {"a begin before day 0 is a date", u"1898-01-01", u"", false, u"d>='1898-01-01'"},
  };
  for (const auto& row : kRows)
    EXPECT_EQ(ToUtf8(FormatDateCond(u"d", row.begin, row.end, row.showAnd)), ToUtf8(row.expected))
        << row.name;
}

TEST(SqlClauses, PrefixAndLink) {
  EXPECT_EQ(FormatCond(u"a=1"), u" AND a=1 ");
  EXPECT_EQ(FormatCond(u" a=1 "), u" AND  a=1  ");
  EXPECT_EQ(FormatCond(u""), u" AND 1=1 ");
  EXPECT_EQ(FormatCond(u"   "), u" AND 1=1 ");

  EXPECT_EQ(FormatLink(u"b=2", u"a=1", u" Or "), u"a=1 Or b=2") << "the clause comes last";
  EXPECT_EQ(FormatLink(u"", u"a=1", u" Or "), u"a=1");
  EXPECT_EQ(FormatLink(u"b=2", u"", u" Or "), u"b=2");
  EXPECT_EQ(FormatLink(u"", u"", u" Or "), u"");
  EXPECT_EQ(FormatLink(u" ", u"a=1", u" Or "), u"a=1 Or  ") << "a blank is not empty";
}

TEST(SqlClauses, FormatString) {
  const struct {
    const char* name;
    TextView format;
    std::vector<Text> values;
    TextView expected;
  } kRows[] = {
      {"each wherever it stands", u"{1} {0} {1}", {u"a", u"b"}, u"b a b"},
      {"without a value it stays", u"{0}{2}{x}{}{", {u"a", u"b"}, u"a{2}{x}{}{"},
      {"the number is written plainly", u"{00}{ 0}{+0}{0}", {u"a"}, u"{00}{ 0}{+0}a"},
      {"two digits",
       u"{10}{1}",
       {u"0", u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"ten"},
       u"ten1"},
      {"a later number inside a value is replaced", u"{0}", {u"<{1}>", u"b"}, u"<b>"},
      {"an earlier one is not", u"{1}{0}", {u"a", u"{0}{1}"}, u"{0}{1}a"},
      {"a chain", u"{0}", {u"{1}{1}", u"{2}", u"x"}, u"xx"},
      {"a placeholder that a value completes from within", u"{{0}}", {u"1", u"b"}, u"b"},
      {"with digits in front of the value", u"{1{0}}", {u"0", u"b"}, u"{10}"},
      {"two values make one", u"{0}1}", {u"{", u"b"}, u"b"},
      {"an empty value closes the gap", u"{{0}1}", {u"", u"b"}, u"b"},
      {"braces that are no placeholder", u"{0}-{1}", {u"{AB-1}", u"}{"}, u"{AB-1}-}{"},
      {"no values", u"{0}", {}, u"{0}"},
      {"empty format", u"", {u"a"}, u""},
      {"a number beyond any", u"{99999999999999999999999}", {u"a"}, u"{99999999999999999999999}"},
  };
  for (const auto& row : kRows)
    EXPECT_EQ(ToUtf8(FormatString(row.format, row.values)), ToUtf8(row.expected)) << row.name;
}

TEST(SqlClauses, FormatStringFromAnArray) {
  const ValueArray fromOne{true, 1, {Value(std::int32_t{7}), Value(2.5), Value()}};
  EXPECT_EQ(FormatString(u"{0}/{1}/{2}/{3}", Value(fromOne)), u"7/2.5//{3}");
  EXPECT_EQ(FormatString(u"{0}", Value(ValueArray{})), u"{0}");
  EXPECT_EQ(FormatString(u"{0}", Value(ValueArray{true, 0, {Value(NullValue())}})), u"");
  EXPECT_EQ(FormatString(u"{0}", Value(u"no array")), u"");
}

}  // namespace
}  // namespace fetchkit::MUtility
