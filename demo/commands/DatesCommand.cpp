#include <fmt/format.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "demo/commands/Commands.h"
#include "demo/commands/DateTable.h"
#include "demo/commands/DemoSession.h"
#include "fetchkit/activity/Activity.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/platform/Platform.h"

namespace fetchkit::demo {
namespace {

std::vector<std::string> Evaluate(DemoSession& session, TextView keyword, bool financial) {
  session.LogInAfresh();
  Activity activity;
  Date begin;
  Date end;
  bool found = false;
  const auto cost = [&] {
    return std::to_string(session.Count([&] {
      Date now;
      found = activity.GetBeginAndEndDate(keyword, now, begin, end, financial);
    }));
  };
  const std::string first = cost();
  const std::string second = cost();
  return {found ? fmt::format("{} – {}", ToUtf8(FormatDate(begin)), ToUtf8(FormatDate(end))) : "-",
          first, second};
}

}  // namespace

int RunDates(Console& console, const CommonOptions& options, const std::string& date) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  if (!date.empty()) {
    const auto parsed = CurrentPlatform().ParseDate(FromUtf8(date));
    if (!parsed) throw std::invalid_argument("\"" + date + "\" is no date; write it as 2004-03-17");
    session.connection()->login.loginDate = FormatDate(*parsed);
  }
  session.LogIn();

  ShowDateTable(
      console, ToUtf8(session.entry().LoginDate()),
      [&](TextView keyword, bool financial) { return Evaluate(session, keyword, financial); });
  session.ShowWhatWasTold();
  return 0;
}

}  // namespace fetchkit::demo
