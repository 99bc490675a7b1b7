// The conditions of the filter dialog's grid as SQL.
#pragma once

#include <cstddef>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/dialogs/ControlModels.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

// The columns of a condition's row.
struct FilterColumns {
  static constexpr int kFieldIndex = 0;  // in the record's fields, decimal
  static constexpr int kCaption = 1;
  static constexpr int kText = 2;   // strFilter
  static constexpr int kType = 3;   // field type word; it decides, not the field's own
  static constexpr int kValue = 4;  // strExtValue
};

// The same of a row without a grid.
struct FilterRow {
  std::size_t field;
  Text type;
  Text text;
  Text value;
};

// Clears the conditions of all fields, also of those without a row, writes the rows back into their
// fields, and returns the predicates in the order of the rows, joined by " And ", without "Where";
// empty for no row and when no row has a predicate. A row of none of the nine types is skipped; one
// without an operator word, without its value or one of two, or without chosen items is written
// back and restricts nothing. Values are inserted as they stand, quotes included. Error
// (TypeMismatch) or std::out_of_range for a row that points to no field.
Text ConditionsToSql(const MSFlexGrid& conditions, ListType& list);
Text ConditionsToSql(const std::vector<FilterRow>& conditions, ListType& list);

}  // namespace fetchkit
