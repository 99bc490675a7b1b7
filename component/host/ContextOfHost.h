// The host's login context as the core's.
#pragma once

#include <memory>

#include "component/Windows.h"
#include "component/platform/HostPtr.h"
#include "fetchkit/host/HostContext.h"
#include "idl/FetchKitHost.h"

namespace fetchkit {

// Each of its objects is bound early where it has the host's interface, whatever interface pointer
// the host handed out, and otherwise called by name. Null for no object, and for one of neither
// kind.
std::shared_ptr<HostContext> ContextOfHost(const HostPtr<IHostContext>& object);
std::shared_ptr<HostContext> ContextOfHost(const HostPtr<IDispatch>& object);

}  // namespace fetchkit
