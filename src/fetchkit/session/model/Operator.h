// The operator who is logged in.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "fetchkit/base/Property.h"
#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// One per account, organization and operator id. An operator who is inactive or not allotted to
// the login organization has no row: then only OperatorId and OrganizationId are set.
class Operator {
 public:
  Property<std::int32_t> OperatorId;
  Property<Text> OperatorCode;
  Property<Text> OperatorName;

  // Without the blanks around it; stored as given.
  Text Password() const { return Text(TrimBlanks(password_)); }
  void Password(Text strPassword) { password_ = std::move(strPassword); }

  Property<std::int32_t> DepartmentId;
  Property<std::int32_t> OperatorGroupId;
  Property<Text> OperatorGroupName;
  Property<std::int32_t> RoleID;

  // Without the blanks around it; stored as given.
  Text TokenSN() const { return Text(TrimBlanks(tokenSN_)); }
  void TokenSN(Text strTokenSN) { tokenSN_ = std::move(strTokenSN); }

  Property<bool> UseDynPwd;
  Property<bool> UseStcPwd;
  Property<bool> IsSystem;
  Property<bool> IsInActive;

  // The login organization. Reserved to the library: hosts of the component do not see it.
  Property<std::int32_t> OrganizationId;

 private:
  Text password_;
  Text tokenSN_;
};

namespace MAction {

// The operator of the current login; never null, empty until Initialize has loaded it.
std::shared_ptr<fetchkit::Operator> LoginOperator(Session& session);

// Fills the record with one statement when session.OperatorLoad is due. Stops at the first error;
// what was set before stands.
void LoadOperator(Session& session, fetchkit::Operator& loginOperator);

}  // namespace MAction
}  // namespace fetchkit
