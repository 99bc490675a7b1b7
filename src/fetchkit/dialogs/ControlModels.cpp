#include "fetchkit/dialogs/ControlModels.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace fetchkit {
namespace {

// Moves the elements at those places to the end of another vector. Without memory none is on its
// way.
template <class T>
void MoveElements(std::vector<T>& from, const std::vector<int>& places, std::vector<T>& to) {
  to.reserve(to.size() + places.size());
  auto place = places.begin();
  auto kept = static_cast<std::size_t>(places.front());
  for (std::size_t at = kept; at < from.size(); ++at) {
    if (place != places.end() && at == static_cast<std::size_t>(*place)) {
      to.push_back(std::move(from[at]));
      ++place;
    } else {
      from[kept++] = std::move(from[at]);
    }
  }
  from.resize(kept);
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

// ---- RowControl

std::vector<int> RowControl::Selection() const {
  if (!several_.empty() || current_ < 0) return several_;
  return {current_};
}

void RowControl::Current(int row) {
  if (row == current_ && several_.empty()) return;
  current_ = row;
  several_.clear();
  Changed();
}

void RowControl::KeepInside() {
  several_.clear();
  if (current_ >= 0) current_ = EndRow() <= FirstRow() ? -1 : std::min(current_, EndRow() - 1);
}

void RowControl::KeepInsideWithout(int row) {
  if (row < current_) --current_;
  KeepInside();
}

void RowControl::Moved(int firstMoved) {
  current_ = firstMoved;
  KeepInside();
  Changed();
}

void RowControl::Received() {
  if (current_ < 0) current_ = FirstRow();
  Changed();
}

void RowControl::UserSelectedRow(int row) {
  if (!TakesActs() || !Has(row)) return;
  current_ = row;
  several_.clear();
  if (OnSelect) OnSelect();
}

void RowControl::UserSelectedRows(const std::vector<int>& rows) {
  if (!TakesActs() || !multiSelect_) return;
  several_.clear();
  for (const int row : rows)
    if (Has(row) && (several_.empty() || several_.back() < row)) several_.push_back(row);
  current_ = several_.empty() ? -1 : several_.front();
  if (OnSelect) OnSelect();
}

void RowControl::UserSelectedAll() {
  if (!TakesActs() || !multiSelect_ || EndRow() <= FirstRow()) return;
  several_.resize(static_cast<std::size_t>(EndRow() - FirstRow()));
  std::iota(several_.begin(), several_.end(), FirstRow());
  current_ = FirstRow();
  Changed();
  if (OnSelect) OnSelect();
}

void RowControl::UserDoubleClickedRow(int row) {
  if (!TakesActs() || !Has(row)) return;
  UserSelectedRow(row);
  if (OnDoubleClick) OnDoubleClick();
}

void RowControl::UserPressed(Key key) {
  if (TakesActs() && Has(current_) && OnKey) OnKey(key);
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
  Current(-1);
  Changed();
}

void MSFlexGrid::SetUp(int cols) {
  formatString_.clear();
  columns_.assign(At(cols), {});
  cells_.clear();
  fixedRows_ = 0;
  Current(-1);
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
  if (row < fixedRows_ || row >= Rows()) return;
  cells_.erase(cells_.begin() + row);
  KeepInsideWithout(row);
  Changed();
}

void MSFlexGrid::MoveRowsTo(MSFlexGrid& other, const std::vector<int>& rows) {
  if (rows.empty() || rows.front() < fixedRows_ || rows.back() >= Rows()) return;
  MoveElements(cells_, rows, other.cells_);
  Moved(rows.front());
  other.Received();
}

void MSFlexGrid::ClearRows() {
  cells_.resize(At(std::min(fixedRows_, Rows())));
  Current(-1);
  Changed();
}

// ---- ListBox

void ListBox::List(int item, Text text) {
  Set(items_.at(static_cast<std::size_t>(item)), std::move(text));
}

void ListBox::Clear() {
  items_.clear();
  Current(-1);
  Changed();
}

void ListBox::AddItem(Text text) {
  items_.push_back(std::move(text));
  Received();
}

void ListBox::RemoveItem(int item) {
  if (item < 0 || item >= ListCount()) return;
  items_.erase(items_.begin() + item);
  KeepInsideWithout(item);
  Changed();
}

void ListBox::MoveItemsTo(ListBox& other, const std::vector<int>& items) {
  if (items.empty() || items.front() < 0 || items.back() >= ListCount()) return;
  MoveElements(items_, items, other.items_);
  Moved(items.front());
  other.Received();
}

void ListBox::UserMovedPointer(int y) {
  if (!TakesActs() || !OnPointer) return;
  const int item = y < 0 || extent.itemHeight <= 0 ? -1 : extent.topIndex + y / extent.itemHeight;
  OnPointer(item < ListCount() ? item : -1);
}

}  // namespace fetchkit
