#include <algorithm>

#include "hosts/dialect/Engines.h"

namespace fetchkit::hosts {
namespace {

class PostgreSqlEngine : public Engine {
 public:
  std::vector<Text> SessionStatements(bool readOnly) const override {
    std::vector<Text> statements = {u"SET standard_conforming_strings = on"};
    if (readOnly) statements.emplace_back(u"SET default_transaction_read_only = on");
    return statements;
  }

  std::vector<Text> SchemaStatements(TextView schema) const override {
    return {Join(u"SET search_path TO ", Quoted(schema), u", public")};
  }

  std::vector<Text> Demands() const override {
    // Texts are compared and sorted by their codes, as the library expects.
    return {
        u"SELECT 'its texts are compared by the rules of ' || datcollate || ': make the "
        u"database with LC_COLLATE ''C''' FROM pg_database WHERE datname = current_database() "
        u"AND datcollate NOT IN ('C', 'POSIX', 'C.UTF-8', 'C.utf8')"};
  }

  const std::vector<FunctionRule>& Functions() const override { return functions_; }
  bool MistakesDates() const override { return true; }
  TextView NullSafeEqual() const override { return u"IS NOT DISTINCT FROM"; }
  TextView LikeEscape() const override { return u"ESCAPE ''"; }
  const std::vector<TextView>& Keywords() const override { return keywords_; }

  // ASCII letters alone: what the engine folds.
  Text Quoted(TextView name) const override { return InQuotes(Lower(name), u'"'); }

  Text NextValue(TextView sequence) const override {
    return Join(u"nextval(", InQuotes(Lower(sequence), u'\''), u")");
  }

 private:
  static Text Lower(TextView name) {
    Text lower(name);
    for (char16_t& unit : lower)
      if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
    return lower;
  }

  std::vector<FunctionRule> functions_ = {
      {u"NVL", 2, u"COALESCE($1, $2)"},
      {u"CONCAT", -1, u"NULLIF(concat($*), '')"},
      {u"LTRIM", -1, u"NULLIF(ltrim($*), '')"},
      {u"RTRIM", -1, u"NULLIF(rtrim($*), '')"},
      {u"TRIM", -1, u"NULLIF(trim($*), '')"},
      {u"INSTR", 2, u"strpos($1, $2)"},
      {u"SUBSTR", -1, u"NULLIF(substr($*), '')", true},
      {u"SUBSTR", 2,
       u"NULLIF(CASE WHEN $2 > 0 THEN substr($1, $2) WHEN $2 = 0 THEN $1 "
       u"WHEN length($1) + $2 >= 0 THEN substr($1, length($1) + $2 + 1) END, '')"},
      {u"SUBSTR", 3,
       u"NULLIF(CASE WHEN $3 < 1 THEN NULL WHEN $2 > 0 THEN substr($1, $2, $3) "
       u"WHEN $2 = 0 THEN substr($1, 1, $3) "
       u"WHEN length($1) + $2 >= 0 THEN substr($1, length($1) + $2 + 1, $3) END, '')"},
      {u"REPLACE", 2, u"NULLIF(replace($1, COALESCE($2, ''), ''), '')"},
      {u"NVL2", 3, u"CASE WHEN ($1) IS NOT NULL THEN $2 ELSE $3 END"},
      {u"MOD", 2,
       u"CASE WHEN $2 = 0 THEN CAST($1 AS numeric) ELSE mod(CAST($1 AS numeric), "
       u"CAST($2 AS numeric)) END"},
      {u"ROUND", 1, u"round(CAST($1 AS numeric))"},
      {u"ROUND", 2, u"round(CAST($1 AS numeric), CAST(trunc($2) AS integer))"},
      {u"TRUNC", 1, u"trunc(CAST($1 AS numeric))"},
      {u"TRUNC", 2, u"trunc(CAST($1 AS numeric), CAST(trunc($2) AS integer))"},
      {u"TO_CHAR", 1, u"($1)"},
      {u"TO_NUMBER", 1, u"($1)"},
      // NaN, infinity and what newer versions take, 0x10, 0o7, 0b1 and 1_000, are no numbers.
      {u"TO_NUMBER", 2, u"CAST(translate(CAST($1 AS text), 'nNxXoObB_', '#########') AS numeric)"},
      // A floating number becomes one of 15 digits.
      {u"EXACT", 1, u"CAST(CAST($1 AS numeric) AS double precision)"},
      {u"QUOTIENT", 3, u"(CAST($1 AS double precision) / $2)"},
      {u"TEXT_ONLY", 2, u"$1"},
      {u"ONLY_ROW", -1, u"$1"},
      {u"WHOLE_TEXT", 1, u"CAST($1 AS text)"},
      // Larger numbers and longer decimals have another form in the dialect; here the first are an
      // overflow, and the others a text that is no number.
      {u"DECIMAL_TEXT", 2,
       u"CASE WHEN CAST($1 AS numeric) = CAST($1 AS numeric(80,40)) "
       u"THEN regexp_replace(CAST(trim_scale(CAST($1 AS numeric(80,40))) AS text), '^(-?)0[.]', "
       u"'\\1.') WHEN $1 IS NOT NULL "
       u"THEN CAST(CAST(CAST($1 AS text) || ' has too many decimals' AS numeric) AS text) END"},
      {u"REPLACE", 3, u"NULLIF(replace($1, COALESCE($2, ''), COALESCE($3, '')), '')"},
  };
  std::vector<TextView> keywords_ = {u"ANALYSE", u"ANALYZE",   u"ARRAY",   u"BINARY",  u"COLLATION",
                                     u"DO",      u"FALSE",     u"FREEZE",  u"ILIKE",   u"ISNULL",
                                     u"NOTNULL", u"OVERLAPS",  u"PLACING", u"PRIMARY", u"RIGHT",
                                     u"SIMILAR", u"SYMMETRIC", u"TRUE",    u"VERBOSE", u"WINDOW"};
};

}  // namespace

const Engine& PostgreSql() {
  static const PostgreSqlEngine engine;
  return engine;
}

}  // namespace fetchkit::hosts
