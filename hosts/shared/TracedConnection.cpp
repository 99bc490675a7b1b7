#include "hosts/shared/TracedConnection.h"

#include <chrono>
#include <exception>
#include <utility>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit {
namespace {

[[noreturn]] void Fail(TextView what) {
  throw Error(ErrorKind::Host, what);
}

}  // namespace

std::shared_ptr<fetchkit::HostContext> TracedConnection::HostContext() {
  return hosts::ContextOf(login);
}

void TracedConnection::CloseRecordset(RecordsetPtr& recordset) {
  auto* own = dynamic_cast<hosts::MemoryRecordset*>(recordset.get());
  if (own == nullptr) Fail(u"What was given back is no recordset of this connection.");
  if (!own->Close()) Fail(u"The recordset was given back before.");
  --openRecordsets_;
  recordset.reset();
}

void TracedConnection::RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) {
  if (!recordset) Fail(u"There is no recordset to ask.");
  isEmpty = recordset->Bof() && recordset->Eof();
}

bool TracedConnection::OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t,
                                           std::int32_t, std::int32_t, std::int32_t) {
  return TracedConnection::OpenRecordset(sql, recordset, 0, 0);
}

bool TracedConnection::OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t,
                                     std::int32_t) {
  return Traced(sql, [&](StatementReport& report) {
    const std::shared_ptr<hosts::MemoryRecordset> opened = Query(sql, report.adapted);
    report.rows = opened->RecordCount();
    report.firstRow = opened->FirstRow();
    recordset = opened;
    ++openRecordsets_;
  });
}

bool TracedConnection::ExecuteSql(TextView sql, std::int32_t, Value& out) {
  return Traced(sql, [&](StatementReport& report) {
    report.rows = Change(sql, report.adapted);
    out = static_cast<double>(report.rows);
  });
}

bool TracedConnection::Traced(TextView sql, const std::function<void(StatementReport&)>& work) {
  using Clock = std::chrono::steady_clock;
  StatementReport report;
  report.sql = sql;
  const Clock::time_point start = Clock::now();
  try {
    work(report);
    report.answered = true;
  } catch (const Error& error) {
    report.error = error.description();
  } catch (const std::exception& error) {
    report.error = FromUtf8(error.what());
  }
  report.microseconds =
      std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
  if (!report.answered) lastRefusal_ = report.error;
  if (trace) trace(report);
  return report.answered;
}

}  // namespace fetchkit
