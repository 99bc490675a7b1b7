#include "fetchkit/utility/WindowServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <thread>
#include <utility>

#include "fetchkit/utility/GridAndKeys.h"
#include "support/FakeConnection.h"
#include "support/FakePlatform.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

using testing::ElementsAre;

constexpr WindowHandle kDesktop = 1;
constexpr WindowHandle kWindow = 7;
constexpr WindowHandle kOther = 9;  // the foreground window
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

FakeWindow Window(WindowRect rect) {
  return {1, 0, 0, rect};
}

class WindowServices : public testing::Test,
                       protected fetchkit::WindowServices,
                       protected GridAndKeys {
 protected:
  // The calls of an act; where it raises, the kind of that behind them.
  template <class Act>
  std::string CallsOf(Act&& act) {
    calls.clear();
    try {
      act();
    } catch (const Error& error) {
      calls.push_back(error.kind() == ErrorKind::Overflow      ? "overflow"
                      : error.kind() == ErrorKind::InvalidCall ? "invalid call"
                                                               : "another error");
    }
    std::string all;
    for (const std::string& call : calls)
      all += (all.empty() ? "" : "; ") + call;
    return all;
  }

  FreshThread thread_;
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

TEST_F(WindowServices, TopMostWindowStepsAsideForAMessageBox) {
  // The state is that of the asked window and, for 0, of the foreground window. Which window steps
  // aside, if any.
  Table<WindowHandle, FakeWindow, bool, WindowHandle>{
      {"the bit is set", kWindow, {1, 0, 0x188, {}}, true, kWindow},
      {"other bits only", kWindow, {1, -1, 0x180, {}}, false, 0},
      {"IsWindow must answer 1 here", kWindow, {2, 0, 8, {}}, false, 0},
      {"the process is not asked for", kWindow, {1, 0, 8, {}, 200}, true, kWindow},
      {"foreground, set", 0, {1, 0, 8, {}}, true, kOther},
      {"foreground, not set", 0, {1, 0, 0, {}}, false, 0},
      {"another process's", 0, {1, 0, 8, {}, 200}, false, 0},
      {"IsWindow must answer 1 for the message box alone", 0, {2, 0, 8, {}}, true, 0},
  }
      .Check([&](WindowHandle asked, const FakeWindow& state, bool expected, WindowHandle aside) {
        windows[asked == 0 ? kOther : kWindow] = state;
        WindowHandle handle = asked;
        EXPECT_EQ(IsTopMostWindow(handle), expected);
        EXPECT_EQ(handle, asked == 0 ? kOther : kWindow);
        const std::string moved = "SetWindowPos " + std::to_string(aside);
        const std::string box = "MessageBox 余额不足|49|提示";
        EXPECT_EQ(
            CallsOf([&] { EXPECT_EQ(MessageBox(u"余额不足", 49, u"提示", asked), 6); }),
            aside == 0 ? box : moved + " -2 0,0 0x0 67; " + box + "; " + moved + " -1 0,0 0x0 67");
      });
}

TEST_F(WindowServices, Placing) {
  const FakeWindow own = Window({10, 20, 311, 221});  // 301 x 201
  const FakeWindow odd = Window({0, 0, 1027, 769});
  const FakeWindow broad = Window({0, 0, kMost, 0});
  const FakeWindow tooBroad = Window({-1, 0, kMost, 0});
  const WindowRect screen = {0, 0, 1024, 768};
  windows[kOther].rect = {500, 400, 901, 701};
  // given: left, top, width, height.
  Table<int, WindowRect, FakeWindow, WindowRect, std::string>{
      {"keeps the size", wpScreenCenter, {1, 2, 3, 4}, own, screen, "361,283 301x201 64"},
      {"the owner as if at the origin", wpOwnerCenter, {}, own, screen, "50,50 301x201 64"},
      {"halves go toward zero", wpScreenCenter, {}, odd, screen, "-1,0 1027x769 64"},
      {"manual", wpManual, {-5, 6, 70, 80}, own, screen, "-5,6 70x80 64"},
      {"manual, all zeros: its own", wpManual, {}, own, screen, "10,20 301x201 64"},
      {"any other mode hands the numbers over", 9, {1, 2, 3, 4}, own, screen, "1,2 3x4 67"},
      {"any answer of IsWindow but 0", wpDefault, {}, {2, 0, 0, {}}, screen, "0,0 0x0 67"},
      {"no window", wpManual, {1, 2, 3, 4}, {0, 0, 0, {}}, screen, ""},
      {"its own width", wpScreenCenter, {}, tooBroad, screen, "overflow"},
      {"the screen's height", wpScreenCenter, {}, own, {0, kLeast, 0, 1}, "overflow"},
      {"the difference of both", wpScreenCenter, {}, broad, {1, 0, -3, 0}, "overflow"},
      {"just not", wpScreenCenter, {}, broad, {1, 0, 0, 0}, "-1073741824,0 2147483647x0 64"},
      {"a width that is given", wpManual, {0, 0, 5, 0}, tooBroad, screen, "-1,0 5x0 64"},
  }
      .Check([&](int mode, const WindowRect& given, const FakeWindow& state,
                 const WindowRect& desktop, const std::string& expected) {
        windows[kWindow] = state;
        windows[kDesktop].rect = desktop;
        const bool placed = expected.find(' ') != std::string::npos;
        for (const bool onTop : {false, true})
          EXPECT_EQ(CallsOf([&] {
                      SetWindowTopPos(kWindow, onTop, static_cast<WindowPositionConstants>(mode),
                                      given.left, given.top, given.right, given.bottom);
                    }),
                    (placed ? onTop ? "SetWindowPos 7 -1 " : "SetWindowPos 7 -2 " : "") + expected);
      });
}

TEST_F(WindowServices, StyleBits) {
  constexpr auto kPopup = static_cast<std::int32_t>(0x80880000u);
  Table<bool, bool, std::int32_t, std::int32_t>{
      {"pop-up on", true, true, 0x00080001, kPopup | 1},
      {"pop-up off where it was on", true, false, kPopup | 1, 1},
      {"pop-up off where it was not gives the bits", true, false, 1, kPopup | 1},
      {"tool window on", false, true, 0x80 | 8, 136},
  }
      .Check([&](bool popup, bool enabled, std::int32_t before, std::int32_t after) {
        const auto act = [&] { (popup ? SetPopupWindow : SetToolWindow)(kWindow, enabled); };
        windows[kWindow] = {};
        (popup ? windows[kWindow].style : windows[kWindow].extendedStyle) = before;
        EXPECT_EQ(CallsOf(act), (popup ? "SetWindowLong 7 -16 " : "SetWindowLong 7 -20 ") +
                                    std::to_string(after) + "; SetWindowPos 7 -1 0,0 0x0 39");
        windows[kWindow].isWindow = 0;
        EXPECT_EQ(CallsOf(act), "");
      });
}

TEST_F(WindowServices, Area) {
  using Area = std::vector<std::int32_t>;
  const Area untouched(4, -1);
  Table<FakeWindow, bool, Area>{
      {"known", Window({-10, 20, 311, 221}), true, {-10, 20, 321, 201}},
      {"IsWindow must answer 1 here", {2, 0, 0, {1, 2, 3, 4}}, false, untouched},
      {"not told", {1, 0, 0, {1, 2, 3, 4}, 100, 0}, false, {0, 0, 0, 0}},
      {"too high: raises", Window({5, kLeast, 9, 1}), false, untouched},
  }
      .Check([&](const FakeWindow& state, bool expected, const Area& area) {
        std::int32_t left = -1, top = -1, width = -1, height = -1;
        bool known = false;
        windows[kWindow] = state;
        EXPECT_EQ(CallsOf([&] { known = GetWindowArea(kWindow, left, top, width, height); }),
                  state.rect.top == kLeast ? "overflow" : "");
        EXPECT_EQ(known, expected);
        EXPECT_EQ((Area{left, top, width, height}), area);
      });
}

TEST(PortableWindows, ThereAreNone) {
  using Services = fetchkit::WindowServices;
  const FreshThread thread;
  EXPECT_EQ(Services::MessageBox(u"text", 0, u"title", 0), 0);
  EXPECT_FALSE(Services::WriteLog(u"a", u"b", 1));
}

TEST_F(WindowServices, Security) {
  // 'q' ^ 'y' ^ 'a', 'z' ^ 'f' ^ 'b', 'l' ^ 'u' ^ 'c' by the ASCII table.
  EXPECT_EQ(ToUtf8(Security(u"abc")), "i~z");
  for (const Text& text : {Text(), Text(u"12345678901234567890123"), Text(23, u'部'),
                           Text(u"部门Aa1"), Text(u"a\0b\x7F", 4)})
    EXPECT_EQ(Security(Security(text)), text) << ToUtf8(text);
  EXPECT_EQ(Security(Security(u"\u0E01")), u"?") << "what the code page lacks is a '?'";
  // 0x8140 becomes 0x8148 in the first place, but 0x8103, which is no character, in the ninth.
  EXPECT_EQ(Security(u"丂").size(), 1u);
  for (const Text& text : {Text(24, u'a'), Text(u"12345678丂")})
    EXPECT_EQ(CallsOf([&] { Security(text); }), "invalid call") << ToUtf8(text);
}

TEST_F(WindowServices, Log) {
  EXPECT_TRUE(WriteLog(u"Form", u"Load", 1));
  EXPECT_FALSE(WriteLog(u"refuse", u"保存", -2));
  EXPECT_FALSE(WriteLog(u"throw", u"b", 3));
  EXPECT_TRUE(WriteLog(u"a", u"b", 4));
  EXPECT_THAT(platform.entries, ElementsAre("无|Form|Load|1", "无|refuse|保存|-2", "无|throw|b|3",
                                            "disk full|a|b|4"));
  EXPECT_EQ(platform.logsAsked, 1) << "kept for the thread, failures included";

  std::thread([&] {
    EXPECT_TRUE(WriteLog(u"a", u"b", 5));
    ReleaseThread();
  }).join();
  EXPECT_EQ(platform.logsAsked, 2) << "each thread has its own";
  EXPECT_EQ(platform.entries.back(), "无|a|b|5");
}

TEST_F(WindowServices, LogThatCannotBeCreated) {
  const auto works = std::exchange(platform.createLog, [] { return nullptr; });
  EXPECT_FALSE(WriteLog(u"a", u"b", 1));
  platform.createLog = works;
  EXPECT_TRUE(WriteLog(u"a", u"b", 2)) << "asked for again";
  EXPECT_THAT(platform.entries, ElementsAre("There is no log component.|a|b|2"));
}

TEST_F(WindowServices, GridHits) {
  const std::vector<std::int32_t> columns = {5, 25, 25, 60};  // the second one is hidden
  const std::vector<std::int32_t> rows = {0, 10, 20};
  // -1: outside of the cells.
  Table<WindowPoint, std::int32_t, std::int32_t>{
      {"first cell", {5, 0}, 0, 0},
      {"an edge belongs to the cell behind it", {24, 10}, 1, 0},
      {"a hidden column is never hit", {25, 19}, 1, 2},
      {"last pixel", {59, 19}, 1, 2},
      {"right of the cells", {60, 5}, -1, -1},
      {"below them", {30, 20}, -1, -1},
      {"left of them", {4, 5}, -1, -1},
  }
      .Check([&](WindowPoint client, std::int32_t row, std::int32_t column) {
        std::int32_t lngRow = -1;
        std::int32_t lngCol = -1;
        windows[kWindow].rect = {10, 20, 311, 221};
        platform.windows.cursor = {client.x + 10, client.y + 20};
        EXPECT_EQ(PtInGridAvailRect(kWindow, 5, 0, 55, 20), row >= 0);
        EXPECT_EQ(PtInGridCell(kWindow, columns, rows, lngRow, lngCol), row >= 0);
        EXPECT_EQ(lngRow, row);
        EXPECT_EQ(lngCol, column);
      });
  std::int32_t row, column;
  platform.windows.cursor = {30, 30};
  EXPECT_TRUE(PtInGridAvailRect(kWindow, 5, 0, kMost, kMost)) << "an endless area";
  EXPECT_FALSE(PtInGridCell(kWindow, {}, rows, row, column)) << "a grid without columns";
  EXPECT_FALSE(PtInGridAvailRect(kWindow + 1, 0, 0, 100, 100)) << "no window";
  platform.windows.cursorKnown = false;
  EXPECT_FALSE(PtInGridAvailRect(kWindow, 0, 0, 100, 100));
}

TEST_F(WindowServices, EntryUnderAKey) {
  struct : KeyedItems {
    bool Has(TextView key) const override { return key == u"K1" ? true : throw 1; }
  } items;
  for (const auto& found : {ObjectInNodes, ObjectInCollection}) {
    EXPECT_TRUE(found(items, u"K1"));
    EXPECT_FALSE(found(items, u"K2"));
  }
}

}  // namespace
}  // namespace fetchkit::test
