#include "demo/servers/ServerAccounts.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <utility>

#include "demo/SampleAccounts.h"
#include "fetchkit/base/Numbers.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/odbc/Echo.h"
#include "hosts/odbc/Link.h"
#include "hosts/odbc/Statement.h"
#include "hosts/sqlite/Database.h"

namespace fetchkit::demo {
namespace {

using hosts::Database;
using hosts::Engine;
using hosts::InQuotes;

// Stands at every table, view and sequence that was made here, where it goes with them.
constexpr TextView kMark = u"FetchKit sample account";

constexpr std::size_t kRowsOfAnInsert = 200;

// What differs between engines when tables are made.
class Maker {
 public:
  virtual ~Maker() = default;
  virtual Text SchemaStatement(TextView schema) const = 0;
  virtual Text TypeOf(TextView type, bool isKey) const = 0;
  virtual Text TableStatement(TextView name, TextView columns) const {
    return Join(u"CREATE TABLE ", name, u" (", columns, u")");
  }
  virtual Text SequenceStatement(TextView name, TextView start) const {
    return Join(u"CREATE SEQUENCE ", name, u" START WITH ", start);
  }
  // Behind the statement that makes the table, view or sequence.
  virtual Text MarkStatement(TextView, TextView) const { return {}; }
  virtual bool HasSequences() const { return true; }
  // Rows of schema, name, kind (TABLE, VIEW or SEQUENCE) and whether it has the mark.
  virtual Text Inventory(const std::vector<Text>& schemas) const = 0;

 protected:
  static Text List(const std::vector<Text>& names) {
    Text list;
    for (const Text& name : names)
      list += Join(list.empty() ? u"" : u", ", InQuotes(name, u'\''));
    return list;
  }
};

class PostgreSqlMaker : public Maker {
 public:
  Text SchemaStatement(TextView schema) const override {
    return Join(u"CREATE SCHEMA IF NOT EXISTS ", schema);
  }
  Text TypeOf(TextView type, bool) const override {
    return type == u"REAL" ? u"double precision" : type == u"INTEGER" ? u"integer" : u"text";
  }
  Text MarkStatement(TextView kind, TextView name) const override {
    return Join(u"COMMENT ON ", kind, u" ", name, u" IS ", InQuotes(kMark, u'\''));
  }
  Text Inventory(const std::vector<Text>& schemas) const override {
    return Join(
        u"SELECT nspname, relname, CASE relkind WHEN 'v' THEN 'VIEW' WHEN 'S' THEN 'SEQUENCE' ELSE "
        u"'TABLE' END, CASE WHEN obj_description(c.oid, 'pg_class') = ",
        InQuotes(kMark, u'\''),
        u" THEN 1 ELSE 0 END FROM pg_class c JOIN pg_namespace n ON n.oid = c.relnamespace WHERE "
        u"relkind NOT IN ('i', 'I', 't', 'c') AND nspname IN (",
        List(schemas), u")");
  }
};

class MariaDbMaker : public Maker {
 public:
  Text SchemaStatement(TextView schema) const override {
    return Join(u"CREATE DATABASE IF NOT EXISTS ", schema,
                u" CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin");
  }
  Text TypeOf(TextView type, bool isKey) const override {
    if (type == u"REAL") return u"double";
    return type == u"INTEGER" ? u"int" : isKey ? u"varchar(250)" : u"text";
  }
  Text TableStatement(TextView name, TextView columns) const override {
    return Join(Maker::TableStatement(name, columns),
                u" ENGINE=InnoDB CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin COMMENT=",
                InQuotes(kMark, u'\''));
  }
  Text SequenceStatement(TextView name, TextView start) const override {
    return Join(Maker::SequenceStatement(name, start), u" NOCACHE COMMENT=",
                InQuotes(kMark, u'\''));
  }
  Text Inventory(const std::vector<Text>& schemas) const override {
    return Join(
        u"SELECT t.table_schema, t.table_name, CASE WHEN table_type LIKE '%VIEW' THEN 'VIEW' WHEN "
        u"table_type = 'SEQUENCE' THEN 'SEQUENCE' ELSE 'TABLE' END, CASE WHEN table_comment = ",
        InQuotes(kMark, u'\''), u" OR view_definition LIKE '%", kMark,
        u"%' THEN 1 ELSE 0 END FROM information_schema.tables t LEFT JOIN information_schema.views "
        u"v ON v.table_schema = t.table_schema AND v.table_name = t.table_name WHERE "
        u"t.table_schema IN (",
        List(schemas), u")");
  }
};

// Schemas are files that were attached; what made a table or view is kept as it was written.
class SqliteMaker : public Maker {
 public:
  Text SchemaStatement(TextView) const override { return {}; }
  Text TypeOf(TextView type, bool) const override { return Text(type); }
  Text TableStatement(TextView name, TextView columns) const override {
    return Maker::TableStatement(name, Join(columns, u" /* ", kMark, u" */"));
  }
  bool HasSequences() const override { return false; }
  Text Inventory(const std::vector<Text>& schemas) const override {
    Text query;
    for (const Text& schema : schemas)
      query += Join(query.empty() ? u"" : u" UNION ALL ", u"SELECT ", InQuotes(schema, u'\''),
                    u", name, upper(type), sql LIKE '%", kMark, u"%' FROM ", schema,
                    u".sqlite_master WHERE type IN ('table', 'view')");
    return query;
  }
};

const Maker& MakerFor(SqlEngine engine) {
  static const PostgreSqlMaker postgreSql;
  static const MariaDbMaker mariaDb;
  static const SqliteMaker sqlite;
  if (engine == SqlEngine::PostgreSql) return postgreSql;
  if (engine == SqlEngine::MariaDb) return mariaDb;
  if (engine == SqlEngine::Sqlite) return sqlite;
  throw std::invalid_argument(
      "load: an Oracle schema is a user, which its administrator makes; docs/hosts.md says how to "
      "try an account there");
}

Text Lower(TextView name) {
  Text lower(name);
  for (char16_t& unit : lower)
    if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit - u'A' + u'a');
  return lower;
}

Text Literal(const Value& value) {
  if (value.IsNull()) return u"NULL";
  if (value.Is<Text>()) return InQuotes(ToText(value), u'\'');
  return PlainDecimalText(ToDouble(value));
}

// Rows of a query on the embedded database.
std::vector<std::vector<Value>> RowsOf(const Database& database, TextView sql) {
  hosts::Statement statement(database, sql);
  std::vector<std::vector<Value>> rows;
  while (statement.Step()) {
    rows.emplace_back();
    for (int i = 0; i < statement.ColumnCount(); ++i)
      rows.back().push_back(statement.Column(i));
  }
  return rows;
}

}  // namespace

