// One definition of the condition texts.
//
// A field's condition has three forms: as shown (strFilter, such as "大于 100"), as a machine form
// (strExtValue, such as "100") and as stored in the table ListCond. The filter dialog composes the
// first two, saving takes them apart, loading builds them again, and SQL is made from them. All of
// them use this unit.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/listset/model/ConditionWords.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

// The text shown for a word and its value: the bare word for "空值", "零或空值" and an empty value,
// otherwise word, blank, value.
Text ConditionRowText(TextView word, TextView value);

// "自定义 (f,t)".
Text CustomPeriodText(TextView from, TextView to);

// The operator word of a shown text: up to its first blank, the whole trimmed text when it holds
// "空值".
TextView OperatorWordOf(TextView strFilter);

// The parts of a two-valued machine form, around its first comma; both are the whole text and
// nothing when there is none.
TextView FirstValueOf(TextView strExtValue);
TextView SecondValueOf(TextView strExtValue);

// A column of ListCond and the SQL text of its value.
struct StoredColumn {
  TextView name;
  Text value;
};

// How the field's condition is stored: the columns beyond the keys, in the order in which they are
// written. Nothing for a type that is none of the nine.
std::vector<StoredColumn> StoredColumnsOf(const ListFieldType& field);

// A stored condition as it was read; Null is the empty text.
struct StoredCondition {
  Text stringOp, string1, string2;
  Text dateOp, date1, date2;        // dates "yyyy-MM-dd"
  Text doubleOp, double1, double2;  // plain decimals
  bool boolean = false;
  bool isMulti = false;
  Text codeIds, codeNames;  // of all code rows of the condition
};

// What restoring needs to know of the login.
struct ConditionContext {
  // The range of a date word; false when it has none, and the outputs are then left alone.
  std::function<bool(TextView word, Text& from, Text& to)> dateRange;
  Text class1Name, class2Name;  // user-defined captions of the two statistics classes
  std::int32_t naturalCurrencyId = 0;
};

// Sets the field's strFilter, strExtValue, strCodeID and blnIsMuliCond from what was stored, and
// returns the condition as SQL, ready to be joined with " And "; empty for none. A stored code that
// stands for nothing leaves the field without a condition.
Text RestoreCondition(const StoredCondition& stored, const ConditionContext& context,
                      ListFieldType& field);

}  // namespace fetchkit
