#include "DialogPlayer.h"

#include <gdiplus.h>
#include <gtest/gtest.h>

#include "component/ui/Controls.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {
namespace {

constexpr DWORD kPatience = 60000;  // milliseconds

DialogPlayer* playing = nullptr;

}  // namespace

// Its messages come when the thread has no others, which is when the dialog is idle.
DialogPlayer::DialogPlayer()
    : owner_(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 900,
                             640, nullptr, nullptr, nullptr, nullptr)),
      timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer)) {
  playing = this;
}

DialogPlayer::~DialogPlayer() {
  KillTimer(nullptr, timer_);
  if (IsWindow(owner_)) DestroyWindow(owner_);
}

void CALLBACK DialogPlayer::OnTimer(HWND, UINT, UINT_PTR, DWORD now) {
  const HWND dialog = GetActiveWindow();
  // A modal dialog shows itself when it has no messages left, this one included.
  if (!dialog || dialog == playing->owner_ || !IsWindowVisible(dialog)) return;
  std::deque<Act>& acts = playing->acts_;
  if (!acts.empty()) {
    const Act act = std::move(acts.front());
    acts.pop_front();
    playing->played_ = now;
    act(dialog);
  } else if (now - playing->played_ > kPatience) {
    ADD_FAILURE() << "the dialog was not closed by the acts";
    playing->played_ = now;
    Close(dialog);
  }
}

void ClickNode(HWND dialog, TextView text) {
  const HWND tree = GetDlgItem(dialog, ID_TVW_FILTER);
  SetFocus(tree);
  wchar_t shown[256] = {};
  TVITEMW item{};
  item.mask = TVIF_TEXT;
  item.pszText = shown;
  item.cchTextMax = 256;
  for (item.hItem = TreeView_GetRoot(tree); item.hItem;
       item.hItem = TreeView_GetNextSibling(tree, item.hItem)) {
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    if (text == reinterpret_cast<const char16_t*>(shown)) break;
  }
  ASSERT_TRUE(item.hItem) << "no such column: " << ToUtf8(text);
  TreeView_EnsureVisible(tree, item.hItem);
  RECT place{};
  TreeView_GetItemRect(tree, item.hItem, &place, TRUE);
  const LPARAM at = MAKELPARAM(place.left + 3, (place.top + place.bottom) / 2);
  // The button goes up before the tree's own loop looks at it, or that would wait for the mouse.
  PostMessageW(tree, WM_LBUTTONUP, 0, at);
  SendMessageW(tree, WM_LBUTTONDOWN, MK_LBUTTON, at);
}

void Pick(HWND dialog, int row) {
  const HWND picker = GetDlgItem(dialog, ID_LXT_OTHER);
  SetFocus(picker);
  SendMessageW(picker, CB_SHOWDROPDOWN, TRUE, 0);
  SendMessageW(picker, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
  SendMessageW(picker, WM_KEYDOWN, VK_RETURN, 0);
}

void Type(HWND dialog, int id, TextView text) {
  const HWND box = GetDlgItem(dialog, id);
  SetFocus(box);
  SendMessageW(box, EM_SETSEL, 0, -1);
  for (const char16_t letter : text)
    SendMessageW(box, WM_CHAR, letter, 1);
}

void Press(HWND dialog, int id) {
  const HWND button = GetDlgItem(dialog, id);
  SetFocus(button);
  PostMessageW(button, BM_CLICK, 0, 0);
}

void SelectRow(HWND dialog, int id, int row) {
  const HWND list = GetDlgItem(dialog, id);
  SetFocus(list);
  ListView_SetItemState(list, -1, 0, LVIS_SELECTED);
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void DoubleClickRow(HWND dialog, int id, int row) {
  const HWND list = GetDlgItem(dialog, id);
  RECT place{};
  ListView_GetItemRect(list, row, &place, LVIR_LABEL);
  const LPARAM at = MAKELPARAM(place.left + 3, (place.top + place.bottom) / 2);
  // As with the tree: the button is up before the list looks at it.
  for (const UINT down : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK}) {
    PostMessageW(list, WM_LBUTTONUP, 0, at);
    SendMessageW(list, down, MK_LBUTTON, at);
  }
}

void Key(HWND, int key) {
  PostMessageW(GetFocus(), WM_KEYDOWN, static_cast<WPARAM>(key), 0);
}

void Tab(HWND dialog) {
  SendMessageW(dialog, WM_NEXTDLGCTL, 0, FALSE);
}

void Resize(HWND dialog, int wider, int taller) {
  RECT place{};
  GetWindowRect(dialog, &place);
  SetWindowPos(dialog, nullptr, 0, 0, place.right - place.left + wider,
               place.bottom - place.top + taller, SWP_NOMOVE | SWP_NOZORDER);
}

void Close(HWND dialog) {
  PostMessageW(dialog, WM_CLOSE, 0, 0);
}

int FocusId(HWND) {
  return GetDlgCtrlID(GetFocus());
}

Text TextIn(HWND dialog, int id) {
  wchar_t text[1024] = {};
  const int length = GetWindowTextW(GetDlgItem(dialog, id), text, 1024);
  return {reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length)};
}

