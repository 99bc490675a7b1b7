// FetchKit.Interface.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/ComObject.h"
#include "component/host/HostConnection.h"
#include "component/objects/ActivityObject.h"
#include "component/objects/ListSetObject.h"
#include "component/objects/RightsObjects.h"
#include "component/objects/SessionRecords.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/session/Interface.h"
#include "idl/FetchKit.h"

namespace fetchkit {

// The connection to hand to the core: null, which the core takes for a failed step, for no object
// and for one without the host's interface.
inline SessionConnectionPtr ConnectionOrNull(IUnknown* object) {
  return Guarded(u"Interface.Initialize: SessionConnection", SessionConnectionPtr(),
                 [&]() -> SessionConnectionPtr { return HostConnection::Bind(object); });
}

class InterfaceObject : public ComObject<IInterface, IID_IInterface, fetchkit::Interface> {
 public:
  using Dual = IInterface;
  using ComObject::ComObject;

  // The argument is looked at and handed back as it is. An object that is no connection fails that
  // step alone, quietly, like any other step of start-up.
  STDMETHODIMP Initialize(IDispatch** objConnection) noexcept override {
    return objConnection ? Run([&] { core().Initialize(ConnectionOrNull(*objConnection)); })
                         : E_POINTER;
  }
  STDMETHODIMP get_Activity(IActivity** result) noexcept override {
    return Answer(result, [&] { return ShellOf<ActivityObject>(core().Activity()); });
  }
  STDMETHODIMP get_ListSet(IListSet** result) noexcept override {
    return Answer(result, [&] { return ShellOf<ListSetObject>(core().ListSet()); });
  }
  STDMETHODIMP get_Business(IBusiness** result) noexcept override {
    return Answer(result, [&] { return ShellOf<BusinessObject>(core().Business()); });
  }
  STDMETHODIMP get_CustomerSs(ICustomerSs** result) noexcept override {
    return Answer(result, [&] { return ShellOf<CustomerSsObject>(core().CustomerSs()); });
  }
  STDMETHODIMP get_LoginOrganization(IOrganization** result) noexcept override {
    return Answer(result, [&] { return ShellOf<OrganizationObject>(core().LoginOrganization()); });
  }
  STDMETHODIMP get_LoginOperator(IOperator** result) noexcept override {
    return Answer(result, [&] { return ShellOf<OperatorObject>(core().LoginOperator()); });
  }
  STDMETHODIMP get_LoginOrganizationRight(IOrganizationRight** result) noexcept override {
    return Answer(
        result, [&] { return ShellOf<OrganizationRightObject>(core().LoginOrganizationRight()); });
  }
  STDMETHODIMP get_LoginOperatorRight(IOperatorRight** result) noexcept override {
    return Answer(result,
                  [&] { return ShellOf<OperatorRightObject>(core().LoginOperatorRight()); });
  }
  STDMETHODIMP get_LoginDate(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().LoginDate(); });
  }
  STDMETHODIMP get_LoginOrganizationId(long* result) noexcept override {
    return Answer(result, [&] { return core().LoginOrganizationId(); });
  }
  STDMETHODIMP get_LoginOrganizationCode(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().LoginOrganizationCode(); });
  }
  STDMETHODIMP get_LoginOrganizationName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().LoginOrganizationName(); });
  }
  STDMETHODIMP get_LoginOperatorId(long* result) noexcept override {
    return Answer(result, [&] { return core().LoginOperatorId(); });
  }
  STDMETHODIMP get_LoginOperatorPwd(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().LoginOperatorPwd(); });
  }
};

}  // namespace fetchkit
