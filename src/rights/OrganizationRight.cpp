#include "rights/OrganizationRight.h"

namespace fetchkit::MAction {

std::shared_ptr<fetchkit::OrganizationRight> OrganizationRight(Session& session) {
  return Cached<fetchkit::OrganizationRight>(
      session,
      Join(session.AccountKey, u"$", session.LoginOrganizationId, u"$", u"OrganizationRight"));
}

}  // namespace fetchkit::MAction
