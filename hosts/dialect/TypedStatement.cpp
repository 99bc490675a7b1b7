#include "hosts/dialect/TypedStatement.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "fetchkit/base/Date.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Numbers.h"
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

void TypedStatement::RefuseNode(TextView what, const Node& node) const {
  const auto sent =
      std::lower_bound(tokens_.begin(), tokens_.end(), node.tokens[0].position,
                       [](const Token& token, std::size_t at) { return token.position < at; });
  Refuse(what, sent == tokens_.end() ? node.tokens[0] : *sent);
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

Node TypedStatement::Exact(Node node) const {
  RequireValue(node);
  const bool isNoisy = !isServer_ || node.kind >= NumberKind::Double;
  if (std::exchange(node.inexact, false) && isNoisy) Wrap(node.tokens, u"exact");
  return node;
}

Node TypedStatement::AsOperand(Node node) const {
  RequireValue(node);
  if (node.type == Date) RefuseNode(u"a date where a number should be", node);
  if (node.type == Text && node.isLiteral) {
    const fetchkit::Text& text = node.tokens[0].text;
    const auto number = NumberOf(TextView(text).substr(1, text.size() - 2));
    if (!number) Refuse(u"a text that is no number where one should be", node.tokens[0]);
    if (isServer_) {
      node.type = Number;
      SetNumber(node, *number);
    }
  }
  if (node.type == Text || node.type == Unknown) {
    const Token place = node.tokens[0];
    Wrap(node.tokens, u"to_number", &place);
    node.inexact = node.isLiteral = false;
    node.kind = NumberKind::Double;
  }
  node.type = Number;
  return node;
}

Node TypedStatement::AsText(Node node) const {
  node = Exact(std::move(node));
  if (node.type == Date) RefuseNode(u"a date where a text should be", node);
  if (node.type == Number || node.type == Unknown) {
    const Token place = node.tokens[0];
    if (!isServer_) {
      Wrap(node.tokens, u"to_char");
    } else if (node.kind == NumberKind::Quotient) {
      RefuseNode(u"a quotient as a text: it may have no end", node);
    } else if (node.type == Number && node.kind == NumberKind::Whole) {
      Wrap(node.tokens, u"whole_text");
    } else {
      Wrap(node.tokens, u"decimal_text", &place);
    }
    node.isLiteral = false;
    node.type = Text;
  }
  return node;
}

void TypedStatement::SetNumber(Node& node, const std::variant<std::int64_t, double>& number) {
  Token& token = node.tokens[0];
  const auto* whole = std::get_if<std::int64_t>(&number);
  const bool negative = whole != nullptr ? *whole < 0 : std::get<double>(number) < 0;
  token.kind = TokenKind::Number;
  token.text = whole != nullptr ? fetchkit::Text(Piece(*whole).view())
                                : PlainDecimalText(std::get<double>(number));
  node.kind =
      token.text.find(u'.') == fetchkit::Text::npos ? NumberKind::Whole : NumberKind::Decimal;
  if (!negative) return;
  token.text.erase(0, 1);
  Tokens written = {{TokenKind::Sign, u"(", token.position, token.blankBefore},
                    {TokenKind::Sign, u"-", token.position, false},
                    {TokenKind::Number, token.text, token.position, false},
                    {TokenKind::Sign, u")", token.position, false}};
  node.tokens = std::move(written);
  node.isLiteral = false;
}

void TypedStatement::RequireDate(const Node& node) const {
  if (node.type == Date || node.type == Null) return;
  const Token& token = node.tokens[0];
  const TextView text = TextView(token.text).substr(node.type == Text ? 1 : 0);
  const auto number = [&](std::size_t from, std::size_t count) {
    int value = 0;
    for (const char16_t c : text.substr(from, count))
      value = c >= u'0' && c <= u'9' ? value * 10 + (c - u'0') : -100'000;
    return value;
  };
  // yyyy-MM-dd, with or without hh:mm:ss
  bool isDate = node.type == Text && node.isLiteral && (text.size() == 11 || text.size() == 20) &&
                text[4] == u'-' && text[7] == u'-' &&
                DateFromYmd(number(0, 4), static_cast<unsigned>(number(5, 2)),
                            static_cast<unsigned>(number(8, 2)));
  if (isDate && text.size() == 20)
    isDate = text[10] == u' ' && text[13] == u':' && text[16] == u':' && number(11, 2) >= 0 &&
             number(11, 2) < 24 && number(14, 2) >= 0 && number(14, 2) < 60 && number(17, 2) >= 0 &&
             number(17, 2) < 60;
  if (!isDate) RefuseNode(u"what is no date where one should be", node);
}

Node TypedStatement::As(ValueType type, Node node) const {
  if (type == Number) return AsNumber(std::move(node));
  if (type == Text) return AsText(std::move(node));
  if (type == Date) RequireDate(node);
  return Exact(std::move(node));
}

void TypedStatement::Unify(Node& left, Node& right) const {
  left = Exact(std::move(left));
  right = Exact(std::move(right));
  if (left.type == Date || right.type == Date) {
    RequireDate(left);
    RequireDate(right);
    return;
  }
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
