#include "hosts/dialect/TypedStatement.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "fetchkit/base/Error.h"
#include "hosts/dialect/NumberTexts.h"

namespace fetchkit::hosts::typing {

Tokens TypedStatement::Write() {
  if (IsWord(tokens_[0], u"INSERT")) return Insert();
  if (IsWord(tokens_[0], u"UPDATE")) return Update();
  if (IsWord(tokens_[0], u"DELETE")) return Delete();
  Tokens written = Query(tokens_.size(), Use::Rows).tokens;
  ExpectEnd();
  return written;
}

bool TypedStatement::AtAny(const std::vector<TextView>& words) const {
  return !AtEnd() && IsAnyWord(tokens_[at_], words);
}

bool TypedStatement::Follows(std::size_t ahead, TextView word) const {
  return at_ + ahead < end_ && IsWord(tokens_[at_ + ahead], word);
}

void TypedStatement::NoColumn(TextView name) {
  throw Error(ErrorKind::Host, Join(u"no such column: ", name));
}

void TypedStatement::RefuseHere(TextView what) const {
  if (AtEnd()) Refuse(Join(what, u" behind"), tokens_[at_ - 1]);
  Refuse(what, tokens_[at_]);
}

void TypedStatement::TakeWord(Tokens& target, TextView word) {
  if (!At(word)) RefuseHere(Join(u"what should be ", word));
  Take(target);
}

void TypedStatement::TakeSign(Tokens& target, TextView sign) {
  if (!AtSign(sign)) RefuseHere(Join(u"what should be ", sign));
  Take(target);
}

void TypedStatement::ExpectEnd() const {
  if (!AtEnd()) Refuse(u"what it does not understand", tokens_[at_]);
}

std::size_t TypedStatement::Find(const std::vector<TextView>& words, std::size_t begin,
                                 std::size_t end) const {
  for (std::size_t i = begin; i < end; ++i) {
    if (IsSign(tokens_[i], u"(")) {
      i = ClosingBracket(tokens_, i);
    } else if (IsAnyWord(tokens_[i], words)) {
      return i;
    }
  }
  return end;
}

void TypedStatement::Wrap(Tokens& operand, TextView function, const Token* place) {
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

void TypedStatement::RequireValue(const Node& node) {
  if (node.isCondition) Refuse(u"a condition where a value should be", node.tokens[0]);
}

Node TypedStatement::Exact(Node node) {
  RequireValue(node);
  if (std::exchange(node.inexact, false)) Wrap(node.tokens, u"exact");
  return node;
}

Node TypedStatement::AsOperand(Node node) {
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

Node TypedStatement::AsText(Node node) {
  node = Exact(std::move(node));
  if (node.type == Number || node.type == Unknown) {
    Wrap(node.tokens, u"to_char");
    node.isLiteral = false;
    node.type = Text;
  }
  return node;
}

Node TypedStatement::As(ValueType type, Node node) {
  if (type == Number) return AsNumber(std::move(node));
  if (type == Text) return AsText(std::move(node));
  return Exact(std::move(node));
}

void TypedStatement::Unify(Node& left, Node& right) {
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

Tokens TypedStatement::Insert() {
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

Tokens TypedStatement::InsertRows(Tokens written, const std::vector<TypedColumn>& columns) {
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

TypedColumn TypedStatement::ColumnOf(const Source& table,
                                     const std::vector<TypedColumn>& before) const {
  if (AtEnd() || !IsName(tokens_[at_])) RefuseHere(u"what is no column");
  const fetchkit::Text name = NameOf(tokens_[at_]);
  const auto isIt = [&](const TypedColumn& column) { return EqualFolded(column.name, name); };
  if (std::any_of(before.begin(), before.end(), isIt)) RefuseHere(u"a column named twice");
  const auto found = std::find_if(table.columns.begin(), table.columns.end(), isIt);
  if (found == table.columns.end()) NoColumn(name);
  return *found;
}

Tokens TypedStatement::Update() {
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

Tokens TypedStatement::Delete() {
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

void TypedStatement::WhereOfChange(Tokens& written) {
  if (!AtEnd()) {
    TakeWord(written, u"WHERE");
    Append(written, Condition().tokens);
  }
  ExpectEnd();
  scope_ = nullptr;
}

}  // namespace fetchkit::hosts::typing
