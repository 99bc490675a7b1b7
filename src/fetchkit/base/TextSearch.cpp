#include "fetchkit/base/TextSearch.h"

#include <algorithm>
#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace fetchkit {
namespace {

#if defined(__SSE2__)
constexpr std::size_t kBlock = 8;

__m128i LoadBlock(const char16_t* at) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}
#endif

// First place at or after from where first stands and last stands distance units behind it.
// Testing two units at once keeps false starts rare in texts that repeat one letter.
std::size_t FindPair(TextView text, char16_t first, char16_t last, std::size_t distance,
                     std::size_t from) {
  const std::size_t end = text.size() - distance;  // places where both units exist
  std::size_t at = from;
#if defined(__SSE2__)
  const __m128i wantedFirst = _mm_set1_epi16(static_cast<short>(first));
  const __m128i wantedLast = _mm_set1_epi16(static_cast<short>(last));
  for (; at + kBlock <= end; at += kBlock) {
    const __m128i hits =
        _mm_and_si128(_mm_cmpeq_epi16(LoadBlock(text.data() + at), wantedFirst),
                      _mm_cmpeq_epi16(LoadBlock(text.data() + at + distance), wantedLast));
    const auto mask = static_cast<unsigned>(_mm_movemask_epi8(hits));
    if (mask != 0) return at + static_cast<std::size_t>(std::countr_zero(mask)) / 2;
  }
#endif
  for (; at < end; ++at)
    if (text[at] == first && text[at + distance] == last) return at;
  return TextView::npos;
}

Text ReplaceWith(std::size_t (*search)(TextView, TextView, std::size_t), TextView text,
                 TextView find, TextView replacement) {
  Text replaced;
  replaced.reserve(text.size());
  std::size_t from = 0;
  while (!find.empty()) {
    const std::size_t at = search(text, find, from);
    if (at == TextView::npos) break;
    replaced.append(text.substr(from, at - from)).append(replacement);
    from = at + find.size();
  }
  return replaced.append(text.substr(from));
}

}  // namespace

std::size_t FindText(TextView text, TextView needle, std::size_t from) {
  if (from > text.size() || needle.size() > text.size() - from) return TextView::npos;
  if (needle.empty()) return from;
  const std::size_t distance = needle.size() - 1;
  for (std::size_t at = from; at + needle.size() <= text.size(); ++at) {
    at = FindPair(text, needle.front(), needle.back(), distance, at);
    if (at == TextView::npos) break;
    if (needle.size() <= 2 || text.substr(at + 1, distance) == needle.substr(1)) return at;
  }
  return TextView::npos;
}

std::size_t FindFolded(TextView text, TextView needle, std::size_t from) {
  if (from > text.size() || needle.size() > text.size() - from) return TextView::npos;
  for (std::size_t at = from; at + needle.size() <= text.size(); ++at)
    if (EqualFolded(text.substr(at, needle.size()), needle)) return at;
  return TextView::npos;
}

Text ReplaceText(TextView text, TextView find, TextView replacement) {
  return ReplaceWith(FindText, text, find, replacement);
}

Text ReplaceFolded(TextView text, TextView find, TextView replacement) {
  return ReplaceWith(FindFolded, text, find, replacement);
}

std::size_t CountUnit(TextView text, char16_t unit) {
  std::size_t count = 0;
  std::size_t at = 0;
#if defined(__SSE2__)
  // Hits are counted in eight lanes of 16 bits, which are emptied before they can overflow.
  constexpr std::size_t kBlocksPerRound = 0x7FFF;
  const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
  while (at + kBlock <= text.size()) {
    const std::size_t blocks = std::min((text.size() - at) / kBlock, kBlocksPerRound);
    __m128i lanes = _mm_setzero_si128();
    for (std::size_t block = 0; block < blocks; ++block, at += kBlock)
      lanes = _mm_sub_epi16(lanes, _mm_cmpeq_epi16(LoadBlock(text.data() + at), wanted));
    const __m128i pairs = _mm_madd_epi16(lanes, _mm_set1_epi16(1));
    const __m128i halves = _mm_add_epi32(pairs, _mm_srli_si128(pairs, 8));
    const __m128i sum = _mm_add_epi32(halves, _mm_srli_si128(halves, 4));
    count += static_cast<std::size_t>(_mm_cvtsi128_si32(sum));
  }
#endif
  for (; at < text.size(); ++at)
    if (text[at] == unit) ++count;
  return count;
}

}  // namespace fetchkit
