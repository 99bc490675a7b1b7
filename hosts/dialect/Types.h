// What the expressions of a statement hold, for a database that does not keep numbers and texts
// apart by itself: it would find no row for lngId = 'A', where the dialect has an error, and would
// compare a + b = '5' as a number with a text, where the dialect converts the text.
//
// WithTypes reads a whole statement, knows the types of its columns, and writes down every
// conversion that the dialect does in silence:
//
//   strCode > 200            to_number(strCode) > 200
//   dblDebit LIKE '94%'      to_char(dblDebit) LIKE '94%'
//   a / b                    quotient(a, b)         which refuses to divide by zero
//   a + b = 0.3              exact(a + b) = 0.3     to 15 digits, as decimal numbers would be
//   x = (SELECT y FROM t)    x = (SELECT only_row(y) FROM t)   which refuses a second row
//   decode(x, 0, 0, y / x)   CASE x WHEN 0 THEN 0 ELSE quotient(y, x) END
//
// What may fail gets its position in the statement as one more argument, left out above.
// The functions it writes, and those that it lets through, are the database's to have
// (hosts/sqlite/Functions.h). Everything else that the dialect does not have, or that the database
// would answer otherwise, is refused: unknown words, functions and operators, a column beside an
// aggregate, an ORDER BY that DISTINCT has lost, a name that is no column.
#pragma once

#include <functional>
#include <vector>

#include "hosts/dialect/Tokenizer.h"

namespace fetchkit::hosts {

enum class ValueType {
  Number,
  Text,     // dates, too: they are kept as texts
  Null,     // nothing but Null
  Unknown,  // what a view computes
};

struct TypedColumn {
  Text name;
  ValueType type;
};

// The columns of a table or view, by its name as the statement has it. Throws when there is none.
using TypesOf = std::function<std::vector<TypedColumn>(TextView table)>;

// The statement, a query or a change, with its conversions. Error (Host) with the position for what
// is refused, and whatever typesOf throws.
Tokens WithTypes(const Tokens& statement, const TypesOf& typesOf);

}  // namespace fetchkit::hosts
