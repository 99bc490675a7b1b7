#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/ListOutput.h"
#include "demo/windows/exe/WindowsCommands.h"

namespace fetchkit::demo {
namespace {

// The host's own statement names its columns as the multi-choose dialog reads them.
constexpr const char* kDepartments =
    "SELECT strDepartmentCode AS strCode,strDepartmentName AS strName FROM Department "
    "WHERE blnIsInActive = 0 AND strDepartmentCode <> ' ' ORDER BY strDepartmentCode";

// 0 leaves the choice to the library: a console without a window of its own, in a terminal.
long OwnerWindow() {
  const HWND window = GetConsoleWindow();
  return window && IsWindowVisible(window) ? HandleToLong(window) : 0;
}

}  // namespace

int ShowFilter(Console& console, const CommonOptions& options, const ListOptions& list) {
  LibrarySession session(console, options.trace);
  session.LogIn(options.login);
  const ComPtr<IListSet> set = ObjectOf(session.entry(), &IInterface::get_ListSet);
  OpenView(console, session, set, list.viewId);

  console.Heading("ShowFilter opens a window; it returns when that is closed");
  bool confirmed = false;
  session.Run([&] { confirmed = FlagOf(set, &IListSet::ShowFilter, OwnerWindow()); });
  console.BeginTable();
  console.Row({"ShowFilter", confirmed ? "True" : "False"});
  console.Row({"ListPureWhere", TextOf(set, &IListSet::get_ListPureWhere)});
  console.EndTable();
  ShowConditions(console, set);
  ShowRows(console, session, set, list.rows);

  console.Heading("ShowMultiChoose on the departments");
  const Query departments(session, kDepartments);
  Bstr condition;
  Bstr shown;
  VARIANT_BOOL ok = VARIANT_FALSE;
  const Variant none;
  Check(set->ShowMultiChoose(departments.object(), Bstr(u"部门").get(),
                             Bstr(u"(部门='02-01 国内销售科')").get(), shown.Out(), VARIANT_FALSE,
                             none.get(), &ok, OwnerWindow(), condition.Out()));
  console.BeginTable();
  console.Row({"bOk", ok ? "True" : "False"});
  console.Row({"condition", ToUtf8(condition.view())});
  console.Row({"strShowCond", ToUtf8(shown.view())});
  console.EndTable();
  return 0;
}

}  // namespace fetchkit::demo
