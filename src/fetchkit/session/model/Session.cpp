#include "fetchkit/session/model/Session.h"

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Guard.h"

namespace fetchkit::MAction {

Session& CurrentSession() {
  ThreadState& thread = CurrentThread();
  if (!thread.session) thread.session = std::make_unique<Session>();
  return static_cast<Session&>(*thread.session);
}

Session& SessionOfLogin() {
  Session& session = CurrentSession();
  // With a connection already while the first Initialize is under way, from which the host may
  // call.
  if (session.InitializeEnded || session.Connection || session.ToldWithoutLogin) return session;
  session.ToldWithoutLogin = true;
  Step(u"Session", [] {
    TellDiagnostics(
        u"Session",
        u"Asked without a login on this thread: Interface.Initialize comes first, and one "
        u"Interface has to be kept for as long as the login is to last.",
        {});
  });
  return session;
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