Text ListCell(HWND dialog, int id, int row, int column) {
  wchar_t text[1024] = {};
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = text;
  item.cchTextMax = 1024;
  SendMessageW(GetDlgItem(dialog, id), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&item));
  return reinterpret_cast<const char16_t*>(text);
}

int ListCount(HWND dialog, int id) {
  return ListView_GetItemCount(GetDlgItem(dialog, id));
}

namespace {

// Labels, frames and buttons have room for their captions.
void ExpectCaptionsWhole(HWND dialog, const std::string& name) {
  const HDC device = GetDC(dialog);
  for (HWND control = GetWindow(dialog, GW_CHILD); control;
       control = GetWindow(control, GW_HWNDNEXT)) {
    wchar_t type[32] = {};
    wchar_t caption[256] = {};
    GetClassNameW(control, type, 32);
    const int length = GetWindowTextW(control, caption, 256);
    const bool isLabel = lstrcmpiW(type, L"Static") == 0;
    const bool shortens = isLabel && (GetWindowLongPtrW(control, GWL_STYLE) & SS_ENDELLIPSIS) != 0;
    if (!IsWindowVisible(control) || shortens || (!isLabel && lstrcmpiW(type, L"Button") != 0))
      continue;
    RECT needed{};
    RECT place{};
    const HGDIOBJ before =
        SelectObject(device, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    DrawTextW(device, caption, length, &needed, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(device, before);
    GetClientRect(control, &place);
    EXPECT_LE(needed.right, place.right) << name << ": control " << GetDlgCtrlID(control);
    EXPECT_LE(needed.bottom, place.bottom) << name << ": control " << GetDlgCtrlID(control);
  }
  ReleaseDC(dialog, device);
}

std::wstring PictureFile(HWND dialog, const std::string& name) {
  const HDC device = GetDC(dialog);
  const int scaling = MulDiv(GetDeviceCaps(device, LOGPIXELSX), 100, 96);
  ReleaseDC(dialog, device);
  std::wstring file = L"pictures\\" + std::wstring(name.begin(), name.end());
  if (scaling != 100) file += L"-" + std::to_wstring(scaling);
  return file + L".png";
}

}  // namespace

void KeepPicture(HWND dialog, const std::string& name) {
  ExpectCaptionsWhole(dialog, name);
  static const Gdiplus::Status started = [] {
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    return Gdiplus::GdiplusStartup(&token, &input, nullptr);
  }();
  EXPECT_EQ(started, Gdiplus::Ok);
  RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  RECT place{};
  GetWindowRect(dialog, &place);
  const int width = static_cast<int>(place.right - place.left);
  const int height = static_cast<int>(place.bottom - place.top);
  const HDC from = GetWindowDC(dialog);
  const HDC to = CreateCompatibleDC(from);
  const HBITMAP bitmap = CreateCompatibleBitmap(from, width, height);
  const HGDIOBJ before = SelectObject(to, bitmap);
  BitBlt(to, 0, 0, width, height, from, 0, 0, SRCCOPY);
  SelectObject(to, before);
  DeleteDC(to);
  ReleaseDC(dialog, from);
  constexpr CLSID kPng = {
      0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  EXPECT_EQ(
      Gdiplus::Bitmap(bitmap, nullptr).Save(PictureFile(dialog, name).c_str(), &kPng, nullptr),
      Gdiplus::Ok)
      << name;
  DeleteObject(bitmap);
}

}  // namespace fetchkit::test
