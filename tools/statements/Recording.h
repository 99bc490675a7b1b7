// Every public member that the login's objects have, called on the sample accounts, and every
// statement that it sends.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tools/statements/Shape.h"

namespace fetchkit::statements {

// Who sends a statement, and when.
struct Use {
  std::string member;  // "Activity.GetNewID"
  std::string when;    // "once per login and day"
};

struct RecordedShape {
  Shape shape;
  std::vector<Use> uses;  // in the order of the members
  std::string accounts;   // which accounts alone send it; empty: all
};

// Who a need stands for, from the library's own tables to what each account has otherwise.
enum class Owner { Library, CodeTable, Host };

struct Recording {
  std::vector<RecordedShape> shapes;  // in the order in which they came first
  std::set<std::string> members;      // that were called
  // What a host needs that does what the demo does. A need stands in the first of the sets alone.
  std::set<Need> needs[3];
};

// Ends the calling thread's session.
Recording RecordStatements();

}  // namespace fetchkit::statements
