#include "hosts/dialect/Dialect.h"

#include <array>
#include <utility>

#include "hosts/dialect/OuterJoin.h"
#include "hosts/dialect/Tokenizer.h"
#include "hosts/dialect/Translation.h"

namespace fetchkit::hosts {
namespace {

const std::vector<TextView> kChanges = {u"INSERT", u"UPDATE", u"DELETE"};

// Refuses what the embedded database would read as something else, or complain about in terms of
// its own: as a name, most of these would give a misleading error or none.
void RefuseForeignWords(const Tokens& tokens) {
  constexpr std::array<TextView, 9> kForeign = {u"ROWNUM",  u"ROWID", u"CURRVAL",
                                                u"SYSDATE", u"MINUS", u"CONNECT",
                                                u"PRIOR",   u"LIMIT", u"RETURNING"};
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool qualified = i > 0 && IsSign(tokens[i - 1], u".");
    for (const TextView word : kForeign)
      if (IsWord(tokens[i], word) && (!qualified || word == u"CURRVAL"))
        Refuse(u"a word that it has no counterpart for", tokens[i]);
  }
}

// Expressions: '' and the operators that work otherwise. Brackets and CASE are worked on inside;
// what is no expression (keywords, lists of names) passes through.
class Expressions {
 public:
  static Tokens Adapt(const Tokens& tokens) { return Expressions(tokens).Run(); }

 private:
  explicit Expressions(const Tokens& tokens) : tokens_(tokens) {}

  Tokens Run() {
    Tokens written;
    while (at_ < tokens_.size()) {
      if (StartsSignedOperand(at_)) {
        Append(written, Sum());
      } else {
        written.push_back(tokens_[at_++]);
      }
    }
    return written;
  }

  // A keyword is no operand, so that the "-" behind SELECT or BY is a sign and not a difference.
  bool StartsOperand(std::size_t i) const {
    if (i >= tokens_.size()) return false;
    const Token& token = tokens_[i];
    return token.kind == TokenKind::String || token.kind == TokenKind::Number || IsName(token) ||
           IsWord(token, u"NULL") || IsWord(token, u"CASE") || IsSign(token, u"(");
  }

  bool StartsSignedOperand(std::size_t i) const {
    while (i < tokens_.size() && IsPlusMinus(tokens_[i]))
      ++i;
    return StartsOperand(i);
  }

  // Whether one of these operators stands here and an operand behind it.
  bool AtOperator(std::initializer_list<TextView> signs) const {
    if (at_ >= tokens_.size() || !StartsSignedOperand(at_ + 1)) return false;
    for (const TextView sign : signs)
      if (IsSign(tokens_[at_], sign)) return true;
    return false;
  }

  static bool IsPlusMinus(const Token& token) { return IsSign(token, u"+") || IsSign(token, u"-"); }

  // "||" stands on the level of + and - and not, as in the embedded database, above * and /.
  Tokens Sum() {
    std::vector<Tokens> joined;
    joined.push_back(Product());
    while (AtOperator({u"||", u"+", u"-"})) {
      const Token& sign = tokens_[at_++];
      if (IsSign(sign, u"||")) {
        joined.push_back(Product());
        continue;
      }
      Tokens sum = Concat(std::move(joined));
      sum.push_back(sign);
      Append(sum, Product());
      joined.clear();
      joined.push_back(std::move(sum));  // moved, or a long sum would be copied at every sign
    }
    return Concat(std::move(joined));
  }

  static Tokens Concat(std::vector<Tokens> operands) {
    if (operands.size() == 1) return std::move(operands[0]);
    const std::size_t position = operands[0][0].position;
    Tokens call = {{TokenKind::Word, u"concat", position, true}};
    for (const Tokens& operand : operands) {
      call.push_back({TokenKind::Sign, call.size() == 1 ? u"(" : u",", position, false});
      Append(call, operand);
    }
    call.push_back({TokenKind::Sign, u")", position, false});
    return call;
  }

