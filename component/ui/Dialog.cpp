#include "component/ui/Dialog.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "fetchkit/base/Guard.h"

namespace fetchkit::ui {
namespace {

// Dialog templates are sequences of 16-bit words.
using Words = std::vector<WORD>;

// Behind a menu, class or title: nothing, an ordinal, or a text with its NUL.
const WORD* SkipName(const WORD* at) {
  if (*at == 0xFFFF) return at + 2;
  while (*at != 0)
    ++at;
  return at + 1;
}

// The template with another font. It must be an extended one that names a font.
Words WithFont(const void* resource, std::size_t bytes, const LOGFONTW& font) {
  const auto* begin = static_cast<const WORD*>(resource);
  const auto* end = begin + bytes / sizeof(WORD);
  const WORD* at = begin + 13;            // the fixed part
  at = SkipName(SkipName(SkipName(at)));  // menu, class, title
  Words words(begin, at);
  const auto points = MulDiv(std::abs(font.lfHeight), 72, static_cast<int>(SystemDpi()));
  words.push_back(static_cast<WORD>(points));
  words.push_back(static_cast<WORD>(font.lfWeight));
  words.push_back(static_cast<WORD>(font.lfItalic | font.lfCharSet << 8));
  for (const wchar_t* letter = font.lfFaceName; *letter != 0; ++letter)
    words.push_back(static_cast<WORD>(*letter));
  words.push_back(0);
  at = SkipName(at + 3);
  // The controls begin at a multiple of four bytes, in both.
  if ((at - begin) % 2 != 0) ++at;
  if (words.size() % 2 != 0) words.push_back(0);
  words.insert(words.end(), at, end);
  return words;
}

// With its list, for a control that has one to open: its size is set together with the list's.
RECT WholeRect(HWND control) {
  RECT rect{};
  wchar_t type[16] = {};
  GetClassNameW(control, type, 16);
  if (lstrcmpiW(type, L"ComboBox") != 0 ||
      SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&rect)) == 0)
    GetWindowRect(control, &rect);
  return rect;
}

RECT Scaled(const RECT& rect, UINT to, UINT from) {
  const auto scale = [&](LONG length) {
    return static_cast<LONG>(MulDiv(length, static_cast<int>(to), static_cast<int>(from)));
  };
  return {scale(rect.left), scale(rect.top), scale(rect.right), scale(rect.bottom)};
}

// Version 6 of the common controls for the windows that are made while it lives, whatever the
// program's own manifest says.
class CommonControls {
 public:
  explicit CommonControls(HINSTANCE module) {
    wchar_t path[32768];
    const DWORD length = GetModuleFileNameW(module, path, 32768);
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    request.hModule = module;
    request.lpSource = length != 0 ? path : nullptr;
    request.lpResourceName = MAKEINTRESOURCEW(2);
    context_ = CreateActCtxW(&request);
    if (context_ == INVALID_HANDLE_VALUE) return;
    NoteCreated();
    active_ = ActivateActCtx(context_, &cookie_) != FALSE;
  }
  ~CommonControls() {
    if (active_) DeactivateActCtx(0, cookie_);
    if (context_ == INVALID_HANDLE_VALUE) return;
    ReleaseActCtx(context_);
    NoteDestroyed();
  }
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

 private:
  HANDLE context_ = INVALID_HANDLE_VALUE;
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

// Makes the list of a combo box that keeps no texts one that keeps no rows either, but their number
// alone: however many there are, they are there at once. There is no style of combo boxes for that.
LRESULT CALLBACK WithoutRows(int code, WPARAM first, LPARAM second) {
  if (code == HCBT_CREATEWND) {
    const auto window = reinterpret_cast<HWND>(first);
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    wchar_t type[16] = {};
    GetClassNameW(window, type, 16);
    if (lstrcmpiW(type, L"ComboLBox") == 0 && (style & LBS_OWNERDRAWFIXED) != 0 &&
        (style & LBS_HASSTRINGS) == 0)
      SetWindowLongPtrW(window, GWL_STYLE, style | LBS_NODATA);
  }
  return CallNextHookEx(nullptr, code, first, second);
}

}  // namespace

// In quarters of pixels at 96 dots per inch, so that no resolution loses a pixel.
SIZE LastSize::At(UINT dpi) const {
  const std::uint32_t packed = packed_.load();
  const auto length = [dpi](std::uint32_t quarters) {
    return static_cast<LONG>(MulDiv(static_cast<int>(quarters), static_cast<int>(dpi), 4 * 96));
  };
  return {length(packed >> 16), length(packed & 0xFFFF)};
}

void LastSize::Set(SIZE size, UINT dpi) {
  const auto quarters = [dpi](LONG length) {
    const int whole = MulDiv(static_cast<int>(length), 4 * 96, static_cast<int>(dpi));
    return static_cast<std::uint32_t>(std::clamp(whole, 0, 0xFFFF));
  };
  packed_ = quarters(size.cx) << 16 | quarters(size.cy);
}

