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
  };
  std::vector<TextView> keywords_ = {u"RIGHT"};
};

}  // namespace

const Engine& Sqlite() {
  static const SqliteEngine engine;
  return engine;
}

}  // namespace fetchkit::hosts
