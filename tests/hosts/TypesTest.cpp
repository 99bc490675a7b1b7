// Statements that a user could type: each is answered as the dialect is documented, or refused.
#include <gtest/gtest.h>

#include "hosts/DialectStatements.h"
#include "hosts/SmallAccount.h"

namespace fetchkit::hosts::test {
namespace {

class TypesTest : public ::testing::Test {
 protected:
  void ExpectAnswers(const std::vector<DialectStatement>& statements) {
    for (const auto& [sql, answer] : statements) {
      const DialectStatement statement{sql, answer};
      const std::string given = statement.IsQuery() ? account.Rows(sql) : account.Execute(sql);
      const bool answered = account.reports.back().answered;
      if (answer.starts_with("refused")) {
        EXPECT_FALSE(answered) << sql << " is answered with " << given;
      } else {
        EXPECT_TRUE(answered) << sql << ": " << given;
        EXPECT_EQ(given, answer) << sql;
      }
    }
  }

  SmallAccount account{kDialectTables};
};

TEST_F(TypesTest, Expressions) {
  ExpectAnswers(Expressions());
}

TEST_F(TypesTest, Conditions) {
  ExpectAnswers(Conditions());
}

TEST_F(TypesTest, WholeStatements) {
  ExpectAnswers(WholeStatements());
}

TEST_F(TypesTest, Comparisons) {
  ExpectAnswers(Comparisons());
}

}  // namespace
}  // namespace fetchkit::hosts::test
