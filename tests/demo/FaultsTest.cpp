// A host whose operations fail one after the other while a person logs in, asks, filters and saves:
// nothing is raised, every recordset is given back once, the diagnostics hear of it, and stored
// conditions are as before or as asked. Once the host is well again everything is as if nothing had
// happened.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <map>
#include <type_traits>

#include "demo/SampleHost.h"
#include "dialogs/Player.h"
#include "fetchkit/session/Interface.h"
#include "hosts/shared/MemoryRecordset.h"
#include "hosts/sqlite/SqliteConnection.h"
#include "support/FailingAllocations.h"
#include "support/FakeConnection.h"
#include "support/FaultyConnection.h"

namespace fetchkit::demo {
namespace {

using fetchkit::test::Fault;
using fetchkit::test::FaultyConnection;
using fetchkit::test::FreshThread;
using fetchkit::test::Player;
using fetchkit::test::RecordingSink;
using hosts::Database;
using hosts::MemoryRecordset;
using hosts::Statement;

// The sample accounts, with a memory for the rows of each statement, by what was written before it:
// the loops below repeat the same few statements many thousand times.
class RememberingConnection : public SqliteConnection {
 public:
  using SqliteConnection::SqliteConnection;

  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t, std::int32_t,
                           std::int32_t, std::int32_t) override {
    return OpenRecordset(sql, recordset, 0, 0);
  }
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override {
    auto& known = known_[written];
    auto found = known.find(sql);
    if (found == known.end()) {
      if (!SqliteConnection::OpenRecordset(sql, recordset, option1, option2)) return false;
      found = known.emplace(sql, dynamic_cast<MemoryRecordset&>(*recordset)).first;
    }
    recordset = std::make_shared<MemoryRecordset>(found->second);
    return true;
  }
  void CloseRecordset(RecordsetPtr& recordset) override {
    EXPECT_TRUE(dynamic_cast<MemoryRecordset&>(*recordset).Close());
    recordset = nullptr;
  }
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override {
    written.append(sql);
    return SqliteConnection::ExecuteSql(sql, option, out);
  }
  void Restore() {
    if (!std::exchange(written, {}).empty()) database().RunScript("ROLLBACK TO sample");
  }

  Text written;  // since the sample's own state

 private:
  std::map<Text, std::map<Text, MemoryRecordset, std::less<>>> known_;
};

class Faults : public testing::Test {
 protected:
  Faults() {
    host_.Switch("main");
    // A list of a few columns with a condition of each of the main kinds.
    Database& database = dynamic_cast<SqliteConnection&>(*host_.connection()).database();
    database.RunScript(
        "DELETE FROM ViewField WHERE lngViewID = 101 AND lngViewFieldID NOT IN (1,3,8);"
        "DELETE FROM ListField WHERE lngViewFieldID NOT IN (1,3,8);"
        "DELETE FROM ListCond WHERE lngViewFieldID NOT IN (1,3,8);"
        "SAVEPOINT sample");
    // The host keeps the database.
    sample_ = std::make_shared<RememberingConnection>(
        std::shared_ptr<Database>(std::shared_ptr<void>(), &database), host_.connection()->login);
    connection_ = std::make_shared<FaultyConnection>(sample_);
  }

  void LogIn() { Interface().Initialize(connection_); }
  ListSet& set() { return *Interface().ListSet(); }
  static Activity& activity() { return *Interface().Activity(); }

  // The conditions that the account holds.
  std::string Stored() {
    std::string& all = stored_[sample_->written];
    if (!all.empty()) return all;
    for (const char* table : {"ListCond", "ListMultiIDCond"}) {
      Statement rows(sample_->database(),
                     Join(u"SELECT * FROM ", FromUtf8(table), u" ORDER BY lngListID, strPath"));
      for (; rows.Step(); all += "\n")
        for (int i = 0; i < rows.ColumnCount(); ++i)
          all += ToUtf8(ToTextOrEmpty(rows.Column(i))) + "|";
    }
    return all;
  }

