// The dialect's functions that the embedded database lacks or that it answers otherwise.
//
//   nvl(a, b)                         b where a is Null
//   nvl2(a, b, c)                     c where a is Null, else b
//   decode(x, v1, r1, ..., other)     the first r whose v equals x; Null equals Null
//   ltrim, rtrim, trim (a [, set])    without the characters of the set, blanks if there is none
//   substr(a, from [, count])         from 0 is 1; negative counts from the end
//   instr(a, what [, from [, nth]])   0 where there is none; negative searches backwards
//   replace(a, old [, new])           new may be Null: then old is taken out
//   concat(a, b, ...)                 what "a || b" is rewritten to: Null is read as empty
//   upper, lower (a)                  Latin, Greek, Cyrillic and full-width letters; any other
//   letter
//                                     that has two cases is refused
//   round, trunc (n [, places])       of the decimal digits, halves away from zero; places may be
//                                     negative
//   sign, floor, mod                  mod(n, 0) is n
//   to_number(a), to_char(n)          refuse what is no number; 0.5 is ".5"
// and what hosts/dialect/Types.h writes:
//   exact(n)                          to 15 digits
//   to_number(a, position)
//   quotient(a, b, position)          with its fraction; refuses 0
//   text_only(a, position)            refuses a number
//   only_row(a, position)             an aggregate: the one value, Null where there is none
//
// A text result that is empty is Null. Positions are counted in characters, surrogates as one.
#pragma once

#include <sqlite3.h>

namespace fetchkit::hosts {

// Error (Host) when the database refuses.
void AddFunctions(sqlite3* database);

}  // namespace fetchkit::hosts
