// The dialect's functions that the embedded database lacks or that treat the empty text otherwise.
//
//   nvl(a, b)                         b where a is Null
//   decode(x, v1, r1, ..., other)     the first r whose v equals x; Null equals Null
//   ltrim, rtrim, trim (a [, set])    without the characters of the set, blanks if there is none
//   substr(a, from [, count])         from 0 is 1; negative counts from the end
//   replace(a, old [, new])           new may be Null: then old is taken out
//   concat(a, b, ...)                 what "a || b" is rewritten to: Null is read as empty
//
// A text result that is empty is Null. Positions are counted in UTF-16 units.
#pragma once

#include <sqlite3.h>

namespace fetchkit::hosts {

// Error (Host) when the database refuses.
void AddFunctions(sqlite3* database);

}  // namespace fetchkit::hosts
