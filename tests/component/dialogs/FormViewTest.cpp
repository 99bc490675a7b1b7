// The windows of the dialogs alone, on forms of the test's own.
#include <gtest/gtest.h>

#include "DialogPlayer.h"
#include "component/ui/Controls.h"
#include "component/ui/Counted.h"
#include "component/ui/Win32FormView.h"
#include "demo/SampleHost.h"
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
    player.Then([](HWND) { EXPECT_GT(ui::LivingResources(), 0); }).Then(Pick, 1).Then(Close);
    EXPECT_FALSE(list.ShowFilter(player.Handle()));
    player.Then(Close);
    EXPECT_FALSE(frmMultiChoose(view).ShowMultiChoose(RequestWith(3, player)).bOk);
  }
  EXPECT_EQ(ui::LivingResources(), 0);
  SetFormView(before);
}

TEST(FormViewTest, AListOfThousandsIsSearched) {
  static constexpr int kItems = 100000;
  DialogPlayer player;
  ui::Win32FormView view(GetModuleHandleW(nullptr));
  player
      .Then([](HWND dialog) {
        EXPECT_EQ(ListCount(dialog, ID_ALL), kItems);
        LVFINDINFOW letters{};
        letters.flags = LVFI_STRING | LVFI_PARTIAL;
        letters.psz = L"bh7654";
        EXPECT_EQ(SendDlgItemMessageW(dialog, ID_ALL, LVM_FINDITEMW, static_cast<WPARAM>(-1),
                                      reinterpret_cast<LPARAM>(&letters)),
                  7653)
            << "letters typed into the list";
      })
      .Then(Keys, u"99999⏎⏎");
  EXPECT_EQ(frmMultiChoose(view).ShowMultiChoose(RequestWith(kItems, player)).condition,
            u"(编号='编号99999')");
}

}  // namespace
}  // namespace fetchkit::test
