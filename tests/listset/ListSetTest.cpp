#include "fetchkit/listset/ListSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ListQuery.h"
#include "fetchkit/session/model/Session.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

using testing::ElementsAre;

const Value kNull = NullValue();

const Text kListStatement =
    u"Select * From List Where lngViewID =5 And lngOrganizationID =20 And lngOperatorID =3";
const Text kViewStatement =
    u"Select strViewName,strViewSQL,strCurTable,StrViewWhere from View1 Where lngViewId=5";
const Text kFieldStatement =
    u"select nvl(lf.lnglistid, 0) as lnglistid, \n vf.*,\n"
    u"lf.Lnglistid,lf.Lnglistfieldid,lf.Lnglistfieldno,lf.Strlistfielddesc,lf.Lngdisplaywidth,lf."
    u"Bytsort,lf.Blnischoosed,\n"
    u"lc.Strpath,lc.Blnhavefathernode,\nlc.Strstringop,lc.Strstring1,lc.Strstring2,\n"
    u"lc.Strdateop,lc.Dtmdate1,lc.Dtmdate2,\nlc.Strdoubleop,lc.Dbldouble1,lc.Dbldouble2,\n"
    u"lc.Blnismulicond,lc.Blnboolean,lc.Strothtablename,\nLmc.Strcodeid,Lmc.Strkeyname,Lmc."
    u"Blniscodetype,\n"
    u"decode(lngListFieldNO, null, vf.lngviewfieldno, lngListFieldNO) as lngListFieldNO1,\n"
    u"decode(strListFieldDesc, null, vf.strviewfielddesc, strListFieldDesc) as strListFieldDesc1,\n"
    u"nvl(lf.lngdisplaywidth, 0) as lngdisplaywidth,nvl(bytSort, 0) as bytSort1,\n"
    u"decode(blnIsChoosed,null,0,blnIsChoosed) + vf.blnismust + vf.blnisprep + vf.blnisfixed as "
    u"blnIsChoosed1 \n"
    u" from viewfield vf, \n (select listfield.* \n from list, listfield \n where "
    u"listfield.lnglistid = list.lnglistid \n"
    u" and list.lngviewid = 5 and list.lngoperatorid = 3 and list.lngorganizationid = 20) lf, \n"
    u" (select listcond.* \n from list, listcond \n where listcond.lnglistid = list.lnglistid \n"
    u" and list.lngviewid = 5 and list.lngoperatorid = 3 and list.lngorganizationid = 20 ) lc, \n"
    u" listmultiidcond lmc \n where vf.lngviewid = 5 and vf.lngviewfieldid = lf.lngviewfieldid(+) "
    u"\n"
    u" and vf.lngviewfieldid = lc.lngviewfieldid(+) \n and lc.lnglistid = lmc.lnglistid(+) \n and "
    u"lc.strpath = lmc.strpath(+) \n"
    u" and vf.strViewFieldDesc = lc.strpath(+) \n Order by -vf.blnisfixed,decode(lngListFieldNO, "
    u"null, vf.lngviewfieldno, lngListFieldNO)";
const Text kCodesStatement =
    u"SELECT * FROM listmultiidcond WHERE lngListID = 70 And strpath='部门'";
const Text kClass1Statement =
    u"SELECT * FROM Setting WHERE strKey='统计' AND strSection='标题设置' AND lngModuleID=1";
const Text kClass2Statement =
    u"SELECT * FROM Setting WHERE strKey='项目' AND strSection='标题设置' AND lngModuleID=1";

// A row of the field statement by the few columns that a test speaks of; the rest is 0, empty or
// Null as in a view field without a list row.
struct FieldRow {
  std::int32_t id = 0;
  const char16_t* caption = u"";
  const char16_t* type = u"STRING";
  std::vector<std::pair<const char16_t*, Value>> others = {};
};

