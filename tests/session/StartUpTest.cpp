#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <thread>
#include <tuple>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "session/SampleBooks.h"
#include "support/Lines.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

// A value that a host can see after a login.
struct LoginValue {
  std::string name;      // such as "Business.CurrencyID", or "AccountKey" of the session itself
  std::string loggedIn;  // what it is after the first login on GoodHost
  std::string none;      // what it is when the statement yields nothing
  int from;              // the statement where it comes from
};

// A line for each statement and one for the host, "name=loggedIn" or "name=loggedIn=none" between
// "¦", in the order in which start-up copies them. The quarter and the half have another year than
// the period, whose year counts, as where an organization changed its calendar.
const std::vector<LoginValue> kLoginValues = [] {
  std::vector<LoginValue> values;
  int from = kSettings;
  for (const auto& line : Lines(
#include "session/LoginValues.txt"
           )) {
    for (const std::string& cell : line) {
      const Text value = FromUtf8(cell);
      const auto parts = Split(value, u"=");
      values.push_back(
          {ToUtf8(parts[0]), ToUtf8(parts[1]), parts.size() > 2 ? ToUtf8(parts[2]) : "", from});
    }
    ++from;
  }
  return values;
}();

std::string Shown(const Text& value) {
  return ToUtf8(value);
}
std::string Shown(long value) {
  return std::to_string(value);
}

// clang-format off
#define READ(member) {#member, [](auto& of) { return Shown(of.member()); }}
#define FIELD(member) {#member, [](auto& of) { return Shown(of.member); }}
// clang-format on

template <class Record>
using Readers = std::map<std::string, std::string (*)(Record& of)>;

const Readers<Interface> kOwn = {
    READ(LoginDate),        READ(LoginOrganizationId),   READ(LoginOperatorId),
    READ(LoginOperatorPwd), READ(LoginOrganizationCode), READ(LoginOrganizationName)};
const Readers<Session> kSession = {
    FIELD(AccountStartYear),         FIELD(OrganizationThisPeriod), FIELD(OrganizationThisYear),
    FIELD(AccountStartDate),         FIELD(OrganizationLevel),      FIELD(NaturalCurrencyId),
    FIELD(OrganizationThisHalfYear), FIELD(OrganizationEndDate),    FIELD(AccountKey),
    FIELD(OrganizationThisQuarter),  FIELD(OrganizationIsDetail),   FIELD(SSCustomerId)};
const Readers<Business> kBusiness = {
    READ(AccountType),    READ(AccountServer),   READ(AccountUserID), READ(AccountProperty),
    READ(GroupDBType),    READ(DiscountRateDec), READ(PriceDec),      READ(QuantityDec),
    READ(VersionType),    READ(CurrencyID),      READ(CurrencyCode),  READ(CurrencyName),
    READ(NaturalCurDec),  READ(TradeID),         READ(AccountSystem), READ(ApplicationLabel),
    READ(GAUnitCode),     READ(MessageServer),   READ(Notes),         READ(OldAccountSystem),
    READ(StartDate),      READ(TaxType),         READ(UserName),      READ(Version),
    READ(DynPwdSvrIP),    READ(DynPwdSvrPort),   READ(AccountName),   READ(AccountVersion),
    READ(AccountUnitCode)};
const Readers<Organization> kOrganizations = {
    READ(IsCenter),         READ(OrganizationProperty),
    READ(OrganizationCode), READ(IsVoucher),
    READ(ThisPeriod),       READ(PrevLevelOrganizationId),
    READ(CreateDate),       READ(ThisHalfYear),
    READ(BeginDate),        READ(IsInitialized),
    READ(EndDate),          READ(ParentLevelOrganizationId),
    READ(ThisYear),         READ(NextLevelOrganizationId),
    READ(OrganizationID),   READ(LowerOrganizationId),
    READ(GroupDBType),      READ(OrganizationName),
    READ(IsDetail),         READ(Level),
    READ(ThisQuarter),      READ(NextLevelDirectOrganizationID),
    READ(IsRoot),           READ(OrganizationFullName),
    READ(StartDate)};
