// What the search boxes of the dialogs find, and where their keys lead.
#include <gtest/gtest.h>

#include "dialogs/Player.h"
#include "fetchkit/session/model/Session.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

template <class TextAt>
std::string Joined(int count, TextAt&& textAt) {
  std::string all;
  for (int i = 0; i < count; ++i)
    all.append(i == 0 ? "" : " ").append(ToUtf8(textAt(i)));
  return all;
}

std::string NameOf(const Control* control) {
  return control == nullptr ? "" : ToUtf8(control->Name());
}

class Search : public testing::Test {
 protected:
  Search() {
    session_.Connection = std::make_shared<FakeConnection>();
    session_.LoginDate = u"2004-03-17";
    for (const auto& [caption, type] : {std::pair(u"凭证日期", u"PERIOD"),
                                        {u"借方金额", u"DOUBLE"},
                                        {u"贷方金额", u"DOUBLE"},
                                        {u"附件数", u"LONG"},
                                        {u"是否记账", u"BOOLEAN"},
                                        {u"旧", u"MONEY"}}) {
      ListFieldType& field = list_.ListField.emplace_back();
      field.blnIsFilter = true;
      field.strListFieldDesc = caption;
      field.strFieldType = type;
      field.strFieldName = Join(u"c", list_.ListField.size());
    }
  }

  bool Show(const std::string& acts, std::function<void(frmFilter&)> behind) {
    player_.filter = acts;
    player_.onFilter = std::move(behind);
    return frmFilter(session_, player_).ShowFilter(list_, where_, 0);
  }

  const FreshThread fresh_;
  Session& session_ = MAction::CurrentSession();
  Player player_;
  ListType list_;
  Text where_;
};

TEST_F(Search, OverTheColumns) {
  const std::string all = "凭证日期 借方金额 贷方金额 附件数 是否记账 旧";
  const std::string x = "node 借方金额; pick 大于; from x; leave from; ";
  const std::string seven = "node 借方金额; pick 大于; from 7; leave from; ";
  // What the tree shows ("*" for all), its current node, the open column, what wants the focus, and
  // below the tree what is said.
  for (const auto& [before, acts, tree, current, title, focus, said] : Lines<7>(R"(
¦find fj¦借方金额 贷方金额 附件数 是否记账¦¦凭证日期¦¦已设 0 个条件
¦find fj; search enter¦*¦附件数¦附件数¦lxtOther¦已设 0 个条件
¦find Je; search enter¦*¦借方金额¦借方金额¦lxtOther¦已设 0 个条件
¦find fj; search down¦借方金额 贷方金额 附件数 是否记账¦附件数¦附件数¦tvwFilter¦已设 0 个条件
¦find rq; search down¦凭证日期¦凭证日期¦凭证日期¦tvwFilter¦已设 0 个条件
¦find fj; node 是否记账; find ¦*¦是否记账¦是否记账¦¦已设 0 个条件
¦find fj; search esc¦*¦凭证日期¦凭证日期¦¦已设 0 个条件
¦find 金金; search enter; search down¦¦¦凭证日期¦¦没有找到
¦find 金金; search esc¦*¦凭证日期¦凭证日期¦¦已设 0 个条件
¦find j; search enter; find ; search down¦*¦借方金额¦借方金额¦tvwFilter¦已设 0 个条件
¦find 旧; search enter¦*¦旧¦¦tvwFilter¦已设 0 个条件
7¦find fj; search enter; find dfje; row 借方金额¦贷方金额¦¦借方金额¦¦已设 1 个条件
7¦find rq; row 借方金额; search esc¦*¦借方金额¦借方金额¦¦已设 1 个条件
7¦find jfje; search enter¦*¦借方金额¦借方金额¦txtFrom¦已设 1 个条件
7¦find rq; pick 介于; to 9; leave to; find jf¦借方金额¦借方金额¦借方金额¦¦已设 1 个条件
x¦find dfje¦贷方金额¦¦借方金额¦¦已设 0 个条件
x¦find dfje; search enter¦*¦贷方金额¦贷方金额¦lxtOther¦已设 0 个条件)")) {
    SCOPED_TRACE(before + acts);
    const std::string first = before.empty() ? "" : before == "x" ? x : seven;
    EXPECT_FALSE(Show(first + acts, [&, &tree = tree, &current = current, &title = title,
                                     &focus = focus, &said = said](frmFilter& form) {
      const auto& nodes = form.tvwFilter.Nodes();
      const auto textAt = [&](int i) { return nodes[static_cast<std::size_t>(i)].Text; };
      const int node = form.tvwFilter.SelectedItem();
      EXPECT_EQ(Joined(static_cast<int>(nodes.size()), textAt), tree == "*" ? all : tree);
      EXPECT_EQ(node < 0 ? "" : ToUtf8(textAt(node)), current);
      EXPECT_EQ(form.lblTitle.Visible() ? ToUtf8(form.lblTitle.Caption()) : "", title);
      EXPECT_EQ(NameOf(form.TakeFocusWish()), focus);
      EXPECT_EQ(ToUtf8(form.lblCount.Caption()), said);
      for (const TreeView::Node& each : nodes)
        EXPECT_EQ(each.Bold, before == "7" && each.Text == u"借方金额") << ToUtf8(each.Text);
    }));
  }
  EXPECT_FALSE(Show(x + "find jf; search enter", [](frmFilter& form) {
    EXPECT_EQ(form.txtFrom.Text(), u"x") << "the same column: the refused value is asked for";
    EXPECT_EQ(form.TakeFocusWish(), &form.txtFrom);
    Play(form, "node 借方金额");
    EXPECT_NE(form.txtFrom.Mark(), u"") << "no other column has opened";
  }));
  // What is the dialog's own.
  EXPECT_TRUE(Show(seven + "find ; search enter", nullptr));
  EXPECT_EQ(where_, u"c2 > 7");
  EXPECT_FALSE(Show("find  ; search esc; ok", nullptr)) << "nothing but blanks";
}

