// Reading the host's login context.
#pragma once

#include <cstdint>
#include <memory>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/host/HostContext.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MAction {

// The object itself. Error (ObjectMissing), which names it, for a null pointer: a host without it.
template <class Object>
Object& Present(const std::shared_ptr<Object>& object, TextView name) {
  if (!object) throw Error(ErrorKind::ObjectMissing, Join(u"The host has no ", name, u"."));
  return *object;
}

// The host's context, fetched anew at every call: the host may change it at any time, and each read
// must be able to fail for itself. Never null; throws as Present, ConnectionOf and the host do.
std::shared_ptr<HostContext> ContextOf(const Session& session);

// The account type as the host has it now. Throws as ContextOf and ToLong do.
std::int32_t ReadAccountType(const Session& session);

}  // namespace fetchkit::MAction
