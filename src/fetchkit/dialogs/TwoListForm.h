// What the two dialogs with a list on either side share.
#pragma once

#include <numeric>
#include <vector>

#include "fetchkit/base/Guard.h"
#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/dialogs/Form.h"

namespace fetchkit {

// Items stand on the left side or, chosen, on the right; four buttons move the selected ones or all
// of them over, and are enabled while there is something to move. A double click moves its item,
// and keys move the selected ones: Space and Right to the right, Space, Left and Delete to the
// left. Below each list stands how many items it has. A search shows what it finds of the left
// list, in its order; moving all then moves what is found. Enter in the search box moves the item
// that FindFirst names, and empties the box for the next one; Down goes to the list. The lists
// themselves, OK and Cancel are the form's own.
class TwoListForm : public Form {
 public:
  Label lblSearch{*this, u"lblSearch", u"查找(&F)"};
  SearchBox txtSearch{*this, u"txtSearch"};
  Label lblAll{*this, u"lblAll", u"可选栏目(&S)"};
  Label lblCount{*this, u"lblCount"};
  CommandButton cmdRightOne{*this, u"cmdRightOne", u"选择(&A) >"};
  CommandButton cmdRightAll{*this, u"cmdRightAll", u"全部选择(&L) >>"};
  CommandButton cmdLeftOne{*this, u"cmdLeftOne", u"< 移除(&R)"};
  CommandButton cmdLeftAll{*this, u"cmdLeftAll", u"<< 全部移除(&E)"};
  Label lblSelected{*this, u"lblSelected", u"已选栏目(&T)"};
  Label lblSelectedCount{*this, u"lblSelectedCount"};

  void UserClosed() override { Close(); }

 protected:
  TwoListForm(TextView name, TextView caption) : Form(name, caption) {
    cmdRightOne.ToolTipText(u"选择");
    cmdRightAll.ToolTipText(u"全部选择");
    cmdLeftOne.ToolTipText(u"移除");
    cmdLeftAll.ToolTipText(u"全部移除");
  }

  // A handler whose errors end the act alone.
  template <class Handler>
  auto Act(Handler handler) {
    return [this, handler](auto... arguments) { Step(Name(), [&] { handler(arguments...); }); };
  }

  // Lets buttons, double clicks and keys move items: what calls move(from, to, items), items
  // ascending; moved() brings the buttons and counts up to date.
  template <class List, class Move, class Moved>
  void WireMoves(List& all, List& selected, Move move, Moved moved) {
    using Key = RowControl::Key;
    all.MultiSelect(true);
    selected.MultiSelect(true);
    const auto moves = [=, this](List& from, List& to, auto itemsOf) {
      return this->Act([&from, &to, move, moved, itemsOf] {
        move(from, to, itemsOf(from));
        moved();
      });
    };
    const auto selection = [](const List& list) { return list.Selection(); };
    const auto right = moves(all, selected, selection);
    const auto left = moves(selected, all, selection);
    cmdRightOne.OnClick = all.OnDoubleClick = right;
    cmdLeftOne.OnClick = selected.OnDoubleClick = left;
    cmdRightAll.OnClick = moves(all, selected, EveryItem);
    cmdLeftAll.OnClick = moves(selected, all, EveryItem);
    all.OnKey = [right](Key key) {
      if (key == Key::Space || key == Key::Right) right();
    };
    selected.OnKey = [left](Key key) {
      if (key == Key::Space || key == Key::Left || key == Key::Delete) left();
    };
    all.OnSelect = selected.OnSelect = Act(moved);

    const auto search = [this, &all] {
      all.ShowFound(txtSearch.IsSearching() ? &txtSearch.Search() : nullptr);
    };
    txtSearch.OnChange = Act([search, moved] {
      search();
      moved();
    });
    txtSearch.OnTake = Act([=, this, &all, &selected] {
      const int hit = all.FindFirst(txtSearch.Search());
      if (hit < 0) return;
      // Among all of them, so that the one behind it becomes the current one.
      all.UserSelectedRow(hit);
      txtSearch.Text({});
      search();
      move(all, selected, all.Selection());
      moved();
    });
    txtSearch.OnDown = Act([&all] {
      if (all.RowCount() > 0) all.SetFocus();
    });
  }

  // Brings buttons and counts up to date with the left and the right list.
  void ShowCounts(const RowControl& all, const RowControl& selected) {
    cmdRightOne.Enabled(!all.Selection().empty());
    cmdRightAll.Enabled(all.RowCount() > 0);
    cmdLeftOne.Enabled(!selected.Selection().empty());
    cmdLeftAll.Enabled(selected.RowCount() > 0);
    const Text found = txtSearch.IsSearching() ? Join(u"找到 ", all.RowCount(), u" 项，") : Text();
    lblCount.Caption(Join(found, u"共 ", all.AllRows(), u" 项"));
    lblSelectedCount.Caption(Join(u"已选 ", selected.RowCount(), u" 项"));
  }

 private:
  static std::vector<int> EveryItem(const RowControl& list) {
    std::vector<int> items(static_cast<std::size_t>(list.RowCount()));
    std::iota(items.begin(), items.end(), 0);
    return items;
  }
};

}  // namespace fetchkit
