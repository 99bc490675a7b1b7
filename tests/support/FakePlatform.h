// A system for tests: a clock that stands, windows in a map, and a log that is kept.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/platform/PortablePlatform.h"

namespace fetchkit::test {

struct FakeWindow {
  std::int32_t isWindow = 1;
  std::int32_t style = 0;
  std::int32_t extendedStyle = 0;
  WindowRect rect;
  std::int32_t process = 100;  // 0: not told
  std::int32_t rectKnown = 1;
};

// Answers from its state and writes down every call that changes or shows something.
class FakeWindows : public NoWindows {
 public:
  std::map<WindowHandle, FakeWindow> windows;
  WindowHandle foreground = 9;
  WindowPoint cursor;
  bool cursorKnown = true;
  std::vector<std::string> calls;

  WindowHandle GetActiveWindow() override { return 7; }
  WindowHandle GetDesktopWindow() override { return 1; }
  WindowHandle GetForegroundWindow() override { return foreground; }
  WindowHandle FindWindowEx(WindowHandle parent, WindowHandle after, TextView className,
                            TextView caption) override {
    Note(u"FindWindowEx ", parent, u" ", after, u" ", className, u" ", caption);
    return 7;
  }
  std::int32_t IsWindow(WindowHandle window) override {
    return windows.contains(window) ? windows[window].isWindow : 0;
  }
  std::int32_t GetWindowThreadProcessId(WindowHandle window, std::int32_t& process) override {
    if (!windows.contains(window) || windows[window].process == 0) return 0;
    process = windows[window].process;
    return 55;
  }
  std::int32_t GetCurrentProcessId() override { return 100; }
  std::int32_t GetWindowLong(WindowHandle window, std::int32_t index) override {
    return index == -20 ? windows[window].extendedStyle : index == -16 ? windows[window].style : 0;
  }
  std::int32_t SetWindowLong(WindowHandle window, std::int32_t index, std::int32_t value) override {
    Note(u"SetWindowLong ", window, u" ", index, u" ", value);
    return 0;
  }
  std::int32_t SetWindowPos(WindowHandle window, WindowHandle after, std::int32_t x, std::int32_t y,
                            std::int32_t width, std::int32_t height, std::int32_t flags) override {
    Note(u"SetWindowPos ", window, u" ", after, u" ", x, u",", y, u" ", width, u"x", height, u" ",
         flags);
    return 1;
  }
  std::int32_t GetWindowRect(WindowHandle window, WindowRect& rect) override {
    if (!windows.contains(window) || windows[window].rectKnown == 0) return 0;
    rect = windows[window].rect;
    return 1;
  }
  std::int32_t GetCursorPos(WindowPoint& point) override {
    point = cursor;
    return cursorKnown ? 1 : 0;
  }
  std::int32_t ScreenToClient(WindowHandle window, WindowPoint& point) override {
    point.x -= windows[window].rect.left;
    point.y -= windows[window].rect.top;
    return 1;
  }
  std::int32_t MessageBox(TextView text, std::int32_t style, TextView title) override {
    Note(u"MessageBox ", text, u"|", style, u"|", title);
    return 6;
  }

 private:
  template <class... Pieces>
  void Note(const Pieces&... pieces) {
    calls.push_back(ToUtf8(Join(pieces...)));
  }
};

// Fails for the text "throw" and refuses "refuse", after keeping what it was given.
class FakeLog : public LogComponent {
 public:
  explicit FakeLog(std::vector<std::string>& entries) : entries_(entries) {}
  bool Write(TextView message, TextView strA, TextView strB, std::int32_t lngC) override {
    entries_.push_back(ToUtf8(Join(message, u"|", strA, u"|", strB, u"|", lngC)));
    if (strA == u"throw") throw std::runtime_error("disk full");
    return strA != u"refuse";
  }

 private:
  std::vector<std::string>& entries_;
};

// Installed for the object's life. Its clock stands at 2010-05-06 13:45, and its locale has no
// dates with dots.
class FakePlatform : public PortablePlatform {
 public:
  FakePlatform() : before_(SetPlatform(this)) {}
  ~FakePlatform() override { SetPlatform(before_); }

  Date Now() const override { return {40304.5729166667}; }
  std::optional<Date> ParseDate(TextView text) const override {
    if (text.find(u'.') != TextView::npos) return std::nullopt;
    return PortablePlatform::ParseDate(text);
  }
  WindowSystem& Windows() override { return windows; }
  std::shared_ptr<LogComponent> CreateLog() override {
    ++logsAsked;
    return createLog();
  }

  FakeWindows windows;
  std::vector<std::string> entries;
  int logsAsked = 0;
  std::function<std::shared_ptr<LogComponent>()> createLog = [this] {
    return std::make_shared<FakeLog>(entries);
  };

 private:
  Platform* before_;
};

}  // namespace fetchkit::test