Answer FieldRows(const std::vector<FieldRow>& rows) {
  std::vector<Text> columns = {
      u"lngViewFieldID",  u"strViewFieldDesc", u"strFieldType",   u"lngListFieldID",
      u"strBiaTableName", u"lngListFieldNO1",  u"lngViewFieldNO", u"bytHead",
      u"bytFieldSize",    u"blnIsMust",        u"blnIsPrep",      u"strKeyField",
      u"bytPrepOrder",    u"strTableName",     u"strFieldName",   u"bytFieldDec",
      u"blnIsFilter",     u"blnIsChoose",      u"blnIsFixed",     u"blnIsFind",
      u"blnIsNotList",    u"blnIsFilt",        u"bytFormat",      u"blnNotZero",
      u"blnIsChoosed1",   u"lngdisplaywidth",  u"bytSort1",       u"Strpath",
      u"Strstringop",     u"Strstring1",       u"Strstring2",     u"Strdateop",
      u"Dtmdate1",        u"Dtmdate2",         u"Strdoubleop",    u"Dbldouble1",
      u"Dbldouble2",      u"Blnismulicond",    u"Blnboolean",     u"Strcodeid",
      u"Strkeyname"};
  Answer answer{Answer::Kind::Rows, columns, {}};
  for (const FieldRow& row : rows) {
    std::vector<Value> values(columns.size(), kNull);
    values[0] = row.id;
    values[1] = row.caption;
    values[2] = row.type;
    for (const auto& [name, value] : row.others) {
      const auto at = std::find(columns.begin(), columns.end(), name) - columns.begin();
      values.at(static_cast<std::size_t>(at)) = value;
    }
    answer.rows.push_back(std::move(values));
  }
  return answer;
}

class Lists : public testing::Test {
 protected:
  Lists() {
    Session& session = MAction::CurrentSession();
    session.Connection = host_;
    session.LoginOrganizationId = 20;
    session.LoginOrganizationCode = u"01-02";
    session.LoginOperatorId = 3;
    session.OrganizationIsDetail = true;
    session.LoginDate = u"2004-03-17";
    host_->On(kViewStatement, Rows({u"strViewName", u"strViewSQL", u"strCurTable", u"StrViewWhere"},
                                   {{u"凭证", u"Voucher V,organizationaux OrganizationAux",
                                     u"Voucher", u"V.blnPosted=1"}}));
    host_->On(kListStatement, Rows({u"lngListID"}, {{std::int32_t{70}}}));
    host_->On(kFieldStatement, FieldRows({}));
    host_->On(kClass1Statement, Rows({u"strSetting"}, {}));
    host_->On(kClass2Statement, Rows({u"strSetting"}, {}));
  }

  // The statements since the last call, without the words in front.
  std::vector<std::string> Sent() {
    auto sent = host_->TakeSent();
    for (std::string& statement : sent)
      statement.erase(0, statement.find(": ") + 2);
    return sent;
  }

  FreshThread thread_;
  RecordingSink sink_;
  std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();
  ListSet set_;
};

TEST_F(Lists, ViewWithoutConditionsCostsThreeStatements) {
  set_.ViewId(5);
  EXPECT_THAT(host_->TakeSent(),
              ElementsAre("static: " + ToUtf8(kViewStatement), "static: " + ToUtf8(kListStatement),
                          "static: " + ToUtf8(kFieldStatement)));
  EXPECT_EQ(set_.ViewId(), 5);
  const ListType list = set_.List();
  EXPECT_EQ(list.strViewName, u"凭证");
  EXPECT_EQ(list.strListName, u"凭证");
  EXPECT_EQ(list.strCurTable, u"Voucher");
  EXPECT_EQ(list.strPrimaryKey, u"") << "the statement does not select it";
  EXPECT_EQ(list.lngListID, 70);
  EXPECT_EQ(set_.ListWhere(), u"V.blnPosted=1 And OrganizationAux.lngOrganizationID= 20");
  EXPECT_EQ(set_.ListPureWhere(), u"");
  EXPECT_EQ(set_.GetListSelect(), u"");
}

TEST_F(Lists, SummaryOrganizationsSeeTheirBranch) {
  MAction::CurrentSession().OrganizationIsDetail = false;
  set_.ViewId(5);
  EXPECT_EQ(set_.ListWhere(),
            u"V.blnPosted=1 And (OrganizationAux.strOrganizationCode='01-02' OR "
            u"OrganizationAux.strOrganizationCode like '01-02-%')");
}

