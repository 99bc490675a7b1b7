// Statements that a user could type, on four small tables, and what the dialect is documented to
// answer. The embedded host and the database servers are asked the same ones.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "support/Lines.h"

namespace fetchkit::hosts::test {

constexpr const char* kDialectTables = R"(
  CREATE TABLE t (id INTEGER, n REAL, i INTEGER, s TEXT, d TEXT);
  INSERT INTO t VALUES (1, 94100, 7, '94100', '2004-03-17'), (2, 0.5, 0, 'abc', '2003-12-29'),
                       (3, NULL, NULL, NULL, NULL), (4, -12.25, -3, 'Ａｂ上海', '2004-01-01');
  CREATE TABLE u (id INTEGER, c TEXT, q REAL);
  INSERT INTO u VALUES (1, '0100', 100), (2, '200', 200.5), (3, ' 300 ', 300), (4, NULL, NULL);
  CREATE TABLE w (id INTEGER, s VARCHAR2(20), n NUMBER(10,2));
  CREATE VIEW v AS SELECT id, n * 1 AS m, s FROM t;
)";

// answer: the rows "a|b;c|d", Null as "~", or the number of rows that were changed. "refused" says
// that the dialect has an error; what stands in brackets behind it would be its answer, which a
// host need not know.
struct DialectStatement {
  std::string sql;
  std::string answer;

  bool IsQuery() const { return sql.starts_with("SELECT") || sql.starts_with("WITH"); }
};

// Each a column of the first row.
inline std::vector<DialectStatement> Expressions() {
  std::vector<DialectStatement> all;
  for (const auto& [expression, answer] : fetchkit::test::Lines<2>(
#include "hosts/statements/Expressions.txt"
           ))
    all.push_back({"SELECT " + expression + " FROM t WHERE id = 1", answer});
  return all;
}

// Each with the rows that it finds.
inline std::vector<DialectStatement> Conditions() {
  std::vector<DialectStatement> all;
  for (const auto& [condition, ids] : fetchkit::test::Lines<2>(
#include "hosts/statements/Conditions.txt"
           ))
    all.push_back({"SELECT id FROM t WHERE " + condition + " ORDER BY id", ids});
  return all;
}

// Queries of every shape, and changes of the table w, which go on from each other.
inline std::vector<DialectStatement> WholeStatements() {
  std::vector<DialectStatement> all;
  for (const auto& [sql, answer] : fetchkit::test::Lines<2>(
#include "hosts/statements/Whole.txt"
           ))
    all.push_back({sql, answer});
  return all;
}

// Everything beside everything: as numbers where one of the two is one, else as texts.
inline std::vector<DialectStatement> Comparisons() {
  struct Operand {
    std::string sql;
    std::string text;
    std::optional<double> number;  // of a number, or of a text that is one
    bool isNumber;
  };
  const std::vector<Operand> operands = {
      {"n", "", 94100, true},
      {"94100", "", 94100, true},
      {"n + 0", "", 94100, true},
      {"Nvl(n,0)", "", 94100, true},
      {"Length(d)", "", 10, true},
      {"Decode(id,1,i)", "", 7, true},
      {"CASE WHEN id = 1 THEN n / 2 END", "", 47050, true},
      {"(SELECT Max(n) FROM t)", "", 94100, true},
      {"s", "94100", 94100, false},
      {"'94100'", "94100", 94100, false},
      {"'094100'", "094100", 94100, false},
      {"'94100.0'", "94100.0", 94100, false},
      {"'7'", "7", 7, false},
      {"Substr(d,1,4)", "2004", 2004, false},
      {"n || ''", "94100", 94100, false},
      {"To_Char(n)", "94100", 94100, false},
      {"Decode(id,1,'10')", "10", 10, false},
      {"Nvl(s,'-')", "94100", 94100, false},
      {"(SELECT Min(s) FROM t)", "94100", 94100, false},
      {"d", "2004-03-17", std::nullopt, false},
      {"'abc'", "abc", std::nullopt, false},
  };
  std::vector<DialectStatement> all;
  for (const Operand& left : operands)
    for (const Operand& right : operands) {
      const bool asNumbers = left.isNumber || right.isNumber;
      const bool fails = asNumbers && (!left.number || !right.number);
      const int order = asNumbers ? (left.number > right.number) - (left.number < right.number)
                                  : left.text.compare(right.text);
      for (const auto& [sign, holds] : {std::pair{" = ", order == 0}, std::pair{" < ", order < 0}})
        all.push_back(
            {"SELECT id FROM t WHERE id = 1 AND " + left.sql + sign + right.sql, fails   ? "refused"
                                                                                 : holds ? "1"
                                                                                         : ""});
    }
  return all;
}

}  // namespace fetchkit::hosts::test
