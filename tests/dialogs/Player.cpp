#include "dialogs/Player.h"

#include <gtest/gtest.h>

#include "base/Utf8.h"
#include "platform/Platform.h"

namespace fetchkit::test {
namespace {

// Calls act with the verb and the rest of each act.
template <class Act>
void ForEachAct(std::string_view acts, Act&& act) {
  const Text all = FromUtf8(acts);
  for (const TextView piece : Split(all, u";")) {
    const TextView one = piece.substr(std::min(piece.find_first_not_of(u' '), piece.size()));
    if (one.empty()) continue;
    const std::size_t end = std::min(one.find(u' '), one.size());
    act(ToUtf8(one.substr(0, end)), one.substr(std::min(end + 1, one.size())));
  }
}

template <class Texts>
int Find(int count, TextView text, Texts&& textAt) {
  for (int i = 0; i < count; ++i)
    if (textAt(i) == text) return i;
  ADD_FAILURE() << "nothing reads " << ToUtf8(text);
  return -1;
}

template <class FormType>
bool PlayEnd(FormType& form, const std::string& verb) {
  if (verb == "ok" || verb == "default")
    form.UserPressedEnter();
  else if (verb == "cancel")
    form.UserPressedEscape();
  else if (verb == "close")
    form.UserClosed();
  else
    return false;
  return true;
}

}  // namespace

void Play(frmFilter& form, std::string_view acts) {
  ForEachAct(acts, [&](const std::string& verb, TextView rest) {
    TextBox& box = rest.starts_with(u"to") ? form.txtTo : form.txtFrom;
    if (PlayEnd(form, verb)) return;
    if (verb == "node") {
      const auto& nodes = form.tvwFilter.Nodes();
      form.tvwFilter.UserClickedNode(Find(static_cast<int>(nodes.size()), rest, [&](int i) {
        return nodes[static_cast<std::size_t>(i)].Text;
      }));
    } else if (verb == "pick") {
      form.lxtOther.UserPicked(Find(form.lxtOther.ListCount(), rest,
                                    [&](int row) { return form.lxtOther.RowText(row); }));
    } else if (verb == "from") {
      form.txtFrom.UserTyped(rest);
    } else if (verb == "to") {
      form.txtTo.UserTyped(rest);
    } else if (verb == "leave") {
      const bool toOther = rest.find(u' ') != TextView::npos;
      box.UserLeft(!toOther ? nullptr : &box == &form.txtFrom ? &form.txtTo : &form.txtFrom);
    } else if (verb == "enter") {
      box.UserPressedEnter();
    } else if (verb == "date") {
      const std::size_t blank = rest.find(u' ');
      const TextView which = rest.substr(0, blank);
      (which == u"from" ? form.datFrom
       : which == u"to" ? form.datTo
                        : form.datDate)
          .UserChanged(CurrentPlatform().ParseDate(rest.substr(blank + 1)).value());
    } else if (verb == "delete") {
      form.msgFilter.UserSelectedRow(Find(
          form.msgFilter.Rows(), rest, [&](int row) { return form.msgFilter.TextMatrix(row, 1); }));
      form.msgFilter.UserPressedDelete();
    } else if (verb == "clear") {
      form.cmdOk[2].UserPressed();
    } else if (verb != "nothing") {
      ADD_FAILURE() << "no act: " << verb;
    }
  });
}

void Play(frmFilterColumn& form, std::string_view acts) {
  const auto doubleClick = [](MSFlexGrid& grid, TextView text) {
    grid.UserDoubleClickedRow(
        Find(grid.Rows(), text, [&](int row) { return grid.TextMatrix(row, 2); }));
  };
  ForEachAct(acts, [&](const std::string& verb, TextView rest) {
    if (PlayEnd(form, verb)) return;
    if (verb == "all")
      (rest == u"right" ? form.cmdRightAll : form.cmdLeftAll).UserPressed();
    else
      doubleClick(verb == "right" ? form.msgAll : form.msgSelected, rest);
  });
}

void Play(frmMultiChoose& form, std::string_view acts) {
  const auto itemOf = [](const ListBox& list, TextView text) {
    return Find(list.ListCount(), text, [&](int item) { return list.List(item); });
  };
  ForEachAct(acts, [&](const std::string& verb, TextView rest) {
    if (PlayEnd(form, verb)) return;
    if (verb == "all") {
      (rest == u"right" ? form.cmdRightAll : form.cmdLeftAll).UserPressed();
    } else if (verb == "right") {
      form.lstAll.UserDoubleClicked(itemOf(form.lstAll, rest));
    } else {
      form.lstSelected.UserSelected(itemOf(form.lstSelected, rest));
      (verb == "left" ? form.cmdLeftOne : form.cmdSerial[verb == "up" ? 0 : 1]).UserPressed();
    }
  });
}

void Player::ShowModal(frmFilter& form, std::int32_t) {
  ++shown;
  Play(form, filter);
  if (onFilter) onFilter(form);
}

void Player::ShowModal(frmFilterColumn& form, const frmFilter&) {
  ++shown;
  if (onChooser) onChooser(form);
  Play(form, chooser);
}

void Player::ShowModal(frmMultiChoose& form, std::int32_t) {
  ++shown;
  if (onMulti) onMulti(form);
  Play(form, multi);
}

std::vector<std::string> RowsOf(const MSFlexGrid& grid, std::initializer_list<int> columns) {
  std::vector<std::string> rows;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
    std::string line;
    for (const int col : columns)
      line.append(line.empty() ? "" : "|").append(ToUtf8(grid.TextMatrix(row, col)));
    rows.push_back(std::move(line));
  }
  return rows;
}

std::string EditorsOf(const frmFilter& form) {
  std::string names;
  for (const Control* control : form.Controls()) {
    const std::string name = ToUtf8(control->Name());
    if (!control->Visible() || control->Index() >= 0 || name.find("Frame") == 0 ||
        name == "tvwFilter" || name == "msgFilter" || name == "lblTitle")
      continue;
    names.append(names.empty() ? "" : " ").append(name);
  }
  return names;
}

}  // namespace fetchkit::test
