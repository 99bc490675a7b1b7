#include "session/SampleBooks.h"

#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "support/Lines.h"

namespace fetchkit::test {

namespace {

std::vector<std::pair<Text, Answer>> ReadFirstLogin() {
  std::vector<std::pair<Text, Answer>> login;
  for (const auto& line : Lines(
#include "session/FirstLogin.txt"
           )) {
    if (line[0].find("SELECT ") <= 1) {
      login.emplace_back(FromUtf8(line[0]), Rows({}, {}));
      continue;
    }
    Answer& answer = login.back().second;
    answer.columns.clear();
    auto& row = answer.rows.emplace_back();
    for (const std::string& cell : line) {
      const std::size_t equals = cell.find('=');
      answer.columns.push_back(FromUtf8(cell.substr(0, equals)));
      const Text value = FromUtf8(cell.substr(equals + 1));
      row.push_back(value.starts_with(u'\'') ? Value(value.substr(1)) : ToLong(value));
    }
  }
  return login;
}

std::string Shown(const Text& value) {
  return ToUtf8(value);
}
std::string Shown(long value) {
  return std::to_string(value);
}

}  // namespace

const std::vector<std::pair<Text, Answer>>& FirstLogin() {
  static const std::vector<std::pair<Text, Answer>> login = ReadFirstLogin();
  return login;
}

std::shared_ptr<FakeConnection> GoodHost() {
  auto host = std::make_shared<FakeConnection>();
  for (const auto& [sql, answer] : FirstLogin())
    host->On(sql, answer);
  return host;
}

// clang-format off
#define OWN(member) \
  "Interface." #member, [](Interface& of) { return Shown(of.member()); }
#define RECORD(record, member) \
  #record "." #member, [](Interface& of) { return Shown(of.record()->member()); }
#define SESSION(member) \
  #member, [](Interface&) { return Shown(MAction::CurrentSession().member); }

const std::vector<LoginValue>& LoginValues() {
  static const std::vector<LoginValue> values = {
      {OWN(LoginDate), "2004-03-17", kFromHost},
      {OWN(LoginOrganizationId), "20", kFromHost, "0"},
      {OWN(LoginOperatorId), "3", kFromHost, "0"},
      {OWN(LoginOperatorPwd), "secret", kFromHost},
      {SESSION(SSCustomerId), "12", kFromHost, "0"},
      {SESSION(AccountKey), "7$DBSRV$ACC01", kFromHost},
      {RECORD(Business, AccountType), "7", kFromHost, "0"},
      {RECORD(Business, AccountServer), "DBSRV", kFromHost},
      {RECORD(Business, AccountUserID), "ACC01", kFromHost},
      {RECORD(LoginOperator, OperatorId), "3", kFromHost, "0"},
      {RECORD(LoginOperator, OrganizationId), "20", kFromHost, "0"},
      {RECORD(LoginOrganization, IsRoot), "0", kFromHost, "0"},
      {RECORD(Business, AccountProperty), "1", kSettings, "0"},
      {RECORD(LoginOrganization, OrganizationProperty), "2", kSettings, "0"},
      {RECORD(Business, GroupDBType), "1", kSettings, "0"},
      {RECORD(LoginOrganization, GroupDBType), "1", kSettings, "0"},
      {RECORD(Business, DiscountRateDec), "2", kSettings, "0"},
      {RECORD(Business, PriceDec), "4", kSettings, "0"},
      {RECORD(Business, QuantityDec), "3", kSettings, "0"},
      {RECORD(Business, VersionType), "5", kSettings, "0"},
      {RECORD(Business, CurrencyID), "7", kSettings, "0"},
      {SESSION(NaturalCurrencyId), "7", kSettings, "0"},
      {RECORD(Business, CurrencyCode), "RMB", kSettings},
      {RECORD(Business, CurrencyName), "人民币", kSettings},
      {RECORD(Business, NaturalCurDec), "2", kSettings, "0"},
      {RECORD(Business, TradeID), "9", kSettings, "0"},
      {RECORD(Business, AccountSystem), "企业会计制度", kSettings},
      {RECORD(Business, ApplicationLabel), "集团账", kSettings},
      {RECORD(Business, GAUnitCode), " ", kSettings},
      {RECORD(Business, MessageServer), "MSG01", kSettings},
      {RECORD(Business, Notes), "备注", kSettings},
      {RECORD(Business, OldAccountSystem), "旧制度", kSettings},
      {RECORD(Business, StartDate), "2003-01-01", kSettings},
      {SESSION(AccountStartDate), "2003-01-01", kSettings},
      {SESSION(AccountStartYear), "2003", kSettings, "0"},
      {RECORD(Business, TaxType), "一般纳税人", kSettings},
      {RECORD(Business, UserName), "东方集团", kSettings},
      {RECORD(Business, Version), "8.50", kSettings},
      {RECORD(Business, DynPwdSvrIP), "10.0.0.1", kSettings},
      {RECORD(Business, DynPwdSvrPort), "0443", kSettings},
      {RECORD(Business, AccountName), "东方集团账套", kAccountNames},
      {RECORD(Business, AccountVersion), "8.5", kAccountNames},
      {RECORD(Business, AccountUnitCode), "DF", kAccountNames},
      {RECORD(LoginOrganization, OrganizationID), "20", kOrganization, "0"},
      {RECORD(LoginOrganization, OrganizationCode), "01-02", kOrganization},
      {OWN(LoginOrganizationCode), "01-02", kOrganization},
      {RECORD(LoginOrganization, OrganizationName), "华东公司", kOrganization},
      {OWN(LoginOrganizationName), "华东公司", kOrganization},
      {RECORD(LoginOrganization, OrganizationFullName), "东方集团华东公司", kOrganization},
      {RECORD(LoginOrganization, Level), "2", kOrganization, "0"},
      {SESSION(OrganizationLevel), "2", kOrganization, "0"},
      {RECORD(LoginOrganization, CreateDate), "2002-12-31", kOrganization},
      {RECORD(LoginOrganization, StartDate), "2003-01-01", kOrganization},
      {RECORD(LoginOrganization, IsCenter), "1", kOrganization, "0"},
      {RECORD(LoginOrganization, IsDetail), "1", kOrganization, "0"},
      {SESSION(OrganizationIsDetail), "1", kOrganization, "0"},
      {RECORD(LoginOrganization, IsInitialized), "1", kOrganization, "0"},
      {RECORD(LoginOrganization, IsVoucher), "1", kOrganization, "0"},
      {RECORD(LoginOrganization, ParentLevelOrganizationId), "10", kAncestors, "0"},
      {RECORD(LoginOrganization, PrevLevelOrganizationId), "8,10", kAncestors, "0"},
      {RECORD(LoginOrganization, NextLevelOrganizationId), "31,30,40", kDescendants, "0"},
      {RECORD(LoginOrganization, NextLevelDirectOrganizationID), "31,30", kDescendants, "0"},
      {RECORD(LoginOrganization, LowerOrganizationId), "20,31,30,40", kDescendants, "20,0"},
      {RECORD(LoginOrganization, BeginDate), "2003-01-01", kBounds},
      {RECORD(LoginOrganization, EndDate), "2005-12-31", kBounds},
      {SESSION(OrganizationEndDate), "2005-12-31", kBounds},
      // The period's year: the quarter and the half have another one, as where an organization
      // changed its calendar.
      {RECORD(LoginOrganization, ThisYear), "2004", kPeriod, "0"},
      {SESSION(OrganizationThisYear), "2004", kPeriod, "0"},
      {RECORD(LoginOrganization, ThisPeriod), "3", kPeriod, "0"},
      {SESSION(OrganizationThisPeriod), "3", kPeriod, "0"},
      {RECORD(LoginOrganization, ThisQuarter), "1", kQuarter, "0"},
      {SESSION(OrganizationThisQuarter), "1", kQuarter, "0"},
      {RECORD(LoginOrganization, ThisHalfYear), "2", kHalf, "0"},
      {SESSION(OrganizationThisHalfYear), "2", kHalf, "0"},
      {RECORD(LoginOperator, OperatorCode), "003", kOperator},
      {RECORD(LoginOperator, OperatorName), "李会计", kOperator},
      {RECORD(LoginOperator, Password), "123", kOperator},
      {RECORD(LoginOperator, DepartmentId), "5", kOperator, "0"},
      {RECORD(LoginOperator, OperatorGroupId), "2", kOperator, "0"},
      {RECORD(LoginOperator, OperatorGroupName), "会计组", kOperator},
      {RECORD(LoginOperator, RoleID), "4", kOperator, "0"},
      {RECORD(LoginOperator, TokenSN), "T-1", kOperator},
      {RECORD(LoginOperator, UseStcPwd), "1", kOperator, "0"},
      {RECORD(CustomerSs, CustomerID), "12", kCustomer, "0"},
      {RECORD(CustomerSs, CustomerCode), "C12", kCustomer},
      {RECORD(CustomerSs, CustomerName), "蓝天", kCustomer},
      {RECORD(CustomerSs, FullName), "蓝天股份", kCustomer},
      {RECORD(CustomerSs, IsInActive), "1", kCustomer, "0"},
  };
  return values;
}

// clang-format on

State Snapshot() {
  Interface entry;
  State seen;
  for (const LoginValue& value : LoginValues())
    seen[value.name] = value.read(entry);
  return seen;
}

}  // namespace fetchkit::test
