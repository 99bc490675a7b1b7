// A host on the sample accounts: its connections, and what it shows of the statements.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "demo/SampleHost.h"
#include "demo/console/Console.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/session/Interface.h"

namespace fetchkit::demo {

// Owns the calling thread's library session while it lives: the session ends with it. One
// connection per account, made in memory when it is first needed. Tells of failures that the
// library keeps quiet about, those of logging in included, and of their number; with a trace of its
// notes as well.
class DemoSession : private DiagnosticsSink {
 public:
  // trace: show every statement whole, with its answer; otherwise one line each.
  // target: where the sample accounts are.
  DemoSession(Console& console, bool trace, OdbcTarget target = {});
  ~DemoSession() override;
  DemoSession(const DemoSession&) = delete;
  DemoSession& operator=(const DemoSession&) = delete;

  // Makes the sample login of that name the host's current one; the library hears of it at its next
  // Initialize. std::invalid_argument for a name that is none.
  void Switch(std::string_view loginName);

  // Initialize with the current login, without showing its statements.
  void LogIn();

  // The same as a host would after a restart: nothing of the session before is left, while the
  // accounts' data stays.
  void LogInAfresh();

  Interface& entry() { return entry_; }

  const std::shared_ptr<TracedConnection>& connection() const { return host_.connection(); }

  // Runs work, then prints the statements it sent and their number.
  template <class Work>
  void Run(Work&& work) {
    host_.reports().clear();
    work();
    ShowStatements();
  }

  // Prints what the library has told since it was last shown; Run does so by itself.
  void ShowWhatWasTold();

  // Runs work without printing anything; answers how many statements it sent.
  template <class Work>
  std::size_t Count(Work&& work) {
    host_.reports().clear();
    work();
    return reports().size();
  }

  const std::vector<StatementReport>& reports() const { return host_.reports(); }

 private:
  void OnFailure(const Failure& failure) override;
  void ShowStatements();

  Console& console_;
  Interface entry_;
  bool trace_;
  DiagnosticsSink* sinkBefore_;
  SampleHost host_;
  std::vector<Failure> told_;  // since it was last shown
};

}  // namespace fetchkit::demo
