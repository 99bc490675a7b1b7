#include <fmt/format.h>

#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::demo {
namespace {

std::string YesNo(bool flag) {
  return flag ? "yes" : "no";
}

std::string OrAll(const Text& restriction) {
  return restriction.empty() ? "(all codes)" : ToUtf8(restriction);
}

}  // namespace

int RunRights(Console& console, const CommonOptions& options) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  session.LogIn();
  Interface& entry = session.entry();
  const auto rights = entry.LoginOperatorRight();
  const auto allotted = entry.LoginOrganizationRight();

  console.Heading(fmt::format("Function rights of {} in {}",
                              ToUtf8(entry.LoginOperator()->OperatorName()),
                              ToUtf8(entry.LoginOrganizationName())));
  session.Run([&] {
    console.BeginTable({"UserRight", ""});
    // The last two show that a right is looked for by its beginning, and that an empty list asks
    // whether there is any right at all.
    for (const TextView ids : {u"12", u"12,15", u"12,45", u"31,101", u"999", u"1", u""})
      console.Row({fmt::format("\"{}\"", ToUtf8(ids)), YesNo(rights->UserRight(ids))});
    console.EndTable();
  });

  console.Heading("All-codes rights and restrictions, by code table");
  session.Run([&] {
    console.BeginTable({"table", "query all", "use all", "GetUserQueryRight"});
    for (const TextView table : {u"Account", u"Department", u"Class1", u"Customer"})
      console.Row({ToUtf8(table), YesNo(rights->HaveAllCodeQueryRight(table)),
                   YesNo(rights->HaveAllCodeUseRight(table)),
                   OrAll(rights->GetUserQueryRight(table))});
    console.EndTable();
  });

  console.Heading("Codes allotted to the organization");
  session.Run([&] {
    console.BeginTable({"table", "use all", "GetAllCodeUseRightSql"});
    for (const TextView table : {u"Account", u"Department", u"Class1"})
      console.Row({ToUtf8(table), YesNo(allotted->HaveAllCodeUseRight(table)),
                   OrAll(allotted->GetAllCodeUseRightSql(table))});
    console.EndTable();
  });
  return 0;
}

}  // namespace fetchkit::demo
