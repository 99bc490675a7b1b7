// Number patterns, amounts, and SQL in the dialect of the account's database.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MActivity {

// The pattern for that many decimals, "#0.00" for 2; the empty text for 0 and below.
Text GetFormat(std::int16_t intDec);

// The amount with the decimals of the account's currency, two when the currency has no row or does
// not say; halves are rounded away from zero. The decimals are read once per thread and kept over
// logins. The empty text when they cannot be read; the next call asks again.
Text FormatValue(Session& session, double dblValue);

// SQL of the library's dialect as the account's database takes it. Account types 1 and 6 join texts
// with "+" and spell Upper and Lower as UCase and LCase; for any other type the text comes back as
// it is, also when the host does not tell the account type. The empty text only when there is no
// memory for it.
Text FormatSQL(Session& session, TextView strSql);

}  // namespace fetchkit::MActivity
