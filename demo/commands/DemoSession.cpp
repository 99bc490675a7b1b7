#include "demo/commands/DemoSession.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/Utf8.h"
#include "demo/SampleAccounts.h"

namespace fetchkit::demo {
namespace {

// The account's database attached first: unqualified names are its own.
std::shared_ptr<Database> OpenAccount(std::string_view userId) {
  auto database = std::make_shared<Database>();
  for (const bool account : {true, false}) {
    for (const SampleDatabase& sample : SampleDatabases()) {
      const bool isServers = sample.schema == "System";
      if (account ? sample.schema != userId : !isServers) continue;
      Database filled;
      RunScripts(filled.handle(), sample.prefix);
      database->AttachCopy(filled, FromUtf8(sample.schema));
    }
  }
  return database;
}

Login LoginOf(const SampleLogin& sample) {
  Login login;
  login.accountType = sample.accountType;
  login.server = FromUtf8(sample.serverName);
  login.userId = FromUtf8(sample.userId);
  login.loginDate = FromUtf8(sample.loginDate);
  login.organizationId = sample.organizationId;
  login.operatorId = sample.operatorId;
  login.password = FromUtf8(sample.password);
  login.items[u"#SSCustomerID"] = Value(FromUtf8(sample.ssCustomerId));
  return login;
}

std::string OneLine(TextView sql) {
  std::string line = ToUtf8(TrimBlanks(sql));
  std::replace(line.begin(), line.end(), '\n', ' ');
  return line;
}

std::string AnswerOf(const StatementReport& report) {
  if (!report.answered) return "refused";
  return fmt::format("{} row{}", report.rows, report.rows == 1 ? "" : "s");
}

}  // namespace

DemoSession::DemoSession(Console& console, bool trace) : console_(console), trace_(trace) {
  ReleaseThread();
  sinkBefore_ = SetDiagnosticsSink(this);
}

DemoSession::~DemoSession() {
  SetDiagnosticsSink(sinkBefore_);
  ReleaseThread();
}

void DemoSession::Switch(std::string_view loginName) {
  const SampleLogin& sample = FindSampleLogin(loginName);
  auto& connection = connections_[std::string(sample.userId)];
  if (!connection) {
    connection = std::make_shared<SampleConnection>(OpenAccount(sample.userId), Login());
    connection->trace = [this](const StatementReport& report) { reports_.push_back(report); };
  }
  connection->login = LoginOf(sample);
  current_ = connection;
}

void DemoSession::LogIn() {
  entry_.Initialize(current_);
  reports_.clear();
  failures_.clear();
}

void DemoSession::LogInAfresh() {
  ReleaseThread();
  SetDiagnosticsSink(this);
  LogIn();
}

void DemoSession::OnFailure(const Failure& failure) {
  failures_.push_back(failure);
}

void DemoSession::ShowStatements() {
  console_.BeginTable();
  for (std::size_t i = 0; i < reports_.size(); ++i) {
    const StatementReport& report = reports_[i];
    if (trace_) {
      console_.Note(fmt::format("{:>3}  {}, {} µs", i + 1, AnswerOf(report), report.microseconds));
      console_.Line(ToUtf8(report.sql));
      if (!report.answered) {
        console_.Line("     " + ToUtf8(report.error));
      } else if (!report.firstRow.empty()) {
        console_.Note("     " + ToUtf8(report.firstRow));
      }
      continue;
    }
    const std::string sql = OneLine(report.sql);
    // Room for the number, the answer and the gaps between them.
    const int width = console_.columns() - 20;
    console_.Row({fmt::format("{:>3}", i + 1), AnswerOf(report),
                  console_.styled() ? CutToWidth(sql, std::max(width, 20)) : sql});
  }
  console_.EndTable();
  for (const Failure& failure : std::exchange(failures_, {}))
    console_.Note(
        fmt::format("quietly skipped: {}: {}", ToUtf8(failure.what), ToUtf8(failure.description)));
  console_.Note(fmt::format("{} statement{}", reports_.size(), reports_.size() == 1 ? "" : "s"));
}

}  // namespace fetchkit::demo
