// The demo's adapter: it answers or refuses, and changes no literal.
#include "demo/dialect/Dialect.h"

#include <stdexcept>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/TextSearch.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

class FixedCatalog : public demo::Catalog {
 public:
  std::vector<Text> ColumnsOf(TextView) override { return {u"id", u"x"}; }
  std::int64_t NextValue(TextView, TextView) override { return ++drawn; }

  int drawn = 0;
};

// The non-empty literals in their order; '' becomes NULL.
std::vector<Text> LiteralsOf(TextView sql) {
  std::vector<Text> literals;
  for (std::size_t at = sql.find(u'\''); at != Text::npos; at = sql.find(u'\'', at)) {
    std::size_t end = at + 1;
    while (end < sql.size() && (sql[end] != u'\'' || sql.substr(end, 2) == u"''"))
      end += sql[end] == u'\'' ? 2 : 1;
    end = std::min(end + 1, sql.size());
    if (end - at > 2) literals.emplace_back(sql.substr(at, end - at));
    at = end;
  }
  return literals;
}

}  // namespace

FUZZ_TARGET(Dialect) {
  static constexpr TextView kPieces[] = {u"SELECT ",
                                         u"*",
                                         u" FROM ",
                                         u"a",
                                         u", b",
                                         u" WHERE ",
                                         u"a.id",
                                         u" = ",
                                         u"b.id(+)",
                                         u"'p'",
                                         u"''",
                                         u" || ",
                                         u" AND ",
                                         u" OR ",
                                         u"(",
                                         u")",
                                         u" / 2",
                                         u"1.5",
                                         u" ORDER BY ",
                                         u" DESC",
                                         u"nvl(x, '')",
                                         u"decode(x,null,0,x)",
                                         u"UPDATE a SET ",
                                         u"INSERT INTO a (id) VALUES (",
                                         u"DELETE FROM a",
                                         u"Begin ",
                                         u"; ",
                                         u"End;",
                                         u"LIST_SEQ.NEXTVAL",
                                         u"ACC01.",
                                         u"\"x\"",
                                         u"/* */",
                                         u"--\n",
                                         u" LIKE ",
                                         u" UNION ",
                                         u"CASE WHEN ",
                                         u" THEN ",
                                         u" END",
                                         u" IN ",
                                         u"'it''s (+) --'",
                                         u",",
                                         u" IS NULL",
                                         u"!=",
                                         u"@"};
  const Text sql = in.Bool() ? Join(in.Pick<TextView>({u"SELECT * FROM a, b WHERE ", u"SELECT "}),
                                    in.Pieces(kPieces, 20))
                             : in.Pieces(kPieces, 24);
  FixedCatalog catalog;
  try {
    const demo::AdaptedStatement adapted = demo::Adapt(sql, catalog);
    EXPECT_FALSE(adapted.statements.empty());
    Text all;
    for (const Text& statement : adapted.statements) {
      EXPECT_NE(TrimBlanks(statement), u"");
      if (sql.find(u"it''s") == Text::npos) {
        EXPECT_EQ(statement.find(u"(+)"), Text::npos);
      }
      all.append(statement);
    }
    if (FindText(sql, u"/*") == Text::npos && FindText(sql, u"--\n") == Text::npos &&
        FindText(sql, u"(+)") == Text::npos) {
      EXPECT_EQ(LiteralsOf(all), LiteralsOf(sql)) << ToUtf8(sql) << "\n" << ToUtf8(all);
    }
  } catch (const Error& refused) {
    EXPECT_EQ(refused.kind(), ErrorKind::Host);
    EXPECT_NE(refused.description(), u"");
    EXPECT_EQ(catalog.drawn, 0) << "a number was drawn for " << ToUtf8(sql);
  }
}

}  // namespace fetchkit::test
