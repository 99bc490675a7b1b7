// A small account for start-up tests: the statements of a first login and their answers.
#pragma once

#include <memory>
#include <string>
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
  kStatementCount
};

// The eleven texts for organization 20, operator 3, customer 12 on 2004-03-17.
const std::vector<Text>& FirstLoginStatements();

// Their answers, all with rows.
Answer GoodAnswer(Statement statement);

// A connection on which the whole first login succeeds.
std::shared_ptr<FakeConnection> GoodHost();

// What a host can see of the calling thread's session, as (name, value) pairs.
std::vector<std::pair<std::string, std::string>> Snapshot();

}  // namespace fetchkit::test
