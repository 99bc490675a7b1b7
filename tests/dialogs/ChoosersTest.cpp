// The two dialogs with a list on either side, the picker, and the statements behind it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/Player.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/dialogs/CodeLists.h"
#include "fetchkit/rights/OperatorRight.h"
#include "fetchkit/rights/OrganizationRight.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/Session.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Choosers : public testing::Test {
 protected:
  Choosers() {
    session_.Connection = host_;
    session_.LoginOrganizationCode = u"01-02";
  }

  // A filter dialog's picker as the chooser gets it, with that many items.
  void Fill(int items, bool code) {
    owner_.lxtOther.ColumnSet(code ? u"1,2,3" : u"-1,1");
    Text cells = code ? u"|所有|" : u"所有";
    for (int i = 1; i <= items; ++i)
      cells += code ? Join(u"|", i, u"|c", i, u"|n", i) : Join(u"|c", i);
    cells += code ? u"||选择项目|" : u"|选择项目";
    const auto pieces = Split(cells, u"|");
    owner_.lxtOther.SetList({pieces.begin(), pieces.end()});
  }

  const FreshThread fresh_;
  std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();
  Session& session_ = MAction::CurrentSession();
  Player player_;
  frmFilter owner_{session_, player_};
};

TEST_F(Choosers, ItemConditions) {
  for (const auto& [name, type, chosen, items, acts, ok, ids, names] : Lines<8>(R"(
ids count whole¦code¦1,12¦13¦ok¦true¦1,12¦n1 n12
quotes are not part of a value¦ENUM¦'c3','c2'¦3¦ok¦true¦'c2','c3'¦c2,c3
none of the picker's ids¦CODE¦77,¦3¦ok¦true¦¦
order of choosing¦CODE¦¦3¦right c3 n3; right c1 n1; ok¦true¦3,1¦n3 n1
cancel¦CODE¦2¦3¦all right; cancel¦false¦¦
by their codes¦CODE¦2¦13¦find c13; search enter; find n4; search enter; ok¦true¦2,13,4¦n2 n13 n4
only what is found¦CODE¦¦13¦find c1; all right; search esc; left c1 n1; ok¦true¦10,11,12,13¦n10 n11 n12 n13
several at once keep their order¦CODE¦1¦5¦select left 0 2; press left space; ok¦true¦1,2,4¦n1 n2 n4
and the next one follows¦ENUM¦¦4¦select left 0 1; press left right; press left right; ok¦true¦'c1','c2','c3'¦c1,c2,c3
back, too¦ENUM¦c1,c2,c3,c4¦4¦select right 1 2; press right del; press right left; ok¦true¦'c1'¦c1
keys of the other side¦ENUM¦c1¦3¦press left del; press left left; press right right; ok¦true¦'c1'¦c1
everything by keys¦ENUM¦¦3¦select left; press left space; press left space; ok¦true¦'c1','c2','c3'¦c1,c2,c3
nothing selected¦ENUM¦¦3¦select left 9; press left space; ok¦true¦¦
another type has no items¦LONG¦1¦3¦all right; ok¦true¦¦)")) {
    SCOPED_TRACE(name);
    Fill(std::stoi(items), type != "ENUM");
    frmFilterColumn form(player_, owner_);
    player_.chooser = acts;
    Text shown = u"x", given = u"x";
    EXPECT_EQ(form.ShowFiltration(FromUtf8(type), owner_.lxtOther, FromUtf8(chosen), shown, given),
              ok == "true");
    EXPECT_EQ(ToUtf8(given), ids);
    EXPECT_EQ(ToUtf8(shown), names);
    const int all = type == "LONG" ? 0 : std::stoi(items);
    EXPECT_EQ(form.lblCount.Caption(), Join(u"共 ", form.msgAll.Rows(), u" 项"));
    EXPECT_EQ(form.lblSelectedCount.Caption(), Join(u"已选 ", all - form.msgAll.Rows(), u" 项"));
  }
}

