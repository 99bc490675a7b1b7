#include <fmt/format.h>

#include <utility>
#include <vector>

#include "base/Date.h"
#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/WindowsCommands.h"
#include "utility/DateKeywords.h"

namespace fetchkit::demo {
namespace {

// The range of a keyword and the statements that it costs the first and the second time.
std::vector<std::string> Evaluate(LibrarySession& session, TextView keyword, bool financial) {
  session.LogInAfresh();
  const ComPtr<IActivity> activity = session.Activity();
  const Bstr word(keyword);
  DATE begin = 0;
  DATE end = 0;
  VARIANT_BOOL found = VARIANT_FALSE;
  const auto cost = [&] {
    return std::to_string(session.Count([&] {
      DATE now = 0;
      Check(activity->GetBeginAndEndDate(word.get(), &now, &begin, &end,
                                         financial ? VARIANT_TRUE : VARIANT_FALSE, &found));
    }));
  };
  const std::string first = cost();
  const std::string second = cost();
  const auto text = [](DATE date) { return ToUtf8(FormatDate(Date{date})); };
  return {found ? fmt::format("{} – {}", text(begin), text(end)) : "-", first, second};
}

}  // namespace

int ShowDates(Console& console, const CommonOptions& options) {
  LibrarySession session(console, options.trace);
  session.LogIn(options.login);

  console.Heading(
      fmt::format("Date ranges on {}", TextOf(session.entry(), &IInterface::get_LoginDate)));
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
