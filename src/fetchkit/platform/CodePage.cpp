// The only file that asks the C library's iconv; the Windows build leaves it out.
#include "fetchkit/platform/CodePage.h"

#include <iconv.h>

#include <bitset>
#include <memory>
#include <vector>

namespace fetchkit {
namespace {

constexpr std::size_t kUnits = 0x10000;
using DoubleByteUnits = std::bitset<kUnits>;

// Calls visit(unit, code) for every unit with a code of two bytes. False when the C library has no
// converter. Asked once for all units: opening a converter for every text would cost more than
// what is asked of it.
template <class Visit>
bool VisitDoubleBytes(Visit visit) {
  iconv_t converter = iconv_open("GBK", "UTF-16LE");
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return false;
  for (std::size_t unit = 0x80; unit < kUnits; ++unit) {
    char in[2] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    unsigned char out[4];
    char* inAt = in;
    char* outAt = reinterpret_cast<char*>(out);
    std::size_t inLeft = sizeof in;
    std::size_t outLeft = sizeof out;
    if (iconv(converter, &inAt, &inLeft, &outAt, &outLeft) == 0 && sizeof out - outLeft == 2)
      visit(unit, static_cast<std::uint16_t>(out[0] << 8 | out[1]));
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
  }
  iconv_close(converter);
  return true;
}

std::unique_ptr<const DoubleByteUnits> ReadDoubleByteUnits() {
  auto wide = std::make_unique<DoubleByteUnits>();
  const bool read = VisitDoubleBytes([&](std::size_t unit, std::uint16_t) { wide->set(unit); });
  if (!read) {
    // A C library without this converter still counts every Chinese character as 2.
    for (std::size_t unit = 0x2E80; unit < 0xD800; ++unit)
      wide->set(unit);
    for (std::size_t unit = 0xF900; unit < 0xFFF0; ++unit)
      wide->set(unit);
  }
  return wide;
}

// Kept apart from the lengths, which are asked far more often and fit a cache in their own form.
struct Codes {
  std::vector<std::uint16_t> ofUnit = std::vector<std::uint16_t>(kUnits);  // 0: lacking
  std::vector<char16_t> units = std::vector<char16_t>(kUnits);             // by code; 0: none
};

const Codes& DoubleByteCodes() {
  static const auto read = [] {
    auto codes = std::make_unique<Codes>();
    VisitDoubleBytes([&](std::size_t unit, std::uint16_t code) {
      codes->ofUnit[unit] = code;
      codes->units[code] = static_cast<char16_t>(unit);
    });
    return std::unique_ptr<const Codes>(std::move(codes));
  }();
  return *read;
}

}  // namespace

int CodePageBytes(char16_t unit) {
  if (unit < 0x80) return 1;
  static const auto wide = ReadDoubleByteUnits();
  return wide->test(unit) ? 2 : 1;
}

std::uint16_t CodePageCode(char16_t unit) {
  if (unit < 0x80) return unit;
  const std::uint16_t code = DoubleByteCodes().ofUnit[unit];
  return code != 0 ? code : u'?';
}

std::optional<char16_t> CodePageCharacter(std::uint16_t code) {
  if (code < 0x80) return static_cast<char16_t>(code);
  const char16_t unit = DoubleByteCodes().units[code];
  if (unit == 0) return std::nullopt;
  return unit;
}

}  // namespace fetchkit
