#include <fmt/format.h>

#include <string>
#include <vector>

#include "demo/commands/DateTable.h"
#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/WindowsCommands.h"
#include "fetchkit/base/Date.h"

namespace fetchkit::demo {
namespace {

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

  ShowDateTable(
      console, TextOf(session.entry(), &IInterface::get_LoginDate),
      [&](TextView keyword, bool financial) { return Evaluate(session, keyword, financial); });
  return 0;
}

}  // namespace fetchkit::demo
