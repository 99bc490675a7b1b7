#include "fetchkit/dialogs/ControlModels.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace fetchkit {

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

// ---- SearchBox

const ListSearch& SearchBox::Search() {
  search_.SearchFor(Text());
  return search_;
}

bool SearchBox::UserPressed(Key key) {
  if (!TakesActs() || (key != Key::Down && !IsSearching())) return false;
  // Not as typed: the view does not know it yet.
  if (key == Key::Escape) Text({});
  const auto& handler = key == Key::Enter ? OnTake : key == Key::Down ? OnDown : OnChange;
  if (handler) handler();
  return true;
}

// ---- DateSpinner

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

void TreeView::SetNodes(std::vector<Node> nodes) {
  nodes_ = std::move(nodes);
  ++version_;
  selected_ = -1;
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
  // Unless a search hides it.
  if (current_ < 0 && RowCount() > 0) current_ = FirstRow();
  Changed();
}

template <class Row>
void RowControl::Sift(SiftedRows<Row>& rows, typename SiftedRows<Row>::IsFound isFound,
                      const ListSearch* search) {
  const int before = current_ < 0 ? -1 : rows.PlaceOf(current_);
  rows.Sift(search == nullptr ? nullptr : std::move(isFound));
  several_.clear();
  current_ = search == nullptr ? before : FindFirst(*search);
  if (current_ < 0 && RowCount() > 0) current_ = FirstRow();
  Changed();
}

int RowControl::FindFirst(const ListSearch& search, int from) const {
  const int count = RowCount();
  const int first = Has(from) ? from - FirstRow() : 0;
  const auto rowOf = [&](int entry) { return FirstRow() + (first + entry) % count; };
  const int found = ListSearch::FirstFound(
      count, [&](int entry) { return search.Rank(ShownText(rowOf(entry))); });
  return found < 0 ? -1 : rowOf(found);
}

int RowControl::FindTyped(TextView typed, int from) const {
  typed_.SearchFor(typed);
  return typed_.NothingTyped() ? -1 : FindFirst(typed_, from);
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
  cells_.Assign({std::move(header)});
  fixedRows_ = 1;
  Current(-1);
  Changed();
}

void MSFlexGrid::SetUp(int cols) {
  formatString_.clear();
  columns_.assign(At(cols), {});
  cells_.Assign({});
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
  Set(cells_.At(row).at(At(col)), std::move(text));
}

void MSFlexGrid::AddItem(TextView tabbed) {
  std::vector<Text> row;
  for (const TextView cell : Split(tabbed, u"\t"))
    row.emplace_back(cell);
  AddRow(std::move(row));
}

void MSFlexGrid::AddRow(std::vector<Text> row) {
  row.resize(columns_.size());
  cells_.Add(std::move(row));
  Changed();
}

void MSFlexGrid::RemoveItem(int row) {
  if (row < fixedRows_ || row >= Rows()) return;
  cells_.Remove(row);
  KeepInsideWithout(row);
  Changed();
}

void MSFlexGrid::MoveRowsTo(MSFlexGrid& other, const std::vector<int>& rows) {
  if (rows.empty() || rows.front() < fixedRows_ || rows.back() >= Rows()) return;
  cells_.MoveTo(other.cells_, rows);
  Moved(rows.front());
  other.Received();
}

void MSFlexGrid::ClearRows() {
  cells_.KeepFirst(fixedRows_);
  Current(-1);
  Changed();
}

int MSFlexGrid::ShownColumn() const {
  const auto shown = std::find_if(columns_.begin(), columns_.end(),
                                  [](const Column& column) { return column.width != 0; });
  return static_cast<int>(shown - columns_.begin());
}

void MSFlexGrid::ShowFound(const ListSearch* search) {
  Sift(
      cells_,
      [search, column = At(ShownColumn())](const std::vector<Text>& row) {
        return search->Matches(row.at(column));
      },
      search);
}

// ---- ListBox

void ListBox::List(int item, Text text) {
  Set(items_.At(item), std::move(text));
}

void ListBox::Clear() {
  items_.Assign({});
  Current(-1);
  Changed();
}

void ListBox::AddItem(Text text) {
  items_.Add(std::move(text));
  Received();
}

void ListBox::MoveItemsTo(ListBox& other, const std::vector<int>& items) {
  if (items.empty() || items.front() < 0 || items.back() >= ListCount()) return;
  items_.MoveTo(other.items_, items);
  Moved(items.front());
  other.Received();
}

void ListBox::ShowFound(const ListSearch* search) {
  Sift(
      items_, [search](const Text& item) { return search->Matches(item); }, search);
}

void ListBox::UserMovedPointer(int y) {
  if (!TakesActs() || !OnPointer) return;
  const int item = y < 0 || extent.itemHeight <= 0 ? -1 : extent.topIndex + y / extent.itemHeight;
  OnPointer(item < ListCount() ? item : -1);
}

}  // namespace fetchkit