TEST_F(Lists, UnknownViewKeepsTheTextsAndIsNotRestrictedAgain) {
  set_.ViewId(5);
  host_->On(kViewStatement, Rows({u"strViewName"}, {}));
  host_->On(kListStatement, Rows({u"lngListID"}, {}));
  set_.ViewId(5);
  EXPECT_EQ(set_.ListWhere(), u"V.blnPosted=1 And OrganizationAux.lngOrganizationID= 20");
  EXPECT_EQ(set_.List().lngListID, 0);
}

TEST_F(Lists, FieldsTakeTheViewsCaptionAndTheListsSettings) {
  host_->On(
      kFieldStatement,
      FieldRows({{1,
                  u"凭证号",
                  u"LONG",
                  {{u"strFieldName", u"V.lngNo"},
                   {u"blnIsFixed", std::int32_t{1}},
                   {u"blnIsChoosed1", std::int32_t{2}},
                   {u"lngListFieldID", std::int32_t{700}},
                   {u"lngListFieldNO1", std::int32_t{4}},
                   {u"lngdisplaywidth", 1200.0},
                   {u"bytSort1", std::int32_t{2}},
                   {u"blnIsMust", true}}},
                 {2, u"摘要", u"STRING", {{u"strFieldName", u"V.strMemo"}}},
                 {3,
                  u"金额",
                  u"DOUBLE",
                  {{u"strFieldName", u"V.dblAmount"}, {u"blnIsChoosed1", std::int32_t{1}}}}}));
  set_.ViewId(5);
  EXPECT_EQ(Sent().size(), 3u);
  const ListType list = set_.List();
  ASSERT_EQ(list.ListField.size(), 3u);
  ListFieldType expected;
  expected.lngViewFieldID = 1;
  expected.strListFieldDesc = expected.strPath = u"凭证号";
  expected.strFieldType = u"LONG";
  expected.strFieldName = u"V.lngNo";
  expected.blnIsFixed = expected.blnIsChoosed = expected.blnIsMust = true;
  expected.lngListFieldID = 700;
  expected.lngListFieldNO = 4;
  expected.lngDisplayWidth = 1200;
  expected.bytSort = 2;
  EXPECT_EQ(list.ListField[0], expected);
  EXPECT_EQ(list.intFixedCols, 1);
  EXPECT_EQ(set_.GetListSelect(), u" V.lngNo As 凭证号, V.dblAmount As 金额");
  set_.RefreshListField();
  EXPECT_EQ(set_.List(), list) << "loading again replaces the columns";
}

TEST_F(Lists, ConditionsOfRepeatedRowsAreRestoredOnceAndJoined) {
  const std::pair<const char16_t*, Value> path = {u"Strpath", u"部门"};
  const FieldRow department = {1,
                               u"部门",
                               u"CODE",
                               {path,
                                {u"strTableName", u"T"},
                                {u"strKeyField", u"DEPARTMENT"},
                                {u"Blnismulicond", std::int32_t{1}},
                                {u"Strcodeid", u"12"}}};
  const FieldRow amount = {2,
                           u"金额",
                           u"DOUBLE",
                           {{u"Strpath", u"金额"},
                            {u"strFieldName", u"c"},
                            {u"Strdoubleop", std::int32_t{2}},
                            {u"Dbldouble1", 1e15}}};
  host_->On(kFieldStatement, FieldRows({department, amount, department}));
  host_->On(kCodesStatement,
            Rows({u"strCodeID", u"strKeyName"}, {{u"12", u"财务部"}, {u"15", u"销售部"}}));
  set_.ViewId(5);
  EXPECT_THAT(Sent(), ElementsAre(ToUtf8(kViewStatement), ToUtf8(kListStatement),
                                  ToUtf8(kFieldStatement), ToUtf8(kClass1Statement),
                                  ToUtf8(kClass2Statement), ToUtf8(kCodesStatement)));
  const ListType list = set_.List();
  ASSERT_EQ(list.ListField.size(), 2u);
  EXPECT_EQ(list.ListField[0].strFilter, u"财务部 销售部");
  EXPECT_EQ(list.ListField[0].strExtValue, u"1,12,15");
  EXPECT_EQ(list.ListField[0].strCodeID, u"12,15");
  EXPECT_EQ(list.ListField[1].strFilter, u"大于 1000000000000000");
  EXPECT_EQ(set_.ListPureWhere(), u"T.lngDEPARTMENTID IN (12,15) And c > 1000000000000000");
}

