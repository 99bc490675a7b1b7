#include "hosts/dialect/Tokenizer.h"

#include <algorithm>
#include <array>

#include "fetchkit/base/Error.h"

namespace fetchkit::hosts {
namespace {

// The embedded database's own parser gives up at about this depth; so deep a statement is no
// statement of this system, and the adapter works through brackets and CASE by recursion.
constexpr std::size_t kDeepestNesting = 90;

// Words that cannot be a name here. Most words that begin or join a part of a statement matter:
// they must not be taken for an operand, for a column or for the other name of a table.
constexpr std::array<TextView, 52> kKeywords = {
    u"ALL",    u"AND",  u"AS",       u"ASC",    u"BETWEEN", u"BY",      u"CASE",      u"CROSS",
    u"DELETE", u"DESC", u"DISTINCT", u"ELSE",   u"END",     u"ESCAPE",  u"EXCEPT",    u"EXISTS",
    u"FROM",   u"FULL", u"GROUP",    u"HAVING", u"IN",      u"INNER",   u"INSERT",    u"INTERSECT",
    u"INTO",   u"IS",   u"JOIN",     u"LIKE",   u"MINUS",   u"NATURAL", u"NOT",       u"NULL",
    u"NULLS",  u"ON",   u"OR",       u"ORDER",  u"OUTER",   u"OVER",    u"PARTITION", u"SELECT",
    u"SET",    u"THEN", u"UNION",    u"UNIQUE", u"UPDATE",  u"USING",   u"VALUES",    u"WHEN",
    u"WHERE",  u"WITH", u"BEGIN",    u"DECLARE"};

constexpr std::array<TextView, 5> kLongSigns = {u"||", u"<=", u">=", u"<>", u"!="};
constexpr TextView kSigns = u"(),.;+-*/=<>";

bool IsBlank(char16_t c) {
  return c == u' ' || (c >= u'\t' && c <= u'\r');
}
bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}
bool StartsWord(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_' || c >= 0x80;
}
bool ContinuesWord(char16_t c) {
  return StartsWord(c) || IsDigit(c) || c == u'$' || c == u'#';
}

class Reader {
 public:
  explicit Reader(TextView sql) : sql_(sql) {}

  Tokens Read() {
    for (SkipBlanks(); at_ < sql_.size(); SkipBlanks()) {
      const TokenKind kind = ReadOne();
      tokens_.push_back({kind, Text(sql_.substr(begin_, at_ - begin_)), begin_ + 1, blankBefore_});
      CheckNesting();
    }
    if (!open_.empty()) Refuse(u"what is not closed", tokens_[open_.back()]);
    return std::move(tokens_);
  }

 private:
  char16_t At(std::size_t i) const { return i < sql_.size() ? sql_[i] : u'\0'; }

  [[noreturn]] void RefuseHere(TextView what) const {
    Refuse(what, {TokenKind::Sign, Text(sql_.substr(begin_, 20)), begin_ + 1, false});
  }

  void SkipBlanks() {
    begin_ = at_;
    blankBefore_ = false;
    while (at_ < sql_.size()) {
      if (IsBlank(sql_[at_])) {
        ++at_;
      } else if (sql_.substr(at_, 2) == u"--") {
        at_ = std::min(sql_.find(u'\n', at_), sql_.size());
      } else if (sql_.substr(at_, 2) == u"/*") {
        begin_ = at_;
        at_ = sql_.find(u"*/", at_ + 2);
        if (at_ == TextView::npos) RefuseHere(u"a comment that does not end");
        at_ += 2;
      } else {
        break;
      }
      blankBefore_ = true;
    }
    begin_ = at_;
  }

  TokenKind ReadOne() {
    const char16_t c = sql_[at_];
    if (c == u'\'' || c == u'"') {
      ReadQuoted(c);
      return c == u'"' ? TokenKind::QuotedName : TokenKind::String;
    }
    if (StartsWord(c)) {
      while (at_ < sql_.size() && ContinuesWord(sql_[at_]))
        ++at_;
      return TokenKind::Word;
    }
    if (IsDigit(c) || (c == u'.' && IsDigit(At(at_ + 1)))) {
      ReadNumber();
      return TokenKind::Number;
    }
    if (c == u'(' && ReadOuterMark()) return TokenKind::OuterMark;
    const auto longSign = std::find(kLongSigns.begin(), kLongSigns.end(), sql_.substr(at_, 2));
    if (longSign == kLongSigns.end() && kSigns.find(c) == TextView::npos)
      RefuseHere(u"a character that has no meaning in a statement");
    at_ += longSign == kLongSigns.end() ? 1 : 2;
    return TokenKind::Sign;
  }

  void ReadQuoted(char16_t quote) {
    for (++at_;; at_ += 2) {
      at_ = sql_.find(quote, at_);
      if (at_ == TextView::npos) RefuseHere(u"a quote that does not end");
      if (At(at_ + 1) != quote) break;  // a doubled quote stands for itself
    }
    ++at_;
    // The embedded database would read the statement up to here only.
    if (sql_.substr(begin_, at_ - begin_).find(u'\0') != TextView::npos)
      RefuseHere(u"a NUL inside quotes");
  }

  void ReadNumber() {
    const auto digits = [&] {
      while (IsDigit(At(at_)))
        ++at_;
    };
    digits();
    if (At(at_) == u'.') {
      ++at_;
      digits();
    }
    if (UpperAscii(At(at_)) == u'E') {
      const std::size_t sign = At(at_ + 1) == u'+' || At(at_ + 1) == u'-' ? 1 : 0;
      if (IsDigit(At(at_ + 1 + sign))) {
        at_ += 1 + sign;
        digits();
      }
    }
    if (ContinuesWord(At(at_))) RefuseHere(u"a number that runs into a word");
  }

