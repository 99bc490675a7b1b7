#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/types/SqlParts.h"
#include "fetchkit/listset/model/types/Types.h"

namespace fetchkit {
namespace {

Text WithDoubledQuotes(TextView text) {
  Text doubled;
  doubled.reserve(text.size() + CountUnit(text, u'\''));
  for (const char16_t unit : text) {
    if (unit == u'\'') doubled.push_back(unit);
    doubled.push_back(unit);
  }
  return doubled;
}

class Enumeration final : public FieldType {
 public:
  Editor EditedBy() const override { return Editor::Values; }

  std::vector<Text> Words() const override { return {}; }

  std::vector<StoredColumn> Stored(const ListFieldType& field) const override {
    const TextView items = ReadChoice(field.strExtValue).items;
    // Items without a text are shown with their quotes, which no literal takes as they stand.
    const bool textless = field.strFilter == items && CountUnit(items, u'\'') > 0;
    return {{u"strString1", Quoted(textless ? TextView() : TextView(field.strFilter))},
            {u"strString2", Quoted(WithDoubledQuotes(items))}};
  }

  Restored Restore(const StoredCondition& stored, const ConditionContext&,
                   ListFieldType& field) const override {
    // Stored without the mark, but a list that begins as if it had one is taken to have it.
    const Text& list = stored.string2;
    const Text extValue = IsMarked(list) ? list : ChoiceText(CountUnit(list, u',') > 0, list);
    const TextView values = ReadChoice(extValue).items;
    Text sql;
    if (!values.empty())
      sql = field.strListFieldDesc == u"辅助核算"
                ? CheckFlagCondition(field.strTableName, values)
                : Join(field.strFieldName, u" in (", values, u")");
    // Items without a text are shown as they are. Earlier versions stored an apostrophe for them.
    const bool textless = stored.string1.empty() || stored.string1 == u"'";
    return {textless ? Text(values) : stored.string1, extValue, std::move(sql)};
  }

  Text Predicate(const ListFieldType& field, TextView, TextView value) const override {
    return ChoicePredicate(field.strFieldName, value);
  }
};

}  // namespace

const FieldType& EnumType() {
  static constexpr Enumeration kType;
  return kType;
}

}  // namespace fetchkit
