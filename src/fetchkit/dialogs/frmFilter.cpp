#include "fetchkit/dialogs/frmFilter.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/dialogs/FilterSql.h"
#include "fetchkit/dialogs/ValueCheck.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/platform/DateText.h"
#include "fetchkit/platform/Platform.h"

namespace fetchkit {
namespace {

using Editor = FieldType::Editor;

bool NeedsValue(TextView word) {
  return word != words::kAny && word != words::kNull && word != words::kZeroOrNull;
}

int RowOfId(const PickCombo& picker, TextView id) {
  // Neither "所有" nor "选择项目", which stand at the ends.
  for (int row = 1; row + 1 < picker.ListCount(); ++row)
    if (picker.Id(row) == id) return row;
  return -1;
}

// Sets a flag for the length of a scope; cleared on every way out.
class Busy {
 public:
  explicit Busy(bool& flag) : flag_(flag) { flag_ = true; }
  ~Busy() { flag_ = false; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  bool& flag_;
};

}  // namespace

frmFilter::frmFilter(Session& session, FormView& view)
    : Form(u"frmFilter", u"筛选"), session_(session), view_(view) {
  lblTitle.UseMnemonic(false);
  for (CommandButton& button : cmdOk)
    button.ToolTipText(button.Caption());
  SetTabOrder({&lblSearch, &txtSearch, &Frame3,   &tvwFilter, &Frame1,   &lblTitle,
               &lblOther,  &lxtOther,  &datDate,  &cmdChoose, &lblValue, &lblFrom,
               &txtFrom,   &datFrom,   &lblTo,    &txtTo,     &datTo,    &Frame2,
               &msgFilter, &lblCount,  &cmdOk[2], &cmdOk[0],  &cmdOk[1]});

  // A view whose windows echo what the node handler does to the editors is not heard.
  const auto unlessBusy = [this](auto handler) {
    return [this, handler](auto&&... arguments) {
      if (!busy_) Step(u"frmFilter: act", [&] { handler(arguments...); });
    };
  };
  txtSearch.OnChange = unlessBusy([this] { SearchColumns(); });
  txtSearch.OnTake = unlessBusy([this] { OpenFound(); });
  txtSearch.OnDown = unlessBusy([this] { GoToTree(); });
  tvwFilter.OnNodeClick = unlessBusy([this](const TreeView::Node& node) { OpenColumn(node.Tag); });
  msgFilter.OnSelect = unlessBusy([this] { OpenRow(); });
  msgFilter.OnDoubleClick = unlessBusy([this] { EnterEditor(); });
  msgFilter.OnKey = unlessBusy([this](RowControl::Key key) {
    if (key == RowControl::Key::F2) EnterEditor();
    if (key == RowControl::Key::Delete) DeleteRow();
  });
  lxtOther.OnPick = unlessBusy([this](int row) { Picked(row); });
  for (TextBox* box : {&txtFrom, &txtTo}) {
    box->OnChange = unlessBusy([this] {
      pending_ = typed_ = true;
      Unmark();
    });
    box->OnLeave = unlessBusy([this](const Control* next) { BoxLeft(next); });
    box->OnEnter = unlessBusy([this] { IsRefused(); });
  }
  datFrom.OnChange = datTo.OnChange = unlessBusy([this] { CommitPeriod(Text(kCustomRange)); });
  datDate.HasTick(true);
  datDate.OnChange = unlessBusy([this] {
    if (!datDate.IsTicked()) return RemoveRow();
    WriteRow(datDate.Text(), datDate.Text());
  });
  cmdChoose.OnClick = unlessBusy([this] { ChooseItems(); });
  cmdOk[0].OnClick = unlessBusy([this] { Ok(); });
  cmdOk[1].OnClick = unlessBusy([this] { Cancel(); });
  cmdOk[2].OnClick = unlessBusy([this] { Clear(); });
}

bool frmFilter::ShowFilter(ListType& list, Text& where, std::int32_t hWndOwner) {
  confirmed_ = false;
  result_.clear();
  list_ = list;
  if (!Init()) return true;
  Open();
  if (!Step(u"frmFilter.ShowFilter", [&] { view_.ShowModal(*this, hWndOwner); }))
    confirmed_ = false;
  Close();
  if (!confirmed_) return false;
  where = std::move(result_);
  list = std::move(list_);
  return true;
}

bool frmFilter::Init() {
  lists_.Clear();
  CloseEditor();
  rows_.Load(list_);
  tree_.Reset();
  ShowCount();
  if (tvwFilter.Nodes().empty()) {
    confirmed_ = true;
    return false;
  }
  OpenColumn(tvwFilter.Nodes().front().Tag);
  return true;
}

void frmFilter::UserClosed() {
  Cancel();
}

// ---- the columns

void frmFilter::SearchColumns() {
  tree_.Show();
  ShowCount();
}

void frmFilter::OpenFound() {
  const int field = tree_.Found();
  if (field < 0) return;
  tree_.EndSearch();
  ShowCount();
  const int row = rows_.RowOf(field);
  if (rows_.AreFull() && row >= 0) {
    // A condition that there is may be changed, however many there are.
    msgFilter.Row(row);
    OpenRow();
  } else {
    OpenColumn(field);
  }
  if (!FocusEditor()) tvwFilter.SetFocus();
}

void frmFilter::GoToTree() {
  if (tvwFilter.Nodes().empty()) return;
  if (tvwFilter.SelectedItem() < 0) OpenColumn(tree_.Found());
  tvwFilter.SetFocus();
}

void frmFilter::OpenColumn(int field) {
  DropFocusWish();
  // What stands in a box when the user goes on is left behind with it; a value that is refused is
  // given up when another column opens.
  const bool refused = CommitValue() == Commit::Refused;
  tree_.Select(field);
  if (!rows_.AreFull()) {
    if (!refused || field != field_) OpenEditor(field);
    return;
  }
  RefuseSilently(FilterRows::kFullWarning);
  const Busy busy(busy_);
  CloseEditor();
  msgFilter.Row(rows_.RowOf(field));
}

// ---- the editors

// The editor of the grid's current row, however many rows there are.
void frmFilter::OpenRow() {
  const int field = rows_.CurrentField();
  if (field == field_ || !tree_.Has(field)) return;
  DropFocusWish();
  CommitValue();
  OpenEditor(field);
}

void frmFilter::OpenEditor(int field) {
  const Busy busy(busy_);
  Step(u"frmFilter: node", [&] {
    const ListFieldType& edited = list_.ListField.at(static_cast<std::size_t>(field));
    tree_.Select(field);
    msgFilter.Row(rows_.RowOf(field));
    lblTitle.Caption(edited.strListFieldDesc);
    type_ = FieldTypeOf(edited.strFieldType);
    if (type_ == nullptr) return CloseEditor();
    field_ = field;
    LoadList(edited);
    ShowCondition();
  });
}

void frmFilter::CloseEditor() {
  field_ = -1;
  word_.clear();
  EmptyEditors();
  ArrangeEditors();
}

void frmFilter::EnterEditor() {
  OpenRow();
  FocusEditor();
}

// To the box at fault, or where the condition's value stands. False when no editor is open.
bool frmFilter::FocusEditor() {
  Control* const editors[] = {txtTo.Mark().empty() ? &txtFrom : &txtTo, &datDate, &lxtOther};
  const auto editor = std::find_if(std::begin(editors), std::end(editors),
                                   [](const Control* each) { return each->Visible(); });
  if (editor == std::end(editors)) return false;
  (*editor)->SetFocus();
  return true;
}

void frmFilter::LoadList(const ListFieldType& field) {
  const bool code = type_->EditedBy() == FieldType::Editor::Codes;
  lxtOther.ColumnSet(code ? u"1,2,3" : u"-1,1");
  if (!EditsChoice()) return lxtOther.SetList(type_->Words());
  std::vector<Text> items = lists_.ItemsOf(session_, field, code);
  std::vector<Text> cells;
  cells.reserve(items.size() + 6);
  const auto addEnd = [&](TextView text) {
    if (code) cells.emplace_back();
    cells.emplace_back(text);
    if (code) cells.emplace_back();
  };
  addEnd(frmFilterColumn::kAllItems);
  std::move(items.begin(), items.end(), std::back_inserter(cells));
  addEnd(frmFilterColumn::kChooseItems);
  lxtOther.SetList(std::move(cells));
}

// Sets the editors to the field's row in the grid, or to no condition.
void frmFilter::ShowCondition() {
  const int row = rows_.RowOf(field_);
  const TextView text = row < 0 ? TextView() : msgFilter.TextMatrix(row, FilterColumns::kText);
  const TextView value = row < 0 ? TextView() : msgFilter.TextMatrix(row, FilterColumns::kValue);
  EmptyEditors();
  const auto showWord = [&](TextView none) {
    word_ = row < 0 ? none : WordToShow(text);
    lxtOther.Show(word_, lxtOther.RowOf(word_));
  };
  const auto dateOf = [&](TextView part) {
    const auto date = CurrentPlatform().ParseDate(part);
    return date ? *date : DateOrToday(session_.LoginDate);
  };
  switch (type_->EditedBy()) {
    case Editor::Texts:
    case Editor::Numbers: {
      showWord(words::kAny);
      const bool between = word_ == words::kBetween;
      txtFrom.Text(Text(between ? FirstValueOf(value) : value));
      if (between) txtTo.Text(Text(SecondValueOf(value)));
      break;
    }
    case Editor::YesNo:
      showWord(words::kAny);
      break;
    case Editor::Periods:
      showWord(words::kAll);
      datFrom.Value(dateOf(FirstValueOf(value)));
      datTo.Value(dateOf(SecondValueOf(value)));
      break;
    case Editor::Dates:
      showWord(words::kAny);
      datDate.Value(dateOf(value));
      datDate.Tick(row >= 0);
      break;
    case Editor::Codes:
    case Editor::Values: {
      word_.clear();
      if (row < 0) {
        lxtOther.ShowRow(0);
        break;
      }
      const Choice choice = ReadChoice(value);
      // Not at "所有", where one key would take the condition away.
      lxtOther.OpensAt(lxtOther.ListCount() - 1);
      lxtOther.Show(Text(text), choice.IsSeveral()
                                    ? -1
                                    : RowOfId(lxtOther, ReplaceText(choice.items, u"'", u"")));
      break;
    }
  }
  ArrangeEditors();
}

void frmFilter::ArrangeEditors() {
  const bool open = field_ >= 0;
  const bool value = EditsValue() && NeedsValue(word_);
  const bool between = value && word_ == words::kBetween;
  const bool period = Edits(Editor::Periods);
  const bool date = Edits(Editor::Dates);
  lblTitle.Visible(open);
  lxtOther.Visible(open && !date);
  lblOther.Caption(Text(date ? u"日期(&T)" : u"条件(&T)"));
  lblOther.Visible(open);
  cmdChoose.Visible(EditsChoice());
  lblValue.Visible(value && !between);
  txtFrom.IsAlone(!between);
  lblFrom.Visible(between || period);
  lblTo.Visible(between || period);
  txtFrom.Visible(value);
  txtTo.Visible(between);
  datFrom.Visible(period);
  datTo.Visible(period);
  datDate.Visible(date);
}

void frmFilter::EmptyEditors() {
  pending_ = typed_ = false;
  Unmark();
  txtFrom.Text(Text());
  txtTo.Text(Text());
  // A date picker always shows a date.
  for (DateSpinner* dates : {&datFrom, &datTo, &datDate})
    dates->Value(DateOrToday(session_.LoginDate));
  datDate.Tick(false);
}

bool frmFilter::Edits(Editor editor) const {
  return field_ >= 0 && type_->EditedBy() == editor;
}

bool frmFilter::EditsValue() const {
  return Edits(Editor::Texts) || Edits(Editor::Numbers);
}

bool frmFilter::EditsChoice() const {
  return Edits(Editor::Codes) || Edits(Editor::Values);
}

// ---- acts of the user

void frmFilter::Picked(int row) {
  if (field_ < 0) return;
  DropFocusWish();
  const int last = lxtOther.ListCount() - 1;
  if (EditsChoice()) {
    if (row == last) return ChooseItems();
    if (row == 0) return RemoveRow();
    Text id = lxtOther.Id(row);
    if (Edits(Editor::Values)) id = Join(u"'", id, u"'");
    // A row without text would count as no condition.
    return WriteRow(lxtOther.Text().empty() ? id : lxtOther.Text(), ChoiceText(false, id));
  }
  const Text word = lxtOther.Text();
  if (Edits(Editor::Periods)) {
    if (word == words::kAll) {
      word_ = word;
      return RemoveRow();
    }
    CommitPeriod(word);
    if (word == kCustomRange) datFrom.SetFocus();
    return;
  }
  word_ = word;
  pending_ = false;
  Unmark();
  if (word == words::kAny) {
    RemoveRow();
  } else if (Edits(Editor::YesNo)) {
    WriteRow(word, word);
  } else if (!NeedsValue(word)) {
    WriteRow(word, Text());
  } else {
    pending_ = true;
  }
  if (word == words::kBetween || !NeedsValue(word)) {
    txtFrom.Text(Text());
    txtTo.Text(Text());
    typed_ = false;
  }
  ArrangeEditors();
  if (txtFrom.Visible()) txtFrom.SetFocus();
}

void frmFilter::ChooseItems() {
  const int row = rows_.RowOf(field_);
  const Text value = row < 0 ? Text() : msgFilter.TextMatrix(row, FilterColumns::kValue);
  Step(u"frmFilter: chooser", [&] {
    Text names;
    Text ids;
    frmFilterColumn chooser(view_, *this);
    const TextView type = Edits(Editor::Codes) ? u"CODE" : u"ENUM";
    if (!chooser.ShowFiltration(type, lxtOther, ReadChoice(value).items, names, ids)) return;
    const int chosen = chooser.msgSelected.Rows();
    if (chosen == 0) return RemoveRow();
    WriteRow(TrimBlanks(names).empty() ? ids : names, ChoiceText(chosen > 1, ids));
  });
  ShowCondition();
}

// The keyword's range, or the dates of the pickers as they stand; a keyword without a range is
// refused. The dates are neither checked nor exchanged.
void frmFilter::CommitPeriod(const Text& word) {
  if (word != kCustomRange) {
    Date from;
    Date to;
    if (!MActivity::GetDateRange(session_, word, from, to)) return ShowCondition();
    datFrom.Value(from);
    datTo.Value(to);
  }
  word_ = word;
  lxtOther.Show(word, lxtOther.RowOf(word));
  const Text from = datFrom.Text();
  const Text to = datTo.Text();
  WriteRow(word == kCustomRange ? CustomPeriodText(from, to) : word, PairText(from, to));
}

// Between the two bounds of one value the focus moves freely: only leaving both judges them.
void frmFilter::BoxLeft(const Control* next) {
  DropFocusWish();
  if (next != &txtFrom && next != &txtTo) CommitValue();
}

// What is refused is asked for again where it stands.
bool frmFilter::IsRefused() {
  if (CommitValue() != Commit::Refused) return false;
  (txtFrom.Mark().empty() ? txtTo : txtFrom).SetFocus();
  return true;
}

// The next row's editor follows.
void frmFilter::DeleteRow() {
  const int row = msgFilter.Row();
  const bool edited = row == rows_.RowOf(field_);
  msgFilter.RemoveItem(row);
  ShowRows();
  if (edited) ShowCondition();
  if (msgFilter.Row() > 0) OpenRow();
}

void frmFilter::Ok() {
  if (IsRefused()) return;
  // Into a copy: when it fails half way, the form stays open over the record as it was.
  const bool written = Step(u"frmFilter: OK", [&] {
    ListType record = list_;
    result_ = ConditionsToSql(msgFilter, record);
    list_ = std::move(record);
  });
  if (!written) return;
  confirmed_ = true;
  Close();
}

void frmFilter::Cancel() {
  confirmed_ = false;
  result_.clear();
  Close();
}

void frmFilter::Clear() {
  DropFocusWish();
  msgFilter.ClearRows();
  ShowRows();
  word_ = words::kAny;
  EmptyEditors();
  lxtOther.Show(Text(words::kAll));
  ArrangeEditors();
}

// ---- rows

// Takes over what stands in the boxes, or marks the box that is at fault.
frmFilter::Commit frmFilter::CommitValue() {
  if (!pending_ || !EditsValue() || !NeedsValue(word_)) return Commit::Nothing;
  const bool between = word_ == words::kBetween;
  const Text& from = txtFrom.Text();
  const Text& to = txtTo.Text();
  if (from.empty() && (!between || to.empty())) {
    // Emptied by the user, as opposed to never filled.
    if (!std::exchange(typed_, false)) return Commit::Nothing;
    RemoveRow();
    pending_ = false;
    return Commit::Written;
  }
  const bool numbers = Edits(Editor::Numbers);
  const RefusedBound refused =
      between ? WarningOf(numbers, from, to) : RefusedBound{WarningOf(numbers, from)};
  if (!refused.warning.empty()) {
    RefuseSilently(refused.warning);
    (refused.isSecond ? txtTo : txtFrom).Mark(Text(refused.warning));
    return Commit::Refused;
  }
  const Text value = between ? PairText(from, to) : from;
  WriteRow(ConditionRowText(word_, value), value);
  pending_ = typed_ = false;
  return Commit::Written;
}

void frmFilter::Unmark() {
  for (TextBox* box : {&txtFrom, &txtTo})
    box->Mark({});
}

// What tells of the rows outside the grid.
void frmFilter::ShowRows() {
  ShowCount();
  tree_.ShowRows();
}

void frmFilter::ShowCount() {
  lblCount.Caption(tvwFilter.Nodes().empty() ? Text(u"没有找到") : rows_.CountText());
}

void frmFilter::WriteRow(const Text& text, const Text& value) {
  if (field_ < 0) return;
  rows_.Write(field_, list_.ListField.at(static_cast<std::size_t>(field_)), text, value);
  ShowRows();
}

void frmFilter::RemoveRow() {
  if (rows_.Remove(field_)) ShowRows();
}

}  // namespace fetchkit
