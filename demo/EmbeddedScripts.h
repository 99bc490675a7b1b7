// The SQL scripts under demo/data, carried inside the program.
#pragma once

#include <string_view>
#include <vector>

namespace fetchkit::demo {

struct EmbeddedScript {
  std::string_view name;  // the file's name, such as "acc01.sql"
  std::string_view text;  // UTF-8
};

// In alphabetical order of the names.
const std::vector<EmbeddedScript>& EmbeddedScripts();

}  // namespace fetchkit::demo
