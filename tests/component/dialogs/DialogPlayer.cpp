#include "DialogPlayer.h"

#include <gdiplus.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>

#include "component/ui/Controls.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {
namespace {

constexpr DWORD kPatience = 60000;  // milliseconds
constexpr UINT kNoDoubleClicks = 1;
constexpr UINT kDoubleClicks = 5000;

DialogPlayer* playing = nullptr;

void Soon(DialogPlayer::Act step) {
  playing->Soon(std::move(step));
}

void Button(DWORD event) {
  mouse_event(event, 0, 0, 0, 0);
}

// The button goes down and comes up in steps of their own, as under a finger: what happens between
// is done by then.
void ClickAt(HWND control, POINT at) {
  ClientToScreen(control, &at);
  SetCursorPos(at.x, at.y);
  const HWND under = WindowFromPoint(at);
  EXPECT_TRUE(under == control || IsChild(control, under)) << "something lies over the control";
  Soon([](HWND) { Button(MOUSEEVENTF_LEFTDOWN); });
  Soon([](HWND) { Button(MOUSEEVENTF_LEFTUP); });
}

POINT Middle(const RECT& place) {
  return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

void ClickRowAt(HWND list, int row) {
  ListView_EnsureVisible(list, row, FALSE);
  RECT place{};
  ListView_GetItemRect(list, row, &place, LVIR_LABEL);
  ClickAt(list, {place.left + 3, Middle(place).y});
}

// As from the keyboard of somebody who types Chinese, too.
void SendLetter(char16_t letter) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = letter;
  for (const DWORD up : {0UL, static_cast<DWORD>(KEYEVENTF_KEYUP)}) {
    input.ki.dwFlags = KEYEVENTF_UNICODE | up;
    SendInput(1, &input, sizeof input);
  }
}

void SendKey(int key) {
  keybd_event(static_cast<BYTE>(key), 0, 0, 0);
  keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
}

struct Sign {
  char16_t sign;
  int key;
};
constexpr Sign kModifiers[] = {{u'⎇', VK_MENU}, {u'⇧', VK_SHIFT}, {u'⌃', VK_CONTROL}};
constexpr Sign kKeys[] = {
    {u'⏎', VK_RETURN}, {u'⇥', VK_TAB},   {u'⎋', VK_ESCAPE}, {u'⌦', VK_DELETE}, {u'⌫', VK_BACK},
    {u'↑', VK_UP},     {u'↓', VK_DOWN},  {u'←', VK_LEFT},   {u'→', VK_RIGHT},  {u'⇱', VK_HOME},
    {u'⇲', VK_END},    {u'⇞', VK_PRIOR}, {u'⇟', VK_NEXT},   {u'␣', VK_SPACE},  {u'②', VK_F2},
};

template <std::size_t kCount>
int KeyOf(const Sign (&signs)[kCount], char16_t sign) {
  const auto* found = std::find_if(std::begin(signs), std::end(signs),
                                   [sign](const Sign& each) { return each.sign == sign; });
  return found == std::end(signs) ? 0 : found->key;
}

}  // namespace

// Its messages come when the thread has no others, which is when the dialog is idle and has
// answered all input so far.
DialogPlayer::DialogPlayer()
    : owner_(CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 900,
                             640, nullptr, nullptr, nullptr, nullptr)),
      timer_(SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer)) {
  playing = this;
  SetDoubleClickTime(kNoDoubleClicks);
}

DialogPlayer::~DialogPlayer() {
  KillTimer(nullptr, timer_);
  if (IsWindow(owner_)) DestroyWindow(owner_);
}

void CALLBACK DialogPlayer::OnTimer(HWND, UINT, UINT_PTR, DWORD now) {
  const HWND dialog = GetActiveWindow();
  // A modal dialog shows itself when it has no messages left, this one included.
  if (!dialog || dialog == playing->owner_ || !IsWindowVisible(dialog)) {
    const HWND popup = GetLastActivePopup(playing->owner_);
    if (popup == playing->owner_ || now - playing->played_ <= kPatience) return;
    ADD_FAILURE() << "the dialog is not the active window";
    playing->played_ = now;
    Close(popup);
    return;
  }
  std::deque<Act>& acts = playing->acts_;
  if (!acts.empty()) {
    const Act act = std::move(acts.front());
    acts.pop_front();
    playing->played_ = now;
    act(dialog);
    auto& soon = playing->soon_;
    acts.insert(acts.begin(), soon.begin(), soon.end());
    soon.clear();
  } else if (now - playing->played_ > kPatience) {
    ADD_FAILURE() << "the dialog was not closed by the acts";
    playing->played_ = now;
    Close(dialog);
  }
}

void Click(HWND dialog, int id) {
  RECT place{};
  GetClientRect(GetDlgItem(dialog, id), &place);
  ClickAt(GetDlgItem(dialog, id), Middle(place));
}

// The tick of a date keeps its size and its corner at any scaling with some versions of the system.
void ClickTick(HWND dialog, int id) {
  ClickAt(GetDlgItem(dialog, id), {8, 9});
}

