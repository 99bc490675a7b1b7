#include <fmt/format.h>

#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/WindowsCommands.h"

namespace fetchkit::demo {
namespace {

std::string YesNo(bool flag) {
  return flag ? "yes" : "no";
}

std::string OrAll(const std::string& restriction) {
  return restriction.empty() ? "(all codes)" : restriction;
}

}  // namespace

int ShowRights(Console& console, const CommonOptions& options) {
  LibrarySession session(console, options.trace);
  session.LogIn(options.login);
  const auto& entry = session.entry();
  const auto rights = ObjectOf(entry, &IInterface::get_LoginOperatorRight);
  const auto allotted = ObjectOf(entry, &IInterface::get_LoginOrganizationRight);

  console.Heading(fmt::format(
      "Function rights of {} in {}",
      TextOf(ObjectOf(entry, &IInterface::get_LoginOperator), &IOperator::get_OperatorName),
      TextOf(entry, &IInterface::get_LoginOrganizationName)));
  session.Run([&] {
    console.BeginTable({"UserRight", ""});
    for (const TextView ids : {u"12", u"12,15", u"12,45", u"31,101", u"999", u"1", u""})
      console.Row({fmt::format("\"{}\"", ToUtf8(ids)),
                   YesNo(FlagOf(rights, &IOperatorRight::UserRight, Bstr(ids).get()))});
    console.EndTable();
  });

  console.Heading("All-codes rights and restrictions, by code table");
  session.Run([&] {
    console.BeginTable({"table", "query all", "use all", "GetUserQueryRight"});
    for (const TextView name : {u"Account", u"Department", u"Class1", u"Customer"}) {
      const Bstr table(name);
      console.Row({ToUtf8(name),
                   YesNo(FlagOf(rights, &IOperatorRight::HaveAllCodeQueryRight, table.get())),
                   YesNo(FlagOf(rights, &IOperatorRight::HaveAllCodeUseRight, table.get())),
                   OrAll(TextOf(rights, &IOperatorRight::GetUserQueryRight, table.get()))});
    }
    console.EndTable();
  });

  console.Heading("Codes allotted to the organization");
  session.Run([&] {
    console.BeginTable({"table", "use all", "GetAllCodeUseRightSql"});
    for (const TextView name : {u"Account", u"Department", u"Class1"}) {
      const Bstr table(name);
      console.Row(
          {ToUtf8(name),
           YesNo(FlagOf(allotted, &IOrganizationRight::HaveAllCodeUseRight, table.get())),
           OrAll(TextOf(allotted, &IOrganizationRight::GetAllCodeUseRightSql, table.get()))});
    }
    console.EndTable();
  });
  return 0;
}

}  // namespace fetchkit::demo
