// The host's connection object: every statement of the library runs through it.
#pragma once

#include <cstdint>
#include <memory>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/HostContext.h"
#include "fetchkit/host/Recordset.h"

namespace fetchkit {

// The library keeps a reference for the whole session and calls on the thread that initialised it
// only. All operations may throw, and may call the library on that thread before they return.
class SessionConnection {
 public:
  virtual ~SessionConnection() = default;

  virtual std::shared_ptr<fetchkit::HostContext> HostContext() = 0;

  // Closes and releases a recordset that one of the open operations handed out.
  virtual void CloseRecordset(RecordsetPtr& recordset) = 0;

  // Answers through isEmpty whether the recordset holds no row.
  virtual void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) = 0;

  // Opens a statement; True: the recordset is usable and must be given back through
  // CloseRecordset. The options of the first are a cursor type, a lock type, the kind of command
  // text and 0; the library passes 3, 1, 1, 0 (a static cursor, read-only, SQL text), and 0, 0 to
  // the second.
  virtual bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                                   std::int32_t lockType, std::int32_t commandType,
                                   std::int32_t option) = 0;
  virtual bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                             std::int32_t option2) = 0;

  // Runs a statement or an anonymous block; True: it went through. The library passes 1 for the
  // option and does not look at the out-value.
  virtual bool ExecuteSql(TextView sql, std::int32_t option, Value& out) = 0;

  // The database's own error text for the operation that has just answered False, for the
  // diagnostics; asked only when somebody hears them. Hosts that have none leave it empty.
  virtual Text LastRefusal() { return {}; }
};

using SessionConnectionPtr = std::shared_ptr<SessionConnection>;

}  // namespace fetchkit
