#include "hosts/dialect/OuterJoin.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace fetchkit::hosts {
namespace {

const std::vector<TextView> kSetOperators = {u"UNION", u"INTERSECT", u"MINUS", u"EXCEPT"};
const std::vector<TextView> kTail = {u"GROUP", u"HAVING", u"ORDER"};

bool IsMark(const Token& token) {
  return token.kind == TokenKind::OuterMark;
}

void RefuseMarks(const Tokens& tokens) {
  const auto mark = std::find_if(tokens.begin(), tokens.end(), IsMark);
  if (mark != tokens.end()) Refuse(u"(+) outside of the WHERE of a SELECT", *mark);
}

bool HasMark(const Tokens& tokens) {
  return std::any_of(tokens.begin(), tokens.end(), IsMark);
}

// One item of a FROM clause.
struct Source {
  Tokens tokens;
  Text name;    // by which its columns are qualified
  Text schema;  // in front of a table's name; empty when there is none or the table is renamed
  std::optional<std::vector<Text>> columns;
  bool inner = false;
  std::set<std::size_t> dependsOn;  // indexes of sources
  std::vector<Tokens> on;
};

// A column as a predicate names it.
struct ColumnName {
  std::size_t at;  // its first token
  Text schema;
  Text table;
  Text column;
  bool marked;
};

Source ReadSource(Tokens tokens, std::size_t number, const Token& from) {
  if (tokens.empty()) Refuse(u"an empty place in FROM", from);
  Source source;
  std::size_t i = 0;
  if (IsSign(tokens[0], u"(")) {
    i = ClosingBracket(tokens, 0) + 1;
  } else if (IsName(tokens[0])) {
    i = EndOfName(tokens, 0);
    source.name = NameOf(tokens[i - 1]);
    if (i >= 3) source.schema = NameOf(tokens[i - 3]);
  }
  if (i > 0 && i < tokens.size() && IsWord(tokens[i], u"AS")) ++i;
  if (i > 0 && i + 1 == tokens.size() && IsName(tokens[i])) {
    source.name = NameOf(tokens[i++]);
    source.schema.clear();
  }
  if (i == 0 || i < tokens.size()) Refuse(u"a FROM item beside (+)", tokens[i]);
  if (source.name.empty()) {
    // Without a name it could not be spelt out where a bare "*" stood.
    source.name = Join(u"unnamed_", number);
    AppendSql(tokens, source.name, tokens[0].position);
  }
  source.tokens = std::move(tokens);
  return source;
}

// The pieces of a condition between its ANDs; those of BETWEEN and inside CASE join nothing, and
// brackets around a whole piece with a mark are taken off, because each half may belong to another
// table. A condition with OR stays whole.
std::vector<Tokens> SplitConjuncts(const Tokens& condition) {
  if (!condition.empty() && IsSign(condition[0], u"(") && HasMark(condition) &&
      ClosingBracket(condition, 0) + 1 == condition.size())
    return SplitConjuncts(Slice(condition, 1, condition.size() - 1));

  std::vector<Tokens> pieces(1);
  int cases = 0;
  int betweens = 0;
  for (std::size_t i = 0; i < condition.size(); ++i) {
    const Token& token = condition[i];
    if (IsSign(token, u"(")) {
      const std::size_t close = ClosingBracket(condition, i);
      Append(pieces.back(), Slice(condition, i, close + 1));
      i = close;
      continue;
    }
    if (IsWord(token, u"CASE")) ++cases;
    if (IsWord(token, u"END")) --cases;
    if (cases == 0 && IsWord(token, u"OR")) return {condition};
    if (cases == 0 && IsWord(token, u"BETWEEN")) ++betweens;
    if (cases == 0 && IsWord(token, u"AND")) {
      if (betweens == 0) {
        if (pieces.back().empty()) Refuse(u"AND without a predicate in front", token);
        pieces.emplace_back();
        continue;
      }
      --betweens;
    }
    pieces.back().push_back(token);
  }
  if (pieces.back().empty()) Refuse(u"AND without a predicate behind", condition.back());
  if (pieces.size() == 1) return pieces;
  std::vector<Tokens> split;
  for (const Tokens& piece : pieces) {
    const std::vector<Tokens> inner =
        HasMark(piece) ? SplitConjuncts(piece) : std::vector<Tokens>{piece};
    split.insert(split.end(), inner.begin(), inner.end());
  }
  return split;
}

std::vector<ColumnName> ColumnsIn(const Tokens& predicate) {
  std::vector<ColumnName> columns;
  for (std::size_t i = 0; i < predicate.size();) {
    if (!IsName(predicate[i])) {
      if (IsMark(predicate[i])) Refuse(u"(+) behind what is no column", predicate[i]);
      ++i;
      continue;
    }
    const std::size_t begin = std::exchange(i, EndOfName(predicate, i));
    if (i < predicate.size() && IsSign(predicate[i], u"(")) continue;  // a function
    ColumnName column{begin, {}, {}, NameOf(predicate[i - 1]), false};
    if (i - begin >= 3) column.table = NameOf(predicate[i - 3]);
    if (i - begin >= 5) column.schema = NameOf(predicate[i - 5]);
    column.marked = i < predicate.size() && IsMark(predicate[i]);
    if (column.marked) ++i;
    columns.push_back(std::move(column));
  }
  return columns;
}

// A SELECT without the SELECTs inside, which have been rewritten before.
class Scope {
 public:
  Scope(const Tokens& select, const ColumnsOf& columnsOf)
      : select_(select),
        columnsOf_(columnsOf),
        from_(FindWord(select, {u"FROM"})),
        where_(FindWord(select, {u"WHERE"}, from_)),
        tail_(FindWord(select, kTail, where_)) {}

