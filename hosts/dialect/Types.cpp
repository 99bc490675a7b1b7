#include "hosts/dialect/Types.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <utility>

#include "fetchkit/base/Error.h"
#include "hosts/dialect/NumberTexts.h"

namespace fetchkit::hosts {
namespace {

using enum ValueType;

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
const std::vector<TextView> kSets = {u"UNION", u"INTERSECT", u"EXCEPT"};
const std::vector<TextView> kComparisons = {u"=", u"<>", u"!=", u"<", u"<=", u">", u">="};
const std::vector<TextView> kJoins = {u"JOIN", u"INNER", u"LEFT",   u"RIGHT",
                                      u"FULL", u"CROSS", u"NATURAL"};

struct Node {
  Tokens tokens;
  ValueType type = Null;
  bool isCondition = false;
  bool inexact = false;  // the result of arithmetic, whose last binary digits are noise
  bool isLiteral = false;
  // A quotient has more digits than a number here can hold; what is reckoned on with it seems to
  // have few again, where the dialect keeps the many.
  bool hasQuotient = false;
  bool reckonsOnQuotient = false;

  void TakeOver(const Node& part, bool reckons) {
    reckonsOnQuotient =
        reckonsOnQuotient || part.reckonsOnQuotient || (reckons && part.hasQuotient);
    hasQuotient = hasQuotient || part.hasQuotient;
  }
};

struct Source {
  fetchkit::Text name;
  fetchkit::Text schema;
  std::vector<TypedColumn> columns;
};

struct ColumnId {
  std::size_t source;
  std::size_t column;
  bool operator==(const ColumnId&) const = default;
};

struct Item {
  fetchkit::Text alias;  // or the column's name, if it is one
  fetchkit::Text key;
  ValueType type;
  bool isColumn;
};

// A SELECT while it is read; or the table of a change.
struct Scope {
  Scope* outer = nullptr;
  std::vector<Source> sources;
  std::size_t firstVisible = 0;  // the condition of a JOIN sees the tables of its own place alone
  std::vector<Item> items;
  bool itemsVisible = false;  // in ORDER BY
  std::vector<ColumnId> groupedColumns;
  std::vector<fetchkit::Text> groupedKeys;
  bool mayAggregate = false;
  bool insideAggregate = false;
  bool hasAggregate = false;
  std::vector<const Token*> bare;  // columns outside of aggregates that GROUP BY does not name
  bool sawOwn = false;             // columns since it was last cleared
  bool sawOuter = false;
};

struct Selected {
  Tokens tokens;
  std::vector<TypedColumn> columns;
};

enum class Use { Rows, Value };

class Typing {
 public:
  Typing(const Tokens& tokens, const TypesOf& typesOf) : tokens_(tokens), typesOf_(typesOf) {}

  Tokens Statement() {
    if (IsWord(tokens_[0], u"INSERT")) return Insert();
    if (IsWord(tokens_[0], u"UPDATE")) return Update();
    if (IsWord(tokens_[0], u"DELETE")) return Delete();
    Tokens written = Query(tokens_.size(), Use::Rows).tokens;
    ExpectEnd();
    return written;
  }

 private:
  // --- Reading ---------------------------------------------------------------------------------

  bool AtEnd() const { return at_ >= end_; }
  bool At(TextView word) const { return !AtEnd() && IsWord(tokens_[at_], word); }
  bool AtSign(TextView sign) const { return !AtEnd() && IsSign(tokens_[at_], sign); }
  bool AtAny(const std::vector<TextView>& words) const {
    return !AtEnd() && IsAnyWord(tokens_[at_], words);
  }
  bool Follows(std::size_t ahead, TextView word) const {
    return at_ + ahead < end_ && IsWord(tokens_[at_ + ahead], word);
  }
  const Token& Here() const { return tokens_[std::min(at_, tokens_.size() - 1)]; }

  // In the database's own words: statements that ask whether there is a column are usual.
  [[noreturn]] static void NoColumn(TextView name) {
    throw Error(ErrorKind::Host, Join(u"no such column: ", name));
  }

  [[noreturn]] void RefuseHere(TextView what) const {
    if (AtEnd()) Refuse(Join(what, u" behind"), tokens_[at_ - 1]);
    Refuse(what, tokens_[at_]);
  }

  void Take(Tokens& target) { target.push_back(tokens_[at_++]); }
  void TakeWord(Tokens& target, TextView word) {
    if (!At(word)) RefuseHere(Join(u"what should be ", word));
    Take(target);
  }
  void TakeSign(Tokens& target, TextView sign) {
    if (!AtSign(sign)) RefuseHere(Join(u"what should be ", sign));
    Take(target);
  }
  void ExpectEnd() const {
    if (!AtEnd()) Refuse(u"what it does not understand", tokens_[at_]);
  }

