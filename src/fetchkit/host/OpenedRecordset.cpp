#include "fetchkit/host/OpenedRecordset.h"

#include <exception>
#include <utility>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Guard.h"

namespace fetchkit {

StatementTrace::StatementTrace(TextView sql) : sql_(sql), uncaught_(std::uncaught_exceptions()) {}

StatementTrace::~StatementTrace() {
  if (std::uncaught_exceptions() <= uncaught_) return;
  // The innermost statement is the one that failed; its owner is unwound first.
  Text& failing = CurrentThread().failingStatement;
  if (failing.empty()) failing = std::move(sql_);
}

namespace {

constexpr TextView kRefused = u"The database refused the statement.";

// The database's own words.
Text WordsOfRefusal(SessionConnection& connection) {
  Text words;
  Step(
      u"LastRefusal", [&] { words = connection.LastRefusal(); }, Severity::Note);
  return words;
}

}  // namespace

void TellRefusal(SessionConnection& connection, TextView operation, TextView sql,
                 Severity severity) {
  if (!IsHeard(severity)) return;
  TellDiagnostics(operation, kRefused, sql, severity, WordsOfRefusal(connection));
}

OpenedRecordset::OpenedRecordset(SessionConnectionPtr connection, TextView sql, Cursor cursor,
                                 Severity refusal)
    : trace_(sql), connection_(std::move(connection)) {
  Open(cursor);
  if (!opened_) TellRefusal(*connection_, u"OpenRecordset", trace_.sql(), refusal);
}

OpenedRecordset::OpenedRecordset(SessionConnectionPtr connection, TextView sql, Cursor cursor,
                                 Throwing)
    : trace_(sql), connection_(std::move(connection)) {
  Open(cursor);
  if (opened_) return;
  if (IsHeard(Severity::Failure)) CurrentThread().databaseText = WordsOfRefusal(*connection_);
  throw Error(ErrorKind::Host, kRefused);
}

void OpenedRecordset::Open(Cursor cursor) {
  if (!connection_)
    throw Error(ErrorKind::ObjectMissing, u"No connection: Interface.Initialize comes first.");
  opened_ = cursor == Cursor::Static
                ? connection_->OpenStaticRecordset(trace_.sql(), recordset_, 3, 1, 1, 0)
                : connection_->OpenRecordset(trace_.sql(), recordset_, 0, 0);
  if (opened_ && !recordset_) {
    opened_ = false;
    throw Error(ErrorKind::Host, u"The connection opened a statement but gave no recordset.");
  }
}

OpenedRecordset::~OpenedRecordset() {
  Step(u"CloseRecordset", [&] { Close(); });
}

bool OpenedRecordset::HasRow() {
  if (!opened_) return false;
  bool isEmpty = true;
  connection_->RecordsetIsEmpty(recordset_, isEmpty);
  return !isEmpty;
}

bool OpenedRecordset::HasRowForCertain() {
  if (HasRow()) return true;
  if (!opened_) return false;
  // What the host leaves alone keeps what it was preset with, whichever that is.
  bool isEmpty = false;
  connection_->RecordsetIsEmpty(recordset_, isEmpty);
  if (!isEmpty) throw Error(ErrorKind::Host, u"The connection did not say whether there is a row.");
  return false;
}

void OpenedRecordset::Close() {
  // Marked first: a close that throws is not tried again.
  if (std::exchange(opened_, false)) connection_->CloseRecordset(recordset_);
}

}  // namespace fetchkit
