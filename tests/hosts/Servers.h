// The database servers that the environment tells of, for tests.
#pragma once

#include <cstdlib>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "demo/SampleHost.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/odbc/OdbcConnection.h"

namespace fetchkit::demo::test {

// FETCHKIT_SERVERS holds a line for each: engine, a tab, connection string.
inline std::vector<OdbcTarget> Servers() {
  std::vector<OdbcTarget> servers;
  const char* lines = std::getenv("FETCHKIT_SERVERS");
  std::istringstream in(lines != nullptr ? lines : "");
  for (std::string engine, text; std::getline(in, engine, '\t') && std::getline(in, text);)
    for (const SqlEngine each : {SqlEngine::PostgreSql, SqlEngine::MariaDb, SqlEngine::Sqlite})
      if (hosts::NameOf(each) == engine) servers.push_back({text, each});
  return servers;
}

// Rows "a|b;c|d", Null as "~", or why the statement was refused.
inline std::string Rows(OdbcConnection& connection, TextView sql) {
  RecordsetPtr rows;
  if (!connection.OpenRecordset(sql, rows, 0, 0)) return ToUtf8(connection.LastRefusal());
  std::string text;
  for (; !rows->Eof(); rows->MoveNext())
    for (std::size_t i = 0; i < rows->ColumnNames().size(); ++i)
      text += (i > 0          ? "|"
               : text.empty() ? ""
                              : ";") +
              (rows->At(i).IsNull() ? "~" : ToUtf8(ToText(rows->At(i))));
  connection.CloseRecordset(rows);
  return text;
}

// The number of rows that were changed, or why the statement was refused.
inline std::string Change(OdbcConnection& connection, TextView sql) {
  Value out;
  if (!connection.ExecuteSql(sql, 1, out)) return ToUtf8(connection.LastRefusal());
  return ToUtf8(ToText(out));
}

}  // namespace fetchkit::demo::test
