#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>

#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "demo/commands/ListOutput.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ListSet.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::demo {
namespace {

// "caption condition", as a person would say it.
void Apply(ListSet& set, const std::string& where) {
  const Text text = FromUtf8(where);
  const TextView trimmed = TrimBlanks(text);
  const std::size_t end = std::min(trimmed.find(u' '), trimmed.size());
  Text reason;
  if (!set.SetCondition(trimmed.substr(0, end), trimmed.substr(end), reason))
    throw std::invalid_argument(fmt::format("--where \"{}\": {}", where, ToUtf8(reason)));
}

}  // namespace

int RunList(Console& console, const CommonOptions& options, const ListOptions& list) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  session.LogIn();
  ListSet& set = *session.entry().ListSet();

  console.Heading(fmt::format("View {}", list.viewId));
  session.Run([&] { set.ViewId(list.viewId); });
  if (set.List().ListField.empty())
    throw std::invalid_argument(
        fmt::format("the account has no view {}; try 101 or 102", list.viewId));
  console.Heading(fmt::format("{}: saved conditions", ToUtf8(set.List().strViewName)));
  ShowConditions(console, set.List());
  console.Heading("Texts for the host's query");
  ShowTexts(console, TextsOf(set));
  console.Heading("Rows");
  ShowRows(console, session, set.List(), TextsOf(set), list.rows);
  if (list.where.empty()) return 0;

  session.Run([&] {
    for (const std::string& each : list.where)
      Apply(set, each);
  });
  console.Heading("Changed conditions, saved");
  session.Run([&] { set.SaveList(); });
  const ListType edited = set.List();

  console.Heading("A second login reads back");
  session.LogInAfresh();
  ListSet& again = *session.entry().ListSet();
  again.ViewId(list.viewId);
  ShowConditions(console, again.List());
  ShowTexts(console, TextsOf(again));
  ShowRows(console, session, again.List(), TextsOf(again), list.rows);
  // Columns of equal numbers may come in another order.
  const auto conditions = [](const ListType& read) {
    std::set<std::array<Text, 4>> all;
    for (const ListFieldType& field : read.ListField)
      all.insert({field.strListFieldDesc, field.strFilter, field.strCodeID, field.strExtValue});
    return all;
  };
  const bool same = conditions(edited) == conditions(again.List());
  console.Note(same ? "the same conditions as were saved" : "NOT the conditions that were saved");
  return same ? 0 : 1;
}

}  // namespace fetchkit::demo
