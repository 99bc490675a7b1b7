#include <utility>

#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/model/ConditionText.h"
#include "fetchkit/listset/model/types/SqlParts.h"
#include "fetchkit/listset/model/types/Types.h"
#include "fetchkit/utility/CodeTables.h"

namespace fetchkit {
namespace {

// The codes of texts where the common mapping has others: kept apart on purpose.
constexpr TextView kBetweenCode = u"10";
constexpr TextView kBetweenMark = u"介于 ";

class String final : public FieldType {
 public:
  Editor EditedBy() const override { return Editor::Texts; }

  std::vector<Text> Words() const override {
    using namespace words;
    return {Text(kAny),     Text(kNull),       Text(kGreater),      Text(kLess),
            Text(kEqual),   Text(kNotEqual),   Text(kGreaterEqual), Text(kLessEqual),
            Text(kBetween), Text(kBeginsWith), Text(kContains),     Text(kSimilar)};
  }

  std::vector<StoredColumn> Stored(const ListFieldType& field) const override {
    // Wherever it stands: a condition whose value holds "介于 " is stored as a pair, too.
    if (FindText(field.strFilter, kBetweenMark) != TextView::npos)
      return {{u"strStringOp", Text(kBetweenCode)},
              {u"strString1", Quoted(FirstValueOf(field.strExtValue))},
              {u"strString2", Quoted(SecondValueOf(field.strExtValue))}};
    return {{u"strStringOp", Text(CondStrToNum(WordToStore(field.strFilter)))},
            {u"strString1", Quoted(field.strExtValue)}};
  }

  Restored Restore(const StoredCondition& stored, const ConditionContext& context,
                   ListFieldType& field) const override {
    const Text& column = field.strFieldName;
    const Text& v = stored.string1;
    const auto restored = [&](TextView word, Text sql) -> Restored {
      return {ConditionRowText(word, v), v, v.empty() ? Text() : std::move(sql)};
    };
    if (const Comparison* comparison = ComparisonByCode(stored.stringOp)) {
      const bool descends =
          comparison->word == words::kEqual && IsCode(field.strListFieldDesc, context);
      return restored(comparison->word, descends ? Join(u"(", column, u" = '", v, u"' or ", column,
                                                        u" LIKE '", v, u"-%')")
                                                 : Join(column, comparison->sql, u"'", v, u"'"));
    }
    if (stored.stringOp == u"6")
      return restored(words::kBeginsWith, Join(column, u" like '", v, u"%' "));
    if (stored.stringOp == u"7")
      return restored(words::kContains, Join(column, u" like '%", v, u"%'"));
    if (stored.stringOp == u"8")
      return restored(words::kSimilar, Join(u"(", column, u" like '", v, u"%')"));
    if (stored.stringOp == kBetweenCode) {
      const Text both = PairText(v, stored.string2);
      Text sql;
      if (IsWholePair(both))
        sql = Join(u"(", column, u" > '", v, u"' And ", column, u" < '", stored.string2, u"')");
      return {ConditionRowText(words::kBetween, both), both, std::move(sql)};
    }
    if (stored.stringOp == u"11")
      return {Text(words::kNull),
              {},
              Join(u"(", column, u" is NULL  or LTRIM(Rtrim(", column, u")) Is Null)")};
    return {};
  }

  Text Predicate(const ListFieldType& field, TextView shown, TextView value) const override {
    return ScalarPredicate(field.strFieldName, shown, value, u"'");
  }

 private:
  // Whether "等于" also finds the codes below; the two classes go by the captions that the users
  // gave them.
  static bool IsCode(TextView caption, const ConditionContext& context) {
    const auto isClass = [&](const Text& name) {
      return !name.empty() && (caption == Join(name, u"编码") || caption == Join(name, u"编号"));
    };
    return IsCodeCaption(caption) || isClass(context.class1Name) || isClass(context.class2Name);
  }
};

}  // namespace

const FieldType& StringType() {
  static constexpr String kType;
  return kType;
}

}  // namespace fetchkit