class ServerAccounts::Loader {
 public:
  explicit Loader(const OdbcTarget& target)
      : maker_(MakerFor(target.engine)),
        engine_(hosts::EngineOf(target.engine)),
        link_(FromUtf8(target.connectionString), std::chrono::seconds(15),
              odbc::EncodingFor(FromUtf8(target.connectionString), target.engine,
                                std::chrono::seconds(15))) {
    for (const Text& statement : engine_.SessionStatements(false))
      Run(statement);
    std::vector<Text> schemas;
    for (const SampleDatabase& sample : SampleDatabases()) {
      schemas.push_back(Lower(FromUtf8(sample.schema)));
      filled_.push_back(&SampleOriginal(sample.prefix));
    }
    if (target.engine == SqlEngine::Sqlite)
      for (const TextView schema : {u"ACC01", u"ACC02"})
        Attach(schema);
    LookRound(schemas);
  }

  std::vector<std::string> made;
  std::vector<std::string> foreign;

  Written Load() {
    if (!foreign.empty())
      throw std::runtime_error(
          fmt::format("these were not made by this program, which does not touch them: {}",
                      fmt::join(foreign, ", ")));
    // Wholly or not at all, where the engine takes tables back; what is left over elsewhere has the
    // mark, and the next Load drops it.
    odbc::Transaction transaction(link_);
    for (const Text& statement : drops_)
      Run(statement);
    Written written;
    for (std::size_t i = 0; i < filled_.size(); ++i) {
      const Text schema = Lower(FromUtf8(SampleDatabases()[i].schema));
      Run(maker_.SchemaStatement(schema));
      for (const auto& table : RowsOf(*filled_[i], kTables)) {
        if (IsLeftOut(ToText(table[0]))) continue;
        WriteTable(*filled_[i], schema, ToText(table[0]), written);
      }
      for (const auto& index : RowsOf(*filled_[i], kIndexes))
        WriteIndex(schema, ToText(index[0]), ToText(index[1]));
      for (const auto& view : RowsOf(*filled_[i], kViews))
        WriteView(schema, ToText(view[0]), ToText(view[1]));
      if (maker_.HasSequences()) WriteSequences(*filled_[i], schema);
    }
    transaction.Commit();
    return written;
  }

