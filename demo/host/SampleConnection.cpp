#include "demo/host/SampleConnection.h"

#include <chrono>
#include <exception>
#include <utility>
#include <vector>

#include "demo/dialect/Dialect.h"
#include "demo/host/MemoryRecordset.h"
#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"

namespace fetchkit::demo {
namespace {

[[noreturn]] void Fail(TextView what) {
  throw Error(ErrorKind::Host, what);
}

class SampleContext : public fetchkit::HostContext,
                      public HostAccountType,
                      public HostAccountLogin,
                      public HostLoginContext,
                      public std::enable_shared_from_this<SampleContext> {
 public:
  explicit SampleContext(Login login) : login_(std::move(login)) {}

  std::shared_ptr<HostAccountType> AccountTypeInfo() override { return shared_from_this(); }
  std::shared_ptr<HostAccountLogin> AccountLogin() override { return shared_from_this(); }
  std::shared_ptr<HostLoginContext> LoginContext() override { return shared_from_this(); }

  Value AccountType() override { return login_.accountType; }
  Value ServerName() override { return login_.server; }
  Value UserId() override { return login_.userId; }
  Value LoginDate() override { return login_.loginDate; }
  Value OrganizationId() override { return login_.organizationId; }
  Value OperatorId() override { return login_.operatorId; }
  Value Password() override { return login_.password; }
  Value Item(TextView name) override {
    const auto found = login_.items.find(Text(name));
    return found == login_.items.end() ? Value() : found->second;
  }

 private:
  Login login_;
};

class DatabaseCatalog : public Catalog {
 public:
  explicit DatabaseCatalog(Database& database) : database_(database) {}

  std::vector<Text> ColumnsOf(TextView fromItem) override {
    const Statement statement(database_, Join(u"SELECT * FROM ", fromItem, u" WHERE 0"));
    std::vector<Text> names;
    for (int i = 0; i < statement.ColumnCount(); ++i)
      names.push_back(statement.ColumnName(i));
    return names;
  }

  std::int64_t NextValue(TextView schema, TextView sequence) override {
    Statement draw(database_, Join(u"UPDATE ", schema, schema.empty() ? u"" : u".",
                                   u"demo_sequence SET last = last + 1 WHERE name = ?1 "
                                   u"RETURNING last"));
    draw.Bind(1, sequence);
    if (!draw.Step()) Fail(Join(u"There is no sequence ", sequence, u"."));
    const auto number = static_cast<std::int64_t>(ToDouble(draw.Column(0)));
    draw.Step();  // to its end, which is when the change is kept
    return number;
  }

 private:
  Database& database_;
};

}  // namespace

SampleConnection::SampleConnection(std::shared_ptr<Database> database, Login who)
    : login(std::move(who)), database_(std::move(database)) {}

std::shared_ptr<fetchkit::HostContext> SampleConnection::HostContext() {
  return std::make_shared<SampleContext>(login);
}

void SampleConnection::CloseRecordset(RecordsetPtr& recordset) {
  auto* own = dynamic_cast<MemoryRecordset*>(recordset.get());
  if (own == nullptr) Fail(u"What was given back is no recordset of this connection.");
  if (!own->Close()) Fail(u"The recordset was given back before.");
  --openRecordsets_;
  recordset.reset();
}

void SampleConnection::RecordsetIsEmpty(RecordsetPtr& recordset, bool& isEmpty) {
  if (!recordset) Fail(u"There is no recordset to ask.");
  isEmpty = recordset->Bof() && recordset->Eof();
}

bool SampleConnection::OpenStaticRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t,
                                           std::int32_t, std::int32_t, std::int32_t) {
  return Open(sql, recordset);
}

bool SampleConnection::OpenRecordset(TextView sql, RecordsetPtr& recordset, std::int32_t,
                                     std::int32_t) {
  return Open(sql, recordset);
}

bool SampleConnection::Open(TextView sql, RecordsetPtr& recordset) {
  return Traced(sql, [&](StatementReport& report) {
    DatabaseCatalog catalog(*database_);
    const AdaptedStatement adapted = Adapt(sql, catalog);
    if (adapted.kind != AdaptedStatement::Kind::Query)
      Fail(u"A statement that gives no rows cannot be opened.");
    report.adapted = adapted.statements[0];
    Statement statement(*database_, report.adapted);
    const auto opened = std::make_shared<MemoryRecordset>(statement);
    report.rows = opened->RecordCount();
    report.firstRow = opened->FirstRow();
    recordset = opened;
    ++openRecordsets_;
  });
}

bool SampleConnection::ExecuteSql(TextView sql, std::int32_t, Value& out) {
  return Traced(sql, [&](StatementReport& report) {
    DatabaseCatalog catalog(*database_);
    const AdaptedStatement adapted = Adapt(sql, catalog);
    for (const Text& statement : adapted.statements)
      report.adapted += Join(report.adapted.empty() ? u"" : u"; ", statement);
    Savepoint savepoint(*database_);
    std::int64_t rows = 0;
    for (const Text& statement : adapted.statements)
      rows += database_->Execute(statement);
    savepoint.Release();
    report.rows = rows;
    out = static_cast<double>(rows);
  });
}

bool SampleConnection::Traced(TextView sql, const std::function<void(StatementReport&)>& work) {
  using Clock = std::chrono::steady_clock;
  StatementReport report;
  report.sql = sql;
  const Clock::time_point start = Clock::now();
  try {
    work(report);
    report.answered = true;
  } catch (const Error& error) {
    report.error = error.description();
  } catch (const std::exception& error) {
    report.error = FromUtf8(error.what());
  }
  report.microseconds =
      std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
  if (!report.answered) lastRefusal_ = report.error;
  if (trace) trace(report);
  return report.answered;
}

}  // namespace fetchkit::demo
