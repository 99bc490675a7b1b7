// The demo's subcommands, one file each.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "demo/SampleHost.h"
#include "demo/console/Console.h"
#include "fetchkit/host/SessionConnection.h"

namespace fetchkit::demo {

class ListDialogs;

// How the demo is called, as it says itself.
#ifdef FETCHKIT_DEMO_WINDOWS
constexpr const char* kProgram = "FetchKitDemo";
#else
constexpr const char* kProgram = "./run demo";
#endif

// What every subcommand may be told.
struct CommonOptions {
  std::string login = "main";  // a name of SampleLogins
  bool trace = false;          // every statement whole, with its answer
  OdbcTarget target{};         // where the accounts are
};

// Logs in to the sample accounts, again and again with one thing changed, and shows what the host
// sees and what was sent. A first login that does not come in whole is told in words instead, and
// answered with 1.
int RunLogin(Console& console, const CommonOptions& options);

// Every date keyword and a custom range, calendar and accounting, with the statements that each one
// cost the first and the second time. date: the login date instead of the sample login's own;
// std::invalid_argument for a text that is none.
int RunDates(Console& console, const CommonOptions& options, const std::string& date);

// What the operator may do and see, and what the organization may use.
int RunRights(Console& console, const CommonOptions& options);

// Settings, captions, new ids, and which tables and columns there are.
int RunSettings(Console& console, const CommonOptions& options);

// Amounts, clauses and cell names; a long IN list cut into its groups.
int RunFormat(Console& console, const CommonOptions& options);

struct ListOptions {
  std::int32_t viewId = 101;
  int rows = 10;                   // how many to print at most
  std::vector<std::string> where;  // changed conditions, such as "金额 大于 100"
};

// Loads a view with the operator's saved list, prints its texts and rows; with changed conditions,
// saves them and shows that a second login reads them back. std::invalid_argument for a view or a
// condition that makes no sense.
int RunList(Console& console, const CommonOptions& options, const ListOptions& list);

enum class DialogUser { Auto, Asked, Scripted };

struct FilterOptions {
  std::int32_t viewId = 101;
  int rows = 10;  // how many to print at most
  DialogUser user = DialogUser::Auto;

  // Opens dialogs in windows on a connection; none where there are no windows.
  std::function<std::unique_ptr<ListDialogs>(const SessionConnectionPtr&)> openInWindows{};
};

// Opens the filter dialog on a view's saved list and shows what it returns and finds, then the
// multi-choose dialog. A scripted user answers, or whoever sits at the terminal, whose answers are
// read from in; Auto opens windows where there are any, and asks where asking makes sense
// (interactive). std::invalid_argument for a view that is none.
int RunFilter(Console& console, const CommonOptions& options, const FilterOptions& filter,
              std::istream& in, bool interactive);

// Writes the sample accounts to the target. What an earlier one wrote there is replaced when
// replace says so or, asked where somebody can answer (interactive), whoever sits there; 1 when
// they do not want it. std::invalid_argument where nobody can be asked, and without a target; what
// ServerAccounts throws.
int RunLoad(Console& console, const CommonOptions& options, bool replace, std::istream& in,
            bool interactive);

// The sample logins by name.
int RunAccounts(Console& console);

}  // namespace fetchkit::demo
