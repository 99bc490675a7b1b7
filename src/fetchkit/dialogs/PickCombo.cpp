#include "fetchkit/dialogs/PickCombo.h"

#include <algorithm>
#include <utility>

#include "fetchkit/base/Numbers.h"

namespace fetchkit {
namespace {

// Not inside of a function: guarding it there costs a Windows host at every load (Fonts.cpp).
const fetchkit::Text kNoText;

}  // namespace

void PickCombo::ColumnSet(fetchkit::Text columnSet) {
  if (columnSet == columnSet_) return;
  columnSet_ = std::move(columnSet);
  shown_.clear();
  bool first = true;
  for (const TextView number : Split(columnSet_, u",")) {
    const int column = static_cast<int>(LeadingNumber(number)) - 1;
    if (std::exchange(first, false)) {
      idColumn_ = column < 0 ? -1 : column;
    } else {
      shown_.push_back(column);
    }
  }
  if (shown_.empty()) shown_.push_back(0);
  const int last = std::max(idColumn_, *std::max_element(shown_.begin(), shown_.end()));
  columns_ = static_cast<std::size_t>(last) + 1;
  cells_.clear();
  indexes_.clear();
  ++version_;
  SetList({});
}

const fetchkit::Text& PickCombo::Cell(int row, int col) const {
  if (row < 0 || row >= ListCount() || col < 0 || col >= Cols()) return kNoText;
  return cells_[static_cast<std::size_t>(row) * columns_ + static_cast<std::size_t>(col)];
}

const fetchkit::Text& PickCombo::Id(int row) const {
  return Cell(row, idColumn_ >= 0 ? idColumn_ : shown_.front());
}

fetchkit::Text PickCombo::RowText(int row) const {
  fetchkit::Text text;
  AppendRow(text, row);
  return text;
}

void PickCombo::AppendRow(fetchkit::Text& text, int row) const {
  for (const int column : shown_) {
    const fetchkit::Text& cell = Cell(row, column);
    if (!cell.empty()) AppendWith(text, u' ', cell);
  }
}

int PickCombo::RowOf(TextView shown) const {
  for (int row = 0; row < ListCount(); ++row)
    if (RowText(row) == shown) return row;
  return -1;
}

void PickCombo::SetList(std::vector<fetchkit::Text> cells) {
  cells.resize(cells.size() / columns_ * columns_);
  if (cells != cells_) {
    cells_ = std::move(cells);
    ++version_;
    indexes_.clear();
  }
  text_.clear();
  index_ = -1;
  opensAt_ = -1;
  open_ = false;
  Changed();
}

void PickCombo::Show(fetchkit::Text text, int row) {
  const int index = row < ListCount() ? row : -1;
  if (text == text_ && index == index_) return;
  text_ = std::move(text);
  index_ = index;
  Changed();
}

const std::vector<std::vector<PickCombo::Entry>>& PickCombo::Indexes() const {
  if (!indexes_.empty()) return indexes_;
  for (std::size_t i = 0; i < shown_.size(); ++i) {
    auto& index = indexes_.emplace_back();
    index.reserve(static_cast<std::size_t>(ListCount()));
    for (int row = 0; row < ListCount(); ++row)
      index.push_back({UpperAscii(i == 0 ? RowText(row) : Cell(row, shown_[i])), row});
    std::sort(index.begin(), index.end(), [](const Entry& a, const Entry& b) {
      return a.key != b.key ? a.key < b.key : a.row < b.row;
    });
  }
  return indexes_;
}

int PickCombo::FindTyped(TextView typed) const {
  if (typed.empty()) return -1;
  const fetchkit::Text key = UpperAscii(typed);
  for (const auto& index : Indexes()) {
    const auto found =
        std::lower_bound(index.begin(), index.end(), key,
                         [](const Entry& entry, const auto& sought) { return entry.key < sought; });
    if (found != index.end() && found->key.starts_with(key)) return found->row;
  }
  return FindByInitials(typed);
}

int PickCombo::FindByInitials(TextView typed) const {
  search_.SearchFor(typed);
  if (search_.NothingTyped()) return -1;
  fetchkit::Text text;
  return ListSearch::FirstFound(ListCount(), [&](int row) {
    text.clear();
    AppendRow(text, row);
    if (search_.Begins(text)) return SearchRank::Begins;
    const bool inside = std::any_of(shown_.begin() + 1, shown_.end(),
                                    [&](int column) { return search_.Begins(Cell(row, column)); });
    return inside ? SearchRank::Inside : SearchRank::None;
  });
}

// ---- acts of the user

void PickCombo::Open() {
  if (open_) return;
  open_ = true;
  highlight_ = index_ >= 0 ? index_ : std::min(opensAt_, ListCount() - 1);
  Changed();
}

void PickCombo::Close() {
  if (!open_) return;
  open_ = false;
  Changed();
}

void PickCombo::MoveHighlight(Key key) {
  const int last = ListCount() - 1;
  int row = highlight_;
  switch (key) {
    case Key::Up:
      row = row < 0 ? last : row - 1;
      break;
    case Key::Down:
      ++row;
      break;
    case Key::PageUp:
      row -= pageRows;
      break;
    case Key::PageDown:
      row += pageRows;
      break;
    case Key::Home:
      row = 0;
      break;
    case Key::End:
      row = last;
      break;
    default:
      return;
  }
  if (last >= 0) Set(highlight_, std::clamp(row, 0, last));
}

void PickCombo::UserPicked(int row) {
  if (!TakesActs() || row < 0 || row >= ListCount()) return;
  Close();
  text_ = RowText(row);
  index_ = row;
  if (OnPick) OnPick(row);
}

void PickCombo::UserOpened() {
  if (TakesActs()) Open();
}

void PickCombo::UserClosed() {
  if (TakesActs()) Close();
}

void PickCombo::UserPointedAt(int row) {
  if (TakesActs() && open_ && row >= 0 && row < ListCount()) Set(highlight_, row);
}

bool PickCombo::UserPressed(Key key) {
  if (!TakesActs()) return false;
  const bool ends =
      key == Key::Enter || key == Key::Tab || key == Key::BackTab || key == Key::Escape;
  if (!open_) {
    if (key == Key::Up || key == Key::Down) Open();
    return !ends;
  }
  if (!ends) {
    MoveHighlight(key);
    return true;
  }
  Close();
  if (key == Key::Escape) return true;
  DropFocusWish();
  UserPicked(highlight_);
  if (key != Key::Enter) MoveFocusOn(key == Key::BackTab);
  return true;
}

int PickCombo::UserTyped(TextView typed) {
  if (!TakesActs()) return -1;
  const int row = FindTyped(typed);
  Open();
  UserPointedAt(row);
  return row;
}

}  // namespace fetchkit