  // What a person sees, a line for each thing.
  template <class... Parts>
  void See(const Parts&... parts) {
    const auto add = [&](const auto& part) {
      if constexpr (std::is_convertible_v<decltype(part), TextView>)
        seen_ += ToUtf8(part) + "|";
      else
        seen_ += std::to_string(part) + "|";
    };
    (add(parts), ...);
    seen_ += "\n";
  }

  void SeeLogin() {
    Interface entry;
    const auto organization = entry.LoginOrganization();
    const auto business = entry.Business();
    const auto customer = entry.CustomerSs();
    const auto person = entry.LoginOperator();
    See(entry.LoginDate(), entry.LoginOrganizationId(), entry.LoginOrganizationCode(),
        entry.LoginOrganizationName(), entry.LoginOperatorId(), entry.LoginOperatorPwd());
    See(business->AccountName(), business->StartDate(), business->CurrencyCode(),
        business->NaturalCurDec(), business->AccountVersion(), business->UserName());
    See(organization->OrganizationCode(), organization->PrevLevelOrganizationId(),
        organization->LowerOrganizationId(), organization->BeginDate(), organization->EndDate(),
        organization->ThisYear(), organization->ThisPeriod(), organization->ThisQuarter(),
        organization->ThisHalfYear());
    See(person->OperatorCode(), person->OperatorName(), customer->FullName());
  }

  void SeeList() {
    const ListType list = set().List();
    See(list.strListName, list.lngListID, list.strListFrom, list.strListWhere,
        list.strListPureWhere);
    for (const ListFieldType& field : list.ListField)
      See(field.strListFieldDesc, field.strFieldType, field.strFilter, field.strCodeID,
          field.strExtValue, field.lngDisplayWidth);
  }

  bool SetCondition(TextView caption, TextView condition) {
    Text reason;
    return set().SetCondition(caption, condition, reason);
  }

  // What the database may well have answered.
  static bool IsAnswer(Fault fault) { return fault == Fault::NoRows || fault == Fault::Null; }

  struct Scenario {
    std::function<void()> before = [] {};  // undisturbed
    std::function<void()> act;             // disturbed; then again, undisturbed
    // Looks at what was seen while the fault was there.
    std::function<void(const std::string& seen, const std::string& undisturbed, Fault)> meanwhile =
        nullptr;
    std::function<void(Fault)> between = [](Fault) {};  // undisturbed
    bool savesWhatItRead = false;
  };

  struct Outcome {
    int failed = 0;          // operations
    std::string seen;        // while they failed
    std::string afterwards;  // when they no longer did
    std::string stored;
  };

  Outcome Run(const Scenario& scenario, int nth, Fault fault, bool forGood) {
    const FreshThread fresh;
    const RecordingSink sink;
    sample_->Restore();
    again_ = false;
    scenario.before();
    const std::string before = Stored();
    const std::size_t told = sink.failures.size();
    Outcome outcome;
    connection_->Fail(nth, fault, forGood);
    scenario.act();
    outcome.failed = connection_->Heal();
    outcome.seen = std::exchange(seen_, {});
    const std::string stored = Stored();
    if (stored != before && nth > 0 && !IsAnswer(fault)) {
      EXPECT_EQ(stored, undisturbed_.stored) << "neither as before nor as asked";
    }
    if (outcome.failed > 0 && fault <= Fault::ThrowsOddly) {
      EXPECT_GT(sink.failures.size(), told) << "nobody heard of it";
    }
    scenario.between(fault);
    again_ = true;
    seen_.clear();
    scenario.act();
    outcome.afterwards = std::exchange(seen_, {});
    outcome.stored = Stored();
    EXPECT_EQ(connection_->openRecordsets, 0);
    EXPECT_EQ(connection_->givenBackTwice, 0);
    return outcome;
  }

