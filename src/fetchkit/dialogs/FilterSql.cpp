#include "fetchkit/dialogs/FilterSql.h"

#include "fetchkit/base/Value.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/FieldType.h"

namespace fetchkit {

Text ConditionsToSql(const MSFlexGrid& conditions, ListType& list) {
  std::vector<FilterRow> rows;
  for (int row = 1; row < conditions.Rows(); ++row) {
    const auto cell = [&](int column) -> const Text& { return conditions.TextMatrix(row, column); };
    const auto index = ToLong(Value(cell(FilterColumns::kFieldIndex)));
    rows.push_back({static_cast<std::size_t>(index), cell(FilterColumns::kType),
                    cell(FilterColumns::kText), cell(FilterColumns::kValue)});
  }
  return ConditionsToSql(rows, list);
}

Text ConditionsToSql(const std::vector<FilterRow>& conditions, ListType& list) {
  for (ListFieldType& field : list.ListField) {
    field.strFilter.clear();
    field.strCodeID.clear();
    field.strExtValue.clear();
  }
  Text sql;
  for (const FilterRow& row : conditions) {
    ListFieldType& field = list.ListField.at(row.field);
    const FieldType* type = FieldTypeOf(row.type);
    if (type == nullptr) continue;
    const Text predicate = type->Predicate(field, row.text, row.value);
    if (!predicate.empty()) sql.append(sql.empty() ? u"" : u" And ").append(predicate);
    field.strFilter = row.text;
    field.strExtValue = row.value;
    if (type->EditedBy() == FieldType::Editor::Codes) {
      const Choice choice = ReadChoice(row.value);
      field.strCodeID = Text(choice.items);
      field.blnIsMuliCond = choice.IsSeveral();
    }
  }
  return Text(TrimBlanks(sql));
}

}  // namespace fetchkit
