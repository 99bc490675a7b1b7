#include "demo/commands/FilterUsers.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <istream>
#include <string_view>
#include <vector>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/dialogs/FilterSql.h"
#include "fetchkit/platform/Platform.h"

namespace fetchkit::demo {
namespace {

constexpr int kMostListed = 20;

// What no value of a condition can hold.
constexpr std::string_view kNone = "~";
constexpr char kLiteral = '=';

int RowOf(const MSFlexGrid& grid, TextView text) {
  for (int row = 0; row < grid.Rows(); ++row)
    if (grid.TextMatrix(row, 2).ends_with(text)) return row;
  return -1;
}

// The row of a column's condition.
int RowOfNode(const MSFlexGrid& grid, const TreeView::Node& node) {
  const Text index = Join(node.Tag);
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    if (grid.TextMatrix(row, FilterColumns::kFieldIndex) == index) return row;
  return -1;
}

// The grid as its users see it.
void ShowGrid(Console& console, const MSFlexGrid& grid) {
  if (grid.Rows() == grid.FixedRows()) {
    console.Note("no conditions");
    return;
  }
  const auto cell = [&](int row, int col) { return ToUtf8(grid.TextMatrix(row, col)); };
  console.BeginTable({"", cell(0, FilterColumns::kCaption), cell(0, FilterColumns::kText)});
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
    console.Row({fmt::format("{}", row), cell(row, FilterColumns::kCaption),
                 cell(row, FilterColumns::kText)});
  console.EndTable();
}

}  // namespace

// ---- the scripted user

void ScriptedUser::ShowModal(frmFilter& form, std::int32_t) {
  console_.Note("The dialog opens with");
  ShowGrid(console_, form.msgFilter);
  console_.Line("presses " + ToUtf8(form.cmdOk[2].Caption()));
  form.cmdOk[2].UserPressed();
  if (Open(form, u"凭证日期")) Pick(form, u"本季度");
  if (Open(form, u"部门")) Pick(form, frmFilterColumn::kChooseItems);
  if (Open(form, u"金额")) {
    Pick(form, u"大于");
    Value(form, u"一千");
    Value(form, u"1000");
  }
  console_.Line("presses " + ToUtf8(form.cmdOk[0].Caption()) + "; the grid holds");
  ShowGrid(console_, form.msgFilter);
  form.cmdOk[0].UserPressed();
}

bool ScriptedUser::Open(frmFilter& form, TextView caption) {
  const auto& nodes = form.tvwFilter.Nodes();
  const auto node = std::find_if(nodes.begin(), nodes.end(),
                                 [&](const TreeView::Node& each) { return each.Text == caption; });
  if (node == nodes.end()) {
    console_.Note("there is no column " + ToUtf8(caption));
    return false;
  }
  console_.Line("clicks the column " + ToUtf8(caption));
  form.tvwFilter.UserClickedNode(static_cast<int>(node - nodes.begin()));
  return true;
}

void ScriptedUser::Pick(frmFilter& form, TextView text) {
  console_.Line(fmt::format("  picks {} among {}", ToUtf8(text), form.lxtOther.ListCount()));
  form.lxtOther.UserPicked(form.lxtOther.RowOf(text));
}

void ScriptedUser::Value(frmFilter& form, TextView value) {
  form.txtFrom.UserTyped(value);
  form.txtFrom.UserLeft();
  const std::string mark = ToUtf8(form.txtFrom.Mark());
  console_.Line(fmt::format("  types {}{}", ToUtf8(value),
                            mark.empty() ? "" : ": the box is marked, " + mark));
}

void ScriptedUser::ShowModal(frmFilterColumn& form, const frmFilter&) {
  for (const TextView name : {u"国内销售科", u"国际业务科"}) {
    const int row = RowOf(form.msgAll, name);
    if (row < 0) continue;
    console_.Line("    chooses " + ToUtf8(form.msgAll.TextMatrix(row, 2)));
    form.msgAll.UserDoubleClickedRow(row);
  }
  form.cmdOK.UserPressed();
}

void ScriptedUser::ShowModal(frmMultiChoose& form, std::int32_t) {
  console_.Note(fmt::format("{}: {} to choose from, {} chosen", ToUtf8(form.Caption()),
                            form.lstAll.ListCount(), form.lstSelected.ListCount()));
  if (form.lstAll.ListCount() > 0) {
    console_.Line("chooses " + ToUtf8(form.lstAll.List(0)) + " and moves it up");
    form.lstAll.UserDoubleClickedRow(0);
    form.cmdSerial[0].UserPressed();
  }
  form.cmdOk.UserPressed();
}

// ---- the asked user

std::optional<std::string> AskedUser::Line(const std::string& question) {
  console_.Note(question);
  std::string line;
  if (!std::getline(in_, line)) return std::nullopt;
  return ToUtf8(TrimBlanks(FromUtf8(line)));
}

// Of an answer that has several parts; none when the user leaves.
std::optional<std::string> AskedUser::Part(const std::string& question) {
  auto line = Line(question);
  if (line == "q") return std::nullopt;
  if (line && line->starts_with(kLiteral)) line->erase(0, 1);
  return line;
}

std::optional<AskedUser::Answer> AskedUser::Ask(const std::string& question, SearchBox& search) {
  auto line = Line(question + " f and a text searches, f alone shows all; q cancels.");
  if (!line) return std::nullopt;
  Answer answer;
  if (*line == "f" || line->starts_with("f ")) {
    answer.searched = true;
    search.UserTyped(FromUtf8(line->substr(1)));
    return answer;
  }
  if (line->empty()) {
    answer.searched = search.UserPressed(SearchBox::Key::Enter);
    answer.taken = answer.searched && !search.IsSearching();
    if (!answer.searched) answer.word.push_back('o');
    return answer;
  }
  const std::size_t digits = line->find_last_not_of("0123456789") + 1;
  int number = 0;
  const auto [end, error] =
      std::from_chars(line->data() + digits, line->data() + line->size(), number);
  if (error == std::errc() && end == line->data() + line->size() && digits < line->size()) {
    answer.number = number;
    line->resize(digits);
  }
  answer.word = ToUtf8(TrimBlanks(FromUtf8(*line)));
  return answer;
}

void AskedUser::ShowModal(frmFilter& form, std::int32_t) {
  while (form.IsOpen()) {
    console_.Heading(ToUtf8(form.Caption()));
    const auto& nodes = form.tvwFilter.Nodes();
    console_.BeginTable({"", "column", "condition"});
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      const int row = RowOfNode(form.msgFilter, nodes[i]);
      console_.Row({fmt::format("{}", i + 1), ToUtf8(nodes[i].Text),
                    row < 0 ? "" : ToUtf8(form.msgFilter.TextMatrix(row, FilterColumns::kText))});
    }
    console_.EndTable();
    console_.Note(ToUtf8(form.lblCount.Caption()));
    const auto answer =
        Ask("A column's number, nothing for the first one that a search finds, else for OK; e and "
            "its number to "
            "edit the condition that it has, d to remove it; c clear, o OK?",
            form.txtSearch);
    if (!answer || answer->word == "q" || !Obey(form, *answer)) form.UserPressedEscape();
  }
}

