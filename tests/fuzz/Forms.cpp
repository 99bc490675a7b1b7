// Random acts on the forms. Whatever is played: one row a column, of the column's own type, nothing
// of it in the caller's record before OK; and what was confirmed is shown again, and saved.
#include <set>

#include "dialogs/Player.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/listset/Saving.h"
#include "fuzz/Fuzz.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

ListType AnyList() {
  ListType list;
  list.lngListID = 70;
  for (const TextView type : {u"STRING", u"LONG", u"DOUBLE", u"BOOLEAN", u"PERIOD", u"DATE",
                              u"CODE", u"ENUM", u"MONEY", u"INTEGER"}) {
    ListFieldType& field = list.ListField.emplace_back();
    field.blnIsFilter = true;
    field.strFieldType = field.strListFieldDesc = field.strPath = Text(type);
    field.strFieldName = u"c";
    field.strTableName = u"P";
    field.strKeyField = u"Person";
  }
  return list;
}

std::shared_ptr<FakeConnection> Host() {
  auto host = std::make_shared<FakeConnection>();
  host->fallback = [](TextView sql) {
    static const Answer codes =
        Rows({u"lngPersonID", u"strPersonCode", u"strPersonName"},
             {{1, u"01", u"张三"}, {12, u"02", u"李四"}, {2, u"03", NullValue()}});
    static const Answer values = Rows({u"strEnumNumber"}, {{u"3"}, {u"4"}, {u"所有"}});
    static const Answer none = Refused();
    static const Answer done;
    if (sql.starts_with(u"Begin")) return &done;
    if (sql.find(u"strPersonCode") != Text::npos) return &codes;
    return sql.find(u"EnumTable") != Text::npos ? &values : &none;
  };
  return host;
}

// Plays as long as the input lasts.
class RandomUser : public FormView {
 public:
  explicit RandomUser(Input& in) : in_(in) {}

  void ShowModal(frmFilter& form, std::int32_t) override {
    if (acts) PlayFilter(form);
    rows = RowsOf(form.msgFilter, {0, 2, 3, 4});
    form.UserPressedEnter();
    closed = !form.IsOpen();
    if (closed) rows = RowsOf(form.msgFilter, {0, 2, 3, 4});
    std::sort(rows.begin(), rows.end());
  }

  void ShowModal(frmFilterColumn& form, const frmFilter&) override {
    const int all = form.msgAll.Rows() + form.msgSelected.Rows();
    for (int i = in_.Below(6); i > 0; --i) {
      MSFlexGrid& grid = in_.Bool() ? form.msgAll : form.msgSelected;
      grid.UserSelectedRow(Row(grid));
      if (in_.Bool()) grid.UserDoubleClickedRow(Row(grid));
      PressMove(form);
      EXPECT_EQ(form.msgAll.Rows() + form.msgSelected.Rows(), all) << "an item is lost or twice";
    }
    Leave(form);
  }

  void ShowModal(frmMultiChoose& form, std::int32_t) override {
    std::multiset<Text> before = ItemsOf(form);
    for (int i = in_.Below(12); i > 0; --i) {
      ListBox& list = in_.Bool() ? form.lstAll : form.lstSelected;
      const int item = in_.Below(list.ListCount() + 2) - 1;
      in_.Bool() ? list.UserSelected(item) : list.UserDoubleClicked(item);
      form.lstAll.extent = {50, in_.Below(3), 8, in_.Below(3)};
      form.lstAll.UserMovedPointer(in_.Byte() - 10);
      form.cmdSerial[static_cast<std::size_t>(in_.Below(2))].UserPressed();
      PressMove(form);
      EXPECT_EQ(ItemsOf(form), before) << "an item is lost or twice";
    }
    chosen = form.lstSelected.ListCount();
    Leave(form);
  }

  bool acts = true;
  bool closed = false;  // by OK
  int chosen = 0;
  std::vector<std::string> rows;

 private:
  int Row(const MSFlexGrid& grid) { return in_.Below(grid.Rows() + 2) - 1; }

  void PressMove(TwoListForm& form) {
    CommandButton* const buttons[] = {&form.cmdRightOne, &form.cmdRightAll, &form.cmdLeftOne,
                                      &form.cmdLeftAll};
    if (in_.Bool()) buttons[in_.Below(4)]->UserPressed();
  }

  void Leave(Form& form) {
    switch (in_.Below(4)) {
      case 0:
        return form.UserPressedEscape();
      case 1:
        return form.UserClosed();
      default:
        return form.UserPressedEnter();
    }
  }

  static std::multiset<Text> ItemsOf(const frmMultiChoose& form) {
    std::multiset<Text> items(form.lstAll.Items().begin(), form.lstAll.Items().end());
    items.insert(form.lstSelected.Items().begin(), form.lstSelected.Items().end());
    return items;
  }

