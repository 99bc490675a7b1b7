#include "component/ui/ControlWindows.h"

#include <algorithm>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
namespace {

constexpr UINT_PTR kSubclass = 1;

// Only a text that differs: setting one moves the caret and flickers.
void SetTextOf(HWND window, const Text& text) {
  if (TextOf(window) != text) SetWindowTextW(window, Wide(text));
}

}  // namespace

void CaptionWindow::Refresh() {
  ControlWindow::Refresh();
  SetTextOf(window(), model().Caption());
}

void ButtonWindow::Refresh() {
  ControlWindow::Refresh();
  const Text& tip = button_.ToolTipText();
  // A caption in words says it already.
  tip_.SetText(TextOf(window()).find(tip) == Text::npos ? tip : Text());
}

void ButtonWindow::OnCommand(int code) {
  if (code == BN_CLICKED) button_.UserPressed();
}

TextBoxWindow::TextBoxWindow(FormWindow& form, TextBox& model, HWND window)
    : ControlWindow(model, window), form_(form), box_(model), tip_(window) {
  SetWindowSubclass(window, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

TextBoxWindow::~TextBoxWindow() {
  RemoveWindowSubclass(window(), Subclass, kSubclass);
}

void TextBoxWindow::Refresh() {
  ControlWindow::Refresh();
  SetTextOf(window(), box_.Text());
  form_.SetAlone(window(), box_.IsAlone());
  tip_.SetText(box_.Mark());
  if (std::exchange(isMarked_, !box_.Mark().empty()) != isMarked_)
    RedrawWindow(window(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
}

// Over the box's own border.
void TextBoxWindow::DrawMark() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  const bool isHigh = SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
                      (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
  RECT frame{};
  GetWindowRect(window(), &frame);
  OffsetRect(&frame, -frame.left, -frame.top);
  const HBRUSH brush = CreateSolidBrush(isHigh ? GetSysColor(COLOR_HIGHLIGHT) : RGB(192, 0, 0));
  const HDC device = GetWindowDC(window());
  for (int line = 0; line < std::max(2, form_.Pixels(2)); ++line) {
    FrameRect(device, &frame, brush);
    InflateRect(&frame, -1, -1);
  }
  ReleaseDC(window(), device);
  DeleteObject(brush);
}

void TextBoxWindow::OnCommand(int code) {
  if (code == EN_CHANGE) box_.UserTyped(TextOf(window()));
}

LRESULT CALLBACK TextBoxWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                         UINT_PTR, DWORD_PTR selfPointer) {
  auto* self = reinterpret_cast<TextBoxWindow*>(selfPointer);
  const LRESULT result = DefSubclassProc(window, message, first, second);
  if (self->isMarked_ && (message == WM_NCPAINT || message == WM_PAINT)) self->DrawMark();
  // The notice of the system does not tell where the focus goes. A box that is hidden loses it by
  // the program's doing.
  if (message == WM_KILLFOCUS && !self->form_.IsRefreshing() && IsWindowVisible(window)) {
    self->form_.Act(
        [&] { self->box_.UserLeft(self->form_.ModelOf(reinterpret_cast<HWND>(first))); });
  }
  return result;
}

DateWindow::DateWindow(FormWindow& form, DateSpinner& model, HWND window)
    : ControlWindow(model, window), form_(form), date_(model) {
  SendMessageW(window, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"yyyy-MM-dd"));
  SetWindowSubclass(window, Subclass, kSubclass, reinterpret_cast<DWORD_PTR>(this));
}

DateWindow::~DateWindow() {
  RemoveWindowSubclass(window(), Subclass, kSubclass);
}

// The space bar is the tick's wherever in the date the caret is.
LRESULT CALLBACK DateWindow::Subclass(HWND window, UINT message, WPARAM first, LPARAM second,
                                      UINT_PTR, DWORD_PTR selfPointer) {
  auto* self = reinterpret_cast<DateWindow*>(selfPointer);
  const bool isSpace = first == VK_SPACE && self->date_.HasTick();
  if (isSpace && message == WM_CHAR) return 0;
  if (!isSpace || message != WM_KEYDOWN) return DefSubclassProc(window, message, first, second);
  self->form_.Act([&] {
    self->date_.UserTicked(!self->date_.IsTicked());
    self->form_.Quietly([self] { self->Refresh(); });
  });
  return 0;
}

void DateWindow::Refresh() {
  ControlWindow::Refresh();
  SYSTEMTIME wanted{};
  if (!VariantTimeToSystemTime(date_.Value().serial, &wanted)) return;
  SYSTEMTIME shown{};
  const bool isTicked = DateTime_GetSystemtime(window(), &shown) == GDT_VALID;
  if (isTicked && date_.IsTicked() && shown.wYear == wanted.wYear &&
      shown.wMonth == wanted.wMonth && shown.wDay == wanted.wDay)
    return;
  // An unticked one keeps showing the date that it was given before.
  DateTime_SetSystemtime(window(), GDT_VALID, &wanted);
  if (!date_.IsTicked()) DateTime_SetSystemtime(window(), GDT_NONE, &wanted);
}

bool DateWindow::OnNotify(const NMHDR& notice, LRESULT&) {
  if (notice.code != DTN_DATETIMECHANGE || form_.IsRefreshing()) return false;
  const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(notice);
  if (change.dwFlags != GDT_VALID) {
    date_.UserTicked(false);
  } else if (const auto date = DateFromYmd(change.st.wYear, change.st.wMonth, change.st.wDay)) {
    date_.UserChanged(*date);
  }
  return true;
}

}  // namespace fetchkit::ui
