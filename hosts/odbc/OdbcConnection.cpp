#include "hosts/odbc/OdbcConnection.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "fetchkit/base/Error.h"
#include "fetchkit/platform/DateText.h"
#include "hosts/dialect/Dialect.h"
#include "hosts/odbc/Echo.h"
#include "hosts/odbc/Link.h"
#include "hosts/odbc/ReadOnly.h"
#include "hosts/odbc/Secrets.h"
#include "hosts/odbc/Statement.h"

namespace fetchkit {
namespace {

[[noreturn]] void Fail(TextView what) {
  throw Error(ErrorKind::Host, what);
}

hosts::TypedColumn TypeOf(const odbc::ColumnDescription& column) {
  using enum hosts::ValueType;
  using hosts::NumberKind;
  switch (column.type) {
    case SQL_INTEGER:
    case SQL_SMALLINT:
    case SQL_TINYINT:
    case SQL_BIGINT:
      return {column.name, Number, NumberKind::Whole};
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return {column.name, Number, NumberKind::Decimal};
    case SQL_DOUBLE:
    case SQL_FLOAT:
    case SQL_REAL:
      return {column.name, Number, NumberKind::Double};
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
      return {column.name, Text};
    default:
      return {column.name, odbc::IsDate(column.type) ? Date : Unknown};
  }
}

}  // namespace

// A date that a driver may have put in the place of one that it cannot read: the day on which it
// did so, without a time, and the last second of all. Midnight may have passed since.
bool IsDoubtful(const Value& value, double today) {
  const auto* date = std::get_if<Date>(&value.data());
  if (date == nullptr) return false;
  return date->serial == today || date->serial == today - 1 || date->serial > 2'958'465.999;
}

// The connection to the database, opened again when it was lost, and what is set on it.
class OdbcConnection::Session : public hosts::Catalog {
 public:
  Session(TextView connectionString, OdbcSettings settings)
      : settings_(settings),
        engine_(hosts::EngineOf(settings.engine)),
        connectionString_(connectionString),
        secrets_(connectionString) {}

  // Runs the work on a connection that is open and set for the schema. What it throws tells no
  // secret.
  template <class Work>
  auto With(TextView schema, Work&& work) {
    try {
      Prepare(schema);
      return work();
    } catch (const Error& error) {
      types_.clear();  // what made it fail may be a table that has changed
      throw Error(error.kind(), secrets_.Hide(engine_.Explained(error.description())));
    }
  }

  void Close() {
    isClosed_ = true;
    link_.reset();
  }

  const OdbcSettings& settings() const { return settings_; }
  odbc::Link& link() { return *link_; }
  odbc::Statement NewStatement() { return {*link_, settings_.statementTimeout}; }

  // One that sets the session: the limit is meant for what the user asks.
  odbc::Statement OwnStatement() {
    const auto limit = settings_.statementTimeout;
    const std::chrono::milliseconds least = std::chrono::seconds(15);
    return {*link_, limit.count() == 0 ? limit : std::max(limit, least)};
  }

  // The statements for the database.
  hosts::AdaptedStatement Adapt(TextView sql) {
    using Kind = hosts::AdaptedStatement::Kind;
    if (!engine_.SpeaksTheDialect()) {
      remembered_ = false;
      try {
        return hosts::Adapt(sql, *this, &engine_);
      } catch (const Error&) {
        // A table may have changed since its columns were asked for.
        if (!remembered_) throw;
        types_.clear();
        return hosts::Adapt(sql, *this, &engine_);
      }
    }
    return {odbc::IsQuery(sql) ? Kind::Query : Kind::Change, {Text(sql)}};
  }

  std::vector<Text> ColumnsOf(TextView fromItem) override {
    return NewStatement().ColumnsOf(Join(u"SELECT * FROM ", fromItem, u" WHERE 1=0"));
  }

  odbc::Rows Query(TextView sql) {
    odbc::Rows rows = NewStatement().Query(sql);
    if (!engine_.MistakesDates()) return rows;
    const double today = SystemDate().serial;
    const std::size_t width = rows.names.size();
    std::vector<bool> isDoubtful(width);
    for (std::size_t i = 0; i < rows.cells.size(); ++i)
      if (IsDoubtful(rows.cells[i], today)) isDoubtful[i % width] = true;
    if (std::count(isDoubtful.begin(), isDoubtful.end(), true) == 0) return rows;
    // Rows may come in another order.
    const odbc::Rows years = NewStatement().QueryYears(sql);
    for (std::size_t i = 0; i < years.cells.size(); ++i) {
      if (!isDoubtful[i % width] || years.cells[i].IsNull()) continue;
      const double year = ToDouble(years.cells[i]);
      if (year < 100 || year > 9999)
        Fail(Join(u"Column ", rows.names[i % width],
                  u" holds a date outside of the years 100 to 9999."));
    }
    return rows;
  }

  bool ConfusesTypes() const override { return true; }

