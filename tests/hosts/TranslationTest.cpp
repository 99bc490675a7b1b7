// Statements of the library's dialect in other engines' words.
#include <gtest/gtest.h>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/dialect/Dialect.h"
#include "support/Lines.h"

namespace fetchkit::hosts::test {
namespace {

using fetchkit::test::Lines;

class NoCatalog : public Catalog {
 public:
  std::vector<Text> ColumnsOf(TextView) override { return {u"id"}; }
  std::int64_t NextValue(TextView, TextView) override { return 7; }
};

std::string Translated(const std::string& sql, SqlEngine engine) {
  NoCatalog catalog;
  try {
    std::string all;
    for (const Text& statement : Adapt(FromUtf8(sql), catalog, &EngineOf(engine)).statements)
      all += (all.empty() ? "" : "; ") + ToUtf8(statement);
    return all;
  } catch (const Error& error) {
    return ToUtf8(error.description());
  }
}

// Each line: what would be wrong, the statement, and its words for the engine or why it is refused.
void ExpectTranslated(std::string_view lines, SqlEngine engine) {
  for (const auto& [name, sql, words] : Lines<3>(lines))
    EXPECT_EQ(Translated(sql, engine), words) << name;
}

TEST(Translation, PostgreSql) {
  ExpectTranslated(
#include "hosts/statements/PostgreSql.txt"
      , SqlEngine::PostgreSql);
}

TEST(Translation, MariaDb) {
  ExpectTranslated(
#include "hosts/statements/MariaDb.txt"
      , SqlEngine::MariaDb);
}

TEST(Translation, Sqlite) {
  ExpectTranslated(
#include "hosts/statements/Sqlite.txt"
      , SqlEngine::Sqlite);
}

TEST(Translation, WhatMultipliesIsRefusedBeforeItFillsTheMemory) {
  std::string deep = "x";
  for (int i = 0; i < 20; ++i)
    deep = "decode(" + deep + ",1,2,3,4,5,6,7,8)";
  EXPECT_NE(Translated("SELECT " + deep + " FROM a", SqlEngine::PostgreSql).find("too long"),
            std::string::npos);
}

}  // namespace
}  // namespace fetchkit::hosts::test
