#include "fetchkit/listset/model/ConditionText.h"

#include <gtest/gtest.h>

#include <map>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/model/CodeConditions.h"

namespace fetchkit::test {
namespace {

// What a database makes of a written value: quotes gone, doubled ones single, '' and ' ' as read
// back through Null and the writer's blank.
Text Read(TextView sqlValue) {
  if (sqlValue.size() < 2 || sqlValue.front() != u'\'') return Text(sqlValue);
  Text text;
  for (std::size_t i = 1; i + 1 < sqlValue.size(); ++i) {
    text.push_back(sqlValue[i]);
    if (sqlValue[i] == u'\'') ++i;
  }
  return text;
}

StoredCondition ReadBack(const ListFieldType& field) {
  std::map<Text, Text> columns;
  for (const StoredColumn& column : StoredColumnsOf(field))
    columns[Text(column.name)] = Read(column.value);
  StoredCondition stored;
  stored.stringOp = columns[u"strStringOp"];
  stored.string1 = columns[u"strString1"];
  stored.string2 = columns[u"strString2"];
  stored.dateOp = columns[u"strDateOp"];
  stored.date1 = columns[u"dtmDate1"];
  stored.date2 = columns[u"dtmDate2"];
  stored.doubleOp = columns[u"strDoubleOP"];
  stored.double1 = columns[u"dbldouble1"];
  stored.double2 = columns[u"dbldouble2"];
  stored.boolean = columns[u"blnBoolean"] == u"1";
  stored.isMulti = columns[u"blnIsMuliCond"] == u"1";
  stored.codeIds = field.strCodeID.empty() ? u" " : field.strCodeID;
  stored.codeNames = field.strFilter;
  return stored;
}

std::string Written(const ListFieldType& field) {
  std::string all;
  for (const StoredColumn& column : StoredColumnsOf(field))
    all += (all.empty() ? "" : ", ") + ToUtf8(column.name) + "=" + ToUtf8(column.value);
  return all;
}

ConditionContext Context() {
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
  return context;
}

struct RoundTrip {
  const char* name;
  const char16_t* type;
  const char16_t* caption;
  const char16_t* keyField;
  const char16_t* filter;  // as the dialog leaves it
  const char16_t* extValue;
  const char16_t* codeIds;
  const char* written;
  const char16_t* filterBack;
  const char16_t* extValueBack;
  const char16_t* sql;
};

constexpr char16_t kNone[] = u"";

const RoundTrip kRoundTrips[] = {
    {"text equals", u"STRING", u"摘要", kNone, u"等于 v", u"v", kNone,
     "strStringOp=1, strString1='v'", u"等于 v", u"v", u"c = 'v'"},
    {"text equals on a code finds the codes below", u"STRING", u"科目编码", kNone, u"等于 v", u"v",
     kNone, "strStringOp=1, strString1='v'", u"等于 v", u"v", u"(c = 'v' or c LIKE 'v-%')"},
    {"a class goes by its own caption", u"STRING", u"车间编号", kNone, u"等于 v", u"v", kNone,
     "strStringOp=1, strString1='v'", u"等于 v", u"v", u"(c = 'v' or c LIKE 'v-%')"},
    {"full names do not descend", u"STRING", u"科目全称", kNone, u"等于 v", u"v", kNone,
     "strStringOp=1, strString1='v'", u"等于 v", u"v", u"c = 'v'"},
    {"other comparisons of codes do not descend", u"STRING", u"编码", kNone, u"大于等于 v", u"v",
     kNone, "strStringOp=4, strString1='v'", u"大于等于 v", u"v", u"c >= 'v'"},
    {"unlike", u"string", u"摘要", kNone, u"不等于 v w", u"v w", kNone,
     "strStringOp=9, strString1='v w'", u"不等于 v w", u"v w", u"c <> 'v w'"},
    {"begins with: a blank behind the quote", u"STRING", u"摘要", kNone, u"打头字符为 v", u"v",
     kNone, "strStringOp=6, strString1='v'", u"打头字符为 v", u"v", u"c like 'v%' "},
    {"contains", u"STRING", u"摘要", kNone, u"包含字符 v", u"v", kNone,
     "strStringOp=7, strString1='v'", u"包含字符 v", u"v", u"c like '%v%'"},
    {"similar", u"STRING", u"摘要", kNone, u"类似于 v", u"v", kNone,
     "strStringOp=8, strString1='v'", u"类似于 v", u"v", u"(c like 'v%')"},
    {"text between is stored as 10", u"STRING", u"摘要", kNone, u"介于 f,t", u"f,t", kNone,
     "strStringOp=10, strString1='f', strString2='t'", u"介于 f,t", u"f,t",
     u"(c > 'f' And c < 't')"},
    {"no text", u"STRING", u"摘要", kNone, u"空值", u"", kNone, "strStringOp=11, strString1=''",
     u"空值", u"", u"(c is NULL  or LTRIM(Rtrim(c)) Is Null)"},
    {"number", u"DOUBLE", u"金额", kNone, u"大于 100.5", u"100.5", kNone,
     "strDoubleOP=2, dbldouble1=100.5", u"大于 100.5", u"100.5", u"c > 100.5"},
    {"number between is stored as 6", u"Long", u"数量", kNone, u"介于 5,9", u"5,9", kNone,
     "strDoubleOP=6, dbldouble1=5, dbldouble2=9", u"介于 5,9", u"5,9", u"(c > 5 And c < 9)"},
    {"zero or nothing is stored as 7", u"INTEGER", u"数量", kNone, u"零或空值", u"", kNone,
     "strDoubleOP=7, dbldouble1=0", u"零或空值", u"", u" (c IS NULL OR c =0) "},
    {"yes", u"BOOLEAN", u"过账", kNone, u"是", u"是", kNone, "blnBoolean=1", u"是", u"是",
     u"c = '是'"},
    {"no", u"BOOLEAN", u"过账", kNone, u"否", u"否", kNone, "blnBoolean=0", u"否", u"否",
     u"c = '否'"},
    {"a keyword gets its new range", u"PERIOD", u"日期", kNone, u"本月", u"2003-01-01,2003-01-31",
     kNone, "strDateOp='6', dtmDate1='2003-01-01', dtmDate2='2003-01-31'", u"本月",
     u"2004-03-01,2004-03-31", u"(c >='2004-03-01' And c <= '2004-03-31')"},
    {"a keyword that has no range keeps its dates", u"PERIOD", u"日期", kNone, u"年初至本期",
     u"2004-01-01,2004-03-31", kNone,
     "strDateOp='24', dtmDate1='2004-01-01', dtmDate2='2004-03-31'", u"年初至本期",
     u"2004-01-01,2004-03-31", u"(c >='2004-01-01' And c <= '2004-03-31')"},
    {"custom range saves no code", u"PERIOD", u"日期", kNone, u"自定义 (2004-01-01,2004-02-29)",
     u"2004-01-01,2004-02-29", kNone, "strDateOp='', dtmDate1='2004-01-01', dtmDate2='2004-02-29'",
     u"自定义 (2004-01-01,2004-02-29)", u"2004-01-01,2004-02-29",
     u"(c >='2004-01-01' And c <= '2004-02-29')"},
    {"a keyword without a code reads back as its dates", u"PERIOD", u"日期", kNone, u"去年同期",
     u"2003-03-01,2003-03-31", kNone, "strDateOp='', dtmDate1='2003-03-01', dtmDate2='2003-03-31'",
     u"自定义 (2003-03-01,2003-03-31)", u"2003-03-01,2003-03-31",
     u"(c >='2003-03-01' And c <= '2003-03-31')"},
    {"all dates are no condition", u"PERIOD", u"日期", kNone, u"所有", u"", kNone,
     "strDateOp='18', dtmDate1='', dtmDate2=''", u"", u"", u""},
    {"date", u"DATE", u"日期", kNone, u"2004-03-17", u"2004-03-17", kNone,
     "strDateOp='0', dtmDate1='2004-03-17'", u"2004-03-17", u"2004-03-17", u"c = '2004-03-17'"},
    {"one code", u"CODE", u"部门", u"Department", u"财务部", u"0,12", u"12", "blnIsMuliCond=0",
     u"财务部", u"0,12", u"T.lngDepartmentID IN (12)"},
    {"several codes", u"CODE", u"统计", u"CLASS1", u"甲 乙", u"1,12,15", u"12,15",
     "blnIsMuliCond=1", u"甲 乙", u"1,12,15", u"T.lngCLASSID IN (12,15)"},
    {"code without ids", u"CODE", u"部门", u"DEPARTMENT", u"财务部", u"0,", u"", "blnIsMuliCond=0",
     u"财务部", u"0,", u""},
    {"flexible field", u"CODE", u"智能字段", u"FLEXIBLEFIELD07", u"甲", u"0,3", u"3",
     "blnIsMuliCond=0", u"甲", u"0,3", u"T.lngFieldID IN (3)"},
    {"manufacturing table", u"CODE", u"工艺", u"mmRoute", u"甲", u"0,3", u"3", "blnIsMuliCond=0",
     u"甲", u"0,3", u"T.lngRouteID IN (3)"},
    {"fixed word of the accounts", u"CODE", u"科目", u"ACCOUNT", u"现金", u"0,现金", u"现金",
     "blnIsMuliCond=0", u"现金", u"0,现金", u"T.lngAccountNatureID=1"},
    {"one value", u"ENUM", u"状态", kNone, u"已审", u"0,'3'", kNone,
     "strString1='已审', strString2='''3'''", u"已审", u"0,'3'", u"c in ('3')"},
    {"several values", u"ENUM", u"状态", kNone, u"已审,已记", u"1,'3','4'", kNone,
     "strString1='已审,已记', strString2='''3'',''4'''", u"已审,已记", u"1,'3','4'",
     u"c in ('3','4')"},
    {"a list that holds its own mark is taken as it is", u"ENUM", u"状态", kNone, u"已审", u"0,0,3",
     kNone, "strString1='已审', strString2='0,3'", u"已审", u"0,3", u"c in (3)"},
    {"flags of the auxiliary accounting", u"ENUM", u"辅助核算", kNone, u"单位,部门",
     u"1,'单位','部门'", kNone, "strString1='单位,部门', strString2='''单位'',''部门'''",
     u"单位,部门", u"1,'单位','部门'", u"(T.blnIsCustomer=1  Or T.blnIsDepartment=1 )"},
    {"a value without a flag", u"ENUM", u"辅助核算", kNone, u"其它", u"0,'其它'", kNone,
     "strString1='其它', strString2='''其它'''", u"其它", u"0,'其它'", u" 1>2 "},
    {"unknown type", u"BLOB", u"其它", kNone, u"等于 v", u"v", kNone, "", u"等于 v", u"v", u""},
    {"unknown word", u"LONG", u"数量", kNone, u"大概 5", u"5", kNone, "strDoubleOP=, dbldouble1=5",
     u"", u"", u""},
};

TEST(ConditionText, RoundTripOfEveryKind) {
  for (const RoundTrip& row : kRoundTrips) {
    SCOPED_TRACE(row.name);
    ListFieldType field;
    field.strFieldType = row.type;
    field.strListFieldDesc = row.caption;
    field.strKeyField = row.keyField;
    field.strFieldName = u"c";
    field.strTableName = u"T";
    field.strFilter = row.filter;
    field.strExtValue = row.extValue;
    field.strCodeID = row.codeIds;
    EXPECT_EQ(Written(field), row.written);
    const Text sql = RestoreCondition(ReadBack(field), Context(), field);
    EXPECT_EQ(ToUtf8(sql), ToUtf8(row.sql));
    EXPECT_EQ(ToUtf8(field.strFilter), ToUtf8(row.filterBack));
    EXPECT_EQ(ToUtf8(field.strExtValue), ToUtf8(row.extValueBack));
    EXPECT_EQ(ToUtf8(field.strCodeID), ToUtf8(row.codeIds));
    EXPECT_EQ(field.blnIsMuliCond, row.extValue[0] == u'1' && Text(row.type) == u"CODE");
  }
}

TEST(ConditionText, WordsAndCodes) {
  EXPECT_EQ(CondStrToNum(u"介于"), u"6");
  EXPECT_EQ(CondStrToNum(u"零或空值"), u"7");
  EXPECT_EQ(CondStrToNum(u"空值"), u"11");
  EXPECT_EQ(CondStrToNum(u"本月下旬"), u"22");
  EXPECT_EQ(CondStrToNum(u"去年同期"), u"");
  EXPECT_EQ(CondStrToNum(u"等于 "), u"") << "words are compared whole";
  EXPECT_EQ(CondStrToNum(u""), u"");
  EXPECT_EQ(OperatorWordOf(u" 大于 5 "), u"大于");
  EXPECT_EQ(OperatorWordOf(u"零或空值"), u"零或空值");
  EXPECT_EQ(OperatorWordOf(u"等于 空值 x"), u"等于 空值 x") << "the word anywhere takes it all";
  EXPECT_EQ(SecondValueOf(u"a,b,c"), u"b,c");
  EXPECT_EQ(SecondValueOf(u"a"), u"");
  EXPECT_EQ(ConditionRowText(u"大于", u"5"), u"大于 5");
  EXPECT_EQ(ConditionRowText(u"空值", u"5"), u"空值");
}

Text Ids(int count) {
  Text ids;
  for (int i = 1; i <= count; ++i)
    ids += Join(i > 1 ? u"," : u"", i);
  return ids;
}

// Sizes of the IN lists in the text.
std::vector<int> ChunkSizes(const Text& sql) {
  std::vector<int> sizes;
  for (const TextView chunk : Split(sql, u" or "))
    sizes.push_back(static_cast<int>(Split(chunk, u",").size()));
  return sizes;
}

TEST(CodeConditions, LongListsAreCutByTheHighestIndex) {
  const auto sizes = [](int count) {
    return ChunkSizes(CodeCondition(u"T", u"X", Ids(count), u"X"));
  };
  EXPECT_EQ(sizes(1001), (std::vector{1001}));
  EXPECT_EQ(sizes(1002), (std::vector{800, 202}));
  EXPECT_EQ(sizes(1601), (std::vector{800, 801})) << "no id is lost";
  EXPECT_EQ(sizes(2400), (std::vector{800, 800, 800}));
  const Text sql = CodeCondition(u"T", u"X", Ids(1002), u"X");
  EXPECT_EQ(sql.substr(0, 19), u"T.lngXID IN (1,2,3,");
  EXPECT_EQ(sql.substr(sql.size() - 10), u"1001,1002)");
  EXPECT_NE(sql.find(u"799,800) or T.lngXID IN (801,"), Text::npos);
  EXPECT_EQ(Bracketed(sql), Join(u"(", sql, u")"));
  EXPECT_EQ(CodeCondition(u"T", u"X", u"", u"X"), u"");
}

TEST(CodeConditions, SpecialTables) {
  const struct {
    const char* name;
    TextView keyword, ids;
    const char16_t* expected;  // null: plain ids
  } kRows[] = {
      {"level", u"Account", u"一级科目", u"T.intLevel=1"},
      {"plain ids of accounts", u"ACCOUNT", u"3,4", nullptr},
      {"customers", u"CUSTOMER", u"客户", u"T.strCategory='2'"},
      {"other customers", u"CUSTOMER", u"散户", u"T.strCategory='0'"},
      {"plain ids of customers", u"CUSTOMER", u"5", nullptr},
      {"currency ids", u"CURRENCYS", u"1,2", u"T.lngCurrencyID IN(1,2)"},
      {"currency codes", u"CURRENCYS", u"RMB,USD", u"c in ('RMB','USD')"},
      {"natural currency", u"CURRENCYS", u"本位币", u"T.lngCurrencyID IN(7)"},
      {"no operator", u"OPERATOR", u"'空值'", u"T.lngOperatorID IS NULL"},
      {"another table", u"DEPARTMENT", u"现金", nullptr},
  };
  for (const auto& row : kRows) {
    const auto sql = FixedCodeCondition(u"T", u"c", row.keyword, row.ids, 7);
    if (row.expected == nullptr) {
      EXPECT_FALSE(sql) << row.name;
    } else {
      EXPECT_EQ(sql, Text(row.expected)) << row.name;
    }
  }
  EXPECT_EQ(CodeCondition(u"T", u"AssetType", u"5-1", u"AssetType"),
            u"T.lngAssetTypeID = 5 And T.lngAssetKindID=1");
  EXPECT_EQ(CodeCondition(u"T", u"AssetType", u"5-1,6-2", u"ASSETTYPE"),
            u"(T.lngAssetTypeID =5 And T.lngAssetKindID =1) Or "
            u"(T.lngAssetTypeID =6 And T.lngAssetKindID =2)");
}

TEST(CodeConditions, OnlyABareOrIsBracketed) {
  EXPECT_EQ(Bracketed(u"c = 'a or b'"), u"c = 'a or b'");
  EXPECT_EQ(Bracketed(u"(a or b)"), u"(a or b)");
  EXPECT_EQ(Bracketed(u"(a) Or (b)"), u"((a) Or (b))");
  EXPECT_EQ(Bracketed(u""), u"");
}

}  // namespace
}  // namespace fetchkit::test