  Tokens Rewrite() {
    if (where_ == select_.size() || !HasMark(Slice(select_, where_, tail_))) return select_;
    ReadSources();
    Tokens rest;
    for (const Tokens& predicate : SplitConjuncts(Slice(select_, where_ + 1, tail_)))
      if (HasMark(predicate)) {
        TakeMarked(predicate);
      } else {
        AddCondition(rest, rest.empty() ? u"WHERE" : u"AND", predicate);
      }
    for (const Source& source : sources_)
      if (source.inner && source.dependsOn.empty())
        Refuse(u"(+) on a table that no predicate joins to another one", source.tokens[0]);
    Tokens written = SelectList();
    Append(written, JoinedSources());
    Append(written, rest);
    Append(written, Slice(select_, tail_, select_.size()));
    return written;
  }

 private:
  void ReadSources() {
    const Tokens items = Slice(select_, from_ + 1, where_);
    const std::size_t join = FindWord(items, {u"JOIN"});
    if (join < items.size()) Refuse(u"JOIN in a SELECT with (+)", items[join]);
    for (Tokens& item : SplitAtCommas(items))
      sources_.push_back(ReadSource(std::move(item), sources_.size() + 1, select_[from_]));
  }

  // The source that the column belongs to. None: it comes from a SELECT around this one, or does
  // not exist, which the database will say.
  std::optional<std::size_t> OwnerOf(const ColumnName& column, const Token& at) {
    std::optional<std::size_t> owner;
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      if (!Owns(sources_[i], column)) continue;
      if (owner) Refuse(u"a column that two tables of this FROM have", at);
      owner = i;
    }
    return owner;
  }

  bool Owns(Source& source, const ColumnName& column) {
    if (!column.table.empty())
      return EqualFolded(source.name, column.table) &&
             (column.schema.empty() || EqualFolded(source.schema, column.schema));
    if (!source.columns) source.columns = columnsOf_(ToSql(source.tokens));
    return std::any_of(source.columns->begin(), source.columns->end(),
                       [&](const Text& name) { return EqualFolded(name, column.column); });
  }

  void TakeMarked(const Tokens& predicate) {
    for (const Token& token : predicate) {
      if (IsWord(token, u"OR")) Refuse(u"OR with (+)", token);
      if (IsWord(token, u"SELECT")) Refuse(u"(+) in a predicate with a SELECT", token);
    }
    std::optional<std::size_t> inner;
    std::set<std::size_t> mentioned;
    for (const ColumnName& column : ColumnsIn(predicate)) {
      const Token& at = predicate[column.at];
      const std::optional<std::size_t> owner = OwnerOf(column, at);
      if (owner) mentioned.insert(*owner);
      if (!column.marked) continue;
      if (!owner) Refuse(u"(+) behind a column of no table in this FROM", at);
      if (inner && *inner != *owner) Refuse(u"two tables marked (+) in one predicate", at);
      inner = owner;
    }
    mentioned.erase(*inner);  // there is a mark, and ColumnsIn finds a column before each
    Source& source = sources_[*inner];
    source.inner = true;
    source.dependsOn.merge(mentioned);
    Tokens plain = predicate;
    std::erase_if(plain, IsMark);
    source.on.push_back(std::move(plain));
  }

  static void AddCondition(Tokens& target, TextView word, const Tokens& predicate) {
    if (predicate.empty()) return;
    AppendSql(target, word, predicate[0].position);
    Append(target, predicate);
    target[target.size() - predicate.size()].blankBefore = true;
  }

