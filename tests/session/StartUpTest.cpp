#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <thread>

#include "fetchkit/base/Utf8.h"
#include "fetchkit/session/Interface.h"
#include "session/SampleBooks.h"

namespace fetchkit::test {
namespace {

using State = std::map<std::string, std::string>;

State Seen() {
  const auto pairs = Snapshot();
  return {pairs.begin(), pairs.end()};
}

// clang-format off
// The first login on GoodHost, every value a host can see.
const State kLoggedIn = {
    {"LoginDate", "2004-03-17"}, {"LoginOrganizationId", "20"},
    {"LoginOrganizationCode", "01-02"}, {"LoginOrganizationName", "华东公司"},
    {"LoginOperatorId", "3"}, {"LoginOperatorPwd", "secret"}, {"SSCustomerId", "12"},
    {"AccountStartYear", "2003"}, {"AccountStartDate", "2003-01-01"},
    {"OrganizationEndDate", "2005-12-31"}, {"OrganizationThisYear", "2004"},
    {"OrganizationThisPeriod", "3"}, {"OrganizationThisHalfYear", "2"},
    {"OrganizationThisQuarter", "1"}, {"NaturalCurrencyId", "7"}, {"OrganizationIsDetail", "1"},
    {"OrganizationLevel", "2"}, {"AccountKey", "7$DBSRV$ACC01"}, {"AccountType", "7"},
    {"AccountServer", "DBSRV"}, {"AccountUserID", "ACC01"}, {"AccountName", "东方集团账套"},
    {"AccountVersion", "8.5"}, {"AccountUnitCode", "DF"}, {"AccountProperty", "1"},
    {"Business.GroupDBType", "1"}, {"DiscountRateDec", "2"}, {"PriceDec", "4"},
    {"QuantityDec", "3"}, {"VersionType", "5"}, {"CurrencyID", "7"}, {"CurrencyCode", "RMB"},
    {"CurrencyName", "人民币"}, {"NaturalCurDec", "2"}, {"TradeID", "9"},
    {"AccountSystem", "企业会计制度"}, {"ApplicationLabel", "集团账"}, {"GAUnitCode", " "},
    {"MessageServer", "MSG01"}, {"Notes", "备注"}, {"OldAccountSystem", "旧制度"},
    {"Business.StartDate", "2003-01-01"}, {"TaxType", "一般纳税人"}, {"UserName", "东方集团"},
    {"Version", "8.50"}, {"DynPwdSvrIP", "10.0.0.1"}, {"DynPwdSvrPort", "0443"},
    {"OrganizationID", "20"}, {"OrganizationCode", "01-02"}, {"OrganizationName", "华东公司"},
    {"OrganizationFullName", "东方集团华东公司"}, {"OrganizationProperty", "2"}, {"Level", "2"},
    {"CreateDate", "2002-12-31"}, {"StartDate", "2003-01-01"}, {"BeginDate", "2003-01-01"},
    {"EndDate", "2005-12-31"}, {"ThisYear", "2004"}, {"ThisPeriod", "3"}, {"IsCenter", "1"},
    {"IsDetail", "1"}, {"IsInitialized", "1"}, {"IsVoucher", "1"}, {"IsRoot", "0"},
    {"ParentLevelOrganizationId", "10"}, {"PrevLevelOrganizationId", "8,10"},
    {"NextLevelOrganizationId", "31,30,40"}, {"NextLevelDirectOrganizationID", "31,30"},
    {"LowerOrganizationId", "20,31,30,40"}, {"ThisQuarter", "1"}, {"ThisHalfYear", "2"},
    {"Organization.GroupDBType", "1"}, {"OperatorId", "3"}, {"OperatorCode", "003"},
    {"OperatorName", "李会计"}, {"Password", "123"}, {"DepartmentId", "5"},
    {"OperatorGroupId", "2"}, {"OperatorGroupName", "会计组"}, {"RoleID", "4"}, {"TokenSN", "T-1"},
    {"UseStcPwd", "1"}, {"Operator.OrganizationId", "20"}, {"CustomerID", "12"},
    {"CustomerCode", "C12"}, {"CustomerName", "蓝天"}, {"FullName", "蓝天股份"},
    {"Customer.IsInActive", "1"}};

// clang-format on

std::vector<std::string> Utf8(std::vector<Text> texts) {
  std::vector<std::string> utf8;
  for (const Text& text : texts)
    utf8.push_back(ToUtf8(text));
  return utf8;
}

// The statements of the first login between two of its places, the second one excluded.
std::vector<std::string> Range(int from, int to) {
  const auto all = Utf8(FirstLoginStatements());
  return {all.begin() + from, all.begin() + to};
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
  EXPECT_EQ(Seen(), kLoggedIn);
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
  State expected = kLoggedIn;
  expected["LoginDate"] = "2004-04-01";
  expected["ThisPeriod"] = expected["OrganizationThisPeriod"] = "11";
  expected["Business.GroupDBType"] = expected["Organization.GroupDBType"] = "0";
  expected["OrganizationProperty"] = "1";
  EXPECT_EQ(Seen(), expected);
}

TEST_F(StartUp, ReloadsOnlyWhatDiffers) {
  struct Change {
    const char* name;
    void (*apply)(FakeLogin&);
    std::vector<std::string> sent;
  };
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
       {"SELECT "
        "Operator.lngOperatorId,Operator.strOperatorCode,Operator.strOperatorName,Nvl(Operator."
        "strPassword,'') As "
        "strPassword,Operator.lngDepartmentID,Operator.lngOperatorGroupID,Operator.lngRoleID,"
        "Operator.strTokenSN,Operator.blnUseDynPwd,Operator.blnUseStcPwd,Operator.blnIsSystem,"
        "Operator.blnIsInActive,OperatorGroup.strOperatorGroupName FROM "
        "Operator,OperatorGroup,OrgOperatorAllot WHERE Operator.blnIsInActive = 0 AND "
        "Operator.lngOperatorId = OrgOperatorAllot.lngOperatorId AND Operator.lngOperatorGroupId = "
        "OperatorGroup.lngOperatorGroupId AND OrgOperatorAllot.lngOrganizationId = 20 AND "
        "Operator.lngOperatorId = 4 ORDER BY strOperatorCode",
        Range(kCustomer, kCustomer + 1)[0]}},
      {"operator back", [](FakeLogin& login) { login.operatorId = std::int32_t{3}; },
       Range(kOperator, kStatementCount)},
  };
  AnswerOthersWithNoRow(*host_);
  entry_.Initialize(host_);
  host_->TakeSent();
  const auto customer = entry_.CustomerSs();
  for (const Change& change : changes) {
    SCOPED_TRACE(change.name);
    change.apply(host_->login);
    entry_.Initialize(host_);
    EXPECT_EQ(host_->TakeSent(), change.sent);
    EXPECT_EQ(entry_.CustomerSs(), customer) << "one customer object serves the account";
    EXPECT_EQ(customer->CustomerCode(), u"C12") << "an id without a row keeps the one before";
  }
  EXPECT_EQ(Seen(), kLoggedIn);
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
  EXPECT_EQ(Seen(), kLoggedIn);
  EXPECT_EQ(entry_.Activity(), activity);
  EXPECT_EQ(entry_.ListSet(), listSet);
}

