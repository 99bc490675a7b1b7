// The table of date ranges, the same whichever way the library is called.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "demo/console/Console.h"
#include "fetchkit/base/Text.h"

namespace fetchkit::demo {

// evaluate: the range of a keyword and what it costs the first and the second time, in a session of
// its own, because what another keyword has found would make it cheaper.
void ShowDateTable(
    Console& console, const std::string& loginDate,
    const std::function<std::vector<std::string>(TextView keyword, bool financial)>& evaluate);

}  // namespace fetchkit::demo
