// Calls of the services, by number.
#pragma once

#include <iterator>

#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::test {

// The objects of a login and what their services are called with.
struct ServiceCall {
  Activity& activity;
  OperatorRight& operatorRight;
  OrganizationRight& organizationRight;
  ListSet& list;
  TextView text;
  std::int32_t number;
  Date now{38000.0 + number % 3000};
  Date begin = now, end = now;
  std::int16_t small = static_cast<std::int16_t>(number);
  float year = 0, period = 0;
  Text told = {};
  Value first = FormatDate(now), last = {};

  TextView Word() const {
    return kDateKeywords[static_cast<std::size_t>(number & 0x7FFF) % kDateKeywords.size()];
  }
};

inline constexpr void (*kServices[])(ServiceCall& in) = {
    [](ServiceCall& in) { in.activity.GetNewID(in.text); },
    [](ServiceCall& in) { in.activity.GetOrganizationCode(in.number); },
    [](ServiceCall& in) { in.activity.IsDetailOrganization(in.number); },
    [](ServiceCall& in) { in.activity.GetClass1Name(); },
    [](ServiceCall& in) { in.activity.GetSysSetting(in.text); },
    [](ServiceCall& in) { in.activity.GetCurrencyDec(in.text); },
    [](ServiceCall& in) { in.activity.FlexFieldIsUsed(in.text, in.told); },
    [](ServiceCall& in) { in.activity.TableFieldExists(in.text, u"strName"); },
    [](ServiceCall& in) { in.activity.GetAccountPeriod(in.now, in.year, in.period); },
    [](ServiceCall& in) { in.activity.GetPeriodCount(in.small); },
    [](ServiceCall& in) { in.activity.GetEndDate(in.first, in.last); },
    [](ServiceCall& in) { in.activity.GetPeriodOfDate(in.now, in.begin, in.end); },
    [](ServiceCall& in) { in.activity.GetYearOfDate(in.now, in.begin, in.end, in.small); },
    [](ServiceCall& in) {
      in.activity.GetBeginAndEndDate(in.Word(), in.now, in.begin, in.end, in.number % 2 != 0);
    },
    [](ServiceCall& in) { in.activity.FormatValue(in.number / 8.0); },
    [](ServiceCall& in) { in.activity.FormatSQL(in.text); },
    [](ServiceCall& in) { in.operatorRight.UserRight(u"12,3"); },
    [](ServiceCall& in) { in.operatorRight.GetUserQueryRight(in.text); },
    [](ServiceCall& in) { in.organizationRight.GetAllCodeUseRightSql(in.text); },
    [](ServiceCall& in) { in.organizationRight.GetAllotItem2(in.text, u"1,2"); },
    [](ServiceCall& in) { in.list.ViewId(in.number); },
    [](ServiceCall& in) { in.list.RefreshListField(); },
    [](ServiceCall& in) { in.list.SaveList(); },
    [](ServiceCall& in) { in.list.FindAllKeyID(in.text, u"01 02"); },
    [](ServiceCall& in) { in.list.SetCondition(in.text, u"大于 100", in.told); },
    [](ServiceCall& in) { in.list.ClearConditions(); },
};

// Calls one of them; service counts from 0 and goes round.
inline void CallService(Interface& entry, std::uint32_t service, TextView text,
                        std::int32_t number) {
  const auto operatorRight = entry.LoginOperatorRight();
  const auto organizationRight = entry.LoginOrganizationRight();
  ServiceCall call{*entry.Activity(), *operatorRight, *organizationRight,
                   *entry.ListSet(),  text,           number};
  kServices[service % std::size(kServices)](call);
}

}  // namespace fetchkit::test