TEST_F(StartUp, AccountTypeDecidesWhereTheCustomerIsRead) {
  const struct {
    std::int32_t accountType;
    const char* table;  // null: the customer is not read at all
  } kRows[] = {{5, nullptr}, {6, "SSCustomer"}, {7, "SSCustomer"}, {8, "McCustomer"}, {9, nullptr}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.accountType);
    ReleaseThread();
    AnswerOthersWithNoRow(*host_);
    host_->login.accountType = row.accountType;
    entry_.Initialize(host_);
    auto expected = Range(0, kCustomer);
    if (row.table != nullptr)
      expected.push_back(std::string(" SELECT lngSSCustomerId,strSSCustomerCode,strSSCustomerName,"
                                     "strFullName, blnIsInActive  FROM ") +
                         row.table + "  WHERE lngSSCustomerId = 12 ORDER BY strSSCustomerCode");
    EXPECT_EQ(host_->TakeSent(), expected);
  }
}

TEST_F(StartUp, CustomerNumberIsComparedAsReadAndRoundedWhenStored) {
  const struct {
    const char* name;
    Value item;
    std::int32_t stored;
    std::size_t statementsOfSecondLogin;
  } kRows[] = {
      {"digits in front of text", u" 12号", 12, 0},
      {"empty", u"", 0, 0},
      {"no number", u"abc", 0, 0},
      {"a number", std::int32_t{12}, 12, 0},
      {"a fraction differs from its rounded self every time", u"12.5", 12, 1},
      {"Null cannot be read", NullValue(), 0, 0},
      {"too large to store, so the old one stays and differs", u"99999999999", 0, 1},
  };
  AnswerOthersWithNoRow(*host_);
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    ReleaseThread();
    host_->login.customer = row.item;
    entry_.Initialize(host_);
    EXPECT_EQ(MAction::CurrentSession().SSCustomerId, row.stored);
    host_->TakeSent();
    entry_.Initialize(host_);
    EXPECT_EQ(host_->TakeSent().size(), row.statementsOfSecondLogin);
  }
}