  Tokens Product() {
    Tokens product = Signed();
    while (AtOperator({u"*", u"/"})) {
      const Token& sign = tokens_[at_++];
      if (IsSign(sign, u"/")) AppendSql(product, u"/ 1.0", sign.position);
      product.push_back(sign);
      Append(product, Signed());
    }
    return product;
  }

  Tokens Signed() {
    Tokens operand;
    while (IsPlusMinus(tokens_[at_]))
      operand.push_back(tokens_[at_++]);
    Append(operand, Operand());
    return operand;
  }

  Tokens Operand() {
    const Token& first = tokens_[at_];
    if (first.text == u"''") {
      ++at_;
      return {{TokenKind::Word, u"NULL", first.position, true}};
    }
    if (IsWord(first, u"CASE")) return Case();
    if (IsSign(first, u"(")) return Brackets();
    if (!IsName(first)) return {tokens_[at_++]};
    const std::size_t end = EndOfName(tokens_, at_);
    Tokens name = Slice(tokens_, at_, end);
    at_ = end;
    if (at_ < tokens_.size() && IsSign(tokens_[at_], u"(")) Append(name, Brackets());
    if (at_ < tokens_.size() && tokens_[at_].kind == TokenKind::OuterMark)
      name.push_back(tokens_[at_++]);
    return name;
  }

  Tokens Brackets() {
    const std::size_t close = ClosingBracket(tokens_, at_);
    Tokens written = {tokens_[at_]};
    Append(written, Adapt(Slice(tokens_, at_ + 1, close)));
    written.push_back(tokens_[close]);
    at_ = close + 1;
    return written;
  }

  Tokens Case() {
    std::size_t end = at_ + 1;
    for (int open = 1;; ++end) {
      if (IsWord(tokens_[end], u"CASE")) ++open;
      if (IsWord(tokens_[end], u"END") && --open == 0) break;
    }
    Tokens written = {tokens_[at_]};
    Append(written, Adapt(Slice(tokens_, at_ + 1, end)));
    written.push_back(tokens_[end]);
    at_ = end + 1;
    return written;
  }

  const Tokens& tokens_;
  std::size_t at_ = 0;
};

// Null comes last in ascending order and first in descending order.
Tokens OrderNulls(const Tokens& tokens) {
  struct Level {
    bool ordering = false;  // inside an ORDER BY at this depth of brackets
    bool descending = false;
    bool told = false;  // the term says itself where Null goes
  };
  std::vector<Level> levels(1);
  Tokens written;
  const auto endTerm = [&](std::size_t position) {
    Level& level = levels.back();
    if (level.ordering && !level.told)
      AppendSql(written, level.descending ? u"NULLS FIRST" : u"NULLS LAST", position);
    level.descending = level.told = false;
  };
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (IsSign(token, u"(")) levels.emplace_back();
    if (IsSign(token, u",")) endTerm(token.position);
    if (IsSign(token, u")")) {
      endTerm(token.position);
      levels.pop_back();
    }
    Level& level = levels.back();
    if (IsWord(token, u"BY")) level.ordering = i > 0 && IsWord(tokens[i - 1], u"ORDER");
    if (IsWord(token, u"DESC")) level.descending = true;
    if (IsWord(token, u"NULLS")) level.told = true;
    written.push_back(token);
  }
  if (!tokens.empty()) endTerm(tokens.back().position);
  return written;
}

// A number is put in for each sequence, drawn once per statement and sequence: that is right only
// where the statement makes exactly one row.
Tokens DrawSequences(const Tokens& tokens, Catalog& catalog) {
  const std::size_t select = FindWord(tokens, {u"SELECT"});
  const std::size_t from = FindWord(tokens, {u"FROM"}, select);
  const bool oneRow = select == tokens.size()
                          ? IsWord(tokens[0], u"INSERT")
                          : from + 2 == tokens.size() && IsWord(tokens[from + 1], u"DUAL");
  std::vector<std::pair<Text, std::int64_t>> drawn;
  Tokens written;
  for (std::size_t i = 0; i < tokens.size();) {
    if (!IsName(tokens[i])) {
      written.push_back(tokens[i++]);
      continue;
    }
    const std::size_t end = EndOfName(tokens, i);
    if (end - i < 3 || !IsWord(tokens[end - 1], u"NEXTVAL")) {
      Append(written, Slice(tokens, i, end));
      i = end;
      continue;
    }
    if (!oneRow)
      Refuse(u"NEXTVAL outside of SELECT ... FROM DUAL and INSERT ... VALUES", tokens[i]);
    const Text name = UpperAscii(NameOf(tokens[end - 3]));
    const Text schema = end - i > 3 ? NameOf(tokens[i]) : Text();
    const Text key = Join(UpperAscii(schema), u".", name);
    auto number = drawn.begin();
    while (number != drawn.end() && number->first != key)
      ++number;
    if (number == drawn.end())
      number = drawn.insert(drawn.end(), {key, catalog.NextValue(schema, name)});
    written.push_back({TokenKind::Number, Text(Piece(number->second).view()), tokens[i].position,
                       tokens[i].blankBefore});
    i = end;
  }
  return written;
}

