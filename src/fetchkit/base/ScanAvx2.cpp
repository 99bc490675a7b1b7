// Sixteen units at a time: compiled for processors with AVX2, and called on no other. Empty where
// the build does not know how.
#if defined(FETCHKIT_AVX2)

#include <immintrin.h>

#include "fetchkit/base/ScanBlocks.h"
#include "fetchkit/base/ScanWidths.h"

namespace fetchkit::scan {
namespace {

struct Block16 {
  static constexpr std::size_t kUnits = 16;
  static constexpr std::uint32_t kFullMask = 0xFFFF;
  __m256i units;

  static Block16 Load(const char16_t* at) {
    return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(at))};
  }
  void Store(char16_t* at) const { _mm256_storeu_si256(reinterpret_cast<__m256i*>(at), units); }
  static Block16 All(char16_t unit) { return {_mm256_set1_epi16(static_cast<short>(unit))}; }
  static Block16 Zero() { return {_mm256_setzero_si256()}; }

  friend Block16 Equal(Block16 a, Block16 b) { return {_mm256_cmpeq_epi16(a.units, b.units)}; }
  friend Block16 And(Block16 a, Block16 b) { return {_mm256_and_si256(a.units, b.units)}; }
  friend Block16 Or(Block16 a, Block16 b) { return {_mm256_or_si256(a.units, b.units)}; }
  friend Block16 Add(Block16 a, Block16 b) { return {_mm256_add_epi16(a.units, b.units)}; }
  friend Block16 Subtract(Block16 a, Block16 b) { return {_mm256_sub_epi16(a.units, b.units)}; }

  std::size_t Sum() const {
    const __m256i pairs = _mm256_madd_epi16(units, _mm256_set1_epi16(1));
    const __m128i fours =
        _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
    const __m128i halves = _mm_add_epi32(fours, _mm_srli_si128(fours, 8));
    return static_cast<std::uint32_t>(
        _mm_cvtsi128_si32(_mm_add_epi32(halves, _mm_srli_si128(halves, 4))));
  }
  std::uint32_t Mask() const {
    const auto bits = static_cast<std::uint32_t>(
        _mm256_movemask_epi8(_mm256_packs_epi16(units, _mm256_setzero_si256())));
    return (bits | bits >> 8) & kFullMask;
  }
  // Shifted down so that the range begins with the smallest signed number.
  Block16 IsHan() const {
    const __m256i moved = _mm256_sub_epi16(units, _mm256_set1_epi16(static_cast<short>(0xCE00)));
    return {
        _mm256_cmpgt_epi16(_mm256_set1_epi16(static_cast<short>(0x8000 + 0x9FA6 - 0x4E00)), moved)};
  }
  Block16 IsAscii() const {
    return {_mm256_cmpeq_epi16(_mm256_srli_epi16(units, 7), _mm256_setzero_si256())};
  }
};

}  // namespace

const BlockScans kSixteenAtATime = Blocks<Block16>::kScans;

std::size_t FindAnyOfSixteen(const char16_t* text, std::size_t size, const std::uint8_t* lowTable,
                             std::size_t& at) {
  // Thirty-two units become as many bytes; what is not ASCII becomes 0 or 255, which no set holds.
  // A byte is in the set when the entry for its low half has the bit of its high half.
  const __m256i low =
      _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(lowTable)));
  const __m256i high = _mm256_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2,
                                        4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0);
  const __m256i halves = _mm256_set1_epi8(15);
  for (; at + 32 <= size; at += 32) {
    const __m256i bytes =
        _mm256_packus_epi16(Block16::Load(text + at).units, Block16::Load(text + at + 16).units);
    const __m256i rows = _mm256_shuffle_epi8(low, _mm256_and_si256(bytes, halves));
    const __m256i bits =
        _mm256_shuffle_epi8(high, _mm256_and_si256(_mm256_srli_epi16(bytes, 4), halves));
    if (!_mm256_testz_si256(rows, bits)) break;
  }
  return at;
}

}  // namespace fetchkit::scan

#endif
