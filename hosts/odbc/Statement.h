// A statement on a connection: run, and its rows read.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "hosts/odbc/Columns.h"
#include "hosts/odbc/Link.h"

namespace fetchkit::odbc {

// Rows in memory, as MemoryRecordset takes them.
struct Rows {
  std::vector<Text> names;
  std::vector<Value> cells;  // row by row
};

// All operations throw Error (Host) with the database's own words; for a statement that took longer
// than the limit they say that.
class Statement {
 public:
  // limit: see OdbcSettings::statementTimeout.
  Statement(Link& link, std::chrono::milliseconds limit)
      : watchdog_(link.watchdog()),
        limit_(limit),
        encoding_(link.encoding()),
        handle_(link.handle()) {}

  // Runs the statement and reads its rows to the end. The text may be run twice: see
  // OdbcConnection.
  Rows Query(TextView sql);

  // The same, of dates the years alone: what a driver makes of a date's text as a whole number.
  Rows QueryYears(TextView sql);

  // Runs the statement; the number of rows that it changed, 0 where the driver cannot tell.
  std::int64_t Change(TextView sql);

  // The columns that the query would give, and their names.
  std::vector<ColumnDescription> Described(TextView query);
  std::vector<Text> ColumnsOf(TextView query);

 private:
  void Execute(TextView sql);
  Rows Read(TextView sql, bool yearsAlone);

  Watchdog& watchdog_;
  std::chrono::milliseconds limit_;
  Encoding encoding_;
  Handle<SQL_HANDLE_STMT> handle_;
};

}  // namespace fetchkit::odbc