// What a first login on GoodHost leaves when one statement fails: everything as in kLoggedIn but
// for the values named.
struct Fault {
  const char* name;
  Statement statement;
  enum { kRefused, kThrows, kNoRow, kNull } kind;
  const char16_t* nullColumn;
  State differs;
  bool skipsNextStatement = false;
};

// clang-format off
const State kNoNames = {
    {"AccountName", ""}, {"AccountVersion", ""}, {"AccountUnitCode", ""}};
const State kNoTexts = {
    {"AccountSystem", ""}, {"ApplicationLabel", ""}, {"GAUnitCode", ""}, {"MessageServer", ""},
    {"Notes", ""}, {"OldAccountSystem", ""}, {"Business.StartDate", ""}, {"TaxType", ""},
    {"UserName", ""}, {"Version", ""}, {"DynPwdSvrIP", ""}, {"DynPwdSvrPort", ""},
    {"AccountStartDate", ""}, {"AccountStartYear", "0"}};
const State kNoSettings = {
    {"AccountProperty", "0"}, {"Business.GroupDBType", "0"}, {"DiscountRateDec", "0"},
    {"PriceDec", "0"}, {"QuantityDec", "0"}, {"VersionType", "0"}, {"CurrencyID", "0"},
    {"CurrencyCode", ""}, {"CurrencyName", ""}, {"NaturalCurDec", "0"}, {"TradeID", "0"},
    {"NaturalCurrencyId", "0"}, {"OrganizationProperty", "0"}, {"Organization.GroupDBType", "0"}};
const State kNoOrganization = {
    {"OrganizationID", "0"}, {"OrganizationCode", ""}, {"OrganizationName", ""},
    {"OrganizationFullName", ""}, {"Level", "0"}, {"CreateDate", ""}, {"StartDate", ""},
    {"IsCenter", "0"}, {"IsDetail", "0"}, {"IsInitialized", "0"}, {"IsVoucher", "0"},
    {"LoginOrganizationCode", ""}, {"LoginOrganizationName", ""}, {"OrganizationIsDetail", "0"},
    {"OrganizationLevel", "0"},
    // The tree and the calendar of id 0.
    {"ParentLevelOrganizationId", "0"}, {"PrevLevelOrganizationId", "0"},
    {"NextLevelOrganizationId", "0"}, {"NextLevelDirectOrganizationID", "0"},
    {"LowerOrganizationId", "0,0"}, {"BeginDate", ""}, {"EndDate", ""},
    {"OrganizationEndDate", ""}, {"ThisYear", "0"}, {"ThisPeriod", "0"}, {"ThisQuarter", "0"},
    {"ThisHalfYear", "0"}, {"OrganizationThisYear", "0"}, {"OrganizationThisPeriod", "0"},
    {"OrganizationThisQuarter", "0"}, {"OrganizationThisHalfYear", "0"}};
const State kNoAncestors = {
    {"ParentLevelOrganizationId", "0"}, {"PrevLevelOrganizationId", "0"}};
const State kNoDescendants = {
    {"NextLevelOrganizationId", "0"}, {"NextLevelDirectOrganizationID", "0"},
    {"LowerOrganizationId", "20,0"}};
const State kNoBounds = {
    {"BeginDate", ""}, {"EndDate", ""}, {"OrganizationEndDate", ""}};
const State kNoPeriod = {
    {"ThisYear", "0"}, {"ThisPeriod", "0"}, {"OrganizationThisYear", "0"},
    {"OrganizationThisPeriod", "0"}};
