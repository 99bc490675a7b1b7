#include "fetchkit/host/Execution.h"

#include "fetchkit/base/Error.h"
#include "fetchkit/host/OpenedRecordset.h"

namespace fetchkit {

// NOLINTNEXTLINE(performance-unnecessary-value-param): it keeps the connection alive
bool Execute(SessionConnectionPtr connection, TextView sql) {
  if (!connection)
    throw Error(ErrorKind::ObjectMissing, u"No connection: Interface.Initialize comes first.");
  const HostCall call;
  const StatementTrace trace(sql);
  Value out;
  const bool done = connection->ExecuteSql(trace.sql(), 1, out);
  if (!done) TellRefusal(*connection, u"ExecuteSql", trace.sql());
  return done;
}

}  // namespace fetchkit
