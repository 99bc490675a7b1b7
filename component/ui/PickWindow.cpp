#include "component/ui/PickWindow.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {

PickWindow::PickWindow(FormWindow& form, PickCombo& model, HWND window)
    : ControlWindow(model, window), form_(form), pick_(model) {
  Listen();
  OnLayout();
}

void PickWindow::OnLayout() {
  const int height = Measuring(window()).Height();
  SendMessageW(window(), CB_SETITEMHEIGHT, 0, height + form_.Pixels(2));
  SendMessageW(window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height + form_.Pixels(3));
  MeasureColumns();
}

// The widths follow the first rows: enough to set the columns apart, whatever the list's length.
void PickWindow::MeasureColumns() {
  constexpr int kMeasured = 200;
  const Measuring measuring(window());
  const int gap = form_.Pixels(10);
  columnWidths_.assign(pick_.ShownColumns().size(), 0);
  int widest = 0;
  for (int row = 0; row < std::min(pick_.ListCount(), kMeasured); ++row) {
    int whole = 0;
    for (std::size_t index = 0; index < columnWidths_.size(); ++index) {
      const int width = measuring.Width(pick_.Cell(row, pick_.ShownColumns()[index])) + gap;
      whole += width;
      // A first column that stands alone in its row, as the list's own entries do, sets no width.
      const bool alone = index + 1 < columnWidths_.size() &&
                         pick_.Cell(row, pick_.ShownColumns()[index + 1]).empty();
      if (!alone) columnWidths_[index] = std::max(columnWidths_[index], width);
    }
    widest = std::max(widest, whole);
  }
  int columns = 0;
  for (const int width : columnWidths_)
    columns += width;
  const int bar = GetSystemMetrics(SM_CXVSCROLL) + form_.Pixels(8);
  SendMessageW(window(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::max(columns, widest) + bar),
               0);
}

