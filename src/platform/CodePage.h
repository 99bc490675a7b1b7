// Code page 936 (GBK): the ANSI code page of a Chinese Windows, for the portable platform.
#pragma once

#include "base/Text.h"

namespace fetchkit {

// Bytes that the unit takes in code page 936: 1 or 2. What the code page lacks, each half of a
// surrogate pair included, is one "?".
int CodePageBytes(char16_t unit);

}  // namespace fetchkit
