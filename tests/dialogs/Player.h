// A user without a window: plays acts, written as text, on the control models.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"
#include "fetchkit/platform/Platform.h"
#include "support/Lines.h"

namespace fetchkit::test {

using Acts = std::map<std::string, std::function<void(TextView rest)>>;

// "find TEXT" (typed into the search box), "search enter|down|esc" (there), "ok", "cancel",
// "close".
template <class AnyForm>
void PlayAll(AnyForm& form, std::string_view script, Acts acts) {
  acts["find"] = [&](TextView text) { form.txtSearch.UserTyped(text); };
  acts["search"] = [&](TextView key) {
    using Key = SearchBox::Key;
    const Key pressed = key == u"enter" ? Key::Enter : key == u"down" ? Key::Down : Key::Escape;
    if (form.txtSearch.UserPressed(pressed)) return;
    pressed == Key::Enter ? form.UserPressedEnter() : form.UserPressedEscape();
  };
  acts["ok"] = [&](TextView) { form.UserPressedEnter(); };
  acts["cancel"] = [&](TextView) { form.UserPressedEscape(); };
  acts["close"] = [&](TextView) { form.UserClosed(); };
  const Text all = FromUtf8(script);
  for (const TextView piece : Split(all, u";")) {
    const TextView act = piece.substr(std::min(piece.find_first_not_of(u' '), piece.size()));
    const std::size_t end = std::min(act.find(u' '), act.size());
    const auto known = acts.find(ToUtf8(act.substr(0, end)));
    if (known != acts.end())
      known->second(act.substr(std::min(end + 1, act.size())));
    else
      EXPECT_TRUE(act.empty()) << "no act: " << ToUtf8(act);
  }
}

// The row of a list, a header included, that reads so.
inline int Find(const RowControl& list, TextView text) {
  const auto* grid = dynamic_cast<const MSFlexGrid*>(&list);
  const int rows = list.RowCount() + (grid == nullptr ? 0 : grid->FixedRows());
  for (int row = 0; row < rows; ++row)
    if (list.ShownText(row) == text) return row;
  ADD_FAILURE() << "nothing reads " << ToUtf8(text);
  return -1;
}

// Acts stand between ";": "node CAPTION", "pick TEXT" (by mouse), "keys down enter ..." (in the
// picker, "up" to "esc", other words are typed), "from TEXT" and "to TEXT" (typed), "leave
// from|to|from to to|to to from", "enter from|to", "date from|to|one yyyy-MM-dd", "tick on|off",
// "row|double|delete CAPTION" (in the grid), "F2", "choose", "clear", those of PlayAll. A form that
// is still open at the end is left open; a dialog's caller must take that for Cancel.
inline void Play(frmFilter& form, std::string_view script) {
  const auto boxOf = [&](TextView name) -> TextBox& {
    return name.starts_with(u"to") ? form.txtTo : form.txtFrom;
  };
  const auto& nodes = form.tvwFilter.Nodes();
  PickCombo& picker = form.lxtOther;
  Acts acts;
  acts["node"] = [&](TextView text) {
    const auto node = std::find_if(nodes.begin(), nodes.end(),
                                   [&](const TreeView::Node& each) { return each.Text == text; });
    ASSERT_NE(node, nodes.end()) << ToUtf8(text);
    form.tvwFilter.UserClickedNode(static_cast<int>(node - nodes.begin()));
  };
  acts["pick"] = [&](TextView text) {
    EXPECT_GE(picker.RowOf(text), 0) << ToUtf8(text);
    picker.UserPicked(picker.RowOf(text));
  };
  acts["keys"] = [&](TextView names) {
    // In the order of PickCombo::Key.
    static const auto kKeys =
        Split(u"up down left right home end pgup pgdn enter tab back esc", u" ");
    for (const TextView name : Split(names, u" ")) {
      const auto key = std::find(kKeys.begin(), kKeys.end(), name);
      if (key != kKeys.end())
        picker.UserPressed(static_cast<PickCombo::Key>(key - kKeys.begin()));
      else
        picker.UserTyped(name);
    }
  };
  acts["from"] = [&](TextView text) { form.txtFrom.UserTyped(text); };
  acts["to"] = [&](TextView text) { form.txtTo.UserTyped(text); };
  acts["leave"] = [&](TextView box) {
    const std::size_t blank = box.rfind(u' ');
    boxOf(box).UserLeft(blank == TextView::npos ? nullptr : &boxOf(box.substr(blank + 1)));
  };
  acts["enter"] = [&](TextView box) { boxOf(box).UserPressedEnter(); };
  acts["date"] = [&](TextView text) {
    DateSpinner& date = text.starts_with(u"from") ? form.datFrom
                        : text.starts_with(u"to") ? form.datTo
                                                  : form.datDate;
    date.UserChanged(CurrentPlatform().ParseDate(text.substr(text.find(u' ') + 1)).value());
  };
  acts["tick"] = [&](TextView on) { form.datDate.UserTicked(on == u"on"); };
  MSFlexGrid& grid = form.msgFilter;
  acts["row"] = [&](TextView text) { grid.UserSelectedRow(Find(grid, text)); };
  acts["double"] = [&](TextView text) { grid.UserDoubleClickedRow(Find(grid, text)); };
  acts["F2"] = [&](TextView) { grid.UserPressed(RowControl::Key::F2); };
  acts["delete"] = [&](TextView text) {
    grid.UserSelectedRow(Find(grid, text));
    grid.UserPressed(RowControl::Key::Delete);
  };
  acts["choose"] = [&](TextView) { form.cmdChoose.UserPressed(); };
  acts["clear"] = [&](TextView) { form.cmdOk[2].UserPressed(); };
  PlayAll(form, script, std::move(acts));
}

// "right|left TEXT" (double click on the row with that text moves it there), "all right|left",
// "select right|left 0 2 ..." (rows of the list on that side; nothing for all), "press right|left
// space|del|right|left", those of PlayAll.
template <class AnyForm>
void PlayMoves(AnyForm& form, RowControl& all, RowControl& selected, std::string_view script,
               Acts acts = {}) {
  using Key = RowControl::Key;
  const auto listOf = [&](TextView side) -> RowControl& {
    return side == u"right" ? selected : all;
  };
  acts["right"] = [&](TextView text) { all.UserDoubleClickedRow(Find(all, text)); };
  acts["left"] = [&](TextView text) { selected.UserDoubleClickedRow(Find(selected, text)); };
  acts["all"] = [&](TextView side) {
    (side == u"right" ? form.cmdRightAll : form.cmdLeftAll).UserPressed();
  };
  acts["select"] = [=](TextView act) {
    const auto words = Split(act, u" ");
    if (words.size() == 1) return listOf(words[0]).UserSelectedAll();
    std::vector<int> rows;
    for (std::size_t i = 1; i < words.size(); ++i)
      rows.push_back(std::stoi(ToUtf8(words[i])));
    listOf(words[0]).UserSelectedRows(rows);
  };
  acts["press"] = [=](TextView act) {
    const auto words = Split(act, u" ");
    listOf(words[0]).UserPressed(words[1] == u"space"   ? Key::Space
                                 : words[1] == u"del"   ? Key::Delete
                                 : words[1] == u"right" ? Key::Right
                                                        : Key::Left);
  };
  PlayAll(form, script, std::move(acts));
}

inline void Play(frmFilterColumn& form, std::string_view script) {
  PlayMoves(form, form.msgAll, form.msgSelected, script);
}

// "up TEXT", "down TEXT"; nothing for the ones that are selected.
inline void Play(frmMultiChoose& form, std::string_view script) {
  const auto moves = [&form](CommandButton& button) {
    return [&form, &button](TextView text) {
      if (!text.empty()) form.lstSelected.UserSelectedRow(Find(form.lstSelected, text));
      button.UserPressed();
    };
  };
  PlayMoves(form, form.lstAll, form.lstSelected, script,
            {{"up", moves(form.cmdSerial[0])}, {"down", moves(form.cmdSerial[1])}});
}

// The keyboard: keys go where the focus is, which begins in the search box. A letter is a key, and
// "enter" is one.
inline void PressKeys(frmFilter& form, std::string_view keys) {
  Control* focus = &form.txtSearch;
  Text typed;
  const Text all = FromUtf8(keys);
  for (const TextView key : Split(all, u" ")) {
    auto* box = dynamic_cast<TextBox*>(focus);
    if (key != u"enter") {
      typed += key;
      box != nullptr ? box->UserTyped(typed) : void(form.lxtOther.UserTyped(typed));
      continue;
    }
    typed.clear();
    const bool taken = focus == &form.txtSearch
                           ? form.txtSearch.UserPressed(SearchBox::Key::Enter)
                           : box == nullptr && form.lxtOther.UserPressed(PickCombo::Key::Enter);
    if (!taken) form.UserPressedEnter();
    if (Control* wish = form.TakeFocusWish()) focus = wish;
  }
}

class Player : public FormView {
 public:
  void ShowModal(frmFilter& form, std::int32_t hWndOwner) override {
    owner = hWndOwner;
    Play(form, filter);
    if (onFilter) onFilter(form);
  }
  void ShowModal(frmFilterColumn& form, const frmFilter&) override {
    if (onChooser) onChooser(form);
    Play(form, chooser);
  }
  void ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) override {
    owner = hWndOwner;
    if (onMulti) onMulti(form);
    Play(form, multi);
    if (afterMulti) afterMulti(form);
  }

