#include "fetchkit/host/OpenedRecordset.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <utility>

#include "fetchkit/base/Guard.h"
#include "fetchkit/host/Execution.h"
#include "fetchkit/session/Interface.h"
#include "fetchkit/session/model/HostLogin.h"
#include "support/FakeConnection.h"

namespace fetchkit::test {
namespace {

constexpr TextView kSql = u"SELECT a FROM t";

class OpenedRecordsets : public testing::Test {
 protected:
  OpenedRecordsets() { host_->On(Text(kSql), Rows({u"A"}, {{u"x"}, {NullValue()}})); }

  FreshThread thread_;
  RecordingSink sink_;
  std::shared_ptr<FakeConnection> host_ = std::make_shared<FakeConnection>();
};

TEST_F(OpenedRecordsets, TheInnermostOfSeveralStatementsIsTold) {
  Step(u"list", [] {
    const StatementTrace fields(u"fields");
    const StatementTrace codes(u"codes");
    throw 1;
  });
  ASSERT_EQ(sink_.failures.size(), 1U);
  EXPECT_EQ(sink_.failures[0].statement, u"codes");
}

TEST_F(OpenedRecordsets, AreGivenBackOnceOnEveryPath) {
  {
    OpenedRecordset rows(host_, kSql, Cursor::Plain);
    EXPECT_EQ(host_->openRecordsets, 1);
    EXPECT_EQ(ToText(rows[u"a"]), u"x");
    rows.Close();
    EXPECT_FALSE(rows);
    rows.Close();
  }
  EXPECT_FALSE(Step(u"reading", [&] {
    OpenedRecordset rows(host_, kSql, Cursor::Static);
    rows->MoveNext();
    ToLong(rows[u"a"]);
  }));
  EXPECT_EQ(host_->openRecordsets, 0);
  ASSERT_EQ(sink_.failures.size(), 1u);
  EXPECT_EQ(sink_.failures[0].what, u"reading");
  EXPECT_EQ(sink_.failures[0].statement, kSql);
  EXPECT_EQ(CurrentThread().lastError, sink_.failures[0].description);
}

TEST_F(OpenedRecordsets, RefusedStatementsAreToldAndNotClosed) {
  host_->On(Text(kSql), Refused());
  for (const Severity severity : {Severity::Failure, Severity::Note}) {
    OpenedRecordset rows(host_, kSql, Cursor::Plain, severity);
    EXPECT_FALSE(rows);
    EXPECT_FALSE(rows.HasRow());
    EXPECT_EQ(sink_.failures.back().severity, severity);
  }
  EXPECT_FALSE(Execute(host_, kSql));
  ASSERT_EQ(sink_.failures.size(), 3u);
  for (const Failure& told : sink_.failures) {
    EXPECT_EQ(told.statement, kSql);
    EXPECT_EQ(told.databaseText, u"the table is locked");
  }
  EXPECT_EQ(CurrentThread().lastError, u"") << "an answer of False is no error";
}

TEST_F(OpenedRecordsets, ErrorOfClosingIsRaisedByCloseAndNotedOtherwise) {
  Answer answer = Rows({u"A"}, {});
  answer.closeThrows = true;
  host_->On(Text(kSql), answer);
  { OpenedRecordset rows(host_, kSql, Cursor::Plain); }
  ASSERT_EQ(sink_.failures.size(), 1u);
  EXPECT_EQ(sink_.failures[0].description, u"close failed");
  OpenedRecordset rows(host_, kSql, Cursor::Plain);
  EXPECT_THROW(rows.Close(), std::runtime_error);
}

// A host that handles messages may be logged in with another connection, and asked to release the
// thread, from inside each operation.
TEST_F(OpenedRecordsets, ConnectionLivesUntilItsOperationReturns) {
  host_->fallback = Done;
  const std::function<void()> operations[] = {
      [] { Execute(MAction::ConnectionOf(MAction::CurrentSession()), kSql); },
      [] {
        OpenedRecordset rows(MAction::ConnectionOf(MAction::CurrentSession()), kSql, Cursor::Plain);
        EXPECT_TRUE(rows.HasRow());
        EXPECT_EQ(ToText(rows[u"a"]), u"x");
      },
      [] { EXPECT_EQ(MAction::ReadAccountType(MAction::CurrentSession()), 7); },
      [] { Interface().Initialize(MAction::CurrentSession().Connection); },
  };
  for (const auto& operation : operations) {
    auto calling = std::make_shared<FakeConnection>();
    calling->On(Text(kSql), Rows({u"A"}, {{u"x"}}));
    calling->fallback = Done;
    MAction::CurrentSession().Connection = calling;
    sink_.failures.clear();
    calling->onOperation = [this] {
      MAction::CurrentSession().Connection = host_;
      EXPECT_FALSE(ReleaseThread());
      EXPECT_EQ(sink_.failures.back().what, u"ReleaseThread");
    };
    const std::weak_ptr<FakeConnection> alive = std::exchange(calling, nullptr);
    operation();
    EXPECT_FALSE(sink_.failures.empty());
    EXPECT_TRUE(alive.expired());
  }
  EXPECT_TRUE(ReleaseThread());
}

TEST_F(OpenedRecordsets, TrapsKeepWhatWasBuiltAndGoOn) {
  const MemberScope member;  // all of these are inside one
  const Text built = Guarded(u"list", Text(u"-"), [](Text& result) {
    result += u"a";
    throw Error(ErrorKind::Host, u"half way");
  });
  EXPECT_EQ(built, u"-a");
  EXPECT_EQ(Guarded(u"number", 7, []() -> int { throw 1; }), 7);
  EXPECT_EQ(CurrentThread().lastError, u"The host raised an error of an unknown kind.");
  Step(
      u"expected", [] { throw Error(ErrorKind::Host, u"not there"); }, Severity::Note);
  EXPECT_EQ(CurrentThread().lastError, u"The host raised an error of an unknown kind.");
  ASSERT_EQ(sink_.failures.size(), 3u);
  EXPECT_EQ(sink_.failures[2].description, u"not there");
  EXPECT_EQ(sink_.failures[2].severity, Severity::Note);
}

}  // namespace
}  // namespace fetchkit::test
