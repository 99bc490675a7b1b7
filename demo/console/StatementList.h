// How the statements that were sent are shown.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "demo/console/Console.h"
#include "demo/host/SampleConnection.h"

namespace fetchkit::demo {

// "2 rows", or "refused".
std::string AnswerOf(const StatementReport& report);

// The statement as sent, on one line.
std::string OneLine(TextView sql);

// One line each; with trace whole, with the time it took and the answer's first row or why it was
// refused.
void ListStatements(Console& console, const std::vector<StatementReport>& reports, bool trace);

// Where failures are known, their number as well.
void CountStatements(Console& console, std::size_t count,
                     std::optional<std::size_t> failures = std::nullopt);

}  // namespace fetchkit::demo
