#include "hosts/dialect/TypedStatement.h"

#include <algorithm>
#include <array>
#include <utility>

#include "hosts/dialect/NumberTexts.h"

namespace fetchkit::hosts::typing {
namespace {

using enum ValueType;

// Each is written inside the next.
constexpr std::size_t kMostDivisions = 50;

// One letter per argument: t text, n number.
struct Function {
  TextView name;
  std::size_t least;
  TextView arguments;
  ValueType result;
};

constexpr std::array<Function, 18> kFunctions = {{{u"UPPER", 1, u"t", Text},
                                                  {u"LOWER", 1, u"t", Text},
                                                  {u"LENGTH", 1, u"t", Number},
                                                  {u"INSTR", 2, u"ttnn", Number},
                                                  {u"SUBSTR", 2, u"tnn", Text},
                                                  {u"TRIM", 1, u"tt", Text},
                                                  {u"LTRIM", 1, u"tt", Text},
                                                  {u"RTRIM", 1, u"tt", Text},
                                                  {u"REPLACE", 2, u"ttt", Text},
                                                  {u"CONCAT", 2, u"tt", Text},
                                                  {u"TO_NUMBER", 1, u"n", Number},
                                                  {u"TO_CHAR", 1, u"t", Text},
                                                  {u"ROUND", 1, u"nn", Number},
                                                  {u"TRUNC", 1, u"nn", Number},
                                                  {u"ABS", 1, u"n", Number},
                                                  {u"SIGN", 1, u"n", Number},
                                                  {u"MOD", 2, u"nn", Number},
                                                  {u"FLOOR", 1, u"n", Number}}};

const std::vector<TextView> kAggregates = {u"COUNT", u"SUM", u"AVG", u"MIN", u"MAX"};

}  // namespace

Node TypedStatement::Sum() {
  const std::size_t begin = at_;
  const std::size_t bare = BareColumns();
  Node sum = Product();
  while (AtSign(u"+") || AtSign(u"-") || AtSign(u"||")) {
    const bool joins = AtSign(u"||");
    Tokens sign;
    Take(sign);
    Node next = Product();
    if (joins) {
      // What is joined becomes a text by itself (Dialect.h), in the embedded database.
      sum = isServer_ ? AsText(std::move(sum)) : Exact(std::move(sum));
      next = isServer_ ? AsText(std::move(next)) : Exact(std::move(next));
    } else {
      sum = AsOperand(std::move(sum));
      next = AsOperand(std::move(next));
    }
    sum.reckonsOnQuotient = sum.reckonsOnQuotient || (sum.hasQuotient && !joins);
    sum.TakeOver(next, !joins);
    Append(sum.tokens, sign);
    Append(sum.tokens, next.tokens);
    sum.type = joins ? Text : Number;
    sum.inexact = !joins;
    sum.isLiteral = false;
  }
  Grouped(begin, bare);
  return sum;
}

Node TypedStatement::Product() {
  const std::size_t begin = at_;
  const std::size_t bare = BareColumns();
  std::size_t divisions = 0;
  Node product = Signed();
  while (AtSign(u"*") || AtSign(u"/")) {
    Tokens sign;
    Take(sign);
    product = AsOperand(std::move(product));
    const Node next = AsOperand(Signed());
    if (isServer_ && IsSign(sign[0], u"/") && next.tokens[0].kind == TokenKind::Number &&
        next.tokens[0].text.find_first_not_of(u"0.") == fetchkit::Text::npos)
      Refuse(u"a division by zero", sign[0]);
    product.reckonsOnQuotient = product.reckonsOnQuotient || product.hasQuotient;
    product.TakeOver(next, true);
    product.hasQuotient = product.hasQuotient || IsSign(sign[0], u"/");
    if (IsSign(sign[0], u"*")) {
      Append(product.tokens, sign);
      Append(product.tokens, next.tokens);
    } else {
      product.tokens.push_back({TokenKind::Sign, u",", sign[0].position, false});
      Append(product.tokens, next.tokens);
      if (++divisions > kMostDivisions) Refuse(u"too many divisions in a row", sign[0]);
      Wrap(product.tokens, u"quotient", sign.data());
      product.kind = NumberKind::Quotient;
    }
    product.inexact = true;
    product.isLiteral = false;
  }
  Grouped(begin, bare);
  return product;
}

Node TypedStatement::Signed() {
  Tokens signs;
  while (AtSign(u"+") || AtSign(u"-"))
    Take(signs);
  Node operand = Operand();
  if (signs.empty()) return operand;
  operand = AsOperand(std::move(operand));
  Append(signs, operand.tokens);
  operand.tokens = std::move(signs);
  operand.isLiteral = false;
  return operand;
}

Node TypedStatement::Operand() {
  if (AtEnd()) RefuseHere(u"a missing value");
  const Token& first = tokens_[at_];
  Node node;
  node.isLiteral = true;
  if (first.kind == TokenKind::String) {
    node.type = first.text == u"''" ? Null : Text;
    Take(node.tokens);
    return node;
  }
  if (first.kind == TokenKind::Number) {
    if (!NumberOf(first.text)) RefuseHere(u"a number of more than 15 digits");
    node.type = Number;
    node.kind = first.text.find_first_of(u"eE") != fetchkit::Text::npos ? NumberKind::Double
                : first.text.find(u'.') != fetchkit::Text::npos         ? NumberKind::Decimal
                                                                        : NumberKind::Whole;
    Take(node.tokens);
    return node;
  }
  if (IsWord(first, u"NULL")) {
    Take(node.tokens);
    return node;
  }
  if (IsWord(first, u"CASE")) return Case();
  if (IsSign(first, u"(")) return Brackets();
  if (!IsName(first)) RefuseHere(u"what is no value");
  const std::size_t end = EndOfName(tokens_, at_);
  if (end >= at_ + 3 && IsWord(tokens_[end - 1], u"NEXTVAL")) {
    node.isLiteral = false;
    node.type = Number;
    while (at_ < end)
      Take(node.tokens);
    return node;
  }
  if (end < end_ && IsSign(tokens_[end], u"(")) return Call();
  return Column(end);
}

Node TypedStatement::Brackets() {
  if (at_ + 1 < end_ && IsAnyWord(tokens_[at_ + 1], {u"SELECT", u"WITH"})) {
    Selected selected = SelectInBrackets(Use::Value, true);
    Node node;
    node.tokens = std::move(selected.tokens);
    GoOnWith(node, selected.columns[0]);
    return node;
  }
  const std::size_t begin = at_;
  const std::size_t bare = BareColumns();
  Tokens tokens;
  Take(tokens);
  Node node = Either();
  Append(tokens, node.tokens);
  TakeSign(tokens, u")");
  node.tokens = std::move(tokens);
  node.isLiteral = false;
  Grouped(begin, bare);
  return node;
}

Node TypedStatement::Case() {
  const std::size_t begin = at_;
  const std::size_t bare = BareColumns();
  Node node;
  Take(node.tokens);
  Node chosen;
  const bool simple = !At(u"WHEN");
  if (simple) {
    chosen = Exact(Value());
    Append(node.tokens, chosen.tokens);
  }
  if (!At(u"WHEN")) RefuseHere(u"CASE without WHEN");
  const auto result = [&] {
    Take(node.tokens);
    const Node value = Exact(Value());
    node.TakeOver(value, false);
    RequireOneType(node.type, value);
    Append(node.tokens, value.tokens);
  };
  while (At(u"WHEN")) {
    Take(node.tokens);
    if (simple) {
      const Node value = Exact(Value());
      RequireOneType(chosen.type, value);
      Append(node.tokens, value.tokens);
    } else {
      Append(node.tokens, Condition().tokens);
    }
    if (!At(u"THEN")) RefuseHere(u"WHEN without THEN");
    result();
  }
  if (At(u"ELSE")) result();
  TakeWord(node.tokens, u"END");
  Grouped(begin, bare);
  return node;
}

void TypedStatement::RequireOneType(ValueType& type, const Node& value) {
  if (value.type == Null) return;
  if (type == Null) type = value.type;
  if (type != value.type) Refuse(u"a number beside a text", value.tokens[0]);
}

Node TypedStatement::Call() {
  const std::size_t begin = at_;
  const std::size_t bare = BareColumns();
  const std::size_t nameEnd = EndOfName(tokens_, at_);
  const bool isOfSchema = nameEnd != at_ + 1;
  if (isOfSchema && !isServer_) RefuseHere(u"a function of a schema");
  const Token& name = tokens_[nameEnd - 1];
  if (!isOfSchema && !IsWord(name, name.text)) RefuseHere(u"a function in quotes");
  Node node;
  if (!isOfSchema && IsAnyWord(name, kAggregates)) {
    node = Aggregate();
  } else {
    Tokens call;
    while (at_ <= nameEnd)
      Take(call);
    std::vector<Node> arguments;
    Tokens commas;
    while (!AtSign(u")")) {
      if (!arguments.empty()) {
        if (!AtSign(u",")) RefuseHere(u"what should be a comma");
        Take(commas);
      }
      arguments.push_back(Value());
    }
    if (isOfSchema) {
      for (Node& argument : arguments)
        argument = Exact(std::move(argument));
      node.type = Unknown;
      node.kind = NumberKind::Double;
    } else {
      node.type = Convert(name, arguments);
      const bool cuts = IsAnyWord(name, {u"ROUND", u"TRUNC", u"FLOOR", u"SIGN"});
      if (!IsAnyWord(name, {u"LENGTH", u"INSTR"}))
        for (const Node& argument : arguments) {
          if (cuts) {
            node.kind = std::max(node.kind, std::min(argument.kind, NumberKind::Double));
          } else {
            node.TakeOver(argument, false);
          }
        }
    }
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      if (i > 0) call.push_back(commas[i - 1]);
      Append(call, arguments[i].tokens);
    }
    Take(call);
    node.tokens = !isOfSchema && IsWord(name, u"DECODE") && IsLazy(arguments) ? AsCase(arguments)
                                                                              : std::move(call);
  }
  Grouped(begin, bare);
  return node;
}

