#include <fmt/format.h>

#include <stdexcept>

#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "demo/commands/FilterUsers.h"
#include "demo/commands/ListOutput.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/listset/ListSet.h"

namespace fetchkit::demo {
namespace {

// The host's own statement for the multi-choose dialog names its columns as that one reads them.
constexpr TextView kDepartments =
    u"SELECT strDepartmentCode AS strCode,strDepartmentName AS strName FROM Department "
    u"WHERE blnIsInActive = 0 AND strDepartmentCode <> ' ' ORDER BY strDepartmentCode";

// Borrows the rows of a statement for the length of a call.
template <class Work>
void WithRows(DemoSession& session, TextView sql, Work&& work) {
  RecordsetPtr rows;
  if (!session.connection()->OpenStaticRecordset(sql, rows, 3, 1, 1, 0))
    throw std::runtime_error("the departments cannot be read");
  work(rows);
  session.connection()->CloseRecordset(rows);
}

}  // namespace

int RunFilter(Console& console, const CommonOptions& options, const FilterOptions& filter,
              std::istream& in, bool interactive) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  session.LogIn();
  ListSet& set = *session.entry().ListSet();
  console.Heading(fmt::format("View {}", filter.viewId));
  session.Run([&] { set.ViewId(filter.viewId); });
  if (set.List().ListField.empty())
    throw std::invalid_argument(
        fmt::format("the account has no view {}; try 101 or 102", filter.viewId));

  ScriptedUser scripted(console);
  AskedUser asked(console, in);
  const bool ask =
      filter.user == DialogUser::Asked || (filter.user == DialogUser::Auto && interactive);
  SetFormView(ask ? static_cast<FormView*>(&asked) : &scripted);

  console.Heading(fmt::format("ShowFilter on {}", ToUtf8(set.List().strViewName)));
  bool confirmed = false;
  session.Run([&] { confirmed = set.ShowFilter(0); });
  console.Heading("It returns");
  console.BeginTable();
  console.Row({"ShowFilter", confirmed ? "True" : "False"});
  console.Row({"ListPureWhere", ToUtf8(set.ListPureWhere())});
  console.EndTable();
  console.Heading("The rows of the host's query");
  ShowRows(console, session, set, filter.rows);

  console.Heading("ShowMultiChoose on the departments");
  Text condition;
  Text shown;
  bool ok = false;
  WithRows(session, kDepartments, [&](const RecordsetPtr& rows) {
    condition = set.ShowMultiChoose(rows, u"部门", u"(部门='02-01 国内销售科')", shown, false,
                                    Value(), ok, 0);
  });
  console.Heading("It returns");
  console.BeginTable();
  console.Row({"bOk", ok ? "True" : "False"});
  console.Row({"condition", ToUtf8(condition)});
  console.Row({"strShowCond", ToUtf8(shown)});
  console.EndTable();
  SetFormView(nullptr);
  return 0;
}

}  // namespace fetchkit::demo
