#include <fmt/format.h>

#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "fetchkit/activity/Activity.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/Utility.h"

namespace fetchkit::demo {
namespace {

Text Ids(int count) {
  Text ids;
  for (int id = 1; id <= count; ++id)
    AppendWith(ids, u',', Join(id));
  return ids;
}

}  // namespace

int RunFormat(Console& console, const CommonOptions& options) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  session.LogIn();
  Activity activity;
  Utility utility;

  console.Heading("Amounts, in the account's currency");
  session.Run([&] {
    console.BeginTable();
    for (const double amount : {1234.5, 2.345, -0.005, 1e15})
      console.Row({fmt::format("FormatValue {}", amount), ToUtf8(activity.FormatValue(amount))});
    console.Row({"GetFormat 2", ToUtf8(activity.GetFormat(2))});
    console.Row({"FourLostFiveAdd 2.345, 2", fmt::format("{}", utility.FourLostFiveAdd(2.345, 2))});
    console.Row({"C2Dbl 1,234.5", fmt::format("{}", utility.C2Dbl(u"1,234.5"))});
    console.EndTable();
  });

  console.Heading("Clauses");
  console.BeginTable();
  console.Row({"FormatDateCond",
               ToUtf8(utility.FormatDateCond(u"V.strDate", u"2004-03-01", u"2004-03-31", true))});
  console.Row({"FormatCond", ToUtf8(utility.FormatCond(u"V.blnPosted=1"))});
  console.Row({"FormatLink", ToUtf8(utility.FormatLink(u"b=2", u"a=1", u" And "))});
  console.Row(
      {"DecomposeInClause", ToUtf8(utility.DecomposeInClause(u"V.strCode", u"01,02", true, u""))});
  console.Row({"FormatSQL", ToUtf8(activity.FormatSQL(u"a || Upper(b)"))});
  console.Row({"CellNameToAbsolute AB12", ToUtf8(utility.CellNameToAbsolute(u"AB12"))});
  console.Row({"CellColToString 40", ToUtf8(utility.CellColToString(40))});
  console.EndTable();

  console.Heading("An IN list of 2,500 ids");
  console.BeginTable({"", "groups of", "begins", "ends"});
  const auto show = [&](const char* name, const Text& sql, TextView separator) {
    std::string sizes;
    for (const TextView group : Split(sql, separator))
      sizes += (sizes.empty() ? "" : ", ") + std::to_string(Split(group, u",").size());
    console.Row(
        {name, sizes, ToUtf8(sql.substr(0, 24)) + "…", "…" + ToUtf8(sql.substr(sql.size() - 16))});
  };
  show("DecomposeInClause", utility.DecomposeInClause(u"lngID", Ids(2500), false, u""), u" OR ");
  show("SplitInClause", utility.SplitInClause(Ids(2500), u",", u"lngID"), u" Or ");
  console.EndTable();
  return 0;
}

}  // namespace fetchkit::demo
