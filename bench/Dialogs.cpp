// The dialogs, played by a user who types: views of many columns and lists of many codes.
#include <algorithm>
#include <memory>

#include "MadeLists.h"
#include "Pairs.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::bench {
namespace {

class User : public FormView {
 public:
  void ShowModal(frmFilter& form, std::int32_t) override { inFilter(form); }
  void ShowModal(frmFilterColumn&, const frmFilter&) override {}
  void ShowModal(frmMultiChoose& form, std::int32_t) override { inChooser(form); }

  std::function<void(frmFilter&)> inFilter;
  std::function<void(frmMultiChoose&)> inChooser;
};

// Letter by letter, as a search box reports it.
void Type(TextBox& box, TextView text) {
  for (std::size_t length = 1; length <= text.size(); ++length)
    box.UserTyped(text.substr(0, length));
}

ListType ColumnsOf(const std::vector<Text>& captions, TextView type) {
  ListType list;
  for (const Text& caption : captions) {
    ListFieldType& field = list.ListField.emplace_back();
    field.blnIsFilter = true;
    field.strListFieldDesc = caption;
    field.strFieldType = Text(type);
    field.strFieldName = Join(u"c", list.ListField.size());
    field.strTableName = u"T";
    field.strKeyField = u"Customer";
  }
  return list;
}

// The last column, its word and value by keys alone.
Text FilterByKeys(const ListType& before, TextView initials) {
  User user;
  user.inFilter = [initials](frmFilter& form) {
    Type(form.txtSearch, initials);
    form.txtSearch.UserPressed(SearchBox::Key::Enter);
    form.lxtOther.UserTyped(u"dy");
    form.lxtOther.UserPressed(PickCombo::Key::Enter);
    Type(form.txtFrom, u"5000");
    form.UserPressedEnter();
  };
  ListType list = before;
  Text where;
  frmFilter(MAction::CurrentSession(), user).ShowFilter(list, where, 0);
  return where;
}

// The least work to the same end: copies of the record for the dialog and for its result.
Text FilterByHand(const ListType& before, const std::vector<Text>& made, TextView initials) {
  ListType copy = before;
  std::size_t found = 0;
  for (std::size_t length = 1; length <= initials.size(); ++length)
    for (found = 0; found < made.size(); ++found)
      if (made[found].find(initials.substr(0, length)) != Text::npos) break;
  ListType result = copy;
  ListFieldType& field = result.ListField.at(found);
  field.strFilter = u"大于 5000";
  return Join(field.strFieldName, u" > 5000");
}

Value CodeCell(const std::vector<Text>& list, std::size_t row, std::size_t column) {
  switch (column) {
    case 0:
      return static_cast<std::int32_t>(row);
    case 1:
      return list[row].substr(0, 6);
    default:
      return list[row].substr(7);
  }
}

const std::vector<Text> kCodeColumns = {u"lngCustomerID", u"strCustomerCode", u"strCustomerName"};

int OpenCodes(const std::vector<Text>& list) {
  Session& session = MAction::CurrentSession();
  session.Connection = std::make_shared<MadeConnection>([&list](TextView) {
    return std::make_shared<MadeRows>(
        kCodeColumns, list.size(),
        [&list](std::size_t row, std::size_t column) { return CodeCell(list, row, column); });
  });
  User user;
  int count = 0;
  user.inFilter = [&count](frmFilter& form) { count = form.lxtOther.ListCount() - 2; };
  ListType codes = ColumnsOf({u"客户"}, u"CODE");
  Text where;
  frmFilter(session, user).ShowFilter(codes, where, 0);
  return count;
}

int ReadCells(const std::vector<Text>& list) {
  std::vector<Text> cells;
  for (std::size_t row = 0; row < list.size(); ++row)
    for (std::size_t column = 0; column < 3; ++column)
      cells.push_back(ToTextOrEmpty(CodeCell(list, row, column)));
  return static_cast<int>(cells.size() / 3);
}

// A picker with a list of codes and names.
class Codes : public Form {
 public:
  explicit Codes(const std::vector<Text>& list) : Form(u"form", u"") {
    picker.ColumnSet(u"1,2,3");
    for (std::size_t row = 0; row < list.size(); ++row)
      for (std::size_t column = 0; column < 3; ++column)
        cells.push_back(ToTextOrEmpty(CodeCell(list, row, column)));
    picker.SetList(cells);
  }
  void UserPressedEnter() override {}
  void UserPressedEscape() override {}
  void UserClosed() override {}

  // With a list that was never searched.
  int FindFirstTime(TextView typed) {
    picker.SetList({});
    picker.SetList(cells);
    return picker.FindTyped(typed);
  }

