#include "fetchkit/base/Scan.h"

#include <algorithm>

#include "fetchkit/base/ScanWidths.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace fetchkit::scan {
namespace {

#if defined(__SSE2__)
struct Block8 {
  static constexpr std::size_t kUnits = 8;
  static constexpr std::uint32_t kFullMask = 0xFF;
  __m128i units;

  static Block8 Load(const char16_t* at) {
    return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(at))};
  }
  void Store(char16_t* at) const { _mm_storeu_si128(reinterpret_cast<__m128i*>(at), units); }
  static Block8 All(char16_t unit) { return {_mm_set1_epi16(static_cast<short>(unit))}; }
  static Block8 Zero() { return {_mm_setzero_si128()}; }

  friend Block8 Equal(Block8 a, Block8 b) { return {_mm_cmpeq_epi16(a.units, b.units)}; }
  friend Block8 And(Block8 a, Block8 b) { return {_mm_and_si128(a.units, b.units)}; }
  friend Block8 Or(Block8 a, Block8 b) { return {_mm_or_si128(a.units, b.units)}; }
  friend Block8 Add(Block8 a, Block8 b) { return {_mm_add_epi16(a.units, b.units)}; }
  friend Block8 Subtract(Block8 a, Block8 b) { return {_mm_sub_epi16(a.units, b.units)}; }

  std::size_t Sum() const {
    const __m128i pairs = _mm_madd_epi16(units, _mm_set1_epi16(1));
    const __m128i halves = _mm_add_epi32(pairs, _mm_srli_si128(pairs, 8));
    return static_cast<std::uint32_t>(
        _mm_cvtsi128_si32(_mm_add_epi32(halves, _mm_srli_si128(halves, 4))));
  }
  std::uint32_t Mask() const {
    return static_cast<std::uint32_t>(
        _mm_movemask_epi8(_mm_packs_epi16(units, _mm_setzero_si128())));
  }
  // Shifted down so that the range begins with the smallest signed number.
  Block8 IsHan() const {
    const __m128i moved = _mm_sub_epi16(units, _mm_set1_epi16(static_cast<short>(0xCE00)));
    return {_mm_cmpgt_epi16(_mm_set1_epi16(static_cast<short>(0x8000 + 0x9FA6 - 0x4E00)), moved)};
  }
  Block8 IsAscii() const {
    return {_mm_cmpeq_epi16(_mm_srli_epi16(units, 7), _mm_setzero_si128())};
  }
};
constexpr const BlockScans* kNarrow = &Blocks<Block8>::kScans;
#else
constexpr const BlockScans* kNarrow = nullptr;
#endif

#if defined(FETCHKIT_AVX2)
bool HasAvx2() {
  return __builtin_cpu_supports("avx2") != 0;
}
#endif

// The widest scans for a text of that size; null: unit by unit.
const BlockScans* ScansFor(std::size_t size) {
#if defined(FETCHKIT_AVX2)
  if (size >= 128 && HasAvx2()) return &kSixteenAtATime;
#endif
  return size >= 8 ? kNarrow : nullptr;
}

bool IsHan(char16_t unit) {
  return unit >= 0x4E00 && unit <= 0x9FA5;
}

char16_t Folded(char16_t unit, bool folds) {
  return folds ? UpperAscii(unit) : unit;
}

// How a letter is compared in blocks: with the bit that tells its cases apart set.
PairUnits UnitsOf(const Pair& pair) {
  const auto fold = [](bool folds) { return static_cast<char16_t>(folds ? 0x20 : 0); };
  return {static_cast<char16_t>(pair.first | fold(pair.foldsFirst)),
          static_cast<char16_t>(pair.last | fold(pair.foldsLast)), fold(pair.foldsFirst),
          fold(pair.foldsLast)};
}

}  // namespace

std::size_t CountUnit(TextView text, char16_t unit) {
  std::size_t count = 0;
  std::size_t at = 0;
  if (const BlockScans* scans = ScansFor(text.size()))
    count = scans->count(text.data(), text.size(), unit, at);
  return count + loop::CountUnit(text.substr(at), unit);
}

std::size_t FindNthUnit(TextView text, char16_t unit, std::size_t n) {
  std::size_t at = 0;
  if (const BlockScans* scans = ScansFor(text.size()); scans != nullptr && n > 0)
    scans->skip(text.data(), text.size(), unit, n, at);
  const std::size_t found = loop::FindNthUnit(text.substr(at), unit, n);
  return found == TextView::npos ? found : at + found;
}

