// The public record types of a list.
#pragma once

#include <cstdint>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// One column of a list: the view's definition of it, the list's own settings, and the condition
// that the operator has set on it.
struct ListFieldType {
  std::int32_t lngViewFieldID = 0;
  std::int32_t lngViewFieldNO = 0;   // the view's column order
  std::int32_t lngListFieldID = 0;   // 0 when the list has no row for the field
  std::int32_t lngListFieldNO = 0;   // the list's column order; the view's when it has none
  std::int32_t lngDisplayWidth = 0;  // as saved in the list
  Text strPath;                      // the field's description, the key of its conditions
  bool blnIsMust = false;            // always shown
  bool blnIsPrep = false;            // shown by default
  bool blnIsFilter = false;          // may carry a condition
  bool blnIsMuliCond = false;        // the CODE condition names several codes
  bool blnIsChoose = false;          // may be chosen for display
  bool blnIsFixed = false;           // fixed (frozen) column
  bool blnIsFind = false;            // offered for searching
  bool blnIsNotList = false;         // not to be listed
  bool blnIsFilt = false;
  bool blnNotZero = false;
  bool blnIsChoosed = false;  // shown in the list
  std::uint8_t bytHead = 0;
  std::uint8_t bytFieldSize = 0;  // display size
  std::uint8_t bytPrepOrder = 0;  // order among the default columns
  std::uint8_t bytFieldDec = 0;   // decimal places
  std::uint8_t bytFormat = 0;     // display format code
  std::uint8_t bytSort = 0;       // 0: not sorted by this column
  Text strBiaTableName;
  Text strListFieldDesc;  // caption
  Text strKeyField;       // keyword of the code table, for CODE
  Text strTableName;      // table or alias of the column
  Text strFieldName;      // column expression for SELECT and WHERE
  Text strFieldType;      // "CODE", "ENUM", "BOOLEAN", "STRING", "LONG", "DOUBLE", "INTEGER",
                          // "PERIOD" or "DATE", in any letter case
  Text strGroup;
  Text strFilter;    // the condition as shown; empty: none (listset/model/ConditionText.h)
  Text strCodeID;    // the chosen ids of a CODE condition, comma-separated
  Text strExtValue;  // the condition in machine form

  bool operator==(const ListFieldType&) const = default;
};

// One operator's list over a view in one organization. Copies are deep.
struct ListType {
  std::int32_t lngViewID = 0;
  std::int32_t lngListID = 0;  // 0 while none is saved
  Text strViewName;
  Text strListName;       // the view's name after loading
  Text strListFrom;       // FROM text of the view
  Text strListWhere;      // WHERE text of the view with the organization restriction
  Text strListPureWhere;  // the conditions of the list alone
  Text strCurTable;       // main table
  Text strPrimaryKey;
  std::int16_t intFixedCols = 0;         // fields with blnIsFixed
  std::vector<ListFieldType> ListField;  // lower bound 0

  bool operator==(const ListType&) const = default;
};

// Without operations: the public class that owns the record types.
class TypeDef {
 public:
  using ListField = ListFieldType;
  using List = ListType;
};

}  // namespace fetchkit
