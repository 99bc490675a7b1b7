#include "fetchkit/base/TextSearch.h"

namespace fetchkit {
namespace {

// Both ends of a needle that is not empty. Looking for two units at once keeps false starts rare in
// texts that repeat one letter.
scan::Pair EndsOf(TextView needle, bool folded) {
  return {needle.front(), needle.back(), needle.size() - 1, folded && IsAsciiLetter(needle.front()),
          folded && IsAsciiLetter(needle.back())};
}

// Whether the needle stands where both of its ends do.
bool StandsAt(TextView text, std::size_t at, TextView needle, bool folded) {
  if (needle.size() <= 2) return true;
  const TextView inner = text.substr(at + 1, needle.size() - 2);
  const TextView wanted = needle.substr(1, needle.size() - 2);
  return folded ? EqualFolded(inner, wanted) : inner == wanted;
}

std::size_t Find(TextView text, TextView needle, std::size_t from, bool folded) {
  if (from > text.size() || needle.size() > text.size() - from) return TextView::npos;
  if (needle.empty()) return from;
  const scan::Pair ends = EndsOf(needle, folded);
  for (std::size_t at = from;; ++at) {
    at = scan::FindPair(text, ends, at);
    if (at == TextView::npos || StandsAt(text, at, needle, folded)) return at;
  }
}

Text Replace(TextView text, TextView find, TextView replacement, bool folded) {
  Text replaced;
  // Counted first, so that what grows is allocated once.
  std::size_t hits = 0;
  if (replacement.size() > find.size()) {
    Occurrences counted(text, find, folded);
    for (std::size_t at = 0; (at = counted.Next(at)) != TextView::npos; at += find.size())
      ++hits;
  }
  replaced.reserve(text.size() + hits * (replacement.size() - find.size()));
  Occurrences places(text, find, folded);
  std::size_t from = 0;
  for (std::size_t at; (at = places.Next(from)) != TextView::npos; from = at + find.size())
    replaced.append(text.substr(from, at - from)).append(replacement);
  return replaced.append(text.substr(from));
}

}  // namespace

std::size_t FindText(TextView text, TextView needle, std::size_t from) {
  return Find(text, needle, from, false);
}

std::size_t FindFolded(TextView text, TextView needle, std::size_t from) {
  return Find(text, needle, from, true);
}

Text ReplaceText(TextView text, TextView find, TextView replacement) {
  return Replace(text, find, replacement, false);
}

Text ReplaceFolded(TextView text, TextView find, TextView replacement) {
  return Replace(text, find, replacement, true);
}

Occurrences::Occurrences(TextView text, TextView needle, bool folded)
    : text_(text), needle_(needle), pair_{}, folded_(folded) {
  if (needle.empty() || needle.size() > text.size()) {
    scanned_ = TextView::npos;
  } else {
    pair_ = EndsOf(needle, folded);
  }
}

std::size_t Occurrences::Next(std::size_t from) {
  for (;;) {
    for (; at_ < count_; ++at_) {
      const std::size_t place = places_[at_];
      if (place >= from && StandsAt(text_, place, needle_, folded_)) return place;
    }
    if (scanned_ == TextView::npos) return scanned_;
    if (scanned_ < from) scanned_ = from;
    at_ = 0;
    count_ = scan::FindPairs(text_, pair_, scanned_, places_.data(), places_.size());
    if (count_ == 0) {
      scanned_ = TextView::npos;
      return scanned_;
    }
  }
}

}  // namespace fetchkit
