// The filter dialog, played on its control models.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialogs/Player.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/session/model/Session.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

using testing::ElementsAre;

ListFieldType Column(TextView caption, TextView type, TextView name, TextView table = u"",
                     TextView key = u"", TextView value = u"") {
  ListFieldType field;
  field.blnIsFilter = true;
  field.strListFieldDesc = field.strPath = Text(caption);
  field.strFieldType = Text(type);
  field.strFieldName = Text(name);
  field.strTableName = Text(table);
  field.strKeyField = Text(key);
  field.strExtValue = Text(value);
  return field;
}

class FilterDialog : public testing::Test {
 protected:
  FilterDialog() {
    session_.Connection = host_;
    session_.LoginDate = u"2004-03-17";
    host_->fallback = [](TextView) {
      static const Answer none = Refused();  // neither other tables nor accounting periods
      return &none;
    };
    host_->On(
        u"SELECT T1.lngPersonID,strPersonCode,strPersonName FROM Person T1 WHERE "
        u"T1.blnIsInActive = 0 ORDER BY strPersonCode",
        Refused());
    host_->On(u" SELECT lngPersonID,strPersonCode, strPersonName FROM Person",
              Rows({u"lngPersonID", u"strPersonCode", u"strPersonName"},
                   {{std::int32_t{1}, u"01", u"张三"},
                    {std::int32_t{12}, u"02", u"李四"},
                    {std::int32_t{2}, u"03", NullValue()}}));
    host_->On(
        u"SELECT strEnumNumber FROM EnumTable WHERE LTrim( Rtrim(Enumtable.strViewFieldDesc) "
        u")='状态' order by 1",
        Rows({u"strEnumNumber"}, {{u"3"}, {u"4"}, {u"所有"}, {NullValue()}}));
    list_.strListWhere = u"1=1";
    list_.ListField = {Column(u"名&称", u"string", u"Name"),
                       Column(u"数量", u"LONG", u"Qty"),
                       Column(u"金额", u"Double", u"Amount"),
                       Column(u"件|数", u"INTEGER", u"Pieces"),
                       Column(u"停用", u"BOOLEAN", u"Off"),
                       Column(u"期间", u"PERIOD", u"Day"),
                       Column(u"日期", u"DATE", u"Sent"),
                       Column(u"人员", u"CODE", u"P.strPersonName", u"P", u"Person"),
                       Column(u"状态", u"ENUM", u"State"),
                       Column(u"旧", u"MONEY", u"Old"),
                       Column(u"隐藏", u"LONG", u"Hidden")};
    list_.ListField.back().blnIsFilter = false;
  }

  // What happens behind the acts is done to the form, which may be closed.
  bool Show(std::string acts, std::function<void(frmFilter&)> behind = nullptr) {
    player_.filter = std::move(acts);
    player_.onFilter = std::move(behind);
    where_ = u"before";
    return frmFilter(session_, player_).ShowFilter(list_, where_, 0);
  }

  const FreshThread fresh_;
  std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();
  Session& session_ = MAction::CurrentSession();
  Player player_;
  ListType list_;
  Text where_;
};

// The title of the open editor, the tree's current node, the grid's row, what wants the focus, and
// the count.
std::string StateOf(frmFilter& form) {
  const int node = form.tvwFilter.SelectedItem();
  const Text title = form.lblTitle.Visible() ? form.lblTitle.Caption() : Text();
  const Text column =
      node < 0 ? Text() : form.tvwFilter.Nodes()[static_cast<std::size_t>(node)].Text;
  return ToUtf8(Join(title, u"|", column, u"|", form.msgFilter.Row(), u"|")) +
         NameOf(form.TakeFocusWish()) + "|" + ToUtf8(form.lblCount.Caption());
}