  // From the word SELECT up to FROM.
  Tokens SelectList() const {
    Tokens list;
    for (const Tokens& item : SplitAtCommas(Slice(select_, 0, from_))) {
      if (!list.empty()) AppendSql(list, u",", list.back().position);
      const bool first = list.empty();
      if (item.empty() || !IsSign(item.back(), u"*") ||
          (item.size() > 1 && !(first && item[item.size() - 2].kind == TokenKind::Word))) {
        Append(list, item);
        continue;
      }
      Append(list, Slice(item, 0, item.size() - 1));  // SELECT and perhaps DISTINCT
      for (std::size_t i = 0; i < sources_.size(); ++i)
        AppendSql(list, Join(i == 0 ? u" " : u", ", Quoted(sources_[i].name), u".*"),
                  item.back().position);
    }
    return list;
  }

  // A name that a keyword of the embedded database happens to be stays a name.
  static Text Quoted(const Text& name) { return Join(u"\"", name, u"\""); }

  Tokens JoinedSources() const {
    Tokens joined;
    std::vector<bool> written(sources_.size(), false);
    const auto write = [&](std::size_t i, TextView word, TextView on) {
      AppendSql(joined, word, select_[from_].position);
      Append(joined, sources_[i].tokens);
      joined[joined.size() - sources_[i].tokens.size()].blankBefore = true;
      AppendSql(joined, on, select_[from_].position);
      written[i] = true;
    };
    for (std::size_t i = 0; i < sources_.size(); ++i)
      if (!sources_[i].inner)
        write(i, joined.empty() ? u"FROM" : u"JOIN", joined.empty() ? u"" : u"ON 1=1");
    for (std::size_t left = InnerCount(); left > 0; --left) {
      const std::size_t next = NextInner(written);
      write(next, u"LEFT JOIN", u"");
      TextView word = u"ON";
      for (const Tokens& predicate : sources_[next].on)
        AddCondition(joined, std::exchange(word, u"AND"), predicate);
    }
    return joined;
  }

  std::size_t InnerCount() const {
    return static_cast<std::size_t>(std::count_if(
        sources_.begin(), sources_.end(), [](const Source& source) { return source.inner; }));
  }

  // The first inner table that is not written yet while all that it depends on is.
  std::size_t NextInner(const std::vector<bool>& written) const {
    std::size_t stuck = 0;
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      if (written[i]) continue;
      const auto& needs = sources_[i].dependsOn;
      if (std::all_of(needs.begin(), needs.end(), [&](std::size_t n) { return written[n]; }))
        return i;
      stuck = i;
    }
    Refuse(u"tables that are outer joined to each other", sources_[stuck].tokens[0]);
  }

  const Tokens& select_;
  const ColumnsOf& columnsOf_;
  const std::size_t from_;
  const std::size_t where_;
  const std::size_t tail_;
  std::vector<Source> sources_;
};

// Tokens without brackets left to look into: SELECTs joined by set operators, or no SELECT at all.
Tokens RewriteLevel(const Tokens& tokens, const ColumnsOf& columnsOf) {
  std::size_t at = FindWord(tokens, {u"SELECT"});
  if (at == tokens.size()) return tokens;  // a part of a predicate: its marks belong outside
  Tokens written = Slice(tokens, 0, at);
  while (at < tokens.size()) {
    const std::size_t end = FindWord(tokens, kSetOperators, at);
    Append(written, Scope(Slice(tokens, at, end), columnsOf).Rewrite());
    at = FindWord(tokens, {u"SELECT"}, end);
    Append(written, Slice(tokens, end, at));
  }
  RefuseMarks(written);
  return written;
}

Tokens RewriteInside(const Tokens& tokens, const ColumnsOf& columnsOf) {
  Tokens written;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    written.push_back(tokens[i]);
    if (!IsSign(tokens[i], u"(")) continue;
    const std::size_t close = ClosingBracket(tokens, i);
    Append(written, RewriteInside(Slice(tokens, i + 1, close), columnsOf));
    written.push_back(tokens[close]);
    i = close;
  }
  return RewriteLevel(written, columnsOf);
}

}  // namespace

Tokens RewriteOuterJoins(const Tokens& tokens, const ColumnsOf& columnsOf) {
  if (!HasMark(tokens)) return tokens;
  Tokens written = RewriteInside(tokens, columnsOf);
  RefuseMarks(written);
  return written;
}

}  // namespace fetchkit::hosts