// False when the user leaves.
bool AskedUser::Obey(frmFilter& form, const Answer& answer) {
  const auto& nodes = form.tvwFilter.Nodes();
  const bool named =
      answer.number && *answer.number >= 1 && *answer.number <= static_cast<int>(nodes.size());
  const int node = named ? *answer.number - 1 : -1;
  if (answer.searched) return !answer.taken || Edit(form);
  if (answer.word == "o") {
    form.UserPressedEnter();
    if (form.IsOpen()) console_.Line("A value is refused; choose its column again.");
  } else if (answer.word == "c") {
    form.cmdOk[2].UserPressed();
  } else if ((answer.word == "d" || answer.word == "e") && named) {
    const int row = RowOfNode(form.msgFilter, nodes[static_cast<std::size_t>(node)]);
    form.msgFilter.UserSelectedRow(row);
    if (row >= 0 && answer.word == "d") form.msgFilter.UserPressed(RowControl::Key::Delete);
    if (row >= 0 && answer.word == "e") return Edit(form);
  } else if (answer.word.empty() && named) {
    form.tvwFilter.UserClickedNode(node);
    return Edit(form);
  } else {
    console_.Line("Nothing here goes by that name.");
  }
  return true;
}

// False when the user leaves.
bool AskedUser::Edit(frmFilter& form) {
  if (form.lxtOther.Visible()) {
    console_.Line(
        fmt::format("{}: {}", ToUtf8(form.lblTitle.Caption()), ToUtf8(form.lxtOther.Text())));
    if (!PickRow(form.lxtOther)) return false;
  } else if (!form.datDate.Visible()) {
    console_.Line("No editor opens: there are too many conditions, or the column has none.");
  }
  const std::string first = form.txtTo.Visible() || form.datTo.Visible() ? "From" : "Value";
  for (TextBox* box : {&form.txtFrom, &form.txtTo})
    if (box->Visible() && !TypeInto(form, *box, box == &form.txtTo ? "To" : first)) return false;
  for (const TextBox* box : {&form.txtFrom, &form.txtTo})
    if (!box->Mark().empty()) console_.Line("Refused: " + ToUtf8(box->Mark()));
  for (const auto& [date, name] :
       {std::pair(&form.datFrom, "From"), {&form.datTo, "To"}, {&form.datDate, "Date"}})
    if (date->Visible() && !TypeDate(*date, name)) return false;
  return true;
}

bool AskedUser::PickRow(PickCombo& picker) {
  for (int row = 0; row < std::min(picker.ListCount(), kMostListed); ++row)
    console_.Line(fmt::format("  {:>3}  {}", row + 1, ToUtf8(picker.RowText(row))));
  if (picker.ListCount() > kMostListed)
    console_.Note(fmt::format("  and {} more", picker.ListCount() - kMostListed));
  const auto line = Part(
      "Its number, how it begins, or its initials, such as by for 本月; nothing to leave it, q "
      "cancels?");
  if (!line) return false;
  if (line->empty()) return true;
  int number = 0;
  const auto [end, error] = std::from_chars(line->data(), line->data() + line->size(), number);
  const bool isRow = error == std::errc() && end == line->data() + line->size() && number >= 1 &&
                     number <= std::min(picker.ListCount(), kMostListed);
  const int row = isRow ? number - 1 : picker.UserTyped(FromUtf8(*line));
  if (row < 0) {
    console_.Line("Nothing in the list begins so.");
    picker.UserClosed();
  } else {
    picker.UserPicked(row);
  }
  return true;
}