 private:
  static constexpr TextView kTables =
      u"SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name";
  static constexpr TextView kViews =
      u"SELECT name, sql FROM sqlite_master WHERE type = 'view' ORDER BY name";
  static constexpr TextView kIndexes =
      u"SELECT name, sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL ORDER BY name";
  static constexpr TextView kSequences = u"SELECT name, last FROM demo_sequence ORDER BY name";

  void Run(TextView sql) {
    if (!sql.empty()) odbc::Statement(link_, std::chrono::minutes(5)).Change(sql);
  }

  void Attach(TextView schema) {
    std::vector<Text> attach = engine_.SchemaStatements(schema);
    if (schema != u"ACC01") attach.erase(attach.begin());  // the server's own database, once
    for (const Text& statement : attach)
      Run(statement);
  }

  // Where an engine has sequences it needs no table for them, and no DUAL either.
  bool IsLeftOut(TextView table) const {
    return maker_.HasSequences() &&
           (EqualFolded(table, u"DUAL") || EqualFolded(table, u"demo_sequence"));
  }

  Text Qualified(TextView schema, TextView name) const {
    return Join(schema, u".", engine_.Quoted(name));
  }

  bool HasTable(const Database& database, TextView name) const {
    return !RowsOf(database,
                   Join(u"SELECT 1 FROM sqlite_master WHERE name = ", InQuotes(name, u'\'')))
                .empty();
  }

  void LookRound(const std::vector<Text>& schemas) {
    std::set<Text> wanted;
    for (std::size_t i = 0; i < schemas.size(); ++i) {
      for (const TextView query : {kTables, kViews})
        for (const auto& row : RowsOf(*filled_[i], query))
          if (!IsLeftOut(ToText(row[0])))
            wanted.insert(Lower(Join(schemas[i], u".", ToText(row[0]))));
      if (maker_.HasSequences() && HasTable(*filled_[i], u"demo_sequence"))
        for (const auto& row : RowsOf(*filled_[i], kSequences))
          wanted.insert(Lower(Join(schemas[i], u".", ToText(row[0]))));
    }
    odbc::Rows there =
        odbc::Statement(link_, std::chrono::minutes(1)).Query(maker_.Inventory(schemas));
    for (std::size_t i = 0; i < there.cells.size(); i += 4) {
      const Text schema = Lower(ToText(there.cells[i]));
      const Text name = ToText(there.cells[i + 1]);
      const Text kind = ToText(there.cells[i + 2]);
      const Text known = Lower(Join(schema, u".", name));
      if (wanted.count(known) == 0) continue;
      if (ToLong(there.cells[i + 3]) == 0) {
        foreign.push_back(ToUtf8(known));
        continue;
      }
      made.push_back(ToUtf8(known));
      const Text drop = Join(u"DROP ", kind, u" ", Qualified(schema, name));
      // A view goes before the tables that it stands on.
      drops_.insert(kind == u"VIEW" ? drops_.begin() : drops_.end(), drop);
    }
    std::sort(foreign.begin(), foreign.end());
  }

