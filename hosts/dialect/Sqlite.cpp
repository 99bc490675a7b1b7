#include "hosts/dialect/Engines.h"

namespace fetchkit::hosts {
namespace {

// The engine behind a driver, without the functions that the embedded host brings along.
class SqliteEngine : public Engine {
 public:
  std::vector<Text> SessionStatements(bool readOnly) const override {
    std::vector<Text> statements = {u"PRAGMA case_sensitive_like = ON"};
    if (readOnly) statements.emplace_back(u"PRAGMA query_only = ON");
    return statements;
  }

  // A schema is a file beside the database's own.
  std::vector<Text> SchemaStatements(TextView schema) const override {
    return {Attach(u"System"), Attach(schema)};
  }

  const std::vector<FunctionRule>& Functions() const override { return functions_; }
  TextView NullSafeEqual() const override { return u"IS"; }
  bool HasDual() const override { return true; }  // a table of the account's, like its sequences
  const std::vector<TextView>& Keywords() const override { return keywords_; }
  Text Quoted(TextView name) const override { return InQuotes(name, u'"'); }
  Text NextValue(TextView) const override { return {}; }

 private:
  static Text Attach(TextView schema) {
    return Join(u"ATTACH DATABASE (SELECT file || '.' || ", InQuotes(UpperAscii(schema), u'\''),
                u" FROM pragma_database_list WHERE name = 'main') AS ", InQuotes(schema, u'"'));
  }

  std::vector<FunctionRule> functions_ = {
      {u"NVL", 2, u"COALESCE($1, $2)"},
      {u"CONCAT", 2, u"NULLIF(IFNULL($1, '') || IFNULL($2, ''), '')"},
      {u"CONCAT", 3, u"NULLIF(IFNULL($1, '') || IFNULL($2, '') || IFNULL($3, ''), '')"},
      {u"CONCAT", 4,
       u"NULLIF(IFNULL($1, '') || IFNULL($2, '') || IFNULL($3, '') || IFNULL($4, ''), '')"},
      {u"LTRIM", -1, u"NULLIF(ltrim($*), '')"},
      {u"RTRIM", -1, u"NULLIF(rtrim($*), '')"},
      {u"TRIM", -1, u"NULLIF(trim($*), '')"},
      {u"SUBSTR", -1, u"NULLIF(substr($*), '')", true},
      {u"SUBSTR", 2,
       u"NULLIF(CASE WHEN $2 = 0 THEN $1 WHEN length($1) + $2 >= 0 THEN substr($1, $2) END, '')"},
      {u"SUBSTR", 3,
       u"NULLIF(CASE WHEN $3 < 1 THEN NULL WHEN $2 = 0 THEN substr($1, 1, $3) "
       u"WHEN length($1) + $2 >= 0 THEN substr($1, $2, $3) END, '')"},
      {u"REPLACE", 2, u"NULLIF(replace($1, IFNULL($2, ''), ''), '')"},
      {u"REPLACE", 3, u"NULLIF(replace($1, IFNULL($2, ''), IFNULL($3, '')), '')"},
      {u"NVL2", 3, u"CASE WHEN ($1) IS NOT NULL THEN $2 ELSE $3 END"},
      // Letters beyond ASCII have no other case here; the sum that is too large refuses them.
      {u"UPPER", 1,
       u"CASE WHEN $1 GLOB '*[\u00c0-\u058f\u1e00-\u1fff\uff21-\uff5a]*' THEN "
       u"abs(-9223372036854775807 - ($1 IS NOT NULL)) ELSE upper($1) END"},
      {u"LOWER", 1,
       u"CASE WHEN $1 GLOB '*[\u00c0-\u058f\u1e00-\u1fff\uff21-\uff5a]*' THEN "
       u"abs(-9223372036854775807 - ($1 IS NOT NULL)) ELSE lower($1) END"},
      {u"MOD", 2, u""},
      {u"ROUND", -1, u""},
      {u"TRUNC", -1, u""},
      {u"FLOOR", 1, u""},
      {u"TO_CHAR", 1, u"($1)"},
      {u"TO_NUMBER", 1, u"($1)"},
      {u"TO_NUMBER", 2, u""},
      {u"EXACT", 1, u"CAST(CASE WHEN $1 IS NOT NULL THEN printf('%.15g', $1) END AS REAL)"},
      {u"QUOTIENT", 3, u"($1 / 1.0 / $2)", true},
      {u"QUOTIENT", 3,
       u"CASE WHEN $2 = 0 THEN abs(-9223372036854775807 - ($2 IS NOT NULL)) "
       u"ELSE $1 / 1.0 / $2 END"},
      {u"TEXT_ONLY", 2, u""},
      {u"ONLY_ROW", -1, u""},  // the engine takes the first one in silence
      {u"WHOLE_TEXT", 1, u"CAST($1 AS TEXT)"},
      {u"DECIMAL_TEXT", 2, u""},
  };
  std::vector<TextView> keywords_ = {u"RIGHT"};
};

}  // namespace

const Engine& Sqlite() {
  static const SqliteEngine engine;
  return engine;
}

}  // namespace fetchkit::hosts
