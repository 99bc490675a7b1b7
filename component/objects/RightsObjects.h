// The rights objects: FetchKit.OperatorRight and OrganizationRight.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/Members.h"
#include "fetchkit/rights/OperatorRight.h"
#include "fetchkit/rights/OrganizationRight.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class OperatorRightObject
    : public ComObject<IOperatorRight, IID_IOperatorRight, fetchkit::OperatorRight> {
 public:
  using ComObject::ComObject;

  FETCHKIT_METHOD(UserRight, 2)
  FETCHKIT_METHOD(HaveAllCodeQueryRight, 2)
  FETCHKIT_METHOD(HaveAllCodeUseRight, 2)
  FETCHKIT_METHOD(HaveAllAccountQueryRight, 1)
  FETCHKIT_METHOD(GetUserQueryRight, 2)
  FETCHKIT_METHOD(Clear, 0)
};

class OrganizationRightObject
    : public ComObject<IOrganizationRight, IID_IOrganizationRight, fetchkit::OrganizationRight> {
 public:
  using ComObject::ComObject;

  FETCHKIT_METHOD(IsCanDoForActivity, 3)
  FETCHKIT_METHOD(HaveAllCodeUseRight, 2)
  FETCHKIT_METHOD(GetAllCodeUseRightSql, 2)
  FETCHKIT_METHOD(GetAllotItem, 2)
  FETCHKIT_METHOD(GetAllotItem2, 3)
};

}  // namespace fetchkit