const State kNoQuarter = {
    {"ThisQuarter", "0"}, {"OrganizationThisQuarter", "0"}};
const State kNoHalf = {
    {"ThisHalfYear", "0"}, {"OrganizationThisHalfYear", "0"}};
const State kNoOperatorRow = {
    {"OperatorCode", ""}, {"OperatorName", ""}, {"Password", ""}, {"DepartmentId", "0"},
    {"OperatorGroupId", "0"}, {"OperatorGroupName", ""}, {"RoleID", "0"}, {"TokenSN", ""},
    {"UseStcPwd", "0"}};
const State kNoCustomer = {
    {"CustomerID", "0"}, {"CustomerCode", ""}, {"CustomerName", ""}, {"FullName", ""},
    {"Customer.IsInActive", "0"}};

// clang-format on

State operator|(State left, const State& right) {
  left.insert(right.begin(), right.end());
  return left;
}

class StartUpFault : public testing::TestWithParam<Fault> {};

TEST_P(StartUpFault, LeavesTheRest) {
  const Fault& fault = GetParam();
  const auto index = static_cast<std::size_t>(fault.statement);
  FreshThread thread;
  RecordingSink sink;
  auto host = GoodHost();
  AnswerOthersWithNoRow(*host);
  Answer answer = GoodAnswer(fault.statement);
  switch (fault.kind) {
    case Fault::kRefused:
      answer = Refused();
      break;
    case Fault::kThrows:
      answer = Throws();
      break;
    case Fault::kNoRow:
      answer.rows.clear();
      break;
    case Fault::kNull:
      for (std::size_t i = 0; i < answer.columns.size(); ++i)
        if (answer.columns[i] == fault.nullColumn) answer.rows.back()[i] = NullValue();
      break;
  }
  host->On(FirstLoginStatements()[index], answer);
  Interface().Initialize(host);

  State expected = kLoggedIn;
  for (const auto& [name, value] : fault.differs)
    expected[name] = value;
  EXPECT_EQ(Seen(), expected);
  const auto sent = host->TakeSent();
  if (fault.statement != kOrganization && !fault.skipsNextStatement) {
    EXPECT_THAT(sent, testing::IsSupersetOf(Range(fault.statement + 1, kStatementCount)));
  }
  if (fault.kind != Fault::kNoRow) {
    std::vector<Text> blamed;
    for (const Failure& failure : sink.failures)
      if (!failure.statement.empty()) blamed.push_back(failure.statement);
    const std::vector<Text> wanted = {FirstLoginStatements()[index]};
    EXPECT_EQ(blamed, wanted) << "the diagnostics must name the statement, and no other";
  }
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    AllStatements, StartUpFault,
    testing::Values(
        Fault{"SettingsRefused", kSettings, Fault::kRefused, u"",
              kNoSettings | kNoTexts | kNoNames, true},
        Fault{"SettingsThrow", kSettings, Fault::kThrows, u"", kNoSettings | kNoTexts | kNoNames,
              true},
        Fault{"SettingsMissing", kSettings, Fault::kNoRow, u"", kNoSettings | kNoTexts},
        Fault{"SettingsNullInTheMiddle", kSettings, Fault::kNull, u"strAccountSystem",
              kNoTexts | kNoNames, true},
        Fault{"NamesRefused", kAccountNames, Fault::kRefused, u"", kNoNames},
        Fault{"NamesThrow", kAccountNames, Fault::kThrows, u"", kNoNames},
        Fault{"NamesMissing", kAccountNames, Fault::kNoRow, u"", kNoNames},
        Fault{"NamesNull", kAccountNames, Fault::kNull, u"strVersion", {{"AccountVersion", ""},
              {"AccountUnitCode", ""}}},
        Fault{"OrganizationRefused", kOrganization, Fault::kRefused, u"", kNoOrganization},
        Fault{"OrganizationThrows", kOrganization, Fault::kThrows, u"", kNoOrganization},
        Fault{"OrganizationInactive", kOrganization, Fault::kNoRow, u"", kNoOrganization},
        Fault{"OrganizationNull", kOrganization, Fault::kNull, u"blnIsDetail", {{"IsDetail",
              "0"}, {"OrganizationIsDetail", "0"}, {"IsInitialized", "0"}, {"IsVoucher", "0"}}},
        Fault{"AncestorsRefused", kAncestors, Fault::kRefused, u"", kNoAncestors},
        Fault{"AncestorsThrow", kAncestors, Fault::kThrows, u"", kNoAncestors | kNoDescendants,
              true},
        Fault{"RootOrganization", kAncestors, Fault::kNoRow, u"", kNoAncestors},
        Fault{"AncestorNull", kAncestors, Fault::kNull, u"lngOrganizationId",
              kNoAncestors | kNoDescendants, true},
        Fault{"DescendantsRefused", kDescendants, Fault::kRefused, u"", kNoDescendants},
        Fault{"DescendantsThrow", kDescendants, Fault::kThrows, u"", kNoDescendants},
        Fault{"LeafOrganization", kDescendants, Fault::kNoRow, u"", kNoDescendants},
        Fault{"DescendantNullInTheLastRow", kDescendants, Fault::kNull, u"lngOrganizationId",
              {{"NextLevelOrganizationId", "31,30"}, {"LowerOrganizationId", "20,31,30"}}},
        Fault{"BoundsRefused", kBounds, Fault::kRefused, u"", kNoBounds},
        Fault{"BoundsThrow", kBounds, Fault::kThrows, u"",
              kNoBounds | kNoPeriod | kNoQuarter | kNoHalf, true},
        Fault{"NoCalendar", kBounds, Fault::kNoRow, u"", kNoBounds},
        Fault{"BoundsNull", kBounds, Fault::kNull, u"strEndDate", State{{"EndDate", ""},
              {"OrganizationEndDate", ""}} | kNoPeriod | kNoQuarter | kNoHalf, true},
        Fault{"PeriodRefused", kPeriod, Fault::kRefused, u"", kNoPeriod},
        Fault{"PeriodThrows", kPeriod, Fault::kThrows, u"", kNoPeriod | kNoQuarter | kNoHalf,
              true},
        Fault{"DateInNoPeriod", kPeriod, Fault::kNoRow, u"", kNoPeriod},
        Fault{"PeriodNull", kPeriod, Fault::kNull, u"bytPeriod", State{{"ThisPeriod", "0"},
              {"OrganizationThisPeriod", "0"}} | kNoQuarter | kNoHalf, true},
        Fault{"QuarterRefused", kQuarter, Fault::kRefused, u"", kNoQuarter},
        Fault{"QuarterThrows", kQuarter, Fault::kThrows, u"", kNoQuarter | kNoHalf, true},
        Fault{"DateInNoQuarter", kQuarter, Fault::kNoRow, u"", kNoQuarter},
        Fault{"QuarterNull", kQuarter, Fault::kNull, u"bytquarter", kNoQuarter | kNoHalf, true},
        Fault{"HalfRefused", kHalf, Fault::kRefused, u"", kNoHalf},
        Fault{"HalfThrows", kHalf, Fault::kThrows, u"", kNoHalf},
        Fault{"DateInNoHalf", kHalf, Fault::kNoRow, u"", kNoHalf},
        Fault{"HalfNull", kHalf, Fault::kNull, u"bythalf", kNoHalf},
        Fault{"OperatorRefused", kOperator, Fault::kRefused, u"", kNoOperatorRow},
        Fault{"OperatorThrows", kOperator, Fault::kThrows, u"", kNoOperatorRow},
        Fault{"OperatorNotAllotted", kOperator, Fault::kNoRow, u"", kNoOperatorRow},
        Fault{"OperatorNullDepartment", kOperator, Fault::kNull, u"lngDepartmentID",
              {{"DepartmentId", "0"}, {"OperatorGroupId", "0"}, {"OperatorGroupName", ""},
              {"RoleID", "0"}, {"TokenSN", ""}, {"UseStcPwd", "0"}}},
        Fault{"CustomerRefused", kCustomer, Fault::kRefused, u"", kNoCustomer},
        Fault{"CustomerThrows", kCustomer, Fault::kThrows, u"", kNoCustomer},
        Fault{"CustomerUnknown", kCustomer, Fault::kNoRow, u"", kNoCustomer},
        Fault{"CustomerNullName", kCustomer, Fault::kNull, u"strSSCustomerName",
              {{"CustomerName", ""}, {"FullName", ""}, {"Customer.IsInActive", "0"}}}),
    [](const auto& row) { return row.param.name; });