  void Act(frmFilter& form) {
    static constexpr TextView kPieces[] = {u"5", u"1", u"0", u"x",   u"a'b",
                                           u",", u"-", u" ", u"张三"};
    TextBox& box = in_.Bool() ? form.txtFrom : form.txtTo;
    const Date date{38000.0 + in_.Byte()};
    switch (in_.Below(12)) {
      case 0:
      case 1:
        return form.tvwFilter.UserClickedNode(in_.Below(12) - 1);
      case 2:
      case 3:
      case 4:
        return form.lxtOther.UserPicked(in_.Below(form.lxtOther.ListCount() + 2) - 1);
      case 5:
      case 6:
        return box.UserTyped(in_.Pieces(kPieces, 3));
      case 7:
        return box.UserLeft(in_.Pick<const Control*>({nullptr, &form.txtTo, &form.txtFrom}));
      case 8:
        return box.UserPressedEnter();
      case 9:
        return in_.Pick({&form.datFrom, &form.datTo, &form.datDate})->UserChanged(date);
      case 10:
        form.lxtOther.UserTyped(in_.Pieces(kPieces, 1));
        return form.msgFilter.UserSelectedRow(Row(form.msgFilter));
      default:
        if (in_.Below(8) == 7) return form.cmdOk[2].UserPressed();
        return form.msgFilter.UserPressedDelete();
    }
  }

  void PlayFilter(frmFilter& form) {
    const ListType all = AnyList();
    for (int act = 0; act < 60 && !in_.AtEnd(); ++act) {
      Act(form);
      std::set<Text> fields;
      for (int row = 1; row < form.msgFilter.Rows(); ++row) {
        const Text& index = form.msgFilter.TextMatrix(row, 0);
        EXPECT_TRUE(fields.insert(index).second) << "two rows of one column";
        const auto& field = all.ListField.at(static_cast<std::size_t>(std::stoi(ToUtf8(index))));
        EXPECT_EQ(form.msgFilter.TextMatrix(row, 3), field.strFieldType);
        EXPECT_NE(form.msgFilter.TextMatrix(row, 2), u"");
      }
      if (const Control* wish = form.TakeFocusWish()) {
        EXPECT_TRUE(wish->Visible() && wish->Enabled()) << ToUtf8(wish->Name());
      }
    }
  }

  Input& in_;
};

void CheckFilter(Input& in, const std::shared_ptr<FakeConnection>& host) {
  Session& session = MAction::CurrentSession();
  RandomUser user(in);
  ListType list = AnyList();
  Text where;
  const bool confirmed = frmFilter(session, user).ShowFilter(list, where, 0);
  EXPECT_EQ(confirmed, user.closed);
  if (!confirmed) {
    EXPECT_EQ(list, AnyList());
    return;
  }
  const auto rows = user.rows;
  host->TakeSent();
  MListSet::SaveConditions(session, list);
  const auto sent = host->TakeSent();
  EXPECT_EQ(sent.size(), 1u);
  EXPECT_EQ(std::count(sent[0].begin(), sent[0].end(), '\'') % 2, 0) << sent[0];

  user.acts = false;
  Text again;
  EXPECT_TRUE(frmFilter(session, user).ShowFilter(list, again, 0));
  EXPECT_EQ(user.rows, rows);
  EXPECT_EQ(again.size(), where.size()) << ToUtf8(again) << "\n" << ToUtf8(where);
}

void CheckMultiChoose(Input& in) {
  static constexpr TextView kItems[] = {u"a", u"b", u"张三", u"c d", u"7"};
  ValueArray items{true, 0, {u"skipped"}};
  for (int i = in.Below(6); i > 0; --i)
    items.items.emplace_back(in.Pieces(kItems, 2));
  RandomUser user(in);
  SetFormView(&user);
  Text shown = u"before";
  bool ok = false;
  const Text condition =
      ListSet().ShowMultiChoose(nullptr, u"n", in.Bool() ? TextView() : TextView(u"(n='a')"), shown,
                                true, Value(items), ok, 0);
  SetFormView(nullptr);
  if (!ok) {
    EXPECT_TRUE(condition.empty() && shown == u"before");
    return;
  }
  EXPECT_EQ(CountUnit(condition, u'\''), 2u * static_cast<unsigned>(user.chosen));
}

}  // namespace

FUZZ_TARGET(Forms) {
  const auto host = Host();
  Session& session = MAction::CurrentSession();
  session.Connection = host;
  session.LoginDate = u"2004-03-17";
  if (in.Below(4) == 3)
    CheckMultiChoose(in);
  else
    CheckFilter(in, host);
}

}  // namespace fetchkit::test