// Each row begins with no condition, plays the acts and then OK. grid is
// "caption|shown|type|machine form" of its only row, empty for none.
TEST_F(FilterDialog, ActsBecomeRowsAndSql) {
  const ListType before = list_;
  for (const auto& row : Lines<5>(R"(
node 名&称; pick 等于; from 张 三; leave from¦名&称|等于 张 三|string|张 三¦Name = '张 三'¦lxtOther txtFrom¦
node 名&称; pick 包含字符; from a¦名&称|包含字符 a|string|a¦Name Like '%a%'¦lxtOther txtFrom¦
node 名&称; pick 介于; from a; leave from to to; to b; leave to¦名&称|介于 a,b|string|a,b¦(Name > 'a' And Name < 'b')¦lxtOther lblFrom txtFrom lblTo txtTo¦
node 名&称; pick 空值¦名&称|空值|string|¦Name Is Null¦lxtOther¦
node 金额; pick 小于等于; from 1e125; leave from¦金额|小于等于 1e125|Double|1e125¦Amount <= 1e125¦lxtOther txtFrom¦
node 件|数; pick 零或空值¦件|数|零或空值|INTEGER|¦(Pieces Is Null or Pieces=0)¦lxtOther¦
node 停用; pick 是; pick 否¦停用|否|BOOLEAN|否¦Off = '否'¦lxtOther¦
node 期间; pick 本月¦期间|本月|PERIOD|2004-03-01,2004-03-31¦(Day >= '2004-03-01' And Day <= '2004-03-31')¦lxtOther lblFrom datFrom lblTo datTo¦
node 期间; pick 本月; date to 2004-02-01¦期间|自定义 (2004-03-01,2004-02-01)|PERIOD|2004-03-01,2004-02-01¦(Day >= '2004-03-01' And Day <= '2004-02-01')¦lxtOther lblFrom datFrom lblTo datTo¦
node 期间; pick 自定义¦期间|自定义 (2004-03-17,2004-03-17)|PERIOD|2004-03-17,2004-03-17¦(Day >= '2004-03-17' And Day <= '2004-03-17')¦lxtOther lblFrom datFrom lblTo datTo¦
node 日期; date one 2004-02-29¦日期|2004-02-29|DATE|2004-02-29¦Sent = '2004-02-29'¦datDate¦
node 日期; tick on; node 停用; node 日期¦日期|2004-03-17|DATE|2004-03-17¦Sent = '2004-03-17'¦datDate¦
node 日期; tick on; clear; node 日期; tick off¦¦¦datDate¦
node 人员; pick 选择项目¦人员|张三 李四|CODE|1,1,12¦P.lngPersonID In(1,12)¦lxtOther¦right 01 张三; right 02 李四; ok
node 人员; choose¦人员|2|CODE|0,2¦P.lngPersonID = 2¦lxtOther¦right 03; ok
node 人员; pick 02 李四; pick 选择项目¦¦¦lxtOther¦left 02 李四; ok
node 人员; pick 02 李四; pick 选择项目¦人员|02 李四|CODE|0,12¦P.lngPersonID = 12¦lxtOther¦all right; cancel
node 状态; pick 选择项目¦状态|4,3,所有,|ENUM|1,'4','3','所有',''¦State In('4','3','所有','')¦lxtOther¦right 4; all right; ok
node 状态; pick ¦状态|''|ENUM|0,''¦State = ''¦lxtOther¦
node 状态; pick 4; pick 选择项目; node 数量; pick 零或空值; delete 数量¦¦¦lxtOther¦all left; ok
node 数量; pick 介于; leave to¦¦¦lxtOther lblFrom txtFrom lblTo txtTo¦
node 数量; pick 介于; from 1; to 2; leave to; from ; to ; leave to¦¦¦lxtOther lblFrom txtFrom lblTo txtTo¦
node 数量; pick 大于; from 7; pick 小于; leave from¦数量|小于 7|LONG|7¦Qty < 7¦lxtOther txtFrom¦
node 数量; pick 大于; from 7; node 旧¦数量|大于 7|LONG|7¦Qty > 7¦¦
node 数量; pick 大于; from 7; leave from; pick 小于; from ; pick 等于; leave from¦¦¦lxtOther txtFrom¦
node 数量; pick 大于; from 7; leave from; pick 介于; leave to¦数量|大于 7|LONG|7¦Qty > 7¦lxtOther lblFrom txtFrom lblTo txtTo¦
node 数量; pick 介于; from 9; to 5; leave from to to; to 10¦数量|介于 9,10|LONG|9,10¦(Qty > 9 And Qty < 10)¦lxtOther lblFrom txtFrom lblTo txtTo¦)")) {
    SCOPED_TRACE(row[0] + " / " + row[4]);
    list_ = before;
    std::vector<std::string> expected;
    if (!row[1].empty()) expected.push_back(row[1]);
    player_.chooser = row[4];
    EXPECT_TRUE(Show(row[0], [&](frmFilter& form) {
      EXPECT_EQ(EditorsOf(form), row[3]);
      form.UserPressedEnter();
      EXPECT_EQ(RowsOf(form.msgFilter, {1, 2, 3, 4}), expected);
      EXPECT_FALSE(form.IsOpen());
    }));
    EXPECT_EQ(ToUtf8(where_), row[2]);
    std::vector<std::string> written;
    for (const ListFieldType& field : list_.ListField)
      if (!field.strFilter.empty())
        written.push_back(ToUtf8(Join(field.strListFieldDesc, u"|", field.strFilter, u"|",
                                      field.strFieldType, u"|", field.strExtValue)));
    EXPECT_EQ(written, expected);
    const ListFieldType& code = list_.ListField[7];
    EXPECT_EQ(code.strCodeID, code.strFilter.empty() ? u"" : code.strExtValue.substr(2));
    EXPECT_EQ(code.blnIsMuliCond, code.strExtValue.starts_with(u"1,"));
    // What was confirmed is shown again, and confirmed again it is the same.
    const ListType once = list_;
    EXPECT_TRUE(Show("ok"));
    EXPECT_EQ(list_, once);
    EXPECT_EQ(ToUtf8(where_), row[2]);
  }
}

