#include "fetchkit/dialogs/frmFilterColumn.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "fetchkit/base/Guard.h"
#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/FieldType.h"

namespace fetchkit {
namespace {

constexpr int kMostChosen = 250;  // one more is still taken
constexpr int kTextWidth = 2195;

struct ItemColumns {
  static constexpr int kId = 0;
  static constexpr int kName = 1;
  static constexpr int kShown = 2;
};

void SetUpGrid(MSFlexGrid& grid) {
  grid.SetUp(3);
  grid.ColWidth(ItemColumns::kId, 0);
  grid.ColWidth(ItemColumns::kName, 0);
  grid.ColWidth(ItemColumns::kShown, kTextWidth);
  grid.LeftAligned(ItemColumns::kShown, true);
}

// A picker's items stand between its two own entries.
bool IsItem(const PickCombo& picker, int row) {
  if (row == 0) return picker.RowText(row) != frmFilterColumn::kAllItems;
  return row + 1 != picker.ListCount() || picker.RowText(row) != frmFilterColumn::kChooseItems;
}

}  // namespace

frmFilterColumn::frmFilterColumn(FormView& view, const frmFilter& owner)
    : TwoListForm(u"frmFilterColumn", u"选择项目"), view_(view), owner_(owner) {
  SetTabOrder({&lblSearch, &txtSearch, &lblAll, &msgAll, &lblCount, &cmdRightOne, &cmdRightAll,
               &cmdLeftOne, &cmdLeftAll, &lblSelected, &msgSelected, &lblSelectedCount, &cmdOK,
               &cmdCancel});
  WireMoves(
      msgAll, msgSelected,
      [this](MSFlexGrid& from, MSFlexGrid& to, std::vector<int> rows) {
        Move(from, to, std::move(rows));
      },
      [this] { Refresh(); });
  cmdOK.OnClick = Act([this] { Ok(); });
  cmdCancel.OnClick = Act([this] { Close(); });
}

bool frmFilterColumn::ShowFiltration(TextView strType, const PickCombo& objPicker,
                                     TextView strChoosed, Text& strNames, Text& strIDs) {
  confirmed_ = false;
  ids_.clear();
  names_.clear();
  txtSearch.Text({});
  SetUpGrid(msgAll);
  SetUpGrid(msgSelected);
  const FieldType* type = FieldTypeOf(strType);
  isCode_ = type != nullptr && type->EditedBy() == FieldType::Editor::Codes;
  if (isCode_ || (type != nullptr && type->EditedBy() == FieldType::Editor::Values)) {
    const Text bare = ReplaceText(strChoosed, u"'", u"");
    auto pieces = Split(bare, u",");
    // The value without a text, chosen alone, is a pair of quotes.
    if (pieces.empty() && !strChoosed.empty()) pieces.emplace_back();
    const std::unordered_set<TextView> choosed(pieces.begin(), pieces.end());
    for (int row = 0; row < objPicker.ListCount(); ++row) {
      if (!IsItem(objPicker, row)) continue;
      const Text& id = objPicker.Id(row);
      MSFlexGrid& grid = choosed.count(id) != 0 ? msgSelected : msgAll;
      grid.AddItem(Join(id, u"\t", objPicker.Cell(row, objPicker.ShownColumns().back()), u"\t",
                        objPicker.RowText(row)));
    }
    for (MSFlexGrid* grid : {&msgAll, &msgSelected})
      if (grid->Rows() > 0) grid->Row(0);
  }
  Refresh();
  Open();
  if (!Step(u"frmFilterColumn.ShowFiltration", [&] { view_.ShowModal(*this, owner_); })) {
    confirmed_ = false;
    ids_.clear();
    names_.clear();
  }
  Close();
  strNames = std::move(names_);
  strIDs = std::move(ids_);
  return confirmed_;
}

// One more is always taken.
void frmFilterColumn::Move(MSFlexGrid& from, MSFlexGrid& to, std::vector<int> rows) {
  const auto room = static_cast<std::size_t>(std::max(0, kMostChosen + 1 - msgSelected.Rows()));
  const bool tooMany = &to == &msgSelected && rows.size() > std::max<std::size_t>(room, 1);
  if (tooMany) rows.resize(room);
  from.MoveRowsTo(to, rows);
  if (tooMany) RefuseSilently(kManyWarning);
}

void frmFilterColumn::Refresh() {
  ShowCounts(msgAll, msgSelected);
}

void frmFilterColumn::Ok() {
  ItemTexts chosen(isCode_);
  for (int row = 0; row < msgSelected.Rows(); ++row)
    chosen.Add(msgSelected.TextMatrix(row, ItemColumns::kId),
               msgSelected.TextMatrix(row, ItemColumns::kName));
  ids_ = std::move(chosen.ids);
  names_ = std::move(chosen.names);
  confirmed_ = true;
  Close();
}

}  // namespace fetchkit