  std::string filter, chooser, multi;               // acts
  std::function<void(frmFilter&)> onFilter;         // after the acts; the form may be closed
  std::function<void(frmFilterColumn&)> onChooser;  // before the acts
  std::function<void(frmMultiChoose&)> onMulti, afterMulti;
  std::int32_t owner = -1;  // the window that the last one was given
};

// The rows of a grid: "cell|cell|..." per row, headers left out, by the named columns.
inline std::vector<std::string> RowsOf(const MSFlexGrid& grid, std::initializer_list<int> columns) {
  std::vector<std::string> rows;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    std::string& line = rows.emplace_back();
    for (const int col : columns)
      line.append(line.empty() ? "" : "|").append(ToUtf8(grid.TextMatrix(row, col)));
  }
  return rows;
}

// What a list shows, items between blanks.
inline std::string ItemsOf(const RowControl& list) {
  std::string items;
  for (int row = 0; row < list.RowCount(); ++row)
    items.append(row == 0 ? "" : " ").append(ToUtf8(list.ShownText(row)));
  return items;
}

inline std::string NameOf(const Control* control) {
  return control == nullptr ? "" : ToUtf8(control->Name());
}

// The names of the editors that the user sees, in Tab order, without the labels of one alone.
inline std::string EditorsOf(const frmFilter& form) {
  const Control* const editors[] = {&form.lxtOther, &form.datDate, &form.lblFrom, &form.txtFrom,
                                    &form.datFrom,  &form.lblTo,   &form.txtTo,   &form.datTo};
  std::string names;
  for (const Control* editor : editors)
    if (editor->Visible()) names.append(names.empty() ? "" : " ").append(NameOf(editor));
  return names;
}

}  // namespace fetchkit::test