const Readers<Operator> kOperators = {
    READ(OperatorId), READ(OrganizationId), READ(OperatorCode),    READ(OperatorName),
    READ(Password),   READ(DepartmentId),   READ(OperatorGroupId), READ(OperatorGroupName),
    READ(RoleID),     READ(TokenSN),        READ(UseStcPwd)};
const Readers<CustomerSs> kCustomers = {READ(CustomerID), READ(CustomerCode), READ(CustomerName),
                                        READ(FullName), READ(IsInActive)};

// Such values by name.
using State = std::map<std::string, std::string>;

const State kLoggedIn = [] {
  State state;
  for (const LoginValue& value : kLoginValues)
    state[value.name] = value.loggedIn;
  return state;
}();

// What a host can see of the calling thread's session.
State Snapshot() {
  Interface entry;
  State seen;
  const auto add = [&](const std::string& prefix, auto& record, const auto& readers) {
    for (const auto& [name, read] : readers)
      seen[prefix + name] = read(record);
  };
  add("Interface.", entry, kOwn);
  add("", MAction::CurrentSession(), kSession);
  add("Business.", *entry.Business(), kBusiness);
  add("LoginOrganization.", *entry.LoginOrganization(), kOrganizations);
  add("LoginOperator.", *entry.LoginOperator(), kOperators);
  add("CustomerSs.", *entry.CustomerSs(), kCustomers);
  return seen;
}

State operator+(State state, const State& changes) {
  for (const auto& [name, value] : changes)
    state[name] = value;
  return state;
}

// The statements of the first login between two of its places, the second one excluded.
std::vector<std::string> Range(int from, int to) {
  std::vector<std::string> statements;
  for (int i = from; i < to; ++i)
    statements.push_back(ToUtf8(FirstLogin()[static_cast<std::size_t>(i)].first));
  return statements;
}

class StartUp : public testing::Test {
 protected:
  StartUp() { host_->fallback = Done; }  // to statements about others

  FreshThread thread_;
  std::shared_ptr<FakeConnection> host_ = GoodHost();
  Interface entry_;
};

TEST_F(StartUp, FirstLoginSendsElevenStatementsAndTheNextOnesNone) {
  entry_.Initialize(host_);
  EXPECT_EQ(host_->TakeSent(), Range(0, kStatementCount));
  EXPECT_EQ(Snapshot(), kLoggedIn);

  RecordingSink sink;
  entry_.Initialize(nullptr);
  EXPECT_EQ(Snapshot(), kLoggedIn) << "a host without a connection keeps the earlier login";
  ASSERT_EQ(sink.failures.size(), 1u);
  EXPECT_EQ(sink.failures[0].description, u"The host has no connection object.");

  // The copies are refreshed nevertheless.
  entry_.LoginOrganization()->ThisPeriod(11);
  entry_.Business()->GroupDBType(0);
  entry_.LoginOperator()->OperatorId(99);
  host_->login.loginDate = u"2004-04-01";  // a new date alone reloads nothing
  entry_.Initialize(host_);
  EXPECT_EQ(host_->TakeSent(), std::vector<std::string>());
  EXPECT_EQ(Snapshot(), kLoggedIn + State({{"Interface.LoginDate", "2004-04-01"},
                                           {"LoginOrganization.ThisPeriod", "11"},
                                           {"OrganizationThisPeriod", "11"},
                                           {"Business.GroupDBType", "0"},
                                           {"LoginOrganization.GroupDBType", "0"},
                                           {"LoginOrganization.OrganizationProperty", "1"}}));
}