ValueType TypedStatement::Convert(const Token& name, std::vector<Node>& arguments) const {
  const auto count = [&](std::size_t least, std::size_t most) {
    if (arguments.size() < least || arguments.size() > most)
      Refuse(u"a function with too few or too many arguments", name);
  };
  if (IsWord(name, u"NVL")) {
    count(2, 2);
    const ValueType type = arguments[arguments[0].type == Null ? 1 : 0].type;
    for (Node& argument : arguments) {
      RequireDateFor(type, argument);
      argument = As(argument.type == Null ? Null : type, std::move(argument));
    }
    return type;
  }
  if (IsWord(name, u"DECODE")) {
    count(3, 255);
    return Decode(arguments);
  }
  if (IsAnyWord(name, {u"COALESCE", u"NULLIF", u"NVL2"})) {
    const bool nvl2 = IsWord(name, u"NVL2");
    count(nvl2 ? 3 : 2, nvl2 ? 3 : IsWord(name, u"NULLIF") ? 2 : 255);
    ValueType type = Null;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      arguments[i] = Exact(std::move(arguments[i]));
      if (!nvl2 || i > 0) RequireOneType(type, arguments[i]);
    }
    return type;
  }
  const auto* const function =
      std::find_if(kFunctions.begin(), kFunctions.end(),
                   [&](const Function& each) { return IsWord(name, each.name); });
  if (function == kFunctions.end()) Refuse(u"a function that it does not have", name);
  count(function->least, function->arguments.size());
  for (std::size_t i = 0; i < arguments.size(); ++i)
    arguments[i] = As(function->arguments[i] == u't' ? Text : Number, std::move(arguments[i]));
  return function->result;
}

