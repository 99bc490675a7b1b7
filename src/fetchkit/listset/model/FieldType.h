// The types of fields, and all that depends on a field's type.
//
// Each type is a class in a file of its own in types/. A new one is such a file and a row of the
// table in FieldType.cpp; the compiler names what it lacks, and with a new Editor the places that
// have to tell editors apart.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/listset/model/TypeDef.h"

namespace fetchkit {

// A column of ListCond and the SQL text of its value.
struct StoredColumn {
  TextView name;
  Text value;
};

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

// What a stored condition reads back as; sql may hold a bare " or ". A condition that lacks its
// value, or one of two, has both texts and no SQL.
struct Restored {
  Text filter;    // strFilter
  Text extValue;  // strExtValue
  Text sql;
};

class FieldType {
 public:
  // How a condition is entered.
  enum class Editor {
    Texts,    // an operator word and one or two texts
    Numbers,  // the same with numbers
    YesNo,    // a word that is the value
    Periods,  // a date word and the two dates that it stands for
    Dates,    // a date alone
    Codes,    // items of a code table, by their ids
    Values,   // values of an enumeration
  };
  virtual Editor EditedBy() const = 0;

  // The words to choose among, in the order in which they are offered, "任意" or "所有" for no
  // condition first; none where there is no word, or where it is an item of the database.
  virtual std::vector<Text> Words() const = 0;

  // The columns in which the field's condition is stored, in the order in which they are written; a
  // number that is missing as Null.
  virtual std::vector<StoredColumn> Stored(const ListFieldType& field) const = 0;

  // The condition that was stored, with today's date ranges. Sets strCodeID and blnIsMuliCond of
  // the field where the type has them. All empty for a stored code that stands for nothing, and for
  // a DATE without its date.
  virtual Restored Restore(const StoredCondition& stored, const ConditionContext& context,
                           ListFieldType& field) const = 0;

  // The condition as the filter dialog asks for it, from its shown and its machine form; empty for
  // one that restricts nothing or lacks its value. Values are inserted as they stand, quotes
  // included.
  virtual Text Predicate(const ListFieldType& field, TextView shown, TextView value) const = 0;

 protected:
  ~FieldType() = default;
};

// By its word in any letter case; null for a word that is none.
const FieldType* FieldTypeOf(TextView strFieldType);

// Whether the field's conditions name codes, which are stored in rows of their own.
bool HasCodes(const ListFieldType& field);

// How the field's condition is stored: the columns beyond the keys. Nothing for an unknown type.
std::vector<StoredColumn> StoredColumnsOf(const ListFieldType& field);

// Sets the field's strFilter, strExtValue, strCodeID and blnIsMuliCond from what was stored, and
// returns the condition as SQL, ready to be joined with " And "; empty for none. A stored code that
// stands for nothing leaves the field without a condition; a field of an unknown type is left
// alone.
Text RestoreCondition(const StoredCondition& stored, const ConditionContext& context,
                      ListFieldType& field);

}  // namespace fetchkit
