// What a user does to the dialogs with mouse and keys, and where that leads.
#include <gtest/gtest.h>

#include <tuple>

#include "DialogPlayer.h"
#include "component/ui/Controls.h"
#include "component/ui/Win32FormView.h"
#include "demo/SampleHost.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::test {
namespace {

constexpr std::pair<int, TextView> kNames[] = {
    {ID_TXT_SEARCH, u"search"}, {ID_TVW_FILTER, u"tree"}, {ID_LXT_OTHER, u"picker"},
    {ID_TXT_FROM, u"from"},     {ID_DAT_DATE, u"date"},   {ID_MSG_FILTER, u"grid"},
    {ID_CMD_CLEAR, u"clear"},
};

// "focus|title|value|rows": the control that has the focus, with an "*" while the picker's list is
// open; the column being edited; what stands in the value box; the grid with its current row
// marked, or the number of that where there are many.
Text StateOf(HWND dialog) {
  const auto shown = [dialog](int id) {
    return IsWindowVisible(GetDlgItem(dialog, id)) ? TextIn(dialog, id) : Text();
  };
  Text state;
  for (const auto& [id, name] : kNames)
    if (FocusId(dialog) == id) state = name;
  if (SendDlgItemMessageW(dialog, ID_LXT_OTHER, CB_GETDROPPEDSTATE, 0, 0) != 0) state += u'*';
  state += Join(u"|", shown(ID_LBL_TITLE), u"|", shown(ID_TXT_FROM), u"|");
  const HWND grid = GetDlgItem(dialog, ID_MSG_FILTER);
  const int rows = ListCount(dialog, ID_MSG_FILTER);
  if (rows > 9) state += Join(ListView_GetNextItem(grid, -1, LVNI_SELECTED));
  for (int row = 0; rows <= 9 && row < rows; ++row) {
    if (row > 0) state += u"; ";
    if (ListView_GetItemState(grid, row, LVIS_SELECTED) != 0) state += u'>';
    state +=
        ListCell(dialog, ID_MSG_FILTER, row, 0) + u" " + ListCell(dialog, ID_MSG_FILTER, row, 1);
  }
  return state;
}

void Expect(HWND dialog, const Text& what, const Text& state) {
  EXPECT_EQ(ToUtf8(StateOf(dialog)), ToUtf8(state)) << ToUtf8(what);
}

class RealInput : public testing::Test {
 protected:
  RealInput() {
    host_.Switch("main");
    entry_.Initialize(host_.connection());
    const std::tuple<TextView, TextView, TextView> columns[] = {
        {u"摘要", u"STRING", u""}, {u"贷方金额", u"DOUBLE", u""}, {u"停用", u"BOOLEAN", u""},
        {u"期间", u"PERIOD", u""}, {u"日期", u"DATE", u""},       {u"部门", u"CODE", u"DEPARTMENT"},
        {u"制单人", u"ENUM", u""},
    };
    for (const auto& [caption, type, key] : columns)
      Add(caption, type).strKeyField = key;
  }

  ListFieldType& Add(TextView caption, TextView type) {
    ListFieldType field;
    field.blnIsFilter = true;
    field.strListFieldDesc = caption;
    field.strFieldType = type;
    field.strFieldName = u"x";
    list_.ListField.push_back(field);
    return list_.ListField.back();
  }

  void Set(std::size_t field, TextView shown, TextView machine) {
    list_.ListField[field].strFilter = shown;
    list_.ListField[field].strExtValue = machine;
  }

  // An act, and where it leads.
  template <class Played, class... Arguments>
  void Leads(TextView state, TextView what, Played act, Arguments... arguments) {
    player_.Then(act, arguments...).Then(Expect, Text(what), Text(state));
  }

  bool Show() {
    const bool confirmed =
        frmFilter(MAction::CurrentSession(), view_).ShowFilter(list_, where_, player_.Handle());
    EXPECT_TRUE(player_.IsDone());
    return confirmed;
  }

