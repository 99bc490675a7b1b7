#include "fetchkit/listset/model/ConditionText.h"

#include <algorithm>

#include "fetchkit/base/TextSearch.h"
#include "fetchkit/listset/model/CodeConditions.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit {
namespace {

// The codes of texts where the common mapping has others: kept apart on purpose.
constexpr TextView kStringBetween = u"10";
constexpr TextView kBetweenMark = u"介于 ";

Text Quoted(TextView value) {
  return Join(u"'", value, u"'");
}

Text WithDoubledQuotes(TextView text) {
  Text doubled;
  doubled.reserve(text.size() + CountUnit(text, u'\''));
  for (const char16_t unit : text) {
    if (unit == u'\'') doubled.push_back(unit);
    doubled.push_back(unit);
  }
  return doubled;
}

TextView From(TextView text, std::size_t offset) {
  return text.substr(std::min(offset, text.size()));
}

// ---- stored forms

std::vector<StoredColumn> StoredString(const ListFieldType& field) {
  if (FindText(field.strFilter, kBetweenMark) != TextView::npos)
    return {{u"strStringOp", Text(kStringBetween)},
            {u"strString1", Quoted(FirstValueOf(field.strExtValue))},
            {u"strString2", Quoted(SecondValueOf(field.strExtValue))}};
  return {{u"strStringOp", Text(CondStrToNum(OperatorWordOf(field.strFilter)))},
          {u"strString1", Quoted(field.strExtValue)}};
}

std::vector<StoredColumn> StoredNumber(const ListFieldType& field) {
  const TextView code = CondStrToNum(OperatorWordOf(field.strFilter));
  if (code == u"7") return {{u"strDoubleOP", Text(code)}, {u"dbldouble1", u"0"}};
  if (code == u"6")
    return {{u"strDoubleOP", Text(code)},
            {u"dbldouble1", Text(FirstValueOf(field.strExtValue))},
            {u"dbldouble2", Text(SecondValueOf(field.strExtValue))}};
  return {{u"strDoubleOP", Text(code)}, {u"dbldouble1", field.strExtValue}};
}

// ---- restored forms

// What a stored condition reads back as.
struct Restored {
  Text filter;
  Text extValue;
  Text sql;
};

Restored RestoreString(const StoredCondition& stored, const ConditionContext& context,
                       const ListFieldType& field) {
  const Text& column = field.strFieldName;
  const Text& v = stored.string1;
  if (const Comparison* comparison = ComparisonByCode(stored.stringOp)) {
    // The two classes go by the captions that the users gave them.
    const auto isClass = [&](const Text& name) {
      return !name.empty() && (field.strListFieldDesc == Join(name, u"编码") ||
                               field.strListFieldDesc == Join(name, u"编号"));
    };
    const bool descends = comparison->word == words::kEqual &&
                          (IsCodeCaption(field.strListFieldDesc) || isClass(context.class1Name) ||
                           isClass(context.class2Name));
    return {ConditionRowText(comparison->word, v), v,
            descends ? Join(u"(", column, u" = '", v, u"' or ", column, u" LIKE '", v, u"-%')")
                     : Join(column, comparison->sql, u"'", v, u"'")};
  }
  if (stored.stringOp == u"6")
    return {ConditionRowText(words::kBeginsWith, v), v, Join(column, u" like '", v, u"%' ")};
  if (stored.stringOp == u"7")
    return {ConditionRowText(words::kContains, v), v, Join(column, u" like '%", v, u"%'")};
  if (stored.stringOp == u"8")
    return {ConditionRowText(words::kSimilar, v), v, Join(u"(", column, u" like '", v, u"%')")};
  if (stored.stringOp == kStringBetween) {
    const Text both = Join(v, u",", stored.string2);
    return {ConditionRowText(words::kBetween, both), both,
            Join(u"(", column, u" > '", v, u"' And ", column, u" < '", stored.string2, u"')")};
  }
  if (stored.stringOp == u"11")
    return {Text(words::kNull),
            {},
            Join(u"(", column, u" is NULL  or LTRIM(Rtrim(", column, u")) Is Null)")};
  return {};
}

Restored RestoreNumber(const StoredCondition& stored, const ListFieldType& field) {
  const Text& column = field.strFieldName;
  const Text& v = stored.double1;
  if (const Comparison* comparison = ComparisonByCode(stored.doubleOp))
    return {ConditionRowText(comparison->word, v), v, Join(column, comparison->sql, v)};
  // For numbers 6 is "介于" and 7 is "零或空值".
  if (stored.doubleOp == u"6") {
    const Text both = Join(v, u",", stored.double2);
    return {ConditionRowText(words::kBetween, both), both,
            Join(u"(", column, u" > ", v, u" And ", column, u" < ", stored.double2, u")")};
  }
  if (stored.doubleOp == u"7")
    return {Text(words::kZeroOrNull), {}, Join(u" (", column, u" IS NULL OR ", column, u" =0) ")};
  return {};
}

Restored RestorePeriod(const StoredCondition& stored, const ConditionContext& context,
                       const ListFieldType& field) {
  const TextView word = DateWordByCode(stored.dateOp);
  if (word == words::kAll) return {};
  Text from = stored.date1;
  Text to = stored.date2;
  const bool custom = word.empty() || word == kCustomRange;
  if (custom && from.empty() && to.empty()) return {};
  // Older data holds words without a range; these keep the dates they were stored with.
  if (!custom) context.dateRange(word, from, to);
  const Text& column = field.strFieldName;
  return {custom ? CustomPeriodText(from, to) : Text(word), Join(from, u",", to),
          Join(u"(", column, u" >='", from, u"' And ", column, u" <= '", to, u"')")};
}

Restored RestoreEnum(const StoredCondition& stored, const ListFieldType& field) {
  const Text& list = stored.string2;
  const TextView front = TextView(list).substr(0, 2);
  const bool prefixed = front == u"0," || front == u"1,";
  const TextView values = prefixed ? From(list, 2) : TextView(list);
  Text extValue = prefixed ? list : Join(CountUnit(list, u',') > 0 ? u"1," : u"0,", list);
  Text sql;
  if (!values.empty()) {
    sql = field.strListFieldDesc == u"辅助核算" ? CheckFlagCondition(field.strTableName, values)
                                                : Join(field.strFieldName, u" in (", values, u")");
  }
  return {stored.string1.empty() ? Text(values) : stored.string1, std::move(extValue),
          std::move(sql)};
}

Restored RestoreCode(const StoredCondition& stored, const ConditionContext& context,
                     ListFieldType& field) {
  const TextView ids = TrimBlanks(stored.codeIds);
  field.strCodeID = Text(ids);
  field.blnIsMuliCond = stored.isMulti;
  const TextView keyword = field.strKeyField;
  auto sql = FixedCodeCondition(field.strTableName, field.strFieldName, keyword, ids,
                                context.naturalCurrencyId);
  if (!sql) {
    sql = CodeCondition(field.strTableName, ConditionKeyStem(keyword), ids, keyword);
  }
  // A choice without names shows its ids: an empty text would mean no condition.
  return {stored.codeNames.empty() ? Text(ids) : stored.codeNames,
          Join(stored.isMulti ? u"1," : u"0,", ids), std::move(*sql)};
}

}  // namespace

