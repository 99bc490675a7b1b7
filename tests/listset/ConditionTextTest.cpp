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
  for (const auto& row : Lines<11>(R"(
text equals¦STRING¦摘要¦¦等于 v¦v¦¦strStringOp=1, strString1='v'¦=¦=¦c = 'v'
text equals on a code finds the codes below¦STRING¦科目编码¦¦等于 v¦v¦¦strStringOp=1, strString1='v'¦=¦=¦(c = 'v' or c LIKE 'v-%')
a class goes by its own caption¦STRING¦车间编号¦¦等于 v¦v¦¦strStringOp=1, strString1='v'¦=¦=¦(c = 'v' or c LIKE 'v-%')
full names do not descend¦STRING¦科目全称¦¦等于 v¦v¦¦strStringOp=1, strString1='v'¦=¦=¦c = 'v'
other comparisons of codes do not descend¦STRING¦编码¦¦大于等于 v¦v¦¦strStringOp=4, strString1='v'¦=¦=¦c >= 'v'
unlike¦string¦摘要¦¦不等于 v w¦v w¦¦strStringOp=9, strString1='v w'¦=¦=¦c <> 'v w'
begins with: a blank behind the quote¦STRING¦摘要¦¦打头字符为 v¦v¦¦strStringOp=6, strString1='v'¦=¦=¦c like 'v%' 
contains¦STRING¦摘要¦¦包含字符 v¦v¦¦strStringOp=7, strString1='v'¦=¦=¦c like '%v%'
similar¦STRING¦摘要¦¦类似于 v¦v¦¦strStringOp=8, strString1='v'¦=¦=¦(c like 'v%')
text between is stored as 10¦STRING¦摘要¦¦介于 f,t¦f,t¦¦strStringOp=10, strString1='f', strString2='t'¦=¦=¦(c > 'f' And c < 't')
no text¦STRING¦摘要¦¦空值¦¦¦strStringOp=11, strString1=''¦=¦=¦(c is NULL  or LTRIM(Rtrim(c)) Is Null)
a value that holds the word for none¦STRING¦摘要¦¦等于 报销空值说明¦报销空值说明¦¦strStringOp=1, strString1='报销空值说明'¦=¦=¦c = '报销空值说明'
the mark of a pair counts in a value, too¦STRING¦摘要¦¦等于 介于 5¦介于 5¦¦strStringOp=10, strString1='介于 5', strString2=''¦介于 介于 5,¦介于 5,¦
number¦DOUBLE¦金额¦¦大于 100.5¦100.5¦¦strDoubleOP=2, dbldouble1=100.5¦=¦=¦c > 100.5
number between is stored as 6¦Long¦数量¦¦介于 5,9¦5,9¦¦strDoubleOP=6, dbldouble1=5, dbldouble2=9¦=¦=¦(c > 5 And c < 9)
zero or nothing is stored as 7¦INTEGER¦数量¦¦零或空值¦¦¦strDoubleOP=7, dbldouble1=0¦=¦=¦ (c IS NULL OR c =0) 
yes¦BOOLEAN¦过账¦¦是¦是¦¦blnBoolean=1¦=¦=¦c = '是'
no¦BOOLEAN¦过账¦¦否¦否¦¦blnBoolean=0¦=¦=¦c = '否'
a keyword gets its new range¦PERIOD¦日期¦¦本月¦2003-01-01,2003-01-31¦¦strDateOp='6', dtmDate1='2003-01-01', dtmDate2='2003-01-31'¦=¦2004-03-01,2004-03-31¦(c >='2004-03-01' And c <= '2004-03-31')
a keyword that has no range keeps its dates¦PERIOD¦日期¦¦年初至本期¦2004-01-01,2004-03-31¦¦strDateOp='24', dtmDate1='2004-01-01', dtmDate2='2004-03-31'¦=¦=¦(c >='2004-01-01' And c <= '2004-03-31')
custom range saves no code¦PERIOD¦日期¦¦自定义 (2004-01-01,2004-02-29)¦2004-01-01,2004-02-29¦¦strDateOp='', dtmDate1='2004-01-01', dtmDate2='2004-02-29'¦=¦=¦(c >='2004-01-01' And c <= '2004-02-29')
a keyword without a code reads back as its dates¦PERIOD¦日期¦¦去年同期¦2003-03-01,2003-03-31¦¦strDateOp='', dtmDate1='2003-03-01', dtmDate2='2003-03-31'¦自定义 (2003-03-01,2003-03-31)¦=¦(c >='2003-03-01' And c <= '2003-03-31')
all dates are no condition¦PERIOD¦日期¦¦所有¦¦¦strDateOp='18', dtmDate1='', dtmDate2=''¦¦=¦
date¦DATE¦日期¦¦2004-03-17¦2004-03-17¦¦strDateOp='0', dtmDate1='2004-03-17'¦=¦=¦c = '2004-03-17'
one code¦CODE¦部门¦Department¦财务部¦0,12¦12¦blnIsMuliCond=0¦=¦=¦T.lngDepartmentID IN (12)
several codes¦CODE¦统计¦CLASS1¦甲 乙¦1,12,15¦12,15¦blnIsMuliCond=1¦=¦=¦T.lngCLASSID IN (12,15)
code without ids¦CODE¦部门¦DEPARTMENT¦财务部¦0,¦¦blnIsMuliCond=0¦=¦=¦
flexible field¦CODE¦智能字段¦FLEXIBLEFIELD07¦甲¦0,3¦3¦blnIsMuliCond=0¦=¦=¦T.lngFieldID IN (3)
manufacturing table¦CODE¦工艺¦mmRoute¦甲¦0,3¦3¦blnIsMuliCond=0¦=¦=¦T.lngRouteID IN (3)
fixed word of the accounts¦CODE¦科目¦ACCOUNT¦现金¦0,现金¦现金¦blnIsMuliCond=0¦=¦=¦T.lngAccountNatureID=1
several words of the accounts¦CODE¦科目¦ACCOUNT¦现金 银行¦1,现金,银行¦现金,银行¦blnIsMuliCond=1¦=¦=¦(T.lngAccountNatureID=1 Or T.lngAccountNatureID=2)
one value¦ENUM¦状态¦¦已审¦0,'3'¦¦strString1='已审', strString2='''3'''¦=¦=¦c in ('3')
the value without a text¦ENUM¦状态¦¦''¦0,''¦¦strString1='', strString2=''''''¦=¦=¦c in ('')
a list that holds its own mark is taken as it is¦ENUM¦状态¦¦已审¦0,0,3¦¦strString1='已审', strString2='0,3'¦=¦0,3¦c in (3)
flags of the auxiliary accounting¦ENUM¦辅助核算¦¦单位,部门¦1,'单位','部门'¦¦strString1='单位,部门', strString2='''单位'',''部门'''¦=¦=¦(T.blnIsCustomer=1  Or T.blnIsDepartment=1 )
a value without a flag¦ENUM¦辅助核算¦¦其它¦0,'其它'¦¦strString1='其它', strString2='''其它'''¦=¦=¦ 1>2 
a text without its value restricts nothing¦STRING¦科目编码¦¦等于¦¦¦strStringOp=1, strString1=''¦=¦=¦
a text that begins with nothing¦STRING¦摘要¦¦打头字符为¦¦¦strStringOp=6, strString1=''¦=¦=¦
texts between, only up¦STRING¦摘要¦¦介于 ,t¦,t¦¦strStringOp=10, strString1='', strString2='t'¦=¦=¦
a missing number is Null¦LONG¦数量¦¦大于¦¦¦strDoubleOP=2, dbldouble1=Null¦=¦=¦
numbers between, only down¦LONG¦数量¦¦介于 5,¦5,¦¦strDoubleOP=6, dbldouble1=5, dbldouble2=Null¦=¦=¦
numbers between nothing¦LONG¦数量¦¦介于 ,¦,¦¦strDoubleOP=6, dbldouble1=Null, dbldouble2=Null¦=¦=¦
a number has no beginning: a pair without its end¦LONG¦数量¦¦打头字符为 5¦5¦¦strDoubleOP=6, dbldouble1=5, dbldouble2=Null¦介于 5,¦5,¦
custom range with only an end¦PERIOD¦日期¦¦自定义 (,2004-02-29)¦,2004-02-29¦¦strDateOp='', dtmDate1='', dtmDate2='2004-02-29'¦=¦=¦
a keyword without range and dates¦PERIOD¦日期¦¦年初至本期¦,¦¦strDateOp='24', dtmDate1='', dtmDate2=''¦=¦=¦
no date is no condition¦DATE¦日期¦¦¦¦¦strDateOp='0', dtmDate1=''¦=¦=¦
unknown type¦BLOB¦其它¦¦等于 v¦v¦¦¦=¦=¦
unknown word¦LONG¦数量¦¦大概 5¦5¦¦strDoubleOP=, dbldouble1=5¦¦¦)")) {
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
  const Text sql = CodeCondition(u"T", u"X", idsTo(1002), u"X");
  EXPECT_EQ(sql.substr(0, 19), u"T.lngXID IN (1,2,3,");
  EXPECT_EQ(sql.substr(sql.size() - 10), u"1001,1002)");
  EXPECT_NE(sql.find(u"799,800) or T.lngXID IN (801,"), Text::npos);
  EXPECT_EQ(Bracketed(sql), Join(u"(", sql, u")"));
  EXPECT_EQ(CodeCondition(u"T", u"X", u"", u"X"), u"");
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
