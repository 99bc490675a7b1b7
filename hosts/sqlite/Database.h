// A small layer over the C interface of the embedded database: what is opened is closed, and what
// fails is Error (Host) with the database's own message.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"

namespace fetchkit::hosts {

// A connection to databases in memory, which end with the object, and in files. It is set up for
// the dialect: LIKE regards letter case, double quotes hold names only, and the dialect's functions
// are there. To be used on one thread at a time.
class Database {
 public:
  Database();

  // Makes a copy of another connection's main database known under a schema name, so that its
  // tables are found by SCHEMA.TABLE and by their own names; of equal names, the schema attached
  // first wins.
  void AttachCopy(const Database& source, TextView schema);

  // Makes a database file known under a schema name in the same way. A file that is not there, or
  // is none of this database's, is an error, now or at the first statement; nothing is created.
  void AttachFile(TextView path, TextView schema);

  // Runs statements of the embedded database's own dialect, UTF-8, separated by ";".
  void RunScript(std::string_view script);

  // Runs one statement; the number of rows that it changed.
  std::int64_t Execute(TextView sql);

  sqlite3* handle() const { return handle_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
  };
  std::unique_ptr<sqlite3, Close> handle_;
};

class Statement {
 public:
  // Exactly one statement. The database must outlive it.
  Statement(const Database& database, TextView sql);

  // 1-based.
  void Bind(int parameter, TextView text);

  // To the next row; False behind the last one.
  bool Step();

  int ColumnCount() const { return sqlite3_column_count(handle_.get()); }
  Text ColumnName(int column) const;
  std::vector<Text> ColumnNames() const;

  // As the table's definition has it; empty for what is computed.
  Text DeclaredType(int column) const;

  // Whole numbers as Long where they fit, else as Double; the empty text is Null.
  Value Column(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
  };
  const Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

// Changes until Release are undone when the object goes without it.
class Savepoint {
 public:
  explicit Savepoint(Database& database);
  ~Savepoint();
  Savepoint(const Savepoint&) = delete;
  Savepoint& operator=(const Savepoint&) = delete;

  void Release();

 private:
  Database& database_;
  bool released_ = false;
};

}  // namespace fetchkit::hosts
