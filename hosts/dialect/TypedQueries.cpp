#include "hosts/dialect/TypedStatement.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <variant>

#include "hosts/dialect/NumberTexts.h"

namespace fetchkit::hosts::typing {
namespace {

// Of a column in every server.
constexpr std::size_t kLongestName = 60;

const std::vector<TextView> kSets = {u"UNION", u"INTERSECT", u"EXCEPT"};
const std::vector<TextView> kJoins = {u"JOIN", u"INNER", u"LEFT",   u"RIGHT",
                                      u"FULL", u"CROSS", u"NATURAL"};

}  // namespace

Node TypedStatement::Column(std::size_t end) {
  const Token& first = tokens_[at_];
  const std::size_t parts = (end - at_ + 1) / 2;
  const fetchkit::Text name = NameOf(tokens_[end - 1]);
  const fetchkit::Text table = parts > 1 ? NameOf(tokens_[end - 3]) : fetchkit::Text();
  const fetchkit::Text schema = parts > 2 ? NameOf(tokens_[end - 5]) : fetchkit::Text();
  if (parts > 3) RefuseHere(u"a name of four parts");
  Node node;
  GoOnWith(node, TypeOfColumn(schema, table, name, first));
  while (at_ < end)
    Take(node.tokens);
  if (!AtEnd() && tokens_[at_].kind == TokenKind::OuterMark) Take(node.tokens);
  return node;
}

void TypedStatement::GoOnWith(Node& node, const TypedColumn& column) {
  node.type = column.type;
  node.kind = column.kind;
  node.inexact = node.hasQuotient = column.type == Number && column.kind == NumberKind::Quotient;
}

TypedColumn TypedStatement::TypeOfColumn(TextView schema, TextView table, TextView name,
                                         const Token& first) {
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
    if (item != nullptr && (found == nullptr || item->isColumn))
      return {item->alias, item->type, item->kind};
    if (found == nullptr) continue;
    if (item != nullptr) Refuse(u"a name of a column and of an expression", first);
    if (scope == scope_) scope->sawOwn = true;
    for (Scope* inner = scope_; inner != scope; inner = inner->outer)
      inner->sawOuter = true;
    const auto& grouped = scope->groupedColumns;
    if (!scope->insideAggregate && std::find(grouped.begin(), grouped.end(), id) == grouped.end())
      scope->bare.push_back(&first);
    return *found;
  }
  NoColumn(table.empty() ? fetchkit::Text(name) : Join(table, u".", name));
}

void TypedStatement::Grouped(std::size_t begin, std::size_t bare) {
  if (scope_ == nullptr || scope_->groupedKeys.empty() || scope_->bare.size() == bare) return;
  const auto& keys = scope_->groupedKeys;
  if (std::find(keys.begin(), keys.end(), KeyOf(begin, at_)) != keys.end())
    scope_->bare.resize(bare);
}

fetchkit::Text TypedStatement::KeyOf(std::size_t begin, std::size_t end) const {
  fetchkit::Text key;
  for (std::size_t i = begin; i < end; ++i)
    key.append(tokens_[i].kind == TokenKind::Word ? UpperAscii(tokens_[i].text) : tokens_[i].text)
        .push_back(u' ');
  return key;
}

Selected TypedStatement::SelectInBrackets(Use use, bool keepsQuotients) {
  if (!AtSign(u"(")) RefuseHere(u"what should be a SELECT in brackets");
  const std::size_t close = ClosingBracket(tokens_, at_);
  Selected selected;
  Take(selected.tokens);
  if (!AtAny({u"SELECT", u"WITH"})) RefuseHere(u"what should be a SELECT");
  keepsQuotients_ = keepsQuotients;
  Selected inner = Within(at_, close, [&] { return Query(close, use); });
  Append(selected.tokens, inner.tokens);
  selected.columns = std::move(inner.columns);
  Take(selected.tokens);
  return selected;
}

Selected TypedStatement::Query(std::size_t end, Use use) {
  end_ = end;
  if (At(u"WITH")) RefuseHere(u"WITH");
  const std::size_t order = Find({u"ORDER"}, at_, end);
  const std::size_t firstSet = Find(kSets, at_, order);
  if (use == Use::Value && (firstSet < order || order < end))
    Refuse(u"ORDER BY or a set of rows as one value", tokens_[std::min(firstSet, order)]);
  if (firstSet == order) return Select(end, use);
  keepsQuotients_ = false;

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
      all.columns[i].kind = std::max(all.columns[i].kind, more.columns[i].kind);
      if (more.columns[i].type != Null && more.columns[i].type != type)
        Refuse(u"a number beside a text in SELECTs", word);
    }
    Append(all.tokens, more.tokens);
  }
  if (order == end) return all;
  // Of several SELECTs only columns can be ordered, by number or by name.
  Scope names;
  for (const TypedColumn& column : all.columns)
    names.items.push_back({column.name, {}, column.type, column.kind, true});
  OrderBy(all.tokens, names, true);
  return all;
}

Selected TypedStatement::Select(std::size_t end, Use use) {
  const bool keepsQuotients = std::exchange(keepsQuotients_, false);
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
  const bool distinct = Within(begin, from, [&] { return List(list, use, keepsQuotients); });
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
    selected.columns.push_back({item.alias, item.type, item.kind});
  scope_ = scope.outer;
  return selected;
}

