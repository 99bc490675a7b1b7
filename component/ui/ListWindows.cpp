#include "component/ui/ListWindows.h"

#include <algorithm>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {

RowsWindow::RowsWindow(FormWindow& form, RowControl& model, HWND window)
    : ControlWindow(model, window), form_(form), rows_(model) {
  Listen();
  constexpr DWORD kStyles = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
  SendMessageW(window, LVM_SETEXTENDEDLISTVIEWSTYLE, kStyles, kStyles);
}

void RowsWindow::SetColumns(std::vector<int> widths, const std::vector<Text>& captions) {
  while (ListView_DeleteColumn(window(), 0)) {
  }
  for (std::size_t index = 0; index < widths.size(); ++index) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = LVCFMT_LEFT;
    column.pszText = Editable(captions[index]);
    column.cx = widths[index];
    SendMessageW(window(), LVM_INSERTCOLUMNW, index, reinterpret_cast<LPARAM>(&column));
  }
  widths_ = std::move(widths);
  RowsWindow::OnLayout();
}

void RowsWindow::OnLayout() {
  if (widths_.empty()) return;
  RECT client{};
  GetClientRect(window(), &client);
  clientWidth_ = client.right;
  int left = static_cast<int>(client.right);  // without the scroll bar
  const int last = static_cast<int>(widths_.size()) - 1;
  for (int index = 0; index < last; ++index) {
    ListView_SetColumnWidth(window(), index, widths_[static_cast<std::size_t>(index)]);
    left -= widths_[static_cast<std::size_t>(index)];
  }
  ListView_SetColumnWidth(window(), last, std::max(left, widths_.back() / 2));
  if (const std::vector<int> selection = rows_.Selection(); !selection.empty())
    ListView_EnsureVisible(window(), selection.front() - Headers(), FALSE);
}

// A list keeps the colours that it was made with.
void RowsWindow::OnColors() {
  ListView_SetBkColor(window(), GetSysColor(COLOR_WINDOW));
  ListView_SetTextBkColor(window(), GetSysColor(COLOR_WINDOW));
  ListView_SetTextColor(window(), GetSysColor(COLOR_WINDOWTEXT));
  InvalidateRect(window(), nullptr, TRUE);
}

// As the model counts rows.
std::vector<int> RowsWindow::ShownSelection() const {
  std::vector<int> rows(ListView_GetSelectedCount(window()));
  int row = -1;
  for (int& each : rows) {
    row = ListView_GetNextItem(window(), row, LVNI_SELECTED);
    each = row + Headers();
  }
  return rows;
}

bool RowsWindow::IsShown(const std::vector<int>& selection) const {
  if (ListView_GetSelectedCount(window()) != selection.size()) return false;
  return static_cast<int>(selection.size()) == rows_.RowCount() ||
         std::all_of(selection.begin(), selection.end(), [this](int row) {
           return ListView_GetItemState(window(), row - Headers(), LVIS_SELECTED) != 0;
         });
}

void RowsWindow::RefreshRows() {
  const int count = rows_.RowCount();
  if (ListView_GetItemCount(window()) != count)
    SendMessageW(window(), LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
  // The scroll bar may have come or gone.
  RECT client{};
  GetClientRect(window(), &client);
  if (client.right != clientWidth_) RowsWindow::OnLayout();
  const std::vector<int> selection = rows_.Selection();
  if (!IsShown(selection)) {
    const bool all = rows_.MultiSelect() && static_cast<int>(selection.size()) == count;
    ListView_SetItemState(window(), -1, all ? LVIS_SELECTED : 0, LVIS_SELECTED);
    for (const int row : selection)
      if (!all) ListView_SetItemState(window(), row - Headers(), LVIS_SELECTED, LVIS_SELECTED);
    if (!selection.empty()) {
      const int first = selection.front() - Headers();
      ListView_SetItemState(window(), first, LVIS_FOCUSED, LVIS_FOCUSED);
      ListView_SetSelectionMark(window(), first);
      if (!all) ListView_EnsureVisible(window(), first, FALSE);
    }
  }
  InvalidateRect(window(), nullptr, TRUE);
}

// The system tells of a change row by row: they are looked at together.
void RowsWindow::OnLater() {
  selectionPosted_ = false;
  rows_.UserSelectedRows(ShownSelection());
}

LRESULT RowsWindow::OnOwnMessage(UINT message, WPARAM first, LPARAM second) {
  if (message == WM_MOUSEMOVE) PointerMoved(GET_Y_LPARAM(second));
  if (message == WM_KEYDOWN && Pressed(first)) return 0;
  // The characters of keys that move rows look for none.
  if (message == WM_CHAR && rows_.MultiSelect() && first <= L' ') return 0;
  return ControlWindow::OnOwnMessage(message, first, second);
}

bool RowsWindow::Pressed(WPARAM key) {
  using Key = RowControl::Key;
  const bool several = rows_.MultiSelect();
  if (several && key == 'A' && GetKeyState(VK_CONTROL) < 0) {
    form_.Act([this] { rows_.UserSelectedAll(); });
    return true;
  }
  static constexpr std::pair<WPARAM, Key> kKeys[] = {{VK_F2, Key::F2},
                                                     {VK_DELETE, Key::Delete},
                                                     {VK_SPACE, Key::Space},
                                                     {VK_LEFT, Key::Left},
                                                     {VK_RIGHT, Key::Right}};
  for (const auto& [virtualKey, meaning] : kKeys) {
    if (virtualKey != key) continue;
    form_.Act([&, which = meaning] { rows_.UserPressed(which); });
    return several;
  }
  return false;
}

int RowsWindow::Find(const NMLVFINDITEMW& wanted) const {
  if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) return -1;
  const int row = rows_.FindTyped(reinterpret_cast<const char16_t*>(wanted.lvfi.psz),
                                  wanted.iStart + Headers());
  return row < 0 ? -1 : row - Headers();
}

