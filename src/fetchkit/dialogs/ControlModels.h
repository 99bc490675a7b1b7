// Portable models of the controls on the forms.
//
// Rows, columns and items are counted from 0; -1 is "none". The On... members belong to the form
// that owns the control; a view calls the User... members only. An act on a control that is hidden
// or disabled, or that names a row or item that is not there, is ignored.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/Form.h"
#include "fetchkit/dialogs/SiftedRows.h"
#include "fetchkit/utility/ListSearch.h"

namespace fetchkit {

class Frame : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return false; }
};

class Label : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return false; }

  // Whether an "&" in the caption marks an access key; otherwise it is shown.
  bool UseMnemonic() const { return useMnemonic_; }
  void UseMnemonic(bool use) { Set(useMnemonic_, use); }

 private:
  bool useMnemonic_ = true;
};

class CommandButton : public Control {
 public:
  using Control::Control;

  void UserPressed();

  std::function<void()> OnClick;
};

class TextBox : public Control {
 public:
  using Control::Control;

  const fetchkit::Text& Text() const { return text_; }
  void Text(fetchkit::Text text) { Set(text_, std::move(text)); }

  // Whether no other box stands beside it: it has the room for both then.
  bool IsAlone() const { return alone_; }
  void IsAlone(bool alone) { Set(alone_, alone); }

  // Why what stands in the box was refused; empty for a box without a mark. A view draws a frame
  // round a marked box and says the message while the pointer rests on it.
  const fetchkit::Text& Mark() const { return mark_; }
  void Mark(fetchkit::Text message) { Set(mark_, std::move(message)); }

  // The whole text of the box after a key or a paste. Not reported as a change of the model. Takes
  // the mark away.
  void UserTyped(TextView text);

  // The focus leaves the box. next: where it goes, null when that is no control of the form. Not
  // to be called when the view itself takes the focus away (a hidden box, a form that closes).
  void UserLeft(const Control* next = nullptr);

  // Enter in the box, for hosts that give that key to the box: it takes the value as leaving does,
  // and keeps the focus in the box with a value that is refused.
  // A view whose Enter is the default button's calls Form::UserPressedEnter alone, which also
  // takes the value first.
  void UserPressedEnter();

  std::function<void()> OnChange;
  std::function<void(const Control* next)> OnLeave;
  std::function<void()> OnEnter;

 private:
  fetchkit::Text text_;
  fetchkit::Text mark_;
  bool alone_ = false;
};

// A box whose text is looked for in a list beside it. The form shows there what is found; nothing
// typed, or blanks alone, is found everywhere.
class SearchBox : public TextBox {
 public:
  using TextBox::TextBox;

  // Ready to look for what stands in the box.
  const ListSearch& Search();
  bool IsSearching() { return !Search().NothingTyped(); }

  // Enter takes what is found, Down goes to the list, Escape empties the box. False for a key that
  // is the dialog's own: Enter and Escape while nothing is looked for, and each where the box takes
  // no acts.
  enum class Key { Enter, Down, Escape };
  bool UserPressed(Key key);

  std::function<void()> OnTake;
  std::function<void()> OnDown;

 private:
  ListSearch search_;
};

// A date, shown as "yyyy-MM-dd", with a tick in front of it where it may be left out.
class DateSpinner : public Control {
 public:
  using Control::Control;

  Date Value() const { return value_; }
  void Value(Date value) { Set(value_, value); }
  fetchkit::Text Text() const { return FormatDate(value_); }

  bool HasTick() const { return hasTick_; }
  void HasTick(bool has) { Set(hasTick_, has); }

  // Always of one that has no tick.
  bool IsTicked() const { return ticked_ || !hasTick_; }
  void Tick(bool ticked) { Set(ticked_, ticked); }

  // A date other than the one shown, which ticks; the same one is no change.
  void UserChanged(Date value);

