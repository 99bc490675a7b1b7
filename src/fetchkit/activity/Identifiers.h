// New ids, organization look-ups, settings, and what the account's schema holds.
//
// Every function traps its errors; a statement that the database refuses is an error like one that
// raises. What an error leaves is named with each function.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::MActivity {

// The next number of the table's sequence; 0 on failure. The ten tables of the manufacturing
// module, recognised in any letter case, share one sequence; any other table's is named after it
// as it is passed.
std::int32_t GetNewID(Session& session, TextView strTabName);

// Empty when there is no such organization, and on failure.
Text GetOrganizationCode(Session& session, std::int32_t lngOrganizationID);

// False when there is no such organization, and on failure.
bool IsDetailOrganization(Session& session, std::int32_t lngOrganizationID);

// The captions that the user gave the two statistics classes; their standard names when none were
// given, empty on failure.
Text GetClass1Name(Session& session);
Text GetClass2Name(Session& session);

// The setting's value as the database holds it; varDefaultValue, or the empty text without one,
// when it has no row; the empty text on failure. MissingValue stands for an argument that is not
// given, which is something else than an empty one.
// varOrganizationId only decides whether the login organization's setting is read (not given, or
// above 0) or one of any organization (0 or below); the number itself is not used.
Value GetSysSetting(Session& session, TextView strKey, const Value& varSection,
                    const Value& varDefaultValue, const Value& varModuleId,
                    const Value& varOrganizationId);

// Decimals of the currency that the condition, the whole text behind WHERE, picks; 0 when it picks
// none, and on failure.
std::uint8_t GetCurrencyDec(Session& session, TextView strCond);

// Whether the login organization uses the flexible field of that standing title ("智能字段05").
// strTitle receives the title that users see, and is left alone when the field is not in use, when
// the account has no titles, and on failure (False).
bool FlexFieldIsUsed(Session& session, TextView strFieldTitle, Text& strTitle);

// Whether the account's own schema has the table, or the column. Both answers are kept for the
// session, each after one statement; without a connection the answer is False and not kept.
bool TableNameExists(Session& session, TextView strTableName);
bool TableFieldExists(Session& session, TextView strTableName, TextView strFieldName);

// Whether the database answers a statement on the account's own table now: one statement at every
// call, nothing kept. Tells a table that is not there from a connection that is gone.
bool TableAnswers(Session& session, TextView tableName);

}  // namespace fetchkit::MActivity
