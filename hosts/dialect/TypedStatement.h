// A statement that is read from its first token to its last, and written with its conversions
// (Types.h). A method reads one part of the grammar, leaves the place behind it, and gives back
// what is to be written.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

#include "fetchkit/base/Text.h"
#include "hosts/dialect/Tokenizer.h"
#include "hosts/dialect/Types.h"

namespace fetchkit::hosts::typing {

// A part of an expression: a value, or a condition, which is no value in the dialect.
struct Node {
  Tokens tokens;
  ValueType type = ValueType::Null;
  NumberKind kind = NumberKind::Whole;  // of a number
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
    kind = std::max(kind, part.kind);
  }
};

struct Source {
  Text name;
  Text schema;
  std::vector<TypedColumn> columns;
};

struct ColumnId {
  std::size_t source;
  std::size_t column;
  bool operator==(const ColumnId&) const = default;
};

// A column of a SELECT.
struct Item {
  Text alias;  // or the column's name, if it is one
  Text key;
  ValueType type;
  NumberKind kind;
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
  std::vector<Text> groupedKeys;
  bool mayAggregate = false;
  bool insideAggregate = false;
  bool hasAggregate = false;
  std::vector<const Token*> bare;  // columns outside of aggregates that GROUP BY does not name
  bool sawOwn = false;             // columns since it was last cleared
  bool sawOuter = false;
};

// A SELECT as it is written, and what it gives.
struct Selected {
  Tokens tokens;
  std::vector<TypedColumn> columns;
};

// Whether a SELECT gives rows, or stands where one value should be.
enum class Use { Rows, Value };

class TypedStatement {
 public:
  // Both must outlive it.
  TypedStatement(const Tokens& tokens, const TypesOf& typesOf, TypedFor whom)
      : tokens_(tokens), typesOf_(typesOf), isServer_(whom == TypedFor::Server) {}

  // The statement with its conversions.
  Tokens Write();

 private:
  using enum ValueType;

  // --- Reading ---------------------------------------------------------------------------------

  bool AtEnd() const { return at_ >= end_; }
  bool At(TextView word) const { return !AtEnd() && IsWord(tokens_[at_], word); }
  bool AtSign(TextView sign) const { return !AtEnd() && IsSign(tokens_[at_], sign); }
  bool AtAny(const std::vector<TextView>& words) const;
  bool Follows(std::size_t ahead, TextView word) const;

  // In the database's own words: statements that ask whether there is a column are usual.
  [[noreturn]] static void NoColumn(TextView name);
  [[noreturn]] void RefuseHere(TextView what) const;

  // At what the statement has there, whatever is written around it.
  [[noreturn]] void RefuseNode(TextView what, const Node& node) const;
  void Take(Tokens& target) { target.push_back(tokens_[at_++]); }
  void TakeWord(Tokens& target, TextView word);
  void TakeSign(Tokens& target, TextView sign);
  void ExpectEnd() const;

  // The first of the words outside of brackets from begin, before end; end when there is none.
  std::size_t Find(const std::vector<TextView>& words, std::size_t begin, std::size_t end) const;

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
  static void Wrap(Tokens& operand, TextView function, const Token* place = nullptr);
  static void RequireValue(const Node& node);
  Node Exact(Node node) const;

  // Inside of arithmetic, where the noise is cut once at the end.
  Node AsOperand(Node node) const;
  Node AsNumber(Node node) const { return Exact(AsOperand(std::move(node))); }
  Node AsText(Node node) const;
  Node As(ValueType type, Node node) const;

  // Puts the number in the place of the text that stands for it.
  static void SetNumber(Node& node, const std::variant<std::int64_t, double>& number);

  // Where the value is a date, so have to be the others.
  void RequireDateFor(ValueType type, const Node& node) const {
    if (type == Date && node.type != Date && node.type != Null)
      RefuseNode(u"what is no date beside one", node);
  }

  // A date is compared with a date or with the text of one, which is a literal.
  void RequireDate(const Node& node) const;

  // As what two values are compared: a number with a text as numbers. An unknown value beside a
  // text must be one: as a number it would turn the text into a number, too.
  void Unify(Node& left, Node& right) const;

  // --- Expressions: conditions -------------------------------------------------------------------

  Node Condition();
  Node Value();
  void Require(const Node& node) const;
  Node Either();

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

