#include "component/ui/PickWindow.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
namespace {

constexpr UINT_PTR kListSubclass = 1;

HWND ListOf(HWND combo) {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  return GetComboBoxInfo(combo, &parts) ? parts.hwndList : nullptr;
}

// Answers the messages that ask for a text and for its length.
LRESULT CopyText(const Text& text, bool lengthAlone, LPARAM buffer, std::size_t room) {
  if (lengthAlone || room == 0) return static_cast<LRESULT>(lengthAlone ? text.size() : 0);
  auto* to = reinterpret_cast<char16_t*>(buffer);
  const std::size_t length = text.copy(to, room - 1);
  to[length] = 0;
  return static_cast<LRESULT>(length);
}

}  // namespace

PickWindow::PickWindow(FormWindow& form, PickCombo& model, HWND window)
    : ControlWindow(model, window), form_(form), pick_(model), systemsList_(ListOf(window)) {
  Listen();
  SetWindowSubclass(systemsList_, ListSubclass, kListSubclass, reinterpret_cast<DWORD_PTR>(this));
  OnLayout();
}

PickWindow::~PickWindow() {
  RemoveWindowSubclass(systemsList_, ListSubclass, kListSubclass);
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
  if (measured_ != pick_.ListVersion()) {
    MeasureColumns();
    measured_ = pick_.ListVersion();
  }
  if (pick_.IsOpen()) LoadRows();
  if (IsListShown() != pick_.IsOpen()) ShowList(pick_.IsOpen());
  if (pick_.IsOpen() && SendMessageW(window(), CB_GETCURSEL, 0, 0) != pick_.Highlight())
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(pick_.Highlight()), 0);
  InvalidateRect(window(), nullptr, TRUE);
}

// Before the list is shown: its height follows the number of rows.
void PickWindow::LoadRows() {
  if (loaded_ == pick_.ListVersion()) return;
  loaded_ = pick_.ListVersion();
  const auto count = static_cast<WPARAM>(pick_.ListCount());
  if (SendMessageW(systemsList_, LB_SETCOUNT, count, 0) >= 0) return;
  // A system that keeps rows all the same.
  SendMessageW(systemsList_, WM_SETREDRAW, FALSE, 0);
  SendMessageW(systemsList_, LB_RESETCONTENT, 0, 0);
  SendMessageW(systemsList_, LB_INITSTORAGE, count, 0);
  for (WPARAM row = 0; row < count; ++row)
    SendMessageW(systemsList_, LB_ADDSTRING, 0, 0);
  SendMessageW(systemsList_, WM_SETREDRAW, TRUE, 0);
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
      form_.Quietly([this] { LoadRows(); });
      RECT list{};
      const auto height = SendMessageW(window(), CB_GETITEMHEIGHT, 0, 0);
      if (GetClientRect(systemsList_, &list) && height > 0)
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
    // Screen readers ask for texts.
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
      return CopyText(pick_.Text(), message == WM_GETTEXTLENGTH, second, first);
    default:
      break;
  }
  return ControlWindow::OnOwnMessage(message, first, second);
}

LRESULT CALLBACK PickWindow::ListSubclass(HWND list, UINT message, WPARAM first, LPARAM second,
                                          UINT_PTR, DWORD_PTR selfPointer) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(list, ListSubclass, kListSubclass);
  if (message != LB_GETTEXT && message != LB_GETTEXTLEN)
    return DefSubclassProc(list, message, first, second);
  LRESULT result = LB_ERR;
  Step(u"dialog", [&] {
    const PickCombo& pick = reinterpret_cast<PickWindow*>(selfPointer)->pick_;
    const auto row = static_cast<int>(first);
    if (row < 0 || row >= pick.ListCount()) return;
    const Text text = pick.RowText(row);
    result = CopyText(text, message == LB_GETTEXTLEN, second, text.size() + 1);
  });
  return result;
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
