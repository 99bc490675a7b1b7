#include "fetchkit/session/model/Session.h"

#include "fetchkit/base/Error.h"

namespace fetchkit::MAction {

Session& CurrentSession() {
  ThreadState& thread = CurrentThread();
  if (!thread.session) thread.session = std::make_unique<Session>();
  return static_cast<Session&>(*thread.session);
}

const SessionConnectionPtr& ConnectionOf(const Session& session) {
  if (!session.Connection)
    throw Error(ErrorKind::ObjectMissing, u"No connection: Interface.Initialize comes first.");
  return session.Connection;
}

Text OrganizationKey(const Session& session) {
  return Join(session.AccountKey, u"$", session.LoginOrganizationId);
}

Text OperatorKey(const Session& session) {
  return Join(OrganizationKey(session), u"$", session.LoginOperatorId);
}

}  // namespace fetchkit::MAction
