// The list-text picker: a drop-down list of rows of one or more columns.
#pragma once

#include <functional>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/Form.h"
#include "fetchkit/utility/ListSearch.h"

namespace fetchkit {

// Rows are counted from 0, -1 is "none". The text shown need not be in the list.
class PickCombo : public Control {
 public:
  using Control::Control;

  // Which column (from 1) is a row's id, -1 for none, and behind it which ones are shown, such as
  // "1,2,3" or "-1,1". Another setting than before clears the list.
  const fetchkit::Text& ColumnSet() const { return columnSet_; }
  void ColumnSet(fetchkit::Text columnSet);

  int ListCount() const { return static_cast<int>(cells_.size() / columns_); }
  int Cols() const { return static_cast<int>(columns_); }

  // Empty for a cell that is not there.
  const fetchkit::Text& Cell(int row, int col) const;

  // The row's id, or its first shown column where there are no ids.
  const fetchkit::Text& Id(int row) const;

  // The shown columns, joined by one blank; empty ones are left out.
  fetchkit::Text RowText(int row) const;

  // The first row that is shown so, -1 for none.
  int RowOf(TextView shown) const;

  // The shown columns as indexes for Cell, for a view that draws them side by side.
  const std::vector<int>& ShownColumns() const { return shown_; }

  // Replaces the whole list by rows that are given one behind the other, Cols() cells each; Text
  // and ListIndex are reset. One report to the view, whatever the number of rows.
  void SetList(std::vector<fetchkit::Text> cells);

  // Another number for every other list, for a view that keeps a copy.
  int ListVersion() const { return version_; }

  const fetchkit::Text& Text() const { return text_; }
  int ListIndex() const { return index_; }

  // What is shown, and the row that it stands for: both by program.
  void Show(fetchkit::Text text, int row = -1);
  void ShowRow(int row) { Show(RowText(row), row); }

  // The row to go to for what was typed: the one whose text as shown begins with it, else one whose
  // second or later column does, without regard to letter case; of several the first in the order
  // of these texts. Where there is none, the same by Pinyin initials ("by" finds "本月"), the first
  // in the order of the list. -1 for none and for nothing typed. Logarithmic by texts, but the
  // first search in a list sorts it; linear by initials.
  int FindTyped(TextView typed) const;

  // The list is open in front of the user, its highlight on a row; moving that chooses nothing.
  bool IsOpen() const { return open_; }
  int Highlight() const { return highlight_; }

  // Where the highlight begins when what is shown is none of the rows: -1, for a new list too, for
  // nowhere.
  void OpensAt(int row) { opensAt_ = row; }

  // Rows that the view shows at once, the step of the keys for a page.
  int pageRows = 10;

  // A row is chosen from the list by mouse; also when it is the one that was shown.
  void UserPicked(int row);

  // The list is opened, or closed without a choice, by mouse or by the system's own keys.
  void UserOpened();
  void UserClosed();

  // The pointer moves the highlight of the open list.
  void UserPointedAt(int row);

  enum class Key {
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    PageUp,
    PageDown,
    Enter,
    Tab,
    BackTab,
    Escape
  };

  // In the closed picker Down and Up open the list and the others do nothing; in the open one they
  // move the highlight, Enter chooses, Tab chooses and moves the focus on, Escape takes nothing.
  // False for a key that is the dialog's own: Enter, Tab and Escape while the list is closed.
  bool UserPressed(Key key);

  // Letters typed to find a row: opens the list with the highlight on FindTyped's row, which is
  // answered, too.
  int UserTyped(TextView typed);

  std::function<void(int row)> OnPick;

 private:
  fetchkit::Text columnSet_ = u"-1,1";
  int idColumn_ = -1;
  std::vector<int> shown_ = {0};
  std::size_t columns_ = 1;
  std::vector<fetchkit::Text> cells_;
  int version_ = 0;
  fetchkit::Text text_;
  int index_ = -1;
  bool open_ = false;
  int highlight_ = -1;
  int opensAt_ = -1;

  void AppendRow(fetchkit::Text& text, int row) const;
  int FindByInitials(TextView typed) const;
  void Open();
  void Close();
  void MoveHighlight(Key key);

  // What a search looks at: texts in upper case with their rows, sorted. The first index holds the
  // rows as shown, which begin with their first column, the others the further columns.
  struct Entry {
    fetchkit::Text key;
    int row;
  };
  const std::vector<std::vector<Entry>>& Indexes() const;
  mutable std::vector<std::vector<Entry>> indexes_;
  mutable ListSearch search_;
};

}  // namespace fetchkit
