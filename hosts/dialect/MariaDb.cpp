#include <algorithm>
#include <array>

#include "hosts/dialect/Engines.h"

namespace fetchkit::hosts {
namespace {

// In its mode ORACLE the engine has nvl and decode, and its text functions answer Null where
// nothing is left.
class MariaDbEngine : public Engine {
 public:
  std::vector<Text> SessionStatements(bool readOnly) const override {
    std::vector<Text> statements = {
        u"SET SESSION collation_connection = utf8mb4_nopad_bin",
        // Strict, or long texts are cut in silence; without escapes, or a backslash at the end of a
        // text breaks its quote.
        u"SET SESSION sql_mode = 'ORACLE,EMPTY_STRING_IS_NULL,STRICT_ALL_TABLES,"
        u"NO_BACKSLASH_ESCAPES,ONLY_FULL_GROUP_BY,ERROR_FOR_DIVISION_BY_ZERO'"};
    if (readOnly) statements.emplace_back(u"SET SESSION TRANSACTION READ ONLY");
    return statements;
  }

  std::vector<Text> SchemaStatements(TextView schema) const override {
    return {Join(u"USE ", Quoted(schema))};
  }

  std::vector<Text> Demands() const override {
    return {
        u"SELECT CASE WHEN @@lower_case_table_names = 0 THEN 'names of tables regard letter "
        u"case: start the server with lower_case_table_names=1' END AS demand",
        // The last character of the mode's list tells nothing; each word has to be there.
        u"SELECT CASE WHEN @@sql_mode NOT LIKE '%EMPTY_STRING_IS_NULL%' OR @@sql_mode NOT LIKE "
        u"'%STRICT_ALL_TABLES%' OR @@sql_mode NOT LIKE '%NO_BACKSLASH_ESCAPES%' OR @@sql_mode "
        u"NOT LIKE '%ORACLE%' THEN concat('the session has the modes ', @@sql_mode) END AS "
        u"demand",
        u"SELECT concat('texts of ', table_name, '.', column_name, ' are compared by ', "
        u"collation_name, ': utf8mb4_nopad_bin is needed') AS demand FROM "
        u"information_schema.columns WHERE table_schema = database() AND collation_name NOT "
        u"LIKE '%\\_nopad\\_bin' ESCAPE '\\' LIMIT 1"};
  }

  const std::vector<FunctionRule>& Functions() const override { return functions_; }
  Text Explained(TextView words) const override {
    const std::size_t at = words.find(kRefusal);
    if (at == TextView::npos) return Text(words);
    const TextView sum = words.substr(at + kRefusal.size());  // "1 * 35 + ..."
    if (sum.empty()) return Text(words);
    const std::size_t reason = sum[0] - u'1';
    const TextView place = sum.substr(std::min<std::size_t>(4, sum.size()));
    const TextView digits = place.substr(0, place.find_first_not_of(u"0123456789"));
    if (reason >= kReasons.size() || digits.empty()) return Text(words);
    return Join(u"The adapter refuses ", kReasons[reason], digits == u"0" ? u"" : u", at position ",
                digits == u"0" ? u"" : digits, u".");
  }
  bool OrdersNulls() const override { return false; }
  bool HasDual() const override { return true; }
  const std::vector<TextView>& Keywords() const override { return keywords_; }
  Text Quoted(TextView name) const override { return InQuotes(name, u'"'); }
  Text NextValue(TextView sequence) const override { return Join(u"NEXTVAL(", sequence, u")"); }

 private:
  // What fails is a sum that is too large for the engine, whose message shows the sum: the reason
  // as a number, then the place. It names a column, or the engine would reckon it before it is due.
  static constexpr TextView kRefusal = u"9223372036854775807 + ";
  static constexpr std::array<TextView, 3> kReasons = {
      u"a text that is no number", u"a division by zero", u"a number of too many digits"};

