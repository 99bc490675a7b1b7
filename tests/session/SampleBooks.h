// A small account for start-up tests: the statements of a first login and their answers.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "support/FakeConnection.h"

namespace fetchkit::test {

// Statements as a host sees them, in the order in which a first login sends them.
enum Statement {
  kSettings,
  kAccountNames,
  kOrganization,
  kAncestors,
  kDescendants,
  kBounds,
  kPeriod,
  kQuarter,
  kHalf,
  kOperator,
  kCustomer,
  kStatementCount,
  kFromHost = kStatementCount
};

// The eleven statements for organization 20, operator 3, customer 12 on 2004-03-17, and answers to
// them, all with rows. They are kept in FirstLogin.txt: below a statement its rows, "column=value"
// between "¦", with a "'" in front of texts.
const std::vector<std::pair<Text, Answer>>& FirstLogin();

// A connection on which the whole first login succeeds.
std::shared_ptr<FakeConnection> GoodHost();

}  // namespace fetchkit::test