TEST_F(Lists, FailingStatementsOfLoading) {
  const struct {
    const char* name;
    Text statement;
    Answer answer;
    std::size_t fields;
    std::int32_t listId;
    const char16_t* viewName;
  } kRows[] = {
      {"view refused", kViewStatement, Refused(), 1, 70, u"old"},
      {"view raises", kViewStatement, Throws(), 1, 70, u"old"},
      {"list refused", kListStatement, Refused(), 1, 9, u"凭证"},
      {"list raises", kListStatement, Throws(), 1, 9, u"凭证"},
      {"fields refused: the columns stay", kFieldStatement, Refused(), 2, 70, u"凭证"},
      {"fields raise", kFieldStatement, Throws(), 2, 70, u"凭证"},
      {"a row is lost: what was read stands", kFieldStatement,
       [] {
         Answer answer = FieldRows({{1, u"a"}, {2, u"b"}, {3, u"c"}});
         answer.throwAtRow = 1;
         return answer;
       }(),
       1, 70, u"凭证"},
  };
  const Answer good[] = {Rows({u"strViewName", u"strViewSQL", u"strCurTable", u"StrViewWhere"},
                              {{u"凭证", u"Voucher", u"Voucher", u"1=1"}}),
                         Rows({u"lngListID"}, {{std::int32_t{70}}}), FieldRows({{1, u"a"}})};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    host_->On(kViewStatement, good[0]);
    host_->On(kListStatement, good[1]);
    host_->On(kFieldStatement, good[2]);
    host_->On(row.statement, row.answer);
    ListType before;
    before.strViewName = u"old";
    before.lngListID = 9;
    before.ListField.resize(2);
    set_.List(before);
    sink_.failures.clear();
    set_.ViewId(5);
    EXPECT_EQ(set_.List().ListField.size(), row.fields);
    EXPECT_EQ(set_.List().lngListID, row.listId);
    EXPECT_EQ(set_.List().strViewName, row.viewName);
    EXPECT_TRUE(std::any_of(sink_.failures.begin(), sink_.failures.end(),
                            [&](const Failure& f) { return f.statement == row.statement; }));
  }
}

ListFieldType Field(const char16_t* type, const char16_t* caption, const char16_t* filter,
                    const char16_t* extValue) {
  ListFieldType field;
  field.lngViewFieldID = 11;
  field.strFieldType = type;
  field.strPath = field.strListFieldDesc = caption;
  field.strFilter = filter;
  field.strExtValue = extValue;
  return field;
}

TEST_F(Lists, ConditionsAreWrittenInOneBlock) {
  ListType list;
  list.lngListID = 70;
  list.ListField = {Field(u"STRING", u"摘要", u"包含字符 x", u"x"),
                    Field(u"DOUBLE", u"金额", u"介于 5,9", u"5,9"),
                    Field(u"LONG", u"无条件", u"", u""),
                    Field(u"CODE", u"部门/全部", u"财务部", u"0,"),
                    Field(u"PERIOD", u"日期", u"本月", u"2004-03-01,2004-03-31"),
                    Field(u"ENUM", u"状态", u"已审", u"0,'3'")};
  set_.List(list);
  const std::string block =
      "Begin \n Delete  FROM ListCond WHERE ListCond.lngListID = 70;\n"
      " Delete  FROM ListMultiIDCond WHERE lngListID = 70;\n"
      "Insert into ListCond "
      "(lngListId,lngViewFieldID,strPath,strOthTableName,strStringOp,strString1) Values "
      "(70,11,'摘要',' ',7,'x');\n"
      "Insert into ListCond "
      "(lngListId,lngViewFieldID,strPath,strOthTableName,strDoubleOP,dbldouble1,dbldouble2) Values "
      "(70,11,'金额',' ',6,5,9);\n"
      "Insert into ListCond "
      "(lngListId,lngViewFieldID,strPath,strOthTableName,blnHavefathernode,blnIsMuliCond) Values "
      "(70,11,'部门/全部',' ',1,0);\n"
      "Insert into listMultiIDCond (lngListID,strPath,strCodeID,strKeyName,bLNISCODETYPE) Values "
      "(70,'部门/全部',' ','财务部',0);\n"
      "Insert into ListCond "
      "(lngListId,lngViewFieldID,strPath,strOthTableName,strDateOp,dtmDate1,dtmDate2) Values "
      "(70,11,'日期',' ','6','2004-03-01','2004-03-31');\n"
      "Insert into ListCond "
      "(lngListId,lngViewFieldID,strPath,strOthTableName,strString1,strString2) Values "
      "(70,11,'状态',' ','已审','''3''');\n"
      "End;";
  host_->fallback = [](TextView) {
    static const Answer done;
    return &done;
  };
  set_.SaveList();
  EXPECT_THAT(host_->TakeSent(),
              ElementsAre("execute: UPDATE ListField Set blnIsChoosed=0 WHERE lngListID =70",
                          "execute: " + block));
}

