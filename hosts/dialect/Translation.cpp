#include "hosts/dialect/Translation.h"

#include <algorithm>
#include <utility>

namespace fetchkit::hosts {
namespace {

// Of what a function is written as: an argument may stand in it several times, and functions in it.
constexpr std::size_t kLongestCall = 100'000;

const std::vector<TextView> kEndOfSelect = {u"UNION", u"INTERSECT", u"MINUS", u"EXCEPT"};
const std::vector<TextView> kEndOfFrom = {u"WHERE",     u"GROUP", u"HAVING", u"ORDER", u"UNION",
                                          u"INTERSECT", u"MINUS", u"EXCEPT", u"SET",   u"SELECT"};

// Signs and words behind which the pattern of a LIKE has ended.
bool EndsOperand(const Token& token) {
  static const std::vector<TextView> kWords = {
      u"AND",   u"OR",     u"ESCAPE", u"THEN",    u"WHEN",   u"ELSE",      u"END",    u"GROUP",
      u"ORDER", u"HAVING", u"UNION",  u"MINUS",   u"EXCEPT", u"INTERSECT", u"WHERE",  u"FROM",
      u"AS",    u"IS",     u"ASC",    u"DESC",    u"NULLS",  u"LEFT",      u"JOIN",   u"ON",
      u"INNER", u"CROSS",  u"FULL",   u"NATURAL", u"RIGHT",  u"FETCH",     u"OFFSET", u"FOR"};
  if (token.kind == TokenKind::Word) return IsAnyWord(token, kWords);
  if (token.kind != TokenKind::Sign) return false;
  return !IsSign(token, u"+") && !IsSign(token, u"-") && !IsSign(token, u"*") &&
         !IsSign(token, u"/") && !IsSign(token, u"||") && !IsSign(token, u".") &&
         !IsSign(token, u"(");
}

bool IsWordAt(const Tokens& tokens, std::size_t i, TextView word) {
  return i < tokens.size() && IsWord(tokens[i], word);
}

class Translator {
 public:
  explicit Translator(const Engine& engine) : engine_(engine) {}

  // Tokens outside of each other's brackets; what stands inside is translated the same way.
  Tokens Level(const Tokens& tokens) {
    Tokens written;
    bool inFrom = false;
    for (std::size_t i = 0; i < tokens.size();) {
      const Token& token = tokens[i];
      if (IsAnyWord(token, kEndOfFrom)) inFrom = false;
      if (IsWord(token, u"FROM")) {
        inFrom = true;
        if (!engine_.HasDual() && IsDualAlone(tokens, i + 1)) {
          i += 2;
          continue;
        }
      }
      if (IsWord(token, u"ORDER") && IsWordAt(tokens, i + 1, u"BY") && !engine_.OrdersNulls()) {
        const std::size_t end = FindWord(tokens, kEndOfSelect, i);
        Append(written, Slice(tokens, i, i + 2));
        Append(written, OrderTerms(tokens, i + 2, end));
        i = end;
      } else if (IsWord(token, u"LIKE") && !engine_.LikeEscape().empty()) {
        std::size_t end = i + 1;
        while (end < tokens.size() && !EndsOperand(tokens[end]))
          end = EndOfUnit(tokens, end);
        written.push_back(token);
        Append(written, Level(Slice(tokens, i + 1, end)));
        if (!IsWordAt(tokens, end, u"ESCAPE"))
          AppendSql(written, Join(u" ", engine_.LikeEscape()), token.position);
        i = end;
      } else if (IsSign(token, u"(")) {
        const std::size_t close = ClosingBracket(tokens, i);
        const bool isSource = inFrom && IsWordAt(tokens, i + 1, u"SELECT") &&
                              (IsWord(tokens[i - 1], u"FROM") || IsWord(tokens[i - 1], u"JOIN") ||
                               IsSign(tokens[i - 1], u","));
        Append(written, Brackets(tokens, i));
        i = close + 1;
        if (isSource && !IsWordAt(tokens, i, u"AS") && (i == tokens.size() || !IsName(tokens[i])))
          AppendSql(written, Join(u" unnamed_q", token.position), token.position);
      } else if (IsName(token) && !IsWord(token, u"LEFT") && !IsJoinWord(tokens, i)) {
        i = Name(tokens, i, written);
      } else if (IsSign(token, u"/") && i + 1 < tokens.size() && tokens[i + 1].text == u"1.0") {
        // A double: some engines give a quotient of decimals few digits.
        AppendSql(written, u"/ 1e0", token.position);
        i += 2;
      } else {
        written.push_back(token);
        ++i;
      }
    }
    return written;
  }