std::size_t FindPair(TextView text, const Pair& pair, std::size_t from) {
  std::size_t place;
  return FindPairs(text, pair, from, &place, 1) == 1 ? place : TextView::npos;
}

std::size_t FindPairs(TextView text, const Pair& pair, std::size_t& from, std::size_t* places,
                      std::size_t capacity) {
  std::size_t found = 0;
  if (from < text.size() && pair.distance < text.size() - from) {
    const std::size_t end = text.size() - pair.distance;
    if (const BlockScans* scans = ScansFor(end - from))
      found = scans->pairs(text.data(), end, pair.distance, UnitsOf(pair), from, places, capacity);
    for (; found < capacity; ++from) {
      from = loop::FindPair(text, pair, from);
      if (from == TextView::npos) return found;
      places[found++] = from;
    }
    return found;
  }
  from = TextView::npos;
  return found;
}

std::size_t FindAnyOf(TextView text, const AsciiSet& set) {
  std::size_t at = 0;
#if defined(FETCHKIT_AVX2)
  if (text.size() >= 128 && HasAvx2()) {
    std::uint8_t lowTable[16] = {};
    for (char16_t unit = 1; unit < 0x80; ++unit)
      if (set.Has(unit)) lowTable[unit & 15] |= static_cast<std::uint8_t>(1 << (unit >> 4));
    FindAnyOfSixteen(text.data(), text.size(), lowTable, at);
  }
#endif
  const std::size_t found = loop::FindAnyOf(text.substr(at), set);
  return found == TextView::npos ? found : at + found;
}

Han LeadingHan(TextView text) {
  std::size_t at = 0;
  if (const BlockScans* scans = ScansFor(text.size())) {
    const std::size_t han = scans->han(text.data(), text.size(), at);
    if (text.size() - at >= 16) return {at, han};
    const Han rest = loop::LeadingHan(text.substr(at));
    return {at + rest.units, han + rest.han};
  }
  return loop::LeadingHan(text);
}

char16_t* CopyReplacing(char16_t* out, TextView text, char16_t unit, TextView joint) {
  std::size_t at = 0;
  if (const BlockScans* scans = ScansFor(text.size())) {
    char16_t joint4[4] = {};
    std::copy(joint.begin(), joint.end(), joint4);
    out = scans->replace(out, text.data(), text.size(), unit, joint4, joint.size(), at);
  }
  return loop::CopyReplacing(out, text.substr(at), unit, joint);
}

namespace loop {

std::size_t CountUnit(TextView text, char16_t unit) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), unit));
}

std::size_t FindNthUnit(TextView text, char16_t unit, std::size_t n) {
  if (n == 0) return TextView::npos;
  for (std::size_t at = 0; at < text.size(); ++at)
    if (text[at] == unit && --n == 0) return at;
  return TextView::npos;
}

std::size_t FindPair(TextView text, const Pair& pair, std::size_t from) {
  const char16_t first = Folded(pair.first, pair.foldsFirst);
  const char16_t last = Folded(pair.last, pair.foldsLast);
  for (std::size_t at = from; at < text.size() && pair.distance < text.size() - at; ++at)
    if (Folded(text[at], pair.foldsFirst) == first &&
        Folded(text[at + pair.distance], pair.foldsLast) == last)
      return at;
  return TextView::npos;
}

std::size_t FindAnyOf(TextView text, const AsciiSet& set) {
  for (std::size_t at = 0; at < text.size(); ++at)
    if (set.Has(text[at])) return at;
  return TextView::npos;
}

Han LeadingHan(TextView text) {
  Han leading{0, 0};
  for (; leading.units < text.size(); ++leading.units) {
    const bool han = IsHan(text[leading.units]);
    if (!han && text[leading.units] >= 0x80) break;
    if (han) ++leading.han;
  }
  return leading;
}

char16_t* CopyReplacing(char16_t* out, TextView text, char16_t unit, TextView joint) {
  for (const char16_t each : text)
    if (each == unit) {
      out = std::copy(joint.begin(), joint.end(), out);
    } else {
      *out++ = each;
    }
  return out;
}

}  // namespace loop

}  // namespace fetchkit::scan
