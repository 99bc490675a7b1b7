// A host for tests: a script of statement to answer, and a login that can be spoilt.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "fetchkit/base/ThreadState.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit::test {

// What a statement is answered with.
struct Answer {
  enum class Kind {
    Rows,
    Refused,     // the operation answers False
    Throws,      // the operation throws
    OddThrow,    // the operation throws what is no std::exception
    NoRecordset  // the operation answers True and hands out nothing
  };
  Kind kind = Kind::Rows;
  std::vector<Text> columns = {};
  std::vector<std::vector<Value>> rows = {};
  int throwAtRow = -1;       // reading this row (0-based) raises
  bool closeThrows = false;  // giving the recordset back succeeds, and throws

  // If there is one, the rows have every column, and each read of a cell asks it anew; may throw.
  std::function<Value(TextView column)> cell = nullptr;
};

inline Answer Rows(std::vector<Text> columns, std::vector<std::vector<Value>> rows) {
  return {Answer::Kind::Rows, std::move(columns), std::move(rows)};
}
inline Answer Refused() {
  return {Answer::Kind::Refused};
}
inline Answer Throws() {
  return {Answer::Kind::Throws};
}
// For FakeConnection::fallback: whatever is sent is done, and has no row.
inline const Answer* Done(TextView) {
  static const Answer done;
  return &done;
}

// The host's login. A name in spoilt makes the read of that member throw; a name in absent makes
// the object of that name null. Names are those of the host interfaces' members.
struct FakeLogin {
  Value accountType = std::int32_t{7};
  Value server = u"DBSRV";
  Value user = u"ACC01";
  Value loginDate = u"2004-03-17";
  Value organizationId = std::int32_t{20};
  Value operatorId = std::int32_t{3};
  Value password = u"secret";
  Value customer = u"12";  // "#SSCustomerID"
  std::set<std::string> spoilt;
  std::set<std::string> absent;
};

// Fails the running test on a statement that has no answer, on a recordset that is given back
// twice or never, and on options other than those of the operation.
class FakeConnection : public SessionConnection,
                       public std::enable_shared_from_this<FakeConnection> {
 public:
  ~FakeConnection() override;

  // Answers the statement from now on; the same statement may be given another answer later.
  void On(Text sql, Answer answer) { answers_[std::move(sql)] = std::move(answer); }

  // Asked for statements without an answer of their own, before the test fails.
  std::function<const Answer*(TextView sql)> fallback;

  // Takes the statements sent since the last call, "static: " or "execute: " in front of those
  // that came through these operations.
  std::vector<std::string> TakeSent();

  // Called in front of each operation, its recordsets' included, but for those that it causes.
  std::function<void()> onOperation;

  FakeLogin login;
  int openRecordsets = 0;
  int operations = 0;
  bool unsaid = false;  // whether a recordset is empty is asked in vain

  std::shared_ptr<fetchkit::HostContext> HostContext() override;
  void CloseRecordset(RecordsetPtr& recordset) override;
  void RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) override;
  bool OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t cursorType,
                           std::int32_t lockType, std::int32_t commandType,
                           std::int32_t option) override;
  bool OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t option1,
                     std::int32_t option2) override;
  bool ExecuteSql(TextView sql, std::int32_t option, Value& out) override;
  Text LastRefusal() override { return u"the table is locked"; }

  // For the recordsets.
  void CallBack();

 private:
  // The answer, null for one of False.
  const Answer* Send(const std::string& prefix, TextView sql);
  bool Open(const std::string& prefix, TextView sql, RecordsetPtr& recordset);

  std::map<Text, Answer, std::less<>> answers_;
  std::vector<std::string> sent_;
  bool calling_ = false;
};

// A diagnostics sink that keeps what it is told; installed for the object's life.
class RecordingSink : public DiagnosticsSink {
 public:
  RecordingSink() : before_(SetDiagnosticsSink(this)) {}
  ~RecordingSink() override { SetDiagnosticsSink(before_); }
  void OnFailure(const Failure& failure) override { failures.push_back(failure); }

  std::vector<Failure> failures;

 private:
  DiagnosticsSink* before_;
};

// Gives the test's thread a state of its own, gone at the end.
class FreshThread {
 public:
  FreshThread() { ReleaseThread(); }
  ~FreshThread() { ReleaseThread(); }
};

}  // namespace fetchkit::test
