// The window functions of the user interface that the helpers need.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// 0 stands for no window.
using WindowHandle = std::int32_t;

// Screen or client coordinates in pixels.
struct WindowPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
};

// Right and bottom lie just outside.
struct WindowRect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
};

// Whether the point lies in the rectangle: its left and top edge belong to it, its right and
// bottom edge do not.
constexpr bool PtInRect(const WindowRect& rect, WindowPoint point) {
  return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
         point.y < rect.bottom;
}

// Each member is the system's function of that name and reports failure as that one does: by its
// result. Numbers go through unchanged, so the rules above it compare what the system answered,
// not what it meant: IsWindow answers 1 for some rules and "not 0" for others.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  virtual WindowHandle GetActiveWindow() = 0;
  virtual WindowHandle GetDesktopWindow() = 0;
  virtual WindowHandle GetForegroundWindow() = 0;

  // The first child of parent (0: of the desktop) behind childAfter (0: from the first one on)
  // with that class and caption; 0 when there is none.
  virtual WindowHandle FindWindowEx(WindowHandle parent, WindowHandle childAfter,
                                    TextView className, TextView caption) = 0;

  virtual std::int32_t IsWindow(WindowHandle window) = 0;

  // The thread that made the window, 0 when there is no such window; then processId is untouched.
  virtual std::int32_t GetWindowThreadProcessId(WindowHandle window, std::int32_t& processId) = 0;
  virtual std::int32_t GetCurrentProcessId() = 0;

  virtual std::int32_t GetWindowLong(WindowHandle window, std::int32_t index) = 0;
  virtual std::int32_t SetWindowLong(WindowHandle window, std::int32_t index,
                                     std::int32_t value) = 0;
  virtual std::int32_t SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x,
                                    std::int32_t y, std::int32_t width, std::int32_t height,
                                    std::int32_t flags) = 0;

  // 0 on failure; the out-arguments are untouched then.
  virtual std::int32_t GetWindowRect(WindowHandle window, WindowRect& rect) = 0;
  virtual std::int32_t GetCursorPos(WindowPoint& point) = 0;
  virtual std::int32_t ScreenToClient(WindowHandle window, WindowPoint& point) = 0;

  // Shows the text until the user presses a button and answers which; 0 when nothing was shown.
  // style: the system's numbers for buttons and icon.
  virtual std::int32_t MessageBox(TextView text, std::int32_t style, TextView title) = 0;
};

}  // namespace fetchkit
