#include "fetchkit/utility/ListSearch.h"

#include <gtest/gtest.h>

#include "support/FailingAllocations.h"
#include "support/Lines.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

// Captions and company names with what a user types for them.
const auto kCaptions = Lines<2>(
#include "utility/ListSearch.txt"
);

struct ListSearchTest : testing::Test {
  SearchRank RankOf(TextView text, TextView typed) {
    search.SearchFor(typed);
    EXPECT_EQ(search.Begins(text), search.Rank(text) == SearchRank::Begins);
    return search.Rank(text);
  }

  ListSearch search;
};

TEST_F(ListSearchTest, CaptionsAreFoundByTheirInitials) {
  EXPECT_GE(kCaptions.size(), 200U);
  for (const auto& [caption, initials] : kCaptions) {
    SCOPED_TRACE(caption);
    EXPECT_EQ(RankOf(FromUtf8(caption), FromUtf8(initials)), SearchRank::Begins);
    EXPECT_NE(RankOf(FromUtf8(caption), FromUtf8(initials.substr(1))), SearchRank::None);
    EXPECT_EQ(RankOf(FromUtf8(caption), FromUtf8(initials + "x")), SearchRank::None);
  }
}

TEST_F(ListSearchTest, Rules) {
  using enum SearchRank;
  Table<TextView, TextView, SearchRank>{
      {"the text itself", u"银行存款", u"存款", Inside},
      {"nothing typed is in every text", u"", u" ", Begins},
      {"more than the text", u"银行", u"yhc", None},
      {"initials in their order only", u"银行存款", u"hy", None},
      {"each reading of a character", u"会计", u"kj", Begins},
      {"one reading is not another's", u"会计", u"gj", None},
      {"a beginning that goes wrong hides no later one", u"银银行", u"yh", Inside},
      {"in any case and width", u"ＩＰ地址 b", u"ipＤＺ　Ｂ", Begins},
      {"blanks around what was typed", u"银行存款", u"　ck ", Inside},
      {"initials beside the characters themselves", u"银行存款", u"银h", Begins},
      {"a mark as typed", u"现金-人民币", u"xj-r", Begins},
      {"a mark is left out beside an initial", u"（新）客户", u"xkh", Begins},
      {"before a letter, too", u"客户 A", u"kha", Begins},
      {"and behind one", u"A 客户", u"akh", Begins},
      {"but not between digits", u"100 2号库", u"1002", None},
      {"nor with an initial behind them", u"100 2号库", u"1002hk", None},
      {"digits stand for themselves", u"第10季度", u"d1j", None},
      {"a kana is no mark", u"银の行", u"yh", None},
      {"a character outside the code page", u"銀\xD840\xDC00行", u"yh", None},
      {"the ends of the table", u"丂齄郎﨩", u"kzl﨩", Begins},
      {"of which no reading is recorded", u"瓼瓼", u"l", None},
  }
      .Check([this](TextView text, TextView typed, SearchRank rank) {
        EXPECT_EQ(RankOf(text, typed), rank);
      });
}

TEST_F(ListSearchTest, EveryIdeographHasAnInitial) {
  std::vector<bool> found(0x9FA6);
  for (char16_t letter = u'a'; letter <= u'z'; ++letter) {
    search.SearchFor({&letter, 1});
    for (char16_t unit = 0x4E00; unit < found.size(); ++unit)
      if (search.Begins({&unit, 1})) found[unit] = true;
  }
  Text without;
  for (char16_t unit = 0x4E00; unit < found.size(); ++unit)
    if (!found[unit]) without.push_back(unit);
  // Of these no reading is recorded.
  EXPECT_EQ(ToUtf8(without), "兙兡嗧桛烪瓧瓰瓱瓼甅");
}

TEST_F(ListSearchTest, GoesToTheFirstThatBeginsWithItElseToTheFirstFound) {
  const std::vector<Text> list = {u"本期", u"期末余额", u"年末", u"期末", u"末级"};
  const auto first = [&](TextView typed) {
    search.SearchFor(typed);
    return ListSearch::FirstFound(static_cast<int>(list.size()), [&](int entry) {
      return search.Rank(list[static_cast<std::size_t>(entry)]);
    });
  };
  EXPECT_EQ(first(u"qm"), 1);
  EXPECT_EQ(first(u"m"), 4);
  EXPECT_EQ(first(u"末余"), 1);
  EXPECT_EQ(first(u"x"), -1);
}

TEST_F(ListSearchTest, ALookAllocatesNothing) {
  search.SearchFor(u"yhck");
  const FailingAllocations counted(0);
  EXPECT_TRUE(search.Matches(u"工商银行存款"));
  EXPECT_EQ(counted.Count(), 0);
}

}  // namespace
}  // namespace fetchkit::test
