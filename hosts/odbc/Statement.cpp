#include "hosts/odbc/Statement.h"

#include <algorithm>

#include "fetchkit/base/Error.h"
#include "hosts/odbc/Columns.h"

namespace fetchkit::odbc {
namespace {

// Runs the work under a watchdog and says so when that has ended it.
template <class Work>
auto Watched(Watchdog& watchdog, SQLHSTMT statement, std::chrono::milliseconds limit, Work&& work) {
  Watchdog::Watch watch(watchdog, statement, limit);
  try {
    return work();
  } catch (const Error& error) {
    if (!watch.HasCancelled()) throw;
    throw Error(ErrorKind::Host, Join(u"The statement took longer than ", limit.count(),
                                      u" ms and was cancelled: ", error.description()));
  }
}

}  // namespace

void Statement::Execute(TextView sql) {
  SQLHSTMT const statement = handle_.get();
  // What stands in braces is text and no escape sequence of ODBC; not every driver can be told.
  SQLSetStmtAttr(statement, SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
  Check(odbc::Execute(statement, sql, encoding_), SQL_HANDLE_STMT, statement);
}

Rows Statement::Query(TextView sql) {
  return Read(sql, false);
}

Rows Statement::QueryYears(TextView sql) {
  return Read(sql, true);
}

Rows Statement::Read(TextView sql, bool yearsAlone) {
  SQLHSTMT const statement = handle_.get();
  return Watched(watchdog_, statement, limit_, [&] {
    for (std::vector<SQLLEN> widths;;) {
      Execute(sql);
      std::vector<ColumnDescription> described = Describe(statement, encoding_);
      if (described.empty())
        throw Error(ErrorKind::Host, u"A statement that gives no rows cannot be opened.");
      Rows rows;
      for (ColumnDescription& column : described) {
        column.yearAlone = yearsAlone && IsDate(column.type);
        rows.names.push_back(column.name);
      }
      widths.resize(described.size());
      if (FetchAll(statement, described, encoding_, widths, rows.cells)) return rows;
      SQLFreeStmt(statement, SQL_CLOSE);
    }
  });
}

std::int64_t Statement::Change(TextView sql) {
  return Watched(watchdog_, handle_.get(), limit_, [&] {
    Execute(sql);
    SQLLEN rows = 0;
    SQLRowCount(handle_.get(), &rows);
    SQLFreeStmt(handle_.get(), SQL_CLOSE);
    return std::max<std::int64_t>(rows, 0);
  });
}

std::vector<ColumnDescription> Statement::Described(TextView query) {
  return Watched(watchdog_, handle_.get(), limit_, [&] {
    Execute(query);
    std::vector<ColumnDescription> columns = Describe(handle_.get(), encoding_);
    SQLFreeStmt(handle_.get(), SQL_CLOSE);
    return columns;
  });
}

std::vector<Text> Statement::ColumnsOf(TextView query) {
  std::vector<Text> names;
  for (ColumnDescription& column : Described(query))
    names.push_back(std::move(column.name));
  return names;
}

}  // namespace fetchkit::odbc
