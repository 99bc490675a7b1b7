#include "fetchkit/base/Text.h"

#include <gtest/gtest.h>

#include <limits>

#include "fetchkit/base/TextSearch.h"
#include "fetchkit/base/Utf8.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

TEST(TextBasics, JoinWritesNumbersPlainly) {
  EXPECT_EQ(Join(u"a", std::int32_t{-5}, Text(u"b"), TextView(u"c"), std::uint8_t{200}),
            u"a-5bc200");
  EXPECT_EQ(Join(std::numeric_limits<std::int64_t>::min(), u" ", 0), u"-9223372036854775808 0");
  const Text joined = Join(Text(100, u'x'), 7, Text(100, u'y'));
  EXPECT_EQ(joined.capacity(), joined.size()) << "one allocation of the right size";
}

TEST(TextBasics, Split) {
  EXPECT_EQ(Split(u"", u","), std::vector<TextView>());
  EXPECT_EQ(Split(u"aOrbOR", u"or", true), (std::vector<TextView>{u"a", u"b", u""}));
}

TEST(TextBasics, MoreHitsThanALaneOfABlockCanCount) {
  EXPECT_EQ(CountUnit(Text(1000003, u'a'), u'a'), 1000003u);
}

TEST(TextBasics, Utf8) {
  EXPECT_EQ(ToUtf8(u"aé本😀"), "aé本😀");
  EXPECT_EQ(FromUtf8("aé本😀"), u"aé本😀");
  EXPECT_EQ(ToUtf8(Text{0xD83D, u'a', 0xDE00}), "�a�");
  Table<std::string_view, TextView>{
      {"cut off", "\xE6\x9C", u"��"},        {"lone tail", "\x80z", u"�z"},
      {"overlong slash", "\xC0\xAF", u"��"}, {"encoded surrogate", "\xED\xA0\x80", u"���"},
      {"beyond Unicode", "\xF5\x80", u"��"}, {"tail missing", "\xE6z", u"�z"},
  }
      .Check(
          [](std::string_view bytes, TextView expected) { EXPECT_EQ(FromUtf8(bytes), expected); });
}

}  // namespace
}  // namespace fetchkit::test