TEST_F(StartUp, AnotherLoginHasObjectsOfItsOwnAndLoadsOnlyWhatDiffers) {
  // The thread's, the account's, the organization's, the operator's.
  const auto objects = [&] {
    return std::vector<std::shared_ptr<void>>{
        entry_.Activity(),      entry_.ListSet(),           entry_.Business(),
        entry_.CustomerSs(),    entry_.LoginOrganization(), entry_.LoginOrganizationRight(),
        entry_.LoginOperator(), entry_.LoginOperatorRight()};
  };
  entry_.Initialize(host_);
  host_->TakeSent();
  const auto first = objects();
  // Organization, operator, customer and account; the first statement that is sent, a piece of the
  // statements, and how many of the objects are those of the first login. The row of organization
  // 31 is not found, so the tree and the calendar are asked for with the object's own id, 0.
  Table<std::int32_t, std::int32_t, TextView, TextView, Statement, std::string, std::size_t>{
      {"customer", 20, 3, u"13", u"ACC01", kCustomer, "lngSSCustomerId = 13 ", 8},
      {"operator", 20, 4, u"13", u"ACC01", kOperator, "Operator.lngOperatorId = 4 ", 6},
      {"the one before", 20, 3, u"12", u"ACC01", kOperator, "Operator.lngOperatorId = 3 ", 8},
      {"organization", 31, 3, u"12", u"ACC01", kOrganization, "Half WHERE lngOrganizationId = 0 ",
       4},
      {"account", 20, 3, u"12", u"acc02", kSettings, "Upper(strUserName) = 'ACC02'", 2},
      {"the first one", 20, 3, u"12", u"ACC01", kSettings, "Upper(strUserName) = 'ACC01'", 8},
  }
      .Check([&](std::int32_t organizationId, std::int32_t operatorId, TextView customer,
                 TextView user, Statement from, const std::string& piece, std::size_t kept) {
        host_->login.organizationId = organizationId;
        host_->login.operatorId = operatorId;
        host_->login.customer = customer;
        host_->login.user = user;
        entry_.Initialize(host_);
        const auto sent = host_->TakeSent();
        EXPECT_EQ(sent.size(), static_cast<std::size_t>(kStatementCount - from));
        EXPECT_THAT(sent, testing::Contains(testing::HasSubstr(piece)));
        const auto now = objects();
        for (std::size_t i = 0; i < first.size(); ++i)
          EXPECT_EQ(now[i] == first[i], i < kept) << "object " << i;
        EXPECT_EQ(entry_.LoginOperator()->OrganizationId(), organizationId);
        if (kept > 2) {
          EXPECT_EQ(entry_.CustomerSs()->CustomerCode(), u"C12") << "without a row the one before";
        }
      });
  EXPECT_EQ(Snapshot(), kLoggedIn);
}

TEST_F(StartUp, AccountTypeDecidesWhereTheCustomerIsRead) {
  for (const int accountType : {5, 6, 7, 8, 9}) {
    SCOPED_TRACE(accountType);
    ReleaseThread();
    host_->login.accountType = accountType;
    entry_.Initialize(host_);
    const bool isRead = accountType >= 6 && accountType <= 8;
    auto expected = Range(0, isRead ? kStatementCount : kCustomer);
    if (accountType == 8)
      expected.back().replace(expected.back().find("SSCustomer  WHERE"), 10, "McCustomer");
    EXPECT_EQ(host_->TakeSent(), expected);
  }
}

TEST_F(StartUp, CustomerNumberIsComparedAsReadAndRoundedWhenStored) {
  const std::tuple<Value, std::int32_t, std::size_t> kRows[] = {
      {u" 12号", 12, 0},
      {u"12.5", 12, 1},         // differs from its rounded self every time
      {NullValue(), 0, 0},      // cannot be read
      {u"99999999999", 0, 1}};  // too large to store, so the old one stays and differs
  for (const auto& [item, stored, statementsOfSecondLogin] : kRows) {
    ReleaseThread();
    host_->login.customer = item;
    entry_.Initialize(host_);
    EXPECT_EQ(MAction::CurrentSession().SSCustomerId, stored);
    host_->TakeSent();
    entry_.Initialize(host_);
    EXPECT_EQ(host_->TakeSent().size(), statementsOfSecondLogin);
  }
}