  // The first of the words outside of brackets from begin, before end; end when there is none.
  std::size_t Find(const std::vector<TextView>& words, std::size_t begin, std::size_t end) const {
    for (std::size_t i = begin; i < end; ++i) {
      if (IsSign(tokens_[i], u"(")) {
        i = ClosingBracket(tokens_, i);
      } else if (IsAnyWord(tokens_[i], words)) {
        return i;
      }
    }
    return end;
  }

  // Reads a part that has to come to its end there.
  template <class Reading>
  auto Within(std::size_t begin, std::size_t end, Reading&& reading) {
    const std::size_t endBefore = std::exchange(end_, end);
    at_ = begin;
    auto read = reading();
    ExpectEnd();
    end_ = endBefore;
    return read;
  }

  // --- Writing ---------------------------------------------------------------------------------

  // function(operand [, position]): what may be refused while rows are read says where it stands.
  static void Wrap(Tokens& operand, TextView function, const Token* place = nullptr) {
    const std::size_t position = operand[0].position;
    const bool blank = operand[0].blankBefore;
    Tokens call = {{TokenKind::Word, fetchkit::Text(function), position, blank},
                   {TokenKind::Sign, u"(", position, false}};
    Append(call, operand);
    if (place != nullptr) {
      call.push_back({TokenKind::Sign, u",", position, false});
      call.push_back(
          {TokenKind::Number, fetchkit::Text(Piece(place->position).view()), position, true});
    }
    call.push_back({TokenKind::Sign, u")", position, false});
    operand = std::move(call);
  }

  static void RequireValue(const Node& node) {
    if (node.isCondition) Refuse(u"a condition where a value should be", node.tokens[0]);
  }

  static Node Exact(Node node) {
    RequireValue(node);
    if (std::exchange(node.inexact, false)) Wrap(node.tokens, u"exact");
    return node;
  }

  // Inside of arithmetic, where the noise is cut once at the end.
  static Node AsOperand(Node node) {
    RequireValue(node);
    if (node.type == Text && node.isLiteral) {
      const fetchkit::Text& text = node.tokens[0].text;
      if (!NumberOf(TextView(text).substr(1, text.size() - 2)))
        Refuse(u"a text that is no number where one should be", node.tokens[0]);
    }
    if (node.type == Text || node.type == Unknown) {
      const Token place = node.tokens[0];
      Wrap(node.tokens, u"to_number", &place);
      node.inexact = node.isLiteral = false;
    }
    node.type = Number;
    return node;
  }
  static Node AsNumber(Node node) { return Exact(AsOperand(std::move(node))); }

  static Node AsText(Node node) {
    node = Exact(std::move(node));
    if (node.type == Number || node.type == Unknown) {
      Wrap(node.tokens, u"to_char");
      node.isLiteral = false;
      node.type = Text;
    }
    return node;
  }

  static Node As(ValueType type, Node node) {
    if (type == Number) return AsNumber(std::move(node));
    if (type == Text) return AsText(std::move(node));
    return Exact(std::move(node));
  }

  // As what two values are compared: a number with a text as numbers. An unknown value beside a
  // text must be one: as a number it would turn the text into a number, too.
  static void Unify(Node& left, Node& right) {
    left = Exact(std::move(left));
    right = Exact(std::move(right));
    if (left.type == Number || right.type == Number) {
      if (left.type != Null) left = AsNumber(std::move(left));
      if (right.type != Null) right = AsNumber(std::move(right));
      return;
    }
    if (left.type == Unknown && right.type == Unknown)
      Refuse(u"comparing columns whose types are not known", left.tokens[0]);
    for (Node* node : {&left, &right})
      if (node->type == Unknown) {
        const Token place = node->tokens[0];
        Wrap(node->tokens, u"text_only", &place);
        node->type = Text;
      }
    const auto endsBlank = [](const Node& node) {
      const fetchkit::Text& text = node.tokens[0].text;
      return text.size() > 2 && text[text.size() - 2] == u' ';
    };
    // Two literals are compared without regard to blanks at their ends, a literal and a column
    // with.
    if (left.isLiteral && right.isLiteral && left.type == Text && right.type == Text &&
        (endsBlank(left) || endsBlank(right)))
      Refuse(u"comparing two literals with blanks at their ends", left.tokens[0]);
  }

  // --- Expressions: conditions -------------------------------------------------------------------

  Node Condition() {
    Node node = Either();
    if (!node.isCondition) Refuse(u"a value where a condition should be", node.tokens[0]);
    return node;
  }

  Node Value() {
    Node node = Either();
    RequireValue(node);
    return node;
  }

  void Require(const Node& node) const {
    if (!node.isCondition) Refuse(u"a value where a condition should be", node.tokens[0]);
  }

  Node Either() {
    return Chain(u"OR", [this] { return Chain(u"AND", [this] { return Not(); }); });
  }

  template <class Part>
  Node Chain(TextView word, Part&& part) {
    Node chain = part();
    while (At(word)) {
      Require(chain);
      Take(chain.tokens);
      const Node next = part();
      Require(next);
      Append(chain.tokens, next.tokens);
    }
    return chain;
  }

