#include "tools/statements/Shape.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "demo/SampleAccounts.h"
#include "fetchkit/base/Utf8.h"
#include "fetchkit/utility/CodeTables.h"
#include "hosts/dialect/Tokenizer.h"
#include "hosts/sqlite/Database.h"

namespace fetchkit::statements {
namespace {

using namespace hosts;

struct Table {
  Text name;
  std::map<Text, Text> columns;  // by their names in upper case
  std::set<Text> key;
};

// The sample accounts' tables, by their names in upper case: statements spell names as they like.
const std::map<Text, Table>& Tables() {
  static const std::map<Text, Table> tables = [] {
    std::map<Text, Table> read;
    for (const auto& sample : demo::SampleDatabases()) {
      const bool isServers = sample.schema == "System";
      Statement rows(demo::SampleOriginal(sample.prefix),
                     u"SELECT t.name, c.name, c.pk FROM sqlite_master t, pragma_table_info(t.name) "
                     u"c WHERE t.type IN ('table', 'view')");
      while (rows.Step()) {
        const Text name = Join(isServers ? u"System." : u"", ToText(rows.Column(0)));
        const Text column = ToText(rows.Column(1));
        Table& table = read[UpperAscii(name)];
        table.name = name;
        table.columns[UpperAscii(column)] = column;
        if (ToLong(rows.Column(2)) > 0) table.key.insert(column);
      }
    }
    return read;
  }();
  return tables;
}

std::string TableName(TextView name) {
  const auto known = Tables().find(UpperAscii(name));
  return ToUtf8(known == Tables().end() ? Text(name) : known->second.name);
}

// In the order in which the columns of an index help.
enum class Compare { Equal, Join, Range };

bool IsValue(const Token& token) {
  return token.kind == TokenKind::String || token.kind == TokenKind::Number;
}

Text ShapeWord(const Text& word, const Chosen& chosen) {
  if (EqualFolded(word, u"ACC01") || EqualFolded(word, u"ACC02")) return u"ACCOUNT";
  for (const Text& column : chosen.columns)
    if (EqualFolded(word, column)) return u"COLUMN";
  for (const Text& table : chosen.tables) {
    if (EqualFolded(word, table)) return u"TABLE";
    if (EqualFolded(word, Join(table, u"_SEQ"))) return u"TABLE_SEQ";
    for (const TextView behind : {u"", u"Use"})
      if (EqualFolded(word, Join(u"blnAll", table, behind))) return Join(u"blnAllTABLE", behind);
    for (const auto& [before, behind] :
         {std::pair<TextView, TextView>(u"lng", u"ID"), {u"str", u"Code"}, {u"str", u"Name"}})
      for (const TextView stem : {CodeStem(table), TextView(table)})
        if (EqualFolded(word, Join(before, stem, behind))) return Join(before, u"STEM", behind);
  }
  return word;
}

class Reader {
 public:
  Reader(const Tokens& tokens, const Chosen& chosen) : tokens_(tokens), chosen_(chosen) {}

  Shape Read() {
    ReadTables();
    ReadConditions();
    Tokens written;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      Token token = tokens_[i];
      if (IsValue(token) && !IsConstant(i)) token.text = u"?";
      if (token.kind == TokenKind::Word) token.text = ShapeWord(token.text, chosen_);
      // A sign belongs to its number; a list of values is one, however long.
      if (IsValue(token) && !written.empty() && IsSign(written.back(), u"-") &&
          (written.size() < 2 || written[written.size() - 2].kind == TokenKind::Sign))
        written.pop_back();
      const std::size_t n = written.size();
      if (IsValue(token) && n > 3 && IsSign(written[n - 1], u",") && IsValue(written[n - 2]) &&
          IsSign(written[n - 3], u"(") && IsWord(written[n - 4], u"IN")) {
        written.pop_back();
        continue;
      }
      written.push_back(std::move(token));
    }
    shape_.text = ToUtf8(ToSql(written));
    return std::move(shape_);
  }

 private:
  bool Is(std::size_t i, TextView word) const {
    return i < tokens_.size() && IsWord(tokens_[i], word);
  }

