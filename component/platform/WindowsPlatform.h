// What Windows offers: the system's ANSI code page, its date texts, its clock, windows and message
// boxes, and the log component of the host's environment.
#pragma once

#include "fetchkit/platform/Platform.h"

namespace fetchkit {

// Windows as 32-bit handles: the system's own handles have no more than 32 significant bits, the
// upper ones being copies of the sign.
class SystemWindows : public WindowSystem {
 public:
  WindowHandle GetActiveWindow() override;
  WindowHandle GetDesktopWindow() override;
  WindowHandle GetForegroundWindow() override;
  WindowHandle FindWindowEx(WindowHandle parent, WindowHandle childAfter, TextView className,
                            TextView caption) override;
  std::int32_t IsWindow(WindowHandle window) override;
  std::int32_t GetWindowThreadProcessId(WindowHandle window, std::int32_t& processId) override;
  std::int32_t GetCurrentProcessId() override;
  std::int32_t GetWindowLong(WindowHandle window, std::int32_t index) override;
  std::int32_t SetWindowLong(WindowHandle window, std::int32_t index, std::int32_t value) override;
  std::int32_t SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x,
                            std::int32_t y, std::int32_t width, std::int32_t height,
                            std::int32_t flags) override;
  std::int32_t GetWindowRect(WindowHandle window, WindowRect& rect) override;
  std::int32_t GetCursorPos(WindowPoint& point) override;
  std::int32_t ScreenToClient(WindowHandle window, WindowPoint& point) override;

  // Owned by the thread's active window, so that it stays in front of the host.
  std::int32_t MessageBox(TextView text, std::int32_t style, TextView title) override;
};

class WindowsPlatform : public Platform {
 public:
  std::size_t AnsiLength(TextView text) const override;
  std::uint16_t AnsiCode(char16_t unit) const override;
  std::optional<char16_t> AnsiCharacter(std::uint16_t code) const override;
  std::uint16_t GbkCode(char16_t unit) const override;

  // The forms of CommonDates.h, which must not depend on a user's settings, then whatever the
  // user's locale accepts.
  std::optional<Date> ParseDate(TextView text) const override;

  Date Now() const override;

  WindowSystem& Windows() override { return windows_; }

  // Error (Host) when the component is not registered.
  std::shared_ptr<LogComponent> CreateLog() override;

 private:
  SystemWindows windows_;
};

}  // namespace fetchkit
