#include "fetchkit/base/Numbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
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

constexpr int kMostDigits = 15;

// A finite number as d1.d2d3... times a power of ten.
struct SignificantDigits {
  bool negative = false;
  int count = 0;                  // of digits, no zeros behind the last one; 0 for 0
  int exponent = 0;               // of the first digit: 0 where it stands for ones
  char digits[kMostDigits] = {};  // '0' to '9'
};

void DropZeros(SignificantDigits& number) {
  while (number.count > 0 && number.digits[number.count - 1] == '0')
    --number.count;
}

// The language's own way: fifteen digits of the exact value, rounded half to even.
SignificantDigits DigitsByLibrary(double value) {
  char buffer[40];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, std::abs(value),
                                 std::chars_format::scientific, kMostDigits - 1);
  SignificantDigits number;
  number.negative = std::signbit(value);
  // One digit, a point, fourteen digits, "e", a sign and the exponent.
  number.digits[0] = buffer[0];
  std::copy_n(buffer + 2, kMostDigits - 1, number.digits + 1);
  number.count = kMostDigits;
  const char* const exponent = buffer + kMostDigits + 2;
  std::from_chars(exponent + (*exponent == '+' ? 1 : 0), end.ptr, number.exponent);
  DropZeros(number);
  return number;
}

#if defined(__SIZEOF_INT128__)
// 10 to the power of 0 to 22: those that a double holds exactly.
constexpr auto kPowersOfTen = [] {
  std::array<double, 23> powers{};
  double power = 1;
  for (double& each : powers) {
    each = power;
    power *= 10;
  }
  return powers;
}();

// The same for what amounts look like, in whole numbers: a double of 53 bits times a power of ten
// fits into 128 bits, and what is shifted out says exactly how to round.
std::optional<SignificantDigits> DigitsByWhole(double value) {
  const double size = std::abs(value);
  if (!(size >= 1e-7 && size < 1e15)) return std::nullopt;
  int exponent = 0;
  if (size >= 1) {
    while (exponent < kMostDigits - 1 &&
           size >= kPowersOfTen[static_cast<std::size_t>(exponent) + 1])
      ++exponent;
  } else {
    exponent = -1;
    // The product may be rounded up to the next power; that is seen in the result.
    while (size * kPowersOfTen[static_cast<std::size_t>(-exponent)] < 1)
      --exponent;
  }
  const auto bits = std::bit_cast<std::uint64_t>(size);
  const int shift = 1075 - static_cast<int>(bits >> 52);  // normal: size is far from the smallest
  const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | std::uint64_t{1} << 52;
  const int scale = kMostDigits - 1 - exponent;
  if (shift < 1 || shift > 127 || scale > 22) return std::nullopt;
  __extension__ using Wide = unsigned __int128;
  const Wide product =
      Wide{mantissa} * static_cast<Wide>(kPowersOfTen[static_cast<std::size_t>(scale)]);
  auto whole = static_cast<std::uint64_t>(product >> shift);
  const Wide rest = product & ((Wide{1} << shift) - 1);
  const Wide half = Wide{1} << (shift - 1);
  if (rest > half || (rest == half && whole % 2 != 0)) ++whole;
  constexpr std::uint64_t kTooMany = 1000000000000000;
  if (whole < kTooMany / 10) return std::nullopt;
  if (whole >= kTooMany) {
    if (whole > kTooMany) return std::nullopt;
    whole /= 10;
    ++exponent;
  }
  SignificantDigits number;
  number.negative = std::signbit(value);
  number.exponent = exponent;
  number.count = kMostDigits;
  for (int i = kMostDigits; i-- > 0; whole /= 10)
    number.digits[i] = static_cast<char>('0' + whole % 10);
  DropZeros(number);
  return number;
}
#endif

SignificantDigits DigitsOf(double value) {
#if defined(__SIZEOF_INT128__)
  if (const auto number = DigitsByWhole(value)) return *number;
#endif
  return DigitsByLibrary(value);
}

// Puts digits into a text that is full of zeros.
void Put(Text& text, std::size_t at, const char* digits, int count) {
  for (int i = 0; i < count; ++i)
    text[at + static_cast<std::size_t>(i)] = static_cast<char16_t>(digits[i]);
}

// A number as a sign, whole digits and decimals: the digits stand behind each other, the first one
// for the power of ten exponent, and zeros fill what they leave open on either side.
Text WritePlain(bool negative, const char* digits, int count, int exponent, int decimals) {
  const int whole = std::max(exponent, 0) + 1;
  const int size = whole + (decimals > 0 ? 1 + decimals : 0);
  const std::size_t sign = negative ? 1 : 0;
  Text text(sign + static_cast<std::size_t>(size), u'0');
  if (negative) text.front() = u'-';
  // Digits in front of the point, then those behind it.
  const int front = std::clamp(exponent + 1, 0, count);
  Put(text, sign + static_cast<std::size_t>(whole - std::max(exponent + 1, 0)), digits, front);
  if (decimals > 0) {
    const std::size_t point = sign + static_cast<std::size_t>(whole);
    text[point] = u'.';
    Put(text, point + 1 + static_cast<std::size_t>(std::max(-exponent - 1, 0)), digits + front,
        count - front);
  }
  return text;
}

// At most 15 significant digits; an exponent is written from 1E+15 on and below 1E-15, or never.
Text WriteNumber(double value, bool mayHaveExponent) {
  if (std::isnan(value)) return u"NaN";
  if (std::isinf(value)) return value < 0 ? u"-Infinity" : u"Infinity";
  // Whole numbers of at most 15 digits, which most are, need no rounding.
  if (std::abs(value) < 1e15 && std::trunc(value) == value)
    return Join(static_cast<std::int64_t>(value));
  const SignificantDigits number = DigitsOf(value);
  if (!mayHaveExponent || (number.exponent < 15 && number.exponent >= -15))
    return WritePlain(number.negative, number.digits, number.count, number.exponent,
                      std::max(number.count - 1 - number.exponent, 0));
  const int power = std::abs(number.exponent);
  const Text mantissa =
      WritePlain(number.negative, number.digits, number.count, 0, number.count - 1);
  return Join(mantissa, number.exponent < 0 ? u"E-" : u"E+", power < 10 ? u"0" : u"", power);
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
  const SignificantDigits number = DigitsOf(value);
  // How many digits are shown; the first one left out rounds, half up.
  const int kept = number.exponent + 1 + decimals;
  if (kept < 0) return WritePlain(false, "0", 1, 0, decimals);
  char digits[kMostDigits + 1] = {'0'};
  int count = std::min(kept, number.count);
  std::copy_n(number.digits, count, digits + 1);
  if (kept < number.count && number.digits[kept] >= '5') {
    int at = count;
    for (; digits[at] == '9'; --at)
      digits[at] = '0';
    ++digits[at];
  }
  // A digit more in front when the nines ran over.
  const bool over = digits[0] != '0';
  const char* const first = over ? digits : digits + 1;
  count += over ? 1 : 0;
  const bool isZero = std::all_of(first, first + count, [](char digit) { return digit == '0'; });
  if (isZero) return WritePlain(false, "0", 1, 0, decimals);
  return WritePlain(number.negative, first, count, number.exponent + (over ? 1 : 0), decimals);
}

}  // namespace fetchkit
