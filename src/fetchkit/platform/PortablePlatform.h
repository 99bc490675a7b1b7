// The platform that works anywhere: code page 936, common date texts, the system clock; no windows
// and no log component.
#pragma once

#include "fetchkit/platform/Platform.h"

namespace fetchkit {

// Handles are 0, nothing is a window, every call fails, a message box answers 0 unseen.
class NoWindows : public WindowSystem {
 public:
  WindowHandle GetActiveWindow() override { return 0; }
  WindowHandle GetDesktopWindow() override { return 0; }
  WindowHandle GetForegroundWindow() override { return 0; }
  WindowHandle FindWindowEx(WindowHandle, WindowHandle, TextView, TextView) override { return 0; }
  std::int32_t IsWindow(WindowHandle) override { return 0; }
  std::int32_t GetWindowThreadProcessId(WindowHandle, std::int32_t&) override { return 0; }
  std::int32_t GetCurrentProcessId() override { return 0; }
  std::int32_t GetWindowLong(WindowHandle, std::int32_t) override { return 0; }
  std::int32_t SetWindowLong(WindowHandle, std::int32_t, std::int32_t) override { return 0; }
  std::int32_t SetWindowPos(WindowHandle, WindowHandle, std::int32_t, std::int32_t, std::int32_t,
                            std::int32_t, std::int32_t) override {
    return 0;
  }
  std::int32_t GetWindowRect(WindowHandle, WindowRect&) override { return 0; }
  std::int32_t GetCursorPos(WindowPoint&) override { return 0; }
  std::int32_t ScreenToClient(WindowHandle, WindowPoint&) override { return 0; }
  std::int32_t MessageBox(TextView, std::int32_t, TextView) override { return 0; }
};

class PortablePlatform : public Platform {
 public:
  std::size_t AnsiLength(TextView text) const override;
  std::uint16_t AnsiCode(char16_t unit) const override;
  std::optional<char16_t> AnsiCharacter(std::uint16_t code) const override;
  std::uint16_t GbkCode(char16_t unit) const override;

  // The forms of CommonDates.h.
  std::optional<Date> ParseDate(TextView text) const override;

  Date Now() const override;

  WindowSystem& Windows() override { return windows_; }
  std::shared_ptr<LogComponent> CreateLog() override { return nullptr; }

 private:
  NoWindows windows_;
};

}  // namespace fetchkit
