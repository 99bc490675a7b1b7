#include "component/ui/ListWindows.h"

#include <algorithm>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
namespace {

constexpr UINT_PTR kSubclass = 1;

}  // namespace

RowsWindow::RowsWindow(FormWindow& form, Control& model, HWND window)
    : ControlWindow(model, window), form_(form) {
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
}

void RowsWindow::RefreshRows(int selected) {
  const int count = RowCount();
  if (ListView_GetItemCount(window()) != count)
    SendMessageW(window(), LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
  // The scroll bar may have come or gone.
  RECT client{};
  GetClientRect(window(), &client);
  if (client.right != clientWidth_) RowsWindow::OnLayout();
  const int shown = ListView_GetNextItem(window(), -1, LVNI_SELECTED);
  if (shown != selected) {
    ListView_SetItemState(window(), -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    if (selected >= 0) {
      ListView_SetItemState(window(), selected, LVIS_SELECTED | LVIS_FOCUSED,
                            LVIS_SELECTED | LVIS_FOCUSED);
      ListView_EnsureVisible(window(), selected, FALSE);
    }
  }
  InvalidateRect(window(), nullptr, TRUE);
}

int RowsWindow::Find(const NMLVFINDITEMW& wanted) const {
  if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0) return -1;
  const Text typed(reinterpret_cast<const char16_t*>(wanted.lvfi.psz));
  const int count = RowCount();
  for (int step = 0; step < count; ++step) {
    const int row = (std::max(wanted.iStart, 0) + step) % count;
    const TextView text = CellText(row, 0);
    if (text.size() >= typed.size() && EqualFolded(text.substr(0, typed.size()), typed)) return row;
  }
  return -1;
}

bool RowsWindow::OnNotify(const NMHDR& notice, LRESULT& result) {
  switch (notice.code) {
    case LVN_GETDISPINFOW: {
      // The structure is the system's to fill.
      auto& item = const_cast<NMLVDISPINFOW&>(reinterpret_cast<const NMLVDISPINFOW&>(notice)).item;
      if ((item.mask & LVIF_TEXT) != 0 && item.iItem >= 0 && item.iItem < RowCount()) {
        shown_ = CellText(item.iItem, item.iSubItem);
        item.pszText = Editable(shown_);
      }
      return true;
    }
    case LVN_ODFINDITEMW:
      result = Find(reinterpret_cast<const NMLVFINDITEMW&>(notice));
      return true;
    case LVN_ITEMCHANGED: {
      const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
      const bool chosen = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
      if (!form_.IsRefreshing() && chosen && change.iItem >= 0) Selected(change.iItem);
      return true;
    }
    case NM_CLICK: {
      // The selected row again, of which the system tells no change.
      const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(notice);
      if (click.iItem >= 0) Selected(click.iItem);
      return true;
    }
    case NM_DBLCLK: {
      const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(notice);
      if (click.iItem >= 0) DoubleClicked(click.iItem);
      return true;
    }
    case LVN_KEYDOWN:
      Pressed(reinterpret_cast<const NMLVKEYDOWN&>(notice).wVKey);
      return true;
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
  RefreshRows(grid_.Row() < grid_.FixedRows() ? -1 : grid_.Row() - grid_.FixedRows());
}

int GridWindow::RowCount() const {
  return grid_.Rows() - grid_.FixedRows();
}

const Text& GridWindow::CellText(int row, int column) const {
  return grid_.TextMatrix(row + grid_.FixedRows(), visible_.at(static_cast<std::size_t>(column)));
}

void GridWindow::Selected(int row) {
  grid_.UserSelectedRow(row + grid_.FixedRows());
}

void GridWindow::DoubleClicked(int row) {
  grid_.UserDoubleClickedRow(row + grid_.FixedRows());
}

void GridWindow::Pressed(WORD key) {
  if (key == VK_DELETE) grid_.UserPressedDelete();
  if (key == VK_F2) grid_.UserPressedF2();
}

ListBoxWindow::ListBoxWindow(FormWindow& form, ListBox& model, HWND window)
    : RowsWindow(form, model, window), list_(model), tip_(window) {
  SetWindowSubclass(window, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  SetColumns({1}, {Text()});
}

ListBoxWindow::~ListBoxWindow() {
  RemoveWindowSubclass(window(), Subclass, kSubclass);
}

void ListBoxWindow::OnLayout() {
  RowsWindow::OnLayout();
  RECT item{0, 0, 0, form_.Pixels(16)};
  RECT client{};
  GetClientRect(window(), &client);
  if (RowCount() > 0) ListView_GetItemRect(window(), 0, &item, LVIR_BOUNDS);
  const Measuring measuring(window());
  list_.extent.width = static_cast<int>(client.right);
  list_.extent.itemHeight = static_cast<int>(item.bottom - item.top);
  list_.extent.letterWidth = measuring.Width(u"A");
}

void ListBoxWindow::Refresh() {
  ControlWindow::Refresh();
  RefreshRows(list_.ListIndex());
  OnLayout();
  tip_.SetText(list_.ToolTipText());
}

LRESULT CALLBACK ListBoxWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                         UINT_PTR, DWORD_PTR selfPointer) {
  auto* self = reinterpret_cast<ListBoxWindow*>(selfPointer);
  if (message == WM_MOUSEMOVE) self->PointerMoved(GET_Y_LPARAM(second));
  return DefSubclassProc(window, message, first, second);
}

void ListBoxWindow::PointerMoved(int y) {
  list_.extent.topIndex = ListView_GetTopIndex(window());
  form_.Act([&] { list_.UserMovedPointer(y); });
}

int ListBoxWindow::RowCount() const {
  return list_.ListCount();
}

const Text& ListBoxWindow::CellText(int row, int) const {
  return list_.List(row);
}

void ListBoxWindow::Selected(int row) {
  list_.UserSelected(row);
}

void ListBoxWindow::DoubleClicked(int row) {
  list_.UserDoubleClicked(row);
}

}  // namespace fetchkit::ui