  // Runs the scenario with each operation failing in each way, alone and with all that follow.
  void TryAll(const Scenario& scenario) {
    undisturbed_ = Run(scenario, 0, Fault::Throws, false);
    int tried = 0;
    for (const Fault fault : test::kFaults) {
      for (const bool forGood : {false, true}) {
        for (int nth = 1; !HasFailure(); ++nth, ++tried) {
          SCOPED_TRACE(testing::Message() << NameOf(fault) << (forGood ? ", from " : ", ") << nth);
          const Outcome outcome = Run(scenario, nth, fault, forGood);
          if (outcome.failed == 0) break;
          if (!(scenario.savesWhatItRead && IsAnswer(fault))) {
            EXPECT_EQ(outcome.afterwards, undisturbed_.afterwards);
            EXPECT_EQ(outcome.stored, undisturbed_.stored);
          }
          if (scenario.meanwhile) scenario.meanwhile(outcome.seen, undisturbed_.seen, fault);
        }
      }
    }
    std::printf("%s: %d faults tried\n",
                testing::UnitTest::GetInstance()->current_test_info()->name(), tried);
  }

  SampleHost host_;
  std::shared_ptr<RememberingConnection> sample_;
  std::shared_ptr<FaultyConnection> connection_;
  std::string seen_;
  std::map<Text, std::string> stored_;  // by what was written
  bool again_ = false;                  // the second act
  Outcome undisturbed_;
};

// A first login, and one after which the organization and all that belongs to it are others.
TEST_F(Faults, Logins) {
  for (const bool first : {true, false}) {
    Scenario scenario;
    scenario.before = [&] {
      sample_->login.organizationId = 1;
      if (!first) LogIn();
      sample_->login.organizationId = 3;
    };
    scenario.act = [&] {
      LogIn();
      SeeLogin();
    };
    // What the database answered is not asked again before the account changes.
    scenario.between = [&](Fault fault) {
      if (fault <= Fault::ThrowsOddly) return;
      sample_->login.server = u"OTHER";
      LogIn();
      sample_->login.server = u"DBSRV";
    };
    TryAll(scenario);
  }
}

TEST_F(Faults, LoadingAndSavingAList) {
  Scenario scenario;
  scenario.act = [&] {
    set().ViewId(101);
    SetCondition(u"凭证号", u"大于 7");
    set().SaveList();
    SeeList();
  };
  scenario.savesWhatItRead = true;
  scenario.before = [&] {
    LogIn();
    scenario.act();
    set().List({});  // nothing that a fault could leave behind by chance
  };
  TryAll(scenario);
}

// Every kSteps-th allocation, of the host's own too, alone and with all that follow.
TEST_F(Faults, MemoryRunsOutWhileLoadingAndSavingAList) {
  static constexpr int kSteps = 11;
  using Lasting = test::FailingAllocations::Lasting;
  const auto act = [](ListSet& list) {
    list.ViewId(101);
    list.SaveList();
  };
  Scenario scenario;
  scenario.before = [&] { LogIn(); };
  scenario.act = [&] { act(set()); };
  undisturbed_ = Run(scenario, 0, Fault::Throws, false);
  int tried = 0;
  for (const Lasting lasting : {Lasting::Once, Lasting::ForGood}) {
    bool failed = true;
    for (int number = 1; failed && !HasFailure(); number += kSteps, ++tried) {
      SCOPED_TRACE(number);
      scenario.act = [&] {
        ListSet& list = set();
        const test::FailingAllocations memory(again_ ? 0 : number, lasting);
        act(list);
        if (!again_) failed = memory.Failed();
      };
      EXPECT_EQ(Run(scenario, 1 << 30, Fault::Throws, false).stored, undisturbed_.stored);
    }
  }
  std::printf("%d allocations\n", tried);
}

TEST_F(Faults, Filtering) {
  Player player;
  player.filter =
      "node 凭证号; pick 大于; from 7; leave from; node 凭证日期; pick 上月; node 部门; pick 所有; "
      "ok";
  Scenario scenario;
  scenario.before = [&] {
    LogIn();
    set().ViewId(101);
    SetFormView(&player);
  };
  scenario.act = [&] {
    set().ShowFilter(0);
    SeeList();
  };
  scenario.between = [&](Fault) { set().RefreshListField(); };
  TryAll(scenario);
}

TEST_F(Faults, FilteringWithoutADialog) {
  Scenario scenario;
  scenario.before = [&] {
    LogIn();
    set().ViewId(101);
  };
  scenario.act = [&] {
    See(SetCondition(u"部门", u"国内销售科"));
    SeeList();
  };
  // Which codes the operator may see is asked once a login.
  scenario.between = [&](Fault) {
    ReleaseThread();
    scenario.before();
  };
  TryAll(scenario);
}

TEST_F(Faults, Rights) {
  Scenario scenario;
  scenario.before = [&] { LogIn(); };
  scenario.act = [&] {
    Interface entry;
    const auto allotted = entry.LoginOrganizationRight();
    for (const TextView table : {u"Department", u"Class1"}) {
      See(allotted->HaveAllCodeUseRight(table));
      See(allotted->GetAllCodeUseRightSql(table));
      See(allotted->GetAllotItem2(table, u"1,14,2"));
    }
    const auto rights = entry.LoginOperatorRight();
    See(rights->HaveAllCodeQueryRight(u"Account"));
    See(rights->HaveAllCodeUseRight(u"Department"));
    if (again_) return;  // below, what the accounts' tables hold is asked once, and the rights are
    See(rights->GetUserQueryRight(u"Department"));
    See(rights->UserRight(u"12,45"));
    See(rights->UserRight(u"12"));
  };
  // Nothing opens; but where the database says that there are no rows, it has answered.
  scenario.meanwhile = [](const std::string& seen, const std::string& undisturbed, Fault fault) {
    const auto isOpen = [](const std::string& answer) {
      return answer == "1|" || answer == "|" || answer == "1,14,2|";
    };
    const auto answers = test::Lines(seen);
    const auto expected = test::Lines(undisturbed);
    ASSERT_EQ(answers.size(), expected.size());
    for (std::size_t i = 0; i < answers.size(); ++i) {
      if (fault != Fault::NoRows && isOpen(answers[i].front())) {
        EXPECT_EQ(answers[i].front(), expected[i].front()) << "answer " << i;
      }
    }
  };
  scenario.between = [&](Fault fault) {
    if (fault != Fault::NoRows) return;
    ReleaseThread();
    LogIn();
  };
  TryAll(scenario);
}

TEST_F(Faults, Services) {
  Scenario scenario;
  scenario.before = [&] { LogIn(); };
  scenario.act = [&] {
    const Date day{38063};  // 2004-03-17
    Value begin = u"";
    Value end = u"";
    Text title;
    float year = 0;
    float period = 0;
    See(activity().GetNewID(u"List") > 0);
    See(activity().GetOrganizationCode(3), activity().IsDetailOrganization(3));
    See(activity().GetClass1Name(), activity().GetClass2Name());
    See(ToText(activity().GetSysSetting(u"本位币", u"账套信息")));
    See(activity().GetCurrencyDec(u"lngCurrencyID=1"));
    See(activity().FlexFieldIsUsed(u"智能字段1", title), title);
    See(activity().GetEndDate(begin, end), ToText(begin), ToText(end));
    See(activity().FormatSQL(u"Select nvl(a,0) From Dual"));
    See(set().FindAllKeyID(u"Account", u"1001 1002"));
    // These keep what they were told, whatever it was.
    activity().TableNameExists(u"Voucher");
    activity().TableFieldExists(u"Voucher", u"strDate");
    activity().GetAccountPeriod(day, year, period);
    activity().GetPeriodCount(2004);
    activity().FormatValue(1234.5);
  };
  TryAll(scenario);
}

}  // namespace
}  // namespace fetchkit::demo