TEST_F(Choosers, TheLimitIsSilentAndLeavesTheRest) {
  Fill(300, true);
  for (const auto& [choosed, acts, expected] :
       {std::tuple(TextView(u""), "all right", 251),
        {u"300,299", "select left; press left space", 251},
        {u"", "all right; all right; select left 0 1; press left right", 251},
        {u"", "all right; right c252 n252", 252}}) {
    const RecordingSink sink;
    frmFilterColumn form(player_, owner_);
    Text names, ids;
    player_.chooser = std::string(acts) + "; ok";
    EXPECT_TRUE(form.ShowFiltration(u"CODE", owner_.lxtOther, choosed, names, ids));
    EXPECT_EQ(form.msgSelected.Rows(), expected);
    EXPECT_EQ(form.msgAll.Rows(), 300 - expected);
    EXPECT_EQ(form.msgSelected.TextMatrix(250, 2), choosed.empty() ? u"c251 n251" : u"c249 n249");
    EXPECT_EQ(form.msgAll.ColWidth(2), 2195);
    ASSERT_FALSE(sink.failures.empty());
    EXPECT_EQ(sink.failures[0].what, u"frmFilterColumn: 已选条件项目个数已经很多,不能再增加了!");
  }
}

TEST_F(Choosers, MultiChoose) {
  const auto choose = [&](TextView sql, Text caption, Text chosen) {
    RecordsetPtr rows;
    EXPECT_TRUE(host_->OpenStaticRecordset(sql, rows, 3, 1, 1, 0));
    const auto result =
        frmMultiChoose(player_).ShowMultiChoose({rows, caption, chosen, false, Value(), 0});
    host_->CloseRecordset(rows);
    return result;
  };
  host_->On(u"codes",
            Rows({u"STRNAME", u"id", u"strCode"}, {{u"财务部", std::int32_t{1}, u"01"},
                                                   {u"销售部", std::int32_t{2}, u"02"},
                                                   {u"部", std::int32_t{3}, u"1"},
                                                   {NullValue(), std::int32_t{4}, u"09"}}));
  for (const auto& [name, chosen, acts, ok, condition, shown] : Lines<6>(R"(
names in the order of the columns¦¦all right; ok¦true¦(部&门='财务部 01' 或 部&门='销售部 02' 或 部&门='部 1' 或 部&门='09')¦财务部 01,销售部 02,部 1,09
a part of another item counts¦(部&门='销售部 1')¦ok¦true¦(部&门='部 1')¦部 1
own order¦财务部 01 销售部 02¦up 销售部 02; right 09; up 09; up 09; down 09; ok¦true¦(部&门='销售部 02' 或 部&门='09' 或 部&门='财务部 01')¦销售部 02,09,财务部 01
one of several moves neither up nor down¦财务部 01 销售部 02¦select right; up; right 09; ok¦true¦(部&门='财务部 01' 或 部&门='销售部 02' 或 部&门='09')¦财务部 01,销售部 02,09
two at once¦¦select left 0 2; press left right; up 部 1; ok¦true¦(部&门='部 1' 或 部&门='财务部 01')¦部 1,财务部 01
at the ends nothing moves¦财务部 01 销售部 02¦up 财务部 01; down 销售部 02; ok¦true¦(部&门='财务部 01' 或 部&门='销售部 02')¦财务部 01,销售部 02
nothing chosen¦销售部 02¦left 销售部 02; ok¦true¦¦
all back¦销售部 02¦all left; ok¦true¦¦
left open¦销售部 02¦all right¦false¦¦)")) {
    SCOPED_TRACE(name);
    player_.multi = acts;
    player_.onMulti = [](frmMultiChoose& view) {
      EXPECT_EQ(view.Caption(), u"选择部&门");
      EXPECT_EQ(view.lblAll.Caption(), u"可选部&&门(&S)");
      EXPECT_EQ(view.lblSelected.Caption(), u"已选部&&门(&T)");
      EXPECT_EQ(view.cmdLeftAll.Enabled(), view.lstSelected.ListCount() > 0);
    };
    const auto result = choose(u"codes", u"部&门", FromUtf8(chosen));
    EXPECT_EQ(result.bOk, ok == "true");
    EXPECT_EQ(ToUtf8(result.condition), condition);
    EXPECT_EQ(ToUtf8(result.strShowCond), shown);
  }
  // Enumerations: index 0 is skipped, whatever the bounds; what is chosen already is not asked.
  for (const auto& [lower, expected] : {std::pair(0, u"b,c"), {1, u"a,b,c"}, {-1, u"c"}}) {
    frmMultiChoose form(player_);
    player_.multi = "all right; ok";
    player_.onMulti = [](frmMultiChoose& shown) {
      EXPECT_THAT(shown.lstSelected.Items(), IsEmpty());
      shown.lstAll.extent = {50, 10, 8, 0};
      const int last = shown.lstAll.ListCount() - 1;
      shown.lstAll.UserMovedPointer(10 * last);
      EXPECT_EQ(shown.lstAll.ToolTipText(), u"") << "one letter is not wider than the list";
      shown.lstAll.List(last, u"四个汉字");
      shown.lstAll.UserMovedPointer(10 * last + 9);
      EXPECT_EQ(shown.lstAll.ToolTipText(), u"四个汉字") << "eight bytes are";
      shown.lstAll.UserMovedPointer(10 * last + 10);
      EXPECT_EQ(shown.lstAll.ToolTipText(), u"");
      shown.lstAll.List(last, u"c");
    };
    const ValueArray items{true, lower, {u"a", u"b", u"c"}};
    const auto result = form.ShowMultiChoose({nullptr, u"k", u"(k='b')", true, Value(items), 0});
    EXPECT_EQ(result.strShowCond, expected);
  }
  // A list that breaks off offers what was read.
  Answer broken = Rows({u"strCode"}, {{u"1"}, {u"2"}, {u"3"}});
  broken.throwAtRow = 2;
  host_->On(u"broken", broken);
  player_.onMulti = nullptr;
  player_.multi = "all right; ok";
  EXPECT_EQ(choose(u"broken", u"k", u"").strShowCond, u"1,2");
}

