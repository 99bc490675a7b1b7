#include "fetchkit/activity/ActivityCaches.h"

#include <memory>

namespace fetchkit::MActivity {

ActivityCaches& ActivityCaches::Of(Session& session) {
  if (!session.ActivityCaches) session.ActivityCaches = std::make_unique<ActivityCaches>();
  return static_cast<ActivityCaches&>(*session.ActivityCaches);
}

LoginCaches& ActivityCaches::ForLogin(const Session& session) {
  if (last_ == nullptr || last_->first.second != session.LoginOrganizationId ||
      last_->first.first != session.AccountKey) {
    last_ = &*logins_.try_emplace({session.AccountKey, session.LoginOrganizationId}).first;
  }
  return last_->second;
}

}  // namespace fetchkit::MActivity
