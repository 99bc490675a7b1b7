#include "fetchkit/dialogs/frmMultiChoose.h"

#include <algorithm>
#include <utility>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/utility/StringHelpers.h"

namespace fetchkit {
namespace {

// For a caption that has an access key of its own.
Text WithoutAccessKey(TextView name) {
  return ReplaceText(name, u"&", u"&&");
}

}  // namespace

frmMultiChoose::frmMultiChoose(FormView& view)
    : TwoListForm(u"frmMultiChoose", u"选择"), view_(view) {
  cmdSerial[0].ToolTipText(u"上移");
  cmdSerial[1].ToolTipText(u"下移");
  SetTabOrder({&lblSearch, &txtSearch, &lblAll, &lstAll, &lblCount, &cmdRightOne, &cmdRightAll,
               &cmdLeftOne, &cmdLeftAll, &lblSelected, &lstSelected, &lblSelectedCount,
               &cmdSerial[0], &cmdSerial[1], &cmdOk, &cmdCancel});
  WireMoves(
      lstAll, lstSelected,
      [](ListBox& from, ListBox& to, const std::vector<int>& items) {
        const int before = to.ListCount();
        from.MoveItemsTo(to, items);
        // One that was moved alone is moved up or down next, unless a search hides it.
        if (items.size() == 1 && to.ListCount() > before) to.ListIndex(before);
      },
      [this] { Refresh(); });
  cmdSerial[0].OnClick = Act([this] { Exchange(-1); });
  cmdSerial[1].OnClick = Act([this] { Exchange(1); });
  lstAll.OnPointer = Act([this](int item) { PointAt(item); });
  cmdOk.OnClick = Act([this] { Ok(); });
  cmdCancel.OnClick = Act([this] { Close(); });
}

MultiChooseResult frmMultiChoose::ShowMultiChoose(const MultiChooseRequest& request) {
  confirmed_ = false;
  condition_.clear();
  show_.clear();
  txtSearch.Text({});
  lstAll.Clear();
  lstSelected.Clear();
  codeName_ = request.strCodeName;
  SetCaption(Join(u"选择", codeName_));
  lblAll.Caption(Join(u"可选", WithoutAccessKey(codeName_), u"(&S)"));
  lblSelected.Caption(Join(u"已选", WithoutAccessKey(codeName_), u"(&T)"));
  Step(u"frmMultiChoose.ShowMultiChoose: items", [&] {
    if (request.IsEnum) {
      LoadEnum(request.arrEnum);
    } else if (request.oCodeRs != nullptr) {
      LoadRows(*request.oCodeRs, request.strChoosedCond);
    }
  });
  Refresh();
  Open();
  if (!Step(u"frmMultiChoose.ShowMultiChoose", [&] { view_.ShowModal(*this, request.hWndOwner); }))
    confirmed_ = false;
  Close();
  if (!confirmed_) return {};
  return {true, std::move(condition_), std::move(show_)};
}

void frmMultiChoose::LoadEnum(const Value& arrEnum) {
  if (!arrEnum.Is<Value::Array>()) return;
  const ValueArray& array = *std::get<Value::Array>(arrEnum.data());
  // The text at index 0 is no item.
  for (std::int32_t i = std::max(1, array.lowerBound); i <= array.UpperBound(); ++i)
    lstAll.AddItem(ToTextOrEmpty(array.items.at(static_cast<std::size_t>(i - array.lowerBound))));
}

void frmMultiChoose::LoadRows(Recordset& rows, TextView choosed) {
  // For a host that offers its columns by name alone.
  std::vector<Text> names{u"strCode", u"strName"};
  Step(u"frmMultiChoose: columns", [&] { names = rows.ColumnNames(); });
  std::vector<std::size_t> columns;
  for (const Text& name : names)
    if (EqualFolded(name, u"strCode") || EqualFolded(name, u"strName"))
      Step(u"frmMultiChoose: column", [&] { columns.push_back(rows.Column(name)); });
  for (; !rows.Eof(); rows.MoveNext()) {
    Text item;
    for (const std::size_t column : columns)
      AppendWith(item, u' ', ToTextOrEmpty(rows.At(column)));
    const bool chosen = !choosed.empty() && FindText(choosed, item) != TextView::npos;
    (chosen ? lstSelected : lstAll).AddItem(std::move(item));
  }
}

void frmMultiChoose::Exchange(int step) {
  const int item = lstSelected.ListIndex();
  const int other = item + step;
  if (item < 0 || other < 0 || other >= lstSelected.ListCount()) return;
  Text text = lstSelected.List(item);
  lstSelected.List(item, lstSelected.List(other));
  lstSelected.List(other, std::move(text));
  lstSelected.ListIndex(other);
  Refresh();
}

void frmMultiChoose::PointAt(int item) {
  Text tip;
  if (item >= 0 &&
      StringHelpers::StrLen(lstAll.List(item)) * lstAll.extent.letterWidth > lstAll.extent.width)
    tip = lstAll.List(item);
  lstAll.ToolTipText(std::move(tip));
}

void frmMultiChoose::Refresh() {
  const int current = lstSelected.ListIndex();
  const bool alone = lstSelected.Selection().size() == 1;
  ShowCounts(lstAll, lstSelected);
  cmdSerial[0].Enabled(alone && current > 0);
  cmdSerial[1].Enabled(alone && current + 1 < lstSelected.ListCount());
}

void frmMultiChoose::Ok() {
  // One that an error cut short may have left something.
  condition_.clear();
  show_.clear();
  for (const Text& each : lstSelected.Items()) {
    const TextView item = TrimBlanks(each);
    condition_.append(condition_.empty() ? u"(" : u" 或 ")
        .append(codeName_)
        .append(u"='")
        .append(item)
        .append(u"'");
    // By position, not by what is there: an item may be empty.
    if (&each != &lstSelected.Items().front()) show_.push_back(u',');
    show_.append(item);
  }
  if (!condition_.empty()) condition_.push_back(u')');
  confirmed_ = true;
  Close();
}

}  // namespace fetchkit
