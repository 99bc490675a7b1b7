// An account of a few small tables, behind the embedded host's connection.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "fetchkit/base/Utf8.h"
#include "hosts/sqlite/SqliteConnection.h"

namespace fetchkit::hosts::test {

class SmallAccount {
 public:
  // The script makes the account's tables; DUAL and demo_sequence are there already.
  explicit SmallAccount(const char* script) {
    Database account;
    account.RunScript(
        "CREATE TABLE DUAL (DUMMY TEXT); INSERT INTO DUAL VALUES ('X');"
        "CREATE TABLE demo_sequence (name TEXT PRIMARY KEY, last INTEGER);"
        "INSERT INTO demo_sequence VALUES ('LIST_SEQ', 41), ('BIG_SEQ', 2147483647);");
    account.RunScript(script);
    Database server;
    server.RunScript(
        "CREATE TABLE GaBaseInfo (strAccountName TEXT, strUserName TEXT);"
        "INSERT INTO GaBaseInfo VALUES ('集团账套', 'acc01');");
    auto database = std::make_shared<Database>();
    database->AttachCopy(account, u"ACC01");
    database->AttachCopy(server, u"System");
    connection = std::make_shared<SqliteConnection>(database, Login());
    connection->trace = [this](const StatementReport& report) { reports.push_back(report); };
  }

  // The rows of the statement, "a|b;c|d", Null as "~"; the error's text when it is refused.
  std::string Rows(const std::string& sql) {
    RecordsetPtr recordset;
    if (!connection->OpenRecordset(FromUtf8(sql), recordset, 0, 0))
      return ToUtf8(reports.back().error);
    std::string rows;
    for (; !recordset->Eof(); recordset->MoveNext()) {
      if (!rows.empty()) rows += ';';
      for (std::size_t i = 0; i < recordset->ColumnNames().size(); ++i) {
        const Value cell = recordset->At(i);
        rows += (i == 0 ? "" : "|") + (cell.IsNull() ? "~" : ToUtf8(ToText(cell)));
      }
    }
    connection->CloseRecordset(recordset);
    return rows;
  }

  // The number of rows that it changed, or the error's text.
  std::string Execute(const std::string& sql) {
    Value out;
    if (!connection->ExecuteSql(FromUtf8(sql), 1, out)) return ToUtf8(reports.back().error);
    return ToUtf8(ToText(out));
  }

  std::shared_ptr<SqliteConnection> connection;
  std::vector<StatementReport> reports;
};

}  // namespace fetchkit::hosts::test
