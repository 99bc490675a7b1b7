// The calls that carry texts, each in the encoding that a connection's driver takes.
#pragma once

#include <span>

#include "fetchkit/base/Text.h"
#include "hosts/dialect/Engine.h"
#include "hosts/odbc/Sql.h"

namespace fetchkit::odbc {

// Wide is there on Windows alone: elsewhere drivers take UTF-8, and not each of them anything else.
enum class Encoding { Utf8, Wide };

// Those that a driver of the engine may take, the likeliest first. MariaDB's spoils wide texts
// (3.1.15: one in 65), so that it is spoken to in UTF-8 wherever it understands that.
std::span<const Encoding> EncodingsFor(SqlEngine engine);

// As the calls of ODBC: SQLDriverConnect without questions to the user, and SQLExecDirect.
SQLRETURN Connect(SQLHDBC connection, TextView connectionString, Encoding encoding);
SQLRETURN Execute(SQLHSTMT statement, TextView sql, Encoding encoding);

// SQLDescribeCol without what nobody asks for.
SQLRETURN DescribeColumn(SQLHSTMT statement, SQLUSMALLINT number, Encoding encoding, Text& name,
                         SQLSMALLINT& type, SQLULEN& size);

// What the driver left with the handle, from record 1 on; False behind the last one.
bool ReadDiagnosis(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record, Text& message);

}  // namespace fetchkit::odbc
