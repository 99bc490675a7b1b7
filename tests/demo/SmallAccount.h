// An account of a few small tables, behind the demo host's connection.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "demo/host/SampleConnection.h"

namespace fetchkit::demo::test {

class SmallAccount {
 public:
  // The script makes the account's tables; DUAL and demo_sequence are there already.
  explicit SmallAccount(const char* script);

  // The rows of the statement, "a|b;c|d", Null as "~"; the error's text when it is refused.
  std::string Rows(const std::string& sql);

  // The number of rows that it changed, or the error's text.
  std::string Execute(const std::string& sql);

  std::shared_ptr<SampleConnection> connection;
  std::vector<StatementReport> reports;
};

}  // namespace fetchkit::demo::test
