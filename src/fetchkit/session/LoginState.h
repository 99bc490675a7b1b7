// How much of a login came in.
#pragma once

#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit {

struct LoginState {
  enum class Extent {
    None,     // no login yet, or no row of its account, organization or operator
    Partial,  // something is missing: its members are as Interface::Initialize leaves them
    Whole,    // the host told everything, and every record came in with its row
  };
  Extent extent = Extent::None;

  // What keeps it from being whole, in the order of the login, each step once: as the diagnostics
  // sink names it, or with ": no row" behind it where the database answered that there is none
  // (inactive, not initialised, not allotted or unknown), which no sink is told. Before the first
  // Initialize, and after one that memory cut short, "Interface.Initialize" is among them.
  std::vector<Text> failedSteps;
};

}  // namespace fetchkit
