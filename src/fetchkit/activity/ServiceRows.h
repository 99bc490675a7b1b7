// How the services read: one place that says which cursor they use and what a refusal is to them.
#pragma once

#include <optional>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/OpenedRecordset.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MActivity {

// An opened statement of a service. Error (Host) when the database refuses it: to a service that
// is no different from an open that throws.
class ServiceRows : public OpenedRecordset {
 public:
  ServiceRows(const Session& session, TextView sql);
};

// The named column of the statement's first row; nothing without a row. Throws as ServiceRows does.
std::optional<Value> ReadFirst(const Session& session, TextView sql, TextView column);

}  // namespace fetchkit::MActivity
