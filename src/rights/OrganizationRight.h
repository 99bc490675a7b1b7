// Which codes the login organization may use.
#pragma once

#include <memory>
#include <utility>

#include "session/Organization.h"
#include "session/Session.h"

namespace fetchkit {

// One per account and organization. Its public members follow.
class OrganizationRight {
 public:
  // Reserved to the library: start-up hands over the record whose id every query uses.
  void SetOrganization(std::shared_ptr<const Organization> loginOrganization) {
    organization_ = std::move(loginOrganization);
  }

 private:
  std::shared_ptr<const Organization> organization_;
};

namespace MAction {

// The rights object of the login organization; never null.
std::shared_ptr<fetchkit::OrganizationRight> OrganizationRight(Session& session);

}  // namespace MAction
}  // namespace fetchkit
