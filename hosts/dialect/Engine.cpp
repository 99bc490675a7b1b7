#include "hosts/dialect/Engine.h"

#include "hosts/dialect/Engines.h"

namespace fetchkit::hosts {

const Engine& EngineOf(SqlEngine engine) {
  switch (engine) {
    case SqlEngine::PostgreSql:
      return PostgreSql();
    case SqlEngine::MariaDb:
      return MariaDb();
    case SqlEngine::Sqlite:
      return Sqlite();
    case SqlEngine::Oracle:
      break;
  }
  return Oracle();
}

std::string_view NameOf(SqlEngine engine) {
  switch (engine) {
    case SqlEngine::PostgreSql:
      return "postgresql";
    case SqlEngine::MariaDb:
      return "mariadb";
    case SqlEngine::Sqlite:
      return "sqlite";
    case SqlEngine::Oracle:
      break;
  }
  return "oracle";
}

Text InQuotes(TextView text, char16_t quote) {
  Text quoted(1, quote);
  for (const char16_t unit : text) {
    quoted += unit;
    if (unit == quote) quoted += unit;
  }
  return quoted += quote;
}

}  // namespace fetchkit::hosts