// The picker's keys: shown is "open"'s highlight, or "closed" with the focus that is wanted.
TEST_F(FilterDialog, ThePickerCommitsOnPurposeOnly) {
  for (const char* type : {"名&称", "停用", "期间", "人员", "状态"}) {
    EXPECT_FALSE(Show(std::string("node ") + type + "; keys left right home end pgup pgdn",
                      [](frmFilter& form) {
                        EXPECT_FALSE(form.lxtOther.IsOpen());
                        Play(form, "keys down down down up esc");
                        EXPECT_FALSE(form.lxtOther.IsOpen());
                        EXPECT_EQ(form.msgFilter.Rows(), 1);
                        EXPECT_FALSE(form.lxtOther.UserPressed(PickCombo::Key::Enter));
                        EXPECT_EQ(form.lxtOther.ListIndex(), 0);
                      }))
        << type;
  }
  list_.ListField[7].strFilter = u"张三 李四";
  list_.ListField[7].strExtValue = u"1,1,12";
  for (const auto& [acts, highlight, focus] : Lines<3>(R"(
node 数量; keys down¦0¦
node 数量; keys down end up¦7¦
node 数量; keys 介 无¦8¦
node 数量; keys 零 enter¦closed¦
node 数量; keys 介 tab¦closed¦txtFrom
node 期间; keys 自 enter¦closed¦datFrom
node 数量; keys 零 tab¦closed¦msgFilter
node 数量; keys 零 back¦closed¦tvwFilter
node 人员; keys down¦4¦
node 人员; keys 02 back; keys up¦2¦tvwFilter)")) {
    SCOPED_TRACE(acts);
    EXPECT_FALSE(Show(acts, [&, &highlight = highlight, &focus = focus](frmFilter& form) {
      const PickCombo& picker = form.lxtOther;
      EXPECT_EQ(picker.IsOpen() ? std::to_string(picker.Highlight()) : "closed", highlight);
      EXPECT_EQ(NameOf(form.TakeFocusWish()), focus);
    }));
  }
}