  // The tick is set, with the date that is shown, or taken away.
  void UserTicked(bool ticked);

  std::function<void()> OnChange;

 private:
  Date value_;
  bool hasTick_ = false;
  bool ticked_ = false;
};

class TreeView : public Control {
 public:
  using Control::Control;

  // What the picture in front of a node tells; inverted for a bold one.
  enum class Picture { Words, Number, Date, List, YesNo };

  struct Node {
    fetchkit::Text Key;
    fetchkit::Text Text;   // no access key: an "&" is shown
    fetchkit::Text Image;  // name in the image list: "closed"
    int Tag = 0;
    Picture Shows = Picture::Words;
    bool Bold = false;
  };

  const std::vector<Node>& Nodes() const { return nodes_; }
  // Replaces all of them; none is selected then.
  void SetNodes(std::vector<Node> nodes);
  void Bold(int index, bool bold);

  // Another number for every other set of nodes, for a view that keeps a copy.
  int NodesVersion() const { return version_; }

  // -1 where the current one is not among them: a view selects none then, not even when the tree
  // gets the focus.
  int SelectedItem() const { return selected_; }
  void SelectedItem(int index) { Set(selected_, index); }

  // A node is selected, by mouse or key, the selected one again included.
  void UserClickedNode(int index);

  std::function<void(const Node&)> OnNodeClick;

 private:
  std::vector<Node> nodes_;
  int version_ = 0;
  int selected_ = -1;
};

// What grids and list boxes share: a current row, which is selected, and, where that is allowed,
// others that are selected with it. Rows of a grid include its headers, which are not among them.
// While a search is shown, rows are those that it finds.
class RowControl : public Control {
 public:
  using Control::Control;

  bool MultiSelect() const { return multiSelect_; }
  void MultiSelect(bool several) { Set(multiSelect_, several); }

  // Ascending; empty when there is no current row.
  std::vector<int> Selection() const;

  // Without headers; and with those that a search hides.
  int RowCount() const { return EndRow() - FirstRow(); }
  virtual int AllRows() const = 0;

  // What is shown of a row, the first visible column of a grid.
  virtual const Text& ShownText(int row) const = 0;

  // Shows only the rows in whose text the search finds something, null for all of them. Rows keep
  // their order, hidden ones their places; what comes in is looked at, too. The one that FindFirst
  // names becomes the current row; without a search it stays the same one. The search must outlive
  // the list, or the next call.
  virtual void ShowFound(const ListSearch* search) = 0;

  // The row to go to, -1 for none: the first one that begins with what is looked for, else the
  // first that is found. from: the row to begin at, behind the last the first ones follow.
  int FindFirst(const ListSearch& search, int from = -1) const;

  // The same for letters that are typed into the list itself.
  int FindTyped(TextView typed, int from = -1) const;

  void UserSelectedRow(int row);                        // alone, the current one again included
  void UserSelectedRows(const std::vector<int>& rows);  // ascending, with MultiSelect
  void UserSelectedAll();                               // with MultiSelect
  void UserDoubleClickedRow(int row);                   // selects it first

  enum class Key { F2, Delete, Space, Left, Right };
  void UserPressed(Key key);  // with a current row

  std::function<void()> OnSelect;
  std::function<void()> OnDoubleClick;
  std::function<void(Key)> OnKey;

 protected:
  // Rows are those from the first on and below the end.
  virtual int FirstRow() const { return 0; }
  virtual int EndRow() const = 0;

  int Current() const { return current_; }
  void Current(int row);
  template <class Row>
  void Sift(SiftedRows<Row>& rows, typename SiftedRows<Row>::IsFound isFound,
            const ListSearch* search);
  void KeepInside();
  void KeepInsideWithout(int row);
  // After rows were moved away, and to here.
  void Moved(int firstMoved);
  void Received();

 private:
  bool Has(int row) const { return row >= FirstRow() && row < EndRow(); }

