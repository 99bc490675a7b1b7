// The grants that docs/statements.md gives to a database user.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace fetchkit::demo {

struct Grant {
  std::string privilege, kind, table;  // "SELECT", "" or "SEQUENCE ", "acc01.list"
};

// The statements of the document's block for an engine, for that user instead of the document's.
// They name the sample account ACC01.
inline std::vector<std::string> DocumentedGrants(std::string_view engine, const char* user) {
  std::ifstream in(FETCHKIT_SOURCE "/docs/statements.md");
  std::string all{std::istreambuf_iterator<char>(in), {}};
  all.erase(0, all.find("### " + std::string(engine)));
  all.erase(0, all.find("```sql\n") + 7);
  all = std::regex_replace(all.substr(0, all.find("```")), std::regex("-- .*\n"), "");
  all = std::regex_replace(all, std::regex(R"(\bfetchkit\b)"), user);
  std::vector<std::string> statements;
  std::istringstream lines(all);
  for (std::string each; std::getline(lines, each, ';');)
    if (each.find("GRANT") != std::string::npos) statements.push_back(each);
  return statements;
}

inline std::vector<std::string> Pieces(const std::string& list) {
  static const std::regex comma(R"(,\s*)");
  return {std::sregex_token_iterator(list.begin(), list.end(), comma, -1), {}};
}

// The same one by one.
inline std::vector<Grant> Single(const std::vector<std::string>& statements) {
  std::vector<Grant> grants;
  const std::regex form(R"(GRANT ([\w, ]+) ON (SCHEMA |SEQUENCE )?([\s\S]*?)\s+TO [\s\S]*)");
  for (const std::string& each : statements) {
    const std::string statement = each.substr(each.find("GRANT"));
    std::smatch parts;
    if (!std::regex_match(statement, parts, form)) {
      ADD_FAILURE() << statement;
      continue;
    }
    for (const std::string& table : Pieces(parts[3]))
      for (const std::string& privilege : Pieces(parts[1]))
        grants.push_back({privilege, parts[2], table});
  }
  return grants;
}

}  // namespace fetchkit::demo
