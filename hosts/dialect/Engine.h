// What differs between the database engines that a host may speak to: one small class each.
#pragma once

#include <string_view>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit {

enum class SqlEngine { Oracle, PostgreSql, MariaDb, Sqlite };

namespace hosts {

// A function of the library's dialect, or one that writes a conversion out (Types.h), in terms of
// the engine: $1 to $9 stand for arguments, $* for all of them with commas between. An empty text
// refuses.
struct FunctionRule {
  TextView name;  // in upper case
  int arguments;  // -1: any number
  TextView text;
  bool fromStart = false;  // holds only where the second argument is a whole number, and not 0
};

class Engine {
 public:
  virtual ~Engine() = default;

  // Whether statements go through untouched, because the library's dialect is the engine's own. The
  // rules below are then not asked for.
  virtual bool SpeaksTheDialect() const { return false; }

  // --- The session

  // What is run on every new connection, in this order.
  virtual std::vector<Text> SessionStatements(bool readOnly) const = 0;

  // Makes the schema the one in which names without a schema are looked up. The name comes from the
  // host and is quoted here.
  virtual std::vector<Text> SchemaStatements(TextView schema) const = 0;

  // Queries of one row and column, asked when the session is set: Null, or what keeps the database
  // from giving right answers, in words for whoever runs it.
  virtual std::vector<Text> Demands() const { return {}; }

  // Gives back a text of the client's, to see whether it comes through whole.
  virtual Text EchoQuery(TextView literal) const { return Join(u"SELECT ", literal, u" AS echo"); }

  // --- Statements

  // Functions that the engine lacks, or that treat Null and the empty text otherwise; the first
  // that fits counts. DECODE is not among them.
  virtual const std::vector<FunctionRule>& Functions() const = 0;

  // What the engine said when a statement failed, in clearer words where the rules above made it
  // fail.
  virtual Text Explained(TextView words) const { return Text(words); }

  // Whether its driver gives today for a date that it cannot read, such as infinity, and the last
  // second of 9999 for an infinite time. As a whole number that date is no year.
  virtual bool MistakesDates() const { return false; }

  // Between two operands: equal, or both Null. Empty when the engine has DECODE.
  virtual TextView NullSafeEqual() const { return {}; }

  // Stands behind the pattern of a LIKE that names no escape character.
  virtual TextView LikeEscape() const { return {}; }

  // Whether ORDER BY takes NULLS FIRST and NULLS LAST.
  virtual bool OrdersNulls() const { return true; }

  // Whether there is a table DUAL.
  virtual bool HasDual() const { return false; }

  // Names of the library's dialect that are keywords here, in upper case.
  virtual const std::vector<TextView>& Keywords() const = 0;

  // A name as the engine keeps one that is not quoted, in quotes.
  virtual Text Quoted(TextView name) const = 0;

  // The expression that draws from the sequence, whose name is qualified if the statement did so.
  // Empty: the catalog draws.
  virtual Text NextValue(TextView sequence) const = 0;
};

// Lives as long as the program.
const Engine& EngineOf(SqlEngine engine);

// The engine's word on a command line: "oracle", "postgresql", "mariadb", "sqlite".
std::string_view NameOf(SqlEngine engine);

// The text between quotes of that kind, those inside doubled.
Text InQuotes(TextView text, char16_t quote);

}  // namespace hosts
}  // namespace fetchkit