void ClickNode(HWND dialog, TextView text) {
  const HWND tree = GetDlgItem(dialog, ID_TVW_FILTER);
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
  ClickAt(tree, {place.left + 3, Middle(place).y});
}

void ClickRow(HWND dialog, int id, int row) {
  ClickRowAt(GetDlgItem(dialog, id), row);
}

void DoubleClickRow(HWND dialog, int id, int row) {
  SetDoubleClickTime(kDoubleClicks);
  ClickRowAt(GetDlgItem(dialog, id), row);
  ClickRowAt(GetDlgItem(dialog, id), row);
  Soon([](HWND) { SetDoubleClickTime(kNoDoubleClicks); });
}

// The system itself follows the mouse on its buttons, and sees no step meanwhile.
void ClickCloseButton(HWND dialog) {
  RECT place{};
  GetWindowRect(dialog, &place);
  SetCursorPos(place.right - GetSystemMetrics(SM_CXSIZEFRAME) - GetSystemMetrics(SM_CXSIZE) / 2,
               place.top + GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYSIZE) / 2);
  Soon([](HWND) {
    Button(MOUSEEVENTF_LEFTDOWN);
    Button(MOUSEEVENTF_LEFTUP);
  });
}

void TurnWheel(HWND dialog, int id) {
  RECT place{};
  GetWindowRect(GetDlgItem(dialog, id), &place);
  SetCursorPos(Middle(place).x, Middle(place).y);
  Soon([](HWND) { mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(-WHEEL_DELTA), 0); });
}

void Keys(HWND, TextView keys) {
  for (std::size_t at = 0; at < keys.size(); ++at) {
    const int modifier = KeyOf(kModifiers, keys[at]);
    if (modifier != 0) ++at;
    const char16_t sign = keys[at];
    Soon([=](HWND) {
      const int key = KeyOf(kKeys, sign);
      if (modifier == 0 && key == 0) return SendLetter(sign);
      if (modifier != 0) keybd_event(static_cast<BYTE>(modifier), 0, 0, 0);
      SendKey(key != 0 ? key : sign);
      if (modifier != 0) keybd_event(static_cast<BYTE>(modifier), 0, KEYEVENTF_KEYUP, 0);
    });
  }
}

void Focus(HWND dialog, int id) {
  SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, id)), TRUE);
}

void Pick(HWND dialog, int row) {
  Focus(dialog, ID_LXT_OTHER);
  Keys(dialog, u"↓⇱");
  Keys(dialog, Text(static_cast<std::size_t>(row), u'↓'));
  Keys(dialog, u"⏎");
}

void Type(HWND dialog, int id, TextView text) {
  Focus(dialog, id);
  Keys(dialog, text);
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

int FocusId(HWND dialog) {
  HWND control = GetFocus();
  if (control != dialog && GetParent(control) != dialog) control = GetParent(control);
  return GetDlgCtrlID(control);
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

// Controls stand inside the dialog, none over another but over a frame; labels, frames and buttons
// have room for their captions, and access keys of their own.
void ExpectArranged(HWND dialog, const std::string& name) {
  RECT inside{};
  GetClientRect(dialog, &inside);
  std::vector<std::pair<int, RECT>> taken;
  std::set<char16_t> keys;
  const HDC device = GetDC(dialog);
  for (HWND control = GetWindow(dialog, GW_CHILD); control;
       control = GetWindow(control, GW_HWNDNEXT)) {
    if (!IsWindowVisible(control)) continue;
    const int id = GetDlgCtrlID(control);
    wchar_t type[32] = {};
    GetClassNameW(control, type, 32);
    const bool isLabel = lstrcmpiW(type, L"Static") == 0;
    const bool isButton = lstrcmpiW(type, L"Button") == 0;
    const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
    const bool isFrame = isButton && (style & BS_TYPEMASK) == BS_GROUPBOX;
    RECT place{};
    RECT shared{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    UnionRect(&shared, &inside, &place);
    EXPECT_TRUE(EqualRect(&shared, &inside)) << name << ": control " << id << " is cut";
    for (const auto& [other, at] : taken)
      EXPECT_TRUE(isFrame || !IntersectRect(&shared, &place, &at))
          << name << ": control " << id << " over " << other;
    if (!isFrame) taken.emplace_back(id, place);
    if ((!isLabel && !isButton) || (isLabel && (style & SS_ENDELLIPSIS) != 0)) continue;
    const Text caption = TextIn(dialog, id);
    const bool hasKey = !isLabel || (style & SS_NOPREFIX) == 0;
    if (const auto mark = caption.find(u'&'); hasKey && mark != Text::npos) {
      EXPECT_TRUE(keys.insert(caption[mark + 1]).second) << name << ": " << ToUtf8(caption);
    }
    RECT needed{};
    const HGDIOBJ before =
        SelectObject(device, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    DrawTextW(device, reinterpret_cast<const wchar_t*>(caption.c_str()), -1, &needed,
              DT_CALCRECT | DT_SINGLELINE);
    SelectObject(device, before);
    EXPECT_LE(needed.right, place.right - place.left) << name << ": control " << id;
    EXPECT_LE(needed.bottom, place.bottom - place.top) << name << ": control " << id;
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
  ExpectArranged(dialog, name);
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