TEST_F(Choosers, SearchInTheLeftList) {
  const ValueArray items{true,
                         0,
                         {NullValue(), u"1001 现金", u"1002 银行存款", u"100201 工行", u"2202 应付",
                          u"5602 银行手续费"}};
  // The left list, its current item, the right list, the left count, and what wants the focus.
  for (const auto& [acts, state] : Lines<2>(R"(
find yh¦1002 银行存款 5602 银行手续费|1002 银行存款||找到 2 项，共 5 项|
find 02¦1002 银行存款 100201 工行 2202 应付 5602 银行手续费|1002 银行存款||找到 4 项，共 5 项|
find 10; find 02; search esc¦1001 现金 1002 银行存款 100201 工行 2202 应付 5602 银行手续费|1002 银行存款||共 5 项|
find 5; search enter; find yh; search enter¦1001 现金 100201 工行 2202 应付|100201 工行|5602 银行手续费 1002 银行存款|共 3 项|
find 1002; all right; search esc¦1001 现金 2202 应付 5602 银行手续费|1001 现金|1002 银行存款 100201 工行|共 3 项|
all right; find yh; all left¦1002 银行存款 5602 银行手续费|1002 银行存款||找到 2 项，共 5 项|
find 1002; all right; find yh; select right 0; press right space; search esc¦1001 现金 2202 应付 5602 银行手续费 1002 银行存款|1002 银行存款|100201 工行|共 4 项|
all right; find yh; select right 0; press right space; select right 3; press right space¦5602 银行手续费|5602 银行手续费|1002 银行存款 100201 工行 2202 应付|找到 1 项，共 2 项|
find yh; press left space¦5602 银行手续费|5602 银行手续费|1002 银行存款|找到 1 项，共 4 项|
select left 0 1; find 22; search esc¦1001 现金 1002 银行存款 100201 工行 2202 应付 5602 银行手续费|2202 应付||共 5 项|
find zz; search enter; all right; search down¦|||找到 0 项，共 5 项|
find zz; search esc; search down¦1001 现金 1002 银行存款 100201 工行 2202 应付 5602 银行手续费|1001 现金||共 5 项|lstAll
find 22; search down¦2202 应付|2202 应付||找到 1 项，共 5 项|lstAll)")) {
    SCOPED_TRACE(acts);
    player_.multi = acts;
    player_.afterMulti = [&state = state](frmMultiChoose& form) {
      const int current = form.lstAll.ListIndex();
      const Text item = current < 0 ? Text() : form.lstAll.List(current);
      EXPECT_EQ(ItemsOf(form.lstAll) + "|" + ToUtf8(item) + "|" + ItemsOf(form.lstSelected) + "|" +
                    ToUtf8(form.lblCount.Caption()) + "|" + NameOf(form.TakeFocusWish()),
                state);
      EXPECT_EQ(form.lstAll.Selection().size(), current < 0 ? 0u : 1u);
      EXPECT_EQ(form.lstAll.FindTyped(u"yh", current), form.lstAll.FindTyped(u"银行", current));
    };
    frmMultiChoose(player_).ShowMultiChoose({nullptr, u"科目", u"", true, Value(items), 0});
    player_.afterMulti = nullptr;
  }
}

