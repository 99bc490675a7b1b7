#include <utility>

#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/types/SqlParts.h"
#include "fetchkit/listset/model/types/Types.h"

namespace fetchkit {
namespace {

// What these two are stored as; texts are stored with other codes.
constexpr TextView kBetweenCode = u"6";
constexpr TextView kZeroOrNullCode = u"7";

Text NumberOrNull(TextView value) {
  return Text(value.empty() ? TextView(u"Null") : value);
}

class Number final : public FieldType {
 public:
  Editor EditedBy() const override { return Editor::Numbers; }

  std::vector<Text> Words() const override {
    using namespace words;
    return {Text(kAny),      Text(kZeroOrNull),   Text(kGreater),   Text(kLess),   Text(kEqual),
            Text(kNotEqual), Text(kGreaterEqual), Text(kLessEqual), Text(kBetween)};
  }

  std::vector<StoredColumn> Stored(const ListFieldType& field) const override {
    const TextView code = CondStrToNum(WordToStore(field.strFilter));
    if (code == kZeroOrNullCode) return {{u"strDoubleOP", Text(code)}, {u"dbldouble1", u"0"}};
    if (code == kBetweenCode)
      return {{u"strDoubleOP", Text(code)},
              {u"dbldouble1", NumberOrNull(FirstValueOf(field.strExtValue))},
              {u"dbldouble2", NumberOrNull(SecondValueOf(field.strExtValue))}};
    return {{u"strDoubleOP", Text(code)}, {u"dbldouble1", NumberOrNull(field.strExtValue)}};
  }

  Restored Restore(const StoredCondition& stored, const ConditionContext&,
                   ListFieldType& field) const override {
    const Text& column = field.strFieldName;
    const Text& v = stored.double1;
    if (const Comparison* comparison = ComparisonByCode(stored.doubleOp))
      return {ConditionRowText(comparison->word, v), v,
              v.empty() ? Text() : Join(column, comparison->sql, v)};
    if (stored.doubleOp == kBetweenCode) {
      const Text both = PairText(v, stored.double2);
      Text sql;
      if (IsWholePair(both))
        sql = Join(u"(", column, u" > ", v, u" And ", column, u" < ", stored.double2, u")");
      return {ConditionRowText(words::kBetween, both), both, std::move(sql)};
    }
    if (stored.doubleOp == kZeroOrNullCode)
      return {Text(words::kZeroOrNull), {}, Join(u" (", column, u" IS NULL OR ", column, u" =0) ")};
    return {};
  }

  Text Predicate(const ListFieldType& field, TextView shown, TextView value) const override {
    return ScalarPredicate(field.strFieldName, shown, value, u"");
  }
};

}  // namespace

const FieldType& NumberType() {
  static constexpr Number kType;
  return kType;
}

}  // namespace fetchkit
