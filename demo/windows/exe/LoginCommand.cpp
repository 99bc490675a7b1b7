#include <fmt/format.h>

#include "demo/SampleAccounts.h"
#include "demo/windows/exe/Calls.h"
#include "demo/windows/exe/LibrarySession.h"
#include "demo/windows/exe/WindowsCommands.h"

namespace fetchkit::demo {
namespace {

// One record of the session, a property per row.
template <class I>
class RecordTable {
 public:
  RecordTable(Console& console, const char* heading, ComPtr<I> record)
      : console_(console), record_(std::move(record)) {
    console_.Heading(heading);
    console_.BeginTable();
  }
  ~RecordTable() { console_.EndTable(); }
  RecordTable(const RecordTable&) = delete;
  RecordTable& operator=(const RecordTable&) = delete;

  void Text(const char* name, HRESULT (STDMETHODCALLTYPE I::*member)(BSTR*)) {
    console_.Row({name, TextOf(record_, member)});
  }
  template <class Value>
  void Number(const char* name, HRESULT (STDMETHODCALLTYPE I::*member)(Value*)) {
    console_.Row({name, std::to_string(NumberOf(record_, member))});
  }
  void Flag(const char* name, HRESULT (STDMETHODCALLTYPE I::*member)(VARIANT_BOOL*)) {
    console_.Row({name, FlagOf(record_, member) ? "yes" : "no"});
  }

 private:
  Console& console_;
  ComPtr<I> record_;
};

void ShowAccount(Console& console, const ComPtr<IInterface>& entry) {
  RecordTable table(console, "Business: the account", ObjectOf(entry, &IInterface::get_Business));
  table.Text("AccountName", &IBusiness::get_AccountName);
  table.Number("AccountType", &IBusiness::get_AccountType);
  table.Text("AccountServer", &IBusiness::get_AccountServer);
  table.Text("AccountUserID", &IBusiness::get_AccountUserID);
  table.Text("AccountVersion", &IBusiness::get_AccountVersion);
  table.Text("StartDate", &IBusiness::get_StartDate);
  table.Text("CurrencyCode", &IBusiness::get_CurrencyCode);
  table.Text("CurrencyName", &IBusiness::get_CurrencyName);
  table.Number("NaturalCurDec", &IBusiness::get_NaturalCurDec);
  table.Text("AccountSystem", &IBusiness::get_AccountSystem);
}

void ShowOrganization(Console& console, const ComPtr<IInterface>& entry) {
  const auto organization = ObjectOf(entry, &IInterface::get_LoginOrganization);
  {
    RecordTable table(console, "LoginOrganization: identity and place in the tree", organization);
    table.Number("OrganizationID", &IOrganization::get_OrganizationID);
    table.Text("OrganizationCode", &IOrganization::get_OrganizationCode);
    table.Text("OrganizationName", &IOrganization::get_OrganizationName);
    table.Text("OrganizationFullName", &IOrganization::get_OrganizationFullName);
    table.Number("Level", &IOrganization::get_Level);
    table.Flag("IsRoot", &IOrganization::get_IsRoot);
    table.Flag("IsDetail", &IOrganization::get_IsDetail);
    table.Number("ParentLevelOrganizationId", &IOrganization::get_ParentLevelOrganizationId);
    table.Text("PrevLevelOrganizationId", &IOrganization::get_PrevLevelOrganizationId);
    table.Text("NextLevelDirectOrganizationID", &IOrganization::get_NextLevelDirectOrganizationID);
    table.Text("NextLevelOrganizationId", &IOrganization::get_NextLevelOrganizationId);
    table.Text("LowerOrganizationId", &IOrganization::get_LowerOrganizationId);
  }
  RecordTable table(console, "LoginOrganization: its calendar on the login date", organization);
  table.Text("BeginDate", &IOrganization::get_BeginDate);
  table.Text("EndDate", &IOrganization::get_EndDate);
  table.Number("ThisYear", &IOrganization::get_ThisYear);
  table.Number("ThisPeriod", &IOrganization::get_ThisPeriod);
  table.Number("ThisQuarter", &IOrganization::get_ThisQuarter);
  table.Number("ThisHalfYear", &IOrganization::get_ThisHalfYear);
}

void ShowPeople(Console& console, const ComPtr<IInterface>& entry) {
  {
    RecordTable table(console, "LoginOperator: the operator",
                      ObjectOf(entry, &IInterface::get_LoginOperator));
    table.Number("OperatorId", &IOperator::get_OperatorId);
    table.Text("OperatorCode", &IOperator::get_OperatorCode);
    table.Text("OperatorName", &IOperator::get_OperatorName);
    table.Text("OperatorGroupName", &IOperator::get_OperatorGroupName);
    table.Number("DepartmentId", &IOperator::get_DepartmentId);
    table.Flag("IsSystem", &IOperator::get_IsSystem);
  }
  RecordTable table(console, "CustomerSs: the service customer",
                    ObjectOf(entry, &IInterface::get_CustomerSs));
  table.Number("CustomerID", &ICustomerSs::get_CustomerID);
  table.Text("CustomerCode", &ICustomerSs::get_CustomerCode);
  table.Text("CustomerName", &ICustomerSs::get_CustomerName);
  table.Text("FullName", &ICustomerSs::get_FullName);
  table.Flag("IsInActive", &ICustomerSs::get_IsInActive);
}

}  // namespace

int ShowLogin(Console& console, const CommonOptions& options) {
  LibrarySession session(console, options.trace);
  session.LogIn(options.login);
  const auto& entry = session.entry();
  console.Heading(FindSampleLogin(options.login).description);
  console.Line(fmt::format(
      "{} · {} {} · {} · {} · {}",
      TextOf(ObjectOf(entry, &IInterface::get_Business), &IBusiness::get_AccountName),
      TextOf(entry, &IInterface::get_LoginOrganizationCode),
      TextOf(entry, &IInterface::get_LoginOrganizationName),
      TextOf(ObjectOf(entry, &IInterface::get_LoginOperator), &IOperator::get_OperatorName),
      TextOf(ObjectOf(entry, &IInterface::get_CustomerSs), &ICustomerSs::get_CustomerName),
      TextOf(entry, &IInterface::get_LoginDate)));
  ShowAccount(console, entry);
  ShowOrganization(console, entry);
  ShowPeople(console, entry);
  return 0;
}

}  // namespace fetchkit::demo
