// The library's SQL dialect on the embedded database.
//
// What differs, and what is done about it:
//   strCode > 200       converts the text, as always              -> to_number (Types.h)
//   ''                  is Null                                 -> NULL
//   a || b              reads Null as empty, binds like +       -> concat(a, b)
//   a / b               keeps the fraction                      -> a / 1.0 / b
//   ORDER BY            Null is the greatest value              -> NULLS LAST or FIRST
//   a.x = b.x(+)        is an outer join                        -> LEFT JOIN (OuterJoin.h)
//   LIST_SEQ.NEXTVAL    draws from a sequence                   -> the number drawn
//   Begin s; s; End;    is one statement, done wholly or not    -> its statements
// Functions of the dialect are functions of the embedded database (hosts/sqlite/Functions.h); DUAL
// is a table of one row in the account's database; schemas are attached databases.
#pragma once

#include <cstdint>
#include <vector>

#include "fetchkit/base/Text.h"
#include "hosts/dialect/Engine.h"
#include "hosts/dialect/Types.h"

namespace fetchkit::hosts {

// What the adapter asks the database while it works on a statement.
class Catalog {
 public:
  virtual ~Catalog() = default;

  // See ColumnsOf in OuterJoin.h.
  virtual std::vector<Text> ColumnsOf(TextView fromItem) = 0;

  // Draws the next number of a sequence, whose name is in upper case. schema is empty where the
  // statement names none. Throws when there is no such sequence.
  virtual std::int64_t NextValue(TextView schema, TextView sequence) = 0;

  // Whether the database needs to be told every conversion between numbers and texts (Types.h); if
  // so, the types of a table's columns are asked for.
  virtual bool ConfusesTypes() const { return false; }
  virtual std::vector<TypedColumn> TypesOf(TextView /*table*/) { return {}; }
};

struct AdaptedStatement {
  enum class Kind {
    Query,   // one statement that gives rows
    Change,  // one INSERT, UPDATE or DELETE
    Block,   // any number of these, to be done wholly or not at all
  };
  Kind kind;
  std::vector<Text> statements;
};

// The statements for the embedded database, or for another engine (Translation.h says what is
// written otherwise there) that does not speak the dialect.
//
// Error (Host), which names what and the position, for text that the adapter does not understand,
// and whatever catalog throws. A number is drawn only for a statement that is understood; as in the
// real database it stays drawn when the statement then fails.
AdaptedStatement Adapt(TextView sql, Catalog& catalog, const Engine* engine = nullptr);

}  // namespace fetchkit::hosts