// clang-format on

TEST_F(StartUp, NullsThatAreOrdinaryEntries) {
  Answer loginOperator = GoodAnswer(kOperator);
  loginOperator.rows[0][3] = NullValue();
  host_->On(FirstLoginStatements()[kOperator], loginOperator);
  Answer customer = GoodAnswer(kCustomer);
  customer.rows[0][3] = NullValue();
  host_->On(FirstLoginStatements()[kCustomer], customer);
  Answer settings = GoodAnswer(kSettings);  // the natural currency has no row
  settings.rows[0][7] = settings.rows[0][8] = NullValue();
  host_->On(FirstLoginStatements()[kSettings], settings);
  RecordingSink sink;
  entry_.Initialize(host_);
  EXPECT_TRUE(sink.failures.empty());
  State expected = kLoggedIn;
  expected["Password"] = expected["FullName"] = "";
  expected["CurrencyCode"] = expected["CurrencyName"] = "";
  EXPECT_EQ(Seen(), expected);
}

TEST_F(StartUp, HostValuesThatCannotBeRead) {
  struct Row {
    const char* name;
    void (*spoil)(FakeLogin&);
    State differs;  // from the login before, which stands
    const char16_t* told;
  };
  const Row kRows[] = {
      {"date throws", [](FakeLogin& l) { l.spoilt = {"LoginDate"}; }, {}, u"Initialize: LoginDate"},
      {"date is no date",
       [](FakeLogin& l) { l.loginDate = u"31.2."; },
       {},
       u"Initialize: LoginDate"},
      {"empty date", [](FakeLogin& l) { l.loginDate = u""; }, {{"LoginDate", ""}}, nullptr},
      {"password is Null",
       [](FakeLogin& l) { l.password = NullValue(); },
       {},
       u"Initialize: LoginOperatorPwd"},
      {"organization id is text",
       [](FakeLogin& l) { l.organizationId = u"east"; },
       {},
       u"Initialize: LoginOrganizationId"},
      {"operator id beyond 32 bits",
       [](FakeLogin& l) { l.operatorId = 4e9; },
       {},
       u"Initialize: LoginOperatorId"},
      {"no login context",
       [](FakeLogin& l) { l.absent = {"LoginContext"}; },
       {{"SSCustomerId", "0"}},
       u"Initialize: LoginDate"},
  };
  entry_.Initialize(host_);
  RecordingSink sink;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    sink.failures.clear();
    const FakeLogin before = host_->login;
    AnswerOthersWithNoRow(*host_);
    row.spoil(host_->login);
    entry_.Initialize(host_);
    State expected = kLoggedIn;
    for (const auto& [name, value] : row.differs)
      expected[name] = value;
    EXPECT_EQ(Seen(), expected);
    std::vector<Text> told;
    for (const Failure& failure : sink.failures)
      told.push_back(failure.what);
    if (row.told != nullptr) {
      EXPECT_THAT(told, testing::Contains(Text(row.told)));
    } else {
      EXPECT_EQ(told, std::vector<Text>());
    }
    host_->login = before;
    entry_.Initialize(host_);
    EXPECT_EQ(Seen(), kLoggedIn);
    host_->TakeSent();
  }
}

TEST_F(StartUp, NullConnectionKeepsTheEarlierLogin) {
  entry_.Initialize(host_);
  host_->TakeSent();
  RecordingSink sink;
  entry_.Initialize(nullptr);
  EXPECT_EQ(Seen(), kLoggedIn);
  EXPECT_EQ(host_->TakeSent(), std::vector<std::string>());
  ASSERT_EQ(sink.failures.size(), 1u);
  EXPECT_EQ(sink.failures[0].description, u"The host has no connection object.");
}

TEST_F(StartUp, BeforeTheFirstLoginEverythingIsEmptyAndNothingRaises) {
  RecordingSink sink;
  entry_.Initialize(nullptr);
  for (const auto& [name, value] : Snapshot()) {
    const bool list = name.find("Level") != std::string::npos || name.starts_with("Lower");
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
  EXPECT_EQ(Seen(), kLoggedIn);
}

}  // namespace
}  // namespace fetchkit::test
