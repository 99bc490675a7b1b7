#include "hosts/sqlite/SqliteConnection.h"

#include <utility>
#include <vector>

#include "fetchkit/base/Error.h"
#include "hosts/dialect/Dialect.h"

namespace fetchkit {
namespace {

using hosts::Database;
using hosts::Statement;

class DatabaseCatalog : public hosts::Catalog {
 public:
  explicit DatabaseCatalog(Database& database) : database_(database) {}

  std::vector<Text> ColumnsOf(TextView fromItem) override {
    return Statement(database_, Join(u"SELECT * FROM ", fromItem, u" WHERE 0")).ColumnNames();
  }

  bool ConfusesTypes() const override { return true; }

  std::vector<hosts::TypedColumn> TypesOf(TextView table) override {
    // The embedded database's own tables, which are in no account.
    Text name = UpperAscii(table.substr(table.rfind(u'.') + 1));
    if (name.starts_with(u'"')) name.erase(0, 1);
    for (const TextView own : {u"SQLITE_", u"PRAGMA_", u"JSON_", u"DBSTAT"})
      if (name.starts_with(own)) throw Error(ErrorKind::Host, Join(u"no such table: ", table));
    const Statement statement(database_, Join(u"SELECT * FROM ", table, u" WHERE 0"));
    std::vector<hosts::TypedColumn> columns;
    for (int i = 0; i < statement.ColumnCount(); ++i)
      columns.push_back({statement.ColumnName(i), TypeOf(statement.DeclaredType(i))});
    return columns;
  }

  std::int64_t NextValue(TextView schema, TextView sequence) override {
    Statement draw(database_, Join(u"UPDATE ", schema, schema.empty() ? u"" : u".",
                                   u"demo_sequence SET last = last + 1 WHERE name = ?1 "
                                   u"RETURNING last"));
    draw.Bind(1, sequence);
    if (!draw.Step()) throw Error(ErrorKind::Host, Join(u"There is no sequence ", sequence, u"."));
    const auto number = static_cast<std::int64_t>(ToDouble(draw.Column(0)));
    draw.Step();  // to its end, which is when the change is kept
    return number;
  }

 private:
  // A declaration is any word that contains one of these, in this order; only of such columns the
  // embedded database makes numbers or texts. What a view computes has none.
  static hosts::ValueType TypeOf(TextView declaration) {
    const Text upper = UpperAscii(declaration);
    for (const TextView word :
         {u"INT", u"CHAR", u"CLOB", u"TEXT", u"REAL", u"FLOA", u"DOUB", u"NUM", u"DEC"})
      if (upper.find(word) != Text::npos)
        return word == u"CHAR" || word == u"CLOB" || word == u"TEXT" ? hosts::ValueType::Text
                                                                     : hosts::ValueType::Number;
    return hosts::ValueType::Unknown;
  }

  Database& database_;
};

}  // namespace

SqliteConnection::SqliteConnection(std::shared_ptr<Database> database, Login who)
    : TracedConnection(std::move(who)), database_(std::move(database)) {}

std::shared_ptr<hosts::MemoryRecordset> SqliteConnection::Query(TextView sql, Text& adapted) {
  DatabaseCatalog catalog(*database_);
  const hosts::AdaptedStatement statement = Adapt(sql, catalog);
  if (statement.kind != hosts::AdaptedStatement::Kind::Query)
    throw Error(ErrorKind::Host, u"A statement that gives no rows cannot be opened.");
  adapted = statement.statements[0];
  Statement query(*database_, adapted);
  std::vector<Value> cells;
  while (query.Step())
    for (int i = 0; i < query.ColumnCount(); ++i)
      cells.push_back(query.Column(i));
  return std::make_shared<hosts::MemoryRecordset>(query.ColumnNames(), std::move(cells));
}

std::int64_t SqliteConnection::Change(TextView sql, Text& adapted) {
  DatabaseCatalog catalog(*database_);
  const std::vector<Text> statements = Adapt(sql, catalog).statements;
  for (const Text& statement : statements)
    adapted += Join(adapted.empty() ? u"" : u"; ", statement);
  hosts::Savepoint savepoint(*database_);
  std::int64_t rows = 0;
  for (const Text& statement : statements)
    rows += database_->Execute(statement);
  savepoint.Release();
  return rows;
}

}  // namespace fetchkit
