#include <fmt/format.h>

#include "demo/SampleAccounts.h"
#include "demo/commands/Commands.h"
#include "demo/commands/DemoSession.h"
#include "fetchkit/base/Date.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::demo {
namespace {

std::string YesNo(bool flag) {
  return flag ? "yes" : "no";
}

// Every row of a record: the property's name and its value.
class RecordTable {
 public:
  explicit RecordTable(Console& console) : console_(console) { console_.BeginTable(); }
  ~RecordTable() { console_.EndTable(); }
  void Text(std::string name, TextView value) { console_.Row({std::move(name), Utf8(value)}); }
  void Number(std::string name, long value) {
    console_.Row({std::move(name), std::to_string(value)});
  }
  void Flag(std::string name, bool value) { console_.Row({std::move(name), YesNo(value)}); }

 private:
  Console& console_;
};

void ShowAccount(Console& console, const Business& account) {
  console.Heading("Business: the account");
  RecordTable table(console);
  table.Text("AccountName", account.AccountName());
  table.Number("AccountType", account.AccountType());
  table.Text("AccountServer", account.AccountServer());
  table.Text("AccountUserID", account.AccountUserID());
  table.Text("AccountVersion", account.AccountVersion());
  table.Text("StartDate", account.StartDate());
  table.Text("Currency", Join(account.CurrencyCode(), u" ", account.CurrencyName()));
  table.Number("NaturalCurDec", account.NaturalCurDec());
  table.Text("GAUnitCode", Join(u"\"", account.GAUnitCode(), u"\""));
  table.Text("AccountSystem", account.AccountSystem());
}

void ShowOrganization(Console& console, const Organization& organization) {
  console.Heading("LoginOrganization: identity and place in the tree");
  {
    RecordTable table(console);
    table.Number("OrganizationID", organization.OrganizationID());
    table.Text("OrganizationCode", organization.OrganizationCode());
    table.Text("OrganizationName", organization.OrganizationName());
    table.Text("OrganizationFullName", organization.OrganizationFullName());
    table.Number("Level", organization.Level());
    table.Flag("IsRoot", organization.IsRoot());
    table.Flag("IsDetail", organization.IsDetail());
    table.Number("ParentLevelOrganizationId", organization.ParentLevelOrganizationId());
    table.Text("PrevLevelOrganizationId", organization.PrevLevelOrganizationId());
    table.Text("NextLevelDirectOrganizationID", organization.NextLevelDirectOrganizationID());
    table.Text("NextLevelOrganizationId", organization.NextLevelOrganizationId());
    table.Text("LowerOrganizationId", organization.LowerOrganizationId());
  }
  console.Heading("LoginOrganization: its calendar on the login date");
  RecordTable table(console);
  table.Text("BeginDate", organization.BeginDate());
  table.Text("EndDate", organization.EndDate());
  table.Number("ThisYear", organization.ThisYear());
  table.Number("ThisPeriod", organization.ThisPeriod());
  table.Number("ThisQuarter", organization.ThisQuarter());
  table.Number("ThisHalfYear", organization.ThisHalfYear());
}

void ShowOperator(Console& console, const Operator& loginOperator) {
  console.Heading("LoginOperator: the operator");
  RecordTable table(console);
  table.Number("OperatorId", loginOperator.OperatorId());
  table.Text("OperatorCode", loginOperator.OperatorCode());
  table.Text("OperatorName", loginOperator.OperatorName());
  table.Text("OperatorGroupName", loginOperator.OperatorGroupName());
  table.Number("DepartmentId", loginOperator.DepartmentId());
  table.Flag("IsSystem", loginOperator.IsSystem());
}

void ShowCustomer(Console& console, const CustomerSs& customer) {
  console.Heading("CustomerSs: the service customer");
  RecordTable table(console);
  table.Number("CustomerID", customer.CustomerID());
  table.Text("CustomerCode", customer.CustomerCode());
  table.Text("CustomerName", customer.CustomerName());
  table.Text("FullName", customer.FullName());
  table.Flag("IsInActive", customer.IsInActive());
}

std::string Reloaded() {
  const Session& session = MAction::CurrentSession();
  std::string names;
  const auto add = [&](bool changed, const char* name) {
    if (changed) names += (names.empty() ? "" : ", ") + std::string(name);
  };
  add(session.AccountChanged, "account");
  add(session.OrganizationChanged, "organization");
  add(session.OperatorChanged, "operator");
  add(session.CustomerChanged, "service customer");
  return names.empty() ? "nothing" : names;
}

std::string Identity(Interface& entry) {
  return fmt::format("{} · {} {} · {} · {} · {}", Utf8(entry.Business()->AccountName()),
                     Utf8(entry.LoginOrganizationCode()), Utf8(entry.LoginOrganizationName()),
                     Utf8(entry.LoginOperator()->OperatorName()),
                     Utf8(entry.CustomerSs()->CustomerName()), Utf8(entry.LoginDate()));
}

// Says in words what a login lacks that did not come in whole. Answers whether it did.
bool ShowState(Console& console, const LoginState& state) {
  if (state.extent == LoginState::Extent::Whole) return true;
  console.Line(
      state.extent == LoginState::Extent::None
          ? "There is no login: nothing of its account, organization and operator was read."
          : "The login is partial: some of its records did not come in.");
  for (const fetchkit::Text& step : state.failedSteps)
    console.Line("  " + Utf8(step));
  console.Line(fmt::format(
      "\"no row\" means that the database knows no such organization or operator, or that it is "
      "inactive, not initialised or not allotted.\n"
      "Choose another login with --login NAME; {} accounts lists them.",
      kProgram));
  return false;
}

}  // namespace

int RunLogin(Console& console, const CommonOptions& options) {
  DemoSession session(console, options.trace, options.target);
  Interface& entry = session.entry();

  const auto login = [&](std::string_view title, std::string_view name) {
    session.Switch(name);
    console.Heading(fmt::format("{}: {}", title, FindSampleLogin(name).description));
    session.Run([&] { entry.Initialize(session.connection()); });
    console.Line(fmt::format("reloaded: {}", Reloaded()));
    const bool isWhole = ShowState(console, entry.LoginState());
    if (isWhole) console.Line(Identity(entry));
    return isWhole;
  };

  if (!login("First login", options.login)) return 1;
  ShowAccount(console, *entry.Business());
  ShowOrganization(console, *entry.LoginOrganization());
  ShowOperator(console, *entry.LoginOperator());
  ShowCustomer(console, *entry.CustomerSs());

  login("The same login again", options.login);
  login("Another service customer", "customer");
  login("Another operator", "operator");
  login("Another organization", "suzhou");
  login("Another account", "account");
  login("Back to the first login", options.login);
  return 0;
}

}  // namespace fetchkit::demo