// Rights are asked for the named table and no other; they answer "all codes".
TEST_F(Choosers, CodeListStatements) {
  EXPECT_EQ(
      CodeListStatementOf(session_, u"FBItem").sql,
      u"SELECT lngFBItemID,strFBItemCode,strFBItemName FROM FBItem WHERE blnIsInActive = 0 And "
      u"1=0 And 1=0 Order By strFBItemCode")
      << "before a login nothing may be seen";
  host_->TakeSent();
  auto person = std::make_shared<Operator>();
  person->OperatorId(3);
  person->OrganizationId(20);
  MAction::OperatorRight(session_)->SetOperator(person);
  const auto organization = MAction::LoginOrganization(session_);
  organization->OrganizationID(20);
  MAction::OrganizationRight(session_)->SetOrganization(organization);
  host_->fallback = [](TextView sql) {
    static const Answer all = Rows({u"blnHaveRight"}, {{std::int32_t{1}}});
    static const Answer none = Rows({u"lngKeyID", u"blnUse"}, {});
    return sql.find(u"blnAll") != TextView::npos ? &all : &none;
  };
  for (const auto& [keyword, table, statement] : Lines<3>(R"(
department¦Department¦SELECT lngDepartmentID,strDepartmentCode,strDepartmentName From Department WHERE blnIsInActive=0 AND strDepartmentCode<>' '  ORDER BY strDepartmentCode ASC
CUSTOMERTYPE¦CustomType¦SELECT lngCustomTypeID,strCustomTypeCode,strCustomTypeName From CustomType WHERE blnIsInActive=0 AND strCustomTypeCode<>' '  ORDER BY strCustomTypeCode ASC
Class1¦Class1¦SELECT lngClassID,strClassCode,strClassName From Class1 WHERE blnIsInActive=0 AND strClassCode<>' '  ORDER BY strClassCode ASC
OPERATOR¦¦SELECT Distinct lngOperatorID,strOperatorCode,strOperatorName FROM Operator Order By strOperatorCode
ORGANIZATION¦¦ SELECT lngOrganizationID,strOrganizationCode, strOrganizationName FROM Organization WHERE 1=1 AND (strOrganizationCode='01-02' OR strOrganizationCode like '01-02-%')  Order by Organization.strOrganizationCode 
FBITEM¦FBItem¦SELECT lngFBItemID,strFBItemCode,strFBItemName FROM FBItem WHERE blnIsInActive = 0 Order By strFBItemCode
FBPERIOD¦¦SELECT lngFBPeriodID,strFBPeriodName FROM FBPeriod WHERE blnIsInActive = 0 Order By lngFBPeriodID
CURRENCYS¦¦SELECT lngCurrencyID,strCurrencyCode,strCurrencyName FROM Currencys WHERE blnIsInActive = 0 Order By strCurrencyCode
Employee¦¦SELECT T1.lngEmployeeID,strEmployeeCode,strEmployeeName FROM Employee T1 WHERE T1.blnIsInActive = 0 ORDER BY strEmployeeCode)")) {
    EXPECT_EQ(ToUtf8(CodeListStatementOf(session_, FromUtf8(keyword)).sql), statement);
    std::vector<std::string> asked;
    if (!table.empty())
      asked = {"SELECT blnAll" + table +
                   " As blnHaveRight FROM OperatorAllRight WHERE lngOperatorID = 3 AND "
                   "lngOrganizationID = 20",
               "SELECT lngKeyID,blnUse FROM OrgCodeAllot WHERE lngOrganizationID = 20 AND "
               "Upper(strTableName) = '" +
                   ToUtf8(UpperAscii(FromUtf8(table))) + "'"};
    EXPECT_EQ(host_->TakeSent(), asked) << keyword;
  }
  for (const auto& [names, from, rights] :
       {std::tuple(u"Class2 Functional GovernmentECO DepartmentECO", u"From", 2u),
        {u"FBDutyCenter FBScheme FBType FBSystem FBTarget", u"FROM", 2u},
        {u"RTScheme RTType RTSystem RTTarget RTItem RTDutyCenter", u"FROM", 0u}})
    for (const TextView name : Split(names, u" ")) {
      const Text sql = CodeListStatementOf(session_, UpperAscii(name)).sql;
      EXPECT_NE(sql.find(Join(u"Name ", from, u" ", name, u" WHERE")), Text::npos) << ToUtf8(sql);
      EXPECT_EQ(host_->TakeSent().size(), rights) << ToUtf8(name);
    }
  EXPECT_THAT(CodeListStatementOf(session_, u"Employee").fallbacks,
              ElementsAre(u" SELECT lngEmployeeID,strEmployeeCode, strEmployeeName FROM Employee"));

  organization->NextLevelOrganizationId(u"21,22");
  std::string names;
  for (const auto& [caption, statement] : Lines<2>(R"(
操作员¦SELECT distinct strOperatorName FROM Operator,OrgOperatorAllot Where OrgOperatorAllot.lngOperatorID = Operator.lngOperatorID And OrgOperatorAllot.lngOrganizationID IN (20,21,22) ORDER BY 1
加工出库制单人¦=
复核操作员¦=
操作员编码¦SELECT distinct strOperatorCode FROM Operator ORDER BY 1
科目类别¦SELECT distinct strAccountTypeName FROM AccountType order by 1)")) {
    if (statement != "=") names = statement;
    EXPECT_EQ(ToUtf8(EnumListStatementOf(session_, FromUtf8(caption))), names);
  }
  MAction::Business(session_)->AccountType(16);
  EXPECT_EQ(EnumListStatementOf(session_, u"科目类型"),
            u"SELECT distinct strAccountTypeName FROM ACCOUNTTYPEVIEW AccountType order by 1");
}

