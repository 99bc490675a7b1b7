#include "demo/commands/DemoSession.h"

#include <fmt/format.h>

#include <utility>

#include "demo/console/StatementList.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {

DemoSession::DemoSession(Console& console, bool trace) : console_(console), trace_(trace) {
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
  ListStatements(console_, reports(), trace_);
  for (const Failure& failure : std::exchange(failures_, {}))
    console_.Note(
        fmt::format("quietly skipped: {}: {}", ToUtf8(failure.what), ToUtf8(failure.description)));
  CountStatements(console_, reports().size());
}

}  // namespace fetchkit::demo
