#include "fetchkit/dialogs/ControlModels.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace fetchkit {
namespace {

// What is the current one of count rows or items when some went away.
int Inside(int current, int first, int count) {
  return current < first || count <= first ? -1 : std::min(current, count - 1);
}

}  // namespace

void CommandButton::UserPressed() {
  if (TakesActs() && OnClick) OnClick();
}

// ---- TextBox

void TextBox::UserTyped(TextView text) {
  if (!TakesActs() || text == text_) return;
  text_ = text;
  Mark({});
  if (OnChange) OnChange();
}

void TextBox::UserLeft(const Control* next) {
  if (TakesActs() && OnLeave) OnLeave(next);
}

void TextBox::UserPressedEnter() {
  if (TakesActs() && OnEnter) OnEnter();
}

void DateSpinner::UserChanged(Date value) {
  if (!TakesActs() || (value == value_ && IsTicked())) return;
  value_ = value;
  ticked_ = true;
  if (OnChange) OnChange();
}

void DateSpinner::UserTicked(bool ticked) {
  if (!TakesActs() || ticked == IsTicked() || !hasTick_) return;
  ticked_ = ticked;
  if (OnChange) OnChange();
}

// ---- TreeView

void TreeView::Clear() {
  nodes_.clear();
  selected_ = -1;
  Changed();
}

void TreeView::Add(Node node) {
  nodes_.push_back(std::move(node));
  Changed();
}

void TreeView::Bold(int index, bool bold) {
  Set(nodes_.at(static_cast<std::size_t>(index)).Bold, bold);
}

void TreeView::UserClickedNode(int index) {
  if (!TakesActs() || index < 0 || index >= static_cast<int>(nodes_.size())) return;
  selected_ = index;
  if (OnNodeClick) OnNodeClick(nodes_[static_cast<std::size_t>(index)]);
}

// ---- MSFlexGrid

void MSFlexGrid::FormatString(Text format) {
  formatString_ = std::move(format);
  columns_.clear();
  std::vector<Text> header;
  for (TextView caption : Split(formatString_, u"|")) {
    const bool left = caption.substr(0, 1) == u"<";
    if (left) caption.remove_prefix(1);
    columns_.push_back({Column().width, left});
    header.emplace_back(caption);
  }
  cells_.assign(1, header);
  fixedRows_ = 1;
  row_ = -1;
  Changed();
}

void MSFlexGrid::SetUp(int cols) {
  formatString_.clear();
  columns_.assign(At(cols), {});
  cells_.clear();
  fixedRows_ = 0;
  row_ = -1;
  Changed();
}

void MSFlexGrid::ColWidth(int col, int twips) {
  Set(columns_.at(At(col)).width, twips);
}

void MSFlexGrid::LeftAligned(int col, bool left) {
  Set(columns_.at(At(col)).left, left);
}

void MSFlexGrid::TextMatrix(int row, int col, Text text) {
  Set(cells_.at(At(row)).at(At(col)), std::move(text));
}

void MSFlexGrid::AddItem(TextView tabbed) {
  std::vector<Text> row;
  for (const TextView cell : Split(tabbed, u"\t"))
    row.emplace_back(cell);
  AddRow(std::move(row));
}

void MSFlexGrid::AddRow(std::vector<Text> row) {
  row.resize(columns_.size());
  cells_.push_back(std::move(row));
  Changed();
}

void MSFlexGrid::RemoveItem(int row) {
  if (!IsDataRow(row)) return;
  cells_.erase(cells_.begin() + row);
  if (row < row_) --row_;
  KeepRowInside();
  Changed();
}

void MSFlexGrid::MoveRowsTo(MSFlexGrid& other, int first, int count) {
  if (count <= 0 || !IsDataRow(first) || !IsDataRow(first + count - 1)) return;
  // First of all: without memory no row may be on its way.
  other.cells_.reserve(other.cells_.size() + At(count));
  const auto begin = cells_.begin() + first;
  std::move(begin, begin + count, std::back_inserter(other.cells_));
  cells_.erase(begin, begin + count);
  KeepRowInside();
  if (other.row_ < 0) other.row_ = other.fixedRows_;
  Changed();
  other.Changed();
}

void MSFlexGrid::ClearRows() {
  cells_.resize(At(std::min(fixedRows_, Rows())));
  row_ = -1;
  Changed();
}

void MSFlexGrid::UserSelectedRow(int row) {
  if (!TakesActs() || !IsDataRow(row)) return;
  row_ = row;
  if (OnRowSelect) OnRowSelect();
}

void MSFlexGrid::UserDoubleClickedRow(int row) {
  if (!TakesActs() || !IsDataRow(row)) return;
  UserSelectedRow(row);
  if (OnDoubleClick) OnDoubleClick();
}

void MSFlexGrid::UserPressedF2() {
  if (TakesActs() && IsDataRow(row_) && OnF2) OnF2();
}

void MSFlexGrid::UserPressedDelete() {
  if (TakesActs() && IsDataRow(row_) && OnDelete) OnDelete();
}

void MSFlexGrid::KeepRowInside() {
  row_ = Inside(row_, fixedRows_, Rows());
}

// ---- ListBox

void ListBox::List(int item, Text text) {
  Set(items_.at(static_cast<std::size_t>(item)), std::move(text));
}

void ListBox::Clear() {
  items_.clear();
  index_ = -1;
  Changed();
}

void ListBox::AddItem(Text text) {
  items_.push_back(std::move(text));
  if (index_ < 0) index_ = 0;
  Changed();
}

void ListBox::RemoveItem(int item) {
  if (item < 0 || item >= ListCount()) return;
  items_.erase(items_.begin() + item);
  if (item < index_) --index_;
  KeepIndexInside();
  Changed();
}

void ListBox::MoveAllTo(ListBox& other) {
  if (items_.empty()) return;
  // First of all: without memory no item may be on its way.
  other.items_.reserve(other.items_.size() + items_.size());
  std::move(items_.begin(), items_.end(), std::back_inserter(other.items_));
  Clear();
  if (other.index_ < 0) other.index_ = 0;
  other.Changed();
}

void ListBox::UserSelected(int item) {
  if (!TakesActs() || item < 0 || item >= ListCount()) return;
  index_ = item;
  if (OnSelect) OnSelect();
}

void ListBox::UserDoubleClicked(int item) {
  if (!TakesActs() || item < 0 || item >= ListCount()) return;
  UserSelected(item);
  if (OnDoubleClick) OnDoubleClick();
}

void ListBox::UserMovedPointer(int y) {
  if (!TakesActs() || !OnPointer) return;
  const int item = y < 0 || extent.itemHeight <= 0 ? -1 : extent.topIndex + y / extent.itemHeight;
  OnPointer(item < ListCount() ? item : -1);
}

void ListBox::KeepIndexInside() {
  index_ = Inside(index_, 0, ListCount());
}

}  // namespace fetchkit
