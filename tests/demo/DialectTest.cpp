// What the library's dialect means, shown by the rows that come out of the embedded database.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "demo/SmallAccount.h"
#include "support/Lines.h"

namespace fetchkit::demo::test {
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
  ExpectRows(R"(
'' equals nothing¦SELECT id FROM a WHERE '' = ''¦
'' is Null¦SELECT id FROM a WHERE nvl(x,'') Is Null¦2
a quote inside a text¦SELECT 'it''s', '''' FROM DUAL¦it's|'
a text of blanks is none¦SELECT id FROM a WHERE LTRIM(Rtrim('  ')) Is Null¦1;2;3
trim with a set¦SELECT trim('xaxx','x'), ltrim('  a '), rtrim('部门  ') FROM DUAL¦a|a |部门
Null matches Null in decode¦SELECT decode(x, null, 'none', 'p', 1, 9) FROM a¦1;none;9
decode without a match or rest¦SELECT decode(5, 4, 1), decode('5', 5, 1) FROM DUAL¦~|1
substr and replace down to nothing¦SELECT substr('abc',0,2), substr('abc',-1), substr('abc',4), replace('aa','a'), replace('aba','a','c') FROM DUAL¦ab|c|~|~|cbc
Null in a chain is empty¦SELECT x || '-' || id || '' FROM a¦p-1;-2;q-3
nothing but Null stays Null¦SELECT x || '' FROM a WHERE id = 2¦~
|| binds like +¦SELECT 1 + 2 || 'x', 'x' || 2 * 3, -1 || 'x' FROM DUAL¦3x|x6|-1x
|| beside LIKE¦SELECT id FROM a WHERE 'p-1' LIKE x || '-%'¦1
|| in brackets, CASE and a SELECT inside¦SELECT (SELECT min(x || 'z') FROM a), CASE WHEN id = 1 THEN x || 1 END FROM a WHERE id < 3¦pz|p1;pz|~
no needless .0¦SELECT 'n' || 2.0 || '/' || 2.5 FROM DUAL¦n2/2.5
a quotient keeps its fraction¦SELECT 7 / 2, 8/2/2 FROM DUAL¦3.5|2
LIKE regards letter case¦SELECT id FROM a WHERE x LIKE 'P%' OR x LIKE 'q%'¦3
Null last¦SELECT id FROM a ORDER BY x¦1;3;2
Null first when descending¦SELECT id FROM a ORDER BY x Desc, id¦2;3;1
each ORDER BY its own order¦SELECT id FROM (SELECT * FROM a ORDER BY x) ORDER BY decode(id, 2, null, 1), -id¦3;1;2
an order that says itself¦SELECT id FROM a ORDER BY x NULLS FIRST¦2;1;3
own table before the server's¦SELECT strAccountName FROM System.GaBaseInfo WHERE Upper(strUserName) = 'ACC01'¦集团账套
the user's schema¦SELECT ACC01.a.id, Right.lngRightID r FROM ACC01.a, Right WHERE a.id = Right.lngRightID AND a.id < 2¦1|1)");
  EXPECT_EQ(account.Rows("SELECT /* ; */ id -- (+)\n FROM a WHERE id = 1"), "1") << "comments";
}

TEST_F(DialectTest, OuterJoins) {
  ExpectRows(R"(
a marked constant must not filter¦SELECT id, bid FROM a, b WHERE id = b.aid ( + ) And 'u' = b.t(+) ORDER BY id¦1|10;2|~;3|~
an unmarked predicate must filter¦SELECT id, bid FROM a, b WHERE a.id = b.aid(+) AND b.t = 'v' ORDER BY id¦1|11;3|12
columns keep the order of FROM¦SELECT * FROM c, b, a WHERE a.id = b.aid(+) AND b.bid = c.bid(+) ORDER BY a.id, b.bid¦~|~|~|10|1|u|1|p;100|11|1|11|1|v|1|p;~|~|~|~|~|~|2|~;101|12|3|12|3|v|3|q
DISTINCT and a star among others¦SELECT DISTINCT *, 5 FROM b y, a WHERE a.id = y.aid(+) AND a.id = 2¦~|~|~|2|~|5
columns without their table¦SELECT cid FROM c, a WHERE x = 'p' AND cid(+) > a.id * 100 AND a.id = c.id(+)¦~
columns of a SELECT in brackets¦SELECT a.id, k FROM a, (SELECT aid n, max(bid) k FROM b GROUP BY aid) WHERE n(+) = a.id ORDER BY a.id¦1|11;2|~;3|12
BETWEEN stays whole¦SELECT id, bid FROM a, b WHERE b.bid(+) BETWEEN 11 AND 12 AND a.id = b.aid(+) ORDER BY id¦1|11;2|~;3|12
CASE stays whole¦SELECT id, bid FROM a, b WHERE b.aid(+) = CASE WHEN id = 2 AND x IS NULL THEN 3 ELSE 0 END ORDER BY id¦1|~;2|12;3|~
the mark inside a function¦SELECT id, bid FROM a, b WHERE nvl(b.aid(+),0) = a.id AND b.t(+) || '' = 'v' ORDER BY id¦1|11;2|~;3|12
brackets round several predicates¦SELECT id, bid FROM a, b WHERE ((a.id = b.aid(+)) AND b.t(+) = 'u') AND (a.id = 1 OR a.id = 2) ORDER BY id¦1|10;2|~
one SELECT inside another, both marked¦SELECT r.lngRightID, v.bid, v.cid FROM Right r, (SELECT b.*, cid FROM b, c WHERE b.bid = c.bid(+)) v WHERE r.lngRightID = v.aid(+) ORDER BY 1, 2¦1|10|~;1|11|100;2|~|~;3|12|101
both halves of a UNION¦SELECT a.id, bid FROM b, a WHERE aid(+) = id AND id = 2 UNION SELECT cid, x FROM a, c WHERE cid = a.id(+) ORDER BY 1¦2|~;100|~;101|~
a mark that refers to the SELECT around it¦SELECT id FROM a WHERE EXISTS (SELECT 1 FROM b, c WHERE b.bid = c.bid(+) AND c.id(+) = a.id AND b.aid = a.id AND c.cid Is Null)¦1
an inner table that two tables lead to¦SELECT a.id, b.bid, c.cid FROM a, c, b WHERE c.id(+) = b.aid AND c.bid(+) > a.id AND a.id = b.aid ORDER BY 2¦1|10|100;1|11|100;3|12|101)");
}

TEST_F(DialectTest, RefusalsNameWhatAndWhere) {
  ExpectRows(R"(
what does not end¦SELECT 1 /* x¦a comment that does not end: /* x, at position 10.
what is not closed¦SELECT (1 FROM DUAL¦what is not closed: (, at position 8.
a foreign character¦SELECT :x FROM DUAL¦a character that has no meaning in a statement: :x FROM DUAL, at position 8.
a foreign word¦SELECT id FROM a START WITH id = 1 CONNECT BY PRIOR id = id¦a word that it has no counterpart for: CONNECT, at position 36.
OR in brackets¦SELECT 1 FROM a, b WHERE id = 1 AND (a.id = b.aid(+) OR b.t = 'u')¦OR with (+): OR, at position 54.
two marks¦SELECT 1 FROM a, b WHERE a.id(+) = b.aid(+)¦two tables marked (+) in one predicate: b, at position 36.
a circle¦SELECT 1 FROM a, b WHERE a.id(+) = b.aid AND a.id = b.bid(+)¦tables that are outer joined to each other: b, at position 18.
a mark that joins nothing¦SELECT 1 FROM a, b WHERE a.id = 1 AND b.t(+) = 'u'¦(+) on a table that no predicate joins to another one: b, at position 18.
whose column¦SELECT 1 FROM a, c WHERE a.x = id(+)¦a column that two tables of this FROM have: id, at position 32.
a mark elsewhere¦DELETE FROM a WHERE id(+) = 1¦(+) outside of the WHERE of a SELECT: (+), at position 23.
a number per row¦SELECT LIST_SEQ.NEXTVAL FROM a¦NEXTVAL outside of SELECT ... FROM DUAL and INSERT ... VALUES: LIST_SEQ, at position 8.)",
             "The demo database's adapter refuses ");
  ExpectRows(R"(
unknown schema¦SELECT 1 FROM NOPE.a WHERE 1=0¦no such table: NOPE.a
double quotes hold names only¦SELECT "p" FROM a¦no such column: p
an unknown table in a FROM that is asked for its columns¦SELECT 1 FROM a, nope WHERE x = y(+)¦no such table: nope
a change cannot be opened¦DELETE FROM a¦A statement that gives no rows cannot be opened.)");
}

TEST_F(DialectTest, DeepAndLongStatements) {
  EXPECT_EQ(account.Rows("SELECT " + std::string(5000, '(') + std::string(5000, ')')).substr(0, 63),
            "The demo database's adapter refuses brackets nested too deep: (");
  std::string ids = "1";
  for (int i = 5; i < 20000; ++i)
    ids += "," + std::to_string(i);
  EXPECT_EQ(account.Rows("SELECT id FROM a WHERE id IN (" + ids + ")"), "1");
}

TEST_F(DialectTest, Sequences) {
  ExpectRows(R"(
numbers go on¦SELECT List_SEQ.NEXTVAL As lngId FROM DUAL¦42
one number per statement¦SELECT list_seq.nextval, ACC01.LIST_SEQ.NEXTVAL * 10, LIST_SEQ.NEXTVAL FROM DUAL¦43|440|43
beyond 32 bits¦SELECT BIG_SEQ.NEXTVAL FROM DUAL¦2147483648
a refused statement draws nothing¦SELECT LIST_SEQ.NEXTVAL, ROWNUM FROM DUAL¦The demo database's adapter refuses a word that it has no counterpart for: ROWNUM, at position 26.
unknown¦SELECT Nope_SEQ.NEXTVAL As lngId FROM DUAL¦There is no sequence NOPE_SEQ.)");
  EXPECT_EQ(account.Execute("INSERT INTO a (id, x) VALUES (LIST_SEQ.NEXTVAL, '')"), "1");
  EXPECT_EQ(account.Rows("SELECT id, x FROM a WHERE id > 3"), "45|~");
}

TEST_F(DialectTest, BlocksAreDoneWhollyOrNotAtAll) {
  EXPECT_EQ(account.Execute("Begin \n Delete  FROM a WHERE id = 1;\nInsert into a (id,x) "
                            "Values (7,'a;b');\nUpdate a Set x='' WHERE id > 2;\nEnd;"),
            "4");
  const std::string rows = "2|~;3|~;7|~";
  EXPECT_EQ(account.Rows("SELECT * FROM a ORDER BY id"), rows);

  for (const auto& [block, error] : Lines<2>(R"(
Begin DELETE FROM a; INSERT INTO a (nope) VALUES (1); End;¦no column named nope
Begin DELETE FROM a; COMMIT; End;¦what is not INSERT, UPDATE or DELETE in a block
Begin DELETE FROM a; End¦a block that does not end with End;
Begin DELETE FROM a End;¦a statement without ; in a block
Begin DELETE FROM a;; End;¦an empty statement in a block
Begin End;¦a block without a statement
DELETE FROM a; DELETE FROM b¦a ; outside of a block)")) {
    EXPECT_THAT(account.Execute(block), testing::HasSubstr(error));
    EXPECT_EQ(account.Rows("SELECT * FROM a ORDER BY id"), rows) << block;
  }
}

}  // namespace
}  // namespace fetchkit::demo::test
