#include "fetchkit/utility/WindowServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <stdexcept>
#include <thread>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/platform/PortablePlatform.h"
#include "fetchkit/utility/GridAndKeys.h"
#include "support/FakeConnection.h"

namespace fetchkit::MUtility {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr WindowHandle kDesktop = 1;
constexpr WindowHandle kWindow = 7;
constexpr WindowHandle kOther = 9;  // the foreground window
constexpr std::int32_t kProcess = 100;
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

struct FakeWindow {
  std::int32_t isWindow = 1;
  std::int32_t style = 0;
  std::int32_t extendedStyle = 0;
  WindowRect rect;
  std::int32_t process = kProcess;  // 0: not told
  std::int32_t rectKnown = 1;
};

// Answers from its state and writes down every call that changes or shows something.
class FakeWindows : public NoWindows {
 public:
  std::map<WindowHandle, FakeWindow> windows;
  WindowHandle foreground = kOther;
  WindowPoint cursor;
  bool cursorKnown = true;
  std::vector<std::string> calls;

  WindowHandle GetActiveWindow() override { return kWindow; }
  WindowHandle GetDesktopWindow() override { return kDesktop; }
  WindowHandle GetForegroundWindow() override { return foreground; }
  WindowHandle FindWindowEx(WindowHandle parent, WindowHandle after, TextView className,
                            TextView caption) override {
    Note(u"FindWindowEx ", parent, u" ", after, u" ", className, u" ", caption);
    return kWindow;
  }
  std::int32_t IsWindow(WindowHandle window) override {
    return windows.contains(window) ? windows[window].isWindow : 0;
  }
  std::int32_t GetWindowThreadProcessId(WindowHandle window, std::int32_t& process) override {
    if (!windows.contains(window) || windows[window].process == 0) return 0;
    process = windows[window].process;
    return 55;
  }
  std::int32_t GetCurrentProcessId() override { return kProcess; }
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

class FakePlatform : public PortablePlatform {
 public:
  FakePlatform() : before_(SetPlatform(this)) {}
  ~FakePlatform() override { SetPlatform(before_); }
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;

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

class WindowServices : public testing::Test {
 protected:
  WindowServices() {
    windows[kDesktop].rect = {0, 0, 1024, 768};
    windows[kWindow].rect = {10, 20, 311, 221};  // 301 x 201
    windows[kOther].rect = {500, 400, 901, 701};
  }

