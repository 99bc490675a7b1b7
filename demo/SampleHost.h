// A host on the sample accounts: its connections and what went through them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/sqlite/SqliteConnection.h"

namespace fetchkit::demo {

// One connection per account, made in memory when it is first needed. To be used on one thread.
// Connections that outlive it stay usable and still report.
class SampleHost {
 public:
  // Makes the sample login of that name the current one; the library hears of it at its next
  // Initialize. std::invalid_argument for a name that is none.
  void Switch(std::string_view loginName);

  // Of the current login; null before the first Switch.
  const std::shared_ptr<SqliteConnection>& connection() const { return current_; }

  // Every statement since the list was last cleared, in order; clearing is up to the caller.
  std::vector<StatementReport>& reports() { return *reports_; }
  const std::vector<StatementReport>& reports() const { return *reports_; }

  // Recordsets that were opened and not given back, of all connections.
  int openRecordsets() const;

 private:
  std::map<std::string, std::shared_ptr<SqliteConnection>, std::less<>> connections_;
  std::shared_ptr<SqliteConnection> current_;
  std::shared_ptr<std::vector<StatementReport>> reports_ =
      std::make_shared<std::vector<StatementReport>>();
};

}  // namespace fetchkit::demo
