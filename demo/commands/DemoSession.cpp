#include "demo/commands/DemoSession.h"

#include <fmt/format.h>

#include <utility>

#include "demo/console/StatementList.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {

DemoSession::DemoSession(Console& console, bool trace, OdbcTarget target)
    : console_(console), trace_(trace), host_(std::move(target)) {
  ReleaseThread();
  sinkBefore_ = SetDiagnosticsSink(this);
}

DemoSession::~DemoSession() {
  SetDiagnosticsSink(sinkBefore_);
  ReleaseThread();
}

void DemoSession::Switch(std::string_view loginName) {
  host_.Switch(loginName);
}

void DemoSession::LogIn() {
  entry_.Initialize(connection());
  host_.reports().clear();
}

void DemoSession::LogInAfresh() {
  ReleaseThread();
  SetDiagnosticsSink(this);
  LogIn();
}

void DemoSession::OnFailure(const Failure& failure) {
  told_.push_back(failure);
}

void DemoSession::ShowStatements() {
  ListStatements(console_, reports(), trace_);
  ShowWhatWasTold();
  CountStatements(console_, reports().size());
}

void DemoSession::ShowWhatWasTold() {
  std::size_t failures = 0;
  for (const Failure& told : std::exchange(told_, {})) {
    const bool isNote = told.severity == Severity::Note;
    if (!isNote) ++failures;
    if (isNote && !trace_) continue;
    console_.Note(fmt::format("{}: {}: {}{}{}", isNote ? "note" : "failed", ToUtf8(told.what),
                              ToUtf8(told.description), told.databaseText.empty() ? "" : " ",
                              ToUtf8(told.databaseText)));
  }
  if (failures > 0) console_.Note(fmt::format("{} failure{}", failures, failures == 1 ? "" : "s"));
}

}  // namespace fetchkit::demo