bool AskedUser::TypeInto(frmFilter& form, TextBox& box, const std::string& name) {
  const auto line = Part(fmt::format("{} [{}]? {} to empty it, q cancels, {}q is the letter", name,
                                     ToUtf8(box.Text()), kNone, kLiteral));
  if (!line) return false;
  if (!line->empty()) box.UserTyped(*line == kNone ? Text() : FromUtf8(*line));
  box.UserLeft(&box == &form.txtFrom && form.txtTo.Visible() ? &form.txtTo : nullptr);
  return true;
}

bool AskedUser::TypeDate(DateSpinner& date, const std::string& name) {
  const std::string how =
      date.HasTick() ? fmt::format(" + to take it, {} for no condition,", kNone) : "";
  const auto line = Part(fmt::format("{} [{}{}]?{} q cancels", name, ToUtf8(date.Text()),
                                     date.IsTicked() ? "" : ", not taken", how));
  if (!line) return false;
  if (line->empty()) return true;
  if (date.HasTick() && (*line == "+" || *line == kNone)) {
    date.UserTicked(*line == "+");
  } else if (const auto typed = CurrentPlatform().ParseDate(FromUtf8(*line))) {
    date.UserChanged(*typed);
  } else {
    console_.Line("That is no date; it stays as it is.");
  }
  return true;
}

void AskedUser::ShowCounts(const TwoListForm& form) {
  console_.Note(fmt::format("{}, {}", ToUtf8(form.lblCount.Caption()),
                            ToUtf8(form.lblSelectedCount.Caption())));
}

void AskedUser::ShowModal(frmFilterColumn& form, const frmFilter&) {
  while (form.IsOpen()) {
    console_.BeginTable({"", ToUtf8(form.Caption())});
    for (int row = 0; row < std::min(form.msgAll.Rows(), kMostListed); ++row)
      console_.Row({fmt::format("{}", row + 1), ToUtf8(form.msgAll.TextMatrix(row, 2))});
    for (int row = 0; row < form.msgSelected.Rows(); ++row)
      console_.Row(
          {fmt::format("t {}", row + 1), "chosen: " + ToUtf8(form.msgSelected.TextMatrix(row, 2))});
    console_.EndTable();
    ShowCounts(form);
    const auto answer = Ask(
        "A number to choose, nothing for the first one that a search finds, t and a number to take "
        "back; a all that are shown, n none, o OK?",
        form.txtSearch);
    if (!answer || answer->word == "q") {
      form.UserPressedEscape();
    } else if (answer->word == "o") {
      form.UserPressedEnter();
    } else if (answer->word == "a") {
      form.cmdRightAll.UserPressed();
    } else if (answer->word == "n") {
      form.cmdLeftAll.UserPressed();
    } else if (answer->number) {
      (answer->word == "t" ? form.msgSelected : form.msgAll)
          .UserDoubleClickedRow(*answer->number - 1);
    }
  }
}

void AskedUser::ShowModal(frmMultiChoose& form, std::int32_t) {
  while (form.IsOpen()) {
    console_.BeginTable({"", ToUtf8(form.Caption())});
    for (int item = 0; item < std::min(form.lstAll.ListCount(), kMostListed); ++item)
      console_.Row({fmt::format("{}", item + 1), ToUtf8(form.lstAll.List(item))});
    for (int item = 0; item < form.lstSelected.ListCount(); ++item)
      console_.Row(
          {fmt::format("t {}", item + 1), "chosen: " + ToUtf8(form.lstSelected.List(item))});
    console_.EndTable();
    ShowCounts(form);
    const auto answer = Ask(
        "A number to choose, nothing for the first one that a search finds, t and a number to take "
        "back, u or d and a number to move up or down; a all that are shown, n none, o OK?",
        form.txtSearch);
    if (!answer || answer->word == "q") {
      form.UserPressedEscape();
    } else if (answer->word == "o") {
      form.UserPressedEnter();
    } else if (answer->word == "a") {
      form.cmdRightAll.UserPressed();
    } else if (answer->word == "n") {
      form.cmdLeftAll.UserPressed();
    } else if (answer->number && answer->word.empty()) {
      form.lstAll.UserDoubleClickedRow(*answer->number - 1);
    } else if (answer->number && answer->word == "t") {
      form.lstSelected.UserDoubleClickedRow(*answer->number - 1);
    } else if (answer->number && (answer->word == "u" || answer->word == "d")) {
      form.lstSelected.UserSelectedRow(*answer->number - 1);
      form.cmdSerial[answer->word == "u" ? 0 : 1].UserPressed();
    }
  }
}

}  // namespace fetchkit::demo
