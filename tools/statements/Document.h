// docs/statements.md.
#pragma once

#include <string>

#include "tools/statements/Recording.h"

namespace fetchkit::statements {

// The whole document, UTF-8: the statements, and the smallest grants with which all of them, and
// what the demo asks as a host, are answered.
std::string Document(const Recording& recording);

}  // namespace fetchkit::statements
