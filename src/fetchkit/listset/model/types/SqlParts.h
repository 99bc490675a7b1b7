// Pieces of SQL that several types write.
#pragma once

#include "fetchkit/base/Text.h"

namespace fetchkit {

// In single quotes; quotes inside stay as they are.
Text Quoted(TextView value);

// The dialog's predicate of an operator word and its value, between quotes where the type has them;
// empty for a shown text without such a word, and without the value that the word needs.
Text ScalarPredicate(TextView column, TextView shown, TextView value, TextView quote);

// The dialog's predicate of a choice in its machine form; empty for one without items, as older
// records hold them.
Text ChoicePredicate(TextView column, TextView value);

}  // namespace fetchkit
