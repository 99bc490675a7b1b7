#include "fetchkit/session/Interface.h"

#include "fetchkit/base/Guard.h"
#include "fetchkit/session/StartUp.h"

namespace fetchkit {
namespace {

// Runs get on the calling thread's session: what plain properties are made of.
template <class Result, class Get>
Result FromSession(TextView what, Get&& get) {
  return Guarded(
      what, Result(), [&]() -> Result { return get(MAction::CurrentSession()); }, LastError::Kept);
}

template <class Object>
std::shared_ptr<Object> CreatedOnce(std::shared_ptr<Object>& object) {
  if (!object) object = std::make_shared<Object>();
  return object;
}

}  // namespace

void Interface::Initialize(const SessionConnectionPtr& objConnection) {
  Step(u"Interface.Initialize",
       [&] { MAction::Initialize(MAction::CurrentSession(), objConnection); });
}

LoginState Interface::LoginState() {
  return FromSession<fetchkit::LoginState>(u"Interface.LoginState", MAction::LoginStateOf);
}

std::shared_ptr<Activity> Interface::Activity() {
  return FromSession<std::shared_ptr<fetchkit::Activity>>(
      u"Interface.Activity", [](Session& session) { return CreatedOnce(session.ActivityObject); });
}

std::shared_ptr<ListSet> Interface::ListSet() {
  return FromSession<std::shared_ptr<fetchkit::ListSet>>(
      u"Interface.ListSet", [](Session& session) { return CreatedOnce(session.ListSetObject); });
}

std::shared_ptr<Business> Interface::Business() {
  return FromSession<std::shared_ptr<fetchkit::Business>>(u"Interface.Business", MAction::Business);
}

std::shared_ptr<CustomerSs> Interface::CustomerSs() {
  return FromSession<std::shared_ptr<fetchkit::CustomerSs>>(u"Interface.CustomerSs",
                                                            MAction::SSCustomer);
}

std::shared_ptr<Organization> Interface::LoginOrganization() {
  return FromSession<std::shared_ptr<Organization>>(u"Interface.LoginOrganization",
                                                    MAction::LoginOrganization);
}

std::shared_ptr<Operator> Interface::LoginOperator() {
  return FromSession<std::shared_ptr<Operator>>(u"Interface.LoginOperator", MAction::LoginOperator);
}

std::shared_ptr<OrganizationRight> Interface::LoginOrganizationRight() {
  return FromSession<std::shared_ptr<OrganizationRight>>(u"Interface.LoginOrganizationRight",
                                                         MAction::OrganizationRight);
}

std::shared_ptr<OperatorRight> Interface::LoginOperatorRight() {
  return FromSession<std::shared_ptr<OperatorRight>>(u"Interface.LoginOperatorRight",
                                                     MAction::OperatorRight);
}

Text Interface::LoginDate() {
  return FromSession<Text>(u"Interface.LoginDate", [](Session& s) { return s.LoginDate; });
}

std::int32_t Interface::LoginOrganizationId() {
  return FromSession<std::int32_t>(u"Interface.LoginOrganizationId",
                                   [](Session& s) { return s.LoginOrganizationId; });
}

Text Interface::LoginOrganizationCode() {
  return FromSession<Text>(u"Interface.LoginOrganizationCode",
                           [](Session& s) { return s.LoginOrganizationCode; });
}

Text Interface::LoginOrganizationName() {
  return FromSession<Text>(u"Interface.LoginOrganizationName",
                           [](Session& s) { return s.LoginOrganizationName; });
}

std::int32_t Interface::LoginOperatorId() {
  return FromSession<std::int32_t>(u"Interface.LoginOperatorId",
                                   [](Session& s) { return s.LoginOperatorId; });
}

Text Interface::LoginOperatorPwd() {
  return FromSession<Text>(u"Interface.LoginOperatorPwd",
                           [](Session& s) { return s.LoginOperatorPwd; });
}

}  // namespace fetchkit
