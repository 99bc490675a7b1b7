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

void AddListOptions(CLI::App& subcommand, std::int32_t& viewId, int& rows) {
  subcommand.add_option("--view", viewId, "The view: 101 to 104")->capture_default_str();
  subcommand.add_option("--rows", rows, "Rows to print at most")
      ->check(CLI::NonNegativeNumber)
      ->capture_default_str();
}

}  // namespace fetchkit::demo
