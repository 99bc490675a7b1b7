#include "fetchkit/utility/WindowServices.h"

#include <limits>
#include <memory>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/platform/Platform.h"

namespace fetchkit {
namespace {

constexpr TextView kFormClass = u"ThunderRT6FormDC";

constexpr std::int32_t kStyle = -16;
constexpr std::int32_t kExtendedStyle = -20;
constexpr std::int32_t kTopMostBit = 8;
constexpr std::int32_t kToolWindowBit = 0x80;
constexpr auto kPopupBits = static_cast<std::int32_t>(0x80880000u);  // border, system menu

constexpr std::int32_t kTopMost = -1;
constexpr std::int32_t kNotTopMost = -2;
constexpr std::int32_t kShow = 64;
constexpr std::int32_t kShowInPlace = 67;
constexpr std::int32_t kFrameChanged = 39;

constexpr TextView kKey = u"qzlvx{kdyfuhreno:-=58172640ghjk";
constexpr std::size_t kKeyShift = 8;

WindowSystem& Windows() {
  return CurrentPlatform().Windows();
}

std::int32_t Subtract(std::int32_t from, std::int32_t number) {
  const std::int64_t difference = std::int64_t{from} - number;
  if (difference < std::numeric_limits<std::int32_t>::min() ||
      difference > std::numeric_limits<std::int32_t>::max())
    throw Error(ErrorKind::Overflow, u"A window's rectangle is too large.");
  return static_cast<std::int32_t>(difference);
}

std::int32_t WidthOf(const WindowRect& rect) {
  return Subtract(rect.right, rect.left);
}

std::int32_t HeightOf(const WindowRect& rect) {
  return Subtract(rect.bottom, rect.top);
}

WindowRect RectOf(std::int32_t window) {
  WindowRect rect;
  Windows().GetWindowRect(window, rect);
  return rect;
}

bool HasTopMostBit(std::int32_t window) {
  return (Windows().GetWindowLong(window, kExtendedStyle) & kTopMostBit) != 0;
}

void SwitchBits(std::int32_t window, std::int32_t index, std::int32_t bits, bool enabled) {
  WindowSystem& windows = Windows();
  if (windows.IsWindow(window) == 0) return;
  const std::int32_t style = windows.GetWindowLong(window, index);
  // XOR, not AND NOT: switching off a window that lacks the bits gives them to it. Hosts rely on
  // this toggle.
  windows.SetWindowLong(window, index, enabled ? style | bits : style ^ bits);
  windows.SetWindowPos(window, kTopMost, 0, 0, 0, 0, kFrameChanged);
}

struct ThreadServices : ThreadOwned {
  std::shared_ptr<LogComponent> log;
};

LogComponent& LogOfThread() {
  ThreadState& thread = CurrentThread();
  if (thread.services == nullptr) thread.services = std::make_unique<ThreadServices>();
  auto& log = static_cast<ThreadServices&>(*thread.services).log;
  if (log == nullptr) log = CurrentPlatform().CreateLog();
  if (log == nullptr) throw Error(ErrorKind::ObjectMissing, u"There is no log component.");
  return *log;
}

}  // namespace

std::int32_t WindowServices::GetActiveWindowHandle() {
  const MemberScope scope;
  return Windows().GetActiveWindow();
}

std::int32_t WindowServices::GetDesktopWindowHandle() {
  const MemberScope scope;
  return Windows().GetDesktopWindow();
}

std::int32_t WindowServices::GetForegroundWindowHandle() {
  const MemberScope scope;
  return Windows().GetForegroundWindow();
}

std::int32_t WindowServices::FindWindowHandle(TextView strCaption) {
  return Guarded(u"Utility.FindWindowHandle", std::int32_t{0}, [&] {
    // The search starts behind the child that is passed: 0 includes the desktop's first one.
    return Windows().FindWindowEx(0, 0, kFormClass, strCaption);
  });
}

bool WindowServices::IsTopMostWindow(std::int32_t& hWnd) {
  const MemberScope scope;
  WindowSystem& windows = Windows();
  if (hWnd != 0) return windows.IsWindow(hWnd) == 1 && HasTopMostBit(hWnd);
  hWnd = windows.GetForegroundWindow();
  std::int32_t process = 0;
  return windows.GetWindowThreadProcessId(hWnd, process) != 0 &&
         process == windows.GetCurrentProcessId() && HasTopMostBit(hWnd);
}

void WindowServices::SetWindowTopPos(std::int32_t hWnd, bool blnOnTop,
                                     WindowPositionConstants enmPosition, std::int32_t lngLeft,
                                     std::int32_t lngTop, std::int32_t lngWidth,
                                     std::int32_t lngHeight) {
  const MemberScope scope;
  WindowSystem& windows = Windows();
  if (windows.IsWindow(hWnd) == 0) return;
  const WindowRect own = RectOf(hWnd);
  std::int32_t flags = kShow;
  switch (enmPosition) {
    case wpScreenCenter:
    case wpOwnerCenter: {
      // The owner's left and top are not added: the window is centred as if the foreground window
      // stood at the screen's origin. Hosts have come to expect it there.
      const WindowRect within =
          RectOf(enmPosition == wpScreenCenter ? windows.GetDesktopWindow()
                                               : windows.GetForegroundWindow());
      lngWidth = WidthOf(own);
      lngHeight = HeightOf(own);
      lngLeft = Subtract(WidthOf(within), lngWidth) / 2;
      lngTop = Subtract(HeightOf(within), lngHeight) / 2;
      break;
    }
    case wpManual:
      if (lngLeft == 0) lngLeft = own.left;
      if (lngTop == 0) lngTop = own.top;
      if (lngWidth == 0) lngWidth = WidthOf(own);
      if (lngHeight == 0) lngHeight = HeightOf(own);
      break;
    case wpDefault:
    default:
      flags = kShowInPlace;
  }
  windows.SetWindowPos(hWnd, blnOnTop ? kTopMost : kNotTopMost, lngLeft, lngTop, lngWidth,
                       lngHeight, flags);
}

void WindowServices::SetPopupWindow(std::int32_t hWnd, bool blnEnabled) {
  const MemberScope scope;
  SwitchBits(hWnd, kStyle, kPopupBits, blnEnabled);
}

void WindowServices::SetToolWindow(std::int32_t hWnd, bool blnEnabled) {
  const MemberScope scope;
  SwitchBits(hWnd, kExtendedStyle, kToolWindowBit, blnEnabled);
}

bool WindowServices::GetWindowArea(std::int32_t hWnd, std::int32_t& lngLeft, std::int32_t& lngTop,
                                   std::int32_t& lngWidth, std::int32_t& lngHeight) {
  const MemberScope scope;
  WindowSystem& windows = Windows();
  if (windows.IsWindow(hWnd) != 1) return false;
  WindowRect rect;
  const bool known = windows.GetWindowRect(hWnd, rect) != 0;
  const std::int32_t width = WidthOf(rect);
  const std::int32_t height = HeightOf(rect);
  lngLeft = rect.left;
  lngTop = rect.top;
  lngWidth = width;
  lngHeight = height;
  return known;
}

std::int32_t WindowServices::MessageBox(TextView strMessage, std::int32_t enmButtons,
                                        TextView strTitle, std::int32_t hWnd) {
  const MemberScope scope;
  // In this order: the first call replaces a handle of 0, the second tests what it put there.
  const bool topMost = IsTopMostWindow(hWnd);
  const bool stepsAside = Windows().IsWindow(hWnd) == 1 && topMost;
  if (stepsAside) SetWindowTopPos(hWnd, false, wpDefault, 0, 0, 0, 0);
  const std::int32_t answer = Guarded(u"Utility.MessageBox", std::int32_t{0}, [&] {
    return Windows().MessageBox(strMessage, enmButtons, strTitle);
  });
  if (stepsAside) SetWindowTopPos(hWnd, true, wpDefault, 0, 0, 0, 0);
  return answer;
}

Text WindowServices::Security(TextView strText) {
  const MemberScope scope;
  // Each character needs the one kKeyShift behind its own in the key.
  if (strText.size() > kKey.size() - kKeyShift)
    throw Error(ErrorKind::InvalidCall, u"A text of more than 23 characters cannot be scrambled.");
  const Platform& platform = CurrentPlatform();
  Text scrambled;
  scrambled.reserve(strText.size());
  for (std::size_t i = 0; i < strText.size(); ++i) {
    const int code = platform.AnsiCode(kKey[i]) ^ platform.AnsiCode(kKey[i + kKeyShift]) ^
                     platform.AnsiCode(strText[i]);
    const auto character = platform.AnsiCharacter(static_cast<std::uint16_t>(code));
    if (!character)
      throw Error(ErrorKind::InvalidCall, u"The text has no scrambled form in the code page.");
    scrambled.push_back(*character);
  }
  return scrambled;
}

bool WindowServices::WriteLog(TextView strA, TextView strB, std::int32_t lngC) {
  return Guarded(
      u"Utility.WriteLog", false,
      [&] {
        // Copied: the component may call back and meet another error meanwhile.
        const Text& last = CurrentThread().lastError;
        const Text message = last.empty() ? u"无" : last;
        return LogOfThread().Write(message, strA, strB, lngC);
      },
      LastError::Kept);
}

}  // namespace fetchkit
