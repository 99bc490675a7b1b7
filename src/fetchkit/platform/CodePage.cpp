// The only file that asks the C library's iconv; the Windows build leaves it out.
#include "fetchkit/platform/CodePage.h"

#include <iconv.h>

#include <bitset>
#include <memory>
#include <vector>

#include "fetchkit/base/Scan.h"

namespace fetchkit {
namespace {

constexpr std::size_t kUnits = 0x10000;
using DoubleByteUnits = std::bitset<kUnits>;

// Calls visit(unit, code) for every unit with a code of two bytes. False when the C library has no
// converter. All codes are read at once: asking for each unit, of which most have none, takes many
// times as long. What the codes are read as has those codes, and nothing else has one.
template <class Visit>
bool VisitDoubleBytes(Visit visit) {
  iconv_t converter = iconv_open("UTF-16LE", "GBK");
  if (reinterpret_cast<std::intptr_t>(converter) == -1) return false;
  std::vector<char> codes;
  for (int lead = 0x81; lead <= 0xFE; ++lead)
    for (int trail = 0x40; trail <= 0xFE; ++trail) {
      codes.push_back(static_cast<char>(lead));
      codes.push_back(static_cast<char>(trail));
    }
  std::vector<unsigned char> units(codes.size());
  char* in = codes.data();
  std::size_t inLeft = codes.size();
  while (inLeft > 0) {
    const char* code = in;
    char* out = reinterpret_cast<char*>(units.data());
    std::size_t outLeft = units.size();
    // Stops in front of a code that has no character.
    iconv(converter, &in, &inLeft, &out, &outLeft);
    const std::size_t read = units.size() - outLeft;
    for (std::size_t at = 0; at < read && code + at < in; at += 2)
      visit(static_cast<std::size_t>(units[at] | units[at + 1] << 8),
            static_cast<std::uint16_t>(static_cast<unsigned char>(code[at]) << 8 |
                                       static_cast<unsigned char>(code[at + 1])));
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    if (inLeft > 0) {
      in += 2;
      inLeft -= 2;
    }
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

std::size_t CodePageLength(TextView text) {
  std::size_t length = 0;
  while (!text.empty()) {
    // What most texts are made of needs no table.
    const scan::Han leading = scan::LeadingHan(text);
    length += leading.units + leading.han;
    text.remove_prefix(leading.units);
    if (text.empty()) break;
    static const auto wide = ReadDoubleByteUnits();
    const TextView others = text.substr(0, 16);
    for (const char16_t unit : others)
      length += unit >= 0x80 && wide->test(unit) ? 2 : 1;
    text.remove_prefix(others.size());
  }
  return length;
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
