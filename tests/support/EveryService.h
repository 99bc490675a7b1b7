// Calls of the services, by number.
#pragma once

#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::test {

constexpr int kServices = 24;

// Calls one member of the calling thread's login, with the text and the number as its arguments.
inline void CallService(Interface& entry, int service, TextView text, std::int32_t number) {
  const Activity& activity = *entry.Activity();
  OrganizationRight& allotment = *entry.LoginOrganizationRight();
  OperatorRight& right = *entry.LoginOperatorRight();
  ListSet& set = *entry.ListSet();
  const Date date{38000.0 + number % 3000};
  Date now = date, begin, end;
  Text told;
  float year = 0, period = 0;
  std::int16_t unused = 0;
  Value first = FormatDate(date), last;
  switch (service) {
    case 0:
      return void(activity.GetNewID(text));
    case 1:
      return void(activity.GetOrganizationCode(number));
    case 2:
      return void(activity.IsDetailOrganization(number));
    case 3:
      return void(activity.GetClass1Name());
    case 4:
      return void(activity.GetSysSetting(text));
    case 5:
      return void(activity.GetCurrencyDec(text));
    case 6:
      return void(activity.FlexFieldIsUsed(text, told));
    case 7:
      return void(activity.TableFieldExists(text, u"strName"));
    case 8:
      return void(activity.GetAccountPeriod(date, year, period));
    case 9:
      return void(activity.GetPeriodCount(static_cast<std::int16_t>(number)));
    case 10:
      return void(activity.GetEndDate(first, last));
    case 11:
      return void(activity.GetPeriodOfDate(date, begin, end));
    case 12:
      return void(activity.GetYearOfDate(date, begin, end, unused));
    case 13:
      return void(activity.GetBeginAndEndDate(
          kDateKeywords[static_cast<std::size_t>(number & 0x7FFF) % kDateKeywords.size()], now,
          begin, end, number % 2 != 0));
    case 14:
      return void(activity.FormatValue(number / 8.0));
    case 15:
      return void(activity.FormatSQL(text));
    case 16:
      return void(right.UserRight(u"12,3"));
    case 17:
      return void(right.GetUserQueryRight(text));
    case 18:
      return void(allotment.GetAllCodeUseRightSql(text));
    case 19:
      return void(allotment.GetAllotItem2(text, u"1,2,3"));
    case 20:
      return set.ViewId(number);
    case 21:
      return set.RefreshListField();
    case 22:
      return set.SaveList();
    default:
      return void(set.FindAllKeyID(text, u"01 02"));
  }
}

}  // namespace fetchkit::test
