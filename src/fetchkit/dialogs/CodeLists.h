// The statements behind the pickers of CODE and ENUM columns.
#pragma once

#include <map>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/listset/model/TypeDef.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

struct CodeListStatement {
  Text sql;                     // selects id, code and name, or id and name
  std::vector<Text> fallbacks;  // tried one after the other while none opens
};

// The statement that lists the code table of a keyword (in any letter case). Tables with rights of
// their own are held to the codes that the login operator may query and the login organization may
// use. A keyword without a row of its own names its table itself, whose columns are named after the
// keyword or, at last, after the stem that conditions use.
CodeListStatement CodeListStatementOf(Session& session, TextView strKeyField);

// The statement that lists the values of an enumeration column, by its caption.
Text EnumListStatementOf(Session& session, TextView caption);

// What a statement lists, cell by cell.
struct CodeList {
  std::vector<Text> cells;
  bool isWhole = false;  // not when it did not open, or an error cut it short; what was read stands
};

// The rows of that statement, three cells each: id, code (empty where the table has none), name.
CodeList ReadCodeList(Session& session, TextView strKeyField);

// The values, one cell each.
CodeList ReadEnumList(Session& session, TextView caption);

// Reads each list once, if it comes in whole; one that did not is read again when it is asked for.
class CodeListCache {
 public:
  // The cells of the codes, or of the values, that a column may be filtered by.
  std::vector<Text> ItemsOf(Session& session, const ListFieldType& field, bool areCodes);

  void Clear();

 private:
  std::map<Text, std::vector<Text>> codes_, values_;  // by keyword, and by caption
};

}  // namespace fetchkit