  bool multiSelect_ = false;
  int current_ = -1;
  std::vector<int> several_;  // empty for the current row alone
  mutable ListSearch typed_;
};

// A flex grid: rows of cells, the first FixedRows of them headers.
class MSFlexGrid : public RowControl {
 public:
  using RowControl::RowControl;

  int Rows() const { return cells_.Count(); }
  int AllRows() const override { return cells_.All() - fixedRows_; }
  int Cols() const { return static_cast<int>(columns_.size()); }
  int FixedRows() const { return fixedRows_; }

  // Column captions separated by "|", each with "<" in front of it for left alignment: sets the
  // columns and makes one header row; the other rows are gone.
  const Text& FormatString() const { return formatString_; }
  void FormatString(Text format);

  // Empties the grid to that many columns, without a header.
  void SetUp(int cols);

  // In twips (1440 to the inch); 0 hides the column.
  int ColWidth(int col) const { return columns_.at(At(col)).width; }
  void ColWidth(int col, int twips);
  bool LeftAligned(int col) const { return columns_.at(At(col)).left; }
  void LeftAligned(int col, bool left);

  // std::out_of_range for a cell that is not there.
  const Text& TextMatrix(int row, int col) const { return cells_.At(row).at(At(col)); }
  void TextMatrix(int row, int col, Text text);

  // Adds a row at the end; its cells are the parts between tabs, as far as there are columns.
  void AddItem(TextView tabbed);
  void AddRow(std::vector<Text> row);
  void RemoveItem(int row);

  // Moves rows, ascending, to the end of another grid of the same columns, in order. The next row
  // becomes the current one; the other grid has one then.
  void MoveRowsTo(MSFlexGrid& other, const std::vector<int>& rows);

  // Takes away all rows but the headers.
  void ClearRows();

  const Text& ShownText(int row) const override { return TextMatrix(row, ShownColumn()); }
  void ShowFound(const ListSearch* search) override;  // of a grid without headers

  // The current row, -1 for none; when it goes, the next one is.
  int Row() const { return Current(); }
  void Row(int row) { Current(row); }

 private:
  static std::size_t At(int at) { return static_cast<std::size_t>(at); }
  int ShownColumn() const;
  int FirstRow() const override { return fixedRows_; }
  int EndRow() const override { return Rows(); }

  struct Column {
    int width = 960;
    bool left = false;
  };
  Text formatString_;
  std::vector<Column> columns_;
  SiftedRows<std::vector<Text>> cells_;
  int fixedRows_ = 0;
};

class ListBox : public RowControl {
 public:
  using RowControl::RowControl;

  int ListCount() const { return items_.Count(); }
  const Text& List(int item) const { return items_.At(item); }
  void List(int item, Text text);
  const std::vector<Text>& Items() const { return items_.Rows(); }  // hidden ones included
  void Clear();
  void AddItem(Text text);

  // Moves items, ascending, to the end of another list, in order. The next item becomes the current
  // one; the other list has one then.
  void MoveItemsTo(ListBox& other, const std::vector<int>& items);

  int ListIndex() const { return Current(); }
  void ListIndex(int item) { Current(item); }

  int AllRows() const override { return items_.All(); }
  const Text& ShownText(int item) const override { return List(item); }
  void ShowFound(const ListSearch* search) override;

  // What the view knows of the list's picture, in its own units; set whenever it changes.
  struct Extent {
    int width = 0;        // inside the list
    int itemHeight = 0;   // of one item
    int letterWidth = 0;  // of "A" in the list's font
    int topIndex = 0;     // the first item in sight
  };
  Extent extent;

  void UserMovedPointer(int y);  // from the upper edge of the list

  std::function<void(int item)> OnPointer;  // the item under the pointer, -1 for none

 private:
  int EndRow() const override { return ListCount(); }

  SiftedRows<Text> items_;
};

}  // namespace fetchkit
