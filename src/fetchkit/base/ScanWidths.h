// The scans of each width that this build has. For Scan.cpp alone.
#pragma once

#include <cstddef>
#include <cstdint>

#include "fetchkit/base/ScanBlocks.h"

namespace fetchkit::scan {

// In ScanAvx2.cpp; to be used when the processor has AVX2.
extern const BlockScans kSixteenAtATime;

// Goes on from at by blocks of 32 until one holds a unit of the set; lowTable has for each low half
// of an ASCII unit the bits of the high halves that are in it, without NUL.
std::size_t FindAnyOfSixteen(const char16_t* text, std::size_t size, const std::uint8_t* lowTable,
                             std::size_t& at);

}  // namespace fetchkit::scan
