// What a statement does, as far as its words tell.
#pragma once

#include "fetchkit/base/Text.h"

namespace fetchkit::odbc {

// Whether the first word, behind blanks, comments and brackets, is SELECT or WITH.
bool IsQuery(TextView sql);

// Error (Host), with the position, for everything but one SELECT that changes nothing: a word such
// as UPDATE, INTO, NEXTVAL or FOR outside of quotes counts as a change, and so does what is not
// understood.
void RefuseChanges(TextView sql);

}  // namespace fetchkit::odbc