  Node Not();
  static Node ConditionOf(Tokens tokens);
  Node Predicate();
  Node Comparison(Node left);
  static void RequireDigits(const std::vector<const Node*>& values);
  Node IsNull(Node left);
  Node Like(Node left, bool negated);

  // Behind the escape character stands a wildcard or the character itself.
  void CheckEscapes(const Token& pattern) const;
  Node Between(Node left, bool negated);

  // A text is converted to compare it with a number, and then compared with a text as well: that is
  // two comparisons of different kinds, which the conversion of one value cannot say.
  static void RequireSameType(const std::vector<const Node*>& values, ValueType left);
  Node In(Node left, bool negated);

  // --- Expressions: values -----------------------------------------------------------------------

  Node Sum();
  Node Product();
  Node Signed();
  Node Operand();
  Node Brackets();
  Node Case();

  // What the dialect does not convert has to be of one type.
  static void RequireOneType(ValueType& type, const Node& value);
  Node Call();

  // Converts the arguments to what the function takes, and answers what it gives.
  ValueType Convert(const Token& name, std::vector<Node>& arguments) const;

  // Everything is converted to the type of the first value to be compared with, every result to
  // that of the first result; Null counts as a text.
  ValueType Decode(std::vector<Node>& arguments) const;

  // DECODE leaves alone what it does not choose, such as y / x in decode(x, 0, 0, y / x); a
  // function would be given all of it. A CASE finds no Null, which is among the values only as a
  // literal or where they are no literals.
  static bool IsLazy(const std::vector<Node>& arguments);
  static Tokens AsCase(const std::vector<Node>& arguments);
  Node Aggregate();

  // A number from a SELECT that keeps quotients.
  static void GoOnWith(Node& node, const TypedColumn& column);

  // --- Columns -----------------------------------------------------------------------------------

  Node Column(std::size_t end);
  TypedColumn TypeOfColumn(TextView schema, TextView table, TextView name, const Token& first);
  std::size_t BareColumns() const { return scope_ == nullptr ? 0 : scope_->bare.size(); }

  // Where the whole expression stands in GROUP BY, its columns are not bare.
  void Grouped(std::size_t begin, std::size_t bare);

  // The text of an expression, for comparing it with another one.
  fetchkit::Text KeyOf(std::size_t begin, std::size_t end) const;

  // --- Queries -----------------------------------------------------------------------------------

  // keepsQuotients: what stands around it goes on with a quotient's digits, as with those of one
  // that it makes itself; otherwise each is cut to 15.
  Selected SelectInBrackets(Use use, bool keepsQuotients = false);
  Selected Query(std::size_t end, Use use);
  Selected Select(std::size_t end, Use use);

  // SELECT [DISTINCT] x becomes SELECT only_row([DISTINCT] x).
  void OneRow(Tokens& list, const Token& select);

  // From SELECT to FROM; answers whether it is DISTINCT.
  bool List(Tokens& list, Use use, bool keepsQuotients);
  static fetchkit::Text InDoubleQuotes(TextView name);
  bool IsStar() const;
  void Star(Tokens& list);
  Tokens GroupBy();

  // The column, however its table is named elsewhere. It has been found before.
  void GroupColumn(std::size_t begin);
  void OrderBy(Tokens& target, Scope& scope, bool fromItems);

  // A name alone is that of a column of the SELECT before it is one of a table.
  bool IsNameOfItem() const;
  Node NameOfItem();
  static bool IsPosition(TextView number, std::size_t columns);

  // Whether what has just been read is one of the columns of the SELECT.
  bool IsItem(std::size_t begin, const Scope& scope) const;

  // --- Tables ------------------------------------------------------------------------------------

  Tokens From();
  void SourceOf(Tokens& from);
  Source Table(Tokens& target);

  // --- Changes -----------------------------------------------------------------------------------

  Tokens Insert();
  Tokens InsertRows(Tokens written, const std::vector<TypedColumn>& columns);

  // The table's column that stands here, which is not among those before it.
  TypedColumn ColumnOf(const Source& table, const std::vector<TypedColumn>& before) const;
  Tokens Update();
  Tokens Delete();
  void WhereOfChange(Tokens& written);
  const Tokens& tokens_;
  const TypesOf& typesOf_;
  const bool isServer_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;

  bool keepsQuotients_ = false;  // of the next SELECT
  std::size_t oneItemEnd_ = 0;   // in a SELECT's list, behind its last expression
  Scope* scope_ = nullptr;
};

}  // namespace fetchkit::hosts::typing
