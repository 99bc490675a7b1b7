#include "fetchkit/listset/model/ConditionText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/FieldType.h"
#include "support/Play.h"
#include "support/StoredConditions.h"

namespace fetchkit::test {
namespace {

using testing::ElementsAre;

std::string Written(const ListFieldType& field) {
  std::string all;
  for (const StoredColumn& column : StoredColumnsOf(field))
    all += (all.empty() ? "" : ", ") + ToUtf8(column.name) + "=" + ToUtf8(column.value);
  return all;
}

// Type, caption, keyword, shown and machine form as the dialog leaves them, ids; the columns that
// are written; shown form, machine form and SQL that are read back, "=" for a form that is the
// same.
TEST(ConditionText, RoundTripOfEveryKind) {
  ConditionContext context;
  context.dateRange = [](TextView word, Text& from, Text& to) {
    if (word != u"本月") return false;
    from = u"2004-03-01";
    to = u"2004-03-31";
    return true;
  };
  context.class1Name = u"车间";
  context.class2Name = u"工程";
  context.naturalCurrencyId = 7;
  for (const auto& row : Lines<11>(
#include "listset/RoundTrips.txt"
           )) {
    SCOPED_TRACE(row[0]);
    ListFieldType field;
    field.strFieldName = u"c";
    field.strTableName = u"T";
    Text* const given[] = {&field.strFieldType, &field.strListFieldDesc, &field.strKeyField,
                           &field.strFilter,    &field.strExtValue,      &field.strCodeID};
    for (std::size_t i = 0; i < std::size(given); ++i)
      *given[i] = FromUtf8(row[i + 1]);
    EXPECT_EQ(Written(field), row[7]);
    const Text sql = RestoreCondition(ReadBack(field), context, field);
    EXPECT_EQ(ToUtf8(sql), row[10]);
    EXPECT_EQ(ToUtf8(field.strFilter), row[8] == "=" ? row[4] : row[8]);
    EXPECT_EQ(ToUtf8(field.strExtValue), row[9] == "=" ? row[5] : row[9]);
    EXPECT_EQ(ToUtf8(field.strCodeID), row[6]);
    EXPECT_EQ(field.blnIsMuliCond, row[1] == "CODE" && row[5][0] == '1');
  }
}

TEST(ConditionText, AnApostropheStoredForTheValueWithoutATextIsShownAsThatValue) {
  StoredCondition stored;
  stored.string1 = u"'";
  stored.string2 = u"''";
  ListFieldType field;
  field.strFieldType = u"ENUM";
  RestoreCondition(stored, {}, field);
  EXPECT_EQ(field.strFilter, u"''");
}

TEST(CodeConditions, LongListsAreCutByTheHighestIndex) {
  const auto idsTo = [](int count) {
    Text ids = u"1";
    for (int i = 2; i <= count; ++i)
      ids += Join(u",", i);
    return ids;
  };
  const auto sizes = [&](int count) {
    const Text sql = CodeCondition(u"T", u"X", idsTo(count), u"X");
    std::vector<std::size_t> ids;
    for (const TextView chunk : Split(sql, u" or "))
      ids.push_back(Split(chunk, u",").size());
    return ids;
  };
  EXPECT_THAT(sizes(1001), ElementsAre(1001));
  EXPECT_THAT(sizes(1002), ElementsAre(800, 202));
  EXPECT_THAT(sizes(1601), ElementsAre(800, 801)) << "no id is lost";
  EXPECT_THAT(sizes(2400), ElementsAre(800, 800, 800));
  const Text two = CodeCondition(u"T", u"X", idsTo(1002), u"X");
  EXPECT_TRUE(two.starts_with(u"T.lngXID IN (1,2,")) << ToUtf8(two.substr(0, 30));
  EXPECT_NE(two.find(u"799,800) or T.lngXID IN (801,"), Text::npos);
}

// clang-format off
#define PLAY(function) {#function, Play(function)}

const std::map<std::string, Played> kFunctions = {
    PLAY(WordToStore), PLAY(WordToFilterBy), PLAY(WordToShow), PLAY(CondStrToNum),
    PLAY(SecondValueOf), PLAY(ConditionRowText), PLAY(CodeCondition), PLAY(FixedCodeCondition),
    PLAY(Bracketed)};
// clang-format on

TEST(ConditionText, Functions) {
  PlayLines(kFunctions,
#include "listset/ConditionFunctions.txt"
  );
  EXPECT_EQ(ReadChoice(u"2,5").mark, u"2") << "stored as it stands";
  EXPECT_EQ(ReadChoice(u"1").items, u"");
}

}  // namespace
}  // namespace fetchkit::test