  void WriteTable(const Database& from, TextView schema, TextView name, Written& written) {
    std::set<Text> inIndexes;
    for (const auto& row :
         RowsOf(from, Join(u"SELECT upper(c.name) FROM pragma_index_list(", InQuotes(name, u'\''),
                           u") l, pragma_index_info(l.name) c")))
      inIndexes.insert(ToText(row[0]));
    Text columns;
    Text keys;
    for (const auto& column :
         RowsOf(from, Join(u"SELECT name, type, dflt_value, pk FROM pragma_table_info(",
                           InQuotes(name, u'\''), u") ORDER BY pk = 0, pk, cid"))) {
      if (ToLong(column[3]) == 0) continue;
      keys += Join(keys.empty() ? u"" : u", ", ToText(column[0]));
    }
    for (const auto& column :
         RowsOf(from, Join(u"SELECT name, type, dflt_value, pk FROM pragma_table_info(",
                           InQuotes(name, u'\''), u") ORDER BY cid"))) {
      const bool isKey =
          ToLong(column[3]) > 0 || inIndexes.count(UpperAscii(ToText(column[0]))) > 0;
      columns += Join(columns.empty() ? u"" : u", ", ToText(column[0]), u" ",
                      maker_.TypeOf(ToText(column[1]), isKey));
      if (!column[2].IsNull()) columns += Join(u" DEFAULT ", ToText(column[2]));
    }
    if (!keys.empty()) columns += Join(u", PRIMARY KEY (", keys, u")");
    const Text target = Qualified(schema, name);
    Run(maker_.TableStatement(target, columns));
    Run(maker_.MarkStatement(u"TABLE", target));
    ++written.tables;
    written.rows += CopyRows(from, name, target);
  }

  std::size_t CopyRows(const Database& from, TextView name, TextView target) {
    const auto rows = RowsOf(from, Join(u"SELECT * FROM ", InQuotes(name, u'"')));
    for (std::size_t begin = 0; begin < rows.size(); begin += kRowsOfAnInsert) {
      Text insert = Join(u"INSERT INTO ", target, u" VALUES ");
      const std::size_t end = std::min(rows.size(), begin + kRowsOfAnInsert);
      for (std::size_t row = begin; row < end; ++row) {
        insert += row == begin ? u"(" : u", (";
        for (std::size_t i = 0; i < rows[row].size(); ++i)
          insert.append(i == 0 ? u"" : u", ").append(Literal(rows[row][i]));
        insert += u")";
      }
      Run(insert);
    }
    return rows.size();
  }

  // "CREATE INDEX name ON table (...)", as the scripts have it.
  void WriteIndex(TextView schema, TextView name, TextView sql) {
    const std::size_t on = sql.find(u" ON ");
    // The embedded engine takes the schema at the index, the others at the table.
    if (maker_.HasSequences()) {
      Run(Join(u"CREATE INDEX ", name, u" ON ", schema, u".", sql.substr(on + 4)));
    } else {
      Run(Join(u"CREATE INDEX ", schema, u".", name, sql.substr(on)));
    }
  }

  // "CREATE VIEW name AS SELECT ... FROM table", as the scripts have it.
  void WriteView(TextView schema, TextView name, TextView sql) {
    const Text target = Qualified(schema, name);
    const std::size_t from = sql.rfind(u"FROM ");
    // The condition is the mark: not every engine takes a comment.
    Run(Join(u"CREATE VIEW ", target,
             sql.substr(sql.find(u" AS")).substr(0, from - sql.find(u" AS")), u"FROM ", schema,
             u".", sql.substr(from + 5), u" WHERE ", InQuotes(kMark, u'\''), u" IS NOT NULL"));
    Run(maker_.MarkStatement(u"VIEW", target));
  }

  void WriteSequences(const Database& from, TextView schema) {
    if (!HasTable(from, u"demo_sequence")) return;
    for (const auto& row : RowsOf(from, kSequences)) {
      const Text target = Qualified(schema, ToText(row[0]));
      Run(maker_.SequenceStatement(target, PlainDecimalText(ToDouble(row[1]) + 1)));
      Run(maker_.MarkStatement(u"SEQUENCE", target));
    }
  }

  const Maker& maker_;
  const Engine& engine_;
  odbc::Link link_;
  std::vector<const Database*> filled_;
  std::vector<Text> drops_;
};

ServerAccounts::ServerAccounts(const OdbcTarget& target)
    : loader_(std::make_unique<Loader>(target)) {}

ServerAccounts::~ServerAccounts() = default;

const std::vector<std::string>& ServerAccounts::made() const {
  return loader_->made;
}

const std::vector<std::string>& ServerAccounts::foreign() const {
  return loader_->foreign;
}

ServerAccounts::Written ServerAccounts::Load() {
  return loader_->Load();
}

}  // namespace fetchkit::demo
