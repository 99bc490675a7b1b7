#include "component/ui/PickWindow.h"

#include <algorithm>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
namespace {

constexpr UINT_PTR kSubclass = 1;

}  // namespace

PickWindow::PickWindow(FormWindow& form, PickCombo& model, HWND window)
    : ControlWindow(model, window), form_(form), pick_(model) {
  SetWindowSubclass(window, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
  OnLayout();
}

PickWindow::~PickWindow() {
  RemoveWindowSubclass(window(), Subclass, kSubclass);
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
  if (SendMessageW(window(), CB_GETCURSEL, 0, 0) != pick_.ListIndex())
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(pick_.ListIndex()), 0);
  InvalidateRect(window(), nullptr, TRUE);
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
    case CBN_DROPDOWN:
      isOpen_ = true;
      break;
    case CBN_CLOSEUP:
      isOpen_ = false;
      break;
    case CBN_SELENDOK:
      PickLater();
      break;
    case CBN_SELCHANGE:
      // In the open list only the highlight has moved.
      if (!isOpen_) PickLater();
      break;
    case CBN_SELENDCANCEL:
      SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(pick_.ListIndex()), 0);
      break;
    default:
      break;
  }
}

// The system tells of one choice in several ways, and in the midst of closing its list, which is no
// time to open another dialog.
void PickWindow::PickLater() {
  if (std::exchange(pickPosted_, true)) return;
  form_.PostLater(*this);
}

void PickWindow::OnLater() {
  pickPosted_ = false;
  const auto row = static_cast<int>(SendMessageW(window(), CB_GETCURSEL, 0, 0));
  if (row >= 0) pick_.UserPicked(row);
  // A choice that the form has not taken over leaves the list where the model is.
  SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(pick_.ListIndex()), 0);
  InvalidateRect(window(), nullptr, TRUE);
}

LRESULT CALLBACK PickWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                      UINT_PTR, DWORD_PTR selfPointer) {
  if (message == WM_CHAR && first >= L' ') {
    reinterpret_cast<PickWindow*>(selfPointer)->Typed(static_cast<wchar_t>(first));
    return 0;
  }
  return DefSubclassProc(window, message, first, second);
}

// Letters that follow each other within a second look for one beginning; the list is opened to
// show where that leads.
void PickWindow::Typed(wchar_t letter) {
  constexpr DWORD kPause = 1000;  // milliseconds
  const DWORD now = GetTickCount();
  if (now - typedAt_ > kPause) typed_.clear();
  typedAt_ = now;
  typed_ += static_cast<char16_t>(letter);
  if (!isOpen_) SendMessageW(window(), CB_SHOWDROPDOWN, TRUE, 0);
  if (const int row = pick_.UserTyped(typed_); row >= 0)
    SendMessageW(window(), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

}  // namespace fetchkit::ui
