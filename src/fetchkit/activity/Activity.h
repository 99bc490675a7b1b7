// The public class Activity.
#pragma once

#include <cstdint>

#include "fetchkit/activity/AccountingPeriods.h"
#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/activity/Formatting.h"
#include "fetchkit/activity/Identifiers.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit {

// Each member fetches the calling thread's session and hands it to the module's function of the
// same name, where its contract stands: in Identifiers.h, AccountingPeriods.h, DateRanges.h and
// Formatting.h. No member throws. Without state of its own; one per thread from Interface.Activity,
// or created by the host.
class Activity {
 public:
  std::int32_t GetNewID(TextView strTabName) const {
    return MActivity::GetNewID(MAction::CurrentSession(), strTabName);
  }
  Text GetOrganizationCode(std::int32_t lngOrganizationID) const {
    return MActivity::GetOrganizationCode(MAction::CurrentSession(), lngOrganizationID);
  }
  bool IsDetailOrganization(std::int32_t lngOrganizationID) const {
    return MActivity::IsDetailOrganization(MAction::CurrentSession(), lngOrganizationID);
  }
  Text GetClass1Name() const { return MActivity::GetClass1Name(MAction::CurrentSession()); }
  Text GetClass2Name() const { return MActivity::GetClass2Name(MAction::CurrentSession()); }
  Value GetSysSetting(TextView strKey, const Value& varSection = MissingValue(),
                      const Value& varDefaultValue = MissingValue(),
                      const Value& varModuleId = MissingValue(),
                      const Value& varOrganizationId = MissingValue()) const {
    return MActivity::GetSysSetting(MAction::CurrentSession(), strKey, varSection, varDefaultValue,
                                    varModuleId, varOrganizationId);
  }
  std::uint8_t GetCurrencyDec(TextView strCond) const {
    return MActivity::GetCurrencyDec(MAction::CurrentSession(), strCond);
  }
  bool FlexFieldIsUsed(TextView strFieldTitle, Text& strTitle) const {
    return MActivity::FlexFieldIsUsed(MAction::CurrentSession(), strFieldTitle, strTitle);
  }
  bool TableNameExists(TextView strTableName) const {
    return MActivity::TableNameExists(MAction::CurrentSession(), strTableName);
  }
  bool TableFieldExists(TextView strTableName, TextView strFieldName) const {
    return MActivity::TableFieldExists(MAction::CurrentSession(), strTableName, strFieldName);
  }

  bool GetAccountPeriod(Date dDate, float& iYear, float& iPeriod) const {
    return MActivity::GetAccountPeriod(MAction::CurrentSession(), dDate, iYear, iPeriod);
  }
  std::int16_t GetPeriodCount(std::int16_t iYear) const {
    return MActivity::GetPeriodCount(MAction::CurrentSession(), iYear);
  }
  std::int16_t GetEndDate(Value& dBegin, Value& dEnd) const {
    return MActivity::GetEndDate(MAction::CurrentSession(), dBegin, dEnd);
  }
  std::int16_t GetPeriodOfDate(Date dDate, Date& dteBegin, Date& dteEnd) const {
    return MActivity::GetPeriodOfDate(MAction::CurrentSession(), dDate, dteBegin, dteEnd);
  }
  std::int16_t GetYearOfDate(const Value& dDate, Date& dteBegin, Date& dteEnd,
                             std::int16_t& intPeriod) const {
    return MActivity::GetYearOfDate(MAction::CurrentSession(), dDate, dteBegin, dteEnd, intPeriod);
  }

  bool GetBeginAndEndDate(TextView strDateType, Date& dNow, Date& dteBegin, Date& dteEnd,
                          bool blnFinancial) const {
    return MActivity::GetBeginAndEndDate(MAction::CurrentSession(), strDateType, dNow, dteBegin,
                                         dteEnd, blnFinancial);
  }
  bool GetDateRange(TextView strDate, Date& dteBegin, Date& dteEnd) const {
    return MActivity::GetDateRange(MAction::CurrentSession(), strDate, dteBegin, dteEnd);
  }

  Text GetFormat(std::int16_t intDec) const { return MActivity::GetFormat(intDec); }
  Text FormatValue(double dblValue) const {
    return MActivity::FormatValue(MAction::CurrentSession(), dblValue);
  }
  Text FormatSQL(TextView strSql) const {
    return MActivity::FormatSQL(MAction::CurrentSession(), strSql);
  }
};

}  // namespace fetchkit
