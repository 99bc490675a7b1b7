#include "hosts/dialect/NumberTexts.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "fetchkit/base/Numbers.h"

namespace fetchkit::hosts {
namespace {

constexpr std::size_t kDigitsOfDouble = 15;
constexpr std::size_t kDigitsOfLong = 18;  // any number of so many digits fits into 64 bits

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

}  // namespace

std::optional<std::variant<std::int64_t, double>> NumberOf(TextView text) {
  while (!text.empty() && text.front() == u' ')
    text.remove_prefix(1);
  while (!text.empty() && text.back() == u' ')
    text.remove_suffix(1);
  const TextView whole = text;
  const bool negative = !text.empty() && text.front() == u'-';
  if (negative || (!text.empty() && text.front() == u'+')) text.remove_prefix(1);

  std::size_t digits = 0;       // all of them
  std::size_t significant = 0;  // from the first that is not 0 to the last that is not 0
  std::size_t zeros = 0;        // behind the last that is not 0
  std::size_t i = 0;
  bool point = false;
  std::int64_t number = 0;
  for (; i < text.size() && (IsDigit(text[i]) || (text[i] == u'.' && !point)); ++i) {
    if (text[i] == u'.') {
      point = true;
      continue;
    }
    ++digits;
    if (digits <= kDigitsOfLong) number = number * 10 + (text[i] - u'0');
    if (text[i] == u'0') {
      if (significant > 0) ++zeros;
    } else {
      significant += zeros + 1;
      zeros = 0;
    }
  }
  if (digits == 0) return std::nullopt;
  if (i == text.size() && !point && digits <= kDigitsOfLong) return negative ? -number : number;
  if (i < text.size()) {
    if (UpperAscii(text[i]) != u'E') return std::nullopt;
    ++i;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) ++i;
    // More digits of an exponent than three are beyond every number.
    if (i == text.size() || text.size() - i > 3) return std::nullopt;
    for (; i < text.size(); ++i)
      if (!IsDigit(text[i])) return std::nullopt;
  }
  if (significant > kDigitsOfDouble) return std::nullopt;
  const double value = NumericTextToDouble(whole);
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

Text TextOfNumber(double number) {
  if (!(std::fabs(number) < 1e40)) return {};
  Text text = PlainDecimalText(number);
  std::size_t significant = 0;
  std::size_t zeros = 0;
  for (const char16_t c : text) {
    if (c == u'0') {
      if (significant > 0) ++zeros;
    } else if (IsDigit(c)) {
      significant += std::exchange(zeros, 0) + 1;
    }
  }
  if (significant >= kDigitsOfDouble) return {};
  const std::size_t sign = text.front() == u'-' ? 1 : 0;
  if (text.size() > sign + 1 && text[sign] == u'0') text.erase(sign, 1);
  return text;
}

}  // namespace fetchkit::hosts
