// The demo host's connection: the library's statements on the embedded database.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

#include "demo/sqlite/Database.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit::demo {

// Who is logged in, as the host tells the library.
struct Login {
  std::int32_t accountType = 0;
  Text server;
  Text userId;     // the database user: the schema that the account is attached as
  Text loginDate;  // a date text
  std::int32_t organizationId = 0;
  std::int32_t operatorId = 0;
  Text password;
  std::map<Text, Value> items;  // named values; one that is not there reads as Empty
};

// What became of one statement.
struct StatementReport {
  Text sql;      // as it was sent
  Text adapted;  // as the embedded database got it; empty when the adapter refused
  bool answered = false;
  std::int64_t rows = 0;  // read, or changed
  Text firstRow;          // "column=value, ..." of a recordset's first row; Null is shown as -
  Text error;             // why it was refused
  std::int64_t microseconds = 0;
};

using StatementTraceFunction = std::function<void(const StatementReport&)>;

// A statement that fails is answered with False; why is told to the trace. Recordsets are read into
// memory when they are opened, so that the options of the open operations make no difference and a
// recordset does not see later changes.
class SampleConnection : public SessionConnection {
 public:
  // The database has the account attached first, its sequences in a table
  // demo_sequence(name, last), and the server's own database as System.
  SampleConnection(std::shared_ptr<Database> database, Login login);

  // May be changed at any time; the library sees it at its next Initialize.
  Login login;

  StatementTraceFunction trace;

  // The accounts themselves, for what a host does without the library.
  Database& database() { return *database_; }

  // Recordsets that were opened and not given back.
  int openRecordsets() const { return openRecordsets_; }

  std::shared_ptr<fetchkit::HostContext> HostContext() override;
  void CloseRecordset(RecordsetPtr& recordset) override;
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override;
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                           std::int32_t lockType, std::int32_t commandType,
                           std::int32_t option) override;
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override;

  // out becomes the number of rows that were changed.
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override;

  Text LastRefusal() override { return lastRefusal_; }

 private:
  bool Open(TextView sql, RecordsetPtr& recordset);

  // Runs the work on a report, which it fills, and tells the trace. Answers whether it went
  // through.
  bool Traced(TextView sql, const std::function<void(StatementReport&)>& work);

  std::shared_ptr<Database> database_;
  Text lastRefusal_;
  int openRecordsets_ = 0;
};

}  // namespace fetchkit::demo
