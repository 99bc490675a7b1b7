// Tables of test cases that are all texts.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {

// The rows of a table: one per line, cells between "¦", blanks kept.
inline std::vector<std::vector<std::string>> Lines(std::string_view lines) {
  std::vector<std::vector<std::string>> table;
  const Text all = FromUtf8(lines);
  for (const TextView line : Split(all, u"\n")) {
    if (line.empty()) continue;
    auto& row = table.emplace_back();
    for (const TextView cell : Split(line, u"¦"))
      row.push_back(ToUtf8(cell));
  }
  return table;
}

// The same of kCells cells each.
template <std::size_t kCells>
std::vector<std::array<std::string, kCells>> Lines(std::string_view lines) {
  std::vector<std::array<std::string, kCells>> table;
  for (auto& row : Lines(lines)) {
    EXPECT_EQ(row.size(), kCells) << row.front();
    row.resize(kCells);
    std::move(row.begin(), row.end(), table.emplace_back().begin());
  }
  return table;
}

}  // namespace fetchkit::test