// Takes a statement's values from the state, from the named one on.
void Lose(State& state, int statement, std::string_view from = {}) {
  bool lost = from.empty();
  for (const LoginValue& value : kLoginValues) {
    lost = lost || value.name == from;
    if (lost && value.from == statement) state[value.name] = value.none;
  }
}

// Everything that may go wrong with a statement; the last three are about one column, in every row.
std::vector<Answer> Faults(const Answer& good, TextView column) {
  using Kind = Answer::Kind;
  std::vector<Answer> faults = {
      Refused(), Throws(), {Kind::OddThrow}, {Kind::NoRecordset}, Rows(good.columns, {})};
  const auto at = std::find(good.columns.begin(), good.columns.end(), column);
  const auto index = static_cast<std::size_t>(at - good.columns.begin());
  for (const Value& value : {Value(NullValue()), Value(ValueArray())}) {
    faults.push_back(good);
    for (auto& row : faults.back().rows)
      row.at(index) = value;
  }
  faults.push_back(good);
  faults.back().columns.at(index).clear();
  return faults;
}

TEST_F(StartUp, AStatementThatGoesWrongLeavesTheRest) {
  static constexpr int kLoaders[] = {kOrganization, kOperator, kCustomer, kStatementCount};  // ends
  // The statement; the first one that is sent nevertheless when an error stops the loader; a
  // column, and its value, behind which the row's copying ends.
  Table<Statement, Statement, TextView, const char*>{
      {"settings", kSettings, kOrganization, u"strAccountSystem", "Business.AccountSystem"},
      {"account names", kAccountNames, kOrganization, u"strVersion", "Business.AccountVersion"},
      {"organization", kOrganization, kAncestors, u"blnIsDetail", "LoginOrganization.IsDetail"},
      {"ancestors", kAncestors, kBounds, u"lngOrganizationId", ""},
      {"descendants", kDescendants, kBounds, u"lngOrganizationId", ""},
      {"bounds", kBounds, kOperator, u"strEndDate", "LoginOrganization.EndDate"},
      {"period", kPeriod, kOperator, u"bytPeriod", "LoginOrganization.ThisPeriod"},
      {"quarter", kQuarter, kOperator, u"bytquarter", ""},
      {"half", kHalf, kOperator, u"bythalf", ""},
      {"operator", kOperator, kCustomer, u"lngDepartmentID", "LoginOperator.DepartmentId"},
      {"customer", kCustomer, kStatementCount, u"strSSCustomerName", "CustomerSs.CustomerName"},
  }
      .Check([&](Statement statement, Statement next, TextView column, const char* firstLost) {
        const auto& [sql, good] = FirstLogin()[statement];
        const bool ofTheTreeOrCalendar = statement >= kAncestors && statement <= kHalf;
        int number = 0;
        for (const Answer& fault : Faults(good, column)) {
          SCOPED_TRACE(number++);
          ReleaseThread();
          RecordingSink sink;
          const auto host = GoodHost();
          host->fallback = Done;
          host->On(sql, fault);
          entry_.Initialize(host);

          const bool inRow = !fault.rows.empty();
          const bool cutShort = fault.kind != Answer::Kind::Rows;
          const bool stops = inRow || (cutShort && statement == kSettings);
          const int sentNext = stops ? next : statement + 1;
          State expected = kLoggedIn;
          Lose(expected, statement, inRow ? firstLost : "");
          for (int skipped = statement + 1; skipped < sentNext; ++skipped)
            Lose(expected, skipped);
          if (statement == kOrganization && !inRow) {
            // The tree and the calendar are those of id 0.
            for (int other = kAncestors; other <= kHalf; ++other)
              Lose(expected, other);
            expected["LoginOrganization.LowerOrganizationId"] = "0,0";
          } else {
            EXPECT_THAT(host->TakeSent(), testing::IsSupersetOf(Range(sentNext, kStatementCount)));
          }
          EXPECT_EQ(Snapshot(), expected);
          std::string blamed;
          for (const Failure& failure : sink.failures)
            blamed += ToUtf8(failure.statement);
          EXPECT_EQ(blamed, inRow || cutShort ? ToUtf8(sql) : "");
          const bool lacks = inRow || cutShort || !ofTheTreeOrCalendar;
          EXPECT_EQ(entry_.LoginState().extent,
                    lacks ? LoginState::Extent::Partial : LoginState::Extent::Whole);
          EXPECT_EQ(entry_.LoginState().failedSteps.size(), lacks ? 1u : 0u);

          // What the database gave is not asked for again, what it did not give is.
          host->On(sql, good);
          host->TakeSent();
          entry_.Initialize(host);
          const auto loader = std::find_if(std::begin(kLoaders), std::end(kLoaders),
                                           [&](int end) { return statement < end; });
          EXPECT_EQ(host->TakeSent(),
                    cutShort ? Range(loader == kLoaders ? kSettings : loader[-1], *loader)
                             : std::vector<std::string>());
          EXPECT_EQ(Snapshot(), cutShort ? kLoggedIn : expected);
          EXPECT_EQ(entry_.LoginState().extent,
                    lacks && !cutShort ? LoginState::Extent::Partial : LoginState::Extent::Whole);
        }
      });
}

