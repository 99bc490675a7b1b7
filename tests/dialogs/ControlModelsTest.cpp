// The control models by themselves: which acts are heard, and how rows and items keep their place.
#include "fetchkit/dialogs/ControlModels.h"

#include <gtest/gtest.h>

#include <new>

#include "fetchkit/dialogs/PickCombo.h"
#include "support/FailingAllocations.h"

namespace fetchkit::test {
namespace {

// One control of every kind, with two rows, items or nodes each.
class EveryControl : public Form {
 public:
  EveryControl() : Form(u"form", u"") {
    SetTabOrder({&button, &box, &date, &tree, &grid, &list, &pick});
    Open();
    tree.SetNodes({{u"K", u"a", u"", 0}, {u"L", u"b", u"", 1}});
    grid.FormatString(u"<c");
    grid.AddItem(u"a");
    grid.AddItem(u"b");
    list.AddItem(u"a");
    list.AddItem(u"b");
    list.extent = {50, 10, 5, 0};
    pick.SetList({u"a", u"b"});
  }

  void Listen() {
    const auto heard = [this](auto&&...) { ++count; };
    button.OnClick = box.OnChange = box.OnEnter = date.OnChange = grid.OnSelect =
        grid.OnDoubleClick = list.OnSelect = list.OnDoubleClick = heard;
    box.OnLeave = heard;
    grid.OnKey = heard;
    tree.OnNodeClick = heard;
    list.OnPointer = heard;
    pick.OnPick = heard;
  }

  // Every act there is, once; returns how many were heard. Typing the same again is no change.
  int Act(int at) {
    count = 0;
    button.UserPressed();
    box.UserTyped(u"t");
    box.UserLeft();
    box.UserPressedEnter();
    date.UserChanged({date.Value().serial + 1});
    tree.UserClickedNode(at);
    grid.UserSelectedRow(at + grid.FixedRows());
    grid.UserDoubleClickedRow(at + grid.FixedRows());
    grid.UserPressed(RowControl::Key::F2);
    grid.UserPressed(RowControl::Key::Delete);
    list.UserSelectedRow(at);
    list.UserDoubleClickedRow(at);
    list.UserMovedPointer(5);
    pick.UserPicked(at);
    return count;
  }

  void UserPressedEnter() override {}
  void UserPressedEscape() override {}
  void UserClosed() override { Close(); }

  CommandButton button{*this, u"button"};
  TextBox box{*this, u"box"};
  DateSpinner date{*this, u"date"};
  TreeView tree{*this, u"tree"};
  MSFlexGrid grid{*this, u"grid"};
  ListBox list{*this, u"list"};
  PickCombo pick{*this, u"pick"};
  int count = 0;
};

TEST(ControlModels, ActsAreHeardWhereTheUserCanAct) {
  EveryControl form;
  EXPECT_EQ(form.Act(1), 0) << "nobody listens";
  EXPECT_EQ(form.box.Text(), u"t");
  EXPECT_EQ(form.list.ListIndex(), 1);
  form.Listen();
  EXPECT_EQ(form.Act(0), 15);
  for (const int nowhere : {-2, 2}) {
    form.grid.Row(-1);
    EXPECT_EQ(form.Act(nowhere), 5) << "what names no row, item or node";
  }
  const auto each = [&](void (*set)(Control&, bool)) {
    for (Control* control : form.Controls())
      set(*control, false);
    EXPECT_EQ(form.Act(1), 0);
    EXPECT_EQ(form.pick.UserTyped(u"b"), -1);
    for (Control* control : form.Controls())
      set(*control, true);
  };
  each([](Control& control, bool on) { control.Enabled(on); });
  each([](Control& control, bool on) { control.Visible(on); });
  EXPECT_EQ(form.pick.UserTyped(u"b"), 1);
  EXPECT_EQ(form.Act(1), 15);
  form.UserClosed();
  EXPECT_EQ(form.Act(0), 0) << "the form has closed";
}

TEST(ControlModels, WithoutMemoryEveryRowAndItemIsOnEitherSide) {
  bool failed = true;
  for (int number = 1; failed && number < 100; ++number) {
    EveryControl from, to;
    const std::vector<int> rows{1, 2}, items{0, 1};
    ListSearch search;
    search.SearchFor(u"a");
    to.list.ShowFound(&search);
    try {
      const FailingAllocations memory(number);
      failed = false;
      from.grid.MoveRowsTo(to.grid, rows);
      from.list.MoveItemsTo(to.list, items);
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    EXPECT_EQ(from.grid.Rows() + to.grid.Rows(), 6);
    EXPECT_EQ(from.list.AllRows() + to.list.AllRows(), 4);
    EXPECT_EQ(to.list.ListCount(), 1 + (failed ? 0 : 1)) << "those that are found";
  }
  EXPECT_FALSE(failed);
}

TEST(ControlModels, WhatIsNoRowIsNeitherRemovedNorMoved) {
  EveryControl form;
  for (const int row : {0, -1, 3})
    form.grid.RemoveItem(row);
  EXPECT_EQ(form.grid.Rows(), 3) << "headers stay";
  for (const std::vector<int>& rows : {std::vector{0}, {1, 3}, {}})
    form.grid.MoveRowsTo(form.grid, rows);
  EXPECT_EQ(form.grid.Rows(), 3);
}

}  // namespace
}  // namespace fetchkit::test
