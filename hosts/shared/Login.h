// Who is logged in, as a host tells the library.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/host/HostContext.h"

namespace fetchkit {

struct Login {
  std::int32_t accountType = 0;
  Text server;     // the account's database server
  Text userId;     // the account's database user: the schema that owns its tables
  Text loginDate;  // a date text
  std::int32_t organizationId = 0;
  std::int32_t operatorId = 0;
  Text password;                // the operator's; never the database user's
  std::map<Text, Value> items;  // named values; one that is not there reads as Empty
};

namespace hosts {

// A context that answers with the login as it is now.
std::shared_ptr<HostContext> ContextOf(Login login);

}  // namespace hosts
}  // namespace fetchkit
