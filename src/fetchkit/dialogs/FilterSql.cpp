#include "fetchkit/dialogs/FilterSql.h"

#include "fetchkit/base/Value.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/FieldType.h"

namespace fetchkit {

Text ConditionsToSql(const MSFlexGrid& conditions, ListType& list) {
  for (ListFieldType& field : list.ListField) {
    field.strFilter.clear();
    field.strCodeID.clear();
    field.strExtValue.clear();
  }
  Text sql;
  for (int row = 1; row < conditions.Rows(); ++row) {
    const auto cell = [&](int column) -> const Text& { return conditions.TextMatrix(row, column); };
    const auto index = ToLong(Value(cell(FilterColumns::kFieldIndex)));
    ListFieldType& field = list.ListField.at(static_cast<std::size_t>(index));
    const FieldType* type = FieldTypeOf(cell(FilterColumns::kType));
    if (type == nullptr) continue;
    const Text& text = cell(FilterColumns::kText);
    const Text& value = cell(FilterColumns::kValue);
    const Text predicate = type->Predicate(field, text, value);
    if (!predicate.empty()) sql.append(sql.empty() ? u"" : u" And ").append(predicate);
    field.strFilter = text;
    field.strExtValue = value;
    if (type->EditedBy() == FieldType::Editor::Codes) {
      const Choice choice = ReadChoice(value);
      field.strCodeID = Text(choice.items);
      field.blnIsMuliCond = choice.IsSeveral();
    }
  }
  return Text(TrimBlanks(sql));
}

}  // namespace fetchkit