bool RowsWindow::OnNotify(const NMHDR& notice, LRESULT& result) {
  switch (notice.code) {
    case LVN_GETDISPINFOW: {
      // The structure is the system's to fill.
      auto& item = const_cast<NMLVDISPINFOW&>(reinterpret_cast<const NMLVDISPINFOW&>(notice)).item;
      if ((item.mask & LVIF_TEXT) != 0 && item.iItem >= 0 && item.iItem < rows_.RowCount()) {
        shown_ = CellText(item.iItem, item.iSubItem);
        item.pszText = Editable(shown_);
      }
      return true;
    }
    case LVN_ODFINDITEMW:
      result = Find(reinterpret_cast<const NMLVFINDITEMW&>(notice));
      return true;
    case LVN_ODSTATECHANGED:
    case LVN_ITEMCHANGED: {
      if (form_.IsRefreshing()) return true;
      if (rows_.MultiSelect()) {
        if (!std::exchange(selectionPosted_, true)) form_.PostLater(*this);
        return true;
      }
      const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
      const bool chosen = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
      if (chosen && change.iItem >= 0) rows_.UserSelectedRow(change.iItem + Headers());
      return true;
    }
    case NM_CLICK: {
      // The selected row again, of which the system tells no change.
      const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(notice);
      if (click.iItem >= 0 && !rows_.MultiSelect()) rows_.UserSelectedRow(click.iItem + Headers());
      return true;
    }
    case NM_DBLCLK: {
      const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(notice);
      if (click.iItem >= 0) rows_.UserDoubleClickedRow(click.iItem + Headers());
      return true;
    }
    default:
      return false;
  }
}

GridWindow::GridWindow(FormWindow& form, MSFlexGrid& model, HWND window)
    : RowsWindow(form, model, window), grid_(model) {}

void GridWindow::ReadColumns() {
  std::vector<int> twips;
  for (int col = 0; col < grid_.Cols(); ++col)
    twips.push_back(grid_.ColWidth(col));
  if (twips == twips_) return;
  twips_ = std::move(twips);
  visible_.clear();
  std::vector<int> widths;
  std::vector<Text> captions;
  for (int col = 0; col < grid_.Cols(); ++col) {
    if (grid_.ColWidth(col) == 0) continue;
    visible_.push_back(col);
    widths.push_back(form_.PixelsOfTwips(grid_.ColWidth(col)));
    captions.push_back(grid_.FixedRows() > 0 ? grid_.TextMatrix(0, col) : Text());
  }
  SetColumns(std::move(widths), captions);
}

void GridWindow::OnLayout() {
  twips_.clear();
  ReadColumns();
}

void GridWindow::Refresh() {
  ControlWindow::Refresh();
  ReadColumns();
  RefreshRows();
}

const Text& GridWindow::CellText(int row, int column) const {
  return grid_.TextMatrix(row + grid_.FixedRows(), visible_.at(static_cast<std::size_t>(column)));
}

ListBoxWindow::ListBoxWindow(FormWindow& form, ListBox& model, HWND window)
    : RowsWindow(form, model, window), list_(model), tip_(window) {
  SetColumns({1}, {Text()});
}

void ListBoxWindow::OnLayout() {
  RowsWindow::OnLayout();
  RECT item{0, 0, 0, form_.Pixels(16)};
  RECT client{};
  GetClientRect(window(), &client);
  if (list_.ListCount() > 0) ListView_GetItemRect(window(), 0, &item, LVIR_BOUNDS);
  const Measuring measuring(window());
  list_.extent.width = static_cast<int>(client.right);
  list_.extent.itemHeight = static_cast<int>(item.bottom - item.top);
  list_.extent.letterWidth = measuring.Width(u"A");
}

void ListBoxWindow::Refresh() {
  ControlWindow::Refresh();
  RefreshRows();
  OnLayout();
  tip_.SetText(list_.ToolTipText());
}

void ListBoxWindow::PointerMoved(int y) {
  list_.extent.topIndex = ListView_GetTopIndex(window());
  form_.Act([&] { list_.UserMovedPointer(y); });
}

const Text& ListBoxWindow::CellText(int row, int) const {
  return list_.List(row);
}

}  // namespace fetchkit::ui
