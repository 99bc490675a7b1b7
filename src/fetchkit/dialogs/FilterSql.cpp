#include "fetchkit/dialogs/FilterSql.h"

#include <algorithm>

#include "fetchkit/base/Value.h"
#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/listset/model/ConditionText.h"

namespace fetchkit {
namespace {

constexpr TextView kAnd = u" And ";

// The ids or values of a choice, behind the mark that says whether they are several.
TextView ItemsOf(TextView value) {
  return value.substr(std::min<std::size_t>(2, value.size()));
}

bool IsSeveral(TextView value) {
  return value.substr(0, 1) == u"1";
}

// A text without a blank has no operator word; such a row restricts nothing.
TextView WordOf(TextView text) {
  if (text == words::kNull || text == words::kZeroOrNull) return text;
  const std::size_t blank = text.find(u' ');
  return blank == TextView::npos ? TextView() : TrimBlanks(text.substr(0, blank));
}

Text ScalarPredicate(TextView column, TextView word, TextView value, TextView quote) {
  if (word == words::kNull) return Join(column, u" Is Null", kAnd);
  if (word == words::kZeroOrNull) return Join(u"(", column, u" Is Null or ", column, u"=0)", kAnd);
  if (const Comparison* comparison = ComparisonByWord(word))
    return Join(column, comparison->sql, quote, value, quote, kAnd);
  if (word == words::kBeginsWith) return Join(column, u" Like ", quote, value, u"%", quote, kAnd);
  if (word == words::kContains)
    return Join(column, u" Like ", quote, u"%", value, u"%", quote, kAnd);
  // The same match as "打头字符为", in brackets.
  if (word == words::kSimilar)
    return Join(u"(", column, u" Like ", quote, value, u"%", quote, u")", kAnd);
  // Without its bounds, unlike a period.
  if (word == words::kBetween)
    return Join(u"(", column, u" > ", quote, FirstValueOf(value), quote, kAnd, column, u" < ",
                quote, SecondValueOf(value), quote, u")", kAnd);
  return {};
}

// The comparison of a choice; nothing for one without items, as older rows hold them.
Text ChoicePredicate(TextView column, TextView value) {
  const TextView items = ItemsOf(value);
  if (items.empty()) return {};
  if (IsSeveral(value)) return Join(column, u" In(", items, u")", kAnd);
  return Join(column, u" = ", items, kAnd);
}

Text Predicate(FieldType type, const ListFieldType& field, TextView text, TextView value) {
  const TextView column = field.strFieldName;
  switch (type) {
    case FieldType::Code:
      return ChoicePredicate(
          Join(field.strTableName, u".lng", FilterKeyStem(field.strKeyField), u"ID"), value);
    case FieldType::Enum:
      return ChoicePredicate(column, value);
    case FieldType::Boolean:
    case FieldType::Date:
      return Join(column, u" = '", value, u"'", kAnd);
    case FieldType::Period:
      return Join(u"(", column, u" >= '", FirstValueOf(value), u"'", kAnd, column, u" <= '",
                  SecondValueOf(value), u"')", kAnd);
    case FieldType::String:
    case FieldType::Long:
    case FieldType::Double:
    case FieldType::Integer:
      return ScalarPredicate(column, WordOf(text), value, IsNumberType(type) ? u"" : u"'");
  }
  return {};
}

}  // namespace

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
    const auto type = FieldTypeOf(cell(FilterColumns::kType));
    if (!type) continue;
    const Text& text = cell(FilterColumns::kText);
    const Text& value = cell(FilterColumns::kValue);
    sql.append(Predicate(*type, field, text, value));
    field.strFilter = text;
    field.strExtValue = value;
    if (*type == FieldType::Code) {
      field.strCodeID = Text(ItemsOf(value));
      field.blnIsMuliCond = IsSeveral(value);
    }
  }
  // The closing "And " goes, and the blank in front of it with the trimming.
  sql.resize(sql.size() - std::min<std::size_t>(4, sql.size()));
  return Text(TrimBlanks(sql));
}

}  // namespace fetchkit