// A new list of two saved fields and one that is not, each statement failing in turn.
TEST_F(Lists, NewListAndItsFailures) {
  const std::vector<std::string> kAll = {
      "SELECT List_SEQ.NEXTVAL As lngId FROM DUAL",
      "Insert Into List "
      "(lngViewID,strOtherKey,strListName,lngOperatorID,lngListID,lngOrganizationID) Values (5,' "
      "','凭证',3,71,20)",
      "SELECT ListField_SEQ.NEXTVAL As lngId FROM DUAL",
      "Insert Into Listfield (lngListID,strListFieldDesc,bytsort,lngViewFieldID,lngListFieldID) "
      "Values (71,'a',0,1,701)",
      "SELECT ListField_SEQ.NEXTVAL As lngId FROM DUAL",
      "Insert Into Listfield (lngListID,strListFieldDesc,bytsort,lngViewFieldID,lngListFieldID) "
      "Values (71,'c',0,3,701)",
      "UPDATE ListField Set blnIsChoosed=0 WHERE lngListID =71",
      "Update ListField Set "
      "lngListFieldNO=4,strListFieldDesc='a',lngDisplayWidth=100,bytSort=1,blnIsChoosed=1 Where "
      "lngListFieldID=701",
      "Update ListField Set "
      "lngListFieldNO=0,strListFieldDesc='c',lngDisplayWidth=0,bytSort=0,blnIsChoosed=1 Where "
      "lngListFieldID=701",
      "Begin \n Delete  FROM ListCond WHERE ListCond.lngListID = 71;\n Delete  FROM "
      "ListMultiIDCond WHERE lngListID = 71;\nEnd;",
  };
  std::string zeroBlock = kAll[9];
  for (std::size_t at; (at = zeroBlock.find("71")) != std::string::npos;)
    zeroBlock.replace(at, 2, "0");
  const auto only = [&](std::vector<std::size_t> which) {
    std::vector<std::string> some;
    for (const std::size_t i : which)
      some.push_back(kAll[i]);
    return some;
  };
  const struct {
    const char* name;
    int failing;  // index into kAll, -1: none
    std::vector<std::string> sent;
    std::int32_t listId;
  } kRows[] = {
      {"nothing fails", -1, kAll, 71},
      {"list row", 1, {kAll[0], kAll[1], zeroBlock}, 0},
      {"first field row: the rest gets none, the settings are still written", 3,
       [&] {
         auto sent = only({0, 1, 2, 3, 6, 7});
         sent.push_back(
             "Update ListField Set "
             "lngListFieldNO=0,strListFieldDesc='c',lngDisplayWidth=0,bytSort=0,blnIsChoosed=1 "
             "Where lngListFieldID=0");
         sent.push_back(kAll[9]);
         return sent;
       }(),
       71},
      {"clearing the chosen marks", 6, only({0, 1, 2, 3, 4, 5, 6, 9}), 71},
      {"one field's settings", 7, kAll, 71},
  };
  for (const auto& row : kRows) {
    for (const bool throws : {false, true}) {
      SCOPED_TRACE(row.name);
      ListType list;
      list.lngViewID = 5;
      list.strListName = u"凭证";
      list.ListField.resize(3);
      list.ListField[0].blnIsChoose = list.ListField[2].blnIsMust = true;
      list.ListField[0].lngViewFieldID = 1;
      list.ListField[0].strListFieldDesc = u"a";
      list.ListField[0].lngListFieldNO = 4;
      list.ListField[0].lngDisplayWidth = 100;
      list.ListField[0].bytSort = 1;
      list.ListField[2].lngViewFieldID = 3;
      list.ListField[2].strListFieldDesc = u"c";
      set_.List(list);
      auto host = std::make_shared<FakeConnection>();
      MAction::CurrentSession().Connection = host;
      host->fallback = [](TextView) {
        static const Answer done;
        return &done;
      };
      host->On(FromUtf8(kAll[0]), Rows({u"lngID"}, {{std::int32_t{71}}}));
      host->On(FromUtf8(kAll[2]), Rows({u"lngID"}, {{std::int32_t{701}}}));
      if (row.failing >= 0)
        host->On(FromUtf8(kAll[static_cast<std::size_t>(row.failing)]),
                 throws ? Throws() : Refused());
      // A settings statement that raises ends that step; one that is refused does not.
      const bool shorter = throws && row.failing == 7;
      set_.SaveList();
      auto sent = host->TakeSent();
      for (std::string& statement : sent)
        statement.erase(0, statement.find(": ") + 2);
      EXPECT_EQ(sent, shorter ? only({0, 1, 2, 3, 4, 5, 6, 7, 9}) : row.sent);
      EXPECT_EQ(set_.List().lngListID, row.listId);
      if (row.listId != 0) {
        set_.SaveList();
        EXPECT_EQ(host->TakeSent().front(),
                  "execute: UPDATE ListField Set blnIsChoosed=0 WHERE lngListID =71")
            << "a second save updates";
      }
    }
  }
}

