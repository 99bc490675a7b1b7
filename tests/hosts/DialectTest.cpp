// What the library's dialect means, shown by the rows that come out of the embedded database.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/SmallAccount.h"
#include "support/Lines.h"

namespace fetchkit::hosts::test {
namespace {

using fetchkit::test::Lines;

constexpr const char* kTables = R"(
  CREATE TABLE a (id INTEGER, x TEXT);
  INSERT INTO a VALUES (1, 'p'), (2, NULL), (3, 'q');
  CREATE TABLE b (bid INTEGER, aid INTEGER, t TEXT);
  INSERT INTO b VALUES (10, 1, 'u'), (11, 1, 'v'), (12, 3, 'v');
  CREATE TABLE c (cid INTEGER, bid INTEGER, id INTEGER);
  INSERT INTO c VALUES (100, 11, 1), (101, 12, 3);
  CREATE TABLE "Right" (lngRightID INTEGER);
  INSERT INTO "Right" VALUES (1), (2), (3);
)";

class DialectTest : public ::testing::Test {
 protected:
  // Each line: what would be wrong, a statement, and its rows or, behind the words in front, why it
  // is refused.
  void ExpectRows(std::string_view lines, const std::string& inFront = "") {
    for (const auto& [name, sql, rows] : Lines<3>(lines))
      EXPECT_EQ(account.Rows(sql), inFront + rows) << name;
  }

  SmallAccount account{kTables};
};

TEST_F(DialectTest, EmptyTextNullAndExpressions) {
  ExpectRows(
#include "hosts/statements/EmptyTextNullAndExpressions.txt"
  );
  EXPECT_EQ(account.Rows("SELECT /* ; */ id -- (+)\n FROM a WHERE id = 1"), "1") << "comments";
}

TEST_F(DialectTest, OuterJoins) {
  ExpectRows(
#include "hosts/statements/OuterJoins.txt"
  );
}

TEST_F(DialectTest, RefusalsNameWhatAndWhere) {
  ExpectRows(
#include "hosts/statements/RefusalsNameWhatAndWhere.txt"
      , "The adapter refuses ");
  ExpectRows(
#include "hosts/statements/RefusedByTheDatabase.txt"
  );
}

TEST_F(DialectTest, DeepAndLongStatements) {
  EXPECT_EQ(account.Rows("SELECT " + std::string(5000, '(') + std::string(5000, ')')).substr(0, 47),
            "The adapter refuses brackets nested too deep: (");
  std::string ids = "1";
  for (int i = 5; i < 20000; ++i)
    ids += "," + std::to_string(i);
  EXPECT_EQ(account.Rows("SELECT id FROM a WHERE id IN (" + ids + ")"), "1");
}

TEST_F(DialectTest, Sequences) {
  ExpectRows(
#include "hosts/statements/Sequences.txt"
  );
  EXPECT_EQ(account.Execute("INSERT INTO a (id, x) VALUES (LIST_SEQ.NEXTVAL, '')"), "1");
  EXPECT_EQ(account.Rows("SELECT id, x FROM a WHERE id > 3"), "45|~");
}

TEST_F(DialectTest, BlocksAreDoneWhollyOrNotAtAll) {
  EXPECT_EQ(account.Execute("Begin \n Delete  FROM a WHERE id = 1;\nInsert into a (id,x) "
                            "Values (7,'a;b');\nUpdate a Set x='' WHERE id > 2;\nEnd;"),
            "4");
  const std::string rows = "2|~;3|~;7|~";
  EXPECT_EQ(account.Rows("SELECT * FROM a ORDER BY id"), rows);

  for (const auto& [block, error] : Lines<2>(
#include "hosts/statements/RefusedBlocks.txt"
           )) {
    EXPECT_THAT(account.Execute(block), testing::HasSubstr(error));
    EXPECT_EQ(account.Rows("SELECT * FROM a ORDER BY id"), rows) << block;
  }
}

}  // namespace
}  // namespace fetchkit::hosts::test