 private:
  // RIGHT JOIN and RIGHT OUTER JOIN; behind FROM it is a table of that name.
  static bool IsJoinWord(const Tokens& tokens, std::size_t i) {
    const bool isTable = i > 0 && (IsSign(tokens[i - 1], u",") || IsWord(tokens[i - 1], u"FROM") ||
                                   IsWord(tokens[i - 1], u"JOIN"));
    return IsWord(tokens[i], u"RIGHT") && !isTable &&
           (IsWordAt(tokens, i + 1, u"JOIN") || IsWordAt(tokens, i + 1, u"OUTER"));
  }

  static bool IsDualAlone(const Tokens& tokens, std::size_t i) {
    return IsWordAt(tokens, i, u"DUAL") &&
           (i + 1 == tokens.size() || IsAnyWord(tokens[i + 1], kEndOfFrom));
  }

  // Behind a bracket with what is inside, CASE ... END, or a single token.
  static std::size_t EndOfUnit(const Tokens& tokens, std::size_t i) {
    if (IsSign(tokens[i], u"(")) return ClosingBracket(tokens, i) + 1;
    if (!IsWord(tokens[i], u"CASE")) return i + 1;
    for (std::size_t open = 0;; ++i) {
      if (IsWord(tokens[i], u"CASE")) ++open;
      if (IsWord(tokens[i], u"END") && --open == 0) return i + 1;
    }
  }

  Tokens Brackets(const Tokens& tokens, std::size_t open) {
    const std::size_t close = ClosingBracket(tokens, open);
    Tokens written = {tokens[open]};
    Append(written, Level(Slice(tokens, open + 1, close)));
    written.push_back(tokens[close]);
    return written;
  }

  // A name at i: a function's call, a draw from a sequence, or a table or column. Answers the index
  // behind it.
  std::size_t Name(const Tokens& tokens, std::size_t i, Tokens& written) {
    const std::size_t end = EndOfName(tokens, i);
    if (end < tokens.size() && IsSign(tokens[end], u"(") && end == i + 1) {
      Append(written, Call(tokens, i));
      return ClosingBracket(tokens, end) + 1;
    }
    if (end - i >= 3 && IsWord(tokens[end - 1], u"NEXTVAL")) {
      const Text sequence = ToSql(Slice(tokens, i, end - 2));
      const Text drawn = engine_.NextValue(sequence);
      if (!drawn.empty()) {
        if (std::count(drawn_.begin(), drawn_.end(), UpperAscii(sequence)) > 0)
          Refuse(u"a second draw from a sequence", tokens[i]);
        drawn_.push_back(UpperAscii(sequence));
        AppendSql(written, Join(u" ", drawn), tokens[i].position);
        return end;
      }
    }
    for (std::size_t part = i; part < end; ++part) {
      Token name = tokens[part];
      const auto& keywords = engine_.Keywords();
      if (name.kind == TokenKind::QuotedName ||
          (name.kind == TokenKind::Word &&
           std::find(keywords.begin(), keywords.end(), UpperAscii(name.text)) != keywords.end()))
        name.text = engine_.Quoted(NameOf(name));
      written.push_back(std::move(name));
    }
    return end;
  }

  Tokens Call(const Tokens& tokens, std::size_t i) {
    const std::size_t close = ClosingBracket(tokens, i + 1);
    std::vector<Tokens> arguments = SplitAtCommas(Slice(tokens, i + 2, close));
    if (arguments.size() == 1 && arguments[0].empty()) arguments.clear();
    for (Tokens& argument : arguments)
      argument = Level(argument);
    const Text name = UpperAscii(tokens[i].text);
    if (name == u"DECODE" && !engine_.NullSafeEqual().empty()) return Decode(tokens[i], arguments);
    const bool fromStart = arguments.size() > 1 && arguments[1].size() == 1 &&
                           arguments[1][0].kind == TokenKind::Number &&
                           arguments[1][0].text != u"0" &&
                           arguments[1][0].text.find_first_not_of(u"0123456789") == Text::npos;
    for (const FunctionRule& rule : engine_.Functions())
      if (rule.name == name && (fromStart || !rule.fromStart) &&
          (rule.arguments < 0 || static_cast<std::size_t>(rule.arguments) == arguments.size()))
        return Written(rule, arguments, tokens[i]);
    Tokens call = {tokens[i], tokens[i + 1]};
    for (std::size_t a = 0; a < arguments.size(); ++a) {
      if (a > 0) AppendSql(call, u",", tokens[i].position);
      Append(call, arguments[a]);
    }
    call.push_back(tokens[close]);
    return call;
  }

  static Tokens Call(TextView text, const Token& name) {
    if (text.size() > kLongestCall) Refuse(u"a call that grows too long", name);
    Tokens written;
    AppendSql(written, text, name.position);
    return written;
  }

