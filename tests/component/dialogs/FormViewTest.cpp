// The windows of the dialogs alone, on forms of the test's own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DialogPlayer.h"
#include "component/ui/Controls.h"
#include "component/ui/Counted.h"
#include "component/ui/Win32FormView.h"
#include "demo/host/SampleHost.h"
#include "fetchkit/dialogs/frmMultiChoose.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::test {
namespace {

MultiChooseRequest RequestWith(int items, const DialogPlayer& player) {
  MultiChooseRequest request;
  request.strCodeName = u"编号";
  request.IsEnum = true;
  ValueArray texts;
  texts.dimensioned = true;
  for (int i = 0; i <= items; ++i) {
    const Text text = Join(u"编号", i);
    texts.items.emplace_back(TextView(text));
  }
  request.arrEnum = Value(std::move(texts));
  request.hWndOwner = player.Handle();
  return request;
}

TEST(FormViewTest, NothingIsLeftBehindHoweverOftenADialogOpens) {
  constexpr int kOpenings = 20;
  DialogPlayer player;
  ui::Win32FormView view(GetModuleHandleW(nullptr));
  demo::SampleHost host;
  host.Switch("main");
  Interface entry;
  entry.Initialize(host.connection());
  ListSet list;
  list.ViewId(101);
  FormView* before = SetFormView(&view);
  ASSERT_EQ(ui::LivingResources(), 0);
  for (int opening = 0; opening < kOpenings; ++opening) {
    player.Then([](HWND dialog) {
      EXPECT_GT(ui::LivingResources(), 0);
      Pick(dialog, 1);
    });
    player.Then([](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); });
    EXPECT_FALSE(list.ShowFilter(player.Handle()));
    player.Then([](HWND dialog) { PostMessageW(dialog, WM_CLOSE, 0, 0); });
    EXPECT_FALSE(frmMultiChoose(view).ShowMultiChoose(RequestWith(3, player)).bOk);
  }
  EXPECT_EQ(ui::LivingResources(), 0);
  SetFormView(before);
}

TEST(FormViewTest, AListOfThousandsFindsByTyping) {
  static constexpr int kItems = 20000;
  DialogPlayer player;
  ui::Win32FormView view(GetModuleHandleW(nullptr));
  player
      .Then([](HWND dialog) {
        EXPECT_EQ(ListCount(dialog, ID_ALL), kItems);
        SetFocus(GetDlgItem(dialog, ID_ALL));
        for (const wchar_t letter : std::wstring(L"编号19999"))
          SendMessageW(GetDlgItem(dialog, ID_ALL), WM_CHAR, letter, 1);
        Press(dialog, ID_CMD_RIGHT_ONE);
      })
      .Then([](HWND dialog) { Press(dialog, IDOK); });
  EXPECT_EQ(frmMultiChoose(view).ShowMultiChoose(RequestWith(kItems, player)).condition,
            u"(编号='编号19999')");
}

// The sample host as a user sees it: another process with two dialogs, one after the other.
class SampleHostProcess {
 public:
  SampleHostProcess() {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    CreatePipe(&output_, &its_, &inherited, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = its_;
    start.hStdError = its_;
    wchar_t command[] = L"FetchKitDemo.exe filter --rows 1";
    EXPECT_TRUE(CreateProcessW(nullptr, command, nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &start, &process_));
    CloseHandle(its_);
  }
  ~SampleHostProcess() {
    TerminateProcess(process_.hProcess, 1);
    for (const HANDLE each : {process_.hProcess, process_.hThread, output_})
      CloseHandle(each);
  }
  SampleHostProcess(const SampleHostProcess&) = delete;
  SampleHostProcess& operator=(const SampleHostProcess&) = delete;

  // Its visible window of that caption; null when it does not come.
  HWND WaitForWindow(const wchar_t* caption) const {
    for (int waited = 0; waited < 60000; waited += 20, Sleep(20)) {
      HWND window = nullptr;
      while ((window = FindWindowExW(nullptr, window, nullptr, caption)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == process_.dwProcessId && IsWindowVisible(window)) return window;
      }
    }
    ADD_FAILURE() << "no such window";
    return nullptr;
  }
  // What it has printed when it has ended.
  std::string Output() const {
    std::string all;
    char part[4096];
    DWORD read = 0;
    while (ReadFile(output_, part, sizeof part, &read, nullptr) && read > 0)
      all.append(part, read);
    return all;
  }

 private:
  HANDLE output_ = nullptr;
  HANDLE its_ = nullptr;
  PROCESS_INFORMATION process_{};
};

TEST(FormViewTest, TheSampleHostOpensTheDialogs) {
  const SampleHostProcess host;
  const HWND filter = host.WaitForWindow(L"筛选");
  PostMessageW(GetDlgItem(filter, ID_CMD_CLEAR), BM_CLICK, 0, 0);
  PostMessageW(GetDlgItem(filter, IDOK), BM_CLICK, 0, 0);
  const HWND choose = host.WaitForWindow(L"选择部门");
  PostMessageW(GetDlgItem(choose, ID_CMD_LEFT_ALL), BM_CLICK, 0, 0);
  PostMessageW(GetDlgItem(choose, IDOK), BM_CLICK, 0, 0);
  const std::string output = host.Output();
  EXPECT_THAT(output, testing::HasSubstr("ShowFilter\tTrue\nListPureWhere\t\n"));
  EXPECT_THAT(output, testing::HasSubstr("bOk\tTrue\ncondition\t\n"));
}

}  // namespace
}  // namespace fetchkit::test
