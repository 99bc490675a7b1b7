// What the command lines of the demo hosts have in common.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>

#include "demo/commands/Commands.h"
#include "demo/console/Console.h"

namespace fetchkit::demo {

// The options of every subcommand. The arguments must outlive app.
void AddCommonOptions(CLI::App& app, CommonOptions& common, ColourMode& colour);

// Where the accounts are. target must outlive app.
void AddTargetOptions(CLI::App& app, OdbcTarget& target);

// The view of a list and how many of its rows are printed.
void AddListOptions(CLI::App& subcommand, std::int32_t& viewId, int& rows);

}  // namespace fetchkit::demo
