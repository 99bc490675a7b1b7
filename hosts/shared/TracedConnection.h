// What the connections of all hosts have in common: the login, the trace, and recordsets in memory.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/SessionConnection.h"
#include "hosts/shared/Login.h"
#include "hosts/shared/MemoryRecordset.h"

namespace fetchkit {

// What became of one statement.
struct StatementReport {
  Text sql;      // as it was sent
  Text adapted;  // as the database got it; empty when it was refused before
  bool answered = false;
  std::int64_t rows = 0;  // read, or changed
  Text firstRow;          // "column=value, ..." of a recordset's first row; Null is shown as -
  Text error;             // why it was refused
  std::int64_t microseconds = 0;
};

using StatementTraceFunction = std::function<void(const StatementReport&)>;

// A statement that fails is answered with False; why is told to the trace, and is LastRefusal.
// Recordsets are read into memory when they are opened, so that the options of the open operations
// make no difference and a recordset does not see later changes. To be used on one thread.
class TracedConnection : public SessionConnection {
 public:
  // May be changed at any time; the library sees it at its next Initialize.
  Login login;

  // Told of every statement when it has ended.
  StatementTraceFunction trace;

  // Recordsets that were opened and not given back.
  int openRecordsets() const { return openRecordsets_; }

  std::shared_ptr<fetchkit::HostContext> HostContext() override;

  // Error (Host) for what is no recordset of a host, and for one that was given back before.
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

 protected:
  explicit TracedConnection(Login who) : login(std::move(who)) {}

  // What each host does: the rows of a query; a change or a block, wholly or not at all, and the
  // number of rows that it changed. adapted becomes the text for the database. Whatever they throw
  // refuses the statement.
  virtual std::shared_ptr<hosts::MemoryRecordset> Query(TextView sql, Text& adapted) = 0;
  virtual std::int64_t Change(TextView sql, Text& adapted) = 0;

 private:
  // Runs the work on a report, which it fills, and tells the trace. Answers whether it went
  // through.
  bool Traced(TextView sql, const std::function<void(StatementReport&)>& work);

  Text lastRefusal_;
  int openRecordsets_ = 0;
};

}  // namespace fetchkit