TEST_F(FilterDialog, ARefusedValueIsMarkedAndTheUserGoesOn) {
  list_.ListField[1].strFilter = u"等于 1";
  list_.ListField[1].strExtValue = u"1";
  const ListType before = list_;
  for (const auto& row : Lines<3>(R"(
node 数量; pick 大于; from 12a; leave from¦from¦请输入一个数字！
node 数量; pick 介于; from 1; leave from to to; leave to¦to¦请输入一个数字！
node 名&称; pick 介于; to b; leave to¦from¦终止值不应大于起始值，请正确输入！
node 金额; pick 介于; from -1.1e125; to 1; leave to¦from¦请输入一个数字！
node 名&称; pick 等于; from O'Neil; leave from¦from¦输入了非法字符,如:'.
node 名&称; pick 介于; from b; to a; leave from¦to¦终止值不应大于起始值，请正确输入！)")) {
    SCOPED_TRACE(row[0]);
    const RecordingSink sink;
    EXPECT_FALSE(Show(row[0], [&](frmFilter& form) {
      const TextBox& box = row[1] == "to" ? form.txtTo : form.txtFrom;
      EXPECT_EQ(RowsOf(form.msgFilter, {1, 2}), std::vector<std::string>{"数量|等于 1"});
      EXPECT_EQ(ToUtf8(box.Mark()), row[2]);
      EXPECT_EQ(form.TakeFocusWish(), nullptr) << "the focus goes where the user went";
      form.UserPressedEnter();
      EXPECT_TRUE(form.IsOpen()) << "OK does not close over a refused value";
      EXPECT_EQ(form.TakeFocusWish(), &box);
      form.txtFrom.UserTyped(u"5'");
      EXPECT_EQ(form.txtFrom.Mark() + form.txtTo.Mark(), u"") << "typing takes the mark away";
      form.UserPressedEnter();
      Play(form, "node 停用; node 数量");
      EXPECT_EQ(form.TakeFocusWish(), nullptr) << "the user has gone on";
      EXPECT_EQ(form.txtFrom.Mark() + form.txtTo.Mark(), u"");
      EXPECT_EQ(RowsOf(form.msgFilter, {1, 2}), std::vector<std::string>{"数量|等于 1"});
    }));
    EXPECT_EQ(list_, before);
    ASSERT_FALSE(sink.failures.empty());
    EXPECT_EQ(ToUtf8(sink.failures.front().what), "frmFilter: " + row[2]);
    EXPECT_EQ(CurrentThread().lastError, u"A value has the wrong type.");
  }
  for (const char16_t unit : TextView(u"`~!@#$%^&*=+'\";:,/?|\\"))
    EXPECT_NE(WarningOf(false, TextView(&unit, 1)), u"") << int{unit};
  // Everything answers at once.
  for (const auto& [acts, isOpen, rows] : Lines<3>(R"(
cancel¦false¦1
close¦false¦1
clear; ok¦false¦0
pick 任意; ok¦false¦0
enter from¦true¦1
node 停用; pick 是; ok¦false¦2)")) {
    SCOPED_TRACE(acts);
    Show("node 数量; pick 大于; from x; leave from; " + acts,
         [&isOpen = isOpen, &rows = rows](frmFilter& form) {
           EXPECT_EQ(form.IsOpen(), isOpen == "true");
           EXPECT_EQ(form.msgFilter.Rows() - 1, std::stoi(rows));
         });
    list_ = before;
  }
}

TEST_F(FilterDialog, OpensWithTheConditionsOfTheRecord) {
  const ListType before = list_;
  for (const auto& row : Lines<7>(R"(
0¦介于 a,b¦a,b¦介于¦8¦a¦b
1¦零或空值¦¦零或空值¦1¦¦
5¦上周¦2004-03-07,2004-03-13¦上周¦4¦2004-03-07¦2004-03-13
5¦自定义 (2003-01-01,2003-02-01)¦2003-01-01,2003-02-01¦自定义¦21¦2003-01-01¦2003-02-01
5¦年初至本期¦2003-01-01,x¦年初至本期¦-1¦2003-01-01¦2004-03-17
6¦2004-02-29¦2004-02-29¦¦-1¦2004-02-29¦2004-03-17
7¦张三 李四¦1,1,12¦张三 李四¦-1¦¦
7¦01 张三¦0,1¦01 张三¦1¦¦
8¦''¦0,''¦''¦4¦¦)")) {
    SCOPED_TRACE(row[1]);
    list_ = before;
    ListFieldType& field = list_.ListField.at(std::stoul(row[0]));
    field.strFilter = FromUtf8(row[1]);
    field.strExtValue = FromUtf8(row[2]);
    EXPECT_FALSE(Show(ToUtf8(Join(u"node ", field.strListFieldDesc)), [&](frmFilter& form) {
      EXPECT_EQ(ToUtf8(form.lblTitle.Caption()), ToUtf8(field.strListFieldDesc));
      if (form.lxtOther.Visible()) {
        EXPECT_EQ(ToUtf8(form.lxtOther.Text()), row[3]);
        EXPECT_EQ(form.lxtOther.ListIndex(), std::stoi(row[4]));
      }
      const bool dates = row[0] == "5" || row[0] == "6";
      const DateSpinner& first = row[0] == "6" ? form.datDate : form.datFrom;
      EXPECT_EQ(ToUtf8(dates ? first.Text() : form.txtFrom.Text()), row[5]);
      EXPECT_EQ(ToUtf8(dates ? form.datTo.Text() : form.txtTo.Text()), row[6]);
    }));
  }
}

// A view whose windows take the form's own changes for acts of the user.
class Echo : public FormObserver {
 public:
  explicit Echo(frmFilter& form) : form_(form) { form.Attach(this); }
  ~Echo() override { form_.Attach(nullptr); }
  void Changed(Control&) override {
    form_.lxtOther.UserPicked(1);
    form_.UserPressedEnter();
  }
  void FocusWanted(Control&) override {}
  void Closed(Form&) override {}

