#include "demo/commands/CommandLine.h"

#include <map>
#include <string>

namespace fetchkit::demo {

void AddCommonOptions(CLI::App& app, CommonOptions& common, ColourMode& colour) {
  app.add_flag("--trace", common.trace, "Show every statement whole, with its answer");
  app.add_option("--login", common.login, "The sample login to begin with (see: accounts)")
      ->capture_default_str();
  app.add_option("--colour,--color", colour, "Colour and columns: auto, always or never")
      ->transform(
          CLI::CheckedTransformer(std::map<std::string, ColourMode>{{"auto", ColourMode::Auto},
                                                                    {"always", ColourMode::Always},
                                                                    {"never", ColourMode::Never}},
                                  CLI::ignore_case))
      ->option_text("WHEN [auto]");
}

void AddTargetOptions(CLI::App& app, OdbcTarget& target) {
  // On a command line everybody on the machine can read a password.
  app.add_option("--odbc", target.connectionString,
                 "Use the accounts of that database instead: \"DSN=...;...\" or \"Driver=...;...\"")
      ->envname("FETCHKIT_ODBC")
      ->option_text("STRING");
  std::map<std::string, SqlEngine> engines;
  for (const SqlEngine engine :
       {SqlEngine::Oracle, SqlEngine::PostgreSql, SqlEngine::MariaDb, SqlEngine::Sqlite})
    engines.emplace(hosts::NameOf(engine), engine);
  app.add_option("--engine", target.engine,
                 "What that database is: oracle, postgresql, mariadb or sqlite")
      ->envname("FETCHKIT_ENGINE")
      ->transform(CLI::CheckedTransformer(engines, CLI::ignore_case))
      ->option_text("NAME [oracle]");
}

void AddListOptions(CLI::App& subcommand, std::int32_t& viewId, int& rows) {
  subcommand.add_option("--view", viewId, "The view: 101 to 104")->capture_default_str();
  subcommand.add_option("--rows", rows, "Rows to print at most")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
}

}  // namespace fetchkit::demo