  // A text is read as a number with at most 15 digits. Numbers are rounded as decimals, which the
  // engine has with 35 digits in front of the point and 30 behind; it would cut off more in
  // silence.
  std::vector<FunctionRule> functions_ = {
      {u"REPLACE", 2, u"replace($1, $2, NULL)"},
      {u"SUBSTR", 2, u"substr($*)", true},
      {u"SUBSTR", 2, u"substr($1, truncate($2, 0))"},
      {u"SUBSTR", 3, u"substr($1, truncate($2, 0), truncate($3, 0))"},
      {u"AVG", 1, u"avg(1e0 * ($1))"},
      {u"MOD", 2,
       u"CASE WHEN $2 = 0 THEN $1 WHEN abs($1) < 1e30 AND abs($2) < 1e30 THEN "
       u"mod(CAST($1 AS DECIMAL(65,30)), CAST($2 AS DECIMAL(65,30))) "
       u"WHEN $1 + $2 IS NOT NULL THEN 9223372036854775807 + 3 * 0 + ($1 IS NOT NULL) END"},
      {u"ROUND", 1,
       u"CASE WHEN abs($1) < 1e30 THEN round(CAST($1 AS DECIMAL(65,30)), 0) "
       u"WHEN $1 IS NOT NULL THEN 9223372036854775807 + 3 * 0 + ($1 IS NOT NULL) END"},
      {u"ROUND", 2,
       u"CASE WHEN abs($1) < 1e30 THEN round(CAST($1 AS DECIMAL(65,30)), truncate($2, 0)) "
       u"WHEN $1 IS NOT NULL THEN 9223372036854775807 + 3 * 0 + ($1 IS NOT NULL) END"},
      {u"TRUNC", 1,
       u"CASE WHEN abs($1) < 1e30 THEN truncate(CAST($1 AS DECIMAL(65,30)), 0) "
       u"WHEN $1 IS NOT NULL THEN 9223372036854775807 + 3 * 0 + ($1 IS NOT NULL) END"},
      {u"TRUNC", 2,
       u"CASE WHEN abs($1) < 1e30 THEN truncate(CAST($1 AS DECIMAL(65,30)), truncate($2, 0)) "
       u"WHEN $1 IS NOT NULL THEN 9223372036854775807 + 3 * 0 + ($1 IS NOT NULL) END"},
      {u"TO_CHAR", 1, u"($1)"},
      {u"TO_NUMBER", 1, u"($1)"},
      {u"TO_NUMBER", 2,
       u"CASE WHEN $1 REGEXP '^ *[+-]?(?=[0-9.]{1,16}([eE ]|\\z))([0-9]{1,15}[.]?[0-9]{0,15}|"
       u"[.][0-9]{1,15})([eE][+-]?[0-9]{1,2})? *\\z' THEN CAST($1 AS DOUBLE) "
       u"WHEN $1 IS NOT NULL THEN 9223372036854775807 + 1 * $2 + ($1 IS NOT NULL) END"},
      {u"EXACT", 1,
       u"CASE WHEN abs($1) BETWEEN 1e-15 AND 1e30 THEN CAST(round(CAST($1 AS DECIMAL(65,30)), "
       u"14 - floor(log10(abs($1)))) AS DOUBLE) ELSE $1 END"},
      {u"QUOTIENT", 3, u"($1 / 1e0 / $2)", true},
      {u"QUOTIENT", 3,
       u"CASE WHEN $2 = 0 THEN 9223372036854775807 + 2 * $3 + ($2 IS NOT NULL) "
       u"ELSE $1 / 1e0 / $2 END"},
      {u"TEXT_ONLY", 2, u""},
      {u"ONLY_ROW", -1, u"$1"},
      {u"WHOLE_TEXT", 1, u"CAST($1 AS CHAR)"},
      {u"DECIMAL_TEXT", 2,
       u"CASE WHEN abs($1) BETWEEN 1e-15 AND 1e30 THEN regexp_replace(TRIM(TRAILING '.' FROM "
       u"TRIM(TRAILING '0' FROM CAST(CAST($1 AS DECIMAL(65,30)) AS CHAR))), '^(-?)0[.]', '\\1.') "
       u"WHEN $1 = 0 THEN '0' "
       u"WHEN $1 IS NOT NULL THEN 9223372036854775807 + 3 * $2 + ($1 IS NOT NULL) END"}};
  std::vector<TextView> keywords_ = {
      u"ACCESSIBLE", u"ANALYZE",   u"BEFORE",  u"CALL",       u"CASCADE",   u"CHANGE",
      u"COLUMN",     u"CONDITION", u"CONVERT", u"DATABASE",   u"DATABASES", u"DESCRIBE",
      u"DIV",        u"EACH",      u"EXIT",    u"EXPLAIN",    u"FALSE",     u"FORCE",
      u"FULLTEXT",   u"GOTO",      u"IF",      u"IGNORE",     u"INFILE",    u"INTERVAL",
      u"KEY",        u"KEYS",      u"KILL",    u"LEAVE",      u"LINES",     u"LOAD",
      u"LOOP",       u"MATCH",     u"MOD",     u"OPTIMIZE",   u"OUT",       u"PRIMARY",
      u"PROCEDURE",  u"PURGE",     u"READ",    u"REFERENCES", u"REGEXP",    u"RELEASE",
      u"REPEAT",     u"RETURN",    u"RIGHT",   u"RLIKE",      u"SCHEMA",    u"SCHEMAS",
      u"SEPARATOR",  u"SHOW",      u"SIGNAL",  u"SQL",        u"STARTING",  u"TERMINATED",
      u"TRUE",       u"UNDO",      u"UNLOCK",  u"UNSIGNED",   u"USAGE",     u"USE",
      u"VARYING",    u"WHILE",     u"WINDOW",  u"WRITE",      u"XOR",       u"ZEROFILL"};
};

}  // namespace

const Engine& MariaDb() {
  static const MariaDbEngine engine;
  return engine;
}

}  // namespace fetchkit::hosts
