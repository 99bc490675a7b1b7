// The SQL texts of a list.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/listset/model/TypeDef.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MListSet {

// The select list of the shown columns: " column As caption, column As caption", with the blank in
// front; empty when no column is shown.
Text GetListSelect(const ListType& list);

// The ids, comma-separated, of all codes below the given ones in the code table of that keyword;
// strMulCode holds codes separated by blanks. The given codes themselves do not appear; a code
// below two of them, or below one that is given twice, appears twice. Empty when there are none and
// on failure; ids that were read before an error stand. Blanks alone make a statement without a
// condition, which the database refuses.
Text FindAllKeyID(Session& session, TextView strCodeTableName, TextView strMulCode);

// strSelected with every strString replaced by Replace, without regard to letter case, and then
// every strString without its last character in front of a "." likewise: callers pass table names
// with one separator behind them, so that the table and its qualified columns are renamed.
// Inserted text is not looked at again within a pass.
Text ModifyTableName(TextView strSelected, TextView strString, TextView Replace);

}  // namespace fetchkit::MListSet
