// The dialogs in their windows, opened through FetchKit.dll by a host with the sample accounts.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <vector>

#include "DialogPlayer.h"
#include "component/support/Component.h"
#include "component/ui/Controls.h"
#include "demo/SampleHost.h"

namespace fetchkit::test {
namespace {

// Rows of the pickers.
enum Row { kNone = -1, kEqual = 4, kBetween = 8, kThisYear = 17 };

class WindowsTest : public testing::Test {
 protected:
  WindowsTest() {
    host_.Switch("main");
    auto connection = hosts::ConnectionObjectOf(host_.connection()).As<IDispatch>(IID_IDispatch);
    EXPECT_EQ(entry_->Initialize(connection.InOut()), S_OK);
    EXPECT_EQ(list_->put_ViewId(101), S_OK);
  }

  bool ShowFilter() {
    VARIANT_BOOL confirmed = VARIANT_FALSE;
    EXPECT_EQ(list_->ShowFilter(player_.Handle(), &confirmed), S_OK);
    EXPECT_TRUE(player_.IsDone());
    EXPECT_TRUE(IsWindowEnabled(player_.owner()));
    return confirmed != VARIANT_FALSE;
  }

  Text Where() { return GetText(list_, &IListSet::get_ListPureWhere); }

  // A condition by hand: the column in the tree, the row of the picker, the values.
  void Enter(TextView column, int row, TextView from = {}, TextView to = {}) {
    player_.Then(ClickNode, column);
    if (row != kNone) player_.Then(Pick, row);
    if (!from.empty()) player_.Then(Type, ID_TXT_FROM, from);
    if (!to.empty()) player_.Then(Type, ID_TXT_TO, to);
  }

  Text ShowMultiChoose(TextView sql, TextView choosed) {
    RecordsetPtr rows;
    EXPECT_TRUE(host_.connection()->OpenStaticRecordset(sql, rows, 3, 1, 1, 0));
    const auto object = ComPtr<ado::Recordset>::Attach(ShellOf<hosts::RecordsetObject>(rows));
    Bstr condition;
    Bstr shown;
    VARIANT_BOOL ok = VARIANT_FALSE;
    VARIANT none;
    VariantInit(&none);
    EXPECT_EQ(
        list_->ShowMultiChoose(object.get(), Bstr(u"部门").get(), Bstr(choosed).get(), shown.Out(),
                               VARIANT_FALSE, none, &ok, player_.Handle(), condition.Out()),
        S_OK);
    EXPECT_TRUE(player_.IsDone());
    EXPECT_EQ(ok != VARIANT_FALSE, !condition.view().empty());
    host_.connection()->CloseRecordset(rows);
    shown_ = shown.view();
    return Text(condition.view());
  }

