// Code page 936 (GBK): the ANSI code page of a Chinese Windows, for the portable platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "fetchkit/base/Text.h"

namespace fetchkit {

// Bytes that the text takes in code page 936: 1 or 2 for each unit. What the code page lacks, each
// half of a surrogate pair included, is one "?".
std::size_t CodePageLength(TextView text);

// The unit's code: its byte, or its two bytes with the lead byte in front. That of "?" for what
// the code page lacks.
std::uint16_t CodePageCode(char16_t unit);

// The unit with that code; nothing when the code page assigns none to it.
std::optional<char16_t> CodePageCharacter(std::uint16_t code);

}  // namespace fetchkit
