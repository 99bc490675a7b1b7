// A host on the sample accounts: its connections and what went through them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/dialect/Engine.h"
#include "hosts/shared/TracedConnection.h"

namespace fetchkit::demo {

// A database that the demo is told to use; without a connection string it is the embedded one.
struct OdbcTarget {
  std::string connectionString;  // UTF-8
  SqlEngine engine = SqlEngine::Oracle;
};

// One connection per account, opened when it is first needed; the embedded database is then made in
// memory. To be used on one thread.
// Connections that outlive it stay usable and still report.
class SampleHost {
 public:
  explicit SampleHost(OdbcTarget target = {}) : target_(std::move(target)) {}

  // Makes the sample login of that name the current one; the library hears of it at its next
  // Initialize. std::invalid_argument for a name that is none; what OdbcConnection
  // throws.
  void Switch(std::string_view loginName);

  // Of the current login; null before the first Switch.
  const std::shared_ptr<TracedConnection>& connection() const { return current_; }

  // Every statement since the list was last cleared, in order; clearing is up to the caller.
  std::vector<StatementReport>& reports() { return *reports_; }
  const std::vector<StatementReport>& reports() const { return *reports_; }

  // Recordsets that were opened and not given back, of all connections.
  int openRecordsets() const;

 private:
  std::shared_ptr<TracedConnection> Open(std::string_view userId) const;

  OdbcTarget target_;
  std::map<std::string, std::shared_ptr<TracedConnection>, std::less<>> connections_;
  std::shared_ptr<TracedConnection> current_;
  std::shared_ptr<std::vector<StatementReport>> reports_ =
      std::make_shared<std::vector<StatementReport>>();
};

}  // namespace fetchkit::demo
