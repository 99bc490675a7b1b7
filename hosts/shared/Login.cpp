#include "hosts/shared/Login.h"

#include <utility>

namespace fetchkit::hosts {
namespace {

class OwnContext : public HostContext,
                   public HostAccountType,
                   public HostAccountLogin,
                   public HostLoginContext,
                   public std::enable_shared_from_this<OwnContext> {
 public:
  explicit OwnContext(Login login) : login_(std::move(login)) {}

  std::shared_ptr<HostAccountType> AccountTypeInfo() override { return shared_from_this(); }
  std::shared_ptr<HostAccountLogin> AccountLogin() override { return shared_from_this(); }
  std::shared_ptr<HostLoginContext> LoginContext() override { return shared_from_this(); }

  Value AccountType() override { return login_.accountType; }
  Value ServerName() override { return login_.server; }
  Value UserId() override { return login_.userId; }
  Value LoginDate() override { return login_.loginDate; }
  Value OrganizationId() override { return login_.organizationId; }
  Value OperatorId() override { return login_.operatorId; }
  Value Password() override { return login_.password; }
  Value Item(TextView name) override {
    const auto found = login_.items.find(Text(name));
    return found == login_.items.end() ? Value() : found->second;
  }

 private:
  Login login_;
};

}  // namespace

std::shared_ptr<HostContext> ContextOf(Login login) {
  return std::make_shared<OwnContext>(std::move(login));
}

}  // namespace fetchkit::hosts
