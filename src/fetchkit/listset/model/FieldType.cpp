#include "fetchkit/listset/model/FieldType.h"

#include <utility>

#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/types/Types.h"

namespace fetchkit {

const FieldType* FieldTypeOf(TextView strFieldType) {
  static constexpr std::pair<TextView, const FieldType& (*)()> kTypes[] = {
      {u"CODE", CodeType},      {u"ENUM", EnumType},     {u"BOOLEAN", BooleanType},
      {u"STRING", StringType},  {u"LONG", NumberType},   {u"DOUBLE", NumberType},
      {u"INTEGER", NumberType}, {u"PERIOD", PeriodType}, {u"DATE", DateType},
  };
  for (const auto& [word, type] : kTypes)
    if (EqualFolded(word, strFieldType)) return &type();
  return nullptr;
}

bool HasCodes(const ListFieldType& field) {
  const FieldType* type = FieldTypeOf(field.strFieldType);
  return type != nullptr && type->EditedBy() == FieldType::Editor::Codes;
}

std::vector<StoredColumn> StoredColumnsOf(const ListFieldType& field) {
  const FieldType* type = FieldTypeOf(field.strFieldType);
  return type == nullptr ? std::vector<StoredColumn>() : type->Stored(field);
}

Text RestoreCondition(const StoredCondition& stored, const ConditionContext& context,
                      ListFieldType& field) {
  const FieldType* type = FieldTypeOf(field.strFieldType);
  if (type == nullptr) return {};
  Restored restored = type->Restore(stored, context, field);
  field.strFilter = std::move(restored.filter);
  field.strExtValue = std::move(restored.extValue);
  return Bracketed(std::move(restored.sql));
}

}  // namespace fetchkit
