// Outer joins marked "(+)" in the WHERE clause, written as LEFT JOIN.
//
//   SELECT * FROM b, a WHERE a.id = b.id(+) AND a.x = 1
//   SELECT b.*, a.* FROM a LEFT JOIN b ON a.id = b.id WHERE a.x = 1
//
// A predicate with a mark belongs to the one table whose columns are marked, the inner table, and
// depends on every other table that it mentions. Tables that no predicate marks come first, then
// the inner ones, each behind those it depends on. A bare "*" is spelt out in the order in which
// the tables stood, so that the columns, and the first of two equal names, stay where they were.
#pragma once

#include <functional>
#include <vector>

#include "hosts/dialect/Tokenizer.h"

namespace fetchkit::hosts {

// The column names of one item of a FROM clause: a table, a view or a SELECT in brackets, with its
// other name if it has one. Throws when there is no such table.
using ColumnsOf = std::function<std::vector<Text>(TextView fromItem)>;

// Rewrites every SELECT in the tokens, inner ones first. columnsOf is asked only about the tables
// of a SELECT in which a marked predicate names a column without its table.
//
// Error (Host), with the position, for what a LEFT JOIN cannot say or the dialect does not allow: a
// mark under OR, beside a SELECT, beside JOIN, outside of a WHERE, behind what is no column of a
// table of this FROM; two marked tables in one predicate; tables that depend on each other.
Tokens RewriteOuterJoins(const Tokens& tokens, const ColumnsOf& columnsOf);

}  // namespace fetchkit::hosts
