#include <fmt/format.h>

#include <memory>
#include <stdexcept>

#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "demo/commands/FilterUsers.h"
#include "demo/commands/ListDialogs.h"
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

// The linked library's dialogs, in the console.
class DialogsInConsole : public ListDialogs {
 public:
  DialogsInConsole(ListSet& set, FormView& user) : set_(set) { SetFormView(&user); }
  ~DialogsInConsole() override { SetFormView(nullptr); }
  DialogsInConsole(const DialogsInConsole&) = delete;
  DialogsInConsole& operator=(const DialogsInConsole&) = delete;

  void ViewId(std::int32_t id) override { set_.ViewId(id); }
  ListType List() const override { return set_.List(); }
  ListTexts Texts() const override { return TextsOf(set_); }
  bool ShowFilter() override { return set_.ShowFilter(0); }
  Text ShowMultiChoose(const RecordsetPtr& rows, TextView caption, TextView condition, Text& shown,
                       bool& ok) override {
    return set_.ShowMultiChoose(rows, caption, condition, shown, false, Value(), ok, 0);
  }

 private:
  ListSet& set_;
};

}  // namespace

int RunFilter(Console& console, const CommonOptions& options, const FilterOptions& filter,
              std::istream& in, bool interactive) {
  DemoSession session(console, options.trace, options.target);
  session.Switch(options.login);
  session.LogIn();
  ScriptedUser scripted(console);
  AskedUser asked(console, in);
  const bool isAuto = filter.user == DialogUser::Auto;
  const bool ask = filter.user == DialogUser::Asked || (isAuto && interactive);
  std::unique_ptr<ListDialogs> dialogs;
  if (isAuto && filter.openInWindows)
    dialogs = filter.openInWindows(session.connection());
  else
    dialogs = std::make_unique<DialogsInConsole>(*session.entry().ListSet(),
                                                 ask ? static_cast<FormView&>(asked) : scripted);

  console.Heading(fmt::format("View {}", filter.viewId));
  session.Run([&] { dialogs->ViewId(filter.viewId); });
  const ListType list = dialogs->List();
  if (list.ListField.empty())
    throw std::invalid_argument(
        fmt::format("the account has no view {}; try 101 or 102", filter.viewId));

  console.Heading(fmt::format("ShowFilter on {}", ToUtf8(list.strViewName)));
  bool confirmed = false;
  session.Run([&] { confirmed = dialogs->ShowFilter(); });
  console.Heading("It returns");
  console.BeginTable();
  console.Row({"ShowFilter", confirmed ? "True" : "False"});
  console.Row({"ListPureWhere", ToUtf8(dialogs->Texts().pureWhere)});
  console.EndTable();
  console.Heading("The rows of the host's query");
  ShowRows(console, session, dialogs->List(), dialogs->Texts(), filter.rows);

  console.Heading("ShowMultiChoose on the departments");
  Text condition;
  Text shown;
  bool ok = false;
  WithRows(session, kDepartments, [&](const RecordsetPtr& rows) {
    condition = dialogs->ShowMultiChoose(rows, u"部门", u"(部门='02-01 国内销售科')", shown, ok);
  });
  console.Heading("It returns");
  console.BeginTable();
  console.Row({"bOk", ok ? "True" : "False"});
  console.Row({"condition", ToUtf8(condition)});
  console.Row({"strShowCond", ToUtf8(shown)});
  console.EndTable();
  return 0;
}

}  // namespace fetchkit::demo
