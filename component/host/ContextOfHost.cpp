#include "component/host/ContextOfHost.h"

#include <cstdint>
#include <utility>

#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "component/host/HostCalls.h"
#include "component/host/NamedObject.h"

namespace fetchkit {
namespace {

Value TextValue(const Bstr& text) {
  return Value(text.view());
}

class EarlyAccountType : public HostAccountType {
 public:
  using Bound = IHostAccountType;
  static constexpr const IID& kId = IID_IHostAccountType;

  explicit EarlyAccountType(HostPtr<IHostAccountType> host) : host_(std::move(host)) {}

  Value AccountType() override {
    long type = 0;
    Called(host_->get_AccountType(&type), host_.get());
    return Value(static_cast<std::int32_t>(type));
  }

 private:
  HostPtr<IHostAccountType> host_;
};

class EarlyAccountLogin : public HostAccountLogin {
 public:
  using Bound = IHostAccountLogin;
  static constexpr const IID& kId = IID_IHostAccountLogin;

  explicit EarlyAccountLogin(HostPtr<IHostAccountLogin> host) : host_(std::move(host)) {}

  Value ServerName() override {
    Bstr name;
    Called(host_->get_ServerName(name.Out()), host_.get());
    return TextValue(name);
  }

  Value UserId() override {
    Bstr id;
    Called(host_->get_UserId(id.Out()), host_.get());
    return TextValue(id);
  }

 private:
  HostPtr<IHostAccountLogin> host_;
};

class EarlyLoginContext : public HostLoginContext {
 public:
  using Bound = IHostLoginContext;
  static constexpr const IID& kId = IID_IHostLoginContext;

  explicit EarlyLoginContext(HostPtr<IHostLoginContext> host) : host_(std::move(host)) {}

  Value LoginDate() override {
    Bstr date;
    Called(host_->get_LoginDate(date.Out()), host_.get());
    return TextValue(date);
  }

  Value OrganizationId() override {
    long id = 0;
    Called(host_->get_OrganizationId(&id), host_.get());
    return Value(static_cast<std::int32_t>(id));
  }

  Value OperatorId() override {
    long id = 0;
    Called(host_->get_OperatorId(&id), host_.get());
    return Value(static_cast<std::int32_t>(id));
  }

  Value Password() override {
    Bstr password;
    Called(host_->get_Password(password.Out()), host_.get());
    return TextValue(password);
  }

  Value Item(TextView name) override {
    Variant item;
    Called(host_->get_Item(Bstr(name).get(), item.Out()), host_.get());
    return ValueOf(item.get());
  }

 private:
  HostPtr<IHostLoginContext> host_;
};

// The same by name. The core converts what it gets.
class NamedAccountType : public HostAccountType {
 public:
  explicit NamedAccountType(NamedObject host) : host_(std::move(host)) {}

  Value AccountType() override { return host_.Call(u"AccountType"); }

 private:
  NamedObject host_;
};

class NamedAccountLogin : public HostAccountLogin {
 public:
  explicit NamedAccountLogin(NamedObject host) : host_(std::move(host)) {}

  Value ServerName() override { return host_.Call(u"ServerName"); }
  Value UserId() override { return host_.Call(u"UserId"); }

 private:
  NamedObject host_;
};

class NamedLoginContext : public HostLoginContext {
 public:
  explicit NamedLoginContext(NamedObject host) : host_(std::move(host)) {}

  Value LoginDate() override { return host_.Call(u"LoginDate"); }
  Value OrganizationId() override { return host_.Call(u"OrganizationId"); }
  Value OperatorId() override { return host_.Call(u"OperatorId"); }
  Value Password() override { return host_.Call(u"Password"); }
  Value Item(TextView name) override {
    const Bstr text(name);
    const VARIANT key = Argument(text);
    return host_.Call(u"Item", {&key, 1});
  }

 private:
  NamedObject host_;
};

// The object early-bound, or by name, or null.
template <class Core, class Early, class Named, class HandedOut>
std::shared_ptr<Core> Part(const HostPtr<HandedOut>& object) {
  if (HostPtr<typename Early::Bound> early = object.template As<typename Early::Bound>(Early::kId))
    return std::make_shared<Early>(std::move(early));
  NamedObject named(object.template As<IDispatch>(IID_IDispatch));
  return named ? std::make_shared<Named>(std::move(named)) : std::shared_ptr<Core>();
}

template <class HandedOut>
std::shared_ptr<HostAccountType> AccountTypePart(const HostPtr<HandedOut>& object) {
  return Part<HostAccountType, EarlyAccountType, NamedAccountType>(object);
}
template <class HandedOut>
std::shared_ptr<HostAccountLogin> AccountLoginPart(const HostPtr<HandedOut>& object) {
  return Part<HostAccountLogin, EarlyAccountLogin, NamedAccountLogin>(object);
}
template <class HandedOut>
std::shared_ptr<HostLoginContext> LoginContextPart(const HostPtr<HandedOut>& object) {
  return Part<HostLoginContext, EarlyLoginContext, NamedLoginContext>(object);
}

class EarlyContext : public HostContext {
 public:
  using Bound = IHostContext;
  static constexpr const IID& kId = IID_IHostContext;

  explicit EarlyContext(HostPtr<IHostContext> host) : host_(std::move(host)) {}

  std::shared_ptr<HostAccountType> AccountTypeInfo() override {
    HostPtr<IHostAccountType> part;
    Called(host_->get_AccountTypeInfo(part.Out()), host_.get());
    return AccountTypePart(part);
  }

  std::shared_ptr<HostAccountLogin> AccountLogin() override {
    HostPtr<IHostAccountLogin> part;
    Called(host_->get_AccountLogin(part.Out()), host_.get());
    return AccountLoginPart(part);
  }

  std::shared_ptr<HostLoginContext> LoginContext() override {
    HostPtr<IHostLoginContext> part;
    Called(host_->get_LoginContext(part.Out()), host_.get());
    return LoginContextPart(part);
  }

 private:
  HostPtr<IHostContext> host_;
};

class NamedContext : public HostContext {
 public:
  explicit NamedContext(NamedObject host) : host_(std::move(host)) {}

  std::shared_ptr<HostAccountType> AccountTypeInfo() override {
    return AccountTypePart(host_.Object(u"AccountTypeInfo"));
  }
  std::shared_ptr<HostAccountLogin> AccountLogin() override {
    return AccountLoginPart(host_.Object(u"AccountLogin"));
  }
  std::shared_ptr<HostLoginContext> LoginContext() override {
    return LoginContextPart(host_.Object(u"LoginContext"));
  }

 private:
  NamedObject host_;
};

}  // namespace

std::shared_ptr<HostContext> ContextOfHost(const HostPtr<IHostContext>& object) {
  return Part<HostContext, EarlyContext, NamedContext>(object);
}

std::shared_ptr<HostContext> ContextOfHost(const HostPtr<IDispatch>& object) {
  return Part<HostContext, EarlyContext, NamedContext>(object);
}

}  // namespace fetchkit