  DialogPlayer player_;
  ui::Win32FormView view_{GetModuleHandleW(nullptr)};
  demo::SampleHost host_;
  Interface entry_;
  ListType list_;
  Text where_;
};

TEST_F(RealInput, ThirteenKeysSetACondition) {
  constexpr TextView kKeys = u"dfje⏎↓↓↓⏎5000";
  EXPECT_EQ(kKeys.size(), 13U);
  Leads(u"from|贷方金额|5000|", u"the keys", Keys, kKeys);
  player_.Then(Keys, u"⏎");
  EXPECT_TRUE(Show());
  EXPECT_EQ(list_.ListField[1].strFilter, u"大于 5000");
}

TEST_F(RealInput, ASearchShowsWhatItFindsAndLetsGo) {
  Leads(u"search|摘要||", u"nothing is found", Keys, u"zz⏎↓");
  player_.Then(KeepPicture, "nothing").Then([](HWND dialog) {
    EXPECT_EQ(TreeView_GetCount(GetDlgItem(dialog, ID_TVW_FILTER)), 0U);
  });
  Leads(u"search|摘要||", u"Escape empties the box", Keys, u"⎋bm");
  player_.Then(Focus, ID_TVW_FILTER);
  Leads(u"tree|摘要||", u"a tree without the current column chooses none", Keys, u"⇧⇥⇥");
  Leads(u"tree|部门||", u"Down chooses", Keys, u"⇧⇥↓");
  Leads(u"picker|制单人||", u"Enter opens what begins so", Keys, u"⇧⇥⌫⌫zdr⏎");
  player_.Then(Focus, ID_TXT_SEARCH).Then(Keys, u"x⎋⎋");
  EXPECT_FALSE(Show());
  player_.Then(Keys, u"⏎");
  EXPECT_TRUE(Show());
}

TEST_F(RealInput, WithARefusedValueEverythingAnswersAtOnce) {
  Set(1, u"大于 7", u"7");
  const auto refuse = [this] {
    player_.Then(ClickNode, u"贷方金额").Then(Click, ID_TXT_FROM);
    Leads(u"from|贷方金额|X|>贷方金额 大于 7", u"refused", Keys, u"⇱⇧⇲X");
  };
  refuse();
  Leads(u"grid|贷方金额|X|>贷方金额 大于 7", u"going on", Keys, u"⇥");
  Leads(u"from|贷方金额|X|>贷方金额 大于 7", u"OK", Click, IDOK);
  player_.Then(KeepPicture, "refused");
  Leads(u"from|贷方金额|Y|>贷方金额 大于 7", u"all of it was selected", Keys, u"Y");
  Leads(u"picker*|贷方金额|Y|>贷方金额 大于 7", u"picker", Click, ID_LXT_OTHER);
  Leads(u"picker|贷方金额|Y|>贷方金额 大于 7", u"its list closes", Keys, u"⎋");
  Leads(u"tree|摘要||贷方金额 大于 7", u"tree", ClickNode, u"摘要");
  refuse();
  Leads(u"clear|贷方金额||", u"clear", Click, ID_CMD_CLEAR);
  player_.Then(Click, IDCANCEL);
  EXPECT_FALSE(Show());
  refuse();
  player_.Then(Keys, u"⎋");
  EXPECT_FALSE(Show());
  refuse();
  player_.Then(ClickCloseButton);
  EXPECT_FALSE(Show());
  EXPECT_EQ(list_.ListField[1].strFilter, u"大于 7");
}

TEST_F(RealInput, APickerThatIsPassedChoosesNothing) {
  const std::tuple<std::size_t, TextView, TextView> conditions[] = {
      {0, u"等于 a", u"a"},    {1, u"大于 7", u"7"},
      {2, u"是", u"是"},       {3, u"本月", u"2004-03-01,2004-03-31"},
      {5, u"甲 乙", u"1,2,4"}, {6, u"丙,丁", u"1,'丙','丁'"},
  };
  for (const auto& [field, shown, machine] : conditions) {
    for (ListFieldType& each : list_.ListField)
      each.strFilter.clear();
    Set(field, shown, machine);
    const Text caption = list_.ListField[field].strListFieldDesc;
    const Text box = field < 2 ? Text(machine) : Text();
    const Text state = Join(u"|", caption, u"|", box, u"|>", caption, u" ", shown);
    player_.Then(ClickNode, caption).Then(Focus, ID_LXT_OTHER);
    Leads(Join(u"picker", state), u"keys", Keys, u"←→⇱⇲⇞⇟");
    Leads(Join(u"picker", state), u"wheel", TurnWheel, ID_LXT_OTHER);
    Leads(Join(u"picker*", state), u"down opens", Keys, u"↓↓↑↑⇲⇱");
    Leads(Join(u"picker", state), u"and takes nothing", Keys, u"⎋");
    player_.Then(Keys, u"⎋");
    EXPECT_FALSE(Show());
  }
}

TEST_F(RealInput, WithAllConditionsTheGridAloneOpensEditors) {
  list_.ListField.clear();
  for (int column = 0; column < 28; ++column) {
    const Text name = Join(u"列", column);
    Add(name, u"STRING");
    if (column < 26) Set(static_cast<std::size_t>(column), Join(u"等于 ", column), Join(column));
  }
  Leads(u"grid|列3|3|3", u"a row", ClickRow, ID_MSG_FILTER, 3);
  Leads(u"tree|||5", u"a column", ClickNode, u"列5");
  player_.Then(KeepPicture, "full");
  Leads(u"grid|列5|5|5", u"its row", ClickRow, ID_MSG_FILTER, 5);
  player_.Then(Resize, -5000, -5000).Then(KeepPicture, "smallest-full");
  Leads(u"tree|||-1", u"a column without a row", ClickNode, u"列27");
  player_.Then(ClickNode, u"列4").Then(Focus, ID_MSG_FILTER);
  Leads(u"from|列4|4|4", u"F2", Keys, u"②");
  Leads(u"from|列8|8|8", u"a double click", DoubleClickRow, ID_MSG_FILTER, 8);
  player_.Then(Focus, ID_MSG_FILTER);
  Leads(u"grid|列9|9|8", u"Delete", Keys, u"⌦");
  Leads(u"tree|列27||-1", u"there is room again", ClickNode, u"列27");
  player_.Then(Keys, u"⎋");
  EXPECT_FALSE(Show());
}

TEST_F(RealInput, PicturesAndListsFollowTheColorsOfTheSystem) {
  static constexpr INT kWindow = COLOR_WINDOW;
  const COLORREF before = GetSysColor(kWindow);
  COLORREF changed = RGB(0, 0, 120);
  player_.Then([&](HWND) { SetSysColors(1, &kWindow, &changed); }).Then([&](HWND dialog) {
    const HDC device = GetDC(dialog);
    ImageList_Draw(TreeView_GetImageList(GetDlgItem(dialog, ID_TVW_FILTER), TVSIL_NORMAL), 0,
                   device, 0, 0, ILD_NORMAL);
    EXPECT_EQ(GetPixel(device, 0, 0), changed);
    ReleaseDC(dialog, device);
    EXPECT_EQ(ListView_GetBkColor(GetDlgItem(dialog, ID_MSG_FILTER)), changed);
    Close(dialog);
  });
  EXPECT_FALSE(Show());
  SetSysColors(1, &kWindow, &before);
}

TEST_F(RealInput, ADateTakesTheDayThatItShows) {
  player_.Then(ClickNode, u"日期");
  Leads(u"date|日期||>日期 2004-03-17", u"tick", ClickTick, ID_DAT_DATE);
  Leads(u"date|日期||", u"no tick", ClickTick, ID_DAT_DATE);
  player_.Then(Focus, ID_DAT_DATE);
  Leads(u"date|日期||>日期 2004-03-17", u"space", Keys, u"␣");
  Leads(u"date|日期||>日期 2005-03-17", u"another year", Keys, u"→↑");
  Leads(u"date|日期||", u"space again", Keys, u"␣");
  player_.Then(Keys, u"⎋");
  EXPECT_FALSE(Show());
}

}  // namespace
}  // namespace fetchkit::test
