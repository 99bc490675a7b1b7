// The public class Activity.
#pragma once

#include <cstdint>
#include <utility>

#include "fetchkit/activity/AccountingPeriods.h"
#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/activity/Formatting.h"
#include "fetchkit/activity/Identifiers.h"
#include "fetchkit/base/Guard.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// Each member fetches the calling thread's session and hands it to the module's function of the
// same name, where its contract stands: in Identifiers.h, AccountingPeriods.h, DateRanges.h and
// Formatting.h. No member throws. Without state of its own; one per thread from Interface.Activity,
// or created by the host.
class Activity {
 public:
  std::int32_t GetNewID(TextView strTabName) const { return Ask(MActivity::GetNewID, strTabName); }
  Text GetOrganizationCode(std::int32_t lngOrganizationID) const {
    return Ask(MActivity::GetOrganizationCode, lngOrganizationID);
  }
  bool IsDetailOrganization(std::int32_t lngOrganizationID) const {
    return Ask(MActivity::IsDetailOrganization, lngOrganizationID);
  }
  Text GetClass1Name() const { return Ask(MActivity::GetClass1Name); }
  Text GetClass2Name() const { return Ask(MActivity::GetClass2Name); }
  Value GetSysSetting(TextView strKey, const Value& varSection = MissingValue(),
                      const Value& varDefaultValue = MissingValue(),
                      const Value& varModuleId = MissingValue(),
                      const Value& varOrganizationId = MissingValue()) const {
    return Guarded(u"Activity.GetSysSetting", Value(u""), [&] {
      return MActivity::GetSysSetting(MAction::SessionOfLogin(), strKey, varSection,
                                      varDefaultValue, varModuleId, varOrganizationId);
    });
  }
  std::uint8_t GetCurrencyDec(TextView strCond) const {
    return Ask(MActivity::GetCurrencyDec, strCond);
  }
  bool FlexFieldIsUsed(TextView strFieldTitle, Text& strTitle) const {
    return Ask(MActivity::FlexFieldIsUsed, strFieldTitle, strTitle);
  }
  bool TableNameExists(TextView strTableName) const {
    return Ask(MActivity::TableNameExists, strTableName);
  }
  bool TableFieldExists(TextView strTableName, TextView strFieldName) const {
    return Ask(MActivity::TableFieldExists, strTableName, strFieldName);
  }

  bool GetAccountPeriod(Date dDate, float& iYear, float& iPeriod) const {
    return Ask(MActivity::GetAccountPeriod, dDate, iYear, iPeriod);
  }
  std::int16_t GetPeriodCount(std::int16_t iYear) const {
    return Ask(MActivity::GetPeriodCount, iYear);
  }
  std::int16_t GetEndDate(Value& dBegin, Value& dEnd) const {
    return Ask(MActivity::GetEndDate, dBegin, dEnd);
  }
  std::int16_t GetPeriodOfDate(Date dDate, Date& dteBegin, Date& dteEnd) const {
    return Ask(MActivity::GetPeriodOfDate, dDate, dteBegin, dteEnd);
  }
  std::int16_t GetYearOfDate(const Value& dDate, Date& dteBegin, Date& dteEnd,
                             std::int16_t& intPeriod) const {
    return Ask(MActivity::GetYearOfDate, dDate, dteBegin, dteEnd, intPeriod);
  }

  bool GetBeginAndEndDate(TextView strDateType, Date& dNow, Date& dteBegin, Date& dteEnd,
                          bool blnFinancial) const {
    return Ask(MActivity::GetBeginAndEndDate, strDateType, dNow, dteBegin, dteEnd, blnFinancial);
  }
  bool GetDateRange(TextView strDate, Date& dteBegin, Date& dteEnd) const {
    return Ask(MActivity::GetDateRange, strDate, dteBegin, dteEnd);
  }

  Text GetFormat(std::int16_t intDec) const { return MActivity::GetFormat(intDec); }
  Text FormatValue(double dblValue) const { return Ask(MActivity::FormatValue, dblValue); }
  Text FormatSQL(TextView strSql) const {
    return Guarded(u"Activity.FormatSQL", Text(), [&](Text& sql) {
      sql = strSql;
      sql = MActivity::FormatSQL(MAction::SessionOfLogin(), strSql);
    });
  }

 private:
  // A trap of its own around the function's: a thread's first call makes the session, and there may
  // be no memory for one.
  template <class Result, class... Formal, class... Arguments>
  static Result Ask(Result (*function)(Session&, Formal...), Arguments&&... arguments) {
    return Guarded(u"Activity", Result(), [&] {
      return function(MAction::SessionOfLogin(), std::forward<Arguments>(arguments)...);
    });
  }
};

}  // namespace fetchkit
