// FetchKitDemo.exe: a host on the sample accounts that uses FetchKit.dll as any other program does.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <exception>

#include "demo/commands/CommandLine.h"
#include "demo/console/Console.h"
#include "demo/console/Terminal.h"
#include "demo/windows/exe/WindowsCommands.h"

namespace {

using namespace fetchkit::demo;

constexpr const char* kDescription =
    "FetchKit's demo host for Windows: an embedded database with two sample accounts, and a host\n"
    "that logs in to them through FetchKit.dll beside it, which need not be registered. Without a\n"
    "subcommand it shows the login.";

constexpr const char* kFooter =
    "\nOutput is UTF-8. On a console it has colour and columns; elsewhere it is plain text, tabs\n"
    "between columns. Nothing is written to disk: the accounts are made anew in memory at every\n"
    "start.";

void PrintLine(std::FILE* out, const std::string& line) {
  Write(out, line + '\n');
}

int Run(int argc, char** argv) {
  CLI::App app(kDescription, "FetchKitDemo");
  app.footer(kFooter);
  app.fallthrough();

  CommonOptions common;
  ColourMode colour = ColourMode::Auto;
  AddCommonOptions(app, common, colour);

  app.require_subcommand(0, 1);
  CLI::App* accounts = app.add_subcommand("accounts", "List the sample logins");
  CLI::App* login = app.add_subcommand("login", "Log in and show the session's records");
  login->add_option("name", common.login, "The sample login, instead of --login");
  CLI::App* dates = app.add_subcommand("dates", "What every date keyword means and costs");
  CLI::App* rights = app.add_subcommand("rights", "What the operator may do and see");
  CLI::App* format =
      app.add_subcommand("format", "Amounts, clauses, a long IN list")->alias("clauses");
  ListOptions list;
  CLI::App* lists = app.add_subcommand("list", "A saved list: its conditions, texts and rows");
  CLI::App* filter =
      app.add_subcommand("filter", "Set a saved list's conditions in the library's dialogs");
  for (CLI::App* each : {lists, filter})
    AddListOptions(*each, list.viewId, list.rows);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& stop) {
    std::ostringstream out;
    std::ostringstream error;
    const int code = app.exit(stop, out, error);
    Write(stdout, out.str());
    Write(stderr, error.str());
    return code;
  }
  Console console(stdout, colour);
  if (accounts->parsed()) return RunAccounts(console);
  if (dates->parsed()) return ShowDates(console, common);
  if (rights->parsed()) return ShowRights(console, common);
  if (format->parsed()) return ShowFormats(console, common);
  if (lists->parsed()) return ShowList(console, common, list);
  if (filter->parsed()) return ShowFilter(console, common, list);
  return ShowLogin(console, common);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const std::exception& error) {
    PrintLine(stderr, fmt::format("FetchKitDemo: {}", error.what()));
    return 1;
  }
}
