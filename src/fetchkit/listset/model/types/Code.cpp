#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/types/SqlParts.h"
#include "fetchkit/listset/model/types/Types.h"
#include "fetchkit/utility/CodeTables.h"

namespace fetchkit {
namespace {

class Code final : public FieldType {
 public:
  Editor EditedBy() const override { return Editor::Codes; }

  std::vector<Text> Words() const override { return {}; }

  // The codes themselves are rows of their own.
  std::vector<StoredColumn> Stored(const ListFieldType& field) const override {
    return {{u"blnIsMuliCond", Text(ReadChoice(field.strExtValue).mark)}};
  }

  Restored Restore(const StoredCondition& stored, const ConditionContext& context,
                   ListFieldType& field) const override {
    const TextView ids = TrimBlanks(stored.codeIds);
    field.strCodeID = Text(ids);
    field.blnIsMuliCond = stored.isMulti;
    const TextView keyword = field.strKeyField;
    auto sql = FixedCodeCondition(field.strTableName, field.strFieldName, keyword, ids,
                                  context.naturalCurrencyId);
    if (!sql) sql = CodeCondition(field.strTableName, ConditionKeyStem(keyword), ids, keyword);
    // A choice without names shows its ids: an empty text would mean no condition.
    return {stored.codeNames.empty() ? Text(ids) : stored.codeNames,
            ChoiceText(stored.isMulti, ids), std::move(*sql)};
  }

  Text Predicate(const ListFieldType& field, TextView, TextView value) const override {
    return ChoicePredicate(
        Join(field.strTableName, u".lng", FilterKeyStem(field.strKeyField), u"ID"), value);
  }
};

}  // namespace

const FieldType& CodeType() {
  static constexpr Code kType;
  return kType;
}

}  // namespace fetchkit
