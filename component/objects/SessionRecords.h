// The session records: FetchKit.Business, Organization, Operator and CustomerSs.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/Members.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/CustomerSs.h"
#include "fetchkit/session/model/Operator.h"
#include "fetchkit/session/model/Organization.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class BusinessObject : public ComObject<IBusiness, IID_IBusiness, fetchkit::Business> {
 public:
  using ComObject::ComObject;

  FETCHKIT_PROPERTY(AccountType)
  FETCHKIT_PROPERTY(AccountServer)
  FETCHKIT_PROPERTY(AccountUserID)
  FETCHKIT_PROPERTY(AccountName)
  FETCHKIT_PROPERTY(AccountVersion)
  FETCHKIT_PROPERTY(AccountUnitCode)
  FETCHKIT_PROPERTY(AccountProperty)
  FETCHKIT_PROPERTY(GroupDBType)
  FETCHKIT_PROPERTY(DiscountRateDec)
  FETCHKIT_PROPERTY(PriceDec)
  FETCHKIT_PROPERTY(QuantityDec)
  FETCHKIT_PROPERTY(VersionType)
  FETCHKIT_PROPERTY(CurrencyID)
  FETCHKIT_PROPERTY(CurrencyCode)
  FETCHKIT_PROPERTY(CurrencyName)
  FETCHKIT_PROPERTY(NaturalCurDec)
  FETCHKIT_PROPERTY(TradeID)
  FETCHKIT_PROPERTY(AccountSystem)
  FETCHKIT_PROPERTY(ApplicationLabel)
  FETCHKIT_PROPERTY(GAUnitCode)
  FETCHKIT_PROPERTY(MessageServer)
  FETCHKIT_PROPERTY(Notes)
  FETCHKIT_PROPERTY(OldAccountSystem)
  FETCHKIT_PROPERTY(StartDate)
  FETCHKIT_PROPERTY(TaxType)
  FETCHKIT_PROPERTY(UserName)
  FETCHKIT_PROPERTY(Version)
  FETCHKIT_PROPERTY(DynPwdSvrIP)
  FETCHKIT_PROPERTY(DynPwdSvrPort)
};

class OrganizationObject
    : public ComObject<IOrganization, IID_IOrganization, fetchkit::Organization> {
 public:
  using ComObject::ComObject;

  FETCHKIT_PROPERTY(OrganizationID)
  FETCHKIT_PROPERTY(OrganizationCode)
  FETCHKIT_PROPERTY(OrganizationName)
  FETCHKIT_PROPERTY(OrganizationFullName)
  FETCHKIT_GETTER(OrganizationProperty)
  FETCHKIT_PROPERTY(Level)
  FETCHKIT_PROPERTY(CreateDate)
  FETCHKIT_PROPERTY(StartDate)
  FETCHKIT_PROPERTY(BeginDate)
  FETCHKIT_PROPERTY(EndDate)
  FETCHKIT_GETTER(BeginYear)
  FETCHKIT_PROPERTY(ThisYear)
  FETCHKIT_PROPERTY(ThisPeriod)
  FETCHKIT_PROPERTY(IsBase)
  FETCHKIT_GETTER(IsRoot)
  FETCHKIT_PROPERTY(IsCenter)
  FETCHKIT_PROPERTY(IsCache)
  FETCHKIT_PROPERTY(IsCached)
  FETCHKIT_PROPERTY(IsDetail)
  FETCHKIT_PROPERTY(IsInitialized)
  FETCHKIT_PROPERTY(IsInActive)
  FETCHKIT_PROPERTY(IsControl)
  FETCHKIT_PROPERTY(IsVoucher)
  FETCHKIT_PROPERTY(IsDBOrganization)
  FETCHKIT_PROPERTY(ParentLevelOrganizationId)
  FETCHKIT_PROPERTY(PrevLevelOrganizationId)
  FETCHKIT_PROPERTY(NextLevelOrganizationId)
  FETCHKIT_PROPERTY(NextLevelDirectOrganizationID)
  FETCHKIT_GETTER(LowerOrganizationId)
  FETCHKIT_PROPERTY(ThisQuarter)
  FETCHKIT_PROPERTY(ThisHalfYear)
  FETCHKIT_PROPERTY(GroupDBType)
};

class OperatorObject : public ComObject<IOperator, IID_IOperator, fetchkit::Operator> {
 public:
  using ComObject::ComObject;

  FETCHKIT_PROPERTY(OperatorId)
  FETCHKIT_PROPERTY(OperatorCode)
  FETCHKIT_PROPERTY(OperatorName)
  FETCHKIT_PROPERTY(Password)
  FETCHKIT_PROPERTY(DepartmentId)
  FETCHKIT_PROPERTY(OperatorGroupId)
  FETCHKIT_PROPERTY(OperatorGroupName)
  FETCHKIT_PROPERTY(RoleID)
  FETCHKIT_PROPERTY(TokenSN)
  FETCHKIT_PROPERTY(UseDynPwd)
  FETCHKIT_PROPERTY(UseStcPwd)
  FETCHKIT_PROPERTY(IsSystem)
  FETCHKIT_PROPERTY(IsInActive)
};

class CustomerSsObject : public ComObject<ICustomerSs, IID_ICustomerSs, fetchkit::CustomerSs> {
 public:
  using ComObject::ComObject;

  FETCHKIT_PROPERTY(CustomerID)
  FETCHKIT_PROPERTY(CustomerCode)
  FETCHKIT_PROPERTY(CustomerName)
  FETCHKIT_PROPERTY(FullName)
  FETCHKIT_PROPERTY(IsInActive)
};

}  // namespace fetchkit