TEST_F(Choosers, ListsThatDoNotOpen) {
  const Text table =
      u"SELECT T1.lngXID,strXCode,strXName FROM X T1 WHERE T1.blnIsInActive = 0 ORDER BY strXCode";
  const Text fallback = u" SELECT lngXID,strXCode, strXName FROM X";
  host_->On(
      u"SELECT lngRTPeriodID,strRTPeriodName FROM RTPeriod WHERE blnIsInActive = 0 Order By "
      u"lngRTPeriodID",
      Rows({u"lngRTPeriodID", u"strRTPeriodName"}, {{std::int32_t{4}, u"三月"}}));
  EXPECT_THAT(ReadCodeList(session_, u"RTPERIOD").cells, ElementsAre(u"4", u"", u"三月"));
  Answer broken = Rows({u"lngXID", u"strXCode", u"strXName"},
                       {{std::int32_t{1}, u"01", u"x"}, {std::int32_t{2}, u"02", u"y"}});
  host_->On(fallback, broken);
  for (const Answer& answer : {Refused(), Throws()}) {
    host_->On(table, answer);
    EXPECT_THAT(ReadCodeList(session_, u"X").cells,
                ElementsAre(u"1", u"01", u"x", u"2", u"02", u"y"));
  }
  broken.throwAtRow = 1;
  host_->On(table, broken);
  EXPECT_THAT(ReadCodeList(session_, u"X").cells, ElementsAre(u"1", u"01", u"x"))
      << "opened: no second try";
  EXPECT_FALSE(ReadCodeList(session_, u"X").isWhole);
  host_->On(table, Refused());
  host_->On(fallback, Throws());
  EXPECT_THAT(ReadCodeList(session_, u"X").cells, IsEmpty());

  // The columns of some tables are named after a part of the keyword.
  host_->TakeSent();
  host_->fallback = [](TextView) {
    static const Answer refused = Refused();
    return &refused;
  };
  for (const auto& [keyword, stem] :
       {std::pair(u"Custom3", u"CUSTOM"), {u"FLEXIBLEFIELD07", u"Field"}}) {
    const Text id = Join(u"lng", stem, u"ID"), code = Join(u"str", stem, u"Code"),
               name = Join(u"str", stem, u"Name");
    host_->On(Join(u"SELECT ", id, u",", code, u",", name, u" FROM ", keyword),
              Rows({id, code, name}, {{std::int32_t{1}, u"01", u"x"}}));
    EXPECT_THAT(ReadCodeList(session_, keyword).cells, ElementsAre(u"1", u"01", u"x"));
    EXPECT_EQ(host_->TakeSent().size(), 3u);
  }
}

TEST_F(Choosers, PickerFindsByTyping) {
  PickCombo picker(owner_, u"lxtOther");
  picker.ColumnSet(u"1,2,3");
  picker.SetList({u"", u"所有", u"", u"7", u"b2", u"Zeta", u"8", u"B1", u"张三", u"9", u"a",
                  u"alpha", u"incomplete"});
  ASSERT_EQ(picker.ListCount(), 4) << "an incomplete row is none";
  static constexpr std::pair<TextView, int> kTyped[] = {
      {u"B", 2}, {u"b2", 1}, {u"A ALP", 3}, {u"zE", 1},  {u"张", 2}, {u"所", 0}, {u"b3", -1},
      {u"", -1}, {u"7", -1}, {u"sy", 0},    {u"b1z", 2}, {u"zs", 2}, {u" ", -1}};
  for (const auto& [typed, row] : kTyped)
    EXPECT_EQ(picker.FindTyped(typed), row) << ToUtf8(typed);
}

}  // namespace
}  // namespace fetchkit::test
