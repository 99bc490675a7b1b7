// Random acts on the forms. Whatever is played: one row a column, of the column's own type, nothing
// of it in the caller's record before OK; and what was confirmed is shown again, and saved.
#include <set>

#include "dialogs/Player.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/listset/Saving.h"
#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fuzz/Fuzz.h"
#include "support/FakeConnection.h"
#include "support/StoredConditions.h"

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

const Answer* AnswerTo(TextView sql) {
  static const Answer codes =
      Rows({u"lngPersonID", u"strPersonCode", u"strPersonName"},
           {{1, u"01", u"张三"}, {12, u"02", u"李四"}, {2, u"03", NullValue()}});
  static const Answer values = Rows({u"strEnumNumber"}, {{u"3"}, {u"4"}, {NullValue()}, {u"所有"}});
  static const Answer none = Refused();
  if (sql.starts_with(u"Begin")) return Done(sql);
  if (sql.find(u"strPersonCode") != Text::npos) return &codes;
  return sql.find(u"EnumTable") != Text::npos ? &values : &none;
}

// Plays as long as the input lasts.
class RandomUser : public FormView {
 public:
  explicit RandomUser(Input& in) : in_(in) {}

  void ShowModal(frmFilter& form, std::int32_t) override {
    for (int act = 0; plays && act < 60 && !in_.AtEnd(); ++act) {
      Act(form);
      CheckRows(form);
      const Control* wish = form.TakeFocusWish();
      EXPECT_TRUE(wish == nullptr || (wish->Visible() && wish->Enabled())) << ToUtf8(wish->Name());
    }
    rows = RowsOf(form.msgFilter, {0, 2, 3, 4});
    form.UserPressedEnter();
    closed = !form.IsOpen();
    if (closed) rows = RowsOf(form.msgFilter, {0, 2, 3, 4});
    std::sort(rows.begin(), rows.end());
  }

  void ShowModal(frmFilterColumn& form, const frmFilter&) override {
    const int all = form.msgAll.AllRows() + form.msgSelected.Rows();
    for (int i = in_.Below(6); i > 0; --i) {
      MSFlexGrid& grid = in_.Bool() ? form.msgAll : form.msgSelected;
      grid.UserSelectedRow(OneOf(grid.Rows()));
      if (in_.Bool()) grid.UserDoubleClickedRow(OneOf(grid.Rows()));
      SelectAndPress(grid);
      SearchIn(form.txtSearch);
      PressMove(form);
      EXPECT_EQ(form.msgAll.AllRows() + form.msgSelected.Rows(), all) << "an item is lost or twice";
    }
    Leave(form);
  }

  void ShowModal(frmMultiChoose& form, std::int32_t) override {
    const std::multiset<Text> before = ItemsOf(form);
    for (int i = in_.Below(12); i > 0; --i) {
      ListBox& list = in_.Bool() ? form.lstAll : form.lstSelected;
      const int item = OneOf(list.ListCount());
      in_.Bool() ? list.UserSelectedRow(item) : list.UserDoubleClickedRow(item);
      SelectAndPress(list);
      form.lstAll.extent = {50, in_.Below(3), 8, in_.Below(3)};
      form.lstAll.UserMovedPointer(in_.Byte() - 10);
      form.cmdSerial[static_cast<std::size_t>(in_.Below(2))].UserPressed();
      const std::vector<Text> ordered = form.lstAll.Items();
      const int chosenNow = form.lstSelected.ListCount();
      SearchIn(form.txtSearch);
      EXPECT_TRUE(form.lstSelected.ListCount() > chosenNow || form.lstAll.Items() == ordered)
          << "a search changes the order";
      CheckShown(form);
      PressMove(form);
      EXPECT_EQ(ItemsOf(form), before) << "an item is lost or twice";
    }
    chosen = form.lstSelected.ListCount();
    Leave(form);
  }

  bool plays = true;
  bool closed = false;  // by OK
  int chosen = 0;
  std::vector<std::string> rows;

 private:
  // The number of one of them, sometimes of none.
  int OneOf(int count) { return in_.Below(count + 2) - 1; }

  static constexpr RowControl::Key kRowKeys[] = {RowControl::Key::F2, RowControl::Key::Delete,
                                                 RowControl::Key::Space, RowControl::Key::Left,
                                                 RowControl::Key::Right};

