// The program's subcommands, one file each. They print what the console demo's of the same names
// print, each through the library's COM interfaces; so the two outputs can be compared.
#pragma once

#include "demo/commands/Commands.h"

namespace fetchkit::demo {

// The records of the login.
int ShowLogin(Console& console, const CommonOptions& options);

// Every date keyword, calendar and accounting, with the statements that it costs.
int ShowDates(Console& console, const CommonOptions& options);

int ShowRights(Console& console, const CommonOptions& options);

// Amounts, clauses and cell names.
int ShowFormats(Console& console, const CommonOptions& options);

// A view with the operator's saved list: its conditions, texts and rows. list.where is not used.
int ShowList(Console& console, const CommonOptions& options, const ListOptions& list);

// The same view in the filter dialog, in a window over the console's: what it returns and which
// rows the query has then; afterwards the multi-choose dialog on the departments.
int ShowFilter(Console& console, const CommonOptions& options, const ListOptions& list);

}  // namespace fetchkit::demo
