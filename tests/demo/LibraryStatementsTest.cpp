// The library's two statements with outer joins that carry most, on small tables.
#include <gtest/gtest.h>

#include "demo/SmallAccount.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ViewLoading.h"

namespace fetchkit::demo::test {
namespace {

// Fields 1 to 4 of view 7. The list of operator 3 in organization 5 has settings for 1 and 2 and
// conditions on 2 (two chosen codes) and 3 (none); another operator's list must not be seen.
constexpr const char* kLists = R"(
  CREATE TABLE ViewField (lngViewID INTEGER, lngViewFieldID INTEGER, lngViewFieldNO INTEGER,
    strViewFieldDesc TEXT, blnIsMust INTEGER, blnIsPrep INTEGER, blnIsFixed INTEGER);
  INSERT INTO ViewField VALUES (7, 1, 1, '凭证号', 0, 0, 0), (7, 2, 2, '科目编码', 0, 0, 0),
    (7, 3, 3, '金额', 0, 1, 0), (7, 4, 4, '日期', 1, 0, 1), (8, 5, 1, '别的', 0, 0, 0);
  CREATE TABLE List (lngListID INTEGER, lngViewID INTEGER, lngOperatorID INTEGER,
    lngOrganizationID INTEGER);
  INSERT INTO List VALUES (20, 7, 3, 5), (21, 7, 4, 5);
  CREATE TABLE ListField (lngListFieldID INTEGER, lngListID INTEGER, lngViewFieldID INTEGER,
    lngListFieldNO INTEGER, strListFieldDesc TEXT, lngDisplayWidth INTEGER, bytSort INTEGER,
    blnIsChoosed INTEGER);
  INSERT INTO ListField VALUES (30, 20, 1, 9, '号', 800, 1, 1), (31, 20, 2, 1, '科目', 600, 0, 0),
    (32, 21, 3, 1, '他的', 10, 0, 1);
  CREATE TABLE ListCond (lngListID INTEGER, lngViewFieldID INTEGER, strPath TEXT,
    strOthTableName TEXT, blnHavefathernode INTEGER, strStringOp TEXT, strString1 TEXT,
    strString2 TEXT, strDateOp TEXT, dtmDate1 TEXT, dtmDate2 TEXT, strDoubleOP TEXT,
    dbldouble1 REAL, dbldouble2 REAL, blnBoolean INTEGER, blnIsMuliCond INTEGER);
  INSERT INTO ListCond (lngListID, lngViewFieldID, strPath, blnIsMuliCond, strDoubleOP, dbldouble1)
    VALUES (20, 2, '科目编码', 1, NULL, NULL), (20, 3, '金额', NULL, '2', 100.5),
           (21, 1, '凭证号', 1, NULL, NULL);
  CREATE TABLE ListMultiIDCond (lngListID INTEGER, strPath TEXT, strCodeID TEXT, strKeyName TEXT,
    bLNISCODETYPE INTEGER);
  INSERT INTO ListMultiIDCond VALUES (20, '科目编码', '1001', '现金', 0),
    (20, '科目编码', '1002', '银行', 0), (21, '凭证号', '5', '别', 0);
)";

// The statement as the library sends it for view 7, operator 3 and organization 5.
Text FieldStatement(SmallAccount& account) {
  Session& session = MAction::CurrentSession();
  session.Connection = account.connection;
  session.LoginOperatorId = 3;
  session.LoginOrganizationId = 5;
  ListType list;
  list.lngViewID = 7;
  MListSet::RefreshListField(session, list);
  ReleaseThread();
  return account.reports.back().sql;
}

TEST(LibraryStatements, FieldsOfAList) {
  SmallAccount account(kLists);
  const Text sql = FieldStatement(account);
  RecordsetPtr rows;
  ASSERT_TRUE(account.connection->OpenStaticRecordset(sql, rows, 3, 1, 1, 0))
      << ToUtf8(account.reports.back().error);
  std::string read;
  for (; !rows->Eof(); rows->MoveNext()) {
    for (const char16_t* column :
         {u"lngListID", u"lngViewFieldID", u"lngListFieldNO", u"lngListFieldNO1", u"bytSort1",
          u"strListFieldDesc1", u"lngDisplayWidth", u"blnIsChoosed1", u"strPath", u"strDoubleOP",
          u"dblDouble1", u"blnIsMuliCond", u"strCodeID", u"strKeyName"})
      read += ToUtf8(ToTextOrEmpty(rows->At(rows->Column(column)))) + "|";
    read += "\n";
  }
  // Fixed fields first, then by the list's number, else the view's; a row per chosen code.
  EXPECT_EQ(read,
            "0|4||4|0|日期||2|||||||\n"
            "20|2|1|1|0|科目|600|0|科目编码|||1|1001|现金|\n"
            "20|2|1|1|0|科目|600|0|科目编码|||1|1002|银行|\n"
            "0|3||3|0|金额||1|金额|2|100.5||||\n"
            "20|1|9|9|1|号|800|1|||||||\n");
  account.connection->CloseRecordset(rows);
}

TEST(LibraryStatements, RightsOfAnOlderAccount) {
  SmallAccount account(R"(
    CREATE TABLE "Right" (lngRightID INTEGER);
    INSERT INTO "Right" VALUES (12), (15), (20);
    CREATE TABLE RightGroup (lngRightGroupID INTEGER, lngOrganizationID INTEGER);
    INSERT INTO RightGroup VALUES (1, 5), (2, 6);
    CREATE TABLE RightGroupDetail (lngRightGroupID INTEGER, lngRightID INTEGER);
    INSERT INTO RightGroupDetail VALUES (1, 12), (1, 20), (2, 15);
    CREATE TABLE OperatorRight (lngOperatorID INTEGER, lngRightGroupID INTEGER);
    INSERT INTO OperatorRight VALUES (3, 1), (3, 2), (4, 1);)");
  EXPECT_EQ(account.Rows("SELECT Distinct RightGroupDetail.lngRightID As lngRightID "
                         "FROM Right,RightGroupDetail,OperatorRight,RightGroup "
                         "WHERE (RightGroupDetail.lngRightID(+) = Right.lngRightID) "
                         "AND OperatorRight.lngRightGroupID(+) = RightGroupDetail.lngRightGroupID "
                         "AND OperatorRight.lngOperatorID = 3 AND RightGroup.lngOrganizationId = 5 "
                         "AND RightGroupDetail.lngRightGroupId = RightGroup.lngRightGroupId"),
            "12;20");
}

}  // namespace
}  // namespace fetchkit::demo::test