TEST_F(StartUp, ADeadHostIsNoLoginUntilAnInitializeMakesItGood) {
  EXPECT_EQ(entry_.LoginState().failedSteps, std::vector<Text>{u"Interface.Initialize"});
  for (const auto& [sql, good] : FirstLogin())
    host_->On(sql, Throws());
  entry_.Initialize(host_);
  EXPECT_EQ(entry_.LoginState().extent, LoginState::Extent::None);
  EXPECT_THAT(entry_.LoginState().failedSteps,
              testing::ElementsAre(u"Initialize: account settings", u"Initialize: organization",
                                   u"Initialize: operator", u"Initialize: service customer"));

  for (const auto& [sql, good] : FirstLogin())
    host_->On(sql, good);
  host_->login.spoilt = {"Password"};
  entry_.Initialize(host_);
  EXPECT_EQ(entry_.LoginState().failedSteps, std::vector<Text>{u"Initialize: LoginOperatorPwd"});
  host_->login = FakeLogin();
  entry_.Initialize(host_);
  EXPECT_EQ(Snapshot(), kLoggedIn);
  EXPECT_EQ(entry_.LoginState().extent, LoginState::Extent::Whole);
}

TEST_F(StartUp, NullsThatStopNothing) {
  // Password, customer's full name, the natural currency's code and name; and one in mid-rows,
  // which is told and leaves the ids before it.
  static constexpr std::tuple<Statement, std::size_t, std::size_t> kNulls[] = {
      {kOperator, 0, 3},
      {kCustomer, 0, 3},
      {kSettings, 0, 7},
      {kSettings, 0, 8},
      {kDescendants, 2, 0}};
  auto login = FirstLogin();
  for (const auto& [statement, row, column] : kNulls)
    login[statement].second.rows[row][column] = NullValue();
  for (const auto& [sql, answer] : login)
    host_->On(sql, answer);
  RecordingSink sink;
  entry_.Initialize(host_);
  EXPECT_EQ(Snapshot(), kLoggedIn + State({{"LoginOperator.Password", ""},
                                           {"CustomerSs.FullName", ""},
                                           {"Business.CurrencyCode", ""},
                                           {"Business.CurrencyName", ""},
                                           {"LoginOrganization.NextLevelOrganizationId", "31,30"},
                                           {"LoginOrganization.LowerOrganizationId", "20,31,30"}}));
  EXPECT_EQ(sink.failures.size(), 1u);
}

