#include "fetchkit/base/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "fetchkit/base/Error.h"

namespace fetchkit {
namespace {

bool IsDigit(char16_t unit) {
  return unit >= u'0' && unit <= u'9';
}

// Reads a plain ASCII number; texts of this grammar are ASCII by construction.
double ParseAscii(const std::string& ascii) {
  double value = 0;
  const auto result = std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // from_chars leaves the value alone here; only a negative exponent means "too small".
    const auto exponent = ascii.find('e');
    const bool tiny = exponent != std::string::npos && ascii[exponent + 1] == '-';
    const double limit = tiny ? 0.0 : std::numeric_limits<double>::infinity();
    return ascii.front() == '-' ? -limit : limit;
  }
  return value;
}

}  // namespace

double LeadingNumber(TextView text) {
  std::size_t at = 0;
  while (at < text.size() && text[at] == u' ')
    ++at;
  std::string ascii;
  if (at < text.size() && (text[at] == u'+' || text[at] == u'-')) {
    if (text[at] == u'-') ascii.push_back('-');
    ++at;
  }
  bool point = false;
  bool digit = false;
  for (; at < text.size(); ++at) {
    if (IsDigit(text[at])) {
      digit = true;
    } else if (text[at] == u'.' && !point) {
      point = true;
    } else {
      break;
    }
    ascii.push_back(static_cast<char>(text[at]));
  }
  return digit ? ParseAscii(ascii) : 0;
}

bool IsNumericText(TextView text) {
  text = TrimBlanks(text);
  std::size_t at = 0;
  const auto more = [&] { return at < text.size(); };
  const auto skipSign = [&] {
    if (more() && (text[at] == u'+' || text[at] == u'-')) ++at;
  };
  const auto skipDigits = [&](bool commas) {
    bool any = false;
    // A comma stands behind a digit, never in front of the first one.
    for (; more() && (IsDigit(text[at]) || (commas && any && text[at] == u',')); ++at)
      any = true;
    return any;
  };
  skipSign();
  bool digits = skipDigits(true);
  if (more() && text[at] == u'.') {
    ++at;
    digits = skipDigits(false) || digits;
  }
  if (!digits) return false;
  if (more() && (text[at] == u'e' || text[at] == u'E')) {
    ++at;
    skipSign();
    if (!skipDigits(false)) return false;
  }
  return !more();
}

double NumericTextToDouble(TextView text) {
  std::string ascii;
  for (const char16_t unit : TrimBlanks(text)) {
    if (unit == u',') continue;
    ascii.push_back(unit == u'E' ? 'e' : static_cast<char>(unit));
  }
  // from_chars knows no plus sign in front.
  if (ascii.starts_with('+')) ascii.erase(0, 1);
  return ParseAscii(ascii);
}

double RoundHalfToEven(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  if (part < 0.5) return below;
  if (part > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

template <class Whole>
Whole RoundedTo(double value) {
  const double rounded = RoundHalfToEven(value);
  if (!(rounded >= static_cast<double>(std::numeric_limits<Whole>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Whole>::max()))) {
    throw ConvertError(ErrorKind::Overflow, u"A number is too large for its place.");
  }
  return static_cast<Whole>(rounded);
}

template std::uint8_t RoundedTo(double value);
template std::int16_t RoundedTo(double value);
template std::int32_t RoundedTo(double value);

namespace {

// A finite number as 0.d1d2d3... times a power of ten.
struct SignificantDigits {
  bool negative = false;
  std::string digits;  // at most 15, no zeros behind the last one; empty for 0
  int exponent = 0;    // of the first digit: 0 where it stands for ones
};

SignificantDigits DigitsOf(double value) {
  char buffer[40];
  // Scientific first: the shortest form of the language would show 0.1 + 0.2 with 17 digits.
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 14);
  const std::string scientific(buffer, end.ptr);
  const auto mark = scientific.find('e');
  SignificantDigits number;
  number.exponent = std::stoi(scientific.substr(mark + 1));
  number.digits = scientific.substr(0, mark);
  number.negative = number.digits.front() == '-';
  std::erase_if(number.digits, [](char c) { return c == '.' || c == '-'; });
  number.digits.erase(number.digits.find_last_not_of('0') + 1);
  return number;
}

// At most 15 significant digits; an exponent is written from 1E+15 on and below 1E-15, or never.
Text WriteNumber(double value, bool mayHaveExponent) {
  if (std::isnan(value)) return u"NaN";
  if (std::isinf(value)) return value < 0 ? u"-Infinity" : u"Infinity";
  // Whole numbers of at most 15 digits, which most are, need no rounding.
  if (std::abs(value) < 1e15 && std::trunc(value) == value)
    return Join(static_cast<std::int64_t>(value));
  const auto [negative, mantissa, exponent] = DigitsOf(value);

  std::string text;
  if (negative) text.push_back('-');
  const auto count = static_cast<int>(mantissa.size());
  const auto zeros = [&](int howMany) { text.append(static_cast<std::size_t>(howMany), '0'); };
  if (mayHaveExponent && (exponent >= 15 || exponent < -15)) {
    text.push_back(mantissa.front());
    if (count > 1) text.append(".").append(mantissa, 1);
    text.append(exponent < 0 ? "E-" : "E+");
    if (std::abs(exponent) < 10) zeros(1);
    text.append(std::to_string(std::abs(exponent)));
  } else if (exponent < 0) {
    text.append("0.");
    zeros(-exponent - 1);
    text.append(mantissa);
  } else if (count <= exponent + 1) {
    text.append(mantissa);
    zeros(exponent + 1 - count);
  } else {
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    text.append(mantissa, 0, whole).append(".").append(mantissa, whole);
  }
  return {text.begin(), text.end()};
}

}  // namespace

Text NumberText(double value) {
  return WriteNumber(value, true);
}

Text PlainDecimalText(double value) {
  return WriteNumber(value, false);
}

Text FixedText(double value, int decimals) {
  if (!std::isfinite(value)) return NumberText(value);
  decimals = std::max(decimals, 0);
  auto [negative, digits, exponent] = DigitsOf(value);
  // The whole number of units in the last place that is shown.
  const int kept = exponent + 1 + decimals;
  if (kept < 0) {
    digits.clear();
  } else if (const auto length = static_cast<std::size_t>(kept); length >= digits.size()) {
    digits.append(length - digits.size(), '0');
  } else {
    const bool up = digits[length] >= '5';
    digits.erase(length);
    auto at = digits.rbegin();
    for (; up && at != digits.rend() && *at == '9'; ++at)
      *at = '0';
    if (up && at != digits.rend()) {
      ++*at;
    } else if (up) {
      digits.insert(0, 1, '1');
    }
  }
  // At least one digit in front of the point.
  const auto places = static_cast<std::size_t>(decimals);
  if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
  negative = negative && digits.find_first_not_of('0') != std::string::npos;
  if (places != 0) digits.insert(digits.size() - places, 1, '.');
  if (negative) digits.insert(0, 1, '-');
  return {digits.begin(), digits.end()};
}

}  // namespace fetchkit