  Node Not() {
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

  static Node ConditionOf(Tokens tokens) {
    Node node;
    node.tokens = std::move(tokens);
    node.isCondition = true;
    return node;
  }

  Node Predicate() {
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

  Node Comparison(Node left) {
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

  static void RequireDigits(const std::vector<const Node*>& values) {
    for (const Node* value : values)
      if (value->reckonsOnQuotient)
        Refuse(u"whether what is reckoned with a quotient is equal", value->tokens[0]);
  }

  Node IsNull(Node left) {
    left = Exact(std::move(left));
    Take(left.tokens);
    if (At(u"NOT")) Take(left.tokens);
    TakeWord(left.tokens, u"NULL");
    return ConditionOf(std::move(left.tokens));
  }

  Node Like(Node left, bool negated) {
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

  // Behind the escape character stands a wildcard or the character itself.
  void CheckEscapes(const Token& pattern) const {
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

  Node Between(Node left, bool negated) {
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

  // A text is converted to compare it with a number, and then compared with a text as well: that is
  // two comparisons of different kinds, which the conversion of one value cannot say.
  static void RequireSameType(const std::vector<const Node*>& values, ValueType left) {
    if (left == Number) return;
    ValueType first = Null;
    for (const Node* value : values) {
      if (value->type == Null) continue;
      if (first == Null) first = value->type;
      if (value->type != first) Refuse(u"numbers beside texts", value->tokens[0]);
    }
  }

  Node In(Node left, bool negated) {
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

  // --- Expressions: values -----------------------------------------------------------------------

  Node Sum() {
    const std::size_t begin = at_;
    const std::size_t bare = BareColumns();
    Node sum = Product();
    while (AtSign(u"+") || AtSign(u"-") || AtSign(u"||")) {
      const bool joins = AtSign(u"||");
      Tokens sign;
      Take(sign);
      Node next = Product();
      if (joins) {
        // What is joined becomes a text by itself (Dialect.h).
        sum = Exact(std::move(sum));
        next = Exact(std::move(next));
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

  Node Product() {
    const std::size_t begin = at_;
    const std::size_t bare = BareColumns();
    Node product = Signed();
    while (AtSign(u"*") || AtSign(u"/")) {
      Tokens sign;
      Take(sign);
      product = AsOperand(std::move(product));
      const Node next = AsOperand(Signed());
      product.reckonsOnQuotient = product.reckonsOnQuotient || product.hasQuotient;
      product.TakeOver(next, true);
      product.hasQuotient = product.hasQuotient || IsSign(sign[0], u"/");
      if (IsSign(sign[0], u"*")) {
        Append(product.tokens, sign);
        Append(product.tokens, next.tokens);
      } else {
        product.tokens.push_back({TokenKind::Sign, u",", sign[0].position, false});
        Append(product.tokens, next.tokens);
        Wrap(product.tokens, u"quotient", sign.data());
      }
      product.inexact = true;
      product.isLiteral = false;
    }
    Grouped(begin, bare);
    return product;
  }

  Node Signed() {
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

  Node Operand() {
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

  Node Brackets() {
    if (at_ + 1 < end_ && IsAnyWord(tokens_[at_ + 1], {u"SELECT", u"WITH"})) {
      Selected selected = SelectInBrackets(Use::Value);
      Node node;
      node.tokens = std::move(selected.tokens);
      node.type = selected.columns[0].type;
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

  Node Case() {
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

  // What the dialect does not convert has to be of one type.
  static void RequireOneType(ValueType& type, const Node& value) {
    if (value.type == Null) return;
    if (type == Null) type = value.type;
    if (type != value.type) Refuse(u"a number beside a text", value.tokens[0]);
  }

  Node Call() {
    const std::size_t begin = at_;
    const std::size_t bare = BareColumns();
    const Token& name = tokens_[at_];
    if (!IsWord(name, name.text) || EndOfName(tokens_, at_) != at_ + 1)
      RefuseHere(u"a function of a schema");
    Node node;
    if (IsAnyWord(name, kAggregates)) {
      node = Aggregate();
    } else {
      Tokens call;
      Take(call);
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
      node.type = Convert(name, arguments);
      if (!IsAnyWord(name, {u"ROUND", u"TRUNC", u"FLOOR", u"SIGN"}))
        for (const Node& argument : arguments)
          node.TakeOver(argument, false);
      for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i > 0) call.push_back(commas[i - 1]);
        Append(call, arguments[i].tokens);
      }
      Take(call);
      node.tokens =
          IsWord(name, u"DECODE") && IsLazy(arguments) ? AsCase(arguments) : std::move(call);
    }
    Grouped(begin, bare);
    return node;
  }

  // Converts the arguments to what the function takes, and answers what it gives.
  static ValueType Convert(const Token& name, std::vector<Node>& arguments) {
    const auto count = [&](std::size_t least, std::size_t most) {
      if (arguments.size() < least || arguments.size() > most)
        Refuse(u"a function with too few or too many arguments", name);
    };
    if (IsWord(name, u"NVL")) {
      count(2, 2);
      const ValueType type = arguments[arguments[0].type == Null ? 1 : 0].type;
      for (Node& argument : arguments)
        argument = As(argument.type == Null ? Null : type, std::move(argument));
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

  // Everything is converted to the type of the first value to be compared with, every result to
  // that of the first result; Null counts as a text.
  static ValueType Decode(std::vector<Node>& arguments) {
    const auto typeOf = [](const Node& node) {
      if (node.type == Unknown) Refuse(u"DECODE with a type that is not known", node.tokens[0]);
      return node.type == Null ? Text : node.type;
    };
    const ValueType compared = typeOf(arguments[1]);
    const ValueType result = typeOf(arguments[2]);
    for (std::size_t i = 0; i < arguments.size(); ++i) {
      const bool isLast = i + 1 == arguments.size();
      const bool isResult = i > 0 && (i % 2 == 0 || isLast);
      if (arguments[i].type != Null)
        arguments[i] = As(isResult ? result : compared, std::move(arguments[i]));
    }
    return result;
  }

  // DECODE leaves alone what it does not choose, such as y / x in decode(x, 0, 0, y / x); a
  // function would be given all of it. A CASE finds no Null, which is among the values only as a
  // literal or where they are no literals.
  static bool IsLazy(const std::vector<Node>& arguments) {
    for (std::size_t i = 1; i + 1 < arguments.size(); i += 2)
      if (!arguments[i].isLiteral || arguments[i].type == Null) return false;
    return true;
  }

  static Tokens AsCase(const std::vector<Node>& arguments) {
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

  Node Aggregate() {
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
    node.hasQuotient = node.hasQuotient || IsWord(name, u"AVG");
    Append(node.tokens, argument.tokens);
    TakeSign(node.tokens, u")");
    return node;
  }

  // --- Columns -----------------------------------------------------------------------------------

  Node Column(std::size_t end) {
    const Token& first = tokens_[at_];
    const std::size_t parts = (end - at_ + 1) / 2;
    const fetchkit::Text name = NameOf(tokens_[end - 1]);
    const fetchkit::Text table = parts > 1 ? NameOf(tokens_[end - 3]) : fetchkit::Text();
    const fetchkit::Text schema = parts > 2 ? NameOf(tokens_[end - 5]) : fetchkit::Text();
    if (parts > 3) RefuseHere(u"a name of four parts");
    Node node;
    node.type = TypeOfColumn(schema, table, name, first);
    while (at_ < end)
      Take(node.tokens);
    if (!AtEnd() && tokens_[at_].kind == TokenKind::OuterMark) Take(node.tokens);
    return node;
  }

  ValueType TypeOfColumn(TextView schema, TextView table, TextView name, const Token& first) {
    for (Scope* scope = scope_; scope != nullptr; scope = scope->outer) {
      const Item* item = nullptr;
      if (scope->itemsVisible && table.empty())
        for (const Item& each : scope->items)
          if (item == nullptr && EqualFolded(each.alias, name)) item = &each;
      const TypedColumn* found = nullptr;
      ColumnId id{};
      for (std::size_t s = scope->firstVisible; s < scope->sources.size(); ++s) {
        const Source& source = scope->sources[s];
        if (!table.empty() && (!EqualFolded(source.name, table) ||
                               (!schema.empty() && !EqualFolded(source.schema, schema))))
          continue;
        for (std::size_t c = 0; c < source.columns.size(); ++c) {
          if (!EqualFolded(source.columns[c].name, name)) continue;
          if (found != nullptr) Refuse(u"a column that two tables of this FROM have", first);
          found = &source.columns[c];
          id = {s, c};
        }
      }
      if (item != nullptr && (found == nullptr || item->isColumn)) return item->type;
      if (found == nullptr) continue;
      if (item != nullptr) Refuse(u"a name of a column and of an expression", first);
      if (scope == scope_) scope->sawOwn = true;
      for (Scope* inner = scope_; inner != scope; inner = inner->outer)
        inner->sawOuter = true;
      const auto& grouped = scope->groupedColumns;
      if (!scope->insideAggregate && std::find(grouped.begin(), grouped.end(), id) == grouped.end())
        scope->bare.push_back(&first);
      return found->type;
    }
    NoColumn(table.empty() ? fetchkit::Text(name) : Join(table, u".", name));
  }

  std::size_t BareColumns() const { return scope_ == nullptr ? 0 : scope_->bare.size(); }

  // Where the whole expression stands in GROUP BY, its columns are not bare.
  void Grouped(std::size_t begin, std::size_t bare) {
    if (scope_ == nullptr || scope_->groupedKeys.empty() || scope_->bare.size() == bare) return;
    const auto& keys = scope_->groupedKeys;
    if (std::find(keys.begin(), keys.end(), KeyOf(begin, at_)) != keys.end())
      scope_->bare.resize(bare);
  }

  // The text of an expression, for comparing it with another one.
  fetchkit::Text KeyOf(std::size_t begin, std::size_t end) const {
    fetchkit::Text key;
    for (std::size_t i = begin; i < end; ++i)
      key.append(tokens_[i].kind == TokenKind::Word ? UpperAscii(tokens_[i].text) : tokens_[i].text)
          .push_back(u' ');
    return key;
  }

  // --- Queries -----------------------------------------------------------------------------------

  Selected SelectInBrackets(Use use) {
    if (!AtSign(u"(")) RefuseHere(u"what should be a SELECT in brackets");
    const std::size_t close = ClosingBracket(tokens_, at_);
    Selected selected;
    Take(selected.tokens);
    if (!AtAny({u"SELECT", u"WITH"})) RefuseHere(u"what should be a SELECT");
    Selected inner = Within(at_, close, [&] { return Query(close, use); });
    Append(selected.tokens, inner.tokens);
    selected.columns = std::move(inner.columns);
    Take(selected.tokens);
    return selected;
  }

  Selected Query(std::size_t end, Use use) {
    end_ = end;
    if (At(u"WITH")) RefuseHere(u"WITH");
    const std::size_t order = Find({u"ORDER"}, at_, end);
    const std::size_t firstSet = Find(kSets, at_, order);
    if (use == Use::Value && (firstSet < order || order < end))
      Refuse(u"ORDER BY or a set of rows as one value", tokens_[std::min(firstSet, order)]);
    if (firstSet == order) return Select(end, use);

    Selected all = Within(at_, firstSet, [&] { return Select(firstSet, use); });
    while (at_ < order) {
      const Token& word = tokens_[at_];
      Take(all.tokens);
      if (At(u"ALL")) {
        if (!IsWord(word, u"UNION")) RefuseHere(u"ALL behind what is no UNION");
        Take(all.tokens);
      }
      if (!At(u"SELECT")) RefuseHere(u"what should be a SELECT");
      const std::size_t next = Find(kSets, at_, order);
      const Selected more = Within(at_, next, [&] { return Select(next, use); });
      if (more.columns.size() != all.columns.size())
        Refuse(u"SELECTs of different numbers of columns", word);
      for (std::size_t i = 0; i < more.columns.size(); ++i) {
        ValueType& type = all.columns[i].type;
        if (type == Null) type = more.columns[i].type;
        if (more.columns[i].type != Null && more.columns[i].type != type)
          Refuse(u"a number beside a text in SELECTs", word);
      }
      Append(all.tokens, more.tokens);
    }
    if (order == end) return all;
    // Of several SELECTs only columns can be ordered, by number or by name.
    Scope names;
    for (const TypedColumn& column : all.columns)
      names.items.push_back({column.name, {}, column.type, true});
    OrderBy(all.tokens, names, true);
    return all;
  }

  Selected Select(std::size_t end, Use use) {
    Scope scope;
    scope.outer = std::exchange(scope_, nullptr);
    scope_ = &scope;
    const std::size_t begin = at_;
    const std::size_t order = Find({u"ORDER"}, begin, end);
    const std::size_t having = Find({u"HAVING"}, begin, order);
    const std::size_t group = Find({u"GROUP"}, begin, having);
    const std::size_t where = Find({u"WHERE"}, begin, group);
    const std::size_t from = Find({u"FROM"}, begin, where);
    if (from == where) Refuse(u"a SELECT without FROM", tokens_[begin]);

    const Tokens sources = Within(from, where, [&] { return From(); });
    Tokens conditions;
    if (where < group) {
      conditions.push_back(tokens_[where]);
      Append(conditions, Within(where + 1, group, [&] { return Condition().tokens; }));
    }
    const Tokens groups =
        group < having ? Within(group, having, [&] { return GroupBy(); }) : Tokens();
    scope.bare.clear();
    scope.mayAggregate = true;
    Tokens list;
    const bool distinct = Within(begin, from, [&] { return List(list, use); });
    Tokens havings;
    if (having < order) {
      havings.push_back(tokens_[having]);
      Append(havings, Within(having + 1, order, [&] { return Condition().tokens; }));
      scope.hasAggregate = true;
    }
    at_ = order;
    Tokens ordered;
    if (order < end) OrderBy(ordered, scope, distinct);

    const bool grouped = group < having;
    if ((grouped || scope.hasAggregate) && !scope.bare.empty())
      Refuse(u"a column beside an aggregate that GROUP BY does not name", *scope.bare[0]);
    if (use == Use::Value) {
      if (scope.items.size() != 1) Refuse(u"several columns as one value", tokens_[begin]);
      if (grouped) Refuse(u"a SELECT of groups as one value", tokens_[group]);
      if (!scope.hasAggregate) OneRow(list, tokens_[begin]);
    }
    Selected selected;
    selected.tokens = std::move(list);
    for (const Tokens* part :
         std::initializer_list<const Tokens*>{&sources, &conditions, &groups, &havings, &ordered})
      Append(selected.tokens, *part);
    for (const Item& item : scope.items)
      selected.columns.push_back({item.alias, item.type});
    scope_ = scope.outer;
    return selected;
  }

  // SELECT [DISTINCT] x becomes SELECT only_row([DISTINCT] x).
  void OneRow(Tokens& list, const Token& select) {
    if (scope_->sawOuter && !scope_->sawOwn) Refuse(u"a value of the SELECT around it", select);
    Tokens value = Slice(list, 1, oneItemEnd_);
    // DISTINCT leaves no room for a position.
    Wrap(value, u"only_row", IsWord(value[0], u"DISTINCT") ? nullptr : &select);
    value[0].blankBefore = true;
    Tokens written = {list[0]};
    Append(written, value);
    Append(written, Slice(list, oneItemEnd_, list.size()));
    list = std::move(written);
  }

  // From SELECT to FROM; answers whether it is DISTINCT.
  bool List(Tokens& list, Use use) {
    TakeWord(list, u"SELECT");
    const bool distinct = AtAny({u"DISTINCT", u"UNIQUE"});
    if (At(u"UNIQUE")) RefuseHere(u"UNIQUE");
    if (distinct || At(u"ALL")) Take(list);
    scope_->sawOwn = scope_->sawOuter = false;
    for (bool more = true; more;) {
      if (!AtEnd() && IsStar()) {
        Star(list);
        if (use == Use::Value) Refuse(u"* as one value", list.back());
      } else {
        const std::size_t begin = at_;
        const Node node = Exact(Value());
        Item item{{}, KeyOf(begin, at_), node.type, false};
        const bool isName = IsName(tokens_[begin]) && EndOfName(tokens_, begin) == at_;
        if (isName) item.alias = NameOf(tokens_[at_ - 1]);
        item.isColumn = isName;
        Append(list, node.tokens);
        oneItemEnd_ = list.size();
        const std::size_t end = at_;
        const bool as = At(u"AS");
        if (as) Take(list);
        if (as || (!AtEnd() && IsName(tokens_[at_]))) {
          if (AtEnd() || !IsName(tokens_[at_]) || AtAny({u"ISNULL", u"NOTNULL"}))
            RefuseHere(u"what is no name");
          item.isColumn = isName && EqualFolded(item.alias, NameOf(tokens_[at_]));
          item.alias = NameOf(tokens_[at_]);
          Take(list);
        } else if (node.tokens.size() != end - begin) {
          // The database names a column after its text: the one that was sent.
          list.push_back({TokenKind::Word, u"AS", tokens_[begin].position, true});
          list.push_back({TokenKind::QuotedName, InDoubleQuotes(ToSql(Slice(tokens_, begin, end))),
                          tokens_[begin].position, true});
        }
        scope_->items.push_back(std::move(item));
      }
      more = AtSign(u",");
      if (more) Take(list);
    }
    return distinct;
  }

  static fetchkit::Text InDoubleQuotes(TextView name) {
    fetchkit::Text quoted = u"\"";
    for (const char16_t c : name)
      quoted.append(c == u'"' ? 2 : 1, c);
    return quoted.append(u"\"");
  }

  bool IsStar() const {
    if (IsSign(tokens_[at_], u"*")) return true;
    return IsName(tokens_[at_]) && IsSign(tokens_[EndOfName(tokens_, at_) - 1], u"*");
  }

  void Star(Tokens& list) {
    const Token& first = tokens_[at_];
    const std::size_t end = IsSign(first, u"*") ? at_ + 1 : EndOfName(tokens_, at_);
    const fetchkit::Text table = end - at_ > 1 ? NameOf(tokens_[end - 3]) : fetchkit::Text();
    bool found = false;
    for (const Source& source : scope_->sources) {
      if (!table.empty() && !EqualFolded(source.name, table)) continue;
      found = true;
      for (const TypedColumn& column : source.columns)
        scope_->items.push_back({column.name, {}, column.type, true});
    }
    if (!found) RefuseHere(u"* of what is no table here");
    scope_->bare.push_back(&first);
    while (at_ < end)
      Take(list);
  }

  Tokens GroupBy() {
    Tokens groups;
    Take(groups);
    TakeWord(groups, u"BY");
    for (bool more = true; more;) {
      const std::size_t begin = at_;
      const Node node = Exact(Value());
      if (node.isLiteral) Refuse(u"a constant in GROUP BY", tokens_[begin]);
      if (IsName(tokens_[begin]) && EndOfName(tokens_, begin) == at_) {
        GroupColumn(begin);
      } else {
        scope_->groupedKeys.push_back(KeyOf(begin, at_));
      }
      Append(groups, node.tokens);
      more = AtSign(u",");
      if (more) Take(groups);
    }
    return groups;
  }

  // The column, however its table is named elsewhere. It has been found before.
  void GroupColumn(std::size_t begin) {
    const fetchkit::Text name = NameOf(tokens_[at_ - 1]);
    const fetchkit::Text table = at_ - begin > 1 ? NameOf(tokens_[at_ - 3]) : fetchkit::Text();
    for (std::size_t s = 0; s < scope_->sources.size(); ++s) {
      if (!table.empty() && !EqualFolded(scope_->sources[s].name, table)) continue;
      for (std::size_t c = 0; c < scope_->sources[s].columns.size(); ++c)
        if (EqualFolded(scope_->sources[s].columns[c].name, name))
          scope_->groupedColumns.push_back({s, c});
    }
  }

  void OrderBy(Tokens& target, Scope& scope, bool fromItems) {
    Scope* const before = std::exchange(scope_, &scope);
    scope.itemsVisible = true;
    TakeWord(target, u"ORDER");
    TakeWord(target, u"BY");
    for (bool more = true; more;) {
      const std::size_t begin = at_;
      const Node node = Exact(IsNameOfItem() ? NameOfItem() : Value());
      if (node.type == Unknown)
        Refuse(u"ORDER BY a column whose type is not known", tokens_[begin]);
      const bool isPosition = node.isLiteral && node.type == Number && node.tokens.size() == 1;
      if (isPosition && !IsPosition(tokens_[begin].text, scope.items.size()))
        Refuse(u"ORDER BY the number of no column", tokens_[begin]);
      if (fromItems && !isPosition && !IsItem(begin, scope))
        Refuse(u"ORDER BY what the SELECT does not keep", tokens_[begin]);
      Append(target, node.tokens);
      if (AtAny({u"ASC", u"DESC"})) Take(target);
      if (At(u"NULLS")) {
        Take(target);
        if (!AtAny({u"FIRST", u"LAST"})) RefuseHere(u"what should be FIRST or LAST");
        Take(target);
      }
      more = AtSign(u",");
      if (more) Take(target);
    }
    scope.itemsVisible = false;
    scope_ = before;
  }

  // A name alone is that of a column of the SELECT before it is one of a table.
  bool IsNameOfItem() const {
    if (AtEnd() || !IsName(tokens_[at_])) return false;
    if (at_ + 1 < end_ && !IsSign(tokens_[at_ + 1], u",") &&
        !IsAnyWord(tokens_[at_ + 1], {u"ASC", u"DESC", u"NULLS"}))
      return false;
    const fetchkit::Text name = NameOf(tokens_[at_]);
    return std::any_of(scope_->items.begin(), scope_->items.end(),
                       [&](const Item& item) { return EqualFolded(item.alias, name); });
  }

  Node NameOfItem() {
    const fetchkit::Text name = NameOf(tokens_[at_]);
    Node node;
    Take(node.tokens);
    for (const Item& item : scope_->items)
      if (EqualFolded(item.alias, name)) node.type = item.type;
    return node;
  }

  static bool IsPosition(TextView number, std::size_t columns) {
    const auto value = NumberOf(number);
    const auto* whole = value ? std::get_if<std::int64_t>(&*value) : nullptr;
    return whole != nullptr && *whole > 0 && static_cast<std::uint64_t>(*whole) <= columns;
  }

  // Whether what has just been read is one of the columns of the SELECT.
  bool IsItem(std::size_t begin, const Scope& scope) const {
    const fetchkit::Text key = KeyOf(begin, at_);
    const bool isName = IsName(tokens_[begin]) && EndOfName(tokens_, begin) == at_;
    const fetchkit::Text name = isName ? NameOf(tokens_[at_ - 1]) : fetchkit::Text();
    return std::any_of(scope.items.begin(), scope.items.end(), [&](const Item& item) {
      return item.key == key || (isName && EqualFolded(item.alias, name));
    });
  }

  // --- Tables ------------------------------------------------------------------------------------

  Tokens From() {
    Tokens from;
    Take(from);
    SourceOf(from);
    while (!AtEnd()) {
      if (AtSign(u",")) {
        Take(from);
        scope_->firstVisible = scope_->sources.size();
        SourceOf(from);
        continue;
      }
      if (!AtAny(kJoins)) RefuseHere(u"what it does not understand");
      if (At(u"NATURAL")) RefuseHere(u"NATURAL");
      const bool crosses = At(u"CROSS");
      while (AtAny({u"INNER", u"LEFT", u"RIGHT", u"FULL", u"CROSS", u"OUTER"}))
        Take(from);
      TakeWord(from, u"JOIN");
      SourceOf(from);
      if (crosses) continue;
      TakeWord(from, u"ON");
      Append(from, Condition().tokens);
    }
    scope_->firstVisible = 0;
    return from;
  }

  void SourceOf(Tokens& from) {
    Source source;
    if (AtSign(u"(")) {
      // A SELECT here does not see the other tables of this FROM.
      Scope* const own = std::exchange(scope_, scope_->outer);
      Selected selected = SelectInBrackets(Use::Rows);
      scope_ = own;
      Append(from, selected.tokens);
      source.columns = std::move(selected.columns);
    } else {
      source = Table(from);
      if (AtSign(u"(")) RefuseHere(u"a function as a table");
    }
    if (At(u"AS")) RefuseHere(u"AS in front of a table's other name");
    const bool isJoin = AtAny(kJoins) && (At(u"JOIN") || Follows(1, u"JOIN") ||
                                          Follows(1, u"OUTER") || At(u"NATURAL"));
    if (!AtEnd() && !isJoin && IsName(tokens_[at_])) {
      source.name = NameOf(tokens_[at_]);
      source.schema.clear();
      Take(from);
    }
    scope_->sources.push_back(std::move(source));
  }

  Source Table(Tokens& target) {
    if (AtEnd() || !IsName(tokens_[at_])) RefuseHere(u"what is no table");
    const std::size_t end = EndOfName(tokens_, at_);
    if (end - at_ > 3) RefuseHere(u"a table's name of three parts");
    Source source;
    source.name = NameOf(tokens_[end - 1]);
    if (end - at_ == 3) source.schema = NameOf(tokens_[at_]);
    source.columns = typesOf_(ToSql(Slice(tokens_, at_, end)));
    while (at_ < end)
      Take(target);
    return source;
  }

  // --- Changes -----------------------------------------------------------------------------------

  Tokens Insert() {
    end_ = tokens_.size();
    Tokens written;
    Take(written);
    TakeWord(written, u"INTO");
    const Source table = Table(written);
    std::vector<TypedColumn> columns;
    if (AtSign(u"(")) {
      do {
        Take(written);
        columns.push_back(ColumnOf(table, columns));
        Take(written);
      } while (AtSign(u","));
      TakeSign(written, u")");
    } else {
      columns = table.columns;
    }
    if (!At(u"VALUES")) return InsertRows(std::move(written), columns);
    Take(written);
    if (!AtSign(u"(")) RefuseHere(u"VALUES without a list in brackets");
    std::size_t i = 0;
    do {
      Take(written);
      Node value = Exact(Value());
      if (i == columns.size()) Refuse(u"more values than columns", value.tokens[0]);
      Append(written, As(columns[i++].type, std::move(value)).tokens);
    } while (AtSign(u","));
    if (i < columns.size()) RefuseHere(u"fewer values than columns");
    TakeSign(written, u")");
    ExpectEnd();
    return written;
  }

  Tokens InsertRows(Tokens written, const std::vector<TypedColumn>& columns) {
    if (!At(u"SELECT")) RefuseHere(u"what should be VALUES or SELECT");
    const Token& select = tokens_[at_];
    const Selected rows = Query(tokens_.size(), Use::Rows);
    ExpectEnd();
    if (rows.columns.size() != columns.size())
      Refuse(u"a SELECT of another number of columns", select);
    for (std::size_t i = 0; i < columns.size(); ++i)
      if (rows.columns[i].type != columns[i].type && rows.columns[i].type != Null)
        Refuse(u"a SELECT of other types than the columns", select);
    Append(written, rows.tokens);
    return written;
  }

  // The table's column that stands here, which is not among those before it.
  TypedColumn ColumnOf(const Source& table, const std::vector<TypedColumn>& before) const {
    if (AtEnd() || !IsName(tokens_[at_])) RefuseHere(u"what is no column");
    const fetchkit::Text name = NameOf(tokens_[at_]);
    const auto isIt = [&](const TypedColumn& column) { return EqualFolded(column.name, name); };
    if (std::any_of(before.begin(), before.end(), isIt)) RefuseHere(u"a column named twice");
    const auto found = std::find_if(table.columns.begin(), table.columns.end(), isIt);
    if (found == table.columns.end()) NoColumn(name);
    return *found;
  }

  Tokens Update() {
    end_ = tokens_.size();
    Tokens written;
    Take(written);
    Scope scope;
    scope_ = &scope;
    const Source table = Table(written);
    scope.sources.push_back(table);
    TakeWord(written, u"SET");
    std::vector<TypedColumn> changed;
    for (bool more = true; more;) {
      changed.push_back(ColumnOf(table, changed));
      Take(written);
      TakeSign(written, u"=");
      Append(written, As(changed.back().type, Value()).tokens);
      more = AtSign(u",");
      if (more) Take(written);
    }
    WhereOfChange(written);
    return written;
  }

  Tokens Delete() {
    end_ = tokens_.size();
    Tokens written;
    Take(written);
    TakeWord(written, u"FROM");
    Scope scope;
    scope_ = &scope;
    scope.sources.push_back(Table(written));
    WhereOfChange(written);
    return written;
  }

  void WhereOfChange(Tokens& written) {
    if (!AtEnd()) {
      TakeWord(written, u"WHERE");
      Append(written, Condition().tokens);
    }
    ExpectEnd();
    scope_ = nullptr;
  }

  const Tokens& tokens_;
  const TypesOf& typesOf_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  std::size_t oneItemEnd_ = 0;  // in a SELECT's list, behind its last expression
  Scope* scope_ = nullptr;
};

}  // namespace

Tokens WithTypes(const Tokens& statement, const TypesOf& typesOf) {
  return Typing(statement, typesOf).Statement();
}

}  // namespace fetchkit::hosts
