#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <thread>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "session/SampleBooks.h"
#include "support/Table.h"

namespace fetchkit::test {
namespace {

// The first login on GoodHost, every value a host can see.
const State kLoggedIn = [] {
  State state;
  for (const LoginValue& value : LoginValues())
    state[value.name] = value.loggedIn;
  return state;
}();

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

// Empty recordsets for statements about another organization, operator or account.
void AnswerOthersWithNoRow(FakeConnection& host) {
  host.fallback = [](TextView) {
    static const Answer nothing;
    return &nothing;
  };
}

class StartUp : public testing::Test {
 protected:
  FreshThread thread_;
  std::shared_ptr<FakeConnection> host_ = GoodHost();
  Interface entry_;
};

TEST_F(StartUp, FirstLoginSendsElevenStatementsAndFillsEverything) {
  entry_.Initialize(host_);
  EXPECT_EQ(host_->TakeSent(), Range(0, kStatementCount));
  EXPECT_EQ(Snapshot(), kLoggedIn);
}

TEST_F(StartUp, UnchangedLoginSendsNothingAndRefreshesTheCopies) {
  entry_.Initialize(host_);
  host_->TakeSent();
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

TEST_F(StartUp, ReloadsOnlyWhatDiffers) {
  struct Change {
    const char* name;
    void (*apply)(FakeLogin&);
    std::vector<std::string> sent;
  };
  std::string operator4 = Range(kOperator, kCustomer)[0];
  operator4.replace(operator4.find("lngOperatorId = 3"), 17, "lngOperatorId = 4");
  const Text customer13 =
      u" SELECT lngSSCustomerId,strSSCustomerCode,strSSCustomerName,strFullName,"
      u" blnIsInActive  FROM SSCustomer  WHERE lngSSCustomerId = 13"
      u" ORDER BY strSSCustomerCode";
  const Change changes[] = {
      {"customer", [](FakeLogin& login) { login.customer = u"13"; }, {ToUtf8(customer13)}},
      {"operator back to the first customer",
       [](FakeLogin& login) {
         login.operatorId = std::int32_t{4};
         login.customer = u"12";
       },
       {operator4, Range(kCustomer, kCustomer + 1)[0]}},
      {"operator back", [](FakeLogin& login) { login.operatorId = std::int32_t{3}; },
       Range(kOperator, kStatementCount)},
  };
  AnswerOthersWithNoRow(*host_);
  entry_.Initialize(host_);
  host_->TakeSent();
  const auto customer = entry_.CustomerSs();
  const auto operatorRight = entry_.LoginOperatorRight();
  for (const Change& change : changes) {
    SCOPED_TRACE(change.name);
    change.apply(host_->login);
    entry_.Initialize(host_);
    EXPECT_EQ(host_->TakeSent(), change.sent);
    EXPECT_EQ(entry_.CustomerSs(), customer) << "one customer object serves the account";
    EXPECT_EQ(entry_.LoginOperatorRight() == operatorRight, entry_.LoginOperatorId() == 3);
    EXPECT_EQ(customer->CustomerCode(), u"C12") << "an id without a row keeps the one before";
  }
  EXPECT_EQ(Snapshot(), kLoggedIn);
}

TEST_F(StartUp, AnotherOrganizationOrAccountGetsItsOwnObjectsAndTheWayBackReloadsTheFirst) {
  entry_.Initialize(host_);
  const auto business = entry_.Business();
  const auto organization = entry_.LoginOrganization();
  const auto loginOperator = entry_.LoginOperator();
  const auto organizationRight = entry_.LoginOrganizationRight();
  const auto operatorRight = entry_.LoginOperatorRight();
  const auto activity = entry_.Activity();
  const auto listSet = entry_.ListSet();
  AnswerOthersWithNoRow(*host_);
  host_->TakeSent();

  host_->login.organizationId = std::int32_t{31};
  entry_.Initialize(host_);
  // Its row is not found, so the tree and the calendar are asked for with the object's own id, 0.
  auto sent = host_->TakeSent();
  ASSERT_EQ(sent.size(), 9u);
  EXPECT_EQ(sent[6],
            "SELECT intYear,bythalf FROM AccountHalf WHERE lngOrganizationId = 0 "
            "AND strEndDate >= '2004-03-17' AND strStartDate <= '2004-03-17'");
  EXPECT_EQ(entry_.Business(), business);
  EXPECT_NE(entry_.LoginOrganization(), organization);
  EXPECT_NE(entry_.LoginOperator(), loginOperator);
  EXPECT_NE(entry_.LoginOrganizationRight(), organizationRight);
  EXPECT_NE(entry_.LoginOperatorRight(), operatorRight);
  EXPECT_EQ(entry_.LoginOrganization()->LowerOrganizationId(), u"0,0");
  EXPECT_EQ(entry_.LoginOperator()->OrganizationId(), 31);
  EXPECT_EQ(entry_.LoginOrganizationCode(), u"");

  host_->login.organizationId = std::int32_t{20};
  host_->login.user = u"acc02";
  entry_.Initialize(host_);
  sent = host_->TakeSent();
  ASSERT_EQ(sent.size(), 11u);
  EXPECT_EQ(sent[1],
            "SELECT strAccountName, strVersion, strGaUnitCode FROM System.GaBaseInfo "
            "WHERE Upper(strUserName) = 'ACC02'");
  EXPECT_NE(entry_.Business(), business);
  EXPECT_NE(entry_.LoginOrganization(), organization);

  host_->login.user = u"ACC01";
  organization->OrganizationName(u"stale");
  entry_.Initialize(host_);
  EXPECT_EQ(host_->TakeSent(), Range(0, kStatementCount));
  EXPECT_EQ(entry_.LoginOrganization(), organization);
  EXPECT_EQ(entry_.LoginOperatorRight(), operatorRight);
  EXPECT_EQ(Snapshot(), kLoggedIn);
  EXPECT_EQ(entry_.Activity(), activity);
  EXPECT_EQ(entry_.ListSet(), listSet);
}

TEST_F(StartUp, AccountTypeDecidesWhereTheCustomerIsRead) {
  // Nothing: the customer is not read at all.
  const std::map<int, std::string> kTables = {
      {5, ""}, {6, "SSCustomer"}, {7, "SSCustomer"}, {8, "McCustomer"}, {9, ""}};
  AnswerOthersWithNoRow(*host_);
  for (const auto& [accountType, table] : kTables) {
    SCOPED_TRACE(accountType);
    ReleaseThread();
    host_->login.accountType = accountType;
    entry_.Initialize(host_);
    auto expected = Range(0, kCustomer);
    if (!table.empty())
      expected.push_back(
          " SELECT lngSSCustomerId,strSSCustomerCode,strSSCustomerName,strFullName, blnIsInActive  "
          "FROM " +
          table + "  WHERE lngSSCustomerId = 12 ORDER BY strSSCustomerCode");
    EXPECT_EQ(host_->TakeSent(), expected);
  }
}

TEST_F(StartUp, CustomerNumberIsComparedAsReadAndRoundedWhenStored) {
  AnswerOthersWithNoRow(*host_);
  Table<Value, std::int32_t, std::size_t>{
      {"digits in front of text", u" 12号", 12, 0},
      {"empty", u"", 0, 0},
      {"no number", u"abc", 0, 0},
      {"a number", 12, 12, 0},
      {"a fraction differs from its rounded self every time", u"12.5", 12, 1},
      {"Null cannot be read", NullValue(), 0, 0},
      {"too large to store, so the old one stays and differs", u"99999999999", 0, 1},
  }
      .Check([&](const Value& item, std::int32_t stored, std::size_t statementsOfSecondLogin) {
        ReleaseThread();
        host_->login.customer = item;
        entry_.Initialize(host_);
        EXPECT_EQ(MAction::CurrentSession().SSCustomerId, stored);
        host_->TakeSent();
        entry_.Initialize(host_);
        EXPECT_EQ(host_->TakeSent().size(), statementsOfSecondLogin);
      });
}

// Takes a statement's values from the state, from the named one on.
void Lose(State& state, int statement, std::string_view from = {}) {
  bool lost = from.empty();
  for (const LoginValue& value : LoginValues()) {
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
  struct Row {
    Statement statement;
    Statement next;  // the first one that is sent nevertheless when an error stops the loader
    TextView column;
    const char* firstLost;  // the value of that column, behind which the row's copying ends
  };
  const Row kRows[] = {
      {kSettings, kOrganization, u"strAccountSystem", "Business.AccountSystem"},
      {kAccountNames, kOrganization, u"strVersion", "Business.AccountVersion"},
      {kOrganization, kAncestors, u"blnIsDetail", "LoginOrganization.IsDetail"},
      {kAncestors, kBounds, u"lngOrganizationId", ""},
      {kDescendants, kBounds, u"lngOrganizationId", ""},
      {kBounds, kOperator, u"strEndDate", "LoginOrganization.EndDate"},
      {kPeriod, kOperator, u"bytPeriod", "LoginOrganization.ThisPeriod"},
      {kQuarter, kOperator, u"bytquarter", ""},
      {kHalf, kOperator, u"bythalf", ""},
      {kOperator, kCustomer, u"lngDepartmentID", "LoginOperator.DepartmentId"},
      {kCustomer, kStatementCount, u"strSSCustomerName", "CustomerSs.CustomerName"},
  };
  for (const auto& [statement, next, column, firstLost] : kRows) {
    const auto& [sql, good] = FirstLogin()[statement];
    int number = 0;
    for (const Answer& fault : Faults(good, column)) {
      SCOPED_TRACE(testing::Message() << "statement " << statement << ", fault " << number++);
      ReleaseThread();
      RecordingSink sink;
      const auto host = GoodHost();
      AnswerOthersWithNoRow(*host);
      host->On(sql, fault);
      entry_.Initialize(host);

      const bool inRow = !fault.rows.empty();
      const bool stops = inRow || (fault.kind != Answer::Kind::Rows &&
                                   (fault.kind != Answer::Kind::Refused || statement == kSettings));
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
      if (!stops && fault.kind == Answer::Kind::Rows) continue;
      std::vector<Text> blamed;
      for (const Failure& failure : sink.failures)
        if (!failure.statement.empty()) blamed.push_back(failure.statement);
      EXPECT_EQ(blamed, std::vector{sql})
          << "the diagnostics must name the statement, and no other";
    }
  }
}

TEST_F(StartUp, IdsReadBeforeAnErrorInMidRowsStand) {
  Answer answer = FirstLogin()[kDescendants].second;
  answer.rows.back()[0] = NullValue();
  host_->On(FirstLogin()[kDescendants].first, answer);
  entry_.Initialize(host_);
  EXPECT_EQ(Snapshot(), kLoggedIn + State({{"LoginOrganization.NextLevelOrganizationId", "31,30"},
                                           {"LoginOrganization.LowerOrganizationId", "20,31,30"}}));
}

TEST_F(StartUp, NullsThatAreOrdinaryEntries) {
  std::map<Statement, Answer> answers;
  // The last two: the natural currency has no row.
  for (const auto& [statement, column] : std::initializer_list<std::pair<Statement, std::size_t>>{
           {kOperator, 3}, {kCustomer, 3}, {kSettings, 7}, {kSettings, 8}}) {
    Answer& answer = answers[statement];
    if (answer.rows.empty()) answer = FirstLogin()[statement].second;
    answer.rows[0][column] = NullValue();
    host_->On(FirstLogin()[statement].first, answer);
  }
  RecordingSink sink;
  entry_.Initialize(host_);
  EXPECT_TRUE(sink.failures.empty());
  EXPECT_EQ(Snapshot(), kLoggedIn + State({{"LoginOperator.Password", ""},
                                           {"CustomerSs.FullName", ""},
                                           {"Business.CurrencyCode", ""},
                                           {"Business.CurrencyName", ""}}));
}

TEST_F(StartUp, HostValuesThatCannotBeRead) {
  entry_.Initialize(host_);
  AnswerOthersWithNoRow(*host_);
  RecordingSink sink;
  using Spoil = void (*)(FakeLogin&);
  // What differs from the login before, which stands, and who is told of it.
  Table<Spoil, State, Text>{
      {"date throws", [](FakeLogin& l) { l.spoilt = {"LoginDate"}; }, {}, u"LoginDate"},
      {"date is no date", [](FakeLogin& l) { l.loginDate = u"31.2."; }, {}, u"LoginDate"},
      {"empty date", [](FakeLogin& l) { l.loginDate = u""; }, {{"Interface.LoginDate", ""}}, u""},
      {"password is Null", [](FakeLogin& l) { l.password = NullValue(); }, {}, u"LoginOperatorPwd"},
      {"organization id is text",
       [](FakeLogin& l) { l.organizationId = u"east"; },
       {},
       u"LoginOrganizationId"},
      {"operator id beyond 32 bits",
       [](FakeLogin& l) { l.operatorId = 4e9; },
       {},
       u"LoginOperatorId"},
      {"no login context",
       [](FakeLogin& l) { l.absent = {"LoginContext"}; },
       {{"SSCustomerId", "0"}},
       u"LoginDate"},
  }
      .Check([&](Spoil spoil, const State& differs, const Text& blamed) {
        sink.failures.clear();
        spoil(host_->login);
        entry_.Initialize(host_);
        EXPECT_EQ(Snapshot(), kLoggedIn + differs);
        std::vector<Text> told;
        for (const Failure& failure : sink.failures)
          told.push_back(failure.what);
        if (blamed.empty()) {
          EXPECT_EQ(told, std::vector<Text>());
        } else {
          EXPECT_THAT(told, testing::Contains(u"Initialize: " + blamed));
        }
        host_->login = FakeLogin();
        entry_.Initialize(host_);
        EXPECT_EQ(Snapshot(), kLoggedIn);
      });
}

TEST_F(StartUp, NullConnectionKeepsTheEarlierLogin) {
  entry_.Initialize(host_);
  host_->TakeSent();
  RecordingSink sink;
  entry_.Initialize(nullptr);
  EXPECT_EQ(Snapshot(), kLoggedIn);
  EXPECT_EQ(host_->TakeSent(), std::vector<std::string>());
  ASSERT_EQ(sink.failures.size(), 1u);
  EXPECT_EQ(sink.failures[0].description, u"The host has no connection object.");
}

TEST_F(StartUp, BeforeTheFirstLoginEverythingIsEmptyAndNothingRaises) {
  RecordingSink sink;
  entry_.Initialize(nullptr);
  for (const auto& [name, value] : Snapshot()) {
    const bool list =
        name.find("Level") != std::string::npos || name.ends_with("LowerOrganizationId");
    if (name != "AccountKey" && !list) {
      EXPECT_TRUE(value.empty() || value == "0") << name << " is " << value;
    }
  }
  EXPECT_FALSE(sink.failures.empty());
  EXPECT_EQ(entry_.Activity(), entry_.Activity());
  EXPECT_THROW(entry_.LoginOrganization()->BeginYear(), ConvertError);
}

TEST_F(StartUp, OrganizationPropertyIsTwoForOneCombinationOnly) {
  for (int group = 0; group <= 2; ++group) {
    for (int property = 0; property <= 2; ++property) {
      entry_.Business()->GroupDBType(static_cast<std::uint8_t>(group));
      entry_.Business()->AccountProperty(static_cast<std::uint8_t>(property));
      const int expected = group == 1 && property == 1 ? 2 : property;
      EXPECT_EQ(entry_.LoginOrganization()->OrganizationProperty(), expected)
          << group << " " << property;
    }
  }
}

TEST_F(StartUp, KeysOfTwoClassesNeverMeet) {
  // The account "A$5" and organization 5 of the account "A" have the same cache key.
  host_->login.user = u"A";
  host_->login.organizationId = std::int32_t{5};
  AnswerOthersWithNoRow(*host_);
  entry_.Initialize(host_);
  const auto organization = entry_.LoginOrganization();
  host_->login.user = u"A$5";
  entry_.Initialize(host_);
  ASSERT_NE(entry_.Business(), nullptr);
  EXPECT_EQ(entry_.Business()->AccountUserID(), u"A$5");
  EXPECT_NE(static_cast<void*>(entry_.Business().get()), static_cast<void*>(organization.get()));
}

TEST_F(StartUp, TwoThreadsShareNothing) {
  entry_.Initialize(host_);
  std::weak_ptr<Business> otherBusiness;
  std::thread other([&] {
    auto host = GoodHost();
    host->login.user = u"ACC02";
    host->login.loginDate = u"2005-01-31";
    AnswerOthersWithNoRow(*host);
    EXPECT_EQ(entry_.LoginOrganizationId(), 0);
    entry_.Initialize(host);
    EXPECT_EQ(entry_.LoginDate(), u"2005-01-31");
    otherBusiness = entry_.Business();
    EXPECT_FALSE(otherBusiness.expired());
  });
  other.join();
  EXPECT_TRUE(otherBusiness.expired()) << "the session must end with its thread";
  EXPECT_EQ(Snapshot(), kLoggedIn);
}

}  // namespace
}  // namespace fetchkit::test