bool Dialog::ShowModal(HWND owner) {
  const HRSRC found = FindResourceW(module_, MAKEINTRESOURCEW(kind_.templateId), RT_DIALOG);
  const HGLOBAL loaded = found ? LoadResource(module_, found) : nullptr;
  if (!loaded) return false;
  const Words words =
      WithFont(LockResource(loaded), SizeofResource(module_, found), MessageFont(SystemDpi()));
  owner_ = owner;
  const CommonControls controls(module_);
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES |
                                                         ICC_DATE_CLASSES | ICC_BAR_CLASSES};
  if (!InitCommonControlsEx(&classes)) return false;
  hook_ = Counted<HHOOK, RemoveHook>(
      SetWindowsHookExW(WH_CBT, WithoutRows, nullptr, GetCurrentThreadId()));
  const INT_PTR result =
      DialogBoxIndirectParamW(module_, reinterpret_cast<const DLGTEMPLATE*>(words.data()), owner,
                              Procedure, reinterpret_cast<LPARAM>(this));
  hook_ = {};
  window_ = nullptr;
  return result != -1;
}

INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, static_cast<LONG_PTR>(second));
    reinterpret_cast<Dialog*>(second)->window_ = window;
    NoteCreated();
  }
  auto* self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
  if (!self) return FALSE;
  if (message == WM_NCDESTROY) {
    self->window_ = nullptr;
    NoteDestroyed();
    return FALSE;
  }
  INT_PTR handled = FALSE;
  ++self->depth_;
  Step(u"dialog", [&] { handled = self->Handle(message, first, second); });
  if (self->depth_ == 1) Step(u"dialog", [&] { self->OnHandled(); });
  --self->depth_;
  return handled;
}

INT_PTR Dialog::Handle(UINT message, WPARAM first, LPARAM second) {
  LRESULT result = 0;
  switch (message) {
    case WM_INITDIALOG:
      Begin();
      return TRUE;  // the focus goes to the first control
    case WM_COMMAND:
      if (LOWORD(first) == IDCANCEL && second == 0)
        OnCancel();
      else
        OnCommand(LOWORD(first), HIWORD(first));
      return TRUE;
    case WM_CLOSE:
      OnCancel();
      return TRUE;
    case WM_NOTIFY:
      if (!OnNotify(*reinterpret_cast<const NMHDR*>(second), result)) return FALSE;
      break;
    case WM_SIZE:
      if (first != SIZE_MINIMIZED) Arrange();
      return TRUE;
    case WM_GETMINMAXINFO: {
      auto& limits = *reinterpret_cast<MINMAXINFO*>(second);
      limits.ptMinTrackSize = {smallestWindow_.cx, smallestWindow_.cy};
      return TRUE;
    }
    case 0x02E0:  // WM_DPICHANGED
      Rescale(LOWORD(first), *reinterpret_cast<const RECT*>(second));
      return TRUE;
    case WM_DESTROY:
      Remember();
      return FALSE;
    case WM_SHOWWINDOW:
      if (first) Step(u"dialog", [&] { OnShown(); });
      return FALSE;
    default:
      if (!OnMessage(message, first, second, result)) return FALSE;
      break;
  }
  SetWindowLongPtrW(window_, DWLP_MSGRESULT, static_cast<LONG_PTR>(result));
  return TRUE;
}

bool Dialog::OnMessage(UINT, WPARAM, LPARAM, LRESULT&) {
  return false;
}

// Whether the system has made the dialog for its own resolution or already for the monitor's
// depends on the program: the font tells.
UINT Dialog::DpiOfTemplate() const {
  const auto font = reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0));
  LOGFONTW made{};
  if (!font || GetObjectW(font, sizeof made, &made) == 0) return SystemDpi();
  const auto distance = [&](UINT dpi) {
    return std::abs(made.lfHeight - MessageFont(dpi).lfHeight);
  };
  const UINT monitor = DpiOf(window_);
  return distance(monitor) < distance(SystemDpi()) ? monitor : SystemDpi();
}

void Dialog::Begin() {
  hook_ = {};
  ScaleByOneself(window_);
  dpi_ = DpiOfTemplate();
  RECT client{};
  RECT whole{};
  GetClientRect(window_, &client);
  GetWindowRect(window_, &whole);
  firstClient_ = {client.right, client.bottom};
  firstWindow_ = {whole.right - whole.left, whole.bottom - whole.top};
  RECT less{0, 0, kind_.narrower, kind_.lower};
  MapDialogRect(window_, &less);
  smallestWindow_ = {firstWindow_.cx - less.right, firstWindow_.cy - less.bottom};
  for (HWND control = GetWindow(window_, GW_CHILD); control;
       control = GetWindow(control, GW_HWNDNEXT)) {
    RECT at = WholeRect(control);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&at), 2);
    const int id = GetDlgCtrlID(control);
    const auto known = std::find_if(kind_.controls.begin(), kind_.controls.end(),
                                    [id](const TemplateControl& each) { return each.id == id; });
    placed_.push_back({control, at, known == kind_.controls.end() ? TemplateControl{} : *known});
  }
  Step(u"dialog", [&] { OnInit(); });
  if (const UINT dpi = DpiOf(window_); dpi != dpi_) {
    const RECT scaled = Scaled(whole, dpi, dpi_);
    Rescale(dpi, scaled);
  }
  PlaceOverOwner();
}