void PickWindow::Refresh() {
  ControlWindow::Refresh();
  if (loaded_ != pick_.ListVersion()) {
    const int count = pick_.ListCount();
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(window(), CB_RESETCONTENT, 0, 0);
    SendMessageW(window(), CB_INITSTORAGE, static_cast<WPARAM>(count), count * 32);
    // The texts are for screen readers: the rows are drawn from the model.
    for (int row = 0; row < count; ++row) {
      const Text text = pick_.RowText(row);
      SendMessageW(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
    }
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
    loaded_ = pick_.ListVersion();
    MeasureColumns();
  }
  if (IsListShown() != pick_.IsOpen()) ShowList(pick_.IsOpen());
  const int row = pick_.IsOpen() ? pick_.Highlight() : pick_.ListIndex();
  if (SendMessageW(window(), CB_GETCURSEL, 0, 0) != row)
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
  InvalidateRect(window(), nullptr, TRUE);
}

bool PickWindow::IsListShown() const {
  return SendMessageW(window(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void PickWindow::ShowList(bool open) {
  SendMessageW(window(), CB_SHOWDROPDOWN, open ? TRUE : FALSE, 0);
}

void PickWindow::OnDraw(const DRAWITEMSTRUCT& drawing) {
  const bool selected = (drawing.itemState & ODS_SELECTED) != 0;
  const bool disabled = (drawing.itemState & ODS_DISABLED) != 0;
  const HDC device = drawing.hDC;
  FillRect(device, &drawing.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  SetBkMode(device, TRANSPARENT);
  SetTextColor(device, GetSysColor(disabled   ? COLOR_GRAYTEXT
                                   : selected ? COLOR_HIGHLIGHTTEXT
                                              : COLOR_WINDOWTEXT));
  constexpr UINT kHow = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
  RECT place = drawing.rcItem;
  place.left += form_.Pixels(3);
  const int row = static_cast<int>(drawing.itemID);
  if ((drawing.itemState & ODS_COMBOBOXEDIT) != 0 || row < 0) {
    DrawTextW(device, Wide(pick_.Text()), static_cast<int>(pick_.Text().size()), &place, kHow);
  } else if (row < pick_.ListCount()) {
    for (std::size_t index = 0; index < pick_.ShownColumns().size(); ++index) {
      const Text& cell = pick_.Cell(row, pick_.ShownColumns()[index]);
      DrawTextW(device, Wide(cell), static_cast<int>(cell.size()), &place, kHow);
      place.left += index < columnWidths_.size() ? columnWidths_[index] : 0;
    }
  }
  if ((drawing.itemState & ODS_FOCUS) != 0) DrawFocusRect(device, &drawing.rcItem);
}

void PickWindow::OnCommand(int code) {
  switch (code) {
    case CBN_DROPDOWN: {
      pick_.UserOpened();
      COMBOBOXINFO parts{};
      parts.cbSize = sizeof parts;
      RECT list{};
      const auto height = SendMessageW(window(), CB_GETITEMHEIGHT, 0, 0);
      if (GetComboBoxInfo(window(), &parts) && GetClientRect(parts.hwndList, &list) && height > 0)
        pick_.pageRows = std::max(1, static_cast<int>(list.bottom / height) - 1);
      break;
    }
    case CBN_CLOSEUP:
      pick_.UserClosed();
      break;
    case CBN_SELENDOK:
      // In the midst of closing its list, which is no time to open another dialog.
      picked_ = static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0));
      form_.PostLater(*this);
      break;
    default:
      break;
  }
}

void PickWindow::OnLater() {
  if (const int row = std::exchange(picked_, -1); row >= 0) pick_.UserPicked(row);
}

LRESULT PickWindow::OnOwnMessage(UINT message, WPARAM first, LPARAM second) {
  const bool open = pick_.IsOpen();
  switch (message) {
    case WM_GETDLGCODE:
      // Of a key that the open list is to have, the dialog must keep its hands.
      if (open && second != 0) {
        const auto& key = *reinterpret_cast<const MSG*>(second);
        if (key.message == WM_KEYDOWN &&
            (key.wParam == VK_TAB || key.wParam == VK_RETURN || key.wParam == VK_ESCAPE))
          return DLGC_WANTMESSAGE;
      }
      break;
    case WM_KEYDOWN:
      if (Pressed(first)) return 0;
      break;
    case WM_CHAR:
      // The characters of keys that went to the list are no letters.
      if (first >= L' ') Typed(static_cast<wchar_t>(first));
      return 0;
    case WM_MOUSEWHEEL:
      if (!open) return 0;
      break;
    default:
      break;
  }
  return ControlWindow::OnOwnMessage(message, first, second);
}

bool PickWindow::Pressed(WPARAM key) {
  using Key = PickCombo::Key;
  static constexpr std::pair<WPARAM, Key> kKeys[] = {
      {VK_UP, Key::Up},        {VK_DOWN, Key::Down},     {VK_LEFT, Key::Left},
      {VK_RIGHT, Key::Right},  {VK_HOME, Key::Home},     {VK_END, Key::End},
      {VK_PRIOR, Key::PageUp}, {VK_NEXT, Key::PageDown}, {VK_RETURN, Key::Enter},
      {VK_TAB, Key::Tab},      {VK_ESCAPE, Key::Escape},
  };
  const auto* known = std::find_if(std::begin(kKeys), std::end(kKeys),
                                   [key](const auto& each) { return each.first == key; });
  if (known == std::end(kKeys)) return false;
  const bool back = key == VK_TAB && GetKeyState(VK_SHIFT) < 0;
  // The pointer may have moved the highlight; the list must be gone before another dialog opens.
  const bool open = pick_.IsOpen();
  const auto row = static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0));
  if (open) pick_.UserPointedAt(row);
  if (open && (key == VK_RETURN || key == VK_TAB || key == VK_ESCAPE))
    form_.Quietly([this] { ShowList(false); });
  bool taken = false;
  form_.Act([&] { taken = pick_.UserPressed(back ? Key::BackTab : known->second); });
  return taken;
}

// Letters that follow each other within a second look for one beginning.
void PickWindow::Typed(wchar_t letter) {
  constexpr DWORD kPause = 1000;  // milliseconds
  const DWORD now = GetTickCount();
  if (now - typedAt_ > kPause) typed_.clear();
  typedAt_ = now;
  typed_ += static_cast<char16_t>(letter);
  form_.Act([&] { pick_.UserTyped(typed_); });
}

}  // namespace fetchkit::ui
