#include "fetchkit/utility/WindowServices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <utility>

#include "fetchkit/utility/GridAndKeys.h"
#include "support/FakeConnection.h"
#include "support/FakePlatform.h"
#include "support/Lines.h"
#include "support/Play.h"

namespace fetchkit::test {
namespace {

// clang-format off
#define PLAY(function) {#function, Play(function)}
// clang-format on

struct WindowServices : testing::Test, fetchkit::WindowServices, GridAndKeys {
  // Windows and the cursor, as "7 rect=10,20,311,221 style=1 9 is=0 cursor=15,20". The foreground
  // window is 9, the desktop 1.
  void Arrange(const std::string& cell) {
    static const std::map<std::string, std::int32_t FakeWindow::*> kFields = {
        {"is", &FakeWindow::isWindow},
        {"style", &FakeWindow::style},
        {"extended", &FakeWindow::extendedStyle},
        {"process", &FakeWindow::process},
        {"known", &FakeWindow::rectKnown}};
    FakeWindow* window = nullptr;
    const Text words = FromUtf8(cell);
    for (const TextView word : Split(words, u" ")) {
      const auto parts = Split(word, u"=");
      const std::string name = ToUtf8(parts[0]);
      if (parts.size() == 1) {
        window = &platform.windows.windows[ToLong(parts[0])];
        continue;
      }
      const auto numbers = ReadNumbers(ToUtf8(parts[1]));
      if (name == "cursor")
        platform.windows.cursor = {numbers.at(0), numbers.at(1)};
      else if (name == "rect")
        window->rect = {numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3)};
      else
        window->*kFields.at(name) = numbers.at(0);
    }
  }

  const FreshThread thread;
  FakePlatform platform;
  const std::map<std::string, Played> functions = {
      PLAY(GetActiveWindowHandle), PLAY(GetDesktopWindowHandle), PLAY(GetForegroundWindowHandle),
      PLAY(FindWindowHandle),      PLAY(IsTopMostWindow),        PLAY(MessageBox),
      PLAY(SetWindowTopPos),       PLAY(SetPopupWindow),         PLAY(SetToolWindow),
      PLAY(GetWindowArea),         PLAY(PtInGridAvailRect),      PLAY(PtInGridCell)};
};

// The windows, the function, its arguments; the answer, and behind it the system's calls.
TEST_F(WindowServices, AnswerAndCallTheSystem) {
  for (const auto& cells : Lines(
#include "utility/WindowServices.txt"
           )) {
    SCOPED_TRACE(cells.front());
    platform.windows.windows.clear();
    platform.windows.calls.clear();
    Arrange(cells.at(1));
    std::string answer = functions.at(cells.at(2))({cells.begin() + 3, cells.end() - 1});
    for (const std::string& call : platform.windows.calls)
      answer += (answer.empty() ? "" : "; ") + call;
    EXPECT_EQ(answer, cells.back());
  }
  platform.windows.cursorKnown = false;
  EXPECT_FALSE(PtInGridAvailRect(7, 0, 0, 100, 100));
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
    EXPECT_THROW(Security(text), Error) << ToUtf8(text);
}

TEST_F(WindowServices, Log) {
  EXPECT_TRUE(WriteLog(u"Form", u"Load", 1));
  EXPECT_FALSE(WriteLog(u"refuse", u"保存", -2));
  EXPECT_FALSE(WriteLog(u"throw", u"b", 3));
  EXPECT_TRUE(WriteLog(u"a", u"b", 4));
  EXPECT_THAT(platform.entries, testing::ElementsAre("无|Form|Load|1", "无|refuse|保存|-2",
                                                     "无|throw|b|3", "disk full|a|b|4"));
  EXPECT_EQ(platform.logsAsked, 1) << "kept for the thread, failures included";

  std::thread([&] {
    EXPECT_TRUE(WriteLog(u"a", u"b", 5));
    ReleaseThread();
  }).join();
  EXPECT_EQ(platform.logsAsked, 2) << "each thread has its own";

  ReleaseThread();
  const auto works = std::exchange(platform.createLog, [] { return nullptr; });
  EXPECT_FALSE(WriteLog(u"a", u"b", 1));
  platform.createLog = works;
  EXPECT_TRUE(WriteLog(u"a", u"b", 2)) << "asked for again";
  EXPECT_EQ(platform.entries.back(), "There is no log component.|a|b|2");
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