  // The rule's text, each $ replaced by its argument.
  static Tokens Written(const FunctionRule& rule, const std::vector<Tokens>& arguments,
                        const Token& name) {
    if (rule.text.empty()) Refuse(u"what it has no words for", name);
    Text text = u" ";
    for (std::size_t i = 0; i < rule.text.size(); ++i) {
      if (rule.text[i] != u'$') {
        text += rule.text[i];
        continue;
      }
      const char16_t which = rule.text[++i];
      for (std::size_t a = 0; a < arguments.size(); ++a)
        if (which == u'*' || a == static_cast<std::size_t>(which - u'1'))
          text += Join(which == u'*' && a > 0 ? u", " : u"", ToSql(arguments[a]));
    }
    return Call(text, name);
  }

  Tokens Decode(const Token& name, const std::vector<Tokens>& arguments) const {
    if (arguments.size() < 3) Refuse(u"decode without a value and a result", name);
    Text text = u" CASE";
    std::size_t i = 1;
    for (; i + 1 < arguments.size(); i += 2)
      text += Join(u" WHEN (", ToSql(arguments[0]), u") ", engine_.NullSafeEqual(), u" (",
                   ToSql(arguments[i]), u") THEN ", ToSql(arguments[i + 1]));
    if (i < arguments.size()) text += Join(u" ELSE ", ToSql(arguments[i]));
    return Call(Join(text, u" END"), name);
  }

  // Each term that ends in NULLS FIRST or NULLS LAST as two.
  Tokens OrderTerms(const Tokens& tokens, std::size_t begin, std::size_t end) {
    Tokens written;
    for (Tokens term : SplitAtCommas(Slice(tokens, begin, end))) {
      if (!written.empty()) AppendSql(written, u",", written.back().position);
      bool first = false;
      const bool told = term.size() > 2 && IsWord(term[term.size() - 2], u"NULLS");
      if (told) {
        first = IsWord(term.back(), u"FIRST");
        term.resize(term.size() - 2);
      }
      Tokens direction;
      if (term.size() > 1 && IsAnyWord(term.back(), {u"ASC", u"DESC"})) {
        direction = {term.back()};
        term.pop_back();
      }
      if (term.empty()) Refuse(u"an empty place in ORDER BY", tokens[begin - 1]);
      term = Level(SpeltOut(tokens, begin, term));
      if (told)
        AppendSql(written, Join(u" (", ToSql(term), first ? u") IS NULL DESC," : u") IS NULL,"),
                  term[0].position);
      Append(written, term);
      Append(written, direction);
    }
    return written;
  }

  // A column of a select list without its other name, which becomes name.
  static Tokens WithoutAlias(Tokens item, Text& name) {
    const auto names = [](const Token& last, const Token& before) {
      return IsName(last) && (before.kind != TokenKind::Sign || IsSign(before, u")"));
    };
    if (item.size() > 1 && names(item.back(), item[item.size() - 2])) {
      name = NameOf(item.back());
      item.pop_back();
      if (IsWord(item.back(), u"AS")) item.pop_back();
    }
    return item;
  }

  // The column that a term of ORDER BY names by its number or its other name; the engine knows
  // neither inside of an expression. Any other term stays.
  static Tokens SpeltOut(const Tokens& tokens, std::size_t orderBy, const Tokens& term) {
    const Token& named = term[0];
    const bool isNumber = named.kind == TokenKind::Number;
    if (term.size() > 1 || (!isNumber && !IsName(named))) return term;
    const std::size_t select = FindWord(tokens, {u"SELECT"});
    const std::size_t from = FindWord(tokens, {u"FROM"}, select);
    std::size_t begin = select + 1;
    if (IsWordAt(tokens, begin, u"DISTINCT") || IsWordAt(tokens, begin, u"ALL")) ++begin;
    const bool isOne = from < orderBy && FindWord(tokens, kEndOfSelect) > orderBy;
    std::size_t number = 0;
    bool isCountable = isOne;
    if (isOne)
      for (const Tokens& item : SplitAtCommas(Slice(tokens, begin, from))) {
        Text name;
        const Tokens column = WithoutAlias(item, name);
        isCountable = isCountable && !item.empty() && !IsSign(item.back(), u"*");
        ++number;
        if (isNumber ? isCountable && named.text == Join(number) : EqualFolded(name, NameOf(named)))
          return column;
      }
    if (isNumber) Refuse(u"an ORDER BY a column's number", named);
    return term;
  }

  const Engine& engine_;
  std::vector<Text> drawn_;
};

}  // namespace

Tokens Translate(const Tokens& tokens, const Engine& engine) {
  return Translator(engine).Level(tokens);
}

}  // namespace fetchkit::hosts
