// The Pinyin initials of the Chinese characters of code page 936, in the order of their codes.
#pragma once

#include <cstdint>
#include <span>

namespace fetchkit {

constexpr int kFirstLeadByte = 0x81;   // the last is 0xFE
constexpr int kFirstTrailByte = 0x40;  // the last is 0xFE

// A row for each lead byte, in it a letter for each trail byte: the initial of the character's only
// or commonest reading, a capital when other readings have other initials. "." for what is no
// Chinese character and for the few of which no reading is recorded.
extern const char* const kPinyinRows[126];

// All initials of a character with a capital, such as "cz" of 重.
struct PinyinInitials {
  std::uint16_t code;  // the lead byte in front
  const char* initials;
};

// In ascending order of the codes.
extern const std::span<const PinyinInitials> kPinyinOfSeveral;

}  // namespace fetchkit
