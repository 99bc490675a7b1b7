// Calls of the services, by number.
#pragma once

#include <iterator>

#include "fetchkit/session/Interface.h"
#include "fetchkit/utility/DateKeywords.h"

namespace fetchkit::test {

// What a service is called with.
struct ServiceCall {
  Interface& entry;
  TextView text;
  std::int32_t number;
  Date now{38000.0 + number % 3000};
  Date begin = now, end = now;
  std::int16_t small = static_cast<std::int16_t>(number);
  float year = 0, period = 0;
  Text told = {};
  Value first = FormatDate(now), last = {};

  const Activity& Of() const { return *entry.Activity(); }
  TextView Word() const {
    return kDateKeywords[static_cast<std::size_t>(number & 0x7FFF) % kDateKeywords.size()];
  }
};

inline constexpr void (*kServices[])(ServiceCall& in) = {
    [](ServiceCall& in) { in.Of().GetNewID(in.text); },
    [](ServiceCall& in) { in.Of().GetOrganizationCode(in.number); },
    [](ServiceCall& in) { in.Of().IsDetailOrganization(in.number); },
    [](ServiceCall& in) { in.Of().GetClass1Name(); },
    [](ServiceCall& in) { in.Of().GetSysSetting(in.text); },
    [](ServiceCall& in) { in.Of().GetCurrencyDec(in.text); },
    [](ServiceCall& in) { in.Of().FlexFieldIsUsed(in.text, in.told); },
    [](ServiceCall& in) { in.Of().TableFieldExists(in.text, u"strName"); },
    [](ServiceCall& in) { in.Of().GetAccountPeriod(in.now, in.year, in.period); },
    [](ServiceCall& in) { in.Of().GetPeriodCount(in.small); },
    [](ServiceCall& in) { in.Of().GetEndDate(in.first, in.last); },
    [](ServiceCall& in) { in.Of().GetPeriodOfDate(in.now, in.begin, in.end); },
    [](ServiceCall& in) { in.Of().GetYearOfDate(in.now, in.begin, in.end, in.small); },
    [](ServiceCall& in) {
      in.Of().GetBeginAndEndDate(in.Word(), in.now, in.begin, in.end, in.number % 2 != 0);
    },
    [](ServiceCall& in) { in.Of().FormatValue(in.number / 8.0); },
    [](ServiceCall& in) { in.Of().FormatSQL(in.text); },
    [](ServiceCall& in) { in.entry.LoginOperatorRight()->UserRight(u"12,3"); },
    [](ServiceCall& in) { in.entry.LoginOperatorRight()->GetUserQueryRight(in.text); },
    [](ServiceCall& in) { in.entry.LoginOrganizationRight()->GetAllCodeUseRightSql(in.text); },
    [](ServiceCall& in) { in.entry.LoginOrganizationRight()->GetAllotItem2(in.text, u"1,2"); },
    [](ServiceCall& in) { in.entry.ListSet()->ViewId(in.number); },
    [](ServiceCall& in) { in.entry.ListSet()->RefreshListField(); },
    [](ServiceCall& in) { in.entry.ListSet()->SaveList(); },
    [](ServiceCall& in) { in.entry.ListSet()->FindAllKeyID(in.text, u"01 02"); },
};

// Calls one of them; service counts from 0 and goes round.
inline void CallService(Interface& entry, std::uint32_t service, TextView text,
                        std::int32_t number) {
  ServiceCall call{entry, text, number};
  kServices[service % std::size(kServices)](call);
}

}  // namespace fetchkit::test