Tokens AdaptTokens(const Tokens& tokens, Catalog& catalog, const Engine* engine) {
  RefuseForeignWords(tokens);
  const auto inWords = [&](const Tokens& adapted) {
    return engine == nullptr ? adapted : Translate(adapted, *engine);
  };
  const Tokens typed =
      catalog.ConfusesTypes()
          ? WithTypes(
                tokens,
                [&](TextView table) { return catalog.TypesOf(ToSql(inWords(Tokenize(table)))); },
                engine == nullptr ? TypedFor::Embedded : TypedFor::Server)
          : tokens;
  return inWords(RewriteOuterJoins(OrderNulls(Expressions::Adapt(typed)), [&](TextView item) {
    return catalog.ColumnsOf(ToSql(inWords(Tokenize(item))));
  }));
}

// The statements between "Begin" and "End;", each with its own ";".
std::vector<Tokens> StatementsOfBlock(const Tokens& tokens) {
  const std::size_t count = tokens.size();
  if (count < 3 || !IsSign(tokens[count - 1], u";") || !IsWord(tokens[count - 2], u"END"))
    Refuse(u"a block that does not end with End;", tokens.back());
  std::vector<Tokens> statements;
  Tokens statement;
  for (const Token& token : Slice(tokens, 1, count - 2)) {
    if (!IsSign(token, u";")) {
      statement.push_back(token);
      continue;
    }
    if (statement.empty()) Refuse(u"an empty statement in a block", token);
    if (!IsAnyWord(statement[0], kChanges))
      Refuse(u"what is not INSERT, UPDATE or DELETE in a block", statement[0]);
    statements.push_back(std::exchange(statement, {}));
  }
  if (!statement.empty()) Refuse(u"a statement without ; in a block", statement[0]);
  if (statements.empty()) Refuse(u"a block without a statement", tokens[0]);
  return statements;
}

}  // namespace

AdaptedStatement Adapt(TextView sql, Catalog& catalog, const Engine* engine) {
  const Tokens tokens = Tokenize(sql);
  if (tokens.empty()) Refuse(u"a statement without text", {TokenKind::Sign, Text(sql), 1, false});

  using Kind = AdaptedStatement::Kind;
  std::vector<Tokens> statements = {tokens};
  Kind kind = Kind::Query;
  if (IsWord(tokens[0], u"BEGIN")) {
    kind = Kind::Block;
    statements = StatementsOfBlock(tokens);
  } else if (IsAnyWord(tokens[0], kChanges)) {
    kind = Kind::Change;
  } else if (!IsAnyWord(tokens[0], {u"SELECT", u"WITH"})) {
    Refuse(u"a statement that is no SELECT, INSERT, UPDATE, DELETE or block", tokens[0]);
  }

  for (Tokens& statement : statements) {
    for (const Token& token : statement)
      if (IsSign(token, u";")) Refuse(u"a ; outside of a block", token);
    statement = AdaptTokens(statement, catalog, engine);
  }
  // Last, when nothing can be refused any more.
  AdaptedStatement adapted{kind, {}};
  for (const Tokens& statement : statements)
    adapted.statements.push_back(ToSql(DrawSequences(statement, catalog)));
  return adapted;
}

}  // namespace fetchkit::hosts
