// A statement that was opened, and its rows, held so that it is given back exactly once.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit {

// Remembers a statement while it is worked on: an error that passes by is told to the diagnostics
// together with it.
class StatementTrace {
 public:
  explicit StatementTrace(TextView sql);
  ~StatementTrace();
  StatementTrace(const StatementTrace&) = delete;
  StatementTrace& operator=(const StatementTrace&) = delete;

  const Text& sql() const { return sql_; }

 private:
  Text sql_;
  int uncaught_;
};

// Tells the diagnostics sink, if there is one, of a statement that the connection has just refused,
// with the database's own words for it.
void TellRefusal(SessionConnection& connection, TextView operation, TextView sql,
                 Severity severity = Severity::Failure);

enum class Cursor {
  Plain,   // OpenRecordset with 0, 0: the session's loaders and the rights queries
  Static,  // OpenStaticRecordset with 3, 1, 1, 0: the services, the lists and the dialogs
};

// Its whole life counts as a HostCall: reading rows calls the host, too.
class OpenedRecordset {
 public:
  // Opens the statement. An open that answers False is told to the diagnostics sink, as what
  // refusal says it is, and leaves the object closed; an open that throws throws on. A null
  // connection is Error (ObjectMissing).
  OpenedRecordset(SessionConnectionPtr connection, TextView sql, Cursor cursor,
                  Severity refusal = Severity::Failure);

  // For whom an open that answers False is no different from one that throws: Error (Host), which
  // the trap tells the sink, with the database's own words.
  struct Throwing {};
  OpenedRecordset(SessionConnectionPtr connection, TextView sql, Cursor cursor, Throwing);

  // Gives the recordset back unless Close has done so. An error of the host is noted, not thrown.
  ~OpenedRecordset();

  OpenedRecordset(const OpenedRecordset&) = delete;
  OpenedRecordset& operator=(const OpenedRecordset&) = delete;

  // Whether the open answered True and the recordset is not given back yet.
  explicit operator bool() const { return opened_; }

  // Whether it was opened and the connection says that it holds a row.
  bool HasRow();

  // The same where an answer that the host does not write must not pass for "no row": Error (Host)
  // then. An empty recordset is asked about twice.
  bool HasRowForCertain();

  // The rows; to be used only while the object converts to true.
  Recordset* operator->() const { return recordset_.get(); }

  // The current row's value in the named column: for statements of which one row is read. Loops
  // resolve their columns once, through operator->.
  Value operator[](TextView column) { return recordset_->At(recordset_->Column(column)); }

  // Gives the recordset back now; nothing when it was never opened. Throws what the host throws.
  void Close();

 private:
  void Open(Cursor cursor);

  HostCall call_;
  StatementTrace trace_;
  SessionConnectionPtr connection_;  // of its own: the session may get another one meanwhile
  RecordsetPtr recordset_;
  bool opened_ = false;
};

}  // namespace fetchkit
