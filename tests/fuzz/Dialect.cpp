// The adapter: it answers or refuses, and changes no literal.
#include "hosts/dialect/Dialect.h"

#include "fetchkit/base/Error.h"
#include "fuzz/Fuzz.h"

namespace fetchkit::test {
namespace {

class FixedCatalog : public hosts::Catalog {
 public:
  std::vector<Text> ColumnsOf(TextView) override { return {u"id", u"x"}; }
  bool ConfusesTypes() const override { return typed; }
  std::vector<hosts::TypedColumn> TypesOf(TextView) override {
    return {{u"id", hosts::ValueType::Number}, {u"x", hosts::ValueType::Text}};
  }
  std::int64_t NextValue(TextView, TextView) override { return ++drawn; }

  bool typed = false;
  int drawn = 0;
};

// What stands between apostrophes, in its order; '' becomes NULL.
std::vector<TextView> LiteralsOf(TextView sql) {
  std::vector<TextView> literals;
  const auto pieces = Split(sql, u"'");
  for (std::size_t i = 1; i < pieces.size(); i += 2)
    if (!pieces[i].empty()) literals.push_back(pieces[i]);
  return literals;
}

}  // namespace

FUZZ_TARGET(Dialect) {
  static const auto kPieces = Split(
      u"SELECT ¦*¦ FROM ¦a¦, b¦ WHERE ¦a.id¦ = ¦b.id(+)¦'p'¦''¦ || ¦ AND ¦ OR ¦(¦)¦ / 2¦1.5¦"
      u" ORDER BY ¦ DESC¦nvl(x, '')¦decode(x,null,0,x)¦UPDATE a SET ¦INSERT INTO a (id) VALUES (¦"
      u"DELETE FROM a¦Begin ¦; ¦End;¦LIST_SEQ.NEXTVAL¦ACC01.¦\"x\"¦/* */¦--\n¦ LIKE ¦ UNION ¦"
      u"CASE WHEN ¦ THEN ¦ END¦ IN ¦'it''s (+) --'¦,¦ IS NULL¦!=¦@",
      u"¦");
  const Text sql = in.Bool() ? Join(in.Pick<TextView>({u"SELECT * FROM a, b WHERE ", u"SELECT "}),
                                    in.Pieces(kPieces, 20))
                             : in.Pieces(kPieces, 24);
  for (const bool typed : {false, true}) {
    FixedCatalog catalog;
    catalog.typed = typed;
    try {
      const hosts::AdaptedStatement adapted = hosts::Adapt(sql, catalog);
      EXPECT_FALSE(adapted.statements.empty());
      const auto given = [&](TextView piece) { return sql.find(piece) != Text::npos; };
      Text all;
      for (const Text& statement : adapted.statements) {
        EXPECT_NE(TrimBlanks(statement), u"");
        EXPECT_TRUE(given(u"it''s") || statement.find(u"(+)") == Text::npos) << ToUtf8(statement);
        all.append(statement);
      }
      // With types, a column that is converted is named after its text, literals included.
      if (!typed && !given(u"/*") && !given(u"--\n") && !given(u"(+)")) {
        EXPECT_EQ(LiteralsOf(all), LiteralsOf(sql)) << ToUtf8(sql) << "\n" << ToUtf8(all);
      }
    } catch (const Error& refused) {
      EXPECT_EQ(refused.kind(), ErrorKind::Host);
      EXPECT_NE(refused.description(), u"");
      EXPECT_EQ(catalog.drawn, 0) << "a number was drawn for " << ToUtf8(sql);
    }
  }
}

}  // namespace fetchkit::test
