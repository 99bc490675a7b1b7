// Tables of test cases that are all texts.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "fetchkit/base/Utf8.h"

namespace fetchkit::test {

// The rows of a table: one per line, kCells cells between "¦", blanks kept.
template <std::size_t kCells>
std::vector<std::array<std::string, kCells>> Lines(std::string_view lines) {
  std::vector<std::array<std::string, kCells>> table;
  const Text all = FromUtf8(lines);
  for (const TextView line : Split(all, u"\n")) {
    if (line.empty()) continue;
    const auto cells = Split(line, u"¦");
    EXPECT_EQ(cells.size(), kCells) << ToUtf8(line);
    auto& row = table.emplace_back();
    for (std::size_t i = 0; i < std::min(cells.size(), kCells); ++i)
      row[i] = ToUtf8(cells[i]);
  }
  return table;
}

}  // namespace fetchkit::test
