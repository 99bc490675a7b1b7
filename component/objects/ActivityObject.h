// FetchKit.Activity.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/ComObject.h"
#include "fetchkit/activity/Activity.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class ActivityObject : public ComObject<IActivity, IID_IActivity, fetchkit::Activity> {
 public:
  using Dual = IActivity;
  using ComObject::ComObject;

  STDMETHODIMP GetNewID(BSTR strTabName, long* result) noexcept override {
    return Answer(result, [&] { return core().GetNewID(ViewOf(strTabName)); });
  }
  STDMETHODIMP GetOrganizationCode(long lngOrganizationID, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetOrganizationCode(lngOrganizationID); });
  }
  STDMETHODIMP IsDetailOrganization(long lngOrganizationID,
                                    VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().IsDetailOrganization(lngOrganizationID); });
  }
  STDMETHODIMP GetClass1Name(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetClass1Name(); });
  }
  STDMETHODIMP GetClass2Name(BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetClass2Name(); });
  }
  STDMETHODIMP GetSysSetting(BSTR strKey, VARIANT varSection, VARIANT varDefaultValue,
                             VARIANT varModuleId, VARIANT varOrganizationId,
                             VARIANT* result) noexcept override {
    return Answer(result, [&] {
      return core().GetSysSetting(ViewOf(strKey), ValueOf(varSection), ValueOf(varDefaultValue),
                                  ValueOf(varModuleId), ValueOf(varOrganizationId));
    });
  }
  STDMETHODIMP GetCurrencyDec(BSTR strCond, unsigned char* result) noexcept override {
    return Answer(result, [&] { return core().GetCurrencyDec(ViewOf(strCond)); });
  }
  STDMETHODIMP FlexFieldIsUsed(BSTR strFieldTitle, BSTR* strTitle,
                               VARIANT_BOOL* result) noexcept override {
    return Answer(
        result, [&] { return core().FlexFieldIsUsed(ViewOf(strFieldTitle), InOutText(strTitle)); });
  }
  STDMETHODIMP TableNameExists(BSTR strTableName, VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] { return core().TableNameExists(ViewOf(strTableName)); });
  }
  STDMETHODIMP TableFieldExists(BSTR strTableName, BSTR strFieldName,
                                VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().TableFieldExists(ViewOf(strTableName), ViewOf(strFieldName));
    });
  }
  STDMETHODIMP GetAccountPeriod(DATE dDate, float* iYear, float* iPeriod,
                                VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().GetAccountPeriod(Date{dDate}, InOutSingle(iYear), InOutSingle(iPeriod));
    });
  }
  STDMETHODIMP GetPeriodCount(short iYear, short* result) noexcept override {
    return Answer(result, [&] { return core().GetPeriodCount(iYear); });
  }
  STDMETHODIMP GetEndDate(VARIANT* dBegin, VARIANT* dEnd, short* result) noexcept override {
    return Answer(result, [&] { return core().GetEndDate(InOutValue(dBegin), InOutValue(dEnd)); });
  }
  STDMETHODIMP GetPeriodOfDate(DATE dDate, DATE* dteBegin, DATE* dteEnd,
                               short* result) noexcept override {
    return Answer(result, [&] {
      return core().GetPeriodOfDate(Date{dDate}, InOutDate(dteBegin), InOutDate(dteEnd));
    });
  }
  STDMETHODIMP GetYearOfDate(VARIANT dDate, DATE* dteBegin, DATE* dteEnd, short* intPeriod,
                             short* result) noexcept override {
    return Answer(result, [&] {
      return core().GetYearOfDate(ValueOf(dDate), InOutDate(dteBegin), InOutDate(dteEnd),
                                  InOutInteger(intPeriod));
    });
  }
  STDMETHODIMP GetBeginAndEndDate(BSTR strDateType, DATE* dNow, DATE* dteBegin, DATE* dteEnd,
                                  VARIANT_BOOL blnFinancial,
                                  VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().GetBeginAndEndDate(ViewOf(strDateType), InOutDate(dNow), InOutDate(dteBegin),
                                       InOutDate(dteEnd), blnFinancial != VARIANT_FALSE);
    });
  }
  STDMETHODIMP GetDateRange(BSTR strDate, DATE* dteBegin, DATE* dteEnd,
                            VARIANT_BOOL* result) noexcept override {
    return Answer(result, [&] {
      return core().GetDateRange(ViewOf(strDate), InOutDate(dteBegin), InOutDate(dteEnd));
    });
  }
  STDMETHODIMP GetFormat(short intDec, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().GetFormat(intDec); });
  }
  STDMETHODIMP FormatValue(double dblValue, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().FormatValue(dblValue); });
  }
  STDMETHODIMP FormatSQL(BSTR strSql, BSTR* result) noexcept override {
    return Answer(result, [&] { return core().FormatSQL(ViewOf(strSql)); });
  }
};

}  // namespace fetchkit
