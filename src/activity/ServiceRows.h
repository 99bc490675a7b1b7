// How the services read: one place that says which cursor they use and what a refusal is to them.
#pragma once

#include <optional>

#include "base/Text.h"
#include "base/Value.h"
#include "host/OpenedRecordset.h"
#include "session/Session.h"

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
