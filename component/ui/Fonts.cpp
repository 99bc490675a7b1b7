#include "component/ui/Fonts.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <iterator>

namespace fetchkit::ui {
namespace {

// Functions that only newer systems have. They are looked for at each call, a few times a dialog: a
// static object that keeps one would have to be guarded, and a guard costs memory at every load
// that the compiler's run-time never gives back.
template <class Function>
Function Newer(const char* name) {
  const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), name);
  Function function = nullptr;
  static_assert(sizeof function == sizeof found);
  std::memcpy(&function, &found, sizeof function);
  return function;
}

bool HasChinese(const LOGFONTW& description) {
  constexpr wchar_t kSample[] = L"筛选条件";
  constexpr int kCount = static_cast<int>(std::size(kSample)) - 1;
  const HDC device = GetDC(nullptr);
  const Font font(CreateFontIndirectW(&description));
  const HGDIOBJ before = SelectObject(device, font.get());
  WORD glyphs[kCount] = {};
  const DWORD found =
      GetGlyphIndicesW(device, kSample, kCount, glyphs, GGI_MARK_NONEXISTING_GLYPHS);
  wchar_t face[LF_FACESIZE] = {};
  GetTextFaceW(device, LF_FACESIZE, face);
  SelectObject(device, before);
  ReleaseDC(nullptr, device);
  return found != GDI_ERROR &&
         std::none_of(glyphs, glyphs + kCount, [](WORD glyph) { return glyph == 0xFFFF; });
}

}  // namespace

UINT SystemDpi() {
  const HDC device = GetDC(nullptr);
  const int dpi = GetDeviceCaps(device, LOGPIXELSY);
  ReleaseDC(nullptr, device);
  return static_cast<UINT>(dpi);
}

UINT DpiOf(HWND window) {
  const auto ofWindow = Newer<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  const UINT dpi = ofWindow && window ? ofWindow(window) : 0;
  return dpi != 0 ? dpi : SystemDpi();
}

void ScaleByOneself(HWND dialog) {
  const auto setBehavior = Newer<BOOL(WINAPI*)(HWND, int, int)>("SetDialogDpiChangeBehavior");
  constexpr int kDisableAll = 1;
  if (setBehavior) setBehavior(dialog, kDisableAll, kDisableAll);
}

LOGFONTW MessageFont(UINT dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  LOGFONTW font{};
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
    font = metrics.lfMessageFont;
  } else {
    font.lfHeight = -MulDiv(9, static_cast<int>(SystemDpi()), 72);
    font.lfCharSet = DEFAULT_CHARSET;
    std::wcscpy(font.lfFaceName, L"MS Shell Dlg");
  }
  font.lfHeight = MulDiv(font.lfHeight, static_cast<int>(dpi), static_cast<int>(SystemDpi()));
  if (HasChinese(font)) return font;
  LOGFONTW fallback = font;
  fallback.lfCharSet = DEFAULT_CHARSET;
  for (const wchar_t* face : {L"Microsoft YaHei UI", L"Microsoft YaHei", L"SimSun",
                              L"Microsoft JhengHei UI", L"WenQuanYi Micro Hei", L"MS Shell Dlg"}) {
    std::wcscpy(fallback.lfFaceName, face);
    if (HasChinese(fallback)) return fallback;
  }
  return font;
}

}  // namespace fetchkit::ui
