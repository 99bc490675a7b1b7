// The demo's subcommands, one file each.
#pragma once

#include <string>

#include "demo/console/Console.h"

namespace fetchkit::demo {

// What every subcommand may be told.
struct CommonOptions {
  std::string login = "main";  // a name of SampleLogins
  bool trace = false;          // every statement whole, with its answer
};

// Logs in to the sample accounts, again and again with one thing changed, and shows what the host
// sees and what was sent.
int RunLogin(Console& console, const CommonOptions& options);

// The sample logins by name.
int RunAccounts(Console& console);

}  // namespace fetchkit::demo
