#include "rights/OperatorRight.h"

namespace fetchkit::MAction {

std::shared_ptr<fetchkit::OperatorRight> OperatorRight(Session& session) {
  return Cached<fetchkit::OperatorRight>(
      session, Join(session.AccountKey, u"$", session.LoginOrganizationId, u"$",
                    session.LoginOperatorId, u"$", u"OperatorRight"));
}

}  // namespace fetchkit::MAction