ValueType TypedStatement::Decode(std::vector<Node>& arguments) const {
  const auto typeOf = [](const Node& node) {
    if (node.type == Unknown) Refuse(u"DECODE with a type that is not known", node.tokens[0]);
    return node.type == Null ? Text : node.type;
  };
  const ValueType compared = typeOf(arguments[1]);
  const ValueType result = typeOf(arguments[2]);
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const bool isLast = i + 1 == arguments.size();
    const bool isResult = i > 0 && (i % 2 == 0 || isLast);
    if (isResult) RequireDateFor(result, arguments[i]);
    if (arguments[i].type != Null)
      arguments[i] = As(isResult ? result : compared, std::move(arguments[i]));
  }
  return result;
}

bool TypedStatement::IsLazy(const std::vector<Node>& arguments) {
  for (std::size_t i = 1; i + 1 < arguments.size(); i += 2)
    if (!arguments[i].isLiteral || arguments[i].type == Null) return false;
  return true;
}

Tokens TypedStatement::AsCase(const std::vector<Node>& arguments) {
  const std::size_t position = arguments[0].tokens[0].position;
  Tokens written = {{TokenKind::Word, u"CASE", position, true}};
  const auto add = [&](TextView word, const Node& argument) {
    if (!word.empty()) written.push_back({TokenKind::Word, fetchkit::Text(word), position, true});
    Append(written, argument.tokens);
    written[written.size() - argument.tokens.size()].blankBefore = true;
  };
  add(u"", arguments[0]);
  std::size_t i = 1;
  for (; i + 1 < arguments.size(); i += 2) {
    add(u"WHEN", arguments[i]);
    add(u"THEN", arguments[i + 1]);
  }
  if (i < arguments.size()) add(u"ELSE", arguments[i]);
  written.push_back({TokenKind::Word, u"END", position, true});
  return written;
}

