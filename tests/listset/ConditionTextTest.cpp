#include "fetchkit/listset/model/ConditionText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/FieldType.h"
#include "support/Lines.h"
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

// The operator word as it is stored, filtered by and shown again.
TEST(ConditionText, WordsCodesAndMachineForms) {
  for (const auto& [shown, stored, filteredBy, shownAgain] : Lines<4>(R"(
等于 a b¦等于¦等于¦等于
 大于 5 ¦大于¦¦
零或空值¦零或空值¦零或空值¦零或空值
空值 ¦空值¦空值¦空值
等于 空值 x¦等于¦等于¦等于
等于¦等于¦¦等于)")) {
    SCOPED_TRACE(shown);
    const Text text = FromUtf8(shown);
    EXPECT_EQ(ToUtf8(WordToStore(text)), stored);
    EXPECT_EQ(ToUtf8(WordToFilterBy(text)), filteredBy);
    EXPECT_EQ(ToUtf8(WordToShow(text)), shownAgain);
  }
  for (const auto& [word, code] : Lines<2>(R"(
介于¦6
零或空值¦7
空值¦11
本月下旬¦22
去年同期¦
等于 ¦
¦)"))
    EXPECT_EQ(ToUtf8(CondStrToNum(FromUtf8(word))), code) << word << ": compared whole";
  EXPECT_EQ(SecondValueOf(u"a,b,c"), u"b,c");
  EXPECT_EQ(SecondValueOf(u"a"), u"");
  EXPECT_EQ(ConditionRowText(u"空值", u"5"), u"空值");
  EXPECT_EQ(ReadChoice(u"2,5").mark, u"2") << "stored as it stands";
  EXPECT_EQ(ReadChoice(u"1").items, u"");
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
  EXPECT_NE(CodeCondition(u"T", u"X", idsTo(1002), u"X").find(u"799,800) or T.lngXID IN (801,"),
            Text::npos);
}

TEST(CodeConditions, SpecialTablesAndBrackets) {
  // The condition is "-" for plain ids.
  for (const auto& [table, ids, expected] : Lines<3>(R"(
Account¦一级科目¦T.intLevel=1
ACCOUNT¦现金,'银行'¦T.lngAccountNatureID=1 Or T.lngAccountNatureID=2
ACCOUNT¦现金,其他¦-
ACCOUNT¦3,4¦-
CUSTOMER¦客户¦T.strCategory='2'
CUSTOMER¦散户¦T.strCategory='0'
CUSTOMER¦5¦-
CURRENCYS¦1,2¦T.lngCurrencyID IN(1,2)
CURRENCYS¦RMB,USD¦c in ('RMB','USD')
CURRENCYS¦本位币¦T.lngCurrencyID IN(7)
OPERATOR¦'空值'¦T.lngOperatorID IS NULL
DEPARTMENT¦现金¦-)")) {
    const auto sql = FixedCodeCondition(u"T", u"c", FromUtf8(table), FromUtf8(ids), 7);
    EXPECT_EQ(ToUtf8(sql.value_or(u"-")), expected) << table << " " << ids;
  }
  EXPECT_EQ(CodeCondition(u"T", u"AssetType", u"5-1", u"AssetType"),
            u"T.lngAssetTypeID = 5 And T.lngAssetKindID=1");
  EXPECT_EQ(CodeCondition(u"T", u"AssetType", u"5-1,6-2", u"ASSETTYPE"),
            u"(T.lngAssetTypeID =5 And T.lngAssetKindID =1) Or "
            u"(T.lngAssetTypeID =6 And T.lngAssetKindID =2)");
  for (const TextView whole : {u"c = 'a or b'", u"(a or b)", u""})
    EXPECT_EQ(Bracketed(Text(whole)), whole);
  EXPECT_EQ(Bracketed(u"(a) Or (b)"), u"((a) Or (b))") << "a bare or";
}

}  // namespace
}  // namespace fetchkit::test
