#include "fetchkit/utility/ListSearch.h"

#include <gtest/gtest.h>

#include <map>

#include "support/FailingAllocations.h"
#include "support/Lines.h"

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
  static const std::map<std::string, SearchRank> kRanks = {
      {"None", SearchRank::None}, {"Inside", SearchRank::Inside}, {"Begins", SearchRank::Begins}};
  for (const auto& [name, text, typed, rank] : Lines<4>(
#include "utility/ListSearchRules.txt"
           ))
    EXPECT_EQ(RankOf(FromUtf8(text), FromUtf8(typed)), kRanks.at(rank)) << name;
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
