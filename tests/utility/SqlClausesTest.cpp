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

// More values are checked by the fuzz target Texts.
TEST_F(SqlClauses, FormatString) {
  const std::vector<Text> values = {u"{", u"b"};
  EXPECT_EQ(FormatString(u"{0}1}", values), u"b") << "two values make one placeholder";
  for (const TextView none : {u"{99999999999999999999999}", u"{01}", u"{}", u"{1"})
    EXPECT_EQ(FormatString(none, values), none);
  const ValueArray fromOne{true, 1, {Value(std::int32_t{7}), Value(2.5), Value()}};
  EXPECT_EQ(FormatString(u"{0}/{1}/{2}/{3}", Value(fromOne)), u"7/2.5//{3}");
  EXPECT_EQ(FormatString(u"{0}", Value(ValueArray{})), u"{0}");
  EXPECT_EQ(FormatString(u"{0}", Value(ValueArray{true, 0, {Value(NullValue())}})), u"");
  EXPECT_EQ(FormatString(u"{0}", Value(u"no array")), u"");
}

}  // namespace
}  // namespace fetchkit::test