  // Asked once; they are forgotten with the schema, and when a statement fails.
  std::vector<hosts::TypedColumn> TypesOf(TextView table) override {
    // Where it is no table, or none that can be looked at.
    if (EqualFolded(table, u"DUAL")) return {{u"DUMMY", hosts::ValueType::Text}};
    const auto known = types_.find(Text(table));
    if (known != types_.end()) {
      remembered_ = true;
      return known->second;
    }
    std::vector<hosts::TypedColumn> columns;
    for (const odbc::ColumnDescription& column :
         NewStatement().Described(Join(u"SELECT * FROM ", table, u" WHERE 1=0")))
      columns.push_back(TypeOf(column));
    return types_.emplace(table, std::move(columns)).first->second;
  }

  // Of an engine without sequences: a table holds the numbers that were drawn last.
  std::int64_t NextValue(TextView schema, TextView sequence) override {
    if (settings_.readOnly) Fail(u"The connection is read-only: no number is drawn.");
    const Text table = Join(schema, schema.empty() ? u"" : u".", u"demo_sequence");
    const Text which = Join(u" WHERE name = ", hosts::InQuotes(sequence, u'\''));
    odbc::Transaction transaction(*link_);
    if (NewStatement().Change(Join(u"UPDATE ", table, u" SET last = last + 1", which)) == 0)
      Fail(Join(u"There is no sequence ", sequence, u"."));
    const odbc::Rows rows = NewStatement().Query(Join(u"SELECT last FROM ", table, which));
    transaction.Commit();
    return static_cast<std::int64_t>(ToDouble(rows.cells.at(0)));
  }

 private:
  void Prepare(TextView schema) {
    if (isClosed_) Fail(u"The connection was closed.");
    // Another schema begins with a connection of its own, on which nothing is set.
    if (link_ && (link_->IsDead() || (!schema_.empty() && schema != schema_))) link_.reset();
    if (!link_) {
      types_.clear();
      Open();
    }
    if (schema == schema_) return;
    types_.clear();
    for (const Text& statement : engine_.SchemaStatements(schema))
      OwnStatement().Change(statement);
    Demand();
    schema_ = schema;
  }

  // The connection is kept only when it is set as it has to be.
  void Open() {
    for (const odbc::Encoding encoding : odbc::EncodingsFor(settings_.engine)) {
      link_.emplace(connectionString_, settings_.loginTimeout, encoding);
      schema_.clear();
      try {
        if (SetUp()) return;
      } catch (...) {
        link_.reset();
        throw;
      }
      link_.reset();
    }
    Fail(u"Texts do not come through the driver as Unicode: see docs/hosts.md for its settings.");
  }

  // False when texts do not come through.
  bool SetUp() {
    for (const Text& statement : engine_.SessionStatements(settings_.readOnly))
      OwnStatement().Change(statement);
    if (!odbc::TextsComeThrough(OwnStatement(), engine_)) return false;
    Demand();
    return true;
  }

  void Demand() {
    for (const Text& demand : engine_.Demands()) {
      const odbc::Rows answer = OwnStatement().Query(demand);
      if (!answer.cells.empty() && !answer.cells[0].IsNull())
        Fail(Join(u"The database is not set as the library needs it: ", ToText(answer.cells[0]),
                  u"."));
    }
  }

  OdbcSettings settings_;
  const hosts::Engine& engine_;
  Text connectionString_;
  odbc::Secrets secrets_;
  std::optional<odbc::Link> link_;
  bool isClosed_ = false;
  std::map<Text, std::vector<hosts::TypedColumn>> types_;  // of the columns of tables
  bool remembered_ = false;  // whether the last Adapt took any of these
  Text schema_;  // that is set on the connection; empty: what the connection string says
};

OdbcConnection::OdbcConnection(TextView connectionString, OdbcSettings settings)
    : TracedConnection(Login()), session_(std::make_unique<Session>(connectionString, settings)) {
  session_->With({}, [] {});
}

OdbcConnection::~OdbcConnection() = default;

void OdbcConnection::Close() {
  session_->Close();
}

std::shared_ptr<hosts::MemoryRecordset> OdbcConnection::Query(TextView sql, Text& adapted) {
  return session_->With(login.userId, [&] {
    if (session_->settings().readOnly) odbc::RefuseChanges(sql);
    const hosts::AdaptedStatement statement = session_->Adapt(sql);
    if (statement.kind != hosts::AdaptedStatement::Kind::Query)
      Fail(u"A statement that gives no rows cannot be opened.");
    adapted = statement.statements[0];
    odbc::Rows rows = session_->Query(adapted);
    return std::make_shared<hosts::MemoryRecordset>(std::move(rows.names), std::move(rows.cells));
  });
}

std::int64_t OdbcConnection::Change(TextView sql, Text& adapted) {
  return session_->With(login.userId, [&] {
    if (session_->settings().readOnly) Fail(u"The connection is read-only: nothing is changed.");
    const std::vector<Text> statements = session_->Adapt(sql).statements;
    for (const Text& statement : statements)
      adapted += Join(adapted.empty() ? u"" : u"; ", statement);
    odbc::Transaction transaction(session_->link());
    std::int64_t rows = 0;
    for (const Text& statement : statements)
      rows += session_->NewStatement().Change(statement);
    transaction.Commit();
    return rows;
  });
}

}  // namespace fetchkit
