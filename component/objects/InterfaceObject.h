// FetchKit.Interface.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/Members.h"
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
// and for one that is no connection.
inline SessionConnectionPtr ConnectionOrNull(IUnknown* object) {
  return Guarded(u"Interface.Initialize: SessionConnection", SessionConnectionPtr(),
                 [&] { return HostConnection::Bind(object); });
}

class InterfaceObject : public ComObject<IInterface, IID_IInterface, fetchkit::Interface> {
 public:
  using ComObject::ComObject;

  // The argument is looked at and handed back as it is. An object that is no connection fails that
  // step alone, quietly, like any other step of start-up.
  STDMETHODIMP Initialize(IDispatch** objConnection) noexcept override {
    return objConnection ? Run([&] { core().Initialize(ConnectionOrNull(*objConnection)); })
                         : E_POINTER;
  }
  FETCHKIT_OBJECT(Activity, ActivityObject)
  FETCHKIT_OBJECT(ListSet, ListSetObject)
  FETCHKIT_OBJECT(Business, BusinessObject)
  FETCHKIT_OBJECT(CustomerSs, CustomerSsObject)
  FETCHKIT_OBJECT(LoginOrganization, OrganizationObject)
  FETCHKIT_OBJECT(LoginOperator, OperatorObject)
  FETCHKIT_OBJECT(LoginOrganizationRight, OrganizationRightObject)
  FETCHKIT_OBJECT(LoginOperatorRight, OperatorRightObject)
  FETCHKIT_GETTER(LoginDate)
  FETCHKIT_GETTER(LoginOrganizationId)
  FETCHKIT_GETTER(LoginOrganizationCode)
  FETCHKIT_GETTER(LoginOrganizationName)
  FETCHKIT_GETTER(LoginOperatorId)
  FETCHKIT_GETTER(LoginOperatorPwd)
};

}  // namespace fetchkit
