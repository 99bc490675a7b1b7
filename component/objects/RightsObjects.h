// The rights objects: FetchKit.OperatorRight and OrganizationRight.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/ComObject.h"
#include "fetchkit/rights/OperatorRight.h"
#include "fetchkit/rights/OrganizationRight.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class OperatorRightObject
    : public ComObject<IOperatorRight, IID_IOperatorRight, fetchkit::OperatorRight> {
 public:
  using Dual = IOperatorRight;
  using ComObject::ComObject;

  STDMETHODIMP UserRight(BSTR RightIDs, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().UserRight(ViewOf(RightIDs)); });
  }
  STDMETHODIMP HaveAllCodeQueryRight(BSTR strCode, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().HaveAllCodeQueryRight(ViewOf(strCode)); });
  }
  STDMETHODIMP HaveAllCodeUseRight(BSTR strCode, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().HaveAllCodeUseRight(ViewOf(strCode)); });
  }
  STDMETHODIMP HaveAllAccountQueryRight(VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().HaveAllAccountQueryRight(); });
  }
  STDMETHODIMP GetUserQueryRight(BSTR strTableName, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetUserQueryRight(ViewOf(strTableName)); });
  }
  STDMETHODIMP Clear() noexcept override {
    return Run([&] { core().Clear(); });
  }
};

class OrganizationRightObject
    : public ComObject<IOrganizationRight, IID_IOrganizationRight, fetchkit::OrganizationRight> {
 public:
  using Dual = IOrganizationRight;
  using ComObject::ComObject;

  STDMETHODIMP IsCanDoForActivity(BSTR strTableName, long lngKeyID,
                                  VARIANT_BOOL* result) noexcept override {
    return Answer(result,
                  [&] { return core().IsCanDoForActivity(ViewOf(strTableName), lngKeyID); });
  }
  STDMETHODIMP HaveAllCodeUseRight(BSTR strTableName, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().HaveAllCodeUseRight(ViewOf(strTableName)); });
  }
  STDMETHODIMP GetAllCodeUseRightSql(BSTR strTableName, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetAllCodeUseRightSql(ViewOf(strTableName)); });
  }
  STDMETHODIMP GetAllotItem(BSTR strTableName, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetAllotItem(ViewOf(strTableName)); });
  }
  STDMETHODIMP GetAllotItem2(BSTR strTableName, BSTR strKeyIDs, BSTR* result) noexcept override {
    return Answer(result,
                  [&] { return core().GetAllotItem2(ViewOf(strTableName), ViewOf(strKeyIDs)); });
  }
};

}  // namespace fetchkit
