// A connection to a database through a driver, closed when the object goes.
#pragma once

#include <chrono>

#include "fetchkit/base/Text.h"
#include "hosts/odbc/Sql.h"
#include "hosts/odbc/Texts.h"
#include "hosts/odbc/Watchdog.h"

namespace fetchkit::odbc {

// An ODBC handle that is freed. Error (Host) when the driver gives none.
template <SQLSMALLINT kType>
class Handle {
 public:
  explicit Handle(SQLHANDLE parent);
  ~Handle() { SQLFreeHandle(kType, handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE get() const { return handle_; }

 private:
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

// Throws Error (Host) unless the call went well: what the database said, without the names of
// driver and driver manager in front.
void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle);

class Link {
 public:
  // Error (Host). timeout: see OdbcSettings. encoding: of all texts to and fro.
  Link(TextView connectionString, std::chrono::seconds timeout, Encoding encoding = Encoding::Utf8);
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  // Whether the driver knows that the connection is lost (most find out only when a statement
  // fails), or it was given up.
  bool IsDead() const;

  // No statement is to go over it any more: what it would be part of is not known.
  void GiveUp() { givenUp_ = true; }

  SQLHDBC handle() const { return connection_.get(); }
  Encoding encoding() const { return encoding_; }
  Watchdog& watchdog() { return watchdog_; }

 private:
  Handle<SQL_HANDLE_ENV> environment_{SQL_NULL_HANDLE};
  Handle<SQL_HANDLE_DBC> connection_{environment_.get()};
  Encoding encoding_;
  bool givenUp_ = false;
  Watchdog watchdog_;
};

// A transaction of its own on a connection that commits each statement otherwise.
class Transaction {
 public:
  explicit Transaction(Link& link);

  // Takes back what was not committed, and lets each statement commit again. The link is given up
  // where that fails; the database then takes back what was not committed.
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit();

 private:
  Link& link_;
  bool committed_ = false;
};

}  // namespace fetchkit::odbc
