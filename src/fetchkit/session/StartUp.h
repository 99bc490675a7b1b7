// Start-up: what Interface.Initialize does.
#pragma once

#include "fetchkit/host/SessionConnection.h"
#include "fetchkit/session/LoginState.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MAction {

// Reads the login from the host, finds out which of account, organization, operator and service
// customer changed, loads only what changed or was cut short by the host before, and takes the
// session's copies. A step that fails is skipped and the next one runs; what it would have set
// stays as it was. A null connection fails the first step only: the earlier connection is kept, and
// the rest repeats the earlier login.
void Initialize(Session& session, const SessionConnectionPtr& connection);

// What became of the last Initialize and, for records that it had no need to load, of the one that
// loaded them.
LoginState LoginStateOf(const Session& session);

}  // namespace fetchkit::MAction
