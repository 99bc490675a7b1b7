// Conditions set by their words, beside the same ones set in the filter dialog.
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
using testing::IsEmpty;

// "Person" names its table itself: the first statement of its picker is refused, the second opens.
const Answer* AnswerTo(TextView sql) {
  static const Answer refused = Refused();
  static const Answer codes =
      Rows({u"lngPersonID", u"strPersonCode", u"strPersonName"}, {{1, u"01", u"张三"},
                                                                  {12, u"02", u"李四"},
                                                                  {2, u"03", NullValue()},
                                                                  {4, u"12", u"李四"},
                                                                  {5, u"", u"王五, 北京"},
                                                                  {6, u"06", u"甲 {乙}"}});
  static const Answer values =
      Rows({u"strEnumNumber"}, {{u"3"}, {u"4"}, {u"所有"}, {NullValue()}, {u"3"}});
  if (sql.starts_with(u"Begin")) return Done(sql);
  if (sql.starts_with(u" SELECT lngPersonID")) return &codes;
  return sql.find(u"EnumTable") != Text::npos ? &values : &refused;
}

class Conditions : public testing::Test {
 protected:
  Conditions() {
    Session& session = MAction::CurrentSession();
    session.Connection = host_;
    session.LoginDate = u"2004-03-17";
    host_->fallback = AnswerTo;
    SetFormView(&player_);
    list_.lngViewID = 5;
    for (const auto& cells : Lines<3>(R"(
名称¦string¦Name
数量¦LONG¦Qty
金额¦Double¦Amount
件数¦INTEGER¦Pieces
停用¦BOOLEAN¦Off
期间¦PERIOD¦Day
日期¦DATE¦Sent
人员¦CODE¦P.strPersonName
状态¦ENUM¦State
旧¦MONEY¦Old
隐藏¦LONG¦Hidden)")) {
      ListFieldType& field = list_.ListField.emplace_back();
      field.strListFieldDesc = field.strPath = FromUtf8(cells[0]);
      field.strFieldType = FromUtf8(cells[1]);
      field.strFieldName = FromUtf8(cells[2]);
      field.strTableName = u"P";
      field.strKeyField = u"Person";
      field.blnIsFilter = cells[0] != "隐藏";
    }
    set_.List(list_);
  }

  // Empty when the condition was taken.
  static std::string Set(ListSet& set, const std::string& caption, const std::string& condition) {
    Text reason = u"before";
    const bool done = set.SetCondition(FromUtf8(caption), FromUtf8(condition), reason);
    EXPECT_EQ(done, reason.empty()) << ToUtf8(reason);
    return ToUtf8(reason);
  }
  std::string Set(const std::string& caption, const std::string& condition) {
    return Set(set_, caption, condition);
  }

  // A list with the conditions that another one tells.
  ListType FedBack(const ListSet& from) {
    ListSet to;
    to.List(list_);
    for (const Text& each : from.Conditions()) {
      const std::string text = ToUtf8(each);
      const std::size_t tab = text.find('\t');
      EXPECT_EQ(Set(to, text.substr(0, tab), text.substr(tab + 1)), "") << text;
    }
    return to.List();
  }

  const FreshThread thread_;
  RecordingSink sink_;
  std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();
  Player player_;
  ListType list_;
  ListSet set_;
};