  demo::SampleHost host_;
  ComPtr<IInterface> entry_ = CreateInterface();
  ComPtr<IListSet> list_ = Create<IListSet>(CLSID_ListSet, IID_IListSet);
  DialogPlayer player_;
  Text shown_;
};

TEST_F(WindowsTest, AUserSetsConditionsOfEveryKindByHand) {
  Text shown;
  player_.Then(Click, ID_CMD_CLEAR).Then([](HWND dialog) {
    EXPECT_EQ(ListCount(dialog, ID_MSG_FILTER), 0);
    EXPECT_FALSE(IsWindowEnabled(GetParent(dialog)));
  });
  const std::tuple<TextView, int, TextView, TextView, const char*> conditions[] = {
      {u"摘要", kEqual, u"差旅费", u"", "text"},    {u"金额", kBetween, u"100", u"5000", "between"},
      {u"凭证日期", kThisYear, u"", u"", "period"}, {u"复核日期", kNone, u"", u"", "date"},
      {u"制单人", 1, u"", u"", "enumeration"},
  };
  for (const auto& [column, row, from, to, picture] : conditions) {
    Enter(column, row, from, to);
    player_.Then(KeepPicture, picture);
  }
  player_.Then(ClickNode, u"部门")
      .Then(Type, ID_LXT_OTHER, u"02")
      .Then([](HWND dialog) {
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        GetComboBoxInfo(GetDlgItem(dialog, ID_LXT_OTHER), &parts);
        EXPECT_TRUE(IsWindowVisible(parts.hwndList)) << "typing shows where it leads";
        EXPECT_NE(GetWindowLongPtrW(parts.hwndList, GWL_STYLE) & LBS_NODATA, 0)
            << "however long, it is there at once";
        wchar_t row[32] = {};
        EXPECT_EQ(SendMessageW(parts.hwndList, LB_GETTEXT, 2, reinterpret_cast<LPARAM>(row)), 6);
        EXPECT_STREQ(row, L"02 销售部");
        KeepPicture(parts.hwndList, "picker");
      })
      .Then(Keys, u"⏎")
      .Then(KeepPicture, "code")
      // The picker's last entry opens the chooser, over this dialog.
      .Then(Keys, u"↓⇲⏎")
      .Then(Keys, u"02")
      .Then([](HWND chooser) {
        KeepPicture(chooser, "chooser-search");
        EXPECT_EQ(ListCount(chooser, ID_SELECTED), 1);
        EXPECT_EQ(TextIn(chooser, ID_LBL_ALL_COUNT), u"找到 3 项，共 6 项");
      })
      .Then(Keys, u"⎋")
      .Then(Type, ID_ALL, u"␣→")
      .Then([](HWND chooser) {
        KeepPicture(chooser, "chooser");
        EXPECT_EQ(ListCount(chooser, ID_SELECTED), 3);
      })
      .Then(Resize, -5000, -5000)
      .Then(KeepPicture, "smallest-chooser")
      .Then(Click, IDOK)
      .Then(Type, ID_TXT_SEARCH, u"je")
      .Then(KeepPicture, "search")
      .Then(Keys, u"⎋")
      .Then([&](HWND dialog) {
        for (int row = 0; row < ListCount(dialog, ID_MSG_FILTER); ++row)
          shown += ListCell(dialog, ID_MSG_FILTER, row, 0) + u"=" +
                   ListCell(dialog, ID_MSG_FILTER, row, 1) + u"; ";
      })
      .Then(Click, IDOK);
  EXPECT_TRUE(ShowFilter());
  EXPECT_EQ(shown,
            u"摘要=等于 差旅费; 金额=介于 100,5000; 凭证日期=本年; 制单人=吴海波; 部门=销售部 "
            u"国内销售科 国际业务科; ");
  EXPECT_EQ(Where(),
            u"VoucherDetail.strSummary = '差旅费'"
            u" And (VoucherDetail.dblDebit+VoucherDetail.dblCredit > 100"
            u" And VoucherDetail.dblDebit+VoucherDetail.dblCredit < 5000)"
            u" And (Voucher.strDate >= '2004-01-01' And Voucher.strDate <= '2004-12-31')"
            u" And Operator.strOperatorName = '吴海波'"
            u" And Department.lngDEPARTMENTID In(4,5,6)");
}

TEST_F(WindowsTest, TheKeyboardReachesEverything) {
  std::vector<int> walked;
  Enter(u"摘要", kBetween);
  player_.Then(Focus, ID_TXT_SEARCH);
  for (int step = 0; step < 9; ++step)
    player_.Then([&](HWND dialog) { walked.push_back(FocusId(dialog)); }).Then(Keys, u"⇥");
  Enter(u"摘要", kEqual);
  for (const TextView key : {u"⎇F", u"⎇M", u"⎇T", u"⎇V", u"⎇H"})
    player_.Then(Keys, key).Then([&](HWND dialog) { walked.push_back(FocusId(dialog)); });
  player_.Then(Keys, u"⎋");
  EXPECT_FALSE(ShowFilter());
  EXPECT_EQ(walked,
            (std::vector<int>{ID_TXT_SEARCH, ID_TVW_FILTER, ID_LXT_OTHER, ID_TXT_FROM, ID_TXT_TO,
                              ID_MSG_FILTER, ID_CMD_CLEAR, IDOK, IDCANCEL, ID_TXT_SEARCH,
                              ID_TVW_FILTER, ID_LXT_OTHER, ID_TXT_FROM, ID_MSG_FILTER}));
}

TEST_F(WindowsTest, ADialogKeepsItsSizeAndNothingIsCutAtTheSmallest) {
  SIZE left{};
  const auto sizeOf = [](HWND dialog) {
    RECT place{};
    GetWindowRect(dialog, &place);
    return SIZE{place.right - place.left, place.bottom - place.top};
  };
  player_.Then(Resize, 200, 120).Then(KeepPicture, "resized").Then([&](HWND dialog) {
    left = sizeOf(dialog);
    RECT list{};
    SendDlgItemMessageW(dialog, ID_LXT_OTHER, CB_GETDROPPEDCONTROLRECT, 0,
                        reinterpret_cast<LPARAM>(&list));
    EXPECT_GT(list.bottom - list.top, 100) << "the picker's list keeps its height";
    Close(dialog);
  });
  EXPECT_FALSE(ShowFilter());
  player_
      .Then([&](HWND dialog) {
        EXPECT_EQ(sizeOf(dialog).cx, left.cx);
        EXPECT_EQ(sizeOf(dialog).cy, left.cy);
      })
      .Then(Resize, -5000, -5000);
  Enter(u"金额", kBetween);
  player_.Then(KeepPicture, "smallest");
  Enter(u"凭证日期", kThisYear);
  player_.Then(KeepPicture, "smallest-period").Then(ClickNode, u"部门");
  player_.Then(KeepPicture, "smallest-code");
  player_.Then([&](HWND dialog) {
    Resize(dialog, left.cx - 200 - sizeOf(dialog).cx, left.cy - 120 - sizeOf(dialog).cy);
  });
  player_.Then(Keys, u"⎋");
  EXPECT_FALSE(ShowFilter());
}

TEST_F(WindowsTest, DepartmentsAreChosenAndOrdered) {
  // Code and name stand in the order in which the statement names them.
  constexpr TextView kNameAndCode =
      u"SELECT strDepartmentName AS strName,strDepartmentCode AS strCode FROM Department "
      u"WHERE blnIsInActive = 0 AND strDepartmentCode <> ' ' ORDER BY strDepartmentCode";
  player_
      .Then([](HWND dialog) {
        EXPECT_EQ(ListCell(dialog, ID_SELECTED, 0, 0), u"国内销售科 02-01");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, ID_CMD_SERIAL_UP)));
        DoubleClickRow(dialog, ID_ALL, 0);
      })
      .Then(ClickRow, ID_ALL, 2)
      .Then(Click, ID_CMD_RIGHT_ONE)
      .Then([](HWND dialog) { EXPECT_EQ(ListCount(dialog, ID_SELECTED), 3); })
      .Then(ClickRow, ID_SELECTED, 1)
      .Then(Click, ID_CMD_SERIAL_UP)
      .Then([](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, ID_CMD_SERIAL_UP)));
        EXPECT_EQ(FocusId(dialog), ID_CMD_SERIAL_DOWN) << "the keyboard goes on";
      })
      .Then(Focus, ID_SELECTED)
      .Then(KeepPicture, "multi-choose")
      .Then(Keys, u"⏎");
  EXPECT_EQ(ShowMultiChoose(kNameAndCode, u"(部门='国内销售科 02-01')"),
            u"(部门='管理部 01' 或 部门='国内销售科 02-01' 或 部门='总工办 010')");
  EXPECT_EQ(shown_, u"管理部 01,国内销售科 02-01,总工办 010");

  player_.Then(Click, ID_CMD_RIGHT_ALL)
      .Then(Resize, -5000, -5000)
      .Then(KeepPicture, "smallest-multi-choose")
      .Then(Click, IDCANCEL);
  EXPECT_EQ(ShowMultiChoose(u"SELECT strDepartmentName AS strName FROM Department", u""), u"");
}