 private:
  frmFilter& form_;
};

TEST_F(FilterDialog, GridTreeAndLimits) {
  EXPECT_FALSE(Show("", [&](frmFilter& form) {
    const MSFlexGrid& grid = form.msgFilter;
    std::vector<std::string> columns;
    for (int col = 0; col < grid.Cols(); ++col)
      columns.push_back(ToUtf8(grid.TextMatrix(0, col)) + " " + std::to_string(grid.ColWidth(col)));
    EXPECT_THAT(columns, ElementsAre("FieldIndex 0", "过滤项目 1500", "过滤条件 2280", "字段类型 0",
                                     "附加条件 0"));
    const auto& nodes = form.tvwFilter.Nodes();
    ASSERT_EQ(nodes.size(), 10u) << "a column that cannot be filtered has no node";
    EXPECT_EQ(nodes[2].Key, u"KEY2");
    EXPECT_EQ(nodes[2].Tag, 2);
    EXPECT_EQ(form.tvwFilter.SelectedItem(), 0);
    EXPECT_EQ(EditorsOf(form), "lxtOther") << "the first node's editor";
    EXPECT_FALSE(form.lblTitle.UseMnemonic()) << "a caption with & is shown as it is";
    Play(form, "node 数量");
    const Echo echo(form);
    Play(form, "node 名&称");
    EXPECT_TRUE(form.IsOpen());
    EXPECT_EQ(grid.Rows(), 1) << "an echo while the editors are rearranged";
  }));

  using Picture = TreeView::Picture;
  EXPECT_FALSE(Show("node 数量; pick 零或空值; node 日期", [](frmFilter& form) {
    const auto& nodes = form.tvwFilter.Nodes();
    static constexpr Picture kPictures[] = {
        Picture::Words, Picture::Number, Picture::Number, Picture::Number, Picture::YesNo,
        Picture::Date,  Picture::Date,   Picture::List,   Picture::List,   Picture::Words};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      EXPECT_EQ(nodes[i].Shows, kPictures[i]) << i;
      EXPECT_EQ(nodes[i].Bold, i == 1) << i;
      EXPECT_EQ(nodes[i].Image, u"closed");
    }
    EXPECT_EQ(form.lblOther.Caption(), u"日期(&T)");
    Play(form, "node 数量; pick 大于");
    EXPECT_EQ(form.lblOther.Caption(), u"条件(&T)");
    EXPECT_TRUE(form.lblValue.Visible() && form.txtFrom.IsAlone());
    Play(form, "pick 介于");
    EXPECT_FALSE(form.lblValue.Visible() || form.txtFrom.IsAlone());
    Play(form, "clear");
    EXPECT_FALSE(nodes[1].Bold);
    EXPECT_EQ(form.lblCount.Caption(), u"已设 0 个条件");
  }));

  // 25 rows take one more; with 26 the tree opens nothing, and the grid opens what it has.
  ListType wide;
  for (int i = 0; i < 28; ++i) {
    wide.ListField.push_back(Column(Join(u"c", i), u"LONG", u"n"));
    if (i < 25) wide.ListField.back().strFilter = wide.ListField.back().strExtValue = u"零或空值";
  }
  for (const auto& [acts, state] : Lines<2>(R"(
row c3¦c3|c3|4||已设 25 个条件，还可设 1 个
node c26; row c3; F2¦c3|c3|4|lxtOther|已设 25 个条件，还可设 1 个
node c26; double c24; pick 大于¦c24|c24|25|txtFrom|已设 25 个条件，还可设 1 个
node c26; delete c3¦c4|c4|4||已设 24 个条件，还可设 2 个
node c3; pick 任意¦c3|c3|-1||已设 24 个条件，还可设 2 个
delete c3; delete c4; delete c5; delete c6; delete c7¦c8|c8|4||已设 20 个条件，还可设 6 个
delete c3; delete c4; delete c5; delete c6; delete c7; delete c8¦c9|c9|4||已设 19 个条件
node c3; pick 大于; from 7; row c9¦c9|c9|10||已设 25 个条件，还可设 1 个
node c26; pick 大于; from 7; row c9¦c9|c9|10||已设 26 个条件，不能再增加
node c3; pick 大于; from 7; leave from; from ; row c9¦c9|c9|9||已设 24 个条件，还可设 2 个
node c25; pick 零或空值; node c26¦|c26|-1||已设 26 个条件，不能再增加
node c25; pick 零或空值; node c3; pick 大于; F2¦c3|c3|4|lxtOther|已设 26 个条件，不能再增加
node c25; pick 零或空值; node c3; row c3; pick 大于¦c3|c3|4|txtFrom|已设 26 个条件，不能再增加
node c25; pick 零或空值; node c3; delete c3; node c3¦c3|c3|-1||已设 25 个条件，还可设 1 个
node c25; pick 零或空值; find c3; search enter¦c3|c3|4|lxtOther|已设 26 个条件，不能再增加
node c25; pick 零或空值; find c27; search enter¦|c27|-1|tvwFilter|已设 26 个条件，不能再增加)")) {
    SCOPED_TRACE(acts);
    list_ = wide;
    EXPECT_FALSE(
        Show(acts, [&state = state](frmFilter& form) { EXPECT_EQ(StateOf(form), state); }));
  }
  list_ = wide;
  list_.ListField[25].strFilter = u"零或空值";
  EXPECT_FALSE(Show("node c1; clear; delete 过滤项目", [](frmFilter& form) {
    EXPECT_EQ(EditorsOf(form), "");
  })) << "the header is no row";
  EXPECT_TRUE(Show("clear; ok"));
  EXPECT_EQ(where_, u"");
}