void Dialog::PlaceOverOwner() {
  SIZE size = firstWindow_;
  if (const SIZE last = kind_.lastSize.At(dpi_); last.cx != 0) {
    size.cx += last.cx - firstClient_.cx;
    size.cy += last.cy - firstClient_.cy;
  }
  const HMONITOR monitor = MonitorFromWindow(owner_ ? owner_ : window_, MONITOR_DEFAULTTONEAREST);
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(monitor, &info);
  RECT over = info.rcWork;
  if (owner_ && IsWindowVisible(owner_) && !IsIconic(owner_)) GetWindowRect(owner_, &over);
  const LONG x = over.left + (over.right - over.left - size.cx) / 2;
  const LONG y = over.top + (over.bottom - over.top - size.cy) / 2;
  PlaceInside({x, y, x + size.cx, y + size.cy});
}

// In the work area of the monitor that most of the place is on, smaller where that is.
void Dialog::PlaceInside(RECT place) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &info);
  const RECT& area = info.rcWork;
  const LONG width = std::min(place.right - place.left, area.right - area.left);
  const LONG height = std::min(place.bottom - place.top, area.bottom - area.top);
  const LONG x = std::max(area.left, std::min(place.left, area.right - width));
  const LONG y = std::max(area.top, std::min(place.top, area.bottom - height));
  SetWindowPos(window_, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Dialog::Remember() {
  RECT client{};
  if (IsIconic(window_) || IsZoomed(window_) || !GetClientRect(window_, &client)) return;
  kind_.lastSize.Set({client.right, client.bottom}, dpi_);
}

void Dialog::Arrange() {
  RECT client{};
  GetClientRect(window_, &client);
  const LONG wider = client.right - firstClient_.cx;
  const LONG taller = client.bottom - firstClient_.cy;
  HDWP positions = BeginDeferWindowPos(static_cast<int>(placed_.size()));
  const auto rightEdge = [wider](const Placed& each) {
    return each.at.right + wider * (each.follows.moveX + each.follows.growX) / 100;
  };
  for (const Placed& each : placed_) {
    const TemplateControl& how = each.follows;
    const LONG left = each.at.left + wider * how.moveX / 100;
    LONG right = rightEdge(each);
    for (const Placed& other : placed_)
      if (each.alone && other.follows.id == how.aloneTo) right = rightEdge(other);
    positions = DeferWindowPos(positions, each.control, nullptr, left,
                               each.at.top + taller * how.moveY / 100, right - left,
                               each.at.bottom - each.at.top + taller * how.growY / 100,
                               SWP_NOZORDER | SWP_NOACTIVATE);
  }
  EndDeferWindowPos(positions);
  // Frames paint only their lines, so what they left behind has to go.
  InvalidateRect(window_, nullptr, TRUE);
  OnLayout();
}

void Dialog::SetAlone(HWND control, bool alone) {
  for (Placed& each : placed_) {
    if (each.control != control || each.alone == alone) continue;
    each.alone = alone;
    Arrange();
  }
}

void Dialog::Rescale(UINT dpi, const RECT& suggested) {
  for (Placed& each : placed_)
    each.at = Scaled(each.at, dpi, dpi_);
  const RECT client = Scaled({0, 0, firstClient_.cx, firstClient_.cy}, dpi, dpi_);
  const RECT whole = Scaled({0, 0, firstWindow_.cx, firstWindow_.cy}, dpi, dpi_);
  const RECT smallest = Scaled({0, 0, smallestWindow_.cx, smallestWindow_.cy}, dpi, dpi_);
  firstClient_ = {client.right, client.bottom};
  firstWindow_ = {whole.right, whole.bottom};
  smallestWindow_ = {smallest.right, smallest.bottom};
  dpi_ = dpi;
  const LOGFONTW description = MessageFont(dpi);
  Font font(CreateFontIndirectW(&description));
  for (const Placed& each : placed_)
    SendMessageW(each.control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
  font_ = std::move(font);
  PlaceInside(suggested);
  Arrange();
}

void Dialog::Close() {
  if (window_) EndDialog(window_, 1);
}

int Dialog::Pixels(int at96) const {
  return MulDiv(at96, static_cast<int>(dpi_), 96);
}

int Dialog::PixelsOfTwips(int twips) const {
  return MulDiv(twips, static_cast<int>(dpi_), 1440);
}

}  // namespace fetchkit::ui
