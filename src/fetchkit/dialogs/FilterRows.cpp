#include "fetchkit/dialogs/FilterRows.h"

#include "fetchkit/base/Numbers.h"
#include "fetchkit/dialogs/FilterSql.h"

namespace fetchkit {
namespace {

constexpr int kMany = 20;

}  // namespace

void FilterRows::Load(const ListType& list) {
  grid_.FormatString(u"FieldIndex|<过滤项目|<过滤条件|<字段类型|<附加条件");
  static constexpr int kWidths[] = {0, 1500, 2280, 0, 0};
  for (int col = 0; col < grid_.Cols(); ++col)
    grid_.ColWidth(col, kWidths[col]);
  for (std::size_t i = 0; i < list.ListField.size(); ++i) {
    const ListFieldType& field = list.ListField[i];
    if (field.blnIsFilter && !field.strFilter.empty())
      grid_.AddRow({Join(i), field.strListFieldDesc, field.strFilter, field.strFieldType,
                    field.strExtValue});
  }
}

bool FilterRows::AreFull() const {
  return Count() >= kMost;
}

Text FilterRows::CountText() const {
  Text shown = Join(u"已设 ", Count(), u" 个条件");
  if (AreFull())
    shown += u"，不能再增加";
  else if (Count() >= kMany)
    shown += Join(u"，还可设 ", kMost - Count(), u" 个");
  return shown;
}

int FilterRows::RowOf(int field) const {
  for (int row = grid_.FixedRows(); row < grid_.Rows(); ++row)
    if (FieldOf(row) == field) return row;
  return -1;
}

int FilterRows::FieldOf(int row) const {
  return static_cast<int>(LeadingNumber(grid_.TextMatrix(row, FilterColumns::kFieldIndex)));
}

void FilterRows::Write(int field, const ListFieldType& description, const Text& text,
                       const Text& value) {
  int row = RowOf(field);
  if (row < 0) {
    row = grid_.Rows();
    grid_.AddRow(
        {Join(field), description.strListFieldDesc, text, description.strFieldType, value});
  } else {
    grid_.TextMatrix(row, FilterColumns::kText, text);
    grid_.TextMatrix(row, FilterColumns::kType, description.strFieldType);
    grid_.TextMatrix(row, FilterColumns::kValue, value);
  }
  grid_.Row(row);
}

bool FilterRows::Remove(int field) {
  const int row = RowOf(field);
  if (row < 0) return false;
  grid_.RemoveItem(row);
  grid_.Row(-1);
  return true;
}

}  // namespace fetchkit