TEST_F(WindowsTest, TheOwnerIsCoveredAndComesBackAndMayGo) {
  SetWindowPos(player_.owner(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  player_.Then([&](HWND dialog) {
    EXPECT_FALSE(IsWindowEnabled(player_.owner()));
    RECT over{};
    RECT place{};
    GetWindowRect(player_.owner(), &over);
    GetWindowRect(dialog, &place);
    // In its middle, unless that would hide an edge of a large dialog.
    const LONG x = (over.left + over.right - (place.right - place.left)) / 2;
    const LONG y = (over.top + over.bottom - (place.bottom - place.top)) / 2;
    EXPECT_NEAR(place.left, std::max(0L, x), 1);
    EXPECT_NEAR(place.top, std::max(0L, y), 1);
    Close(dialog);
  });
  EXPECT_FALSE(ShowFilter());
  EXPECT_EQ(GetActiveWindow(), player_.owner());

  const Text before = Where();
  player_.Then(Click, ID_CMD_CLEAR).Then([&](HWND) {
    PostMessageW(player_.owner(), WM_CLOSE, 0, 0);
  });
  VARIANT_BOOL confirmed = VARIANT_TRUE;
  EXPECT_EQ(list_->ShowFilter(player_.Handle(), &confirmed), S_OK);
  EXPECT_EQ(confirmed, VARIANT_FALSE);
  EXPECT_FALSE(IsWindow(player_.owner()));
  EXPECT_EQ(Where(), before);
}

}  // namespace
}  // namespace fetchkit::test
