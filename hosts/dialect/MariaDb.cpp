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
  bool OrdersNulls() const override { return false; }
  bool HasDual() const override { return true; }
  const std::vector<TextView>& Keywords() const override { return keywords_; }
  Text Quoted(TextView name) const override { return InQuotes(name, u'"'); }
  Text NextValue(TextView sequence) const override { return Join(u"NEXTVAL(", sequence, u")"); }

 private:
  std::vector<FunctionRule> functions_ = {{u"REPLACE", 2, u"replace($1, $2, NULL)"}};
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