  bool ReadOuterMark() {
    std::size_t i = at_ + 1;
    while (IsBlank(At(i)))
      ++i;
    if (At(i) != u'+') return false;
    for (++i; IsBlank(At(i));)
      ++i;
    if (At(i) != u')') return false;
    at_ = i + 1;
    return true;
  }

  // Brackets and CASE ... END have to be nested in each other, so that whoever works on one of them
  // finds the whole of the other inside or outside.
  void CheckNesting() {
    const Token& token = tokens_.back();
    const bool inBracket = !open_.empty() && IsSign(tokens_[open_.back()], u"(");
    if (IsSign(token, u"(") || IsWord(token, u"CASE")) {
      open_.push_back(tokens_.size() - 1);
      if (open_.size() > kDeepestNesting) Refuse(u"brackets nested too deep", token);
    } else if (IsSign(token, u")")) {
      if (!inBracket) Refuse(u"a closing bracket without an opening one", token);
      open_.pop_back();
    } else if (IsWord(token, u"END") && !open_.empty()) {  // without CASE: that of a block
      if (inBracket) Refuse(u"END without CASE", token);
      open_.pop_back();
    } else if (IsSign(token, u";") && !open_.empty()) {
      Refuse(u"a ; inside brackets or CASE", token);
    }
  }

  TextView sql_;
  Tokens tokens_;
  std::vector<std::size_t> open_;
  std::size_t at_ = 0;
  std::size_t begin_ = 0;
  bool blankBefore_ = false;
};

}  // namespace

Tokens Tokenize(TextView sql) {
  return Reader(sql).Read();
}

Text ToSql(const Tokens& tokens) {
  Text sql;
  for (const Token& token : tokens) {
    if (token.blankBefore && !sql.empty()) sql.push_back(u' ');
    sql += token.text;
  }
  return sql;
}

void Refuse(TextView what, const Token& token) {
  throw Error(ErrorKind::Host,
              Join(u"The adapter refuses ", what, u": ", TextView(token.text).substr(0, 40),
                   u", at position ", token.position, u"."));
}

bool IsSign(const Token& token, TextView sign) {
  return token.kind == TokenKind::Sign && token.text == sign;
}

bool IsWord(const Token& token, TextView word) {
  return token.kind == TokenKind::Word && EqualFolded(token.text, word);
}

bool IsAnyWord(const Token& token, const std::vector<TextView>& words) {
  return std::any_of(words.begin(), words.end(),
                     [&](TextView word) { return IsWord(token, word); });
}

bool IsName(const Token& token) {
  if (token.kind != TokenKind::Word) return token.kind == TokenKind::QuotedName;
  return std::none_of(kKeywords.begin(), kKeywords.end(),
                      [&](TextView word) { return EqualFolded(token.text, word); });
}

Text NameOf(const Token& token) {
  if (token.kind != TokenKind::QuotedName) return token.text;
  return token.text.substr(1, token.text.size() - 2);
}

std::size_t ClosingBracket(const Tokens& tokens, std::size_t open) {
  std::size_t depth = 0;
  for (std::size_t i = open;; ++i) {
    if (IsSign(tokens[i], u"(")) ++depth;
    if (IsSign(tokens[i], u")") && --depth == 0) return i;
  }
}

std::size_t EndOfName(const Tokens& tokens, std::size_t begin) {
  std::size_t i = begin + 1;
  while (i + 1 < tokens.size() && IsSign(tokens[i], u".") &&
         (tokens[i + 1].kind == TokenKind::Word || tokens[i + 1].kind == TokenKind::QuotedName ||
          IsSign(tokens[i + 1], u"*")))
    i += 2;
  return i;
}

std::size_t FindWord(const Tokens& tokens, const std::vector<TextView>& words, std::size_t begin) {
  for (std::size_t i = begin; i < tokens.size(); ++i) {
    if (IsSign(tokens[i], u"(")) {
      i = ClosingBracket(tokens, i);
    } else if (IsAnyWord(tokens[i], words)) {
      return i;
    }
  }
  return tokens.size();
}

std::vector<Tokens> SplitAtCommas(const Tokens& tokens) {
  std::vector<Tokens> pieces(1);
  std::size_t depth = 0;
  for (const Token& token : tokens) {
    if (IsSign(token, u"(")) ++depth;
    if (IsSign(token, u")")) --depth;
    if (depth == 0 && IsSign(token, u",")) {
      pieces.emplace_back();
    } else {
      pieces.back().push_back(token);
    }
  }
  return pieces;
}

Tokens Slice(const Tokens& tokens, std::size_t begin, std::size_t end) {
  const auto at = [&](std::size_t i) {
    return tokens.begin() + static_cast<Tokens::difference_type>(i);
  };
  return {at(begin), at(end)};
}

void Append(Tokens& target, const Tokens& tail) {
  target.insert(target.end(), tail.begin(), tail.end());
}

void AppendSql(Tokens& target, TextView sql, std::size_t position) {
  for (Token& token : Tokenize(sql)) {
    token.position = position;
    token.blankBefore = token.blankBefore || token.kind == TokenKind::Word;
    target.push_back(std::move(token));
  }
}

}  // namespace fetchkit::hosts
