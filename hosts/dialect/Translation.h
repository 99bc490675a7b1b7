// A statement for the embedded database, as Dialect.h makes it, in another engine's words.
//
//   nvl(a, b), substr(a, 0, 2)  are written by the engine's rules for functions
//   decode(a, b, c, d)          CASE WHEN a IS NOT DISTINCT FROM b THEN c ELSE d END
//   a LIKE b                    gets the engine's word for "no escape character"
//   a NULLS LAST                (a) IS NULL, a   where the engine lacks it
//   FROM DUAL                   goes where there is no such table
//   LIST_SEQ.NEXTVAL            becomes the engine's own expression
//   FROM (SELECT ...)           gets a name
//   Right.lngRightID            "right".lngRightID, where that is a keyword
#pragma once

#include "hosts/dialect/Engine.h"
#include "hosts/dialect/Tokenizer.h"

namespace fetchkit::hosts {

// Error (Host) with the position for what the engine cannot be told: two draws from one sequence,
// an ORDER BY a column's number that no column can be put in for, and what becomes too long.
Tokens Translate(const Tokens& tokens, const Engine& engine);

}  // namespace fetchkit::hosts
