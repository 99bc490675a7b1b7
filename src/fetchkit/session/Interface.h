// The public entry class: a host creates it, logs in once, and gets everything else from it.
#pragma once

#include <cstdint>
#include <memory>

#include "fetchkit/activity/Activity.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/host/SessionConnection.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/rights/OperatorRight.h"
#include "fetchkit/rights/OrganizationRight.h"
#include "fetchkit/session/LoginState.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/CustomerSs.h"
#include "fetchkit/session/model/Operator.h"
#include "fetchkit/session/model/Organization.h"

namespace fetchkit {

// Without state of its own: every member speaks of the calling thread's session, so any number of
// Interface objects on a thread are one, and two threads share nothing. No member throws. The
// object getters never load anything and answer with empty objects before the first Initialize;
// null only when memory has run out. What they return lives as long as anybody holds it.
class Interface {
 public:
  // To be called once per login, and again whenever the host's login changes. Loads what differs
  // from the call before and what a refused or raising statement cut short then, and nothing for an
  // unchanged login that came in. A step that fails is skipped: values it would have set stay as
  // they were, and the thread's diagnostics sink is told (SetDiagnosticsSink in
  // base/ThreadState.h). A null connection leaves the earlier one in place.
  void Initialize(const SessionConnectionPtr& objConnection);

  // Whether the last Initialize brought the whole login, and which steps kept it from that. Asks
  // nobody. C++ hosts only.
  fetchkit::LoginState LoginState();

  // One object per thread, the same at every call and over every login.
  std::shared_ptr<fetchkit::Activity> Activity();
  std::shared_ptr<fetchkit::ListSet> ListSet();

  // The current login's objects.
  std::shared_ptr<fetchkit::Business> Business();
  std::shared_ptr<fetchkit::CustomerSs> CustomerSs();
  std::shared_ptr<Organization> LoginOrganization();
  std::shared_ptr<Operator> LoginOperator();
  std::shared_ptr<OrganizationRight> LoginOrganizationRight();
  std::shared_ptr<OperatorRight> LoginOperatorRight();

  Text LoginDate();  // "yyyy-MM-dd"
  std::int32_t LoginOrganizationId();
  Text LoginOrganizationCode();
  Text LoginOrganizationName();
  std::int32_t LoginOperatorId();
  Text LoginOperatorPwd();  // as the host gave it
};

}  // namespace fetchkit