void TypedStatement::OneRow(Tokens& list, const Token& select) {
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

bool TypedStatement::List(Tokens& list, Use use, bool keepsQuotients) {
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
      Node node = Value();
      if (!keepsQuotients || distinct || node.kind != NumberKind::Quotient)
        node = Exact(std::move(node));
      Item item{{}, KeyOf(begin, at_), node.type, node.kind, false};
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
      } else if (node.tokens.size() != end - begin &&
                 (!isServer_ || item.key.size() < kLongestName)) {
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

fetchkit::Text TypedStatement::InDoubleQuotes(TextView name) {
  fetchkit::Text quoted = u"\"";
  for (const char16_t c : name)
    quoted.append(c == u'"' ? 2 : 1, c);
  return quoted.append(u"\"");
}

bool TypedStatement::IsStar() const {
  if (IsSign(tokens_[at_], u"*")) return true;
  return IsName(tokens_[at_]) && IsSign(tokens_[EndOfName(tokens_, at_) - 1], u"*");
}

void TypedStatement::Star(Tokens& list) {
  const Token& first = tokens_[at_];
  const std::size_t end = IsSign(first, u"*") ? at_ + 1 : EndOfName(tokens_, at_);
  const fetchkit::Text table = end - at_ > 1 ? NameOf(tokens_[end - 3]) : fetchkit::Text();
  bool found = false;
  for (const Source& source : scope_->sources) {
    if (!table.empty() && !EqualFolded(source.name, table)) continue;
    found = true;
    for (const TypedColumn& column : source.columns)
      scope_->items.push_back({column.name, {}, column.type, column.kind, true});
  }
  if (!found) RefuseHere(u"* of what is no table here");
  scope_->bare.push_back(&first);
  while (at_ < end)
    Take(list);
}

Tokens TypedStatement::GroupBy() {
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

void TypedStatement::GroupColumn(std::size_t begin) {
  const fetchkit::Text name = NameOf(tokens_[at_ - 1]);
  const fetchkit::Text table = at_ - begin > 1 ? NameOf(tokens_[at_ - 3]) : fetchkit::Text();
  for (std::size_t s = 0; s < scope_->sources.size(); ++s) {
    if (!table.empty() && !EqualFolded(scope_->sources[s].name, table)) continue;
    for (std::size_t c = 0; c < scope_->sources[s].columns.size(); ++c)
      if (EqualFolded(scope_->sources[s].columns[c].name, name))
        scope_->groupedColumns.push_back({s, c});
  }
}

void TypedStatement::OrderBy(Tokens& target, Scope& scope, bool fromItems) {
  Scope* const before = std::exchange(scope_, &scope);
  scope.itemsVisible = true;
  TakeWord(target, u"ORDER");
  TakeWord(target, u"BY");
  for (bool more = true; more;) {
    const std::size_t begin = at_;
    const Node node = Exact(IsNameOfItem() ? NameOfItem() : Value());
    if (node.type == Unknown && !isServer_)
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

bool TypedStatement::IsNameOfItem() const {
  if (AtEnd() || !IsName(tokens_[at_])) return false;
  if (at_ + 1 < end_ && !IsSign(tokens_[at_ + 1], u",") &&
      !IsAnyWord(tokens_[at_ + 1], {u"ASC", u"DESC", u"NULLS"}))
    return false;
  const fetchkit::Text name = NameOf(tokens_[at_]);
  return std::any_of(scope_->items.begin(), scope_->items.end(),
                     [&](const Item& item) { return EqualFolded(item.alias, name); });
}

Node TypedStatement::NameOfItem() {
  const fetchkit::Text name = NameOf(tokens_[at_]);
  Node node;
  Take(node.tokens);
  for (const Item& item : scope_->items)
    if (EqualFolded(item.alias, name)) {
      node.type = item.type;
      node.kind = item.kind;
    }
  return node;
}

bool TypedStatement::IsPosition(TextView number, std::size_t columns) {
  const auto value = NumberOf(number);
  const auto* whole = value ? std::get_if<std::int64_t>(&*value) : nullptr;
  return whole != nullptr && *whole > 0 && static_cast<std::uint64_t>(*whole) <= columns;
}

bool TypedStatement::IsItem(std::size_t begin, const Scope& scope) const {
  const fetchkit::Text key = KeyOf(begin, at_);
  const bool isName = IsName(tokens_[begin]) && EndOfName(tokens_, begin) == at_;
  const fetchkit::Text name = isName ? NameOf(tokens_[at_ - 1]) : fetchkit::Text();
  return std::any_of(scope.items.begin(), scope.items.end(), [&](const Item& item) {
    return item.key == key || (isName && EqualFolded(item.alias, name));
  });
}

Tokens TypedStatement::From() {
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

void TypedStatement::SourceOf(Tokens& from) {
  Source source;
  if (AtSign(u"(")) {
    // A SELECT here does not see the other tables of this FROM.
    Scope* const own = std::exchange(scope_, scope_->outer);
    Selected selected = SelectInBrackets(Use::Rows, true);
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

Source TypedStatement::Table(Tokens& target) {
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

}  // namespace fetchkit::hosts::typing
