// The demo host's command line.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <sstream>

#include "demo/SampleAccounts.h"
#include "demo/commands/CommandLine.h"
#include "demo/commands/Commands.h"
#include "demo/console/Console.h"
#include "demo/console/Terminal.h"
#ifdef FETCHKIT_DEMO_WINDOWS
#include "demo/windows/Library.h"
#endif

namespace {

using namespace fetchkit::demo;

constexpr const char* kDescription =
    "FetchKit's demo host: an embedded database with two sample accounts, and a host that logs in\n"
    "to them through the library. Without a subcommand it shows the login.";

constexpr const char* kFooter =
    "\nEvery statement that the library sends is listed; --trace shows it whole with its answer.\n"
    "On a terminal the output has colour and columns; elsewhere it is plain text, tabs between\n"
    "columns. Without --odbc nothing is written to disk: the accounts are made anew in memory at\n"
    "every start. What stands behind --odbc and --engine can be given in the variables\n"
    "FETCHKIT_ODBC, where no other user of the machine sees its password, and FETCHKIT_ENGINE.";

// Who answers the dialogs when nobody says it.
#ifdef FETCHKIT_DEMO_WINDOWS
constexpr const char* kAskHelp =
    "Ask in the console, instead of opening windows of FetchKit.dll, for every choice. f and a "
    "text\n"
    "searches columns and codes, by Pinyin initials, too; q cancels at any question";
constexpr const char* kScriptHelp = "Let a scripted user choose, in the console";
#else
constexpr const char* kAskHelp =
    "Ask for every choice (the default on a terminal). f and a text searches\n"
    "columns and codes, by Pinyin initials, too; q cancels at any question";
constexpr const char* kScriptHelp = "Let the scripted user choose (the default elsewhere)";
#endif

int Run(std::vector<std::string> arguments) {
  CLI::App app(kDescription, kProgram);
  app.footer(kFooter);
  app.fallthrough();

  CommonOptions common;
  ColourMode colour = ColourMode::Auto;
  AddCommonOptions(app, common, colour);
  AddTargetOptions(app, common.target);

  app.require_subcommand(0, 1);
  CLI::App* accounts = app.add_subcommand("accounts", "List the sample logins");
  app.add_subcommand("login", "Log in, then again with one thing changed at a time (the default)");
  std::string date;
  CLI::App* dates = app.add_subcommand("dates", "What every date keyword means and costs");
  dates->add_option("date", date, "Login date, such as 2004-03-17; the sample login's if left out");
  CLI::App* rights = app.add_subcommand("rights", "What the operator may do and see");
  CLI::App* settings = app.add_subcommand("settings", "Settings, captions, new ids");
  CLI::App* format = app.add_subcommand("format", "Amounts, clauses, a long IN list");
  ListOptions list;
  CLI::App* lists = app.add_subcommand("list", "A saved list: its conditions, texts and rows");
  AddListOptions(*lists, list.viewId, list.rows);
  lists
      ->add_option(
          "--where", list.where,
          "Change a condition, save, and read back, in the words of the filter dialog:\n"
          "\"金额 大于 100\", \"凭证日期 本月\", codes with commas between; \"金额 任意\"\n"
          "removes it. May be given more than once.")
      ->allow_extra_args(false);
  FilterOptions filter;
  CLI::App* filters =
      app.add_subcommand("filter", "The filter dialog: a scripted user, or you, set conditions");
  AddListOptions(*filters, filter.viewId, filter.rows);
  bool ask = false;
  bool script = false;
  CLI::Option* asked = filters->add_flag("--ask", ask, kAskHelp);
  filters->add_flag("--script", script, kScriptHelp)->excludes(asked);

#ifdef FETCHKIT_DEMO_ODBC
  CLI::App* load =
      app.add_subcommand("load", "Write the sample accounts to the database of --odbc");
  bool replace = false;
  load->add_flag("--replace", replace, "Replace what an earlier load wrote there, without asking");
#endif

  try {
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& stop) {
    std::ostringstream out;
    std::ostringstream error;
    const int code = app.exit(stop, out, error);
    Write(stdout, out.str());
    Write(stderr, error.str());
    return code;
  }
  const bool interactive = IsTerminal(stdin) && IsTerminal(stdout);
  Console console(stdout, colour);
  if (accounts->parsed()) return RunAccounts(console);
#ifdef FETCHKIT_DEMO_ODBC
  if (load->parsed()) return RunLoad(console, common, replace, Input(), interactive);
#endif
  if (dates->parsed()) return RunDates(console, common, date);
  if (rights->parsed()) return RunRights(console, common);
  if (settings->parsed()) return RunSettings(console, common);
  if (format->parsed()) return RunFormat(console, common);
  if (lists->parsed()) return RunList(console, common, list);
  if (filters->parsed()) {
    if (ask || script) filter.user = ask ? DialogUser::Asked : DialogUser::Scripted;
#ifdef FETCHKIT_DEMO_WINDOWS
    filter.openInWindows = OpenInWindows;
#endif
    return RunFilter(console, common, filter, Input(), interactive);
  }
  return RunLogin(console, common);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(Arguments(argc, argv));
  } catch (const std::exception& error) {
    Write(stderr, fmt::format("demo: {}\n", error.what()));
    return 1;
  }
}