  // Numbers that the library itself writes: flags, columns by their place, and 1=0.
  bool IsConstant(std::size_t i) const {
    if (tokens_[i].kind != TokenKind::Number || i == 0) return false;
    const auto isNumber = [&](std::size_t at) {
      return at < tokens_.size() && tokens_[at].kind == TokenKind::Number;
    };
    if (Is(i - 1, u"SELECT") || Is(i - 1, u"BY")) return true;
    if (i + 1 < tokens_.size() && IsSign(tokens_[i + 1], u"=") && isNumber(i + 2)) return true;
    return i > 1 && IsSign(tokens_[i - 1], u"=") &&
           (isNumber(i - 2) || UpperAscii(tokens_[i - 2].text).starts_with(u"BLN"));
  }

  void Needs(TextView name, Privilege privilege) {
    if (EqualFolded(name, u"DUAL")) return;
    const TextView alone =
        name.substr(name.find(u'.') == TextView::npos || EqualFolded(name.substr(0, 7), u"System.")
                        ? 0
                        : name.find(u'.') + 1);
    const bool isChosen =
        std::any_of(chosen_.tables.begin(), chosen_.tables.end(), [&](const Text& table) {
          return EqualFolded(table, alone) || EqualFolded(Join(table, u"_SEQ"), alone);
        });
    const std::string table =
        privilege == Privilege::Sequence ? ToUtf8(UpperAscii(alone)) : TableName(alone);
    shape_.needs.insert({table, privilege, isChosen});
  }

  // The name at i, which may have a schema; i goes behind it.
  Text Name(std::size_t& i) {
    const std::size_t end = EndOfName(tokens_, i);
    Text name;
    for (; i < end; ++i)
      name += NameOf(tokens_[i]);
    return name;
  }

  void ReadTables() {
    for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
      if (Is(i, u"INTO") || (Is(i, u"UPDATE") && i == 0)) {
        std::size_t at = i + 1;
        const Text table = Name(at);
        Needs(table, Is(i, u"INTO") ? Privilege::Insert : Privilege::Update);
        aliases_[UpperAscii(table)] = table;
        // Who looks for the rows to change has to be allowed to read them.
        if (Is(i, u"UPDATE")) Needs(table, Privilege::Select);
      } else if (Is(i + 1, u"NEXTVAL") && i > 0 && IsSign(tokens_[i], u".")) {
        Needs(tokens_[i - 1].text, Privilege::Sequence);
      } else if (Is(i, u"FROM")) {
        ReadFrom(i + 1, i > 0 && Is(i - 1, u"DELETE"));
      }
    }
  }

  void ReadFrom(std::size_t i, bool deletes) {
    for (;; ++i) {
      Text table;
      if (IsSign(tokens_[i], u"(")) {
        i = ClosingBracket(tokens_, i) + 1;  // its tables are read when its own FROM comes
      } else {
        table = Name(i);
        Needs(table, Privilege::Select);
        if (deletes) Needs(table, Privilege::Delete);
        aliases_[UpperAscii(table)] = table;
      }
      if (i < tokens_.size() && IsName(tokens_[i])) aliases_[UpperAscii(tokens_[i++].text)] = table;
      if (i >= tokens_.size() || !IsSign(tokens_[i], u",")) return;
    }
  }

  // The table and the column, as they are spelt there, of the column at i.
  std::optional<std::pair<std::string, std::string>> ColumnAt(std::size_t i) const {
    const Text column = UpperAscii(tokens_[i].text);
    if (i > 1 && IsSign(tokens_[i - 1], u".")) {
      const auto alias = aliases_.find(UpperAscii(tokens_[i - 2].text));
      if (alias == aliases_.end()) return std::nullopt;
      return ColumnOf(alias->second, column);
    }
    for (const auto& [alias, table] : aliases_)
      if (const auto found = ColumnOf(table, column)) return found;
    return std::nullopt;
  }

  std::optional<std::pair<std::string, std::string>> ColumnOf(TextView table,
                                                              const Text& column) const {
    const auto known = Tables().find(UpperAscii(table));
    if (known == Tables().end()) return std::nullopt;
    const auto name = known->second.columns.find(column);
    if (name == known->second.columns.end()) return std::nullopt;
    return std::pair(ToUtf8(ShapeWord(known->second.name, chosen_)),
                     ToUtf8(ShapeWord(name->second, chosen_)));
  }

