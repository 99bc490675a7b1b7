#include "hosts/dialect/TypedStatement.h"

#include <utility>

namespace fetchkit::hosts::typing {
namespace {

const std::vector<TextView> kComparisons = {u"=", u"<>", u"!=", u"<", u"<=", u">", u">="};

}  // namespace

Node TypedStatement::Condition() {
  Node node = Either();
  if (!node.isCondition) Refuse(u"a value where a condition should be", node.tokens[0]);
  return node;
}

Node TypedStatement::Value() {
  Node node = Either();
  RequireValue(node);
  return node;
}

void TypedStatement::Require(const Node& node) const {
  if (!node.isCondition) Refuse(u"a value where a condition should be", node.tokens[0]);
}

Node TypedStatement::Either() {
  return Chain(u"OR", [this] { return Chain(u"AND", [this] { return Not(); }); });
}

Node TypedStatement::Not() {
  Tokens nots;
  while (At(u"NOT"))
    Take(nots);
  Node node = Predicate();
  if (nots.empty()) return node;
  Require(node);
  Append(nots, node.tokens);
  node.tokens = std::move(nots);
  return node;
}

Node TypedStatement::ConditionOf(Tokens tokens) {
  Node node;
  node.tokens = std::move(tokens);
  node.isCondition = true;
  return node;
}

Node TypedStatement::Predicate() {
  if (At(u"EXISTS")) {
    Tokens tokens;
    Take(tokens);
    Append(tokens, SelectInBrackets(Use::Rows).tokens);
    return ConditionOf(std::move(tokens));
  }
  Node left = Sum();
  if (AtEnd()) return left;
  for (const TextView sign : kComparisons)
    if (AtSign(sign)) return Comparison(std::move(left));
  if (At(u"IS")) return IsNull(std::move(left));
  const std::size_t negated = At(u"NOT") ? 1 : 0;
  if (Follows(negated, u"LIKE")) return Like(std::move(left), negated > 0);
  if (Follows(negated, u"BETWEEN")) return Between(std::move(left), negated > 0);
  if (Follows(negated, u"IN")) return In(std::move(left), negated > 0);
  return left;
}

Node TypedStatement::Comparison(Node left) {
  Tokens sign;
  Take(sign);
  Node right = Sum();
  if (sign[0].text == u"=" || sign[0].text == u"<>" || sign[0].text == u"!=")
    RequireDigits({&left, &right});
  Unify(left, right);
  Append(left.tokens, sign);
  Append(left.tokens, right.tokens);
  return ConditionOf(std::move(left.tokens));
}

void TypedStatement::RequireDigits(const std::vector<const Node*>& values) {
  for (const Node* value : values)
    if (value->reckonsOnQuotient)
      Refuse(u"whether what is reckoned with a quotient is equal", value->tokens[0]);
}

Node TypedStatement::IsNull(Node left) {
  left = Exact(std::move(left));
  Take(left.tokens);
  if (At(u"NOT")) Take(left.tokens);
  TakeWord(left.tokens, u"NULL");
  return ConditionOf(std::move(left.tokens));
}

Node TypedStatement::Like(Node left, bool negated) {
  left = AsText(std::move(left));
  if (negated) Take(left.tokens);
  Take(left.tokens);
  const Node pattern = AsText(Sum());
  Append(left.tokens, pattern.tokens);
  if (At(u"ESCAPE")) {
    if (!pattern.isLiteral) RefuseHere(u"ESCAPE behind a pattern that is no literal");
    Take(left.tokens);
    CheckEscapes(pattern.tokens[0]);
    Take(left.tokens);
  }
  return ConditionOf(std::move(left.tokens));
}

void TypedStatement::CheckEscapes(const Token& pattern) const {
  if (AtEnd() || tokens_[at_].kind != TokenKind::String || tokens_[at_].text.size() != 3)
    RefuseHere(u"an escape that is no literal of one character");
  const char16_t escape = tokens_[at_].text[1];
  const TextView text = TextView(pattern.text).substr(1, pattern.text.size() - 2);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != escape) continue;
    ++i;
    if (i == text.size() || (text[i] != escape && text[i] != u'%' && text[i] != u'_'))
      Refuse(u"an escape character in front of what needs none", pattern);
  }
}

Node TypedStatement::Between(Node left, bool negated) {
  Tokens word;
  if (negated) Take(word);
  Take(word);
  Node low = Sum();
  Tokens both;
  TakeWord(both, u"AND");
  Node high = Sum();
  RequireSameType({&low, &high}, left.type);
  Unify(left, low);
  Unify(left, high);
  Unify(left, low);
  Append(left.tokens, word);
  Append(left.tokens, low.tokens);
  Append(left.tokens, both);
  Append(left.tokens, high.tokens);
  return ConditionOf(std::move(left.tokens));
}

void TypedStatement::RequireSameType(const std::vector<const Node*>& values, ValueType left) {
  if (left == Number) return;
  ValueType first = Null;
  for (const Node* value : values) {
    if (value->type == Null) continue;
    if (first == Null) first = value->type;
    if (value->type != first) Refuse(u"numbers beside texts", value->tokens[0]);
  }
}

Node TypedStatement::In(Node left, bool negated) {
  Tokens word;
  if (negated) Take(word);
  Take(word);
  if (!AtSign(u"(")) RefuseHere(u"IN without a list in brackets");
  Node list;
  if (at_ + 1 < end_ && IsAnyWord(tokens_[at_ + 1], {u"SELECT", u"WITH"})) {
    Selected rows = SelectInBrackets(Use::Rows);
    if (rows.columns.size() != 1) Refuse(u"IN with a SELECT of several columns", rows.tokens[0]);
    list.tokens = std::move(rows.tokens);
    left = Exact(std::move(left));
    const ValueType type = rows.columns[0].type;
    if (left.type != type && left.type != Null && type != Null) {
      if (type != Number) Refuse(u"IN with a SELECT of another type", list.tokens[0]);
      left = AsNumber(std::move(left));
    }
  } else {
    Take(list.tokens);
    std::vector<Node> values;
    Tokens commas;
    for (bool more = true; more;) {
      values.push_back(Sum());
      RequireValue(values.back());
      more = AtSign(u",");
      if (more) Take(commas);
    }
    std::vector<const Node*> all;
    for (const Node& value : values)
      all.push_back(&value);
    RequireSameType(all, left.type);
    all.push_back(&left);
    RequireDigits(all);
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (i > 0) list.tokens.push_back(commas[i - 1]);
      Unify(left, values[i]);
      Append(list.tokens, values[i].tokens);
    }
    TakeSign(list.tokens, u")");
  }
  Append(left.tokens, word);
  Append(left.tokens, list.tokens);
  return ConditionOf(std::move(left.tokens));
}

}  // namespace fetchkit::hosts::typing