  test::FreshThread thread_;
  FakePlatform platform;
  std::map<WindowHandle, FakeWindow>& windows = platform.windows.windows;
  std::vector<std::string>& calls = platform.windows.calls;
};

TEST_F(WindowServices, Handles) {
  EXPECT_EQ(GetActiveWindowHandle(), kWindow);
  EXPECT_EQ(GetDesktopWindowHandle(), kDesktop);
  EXPECT_EQ(GetForegroundWindowHandle(), kOther);
  EXPECT_EQ(FindWindowHandle(u"凭证"), kWindow);
  EXPECT_THAT(calls, ElementsAre("FindWindowEx 0 0 ThunderRT6FormDC 凭证"));
}

TEST_F(WindowServices, TopMost) {
  const struct {
    const char* name;
    WindowHandle asked;
    FakeWindow state;  // of kWindow and, for 0, of the foreground window
    bool expected;
    WindowHandle after;
  } kRows[] = {
      {"the bit is set", kWindow, {1, 0, 0x188, {}}, true, kWindow},
      {"other bits only", kWindow, {1, -1, 0x180, {}}, false, kWindow},
      {"no window", kWindow, {0, 0, 8, {}}, false, kWindow},
      {"IsWindow must answer 1 here", kWindow, {2, 0, 8, {}}, false, kWindow},
      {"the process is not asked for a given window", kWindow, {1, 0, 8, {}, 200}, true, kWindow},
      {"foreground, ours, set", 0, {1, 0, 8, {}}, true, kOther},
      {"foreground, ours, not set", 0, {1, 0, 0, {}}, false, kOther},
      {"another process's", 0, {1, 0, 8, {}, 200}, false, kOther},
      {"a process that is not told", 0, {1, 0, 8, {}, 0}, false, kOther},
      {"IsWindow is not asked for the foreground window", 0, {0, 0, 8, {}}, true, kOther},
  };
  for (const auto& row : kRows) {
    windows[row.asked == 0 ? kOther : kWindow] = row.state;
    WindowHandle handle = row.asked;
    EXPECT_EQ(IsTopMostWindow(handle), row.expected) << row.name;
    EXPECT_EQ(handle, row.after) << row.name;
  }
  platform.windows.foreground = 0;
  WindowHandle none = 0;
  EXPECT_FALSE(IsTopMostWindow(none));
  EXPECT_EQ(none, 0);
}

TEST_F(WindowServices, Placing) {
  const struct {
    const char* name;
    bool onTop;
    std::int32_t mode;
    WindowRect given;  // left, top, width, height
    const char* expected;
  } kRows[] = {
      {"screen centre keeps the size", true, wpScreenCenter, {1, 2, 3, 4}, "361,283 301x201 64"},
      {"owner centre as if it stood at the origin", false, wpOwnerCenter, {}, "50,50 301x201 64"},
      {"manual", true, wpManual, {-5, 6, 70, 80}, "-5,6 70x80 64"},
      {"manual, all zeros: its own", false, wpManual, {}, "10,20 301x201 64"},
      {"manual, one zero", true, wpManual, {5, 0, 0, 80}, "5,20 301x80 64"},
      {"default hands the numbers over", true, wpDefault, {1, 2, 3, 4}, "1,2 3x4 67"},
      {"any other mode too", false, 9, {1, 2, 3, 4}, "1,2 3x4 67"},
  };
  for (const auto& row : kRows) {
    calls.clear();
    SetWindowTopPos(kWindow, row.onTop, static_cast<WindowPositionConstants>(row.mode),
                    row.given.left, row.given.top, row.given.right, row.given.bottom);
    EXPECT_THAT(calls, ElementsAre(std::string("SetWindowPos 7 ") + (row.onTop ? "-1 " : "-2 ") +
                                   row.expected))
        << row.name;
  }

  calls.clear();
  windows[kWindow].rect = {0, 0, 1027, 769};
  SetWindowTopPos(kWindow, true, wpScreenCenter, 0, 0, 0, 0);
  EXPECT_THAT(calls, ElementsAre("SetWindowPos 7 -1 -1,0 1027x769 64"))
      << "halves of negative numbers go toward zero";

  calls.clear();
  windows[kWindow].isWindow = 2;
  SetWindowTopPos(kWindow, true, wpDefault, 0, 0, 0, 0);
  EXPECT_THAT(calls, ElementsAre("SetWindowPos 7 -1 0,0 0x0 67")) << "any answer but 0 will do";

  calls.clear();
  windows[kWindow].isWindow = 0;
  SetWindowTopPos(kWindow, true, wpManual, 1, 2, 3, 4);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(WindowServices, PlacingOverflows) {
  const struct {
    const char* name;
    WindowPositionConstants mode;
    std::int32_t width;
    WindowRect own, desktop;
    bool raises;
  } kRows[] = {
      {"its own width", wpScreenCenter, 0, {-1, 0, kMost, 0}, {}, true},
      {"the screen's height", wpScreenCenter, 0, {}, {0, kLeast, 0, 1}, true},
      {"the difference of both", wpScreenCenter, 0, {0, 0, kMost, 0}, {1, 0, -3, 0}, true},
      {"just not", wpScreenCenter, 0, {0, 0, kMost, 0}, {1, 0, 0, 0}, false},
      {"a width that is replaced", wpManual, 0, {-1, 0, kMost, 0}, {}, true},
      {"a width that is given", wpManual, 5, {-1, 0, kMost, 0}, {}, false},
      {"nothing is subtracted by default", wpDefault, 0, {-1, 0, kMost, 0}, {}, false},
  };
  for (const auto& row : kRows) {
    calls.clear();
    windows[kWindow].rect = row.own;
    windows[kDesktop].rect = row.desktop;
    bool raised = false;
    try {
      SetWindowTopPos(kWindow, true, row.mode, 0, 0, row.width, 0);
    } catch (const Error& error) {
      raised = error.kind() == ErrorKind::Overflow;
    }
    EXPECT_EQ(raised, row.raises) << row.name;
    EXPECT_EQ(calls.empty(), row.raises) << row.name;
  }
}

TEST_F(WindowServices, StyleBits) {
  constexpr auto kPopup = static_cast<std::int32_t>(0x80880000u);
  const struct {
    const char* name;
    bool popup, enabled;
    std::int32_t before;
    std::string expected;
  } kRows[] = {
      {"pop-up on", true, true, 0x00080001, std::to_string(kPopup | 1)},
      {"pop-up off where it was on", true, false, kPopup | 1, "1"},
      {"pop-up off where it was not gives the bits", true, false, 1, std::to_string(kPopup | 1)},
      {"tool window on", false, true, 0x80 | 8, "136"},
      {"tool window off where it was on", false, false, 0x80 | 8, "8"},
      {"tool window off where it was not gives the bit", false, false, 8, "136"},
  };
  for (const auto& row : kRows) {
    calls.clear();
    windows[kWindow] = {};
    (row.popup ? windows[kWindow].style : windows[kWindow].extendedStyle) = row.before;
    (row.popup ? SetPopupWindow : SetToolWindow)(kWindow, row.enabled);
    EXPECT_THAT(calls, ElementsAre((row.popup ? "SetWindowLong 7 -16 " : "SetWindowLong 7 -20 ") +
                                       row.expected,
                                   "SetWindowPos 7 -1 0,0 0x0 39"))
        << row.name;
  }
  calls.clear();
  windows[kWindow].isWindow = 0;
  SetPopupWindow(kWindow, true);
  SetToolWindow(kWindow, true);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(WindowServices, Area) {
  const struct {
    const char* name;
    FakeWindow state;
    bool expected;
    std::vector<std::int32_t> area;
  } kRows[] = {
      {"known", {1, 0, 0, {-10, 20, 311, 221}}, true, {-10, 20, 321, 201}},
      {"no window leaves the outputs", {0, 0, 0, {1, 2, 3, 4}}, false, {-1, -1, -1, -1}},
      {"IsWindow must answer 1 here", {2, 0, 0, {1, 2, 3, 4}}, false, {-1, -1, -1, -1}},
      {"not told", {1, 0, 0, {1, 2, 3, 4}, kProcess, 0}, false, {0, 0, 0, 0}},
  };
  std::int32_t left, top, width, height;
  for (const auto& row : kRows) {
    left = top = width = height = -1;
    windows[kWindow] = row.state;
    EXPECT_EQ(GetWindowArea(kWindow, left, top, width, height), row.expected) << row.name;
    EXPECT_EQ((std::vector{left, top, width, height}), row.area) << row.name;
  }
  left = top = width = height = -1;
  windows[kWindow] = {1, 0, 0, {5, kLeast, 9, 1}};
  EXPECT_THROW(GetWindowArea(kWindow, left, top, width, height), Error);
  EXPECT_EQ((std::vector{left, top, width, height}), (std::vector<std::int32_t>(4, -1)));
}

TEST_F(WindowServices, MessageBoxStepsAside) {
  const std::string box = "MessageBox 余额不足|49|提示";
  const std::vector<std::string> aside7 = {"SetWindowPos 7 -2 0,0 0x0 67", box,
                                           "SetWindowPos 7 -1 0,0 0x0 67"};
  const std::vector<std::string> aside9 = {"SetWindowPos 9 -2 0,0 0x0 67", box,
                                           "SetWindowPos 9 -1 0,0 0x0 67"};
  const struct {
    const char* name;
    WindowHandle owner;
    FakeWindow state;
    std::vector<std::string> expected;
  } kRows[] = {
      {"top-most owner", kWindow, {1, 0, 8, {}}, aside7},
      {"an ordinary owner is left alone", kWindow, {1, 0, 0, {}}, {box}},
      {"no window", kWindow, {0, 0, 8, {}}, {box}},
      {"top-most foreground window", 0, {1, 0, 8, {}}, aside9},
      {"a foreground window of another process", 0, {1, 0, 8, {}, 200}, {box}},
      {"a foreground window that is gone", 0, {0, 0, 8, {}}, {box}},
  };
  for (const auto& row : kRows) {
    calls.clear();
    windows[row.owner == 0 ? kOther : kWindow] = row.state;
    EXPECT_EQ(MessageBox(u"余额不足", 49, u"提示", row.owner), 6) << row.name;
    EXPECT_EQ(calls, row.expected) << row.name;
  }
}

TEST(PortableWindows, ThereAreNone) {
  const test::FreshThread thread;
  WindowHandle handle = 0;
  EXPECT_FALSE(IsTopMostWindow(handle));
  EXPECT_EQ(handle, 0);
  EXPECT_EQ(GetForegroundWindowHandle(), 0);
  EXPECT_EQ(MessageBox(u"text", 0, u"title", 0), 0);
  EXPECT_FALSE(WriteLog(u"a", u"b", 1));
}

TEST(Security, Scrambles) {
  // 'q' ^ 'y' ^ 'a', 'z' ^ 'f' ^ 'b', 'l' ^ 'u' ^ 'c' by the ASCII table.
  EXPECT_EQ(ToUtf8(Security(u"abc")), "i~z");
  EXPECT_EQ(Security(u""), u"");
  for (const Text& text : {Text(u"Passw0rd!~"), Text(u"12345678901234567890123"), Text(u"部门Aa1"),
                           Text(u"a\0b\x7F", 4)}) {
    const Text scrambled = Security(text);
    EXPECT_NE(scrambled, text);
    EXPECT_EQ(Security(scrambled), text) << ToUtf8(text);
  }
}

TEST(Security, Limits) {
  const auto kindOf = [](const Text& text) -> std::optional<ErrorKind> {
    try {
      Security(text);
    } catch (const Error& error) {
      return error.kind();
    }
    return std::nullopt;
  };
  EXPECT_EQ(kindOf(Text(23, u'a')), std::nullopt);
  EXPECT_EQ(kindOf(Text(23, u'部')), std::nullopt);
  EXPECT_EQ(kindOf(Text(24, u'a')), ErrorKind::InvalidCall);
  EXPECT_EQ(kindOf(Text(1000, u'a')), ErrorKind::InvalidCall);
  // 0x8140 becomes 0x8148 in the first place, but 0x8103, which is no character, in the ninth.
  EXPECT_EQ(kindOf(u"丂"), std::nullopt);
  EXPECT_EQ(kindOf(u"12345678丂"), ErrorKind::InvalidCall);
  EXPECT_EQ(Security(Security(u"\u0E01")), u"?") << "what the code page lacks is a '?'";
}

TEST_F(WindowServices, Log) {
  EXPECT_TRUE(WriteLog(u"Form", u"Load", 1));
  Step(u"test", [] { throw Error(ErrorKind::Host, u"ORA-00942"); });
  EXPECT_TRUE(WriteLog(u"", u"保存", -1));
  EXPECT_FALSE(WriteLog(u"refuse", u"b", 2));
  EXPECT_FALSE(WriteLog(u"throw", u"b", 3));
  EXPECT_TRUE(WriteLog(u"a", u"b", 4));
  EXPECT_THAT(platform.entries,
              ElementsAre("无|Form|Load|1", "ORA-00942||保存|-1", "ORA-00942|refuse|b|2",
                          "ORA-00942|throw|b|3", "disk full|a|b|4"));
  EXPECT_EQ(platform.logsAsked, 1) << "kept for the thread, failures included";

  std::thread([&] {
    EXPECT_TRUE(WriteLog(u"a", u"b", 5));
    ReleaseThread();
  }).join();
  EXPECT_EQ(platform.logsAsked, 2) << "each thread has its own";
  EXPECT_EQ(platform.entries.back(), "无|a|b|5");
}

TEST_F(WindowServices, LogThatCannotBeCreated) {
  const auto works = platform.createLog;
  platform.createLog = [] { return nullptr; };
  EXPECT_FALSE(WriteLog(u"a", u"b", 1));
  platform.createLog = []() -> std::shared_ptr<LogComponent> {
    throw Error(ErrorKind::Host, u"not registered");
  };
  EXPECT_FALSE(WriteLog(u"a", u"b", 2));
  platform.createLog = works;
  EXPECT_TRUE(WriteLog(u"a", u"b", 3)) << "asked for again";
  EXPECT_THAT(platform.entries, ElementsAre("not registered|a|b|3"));
}

TEST_F(WindowServices, GridHits) {
  const std::vector<std::int32_t> columns = {5, 25, 25, 60};  // the second one is hidden
  const std::vector<std::int32_t> rows = {0, 10, 20};
  const struct {
    const char* name;
    WindowPoint client;
    bool inArea, inCell;
    std::int32_t row, column;
  } kRows[] = {
      {"first cell", {5, 0}, true, true, 0, 0},
      {"an edge belongs to the cell behind it", {24, 10}, true, true, 1, 0},
      {"a hidden column is never hit", {25, 19}, true, true, 1, 2},
      {"last pixel", {59, 19}, true, true, 1, 2},
      {"right of the cells", {60, 5}, false, false, -1, -1},
      {"below them", {30, 20}, false, false, -1, -1},
      {"left of them", {4, 5}, false, false, -1, -1},
      {"above them", {30, -1}, false, false, -1, -1},
  };
  std::int32_t row, column;
  for (const auto& hit : kRows) {
    row = column = -1;
    platform.windows.cursor = {hit.client.x + 10, hit.client.y + 20};  // kWindow's left and top
    EXPECT_EQ(PtInGridAvailRect(kWindow, 5, 0, 55, 20), hit.inArea) << hit.name;
    EXPECT_EQ(PtInGridCell(kWindow, columns, rows, row, column), hit.inCell) << hit.name;
    EXPECT_EQ(row, hit.row) << hit.name;
    EXPECT_EQ(column, hit.column) << hit.name;
  }
  platform.windows.cursor = {30, 30};
  EXPECT_TRUE(PtInGridAvailRect(kWindow, 5, 0, kMost, kMost)) << "an endless area";
  EXPECT_FALSE(PtInGridCell(kWindow, {}, rows, row, column)) << "a grid without columns";
  EXPECT_FALSE(PtInGridAvailRect(kWindow + 1, 0, 0, 100, 100)) << "no window";
  platform.windows.cursorKnown = false;
  EXPECT_FALSE(PtInGridAvailRect(kWindow, 0, 0, 100, 100));
  EXPECT_FALSE(PtInGridCell(kWindow, columns, rows, row, column));
}

TEST(KeyedItems, EntryUnderAKey) {
  class Throwing : public KeyedItems {
   public:
    bool Has(TextView key) const override {
      if (key != u"K1") throw Error(ErrorKind::InvalidCall, u"no such key");
      return true;
    }
  } items;
  EXPECT_TRUE(ObjectInNodes(items, u"K1"));
  EXPECT_FALSE(ObjectInNodes(items, u"K2"));
  EXPECT_TRUE(ObjectInCollection(items, u"K1"));
  EXPECT_FALSE(ObjectInCollection(items, u"K2"));
}

}  // namespace
}  // namespace fetchkit::MUtility
