#include "fetchkit/listset/ListSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>

#include "dialogs/Player.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ListQuery.h"
#include "fetchkit/session/model/Session.h"
#include "support/FakeConnection.h"
#include "support/Lines.h"

namespace fetchkit::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

const Value kNull = NullValue();

const Text kListStatement =
    u"Select * From List Where lngViewID =5 And lngOrganizationID =20 And lngOperatorID =3";
const Text kViewStatement =
    u"Select strViewName,strViewSQL,strCurTable,StrViewWhere from View1 Where lngViewId=5";
const Text kFieldStatement = FromUtf8(
#include "listset/FieldStatement.txt"
);
const Text kCodesStatement =
    u"SELECT * FROM listmultiidcond WHERE lngListID = 70 And strpath='部门'";
const Text kClass1Statement =
    u"SELECT * FROM Setting WHERE strKey='统计' AND strSection='标题设置' AND lngModuleID=1";
const Text kClass2Statement =
    u"SELECT * FROM Setting WHERE strKey='项目' AND strSection='标题设置' AND lngModuleID=1";

// Rows of the field statement, a line each: id, caption, type, and "column=value" for the few other
// columns that a test speaks of; a "'" stands in front of texts. The rest is Null as in a view
// field without a list row.
Answer FieldRows(std::string_view lines) {
  static const Text kColumns =
      u"lngViewFieldID strViewFieldDesc strFieldType lngListFieldID strBiaTableName "
      u"lngListFieldNO1 lngViewFieldNO bytHead bytFieldSize blnIsMust blnIsPrep strKeyField "
      u"bytPrepOrder strTableName strFieldName bytFieldDec blnIsFilter blnIsChoose blnIsFixed "
      u"blnIsFind blnIsNotList blnIsFilt bytFormat blnNotZero blnIsChoosed1 lngdisplaywidth "
      u"bytSort1 Strpath Strstringop Strstring1 Strstring2 Strdateop Dtmdate1 Dtmdate2 "
      u"Strdoubleop Dbldouble1 Dbldouble2 Blnismulicond Blnboolean Strcodeid Strkeyname";
  const auto names = Split(kColumns, u" ");
  Answer answer{Answer::Kind::Rows, {names.begin(), names.end()}, {}};
  for (const auto& line : Lines(lines)) {
    auto& values = answer.rows.emplace_back(names.size(), kNull);
    for (std::size_t i = 0; i < line.size(); ++i) {
      const auto equals = line[i].find('=');
      const Text value = FromUtf8(line[i].substr(equals + 1));
      const auto named = std::find(names.begin(), names.end(), FromUtf8(line[i].substr(0, equals)));
      auto& cell = values.at(i < 3 ? i : static_cast<std::size_t>(named - names.begin()));
      if (i == 1 || i == 2 || value.starts_with(u'\''))
        cell = value.substr(i < 3 ? 0 : 1);
      else if (!value.empty())
        cell = ToDouble(value);
    }
  }
  return answer;
}

// The statements sent since the last call, without the words in front.
std::vector<std::string> SentTo(FakeConnection& host) {
  auto sent = host.TakeSent();
  for (std::string& statement : sent)
    statement.erase(0, statement.find(": ") + 2);
  return sent;
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
    AnswerView();
    host_->On(kClass1Statement, Rows({u"strSetting"}, {}));
    host_->On(kClass2Statement, Rows({u"strSetting"}, {}));
  }

  void AnswerView() {
    host_->On(kViewStatement, Rows({u"strViewName", u"strViewSQL", u"strCurTable", u"StrViewWhere"},
                                   {{u"凭证", u"Voucher V,organizationaux OrganizationAux",
                                     u"Voucher", u"V.blnPosted=1"}}));
    host_->On(kListStatement, Rows({u"lngListID"}, {{std::int32_t{70}}}));
    host_->On(kFieldStatement, FieldRows("1¦a¦STRING"));
  }

  std::vector<std::string> Sent() { return SentTo(*host_); }

  FreshThread thread_;
  RecordingSink sink_;
  std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();
  ListSet set_;
  Player unused_;
};

