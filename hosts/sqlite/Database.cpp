#include "hosts/sqlite/Database.h"

#include <limits>
#include <string>

#include "fetchkit/base/Error.h"
#include "fetchkit/base/Utf8.h"
#include "hosts/sqlite/Functions.h"

namespace fetchkit::hosts {
namespace {

[[noreturn]] void ThrowLast(sqlite3* handle) {
  throw Error(ErrorKind::Host, FromUtf8(sqlite3_errmsg(handle)));
}

void Check(sqlite3* handle, int result) {
  if (result != SQLITE_OK) ThrowLast(handle);
}

}  // namespace

Database::Database() {
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(
      ":memory:", &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI, nullptr);
  handle_.reset(handle);
  Check(handle, result);
  for (const int quotedTexts : {SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_DQS_DML})
    Check(handle, sqlite3_db_config(handle, quotedTexts, 0, nullptr));
  AddFunctions(handle);
  RunScript("PRAGMA case_sensitive_like=1");
}

void Database::AttachCopy(const Database& source, TextView schema) {
  Statement attach(*this, u"ATTACH DATABASE ':memory:' AS ?1");
  attach.Bind(1, schema);
  attach.Step();
  sqlite3_backup* backup =
      sqlite3_backup_init(handle(), ToUtf8(schema).c_str(), source.handle(), "main");
  if (backup == nullptr) ThrowLast(handle());
  sqlite3_backup_step(backup, -1);
  Check(handle(), sqlite3_backup_finish(backup));
}

void Database::AttachFile(TextView path, TextView schema) {
  // As an address the path says that the file has to be there; its own "%", "?" and "#" are written
  // out, or they would end it.
  std::string address = "file:";
  for (const char c : ToUtf8(path))
    address += c == '%' ? "%25" : c == '?' ? "%3f" : c == '#' ? "%23" : std::string(1, c);
  Statement attach(*this, u"ATTACH DATABASE ?1 AS ?2");
  attach.Bind(1, FromUtf8(address + "?mode=rw"));
  attach.Bind(2, schema);
  attach.Step();
}

void Database::RunScript(std::string_view script) {
  Check(handle(), sqlite3_exec(handle(), std::string(script).c_str(), nullptr, nullptr, nullptr));
}

std::int64_t Database::Execute(TextView sql) {
  const std::int64_t before = sqlite3_total_changes64(handle());
  Statement statement(*this, sql);
  while (statement.Step()) {
  }
  return sqlite3_total_changes64(handle()) - before;
}

Statement::Statement(const Database& database, TextView sql) : database_(database) {
  sqlite3_stmt* handle = nullptr;
  const void* tail = nullptr;
  const Text text(sql);  // ends with a NUL, which the database wants
  Check(database_.handle(),
        sqlite3_prepare16_v2(database_.handle(), text.c_str(), -1, &handle, &tail));
  handle_.reset(handle);
  if (handle == nullptr || static_cast<const char16_t*>(tail) != text.c_str() + text.size())
    throw Error(ErrorKind::Host, u"The embedded database takes one statement at a time.");
}

void Statement::Bind(int parameter, TextView text) {
  Check(database_.handle(),
        sqlite3_bind_text16(handle_.get(), parameter, text.data(),
                            static_cast<int>(text.size() * sizeof(char16_t)), SQLITE_TRANSIENT));
}

bool Statement::Step() {
  switch (sqlite3_step(handle_.get())) {
    case SQLITE_ROW:
      return true;
    case SQLITE_DONE:
      return false;
    default:
      ThrowLast(database_.handle());
  }
}

Text Statement::ColumnName(int column) const {
  const auto* name = static_cast<const char16_t*>(sqlite3_column_name16(handle_.get(), column));
  return name == nullptr ? Text() : Text(name);
}

std::vector<Text> Statement::ColumnNames() const {
  std::vector<Text> names;
  for (int i = 0; i < ColumnCount(); ++i)
    names.push_back(ColumnName(i));
  return names;
}

Text Statement::DeclaredType(int column) const {
  const auto* type = static_cast<const char16_t*>(sqlite3_column_decltype16(handle_.get(), column));
  return type == nullptr ? Text() : Text(type);
}

Value Statement::Column(int column) const {
  switch (sqlite3_column_type(handle_.get(), column)) {
    case SQLITE_NULL:
      return NullValue{};
    case SQLITE_FLOAT:
      return sqlite3_column_double(handle_.get(), column);
    case SQLITE_INTEGER: {
      const std::int64_t number = sqlite3_column_int64(handle_.get(), column);
      if (number < std::numeric_limits<std::int32_t>::min() ||
          number > std::numeric_limits<std::int32_t>::max())
        return static_cast<double>(number);
      return static_cast<std::int32_t>(number);
    }
    default: {
      const auto* text = static_cast<const char16_t*>(sqlite3_column_text16(handle_.get(), column));
      const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes16(handle_.get(), column));
      if (text == nullptr || bytes == 0) return NullValue{};
      return TextView(text, bytes / sizeof(char16_t));
    }
  }
}

Savepoint::Savepoint(Database& database) : database_(database) {
  database_.RunScript("SAVEPOINT block");
}

Savepoint::~Savepoint() {
  // Nothing can be done about a failure here: an outermost rollback that fails has happened.
  if (!released_)
    sqlite3_exec(database_.handle(), "ROLLBACK TO block; RELEASE block", nullptr, nullptr, nullptr);
}

void Savepoint::Release() {
  database_.RunScript("RELEASE block");
  released_ = true;
}

}  // namespace fetchkit::hosts
