// The session records: FetchKit.Business, Organization, Operator and CustomerSs.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/ComObject.h"
#include "fetchkit/session/model/Business.h"
#include "fetchkit/session/model/CustomerSs.h"
#include "fetchkit/session/model/Operator.h"
#include "fetchkit/session/model/Organization.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class BusinessObject : public ComObject<IBusiness, IID_IBusiness, fetchkit::Business> {
 public:
  using Dual = IBusiness;
  using ComObject::ComObject;

  STDMETHODIMP get_AccountType(short* result) noexcept override {
    return Answer(result, [&] { return core().AccountType(); });
  }
  STDMETHODIMP put_AccountType(short value) noexcept override {
    return Run([&] { core().AccountType(value); });
  }
  STDMETHODIMP get_AccountServer(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().AccountServer(); });
  }
  STDMETHODIMP put_AccountServer(BSTR value) noexcept override {
    return Run([&] { core().AccountServer(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_AccountUserID(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().AccountUserID(); });
  }
  STDMETHODIMP put_AccountUserID(BSTR value) noexcept override {
    return Run([&] { core().AccountUserID(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_AccountName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().AccountName(); });
  }
  STDMETHODIMP put_AccountName(BSTR value) noexcept override {
    return Run([&] { core().AccountName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_AccountVersion(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().AccountVersion(); });
  }
  STDMETHODIMP put_AccountVersion(BSTR value) noexcept override {
    return Run([&] { core().AccountVersion(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_AccountUnitCode(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().AccountUnitCode(); });
  }
  STDMETHODIMP put_AccountUnitCode(BSTR value) noexcept override {
    return Run([&] { core().AccountUnitCode(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_AccountProperty(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().AccountProperty(); });
  }
  STDMETHODIMP put_AccountProperty(unsigned char value) noexcept override {
    return Run([&] { core().AccountProperty(value); });
  }
  STDMETHODIMP get_GroupDBType(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().GroupDBType(); });
  }
  STDMETHODIMP put_GroupDBType(unsigned char value) noexcept override {
    return Run([&] { core().GroupDBType(value); });
  }
  STDMETHODIMP get_DiscountRateDec(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().DiscountRateDec(); });
  }
  STDMETHODIMP put_DiscountRateDec(unsigned char value) noexcept override {
    return Run([&] { core().DiscountRateDec(value); });
  }
  STDMETHODIMP get_PriceDec(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().PriceDec(); });
  }
  STDMETHODIMP put_PriceDec(unsigned char value) noexcept override {
    return Run([&] { core().PriceDec(value); });
  }
  STDMETHODIMP get_QuantityDec(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().QuantityDec(); });
  }
  STDMETHODIMP put_QuantityDec(unsigned char value) noexcept override {
    return Run([&] { core().QuantityDec(value); });
  }
  STDMETHODIMP get_VersionType(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().VersionType(); });
  }
  STDMETHODIMP put_VersionType(unsigned char value) noexcept override {
    return Run([&] { core().VersionType(value); });
  }
  STDMETHODIMP get_CurrencyID(long* result) noexcept override {
    return Answer(result, [&] { return core().CurrencyID(); });
  }
  STDMETHODIMP put_CurrencyID(long value) noexcept override {
    return Run([&] { core().CurrencyID(value); });
  }
  STDMETHODIMP get_CurrencyCode(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CurrencyCode(); });
  }
  STDMETHODIMP put_CurrencyCode(BSTR value) noexcept override {
    return Run([&] { core().CurrencyCode(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_CurrencyName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CurrencyName(); });
  }
  STDMETHODIMP put_CurrencyName(BSTR value) noexcept override {
    return Run([&] { core().CurrencyName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_NaturalCurDec(short* result) noexcept override {
    return Answer(result, [&] { return core().NaturalCurDec(); });
  }
  STDMETHODIMP put_NaturalCurDec(short value) noexcept override {
    return Run([&] { core().NaturalCurDec(value); });
  }
  STDMETHODIMP get_TradeID(long* result) noexcept override {
    return Answer(result, [&] { return core().TradeID(); });
  }
  STDMETHODIMP put_TradeID(long value) noexcept override {
    return Run([&] { core().TradeID(value); });
  }
  STDMETHODIMP get_AccountSystem(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().AccountSystem(); });
  }
  STDMETHODIMP put_AccountSystem(BSTR value) noexcept override {
    return Run([&] { core().AccountSystem(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_ApplicationLabel(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().ApplicationLabel(); });
  }
  STDMETHODIMP put_ApplicationLabel(BSTR value) noexcept override {
    return Run([&] { core().ApplicationLabel(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_GAUnitCode(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GAUnitCode(); });
  }
  STDMETHODIMP put_GAUnitCode(BSTR value) noexcept override {
    return Run([&] { core().GAUnitCode(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_MessageServer(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().MessageServer(); });
  }
  STDMETHODIMP put_MessageServer(BSTR value) noexcept override {
    return Run([&] { core().MessageServer(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_Notes(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().Notes(); });
  }
  STDMETHODIMP put_Notes(BSTR value) noexcept override {
    return Run([&] { core().Notes(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_OldAccountSystem(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().OldAccountSystem(); });
  }
  STDMETHODIMP put_OldAccountSystem(BSTR value) noexcept override {
    return Run([&] { core().OldAccountSystem(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_StartDate(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().StartDate(); });
  }
  STDMETHODIMP put_StartDate(BSTR value) noexcept override {
    return Run([&] { core().StartDate(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_TaxType(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().TaxType(); });
  }
  STDMETHODIMP put_TaxType(BSTR value) noexcept override {
    return Run([&] { core().TaxType(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_UserName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().UserName(); });
  }
  STDMETHODIMP put_UserName(BSTR value) noexcept override {
    return Run([&] { core().UserName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_Version(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().Version(); });
  }
  STDMETHODIMP put_Version(BSTR value) noexcept override {
    return Run([&] { core().Version(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_DynPwdSvrIP(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().DynPwdSvrIP(); });
  }
  STDMETHODIMP put_DynPwdSvrIP(BSTR value) noexcept override {
    return Run([&] { core().DynPwdSvrIP(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_DynPwdSvrPort(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().DynPwdSvrPort(); });
  }
  STDMETHODIMP put_DynPwdSvrPort(BSTR value) noexcept override {
    return Run([&] { core().DynPwdSvrPort(Text(ViewOf(value))); });
  }
};

class OrganizationObject
    : public ComObject<IOrganization, IID_IOrganization, fetchkit::Organization> {
 public:
  using Dual = IOrganization;
  using ComObject::ComObject;

  STDMETHODIMP get_OrganizationID(long* result) noexcept override {
    return Answer(result, [&] { return core().OrganizationID(); });
  }
  STDMETHODIMP put_OrganizationID(long value) noexcept override {
    return Run([&] { core().OrganizationID(value); });
  }
  STDMETHODIMP get_OrganizationCode(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().OrganizationCode(); });
  }
  STDMETHODIMP put_OrganizationCode(BSTR value) noexcept override {
    return Run([&] { core().OrganizationCode(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_OrganizationName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().OrganizationName(); });
  }
  STDMETHODIMP put_OrganizationName(BSTR value) noexcept override {
    return Run([&] { core().OrganizationName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_OrganizationFullName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().OrganizationFullName(); });
  }
  STDMETHODIMP put_OrganizationFullName(BSTR value) noexcept override {
    return Run([&] { core().OrganizationFullName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_OrganizationProperty(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().OrganizationProperty(); });
  }
  STDMETHODIMP get_Level(short* result) noexcept override {
    return Answer(result, [&] { return core().Level(); });
  }
  STDMETHODIMP put_Level(short value) noexcept override {
    return Run([&] { core().Level(value); });
  }
  STDMETHODIMP get_CreateDate(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CreateDate(); });
  }
  STDMETHODIMP put_CreateDate(BSTR value) noexcept override {
    return Run([&] { core().CreateDate(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_StartDate(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().StartDate(); });
  }
  STDMETHODIMP put_StartDate(BSTR value) noexcept override {
    return Run([&] { core().StartDate(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_BeginDate(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().BeginDate(); });
  }
  STDMETHODIMP put_BeginDate(BSTR value) noexcept override {
    return Run([&] { core().BeginDate(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_EndDate(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().EndDate(); });
  }
  STDMETHODIMP put_EndDate(BSTR value) noexcept override {
    return Run([&] { core().EndDate(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_BeginYear(short* result) noexcept override {
    return Answer(result, [&] { return core().BeginYear(); });
  }
  STDMETHODIMP get_ThisYear(short* result) noexcept override {
    return Answer(result, [&] { return core().ThisYear(); });
  }
  STDMETHODIMP put_ThisYear(short value) noexcept override {
    return Run([&] { core().ThisYear(value); });
  }
  STDMETHODIMP get_ThisPeriod(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().ThisPeriod(); });
  }
  STDMETHODIMP put_ThisPeriod(unsigned char value) noexcept override {
    return Run([&] { core().ThisPeriod(value); });
  }
  STDMETHODIMP get_IsBase(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsBase(); });
  }
  STDMETHODIMP put_IsBase(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsBase(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsRoot(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsRoot(); });
  }
  STDMETHODIMP get_IsCenter(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsCenter(); });
  }
  STDMETHODIMP put_IsCenter(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsCenter(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsCache(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsCache(); });
  }
  STDMETHODIMP put_IsCache(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsCache(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsCached(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsCached(); });
  }
  STDMETHODIMP put_IsCached(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsCached(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsDetail(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsDetail(); });
  }
  STDMETHODIMP put_IsDetail(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsDetail(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsInitialized(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsInitialized(); });
  }
  STDMETHODIMP put_IsInitialized(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsInitialized(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsInActive(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsInActive(); });
  }
  STDMETHODIMP put_IsInActive(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsInActive(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsControl(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsControl(); });
  }
  STDMETHODIMP put_IsControl(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsControl(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsVoucher(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsVoucher(); });
  }
  STDMETHODIMP put_IsVoucher(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsVoucher(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsDBOrganization(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsDBOrganization(); });
  }
  STDMETHODIMP put_IsDBOrganization(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsDBOrganization(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_ParentLevelOrganizationId(long* result) noexcept override {
    return Answer(result, [&] { return core().ParentLevelOrganizationId(); });
  }
  STDMETHODIMP put_ParentLevelOrganizationId(long value) noexcept override {
    return Run([&] { core().ParentLevelOrganizationId(value); });
  }
  STDMETHODIMP get_PrevLevelOrganizationId(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().PrevLevelOrganizationId(); });
  }
  STDMETHODIMP put_PrevLevelOrganizationId(BSTR value) noexcept override {
    return Run([&] { core().PrevLevelOrganizationId(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_NextLevelOrganizationId(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().NextLevelOrganizationId(); });
  }
  STDMETHODIMP put_NextLevelOrganizationId(BSTR value) noexcept override {
    return Run([&] { core().NextLevelOrganizationId(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_NextLevelDirectOrganizationID(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().NextLevelDirectOrganizationID(); });
  }
  STDMETHODIMP put_NextLevelDirectOrganizationID(BSTR value) noexcept override {
    return Run([&] { core().NextLevelDirectOrganizationID(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_LowerOrganizationId(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().LowerOrganizationId(); });
  }
  STDMETHODIMP get_ThisQuarter(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().ThisQuarter(); });
  }
  STDMETHODIMP put_ThisQuarter(unsigned char value) noexcept override {
    return Run([&] { core().ThisQuarter(value); });
  }
  STDMETHODIMP get_ThisHalfYear(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().ThisHalfYear(); });
  }
  STDMETHODIMP put_ThisHalfYear(unsigned char value) noexcept override {
    return Run([&] { core().ThisHalfYear(value); });
  }
  STDMETHODIMP get_GroupDBType(unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().GroupDBType(); });
  }
  STDMETHODIMP put_GroupDBType(unsigned char value) noexcept override {
    return Run([&] { core().GroupDBType(value); });
  }
};

class OperatorObject : public ComObject<IOperator, IID_IOperator, fetchkit::Operator> {
 public:
  using Dual = IOperator;
  using ComObject::ComObject;

  STDMETHODIMP get_OperatorId(long* result) noexcept override {
    return Answer(result, [&] { return core().OperatorId(); });
  }
  STDMETHODIMP put_OperatorId(long value) noexcept override {
    return Run([&] { core().OperatorId(value); });
  }
  STDMETHODIMP get_OperatorCode(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().OperatorCode(); });
  }
  STDMETHODIMP put_OperatorCode(BSTR value) noexcept override {
    return Run([&] { core().OperatorCode(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_OperatorName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().OperatorName(); });
  }
  STDMETHODIMP put_OperatorName(BSTR value) noexcept override {
    return Run([&] { core().OperatorName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_Password(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().Password(); });
  }
  STDMETHODIMP put_Password(BSTR value) noexcept override {
    return Run([&] { core().Password(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_DepartmentId(long* result) noexcept override {
    return Answer(result, [&] { return core().DepartmentId(); });
  }
  STDMETHODIMP put_DepartmentId(long value) noexcept override {
    return Run([&] { core().DepartmentId(value); });
  }
  STDMETHODIMP get_OperatorGroupId(long* result) noexcept override {
    return Answer(result, [&] { return core().OperatorGroupId(); });
  }
  STDMETHODIMP put_OperatorGroupId(long value) noexcept override {
    return Run([&] { core().OperatorGroupId(value); });
  }
  STDMETHODIMP get_OperatorGroupName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().OperatorGroupName(); });
  }
  STDMETHODIMP put_OperatorGroupName(BSTR value) noexcept override {
    return Run([&] { core().OperatorGroupName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_RoleID(long* result) noexcept override {
    return Answer(result, [&] { return core().RoleID(); });
  }
  STDMETHODIMP put_RoleID(long value) noexcept override {
    return Run([&] { core().RoleID(value); });
  }
  STDMETHODIMP get_TokenSN(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().TokenSN(); });
  }
  STDMETHODIMP put_TokenSN(BSTR value) noexcept override {
    return Run([&] { core().TokenSN(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_UseDynPwd(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().UseDynPwd(); });
  }
  STDMETHODIMP put_UseDynPwd(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().UseDynPwd(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_UseStcPwd(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().UseStcPwd(); });
  }
  STDMETHODIMP put_UseStcPwd(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().UseStcPwd(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsSystem(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsSystem(); });
  }
  STDMETHODIMP put_IsSystem(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsSystem(value != VARIANT_FALSE); });
  }
  STDMETHODIMP get_IsInActive(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsInActive(); });
  }
  STDMETHODIMP put_IsInActive(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsInActive(value != VARIANT_FALSE); });
  }
};

class CustomerSsObject : public ComObject<ICustomerSs, IID_ICustomerSs, fetchkit::CustomerSs> {
 public:
  using Dual = ICustomerSs;
  using ComObject::ComObject;

  STDMETHODIMP get_CustomerID(long* result) noexcept override {
    return Answer(result, [&] { return core().CustomerID(); });
  }
  STDMETHODIMP put_CustomerID(long value) noexcept override {
    return Run([&] { core().CustomerID(value); });
  }
  STDMETHODIMP get_CustomerCode(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CustomerCode(); });
  }
  STDMETHODIMP put_CustomerCode(BSTR value) noexcept override {
    return Run([&] { core().CustomerCode(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_CustomerName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().CustomerName(); });
  }
  STDMETHODIMP put_CustomerName(BSTR value) noexcept override {
    return Run([&] { core().CustomerName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_FullName(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().FullName(); });
  }
  STDMETHODIMP put_FullName(BSTR value) noexcept override {
    return Run([&] { core().FullName(Text(ViewOf(value))); });
  }
  STDMETHODIMP get_IsInActive(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsInActive(); });
  }
  STDMETHODIMP put_IsInActive(VARIANT_BOOL value) noexcept override {
    return Run([&] { core().IsInActive(value != VARIANT_FALSE); });
  }
};

}  // namespace fetchkit
