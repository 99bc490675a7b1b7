// How code tables name their tables, columns and captions. All that is irregular about it stands
// here.
//
// A code table is known by its keyword, in any letter case. Its columns are "lng" stem "ID", "str"
// stem "Code" and "str" stem "Name"; a stem is cut from the keyword as it was passed, so that the
// result is a view into it, or of a literal.
#pragma once

#include "fetchkit/base/Text.h"

namespace fetchkit {

// Mostly the table's name itself; "Class" of Class1, "Currency" of Currencys, "Custom" of Custom0
// to Custom5, "Field" of FlexibleField01 to FlexibleField30.
TextView CodeStem(TextView tableName);

// The stem in the key column of a stored CODE condition: CodeStem's answer, but the manufacturing
// tables' keyword without its first two letters.
TextView ConditionKeyStem(TextView strKeyField);

// The same in the filter dialog's own conditions, where the flexible fields keep their keyword
// whole; what is read back later names their real column.
TextView FilterKeyStem(TextView strKeyField);

// "SELECT ... WHERE " of a table's codes as a1 and ids as b1, ready for a condition. Its columns
// and the names that are regular are in upper case; the blanks differ by table.
Text CodeIdSelect(TextView tableName);

// A table that the filter dialog's picker lists by a statement of its own.
struct CodeTable {
  enum class Form {
    Assigned,     // rows with a code that is not blank, "ASC"
    Plain,        // active rows
    WithoutCode,  // active rows, id and name alone, by id
    Distinct,     // all rows
  };

  TextView keyword;
  TextView table;
  Form form;
  bool hasRights;  // the list is held to what the login may see
};

// Null for every other keyword: such a table's name is the keyword.
const CodeTable* FindCodeTable(TextView strKeyField);

// Whether an ENUM column of this caption holds names of operators.
bool IsOperatorCaption(TextView caption);

// Whether "等于" on a STRING column of this caption also finds the codes below the given one.
bool IsCodeCaption(TextView caption);

}  // namespace fetchkit