  void SelectAndPress(RowControl& list) {
    if (in_.Bool()) list.UserSelectedRows({in_.Below(4) - 1, in_.Below(4), in_.Below(6)});
    if (in_.Below(8) == 7) list.UserSelectedAll();
    if (in_.Bool()) list.UserPressed(kRowKeys[in_.Below(5)]);
  }

  void SearchIn(SearchBox& box) {
    static constexpr TextView kPieces[] = {u"S", u"n", u"z", u"0", u"3", u"张", u"LON", u" "};
    if (in_.Bool()) return box.UserTyped(in_.Pieces(kPieces, 2));
    box.UserPressed(static_cast<SearchBox::Key>(in_.Below(3)));
  }

  // The items that are found, in their order.
  static void CheckShown(frmMultiChoose& form) {
    const ListSearch& search = form.txtSearch.Search();
    std::vector<Text> found, shown;
    for (const Text& item : form.lstAll.Items())
      if (search.Matches(item)) found.push_back(item);
    for (int i = 0; i < form.lstAll.ListCount(); ++i)
      shown.push_back(form.lstAll.List(i));
    EXPECT_EQ(shown, found);
  }

  void PressMove(TwoListForm& form) {
    if (!in_.Bool()) return;
    in_.Pick({&form.cmdRightOne, &form.cmdRightAll, &form.cmdLeftOne, &form.cmdLeftAll})
        ->UserPressed();
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
    static constexpr TextView kPieces[] = {u"5", u"1", u"0", u"x",    u"a'b",
                                           u",", u"-", u" ", u"张三", u"空值"};
    TextBox& box = in_.Bool() ? form.txtFrom : form.txtTo;
    switch (in_.Below(15)) {
      case 0:
      case 1:
        return form.tvwFilter.UserClickedNode(OneOf(10));
      case 2:
      case 3:
      case 4:
        return form.lxtOther.UserPicked(OneOf(form.lxtOther.ListCount()));
      case 5:
      case 6:
        box.UserTyped(in_.Pieces(kPieces, 3));
        if (in_.Below(4) == 3) return box.UserPressedEnter();
        return box.UserLeft(in_.Pick<const Control*>({nullptr, &form.txtTo, &form.txtFrom}));
      case 7:
        return in_.Pick({&form.datFrom, &form.datTo, &form.datDate})
            ->UserChanged(Date{38000.0 + in_.Byte()});
      case 8:
        form.lxtOther.UserTyped(in_.Pieces(kPieces, 1));
        return form.msgFilter.UserSelectedRow(OneOf(form.msgFilter.Rows()));
      case 9:
        form.lxtOther.UserPressed(static_cast<PickCombo::Key>(in_.Below(12)));
        return;
      case 10:
        if (in_.Bool()) return form.cmdChoose.UserPressed();
        return form.datDate.UserTicked(in_.Bool());
      case 11:
        return form.msgFilter.UserPressed(RowControl::Key::F2);
      case 12:
      case 13:
        return SearchIn(form.txtSearch);
      default:
        if (in_.Below(8) == 7) return form.cmdOk[2].UserPressed();
        return form.msgFilter.UserPressed(RowControl::Key::Delete);
    }
  }

  static void CheckRows(frmFilter& form) {
    static const ListType kList = AnyList();
    std::set<Text> fields;
    for (int row = 1; row < form.msgFilter.Rows(); ++row) {
      const Text& index = form.msgFilter.TextMatrix(row, 0);
      EXPECT_TRUE(fields.insert(index).second) << "two rows of one column";
      const auto field = static_cast<std::size_t>(LeadingNumber(index));
      EXPECT_EQ(form.msgFilter.TextMatrix(row, 3), kList.ListField.at(field).strFieldType);
      EXPECT_NE(form.msgFilter.TextMatrix(row, 2), u"");
    }
    // Tree and grid are one, except that a search may hide the column.
    const auto& nodes = form.tvwFilter.Nodes();
    const int selected = form.tvwFilter.SelectedItem();
    EXPECT_TRUE(form.txtSearch.IsSearching() || (selected >= 0 && nodes.size() == 10u));
    if (selected < 0) return;
    const TreeView::Node& node = nodes[static_cast<std::size_t>(selected)];
    if (const int row = form.msgFilter.Row(); row >= 0) {
      EXPECT_EQ(form.msgFilter.TextMatrix(row, 0), Join(node.Tag));
    } else {
      EXPECT_FALSE(node.Bold);
    }
  }

