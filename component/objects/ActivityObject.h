// FetchKit.Activity.
//
// One line per member: arguments in, the core's member, the result out.
#pragma once

#include "component/com/Members.h"
#include "fetchkit/activity/Activity.h"
#include "idl/FetchKit.h"

namespace fetchkit {

class ActivityObject : public ComObject<IActivity, IID_IActivity, fetchkit::Activity> {
 public:
  using ComObject::ComObject;

  FETCHKIT_METHOD(GetNewID, 2)
  FETCHKIT_METHOD(GetOrganizationCode, 2)
  FETCHKIT_METHOD(IsDetailOrganization, 2)
  FETCHKIT_METHOD(GetClass1Name, 1)
  FETCHKIT_METHOD(GetClass2Name, 1)
  FETCHKIT_METHOD(GetSysSetting, 6)
  FETCHKIT_METHOD(GetCurrencyDec, 2)
  FETCHKIT_METHOD(FlexFieldIsUsed, 3)
  FETCHKIT_METHOD(TableNameExists, 2)
  FETCHKIT_METHOD(TableFieldExists, 3)
  FETCHKIT_METHOD(GetAccountPeriod, 4)
  FETCHKIT_METHOD(GetPeriodCount, 2)
  FETCHKIT_METHOD(GetEndDate, 3)
  FETCHKIT_METHOD(GetPeriodOfDate, 4)
  FETCHKIT_METHOD(GetYearOfDate, 5)
  FETCHKIT_METHOD(GetBeginAndEndDate, 6)
  FETCHKIT_METHOD(GetDateRange, 4)
  FETCHKIT_METHOD(GetFormat, 2)
  FETCHKIT_METHOD(FormatValue, 2)
  FETCHKIT_METHOD(FormatSQL, 2)
};

}  // namespace fetchkit
