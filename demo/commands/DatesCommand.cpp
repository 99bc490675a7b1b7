#include <fmt/format.h>

#include <stdexcept>
#include <utility>
#include <vector>

#include "activity/Activity.h"
#include "base/Utf8.h"
#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "platform/Platform.h"
#include "utility/DateKeywords.h"

namespace fetchkit::demo {
namespace {

// The range of a keyword and the statements that it costs the first and the second time, in a
// session of its own: what another keyword has found would make it cheaper.
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
  DemoSession session(console, options.trace);
  session.Switch(options.login);
  if (!date.empty()) {
    const auto parsed = CurrentPlatform().ParseDate(FromUtf8(date));
    if (!parsed) throw std::invalid_argument("\"" + date + "\" is no date; write it as 2004-03-17");
    session.connection()->login.loginDate = FormatDate(*parsed);
  }
  session.LogIn();

  console.Heading(fmt::format("Date ranges on {}", ToUtf8(session.entry().LoginDate())));
  console.BeginTable(
      {"keyword", "calendar", "statements", "again", "accounting", "statements", "again"});
  const auto show = [&](TextView keyword) {
    std::vector<std::string> row = {ToUtf8(keyword)};
    for (const bool financial : {false, true})
      for (std::string& cell : Evaluate(session, keyword, financial))
        row.push_back(std::move(cell));
    console.Row(std::move(row));
  };
  for (const TextView keyword : kDateKeywords)
    show(keyword);
  show(u"自定义:2004-03-31,2004-01-01");
  console.EndTable();
  return 0;
}

}  // namespace fetchkit::demo
