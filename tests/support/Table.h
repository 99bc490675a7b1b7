// Tables of test cases.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <tuple>
#include <vector>

namespace fetchkit::test {

// Rows of a name, which says what would be wrong, and cells. A failure in a row names the row.
//
//   Table<TextView, int>{{"an empty text has no units", u"", 0}, {"a wide letter is one", u"部",
//   1}}
//       .Check([](TextView text, int expected) { EXPECT_EQ(Units(text), expected); });
template <class... Cells>
class Table {
 public:
  using Row = std::tuple<const char*, Cells...>;
  Table(std::initializer_list<Row> rows) : rows_(rows) {}

  template <class Case>
  void Check(Case&& check) const {
    for (const Row& row : rows_)
      std::apply(
          [&](const char* name, const Cells&... cells) {
            SCOPED_TRACE(name);
            check(cells...);
          },
          row);
  }

 private:
  std::vector<Row> rows_;
};

}  // namespace fetchkit::test