  Input& in_;
};

// A condition that the dialog left is read back as it was saved, and says the same in SQL.
void CheckStored(const ListFieldType& field) {
  const FieldType& type = *FieldTypeOf(field.strFieldType);
  const FieldType::Editor editor = type.EditedBy();
  ConditionContext context;
  context.dateRange = [](TextView, Text&, Text&) { return false; };
  ListFieldType again = field;
  const Text sql = RestoreCondition(ReadBack(field), context, again);
  // A date word without a code reads back as its dates.
  if (editor == FieldType::Editor::Periods && CondStrToNum(field.strFilter).empty())
    again.strFilter = field.strFilter;
  EXPECT_EQ(again, field) << ToUtf8(field.strFilter) << "\n" << ToUtf8(again.strFilter);
  const Text predicate = type.Predicate(field, field.strFilter, field.strExtValue);
  EXPECT_TRUE(IsWellFormed(sql) && IsWellFormed(predicate)) << ToUtf8(sql + predicate);
  // Those of choices and of nothing are written in other words.
  if (editor == FieldType::Editor::Codes || editor == FieldType::Editor::Values ||
      field.strFilter == words::kNull || field.strFilter == words::kZeroOrNull)
    return;
  const auto squeezed = [](TextView text) {
    return ToUtf8(ReplaceText(UpperAscii(text), u" ", u""));
  };
  EXPECT_EQ(squeezed(sql), squeezed(predicate));
}

// What the dialog left is set again by its words.
void CheckTold(const ListType& list) {
  ListSet from, to;
  from.List(list);
  to.List(AnyList());
  for (const Text& each : from.Conditions()) {
    const std::size_t tab = each.find(u'\t');
    Text reason;
    EXPECT_TRUE(to.SetCondition(each.substr(0, tab), each.substr(tab + 1), reason))
        << ToUtf8(each + u": " + reason);
  }
  EXPECT_EQ(to.List().ListField, list.ListField);
}

void CheckFilter(RandomUser& user, FakeConnection& host) {
  Session& session = MAction::CurrentSession();
  ListType list = AnyList();
  Text where;
  const bool confirmed = frmFilter(session, user).ShowFilter(list, where, 0);
  EXPECT_EQ(confirmed, user.closed);
  if (!confirmed) {
    EXPECT_EQ(list, AnyList());
    return;
  }
  for (const ListFieldType& field : list.ListField)
    if (!field.strFilter.empty()) CheckStored(field);
  CheckTold(list);
  host.TakeSent();
  MListSet::SaveConditions(session, list);
  const auto sent = host.TakeSent();
  EXPECT_EQ(sent.size(), 1u);
  EXPECT_TRUE(IsWellFormed(FromUtf8(sent[0]))) << sent[0];

  const auto rows = user.rows;
  user.plays = false;
  Text again;
  EXPECT_TRUE(frmFilter(session, user).ShowFilter(list, again, 0));
  EXPECT_EQ(user.rows, rows);
  EXPECT_EQ(again.size(), where.size()) << ToUtf8(again) << "\n" << ToUtf8(where);
}

void CheckMultiChoose(Input& in, RandomUser& user) {
  static constexpr TextView kItems[] = {u"a", u"b", u"张三", u"c d", u"7"};
  ValueArray items{true, 0, {u"skipped"}};
  for (int i = in.Below(6); i > 0; --i)
    items.items.emplace_back(in.Pieces(kItems, 2));
  SetFormView(&user);
  Text shown = u"before";
  bool ok = false;
  const Text condition =
      ListSet().ShowMultiChoose(nullptr, u"n", in.Bool() ? TextView() : TextView(u"(n='a')"), shown,
                                true, Value(items), ok, 0);
  EXPECT_EQ(CountUnit(condition, u'\''), ok ? 2u * static_cast<unsigned>(user.chosen) : 0u);
  EXPECT_TRUE(ok || (condition.empty() && shown == u"before"));
}

}  // namespace

FUZZ_TARGET(Forms) {
  const auto host = std::make_shared<FakeConnection>();
  host->fallback = AnswerTo;
  Session& session = MAction::CurrentSession();
  session.Connection = host;
  session.LoginDate = u"2004-03-17";
  RandomUser user(in);
  if (in.Below(4) == 3)
    CheckMultiChoose(in, user);
  else
    CheckFilter(user, *host);
}

}  // namespace fetchkit::test
