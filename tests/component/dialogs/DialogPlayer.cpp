#include "DialogPlayer.h"

#include <gtest/gtest.h>

#include <vector>

#include "component/ui/Controls.h"
#include "fetchkit/base/Utf8.h"

// GDI+, which writes the pictures, as far as it is used.
extern "C" {
struct GdiplusStartupInput {
  UINT32 version;
  void* callback;
  BOOL noThread;
  BOOL noCodecs;
};
int WINAPI GdiplusStartup(ULONG_PTR* token, const GdiplusStartupInput* input, void* output);
int WINAPI GdipCreateBitmapFromHBITMAP(HBITMAP bitmap, HPALETTE palette, void** image);
int WINAPI GdipSaveImageToFile(void* image, const WCHAR* name, const CLSID* encoder, const void*);
int WINAPI GdipDisposeImage(void* image);
}

namespace fetchkit::test {
namespace {

constexpr UINT_PTR kWatchdog = 1;
constexpr UINT kPatience = 60000;  // milliseconds
constexpr wchar_t kClass[] = L"FetchKitDialogPlayer";

LRESULT CALLBACK WatchDialog(HWND window, UINT message, WPARAM first, LPARAM second, UINT_PTR,
                             DWORD_PTR player) {
  const LRESULT result = DefSubclassProc(window, message, first, second);
  if (message == WM_ENTERIDLE && first == MSGF_DIALOGBOX)
    reinterpret_cast<DialogPlayer*>(player)->OnIdle(reinterpret_cast<HWND>(second));
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, WatchDialog, 1);
  return result;
}

}  // namespace

DialogPlayer::DialogPlayer() {
  WNDCLASSW type{};
  type.lpfnWndProc = Procedure;
  type.hInstance = GetModuleHandleW(nullptr);
  type.lpszClassName = kClass;
  RegisterClassW(&type);
  owner_ = CreateWindowExW(0, kClass, L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 900, 640,
                           nullptr, nullptr, type.hInstance, this);
  SetWindowLongPtrW(owner_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetTimer(owner_, kWatchdog, kPatience, nullptr);
}

DialogPlayer::~DialogPlayer() {
  if (IsWindow(owner_)) DestroyWindow(owner_);
}

LRESULT CALLBACK DialogPlayer::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  auto* self = reinterpret_cast<DialogPlayer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self && message == WM_ENTERIDLE && first == MSGF_DIALOGBOX)
    self->OnIdle(reinterpret_cast<HWND>(second));
  if (self && message == WM_TIMER && first == kWatchdog) {
    const HWND open = GetLastActivePopup(window);
    if (open != window) {
      ADD_FAILURE() << "the dialog was not closed by the acts; " << self->acts_.size()
                    << " of them are left";
      self->acts_.clear();
      PostMessageW(open, WM_CLOSE, 0, 0);
    }
  }
  return DefWindowProcW(window, message, first, second);
}

void DialogPlayer::OnIdle(HWND dialog) {
  SetWindowSubclass(dialog, WatchDialog, 1, reinterpret_cast<DWORD_PTR>(this));
  if (acts_.empty()) return;
  const Act act = std::move(acts_.front());
  acts_.pop_front();
  SetTimer(owner_, kWatchdog, kPatience, nullptr);  // begins anew
  act(dialog);
  // The dialog tells that it is idle once only, until it gets a message.
  PostMessageW(dialog, WM_NULL, 0, 0);
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
    SendMessageW(box, WM_CHAR, letter, 0);
}

void Press(HWND dialog, int id) {
  const HWND button = GetDlgItem(dialog, id);
  SetFocus(button);
  PostMessageW(button, BM_CLICK, 0, 0);
}

void SelectRow(HWND dialog, int id, int row) {
  const HWND list = GetDlgItem(dialog, id);
  SetFocus(list);
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

void Key(HWND, WORD key) {
  PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
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
  static const ULONG_PTR started = [] {
    ULONG_PTR token = 0;
    const GdiplusStartupInput input{1, nullptr, FALSE, FALSE};
    GdiplusStartup(&token, &input, nullptr);
    return token;
  }();
  EXPECT_NE(started, 0U);
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
  void* image = nullptr;
  EXPECT_EQ(GdipCreateBitmapFromHBITMAP(bitmap, nullptr, &image), 0);
  constexpr CLSID kPng = {
      0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
  EXPECT_EQ(GdipSaveImageToFile(image, PictureFile(dialog, name).c_str(), &kPng, nullptr), 0)
      << name;
  GdipDisposeImage(image);
  DeleteObject(bitmap);
}

}  // namespace fetchkit::test
