#include "component/host/HostConnection.h"

#include <utility>

#include "component/com/Bstr.h"
#include "component/com/Variants.h"
#include "component/host/AdoRecordset.h"
#include "component/host/HostCalls.h"
#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

// A part of the login context under the host's interface, whatever interface pointer the host
// handed out; empty for null and for an object without it.
template <class I>
HostPtr<I> Part(HostPtr<I> handedOut, const IID& id) {
  return handedOut.template As<I>(id);
}

Value TextValue(const Bstr& text) {
  return Value(text.view());
}

class AccountTypeOfHost : public HostAccountType {
 public:
  explicit AccountTypeOfHost(HostPtr<IHostAccountType> host) : host_(std::move(host)) {}

  Value AccountType() override {
    long type = 0;
    Called(host_->get_AccountType(&type), host_.get());
    return Value(static_cast<std::int32_t>(type));
  }

 private:
  HostPtr<IHostAccountType> host_;
};

class AccountLoginOfHost : public HostAccountLogin {
 public:
  explicit AccountLoginOfHost(HostPtr<IHostAccountLogin> host) : host_(std::move(host)) {}

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

class LoginContextOfHost : public HostLoginContext {
 public:
  explicit LoginContextOfHost(HostPtr<IHostLoginContext> host) : host_(std::move(host)) {}

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

class ContextOfHost : public HostContext {
 public:
  explicit ContextOfHost(HostPtr<IHostContext> host) : host_(std::move(host)) {}

  std::shared_ptr<HostAccountType> AccountTypeInfo() override {
    HostPtr<IHostAccountType> part;
    Called(host_->get_AccountTypeInfo(part.Out()), host_.get());
    part = Part(std::move(part), IID_IHostAccountType);
    return part ? std::make_shared<AccountTypeOfHost>(std::move(part)) : nullptr;
  }

  std::shared_ptr<HostAccountLogin> AccountLogin() override {
    HostPtr<IHostAccountLogin> part;
    Called(host_->get_AccountLogin(part.Out()), host_.get());
    part = Part(std::move(part), IID_IHostAccountLogin);
    return part ? std::make_shared<AccountLoginOfHost>(std::move(part)) : nullptr;
  }

  std::shared_ptr<HostLoginContext> LoginContext() override {
    HostPtr<IHostLoginContext> part;
    Called(host_->get_LoginContext(part.Out()), host_.get());
    part = Part(std::move(part), IID_IHostLoginContext);
    return part ? std::make_shared<LoginContextOfHost>(std::move(part)) : nullptr;
  }

 private:
  HostPtr<IHostContext> host_;
};

// What an open operation answered: the recordset is taken over also when the answer is False, and
// then let go.
bool TakeOpened(HRESULT result, ISessionConnection* host, VARIANT_BOOL answer,
                HostPtr<IDispatch> opened, RecordsetPtr& recordset) {
  Called(result, host);
  if (answer == VARIANT_FALSE || !opened) return false;
  recordset = std::make_shared<AdoRecordset>(std::move(opened));
  return true;
}

AdoRecordset& AdoOf(const RecordsetPtr& recordset) {
  auto* ado = dynamic_cast<AdoRecordset*>(recordset.get());
  if (!ado) throw Error(ErrorKind::InvalidCall, u"the recordset is not one of this connection");
  return *ado;
}

}  // namespace

std::shared_ptr<HostConnection> HostConnection::Bind(IUnknown* object) {
  if (!object) return nullptr;
  HostPtr<ISessionConnection> host =
      ComPtr<IUnknown>(object).As<ISessionConnection>(IID_ISessionConnection);
  if (!host)
    throw Error(ErrorKind::TypeMismatch,
                u"the object has not the interface of a host's connection");
  return std::make_shared<HostConnection>(std::move(host));
}

std::shared_ptr<HostContext> HostConnection::HostContext() {
  HostPtr<IHostContext> context;
  Called(host_->get_HostContext(context.Out()), host_.get());
  context = Part(std::move(context), IID_IHostContext);
  return context ? std::make_shared<ContextOfHost>(std::move(context)) : nullptr;
}

void HostConnection::CloseRecordset(RecordsetPtr& recordset) {
  if (!recordset) return;
  // Let go whatever the host answers; what it left in the variable goes with it.
  const RecordsetPtr closing = std::move(recordset);
  recordset = nullptr;
  Called(host_->CloseRecordset(AdoOf(closing).GiveBack()), host_.get());
}

void HostConnection::RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) {
  AdoRecordset& ado = AdoOf(recordset);
  VARIANT_BOOL empty = isEmpty ? VARIANT_TRUE : VARIANT_FALSE;
  IDispatch** object = ado.InOut();
  const IDispatch* before = *object;
  const HRESULT result = host_->RecordsetIsEmpty(object, &empty);
  if (*object != before) ado.Refresh();
  Called(result, host_.get());
  isEmpty = empty != VARIANT_FALSE;
}

bool HostConnection::OpenStaticRecordset(TextView sql, RecordsetPtr& recordset,
                                         std::int32_t cursorType, std::int32_t lockType,
                                         std::int32_t commandType, std::int32_t option) {
  HostPtr<IDispatch> opened;
  VARIANT_BOOL answer = VARIANT_FALSE;
  const HRESULT result = host_->OpenStaticRecordset(Bstr(sql).get(), opened.Out(), cursorType,
                                                    lockType, commandType, option, &answer);
  return TakeOpened(result, host_.get(), answer, std::move(opened), recordset);
}

bool HostConnection::OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                                   std::int32_t option2) {
  HostPtr<IDispatch> opened;
  VARIANT_BOOL answer = VARIANT_FALSE;
  const HRESULT result =
      host_->OpenRecordset(Bstr(sql).get(), opened.Out(), option1, option2, &answer);
  return TakeOpened(result, host_.get(), answer, std::move(opened), recordset);
}

bool HostConnection::ExecuteSql(TextView sql, std::int32_t option, Value& out) {
  Variant outValue(out);
  VARIANT_BOOL answer = VARIANT_FALSE;
  Called(host_->ExecuteSql(Bstr(sql).get(), option, outValue.InOut(), &answer), host_.get());
  return answer != VARIANT_FALSE;
}

}  // namespace fetchkit