class Searching : public FilterDialog {
 protected:
  Searching() {
    list_.ListField = {
        Column(u"凭证日期", u"PERIOD", u"c1"),  Column(u"借方金额", u"DOUBLE", u"c2"),
        Column(u"贷方金额", u"DOUBLE", u"c3"),  Column(u"附件数", u"LONG", u"c4"),
        Column(u"是否记账", u"BOOLEAN", u"c5"), Column(u"旧", u"MONEY", u"c6")};
  }
};

// What the tree shows, "*" for all, and the state.
TEST_F(Searching, OpensColumnsAndKeepsWhatIsOpen) {
  for (const auto& [acts, tree, state] : Lines<3>(R"(
find fj¦借方金额 贷方金额 附件数 是否记账¦凭证日期||-1||已设 0 个条件
find fj; search enter¦*¦附件数|附件数|-1|lxtOther|已设 0 个条件
find Je; search enter¦*¦借方金额|借方金额|-1|lxtOther|已设 0 个条件
find fj; search down¦借方金额 贷方金额 附件数 是否记账¦附件数|附件数|-1|tvwFilter|已设 0 个条件
find fj; node 是否记账; find ¦*¦是否记账|是否记账|-1||已设 0 个条件
find fj; search esc¦*¦凭证日期|凭证日期|-1||已设 0 个条件
find 金金; search enter; search down¦¦凭证日期||-1||没有找到
find j; search enter; find ; search down¦*¦借方金额|借方金额|-1|tvwFilter|已设 0 个条件
find 旧; search enter¦*¦|旧|-1|tvwFilter|已设 0 个条件
node 借方金额; pick 大于; from 7; leave from; find fj; search enter; find dfje; row 借方金额¦贷方金额¦借方金额||1||已设 1 个条件
node 借方金额; pick 大于; from 7; leave from; find rq; row 借方金额; search esc¦*¦借方金额|借方金额|1||已设 1 个条件
node 借方金额; pick 大于; from 7; leave from; find jfje; search enter¦*¦借方金额|借方金额|1|txtFrom|已设 1 个条件
node 借方金额; pick 大于; from 7; leave from; find rq; pick 介于; to 9; leave to; find jf¦借方金额¦借方金额|借方金额|1||已设 1 个条件
node 借方金额; pick 大于; from x; leave from; find dfje¦贷方金额¦借方金额||-1||已设 0 个条件
node 借方金额; pick 大于; from x; leave from; find dfje; search enter¦*¦贷方金额|贷方金额|-1|lxtOther|已设 0 个条件)")) {
    SCOPED_TRACE(acts);
    EXPECT_FALSE(Show(acts, [&tree = tree, &state = state](frmFilter& form) {
      std::string shown;
      for (const TreeView::Node& node : form.tvwFilter.Nodes()) {
        shown.append(shown.empty() ? "" : " ").append(ToUtf8(node.Text));
        EXPECT_EQ(node.Bold, node.Text == u"借方金额" && form.msgFilter.Rows() > 1);
      }
      EXPECT_EQ(shown, tree == "*" ? "凭证日期 借方金额 贷方金额 附件数 是否记账 旧" : tree);
      EXPECT_EQ(StateOf(form), state);
    }));
  }
  const std::string refused = "node 借方金额; pick 大于; from x; leave from; find jf; search enter";
  EXPECT_FALSE(Show(refused, [](frmFilter& form) {
    EXPECT_EQ(form.txtFrom.Text(), u"x") << "the same column: the refused value is asked for";
    EXPECT_EQ(form.TakeFocusWish(), &form.txtFrom);
    Play(form, "node 借方金额");
    EXPECT_NE(form.txtFrom.Mark(), u"") << "no other column has opened";
  }));
  EXPECT_TRUE(Show("find ; search enter")) << "nothing typed: it is the dialog's OK";
  EXPECT_FALSE(Show("find  ; search esc; ok")) << "nothing but blanks: its Cancel";
}