TEST_F(Lists, ViewsWithoutConditionsCostThreeStatements) {
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

  MAction::CurrentSession().OrganizationIsDetail = false;
  set_.ViewId(5);
  const Text branch =
      u"V.blnPosted=1 And (OrganizationAux.strOrganizationCode='01-02' OR "
      u"OrganizationAux.strOrganizationCode like '01-02-%')";
  EXPECT_EQ(set_.ListWhere(), branch) << "summary organizations see their branch";

  host_->On(kViewStatement, Rows({u"strViewName"}, {}));
  host_->On(kListStatement, Rows({u"lngListID"}, {}));
  set_.ViewId(5);
  EXPECT_EQ(set_.ListWhere(), branch) << "an unknown view's is not restricted again";
  EXPECT_EQ(set_.List().lngListID, 0);
}

TEST_F(Lists, FieldsAndConditionsOfRepeatedRowsAreReadOnce) {
  host_->On(kFieldStatement, FieldRows(R"(
1¦凭证号¦LONG¦strFieldName='V.lngNo¦blnIsFixed=1¦blnIsChoosed1=2¦lngListFieldID=700¦lngListFieldNO1=4¦lngdisplaywidth=1200¦bytSort1=2¦blnIsMust=1
2¦摘要¦STRING¦strFieldName='V.strMemo
3¦部门¦CODE¦Strpath='部门¦strTableName='T¦strKeyField='DEPARTMENT¦Blnismulicond=1¦Strcodeid='12
4¦金额¦DOUBLE¦strFieldName='c¦blnIsChoosed1=1¦Strpath='金额¦Strdoubleop=2¦Dbldouble1=1e15
3¦部门¦CODE¦Strpath='部门¦strTableName='T¦strKeyField='DEPARTMENT¦Blnismulicond=1¦Strcodeid='12)"));
  host_->On(kCodesStatement,
            Rows({u"strCodeID", u"strKeyName"}, {{u"12", u"财务部"}, {u"15", u"销售部"}}));
  set_.ViewId(5);
  EXPECT_THAT(Sent(), ElementsAre(ToUtf8(kViewStatement), ToUtf8(kListStatement),
                                  ToUtf8(kFieldStatement), ToUtf8(kClass1Statement),
                                  ToUtf8(kClass2Statement), ToUtf8(kCodesStatement)));
  const ListType list = set_.List();
  ASSERT_EQ(list.ListField.size(), 4u);
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
  EXPECT_EQ(list.ListField[2].strFilter, u"财务部 销售部");
  EXPECT_EQ(list.ListField[2].strExtValue, u"1,12,15");
  EXPECT_EQ(list.ListField[2].strCodeID, u"12,15");
  EXPECT_EQ(list.ListField[3].strFilter, u"大于 1000000000000000");
  EXPECT_EQ(list.intFixedCols, 1);
  EXPECT_EQ(set_.GetListSelect(), u" V.lngNo As 凭证号, c As 金额");
  EXPECT_EQ(set_.ListPureWhere(), u"T.lngDEPARTMENTID IN (12,15) And c > 1000000000000000");
  set_.RefreshListField();
  EXPECT_EQ(set_.List(), list) << "loading again replaces the columns";
}

// One row for each code, as older data has them; the rows without a code add nothing.
TEST_F(Lists, CodesAreJoinedAlsoWithoutTheirStatement) {
  const std::string field =
      "1¦部门¦CODE¦Strpath='部门¦strTableName='T¦strKeyField='DEPARTMENT¦Blnismulicond=1¦";
  host_->On(kFieldStatement,
            FieldRows(field + "Strcodeid=' \n" + field +
                      "Strcodeid='12¦Strkeyname='财务部\n2¦a¦STRING\n" + field + "Strkeyname=' \n" +
                      field + "Strcodeid='15¦Strkeyname='销售部"));
  const Answer whole = Rows({u"strCodeID", u"strKeyName"},
                            {{u" ", kNull}, {u"12", u"财务部"}, {kNull, u" "}, {u"15", u"销售部"}});
  Answer breaking = whole;
  breaking.throwAtRow = 2;
  for (const Answer& answer : {whole, Refused(), Throws(), breaking}) {
    host_->On(kCodesStatement, answer);
    set_.ViewId(5);
    const ListFieldType read = set_.List().ListField.at(0);
    EXPECT_EQ(read.strFilter, u"财务部 销售部");
    EXPECT_EQ(read.strCodeID, u"12,15");
    EXPECT_EQ(read.strExtValue, u"1,12,15");
    EXPECT_EQ(set_.ListPureWhere(), u"T.lngDEPARTMENTID IN (12,15)");
  }
}

// Each fault of a load, once while the view changes and once while it stays: what the record holds
// then, that neither the dialog nor a save touches the database, and that loading again mends it.
TEST_F(Lists, LoadsThatAreCutShortCannotBeSaved) {
  Answer breaking = FieldRows("1¦a¦STRING\n2¦b¦STRING");
  breaking.throwAtRow = 1;
  const Answer noNumber = FieldRows("1¦a¦STRING¦bytHead='x");
  const Answer noId = FieldRows("¦a¦STRING");
  Answer lackingWhere =
      Rows({u"strViewName", u"strViewSQL", u"strCurTable"}, {{u"凭证", u"", u""}});
  host_->fallback = Done;
  // What fails, and then: the columns, which are 2 before, the list's id, which is 9, the view's
  // name, and the columns and the id of a record of another view.
  for (const auto& [statement, answer, fields, listId, viewName, otherFields, otherId] :
       {std::tuple(kViewStatement, Refused(), 1u, 70, u"old", 1u, 70),
        {kViewStatement, lackingWhere, 1u, 70, u"凭证", 1u, 70},
        {kListStatement, Refused(), 1u, 9, u"凭证", 1u, 0},
        {kListStatement, Rows({u"lngListID"}, {{kNull}}), 1u, 0, u"凭证", 1u, 0},
        {kFieldStatement, Refused(), 2u, 70, u"凭证", 0u, 70},
        {kFieldStatement, breaking, 2u, 70, u"凭证", 0u, 70},
        {kFieldStatement, noNumber, 2u, 70, u"凭证", 0u, 70},
        {kFieldStatement, noId, 1u, 70, u"凭证", 1u, 70}}) {
    for (const bool changes : {true, false}) {
      AnswerView();
      host_->On(statement, answer);
      ListType before;
      before.lngViewID = changes ? 4 : 5;
      before.strViewName = u"old";
      before.lngListID = 9;
      before.ListField.resize(2);
      set_.List(before);
      sink_.failures.clear();
      set_.ViewId(5);
      EXPECT_EQ(set_.List().ListField.size(), changes ? otherFields : fields);
      EXPECT_EQ(set_.List().lngListID, changes ? otherId : listId);
      EXPECT_EQ(set_.List().strViewName, viewName);
      EXPECT_THAT(sink_.failures,
                  Contains(testing::Field(&Failure::what, testing::Ne(u"ListSet.ViewId: "
                                                                      u"strPrimaryKey"))));

      set_.List(set_.List());
      Sent();
      for (const auto& act :
           {std::function<void()>([&] { set_.SaveList(); }), {[&] { set_.ShowFilter(0); }}}) {
        sink_.failures.clear();
        SetFormView(&unused_);
        act();
        EXPECT_THAT(Sent(), testing::IsEmpty());
        ASSERT_EQ(sink_.failures.size(), 1u);
        EXPECT_THAT(ToUtf8(sink_.failures[0].description), testing::EndsWith(" again."));
      }
      AnswerView();
      set_.RefreshListField();
      if (statement == kViewStatement) {
        Sent();
        set_.SaveList();
        EXPECT_THAT(Sent(), testing::IsEmpty()) << "a refresh does not load the view";
        set_.ViewId(5);
      }
      Sent();
      set_.SaveList();
      EXPECT_EQ(Sent().size(), 2u) << "settings and conditions";
    }
  }
}

// A host that handles messages calls back from inside each operation of each member: whatever it
// calls there, the member ends as it does undisturbed, or leaves the other view alone that the host
// has gone to.
TEST_F(Lists, CalledFromInsideTheHost) {
  host_->fallback = Done;
  host_->On(kFieldStatement, FieldRows(R"(
1¦摘要¦STRING¦blnIsFilter=1¦blnIsMust=1¦Strpath='摘要¦Strstringop=1¦Strstring1='x
3¦部门¦CODE¦blnIsFilter=1¦blnIsMust=1¦Strpath='部门¦strKeyField='DEPARTMENT¦Strcodeid='12)"));
  host_->On(kCodesStatement,
            Rows({u"strCodeID", u"strKeyName"}, {{u"12", u"财务部"}, {u"15", u"销售部"}}));
  Player player;
  player.filter = "node 部门; ok";
  SetFormView(&player);

  const std::function<void(ListSet&)> members[] = {
      [](ListSet& set) { set.ViewId(5); },  // from no view, and from the same
      [](ListSet& set) { set.ViewId(5); },  [](ListSet& set) { set.RefreshListField(); },
      [](ListSet& set) { set.SaveList(); }, [](ListSet& set) { EXPECT_TRUE(set.ShowFilter(0)); },
  };
  const std::function<void(ListSet&)> calls[] = {
      [](ListSet& set) { set.ViewId(5); },
      [](ListSet& set) { set.RefreshListField(); },
      [](ListSet& set) { set.SaveList(); },
      [](ListSet& set) { set.ShowFilter(0); },
      [](ListSet& set) {
        ListType emptied;
        emptied.lngViewID = 5;
        set.List(emptied);
      },
      [](ListSet&) { EXPECT_FALSE(ReleaseThread()); },
      [](ListSet& set) { set.ViewId(6); },
  };
  for (std::size_t member = 0; member < std::size(members); ++member) {
    std::optional<ListType> undisturbed;
    for (std::size_t call = 0; call <= std::size(calls); ++call) {
      SCOPED_TRACE(testing::Message() << "call " << call << " from member " << member);
      ListSet set;
      if (member > 0) set.ViewId(5);
      const int before = host_->operations;
      if (call > 0) host_->onOperation = [&] { calls[call - 1](set); };
      members[member](set);
      host_->onOperation = nullptr;
      EXPECT_GT(host_->operations, before);
      if (!undisturbed) undisturbed = set.List();
      if (call == std::size(calls) && member > 1) {
        EXPECT_EQ(set.ViewId(), 6);
        EXPECT_EQ(set.List().lngViewID, 6);
      } else {
        EXPECT_EQ(set.ViewId(), 5);
        EXPECT_EQ(set.List(), *undisturbed);
      }
    }
  }
  EXPECT_TRUE(ReleaseThread());
}

TEST_F(Lists, WholeLists) {
  host_->fallback = Done;
  set_.SaveList();
  EXPECT_FALSE(Sent().empty()) << "never loaded";
  const Answer outOfRange =
      FieldRows("1¦a¦STRING¦bytHead=300¦blnIsFixed=1¦lngdisplaywidth=5e9¦bytSort1=2");
  for (const auto& [statement, answer] : {std::pair(kViewStatement, Rows({u"strViewName"}, {})),
                                          {kListStatement, Rows({u"lngListID"}, {})},
                                          {kFieldStatement, Rows({u"lngViewFieldID"}, {})},
                                          {kFieldStatement, outOfRange}}) {
    AnswerView();
    host_->On(statement, answer);
    set_.ViewId(5);
    Sent();
    set_.SaveList();
    EXPECT_FALSE(Sent().empty()) << ToUtf8(statement);
  }
  ListFieldType field;
  field.lngViewFieldID = 1;
  field.strListFieldDesc = field.strPath = u"a";
  field.strFieldType = u"STRING";
  field.blnIsFixed = true;
  field.bytSort = 2;
  EXPECT_THAT(set_.List().ListField, ElementsAre(field)) << "the values in range are read";

  host_->On(kFieldStatement, Refused());
  set_.RefreshListField();
  ListType other = set_.List();
  other.lngViewID = 6;
  set_.List(other);
  Sent();
  set_.SaveList();
  EXPECT_FALSE(Sent().empty()) << "a record that the host made for another view";
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
  host_->fallback = Done;
  set_.SaveList();
  EXPECT_THAT(host_->TakeSent(),
              ElementsAre("execute: UPDATE ListField Set blnIsChoosed=0 WHERE lngListID =70",
                          R"(execute: Begin 
 Delete  FROM ListCond WHERE ListCond.lngListID = 70;
 Delete  FROM ListMultiIDCond WHERE lngListID = 70;
Insert into ListCond (lngListId,lngViewFieldID,strPath,strOthTableName,strStringOp,strString1) Values (70,11,'摘要',' ',7,'x');
Insert into ListCond (lngListId,lngViewFieldID,strPath,strOthTableName,strDoubleOP,dbldouble1,dbldouble2) Values (70,11,'金额',' ',6,5,9);
Insert into ListCond (lngListId,lngViewFieldID,strPath,strOthTableName,blnHavefathernode,blnIsMuliCond) Values (70,11,'部门/全部',' ',1,0);
Insert into listMultiIDCond (lngListID,strPath,strCodeID,strKeyName,bLNISCODETYPE) Values (70,'部门/全部',' ','财务部',0);
Insert into ListCond (lngListId,lngViewFieldID,strPath,strOthTableName,strDateOp,dtmDate1,dtmDate2) Values (70,11,'日期',' ','6','2004-03-01','2004-03-31');
Insert into ListCond (lngListId,lngViewFieldID,strPath,strOthTableName,strString1,strString2) Values (70,11,'状态',' ','已审','''3''');
End;)"));
}

// A new list of two saved fields and one that is not, each statement failing in turn. A statement
// stands for itself by its letter.
TEST_F(Lists, NewListAndItsFailures) {
  std::map<char, std::string> statements;
  for (const auto& [letter, statement] : Lines<2>(
#include "listset/NewListStatements.txt"
           ))
    statements[letter.front()] = statement;
  for (const auto& [letter, id] : {std::pair('B', "71"), {'b', "0"}})
    statements[letter] = std::string("Begin \n Delete  FROM ListCond WHERE ListCond.lngListID = ") +
                         id + ";\n Delete  FROM ListMultiIDCond WHERE lngListID = " + id +
                         ";\nEnd;";
  // What fails, what is sent then, after a refusal and after an error, and the list's id.
  for (const auto& [name, failing, refused, raised, listId] : Lines<5>(R"(
nothing¦x¦iLfAfCuacB¦iLfAfCuacB¦71
list row¦L¦iLb¦iLb¦0
first field row: the rest gets none, settings are written¦A¦iLfAua0B¦iLfAua0B¦71
clearing the chosen marks¦u¦iLfAfCuB¦iLfAfCuB¦71
one field's settings end that step by raising alone¦a¦iLfAfCuacB¦iLfAfCuaB¦71)")) {
    SCOPED_TRACE(name);
    for (const bool raises : {false, true}) {
      ListType list;
      list.lngViewID = 5;
      list.strListName = u"凭证";
      list.ListField = {Field(u"", u"a", u"", u""), {}, Field(u"", u"c", u"", u"")};
      list.ListField[0].blnIsChoose = list.ListField[2].blnIsMust = true;
      list.ListField[0].lngListFieldNO = 4;
      list.ListField[0].lngDisplayWidth = 100;
      list.ListField[0].bytSort = 1;
      set_.List(list);
      auto host = std::make_shared<FakeConnection>();
      MAction::CurrentSession().Connection = host;
      host->fallback = Done;
      host->On(FromUtf8(statements.at('i')), Rows({u"lngID"}, {{std::int32_t{71}}}));
      host->On(FromUtf8(statements.at('f')), Rows({u"lngID"}, {{std::int32_t{701}}}));
      if (const auto spoilt = statements.find(failing.front()); spoilt != statements.end())
        host->On(FromUtf8(spoilt->second), raises ? Throws() : Refused());
      set_.SaveList();
      std::vector<std::string> expected;
      for (const char each : raises ? raised : refused)
        expected.push_back(statements.at(each));
      EXPECT_EQ(SentTo(*host), expected);
      EXPECT_EQ(std::to_string(set_.List().lngListID), listId);
      if (listId == "0") continue;
      set_.SaveList();
      EXPECT_EQ(SentTo(*host).front(), statements.at('u')) << "a second save updates";
    }
  }
}

TEST_F(Lists, FindAllKeyId) {
  for (const auto& [keyword, statement] : Lines<2>(R"(
class1¦SELECT strCLASSCode  as a1,lngCLASSID as b1 FROM class1 WHERE ( strCLASSCode LIKE '01-%' OR (strCLASSCode LIKE '02-%') OR (strCLASSCode LIKE '02-1-%'))
FLEXIBLEFIELD30¦SELECT strFieldCode  as a1, lngFieldID as b1 FROM FLEXIBLEFIELD30 WHERE ( strFieldCode LIKE '01-%' OR (strFieldCode LIKE '02-%') OR (strFieldCode LIKE '02-1-%'))
Area¦SELECT strAREACode  as a1, lngAREAID as b1 FROM AREA WHERE  ( strAREACode LIKE '01-%' OR (strAREACode LIKE '02-%') OR (strAREACode LIKE '02-1-%'))
Department¦SELECT strDEPARTMENTCode  as a1, lngDEPARTMENTID as b1 FROM DEPARTMENT WHERE ( strDEPARTMENTCode LIKE '01-%' OR (strDEPARTMENTCode LIKE '02-%') OR (strDEPARTMENTCode LIKE '02-1-%')))")) {
    SCOPED_TRACE(keyword);
    host_->On(FromUtf8(statement), Rows({u"a1", u"b1"}, {{u"01-1 ", std::int32_t{5}},
                                                         {u"02-1-3", std::int32_t{6}},
                                                         {u"01", std::int32_t{1}},
                                                         {u"010-1", std::int32_t{9}}}));
    EXPECT_EQ(set_.FindAllKeyID(FromUtf8(keyword), u" 01 02 02-1 "), u"5,6,6")
        << "below two codes: twice";
    EXPECT_THAT(Sent(), ElementsAre(statement));
  }

  const std::string select =
      "SELECT strDEPARTMENTCode  as a1, lngDEPARTMENTID as b1 FROM DEPARTMENT WHERE ";
  host_->On(FromUtf8(select), Refused());
  EXPECT_EQ(set_.FindAllKeyID(u"Department", u"  "), u"") << "blanks alone: the database refuses";
  EXPECT_THAT(Sent(), ElementsAre(select));
  host_->On(
      FromUtf8(select + "( strDEPARTMENTCode LIKE '01-%' OR (strDEPARTMENTCode LIKE '01-%'))"),
      Rows({u"a1", u"b1"}, {{u"01-1", std::int32_t{5}}}));
  EXPECT_EQ(set_.FindAllKeyID(u"Department", u"01 01"), u"5,5") << "a code given twice";
}

}  // namespace
}  // namespace fetchkit::test