  void ReadConditions() {
    const auto where = std::find_if(tokens_.begin(), tokens_.end(),
                                    [](const Token& each) { return IsWord(each, u"WHERE"); });
    std::map<std::string, std::map<std::string, Compare>> found;
    std::map<std::string, std::vector<std::string>> order;
    for (auto i = static_cast<std::size_t>(where - tokens_.begin()); i + 2 < tokens_.size(); ++i) {
      if (!IsName(tokens_[i]) || IsSign(tokens_[i + 1], u".") || IsSign(tokens_[i + 1], u"("))
        continue;
      const std::size_t begin = IsSign(tokens_[i - 1], u".") ? i - 2 : i;
      std::size_t op = i + 1;
      if (tokens_[op].kind == TokenKind::OuterMark) ++op;
      if (op + 1 >= tokens_.size()) continue;
      std::optional<Compare> how = Compared(tokens_[op], tokens_[op + 1]);
      if (!how && begin > 1) how = Compared(tokens_[begin - 1], tokens_[begin - 2]);
      const auto column = ColumnAt(i);
      // A flag tells too few rows apart to be looked up.
      if (!how || !column || column->second.starts_with("bln")) continue;
      const auto [at, isNew] = found[column->first].try_emplace(column->second, *how);
      if (isNew) order[column->first].push_back(column->second);
      at->second = std::min(at->second, *how);
    }
    for (auto& [table, columns] : order) {
      const auto& how = found[table];
      const auto known = Tables().find(UpperAscii(FromUtf8(table)));
      // Who has the whole key needs nothing else.
      if (known != Tables().end() && !known->second.key.empty() &&
          std::all_of(known->second.key.begin(), known->second.key.end(), [&](const Text& key) {
            const auto by = how.find(ToUtf8(key));
            return by != how.end() && by->second == Compare::Equal;
          }))
        std::erase_if(columns, [&](const std::string& column) {
          return known->second.key.count(FromUtf8(column)) == 0;
        });
      std::stable_sort(columns.begin(), columns.end(),
                       [&](const auto& a, const auto& b) { return how.at(a) < how.at(b); });
      shape_.index[table] = std::move(columns);
    }
  }

  // How a column is compared by that operator with that value or other column.
  static std::optional<Compare> Compared(const Token& op, const Token& other) {
    if (IsSign(op, u"=") && IsValue(other)) return Compare::Equal;
    if (IsSign(op, u"=") && IsName(other)) return Compare::Join;
    if (IsWord(op, u"IN") && IsSign(other, u"(")) return Compare::Equal;
    const bool isRange = IsSign(op, u">=") || IsSign(op, u"<=") || IsSign(op, u"<") ||
                         IsSign(op, u">") || IsWord(op, u"LIKE");
    if (isRange && IsValue(other)) return Compare::Range;
    return std::nullopt;
  }

  const Tokens& tokens_;
  const Chosen& chosen_;
  std::map<Text, Text> aliases_;  // in upper case; an empty table is a statement in brackets
  Shape shape_;
};

}  // namespace

bool Shape::IsWrite() const {
  return std::any_of(needs.begin(), needs.end(),
                     [](const Need& need) { return need.privilege != Privilege::Select; });
}

std::vector<Shape> ShapesOf(TextView sql, const Chosen& chosen) {
  Tokens tokens = Tokenize(sql);
  if (!tokens.empty() && IsWord(tokens[0], u"BEGIN")) tokens.erase(tokens.begin());
  std::vector<Shape> shapes;
  Tokens statement;
  for (const Token& token : tokens) {
    if (!IsSign(token, u";")) {
      statement.push_back(token);
      continue;
    }
    if (statement.size() > 1) shapes.push_back(Reader(statement, chosen).Read());  // END is one
    statement.clear();
  }
  if (!statement.empty()) shapes.push_back(Reader(statement, chosen).Read());
  return shapes;
}

}  // namespace fetchkit::statements
