// Running a statement that returns no rows.
#pragma once

#include "fetchkit/base/Text.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit {

// Runs the statement or block through the connection; True: it went through. A refusal is told to
// the diagnostics sink. Throws what the host throws, and Error (ObjectMissing) without a
// connection. The pointer is a copy: the host may call back and log in with another connection.
bool Execute(SessionConnectionPtr connection, TextView sql);

}  // namespace fetchkit
