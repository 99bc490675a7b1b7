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
  Text,     // in the embedded database dates, too: they are kept as texts
  Date,     // of a database that has them
  Null,     // nothing but Null
  Unknown,  // what a view of the embedded database computes, or a type of the database's own
};

// Of numbers, how they are kept; what is reckoned of two is of the later one's kind. A quotient has
// more digits than a number here can hold.
enum class NumberKind { Whole, Decimal, Double, Quotient };

struct TypedColumn {
  Text name;
  ValueType type;
  NumberKind kind = NumberKind::Double;
};

// Whose words the conversions are written in: the embedded database has functions for all of them
// (hosts/sqlite/Functions.h). A server has what the rules of its Engine make of them
// (Translation.h); it has types of its own, gives a second row of a value an error by itself, and
// is spared what needs none or what can be said while the statement is read:
//
//   '5' + 1                  5 + 1
//   whole || 'x'             whole_text(whole) || 'x'
//   n || 'x'                 decimal_text(n, position) || 'x'
//   a + b = 0.3              exact(a + b) = 0.3     of floating numbers alone
//
// A function of a schema, the user's own, is let through; what it gives is not known.
enum class TypedFor { Embedded, Server };

// The columns of a table or view, by its name as the statement has it. Throws when there is none.
using TypesOf = std::function<std::vector<TypedColumn>(TextView table)>;

// The statement, a query or a change, with its conversions. Error (Host) with the position for what
// is refused, and whatever typesOf throws.
Tokens WithTypes(const Tokens& statement, const TypesOf& typesOf,
                 TypedFor whom = TypedFor::Embedded);

}  // namespace fetchkit::hosts