TEST_F(Searching, AConditionByKeysAlone) {
  const ListType before = list_;
  for (const auto& [keys, count, where] : Lines<3>(R"(
d f j e enter d y enter 5 0 0 0 enter¦13¦c3 > 5000
f j s enter l h k z enter enter¦10¦(c4 Is Null or c4=0)
r q enter b y enter enter¦7¦(c1 >= '2004-03-01' And c1 <= '2004-03-31')
j z enter 是 enter enter¦6¦c5 = '是')")) {
    list_ = before;
    EXPECT_TRUE(Show("", [&keys = keys](frmFilter& form) { PressKeys(form, keys); })) << keys;
    EXPECT_EQ(ToUtf8(where_), where);
    EXPECT_EQ(std::count(keys.begin(), keys.end(), ' ') + 1, std::stoi(count));
  }
}

TEST_F(FilterDialog, ListsAreReadOncePerDialogUnlessTheyFail) {
  list_.ListField.push_back(Column(u"经手", u"CODE", u"n", u"P", u"PERSON"));
  list_.ListField.push_back(Column(u"别的", u"ENUM", u"n"));
  for (int opening = 0; opening < 2; ++opening) {
    host_->TakeSent();
    EXPECT_FALSE(
        Show("node 人员; node 状态; node 经手; node 人员; choose; node 状态", [](frmFilter& form) {
          EXPECT_TRUE(form.cmdChoose.Visible());
          EXPECT_EQ(form.lxtOther.ListCount(), 6);
        }));
    EXPECT_EQ(host_->TakeSent().size(), 3u) << "of persons two statements, of which one opens";
    EXPECT_FALSE(Show("node 别的; node 停用; choose; node 别的"));
    EXPECT_EQ(host_->TakeSent().size(), 2u) << "what did not open is tried again";
  }
}

TEST_F(FilterDialog, NothingToFilterAndWaysOut) {
  ListType before = list_;
  for (const char* way : {"cancel", "close", ""}) {
    SCOPED_TRACE(way);
    EXPECT_FALSE(Show(std::string("node 停用; pick 是; node 状态; pick 4; ") + way));
    EXPECT_EQ(list_, before);
    EXPECT_EQ(where_, u"before");
  }
  EXPECT_FALSE(Show("node 停用; pick 是", [](frmFilter& form) {
    form.UserPressedEnter();
    throw Error(ErrorKind::Host, u"no window");
  })) << "a view that fails has confirmed nothing";
  EXPECT_EQ(list_, before);
  for (const bool none : {false, true}) {
    if (none) list_.ListField.clear();
    for (ListFieldType& field : list_.ListField)
      field.blnIsFilter = false;
    before = list_;
    EXPECT_TRUE(Show("cancel")) << "nothing was shown that could be cancelled";
    EXPECT_EQ(list_, before);
    EXPECT_EQ(where_, u"before");
  }
}