TEST_F(StartUp, HostValuesThatCannotBeRead) {
  entry_.Initialize(host_);
  RecordingSink sink;
  using Spoil = void (*)(FakeLogin&);
  // What differs from the login before, which stands, and the steps that are told of.
  Table<Spoil, State, std::string>{
      {"date is no date", [](FakeLogin& l) { l.loginDate = u"31.2."; }, {}, "LoginDate;"},
      {"empty date", [](FakeLogin& l) { l.loginDate = u""; }, {{"Interface.LoginDate", ""}}, ""},
      {"password is Null", [](FakeLogin& l) { l.password = NullValue(); }, {}, "LoginOperatorPwd;"},
      {"organization id is text",
       [](FakeLogin& l) { l.organizationId = u"east"; },
       {},
       "organization id;LoginOrganizationId;"},
      {"no login context",
       [](FakeLogin& l) { l.absent = {"LoginContext"}; },
       {{"SSCustomerId", "0"}},
       "organization id;operator id;service customer id;LoginDate;LoginOrganizationId;"
       "LoginOperatorId;LoginOperatorPwd;"},
  }
      .Check([&](Spoil spoil, const State& differs, const std::string& blamed) {
        sink.failures.clear();
        spoil(host_->login);
        entry_.Initialize(host_);
        EXPECT_EQ(Snapshot(), kLoggedIn + differs);
        std::string told;
        for (const Failure& failure : sink.failures)
          told += ToUtf8(failure.what).substr(sizeof "Initialize:") + ";";
        EXPECT_EQ(told, blamed);
        host_->login = FakeLogin();
        entry_.Initialize(host_);
        EXPECT_EQ(Snapshot(), kLoggedIn);
      });
}

TEST_F(StartUp, BeforeTheFirstLoginEverythingIsEmptyAndNothingRaises) {
  RecordingSink sink;
  entry_.Initialize(nullptr);
  State nothing;
  for (int statement = kSettings; statement <= kFromHost; ++statement)
    Lose(nothing, statement);
  EXPECT_EQ(Snapshot(), nothing + State({{"AccountKey", "0$$"},
                                         {"LoginOrganization.LowerOrganizationId", "0,0"}}));
  EXPECT_FALSE(sink.failures.empty());
  EXPECT_EQ(entry_.Activity(), entry_.Activity());
  EXPECT_THROW(entry_.LoginOrganization()->BeginYear(), ConvertError);
}

TEST_F(StartUp, AServiceWithoutALoginIsToldOnceAThread) {
  RecordingSink sink;
  const auto thisMonth = [&] {
    Date now{};
    Date first{};
    Date last{};
    return entry_.Activity()->GetBeginAndEndDate(u"本月", now, first, last, false);
  };
  EXPECT_TRUE(thisMonth()) << "the clock's";
  EXPECT_TRUE(thisMonth());
  ASSERT_EQ(sink.failures.size(), 1u);
  EXPECT_EQ(sink.failures[0].what, u"Session");
  entry_.Initialize(host_);
  ReleaseThread();
  SetDiagnosticsSink(&sink);
  sink.failures.clear();
  entry_.Initialize(host_);
  EXPECT_TRUE(thisMonth());
  EXPECT_TRUE(sink.failures.empty());
}

TEST_F(StartUp, KeysOfTwoClassesNeverMeet) {
  // The account "A$5" and organization 5 of the account "A" have the same cache key.
  host_->login.user = u"A";
  host_->login.organizationId = std::int32_t{5};
  entry_.Initialize(host_);
  const std::shared_ptr<void> organization = entry_.LoginOrganization();
  host_->login.user = u"A$5";
  entry_.Initialize(host_);
  EXPECT_NE(entry_.Business(), organization);
  EXPECT_EQ(entry_.Business()->AccountUserID(), u"A$5");
}

TEST_F(StartUp, TwoThreadsShareNothing) {
  entry_.Initialize(host_);
  std::weak_ptr<Business> otherBusiness;
  std::thread other([&] {
    const auto host = GoodHost();
    EXPECT_EQ(entry_.LoginOrganizationId(), 0);
    host->login.operatorId = std::int32_t{4};
    host->fallback = Done;
    entry_.Initialize(host);
    otherBusiness = entry_.Business();
  });
  other.join();
  EXPECT_TRUE(otherBusiness.expired()) << "the session must end with its thread";
  EXPECT_EQ(Snapshot(), kLoggedIn);
}

}  // namespace
}  // namespace fetchkit::test