TEST_F(Lists, CopiesAreDeep) {
  ListType mine;
  mine.ListField.resize(1);
  set_.List(mine);
  mine.ListField[0].strFilter = u"changed";
  ListType theirs = set_.List();
  theirs.ListField[0].strFilter = u"changed too";
  EXPECT_EQ(set_.List().ListField[0].strFilter, u"");
}

// Answers for the user.
class FakeForms : public FormHost {
 public:
  bool ShowFilter(ListType& list, Text& where, std::int32_t hWndOwner) override {
    owner = hWndOwner;
    list.ListField[0].strFilter = u"大于 5";
    list.ListField[0].strExtValue = u"5";
    where = u"c > 5";
    return confirmed;
  }
  MultiChooseResult ShowMultiChoose(const MultiChooseRequest& request) override {
    return {confirmed, Join(u"(", request.strCodeName, u"='x')"), u"x"};
  }
  bool confirmed = true;
  std::int32_t owner = -1;
};

TEST_F(Lists, DialogsAnswerThroughTheFormHost) {
  ListType list;
  list.lngListID = 70;
  list.strListWhere = u"1=1";
  list.ListField = {Field(u"LONG", u"数量", u"", u"")};
  set_.List(list);
  Text shown = u"before";
  bool ok = true;
  EXPECT_FALSE(set_.ShowFilter(0));
  EXPECT_EQ(set_.ShowMultiChoose(nullptr, u"部门", u"", shown, false, Value(), ok, 0), u"");
  EXPECT_FALSE(ok);

  FakeForms forms;
  SetFormHost(&forms);
  forms.confirmed = false;
  EXPECT_FALSE(set_.ShowFilter(7));
  EXPECT_EQ(set_.List(), list) << "a dialog that is cancelled leaves no trace";
  EXPECT_EQ(set_.ShowMultiChoose(nullptr, u"部门", u"", shown, false, Value(), ok, 0), u"");
  EXPECT_EQ(shown, u"before");
  EXPECT_TRUE(host_->TakeSent().empty());

  forms.confirmed = true;
  host_->fallback = [](TextView) {
    static const Answer done;
    return &done;
  };
  EXPECT_TRUE(set_.ShowFilter(7));
  EXPECT_EQ(forms.owner, 7);
  EXPECT_EQ(set_.ListPureWhere(), u"c > 5");
  EXPECT_EQ(set_.ListWhere(), u"1=1");
  EXPECT_THAT(Sent(), ElementsAre("Begin \n Delete  FROM ListCond WHERE ListCond.lngListID = 70;\n "
                                  "Delete  FROM ListMultiIDCond WHERE lngListID = 70;\n"
                                  "Insert into ListCond "
                                  "(lngListId,lngViewFieldID,strPath,strOthTableName,strDoubleOP,"
                                  "dbldouble1) Values (70,11,'数量',' ',2,5);\nEnd;"));
  EXPECT_EQ(set_.ShowMultiChoose(nullptr, u"部门", u"", shown, false, Value(), ok, 0),
            u"(部门='x')");
  EXPECT_TRUE(ok);
  EXPECT_EQ(shown, u"x");
}