Text ConditionRowText(TextView word, TextView value) {
  if (value.empty() || word == words::kNull || word == words::kZeroOrNull) return Text(word);
  return Join(word, u" ", value);
}

Text CustomPeriodText(TextView from, TextView to) {
  return Join(kCustomRange, u" (", from, u",", to, u")");
}

TextView OperatorWordOf(TextView strFilter) {
  const TextView text = TrimBlanks(strFilter);
  if (FindText(text, words::kNull) != TextView::npos) return text;
  return text.substr(0, text.find(u' '));
}

TextView FirstValueOf(TextView strExtValue) {
  return strExtValue.substr(0, strExtValue.find(u','));
}

TextView SecondValueOf(TextView strExtValue) {
  const std::size_t comma = strExtValue.find(u',');
  return comma == TextView::npos ? TextView() : strExtValue.substr(comma + 1);
}

std::vector<StoredColumn> StoredColumnsOf(const ListFieldType& field) {
  const auto type = FieldTypeOf(field.strFieldType);
  if (!type) return {};
  const TextView value = field.strExtValue;
  switch (*type) {
    case FieldType::String:
      return StoredString(field);
    case FieldType::Long:
    case FieldType::Integer:
    case FieldType::Double:
      return StoredNumber(field);
    case FieldType::Enum:
      return {{u"strString1", Quoted(field.strFilter)},
              {u"strString2", Quoted(WithDoubledQuotes(From(value, 2)))}};
    case FieldType::Boolean:
      return {{u"blnBoolean", TrimBlanks(value) == words::kYes ? u"1" : u"0"}};
    case FieldType::Date:
      return {{u"strDateOp", u"'0'"}, {u"dtmDate1", Quoted(value)}};
    case FieldType::Period:
      return {{u"strDateOp", Quoted(CondStrToNum(field.strFilter))},
              {u"dtmDate1", Quoted(FirstValueOf(value))},
              {u"dtmDate2", Quoted(SecondValueOf(value))}};
    case FieldType::Code:
      return {{u"blnIsMuliCond", Text(value.substr(0, 1))}};
  }
  return {};
}

Text RestoreCondition(const StoredCondition& stored, const ConditionContext& context,
                      ListFieldType& field) {
  const auto type = FieldTypeOf(field.strFieldType);
  if (!type) return {};
  Restored restored;
  switch (*type) {
    case FieldType::String:
      restored = RestoreString(stored, context, field);
      break;
    case FieldType::Long:
    case FieldType::Integer:
    case FieldType::Double:
      restored = RestoreNumber(stored, field);
      break;
    case FieldType::Enum:
      restored = RestoreEnum(stored, field);
      break;
    case FieldType::Boolean: {
      const Text word(stored.boolean ? words::kYes : words::kNo);
      restored = {word, word, Join(field.strFieldName, u" = '", word, u"'")};
      break;
    }
    case FieldType::Date:
      restored = {stored.date1, stored.date1,
                  Join(field.strFieldName, u" = '", stored.date1, u"'")};
      break;
    case FieldType::Period:
      restored = RestorePeriod(stored, context, field);
      break;
    case FieldType::Code:
      restored = RestoreCode(stored, context, field);
      break;
  }
  field.strFilter = std::move(restored.filter);
  field.strExtValue = std::move(restored.extValue);
  return Bracketed(std::move(restored.sql));
}

}  // namespace fetchkit