// The condition, what a user does for it, and how it is told: over no condition, over another one
// of the column, and beside others.
TEST_F(Conditions, AreThoseOfTheDialog) {
  for (const auto& [caption, condition, acts, chooser, told] : Lines<5>(R"(
名称¦等于 张 三¦pick 等于; from 张 三; leave from¦¦等于 张 三
名称¦  打头字符为  a ¦pick 打头字符为; from  a ; leave from¦¦打头字符为  a 
名称¦介于 a,b¦pick 介于; from a; leave from to to; to b; leave to¦¦介于 a,b
名称¦空值¦pick 空值¦¦空值
数量¦介于 -1,5¦pick 介于; from -1; leave from to to; to 5; leave to¦¦介于 -1,5
金额¦大于 100¦pick 大于; from 100; leave from¦¦大于 100
件数¦零或空值 ¦pick 零或空值¦¦零或空值
停用¦是¦pick 是¦¦是
期间¦本月¦pick 本月¦¦本月
期间¦自定义 2004/3/1,2004-02-01¦pick 自定义; date from 2004-03-01; date to 2004-02-01¦¦自定义 (2004-03-01,2004-02-01)
日期¦ 2004年2月29日¦date one 2004-02-29¦¦2004-02-29
人员¦02¦pick 02 李四¦¦02 李四 {12}
人员¦02 李四¦pick 02 李四¦¦02 李四 {12}
人员¦张三¦pick 01 张三¦¦01 张三 {1}
人员¦{12}¦pick 02 李四¦¦02 李四 {12}
人员¦别的 {12}¦pick 02 李四¦¦02 李四 {12}
人员¦李四 {12}¦choose¦right 02 李四; ok¦李四 {12}
人员¦02,01 张三, 02¦choose¦right 02 李四; right 01 张三; ok¦李四 张三 {12,1}
人员¦{2}¦pick 03¦¦03 {2}
人员¦2 {2}¦choose¦right 03; ok¦2 {2}
人员¦王五, 北京¦pick 王五, 北京¦¦王五, 北京 {5}
人员¦王五, 北京 张三 {5, 1}¦choose¦right 王五, 北京; right 01 张三; ok¦王五, 北京 张三 {5,1}
人员¦甲 {乙}¦pick 06 甲 {乙}¦¦06 甲 {乙} {6}
状态¦4¦pick 4¦¦4 {'4'}
状态¦4, 3¦choose¦right 4; right 3; ok¦4,3 {'4','3'}
状态¦{'所有'}¦choose¦right 所有; ok¦所有 {'所有'}
状态¦'' {''}¦pick ¦¦'' {''}
状态¦{'','4'}¦choose¦right ; right 4; ok¦,4 {'','4'})")) {
    for (const char* before : {"", "same column", "others"}) {
      SCOPED_TRACE(caption + " " + condition + ", over: " + before);
      ListType list = list_;
      for (ListFieldType& field : list.ListField) {
        const bool isSame = ToUtf8(field.strListFieldDesc) == caption;
        if (*before == 0 || isSame != (*before == 's')) continue;
        field.strFilter = u"of before";
        field.strExtValue = u"1,7,8";
        field.strCodeID = u"7,8";
        field.blnIsMuliCond = true;
      }
      ListSet dialog;
      dialog.List(list);
      player_.filter = "node " + caption + "; " + acts + "; ok";
      player_.chooser = "all left; " + chooser;
      ASSERT_TRUE(dialog.ShowFilter(0));
      host_->TakeSent();
      set_.List(list);
      EXPECT_EQ(Set(caption, condition), "");
      EXPECT_EQ(set_.List(), dialog.List());
      EXPECT_NE(set_.ListPureWhere(), u"");
      const bool hasItems = caption == "人员" || caption == "状态";
      EXPECT_EQ(host_->TakeSent().size(), hasItems ? caption == "人员" ? 2u : 1u : 0u);
      EXPECT_THAT(set_.Conditions(), testing::Contains(FromUtf8(caption + "\t" + told)));
      if (*before != 0) continue;
      EXPECT_EQ(FedBack(set_), set_.List());
    }
  }
  EXPECT_EQ(set_.List().lngViewID, 5);
}