  PickCombo picker{*this, u"picker"};
  std::vector<Text> cells;
};

int FindBySorting(const std::vector<Text>& cells, TextView typed) {
  std::vector<Text> copy = cells;
  std::vector<std::pair<Text, int>> texts, names;
  for (std::size_t at = 0; at < copy.size(); at += 3) {
    texts.emplace_back(Join(copy[at + 1], u" ", copy[at + 2]), static_cast<int>(at / 3));
    names.emplace_back(copy[at + 2], static_cast<int>(at / 3));
  }
  std::sort(texts.begin(), texts.end());
  std::sort(names.begin(), names.end());
  return std::lower_bound(texts.begin(), texts.end(), std::pair(Text(typed), 0))->second;
}

// First in what is shown, then in the names.
int FindPrefix(const std::vector<Text>& list, TextView sought) {
  for (const std::size_t from : {0, 7})
    for (std::size_t at = 0; at < list.size(); ++at)
      if (TextView(list[at]).substr(from).starts_with(sought)) return static_cast<int>(at);
  return -1;
}

std::size_t Choose(const std::vector<Text>& list, std::function<void(frmMultiChoose&)> acts) {
  User user;
  user.inChooser = std::move(acts);
  ValueArray items{true, 0, {NullValue()}};
  items.items.insert(items.items.end(), list.begin(), list.end());
  frmMultiChoose form(user);
  return form.ShowMultiChoose({nullptr, u"k", u"", true, Value(std::move(items)), 0})
      .strShowCond.size();
}

std::size_t Size(const std::vector<Text>& chosen) {
  Text condition, shown;
  for (const Text& item : chosen) {
    condition.append(u" 或 k='").append(item).append(u"'");
    if (!shown.empty()) shown.push_back(u',');
    shown.append(item);
  }
  return shown.size();
}

// Takes out of the list what a search for each beginning of the initials leaves.
std::size_t ChooseByHand(const std::vector<Text>& list, const std::vector<Text>& made,
                         TextView initials) {
  std::vector<Value> values(list.begin(), list.end());
  std::vector<Text> items, chosen;
  for (const Value& value : values)
    items.push_back(ToTextOrEmpty(value));
  for (std::size_t length = 1; length <= initials.size(); ++length) {
    chosen.clear();
    for (std::size_t at = 0; at < items.size(); ++at)
      if (made[at].find(initials.substr(0, length)) != Text::npos) chosen.push_back(items[at]);
  }
  return Size(chosen);
}

std::size_t MoveByHand(const std::vector<Text>& list) {
  std::vector<Value> values(list.begin(), list.end());
  std::vector<Text> items, chosen;
  for (const Value& value : values)
    items.push_back(ToTextOrEmpty(value));
  for (int times = 0; times < 3; ++times) {
    for (Text& item : items)
      chosen.push_back(std::move(item));
    items.clear();
    std::swap(items, chosen);
  }
  return Size(items);
}

}  // namespace

void RegisterDialogs() {
  using Texts = std::shared_ptr<const std::vector<Text>>;
  for (const std::size_t columns : {200, 2000}) {
    std::vector<Text> captions = CodesAndNames(columns);
    for (Text& caption : captions)
      caption = caption.substr(7) + caption.substr(0, 6);
    captions.back() = u"贷方余额";
    const Texts made = std::make_shared<std::vector<Text>>(InitialsByIcu(captions));
    const ListType list = ColumnsOf(captions, u"DOUBLE");
    Pair(
        "frmFilter, " + std::to_string(columns) + " columns, one set by keys",
        "by hand, initials made beforehand", [list] { return FilterByKeys(list, u"dfye"); },
        [list, made] { return FilterByHand(list, *made, u"dfye"); });
  }
  for (const std::size_t count : {10000, 100000}) {
    const Texts list = std::make_shared<std::vector<Text>>(CodesAndNames(count));
    const Texts made = std::make_shared<std::vector<Text>>(InitialsByIcu(*list));
    const auto codes = std::make_shared<Codes>(*list);
    const std::string size = std::to_string(count);
    Pair(
        "frmFilter, " + size + " codes, opened", "reading each cell once",
        [list] { return OpenCodes(*list); }, [list] { return ReadCells(*list); });
    Pair(
        "PickCombo, " + size + " codes, first letters", "sorting both columns",
        [codes] { return codes->FindFirstTime(u"105"); },
        [codes] { return FindBySorting(codes->cells, u"105"); });
    Pair(
        "PickCombo, " + size + " codes, by initials", "prefixes, initials made beforehand",
        [codes] { return codes->picker.FindTyped(u"fzfzfzfz"); },
        [made] { return FindPrefix(*made, u"fzfzfzfz"); });
    Pair(
        "frmMultiChoose, " + size + " items, \"kjly\" typed, all chosen",
        "by hand, initials made beforehand",
        [list] {
          return Choose(*list, [](frmMultiChoose& form) {
            Type(form.txtSearch, u"kjly");
            form.cmdRightAll.UserPressed();
            form.UserPressedEnter();
          });
        },
        [list, made] { return ChooseByHand(*list, *made, u"kjly"); });
    Pair(
        "frmMultiChoose, " + size + " items, moved there and back", "std moves",
        [list] {
          return Choose(*list, [](frmMultiChoose& form) {
            form.cmdRightAll.UserPressed();
            form.cmdLeftAll.UserPressed();
            form.cmdRightAll.UserPressed();
            form.UserPressedEnter();
          });
        },
        [list] { return MoveByHand(*list); });
  }
}

}  // namespace fetchkit::bench
