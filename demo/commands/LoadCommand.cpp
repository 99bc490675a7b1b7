#include <fmt/format.h>

#include <iostream>
#include <stdexcept>
#include <string>

#include "demo/commands/Commands.h"
#include "demo/servers/ServerAccounts.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/odbc/Secrets.h"

namespace fetchkit::demo {

namespace {

int Load(Console& console, const CommonOptions& options, bool replace, std::istream& in,
         bool interactive) {
  ServerAccounts accounts(options.target);
  if (!accounts.made().empty() && accounts.foreign().empty() && !replace) {
    const std::string question = fmt::format(
        "The sample accounts are there already ({} tables, views and sequences, such as "
        "{}); what was changed in them is lost. Replace them?",
        accounts.made().size(), accounts.made().front());
    if (!interactive) throw std::invalid_argument("load: " + question + " Then say --replace.");
    console.Line(question + " (y/n)");
    std::string answer;
    std::getline(in, answer);
    if (answer != "y" && answer != "Y" && answer != "yes") {
      console.Line("Nothing was changed.");
      return 1;
    }
  }
  const ServerAccounts::Written written = accounts.Load();
  console.Line(fmt::format("{} tables with {} rows in the schemas system, acc01 and acc02.",
                           written.tables, written.rows));
  console.Note("The other subcommands read them with the same --odbc and --engine.");
  return 0;
}

}  // namespace

int RunLoad(Console& console, const CommonOptions& options, bool replace, std::istream& in,
            bool interactive) {
  const std::string& connectionString = options.target.connectionString;
  if (connectionString.empty())
    throw std::invalid_argument("load: where to? --odbc \"DSN=...;...\" --engine NAME");
  try {
    return Load(console, options, replace, in, interactive);
  } catch (const Error& error) {
    throw Error(error.kind(), odbc::Secrets(FromUtf8(connectionString)).Hide(error.description()));
  }
}

}  // namespace fetchkit::demo