TEST_F(Conditions, AreRefusedInWords) {
  Set("金额", "小于 7");
  const ListType before = set_.List();
  for (const auto& [caption, condition, reason] : Lines<3>(R"(
金额 ¦大于 1¦没有可设条件的项目“金额 ”，可用的有：名称、数量、金额、件数、停用、期间、日期、人员、状态、旧
隐藏¦任意¦没有可设条件的项目“隐藏”，可用的有：名称、数量、金额、件数、停用、期间、日期、人员、状态、旧
旧¦大于 1¦项目“旧”不能设条件
金额¦  ¦没有写条件；“任意”或“所有”取消条件
金额¦大于1¦“大于1”不是“金额”的条件，可用的有：任意、零或空值、大于、小于、等于、不等于、大于等于、小于等于、介于
停用¦对¦“对”不是“停用”的条件，可用的有：任意、是、否
期间¦去年同期¦“去年同期”不是“期间”的条件，可用的有：所有、今天、本周、本周至今日、上周、本期、本期至今日、上期、本月、本月上旬、本月中旬、本月下旬、本月至今日、上月、本季度、本季至今日、上季度、本年、本年至今日、去年初至去年今日、去年、自定义
金额¦大于¦条件“大于”后面要写值
金额¦任意 5¦条件“任意”后面不写值
金额¦零或空值 0¦条件“零或空值”后面不写值
金额¦大于 1e126¦请输入一个数字！
金额¦介于 1,x¦请输入一个数字！
金额¦介于 5,1¦终止值不应大于起始值，请正确输入！
金额¦介于 5¦条件“介于”后面要写两个值，中间用逗号，例如“介于 1,5”
名称¦等于 a'b¦输入了非法字符,如:'.
名称¦介于 a,b,c¦输入了非法字符,如:'.
名称¦等于 a	b¦输入了非法字符,如:'.
期间¦本月 x¦条件“本月”后面不写值
期间¦本期¦“本期”现在没有日期范围，请检查会计期间的设置
期间¦自定义¦条件“自定义”后面要写两个日期，例如“自定义 2004-01-01,2004-01-31”
期间¦自定义 (2004-01-01,2004-02-30)¦“2004-02-30”不是日期，例如 2004-01-31
日期¦今天¦“今天”不是日期，例如 2004-01-31
人员¦99¦“99”不在可选项目中
人员¦李四¦“李四”不止一个，请写出它的编码和名称
人员¦01,,02¦“”不在可选项目中
人员¦{01}¦“01”不在可选项目中
人员¦{}¦“{}”不在可选项目中
状态¦3;4¦“3;4”不在可选项目中
状态¦{3}¦“{3}”不在可选项目中
状态¦3 {'5'}¦“5”不在可选项目中)")) {
    sink_.failures.clear();
    EXPECT_EQ(Set(caption, condition), reason) << caption << " " << condition;
    EXPECT_EQ(ToUtf8(CurrentThread().lastError), reason);
    ASSERT_FALSE(sink_.failures.empty());
    EXPECT_EQ(sink_.failures.back().severity, Severity::Note);
    EXPECT_EQ(sink_.failures.back().what, u"ListSet.SetCondition");
    EXPECT_EQ(set_.List(), before);
  }
  host_->fallback = [](TextView) {
    static const Answer refused = Refused();
    return &refused;
  };
  EXPECT_EQ(Set("人员", "02"), "“02”不在可选项目中（可选项目没有全部读到）");
  EXPECT_EQ(set_.List(), before);
  ListSet empty;
  EXPECT_EQ(Set(empty, "金额", "大于 1"), "此列表没有可设条件的项目");
}

TEST_F(Conditions, AreTakenAway) {
  for (const auto& [caption, condition] : Lines<2>("金额¦大于 1\n人员¦01\n期间¦本季度\n名称¦空值"))
    EXPECT_EQ(Set(caption, condition), "");
  EXPECT_THAT(set_.Conditions(),
              ElementsAre(u"名称\t空值", u"金额\t大于 1", u"期间\t本季度", u"人员\t01 张三 {1}"));
  EXPECT_EQ(set_.ListPureWhere(),
            u"Amount > 1 And (Day >= '2004-01-01' And Day <= '2004-03-31') And P.lngPersonID = 1 "
            u"And Name Is Null")
      << "the one that is new stands last";
  host_->TakeSent();
  EXPECT_EQ(Set("期间", " 所有 "), "");
  EXPECT_EQ(Set("人员", "任意"), "");
  EXPECT_EQ(Set("件数", "任意"), "") << "nothing to take away";
  EXPECT_EQ(set_.ListPureWhere(), u"Name Is Null And Amount > 1");
  set_.ClearConditions();
  EXPECT_EQ(set_.ListPureWhere(), u"");
  EXPECT_THAT(set_.Conditions(), IsEmpty());
  EXPECT_THAT(host_->TakeSent(), IsEmpty()) << "SaveList saves";
  for (const ListFieldType& field : set_.List().ListField)
    EXPECT_EQ(field.strFilter + field.strExtValue + field.strCodeID, u"");
}