TEST_F(Lists, FindAllKeyId) {
  const struct {
    const char* name;
    TextView keyword;
    const char16_t* statement;
  } kRows[] = {
      {"numbered table", u"class1",
       u"SELECT strCLASSCode  as a1,lngCLASSID as b1 FROM class1 WHERE ( strCLASSCode LIKE '01-%' "
       u"OR (strCLASSCode LIKE '02-%'))"},
      {"flexible field", u"FLEXIBLEFIELD30",
       u"SELECT strFieldCode  as a1, lngFieldID as b1 FROM FLEXIBLEFIELD30 WHERE ( strFieldCode "
       u"LIKE '01-%' OR (strFieldCode LIKE '02-%'))"},
      {"two blanks", u"Area",
       u"SELECT strAREACode  as a1, lngAREAID as b1 FROM AREA WHERE  ( strAREACode LIKE '01-%' OR "
       u"(strAREACode LIKE '02-%'))"},
      {"any other", u"Department",
       u"SELECT strDEPARTMENTCode  as a1, lngDEPARTMENTID as b1 FROM DEPARTMENT WHERE ( "
       u"strDEPARTMENTCode LIKE '01-%' OR (strDEPARTMENTCode LIKE '02-%'))"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    host_->On(row.statement, Rows({u"a1", u"b1"}, {{u"01-1 ", std::int32_t{5}},
                                                   {u"02-1-3", std::int32_t{6}},
                                                   {u"01", std::int32_t{1}},
                                                   {u"010-1", std::int32_t{9}}}));
    EXPECT_EQ(set_.FindAllKeyID(row.keyword, u" 01 02 "), u"5,6");
    EXPECT_THAT(Sent(), ElementsAre(ToUtf8(row.statement)));
    host_->On(row.statement, Throws());
    EXPECT_EQ(set_.FindAllKeyID(row.keyword, u"01 02"), u"");
    Sent();
  }
  host_->fallback = [](TextView) {
    static const Answer below = Rows({u"a1", u"b1"}, {{u"01-02-03", std::int32_t{4}}});
    return &below;
  };
  EXPECT_EQ(set_.FindAllKeyID(u"DEPARTMENT", u"01 01-02"), u"4,4") << "below two codes: twice";
  Sent();
  EXPECT_EQ(set_.FindAllKeyID(u"DEPARTMENT", u"  "), u"");
  EXPECT_TRUE(Sent().empty());
}

TEST_F(Lists, ModifyTableName) {
  EXPECT_EQ(
      set_.ModifyTableName(u"FROM Voucher V WHERE voucher.lngID=1", u"VOUCHER ", u"Voucher9 "),
      u"FROM Voucher9 V WHERE Voucher9.lngID=1");
  EXPECT_EQ(set_.ModifyTableName(u"aa", u"a", u"aa"), u"aaaa") << "inserted text is not rescanned";
  EXPECT_EQ(set_.ModifyTableName(u"a.b", u"", u"x"), u"a.b");
}

}  // namespace
}  // namespace fetchkit::test
