// How the statements that were sent are shown.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "demo/console/Console.h"
#include "hosts/shared/TracedConnection.h"

namespace fetchkit::demo {

// "2 rows", or "refused".
std::string AnswerOf(const StatementReport& report);

// The statement as sent, on one line.
std::string OneLine(TextView sql);

// One line each; with trace whole, with the time it took and the answer's first row or why it was
// refused.
void ListStatements(Console& console, const std::vector<StatementReport>& reports, bool trace);

void CountStatements(Console& console, std::size_t count);

}  // namespace fetchkit::demo
