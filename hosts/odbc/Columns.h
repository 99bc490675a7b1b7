// The columns of a result and their buffers: rows come in arrays.
#pragma once

#include <vector>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "hosts/odbc/Sql.h"
#include "hosts/odbc/Texts.h"

namespace fetchkit::odbc {

struct ColumnDescription {
  Text name;
  SQLSMALLINT type = SQL_UNKNOWN_TYPE;
  bool yearAlone = false;  // of a date: read as a whole number (OdbcConnection.cpp)
  SQLULEN size = 0;        // characters, digits; 0: not known. No bound, whatever the driver says.
};

bool IsDate(SQLSMALLINT type);

// Of the statement that was run; empty when it gives no rows. Error (Host).
std::vector<ColumnDescription> Describe(SQLHSTMT statement, Encoding encoding);

// Appends all rows of the statement that was run, row by row. widths are the bytes for each text,
// one a column, 0: by its description.
//
// False when a text did not fit: widths then hold what they need, and the statement has to be run
// again. Error (Host) for what the driver says, and for numbers and dates that no Value holds.
bool FetchAll(SQLHSTMT statement, const std::vector<ColumnDescription>& columns, Encoding encoding,
              std::vector<SQLLEN>& widths, std::vector<Value>& cells);

}  // namespace fetchkit::odbc