TEST_F(Conditions, HaveTheDialogsLimits) {
  list_.ListField.assign(27, list_.ListField[2]);
  for (std::size_t i = 0; i < 27; ++i) {
    list_.ListField[i].strListFieldDesc = Join(i);
    if (i < 25) list_.ListField[i].strFilter = u"大于 1";
  }
  set_.List(list_);
  EXPECT_EQ(Set("25", "大于 2"), "");
  EXPECT_EQ(Set("26", "大于 2"),
            "你设置的条件已经有25个之多了,你将不能再多设条件,只能修改或者减少已设条件.");
  EXPECT_EQ(Set("26", "任意"), "");
  EXPECT_EQ(Set("3", "大于 3"), "") << "one that there is may be changed";
  EXPECT_EQ(set_.Conditions().size(), 26u);

  Answer many = Rows({u"lngPersonID", u"strPersonCode", u"strPersonName"}, {});
  Text codes;
  for (int id = 1; id <= 1001; ++id) {
    many.rows.push_back({id, Join(u"c", id), u"n"});
    AppendWith(codes, u',', Join(u"c", id));
  }
  host_->fallback = [&](TextView) { return &many; };
  ListType people;
  people.ListField.resize(1);
  people.ListField[0].strFieldType = u"CODE";
  people.ListField[0].strListFieldDesc = u"人员";
  people.ListField[0].strKeyField = u"Person";
  people.ListField[0].blnIsFilter = true;
  set_.List(people);
  EXPECT_EQ(Set("人员", ToUtf8(codes)), "已选条件项目个数已经很多,不能再增加了!");
  codes.resize(codes.rfind(u','));
  EXPECT_EQ(Set("人员", ToUtf8(codes)), "");
}

// The host goes to another view while the code table is read, sets another condition, or has lost
// its connection when the view is loaded.
TEST_F(Conditions, BelongToTheListThatTheyWereSetOn) {
  ListType other;
  other.lngViewID = 6;
  host_->onOperation = [&] { set_.List(other); };
  EXPECT_EQ(Set("人员", "02"), "设条件时列表换成了另一个视图");
  EXPECT_EQ(set_.List(), other);

  set_.List(list_);
  host_->onOperation = [&] { set_.ClearConditions(); };
  EXPECT_EQ(Set("人员", "02"), "");
  EXPECT_EQ(set_.ListPureWhere(), u"P.lngPersonID = 12");
  host_->onOperation = nullptr;

  host_->fallback = [](TextView) {
    static const Answer refused = Refused();
    return &refused;
  };
  const ListType before = set_.List();
  set_.RefreshListField();
  sink_.failures.clear();
  EXPECT_EQ(Set("金额", "大于 1"), "列表没有完整读入，请重新调用 RefreshListField");
  set_.ClearConditions();
  EXPECT_EQ(sink_.failures.size(), 2u);
  EXPECT_EQ(set_.List(), before);
  EXPECT_THAT(set_.Conditions(), ElementsAre(u"人员\t02 李四 {12}"));
  set_.ViewId(7);
  EXPECT_EQ(Set("金额", "大于 1"), "列表没有完整读入，请重新设置 ViewId");
}

}  // namespace
}  // namespace fetchkit::test
