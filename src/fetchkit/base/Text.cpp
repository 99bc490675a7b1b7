#include "fetchkit/base/Text.h"

#include <algorithm>

#include "fetchkit/base/TextSearch.h"

namespace fetchkit {

Piece::Piece(Digits, std::int64_t number) {
  // Worked on as unsigned: the smallest 64-bit number has no positive counterpart.
  auto rest = static_cast<std::uint64_t>(number);
  if (number < 0) rest = 0 - rest;
  std::size_t at = digits_.size();
  do {
    digits_[--at] = static_cast<char16_t>(u'0' + rest % 10);
    rest /= 10;
  } while (rest != 0);
  if (number < 0) digits_[--at] = u'-';
  view_ = TextView(digits_.data() + at, digits_.size() - at);
}

namespace detail {

Text JoinPieces(const Piece* const* pieces, std::size_t count) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < count; ++i)
    length += pieces[i]->view().size();
  Text joined;
  joined.reserve(length);
  for (std::size_t i = 0; i < count; ++i)
    joined.append(pieces[i]->view());
  return joined;
}

}  // namespace detail

TextView TrimBlanks(TextView text) {
  const auto first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

Text UpperAscii(TextView text) {
  Text upper(text);
  for (char16_t& unit : upper)
    unit = UpperAscii(unit);
  return upper;
}

bool EqualFolded(TextView left, TextView right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char16_t a, char16_t b) { return UpperAscii(a) == UpperAscii(b); });
}

std::vector<TextView> Split(TextView text, TextView delimiter, bool folded) {
  std::vector<TextView> pieces;
  if (text.empty()) return pieces;
  std::size_t from = 0;
  if (!delimiter.empty()) {
    for (;;) {
      const std::size_t at =
          folded ? FindFolded(text, delimiter, from) : FindText(text, delimiter, from);
      if (at == TextView::npos) break;
      pieces.push_back(text.substr(from, at - from));
      from = at + delimiter.size();
    }
  }
  pieces.push_back(text.substr(from));
  return pieces;
}

void AppendWith(Text& list, char16_t separator, TextView item) {
  if (!list.empty()) list.push_back(separator);
  list.append(item);
}

}  // namespace fetchkit