TEST_F(Search, AConditionByKeysAlone) {
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

TEST_F(Search, InTheChoosers) {
  const ValueArray items{true,
                         0,
                         {NullValue(), u"1001 现金", u"1002 银行存款", u"100201 工行", u"2202 应付",
                          u"5602 银行手续费"}};
  // The left list, its current item, the right list, the left count, and what wants the focus.
  for (const auto& [acts, left, current, right, count, focus] : Lines<6>(R"(
find yh¦1002 银行存款 5602 银行手续费¦1002 银行存款¦¦找到 2 项，共 5 项¦
find 02¦1002 银行存款 100201 工行 2202 应付 5602 银行手续费¦1002 银行存款¦¦找到 4 项，共 5 项¦
find 10; find 02; search esc¦1001 现金 1002 银行存款 100201 工行 2202 应付 5602 银行手续费¦1002 银行存款¦¦共 5 项¦
find 5; search enter; find yh; search enter¦1001 现金 100201 工行 2202 应付¦100201 工行¦5602 银行手续费 1002 银行存款¦共 3 项¦
find 1002; all right; search esc¦1001 现金 2202 应付 5602 银行手续费¦1001 现金¦1002 银行存款 100201 工行¦共 3 项¦
all right; find yh; all left¦1002 银行存款 5602 银行手续费¦1002 银行存款¦¦找到 2 项，共 5 项¦
find 1002; all right; find yh; select right 0; press right space; search esc¦1001 现金 2202 应付 5602 银行手续费 1002 银行存款¦1002 银行存款¦100201 工行¦共 4 项¦
all right; find yh; select right 0; press right space; select right 3; press right space¦5602 银行手续费¦5602 银行手续费¦1002 银行存款 100201 工行 2202 应付¦找到 1 项，共 2 项¦
find yh; press left space¦5602 银行手续费¦5602 银行手续费¦1002 银行存款¦找到 1 项，共 4 项¦
select left 0 1; find 22; search esc¦1001 现金 1002 银行存款 100201 工行 2202 应付 5602 银行手续费¦2202 应付¦¦共 5 项¦
find zz; search enter; all right; search down¦¦¦¦找到 0 项，共 5 项¦
find zz; search esc; search down¦1001 现金 1002 银行存款 100201 工行 2202 应付 5602 银行手续费¦1001 现金¦¦共 5 项¦lstAll
find 22; search down¦2202 应付¦2202 应付¦¦找到 1 项，共 5 项¦lstAll)")) {
    SCOPED_TRACE(acts);
    frmMultiChoose form(player_);
    player_.multi = acts;
    bool played = false;
    player_.afterMulti = [&, &left = left, &current = current, &right = right, &count = count,
                          &focus = focus](frmMultiChoose& shown) {
      const ListBox& all = shown.lstAll;
      const ListBox& chosen = shown.lstSelected;
      EXPECT_EQ(Joined(all.ListCount(), [&](int i) { return all.List(i); }), left);
      EXPECT_EQ(all.ListIndex() < 0 ? "" : ToUtf8(all.List(all.ListIndex())), current);
      EXPECT_EQ(all.Selection().size(), current.empty() ? 0u : 1u);
      EXPECT_EQ(Joined(chosen.ListCount(), [&](int i) { return chosen.List(i); }), right);
      EXPECT_EQ(ToUtf8(shown.lblCount.Caption()), count);
      EXPECT_EQ(NameOf(shown.TakeFocusWish()), focus);
      played = true;
    };
    form.ShowMultiChoose({nullptr, u"科目", u"", true, Value(items), 0});
    EXPECT_TRUE(played);
  }
}

}  // namespace
}  // namespace fetchkit::test
