// SQL text in words, literals and signs, as far as the adapter must tell them apart.
//
// The adapter changes a statement by changing its tokens and writing them out again; what it does
// not understand it refuses rather than passing it on, because the embedded database might read it
// as something else.
#pragma once

#include <cstddef>
#include <vector>

#include "fetchkit/base/Text.h"

namespace fetchkit::hosts {

enum class TokenKind {
  Word,        // name or keyword
  QuotedName,  // in double quotes, which belong to the text
  String,      // in single quotes, which belong to the text
  Number,
  Sign,       // operator or punctuation
  OuterMark,  // "(+)"
};

struct Token {
  TokenKind kind;
  Text text;
  std::size_t position;  // 1-based, in the statement as it was sent, also of what replaced a token
  bool blankBefore;
};

using Tokens = std::vector<Token>;

// Comments count as blanks. Error (Host) with its position for an unterminated quote or comment,
// brackets or CASE that are not closed or not nested, and any character outside of quotes that the
// dialect does not have.
Tokens Tokenize(TextView sql);

// The statement's text again, each run of blanks and line breaks as one blank.
Text ToSql(const Tokens& tokens);

// Throws Error (Host): what, the token and its position.
[[noreturn]] void Refuse(TextView what, const Token& token);

bool IsSign(const Token& token, TextView sign);

// Whether the token is that keyword, in any letter case.
bool IsWord(const Token& token, TextView word);
bool IsAnyWord(const Token& token, const std::vector<TextView>& words);

// A name of a table, column or function: in double quotes, or a word that is no keyword.
bool IsName(const Token& token);

// The name without double quotes.
Text NameOf(const Token& token);

// The index of the closing bracket for the opening one at open.
std::size_t ClosingBracket(const Tokens& tokens, std::size_t open);

// The index behind the name that starts at begin: "a", "a.b", "a.b.c" or "a.*".
std::size_t EndOfName(const Tokens& tokens, std::size_t begin);

// The first token from begin that is that word outside of all brackets; tokens.size() when none.
std::size_t FindWord(const Tokens& tokens, const std::vector<TextView>& words,
                     std::size_t begin = 0);

// The pieces between the commas that stand outside of brackets.
std::vector<Tokens> SplitAtCommas(const Tokens& tokens);

Tokens Slice(const Tokens& tokens, std::size_t begin, std::size_t end);
void Append(Tokens& target, const Tokens& tail);

// Appends the tokens of a piece that the adapter puts in, at the position of what it replaces.
void AppendSql(Tokens& target, TextView sql, std::size_t position);

}  // namespace fetchkit::hosts
