// How the columns of a code table are named.
#pragma once

#include "fetchkit/base/Text.h"

namespace fetchkit {

// What stands between "lng" and "ID", or "str" and "Code", in the column names of a code table:
// mostly the table's name itself; "Class" of Class1, "Currency" of Currencys, "Custom" of Custom0
// to Custom5, "Field" of FlexibleField01 to FlexibleField30. The name is recognised in any letter
// case and cut as it was passed; the result is a view into it, or of a literal.
TextView CodeStem(TextView tableName);

}  // namespace fetchkit
