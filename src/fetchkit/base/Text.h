// Text as the database and the hosts hold it: UTF-16 code units.
//
// Positions and lengths are counted in code units everywhere, so that they agree with what a
// spreadsheet, a script or a database column of the host reports on any platform. Nothing in the
// core is wchar_t or UTF-8; UTF-8 is met only at the rim (base/Utf8.h).
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fetchkit {

using Text = std::u16string;
using TextView = std::u16string_view;

// One piece of a joined text: a view of a text, or a number written as plain decimal digits.
// Holds the digits itself, so a piece lives as long as the full expression it appears in.
class Piece {
 public:
  Piece(TextView text) : view_(text) {}         // NOLINT(google-explicit-constructor)
  Piece(const Text& text) : view_(text) {}      // NOLINT(google-explicit-constructor)
  Piece(const char16_t* text) : view_(text) {}  // NOLINT(google-explicit-constructor)
  template <std::integral N>
  requires(!std::same_as<N, bool> && !std::same_as<N, char> && !std::same_as<N, char16_t>)
      // NOLINTNEXTLINE(google-explicit-constructor)
      Piece(N number)
      : Piece(Digits{}, static_cast<std::int64_t>(number)) {}
  Piece(const Piece&) = delete;
  Piece& operator=(const Piece&) = delete;

  TextView view() const { return view_; }

 private:
  struct Digits {};
  Piece(Digits, std::int64_t number);

  std::array<char16_t, 20> digits_;
  TextView view_;
};

namespace detail {
Text JoinPieces(const Piece* const* pieces, std::size_t count);
}

// Joins the pieces; one allocation for the result, whatever their number.
template <class... Pieces>
Text Join(const Pieces&... pieces) {
  // The lambda keeps the pieces alive while their addresses are in the array.
  return [](const auto&... made) {
    const Piece* const all[] = {&made...};
    return detail::JoinPieces(all, sizeof...(made));
  }(Piece(pieces)...);
}

// Without leading and trailing blanks. A blank is U+0020 alone: tabs, line feeds and the
// ideographic space stay.
TextView TrimBlanks(TextView text);

// ASCII letters in upper case, everything else as it stands. The one place that says what
// "without regard to letter case" means in this system, together with EqualFolded.
Text UpperAscii(TextView text);

constexpr char16_t UpperAscii(char16_t unit) {
  return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

constexpr bool IsAsciiLetter(char16_t unit) {
  return UpperAscii(unit) >= u'A' && UpperAscii(unit) <= u'Z';
}

// Equality without regard to the case of ASCII letters.
bool EqualFolded(TextView left, TextView right);

// The pieces between delimiters, as views into text. An empty text has no pieces; an empty
// delimiter never occurs, so the whole text is the one piece. folded: the delimiter matches
// without regard to ASCII letter case.
std::vector<TextView> Split(TextView text, TextView delimiter, bool folded = false);

// Appends the item to a list, behind the separator unless the list is empty: an empty first item
// leaves no trace.
void AppendWith(Text& list, char16_t separator, TextView item);

}  // namespace fetchkit
