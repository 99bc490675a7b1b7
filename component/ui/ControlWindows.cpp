#include "component/ui/ControlWindows.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "component/ui/WindowTexts.h"

namespace fetchkit::ui {
namespace {

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
  Listen();
}

void TextBoxWindow::Refresh() {
  ControlWindow::Refresh();
  SetTextOf(window(), box_.Text());
  form_.SetAlone(window(), box_.IsAlone());
  tip_.SetText(box_.Mark());
  const bool marked = !box_.Mark().empty();
  if (std::exchange(isMarked_, marked) != marked)
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

LRESULT TextBoxWindow::OnOwnMessage(UINT message, WPARAM first, LPARAM second) {
  const LRESULT result = ControlWindow::OnOwnMessage(message, first, second);
  if (isMarked_ && (message == WM_NCPAINT || message == WM_PAINT)) DrawMark();
  // The notice of the system does not tell where the focus goes. A box that is hidden loses it by
  // the program's doing.
  if (message == WM_KILLFOCUS && !form_.IsRefreshing() && IsWindowVisible(window()))
    form_.Act([&] { box_.UserLeft(form_.ModelOf(reinterpret_cast<HWND>(first))); });
  return result;
}

LRESULT SearchWindow::OnOwnMessage(UINT message, WPARAM first, LPARAM second) {
  using Key = SearchBox::Key;
  static constexpr std::tuple<WPARAM, Key, int> kKeys[] = {
      {VK_RETURN, Key::Enter, IDOK}, {VK_ESCAPE, Key::Escape, IDCANCEL}, {VK_DOWN, Key::Down, 0}};
  for (const auto& [virtualKey, key, dialogs] : kKeys) {
    if (message == WM_GETDLGCODE && second != 0) {
      const auto& asked = *reinterpret_cast<const MSG*>(second);
      if (asked.message == WM_KEYDOWN && asked.wParam == virtualKey) return DLGC_WANTMESSAGE;
    }
    if (first != virtualKey) continue;
    // Of the same numbers; a box of one line answers with a sound.
    if (message == WM_CHAR && dialogs != 0) return 0;
    if (message != WM_KEYDOWN) continue;
    bool taken = false;
    form_.Act([&, which = key] { taken = search_.UserPressed(which); });
    if (!taken && dialogs != 0)
      SendMessageW(GetParent(window()), WM_COMMAND, static_cast<WPARAM>(dialogs), 0);
    return 0;
  }
  return TextBoxWindow::OnOwnMessage(message, first, second);
}

DateWindow::DateWindow(FormWindow& form, DateSpinner& model, HWND window)
    : ControlWindow(model, window), form_(form), date_(model) {
  SendMessageW(window, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"yyyy-MM-dd"));
  Listen();
}

// The space bar is the tick's wherever in the date the caret is.
LRESULT DateWindow::OnOwnMessage(UINT message, WPARAM first, LPARAM second) {
  const bool isSpace = first == VK_SPACE && date_.HasTick();
  if (isSpace && message == WM_CHAR) return 0;
  if (!isSpace || message != WM_KEYDOWN) return ControlWindow::OnOwnMessage(message, first, second);
  form_.Act([&] {
    date_.UserTicked(!date_.IsTicked());
    form_.Quietly([this] { Refresh(); });
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