// Of a condition without its value, or one of two, and of a choice without items nothing is asked;
// a field that is not in the grid is cleared.
TEST_F(FilterDialog, RowsThatOnlyARecordHas) {
  list_.ListField.clear();
  std::string expected;
  for (const auto& [type, key, shown, value, predicate] : Lines<5>(R"(
LONG¦¦大于 ¦¦
STRING¦¦介于 ,b¦,b¦
PERIOD¦¦自定义 (,2004-02-29)¦,2004-02-29¦
DATE¦¦2004-02-29¦¦
ENUM¦¦x¦0,¦
CODE¦FlexibleField07¦x¦0,7¦T.lngFlexibleField07ID = 7
CODE¦Class1¦x¦1,12,15¦T.lngClassID In(12,15)
CODE¦MMRoute¦x¦2,9¦T.lngRouteID = 9
CODE¦CURRENCYS¦x¦0,1¦T.lngCURRENCYID = 1)")) {
    list_.ListField.push_back(Column(FromUtf8(type + key + shown), FromUtf8(type), u"c", u"T",
                                     FromUtf8(key), FromUtf8(value)));
    list_.ListField.back().strFilter = FromUtf8(shown);
    if (!predicate.empty()) expected.append(expected.empty() ? "" : " And ").append(predicate);
  }
  ListFieldType hidden = Column(u"隐藏", u"LONG", u"Hidden", u"", u"", u"5");
  hidden.blnIsFilter = false;
  hidden.strFilter = u"x";
  hidden.blnIsMuliCond = true;
  list_.ListField.push_back(hidden);
  const ListType before = list_;
  EXPECT_TRUE(Show("ok"));
  EXPECT_EQ(ToUtf8(where_), expected);
  for (std::size_t i = 0; i + 1 < list_.ListField.size(); ++i)
    EXPECT_EQ(list_.ListField[i].strExtValue, before.ListField[i].strExtValue) << i;
  EXPECT_TRUE(list_.ListField[6].blnIsMuliCond);
  EXPECT_FALSE(list_.ListField[7].blnIsMuliCond);
  EXPECT_EQ(list_.ListField.back().strFilter, u"");
  EXPECT_TRUE(list_.ListField.back().blnIsMuliCond) << "written for codes alone";
}

TEST_F(FilterDialog, ListSetShowsSavesAndReturns) {
  ListSet set;
  list_.lngListID = 70;
  set.List(list_);
  Text shown = u"before";
  bool ok = true;
  const ValueArray items{true, 0, {u"skipped", u"a", u"b"}};
  const auto choose = [&] {
    return set.ShowMultiChoose(nullptr, u"类", u"", shown, true, Value(items), ok, 8);
  };
  player_.filter = "node 数量; pick 大于; from 7; cancel";
  player_.multi = "all right; cancel";
  for (FormView* view : {static_cast<FormView*>(nullptr), static_cast<FormView*>(&player_)}) {
    EXPECT_EQ(SetFormView(view), nullptr);
    ok = true;
    EXPECT_FALSE(set.ShowFilter(7));
    EXPECT_EQ(choose(), u"");
    EXPECT_FALSE(ok);
    EXPECT_EQ(shown, u"before");
    EXPECT_EQ(set.List(), list_);
    EXPECT_TRUE(host_->TakeSent().empty());
  }
  player_.filter = "node 数量; pick 大于; from 7; ok";
  player_.multi = "all right; ok";
  EXPECT_TRUE(set.ShowFilter(7));
  EXPECT_EQ(player_.owner, 7);
  EXPECT_EQ(set.ListPureWhere(), u"Qty > 7");
  EXPECT_EQ(set.ListWhere(), u"1=1");
  EXPECT_THAT(
      host_->TakeSent(),
      ElementsAre("execute: Begin \n Delete  FROM ListCond WHERE ListCond.lngListID = 70;\n "
                  "Delete  FROM ListMultiIDCond WHERE lngListID = 70;\nInsert into ListCond "
                  "(lngListId,lngViewFieldID,strPath,strOthTableName,strDoubleOP,"
                  "dbldouble1) Values (70,0,'数量',' ',2,7);\nEnd;"))
      << "saved at once, in one block";
  EXPECT_EQ(choose(), u"(类='a' 或 类='b')");
  EXPECT_EQ(player_.owner, 8);
  EXPECT_TRUE(ok);
  EXPECT_EQ(shown, u"a,b");
}

TEST_F(FilterDialog, OkThatCannotWriteBackStaysOpen) {
  ListSet set;
  list_.ListField[1].strFilter = u"大于 7";
  list_.ListField[1].strExtValue = u"7";
  set.List(list_);
  SetFormView(&player_);
  bool repaired = false;
  player_.onFilter = [&](frmFilter& form) {
    form.msgFilter.AddRow({u"99", u"", u"x", u"LONG", u"x"});  // of no column
    form.UserPressedEnter();
    EXPECT_TRUE(form.IsOpen());
    if (!repaired) return;
    Play(form, "delete ; ok");
  };
  EXPECT_FALSE(set.ShowFilter(0));
  EXPECT_EQ(set.List(), list_);
  EXPECT_TRUE(host_->TakeSent().empty()) << "nothing is saved";
  repaired = true;
  EXPECT_TRUE(set.ShowFilter(0));
  EXPECT_EQ(set.List().ListField, list_.ListField) << "the same condition is confirmed";
}

}  // namespace
}  // namespace fetchkit::test