Node TypedStatement::Aggregate() {
  const Token& name = tokens_[at_];
  if (scope_ == nullptr || !scope_->mayAggregate) RefuseHere(u"an aggregate outside of SELECT");
  if (scope_->insideAggregate) RefuseHere(u"an aggregate inside another");
  Node node;
  Take(node.tokens);
  Take(node.tokens);
  scope_->hasAggregate = true;
  const bool counts = IsWord(name, u"COUNT");
  node.type = Number;
  if (counts && AtSign(u"*")) {
    Take(node.tokens);
    TakeSign(node.tokens, u")");
    return node;
  }
  if (isServer_ && IsWord(name, u"AVG") && At(u"DISTINCT")) RefuseHere(u"AVG of DISTINCT values");
  if (AtAny({u"DISTINCT", u"ALL"})) Take(node.tokens);
  scope_->insideAggregate = true;
  scope_->sawOwn = scope_->sawOuter = false;
  Node argument = Value();
  scope_->insideAggregate = false;
  // The database would reckon it among the rows of the SELECT around this one.
  if (scope_->sawOuter && !scope_->sawOwn)
    Refuse(u"an aggregate of columns of the SELECT around it", name);
  const bool adds = IsAnyWord(name, {u"SUM", u"AVG"});
  argument = adds ? AsNumber(std::move(argument)) : Exact(std::move(argument));
  if (!adds && !counts) node.type = argument.type;
  node.inexact = adds;
  node.TakeOver(argument, adds);
  if (counts) node.kind = NumberKind::Whole;
  if (IsWord(name, u"AVG")) {
    node.hasQuotient = true;
    node.kind = NumberKind::Quotient;
  }
  Append(node.tokens, argument.tokens);
  TakeSign(node.tokens, u")");
  return node;
}

}  // namespace fetchkit::hosts::typing
