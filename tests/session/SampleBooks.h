// A small account for start-up tests: the statements of a first login and their answers.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fetchkit/session/Interface.h"
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

// A value that a host can see after a login.
struct LoginValue {
  const char* name;  // such as "Business.CurrencyID", or "AccountKey" of the session itself
  std::string (*read)(Interface& of);
  const char* loggedIn;   // what it is after the first login on GoodHost
  Statement from;         // where it comes from
  const char* none = "";  // what it is when that statement yields nothing
};

// In the order in which start-up copies them, the session's copies behind what they are copies of.
const std::vector<LoginValue>& LoginValues();

// What a host can see of the calling thread's session, by name.
using State = std::map<std::string, std::string>;
State Snapshot();

}  // namespace fetchkit::test
