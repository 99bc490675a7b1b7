#include <utility>

#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/types/SqlParts.h"
#include "fetchkit/listset/model/types/Types.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit {
namespace {

class Period final : public FieldType {
 public:
  Editor EditedBy() const override { return Editor::Periods; }

  std::vector<Text> Words() const override {
    return {kOfferedDateWords.begin(), kOfferedDateWords.end()};
  }

  std::vector<StoredColumn> Stored(const ListFieldType& field) const override {
    return {{u"strDateOp", Quoted(CondStrToNum(field.strFilter))},
            {u"dtmDate1", Quoted(FirstValueOf(field.strExtValue))},
            {u"dtmDate2", Quoted(SecondValueOf(field.strExtValue))}};
  }

  Restored Restore(const StoredCondition& stored, const ConditionContext& context,
                   ListFieldType& field) const override {
    const TextView word = DateWordByCode(stored.dateOp);
    if (word == words::kAll) return {};
    Text from = stored.date1;
    Text to = stored.date2;
    const bool custom = word.empty() || word == kCustomRange;
    if (custom && from.empty() && to.empty()) return {};
    // Older data holds words without a range; these keep the dates they were stored with.
    if (!custom) context.dateRange(word, from, to);
    const Text& column = field.strFieldName;
    Text sql;
    if (!from.empty() && !to.empty())
      sql = Join(u"(", column, u" >='", from, u"' And ", column, u" <= '", to, u"')");
    return {custom ? CustomPeriodText(from, to) : Text(word), PairText(from, to), std::move(sql)};
  }

  Text Predicate(const ListFieldType& field, TextView, TextView value) const override {
    if (!IsWholePair(value)) return {};
    const Text& column = field.strFieldName;
    return Join(u"(", column, u" >= '", FirstValueOf(value), u"' And ", column, u" <= '",
                SecondValueOf(value), u"')");
  }
};

}  // namespace

const FieldType& PeriodType() {
  static constexpr Period kType;
  return kType;
}

}  // namespace fetchkit
