// Any database over ODBC, as a connection that the library can be initialised with.
//
//   OdbcSettings settings;
//   settings.engine = SqlEngine::PostgreSql;
//   auto connection = std::make_shared<OdbcConnection>(u"DSN=books;UID=reader;PWD=...", settings);
//   connection->login.userId = u"ACC01";  // and the rest of it
//   library.Initialize(connection);
//
// docs/hosts.md says for each engine which driver, connection string and settings it takes.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>

#include "fetchkit/base/Text.h"
#include "hosts/dialect/Engine.h"
#include "hosts/shared/TracedConnection.h"

namespace fetchkit {

struct OdbcSettings {
  SqlEngine engine = SqlEngine::Oracle;

  // A statement that takes longer, its rows read, is cancelled and refused; 0: never.
  std::chrono::milliseconds statementTimeout = std::chrono::minutes(5);

  // Opening a connection; a driver that knows no such limit has its own. 0: the driver's own.
  std::chrono::seconds loginTimeout{15};

  // Refuse everything but a SELECT that changes nothing. A database user who may only read is the
  // safer way: what a function of the database does cannot be seen in a statement.
  bool readOnly = false;
};

// What comes back: whole numbers in the range of a Long as Long, other numbers as Double (digits
// beyond the fifteenth are lost), columns of a floating type as Double always; dates with and
// without a time as dates; everything else as text, the empty one as Null.
//
// login.userId is the schema in which table names without one are looked up, from the next
// statement on; an empty one leaves what the connection string says.
//
// A query whose texts turn out longer than the driver announced is run a second time. A change is
// never repeated. A connection that was lost is opened again before the next statement, not within
// one: the statement that finds out is refused. Neither the connection string nor a password in it
// is in any error text, report or message to the diagnostics.
class OdbcConnection : public TracedConnection {
 public:
  // Opens the connection and sets the session. connectionString: what the driver manager takes,
  // "DSN=...;..." or "Driver=...;...". Error (Host), with the driver's or the database's own words,
  // when there is no such source, the login is refused, or the session cannot be set as the engine
  // needs it.
  explicit OdbcConnection(TextView connectionString, OdbcSettings settings = {});
  ~OdbcConnection() override;

  // Ends the connection to the database; every later statement is refused, whoever still holds the
  // object. Recordsets stay readable.
  void Close();
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;

 protected:
  std::shared_ptr<hosts::MemoryRecordset> Query(TextView sql, Text& adapted) override;

  // Everything in the text is done in one transaction of its own.
  std::int64_t Change(TextView sql, Text& adapted) override;

 private:
  class Session;
  std::unique_ptr<Session> session_;
};

}  // namespace fetchkit
