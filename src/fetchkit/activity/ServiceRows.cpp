#include "fetchkit/activity/ServiceRows.h"

namespace fetchkit::MActivity {

ServiceRows::ServiceRows(const Session& session, TextView sql)
    : OpenedRecordset(MAction::ConnectionOf(session), sql, Cursor::Static, Throwing()) {}

std::optional<Value> ReadFirst(const Session& session, TextView sql, TextView column) {
  ServiceRows row(session, sql);
  if (!row.HasRow()) return std::nullopt;
  return row[column];
}

}  // namespace fetchkit::MActivity
